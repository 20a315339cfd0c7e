#include "capture/merge_order.h"

namespace capture {

void MergeOrder::list_item(int id) {
  if (previous_ >= 0 && previous_ != id) edges_.push(Edge{previous_, id});
  previous_ = id;
}

bool MergeOrder::order(int n, Array<int> *out) const {
  if (n <= 0) return true;
  int *incoming = static_cast<int *>(calloc(static_cast<size_t>(n), sizeof(int)));
  bool *placed = static_cast<bool *>(calloc(static_cast<size_t>(n), sizeof(bool)));
  if (incoming == nullptr || placed == nullptr || edges_.failed()) {
    free(incoming);
    free(placed);
    return false;
  }
  for (size_t e = 0; e < edges_.size(); ++e) ++incoming[edges_[e].to];
  for (int done = 0; done < n; ++done) {
    // The first item seen that nothing unplaced must precede; when the lists contradict each
    // other (a cycle), the first item seen of those left.
    int next = -1;
    for (int i = 0; i < n && next < 0; ++i)
      if (!placed[i] && incoming[i] == 0) next = i;
    for (int i = 0; i < n && next < 0; ++i)
      if (!placed[i]) next = i;
    placed[next] = true;
    out->push(next);
    for (size_t e = 0; e < edges_.size(); ++e)
      if (edges_[e].from == next && !placed[edges_[e].to]) --incoming[edges_[e].to];
  }
  free(incoming);
  free(placed);
  return !out->failed();
}

}  // namespace capture
