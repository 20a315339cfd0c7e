#include "common/reply.h"

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "common/hardened.h"

namespace bundle {

namespace {

// The output of one piece: bytes go below dst[room - 1] only, every byte is counted.
struct Piece {
  char *dst;
  size_t room;
  size_t len;

  void put(const char *text, size_t n) {
    if (len + 1 < room) {
      size_t fit = room - 1 - len;
      memcpy(dst + len, text, n < fit ? n : fit);
    }
    len += n;
  }
};

// Formats one piece as vsnprintf(dst, room, fmt, ap) does, byte for byte and with the same
// result. The conversions replies are made of (%s, %.Ns, %.*s, %d, %i and %u, with l or ll,
// and %%) are written here; a piece with any other conversion or a NULL text is handed to
// vsnprintf whole. A call to vsnprintf costs more than most pieces themselves.
int compose(char *dst, size_t room, const char *fmt, va_list ap) {
  va_list again;
  va_copy(again, ap);
  Piece out{dst, room, 0};
  const char *p = fmt;
  for (;;) {
    const char *pct = strchr(p, '%');
    size_t literal = pct != nullptr ? static_cast<size_t>(pct - p) : strlen(p);
    out.put(p, literal);
    if (pct == nullptr) break;  // the whole piece is written
    p = pct + 1;
    size_t precision = static_cast<size_t>(-1);
    if (*p == '.') {
      if (*++p == '*') {
        int given = va_arg(ap, int);  // a negative precision is none
        if (given >= 0) precision = static_cast<size_t>(given);
        ++p;
      } else {
        for (precision = 0; *p >= '0' && *p <= '9'; ++p) precision = precision * 10 + (*p - '0');
      }
    }
    int longs = 0;
    for (; *p == 'l' && longs < 2; ++p) ++longs;
    char conv = *p++;
    if (conv == 's' && longs == 0) {
      const char *text = va_arg(ap, const char *);
      if (text == nullptr) goto whole;  // "(null)" and its cuts are vsnprintf's
      out.put(text, strnlen(text, precision));
    } else if (conv == '%' && longs == 0 && precision == static_cast<size_t>(-1)) {
      out.put("%", 1);
    } else if ((conv == 'd' || conv == 'i' || conv == 'u') &&
               precision == static_cast<size_t>(-1)) {
      // The number's magnitude as 64 bits, then its digits by 16-bit limbs: 32-bit divisions
      // only (the gateway's CPU has no 64-bit one).
      unsigned long long magnitude =
          longs == 2 ? va_arg(ap, unsigned long long)
          : longs == 1 ? static_cast<unsigned long long>(va_arg(ap, long))
                       : static_cast<unsigned long long>(va_arg(ap, int));
      bool negative = false;
      if (conv == 'u') {
        if (longs == 1) magnitude = static_cast<unsigned long>(magnitude);
        if (longs == 0) magnitude = static_cast<unsigned int>(magnitude);
      } else if (static_cast<long long>(magnitude) < 0) {
        negative = true;
        magnitude = 0 - magnitude;
      }
      uint32_t limbs[4] = {static_cast<uint32_t>(magnitude >> 48),
                           static_cast<uint32_t>(magnitude >> 32) & 0xFFFFu,
                           static_cast<uint32_t>(magnitude) >> 16,
                           static_cast<uint32_t>(magnitude) & 0xFFFFu};
      char digits[21];
      char *start = digits + sizeof digits;
      bool more;
      do {
        uint32_t rest = 0;
        more = false;
        for (uint32_t &limb : limbs) {
          uint32_t part = rest << 16 | limb;
          limb = part / 10;
          rest = part % 10;
          more = more || limb != 0;
        }
        *--start = static_cast<char>('0' + rest);
      } while (more);
      if (negative) *--start = '-';
      out.put(start, static_cast<size_t>(digits + sizeof digits - start));
    } else {
      goto whole;  // a lone '%' at the end too
    }
  }
  if (room > 0) dst[out.len < room - 1 ? out.len : room - 1] = '\0';
  va_end(again);
  return static_cast<int>(out.len);
whole:
  int n = vsnprintf(dst, room, fmt, again);
  va_end(again);
  return n;
}

}  // namespace

int reply_vappend(char *buf, size_t cap, size_t *off, const char *fmt, va_list ap) {
  if (hardened_profile()) return escaped_vappend(buf, cap, off, fmt, ap);
  size_t at = *off;
  // Once nothing fits any more the piece is only measured, as snprintf(NULL, 0, ...) would.
  bool fits = cap > 0 && at < cap - 1;
  int n = compose(fits ? buf + at : nullptr, fits ? cap - at : 0, fmt, ap);
  if (n > 0) *off = at + static_cast<size_t>(n);
  return n;
}

int format_text(char *buf, size_t size, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  int n = compose(size > 0 ? buf : nullptr, size, fmt, ap);
  va_end(ap);
  return n;
}

int reply_append(char *buf, size_t cap, size_t *off, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  int n = reply_vappend(buf, cap, off, fmt, ap);
  va_end(ap);
  return n;
}

ReplyText::ReplyText(char *text, size_t cap) : text_(text), cap_(cap), off_(0) {
  // Every piece leaves the text terminated and nothing reads past it: only the first byte is
  // set (zeroing a 64 KiB host list in full cost more than composing it).
  if (cap > 0) text[0] = '\0';
}

int ReplyText::append(const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  int n = reply_vappend(text_, cap_, &off_, fmt, ap);
  va_end(ap);
  return n;
}

namespace {

// Classifies the sequence that starts at s[0]. Returns the number of bytes it spans and sets
// *out_len to the number of bytes its modified-UTF-8 form takes: the same for a valid 1-3 byte
// sequence, 6 for a 4-byte sequence (surrogate pair), 3 for U+FFFD when ill-formed.
// *valid is false when the sequence has to be rewritten.
size_t scan(const unsigned char *s, size_t *out_len, bool *valid) {
  unsigned char c = s[0];
  *valid = true;
  if (c < 0x80) {
    *out_len = 1;
    return 1;
  }
  unsigned char lo = 0x80, hi = 0xBF;
  size_t need;
  if (c == 0xC0 && s[1] == 0x80) {  // modified UTF-8's two-byte NUL
    *out_len = 2;
    return 2;
  } else if (c >= 0xC2 && c <= 0xDF) {
    need = 1;
  } else if (c >= 0xE0 && c <= 0xEF) {
    need = 2;
    if (c == 0xE0) lo = 0xA0;  // no overlong forms; surrogates (ED A0..BF) are valid here
  } else if (c >= 0xF0 && c <= 0xF4) {
    need = 3;
    if (c == 0xF0) lo = 0x90;
    if (c == 0xF4) hi = 0x8F;
  } else {
    *valid = false;
    *out_len = 3;
    return 1;
  }
  // Maximal subpart: stop at the first byte that cannot continue the sequence.
  size_t i = 1;
  for (; i <= need; ++i) {
    unsigned char b = s[i];
    unsigned char l = (i == 1) ? lo : 0x80, h = (i == 1) ? hi : 0xBF;
    if (b < l || b > h) break;
  }
  if (i <= need) {
    *valid = false;
    *out_len = 3;
    return i;
  }
  if (need == 3) {
    *valid = false;  // well-formed, but Java wants it as a surrogate pair
    *out_len = 6;
    return 4;
  }
  *out_len = need + 1;
  return need + 1;
}

void put3(char *&o, unsigned cp) {
  *o++ = static_cast<char>(0xE0 | (cp >> 12));
  *o++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
  *o++ = static_cast<char>(0x80 | (cp & 0x3F));
}

}  // namespace

size_t modified_utf8_length(const char *text, bool *unchanged) {
  const unsigned char *s = reinterpret_cast<const unsigned char *>(text);
  // Replies are nearly always ASCII: that part is passed eight bytes at a time.
  size_t len = strlen(text);
  size_t total = 0;
  for (uint64_t word; total + sizeof word <= len; total += sizeof word) {
    memcpy(&word, s + total, sizeof word);
    if ((word & 0x8080808080808080ull) != 0) break;
  }
  while (total < len && s[total] < 0x80) ++total;
  s += total;
  bool all_valid = true;
  while (*s) {
    size_t out_len;
    bool valid;
    s += scan(s, &out_len, &valid);
    total += out_len;
    all_valid = all_valid && valid;
  }
  if (unchanged != nullptr) *unchanged = all_valid;
  return total;
}

void to_modified_utf8(const char *text, char *out) {
  const unsigned char *s = reinterpret_cast<const unsigned char *>(text);
  char *o = out;
  while (*s) {
    size_t out_len;
    bool valid;
    size_t span = scan(s, &out_len, &valid);
    if (valid) {
      memcpy(o, s, span);
      o += span;
    } else if (out_len == 6) {
      unsigned cp = ((s[0] & 0x07u) << 18) | ((s[1] & 0x3Fu) << 12) | ((s[2] & 0x3Fu) << 6) |
                    (s[3] & 0x3Fu);
      cp -= 0x10000;
      put3(o, 0xD800 + (cp >> 10));
      put3(o, 0xDC00 + (cp & 0x3FF));
    } else {
      put3(o, 0xFFFD);
    }
    s += span;
  }
  *o = '\0';
}

jstring new_reply_string(JNIEnv *env, const char *text) {
  // No string can be made while a Java exception is pending: Java sees the exception.
  if (env->ExceptionCheck() == JNI_TRUE) return nullptr;
  text = checked_reply(text, nullptr);  // the hardened profile's safety net
  bool unchanged;
  size_t out_len = modified_utf8_length(text, &unchanged);
  if (unchanged) return env->NewStringUTF(text);
  // Repair is the rare path (a platform text that is not modified UTF-8): small replies are
  // repaired on the stack, large ones in a heap copy that lives only for this call.
  char local[1024];
  char *out = out_len < sizeof local ? local : static_cast<char *>(malloc(out_len + 1));
  if (out == nullptr) return nullptr;
  to_modified_utf8(text, out);
  jstring result = env->NewStringUTF(out);
  if (out != local) free(out);
  return result;
}

}  // namespace bundle
