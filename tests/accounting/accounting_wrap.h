// Heap accounting of the library's own code, for the executable that builds every native with
// -Wl,--wrap=malloc,--wrap=calloc,--wrap=realloc,--wrap=free and with the platform's list
// queries and the reply-string maker wrapped as well (--wrap reaches only the executable's own
// objects: the simulator, the C++ runtime and the other shared objects allocate unseen).
//
// While a window is open, every allocation the natives make is noted with its pointer, every
// free is matched against the natives' own blocks and against the blocks the platform's list
// queries handed over (arrays, and the texts or nodes that hang from them), and allocations
// made inside bundle::new_reply_string (the repair copy of a long reply that is not modified
// UTF-8) are told apart from the native's own.
#ifndef TESTS_ACCOUNTING_ACCOUNTING_WRAP_H
#define TESTS_ACCOUNTING_ACCOUNTING_WRAP_H

#include <stddef.h>

#include <string>
#include <vector>

namespace accounting {

struct Tally {
  int allocations = 0;         // malloc/calloc/realloc calls of the native's own code
  int repair_allocations = 0;  // of the reply-string maker
  int replies = 0;             // bundle::new_reply_string calls
  int own_frees = 0;           // frees of blocks the native allocated
  int own_outstanding = 0;     // blocks the native allocated and did not free
  int platform_blocks = 0;     // blocks the platform handed over for the caller to free
  int platform_frees = 0;      // of those, freed
  std::vector<std::string> platform_outstanding;  // "<platform function>: <what>" not freed
  int foreign_frees = 0;       // frees of anything else (not NULL)
  int null_frees = 0;          // free(NULL)
  std::vector<size_t> sizes;   // sizes of the native's own allocations, in order
};

// Opens a window: the counts start from zero.
void open();
// Closes the window and returns what happened in it.
Tally close();
// Closes the count for the duration of a scope (the fake JVM's own allocations while a
// native calls into it).
class Pause {
 public:
  Pause();
  ~Pause();
  Pause(const Pause &) = delete;
  Pause &operator=(const Pause &) = delete;

 private:
  bool was_;
};

}  // namespace accounting

#endif
