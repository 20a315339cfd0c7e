#include "tests/raw_platform/raw_platform.h"

#include <limits.h>
#include <stdlib.h>
#include <string.h>

#include <map>
#include <mutex>

#include "common/config_tree.h"

namespace rawplatform {
namespace {

struct State {
  std::recursive_mutex mu;
  std::string faulted;
  Fault fault = kNone;
  const uint8_t *data = nullptr;
  size_t size = 0, pos = 0;
  bool bytes = false;
  std::vector<std::string> calls;
  std::map<std::string, unsigned> outputs;  // kept across resets: learnt once
  std::vector<void *> owned;                // lists the platform keeps
};

State &state() {
  static State s;
  return s;
}

// The next byte of the source (0 once it ran out).
uint8_t next_byte() {
  State &s = state();
  return s.pos < s.size ? s.data[s.pos++] : 0;
}

int32_t next_word() {
  uint32_t v = 0;
  for (int i = 0; i < 4; ++i) v = (v << 8) | next_byte();
  return static_cast<int32_t>(v);
}

void next_bytes(void *p, size_t n) {
  State &s = state();
  size_t avail = s.pos < s.size ? s.size - s.pos : 0;
  size_t k = n < avail ? n : avail;
  if (k > 0) memcpy(p, s.data + s.pos, k);
  if (n > k) memset(static_cast<char *>(p) + k, 0, n - k);
  s.pos += k;
}

void note(const char *fn, unsigned kind) { state().outputs[fn] |= kind; }

// In bytes mode, content drawn from the bytes instead of a fault kind.
constexpr Fault kRawBytes = kFaultCount;

bool is_error(Fault f) { return (f >= kErrMinus1 && f <= kErrMin) || f == kErrMax; }

}  // namespace

const char *fault_name(Fault f) {
  static const char *const names[] = {"none",        "ret-1",      "ret+1",     "ret-2",
                                      "ret-5",       "ret-min",    "fill-ff",   "fill-A",
                                      "null-list",   "count-above", "neg-count", "huge-count",
                                      "null-pointers", "ret-max"};
  return f >= 0 && f < kFaultCount ? names[f] : "raw-bytes";
}

unsigned outputs_of(const std::string &fn) {
  std::lock_guard<std::recursive_mutex> lock(state().mu);
  auto it = state().outputs.find(fn);
  return it == state().outputs.end() ? 0 : it->second;
}

std::vector<Fault> faults_for(unsigned outputs) {
  std::vector<Fault> f = {kErrMinus1, kErrPlus1, kErrMinus2, kErrMinus5, kErrMin, kErrMax};
  if (outputs & (kOutText | kOutRecord | kOutNumber | kOutList | kOutPointers)) {
    f.push_back(kFillFF);
    f.push_back(kFillA);
  }
  if (outputs & kOutList) {
    f.push_back(kNullList);
    f.push_back(kCountAbove);
    f.push_back(kNegCount);
    f.push_back(kHugeCount);
  }
  if (outputs & kOutPointers) f.push_back(kNullNext);
  return f;
}

void reset() {
  State &s = state();
  std::lock_guard<std::recursive_mutex> lock(s.mu);
  s.faulted.clear();
  s.fault = kNone;
  s.data = nullptr;
  s.size = s.pos = 0;
  s.bytes = false;
  s.calls.clear();
  for (void *p : s.owned) free(p);
  s.owned.clear();
}

void set_fault(const std::string &fn, Fault fault) {
  std::lock_guard<std::recursive_mutex> lock(state().mu);
  state().faulted = fn;
  state().fault = fault;
}

void set_bytes(const uint8_t *data, size_t size) {
  std::lock_guard<std::recursive_mutex> lock(state().mu);
  state().data = data;
  state().size = size;
  state().pos = 0;
  state().bytes = true;
}

const std::vector<std::string> &calls() { return state().calls; }

Call::Call(const char *fn) : fn_(fn), fault_(kNone) {
  State &s = state();
  std::lock_guard<std::recursive_mutex> lock(s.mu);
  s.calls.push_back(fn);
  if (s.outputs.find(fn) == s.outputs.end()) s.outputs[fn] = 0;
  if (s.bytes) {
    if (s.pos < s.size) {
      // 0..12 a fault kind, 13 and 14 content from the bytes, 15 INT_MAX.
      uint8_t b = next_byte() % 16;
      fault_ = b <= kNullNext ? static_cast<Fault>(b) : b == 15 ? kErrMax : kRawBytes;
    }
  } else if (s.faulted == fn) {
    fault_ = s.fault;
  }
}

void Call::fill(void *p, size_t size) {
  if (fault_ == kFillFF) memset(p, 0xFF, size);
  if (fault_ == kFillA) memset(p, 'A', size);
  if (fault_ == kRawBytes) next_bytes(p, size);
}

void Call::text(char *buf, size_t size) {
  note(fn_, kOutText);
  if (size == 0) return;
  if (fault_ == kRawBytes) {
    // A length byte: 255 fills the whole buffer without a terminator.
    uint8_t len = next_byte();
    if (len == 255) {
      next_bytes(buf, size);
    } else {
      size_t n = len < size - 1 ? len : size - 1;
      next_bytes(buf, n);
      buf[n] = '\0';
    }
    return;
  }
  fill(buf, size);
}

void Call::tree_value(char *buf) {
  note(fn_, kOutText);
  size_t n = 0;
  if (fault_ == kFillFF || fault_ == kFillA) {
    n = TREE_VALUE_MAX - 1;
    memset(buf, fault_ == kFillFF ? 0xFF : 'A', n);
  } else if (fault_ == kRawBytes) {
    size_t want = (static_cast<size_t>(next_byte()) << 8 | next_byte()) % TREE_VALUE_MAX;
    next_bytes(buf, want);
    n = want;
  }
  buf[n] = '\0';
}

void Call::record(void *rec, size_t size) {
  note(fn_, kOutRecord);
  fill(rec, size);
}

void Call::number(int *p) {
  note(fn_, kOutNumber);
  if (fault_ == kRawBytes) *p = next_word();
  else if (fault_ == kFillFF || fault_ == kFillA) fill(p, sizeof *p);
  else *p = 0;
}

void Call::number(unsigned int *p) { number(reinterpret_cast<int *>(p)); }

void Call::number(unsigned long long *p) {
  note(fn_, kOutNumber);
  if (fault_ == kRawBytes) next_bytes(p, sizeof *p);
  else if (fault_ == kFillFF || fault_ == kFillA) fill(p, sizeof *p);
  else *p = 0;
}

// The records to allocate and the count to report for a list answer.
static void list_shape(Fault fault, int *records, int *count, bool *null_list) {
  *null_list = false;
  *records = 1;
  *count = 1;
  switch (fault) {
    case kFillFF:
    case kFillA:
      *records = *count = 3;
      break;
    case kNullList:
      *null_list = true;
      *records = 0;
      *count = 3;
      break;
    case kCountAbove: *count = 1000; break;
    case kNegCount: *count = -1; break;
    case kHugeCount: *count = INT_MAX; break;
    case kRawBytes: {
      uint8_t k = next_byte();
      *null_list = k == 255;
      *records = *null_list ? 0 : k % 8;
      uint8_t c = next_byte();
      *count = c < 0xF0 ? *records : next_word();
      break;
    }
    default:
      break;
  }
}

void Call::list(void **list, int *count, size_t size, bool platform_owned) {
  note(fn_, kOutList | kOutRecord);
  if (is_error(fault_)) return;  // the caller's NULL and 0 stay
  int records, reported;
  bool null_list;
  list_shape(fault_, &records, &reported, &null_list);
  void *p = nullptr;
  if (!null_list) {
    // Never a zero-sized request: malloc(0) may answer NULL.
    p = malloc(records > 0 ? records * size : 1);
    memset(p, 0, records > 0 ? records * size : 1);
    if (records > 0) fill(p, records * size);
    if (platform_owned) {
      // A list the platform keeps is not the caller's block: nothing bounds it but the
      // count, which such a platform is trusted with (a negative one still comes).
      if (reported > records) reported = records;
      std::lock_guard<std::recursive_mutex> lock(state().mu);
      state().owned.push_back(p);
    }
  }
  *list = p;
  *count = reported;
}

void Call::array(void *array, int *count, size_t size, int capacity) {
  note(fn_, kOutList | kOutRecord);
  if (is_error(fault_)) return;
  int records, reported;
  bool null_list;
  list_shape(fault_, &records, &reported, &null_list);
  if (fault_ == kFillFF || fault_ == kFillA) records = reported = capacity;
  if (fault_ == kCountAbove) reported = capacity + 1000;
  if (records > capacity) records = capacity;
  memset(array, 0, records * size);
  fill(array, records * size);
  *count = reported;
}

int Call::pointer_list(int *count, bool *null_list) {
  note(fn_, kOutList | kOutPointers);
  int records, reported;
  list_shape(fault_, &records, &reported, null_list);
  if (fault_ == kNullNext) records = reported = 2;
  if (is_error(fault_)) {
    records = 0;
    reported = 0;
    *null_list = true;
  }
  // Records beyond the count are unknown to the caller, who could never free their texts:
  // they are not handed out (a count above the list still is).
  if (reported < records) records = reported > 0 ? reported : 0;
  *count = reported;
  return records;
}

char *Call::heap_text() {
  note(fn_, kOutPointers);
  if (fault_ == kNullNext) return nullptr;
  size_t n = 0;
  int byte = 0;
  if (fault_ == kFillFF || fault_ == kFillA) {
    n = 300;
    byte = fault_ == kFillFF ? 0xFF : 'A';
  } else if (fault_ == kRawBytes) {
    uint8_t len = next_byte();
    if (len == 255) return nullptr;
    n = len;
  }
  char *t = static_cast<char *>(malloc(n + 1));
  if (fault_ == kRawBytes) {
    next_bytes(t, n);
    // A C text ends at its first NUL anyway.
  } else {
    memset(t, byte, n);
  }
  t[n] = '\0';
  return t;
}

int32_t Call::word() {
  if (fault_ == kFillFF) return -1;
  if (fault_ == kFillA) return 0x41414141;
  if (fault_ == kRawBytes) return next_word();
  return 0;
}

int Call::result(int usual) {
  switch (fault_) {
    case kErrMinus1: return -1;
    case kErrPlus1: return 1;
    case kErrMinus2: return -2;
    case kErrMinus5: return -5;
    case kErrMin: return INT_MIN;
    case kErrMax: return INT_MAX;
    case kRawBytes: {
      uint8_t r = next_byte();
      if (r < 0xA0) return usual;
      if (r < 0xC0) return -1;
      if (r < 0xD0) return 1;
      if (r < 0xE0) return -2;
      return next_word();
    }
    default: return usual;
  }
}

}  // namespace rawplatform
