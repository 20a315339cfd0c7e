// com.lumarest.smartgateway.accessservices.HttpDownloadDiagnosticsServiceImp: starts an HTTP
// download speed test that the platform runs in the background, and reports its state.
#include "accessservices/http_speed_test.h"
#include "common/native.h"
#include "common/native_reply.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_startHttpDownloadDiagnosticsJni(
    JNIEnv *env, jobject, jint wanIndex, jstring jurl, jstring jparameter) {
  HttpSpeedTestRequest req;
  memset(&req, 0, sizeof req);
  bundle::JavaChars url(env, jurl);
  url.keep();  // the platform keeps the pointer: the URL text is never given back
  if (url.is_null()) {
    return BUNDLE_CODE_REPLY(-1);
  }

  bundle::JavaChars parameter(env, jparameter);
  if (bundle::acquire_failed(env, parameter)) return -1;  // no diagnostic is started
  bundle::ParamTree params;  // a null or empty text: offset 0, duration 30, one connection
  if (!params.parse_optional(parameter.get())) {
    BUNDLE_TRACE_PUTS("JSON Parse format error!");
    parameter.release();
    return BUNDLE_CODE_REPLY(-1);
  }
  bundle::read_http_options(params, &req);  // the file length is an upload's only
  parameter.release();

  // Unlike an upload, a download with a zero duration is not refused.
  req.direction = kHttpDownload;
  int rc = brelo_startHttpSpeedTestDiagnostics(wanIndex, url.get(), &req);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_getHttpDownloadDiagnosticsResultJni(
    JNIEnv *env, jobject) {
  bundle::Reply<1024> reply;
  bundle::http_result_reply(reply, kHttpDownload);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
