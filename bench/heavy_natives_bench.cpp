// The heavy natives at a realistic or maximal size and at a quarter of it, against the
// simulated gateway, for instruction counts under callgrind (run-callgrind-heavy.sh):
//
//   lan-class      getLANHostInfoByClassJni("ONLINE")      64 / 256 hosts
//   lan-mac        getLANHostInfoByMACJni(every host's MAC) 64 / 256 hosts
//   wlan-neighbour getWLANNeighborJni("2.4G")              32 / 128 access points (the most)
//   port-mapping   getPortMappingInfoJni                   80 / 320 rules (8 / 32 WANs x 10)
//   traffic-tree   getTrafficMonitoringDestAddressInfoJni  2040 / 8160 addresses (2 / 8 groups)
//   vpn-dest       addVpnDestIPJni(IPv4 destinations)      5000 / 20000 destinations (the most)
//
//   heavy_natives_bench --cases              one line per case: name, native, small, large, unit
//   heavy_natives_bench --once CASE SIZE     the gateway of that size, then one call (callgrind
//                                            collects the native alone), its reply size printed
//   heavy_natives_bench [calls]              time per call of every case at both sizes
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "bench/bench_gateways.h"
#include "sim/sim_control.h"
#include "tests/fake_jni.h"

extern "C" {
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
    JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(
    JNIEnv *, jobject, jobjectArray);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(
    JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(
    JNIEnv *, jobject);
jstring
Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(
    JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(
    JNIEnv *, jobject, jobjectArray);
}

namespace {

// ---------------------------------------------------------------------------------------------
// Gateways of a given size.

std::vector<std::string> g_macs;         // the hosts' MAC texts
std::vector<std::string> g_destinations;  // the VPN destinations

// Hosts as lan_host_bench makes them.
void hosts(int n) { g_macs = benchgw::lan_hosts(n); }

// Access points on the 2.4 GHz radio with SSIDs of 11-14 characters, one in four needing HTML
// escapes.
void neighbours(int n) {
  for (int i = 0; i < n; ++i) {
    std::string s = "wlan neighbour " + std::to_string(i + 1);
    char bssid[18];
    snprintf(bssid, sizeof bssid, "70:4F:57:%02X:%02X:%02X", i & 0xFF, (i * 7) & 0xFF, (i * 13) & 0xFF);
    sim_set(s.c_str(), "radio", "0");
    std::string ssid = (i % 4 == 0 ? "Joe's <AP> " : "Neighbour-") + std::to_string(i);
    sim_set(s.c_str(), "ssid", ssid.c_str());
    sim_set(s.c_str(), "bssid", bssid);
    sim_set(s.c_str(), "channel", std::to_string(1 + i % 13).c_str());
    sim_set(s.c_str(), "rssi", std::to_string(-40 - i % 50).c_str());
    sim_set(s.c_str(), "standard", std::to_string(i % 10).c_str());
  }
}

// WANs 0 .. n-1 (internal index v = PVC * 8 + entry, all of them INTERNET routes) with all
// ten port-mapping slots used.
void port_mappings(int wans) {
  std::string valid;
  for (int v = 0; v < wans; ++v) {
    valid += (v == 0 ? "" : ",") + std::to_string(v);
    std::string pvc = "tcapi Wan_PVC" + std::to_string(v >> 3);
    sim_set(pvc.c_str(), "VLANMode", "TAG");
    sim_set(pvc.c_str(), "VLANID", std::to_string(100 + (v >> 3)).c_str());
    std::string entry = pvc + "_Entry" + std::to_string(v & 7);
    sim_set(entry.c_str(), "IFIdx", std::to_string(v + 1).c_str());
    sim_set(entry.c_str(), "ServiceList", "INTERNET");
    sim_set(entry.c_str(), "WanMode", "Route");
    for (int slot = 0; slot < 10; ++slot) {
      std::string rule = "tcapi VirServer_Entry" + std::to_string(v) + "_Entry" + std::to_string(slot);
      int port = 8000 + v * 10 + slot;
      sim_set(rule.c_str(), "Protocal", slot % 3 == 0 ? "TCP/UDP" : "TCP");
      sim_set(rule.c_str(), "SrcIP", "0.0.0.0");
      sim_set(rule.c_str(), "STARTPORT", std::to_string(port).c_str());
      sim_set(rule.c_str(), "ENDPORT", std::to_string(port).c_str());
      sim_set(rule.c_str(), "INTPORT", std::to_string(80 + slot).c_str());
      sim_set(rule.c_str(), "LOCALIP", ("192.168.1." + std::to_string(2 + v * 7 % 250)).c_str());
      sim_set(rule.c_str(), "MapName", ("Server_" + std::to_string(v) + "_" + std::to_string(slot)).c_str());
      sim_set(rule.c_str(), "Active", slot % 4 == 3 ? "No" : "Yes");
    }
  }
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", valid.c_str());
}

// The monitoring tree as traffic_monitoring_bench makes it: 1020 addresses per owned group.
void monitoring_tree(int addresses) { benchgw::monitoring_tree(addresses / 1020); }

// IPv4 destinations of 8-11 characters ("10.<a>.<b>.<c>").
void vpn_destinations(int n) {
  g_destinations.clear();
  for (int i = 0; i < n; ++i)
    g_destinations.push_back("10." + std::to_string(i / 65536 % 256) + "." + std::to_string(i / 256 % 256) +
                             "." + std::to_string(i % 256));
}

// ---------------------------------------------------------------------------------------------
// The calls. Each answers its reply's size in bytes (the VPN native answers an int: 0).

size_t text_size(fakejni::FakeJvm &jvm, jstring r) { return r == nullptr ? 0 : jvm.text(r).size(); }

size_t lan_class(fakejni::FakeJvm &jvm) {
  return text_size(jvm, Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
                            jvm.env(), jvm.self(), jvm.str("ONLINE")));
}

size_t lan_mac(fakejni::FakeJvm &jvm) {
  jobjectArray macs = jvm.array_of(g_macs);
  return text_size(jvm, Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(
                            jvm.env(), jvm.self(), macs));
}

size_t wlan_neighbour(fakejni::FakeJvm &jvm) {
  return text_size(jvm, Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(
                            jvm.env(), jvm.self(), jvm.str("2.4G")));
}

size_t port_mapping(fakejni::FakeJvm &jvm) {
  return text_size(jvm, Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(
                            jvm.env(), jvm.self()));
}

size_t traffic_tree(fakejni::FakeJvm &jvm) {
  return text_size(
      jvm,
      Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(
          jvm.env(), jvm.self()));
}

size_t vpn_dest(fakejni::FakeJvm &jvm) {
  jobjectArray destinations = jvm.array_of(g_destinations);
  Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(jvm.env(), jvm.self(),
                                                                                   destinations);
  return 0;
}

struct Case {
  const char *name;
  const char *native;  // the exported symbol callgrind collects
  int small, large;
  const char *unit;
  void (*build)(int size);
  size_t (*call)(fakejni::FakeJvm &jvm);
};

#define LAN "Java_com_lumarest_smartgateway_lanservices_"
const Case kCases[] = {
    {"lan-class", LAN "LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni", 64, 256, "hosts", hosts,
     lan_class},
    {"lan-mac", LAN "LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni", 64, 256, "hosts", hosts, lan_mac},
    {"wlan-neighbour", LAN "WlanQueryServiceImp_getWLANNeighborJni", 32, 128, "neighbours", neighbours,
     wlan_neighbour},
    {"port-mapping",
     "Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni", 80, 320,
     "rules", [](int rules) { port_mappings(rules / 10); }, port_mapping},
    {"traffic-tree",
     "Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_"
     "getTrafficMonitoringDestAddressInfoJni",
     2040, 8160, "addresses", monitoring_tree, traffic_tree},
    {"vpn-dest", "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni", 5000,
     20000, "destinations", vpn_destinations, vpn_dest},
};
#undef LAN

const Case *find(const char *name) {
  for (const Case &c : kCases)
    if (strcmp(c.name, name) == 0) return &c;
  return nullptr;
}

// A gateway that holds only what the case builds, so the simulator's lookups walk only it.
void gateway(const Case &c, int size) {
  sim_reset();
  sim_set_save_path(nullptr);
  c.build(size);
  sim_clear_log();
}

}  // namespace

int main(int argc, char **argv) {
  if (argc == 2 && strcmp(argv[1], "--cases") == 0) {
    for (const Case &c : kCases) printf("%s %s %d %d %s\n", c.name, c.native, c.small, c.large, c.unit);
    return 0;
  }
  if (argc == 4 && strcmp(argv[1], "--once") == 0) {
    const Case *c = find(argv[2]);
    if (c == nullptr) {
      fprintf(stderr, "no case %s\n", argv[2]);
      return 2;
    }
    int size = atoi(argv[3]);
    gateway(*c, size);
    fakejni::FakeJvm jvm;
    size_t bytes = c->call(jvm);
    printf("%s %d %s: reply %zu bytes, %d platform calls\n", c->name, size, c->unit, bytes,
           static_cast<int>(std::count(sim_log(), sim_log() + strlen(sim_log()), '\n')));
    return 0;
  }
  int calls = argc > 1 ? atoi(argv[1]) : 5;
  if (calls <= 0) calls = 1;
  printf("%-15s %8s %-12s %12s %14s\n", "case", "size", "unit", "reply bytes", "us per call");
  for (const Case &c : kCases) {
    for (int size : {c.small, c.large}) {
      gateway(c, size);
      double total = 0;
      size_t bytes = 0;
      for (int k = 0; k < calls; ++k) {
        fakejni::FakeJvm jvm;
        auto t0 = std::chrono::steady_clock::now();
        bytes = c.call(jvm);
        auto t1 = std::chrono::steady_clock::now();
        total += std::chrono::duration<double, std::micro>(t1 - t0).count();
        sim_clear_log();
      }
      printf("%-15s %8d %-12s %12zu %14.1f\n", c.name, size, c.unit, bytes, total / calls);
    }
  }
  return 0;
}
