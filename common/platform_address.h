// Platform library (libbrelo.so.1): the gateway's own LAN address and its DHCP server.
#ifndef BUNDLE_COMMON_PLATFORM_ADDRESS_H
#define BUNDLE_COMMON_PLATFORM_ADDRESS_H

#include <stddef.h>
#include <stdint.h>

// Settings of the LAN DHCP server (48 bytes), filled by brelo_dhcpdGetServerSettings into a
// record the caller zeroed. Address texts are dotted quads.
struct DhcpServerSettings {
  int32_t enabled;      // 1: the server runs; anything else: it does not
  char start[20];       // first address of the pool
  char end[20];         // last address of the pool
  int32_t lease;        // lease duration, in the platform's unit
};
static_assert(sizeof(DhcpServerSettings) == 48, "DhcpServerSettings is 48 bytes");
static_assert(offsetof(DhcpServerSettings, start) == 4, "pool start at 4");
static_assert(offsetof(DhcpServerSettings, end) == 24, "pool end at 24");
static_assert(offsetof(DhcpServerSettings, lease) == 44, "lease at 44");

// Sizes of the buffers brelo_lanGetHostIP fills (it is not told them).
#define LAN_IP_TEXT_SIZE 32       // IPv4 address, subnet mask, IPv6 prefix length
#define LAN_IPV6_TEXT_SIZE 254    // each of the two IPv6 addresses

extern "C" {
// 0 on success, else the platform's failure code. Texts are passed as the caller got them.
int brelo_lanSetLanHostIP(const char *address, const char *mask);
// enable is 1 or 0; the pool and the duration are passed as given.
int brelo_lanSetLANDHCPInfo(int enable, const char *startAddress, const char *endAddress,
                            int duration);
// Fills zeroed buffers of 32, 32, 254, 254 and 32 bytes.
int brelo_lanGetHostIP(char *ipv4, char *mask, char *ipv6First, char *ipv6Second,
                       char *prefixLen);
int brelo_dhcpdGetServerSettings(DhcpServerSettings *settings);
}

#endif
