// Shared by the LAN host natives: the host class names and the binary form of a MAC text.
#ifndef BUNDLE_LANSERVICES_LAN_HOSTS_H
#define BUNDLE_LANSERVICES_LAN_HOSTS_H

#include <jni.h>
#include <stdio.h>

extern "C" {
// Host class names indexed by the platform's class code: "ONLINE", "OFFLINE", "BLOCK",
// "TRUST". Exported (and writable) for the gateway's other native code.
JNIEXPORT extern const char *HostClassStr[4];
}

namespace bundle {

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
