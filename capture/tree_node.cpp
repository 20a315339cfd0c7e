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

bool TreeNode::attr(const char *name, TreeValue kind) {
  value_[0] = '\0';
  if (!CAPTURE_HAVE(c_, tcapi_get)) return false;
  int rc = bundle::tree_get(node_, name, value_);
  bool present = rc == 0 || value_[0] != '\0';
  c_.noted(k_tcapi_get, rc, present);
  if (!present) return false;
  if (!written_) f_->section("tcapi %s", node_);
  written_ = true;
  size_t n = strlen(value_);
  Text rewritten;
  switch (kind) {
    case TreeValue::kMac: c_.anon.mac_text(value_, n, &rewritten); break;
    case TreeValue::kAddress: c_.anon.address(value_, n, &rewritten); break;
    case TreeValue::kPlain: rewritten.append(value_, n); break;
  }
  f_->text(name, rewritten.data(), rewritten.size());
  return true;
}

}  // namespace capture
