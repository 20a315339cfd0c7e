// vpn.ini: the L2TP tunnel's status and the addresses it lists. The credentials it was switched
// on with cannot be read back from the platform.
//
// The list is read before and after the status: a tunnel that is connecting comes up when its
// status is looked at, and lists its addresses from then on (tunnel_ips).
#include <string.h>

#include "capture/context.h"

namespace capture {
namespace {

constexpr int kListSize = 4096;  // the library's buffer

// The list as the simulator composes it from blank-separated addresses ("a","b"), when the
// platform's text is one; false otherwise (the text is then kept as it stands).
bool addresses_of(const char *list, Text *out) {
  const char *p = list;
  while (*p != '\0') {
    if (*p != '"') return false;
    const char *end = strchr(p + 1, '"');
    if (end == nullptr || end == p + 1) return false;
    for (const char *q = p + 1; q < end; ++q)
      if (*q == ' ' || *q == ',') return false;
    if (out->size() > 0) out->append(' ');
    out->append(p + 1, static_cast<size_t>(end - p - 1));
    p = end + 1;
    if (*p == ',') {
      ++p;
      if (*p == '\0') return false;
    } else if (*p != '\0') {
      return false;
    }
  }
  return true;
}

void write_list(Context &c, StateFile *f, const char *ips_key, const char *list) {
  Text ips;
  if (addresses_of(list, &ips)) {
    f->text(ips_key, ips.data(), ips.size());
  } else if (strcmp(ips_key, "connected_ips") == 0) {
    f->text("connected_list", list);
  }
}

}  // namespace

void capture_vpn(Context &c, StateFile *f) {
  f->section("vpn");
  char before[kListSize] = {}, after[kListSize] = {};
  if (CAPTURE_HAVE(c, brelo_getConnectedIpList))
    c.noted(k_brelo_getConnectedIpList, c.p.brelo_getConnectedIpList(before, kListSize));
  if (CAPTURE_HAVE(c, brelo_getVpnStatCmd)) {
    int status = 0;
    c.noted(k_brelo_getVpnStatCmd, c.p.brelo_getVpnStatCmd(&status));
    f->number("status", status);
  }
  if (CAPTURE_HAVE(c, brelo_getConnectedIpList)) {
    c.noted(k_brelo_getConnectedIpList, c.p.brelo_getConnectedIpList(after, kListSize));
    write_list(c, f, "connected_ips", before);
    write_list(c, f, "tunnel_ips", after);
  }
}

}  // namespace capture
