#include "common/config_tree.h"

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

}  // namespace bundle
