#include "common/text_table.h"

#include <string.h>

namespace bundle {

const char *table_text(const char *table, size_t size, int code) {
  const char *text = table;
  const char *end = table + size;
  for (; code > 0 && text < end; --code) text += strlen(text) + 1;
  return code == 0 && text < end ? text : "";
}

}  // namespace bundle
