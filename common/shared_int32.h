// A 32-bit integer that natives on several Java threads read and write at once.
//
// The library takes no locks. Each load and store is a single atomic access (the compiler's
// __atomic builtins, lock-free for 32 bits on every target, so no C++ or atomic runtime is
// pulled in): a reader sees some value that was stored, never a torn one, and the last store
// wins. The constexpr constructor makes a global of this type statically initialised.
#ifndef BUNDLE_COMMON_SHARED_INT32_H
#define BUNDLE_COMMON_SHARED_INT32_H

#include <stdint.h>

namespace bundle {

static_assert(__atomic_always_lock_free(sizeof(int32_t), 0), "32-bit atomics are lock-free");

class SharedInt32 {
 public:
  constexpr explicit SharedInt32(int32_t initial) : value_(initial) {}
  SharedInt32(const SharedInt32 &) = delete;
  SharedInt32 &operator=(const SharedInt32 &) = delete;

  int32_t load() const { return __atomic_load_n(&value_, __ATOMIC_SEQ_CST); }
  void store(int32_t value) { __atomic_store_n(&value_, value, __ATOMIC_SEQ_CST); }

 private:
  int32_t value_;
};

}  // namespace bundle

#endif
