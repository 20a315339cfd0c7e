#include "common/native_reply.h"

#include <stdio.h>

namespace bundle {

namespace {

// "<native>:<line>:<method>: return json = <text>   leave============>", the native being
// the exported function that holds `where`.
void trace_json_closing(const void *where, int line, const char *text) {
  if (!flag_file_exists(BUNDLE_TRACE_FLAG)) return;
  const char *name = native_name_at(where);
  if (name == nullptr) name = "?";
  printf("%s:%d:%s", name, line, method_of(name));
  printf(kClosingJson, text);
  fflush(stdout);
}

}  // namespace

int native_code_reply(int line, int code) {
  const void *caller = __builtin_return_address(0);
  if (flag_file_exists(BUNDLE_TRACE_FLAG)) {
    const char *name = native_name_at(caller);
    if (name == nullptr) name = "?";
    printf("%s:%d:%s", name, line, method_of(name));
    printf(kClosingCode, code);
    fflush(stdout);
  }
  return code;
}

jstring native_json_reply(JNIEnv *env, int line, const char *text) {
  trace_json_closing(__builtin_return_address(0), line, text);
  return new_reply_string(env, text);
}

jstring native_secret_reply(JNIEnv *env, int line, const char *text) {
  trace_json_closing(__builtin_return_address(0), line, secret(text));
  return new_reply_string(env, text);
}

}  // namespace bundle
