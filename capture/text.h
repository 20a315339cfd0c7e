// A growing text on the heap, for the capture tool (which, like the library, needs no C++
// runtime). An allocation that fails marks the text as failed; appending then does nothing.
#ifndef BUNDLE_CAPTURE_TEXT_H
#define BUNDLE_CAPTURE_TEXT_H

#include <stddef.h>

namespace capture {

class Text {
 public:
  Text() = default;
  ~Text();
  Text(const Text &) = delete;
  Text &operator=(const Text &) = delete;

  void append(const char *bytes, size_t n);
  void append(const char *text);
  void append(char c) { append(&c, 1); }
  void printf(const char *fmt, ...) __attribute__((format(printf, 2, 3)));
  void clear() { len_ = 0; }

  const char *data() const { return data_ != nullptr ? data_ : ""; }
  size_t size() const { return len_; }
  bool failed() const { return failed_; }

 private:
  bool reserve(size_t extra);
  char *data_ = nullptr;
  size_t len_ = 0;
  size_t cap_ = 0;
  bool failed_ = false;
};

// The length of a platform text in a field of `cap` bytes: up to its NUL, or the whole field
// when the platform left it unterminated.
size_t field_length(const char *field, size_t cap);

template <size_t N>
inline size_t field_length(const char (&field)[N]) {
  return field_length(field, N);
}

}  // namespace capture

#endif
