// Replays the committed corpora of the state-file fuzzer (seed inputs and every input that once
// made the reader or a native misbehave) through the fuzzer's harness, in every tier.
//
// With STATE_FILE_SEEDS=1 in the environment, StateFileCorpus.Seeds first writes the seeds
// (fuzz/corpus/state_file/seed) and the dictionary (fuzz/state_file.dict): for every native,
// each state file of sim/gateway that changes what the native answers (with the first sample
// argument set for which it does), under the native's header line, plus inputs for the
// reader's own syntax.

#include <dirent.h>
#include <stdio.h>
#include <stdlib.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/state_file_harness.h"
#include "sim/sim_control.h"
#include "tests/corpus_files.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"
#include "tests/sample_arguments.h"
#include "tests/test_support.h"

namespace state_file_corpus_test {

// What a native answers with argument set `set` on the gateway as it is now.
std::string answer(const catalogue::Native &n, int set) {
  fakejni::FakeJvm jvm;
  std::vector<catalogue::Arg> args = samples::arguments(jvm, n, set);
  catalogue::Result r = n.call(jvm.env(), jvm.self(), args.data());
  return r.kind == catalogue::Returns::kText ? jvm.text(r.text) : std::to_string(r.number);
}

// A state file without its comment lines and blank lines.
std::string without_comments(const std::string &text) {
  std::string out;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(pos, end - pos);
    size_t first = line.find_first_not_of(" \t");
    if (first != std::string::npos && line[first] != '#' && line[first] != ';') out += line + "\n";
    pos = end + 1;
  }
  return out;
}

void write(const std::string &path, const std::string &data) {
  FILE *f = fopen(path.c_str(), "wb");
  ASSERT_NE(f, nullptr) << path;
  fwrite(data.data(), 1, data.size(), f);
  fclose(f);
}

// The reader's own syntax: escapes, quotes, comments, malformed lines, odd bytes,
// and configuration-tree nodes whose keys and values must survive tcapi_save.
const struct {
  const char *name;
  std::string text;
} kSyntax[] = {
    {"reader-escapes", "[device]\nvendor = \"  spaced  \"\nraw = \\xC4\\xE3 \\\\ \\\"q\\\" \\n\\t\n"
                       "empty =\nquote = \"\n"},
    {"reader-malformed", "[device\nkey without equals\n= value\n[]\nk = v\n[s]\nbad = \\q\n"
                         "short = \\x4\ntrail = x\\\n"},
    {"reader-spacing", "  [ device ]  \r\n\tvendor\t=\tLumarest\t\r\n ; comment\r\n # comment\r\n"},
    {"reader-duplicates", "[device]\nmac = 1\nmac = 2\n[lan]\na = 1\n[device]\nmac = 3\n"},
    {"reader-nul", std::string("[device]\nmac = 00:11\0:22\nmodel = H\0GU\n[tcapi A\0B]\nk = v\n", 56)},
    {"tree-odd-keys", "[tcapi VirServer_Entry8_Entry0]\n\"Protocal\" = TCP\nkey\"q = 1\n = empty key\n"
                      "Active=Yes\nMapName = a=b\n[tcapi ]\nx = 1\n[tcapi a]b]\ny = 2\n"},
    {"tree-every-byte", "[tcapi Bytes]\nall = \"" + [] {
       std::string v;
       for (int c = 1; c < 256; ++c) {
         char hex[8];
         snprintf(hex, sizeof hex, "\\x%02X", c);
         v += hex;
       }
       return v;
     }() + "\"\n"},
};

void write_seeds() {
  std::string seed_dir = corpus::dir("state_file", "seed");
  std::string gateway = corpus::source_file("sim/gateway");
  std::vector<std::string> files;
  for (const std::string &f : corpus::files(gateway))
    if (f.size() > 4 && f.compare(f.size() - 4, 4, ".ini") == 0) files.push_back(f);
  ASSERT_FALSE(files.empty());
  std::string dict = "# state_file_fuzz: header lines naming every native, the state-file syntax, "
                     "section names.\n\"\\x0a[\"\n\"]\\x0a\"\n\" = \"\n\"\\\\x\"\n\"\\\\\\\"\"\n\"[tcapi \"\n";
  int written = 0;
  for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
    const catalogue::Native &n = catalogue::kNatives[i];
    std::string name = std::string(n.cls) + "." + n.method;
    dict += "\"# " + name + " 0\\x0a\"\n";
    std::vector<std::string> empty(samples::kArgSets);
    for (int set = 0; set < samples::kArgSets; ++set) {
      sim_reset();
      empty[set] = answer(n, set);
    }
    for (const std::string &file : files) {
      for (int set = 0; set < samples::kArgSets; ++set) {
        sim_reset();
        ASSERT_EQ(sim_load(file.c_str()), 0) << file;
        if (answer(n, set) == empty[set]) continue;
        std::string base = file.substr(file.rfind('/') + 1);
        base.resize(base.size() - 4);
        std::string short_name = name;
        short_name.replace(short_name.find("ServiceImp."), 11, ".");
        short_name.resize(short_name.size() - 3);  // "Jni"
        write(seed_dir + "/" + short_name + "-" + base,
              "# " + name + " " + std::to_string(set) + "\n" + without_comments(corpus::contents(file)));
        ++written;
        break;
      }
    }
  }
  for (const auto &s : kSyntax) {
    write(seed_dir + "/" + s.name, "# PortMappingQueryServiceImp.getPortMappingInfoJni 0\n" + s.text);
    ++written;
  }
  for (const std::string &file : files) {
    std::string text = corpus::contents(file);
    for (size_t pos = text.find("\n["); pos != std::string::npos; pos = text.find("\n[", pos + 1)) {
      size_t end = text.find(']', pos);
      if (end == std::string::npos) break;
      std::string section = text.substr(pos + 1, end - pos);
      if (section.find_first_of("\"\\") == std::string::npos && dict.find("\"" + section + "\"") == std::string::npos)
        dict += "\"" + section + "\"\n";
    }
  }
  write(corpus::source_file("fuzz/state_file.dict"), dict);
  printf("%d seeds in %s\n", written, seed_dir.c_str());
  sim_reset();
}

class StateFileCorpus : public ::testing::Test {
 protected:
  testsupport::FlagFile no_trace_{TRACE_FLAG_PATH, false};
};

TEST_F(StateFileCorpus, Seeds) {
  const char *write_them = getenv("STATE_FILE_SEEDS");
  if (write_them != nullptr && *write_them == '1') write_seeds();
  EXPECT_GT(corpus::replay("state_file", "seed", fuzzstate::run_one_input), 0u);
}

TEST_F(StateFileCorpus, PastCrashInputs) {
  corpus::replay("state_file", "crash", fuzzstate::run_one_input);
}

}  // namespace state_file_corpus_test
