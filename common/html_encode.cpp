#include "common/html_encode.h"

#include <stddef.h>
#include <string.h>

namespace {

struct Replacement {
  char c;
  const char *with;
};

// Ended by a zero character.
const Replacement kReplacements[] = {
    {'"', "\\\""},
    {'\\', "\\\\"},
    {'/', "\\/"},
    {0, nullptr},
};

}  // namespace

extern "C" int html_encode(char *out, const char *in) {
  size_t n = 0;
  for (const char *p = in; *p != '\0'; ++p) {
    const char *piece = nullptr;
    for (const Replacement *r = kReplacements; r->c != 0; ++r) {
      if (*p == r->c) {
        piece = r->with;
        break;
      }
    }
    size_t len = piece != nullptr ? strlen(piece) : 1;
    // Room is kept for the terminator; a text that would not fit stops at a whole piece.
    if (n + len > HTML_ENCODE_OUT_SIZE - 1) break;
    if (piece != nullptr) {
      memcpy(out + n, piece, len);
    } else {
      out[n] = *p;
    }
    n += len;
  }
  out[n] = '\0';
  return static_cast<int>(n);
}
