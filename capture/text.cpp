#include "capture/text.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

namespace capture {

Text::~Text() { free(data_); }

bool Text::reserve(size_t extra) {
  if (failed_) return false;
  if (len_ + extra + 1 <= cap_) return true;
  size_t cap = cap_ != 0 ? cap_ : 256;
  while (cap < len_ + extra + 1) cap *= 2;
  char *grown = static_cast<char *>(realloc(data_, cap));
  if (grown == nullptr) {
    failed_ = true;
    return false;
  }
  data_ = grown;
  cap_ = cap;
  return true;
}

void Text::append(const char *bytes, size_t n) {
  if (!reserve(n)) return;
  memcpy(data_ + len_, bytes, n);
  len_ += n;
  data_[len_] = '\0';
}

void Text::append(const char *text) { append(text, strlen(text)); }

void Text::printf(const char *fmt, ...) {
  char small[256];
  va_list ap;
  va_start(ap, fmt);
  int n = vsnprintf(small, sizeof small, fmt, ap);
  va_end(ap);
  if (n < 0) return;
  if (static_cast<size_t>(n) < sizeof small) {
    append(small, static_cast<size_t>(n));
    return;
  }
  if (!reserve(static_cast<size_t>(n))) return;
  va_start(ap, fmt);
  vsnprintf(data_ + len_, static_cast<size_t>(n) + 1, fmt, ap);
  va_end(ap);
  len_ += static_cast<size_t>(n);
}

size_t field_length(const char *field, size_t cap) { return strnlen(field, cap); }

}  // namespace capture
