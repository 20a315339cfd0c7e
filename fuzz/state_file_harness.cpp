// The state-file fuzzer's harness (see state_file_harness.h). The input and the saved tree go
// through files (the reader reads files), one pair per process under /tmp, removed as soon as
// they are read.
#include "fuzz/state_file_harness.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

#include "common/platform_tcapi.h"
#include "fuzz/native_input.h"
#include "sim/sim.h"
#include "sim/sim_control.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"
#include "tests/sample_arguments.h"

namespace fuzzstate {
namespace {

[[noreturn]] void finding(const std::string &what) {
  fprintf(stderr, "state_file: %s\n", what.c_str());
  abort();
}

std::string temp_path(const char *tag) {
  return "/tmp/bundle_sc_state_fuzz_" + std::to_string(getpid()) + "_" + tag + ".ini";
}

void write_file(const std::string &path, const uint8_t *data, size_t size) {
  FILE *f = fopen(path.c_str(), "wb");
  if (f == nullptr || fwrite(data, 1, size, f) != size) finding("cannot write " + path);
  fclose(f);
}

struct Node {
  std::string name;
  std::vector<std::pair<std::string, std::string>> entries;
  bool operator==(const Node &o) const { return name == o.name && entries == o.entries; }
};

std::vector<Node> tree() {
  std::vector<Node> nodes;
  for (const std::string &name : sim::sections("tcapi "))
    nodes.push_back(Node{name, sim::entries(name.c_str())});
  return nodes;
}

std::string describe(const std::vector<Node> &nodes) {
  std::string out;
  for (const Node &n : nodes) {
    out += "[" + n.name + "]";
    for (const auto &e : n.entries) out += " " + e.first + "=" + std::to_string(e.second.size()) + "B";
    out += "\n";
  }
  return out.size() > 2000 ? out.substr(0, 2000) + "..." : out;
}

// What tcapi_save writes, the reader reads back the same.
void check_round_trip() {
  std::vector<Node> before = tree();
  std::string saved = temp_path("saved");
  sim_set_save_path(saved.c_str());
  int saved_rc = tcapi_save();
  sim_set_save_path(nullptr);
  if (saved_rc != 0) finding("tcapi_save could not write " + saved);
  for (const Node &n : before) sim_unset(n.name.c_str(), nullptr);
  int rc = sim_load(saved.c_str());
  unlink(saved.c_str());
  if (rc != 0) finding("the tree tcapi_save wrote does not read back");
  std::vector<Node> after = tree();
  if (!(after == before))
    finding("the tree tcapi_save wrote reads back different:\n" + describe(before) + "read back:\n" +
            describe(after));
}

const catalogue::Native &choose(const std::string &first_line, int *set) {
  static const std::vector<const catalogue::Native *> all = [] {
    std::vector<const catalogue::Native *> v;
    for (size_t i = 0; i < catalogue::kNativeCount; ++i) v.push_back(&catalogue::kNatives[i]);
    return v;
  }();
  *set = 0;
  if (first_line.rfind("# ", 0) != 0) return fuzzinput::choose(first_line, all);
  std::string rest = first_line.substr(2);
  size_t space = rest.find(' ');
  if (space != std::string::npos) {
    *set = atoi(rest.c_str() + space + 1) % samples::kArgSets;
    if (*set < 0) *set += samples::kArgSets;
    rest.resize(space);
  }
  return fuzzinput::choose(rest, all);
}

}  // namespace

void run_one_input(const uint8_t *data, size_t size) {
  sim_reset();
  std::string input = temp_path("input");
  write_file(input, data, size);
  int rc = sim_load(input.c_str());
  unlink(input.c_str());
  if (rc != 0 && rc != -1) finding("the reader answered " + std::to_string(rc));
  check_round_trip();

  fuzzinput::Reader in(data, size);
  int set = 0;
  const catalogue::Native &native = choose(in.line(), &set);
  fakejni::FakeJvm jvm;
  fuzzinput::prepare(jvm, native);
  std::vector<catalogue::Arg> args = samples::arguments(jvm, native, set);
  catalogue::Result result = native.call(jvm.env(), jvm.self(), args.data());
  fuzzinput::check_call("state_file", native, jvm, result);
  // What the input read is freed within the input.
  sim_reset();
}

}  // namespace fuzzstate
