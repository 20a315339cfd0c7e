// Platform library (libbrelo.so.1): WAN connections, their state and their configuration.
//
// A WAN connection is named by its WAN index; brelo_wanGetPvcEntryIndex turns the index into
// the platform's (PVC, entry) pair, which the per-connection getters take. The getters that
// fill the information record take (pvc, entry, out); the status getters take
// (out, pvc, entry). Both orders are the platform's.
#ifndef BUNDLE_COMMON_PLATFORM_WAN_H
#define BUNDLE_COMMON_PLATFORM_WAN_H

#include <stddef.h>
#include <stdint.h>

// One element of the heap array handed over by brelo_wanGetIfList (36 bytes; the caller
// frees the array with free()).
struct WanIfListRecord {
  int32_t index;
  char name[32];
};
static_assert(sizeof(WanIfListRecord) == 36, "WanIfListRecord is 36 bytes");
static_assert(offsetof(WanIfListRecord, name) == 4, "name at 4");

// The change request of brelo_wanSetIf, filled from a JSON text by brelo_wanParseIfInfoParam
// (1712 bytes; the caller zeroes it). Every member is a NUL-terminated text at a fixed,
// platform-given offset; the first 31 bytes belong to the platform alone.
struct WanChangeRecord {
  char platform_private[31];
  char lan_interface[64];
  char vlan_mode[32];
  char vlan_id_mark[32];
  char priority_8021p[32];
  char multicast_vlan[32];
  char lan_dhcp_enable[16];
  char ip_mode[16];
  char nat_enabled[16];
  char username[128];
  char password[128];
  char addressing_type[32];
  char external_ip_address[32];
  char subnet_mask[32];
  char default_gateway[32];
  char dns_enabled[16];
  char dns_servers[128];
  char mac_address[64];
  char connection_trigger[32];
  char ipv6_address_origin[33];
  char ipv6_address[64];
  char ipv6_dns_servers[128];
  char ipv6_prefix_delegation_enabled[16];
  char ipv6_prefix_origin[32];
  char ipv6_prefix[128];
  char ipv6_prefix_pltime[32];
  char ipv6_prefix_vltime[32];
  char ipv6_default_gateway[64];
  char ipv6_dslite_enable[16];
  char ipv6_aftr_mode[16];
  char ipv6_aftr_address[128];
  char service_list[128];
};
static_assert(sizeof(WanChangeRecord) == 1712, "WanChangeRecord is 1712 bytes");
static_assert(offsetof(WanChangeRecord, lan_interface) == 31, "LanInterface at 31");
static_assert(offsetof(WanChangeRecord, vlan_mode) == 95, "VLANMode at 95");
static_assert(offsetof(WanChangeRecord, vlan_id_mark) == 127, "VLANIDMark at 127");
static_assert(offsetof(WanChangeRecord, priority_8021p) == 159, "802-1pMark at 159");
static_assert(offsetof(WanChangeRecord, multicast_vlan) == 191, "MulticastVlan at 191");
static_assert(offsetof(WanChangeRecord, lan_dhcp_enable) == 223, "LanInterface-DHCPEnable at 223");
static_assert(offsetof(WanChangeRecord, ip_mode) == 239, "IPMode at 239");
static_assert(offsetof(WanChangeRecord, nat_enabled) == 255, "NATEnabled at 255");
static_assert(offsetof(WanChangeRecord, username) == 271, "Username at 271");
static_assert(offsetof(WanChangeRecord, password) == 399, "Password at 399");
static_assert(offsetof(WanChangeRecord, addressing_type) == 527, "AddressingType at 527");
static_assert(offsetof(WanChangeRecord, external_ip_address) == 559, "ExternalIPAddress at 559");
static_assert(offsetof(WanChangeRecord, subnet_mask) == 591, "SubnetMask at 591");
static_assert(offsetof(WanChangeRecord, default_gateway) == 623, "DefaultGateway at 623");
static_assert(offsetof(WanChangeRecord, dns_enabled) == 655, "DNSEnabled at 655");
static_assert(offsetof(WanChangeRecord, dns_servers) == 671, "DNSServers at 671");
static_assert(offsetof(WanChangeRecord, mac_address) == 799, "MACAddress at 799");
static_assert(offsetof(WanChangeRecord, connection_trigger) == 863, "ConnectionTrigger at 863");
static_assert(offsetof(WanChangeRecord, ipv6_address_origin) == 895, "IPv6IPAddressOrigin at 895");
static_assert(offsetof(WanChangeRecord, ipv6_address) == 928, "IPv6IPAddress at 928");
static_assert(offsetof(WanChangeRecord, ipv6_dns_servers) == 992, "IPv6DNSServers at 992");
static_assert(offsetof(WanChangeRecord, ipv6_prefix_delegation_enabled) == 1120,
              "IPv6PrefixDelegationEnabled at 1120");
