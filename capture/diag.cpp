// diag.ini: the outcomes of the ping, traceroute and HTTP speed-test diagnostics as the
// gateway holds them now (nothing is started: a result query only). A test still running is
// recorded as running (-2; HTTP state 1, Requested) and stays so when replayed.
#include <stdlib.h>
#include <string.h>

#include "capture/context.h"
#include "common/platform_list.h"

namespace capture {
namespace {

constexpr int kMaxHops = 4096;  // hop sections written at most (a count beyond is kept as such)

void capture_ping(Context &c, StateFile *f) {
  PingResult res;
  memset(&res, 0, sizeof res);
  int rc = c.p.brelo_getIPPingDiagnostics(&res);  // its result is the outcome itself
  c.noted(k_brelo_getIPPingDiagnostics, rc);
  f->section("ping");
  f->number("result", rc);
  f->unsigned_number("success_count", res.success_count);
  f->unsigned_number("failure_count", res.failure_count);
  f->unsigned_number("average_response_time", res.average_response_time);
  f->unsigned_number("minimum_response_time", res.minimum_response_time);
  f->unsigned_number("maximum_response_time", res.maximum_response_time);
}

void capture_traceroute(Context &c, StateFile *f) {
  TraceRouteResult res;
  memset(&res, 0, sizeof res);
  TraceRouteHop *hops = nullptr;
  int rc = c.p.brelo_getTraceRouteDiagnosticsResult(&res, &hops);
  c.noted(k_brelo_getTraceRouteDiagnosticsResult, rc);
  int n = bundle::platform_list_count(hops, res.hop_count);
  if (n > kMaxHops) n = kMaxHops;
  f->section("traceroute");
  f->number("result", rc);
  f->unsigned_number("response_time", res.response_time);
  if (res.hop_count != n) f->number("hop_count", res.hop_count);
  for (int i = 0; i < n; ++i) {
    const TraceRouteHop &hop = hops[i];
    f->section("traceroute hop %d", i + 1);
    f->field("host", hop.host);
    f->field("address", hop.address);
    f->unsigned_number("error_code", hop.error_code);
    f->field("rt_times", hop.rt_times);
  }
  free(hops);
}

void capture_http(Context &c, StateFile *f, uint32_t direction, const char *section) {
  HttpSpeedTestResult res;
  memset(&res, 0, sizeof res);
  res.direction = direction;
  c.noted(k_brelo_getHttpSpeedTestDiagnostics, c.p.brelo_getHttpSpeedTestDiagnostics(&res));
  f->section("%s", section);
  f->number("state", res.state);
  f->unsigned_number("test_rate", res.test_rate);
  f->unsigned_number("total_rate", res.total_rate);
  f->unsigned_number("test_bytes", res.test_bytes);
  f->unsigned_number("total_bytes", res.total_bytes);
  f->field("rom_time", res.rom_time);
  f->field("bom_time", res.bom_time);
  f->field("eom_time", res.eom_time);
  f->field("tcp_open_request_time", res.tcp_open_request_time);
  f->field("tcp_open_response_time", res.tcp_open_response_time);
}

}  // namespace

void capture_diag(Context &c, StateFile *f) {
  if (CAPTURE_HAVE(c, brelo_getIPPingDiagnostics)) capture_ping(c, f);
  if (CAPTURE_HAVE(c, brelo_getTraceRouteDiagnosticsResult)) capture_traceroute(c, f);
  if (CAPTURE_HAVE(c, brelo_getHttpSpeedTestDiagnostics)) {
    capture_http(c, f, kHttpUpload, "http upload");
    capture_http(c, f, kHttpDownload, "http download");
  }
}

}  // namespace capture
