// WAN connections as the configuration tree knows them, shared by the port-mapping natives.
//
// "WanInfo_Common"/"ValidIFIndex" lists the connections that exist as internal indexes
// v = PVC * 8 + entry, e.g. "0,8,16". The connection's node is "Wan_PVC<v >> 3>_Entry<v & 7>";
// its "IFIdx" attribute is the WAN index by which Java names it.
#ifndef BUNDLE_ADDRESSSERVICES_WAN_LOOKUP_H
#define BUNDLE_ADDRESSSERVICES_WAN_LOOKUP_H

namespace bundle {

// Room the lookups and the port-mapping query give getValidIFIndex.
constexpr int kLookupWanRoom = 64;
constexpr int kQueryWanRoom = 32;

// Reads "ValidIFIndex", splits it at "," and stores atoi of each value in order into
// `out` (room for `room` values). Returns how many it stored; an empty or absent list gives 0.
int getValidIFIndex(int *out, int room);

// Finds the valid WAN whose "IFIdx" is `wanIndex` (the first in list order) and stores its PVC
// and entry numbers. 0 when found, -1 when no valid WAN has that index.
int getPVCEntryByIFIdx(int wanIndex, int *pvc, int *entry);

}  // namespace bundle

#endif
