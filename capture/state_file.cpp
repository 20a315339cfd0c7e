#include "capture/state_file.h"

#include <stdarg.h>
#include <stdio.h>
#include <string.h>

namespace capture {
namespace {

// The length of the valid UTF-8 sequence at p (1 to 4), or 0 when the bytes there are not one.
size_t utf8_sequence(const unsigned char *p, size_t left) {
  unsigned char c = p[0];
  size_t n;
  unsigned char lo = 0x80, hi = 0xBF;  // range of the second byte
  if (c >= 0xC2 && c <= 0xDF) {
    n = 2;
  } else if (c >= 0xE0 && c <= 0xEF) {
    n = 3;
    if (c == 0xE0) lo = 0xA0;
    if (c == 0xED) hi = 0x9F;  // no surrogates
  } else if (c >= 0xF0 && c <= 0xF4) {
    n = 4;
    if (c == 0xF0) lo = 0x90;
    if (c == 0xF4) hi = 0x8F;
  } else {
    return 0;
  }
  if (left < n || p[1] < lo || p[1] > hi) return 0;
  for (size_t i = 2; i < n; ++i)
    if (p[i] < 0x80 || p[i] > 0xBF) return 0;
  return n;
}

}  // namespace

void encode_value(Text *out, const char *bytes, size_t n) {
  const unsigned char *p = reinterpret_cast<const unsigned char *>(bytes);
  // Outer blanks would be trimmed away by the reader, an empty value would read as nothing:
  // both are written in double quotes.
  bool quoted = n == 0 || p[0] == ' ' || p[n - 1] == ' ';
  if (quoted) out->append('"');
  for (size_t i = 0; i < n;) {
    unsigned char c = p[i];
    if (c == '\\' || c == '"') {
      out->append('\\');
      out->append(static_cast<char>(c));
      ++i;
    } else if (c >= 0x20 && c < 0x7F) {
      out->append(static_cast<char>(c));
      ++i;
    } else if (size_t len = c >= 0x80 ? utf8_sequence(p + i, n - i) : 0) {
      out->append(reinterpret_cast<const char *>(p + i), len);
      i += len;
    } else {
      out->printf("\\x%02X", c);
      ++i;
    }
  }
  if (quoted) out->append('"');
}

void StateFile::comment(const char *fmt, ...) {
  char line[1024];
  va_list ap;
  va_start(ap, fmt);
  vsnprintf(line, sizeof line, fmt, ap);
  va_end(ap);
  text_.append("# ");
  text_.append(line);
  text_.append('\n');
}

void StateFile::section(const char *fmt, ...) {
  char name[512];
  va_list ap;
  va_start(ap, fmt);
  vsnprintf(name, sizeof name, fmt, ap);
  va_end(ap);
  text_.printf("\n[%s]\n", name);
}

void StateFile::text(const char *key, const char *bytes, size_t n) {
  text_.printf("%s = ", key);
  encode_value(&text_, bytes, n);
  text_.append('\n');
}

void StateFile::text(const char *key, const char *z) { text(key, z, strlen(z)); }

void StateFile::field(const char *key, const char *f, size_t cap) {
  text(key, f, field_length(f, cap));
}

void StateFile::number(const char *key, long long v) { text_.printf("%s = %lld\n", key, v); }

void StateFile::unsigned_number(const char *key, unsigned long long v) {
  text_.printf("%s = %llu\n", key, v);
}

}  // namespace capture
