// Platform library (libbrelo.so.1): ping, traceroute and HTTP speed-test diagnostics.
//
// The platform runs every test in the background: a start call hands it a request record and
// returns at once, a later result call reports whether the test is still running and, once it
// finished, its figures.
#ifndef BUNDLE_COMMON_PLATFORM_DIAG_H
#define BUNDLE_COMMON_PLATFORM_DIAG_H

#include <stddef.h>
#include <stdint.h>

// Ping request (324 bytes, zeroed whole by the caller before it is filled).
struct PingRequest {
  uint8_t reserved0[20];
  uint32_t timeout;      // per echo, seconds ("interval" in the platform's trace)
  uint32_t repetitions;
  uint32_t block_size;   // bytes
  uint32_t dscp;
  char host[256];        // NUL-terminated
  uint8_t reserved1[32];
};
static_assert(sizeof(PingRequest) == 324, "PingRequest is 324 bytes");
static_assert(offsetof(PingRequest, timeout) == 20, "ping timeout at 20");
static_assert(offsetof(PingRequest, repetitions) == 24, "ping repetitions at 24");
static_assert(offsetof(PingRequest, block_size) == 28, "ping block size at 28");
static_assert(offsetof(PingRequest, dscp) == 32, "ping DSCP at 32");
static_assert(offsetof(PingRequest, host) == 36, "ping host at 36");
static_assert(offsetof(PingRequest, reserved1) == 292, "ping tail at 292");

// Ping result: five words, zeroed by the caller.
struct PingResult {
  uint32_t success_count;
  uint32_t failure_count;
  uint32_t average_response_time;
  uint32_t minimum_response_time;
  uint32_t maximum_response_time;
};
static_assert(sizeof(PingResult) == 20, "PingResult is 20 bytes");

// Traceroute request (336 bytes, zeroed whole by the caller before it is filled).
struct TraceRouteRequest {
  uint8_t reserved0[20];
  uint32_t tries;        // per hop
  uint32_t timeout;      // seconds
  uint32_t block_size;   // bytes
  uint32_t dscp;
  uint32_t max_hops;
  uint8_t reserved1[6];
  char host[256];        // NUL-terminated
  uint8_t reserved2[34];
};
static_assert(sizeof(TraceRouteRequest) == 336, "TraceRouteRequest is 336 bytes");
static_assert(offsetof(TraceRouteRequest, tries) == 20, "traceroute tries at 20");
static_assert(offsetof(TraceRouteRequest, timeout) == 24, "traceroute timeout at 24");
static_assert(offsetof(TraceRouteRequest, block_size) == 28, "traceroute block size at 28");
static_assert(offsetof(TraceRouteRequest, dscp) == 32, "traceroute DSCP at 32");
static_assert(offsetof(TraceRouteRequest, max_hops) == 36, "traceroute max hops at 36");
static_assert(offsetof(TraceRouteRequest, host) == 46, "traceroute host at 46");
static_assert(offsetof(TraceRouteRequest, reserved2) == 302, "traceroute tail at 302");

// Traceroute result (336 bytes, zeroed by the caller); only two words are meaningful here.
struct TraceRouteResult {
  uint8_t reserved0[40];
  uint32_t response_time;
  int32_t hop_count;     // number of records in the hop array
  uint8_t reserved1[288];
};
static_assert(sizeof(TraceRouteResult) == 336, "TraceRouteResult is 336 bytes");
static_assert(offsetof(TraceRouteResult, response_time) == 40, "response time at 40");
static_assert(offsetof(TraceRouteResult, hop_count) == 44, "hop count at 44");

// One hop of a finished traceroute (776 bytes); the platform malloc()s the array.
struct TraceRouteHop {
  char host[257];
  char address[259];
  uint32_t error_code;
  char rt_times[256];
};
static_assert(sizeof(TraceRouteHop) == 776, "TraceRouteHop is 776 bytes");
static_assert(offsetof(TraceRouteHop, address) == 257, "hop address at 257");
static_assert(offsetof(TraceRouteHop, error_code) == 516, "hop error code at 516");
static_assert(offsetof(TraceRouteHop, rt_times) == 520, "hop round-trip times at 520");

