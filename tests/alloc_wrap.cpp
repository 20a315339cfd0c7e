#include "tests/alloc_wrap.h"

#include <stdlib.h>

extern "C" {
void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
}

namespace {

int g_fail_at = 0;     // 1-based number of the allocation to fail after arming; 0: none
int g_counted = 0;     // allocations made since arming
bool g_armed = false;
std::vector<size_t> *g_sizes = nullptr;  // sizes asked for since arming

bool allocation_fails(size_t bytes) {
  if (!g_armed) return false;
  ++g_counted;
  if (g_sizes != nullptr) {
    g_armed = false;  // the vector's own growth is not counted
    g_sizes->push_back(bytes);
    g_armed = true;
  }
  return g_counted == g_fail_at;
}

}  // namespace

extern "C" void *__wrap_malloc(size_t size) {
  if (allocation_fails(size)) return nullptr;
  return __real_malloc(size);
}

extern "C" void *__wrap_calloc(size_t count, size_t size) {
  if (allocation_fails(count * size)) return nullptr;
  return __real_calloc(count, size);
}

namespace allocwrap {

void arm(int fail_at, std::vector<size_t> *sizes) {
  g_armed = false;
  if (sizes != nullptr) {
    sizes->clear();
    sizes->reserve(16);
  }
  g_sizes = sizes;
  g_counted = 0;
  g_fail_at = fail_at;
  g_armed = true;
}

void disarm() {
  g_armed = false;
  g_sizes = nullptr;
}

}  // namespace allocwrap
