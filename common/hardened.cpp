#include "common/hardened.h"

#include <stdint.h>
#include <stdio.h>
#include <string.h>

#ifndef BUNDLE_HARDENED
#define BUNDLE_HARDENED 0
#endif

namespace bundle {

const char kHardenedFailure[] = "{\"Result\":-1}";
const char kRejectedFragment[] = "<rejected>";

bool hardened_profile() { return BUNDLE_HARDENED != 0; }

const char *secret(const char *text) { return BUNDLE_HARDENED ? "******" : text; }

#if BUNDLE_HARDENED

namespace {

// Output of the hardened composer: bytes go below buf[cap - 1] only, every byte is counted,
// and the JSON string state of the reply is followed byte by byte.
struct Sink {
  char *buf;
  size_t cap;
  size_t pos;
  bool in_string;
  bool escaped;  // the previous byte inside the string was an unescaped backslash

  void put(char c) {
    if (cap > 0 && pos < cap - 1) buf[pos] = c;
    ++pos;
  }
  // A byte of the reply's own structure (template text, a raw argument): follows the state.
  void raw(char c) {
    put(c);
    track(c);
  }
  void track(char c) {
    if (in_string) {
      if (escaped) {
        escaped = false;
      } else if (c == '\\') {
        escaped = true;
      } else if (c == '"') {
        in_string = false;
      }
    } else if (c == '"') {
      in_string = true;
    }
  }
  // A byte of a text placed inside a JSON string: escaped, the state does not change.
  void text(unsigned char c) {
    static const char kHex[] = "0123456789abcdef";
    switch (c) {
      case '"': put('\\'); put('"'); return;
      case '\\': put('\\'); put('\\'); return;
      case '\b': put('\\'); put('b'); return;
      case '\f': put('\\'); put('f'); return;
      case '\n': put('\\'); put('n'); return;
      case '\r': put('\\'); put('r'); return;
      case '\t': put('\\'); put('t'); return;
      default: break;
    }
    if (c < 0x20) {
      put('\\'); put('u'); put('0'); put('0');
      put(kHex[c >> 4]);
      put(kHex[c & 0x0F]);
      return;
    }
    put(static_cast<char>(c));
  }
};

// Where the calling thread's previous piece ended, and the string state there: a reply
// composed piece by piece (thousands of list objects) is then followed once, not re-read from
// its start for every piece. Initial-exec TLS: a few bytes of static TLS, no call into the
// dynamic loader.
struct LastPiece {
  const char *buf;
  size_t end;
  char last;  // the byte before `end`, a cheap check that the buffer is still that reply
  bool in_string;
  bool escaped;
};
__thread LastPiece t_last __attribute__((tls_model("initial-exec"))) = {nullptr, 0, 0, false, false};

// The JSON string state at the end of the reply composed so far.
void follow(Sink &sink, const char *buf, size_t len) {
  if (len > 0 && t_last.buf == buf && t_last.end == len && t_last.last == buf[len - 1]) {
    sink.in_string = t_last.in_string;
    sink.escaped = t_last.escaped;
    return;
  }
  for (size_t i = 0; i < len; ++i) sink.track(buf[i]);
}

void remember(const Sink &sink, const char *buf, size_t cap) {
  size_t len = cap > 0 ? (sink.pos < cap - 1 ? sink.pos : cap - 1) : 0;
  t_last.buf = buf;
  t_last.end = len;
  t_last.last = len > 0 ? buf[len - 1] : 0;
  t_last.in_string = sink.in_string;
  t_last.escaped = sink.escaped;
}

}  // namespace

int escaped_vappend(char *buf, size_t cap, size_t *off, const char *fmt, va_list ap) {
  size_t at = *off;
  bool writable = cap > 0 && at < cap - 1;
  Sink sink{buf, cap, at, false, false};
  follow(sink, buf, writable ? at : (cap > 0 ? strnlen(buf, cap - 1) : 0));
  if (!writable) sink.cap = 0;  // nothing fits any more: only measure
  size_t real_cap = cap;

  for (const char *p = fmt; *p; ++p) {
    if (*p != '%') {
      sink.raw(*p);
      continue;
    }
    // One conversion: %[flags][width][.precision][length]conversion
    const char *start = p++;
    while (*p && strchr("-+ #0'", *p)) ++p;
    int width = -1, precision = -1;
    bool left = false;
    for (const char *f = start + 1; f < p; ++f) left = left || *f == '-';
    if (*p == '*') {
      width = va_arg(ap, int);
      if (width < 0) {
        left = true;
        width = -width;
      }
      ++p;
    } else {
      while (*p >= '0' && *p <= '9') width = (width < 0 ? 0 : width * 10) + (*p++ - '0');
    }
    if (*p == '.') {
      ++p;
      precision = 0;
      if (*p == '*') {
        precision = va_arg(ap, int);
        ++p;
      } else {
        while (*p >= '0' && *p <= '9') precision = precision * 10 + (*p++ - '0');
      }
    }
    int longs = 0;  // l count; 'h', 'z', 'j', 't', 'L' as below
    char size = 0;
    while (*p && strchr("hlLqjzt", *p)) {
      if (*p == 'l') ++longs;
      else size = *p;
      ++p;
    }
    char conv = *p;
    if (conv == '\0') break;
    if (conv == '%') {
      sink.raw('%');
      continue;
    }
    if (conv == 's') {
      const char *s = va_arg(ap, const char *);
      if (s == nullptr) s = "(null)";
      size_t n = precision >= 0 ? strnlen(s, static_cast<size_t>(precision)) : strlen(s);
      size_t pad = width > 0 && static_cast<size_t>(width) > n ? static_cast<size_t>(width) - n : 0;
      bool quoted = sink.in_string;
      if (!left) for (size_t i = 0; i < pad; ++i) sink.raw(' ');
      for (size_t i = 0; i < n; ++i) {
        if (quoted) sink.text(static_cast<unsigned char>(s[i]));
        else sink.raw(s[i]);
      }
      if (left) for (size_t i = 0; i < pad; ++i) sink.raw(' ');
      continue;
    }
    if (conv == 'n') {
      (void)va_arg(ap, void *);  // never used by a reply; nothing is stored
      continue;
    }
    // Any other conversion: formatted alone by snprintf, with the same conversion.
    char conversion[32];
    size_t conv_len = static_cast<size_t>(p - start + 1);
    if (conv_len >= sizeof conversion) break;
    memcpy(conversion, start, conv_len);
    conversion[conv_len] = '\0';
    // The width and precision taken from the arguments are written into the conversion.
    char fixed[48];
    if (strchr(conversion, '*') != nullptr) {
      size_t o = 0;
      for (size_t i = 0; i < conv_len && o + 12 < sizeof fixed; ++i) {
        if (conversion[i] != '*') {
          fixed[o++] = conversion[i];
        } else {
          bool is_precision = i > 0 && conversion[i - 1] == '.';
          int v = is_precision ? precision : width;
          o += static_cast<size_t>(snprintf(fixed + o, sizeof fixed - o, "%d", v));
        }
      }
      fixed[o] = '\0';
      if (left && fixed[1] != '-') {
        memmove(fixed + 2, fixed + 1, o);
        fixed[1] = '-';
      }
    } else {
      memcpy(fixed, conversion, conv_len + 1);
    }
    char piece[512];
    int len = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"  // the conversion is the template's own
    switch (conv) {
      case 'd': case 'i': case 'u': case 'o': case 'x': case 'X':
        if (longs >= 2 || size == 'q' || size == 'j') {
          len = snprintf(piece, sizeof piece, fixed, va_arg(ap, long long));
        } else if (longs == 1 || size == 'z' || size == 't') {
          len = snprintf(piece, sizeof piece, fixed, va_arg(ap, long));
        } else {
          len = snprintf(piece, sizeof piece, fixed, va_arg(ap, int));
        }
        break;
      case 'c':
        len = snprintf(piece, sizeof piece, fixed, va_arg(ap, int));
        break;
      case 'p':
        len = snprintf(piece, sizeof piece, fixed, va_arg(ap, void *));
        break;
      case 'f': case 'F': case 'e': case 'E': case 'g': case 'G': case 'a': case 'A':
        if (size == 'L') {
          len = snprintf(piece, sizeof piece, fixed, va_arg(ap, long double));
        } else {
          len = snprintf(piece, sizeof piece, fixed, va_arg(ap, double));
        }
        break;
      default:
        len = 0;
        break;
    }
#pragma GCC diagnostic pop
    if (len < 0) len = 0;
    size_t shown = static_cast<size_t>(len) < sizeof piece ? static_cast<size_t>(len) : sizeof piece - 1;
    bool quoted = sink.in_string;
    for (size_t i = 0; i < shown; ++i) {
      if (quoted && conv == 'c') sink.text(static_cast<unsigned char>(piece[i]));
      else sink.raw(piece[i]);
    }
  }

  if (writable) buf[sink.pos < cap - 1 ? sink.pos : cap - 1] = '\0';
  // A cut reply is remembered with the state after the whole piece, so the pieces that are
  // only measured afterwards count as if the reply had gone on.
  if (real_cap > 0) remember(sink, buf, real_cap);
  size_t n = sink.pos - at;
  if (n > 0) *off = at + n;
  return static_cast<int>(n);
}

#else

// The default profile never escapes (reply_vappend asks hardened_profile() first), so the
// composer above is left out of the library; this one leaves texts as they are.
int escaped_vappend(char *buf, size_t cap, size_t *off, const char *fmt, va_list ap) {
  return reply_vappend(buf, cap, off, fmt, ap);
}

#endif

namespace {

// A small recursive-descent JSON checker over a NUL-terminated text.
struct Checker {
  const unsigned char *p;
  int depth;

