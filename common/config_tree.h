// Bounded reads of the configuration tree.
//
// tcapi_get is never told how large the caller's buffer is: it copies the whole attribute.
// The tree hands out at most TREE_VALUE_MAX bytes (terminator included) for one attribute, so
// every read goes through a scratch buffer of that size and reaches the caller's buffer cut at
// its size - 1. Values that fit the caller's buffer arrive exactly as tcapi_get gives them.
#ifndef BUNDLE_COMMON_CONFIG_TREE_H
#define BUNDLE_COMMON_CONFIG_TREE_H

#include <stddef.h>

// The longest attribute value the configuration tree hands out, terminator included (larger
// than any read buffer of the bridge, so nothing the bridge reads is ever cut by it).
#define TREE_VALUE_MAX 4096

namespace bundle {

// tcapi_get(node, attr, ...) into `buf` of `size` bytes (size >= 1), cut at size - 1 and
// always terminated. Returns tcapi_get's result; an absent attribute leaves "".
int tree_get(const char *node, const char *attr, char *buf, size_t size);

// atoi of a text (a tree value, a parameter) as the gateway's 32-bit C library reads it:
// leading blanks, an optional sign and decimal digits, a number beyond the int range saturated
// at INT_MAX / INT_MIN (on a 64-bit host atoi would wrap it instead), so the same text gives
// the same number on every build.
int tree_atoi(const char *text);

// The same into a char array, its size taken from the array.
template <size_t N>
inline int tree_get(const char *node, const char *attr, char (&buf)[N]) {
  return tree_get(node, attr, buf, N);
}

}  // namespace bundle

#endif
