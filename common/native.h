// What every native source file includes: JNI, the trace, replies and Java text helpers.
//
// Natives are plain C-linkage functions named by the JNI rule, written out in full so that a
// search for a Java class or method name finds its code. Each one traces at least once, just
// before it returns, with the value it returns:
//     "<method>: return json = %s   leave============>\n"   (text replies)
//     "<method>: return code = %d   leave============>\n"   (integer replies)
#ifndef BUNDLE_COMMON_NATIVE_H
#define BUNDLE_COMMON_NATIVE_H

#include <jni.h>
#include <string.h>

#include "common/java_chars.h"
#include "common/reply.h"
#include "common/trace.h"

namespace bundle {

// The closing trace of a text reply, traced under `native` (the exported function's full
// name) at `line` as "<method>: return json = <text>   leave============>", then the reply
// as a jstring. For helpers that build the reply of several natives.
inline jstring traced_text_reply(JNIEnv *env, TraceName native, int line, const char *method,
                                 const char *text) {
  trace_printf(native, line, "%s: return json = %s   leave============>\n", method, text);
  return new_reply_string(env, text);
}

}  // namespace bundle

#endif
