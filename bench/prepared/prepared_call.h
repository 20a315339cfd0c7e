// The call of the prepared platform (libbundle_prepared.so), for the JVM benchmark.
//
// tests/raw_platform/raw_platform_functions.cpp defines every function the library imports,
// each as a Call that names its outputs (texts, records, numbers, lists). The prepared platform
// compiles that very file with this header forced in front of it (-include), in place of
// tests/raw_platform/raw_platform.h: the same Call, with a different source of answers.
//
//   record  every call goes on to the simulated gateway (the next library that defines the
//           function, found with dlsym(RTLD_NEXT)) with the caller's own arguments
//           (__builtin_apply), and the outputs it wrote are kept on the tape of one native;
//   replay  the simulator is not called: the outputs and results on the tape are written
//           back, call after call, starting over at the end of the tape;
//   off     every call goes on to the simulator untouched.
//
// The few functions whose outputs hold pointers (hop arrays, chains of nodes, records of
// malloc()ed texts) are written out in prepared_platform.cpp; their raw-platform versions are
// renamed out of the way below.
#ifndef TESTS_RAW_PLATFORM_RAW_PLATFORM_H  // stands in for the raw platform's header
#define TESTS_RAW_PLATFORM_RAW_PLATFORM_H
#define BENCH_PREPARED_CALL_H

#include <stddef.h>
#include <stdint.h>

namespace rawplatform {

// The fault kinds the raw platform's functions test for; the prepared platform has none.
enum Fault : int { kNone = 0, kFillFF = 6, kFillA = 7, kNullNext = 12 };

class Call {
 public:
  // `args` describes the arguments of the platform function making the call (evaluated in
  // that function, so it holds that function's arguments).
  explicit Call(const char *fn, void *args = __builtin_apply_args());
  void text(char *buf, size_t size);
  void tree_value(char *buf);
  void record(void *rec, size_t size);
  void number(int *p);
  void number(unsigned int *p);
  void number(unsigned long long *p);
  void list(void **list, int *count, size_t size, bool platform_owned = false);
  void array(void *array, int *count, size_t size, int capacity);
  // Only the renamed pointer functions use these: never called.
  int pointer_list(int *count, bool *null_list);
  char *heap_text();
  int32_t word();
  int result(int usual = 0);
  Fault fault() const { return kNone; }

  // Raw bytes of `size` at `p` (the pointer functions of prepared_platform.cpp).
  void bytes(void *p, size_t size);
  // A malloc()ed block of `count` records of `size` bytes that *block points to (or NULL);
  // `owned`: the platform keeps it, the caller never frees it.
  void block(void **block, int count, size_t size, bool owned);
  // A malloc()ed text that *text points to (or NULL); `owned` as above.
  void heap_string(char **text, bool owned);
  bool recording() const;
  bool replaying() const { return entry_ >= 0; }

 private:
  const char *fn_;
  int rc_;
  long entry_;  // the tape entry this call replays, or -1
  size_t blob_;
};

}  // namespace rawplatform

#define brelo_getTraceRouteDiagnosticsResult raw_brelo_getTraceRouteDiagnosticsResult
#define brelo_voipGetLineInfo raw_brelo_voipGetLineInfo
#define brelo_getForwardRuleInfo raw_brelo_getForwardRuleInfo
#define brelo_getHTTPTrafficProcessRuleInfo raw_brelo_getHTTPTrafficProcessRuleInfo
#define brelo_getTrafficInfoByFlow raw_brelo_getTrafficInfoByFlow

#endif
