// com.lumarest.smartgateway.accessservices.IPPingDiagnosticsServiceImp: starts a ping test
// that the platform runs in the background, and reports its outcome.
#include "accessservices/diag_params.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_diag.h"

namespace {

// The numbers of the parameter text, with their defaults.
const bundle::NumberParam kPingParams[] = {
    {"NumberOfRepetitions", offsetof(PingRequest, repetitions), 1, 4, false},
    {"Timeout", offsetof(PingRequest, timeout), 1000, 10, false},  // ms, kept in seconds
    {"DataBlockSize", offsetof(PingRequest, block_size), 1, 56, false},
    {"DSCP", offsetof(PingRequest, dscp), 1, 0, true},
};

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni(
    JNIEnv *env, jobject, jint wanIndex, jstring jhost, jstring jparameter) {
  PingRequest req;
  memset(&req, 0, sizeof req);
  bundle::ParamsRead read = bundle::read_diag_request(env, jhost, req.host, jparameter,
                                                      BUNDLE_NATIVE, kPingParams, 4, &req);
  if (read == bundle::kParamsPending) return -1;  // no diagnostic is started
  int rc = -1;
  if (read == bundle::kParamsRead) {
    BUNDLE_TRACE("host = %s, repetitions = %u, interval = %u, block size = %u, dscp = %u\n",
                 req.host, req.repetitions, req.timeout, req.block_size, req.dscp);
    rc = brelo_startIPPingDiagnostics(wanIndex, &req);
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_getIPPingDiagnosticsResultJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  PingResult res;
  memset(&res, 0, sizeof res);
  int rc = brelo_getIPPingDiagnostics(&res);
  if (rc == 0) {
    reply.append("{\"Result\":0,\"SuccessCount\":%u,\"FailureCount\":%u,\"AverageResponseTime\":%u,"
                 "\"MinimumResponseTime\":%u,\"MaximumResponseTime\":%u}",
                 res.success_count, res.failure_count, res.average_response_time,
                 res.minimum_response_time, res.maximum_response_time);
  } else if (rc == -2) {
    // "diagonostics" is how Java bundles have always received it.
    reply.append("{\"Result\":-2,\"FailReason\":\"Ping diagonostics not completed\"}");
  } else {
    reply.append(BUNDLE_FAIL_REASON, "Ping diagonostics fail");
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
