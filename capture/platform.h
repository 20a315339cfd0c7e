// The platform functions as the capture tool reaches them: resolved by name at run time, so a
// gateway whose libraries lack one still runs the tool, which records the function as missing.
//
// Only the functions listed in CAPTURE_READS are ever called: the queries that change nothing
// on the gateway. Every other platform function the library imports is looked up by name only,
// to report whether the gateway's libraries export it.
#ifndef BUNDLE_CAPTURE_PLATFORM_H
#define BUNDLE_CAPTURE_PLATFORM_H

#include "common/platform_address.h"
#include "common/platform_addrcheck.h"
#include "common/platform_device.h"
#include "common/platform_diag.h"
#include "common/platform_forward.h"
#include "common/platform_lan.h"
#include "common/platform_pon.h"
#include "common/platform_qos.h"
#include "common/platform_registration.h"
#include "common/platform_route.h"
#include "common/platform_storage.h"
#include "common/platform_tcapi.h"
#include "common/platform_usb.h"
#include "common/platform_voip.h"
#include "common/platform_vpn.h"
#include "common/platform_wan.h"
#include "common/platform_wlan.h"

// The WAN information getters, (pvc, entry, out) and their state keys: texts, then ints.
#define CAPTURE_WAN_TEXT_GETTERS(X)                                                             \
  X(brelo_wanGetLanInterface, "LanInterface") X(brelo_wanGetUsername, "Username")               \
  X(brelo_wanGetExternalIpAddress, "ExternalIPAddress")                                         \
  X(brelo_wanGetSubnetMask, "SubnetMask") X(brelo_wanGetDefaultGateway, "DefaultGateway")       \
  X(brelo_wanGetDnsServers, "DNSServers") X(brelo_wanGetMacAddress, "MACAddress")               \
  X(brelo_wanGetIpv6IpAddress, "IPv6IPAddress")                                                 \
  X(brelo_wanGetIpv6DnsServers, "IPv6DNSServers") X(brelo_wanGetIpv6Prefix, "IPv6Prefix")       \
  X(brelo_wanGetIpv6DefaultGateway, "IPv6DefaultGateway")                                       \
  X(brelo_wanGetIpv6AftrAddress, "IPv6AftrAddress") X(brelo_wanGetServiceList, "ServiceList")
#define CAPTURE_WAN_INT_GETTERS(X)                                                              \
  X(brelo_wanGetVlanMode, "VLANMode") X(brelo_wanGetVlanIdMark, "VLANIDMark")                   \
  X(brelo_wanGet802_1p_priority, "802-1pMark") X(brelo_wanGetMulticastVlan, "MulticastVlan")    \
  X(brelo_wanGetDhcpEnable, "LanInterface-DHCPEnable") X(brelo_wanGetIpMode, "IPMode")          \
  X(brelo_wanGetConnectionType, "ConnectionType") X(brelo_wanGetNatEnabled, "NATEnabled")       \
  X(brelo_wanGetAddressingType, "AddressingType") X(brelo_wanGetDnsEnabled, "DNSEnabled")       \
  X(brelo_wanGetConnectionTrigger, "ConnectionTrigger")                                         \
  X(brelo_wanGetIpv6AddressOrigin, "IPv6IPAddressOrigin")                                       \
  X(brelo_wanGetIpv6PrefixDelegationEnabled, "IPv6PrefixDelegationEnabled")                     \
  X(brelo_wanGetIpv6PrefixOrigin, "IPv6PrefixOrigin")                                           \
  X(brelo_wanGetIpv6PrefixPltime, "IPv6PrefixPltime")                                           \
  X(brelo_wanGetIpv6PrefixVltime, "IPv6PrefixVltime")                                           \
  X(brelo_wanGetIpv6DsliteEnable, "IPv6DsliteEnable") X(brelo_wanGetIpv6AftrMode, "IPv6AftrMode")
// The status getters take (out, pvc, entry).
#define CAPTURE_WAN_STATUS_GETTERS(X)                                                           \
  X(brelo_wanGetUptime, "Uptime") X(brelo_wanGetIpv4ConnStatus, "ConnectionStatus")             \
  X(brelo_wanGetIpv6ConnStatus, "IPv6ConnStatus")                                               \
  X(brelo_wanGetLastConnectionError, "LastConnectionError")

