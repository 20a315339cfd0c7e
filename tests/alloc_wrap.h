// Allocation failures on demand, for the executable that builds the list-reply natives with
// -Wl,--wrap=malloc and -Wl,--wrap=calloc (it contains the natives' own object code and does
// not load libbundle_sc.so, so every malloc/calloc they make goes through the wrappers). A
// test arms the wrappers to fail the n-th allocation from then on and reads the sizes asked
// for; every other call goes to the C library (or the sanitizer's allocator) unchanged.
#ifndef TESTS_ALLOC_WRAP_H
#define TESTS_ALLOC_WRAP_H

#include <stddef.h>

#include <vector>

namespace allocwrap {

// Fails the `fail_at`-th allocation (1-based) from now on; 0 fails none. Sizes asked for are
// recorded into *sizes (cleared) when it is not NULL.
void arm(int fail_at, std::vector<size_t> *sizes);
void disarm();

}  // namespace allocwrap

#endif
