// Simulated configuration tree (libtcapi.so.1). The nodes are the state's sections named
// "tcapi <node>"; an absent attribute reads as the empty text.
#include <string.h>

#include <string>

#include "common/config_tree.h"
#include "common/platform_tcapi.h"
#include "sim/sim.h"

namespace {

std::string node_section(const char *node) { return std::string("tcapi ") + node; }

// The section name of a node, built on the stack when it fits (the usual case: no allocation
// per read).
class NodeSection {
 public:
  explicit NodeSection(const char *node) {
    size_t n = strlen(node);
    if (n + sizeof "tcapi " <= sizeof small_) {
      memcpy(small_, "tcapi ", 6);
      memcpy(small_ + 6, node, n + 1);
      name_ = small_;
    } else {
      large_ = node_section(node);
      name_ = large_.c_str();
    }
  }
  const char *c_str() const { return name_; }

 private:
  char small_[128];
  std::string large_;
  const char *name_;
};

}  // namespace

extern "C" {

SIM_EXPORT int tcapi_get(const char *node, const char *attr, char *buf) {
  sim::call("tcapi_get", "\"%s\", \"%s\"", node, attr);
  sim::Guard guard;
  const char *value = sim::get(NodeSection(node).c_str(), attr);
  // The real tree does not know the caller's buffer size either: the value is copied whole,
  // up to the longest value the tree hands out.
  const char *text = value != nullptr ? value : "";
  size_t n = strnlen(text, TREE_VALUE_MAX - 1);
  memcpy(buf, text, n);
  buf[n] = '\0';
  return sim::result("tcapi_get", value != nullptr ? 0 : -1);
}

SIM_EXPORT int tcapi_set(const char *node, const char *attr, const char *value) {
  sim::call("tcapi_set", "\"%s\", \"%s\", \"%s\"", node, attr, value);
  sim::set(node_section(node).c_str(), attr, value);
  return sim::result("tcapi_set", 0);
}

SIM_EXPORT int tcapi_unset(const char *node) {
  sim::call("tcapi_unset", "\"%s\"", node);
  sim::remove_section(node_section(node).c_str());
  return sim::result("tcapi_unset", 0);
}

SIM_EXPORT int tcapi_save(void) {
  sim::call("tcapi_save", "%s", "");
  int rc = sim::save_tree();
  return sim::result("tcapi_save", rc);
}

}  // extern "C"
