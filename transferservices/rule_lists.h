// What the traffic-forward and HTTP traffic-process natives share: the rule-list reply buffer
// and its failure reply.
#ifndef BUNDLE_TRANSFERSERVICES_RULE_LISTS_H
#define BUNDLE_TRANSFERSERVICES_RULE_LISTS_H

#include <stdarg.h>
#include <stdlib.h>
#include <string.h>

#include "common/hardened.h"
#include "common/native.h"

namespace transfer {

// The reply of a rule query the platform failed, or of a list that could not be allocated.
constexpr const char *kRuleListFailure = BUNDLE_LIST_FAILURE;

// Rule indexes the platform knows: 0 to 255; anything else (negative ones too, read as
// unsigned) is refused without asking the platform.
constexpr unsigned int kMaxRules = 256;
inline bool rule_index_valid(jint index) { return static_cast<unsigned int>(index) < kMaxRules; }

// Room per listed rule in the reply, plus one share for the envelope.
constexpr size_t kRuleReplyShare = 512;

// A reply text on the heap, or in the caller's small local buffer when the heap has no room.
class RuleListText {
 public:
  // The reply of a rule query whose platform call answered `rc` with `count` rules: when rc
  // is not 0, the failure reply in a 512-byte buffer of its own; else the head of a list in
  // (count + 1) x 512 zeroed bytes (a negative count lists nothing). The rules follow with
  // append(); finish() closes a list.
  RuleListText(int rc, int count) : RuleListText(rc != 0 ? kRuleReplyShare : room_for(count)) {
    listing_ = rc == 0;
    append("%s", listing_ ? BUNDLE_LIST_HEAD : kRuleListFailure);
  }

  // Closes the list (nothing to do after a failure reply).
  void finish() {
    if (listing_) append("]}");
  }

  RuleListText(const RuleListText &) = delete;
  RuleListText &operator=(const RuleListText &) = delete;
  RuleListText &operator=(RuleListText &&) = delete;
  ~RuleListText() { free(heap_); }

  bool allocated() const { return heap_ != nullptr; }

  // Appends a bounded piece (see bundle::reply_append); the reply is cut, never overflowed.
  void append(const char *fmt, ...) __attribute__((format(printf, 2, 3))) {
    if (heap_ == nullptr) return;
    va_list ap;
    va_start(ap, fmt);
    bundle::reply_vappend(heap_, cap_, &off_, fmt, ap);
    va_end(ap);
  }

  // The text: the composed list, or the failure reply in the local 256-byte buffer when the
  // heap buffer could not be allocated. The hardened profile gives the failure reply also for
  // a list cut at its buffer.
  const char *text() {
    if (heap_ != nullptr) return bundle::checked_reply(heap_, kRuleListFailure);
    memset(local_, 0, sizeof local_);
    size_t off = 0;
    bundle::reply_append(local_, sizeof local_, &off, "%s", kRuleListFailure);
    return local_;
  }

 private:
  explicit RuleListText(size_t cap)
      : heap_(static_cast<char *>(calloc(cap, 1))), cap_(cap), off_(0), listing_(false),
        local_{} {}

  static size_t room_for(int count) {
    size_t n = count > 0 ? static_cast<size_t>(count) : 0;
    return (n + 1) * kRuleReplyShare;
  }

  char *heap_;
  size_t cap_;
  size_t off_;
  bool listing_;
  char local_[256];
};

// A platform text field of a listed rule; a field the platform left NULL lists as empty.
inline const char *field_text(const char *field) { return field != nullptr ? field : ""; }

}  // namespace transfer

#endif
