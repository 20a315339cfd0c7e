// One order for items seen in several lists, each list giving some of them in the order the
// platform keeps them (the LAN host table is only ever listed in parts: by class, by
// attachment point). The result keeps the order of every list; where the lists say nothing,
// an item seen earlier comes first; lists that contradict each other are followed as far as
// they agree.
#ifndef BUNDLE_CAPTURE_MERGE_ORDER_H
#define BUNDLE_CAPTURE_MERGE_ORDER_H

#include <stddef.h>

#include "capture/array.h"

namespace capture {

class MergeOrder {
 public:
  // Item ids are 0 .. n - 1, numbered in the order they were first seen.
  void list_begin() { previous_ = -1; }
  void list_item(int id);
  // Another thing known of the platform's order: `first` comes before `then`.
  void before(int first, int then) { edges_.push(Edge{first, then}); }
  // The ids in the merged order; false when memory ran out.
  bool order(int n, Array<int> *out) const;

 private:
  struct Edge {
    int from, to;
  };
  Array<Edge> edges_;
  int previous_ = -1;
};

}  // namespace capture

#endif
