#include "common/native_reply.h"

namespace bundle {

int native_code_reply(int line, int code) {
  trace_closing(TraceName::at(__builtin_return_address(0)), line, kCodeLine, nullptr, code);
  return code;
}

jstring native_json_reply(JNIEnv *env, int line, const char *text) {
  trace_closing(TraceName::at(__builtin_return_address(0)), line, kJsonLine, text, 0);
  return new_reply_string(env, text);
}

jstring native_secret_reply(JNIEnv *env, int line, const char *text) {
  trace_closing(TraceName::at(__builtin_return_address(0)), line, kJsonLine, secret(text), 0);
  return new_reply_string(env, text);
}

jstring traced_native_reply(JNIEnv *env, TraceName native, int line, const char *text) {
  trace_closing(native, line, kJsonLine, text, 0);
  return new_reply_string(env, text);
}

}  // namespace bundle
