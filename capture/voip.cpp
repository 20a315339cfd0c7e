// voip.ini: the POTS lines. Every line the platform counts is asked (at most kMaxLines), and
// lines 1 to 4 whatever the count; a line's numbers and statuses come from its nodes. Who
// subscribed to VoIP events cannot be read back from the platform.
#include <stdlib.h>
#include <string.h>

#include "capture/context.h"

namespace capture {
namespace {

constexpr int kMaxLines = 256;
constexpr int kMaxNodes = 1024;  // nodes of one line followed at most
constexpr int kAlwaysAsked = 4;

}  // namespace

void capture_voip(Context &c, StateFile *f) {
  f->section("voip");
  int lines = 0;
  if (CAPTURE_HAVE(c, brelo_voipGetNumberOfPOTS)) {
    lines = c.p.brelo_voipGetNumberOfPOTS();  // the count itself
    c.noted(k_brelo_voipGetNumberOfPOTS, lines);
    f->number("lines", lines);
  }
  if (!CAPTURE_HAVE(c, brelo_voipGetLineInfo)) return;
  int asked = lines > kMaxLines ? kMaxLines : lines < kAlwaysAsked ? kAlwaysAsked : lines;
  for (int line = 0; line <= asked; ++line) {
    PotsLineNode *list = nullptr;
    int rc = c.p.brelo_voipGetLineInfo(line, &list);
    c.noted(k_brelo_voipGetLineInfo, rc, list != nullptr);
    if (list == nullptr) continue;
    Text numbers, statuses;
    int n = 0;
    for (PotsLineNode *node = list; node != nullptr && n < kMaxNodes; node = node->next, ++n) {
      if (n > 0) {
        numbers.append(',');
        statuses.append(',');
      }
      numbers.append(node->phone_number, field_length(node->phone_number));
      statuses.printf("%d", static_cast<int>(node->status));
    }
    f->section("pots line %d", line);
    f->text("numbers", numbers.data(), numbers.size());
    f->text("statuses", statuses.data(), statuses.size());
    for (int freed = 0; list != nullptr && freed < kMaxNodes; ++freed) {
      PotsLineNode *next = list->next;
      free(list);
      list = next;
    }
  }
}

}  // namespace capture
