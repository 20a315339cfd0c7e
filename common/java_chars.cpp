#include "common/java_chars.h"

#include <string.h>

#include "common/trace.h"

namespace bundle {

void copy_padded(char *buf, size_t size, const char *text) {
  strncpy(buf, text, size - 1);
  buf[size - 1] = '\0';
}

bool take_text(JNIEnv *env, jstring s, char *buf, size_t size) {
  JavaChars text(env, s);
  bool taken = !text.is_null();
  if (taken) copy_padded(buf, size, text.get());
  text.release();
  return taken;
}

bool take_checked_text(JNIEnv *env, TraceName native, jstring s,
                       const char *(*refusal)(int kind, const char *text), int kind, char *buf,
                       size_t size) {
  JavaChars text(env, s);
  if (text.is_null()) return false;
  const char *refused = refusal(kind, text.get());
  if (refused != nullptr) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"  // one of the caller's own lines
    trace_printf(native, __LINE__, refused, text.get());
#pragma GCC diagnostic pop
    text.keep();
    return false;
  }
  copy_padded(buf, size, text.get());
  text.release();
  return true;
}

}  // namespace bundle
