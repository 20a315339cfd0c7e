// Every native against a platform that fails in one place at a time: for each platform
// function a native calls and each fault kind that function can show, the native runs with
// only that function faulted. Its reply must match the reviewed table
// (platform_fault_golden.tsv: error returns give the native's failure reply, broken outputs a
// bounded reply), it must not misuse the JVM nor leave more Java texts borrowed than it does
// on a sound platform, and under the sanitizers nothing may be reported.
//
// RAW_PLATFORM_GOLDEN_OUT=<file> writes the table this build sees (for review) instead of
// comparing; RAW_PLATFORM_SEEDS_OUT=<dir> also writes one platform fuzz seed per native (its
// best argument set, then platform bytes that answer every call with short raw texts).
#include <stdlib.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/native_catalogue.h"
#include "tests/raw_platform/native_runner.h"
#include "tests/raw_platform/raw_platform.h"

namespace {

std::string key_of(const catalogue::Native &n, const std::string &fn, rawplatform::Fault f) {
  return std::string(n.cls) + "." + n.method + "\t" + fn + "\t" + rawplatform::fault_name(f);
}

std::map<std::string, std::string> load_golden() {
  std::map<std::string, std::string> golden;
  std::ifstream in(RAW_PLATFORM_GOLDEN);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    size_t tab = line.rfind('\t');
    golden[line.substr(0, tab)] = line.substr(tab + 1);
  }
  return golden;
}

std::string join(const std::vector<std::string> &v) {
  std::string s;
  for (auto &e : v) s += e + " ";
  return s;
}

TEST(PlatformFaults, EveryNativeEveryFunctionEveryFault) {
  const char *out_path = getenv("RAW_PLATFORM_GOLDEN_OUT");
  std::map<std::string, std::string> golden = load_golden();
  if (out_path == nullptr) {
    ASSERT_FALSE(golden.empty()) << "no table at " << RAW_PLATFORM_GOLDEN;
  }
  std::ostringstream table;
  table << "# native\tplatform function\tfault\treply (texts: \\xNN escapes, long ones hashed)\n";
  size_t cases = 0;
  std::set<std::string> seen_keys;
  for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
    const catalogue::Native &n = catalogue::kNatives[i];
    int set = rawrun::best_set(n);
    if (const char *seeds = getenv("RAW_PLATFORM_SEEDS_OUT")) {
      std::string seed = {static_cast<char>(i >> 8), static_cast<char>(i & 0xFF),
                          static_cast<char>(set)};
      // Per call: raw bytes (13), a 3-byte text or 3 records, a 0 result.
      for (int k = 0; k < 12; ++k) seed += std::string("\x0d\x03" "abc" "\x00", 6);
      std::ofstream(std::string(seeds) + "/" + n.cls + "." + n.method, std::ios::binary) << seed;
    }
    rawplatform::reset();
    rawrun::Outcome neutral = rawrun::run(n, set);
    EXPECT_TRUE(neutral.errors.empty()) << n.cls << "." << n.method << ": " << join(neutral.errors);
    std::set<std::string> functions(neutral.calls.begin(), neutral.calls.end());
    for (const std::string &fn : functions) {
      for (rawplatform::Fault f : rawplatform::faults_for(rawplatform::outputs_of(fn))) {
        rawplatform::reset();
        rawplatform::set_fault(fn, f);
        rawrun::Outcome o = rawrun::run(n, set);
        rawplatform::reset();
        ++cases;
        std::string key = key_of(n, fn, f);
        seen_keys.insert(key);
        SCOPED_TRACE(key);
        EXPECT_TRUE(o.errors.empty()) << join(o.errors);
        EXPECT_EQ(o.pending, "");
        EXPECT_LE(o.outstanding, neutral.outstanding) << "Java texts left borrowed";
        EXPECT_LE(o.pinned, neutral.pinned) << "byte arrays left pinned";
        table << key << "\t" << o.reply << "\n";
        if (out_path == nullptr) {
          auto it = golden.find(key);
          if (it == golden.end())
            ADD_FAILURE() << "not in the table: " << key << " -> " << o.reply;
          else
            EXPECT_EQ(it->second, o.reply);
        }
      }
    }
  }
  if (out_path != nullptr) {
    std::ofstream(out_path) << table.str();
  } else {
    for (auto &g : golden)
      EXPECT_TRUE(seen_keys.count(g.first)) << "a case of the table was not run: " << g.first;
  }
  RecordProperty("cases", static_cast<int>(cases));
  printf("%zu (native, function, fault) cases\n", cases);
}

}  // namespace
