// com.lumarest.smartgateway.accessservices.TraceRouteDiagnosticsServiceImp: starts a
// traceroute that the platform runs in the background, and reports its outcome hop by hop.
#include <stdlib.h>
#include <unistd.h>

#include "accessservices/diag_params.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_diag.h"
#include "common/platform_list.h"

namespace {

// The numbers of the parameter text, with their defaults.
const bundle::NumberParam kTraceRouteParams[] = {
    {"NumberOfTries", offsetof(TraceRouteRequest, tries), 1, 3, false},
    {"Timeout", offsetof(TraceRouteRequest, timeout), 1000, 5, false},  // ms, kept in seconds
    {"DataBlockSize", offsetof(TraceRouteRequest, block_size), 1, 38, false},
    {"DSCP", offsetof(TraceRouteRequest, dscp), 1, 0, true},
    {"MaxHopCount", offsetof(TraceRouteRequest, max_hops), 1, 30, false},
};

// The platform's record of the last finished traceroute; deleted after every result query so
// that the next query does not find a stale result.
const char kTraceRouteStatFile[] = "/tmp/cwmp/traceroutediagnostic_stat";

// Hops are listed while the reply is shorter than this; the hop that reaches it is the last.
const size_t kHopListCut = 3996;

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_startTraceRouteDiagnosticsJni(
    JNIEnv *env, jobject, jint wanIndex, jstring jhost, jstring jparameter) {
  TraceRouteRequest req;
  memset(&req, 0, sizeof req);
  bundle::ParamsRead read = bundle::read_diag_request(env, jhost, req.host, jparameter,
                                                      BUNDLE_NATIVE, kTraceRouteParams, 5, &req);
  if (read == bundle::kParamsPending) return -1;  // no diagnostic is started
  int rc = read == bundle::kParamsRead ? brelo_startTraceRouteDiagnostics(wanIndex, &req) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_getTraceRouteDiagnosticsResultJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  TraceRouteResult res;
  memset(&res, 0, sizeof res);
  TraceRouteHop *hops = nullptr;
  int rc = brelo_getTraceRouteDiagnosticsResult(&res, &hops);
  unlink(kTraceRouteStatFile);  // whatever the result

  if (rc == 0) {
    const int32_t count = res.hop_count;
    // The blank after "RouteHops": is part of the reply.
    reply.append("{\"Result\":0,\"ResponseTime\":%u,\"HopsNumberOfEntries\":%d,\"RouteHops\": [",
                 res.response_time, static_cast<int>(count));
    // The hop array holds no more records than its allocation, whatever the count says.
    const int32_t records = bundle::platform_list_count(hops, count);
    for (int32_t i = 0; i < records && reply.offset() < kHopListCut; ++i) {
      TraceRouteHop &hop = hops[i];
      bundle::terminate_field(hop.host);
      bundle::terminate_field(hop.address);
      bundle::terminate_field(hop.rt_times);
      reply.append("{\"HopHost\":\"%s\",\"HopHostAddress\":\"%s\",\"HopErrorCode\":%u,\"HopRTTimes\":\"%s\"}",
                   hop.host, hop.address, hop.error_code, hop.rt_times);
      // The comma follows the count, not the cut: a cut list ends with ",]".
      if (i < count - 1) reply.append(",");
    }
    reply.append("]}");
  } else if (rc == -2) {
    // "FailReaso1n" (digit one) and "diagonostics" are what Java bundles have always read here.
    reply.append("{\"Result\":-2,\"FailReaso1n\":\"TraceRoute diagonostics not completed\"}");
  } else {
    reply.append(BUNDLE_FAIL_REASON, "TraceRoute diagonostics fail");
  }

  if (hops != nullptr) free(hops);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