// HTTP speed-test direction word.
enum : uint32_t { kHttpDownload = 0, kHttpUpload = 1 };

// HTTP speed-test request (688 bytes, zeroed whole by the caller before it is filled).
struct HttpSpeedTestRequest {
  uint64_t file_length;          // upload only
  uint16_t measurement_offset;   // seconds, 0..300
  uint16_t duration;             // seconds, 0..300
  uint16_t connections;          // 0..4
  uint8_t reserved0[666];
  uint32_t direction;
  uint8_t reserved1[4];
};
static_assert(sizeof(HttpSpeedTestRequest) == 688, "HttpSpeedTestRequest is 688 bytes");
static_assert(offsetof(HttpSpeedTestRequest, measurement_offset) == 8, "offset at 8");
static_assert(offsetof(HttpSpeedTestRequest, duration) == 10, "duration at 10");
static_assert(offsetof(HttpSpeedTestRequest, connections) == 12, "connections at 12");
static_assert(offsetof(HttpSpeedTestRequest, direction) == 680, "request direction at 680");

// HTTP speed-test state codes.
enum : int32_t {
  kHttpOtherError = -4,
  kHttpErrorTimeout = -3,
  kHttpErrorNoResponse = -2,
  kHttpErrorInitConnectionFailed = -1,
  kHttpCompleted = 0,
  kHttpRequested = 1,
  kHttpNone = 2,
};

// HTTP speed-test result (200 bytes, zeroed, direction set by the caller before the call).
struct HttpSpeedTestResult {
  int32_t state;
  uint32_t test_rate;
  uint32_t total_rate;
  uint8_t reserved0[4];
  uint64_t test_bytes;
  uint64_t total_bytes;
  char rom_time[32];
  char bom_time[32];
  char eom_time[32];
  char tcp_open_request_time[32];
  char tcp_open_response_time[32];
  uint32_t direction;
  uint8_t reserved1[4];
};
static_assert(sizeof(HttpSpeedTestResult) == 200, "HttpSpeedTestResult is 200 bytes");
static_assert(offsetof(HttpSpeedTestResult, test_rate) == 4, "test rate at 4");
static_assert(offsetof(HttpSpeedTestResult, total_rate) == 8, "total rate at 8");
static_assert(offsetof(HttpSpeedTestResult, test_bytes) == 16, "test bytes at 16");
static_assert(offsetof(HttpSpeedTestResult, total_bytes) == 24, "total bytes at 24");
static_assert(offsetof(HttpSpeedTestResult, rom_time) == 32, "ROM time at 32");
static_assert(offsetof(HttpSpeedTestResult, bom_time) == 64, "BOM time at 64");
static_assert(offsetof(HttpSpeedTestResult, eom_time) == 96, "EOM time at 96");
static_assert(offsetof(HttpSpeedTestResult, tcp_open_request_time) == 128, "TCP request at 128");
static_assert(offsetof(HttpSpeedTestResult, tcp_open_response_time) == 160, "TCP response at 160");
static_assert(offsetof(HttpSpeedTestResult, direction) == 192, "result direction at 192");

// Start calls return their result to Java unchanged. Result calls return 0 when the test
// finished, -2 while it is still running, anything else when it failed (the HTTP fetch's
// return value is not used: its state word tells).
extern "C" {
int brelo_startIPPingDiagnostics(int wanIndex, PingRequest *req);
int brelo_getIPPingDiagnostics(PingResult *res);
int brelo_startTraceRouteDiagnostics(int wanIndex, TraceRouteRequest *req);
// *hops receives a malloc()ed array of res->hop_count records (or NULL); the caller frees it.
int brelo_getTraceRouteDiagnosticsResult(TraceRouteResult *res, TraceRouteHop **hops);
// The platform keeps the url pointer: the caller never gives the Java text back.
int brelo_startHttpSpeedTestDiagnostics(int wanIndex, const char *url, HttpSpeedTestRequest *req);
int brelo_getHttpSpeedTestDiagnostics(HttpSpeedTestResult *res);
}

#endif
