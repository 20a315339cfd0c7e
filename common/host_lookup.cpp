#include "common/host_lookup.h"

#include <netdb.h>
#include <pthread.h>
#include <string.h>

namespace {

pthread_mutex_t g_resolver_lock = PTHREAD_MUTEX_INITIALIZER;

}  // namespace

namespace bundle {

bool resolve_host(const char *name, HostAddresses *out) {
  memset(out, 0, sizeof *out);
  pthread_mutex_lock(&g_resolver_lock);
  const struct hostent *entry = gethostbyname(name);
  bool found = entry != nullptr;
  if (found) {
    out->family = entry->h_addrtype;
    out->length = entry->h_length;
    size_t width = entry->h_length > 0 ? static_cast<size_t>(entry->h_length) : 0;
    if (width > sizeof out->address[0]) width = sizeof out->address[0];
    for (char **a = entry->h_addr_list; a != nullptr && *a != nullptr; ++a) {
      if (out->count == HOST_LOOKUP_MAX_ADDRESSES) break;
      memcpy(out->address[out->count++], *a, width);
    }
  }
  pthread_mutex_unlock(&g_resolver_lock);
  return found;
}

}  // namespace bundle
