// Replays the committed corpora of the configuration-tree fuzzer (seed inputs and every input
// that once made a native misbehave) through the fuzzer's harness, in every tier, and checks
// that the fuzzer feeds every native that reads the tree.

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/tree_values_harness.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace tree_values_corpus_test {

class TreeValuesCorpus : public ::testing::Test {
 protected:
  testsupport::FlagFile no_trace_{TRACE_FLAG_PATH, false};
};

TEST_F(TreeValuesCorpus, SeedInputs) {
  EXPECT_GT(corpus::replay("tree_values", "seed", fuzztree::run_one_input), 0u);
}

TEST_F(TreeValuesCorpus, PastCrashInputs) {
  corpus::replay("tree_values", "crash", fuzztree::run_one_input);
}

// Every native the fuzzer feeds has seeds, and every native that reads the tree is fed: the
// platform fault table lists, per native, every platform function it calls.
TEST_F(TreeValuesCorpus, EveryNativeReadingTheTreeIsFed) {
  std::set<std::string> fed;
  for (size_t i = 0; i < fuzztree::native_count(); ++i) fed.insert(fuzztree::native_name(i));
  std::string seeds;
  for (const std::string &path : corpus::files(corpus::dir("tree_values", "seed"))) {
    std::string data = corpus::contents(path);
    seeds += data.substr(0, data.find('\n')) + "\n";
  }
  for (const std::string &name : fed)
    EXPECT_NE(seeds.find(name + "\n"), std::string::npos) << name << " has no seed";

  std::istringstream table(corpus::contents(corpus::source_file("tests/raw_platform/platform_fault_golden.tsv")));
  std::string line;
  std::set<std::string> readers;
  while (std::getline(table, line)) {
    size_t tab = line.find('\t');
    if (line.empty() || line[0] == '#' || tab == std::string::npos) continue;
    if (line.compare(tab + 1, 10, "tcapi_get\t") == 0) readers.insert(line.substr(0, tab));
  }
  EXPECT_FALSE(readers.empty());
  for (const std::string &name : readers) EXPECT_EQ(fed.count(name), 1u) << name << " reads the tree";
}

}  // namespace tree_values_corpus_test
