// Platform library (libbrelo.so.1): LAN hosts, their names, access lists and speed limits,
// the gateway's name, and the LAN Ethernet ports.
#ifndef BUNDLE_COMMON_PLATFORM_LAN_H
#define BUNDLE_COMMON_PLATFORM_LAN_H

#include <stddef.h>
#include <stdint.h>

// One host of the platform's host table (808 bytes). The list queries return a malloc()ed
// array of them, which the caller frees with free(). Texts are NUL-terminated within their
// fields.
struct LanHostRecord {
  uint32_t host_class;     // index into HostClassStr: 0 online, 1 offline, 2 blocked, 3 trusted
  uint8_t mac[6];          // first octet first
  char dhcp_name[256];     // the name the host gave in DHCP
  char device_name[256];   // the name the user set
  char ipv4[18];
  char ipv6[256];          // empty when the host has none
  int32_t attach_point;    // 1-4 LAN port 1-4, 5-12 SSID 1-8, anything else unknown
  uint32_t online_time;
  int32_t storage_access;  // non-zero: the host may use the gateway's storage
};
static_assert(sizeof(LanHostRecord) == 808, "LanHostRecord is 808 bytes");
static_assert(offsetof(LanHostRecord, mac) == 4, "MAC at 4");
static_assert(offsetof(LanHostRecord, dhcp_name) == 10, "DHCP name at 10");
static_assert(offsetof(LanHostRecord, device_name) == 266, "device name at 266");
static_assert(offsetof(LanHostRecord, ipv4) == 522, "IPv4 text at 522");
static_assert(offsetof(LanHostRecord, ipv6) == 540, "IPv6 text at 540");
static_assert(offsetof(LanHostRecord, attach_point) == 796, "attachment point at 796");
static_assert(offsetof(LanHostRecord, online_time) == 800, "online time at 800");
static_assert(offsetof(LanHostRecord, storage_access) == 804, "storage access at 804");

// Counters or speed limits of one host (24 bytes; malloc()ed array, freed by the caller).
struct LanHostStatsRecord {
  int32_t up_speed;    // the up-stream limit when asked for "SpeedMax"
  int32_t down_speed;  // the down-stream limit when asked for "SpeedMax"
  uint64_t up_bytes;
  uint64_t down_bytes;
};
static_assert(sizeof(LanHostStatsRecord) == 24, "LanHostStatsRecord is 24 bytes");
static_assert(offsetof(LanHostStatsRecord, down_speed) == 4, "down-stream speed at 4");
static_assert(offsetof(LanHostStatsRecord, up_bytes) == 8, "up-stream bytes at 8");
static_assert(offsetof(LanHostStatsRecord, down_bytes) == 16, "down-stream bytes at 16");

// Host classes as the platform codes them (and as the class query's type argument).
#define LAN_HOST_CLASS_ONLINE 0
#define LAN_HOST_CLASS_OFFLINE 1
#define LAN_HOST_CLASS_BLOCK 2
#define LAN_HOST_CLASS_TRUST 3
// Type argument of brelo_lanGethostInfobytype selecting the hosts of one attachment point.
#define LAN_HOST_TYPE_ATTACH_POINT 5

// MAC filter modes and the lists brelo_macClearFromList edits.
#define LAN_FILTER_MODE_BLACK 1
#define LAN_FILTER_MODE_TRUST 2
#define LAN_LIST_BLACK 0
#define LAN_LIST_STORAGE_BLACK 1
#define LAN_LIST_TRUST 2
// Permission kinds of brelo_lanSetLanDevAccessPermission.
#define LAN_PERMISSION_BLACK 1
#define LAN_PERMISSION_TRUST 2

// All return 0 on success. "list" receives a malloc()ed array (caller frees), "count" its
// length; both are preset to NULL and 0 by the caller. "macs" is the MAC list buffer of
// brelo_getMacAddrFromJsonArr (256 entries of 128 bytes).
extern "C" {
int brelo_lanGethostInfoByMACArr(LanHostRecord **list, int *count, char (*macs)[128],
                                 int macCount);
int brelo_lanGethostInfobytype(LanHostRecord **list, int *count, const char *key, int type);
int brelo_lanGethostInfobyBlockOffline(LanHostRecord **list, int *count);
int brelo_lanGethostStatsAndSpeedByMacAddr(LanHostStatsRecord **list, int *count,
                                           char (*macs)[128], int macCount,
                                           const char *selector);
int brelo_sysGetGatewayName(char *buf, int size);
int brelo_sysSetGatewayName(const char *name);
int brelo_lanGetFilterMode(int *mode);
int brelo_lanSetFilterMode(int mode);
int brelo_lanSetLanHostName(const char *mac, const char *name);
int brelo_lanSetDevMaxBandwidth(unsigned char *mac, int upLimit, int downLimit);
int brelo_lanGetDevBandwidth(unsigned char *mac, int *upSpeed, int *downSpeed);
int brelo_lanSetLanDevAccessPermission(const char *mac, int kind, int op);
int brelo_lanSetStorageDevAccessPermission(const char *mac, int op);
int brelo_macClearFromList(char (*macs)[128], int count, int listKind);

// LAN Ethernet ports; the port numbering is the platform's. Text buffers are 64 bytes.
int brelo_getLANEthernetInfo(int port, char *enable, char *status, char *bitRate,
                             char *duplexMode);
int brelo_getLANEthernetStats(int port, unsigned int *bytesSent, unsigned int *bytesReceived,
                              unsigned int *packetsSent, unsigned int *packetsReceived);
int brelo_setLANEthernetEnable(int port, int enable);
int brelo_setLANEthernetMaxBitRate(int port, const char *bitRate);
int brelo_setLANEthernetDuplexMode(int port, const char *duplexMode);
}

#endif
