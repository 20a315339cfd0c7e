#include "capture/tree_node.h"

#include <stdarg.h>
#include <stdio.h>
#include <string.h>

namespace capture {

TreeNode::TreeNode(Context &c, StateFile *f, const char *fmt, ...) : c_(c), f_(f) {
  va_list ap;
  va_start(ap, fmt);
  vsnprintf(node_, sizeof node_, fmt, ap);
  va_end(ap);
  value_[0] = '\0';
}

bool TreeNode::attr(const char *name, Customer kind) {
  value_[0] = '\0';
  if (!CAPTURE_HAVE(c_, tcapi_get)) return false;
  int rc = bundle::tree_get(node_, name, value_);
  bool present = rc == 0 || value_[0] != '\0';
  c_.noted(k_tcapi_get, rc, present);
  if (!present) return false;
  if (!written_) f_->section("tcapi %s", node_);
  written_ = true;
  c_.customer(f_, name, kind, value_, strlen(value_));
  return true;
}

}  // namespace capture
