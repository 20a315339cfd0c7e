// Simulated apply of configuration-tree changes. The simulated tree takes effect at once, so
// applying only counts: section "tree", keys "commits <node>" and "delayed commits <node>".
#include <string>

#include "common/platform_tcapi.h"
#include "sim/sim.h"

namespace {

void count(const std::string &key) {
  sim::Guard guard;
  sim::set("tree", key.c_str(), std::to_string(sim::get_int("tree", key.c_str()) + 1));
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_tcapi_commit(const char *node) {
  sim::call("brelo_tcapi_commit", "\"%s\"", node);
  count(std::string("commits ") + node);
  return sim::result("brelo_tcapi_commit", 0);
}

SIM_EXPORT int brelo_tcapi_delay_commit(const char *node, int delay) {
  sim::call("brelo_tcapi_delay_commit", "\"%s\", %d", node, delay);
  count(std::string("delayed commits ") + node);
  return sim::result("brelo_tcapi_delay_commit", 0);
}

}  // extern "C"
