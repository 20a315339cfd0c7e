// The Java input fuzzer's harness (layout of an input in java_inputs_harness.h).
//
// Every input starts from the default simulated gateway: setters change the state (an added
// rule is then listed, a blacklist grows by 30000 entries), and a state carried from input to
// input would make findings depend on the inputs before them. The gateway is restored from a
// snapshot (fuzzinput::default_gateway), which costs nothing after a query and a copy of the
// state after a setter. The tree is never saved; system() and gethostbyname() are the
// simulator's host stand-ins, linked into every executable that runs this harness, so no route
// is changed and nothing is looked up.
#include "fuzz/java_inputs_harness.h"

#include <string.h>

#include <vector>

#include "fuzz/native_input.h"
#include "tests/native_catalogue.h"

namespace fuzzjava {
namespace {

const std::vector<const catalogue::Native *> &natives() {
  static std::vector<const catalogue::Native *> list = [] {
    std::vector<const catalogue::Native *> v;
    for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
      const catalogue::Native &n = catalogue::kNatives[i];
      if (strchr(n.params, 'S') != nullptr || strchr(n.params, 'A') != nullptr) v.push_back(&n);
    }
    return v;
  }();
  return list;
}

}  // namespace

size_t native_count() { return natives().size(); }

std::string native_name(size_t i) { return fuzzinput::name_of(*natives()[i]); }

void run_one_input(const uint8_t *data, size_t size) {
  fuzzinput::run_native_input("java_inputs", natives(), data, size);
}

}  // namespace fuzzjava
