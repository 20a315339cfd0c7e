// Platform library (libbrelo.so.1): IPv4 and IPv6 static routes and forwarding tables, the
// VLAN binding of the LAN interfaces, and the IPTV service status.
#ifndef BUNDLE_COMMON_PLATFORM_ROUTE_H
#define BUNDLE_COMMON_PLATFORM_ROUTE_H

#include <stddef.h>
#include <stdint.h>

// The VLAN binding of one LAN interface (260 bytes).
struct VlanBindRecord {
  int32_t lan_if;  // 0-based: LAN1-LAN4, then SSID1-SSID5
  char bind[256];  // the binding as the platform stores it
};
static_assert(sizeof(VlanBindRecord) == 260, "VlanBindRecord is 260 bytes");
static_assert(offsetof(VlanBindRecord, bind) == 4, "binding text at 4");

// One IPv4 route (324 bytes).
struct Ip4RouteRecord {
  int32_t index;
  char dest_ip[64];
  char dest_mask[64];
  char gateway_ip[64];
  char interface_name[128];
};
static_assert(sizeof(Ip4RouteRecord) == 324, "Ip4RouteRecord is 324 bytes");
static_assert(offsetof(Ip4RouteRecord, dest_ip) == 4, "destination at 4");
static_assert(offsetof(Ip4RouteRecord, dest_mask) == 68, "mask at 68");
static_assert(offsetof(Ip4RouteRecord, gateway_ip) == 132, "gateway at 132");
static_assert(offsetof(Ip4RouteRecord, interface_name) == 196, "interface at 196");

// One IPv6 route (324 bytes).
struct Ip6RouteRecord {
  int32_t index;
  char dest_prefix[128];
  char next_hop[64];
  char interface_name[128];
};
static_assert(sizeof(Ip6RouteRecord) == 324, "Ip6RouteRecord is 324 bytes");
static_assert(offsetof(Ip6RouteRecord, dest_prefix) == 4, "prefix at 4");
static_assert(offsetof(Ip6RouteRecord, next_hop) == 132, "next hop at 132");
static_assert(offsetof(Ip6RouteRecord, interface_name) == 196, "interface at 196");

// Route table selector of the two route queries.
#define ROUTE_TABLE_STATIC 0   // the configured static routes
#define ROUTE_TABLE_CURRENT 1  // the routes in force

// IPTV service status codes of brelo_iptvGetStatus.
#define IPTV_STATUS_NO_CONNECTION 0
#define IPTV_STATUS_DISCONNECT 1
#define IPTV_STATUS_INVALID_MULTIVLAN 2
#define IPTV_STATUS_BUSINESS_NOK 3
#define IPTV_STATUS_BUSINESS_OK 4

// The list queries return 0 on success with a malloc()ed array in *array (caller frees) and
// its length in *count; both are preset to NULL and 0 by the caller.
extern "C" {
int brelo_vlanGetBindInfo(VlanBindRecord **array, int *count);
int brelo_routeinfoGetLayer3ForwardingStaticConfig(Ip4RouteRecord **array, int *count, int which);
int brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(Ip6RouteRecord **array, int *count,
                                                      int which);
int brelo_iptvGetStatus(void);
// The new route's id (1-16), or a failure code.
int brelo_routeAddIp4ForwardingStatic(const char *dstIPAddr, const char *dstSubMask,
                                      const char *gatewayIPAddr, const char *interfaceName);
int brelo_routeAddIp6ForwardingStatic(const char *dstIPPrefix, const char *nextHop,
                                      const char *interfaceName);
int brelo_routeDeleteIp4ForwardingStatic(int routeId);
int brelo_routeDeleteIp6ForwardingStatic(int routeId);
int brelo_setVLANBind(const char *lanInterface, const char *bind);
int brelo_clearVLANBind(const char *lanInterface);
}

#endif
