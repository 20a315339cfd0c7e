// Objects of a JSON list reply composed piece by piece into a bounded buffer.
#ifndef BUNDLE_COMMON_JSON_LIST_H
#define BUNDLE_COMMON_JSON_LIST_H

#include <stddef.h>

#include "common/reply.h"

namespace bundle {

// The last character of a reply composed with reply_append (logical offset `off` into `buf`
// of `cap` bytes); '\0' while the reply is empty. A reply that was cut ends at cap - 2.
inline char reply_last_char(const char *buf, size_t cap, size_t off) {
  size_t len = off < cap ? off : cap - 1;
  return len > 0 ? buf[len - 1] : '\0';
}

// Opens the next object of a list: "," then "{" when the reply so far ends with "}" (an
// object before it), "{" alone otherwise.
inline void append_object_opener(char *buf, size_t cap, size_t *off) {
  if (reply_last_char(buf, cap, *off) == '}') reply_append(buf, cap, off, ",");
  reply_append(buf, cap, off, "{");
}

}  // namespace bundle

#endif
