// Calls every native of the catalogue once on the default simulated gateway, for
// sim_share.sh: each measured call goes through sim_share_measure(), which callgrind collects
// and dumps one profile after, so every dump holds exactly one native.
//
//   sim_share_driver --choose > SETS         picks each native's arguments (run natively)
//   sim_share_driver --measure SETS [--warm]  the measured pass, one line "index class.method"
//                                            per dump; --warm calls each native once,
//                                            unmeasured, just before its measured call
//
// Arguments: every parameter of one kind gets the same value of a sample set (a MAC text, an
// address, a JSON text...); for each native the set that makes the most distinct platform
// calls on the default gateway is chosen first, with the call log on. The measured pass runs
// with the log off (BRELO_SIM_LOG=off behaviour), as benchmarks do.
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <set>
#include <string>
#include <vector>

#include "sim/sim_control.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"
#include "tests/sample_arguments.h"

namespace {

constexpr int kSets = samples::kArgSets;

// Distinct platform functions one call makes on the default gateway.
size_t reach(const catalogue::Native &n, int set) {
  sim_load_default();
  sim_clear_log();
  fakejni::FakeJvm jvm;
  std::vector<catalogue::Arg> args = samples::arguments(jvm, n, set);
  n.call(jvm.env(), jvm.self(), args.data());
  std::set<std::string> fns;
  const char *log = sim_log();
  for (const char *line = log; *line != '\0';) {
    const char *paren = strchr(line, '(');
    const char *nl = strchr(line, '\n');
    if (paren != nullptr && (nl == nullptr || paren < nl)) fns.insert(std::string(line, paren));
    if (nl == nullptr) break;
    line = nl + 1;
  }
  return fns.size();
}

}  // namespace

// The trace flag is a file under /tmp that other test runs on the machine may create at any
// moment; the driver hides it from the natives so that no run counts trace output. (The
// library's check stays a call of the same cost.)
extern "C" int access(const char *path, int mode) {
  if (strcmp(path, "/tmp/brelo_debug") == 0) {
    errno = ENOENT;
    return -1;
  }
  return static_cast<int>(syscall(SYS_faccessat, AT_FDCWD, path, mode, 0));
}

extern "C" __attribute__((noinline)) void sim_share_measure(const catalogue::Native *n,
                                                            JNIEnv *env, jobject self,
                                                            const catalogue::Arg *args) {
  n->call(env, self, args);
  __asm__ __volatile__("" ::: "memory");
}

int main(int argc, char **argv) {
  if (argc == 2 && strcmp(argv[1], "--choose") == 0) {
    sim_set_log(1);
    for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
      size_t most = 0;
      int best = 0;
      for (int set = 0; set < kSets; ++set) {
        size_t r = reach(catalogue::kNatives[i], set);
        if (r > most) {
          most = r;
          best = set;
        }
      }
      printf("%d\n", best);
    }
    return 0;
  }
  if (argc < 3 || strcmp(argv[1], "--measure") != 0) {
    fprintf(stderr, "usage: %s --choose | --measure SETS [--warm]\n", argv[0]);
    return 2;
  }
  bool warm = argc > 3 && strcmp(argv[3], "--warm") == 0;
  std::vector<int> best(catalogue::kNativeCount, 0);
  FILE *f = fopen(argv[2], "r");
  if (f == nullptr) return 1;
  for (size_t i = 0; i < catalogue::kNativeCount; ++i)
    if (fscanf(f, "%d", &best[i]) != 1 || best[i] < 0 || best[i] >= kSets) best[i] = 0;
  fclose(f);
  sim_set_log(0);
  sim_load_default();
  sim_clear_log();
  for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
    const catalogue::Native &n = catalogue::kNatives[i];
    fakejni::FakeJvm jvm;
    if (warm) {
      std::vector<catalogue::Arg> args = samples::arguments(jvm, n, best[i]);
      n.call(jvm.env(), jvm.self(), args.data());
    }
    std::vector<catalogue::Arg> args = samples::arguments(jvm, n, best[i]);
    sim_share_measure(&n, jvm.env(), jvm.self(), args.data());
    printf("%zu %s.%s\n", i, n.cls, n.method);
  }
  return 0;
}
