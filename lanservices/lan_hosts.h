// Shared by the LAN host natives: the host class names and the binary form of a MAC text.
#ifndef BUNDLE_LANSERVICES_LAN_HOSTS_H
#define BUNDLE_LANSERVICES_LAN_HOSTS_H

#include <jni.h>
#include <stdio.h>
#include <string.h>

#include "common/array_readers.h"
#include "common/heap_object.h"

extern "C" {
// Host class names indexed by the platform's class code: "ONLINE", "OFFLINE", "BLOCK",
// "TRUST". Exported (and writable) for the gateway's other native code.
JNIEXPORT extern const char *HostClassStr[4];
}

namespace bundle {

// The MAC list buffer (32 KiB: too large for a native's stack frame, so it lives in the
// native's heap working struct, see common/heap_object.h).
struct MacList {
  MacList() : entries{}, count(0) {}
  MacList(const MacList &) = delete;
  MacList &operator=(const MacList &) = delete;
  // Fills the list from a Java String[]. The reader's failures are not reported: the natives
  // go on with the entries it has.
  void read(JNIEnv *env, jobjectArray macs) {
    brelo_getMacAddrFromJsonArr(env, macs, entries, &count);
  }
  char entries[MAX_MAC_ENTRIES][MAC_ENTRY_SIZE];
  int count;
};

// The MAC list of a Java String[], read into a buffer of its own on the heap, for natives that
// need nothing else large. Failure contract: ok() is false, and nothing was read (no JNI call
// made), when the buffer could not be allocated.
class HeapMacList {
 public:
  HeapMacList(JNIEnv *env, jobjectArray macs) {
    if (list_.ok()) list_->read(env, macs);
  }
  bool ok() const { return list_.ok(); }
  char (*entries())[MAC_ENTRY_SIZE] { return list_->entries; }
  int count() const { return list_->count; }

 private:
  HeapObject<MacList> list_;
};

// Parses "xx:xx:xx:xx:xx:xx" (hexadecimal digits of either case) into six bytes, first octet
// first. Returns false unless all six fields convert.
inline bool parse_binary_mac(const char *text, unsigned char mac[6]) {
  unsigned int octet[6] = {};
  if (sscanf(text, "%02x:%02x:%02x:%02x:%02x:%02x", &octet[0], &octet[1], &octet[2], &octet[3],
             &octet[4], &octet[5]) != 6)
    return false;
  for (int i = 0; i < 6; ++i) mac[i] = static_cast<unsigned char>(octet[i]);
  return true;
}

}  // namespace bundle

#endif
