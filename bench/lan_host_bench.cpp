// Time per call of the LAN host class query and MAC query for 16, 64 and 256 hosts, against
// the simulated gateway, and the growth of the class query from 64 to 256 hosts.
//
//   lan_host_bench [calls]         time per call (steady clock), default 200 calls per size
//   lan_host_bench --once SIZE     one class query and one MAC query (for callgrind)
//
// Hosts have realistic names (about 20-30 characters), half of them with an IPv6 address, so
// 256 hosts make a class reply of about 60 KiB, close to its 64 KiB buffer.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <chrono>
#include <string>
#include <vector>

#include "common/array_readers.h"
#include "common/platform_lan.h"
#include "bench/bench_gateways.h"
#include "sim/sim_control.h"
#include "tests/fake_jni.h"

extern "C" {
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
    JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(
    JNIEnv *, jobject, jobjectArray);
}

namespace {

std::vector<std::string> g_macs;

void load_hosts(int n) {
  sim_reset();
  g_macs = benchgw::lan_hosts(n);
}

size_t class_query(fakejni::FakeJvm &jvm) {
  jstring r = Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
      jvm.env(), jvm.self(), jvm.str("ONLINE"));
  return jvm.text(r).size();
}

size_t mac_query(fakejni::FakeJvm &jvm) {
  std::vector<std::string> macs(g_macs.begin(), g_macs.begin() + (g_macs.size() < 256 ? g_macs.size() : 256));
  jstring r = Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(
      jvm.env(), jvm.self(), jvm.array_of(macs));
  return jvm.text(r).size();
}

// The platform's share of each query: the same platform call alone, its list freed.
size_t class_platform(fakejni::FakeJvm &) {
  LanHostRecord *list = nullptr;
  int count = 0;
  brelo_lanGethostInfobytype(&list, &count, nullptr, 0);
  free(list);
  return static_cast<size_t>(count);
}

size_t mac_platform(fakejni::FakeJvm &) {
  static char entries[MAX_MAC_ENTRIES][MAC_ENTRY_SIZE];
  memset(entries, 0, sizeof entries);
  int n = 0;
  for (; n < static_cast<int>(g_macs.size()) && n < 256; ++n) snprintf(entries[n], MAC_ENTRY_SIZE, "%s", g_macs[n].c_str());
  LanHostRecord *list = nullptr;
  int count = 0;
  brelo_lanGethostInfoByMACArr(&list, &count, entries, n);
  free(list);
  return static_cast<size_t>(count);
}

double time_per_call_us(int calls, size_t (*query)(fakejni::FakeJvm &), size_t *reply_size) {
  double total = 0;
  for (int c = 0; c < calls; ++c) {
    fakejni::FakeJvm jvm;  // a fresh one each call, so the fake JVM's bookkeeping stays small
    auto t0 = std::chrono::steady_clock::now();
    *reply_size = query(jvm);
    auto t1 = std::chrono::steady_clock::now();
    total += std::chrono::duration<double, std::micro>(t1 - t0).count();
    sim_clear_log();
  }
  return total / calls;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc == 3 && strcmp(argv[1], "--once") == 0) {
    load_hosts(atoi(argv[2]));
    fakejni::FakeJvm jvm;
    size_t a = class_query(jvm);
    size_t b = mac_query(jvm);
    printf("hosts %s: class reply %zu bytes, MAC reply %zu bytes\n", argv[2], a, b);
    return 0;
  }
  int calls = argc > 1 ? atoi(argv[1]) : 200;
  if (calls <= 0) calls = 1;
  const int sizes[] = {16, 64, 256};
  double class_own[3] = {};
  printf("time per call in microseconds; \"own\" = the native without the simulated platform call\n");
  printf("%-6s %12s %12s %12s %12s %12s %12s\n", "hosts", "class total", "class own", "class bytes", "MAC total",
         "MAC own", "MAC bytes");
  for (int k = 0; k < 3; ++k) {
    load_hosts(sizes[k]);
    size_t class_bytes = 0, mac_bytes = 0, ignored = 0;
    double class_total = time_per_call_us(calls, class_query, &class_bytes);
    double class_sim = time_per_call_us(calls, class_platform, &ignored);
    double mac_total = time_per_call_us(calls, mac_query, &mac_bytes);
    double mac_sim = time_per_call_us(calls, mac_platform, &ignored);
    class_own[k] = class_total - class_sim;
    printf("%-6d %12.1f %12.1f %12zu %12.1f %12.1f %12zu\n", sizes[k], class_total, class_own[k], class_bytes,
           mac_total, mac_total - mac_sim, mac_bytes);
  }
  printf("class query growth 64 -> 256 hosts (own time): %.2fx (the host count grows 4x)\n",
         class_own[2] / class_own[1]);
  return 0;
}
