// Simulated platform functions: the gateway's own LAN address and its DHCP server.
// State: sections [lan_ip] and [dhcp_server] (see sim/gateway/address.ini).
#include <arpa/inet.h>
#include <stdint.h>

#include <string>

#include "common/platform_address.h"
#include "sim/sim.h"

namespace {

const char kLanIp[] = "lan_ip";
const char kDhcp[] = "dhcp_server";

// The address of a dotted quad in host order; false when the text is not one.
bool dotted_quad(const char *text, uint32_t *address) {
  struct in_addr a;
  if (inet_pton(AF_INET, text, &a) != 1) return false;
  *address = ntohl(a.s_addr);
  return true;
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_lanSetLanHostIP(const char *address, const char *mask) {
  sim::call("brelo_lanSetLanHostIP", "\"%s\", \"%s\"", address, mask);
  uint32_t a = 0;
  uint32_t m = 0;
  if (!dotted_quad(address, &a) || !dotted_quad(mask, &m))
    return sim::result("brelo_lanSetLanHostIP", -1);
  sim::Guard guard;
  sim::set(kLanIp, "ipv4", address);
  sim::set(kLanIp, "mask", mask);
  return sim::result("brelo_lanSetLanHostIP", 0);
}

SIM_EXPORT int brelo_lanSetLANDHCPInfo(int enable, const char *startAddress,
                                       const char *endAddress, int duration) {
  sim::call("brelo_lanSetLANDHCPInfo", "%d, \"%s\", \"%s\", %d", enable, startAddress, endAddress,
            duration);
  uint32_t start = 0;
  uint32_t end = 0;
  if (!dotted_quad(startAddress, &start) || !dotted_quad(endAddress, &end) || start > end)
    return sim::result("brelo_lanSetLANDHCPInfo", -1);
  sim::Guard guard;
  sim::set(kDhcp, "enabled", std::to_string(enable));
  sim::set(kDhcp, "start", startAddress);
  sim::set(kDhcp, "end", endAddress);
  sim::set(kDhcp, "lease", std::to_string(duration));
  return sim::result("brelo_lanSetLANDHCPInfo", 0);
}

SIM_EXPORT int brelo_lanGetHostIP(char *ipv4, char *mask, char *ipv6First, char *ipv6Second,
                                  char *prefixLen) {
  sim::call("brelo_lanGetHostIP", "%s", "");
  sim::Guard guard;
  sim::out_text(ipv4, LAN_IP_TEXT_SIZE, kLanIp, "ipv4");
  sim::out_text(mask, LAN_IP_TEXT_SIZE, kLanIp, "mask");
  sim::out_text(ipv6First, LAN_IPV6_TEXT_SIZE, kLanIp, "ipv6_first");
  sim::out_text(ipv6Second, LAN_IPV6_TEXT_SIZE, kLanIp, "ipv6_second");
  sim::out_text(prefixLen, LAN_IP_TEXT_SIZE, kLanIp, "prefix_len");
  return sim::result("brelo_lanGetHostIP", 0);
}

SIM_EXPORT int brelo_dhcpdGetServerSettings(DhcpServerSettings *settings) {
  sim::call("brelo_dhcpdGetServerSettings", "%s", "");
  sim::Guard guard;
  if (sim::get(kDhcp, "enabled") != nullptr)
    settings->enabled = static_cast<int32_t>(sim::get_int(kDhcp, "enabled"));
  sim::out_text(settings->start, sizeof settings->start, kDhcp, "start");
  sim::out_text(settings->end, sizeof settings->end, kDhcp, "end");
  if (sim::get(kDhcp, "lease") != nullptr)
    settings->lease = static_cast<int32_t>(sim::get_int(kDhcp, "lease"));
  return sim::result("brelo_dhcpdGetServerSettings", 0);
}

}  // extern "C"
