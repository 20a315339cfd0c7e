// com.lumarest.smartgateway.accessservices.HttpUploadDiagnosticsServiceImp: starts an HTTP
// upload speed test that the platform runs in the background, and reports its state.
#include "accessservices/http_speed_test.h"
#include "common/native.h"
#include "common/native_reply.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni(
    JNIEnv *env, jobject, jint wanIndex, jstring jurl, jstring jparameter) {
  HttpSpeedTestRequest req;
  memset(&req, 0, sizeof req);
  bundle::JavaChars url(env, jurl);
  url.keep();  // the platform keeps the pointer: the URL text is never given back
  if (url.is_null()) {
    return BUNDLE_CODE_REPLY(-1);
  }

  bundle::JavaChars parameter(env, jparameter);
  if (bundle::is_null_or_empty(parameter.get())) {  // an upload needs its file length
    parameter.release();
    return BUNDLE_CODE_REPLY(-1);
  }
  bundle::ParamTree params;
  if (!params.parse(parameter.get())) {
    BUNDLE_TRACE_PUTS("JSON Parse format error!");
    parameter.release();
    return BUNDLE_CODE_REPLY(-1);
  }
  const char *length = params.text("TestFileLength");
  if (length == nullptr) {
    BUNDLE_TRACE_PUTS("JSON Parse TestFileLength failed!");
    parameter.release();
    return BUNDLE_CODE_REPLY(-1);
  }
  // atol of a 32-bit long, sign-extended into the 64-bit member.
  req.file_length = static_cast<uint64_t>(static_cast<int64_t>(bundle::param_int(length)));
  bundle::read_http_options(params, &req);
  parameter.release();

  if (req.file_length == 0 && req.duration == 0) {  // nothing to measure
    return BUNDLE_CODE_REPLY(-1);
  }
  req.direction = kHttpUpload;
  int rc = brelo_startHttpSpeedTestDiagnostics(wanIndex, url.get(), &req);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_getHttpUploadDiagnosticsResultJni(
    JNIEnv *env, jobject) {
  bundle::Reply<1024> reply;
  bundle::http_result_reply(reply, kHttpUpload);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
