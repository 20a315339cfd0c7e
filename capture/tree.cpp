// tree.ini: the WAN connections as the configuration tree knows them and their port-mapping
// rules. A connection's internal index is PVC * 8 + entry; every index of PVCs 0 to kPvcs - 1
// is read, and any other that "ValidIFIndex" lists.
#include <stdlib.h>
#include <string.h>

#include "capture/array.h"
#include "capture/context.h"
#include "capture/tree_node.h"

namespace capture {
namespace {

constexpr int kPvcs = 8;
constexpr int kEntries = 8;
constexpr int kSlots = 10;        // port-mapping rules per connection
constexpr int kListedMax = 64;    // indexes read from ValidIFIndex, as the library reads them

void add_index(Array<int> *indexes, int v) {
  for (size_t i = 0; i < indexes->size(); ++i)
    if ((*indexes)[i] == v) return;
  indexes->push(v);
}

}  // namespace

void capture_tree(Context &c, StateFile *f) {
  Array<int> indexes;
  for (int v = 0; v < kPvcs * kEntries; ++v) add_index(&indexes, v);
  {
    TreeNode common(c, f, "WanInfo_Common");
    if (common.attr("ValidIFIndex")) {
      char list[TREE_VALUE_MAX];
      memcpy(list, common.value(), sizeof list);
      char *save = nullptr;
      int n = 0;
      for (char *tok = strtok_r(list, ",", &save); tok != nullptr && n < kListedMax;
           tok = strtok_r(nullptr, ",", &save), ++n)
        add_index(&indexes, static_cast<int>(strtol(tok, nullptr, 10)));
    }
  }
  Array<int> pvcs;
  for (size_t i = 0; i < indexes.size(); ++i) add_index(&pvcs, indexes[i] >> 3);
  for (size_t i = 0; i < pvcs.size(); ++i) {
    TreeNode node(c, f, "Wan_PVC%d", pvcs[i]);
    node.attr("VLANMode");
    node.attr("VLANID");
  }
  for (size_t i = 0; i < indexes.size(); ++i) {
    int v = indexes[i];
    TreeNode node(c, f, "Wan_PVC%d_Entry%d", v >> 3, v & 7);
    node.attr("IFIdx");
    node.attr("ServiceList");
    node.attr("WanMode");
  }
  for (size_t i = 0; i < indexes.size(); ++i) {
    for (int slot = 0; slot < kSlots; ++slot) {
      TreeNode node(c, f, "VirServer_Entry%d_Entry%d", indexes[i], slot);
      node.attr("Protocal");
      node.attr("SrcIP");
      node.attr("STARTPORT");
      node.attr("ENDPORT");
      node.attr("INTPORT");
      node.attr("LOCALIP", Customer::kAddress);
      node.attr("MapName");
      node.attr("Active");
    }
  }
}

}  // namespace capture
