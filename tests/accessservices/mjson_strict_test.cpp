// The gateway's own mjson 1.5 is not promised to accept a NULL tree in json_find_first_label
// or json_free_value (the compat build here does). These definitions take the place of
// mjson's for the whole unit-test program, so any native that hands mjson a NULL tree fails
// its test here, before it could crash a gateway.
#include <dlfcn.h>
#include <json.h>
#include <stdio.h>
#include <stdlib.h>

#include "tests/test_support.h"

namespace {

template <typename Fn>
Fn next_definition(const char *name) {
  void *sym = dlsym(RTLD_NEXT, name);
  if (sym == nullptr) {
    fprintf(stderr, "mjson strict check: %s not found\n", name);
    abort();
  }
  return reinterpret_cast<Fn>(sym);
}

int g_null_trees = 0;

}  // namespace

extern "C" json_t *json_find_first_label(const json_t *object, const char *label) {
  static auto real = next_definition<json_t *(*)(const json_t *, const char *)>("json_find_first_label");
  if (object == nullptr) {
    ++g_null_trees;
    ADD_FAILURE() << "json_find_first_label called with a NULL tree (label " << label << ")";
  }
  return real(object, label);
}

extern "C" void json_free_value(json_t **value) {
  static auto real = next_definition<void (*)(json_t **)>("json_free_value");
  if (value == nullptr || *value == nullptr) {
    ++g_null_trees;
    ADD_FAILURE() << "json_free_value called with a NULL tree";
  }
  real(value);
}

#define DIAG(cls, m) Java_com_lumarest_smartgateway_accessservices_##cls##Imp_##m
extern "C" {
jint DIAG(IPPingDiagnosticsService, startIPPingDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jint DIAG(TraceRouteDiagnosticsService, startTraceRouteDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jint DIAG(HttpUploadDiagnosticsService, startHttpUploadDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jint DIAG(HttpDownloadDiagnosticsService, startHttpDownloadDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
}

namespace {

class MjsonStrict : public testsupport::BridgeTest {
 protected:
  // Every start with a parameter text that gives no tree (null, empty, not JSON, truncated)
  // and one that does.
  void start_all(jstring parameter) {
    DIAG(IPPingDiagnosticsService, startIPPingDiagnosticsJni)(env(), self(), 1, jvm().str("h"), parameter);
    jvm().clear_exception();  // Java has thrown, if a text could not be copied
    DIAG(TraceRouteDiagnosticsService, startTraceRouteDiagnosticsJni)(env(), self(), 1, jvm().str("h"),
                                                                       parameter);
    jvm().clear_exception();  // Java has thrown, if a text could not be copied
    DIAG(HttpDownloadDiagnosticsService, startHttpDownloadDiagnosticsJni)(env(), self(), 1, jvm().str("u"),
                                                                           parameter);
    jvm().clear_exception();  // Java has thrown, if a text could not be copied
    DIAG(HttpUploadDiagnosticsService, startHttpUploadDiagnosticsJni)(env(), self(), 1, jvm().str("u"),
                                                                       parameter);
    jvm().clear_exception();  // Java has thrown, if a text could not be copied
    // The URL texts of the HTTP starts are never given back.
    expected_outstanding_ += 2;
  }
};

TEST_F(MjsonStrict, NoParameterTreeMeansNoMjsonCallsOnNull) {
  g_null_trees = 0;
  start_all(nullptr);
  start_all(jvm().str(""));
  start_all(jvm().str("not json"));
  start_all(jvm().str("{\"Timeout\":"));
  start_all(jvm().failing_str());
  start_all(jvm().str("{\"Timeout\":2500,\"TestFileLength\":1000}"));
  EXPECT_EQ(g_null_trees, 0);
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef DIAG
