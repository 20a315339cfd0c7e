// The prepared platform: answers recorded from the simulated gateway before the timed loop and
// written back during it (see prepared_call.h), and its control from Java
// (bundlesc.bench.Prepared). Bench only: preloaded in front of the simulator
// (LD_PRELOAD), never part of libbundle_sc.so.
#define _GNU_SOURCE 1
#include <dlfcn.h>
#include <jni.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "bench/prepared/prepared_call.h"
#include "common/config_tree.h"
#include "common/platform_diag.h"
#include "common/platform_forward.h"
#include "common/platform_qos.h"
#include "common/platform_voip.h"

#if !defined(__x86_64__) && !defined(__aarch64__)
#error "the prepared platform reads an int result from __builtin_apply's first register"
#endif

namespace {

// Bytes of stack arguments passed on (the platform functions take at most one there).
constexpr size_t kStackArguments = 64;
constexpr int kSlots = 1024;

enum Mode { kOff, kRecord, kReplay };

// One platform call: its function, its result and its outputs in the order they were written.
struct Entry {
  const char *fn;
  int rc;
  size_t first_blob;
  size_t blobs;
};

// One output: `size` bytes at `offset` of the tape's bytes, a count for lists, and whether
// the pointer it replaces was NULL.
struct Blob {
  size_t offset;
  size_t size;
  int count;
  bool null;
};

struct Tape {
  std::vector<Entry> entries;
  std::vector<Blob> blobs;
  std::vector<char> bytes;
  std::vector<void *> kept;  // blocks handed out that the caller never frees

  void clear() {
    entries.clear();
    blobs.clear();
    bytes.clear();
    for (void *p : kept) free(p);
    kept.clear();
  }
};

struct State {
  Mode mode = kOff;
  Tape *tape = nullptr;
  size_t cursor = 0;
  long misses = 0;
  std::vector<Tape> tapes = std::vector<Tape>(kSlots);
  std::vector<std::pair<const char *, void *>> next;  // dlsym(RTLD_NEXT) of each function
};

State &state() {
  static State s;
  return s;
}

// True when `address` lies in this library.
bool own(void *address) {
  static Dl_info self;
  static bool known = dladdr(reinterpret_cast<void *>(&own), &self) != 0;
  Dl_info info;
  return known && dladdr(address, &info) != 0 && info.dli_fbase == self.dli_fbase;
}

// The simulator's definition of `fn`. The platform libraries come with libbundle_sc.so, which
// the JVM loads into a scope of its own, so they are asked by name; RTLD_NEXT serves programs
// linked against them.
void *next_function(const char *fn) {
  State &s = state();
  for (auto &p : s.next)
    if (p.first == fn) return p.second;
  void *f = nullptr;
  for (const char *lib : {"libbrelo.so.1", "libtcapi.so.1"}) {
    void *h = dlopen(lib, RTLD_LAZY | RTLD_NOLOAD);
    if (h == nullptr) continue;
    f = dlsym(h, fn);
    dlclose(h);
    if (f != nullptr && !own(f)) break;
    f = nullptr;
  }
  if (f == nullptr) f = dlsym(RTLD_NEXT, fn);
  s.next.emplace_back(fn, f);
  return f;
}

// Calls the simulator's `fn` with the arguments `args` describes; -1 when there is none.
int forward(const char *fn, void *args) {
  void *f = next_function(fn);
  if (f == nullptr) return -1;
  void *result = __builtin_apply(reinterpret_cast<void (*)(...)>(f), args, kStackArguments);
  return *static_cast<int *>(result);
}

// Keeps `size` bytes of `p` (NULL: a NULL pointer) as the next output of the entry being
// recorded.
void keep(const void *p, size_t size, int count) {
  Tape &t = *state().tape;
  Blob b{t.bytes.size(), p != nullptr ? size : 0, count, p == nullptr};
  if (p != nullptr) t.bytes.insert(t.bytes.end(), static_cast<const char *>(p),
                                   static_cast<const char *>(p) + size);
  t.blobs.push_back(b);
  ++t.entries.back().blobs;
}

}  // namespace