  void blank() {
    while (*p == ' ' || *p == '\t' || *p == '\n' || *p == '\r') ++p;
  }
  bool literal(const char *word) {
    size_t n = strlen(word);
    if (strncmp(reinterpret_cast<const char *>(p), word, n) != 0) return false;
    p += n;
    return true;
  }
  static bool hex(unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
  }
  static bool digit(unsigned char c) { return c >= '0' && c <= '9'; }
  bool string() {
    if (*p != '"') return false;
    ++p;
    for (;;) {
      unsigned char c = *p;
      if (c == '\0' || c < 0x20) return false;
      ++p;
      if (c == '"') return true;
      if (c == '\\') {
        c = *p++;
        if (c == 'u') {
          for (int i = 0; i < 4; ++i)
            if (!hex(*p++)) return false;
        } else if (!c || !strchr("\"\\/bfnrt", c)) {
          return false;
        }
      }
    }
  }
  bool number() {
    if (*p == '-') ++p;
    if (*p == '0') {
      ++p;
    } else if (*p >= '1' && *p <= '9') {
      while (digit(*p)) ++p;
    } else {
      return false;
    }
    if (*p == '.') {
      ++p;
      if (!digit(*p)) return false;
      while (digit(*p)) ++p;
    }
    if (*p == 'e' || *p == 'E') {
      ++p;
      if (*p == '+' || *p == '-') ++p;
      if (!digit(*p)) return false;
      while (digit(*p)) ++p;
    }
    return true;
  }
  bool value() {
    blank();
    switch (*p) {
      case '{': return container('}');
      case '[': return container(']');
      case '"': return string();
      case 't': return literal("true");
      case 'f': return literal("false");
      case 'n': return literal("null");
      default: return number();
    }
  }
  bool container(unsigned char close) {
    if (++depth > 64) return false;
    ++p;
    blank();
    if (*p == close) {
      ++p;
      --depth;
      return true;
    }
    for (;;) {
      if (close == '}') {
        blank();
        if (!string()) return false;
        blank();
        if (*p++ != ':') return false;
      }
      if (!value()) return false;
      blank();
      if (*p == ',') {
        ++p;
        continue;
      }
      if (*p != close) return false;
      ++p;
      --depth;
      return true;
    }
  }
};

}  // namespace

bool json_valid(const char *text) {
  if (text == nullptr) return false;
  Checker c{reinterpret_cast<const unsigned char *>(text), 0};
  if (!c.value()) return false;
  c.blank();
  return *c.p == '\0';
}

const char *raw_json(const char *text, RawJson kind, size_t max) {
  if (!BUNDLE_HARDENED || text == nullptr) return text;
  size_t n = strnlen(text, max);
  if (kind == RawJson::kNumber) {
    // A number is short: checked in a terminated copy of the bytes that are placed.
    char number[40];
    if (n == 0 || n >= sizeof number) return kRejectedFragment;
    memcpy(number, text, n);
    number[n] = '\0';
    Checker c{reinterpret_cast<const unsigned char *>(number), 0};
    return c.number() && *c.p == '\0' ? text : kRejectedFragment;
  }
  // The items of a list end where the text does: a text longer than the bytes placed would be
  // cut inside them.
  if (n == max) return kRejectedFragment;
  Checker c{reinterpret_cast<const unsigned char *>(text), 0};
  c.blank();
  if (*c.p == '\0') return text;
  for (;;) {
    if (!c.value()) return kRejectedFragment;
    c.blank();
    if (*c.p == '\0') return text;
    if (*c.p++ != ',') return kRejectedFragment;
  }
}

const char *checked_reply(const char *text, const char *failure) {
  if (!BUNDLE_HARDENED || text == nullptr || text[0] != '{' || json_valid(text)) return text;
  return failure != nullptr ? failure : kHardenedFailure;
}

}  // namespace bundle
