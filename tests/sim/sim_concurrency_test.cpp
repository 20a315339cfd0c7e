// The simulated gateway stands in for a platform that is safe under concurrent calls: every
// native called from many threads at once, queries and setters mixed, must neither crash nor
// trip the sanitizers (this test runs in the sanitizer tier too), and the gateway must still
// answer afterwards. The JVM soak checks the replies themselves.
#include <gtest/gtest.h>

#include <string.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "sim/sim_control.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace {

// Plain arguments of every kind, as a Java caller would pass them.
std::vector<catalogue::Arg> arguments(fakejni::FakeJvm &jvm, const catalogue::Native &n) {
  std::vector<catalogue::Arg> args(strlen(n.params));
  for (size_t i = 0; i < args.size(); ++i) {
    switch (n.params[i]) {
      case 'I': args[i].i = 1; break;
      case 'Z': args[i].z = JNI_TRUE; break;
      case 'B': args[i].b = 1; break;
      case 'S': args[i].s = jvm.str("1"); break;
      case 'A': args[i].a = jvm.array_of({"00:E0:4C:68:01:A2"}); break;
      case 'Y': args[i].y = jvm.bytes(std::vector<jbyte>(16)); break;
    }
  }
  return args;
}

TEST(SimConcurrency, EveryNativeFromEightThreadsAtOnce) {
  ASSERT_EQ(sim_load_default(), 0);
  sim_set_save_path(nullptr);
  const int kThreads = 8, kRounds = 3;
  std::atomic<int> misuse{0}, calls{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      fakejni::FakeJvm jvm;
      // One native gives a text back under another string of its call, as it always has;
      // HotSpot frees by the pointer.
      jvm.release_by_pointer(true);
      for (int r = 0; r < kRounds; ++r) {
        // Each thread walks the natives from its own starting point.
        for (size_t k = 0; k < catalogue::kNativeCount; ++k) {
          const catalogue::Native &n =
              catalogue::kNatives[(k + static_cast<size_t>(t) * 21) % catalogue::kNativeCount];
          std::vector<catalogue::Arg> args = arguments(jvm, n);
          catalogue::Result result = n.call(jvm.env(), jvm.self(), args.data());
          if (n.returns == catalogue::Returns::kText && result.text != nullptr)
            (void)jvm.text(result.text);
          calls.fetch_add(1);
        }
      }
      misuse.fetch_add(static_cast<int>(jvm.errors().size()));
      for (const std::string &e : jvm.errors()) ADD_FAILURE() << e;
    });
  }
  for (std::thread &t : threads) t.join();
  EXPECT_EQ(misuse.load(), 0);
  EXPECT_EQ(calls.load(), kThreads * kRounds * static_cast<int>(catalogue::kNativeCount));
  // Still answering.
  sim_reset();
  EXPECT_EQ(sim_load_default(), 0);
  EXPECT_NE(sim_get("lan", "filter_mode"), nullptr);
}

}  // namespace
