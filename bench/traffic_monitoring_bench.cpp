// The traffic monitoring query on a full configuration tree: 8 groups of 4 PVC numbers, each
// owned by a bundle and holding 4 x 255 = 1020 addresses (8160 in all), against the simulated
// gateway.
//
//   traffic_monitoring_bench [calls]   tcapi_get calls, reply size and time per query
//                                      (steady clock), default 20 queries
//   traffic_monitoring_bench --once    one query (for callgrind)
//
// Addresses are IPv4 texts of 8 to 11 characters ("10.<group>.<pvc>.<entry>"), so the full
// reply is 108,647 bytes, within the query's 128 KiB buffers.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <chrono>
#include <string>

#include "common/platform_addrcheck.h"
#include "common/platform_tcapi.h"
#include "bench/bench_gateways.h"
#include "sim/sim_control.h"
#include "tests/fake_jni.h"

extern "C" {
jstring
Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(
    JNIEnv *, jobject);
}

namespace {

void load_full_tree() {
  sim_reset();
  benchgw::monitoring_tree(8);
}

size_t query(fakejni::FakeJvm &jvm) {
  jstring r =
      Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(
          jvm.env(), jvm.self());
  return jvm.text(r).size();
}

// The platform's share of a query: the same tree reads and emptiness checks alone.
size_t platform_share(fakejni::FakeJvm &) {
  static char value[4096];
  size_t n = 0;
  for (int b = 0; b < 32; b += 4) {
    char node[64];
    snprintf(node, sizeof node, "TrafficMonitoring_PVC%d", b);
    tcapi_get(node, "bundleName", value);
    for (int p = b; p < b + 4; ++p)
      for (int e = 0; e < 255; ++e) {
        snprintf(node, sizeof node, "TrafficMonitoring_PVC%d_Entry%d", p, e);
        tcapi_get(node, "destAddressList", value);
        n += strNull(value) ? 0 : 1;
      }
  }
  return n;
}

double time_per_call_us(int calls, size_t (*fn)(fakejni::FakeJvm &), size_t *result) {
  double total = 0;
  for (int c = 0; c < calls; ++c) {
    fakejni::FakeJvm jvm;
    auto t0 = std::chrono::steady_clock::now();
    *result = fn(jvm);
    auto t1 = std::chrono::steady_clock::now();
    total += std::chrono::duration<double, std::micro>(t1 - t0).count();
    sim_clear_log();  // the call log would otherwise grow by 16,000 lines per query
  }
  return total / calls;
}

}  // namespace

int main(int argc, char **argv) {
  load_full_tree();
  if (argc == 2 && strcmp(argv[1], "--once") == 0) {
    fakejni::FakeJvm jvm;
    size_t bytes = query(jvm);
    printf("full tree: reply %zu bytes\n", bytes);
    return 0;
  }
  int calls = argc > 1 ? atoi(argv[1]) : 20;
  if (calls <= 0) calls = 1;

  fakejni::FakeJvm jvm;
  sim_clear_log();
  size_t bytes = query(jvm);
  printf("full tree: 8 groups x 1020 addresses; reply %zu bytes\n", bytes);
  printf("per query: %d tcapi_get calls, %d strNull calls\n", sim_log_count("tcapi_get"),
         sim_log_count("strNull"));
  sim_clear_log();

  size_t ignored = 0;
  double total = time_per_call_us(calls, query, &bytes);
  double platform = time_per_call_us(calls, platform_share, &ignored);
  printf("time per query in microseconds (%d queries): total %.1f, simulated tree %.1f, own %.1f\n", calls,
         total, platform, total - platform);
  return 0;
}