namespace rawplatform {

Call::Call(const char *fn, void *args) : fn_(fn), rc_(0), entry_(-1), blob_(0) {
  State &s = state();
  if (s.mode == kReplay && s.tape != nullptr && !s.tape->entries.empty()) {
    Tape &t = *s.tape;
    if (s.cursor >= t.entries.size()) s.cursor = 0;
    if (t.entries[s.cursor].fn == fn) {
      entry_ = static_cast<long>(s.cursor);
      blob_ = t.entries[s.cursor].first_blob;
      return;
    }
    ++s.misses;  // not the call the tape holds: the simulator answers, and the tape starts over
    s.cursor = 0;
  }
  rc_ = forward(fn, args);
  if (s.mode == kRecord && s.tape != nullptr)
    s.tape->entries.push_back(Entry{fn, rc_, s.tape->blobs.size(), 0});
}

bool Call::recording() const { return state().mode == kRecord && state().tape != nullptr; }

void Call::bytes(void *p, size_t size) {
  if (recording()) {
    keep(p, size, 0);
  } else if (entry_ >= 0) {
    const Tape &t = *state().tape;
    const Blob &b = t.blobs[blob_++];
    memcpy(p, t.bytes.data() + b.offset, b.size < size ? b.size : size);
  }
}

void Call::text(char *buf, size_t size) {
  if (size == 0) return;
  if (recording()) {
    size_t n = strnlen(buf, size);
    keep(buf, n < size ? n + 1 : size, 0);
  } else {
    bytes(buf, size);
  }
}

void Call::tree_value(char *buf) { text(buf, TREE_VALUE_MAX); }
void Call::record(void *rec, size_t size) { bytes(rec, size); }
void Call::number(int *p) { bytes(p, sizeof *p); }
void Call::number(unsigned int *p) { bytes(p, sizeof *p); }
void Call::number(unsigned long long *p) { bytes(p, sizeof *p); }

void Call::block(void **block, int count, size_t size, bool owned) {
  size_t n = count > 0 ? static_cast<size_t>(count) * size : 0;
  if (recording()) {
    keep(*block, n, count);
    return;
  }
  if (entry_ < 0) return;
  Tape &t = *state().tape;
  const Blob &b = t.blobs[blob_++];
  if (b.null) {
    *block = nullptr;
    return;
  }
  void *p = malloc(b.size > 0 ? b.size : 1);  // never a zero-sized request
  if (p != nullptr) memcpy(p, t.bytes.data() + b.offset, b.size);
  if (owned) t.kept.push_back(p);
  *block = p;
}

void Call::heap_string(char **text, bool owned) {
  if (recording()) {
    keep(*text, *text != nullptr ? strlen(*text) + 1 : 0, 0);
  } else {
    block(reinterpret_cast<void **>(text), 1, 0, owned);  // the kept size is the text's
  }
}

void Call::list(void **list, int *count, size_t size, bool platform_owned) {
  number(count);
  block(list, *count, size, platform_owned);
}

void Call::array(void *array, int *count, size_t size, int capacity) {
  number(count);
  int n = *count < 0 ? 0 : *count > capacity ? capacity : *count;
  bytes(array, static_cast<size_t>(n) * size);
}

int Call::pointer_list(int *, bool *) { abort(); }
char *Call::heap_text() { abort(); }
int32_t Call::word() { abort(); }

int Call::result(int) {
  if (entry_ < 0) return rc_;
  State &s = state();
  int rc = s.tape->entries[s.cursor].rc;
  ++s.cursor;
  return rc;
}

}  // namespace rawplatform

using rawplatform::Call;

#undef brelo_getTraceRouteDiagnosticsResult
#undef brelo_voipGetLineInfo
#undef brelo_getForwardRuleInfo
#undef brelo_getHTTPTrafficProcessRuleInfo
#undef brelo_getTrafficInfoByFlow

namespace {

// A malloc()ed array of `count` records whose text pointers (at `offsets`) are malloc()ed one
// by one; a text at offset `kept_offset` stays the platform's.
template <typename Record, size_t N>
void pointer_records(Call &c, Record **list, int count, const size_t (&offsets)[N],
                     size_t kept_offset = static_cast<size_t>(-1)) {
  c.block(reinterpret_cast<void **>(list), count, sizeof(Record), false);
  for (int i = 0; *list != nullptr && i < count; ++i) {
    for (size_t f = 0; f < N; ++f) {
      char **text = reinterpret_cast<char **>(reinterpret_cast<char *>(&(*list)[i]) + offsets[f]);
      c.heap_string(text, offsets[f] == kept_offset);
    }
  }
}

}  // namespace

