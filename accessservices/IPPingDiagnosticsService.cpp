// com.lumarest.smartgateway.accessservices.IPPingDiagnosticsServiceImp: starts a ping test
// that the platform runs in the background, and reports its outcome.
#include "accessservices/diag_params.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_diag.h"

namespace {

const uint32_t kDefaultRepetitions = 4;
const uint32_t kDefaultTimeout = 10;  // seconds
const uint32_t kDefaultBlockSize = 56;
const uint32_t kDefaultDscp = 0;

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni(
    JNIEnv *env, jobject, jint wanIndex, jstring jhost, jstring jparameter) {
  PingRequest req;
  memset(&req, 0, sizeof req);
  if (!bundle::take_host(env, jhost, req.host)) {
    return BUNDLE_CODE_REPLY(-1);
  }

  bundle::JavaChars parameter(env, jparameter);
  if (bundle::acquire_failed(env, parameter)) return -1;  // no diagnostic is started
  bundle::ParamTree params;  // a null or empty text gives every default
  if (!params.parse_optional(parameter.get())) {
    BUNDLE_TRACE_PUTS("JSON Parse format error!");
    parameter.release();
    return BUNDLE_CODE_REPLY(-1);
  }
  req.repetitions = params.int_or("NumberOfRepetitions", kDefaultRepetitions);
  req.timeout = params.int_or("Timeout", kDefaultTimeout * 1000) / 1000;  // milliseconds
  req.block_size = params.int_or("DataBlockSize", kDefaultBlockSize);
  req.dscp = params.int_or("DSCP", kDefaultDscp);
  parameter.release();

  // Zero means "not given": a Timeout below 1000 ms gets the default too. DSCP 0 is a value.
  if (req.repetitions == 0) req.repetitions = kDefaultRepetitions;
  if (req.timeout == 0) req.timeout = kDefaultTimeout;
  if (req.block_size == 0) req.block_size = kDefaultBlockSize;
  BUNDLE_TRACE("host = %s, repetitions = %u, interval = %u, block size = %u, dscp = %u\n",
               req.host, req.repetitions, req.timeout, req.block_size, req.dscp);

  int rc = brelo_startIPPingDiagnostics(wanIndex, &req);
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
    reply.append("{\"Result\":-1,\"FailReason\":\"Ping diagonostics fail\"}");
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
