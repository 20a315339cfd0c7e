// Reads of configuration-tree nodes for a capture: each attribute through the library's own
// bounded read (bundle::tree_get, the tree's largest value), written as a "tcapi <node>"
// section that appears only when the node has an attribute. tcapi_get says whether an
// attribute exists; one that is absent is not written, so it reads as absent again.
#ifndef BUNDLE_CAPTURE_TREE_NODE_H
#define BUNDLE_CAPTURE_TREE_NODE_H

#include "capture/context.h"
#include "common/config_tree.h"

namespace capture {

class TreeNode {
 public:
  TreeNode(Context &c, StateFile *f, const char *fmt, ...) __attribute__((format(printf, 4, 5)));

  // Reads one attribute; returns whether the tree has it (its value in value()).
  bool attr(const char *name, Customer kind = Customer::kPlain);
  const char *value() const { return value_; }
  bool found() const { return written_; }
  const char *node() const { return node_; }

 private:
  Context &c_;
  StateFile *f_;
  char node_[128];
  char value_[TREE_VALUE_MAX];
  bool written_ = false;
};

}  // namespace capture

#endif
