#include "common/array_readers.h"

#include <string.h>

#include "common/java_chars.h"
#include "common/reply.h"
#include "common/trace.h"

namespace {

int append_piece(char *out, int size, size_t *off, const char *fmt, ...)
    __attribute__((format(printf, 4, 5)));

int append_piece(char *out, int size, size_t *off, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  int n = bundle::reply_vappend(out, size > 0 ? static_cast<size_t>(size) : 0, off, fmt, ap);
  va_end(ap);
  return n;
}

}  // namespace

extern "C" JNIEXPORT int brelo_getMacAddrFromJsonArr(JNIEnv *env, jobjectArray array,
                                                     char (*entries)[MAC_ENTRY_SIZE],
                                                     int *count) {
  *count = 0;
  int n = bundle::array_length(env, array);
  BUNDLE_TRACE("++++++++++++++>>>> arraylength: %d\n", n);
  // Elements beyond the 256th are ignored without notice.
  if (n > MAX_MAC_ENTRIES) n = MAX_MAC_ENTRIES;

  for (int i = 0; i < n; ++i) {
    // An exception pending (an element out of reach) ends the reading like a failed text.
    if (bundle::exception_pending(env)) return -1;
    bundle::LocalRef<jstring> element(
        env, static_cast<jstring>(env->GetObjectArrayElement(array, i)));
    bundle::JavaChars mac(env, element.get());
    if (mac.is_null()) {
      // Entries copied so far stay in the buffer and the count stays 0; a failed copy is
      // not given back.
      mac.keep();
      return -1;
    }
    // Java passes MAC texts; anything longer than an entry is cut rather than overflowing.
    strncpy(entries[i], mac.get(), MAC_ENTRY_SIZE - 1);
    entries[i][MAC_ENTRY_SIZE - 1] = '\0';
    BUNDLE_TRACE("++++++++++macAddress[%d]=%s\n", i, entries[i]);
    mac.release();
  }

  // One non-empty text makes all n entries count, empty ones included; callers stop at the
  // first empty entry. Only an array of nothing but empty texts reads as no entries at all.
  for (int i = 0; i < n; ++i) {
    if (entries[i][0] != '\0') {
      *count = n;
      return 0;
    }
  }
  BUNDLE_TRACE_PUTS("no mac address!");
  return 0;
}

extern "C" JNIEXPORT int parseObjecArray(JNIEnv *env, jobjectArray array, char *out, int size) {
  int n = bundle::array_length(env, array);
  // The offset adds up the untruncated piece lengths; append_piece writes nothing once the
  // joined text has reached size - 1 characters.
  size_t off = 0;
  for (int i = 0; i < n; ++i) {
    // A text that could not be obtained ends the join: no JNI call follows the failure, and
    // the caller sees the exception pending.
    if (bundle::exception_pending(env)) break;
    bundle::LocalRef<jstring> element(
        env, static_cast<jstring>(env->GetObjectArrayElement(array, i)));
    bundle::JavaChars text(env, element.get());
    if (text.is_null() && bundle::exception_pending(env)) break;  // released with NULL
    append_piece(out, size, &off, "%s", text.or_empty());
    if (i != n - 1) append_piece(out, size, &off, "%s", ",");
    text.release();
  }
  return 0;
}
