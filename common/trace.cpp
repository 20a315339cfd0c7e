#include "common/trace.h"

#include <stdarg.h>
#include <stdio.h>
#include <unistd.h>

namespace bundle {

bool flag_file_exists(const char *path) { return access(path, F_OK) == 0; }

void trace_printf(const char *fn, int line, const char *fmt, ...) {
  if (!flag_file_exists(BUNDLE_TRACE_FLAG)) return;
  printf("%s:%d:", fn, line);
  va_list ap;
  va_start(ap, fmt);
  vprintf(fmt, ap);
  va_end(ap);
  fflush(stdout);
}

void trace_puts(const char *fn, int line, const char *text) {
  if (!flag_file_exists(BUNDLE_TRACE_FLAG)) return;
  printf("%s:%d:", fn, line);
  puts(text);
  fflush(stdout);
}

}  // namespace bundle
