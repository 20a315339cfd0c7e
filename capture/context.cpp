#include "capture/context.h"

#include <string.h>

namespace capture {

void Context::secret(StateFile *f, const char *key, const char *field, size_t cap) const {
  size_t n = field_length(field, cap);
  if (opt.with_secrets || n == 0) {
    f->text(key, field, n);
  } else {
    f->text(key, "******");
  }
}

void Context::customer(StateFile *f, const char *key, Customer kind, const char *text, size_t n) const {
  Text t;
  anon.rewrite(kind, text, n, &t);
  f->text(key, t.data(), t.size());
}

bool any_bytes(const void *record, size_t size) {
  const unsigned char *p = static_cast<const unsigned char *>(record);
  for (size_t i = 0; i < size; ++i)
    if (p[i] != 0) return true;
  return false;
}

}  // namespace capture
