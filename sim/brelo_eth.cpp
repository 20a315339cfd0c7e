// Simulated platform functions: the LAN Ethernet ports.
// State: one section [eth N] per port N (see sim/gateway/eth.ini); an unknown port fails.
#include <string.h>

#include <string>

#include "common/platform_lan.h"
#include "sim/sim.h"

namespace {

std::string port_section(int port) { return "eth " + std::to_string(port); }

bool port_known(const std::string &s) { return sim::entry_count(s.c_str()) != 0; }

bool one_of(const char *text, const char *const *allowed) {
  for (; *allowed != nullptr; ++allowed)
    if (strcmp(text, *allowed) == 0) return true;
  return false;
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_getLANEthernetInfo(int port, char *enable, char *status, char *bitRate,
                                        char *duplexMode) {
  sim::call("brelo_getLANEthernetInfo", "%d", port);
  sim::Guard guard;
  std::string s = port_section(port);
  sim::out_text(enable, 64, s.c_str(), "enable");
  sim::out_text(status, 64, s.c_str(), "status");
  sim::out_text(bitRate, 64, s.c_str(), "bit_rate");
  sim::out_text(duplexMode, 64, s.c_str(), "duplex");
  return sim::result("brelo_getLANEthernetInfo", port_known(s) ? 0 : -1);
}

SIM_EXPORT int brelo_getLANEthernetStats(int port, unsigned int *bytesSent,
                                         unsigned int *bytesReceived, unsigned int *packetsSent,
                                         unsigned int *packetsReceived) {
  sim::call("brelo_getLANEthernetStats", "%d", port);
  sim::Guard guard;
  std::string s = port_section(port);
  const char *sec = s.c_str();
  *bytesSent = static_cast<unsigned int>(sim::get_int(sec, "bytes_sent"));
  *bytesReceived = static_cast<unsigned int>(sim::get_int(sec, "bytes_received"));
  *packetsSent = static_cast<unsigned int>(sim::get_int(sec, "packets_sent"));
  *packetsReceived = static_cast<unsigned int>(sim::get_int(sec, "packets_received"));
  return sim::result("brelo_getLANEthernetStats", port_known(s) ? 0 : -1);
}

SIM_EXPORT int brelo_setLANEthernetEnable(int port, int enable) {
  sim::call("brelo_setLANEthernetEnable", "%d, %d", port, enable);
  sim::Guard guard;
  std::string s = port_section(port);
  bool known = port_known(s);
  int rc = sim::result("brelo_setLANEthernetEnable", known ? 0 : -1);
  if (rc == 0 && known) {
    sim::set(s.c_str(), "enable", enable ? "1" : "0");
    sim::set(s.c_str(), "status", enable ? "Up" : "Disabled");
  }
  return rc;
}

SIM_EXPORT int brelo_setLANEthernetMaxBitRate(int port, const char *bitRate) {
  sim::call("brelo_setLANEthernetMaxBitRate", "%d, \"%s\"", port, bitRate);
  sim::Guard guard;
  static const char *const kRates[] = {"10", "100", "1000", "Auto", nullptr};
  std::string s = port_section(port);
  bool valid = port_known(s) && one_of(bitRate, kRates);
  int rc = sim::result("brelo_setLANEthernetMaxBitRate", valid ? 0 : -1);
  if (rc == 0 && valid) sim::set(s.c_str(), "bit_rate", bitRate);
  return rc;
}

SIM_EXPORT int brelo_setLANEthernetDuplexMode(int port, const char *duplexMode) {
  sim::call("brelo_setLANEthernetDuplexMode", "%d, \"%s\"", port, duplexMode);
  sim::Guard guard;
  static const char *const kModes[] = {"Half", "Full", "Auto", nullptr};
  std::string s = port_section(port);
  bool valid = port_known(s) && one_of(duplexMode, kModes);
  int rc = sim::result("brelo_setLANEthernetDuplexMode", valid ? 0 : -1);
  if (rc == 0 && valid) sim::set(s.c_str(), "duplex", duplexMode);
  return rc;
}

}  // extern "C"
