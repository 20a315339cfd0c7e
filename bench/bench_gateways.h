// Simulated gateways of a given size for the benchmarks, made with the simulator's controls on
// top of whatever state is loaded (call sim_reset() first for a gateway holding only these).
#ifndef BENCH_BENCH_GATEWAYS_H
#define BENCH_BENCH_GATEWAYS_H

#include <stdio.h>

#include <string>
#include <vector>

#include "sim/sim_control.h"

namespace benchgw {

// `n` LAN hosts named and addressed like busy home networks: names of 14-23 characters, every
// other one with an IPv6 address, all online. Returns their MAC texts.
inline std::vector<std::string> lan_hosts(int n) {
  std::vector<std::string> macs;
  for (int i = 0; i < n; ++i) {
    std::string s = "host " + std::to_string(i + 1);
    char mac[18];
    snprintf(mac, sizeof mac, "3C:5A:B4:%02X:%02X:%02X", (i * 37) & 0xFF, (i >> 8) & 0xFF, i & 0xFF);
    macs.push_back(mac);
    sim_set(s.c_str(), "mac", mac);
    sim_set(s.c_str(), "dhcp_name", ("android-" + std::to_string(100000 + i * 7919)).c_str());
    sim_set(s.c_str(), "device_name", ("Living room device " + std::to_string(i)).c_str());
    sim_set(s.c_str(), "ip", ("192.168." + std::to_string(1 + i / 250) + "." + std::to_string(2 + i % 250)).c_str());
    sim_set(s.c_str(), "ipv6", i % 2 ? ("2001:db8:1::" + std::to_string(i)).c_str() : "");
    sim_set(s.c_str(), "port", std::to_string(1 + i % 12).c_str());
    sim_set(s.c_str(), "online_time", std::to_string(i * 61).c_str());
    sim_set(s.c_str(), "class_code", "0");
  }
  return macs;
}

// The traffic monitoring tree: groups of 4 PVC numbers, the first `owned_groups` (at most 8)
// owned by a bundle, each PVC holding 255 addresses (1020 per group), IPv4 texts of 8 to 11
// characters.
inline void monitoring_tree(int owned_groups) {
  for (int pvc = 0; pvc < owned_groups * 4; ++pvc) {
    if (pvc % 4 == 0) {
      std::string node = "tcapi TrafficMonitoring_PVC" + std::to_string(pvc);
      sim_set(node.c_str(), "bundleName", ("com.example.bundle" + std::to_string(pvc / 4)).c_str());
    }
    for (int e = 0; e < 255; ++e) {
      std::string node = "tcapi TrafficMonitoring_PVC" + std::to_string(pvc) + "_Entry" + std::to_string(e);
      std::string address = "10." + std::to_string(pvc / 4) + "." + std::to_string(pvc) + "." + std::to_string(e);
      sim_set(node.c_str(), "destAddressList", address.c_str());
    }
  }
}

}  // namespace benchgw

#endif
