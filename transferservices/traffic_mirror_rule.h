// A traffic mirror rule as compared with the rules stored in the configuration tree, and the
// exported duplicate test (C linkage, for the gateway's other native code as well as for the
// mirror natives).
#ifndef BUNDLE_TRANSFERSERVICES_TRAFFIC_MIRROR_RULE_H
#define BUNDLE_TRANSFERSERVICES_TRAFFIC_MIRROR_RULE_H

#include <stddef.h>
#include <stdint.h>

// Texts are NUL-terminated within their fields (copied in cut at the field size - 1, so
// longer texts are compared cut).
struct traffic_mirror_rule {
  char remoteAddress[256];
  char remotePort[64];
  char direction[64];
  char protocol[64];
  char hostMAC[64];
  char mirrorToIP[64];
  int32_t mirrorToPort;
};
static_assert(sizeof(traffic_mirror_rule) == 580, "traffic_mirror_rule is 580 bytes");
static_assert(offsetof(traffic_mirror_rule, remotePort) == 256, "remote port at 256");
static_assert(offsetof(traffic_mirror_rule, direction) == 320, "direction at 320");
static_assert(offsetof(traffic_mirror_rule, protocol) == 384, "protocol at 384");
static_assert(offsetof(traffic_mirror_rule, hostMAC) == 448, "host MAC at 448");
static_assert(offsetof(traffic_mirror_rule, mirrorToIP) == 512, "mirror-to IP at 512");
static_assert(offsetof(traffic_mirror_rule, mirrorToPort) == 576, "mirror-to port at 576");

extern "C" {

// 1 when a stored rule TrafficMirror_Entry0..254 (in use: "mirrorToIP" non-empty) equals `rule`
// in all seven values (texts exactly, case-sensitive; the port as atoi of "mirrorToPort");
// *index then receives the first such entry. 0 otherwise, and for a NULL rule.
__attribute__((visibility("default"))) int is_duplicated_traffic_mirror_rule(
    const traffic_mirror_rule *rule, int *index);

}

#endif