extern "C" {

// The hop array has res->hop_count records (or is NULL).
int brelo_getTraceRouteDiagnosticsResult(TraceRouteResult *res, TraceRouteHop **hops) {
  Call c("brelo_getTraceRouteDiagnosticsResult");
  c.record(res, sizeof *res);
  c.block(reinterpret_cast<void **>(hops), res->hop_count, sizeof(TraceRouteHop), false);
  return c.result();
}

// A chain of malloc()ed nodes, each freed by the receiver.
int brelo_voipGetLineInfo(int line, PotsLineNode **list) {
  Call c("brelo_voipGetLineInfo");
  int nodes = 0;
  if (c.recording()) {
    for (PotsLineNode *n = *list; n != nullptr; n = n->next) ++nodes;
    c.number(&nodes);
    for (PotsLineNode *n = *list; n != nullptr; n = n->next) c.bytes(n, sizeof *n);
  } else if (c.replaying()) {
    c.number(&nodes);
    PotsLineNode **link = list;
    for (int i = 0; i < nodes; ++i) {
      void *node = nullptr;
      c.block(&node, 1, sizeof(PotsLineNode), false);
      *link = static_cast<PotsLineNode *>(node);
      if (*link == nullptr) break;
      link = &(*link)->next;
    }
    *link = nullptr;
  }
  return c.result();
}

int brelo_getForwardRuleInfo(ForwardRule **list, int *count) {
  Call c("brelo_getForwardRuleInfo");
  static const size_t kTexts[] = {
      offsetof(ForwardRule, remote_address), offsetof(ForwardRule, remote_port),
      offsetof(ForwardRule, protocol), offsetof(ForwardRule, host_mac),
      offsetof(ForwardRule, forward_to_ip)};
  c.number(count);
  pointer_records(c, list, *count, kTexts);
  return c.result();
}

int brelo_getHTTPTrafficProcessRuleInfo(HttpTrafficProcessRule **list, int *count) {
  Call c("brelo_getHTTPTrafficProcessRuleInfo");
  static const size_t kTexts[] = {
      offsetof(HttpTrafficProcessRule, remote_address), offsetof(HttpTrafficProcessRule, direction),
      offsetof(HttpTrafficProcessRule, host_mac), offsetof(HttpTrafficProcessRule, method_list),
      offsetof(HttpTrafficProcessRule, second_list), offsetof(HttpTrafficProcessRule, header_list),
      offsetof(HttpTrafficProcessRule, bundle_name)};
  c.number(count);
  pointer_records(c, list, *count, kTexts, offsetof(HttpTrafficProcessRule, second_list));
  return c.result();
}

int brelo_getTrafficInfoByFlow(int flowId, FlowTrafficItem **array, int *count) {
  Call c("brelo_getTrafficInfoByFlow");
  static const size_t kTexts[] = {offsetof(FlowTrafficItem, remote_address),
                                  offsetof(FlowTrafficItem, remote_port)};
  c.number(count);
  pointer_records(c, array, *count, kTexts);
  return c.result();
}

// --- bundlesc.bench.Prepared ----------------------------------------------------------------

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Prepared_interposed(JNIEnv *, jclass) {
  // True when the platform functions every library binds to are this library's.
  Dl_info found, self;
  void *fn = dlsym(RTLD_DEFAULT, "brelo_deviceGetInfo");
  if (fn == nullptr || dladdr(fn, &found) == 0 ||
      dladdr(reinterpret_cast<void *>(&Java_bundlesc_bench_Prepared_interposed), &self) == 0)
    return JNI_FALSE;
  return found.dli_fbase == self.dli_fbase ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Prepared_record(JNIEnv *, jclass, jint slot) {
  State &s = state();
  if (slot < 0 || slot >= kSlots) return JNI_FALSE;
  s.tape = &s.tapes[slot];
  s.tape->clear();
  s.mode = kRecord;
  return JNI_TRUE;
}

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Prepared_replay(JNIEnv *, jclass, jint slot) {
  State &s = state();
  if (slot < 0 || slot >= kSlots) return JNI_FALSE;
  s.tape = &s.tapes[slot];
  s.cursor = 0;
  s.mode = kReplay;
  return JNI_TRUE;
}

JNIEXPORT void JNICALL Java_bundlesc_bench_Prepared_off(JNIEnv *, jclass) {
  state().mode = kOff;
  state().tape = nullptr;
}

JNIEXPORT jint JNICALL Java_bundlesc_bench_Prepared_calls(JNIEnv *, jclass, jint slot) {
  if (slot < 0 || slot >= kSlots) return 0;
  return static_cast<jint>(state().tapes[slot].entries.size());
}

JNIEXPORT jlong JNICALL Java_bundlesc_bench_Prepared_misses(JNIEnv *, jclass) {
  return state().misses;
}

}  // extern "C"
