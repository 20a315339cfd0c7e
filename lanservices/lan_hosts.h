// Shared by the LAN host natives: the host class names and the binary form of a MAC text.
#ifndef BUNDLE_LANSERVICES_LAN_HOSTS_H
#define BUNDLE_LANSERVICES_LAN_HOSTS_H

#include <jni.h>
#include <stdio.h>
#include <string.h>

#include "common/array_readers.h"

extern "C" {
// Host class names indexed by the platform's class code: "ONLINE", "OFFLINE", "BLOCK",
// "TRUST". Exported (and writable) for the gateway's other native code.
JNIEXPORT extern const char *HostClassStr[4];
}

namespace bundle {

// The MAC list buffer filled from a Java String[] (the reader's failures are not reported;
// the natives go on with the entries it has). 32 KiB: lives on the caller's stack.
struct MacList {
  MacList(JNIEnv *env, jobjectArray macs) : count(0) {
    memset(entries, 0, sizeof entries);
    brelo_getMacAddrFromJsonArr(env, macs, entries, &count);
  }
  MacList(const MacList &) = delete;
  MacList &operator=(const MacList &) = delete;
  char entries[MAX_MAC_ENTRIES][MAC_ENTRY_SIZE];
  int count;
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
