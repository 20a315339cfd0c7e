// Lists the platform allocates and hands over with a count.
//
// A bridge cannot see a list's length, only the count the platform reports with it. The
// platform allocates those lists with malloc(), so the allocation itself bounds what may be
// read: a count above what the block holds is cut there, a count below 1 or a NULL list
// reads as no records at all.
#ifndef BUNDLE_COMMON_PLATFORM_LIST_H
#define BUNDLE_COMMON_PLATFORM_LIST_H

#include <stddef.h>

namespace bundle {

// The records of `list` (NULL or a block from malloc) that may be read: `count` capped at
// malloc_usable_size(list) / record_size; 0 for a NULL list or a count below 1.
int platform_list_count(const void *list, int count, size_t record_size);

template <typename T>
inline int platform_list_count(const T *list, int count) {
  return platform_list_count(static_cast<const void *>(list), count, sizeof(T));
}

}  // namespace bundle

#endif
