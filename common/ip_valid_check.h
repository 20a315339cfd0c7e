// The address checker of port-mapping clients and mirror destinations, exported with C
// linkage for the gateway's other native code as well as for the natives of this library.
#ifndef BUNDLE_COMMON_IP_VALID_CHECK_H
#define BUNDLE_COMMON_IP_VALID_CHECK_H

extern "C" {

// 0 when `text` is an acceptable IPv4 address (optionally followed by "/" and a prefix length
// of at most 32) or a host name that resolves; -1 otherwise, and for NULL. Only the first 128
// bytes of the text are looked at. Blocks the calling thread while a host name is resolved.
__attribute__((visibility("default"))) int ipValidCheck(const char *text);

}

#endif