// Every function the capture calls, as X(function, state key of the WAN getters or "").
#define CAPTURE_READS(X)                                                                        \
  X(brelo_deviceGetInfo, "") X(brelo_deviceGetMac, "") X(brelo_deviceGetUpTime, "")             \
  X(brelo_deviceGetCPUOccupancyRate, "") X(brelo_deviceGetRAMOccupancyRate, "")                 \
  X(brelo_devInfoGetManufacturerOUI, "") X(brelo_devInfoGetSerialNumber, "")                    \
  X(brelo_devInfoGetDefaultWebPasswd, "") X(brelo_wlanGetDefaultSSIDName, "")                   \
  X(brelo_wlanGetDefaultSSIDPasswd, "") X(brelo_devInfoGetPasswd, "")                           \
  X(brelo_lanGethostInfoByMACArr, "") X(brelo_lanGethostInfobytype, "")                         \
  X(brelo_lanGethostInfobyBlockOffline, "") X(brelo_lanGethostStatsAndSpeedByMacAddr, "")       \
  X(brelo_sysGetGatewayName, "") X(brelo_lanGetFilterMode, "") X(brelo_lanGetDevBandwidth, "")  \
  X(brelo_getLANEthernetInfo, "") X(brelo_getLANEthernetStats, "")                              \
  X(brelo_wlanGetSSIDInfo, "") X(brelo_wlanGetSSIDStats, "") X(brelo_wlanGetWPSStatus, "")      \
  X(brelo_wlanGetRadioSwitch, "") X(brelo_wlanGetRadioInfo, "") X(brelo_wlanGetNeighbor, "")    \
  X(brelo_wlanGetHostInfo, "") X(brelo_wlanGetSSIDPassword, "")                                 \
  X(brelo_ponGetIfPhyStatusInfo, "") X(brelo_ponGetDuration, "") X(brelo_ponGetRegInfo, "")     \
  X(brelo_ponGetUplinkIfStats, "")                                                              \
  X(brelo_wanGetIfList, "") X(brelo_wanGetIfPackageStats, "") X(brelo_wanGetIfBandwidth, "")    \
  X(brelo_wanGetPvcEntryIndex, "") X(brelo_wanGetInternetWANIndex, "")                          \
  CAPTURE_WAN_TEXT_GETTERS(X) CAPTURE_WAN_INT_GETTERS(X)                                        \
  CAPTURE_WAN_STATUS_GETTERS(X)                                                                 \
  X(brelo_getIPPingDiagnostics, "") X(brelo_getTraceRouteDiagnosticsResult, "")                 \
  X(brelo_getHttpSpeedTestDiagnostics, "")                                                      \
  X(brelo_lanGetHostIP, "") X(brelo_dhcpdGetServerSettings, "")                                 \
  X(tcapi_get, "")                                                                              \
  X(brelo_getStorageInfo, "")                                                                   \
  X(brelo_getFTPRightInfo, "") X(brelo_getHTTPRightInfo, "") X(brelo_getSambaRightInfo, "")     \
  X(brelo_GetProvince, "") X(brelo_passwordGetRegistrationInfo, "")                             \
  X(brelo_getForwardRuleInfo, "") X(brelo_getHTTPTrafficProcessRuleInfo, "")                    \
  X(brelo_getTrafficInfoByFlow, "") X(brelo_getStatsByFlow, "") X(brelo_getSpeedByFlow, "")     \
  X(brelo_getSpeedLimitByFlow, "") X(brelo_getDSCPRemarkByFlow, "")                             \
  X(brelo_vlanGetBindInfo, "") X(brelo_routeinfoGetLayer3ForwardingStaticConfig, "")            \
  X(brelo_routeinfoGetIp6Layer3ForwardingStaticConfig, "") X(brelo_iptvGetStatus, "")           \
  X(brelo_getVpnStatCmd, "") X(brelo_getConnectedIpList, "")                                    \
  X(brelo_voipGetNumberOfPOTS, "") X(brelo_voipGetLineInfo, "")

namespace capture {

// One id per function called.
enum Fn {
#define CAPTURE_ENUM(fn, key) k_##fn,
  CAPTURE_READS(CAPTURE_ENUM)
#undef CAPTURE_ENUM
      kReadCount
};

// The called functions, resolved (NULL: not exported by the gateway's libraries).
struct Platform {
#define CAPTURE_FIELD(fn, key) decltype(&::fn) fn;
  CAPTURE_READS(CAPTURE_FIELD)
#undef CAPTURE_FIELD
};

// The name of a called function.
const char *read_name(int fn);

// The other platform functions the library imports (setters, commits, starts of diagnostics,
// USB transfers, the address checks), never called: their names, NULL-terminated.
extern const char *const kOtherFunctions[];

// Finds a platform function by name (NULL when the gateway does not have it).
typedef void *(*Lookup)(const char *name, void *ctx);

// Resolves every called function into `p`. Returns how many of all the platform functions
// (called or not) are missing; their names go to `missing`, `room` at most (NULL: not kept).
int resolve(Platform *p, Lookup lookup, void *ctx, const char **missing, int room);

}  // namespace capture

#endif
