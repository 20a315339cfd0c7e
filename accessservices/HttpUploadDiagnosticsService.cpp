// com.lumarest.smartgateway.accessservices.HttpUploadDiagnosticsServiceImp: starts an HTTP
// upload speed test that the platform runs in the background, and reports its state.
#include "accessservices/http_speed_test.h"
#include "common/native.h"
#include "common/native_reply.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni(
    JNIEnv *env, jobject, jint wanIndex, jstring jurl, jstring jparameter) {
  bool pending = false;
  int rc = bundle::start_http_speed_test(env, BUNDLE_NATIVE, wanIndex, jurl, jparameter, kHttpUpload,
                                         &pending);
  if (pending) return -1;
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
