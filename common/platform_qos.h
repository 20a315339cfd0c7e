// Platform library (libbrelo.so.1): flow QoS. A flow is a numbered traffic class of the
// platform; traffic (remote address and port pairs) is added to it, and it has byte counters,
// a current speed, a speed limit and a DSCP re-marking value.
#ifndef BUNDLE_COMMON_PLATFORM_QOS_H
#define BUNDLE_COMMON_PLATFORM_QOS_H

#include <stddef.h>

// One traffic item of a flow: 8 bytes on the gateway. Both texts and the array of items are
// malloc()ed by the platform and freed by the caller.
struct FlowTrafficItem {
  char *remote_address;
  char *remote_port;
};
static_assert(sizeof(FlowTrafficItem) == 2 * sizeof(void *), "two text pointers");
static_assert(offsetof(FlowTrafficItem, remote_port) == sizeof(void *), "port second");
#if __SIZEOF_POINTER__ == 4
static_assert(sizeof(FlowTrafficItem) == 8, "FlowTrafficItem is 8 bytes");
#endif

// All return 0 on success. Texts may be NULL (a Java text that could not be read).
extern "C" {
int brelo_addTrafficToFlow(const char *remoteAddress, const char *remotePort, int flowId);
int brelo_deleteTrafficFromFlow(const char *remoteAddress, const char *remotePort, int flowId);
int brelo_deleteAllTrafficFromFlow(int flowId);
int brelo_getTrafficInfoByFlow(int flowId, FlowTrafficItem **array, int *count);
int brelo_getStatsByFlow(int flowId, unsigned long long *upBytes, unsigned long long *downBytes);
int brelo_getSpeedByFlow(int flowId, int *up, int *down);
int brelo_setSpeedLimitByFlow(int flowId, int upLimit, int downLimit);
int brelo_getSpeedLimitByFlow(int flowId, int *up, int *down);
int brelo_setDSCPRemarkByFlow(int flowId, int dscp);
// Leaves *dscp as it is when it fails with -1.
int brelo_getDSCPRemarkByFlow(int flowId, int *dscp);
}

#endif
