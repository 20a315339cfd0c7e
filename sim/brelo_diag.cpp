// Simulated platform functions: ping, traceroute and HTTP speed-test diagnostics.
// State (see sim/gateway/diag.ini):
//   [ping]              running, polls, result, success_count, failure_count,
//                       average_response_time, minimum_response_time, maximum_response_time
//   [traceroute]        running, polls, result, response_time, hop_count
//   [traceroute hop N]  host, address, error_code, rt_times (N from 1)
//   [http upload], [http download]
//                       state, polls, test_rate, total_rate, test_bytes, total_bytes,
//                       rom_time, bom_time, eom_time, tcp_open_request_time,
//                       tcp_open_response_time
// A start call records its request in [ping request], [traceroute request],
// [http upload request] or [http download request] and makes the next `polls` (default 1)
// result queries answer "still running" (-2; HTTP: state 1, Requested) before the result.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "common/platform_diag.h"
#include "sim/sim.h"

namespace {

std::string num(long long v) { return std::to_string(v); }

uint32_t u32(const char *section, const char *key, long long dflt = 0) {
  return static_cast<uint32_t>(sim::get_int(section, key, dflt));
}

// Starts a background test: the next `polls` result queries find it still running.
void start_running(const char *section) {
  sim::set(section, "running", num(sim::get_int(section, "polls", 1)));
}

// True (and one poll fewer) while a started test is still running.
bool still_running(const char *section) {
  long long running = sim::get_int(section, "running", 0);
  if (running <= 0) return false;
  sim::set(section, "running", num(running - 1));
  return true;
}

void out_field(char *field, size_t cap, const std::string &section, const char *key) {
  sim::out_text(field, cap, section.c_str(), key);
}

const char *http_section(uint32_t direction) {
  return direction == kHttpUpload ? "http upload" : "http download";
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_startIPPingDiagnostics(int wanIndex, PingRequest *req) {
  sim::call("brelo_startIPPingDiagnostics", "%d", wanIndex);
  sim::Guard guard;
  char host[sizeof req->host + 1] = {};
  memcpy(host, req->host, sizeof req->host);
  sim::set("ping request", "wan", num(wanIndex));
  sim::set("ping request", "host", host);
  sim::set("ping request", "timeout", num(req->timeout));
  sim::set("ping request", "repetitions", num(req->repetitions));
  sim::set("ping request", "block_size", num(req->block_size));
  sim::set("ping request", "dscp", num(req->dscp));
  start_running("ping");
  // Every echo of the simulated gateway is answered.
  sim::set("ping", "success_count", num(req->repetitions));
  sim::set("ping", "failure_count", "0");
  return sim::result("brelo_startIPPingDiagnostics", 0);
}

SIM_EXPORT int brelo_getIPPingDiagnostics(PingResult *res) {
  sim::call("brelo_getIPPingDiagnostics", "%s", "");
  sim::Guard guard;
  if (still_running("ping")) return sim::result("brelo_getIPPingDiagnostics", -2);
  res->success_count = u32("ping", "success_count");
  res->failure_count = u32("ping", "failure_count");
  res->average_response_time = u32("ping", "average_response_time");
  res->minimum_response_time = u32("ping", "minimum_response_time");
  res->maximum_response_time = u32("ping", "maximum_response_time");
  return sim::result("brelo_getIPPingDiagnostics", static_cast<int>(sim::get_int("ping", "result")));
}

SIM_EXPORT int brelo_startTraceRouteDiagnostics(int wanIndex, TraceRouteRequest *req) {
  sim::call("brelo_startTraceRouteDiagnostics", "%d", wanIndex);
  sim::Guard guard;
  char host[sizeof req->host + 1] = {};
  memcpy(host, req->host, sizeof req->host);
  sim::set("traceroute request", "wan", num(wanIndex));
  sim::set("traceroute request", "host", host);
  sim::set("traceroute request", "tries", num(req->tries));
  sim::set("traceroute request", "timeout", num(req->timeout));
  sim::set("traceroute request", "block_size", num(req->block_size));
  sim::set("traceroute request", "dscp", num(req->dscp));
  sim::set("traceroute request", "max_hops", num(req->max_hops));
  start_running("traceroute");
  return sim::result("brelo_startTraceRouteDiagnostics", 0);
}

// The hops come from the [traceroute hop N] sections; hop_count (default: the number of those
// sections) may ask for more, and the missing ones are made up (hop N answers from
// 198.51.100.N), so tests can have any number of hops.
SIM_EXPORT int brelo_getTraceRouteDiagnosticsResult(TraceRouteResult *res, TraceRouteHop **hops) {
  sim::call("brelo_getTraceRouteDiagnosticsResult", "%s", "");
  sim::Guard guard;
  if (still_running("traceroute")) return sim::result("brelo_getTraceRouteDiagnosticsResult", -2);
  long long count = sim::get_int("traceroute", "hop_count",
                                 static_cast<long long>(sim::sections("traceroute hop ").size()));
  res->response_time = u32("traceroute", "response_time");
  res->hop_count = static_cast<int32_t>(count);
  if (count > 0) {
    TraceRouteHop *list = static_cast<TraceRouteHop *>(calloc(count, sizeof(TraceRouteHop)));
    for (long long i = 0; list != nullptr && i < count; ++i) {
      TraceRouteHop &hop = list[i];
      std::string section = "traceroute hop " + num(i + 1);
      if (sim::entry_count(section.c_str()) != 0) {
        out_field(hop.host, sizeof hop.host, section, "host");
        out_field(hop.address, sizeof hop.address, section, "address");
        out_field(hop.rt_times, sizeof hop.rt_times, section, "rt_times");
        hop.error_code = u32(section.c_str(), "error_code");
      } else {
        snprintf(hop.host, sizeof hop.host, "hop%lld.example.net", i + 1);
        snprintf(hop.address, sizeof hop.address, "198.51.100.%lld", (i + 1) % 256);
        snprintf(hop.rt_times, sizeof hop.rt_times, "%lld,%lld,%lld", i + 1, i + 2, i + 1);
      }
    }
    *hops = list;
  }
  return sim::result("brelo_getTraceRouteDiagnosticsResult",
                     static_cast<int>(sim::get_int("traceroute", "result")));
}

SIM_EXPORT int brelo_startHttpSpeedTestDiagnostics(int wanIndex, const char *url,
                                                   HttpSpeedTestRequest *req) {
  sim::call("brelo_startHttpSpeedTestDiagnostics", "%d, \"%s\"", wanIndex, url);
  sim::Guard guard;
  std::string request = std::string(http_section(req->direction)) + " request";
  sim::set(request.c_str(), "wan", num(wanIndex));
  sim::set(request.c_str(), "url", url);
  sim::set(request.c_str(), "file_length", std::to_string(req->file_length));
  sim::set(request.c_str(), "measurement_offset", num(req->measurement_offset));
  sim::set(request.c_str(), "duration", num(req->duration));
  sim::set(request.c_str(), "connections", num(req->connections));
  const char *section = http_section(req->direction);
  sim::set(section, "state", num(kHttpRequested));
  start_running(section);
  return sim::result("brelo_startHttpSpeedTestDiagnostics", 0);
}

// The state is the section's "state" (default 2, None). A started test answers Requested
// for `polls` queries, then Completed; a Requested state set by a test stays as it is.
SIM_EXPORT int brelo_getHttpSpeedTestDiagnostics(HttpSpeedTestResult *res) {
  sim::call("brelo_getHttpSpeedTestDiagnostics", "%u", res->direction);
  sim::Guard guard;
  const char *section = http_section(res->direction);
  if (sim::get_int(section, "state", kHttpNone) == kHttpRequested &&
      sim::get(section, "running") != nullptr && !still_running(section)) {
    sim::set(section, "state", num(kHttpCompleted));  // the started test finished
    sim_unset(section, "running");
  }
  res->state = static_cast<int32_t>(sim::get_int(section, "state", kHttpNone));
  res->test_rate = u32(section, "test_rate");
  res->total_rate = u32(section, "total_rate");
  res->test_bytes = static_cast<uint64_t>(sim::get_int(section, "test_bytes"));
  res->total_bytes = static_cast<uint64_t>(sim::get_int(section, "total_bytes"));
  sim::out_text(res->rom_time, sizeof res->rom_time, section, "rom_time");
  sim::out_text(res->bom_time, sizeof res->bom_time, section, "bom_time");
  sim::out_text(res->eom_time, sizeof res->eom_time, section, "eom_time");
  sim::out_text(res->tcp_open_request_time, sizeof res->tcp_open_request_time, section,
                "tcp_open_request_time");
  sim::out_text(res->tcp_open_response_time, sizeof res->tcp_open_response_time, section,
                "tcp_open_response_time");
  return sim::result("brelo_getHttpSpeedTestDiagnostics", 0);
}

}  // extern "C"
