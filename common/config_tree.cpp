#include "common/config_tree.h"

#include <limits.h>
#include <stdlib.h>
#include <string.h>

#include "common/platform_tcapi.h"

namespace bundle {

int tree_get(const char *node, const char *attr, char *buf, size_t size) {
  char scratch[TREE_VALUE_MAX];
  scratch[0] = '\0';
  int rc = tcapi_get(node, attr, scratch);
  scratch[TREE_VALUE_MAX - 1] = '\0';
  size_t n = strnlen(scratch, size - 1);
  memcpy(buf, scratch, n);
  buf[n] = '\0';
  return rc;
}

int tree_atoi(const char *text) {
  long long value = strtoll(text, nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

}  // namespace bundle
