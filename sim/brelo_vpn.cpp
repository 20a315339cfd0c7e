// Simulated platform functions: the L2TP VPN tunnel.
// State: section [vpn] (see sim/gateway/vpn.ini). The tunnel is "connecting" (status 1) once
// switched on and is up (status 2) from the next status query on, when it lists its addresses.
#include <string.h>

#include <algorithm>
#include <string>

#include "common/platform_vpn.h"
#include "sim/sim.h"

namespace {

const char kVpn[] = "vpn";
constexpr int kDown = 0;
constexpr int kConnecting = 1;
constexpr int kUp = 2;

const char *text_arg(const char *s) { return s != nullptr ? s : "(null)"; }

// "a b c" into "\"a\",\"b\",\"c\"".
std::string quoted_list(const std::string &blank_separated) {
  std::string out;
  size_t pos = 0;
  while (true) {
    size_t start = blank_separated.find_first_not_of(' ', pos);
    if (start == std::string::npos) break;
    size_t end = blank_separated.find(' ', start);
    std::string item = blank_separated.substr(start, end == std::string::npos ? std::string::npos : end - start);
    out += (out.empty() ? "\"" : ",\"") + item + "\"";
    if (end == std::string::npos) break;
    pos = end;
  }
  return out;
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_vpnOn(char *serverIp, char *userName, char *password) {
  sim::call("brelo_vpnOn", "\"%s\", \"%s\", \"%s\"", text_arg(serverIp), text_arg(userName),
            text_arg(password));
  if (sim::has_result("brelo_vpnOn")) return sim::result("brelo_vpnOn", 0);
  if (serverIp == nullptr || serverIp[0] == '\0' || userName == nullptr || password == nullptr)
    return sim::returns("brelo_vpnOn", -1);
  sim::Guard guard;
  sim::set(kVpn, "server", serverIp);
  sim::set(kVpn, "user", userName);
  sim::set(kVpn, "password", password);
  sim::set(kVpn, "status", std::to_string(kConnecting));
  sim::set(kVpn, "connected_ips", "");
  return sim::returns("brelo_vpnOn", 0);
}

SIM_EXPORT int brelo_vpnOff(char *serverIp) {
  sim::call("brelo_vpnOff", "\"%s\"", text_arg(serverIp));
  if (sim::has_result("brelo_vpnOff")) return sim::result("brelo_vpnOff", 0);
  sim::Guard guard;
  // Only the tunnel that is on can be switched off.
  if (serverIp == nullptr || sim::get_int(kVpn, "status") == kDown ||
      sim::get_str(kVpn, "server") != serverIp)
    return sim::returns("brelo_vpnOff", -1);
  sim::set(kVpn, "status", std::to_string(kDown));
  sim::set(kVpn, "connected_ips", "");
  return sim::returns("brelo_vpnOff", 0);
}

SIM_EXPORT int brelo_getVpnStatCmd(int *status) {
  sim::call("brelo_getVpnStatCmd", "%s", "");
  sim::Guard guard;
  int now = static_cast<int>(sim::get_int(kVpn, "status"));
  if (status != nullptr) *status = now;
  if (now == kConnecting) {  // the tunnel comes up after one look
    sim::set(kVpn, "status", std::to_string(kUp));
    sim::set(kVpn, "connected_ips", sim::get_str(kVpn, "tunnel_ips"));
  }
  return sim::result("brelo_getVpnStatCmd", 0);
}

SIM_EXPORT int brelo_getConnectedIpList(char *buffer, int size) {
  sim::call("brelo_getConnectedIpList", "%d", size);
  if (buffer == nullptr || size <= 0) return sim::returns("brelo_getConnectedIpList", -1);
  sim::Guard guard;
  std::string list = quoted_list(sim::get_str(kVpn, "connected_ips"));
  // A "connected_list" value is handed over as it stands (a platform text of any shape).
  if (sim::get(kVpn, "connected_list") != nullptr) list = sim::get_str(kVpn, "connected_list");
  size_t n = std::min(list.size(), static_cast<size_t>(size - 1));
  memcpy(buffer, list.data(), n);
  buffer[n] = '\0';
  return sim::result("brelo_getConnectedIpList", 0);
}

}  // extern "C"
