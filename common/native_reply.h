// A native's closing trace and its text reply in one call.
//
//     return BUNDLE_JSON_REPLY(env, reply.c_str());
//
// traces "<method>: return json = <text>   leave============>" under the native's own name,
// exactly as BUNDLE_TRACE with that line would, and then makes the reply with
// new_reply_string. Likewise
//
//     return BUNDLE_CODE_REPLY(rc);
//
// traces "<method>: return code = <rc>   leave============>" and gives rc back.
// BUNDLE_SECRET_REPLY does the same for a reply that carries a secret: the
// trace shows secret(text), Java receives the text. Only for the exported natives themselves;
// helpers that reply on a native's behalf use traced_native_reply.
#ifndef BUNDLE_COMMON_NATIVE_REPLY_H
#define BUNDLE_COMMON_NATIVE_REPLY_H

#include <jni.h>

#include "common/hardened.h"
#include "common/native.h"

namespace bundle {

// The closing line of the native that calls it (found from the return address), then the
// reply. In the library the natives share this one call instead of a trace call and a reply
// call each.
__attribute__((noinline)) jstring native_json_reply(JNIEnv *env, int line, const char *text);
__attribute__((noinline)) jstring native_secret_reply(JNIEnv *env, int line, const char *text);
__attribute__((noinline)) int native_code_reply(int line, int code);

// The closing line of an integer reply traced under `native`, then the code itself.
inline int traced_code_reply(TraceName native, int line, const char *method, int code) {
  trace_printf(native, line, "%s: return code = %d   leave============>\n", method, code);
  return code;
}

// For helpers that reply on behalf of the native `native` (BUNDLE_NATIVE, passed down): the
// native's closing line, its method taken from its name, then the reply.
jstring traced_native_reply(JNIEnv *env, TraceName native, int line, const char *text);

template <bool InNative>
__attribute__((always_inline)) inline jstring closing_reply(jstring reply) {
  static_assert(InNative, "for the exported natives themselves");
  // The reply passes through here so the call above is never turned into a jump: the helper
  // must return into the native to find its name.
  __asm__ volatile("" : "+r"(reply));
  return reply;
}

template <bool InNative>
__attribute__((always_inline)) inline int closing_code(int code) {
  static_assert(InNative, "for the exported natives themselves");
  __asm__ volatile("" : "+r"(code));  // as above: a call, never a jump
  return code;
}

}  // namespace bundle

#if defined(BUNDLE_TRACE_BY_ADDRESS) && BUNDLE_TRACE_BY_ADDRESS
#define BUNDLE_JSON_REPLY(env, text)                                                   \
  (::bundle::closing_reply<::bundle::Constant<::bundle::is_native_name(__func__)>::value>( \
      ::bundle::native_json_reply((env), __LINE__, (text))))
#define BUNDLE_SECRET_REPLY(env, text)                                                 \
  (::bundle::closing_reply<::bundle::Constant<::bundle::is_native_name(__func__)>::value>( \
      ::bundle::native_secret_reply((env), __LINE__, (text))))
#define BUNDLE_CODE_REPLY(code)                                                        \
  (::bundle::closing_code<::bundle::Constant<::bundle::is_native_name(__func__)>::value>( \
      ::bundle::native_code_reply(__LINE__, (code))))
#else
#define BUNDLE_JSON_REPLY(env, text) \
  ::bundle::traced_text_reply((env), __func__, __LINE__, ::bundle::method_of(__func__), (text))
#define BUNDLE_SECRET_REPLY(env, text) \
  ::bundle::traced_secret_reply((env), __func__, __LINE__, ::bundle::method_of(__func__), (text))
#define BUNDLE_CODE_REPLY(code) \
  ::bundle::traced_code_reply(__func__, __LINE__, ::bundle::method_of(__func__), (code))
#endif

#endif
