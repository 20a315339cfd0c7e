#include "common/host_lookup.h"

#include <netdb.h>
#include <pthread.h>
#include <stdlib.h>
#include <string.h>

// Off the gateway, the simulated platform library defines this hook: nonzero when system()
// and gethostbyname() of this process are the simulator's host side (libgatewayhost.so loaded
// ahead of the C library), else 0, and then it tells the user once how to fix that. A JVM
// loads this library with dlopen, so both names are bound from the process's global scope,
// where the C library comes first unless the host side was preloaded: the simulated platform
// cannot stand in for them by itself, it can only say whether someone did.
//
// On the gateway no library defines the hook. The reference is weak, so the dynamic loader
// binds it once, to null, and every call below goes to the C library exactly as it always
// has. Two tests and a call per lookup or command are all it costs.
extern "C" int sim_host_side_ready(void) __attribute__((weak, visibility("default")));

namespace {

pthread_mutex_t g_resolver_lock = PTHREAD_MUTEX_INITIALIZER;

bool host_side_allowed() { return sim_host_side_ready == nullptr || sim_host_side_ready() != 0; }

}  // namespace

namespace bundle {

bool resolve_host(const char *name, HostAddresses *out) {
  memset(out, 0, sizeof *out);
  if (!host_side_allowed()) return false;
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

int run_command(const char *command) { return host_side_allowed() ? system(command) : -1; }

}  // namespace bundle
