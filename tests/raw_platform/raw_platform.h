// A raw platform: a test double of every function the library imports from libbrelo.so.1,
// libtcapi.so.1 and the gateway's address checks, whose every output comes from a byte
// source instead of a simulated gateway. It answers what a broken or hostile platform could:
// any return code, texts filled to the size the platform knows without a terminator, whole
// records of arbitrary bytes (fixed text fields unterminated, codes out of every table),
// lists it allocates with malloc whose count lies (NULL with a count, negative, huge, larger
// than the list), pointer records whose pointers are NULL, tree values up to the longest the
// tree hands out.
//
// Two byte sources:
//   - a fault policy: every function answers neutrally (return 0, outputs left as the caller
//     zeroed them, lists of one zeroed record) except one function, which answers with one
//     fault kind;
//   - raw bytes (a fuzzer's input): every decision and every byte written comes from them;
//     once they run out, the answers are neutral.
// Every call is logged by name, so a test knows which functions a native called.
#ifndef TESTS_RAW_PLATFORM_RAW_PLATFORM_H
#define TESTS_RAW_PLATFORM_RAW_PLATFORM_H

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

namespace rawplatform {

enum Fault : int {
  kNone = 0,
  kErrMinus1,   // return -1
  kErrPlus1,    // return 1
  kErrMinus2,   // return -2
  kErrMinus5,   // return -5
  kErrMin,      // return INT_MIN
  kFillFF,      // every text, record and number full of 0xFF bytes, no terminator
  kFillA,       // the same with 'A'
  kNullList,    // a list query answers NULL with a count of 3
  kCountAbove,  // one record, a count of 1000 (fixed arrays: their capacity + 1000)
  kNegCount,    // one record, a count of -1
  kHugeCount,   // one record, a count of INT_MAX
  kNullNext,    // pointer records: NULL text pointers, a chain cut short
  kErrMax,      // return INT_MAX (a count or number no gateway has)
  kFaultCount
};

const char *fault_name(Fault f);

// What kinds of output a function has, learnt from its calls (a bit set).
enum Output : unsigned {
  kOutText = 1u << 0,
  kOutRecord = 1u << 1,
  kOutNumber = 1u << 2,
  kOutList = 1u << 3,    // a list (malloc()ed or a fixed array) with a count
  kOutPointers = 1u << 4 // records holding pointers (texts, next nodes)
};
// The kinds seen so far for `fn` (0 when never called).
unsigned outputs_of(const std::string &fn);
// The faults that make sense for a function with these outputs.
std::vector<Fault> faults_for(unsigned outputs);

// Back to neutral: no fault, no bytes, an empty call log; frees what the platform kept.
void reset();
// Only `fn` answers with `fault`.
void set_fault(const std::string &fn, Fault fault);
// Every answer comes from these bytes (not copied: they must outlive the calls).
void set_bytes(const uint8_t *data, size_t size);
// Names of the functions called since the last reset, in order.
const std::vector<std::string> &calls();

// --- used by the platform functions themselves -------------------------------------------

// One platform call: logs it, then answers its outputs and its return code.
class Call {
 public:
  explicit Call(const char *fn);
  // A text buffer of `size` bytes the platform knows the size of.
  void text(char *buf, size_t size);
  // A tree value: up to TREE_VALUE_MAX - 1 bytes and a terminator.
  void tree_value(char *buf);
  // A record of `size` bytes without pointers.
  void record(void *rec, size_t size);
  // Numbers.
  void number(int *p);
  void number(unsigned int *p);
  void number(unsigned long long *p);
  // A malloc()ed list of records of `size` bytes (no pointers) and its count. With
  // `platform_owned` the platform keeps the list (the caller never frees it).
  void list(void **list, int *count, size_t size, bool platform_owned = false);
  // A fixed array of `capacity` records the caller owns, and the count the platform reports.
  void array(void *array, int *count, size_t size, int capacity);
  // How many records of a pointer-record list, and whether the list itself is NULL.
  // Returns the number of records to allocate; *count gets the count to report.
  int pointer_list(int *count, bool *null_list);
  // A malloc()ed NUL-terminated text for a pointer field (may be NULL).
  char *heap_text();
  // A number for a record field that is not a count.
  int32_t word();
  // The return code; `usual` when nothing says otherwise.
  int result(int usual = 0);
  // The fault this call answers with (bytes mode: drawn from the bytes).
  Fault fault() const { return fault_; }

 private:
  void fill(void *p, size_t size);
  const char *fn_;
  Fault fault_;
};

}  // namespace rawplatform

#endif
