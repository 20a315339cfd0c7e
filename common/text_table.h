// Tables of texts indexed by a platform code, packed into one string literal:
//
//     const char kStates[] = "NO_REG_NO_AUTH\0REG_NO_AUTH\0REG_AUTH";
//     table_text(kStates, code)      // "REG_AUTH" for 2, "" for 3 or -1
//
// A table of pointers costs a relocated pointer per text in the library as shipped on flash;
// a packed table costs nothing but its characters.
#ifndef BUNDLE_COMMON_TEXT_TABLE_H
#define BUNDLE_COMMON_TEXT_TABLE_H

#include <stddef.h>

namespace bundle {

// Text `code` of the packed table `table` of `size` bytes (its terminating NUL included); ""
// for a code outside the table.
const char *table_text(const char *table, size_t size, int code);

template <size_t N>
inline const char *table_text(const char (&table)[N], int code) {
  return table_text(table, N, code);
}

}  // namespace bundle

#endif
