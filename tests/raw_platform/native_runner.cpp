#include "tests/raw_platform/native_runner.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <set>

#include "tests/fake_jni.h"
#include "tests/raw_platform/raw_platform.h"
#include "tests/sample_arguments.h"

namespace rawrun {

std::string describe(const std::string &text) {
  auto escape = [](const std::string &s) {
    std::string out;
    for (unsigned char c : s) {
      if (c >= 0x20 && c < 0x7F && c != '\\') {
        out += static_cast<char>(c);
      } else {
        char hex[8];
        snprintf(hex, sizeof hex, "\\x%02X", c);
        out += hex;
      }
    }
    return out;
  };
  if (text.size() <= 160) return escape(text);
  uint32_t h = 2166136261u;  // FNV-1a
  for (unsigned char c : text) h = (h ^ c) * 16777619u;
  char tail[64];
  snprintf(tail, sizeof tail, "...(%zu bytes, fnv %08x)", text.size(), h);
  return escape(text.substr(0, 120)) + tail;
}

Outcome run(const catalogue::Native &n, int set) {
  fakejni::FakeJvm jvm;
  // A release naming another string than the one borrowed from frees by the pointer, as
  // HotSpot does (one native does so on purpose).
  jvm.release_by_pointer(true);
  std::vector<catalogue::Arg> args = samples::arguments(jvm, n, set);
  // The call log of this run only.
  size_t before = rawplatform::calls().size();
  catalogue::Result r = n.call(jvm.env(), jvm.self(), args.data());
  Outcome o;
  o.calls.assign(rawplatform::calls().begin() + static_cast<long>(before),
                 rawplatform::calls().end());
  switch (r.kind) {
    case catalogue::Returns::kInt: o.reply = "int:" + std::to_string(r.number); break;
    case catalogue::Returns::kBool: o.reply = "bool:" + std::to_string(r.number); break;
    case catalogue::Returns::kText:
      o.reply = r.text == nullptr ? "<null>" : describe(jvm.text(r.text));
      break;
  }
  o.errors = jvm.errors();
  o.pending = jvm.pending_exception();
  o.outstanding = jvm.outstanding();
  o.pinned = jvm.pinned();
  return o;
}

int best_set(const catalogue::Native &n) {
  int best = 0;
  size_t most = 0;
  for (int set = 0; set < kArgSets; ++set) {
    rawplatform::reset();
    Outcome o = run(n, set);
    std::set<std::string> distinct(o.calls.begin(), o.calls.end());
    if (distinct.size() > most) {
      most = distinct.size();
      best = set;
    }
  }
  rawplatform::reset();
  return best;
}

void fuzz_one(const uint8_t *data, size_t size) {
  if (size < 3) return;
  size_t index = (static_cast<size_t>(data[0]) << 8 | data[1]) % catalogue::kNativeCount;
  const catalogue::Native &n = catalogue::kNatives[index];
  int set = data[2] % kArgSets;

  // What the same call leaves borrowed on a neutral platform: deliberate keeps.
  rawplatform::reset();
  Outcome neutral = run(n, set);

  rawplatform::reset();
  rawplatform::set_bytes(data + 3, size - 3);
  Outcome o = run(n, set);
  rawplatform::reset();

  auto fail = [&](const std::string &what) {
    fprintf(stderr, "platform_fuzz: %s.%s (argument set %d): %s\n", n.cls, n.method, set,
            what.c_str());
    for (auto &e : o.errors) fprintf(stderr, "  %s\n", e.c_str());
    abort();
  };
  // PLATFORM_FUZZ_DEBUG=1 tells what each input reached and what the native answered.
  if (getenv("PLATFORM_FUZZ_DEBUG") != nullptr) {
    std::string called;
    for (const std::string &c : o.calls) called += c + " ";
    fprintf(stderr, "%s.%s (set %d): %s-> %s\n", n.cls, n.method, set, called.c_str(),
            o.reply.c_str());
  }
  if (!o.errors.empty()) fail("JNI misuse");
  if (!o.pending.empty()) fail("exception left pending: " + o.pending);
  if (o.outstanding > neutral.outstanding) fail("Java texts left borrowed");
  if (o.pinned > neutral.pinned) fail("byte arrays left pinned");
}

}  // namespace rawrun
