#include "common/java_chars.h"

#include <string.h>

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

}  // namespace bundle
