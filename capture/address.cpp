// address.ini: the gateway's own LAN addresses and its DHCP server.
#include <string.h>

#include "capture/context.h"

namespace capture {

void capture_address(Context &c, StateFile *f) {
  if (CAPTURE_HAVE(c, brelo_lanGetHostIP)) {
    char ipv4[LAN_IP_TEXT_SIZE] = {}, mask[LAN_IP_TEXT_SIZE] = {}, prefix[LAN_IP_TEXT_SIZE] = {};
    char first[LAN_IPV6_TEXT_SIZE] = {}, second[LAN_IPV6_TEXT_SIZE] = {};
    c.noted(k_brelo_lanGetHostIP, c.p.brelo_lanGetHostIP(ipv4, mask, first, second, prefix));
    f->section("lan_ip");
    f->field("ipv4", ipv4);
    f->field("mask", mask);
    f->field("ipv6_first", first);
    f->field("ipv6_second", second);
    f->field("prefix_len", prefix);
  }
  if (CAPTURE_HAVE(c, brelo_dhcpdGetServerSettings)) {
    // Numbers the platform leaves as they were stay absent (the caller's zeroes then show).
    const int32_t kUnset = -0x5A5A5A5B;
    DhcpServerSettings s;
    memset(&s, 0, sizeof s);
    s.enabled = kUnset;
    s.lease = kUnset;
    c.noted(k_brelo_dhcpdGetServerSettings, c.p.brelo_dhcpdGetServerSettings(&s));
    f->section("dhcp_server");
    if (s.enabled != kUnset) f->number("enabled", s.enabled);
    f->field("start", s.start);
    f->field("end", s.end);
    if (s.lease != kUnset) f->number("lease", s.lease);
  }
}

}  // namespace capture
