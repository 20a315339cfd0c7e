// Reply texts: fixed-size buffers composed piece by piece, and the one way a reply text
// becomes a Java string.
#ifndef BUNDLE_COMMON_REPLY_H
#define BUNDLE_COMMON_REPLY_H

#include <jni.h>
#include <stdarg.h>
#include <stddef.h>

namespace bundle {

// Appends printf-formatted text at the logical offset *off of `buf` (capacity `cap` bytes) and
// advances *off by the full formatted length, exactly as a chain of sprintf/snprintf pieces
// whose lengths are added up. Bytes are only ever written below buf[cap - 1] and the text
// stays NUL-terminated, so a reply that outgrows its buffer is cut at cap - 1 characters and
// every later piece is dropped. Returns the formatted length, as snprintf does.
int reply_vappend(char *buf, size_t cap, size_t *off, const char *fmt, va_list ap);

// The same for a reply in a caller-owned buffer of `cap` bytes (e.g. one on the heap).
int reply_append(char *buf, size_t cap, size_t *off, const char *fmt, ...)
    __attribute__((format(printf, 4, 5)));

// snprintf(buf, size, fmt, ...), byte for byte and with the same result, written by the
// composer of the replies: cheaper than snprintf for the texts the library formats (node and
// key names, numbers).
int format_text(char *buf, size_t size, const char *fmt, ...) __attribute__((format(printf, 3, 4)));

// The failure reply whose reason Java reads from "FailReason", composed with the reason as its
// one argument: {"Result":-1,"FailReason":"<reason>"}.
#define BUNDLE_FAIL_REASON "{\"Result\":-1,\"FailReason\":\"%s\"}"

// The head of a list reply and the failure of one, shared by the list natives (as literals, so
// the library holds each text once).
#define BUNDLE_LIST_HEAD "{\"Result\":0,\"List\":["
#define BUNDLE_LIST_FAILURE "{\"Result\":-1,\"List\":[]}"

// What every reply has whatever its capacity: where its text is, how large it is and how far
// it has been composed. One copy of the code serves replies of every size.
class ReplyText {
 public:
  ReplyText(const ReplyText &) = delete;
  ReplyText &operator=(const ReplyText &) = delete;

  // Appends a piece where the previous one ended (see reply_vappend).
  int append(const char *fmt, ...) __attribute__((format(printf, 2, 3)));

  const char *c_str() const { return text_; }
  // Sum of the formatted lengths so far; larger than the capacity - 1 once the reply was cut.
  size_t offset() const { return off_; }
  bool truncated() const { return off_ >= cap_; }

 protected:
  // Starts the reply empty in `text`, its buffer of `cap` bytes. Only the text is ever read
  // (every piece keeps it terminated), so the rest of the buffer is left as it is.
  ReplyText(char *text, size_t cap);

 private:
  char *text_;
  size_t cap_;
  size_t off_;
};

// A reply composed in a buffer of N bytes (lives on the caller's stack).
template <size_t N>
class Reply : public ReplyText {
 public:
  Reply() : ReplyText(buffer_, N) {}

  static constexpr size_t capacity() { return N; }

 private:
  char buffer_[N];  // only its text is ever written or read
};

// A zeroed buffer of N bytes that the platform fills with a NUL-terminated text.
template <size_t N>
class PlatformText {
 public:
  PlatformText() : text_{} {}
  PlatformText(const PlatformText &) = delete;
  PlatformText &operator=(const PlatformText &) = delete;

  char *out() { return text_; }
  static constexpr int size() { return static_cast<int>(N); }
  // The text as the platform left it; a platform that filled the whole buffer without a
  // terminator is cut at N - 1 characters rather than read past the buffer.
  const char *text() {
    text_[N - 1] = '\0';
    return text_;
  }

 private:
  char text_[N];
};

// Terminates a fixed text field of a platform record at its last byte, so a field the
// platform filled to the brim is cut there instead of running into the next field.
template <size_t N>
inline void terminate_field(char (&field)[N]) {
  field[N - 1] = '\0';
}

// Length in bytes of `text` once made valid modified UTF-8 (see new_reply_string), without
// the terminator. *unchanged (when not NULL) tells whether the text is valid as it is.
size_t modified_utf8_length(const char *text, bool *unchanged);

// Writes the modified-UTF-8 form of `text` into `out` (capacity at least
// modified_utf8_length(text, NULL) + 1) and terminates it. Valid modified UTF-8 is copied unchanged;
// a standard 4-byte UTF-8 sequence becomes its surrogate pair (two 3-byte sequences); every
// maximal ill-formed subsequence becomes U+FFFD, as Java's own UTF-8 decoder reads it.
void to_modified_utf8(const char *text, char *out);

// The one way a reply text becomes a jstring. Valid modified UTF-8 goes to NewStringUTF as is;
// any other text is repaired first (see to_modified_utf8) so the rest of the reply survives.
// Returns NewStringUTF's result (NULL when the JVM could not allocate it, or when the repair
// buffer could not be allocated). Failure contract: with an exception pending it returns NULL
// without calling NewStringUTF.
jstring new_reply_string(JNIEnv *env, const char *text);

}  // namespace bundle

#endif
