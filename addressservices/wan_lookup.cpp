#include "addressservices/wan_lookup.h"

#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "common/config_tree.h"

namespace bundle {

int getValidIFIndex(int *out, int room) {
  char list[128];  // every tree read leaves a terminated text
  tree_get("WanInfo_Common", "ValidIFIndex", list);
  int count = 0;
  char *save = nullptr;
  // The gateway's own list never outgrows its callers, but the tree may hold anything: the
  // count stops at the caller's room so a longer list is cut rather than written past `out`.
  for (char *tok = strtok_r(list, ",", &save); tok != nullptr && count < room;
       tok = strtok_r(nullptr, ",", &save))
    out[count++] = tree_atoi(tok);
  return count;
}

int getPVCEntryByIFIdx(int wanIndex, int *pvc, int *entry) {
  int valid[kLookupWanRoom] = {0};
  int count = getValidIFIndex(valid, kLookupWanRoom);
  for (int i = 0; i < count; ++i) {
    char node[64];
    char ifidx[16];
    snprintf(node, sizeof node, "Wan_PVC%d_Entry%d", valid[i] >> 3, valid[i] & 7);
    tree_get(node, "IFIdx", ifidx);
    if (tree_atoi(ifidx) == wanIndex) {
      *pvc = valid[i] >> 3;
      *entry = valid[i] & 7;
      return 0;
    }
  }
  return -1;
}

}  // namespace bundle
