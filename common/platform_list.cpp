#include "common/platform_list.h"

#include <malloc.h>

namespace bundle {

int platform_list_count(const void *list, int count, size_t record_size) {
  if (list == nullptr || count < 1 || record_size == 0) return 0;
  size_t held = malloc_usable_size(const_cast<void *>(list)) / record_size;
  return static_cast<size_t>(count) > held ? static_cast<int>(held) : count;
}

}  // namespace bundle