static_assert(offsetof(WanChangeRecord, ipv6_prefix_origin) == 1136, "IPv6PrefixOrigin at 1136");
static_assert(offsetof(WanChangeRecord, ipv6_prefix) == 1168, "IPv6Prefix at 1168");
static_assert(offsetof(WanChangeRecord, ipv6_prefix_pltime) == 1296, "IPv6PrefixPltime at 1296");
static_assert(offsetof(WanChangeRecord, ipv6_prefix_vltime) == 1328, "IPv6PrefixVltime at 1328");
static_assert(offsetof(WanChangeRecord, ipv6_default_gateway) == 1360,
              "IPv6DefaultGateway at 1360");
static_assert(offsetof(WanChangeRecord, ipv6_dslite_enable) == 1424, "IPv6DsliteEnable at 1424");
static_assert(offsetof(WanChangeRecord, ipv6_aftr_mode) == 1440, "IPv6AftrMode at 1440");
static_assert(offsetof(WanChangeRecord, ipv6_aftr_address) == 1456, "IPv6AftrAddress at 1456");
static_assert(offsetof(WanChangeRecord, service_list) == 1584, "ServiceList at 1584");

extern "C" {
// WAN list: 0 on success; *list is a malloc()ed array of *count records.
int brelo_wanGetIfList(WanIfListRecord **list, int *count);
// Byte counters of one connection, upstream then downstream: 0 on success.
int brelo_wanGetIfPackageStats(int wanIndex, unsigned long long *us, unsigned long long *ds);
// Configured bandwidths as texts, into two 128-byte buffers.
int brelo_wanGetIfBandwidth(int wanIndex, char *us, char *ds);
// -1 when no connection has this index; anything else is success.
int brelo_wanGetPvcEntryIndex(int wanIndex, int *pvc, int *entry);
// The WAN index of the connection that carries Internet.
int brelo_wanGetInternetWANIndex(void);

// Status getters: output first.
int brelo_wanGetUptime(int *out, int pvc, int entry);
int brelo_wanGetIpv4ConnStatus(int *out, int pvc, int entry);
int brelo_wanGetIpv6ConnStatus(int *out, int pvc, int entry);
int brelo_wanGetLastConnectionError(int *out, int pvc, int entry);

// Information getters: output last. Text getters write a NUL-terminated text (the size the
// platform writes is its own: the caller's buffer must be large enough).
int brelo_wanGetLanInterface(int pvc, int entry, char *out);
int brelo_wanGetVlanMode(int pvc, int entry, int *out);
int brelo_wanGetVlanIdMark(int pvc, int entry, int *out);
int brelo_wanGet802_1p_priority(int pvc, int entry, int *out);
int brelo_wanGetMulticastVlan(int pvc, int entry, int *out);
int brelo_wanGetDhcpEnable(int pvc, int entry, int *out);
int brelo_wanGetIpMode(int pvc, int entry, int *out);
int brelo_wanGetConnectionType(int pvc, int entry, int *out);
int brelo_wanGetNatEnabled(int pvc, int entry, int *out);
int brelo_wanGetUsername(int pvc, int entry, char *out);
int brelo_wanGetAddressingType(int pvc, int entry, int *out);
int brelo_wanGetExternalIpAddress(int pvc, int entry, char *out);
int brelo_wanGetSubnetMask(int pvc, int entry, char *out);
int brelo_wanGetDefaultGateway(int pvc, int entry, char *out);
int brelo_wanGetDnsEnabled(int pvc, int entry, int *out);
int brelo_wanGetDnsServers(int pvc, int entry, char *out);
int brelo_wanGetMacAddress(int pvc, int entry, char *out);
int brelo_wanGetConnectionTrigger(int pvc, int entry, int *out);
int brelo_wanGetIpv6AddressOrigin(int pvc, int entry, int *out);
int brelo_wanGetIpv6IpAddress(int pvc, int entry, char *out);
int brelo_wanGetIpv6DnsServers(int pvc, int entry, char *out);
int brelo_wanGetIpv6PrefixDelegationEnabled(int pvc, int entry, int *out);
int brelo_wanGetIpv6PrefixOrigin(int pvc, int entry, int *out);
int brelo_wanGetIpv6Prefix(int pvc, int entry, char *out);
int brelo_wanGetIpv6PrefixPltime(int pvc, int entry, int *out);
int brelo_wanGetIpv6PrefixVltime(int pvc, int entry, int *out);
int brelo_wanGetIpv6DefaultGateway(int pvc, int entry, char *out);
int brelo_wanGetIpv6DsliteEnable(int pvc, int entry, int *out);
int brelo_wanGetIpv6AftrMode(int pvc, int entry, int *out);
int brelo_wanGetIpv6AftrAddress(int pvc, int entry, char *out);
int brelo_wanGetServiceList(int pvc, int entry, char *out);

// Configuration. brelo_wanAddIf takes three texts of at most 31 characters and returns the
// new WAN's index; brelo_wanParseIfInfoParam returns a negative value for a text it rejects.
int brelo_wanAddIf(char *vlanMode, char *vlanIdMark, char *connectionType);
int brelo_wanParseIfInfoParam(const char *json, WanChangeRecord *rec);
int brelo_wanSetIf(int wanIndex, WanChangeRecord *rec);
int brelo_wanDeleteIf(int wanIndex);
}

#endif
