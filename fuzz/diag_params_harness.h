// One input of the diagnostics parameter fuzzer: the bytes (up to the first NUL, as a Java
// text reaches the bridge) become the parameter text of the four start natives, called
// through the fake JNIEnv against an empty simulated gateway, each followed by its result
// query. Any crash, sanitizer report or JNI misuse is a finding; the misuse checks abort.
#ifndef FUZZ_DIAG_PARAMS_HARNESS_H
#define FUZZ_DIAG_PARAMS_HARNESS_H

#include <jni.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <string>

#include "sim/sim_control.h"
#include "tests/fake_jni.h"

extern "C" {
jint Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni(
    JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_getIPPingDiagnosticsResultJni(
    JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_startTraceRouteDiagnosticsJni(
    JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_getTraceRouteDiagnosticsResultJni(
    JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni(
    JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_getHttpUploadDiagnosticsResultJni(
    JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_startHttpDownloadDiagnosticsJni(
    JNIEnv *, jobject, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_getHttpDownloadDiagnosticsResultJni(
    JNIEnv *, jobject);
}

namespace fuzzdiag {

inline void check(bool ok, const char *what) {
  if (!ok) {
    fprintf(stderr, "diag_params: %s\n", what);
    abort();
  }
}

inline void run_one_input(const uint8_t *data, size_t size) {
  std::string params(reinterpret_cast<const char *>(data), size);
  params.resize(params.find('\0') == std::string::npos ? size : params.find('\0'));

  sim_reset();
  fakejni::FakeJvm jvm;
  JNIEnv *env = jvm.env();
  jobject self = jvm.self();
  int rc[4];
  rc[0] = Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_startIPPingDiagnosticsJni(
      env, self, 1, jvm.str("192.0.2.1"), jvm.str(params));
  Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_getIPPingDiagnosticsResultJni(env, self);
  rc[1] = Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_startTraceRouteDiagnosticsJni(
      env, self, 1, jvm.str("192.0.2.1"), jvm.str(params));
  Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_getTraceRouteDiagnosticsResultJni(
      env, self);
  rc[2] = Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_startHttpUploadDiagnosticsJni(
      env, self, 1, jvm.str("http://192.0.2.1/upload"), jvm.str(params));
  Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_getHttpUploadDiagnosticsResultJni(
      env, self);
  rc[3] = Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_startHttpDownloadDiagnosticsJni(
      env, self, 1, jvm.str("http://192.0.2.1/download"), jvm.str(params));
  Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_getHttpDownloadDiagnosticsResultJni(
      env, self);

  // A start answers the platform's 0 or -1; the two URLs stay borrowed, nothing else.
  for (int r : rc) check(r == 0 || r == -1, "a start native answered something else than 0 or -1");
  check(jvm.outstanding() == 2, "Java texts left borrowed beyond the two URLs");
  check(jvm.errors().empty(), "JNI misuse");
}

}  // namespace fuzzdiag

#endif
