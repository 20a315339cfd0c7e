// One state file of a capture, in the simulator's format (sim/gateway/*.ini): comments,
// "[section]" lines and "key = value" lines. Values are written so that the simulator reads
// back exactly the bytes the platform gave: valid UTF-8 as it is, anything else (control
// characters, bytes that are not UTF-8) as \xHH, quotes and backslashes escaped, the value in
// double quotes when its outer blanks matter.
#ifndef BUNDLE_CAPTURE_STATE_FILE_H
#define BUNDLE_CAPTURE_STATE_FILE_H

#include <stddef.h>

#include "capture/text.h"

namespace capture {

// Appends the state-file form of `n` bytes to `out`.
void encode_value(Text *out, const char *bytes, size_t n);

class StateFile {
 public:
  explicit StateFile(const char *name) : name_(name) {}

  const char *name() const { return name_; }
  const Text &content() const { return text_; }
  bool failed() const { return text_.failed(); }

  void comment(const char *fmt, ...) __attribute__((format(printf, 2, 3)));
  // Starts "[name]" (after a blank line).
  void section(const char *fmt, ...) __attribute__((format(printf, 2, 3)));
  void text(const char *key, const char *bytes, size_t n);
  void text(const char *key, const char *z);
  // A text read from a platform field of `cap` bytes (the whole field when unterminated).
  void field(const char *key, const char *field, size_t cap);
  template <size_t N>
  void field(const char *key, const char (&f)[N]) {
    field(key, f, N);
  }
  void number(const char *key, long long v);
  // Appends another file's lines.
  void append(const StateFile &other) { text_.append(other.text_.data(), other.text_.size()); }
  void unsigned_number(const char *key, unsigned long long v);

 private:
  const char *name_;
  Text text_;
};

}  // namespace capture

#endif
