// The platform functions of the raw platform (see raw_platform.h): one per function the
// library imports, each answering its outputs and its return code through rawplatform::Call.
// Buffer sizes are those the platform knows (passed, documented, or the record's own size).
#include <limits.h>
#include <stdlib.h>
#include <string.h>

#include "common/config_tree.h"
#include "common/platform_addrcheck.h"
#include "common/platform_address.h"
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
#include "tests/raw_platform/raw_platform.h"

using rawplatform::Call;

extern "C" {

int brelo_lanSetLanHostIP(const char *address, const char *mask) {
  Call c("brelo_lanSetLanHostIP");
  return c.result();
}

int brelo_lanSetLANDHCPInfo(int enable, const char *startAddress, const char *endAddress, int duration) {
  Call c("brelo_lanSetLANDHCPInfo");
  return c.result();
}

int brelo_lanGetHostIP(char *ipv4, char *mask, char *ipv6First, char *ipv6Second, char *prefixLen) {
  Call c("brelo_lanGetHostIP");
  c.text(ipv4, LAN_IP_TEXT_SIZE);
  c.text(mask, LAN_IP_TEXT_SIZE);
  c.text(ipv6First, LAN_IPV6_TEXT_SIZE);
  c.text(ipv6Second, LAN_IPV6_TEXT_SIZE);
  c.text(prefixLen, LAN_IP_TEXT_SIZE);
  return c.result();
}

int brelo_dhcpdGetServerSettings(DhcpServerSettings *settings) {
  Call c("brelo_dhcpdGetServerSettings");
  c.record(settings, sizeof *settings);
  return c.result();
}

int brelo_deviceGetInfo(DeviceInfoRecord *rec) {
  Call c("brelo_deviceGetInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}

int brelo_deviceGetMac(char *buf) {
  Call c("brelo_deviceGetMac");
  c.text(buf, 128);
  return c.result();
}

int brelo_deviceGetUpTime(void) {
  Call c("brelo_deviceGetUpTime");
  return c.result();
}

int brelo_deviceGetCPUOccupancyRate(void) {
  Call c("brelo_deviceGetCPUOccupancyRate");
  return c.result();
}

int brelo_deviceGetRAMOccupancyRate(void) {
  Call c("brelo_deviceGetRAMOccupancyRate");
  return c.result();
}

int brelo_devInfoGetManufacturerOUI(char *buf) {
  Call c("brelo_devInfoGetManufacturerOUI");
  c.text(buf, 64);
  return c.result();
}

int brelo_devInfoGetSerialNumber(char *buf) {
  Call c("brelo_devInfoGetSerialNumber");
  c.text(buf, 129);
  return c.result();
}

int brelo_devInfoGetDefaultWebPasswd(char *buf, int size) {
  Call c("brelo_devInfoGetDefaultWebPasswd");
  c.text(buf, size > 0 ? static_cast<size_t>(size) : 0);
  return c.result();
}

int brelo_wlanGetDefaultSSIDName(char *buf, int size) {
  Call c("brelo_wlanGetDefaultSSIDName");
  c.text(buf, size > 0 ? static_cast<size_t>(size) : 0);
  return c.result();
}

int brelo_wlanGetDefaultSSIDPasswd(char *buf, int size) {
  Call c("brelo_wlanGetDefaultSSIDPasswd");
  c.text(buf, size > 0 ? static_cast<size_t>(size) : 0);
  return c.result();
}

int brelo_devInfoGetPasswd(char *buf) {
  Call c("brelo_devInfoGetPasswd");
  c.text(buf, 256);
  return c.result();
}

int brelo_startIPPingDiagnostics(int wanIndex, PingRequest *req) {
  Call c("brelo_startIPPingDiagnostics");
  // req: an input
  return c.result();
}

int brelo_getIPPingDiagnostics(PingResult *res) {
  Call c("brelo_getIPPingDiagnostics");
  c.record(res, sizeof *res);
  return c.result();
}

int brelo_startTraceRouteDiagnostics(int wanIndex, TraceRouteRequest *req) {
  Call c("brelo_startTraceRouteDiagnostics");
  // req: an input
  return c.result();
}


int brelo_startHttpSpeedTestDiagnostics(int wanIndex, const char *url, HttpSpeedTestRequest *req) {
  Call c("brelo_startHttpSpeedTestDiagnostics");
  // req: an input
  return c.result();
}

int brelo_getHttpSpeedTestDiagnostics(HttpSpeedTestResult *res) {
  Call c("brelo_getHttpSpeedTestDiagnostics");
  c.record(res, sizeof *res);
  return c.result();
}

int brelo_addForwardRule(ForwardRule *rule) {
  Call c("brelo_addForwardRule");
  // rule: an input
  return c.result();
}

int brelo_deleteForwardRule(int index) {
  Call c("brelo_deleteForwardRule");
  return c.result();
}

int brelo_deleteAllForwardRule(void) {
  Call c("brelo_deleteAllForwardRule");
  return c.result();
}


int brelo_addHTTPTrafficProcessRule(HttpTrafficProcessRule *rule) {
  Call c("brelo_addHTTPTrafficProcessRule");
  // rule: an input
  return c.result();
}

int brelo_deleteHTTPTrafficProcessRule(int index) {
  Call c("brelo_deleteHTTPTrafficProcessRule");
  return c.result();
}

int brelo_deleteAllHTTPTrafficProcessRule(void) {
  Call c("brelo_deleteAllHTTPTrafficProcessRule");
  return c.result();
}


int brelo_lanGethostInfoByMACArr(LanHostRecord **list, int *count, char (*macs)[128], int macCount) {
  Call c("brelo_lanGethostInfoByMACArr");
  c.list(reinterpret_cast<void **>(list), count, sizeof(LanHostRecord));
  return c.result();
}

int brelo_lanGethostInfobytype(LanHostRecord **list, int *count, const char *key, int type) {
  Call c("brelo_lanGethostInfobytype");
  c.list(reinterpret_cast<void **>(list), count, sizeof(LanHostRecord));
  return c.result();
}

int brelo_lanGethostInfobyBlockOffline(LanHostRecord **list, int *count) {
  Call c("brelo_lanGethostInfobyBlockOffline");
  c.list(reinterpret_cast<void **>(list), count, sizeof(LanHostRecord));
  return c.result();
}

int brelo_lanGethostStatsAndSpeedByMacAddr(LanHostStatsRecord **list, int *count, char (*macs)[128], int macCount, const char *selector) {
  Call c("brelo_lanGethostStatsAndSpeedByMacAddr");
  c.list(reinterpret_cast<void **>(list), count, sizeof(LanHostStatsRecord));
  return c.result();
}

int brelo_sysGetGatewayName(char *buf, int size) {
  Call c("brelo_sysGetGatewayName");
  c.text(buf, size > 0 ? static_cast<size_t>(size) : 0);
  return c.result();
}

int brelo_sysSetGatewayName(const char *name) {
  Call c("brelo_sysSetGatewayName");
  return c.result();
}

int brelo_lanGetFilterMode(int *mode) {
  Call c("brelo_lanGetFilterMode");
  c.number(mode);
  return c.result();
}

int brelo_lanSetFilterMode(int mode) {
  Call c("brelo_lanSetFilterMode");
  return c.result();
}

int brelo_lanSetLanHostName(const char *mac, const char *name) {
  Call c("brelo_lanSetLanHostName");
  return c.result();
}



int brelo_lanSetLanDevAccessPermission(const char *mac, int kind, int op) {
  Call c("brelo_lanSetLanDevAccessPermission");
  return c.result();
}

int brelo_lanSetStorageDevAccessPermission(const char *mac, int op) {
  Call c("brelo_lanSetStorageDevAccessPermission");
  return c.result();
}

int brelo_macClearFromList(char (*macs)[128], int count, int listKind) {
  Call c("brelo_macClearFromList");
  return c.result();
}

int brelo_getLANEthernetInfo(int port, char *enable, char *status, char *bitRate, char *duplexMode) {
  Call c("brelo_getLANEthernetInfo");
  c.text(enable, 64);
  c.text(status, 64);
  c.text(bitRate, 64);
  c.text(duplexMode, 64);
  return c.result();
}

int brelo_getLANEthernetStats(int port, unsigned int *bytesSent, unsigned int *bytesReceived, unsigned int *packetsSent, unsigned int *packetsReceived) {
  Call c("brelo_getLANEthernetStats");
  c.number(bytesSent);
  c.number(bytesReceived);
  c.number(packetsSent);
  c.number(packetsReceived);
  return c.result();
}

int brelo_setLANEthernetEnable(int port, int enable) {
  Call c("brelo_setLANEthernetEnable");
  return c.result();
}

int brelo_setLANEthernetMaxBitRate(int port, const char *bitRate) {
  Call c("brelo_setLANEthernetMaxBitRate");
  return c.result();
}

int brelo_setLANEthernetDuplexMode(int port, const char *duplexMode) {
  Call c("brelo_setLANEthernetDuplexMode");
  return c.result();
}

int brelo_ponGetIfPhyStatusInfo(PonPhyStatusRecord *rec) {
  Call c("brelo_ponGetIfPhyStatusInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}

int brelo_ponGetDuration(void) {
  Call c("brelo_ponGetDuration");
  return c.result();
}

int brelo_ponGetRegInfo(void) {
  Call c("brelo_ponGetRegInfo");
  return c.result();
}

int brelo_ponGetUplinkIfStats(unsigned long long *us, unsigned long long *ds) {
  Call c("brelo_ponGetUplinkIfStats");
  c.number(us);
  c.number(ds);
  return c.result();
}

int brelo_addTrafficToFlow(const char *remoteAddress, const char *remotePort, int flowId) {
  Call c("brelo_addTrafficToFlow");
  return c.result();
}

int brelo_deleteTrafficFromFlow(const char *remoteAddress, const char *remotePort, int flowId) {
  Call c("brelo_deleteTrafficFromFlow");
  return c.result();
}

int brelo_deleteAllTrafficFromFlow(int flowId) {
  Call c("brelo_deleteAllTrafficFromFlow");
  return c.result();
}


int brelo_getStatsByFlow(int flowId, unsigned long long *upBytes, unsigned long long *downBytes) {
  Call c("brelo_getStatsByFlow");
  c.number(upBytes);
  c.number(downBytes);
  return c.result();
}

int brelo_getSpeedByFlow(int flowId, int *up, int *down) {
  Call c("brelo_getSpeedByFlow");
  c.number(up);
  c.number(down);
  return c.result();
}

int brelo_setSpeedLimitByFlow(int flowId, int upLimit, int downLimit) {
  Call c("brelo_setSpeedLimitByFlow");
  return c.result();
}

int brelo_getSpeedLimitByFlow(int flowId, int *up, int *down) {
  Call c("brelo_getSpeedLimitByFlow");
  c.number(up);
  c.number(down);
  return c.result();
}

int brelo_setDSCPRemarkByFlow(int flowId, int dscp) {
  Call c("brelo_setDSCPRemarkByFlow");
  return c.result();
}

int brelo_getDSCPRemarkByFlow(int flowId, int *dscp) {
  Call c("brelo_getDSCPRemarkByFlow");
  c.number(dscp);
  return c.result();
}

int brelo_passwordSetRegistration(const char *text1, int number1, int number2, const char *text2) {
  Call c("brelo_passwordSetRegistration");
  return c.result();
}

int brelo_passwordGetRegistrationInfo(RegistrationInfo *rec) {
  Call c("brelo_passwordGetRegistrationInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}

int brelo_GetProvince(char *buf) {
  Call c("brelo_GetProvince");
  c.text(buf, PROVINCE_TEXT_SIZE);
  return c.result();
}

int brelo_reset(void) {
  Call c("brelo_reset");
  return c.result();
}

int brelo_ledSetSwitch(int flag) {
  Call c("brelo_ledSetSwitch");
  return c.result();
}

int brelo_vlanGetBindInfo(VlanBindRecord **array, int *count) {
  Call c("brelo_vlanGetBindInfo");
  c.list(reinterpret_cast<void **>(array), count, sizeof(VlanBindRecord));
  return c.result();
}

int brelo_routeinfoGetLayer3ForwardingStaticConfig(Ip4RouteRecord **array, int *count, int which) {
  Call c("brelo_routeinfoGetLayer3ForwardingStaticConfig");
  c.list(reinterpret_cast<void **>(array), count, sizeof(Ip4RouteRecord));
  return c.result();
}

int brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(Ip6RouteRecord **array, int *count, int which) {
  Call c("brelo_routeinfoGetIp6Layer3ForwardingStaticConfig");
  c.list(reinterpret_cast<void **>(array), count, sizeof(Ip6RouteRecord));
  return c.result();
}

int brelo_iptvGetStatus(void) {
  Call c("brelo_iptvGetStatus");
  return c.result();
}

int brelo_routeAddIp4ForwardingStatic(const char *dstIPAddr, const char *dstSubMask, const char *gatewayIPAddr, const char *interfaceName) {
  Call c("brelo_routeAddIp4ForwardingStatic");
  return c.result();
}

int brelo_routeAddIp6ForwardingStatic(const char *dstIPPrefix, const char *nextHop, const char *interfaceName) {
  Call c("brelo_routeAddIp6ForwardingStatic");
  return c.result();
}

int brelo_routeDeleteIp4ForwardingStatic(int routeId) {
  Call c("brelo_routeDeleteIp4ForwardingStatic");
  return c.result();
}

int brelo_routeDeleteIp6ForwardingStatic(int routeId) {
  Call c("brelo_routeDeleteIp6ForwardingStatic");
  return c.result();
}

int brelo_setVLANBind(const char *lanInterface, const char *bind) {
  Call c("brelo_setVLANBind");
  return c.result();
}

int brelo_clearVLANBind(const char *lanInterface) {
  Call c("brelo_clearVLANBind");
  return c.result();
}

int brelo_setFTPRight(int right, unsigned char anonymous) {
  Call c("brelo_setFTPRight");
  return c.result();
}

int brelo_setHTTPRight(int right) {
  Call c("brelo_setHTTPRight");
  return c.result();
}

int brelo_addFTPAccount(const char *user, const char *password) {
  Call c("brelo_addFTPAccount");
  return c.result();
}

int brelo_deleteFTPAccount(const char *user) {
  Call c("brelo_deleteFTPAccount");
  return c.result();
}

int brelo_deleteAllFTPAccount(void) {
  Call c("brelo_deleteAllFTPAccount");
  return c.result();
}

int brelo_setHTTPUserPassword(const char *password) {
  Call c("brelo_setHTTPUserPassword");
  return c.result();
}

int brelo_addSambaAccount(const char *user, const char *password) {
  Call c("brelo_addSambaAccount");
  return c.result();
}

int brelo_deleteSambaAccount(const char *user) {
  Call c("brelo_deleteSambaAccount");
  return c.result();
}

int brelo_deleteAllSambaAccount(void) {
  Call c("brelo_deleteAllSambaAccount");
  return c.result();
}

int brelo_getFTPRightInfo(FtpRightRecord *rec) {
  Call c("brelo_getFTPRightInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}

int brelo_getHTTPRightInfo(int *right, char *password) {
  Call c("brelo_getHTTPRightInfo");
  c.number(right);
  c.text(password, 256);
  return c.result();
}

int brelo_getSambaRightInfo(SambaRightRecord *rec) {
  Call c("brelo_getSambaRightInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}


int tcapi_set(const char *node, const char *attr, const char *value) {
  Call c("tcapi_set");
  return c.result();
}

int tcapi_unset(const char *node) {
  Call c("tcapi_unset");
  return c.result();
}

int tcapi_save(void) {
  Call c("tcapi_save");
  return c.result();
}

int brelo_tcapi_commit(const char *node) {
  Call c("brelo_tcapi_commit");
  return c.result();
}

int brelo_tcapi_delay_commit(const char *node, int delay) {
  Call c("brelo_tcapi_delay_commit");
  return c.result();
}

int brelo_usbRegister(int lead1, int lead2, const char *name, int typeBit) {
  Call c("brelo_usbRegister");
  return c.result();
}

int brelo_usbUnregister(int lead1, int lead2, const char *name) {
  Call c("brelo_usbUnregister");
  return c.result();
}

int brelo_usbLock(int lead1, int lead2, int lead3, int devId) {
  Call c("brelo_usbLock");
  return c.result();
}

int brelo_usbUnlock(int lead1, int lead2, int lead3, int devId) {
  Call c("brelo_usbUnlock");
  return c.result();
}

int brelo_usbOpen(int lead1, int lead2, int lead3, int devId, int *handle) {
  Call c("brelo_usbOpen");
  c.number(handle);
  return c.result();
}

int brelo_usbClose(int handle) {
  Call c("brelo_usbClose");
  return c.result();
}

int brelo_usbDataAvailable(int lead1, int lead2, int lead3, int handle) {
  Call c("brelo_usbDataAvailable");
  return c.result();
}



int brelo_usbSetSerial(int lead1, int lead2, int lead3, int handle, UsbSerialSettings *settings) {
  Call c("brelo_usbSetSerial");
  // settings: an input
  return c.result();
}

int brelo_getStorageInfo(StorageRecord **list, int *count) {
  Call c("brelo_getStorageInfo");
  c.list(reinterpret_cast<void **>(list), count, sizeof(StorageRecord), true);
  return c.result();
}

// Two lines when nothing says otherwise, so that the lines themselves are asked.
int brelo_voipGetNumberOfPOTS(void) {
  Call c("brelo_voipGetNumberOfPOTS");
  return c.result(2);
}


int brelo_subscribeVoIPEvent(const char *subscriber, const char *eventList) {
  Call c("brelo_subscribeVoIPEvent");
  return c.result();
}

int brelo_unSubscribeVoIPEvent(const char *subscriber, const char *eventList) {
  Call c("brelo_unSubscribeVoIPEvent");
  return c.result();
}

int brelo_vpnOn(char *serverIp, char *userName, char *password) {
  Call c("brelo_vpnOn");
  // serverIp: an input
  // userName: an input
  // password: an input
  return c.result();
}

int brelo_vpnOff(char *serverIp) {
  Call c("brelo_vpnOff");
  // serverIp: an input
  return c.result();
}

int brelo_getVpnStatCmd(int *status) {
  Call c("brelo_getVpnStatCmd");
  c.number(status);
  return c.result();
}

int brelo_getConnectedIpList(char *buffer, int size) {
  Call c("brelo_getConnectedIpList");
  c.text(buffer, size > 0 ? static_cast<size_t>(size) : 0);
  return c.result();
}

int brelo_wanGetIfList(WanIfListRecord **list, int *count) {
  Call c("brelo_wanGetIfList");
  c.list(reinterpret_cast<void **>(list), count, sizeof(WanIfListRecord));
  return c.result();
}

int brelo_wanGetIfPackageStats(int wanIndex, unsigned long long *us, unsigned long long *ds) {
  Call c("brelo_wanGetIfPackageStats");
  c.number(us);
  c.number(ds);
  return c.result();
}

int brelo_wanGetIfBandwidth(int wanIndex, char *us, char *ds) {
  Call c("brelo_wanGetIfBandwidth");
  c.text(us, 128);
  c.text(ds, 128);
  return c.result();
}

int brelo_wanGetPvcEntryIndex(int wanIndex, int *pvc, int *entry) {
  Call c("brelo_wanGetPvcEntryIndex");
  c.number(pvc);
  c.number(entry);
  return c.result();
}

int brelo_wanGetInternetWANIndex(void) {
  Call c("brelo_wanGetInternetWANIndex");
  return c.result();
}

int brelo_wanGetUptime(int *out, int pvc, int entry) {
  Call c("brelo_wanGetUptime");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv4ConnStatus(int *out, int pvc, int entry) {
  Call c("brelo_wanGetIpv4ConnStatus");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6ConnStatus(int *out, int pvc, int entry) {
  Call c("brelo_wanGetIpv6ConnStatus");
  c.number(out);
  return c.result();
}

int brelo_wanGetLastConnectionError(int *out, int pvc, int entry) {
  Call c("brelo_wanGetLastConnectionError");
  c.number(out);
  return c.result();
}

int brelo_wanGetLanInterface(int pvc, int entry, char *out) {
  Call c("brelo_wanGetLanInterface");
  c.text(out, 128);
  return c.result();
}

int brelo_wanGetVlanMode(int pvc, int entry, int *out) {
  Call c("brelo_wanGetVlanMode");
  c.number(out);
  return c.result();
}

int brelo_wanGetVlanIdMark(int pvc, int entry, int *out) {
  Call c("brelo_wanGetVlanIdMark");
  c.number(out);
  return c.result();
}

int brelo_wanGet802_1p_priority(int pvc, int entry, int *out) {
  Call c("brelo_wanGet802_1p_priority");
  c.number(out);
  return c.result();
}

int brelo_wanGetMulticastVlan(int pvc, int entry, int *out) {
  Call c("brelo_wanGetMulticastVlan");
  c.number(out);
  return c.result();
}

int brelo_wanGetDhcpEnable(int pvc, int entry, int *out) {
  Call c("brelo_wanGetDhcpEnable");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpMode(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpMode");
  c.number(out);
  return c.result();
}

int brelo_wanGetConnectionType(int pvc, int entry, int *out) {
  Call c("brelo_wanGetConnectionType");
  c.number(out);
  return c.result();
}

int brelo_wanGetNatEnabled(int pvc, int entry, int *out) {
  Call c("brelo_wanGetNatEnabled");
  c.number(out);
  return c.result();
}

int brelo_wanGetUsername(int pvc, int entry, char *out) {
  Call c("brelo_wanGetUsername");
  c.text(out, 64);
  return c.result();
}

int brelo_wanGetAddressingType(int pvc, int entry, int *out) {
  Call c("brelo_wanGetAddressingType");
  c.number(out);
  return c.result();
}

int brelo_wanGetExternalIpAddress(int pvc, int entry, char *out) {
  Call c("brelo_wanGetExternalIpAddress");
  c.text(out, 32);
  return c.result();
}

int brelo_wanGetSubnetMask(int pvc, int entry, char *out) {
  Call c("brelo_wanGetSubnetMask");
  c.text(out, 32);
  return c.result();
}

int brelo_wanGetDefaultGateway(int pvc, int entry, char *out) {
  Call c("brelo_wanGetDefaultGateway");
  c.text(out, 32);
  return c.result();
}

int brelo_wanGetDnsEnabled(int pvc, int entry, int *out) {
  Call c("brelo_wanGetDnsEnabled");
  c.number(out);
  return c.result();
}

int brelo_wanGetDnsServers(int pvc, int entry, char *out) {
  Call c("brelo_wanGetDnsServers");
  c.text(out, 65);
  return c.result();
}

int brelo_wanGetMacAddress(int pvc, int entry, char *out) {
  Call c("brelo_wanGetMacAddress");
  c.text(out, 64);
  return c.result();
}

int brelo_wanGetConnectionTrigger(int pvc, int entry, int *out) {
  Call c("brelo_wanGetConnectionTrigger");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6AddressOrigin(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6AddressOrigin");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6IpAddress(int pvc, int entry, char *out) {
  Call c("brelo_wanGetIpv6IpAddress");
  c.text(out, 64);
  return c.result();
}

int brelo_wanGetIpv6DnsServers(int pvc, int entry, char *out) {
  Call c("brelo_wanGetIpv6DnsServers");
  c.text(out, 129);
  return c.result();
}

int brelo_wanGetIpv6PrefixDelegationEnabled(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6PrefixDelegationEnabled");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6PrefixOrigin(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6PrefixOrigin");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6Prefix(int pvc, int entry, char *out) {
  Call c("brelo_wanGetIpv6Prefix");
  c.text(out, 65);
  return c.result();
}

int brelo_wanGetIpv6PrefixPltime(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6PrefixPltime");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6PrefixVltime(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6PrefixVltime");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6DefaultGateway(int pvc, int entry, char *out) {
  Call c("brelo_wanGetIpv6DefaultGateway");
  c.text(out, 64);
  return c.result();
}

int brelo_wanGetIpv6DsliteEnable(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6DsliteEnable");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6AftrMode(int pvc, int entry, int *out) {
  Call c("brelo_wanGetIpv6AftrMode");
  c.number(out);
  return c.result();
}

int brelo_wanGetIpv6AftrAddress(int pvc, int entry, char *out) {
  Call c("brelo_wanGetIpv6AftrAddress");
  c.text(out, 120);
  return c.result();
}

int brelo_wanGetServiceList(int pvc, int entry, char *out) {
  Call c("brelo_wanGetServiceList");
  c.text(out, 128);
  return c.result();
}

int brelo_wanAddIf(char *vlanMode, char *vlanIdMark, char *connectionType) {
  Call c("brelo_wanAddIf");
  // vlanMode: an input
  // vlanIdMark: an input
  // connectionType: an input
  return c.result();
}

int brelo_wanParseIfInfoParam(const char *json, WanChangeRecord *rec) {
  Call c("brelo_wanParseIfInfoParam");
  c.record(rec, sizeof *rec);
  return c.result();
}


int brelo_wanDeleteIf(int wanIndex) {
  Call c("brelo_wanDeleteIf");
  return c.result();
}

int brelo_wlansetWLANSSIDSwitch(int ssidIndex, int flag) {
  Call c("brelo_wlansetWLANSSIDSwitch");
  return c.result();
}

int brelo_wlanSetSSIDAdvertisement(int ssidIndex, int flag) {
  Call c("brelo_wlanSetSSIDAdvertisement");
  return c.result();
}

int brelo_wlanSetWLANRadioSwitch(const char *radioType, int flag) {
  Call c("brelo_wlanSetWLANRadioSwitch");
  return c.result();
}

int brelo_wlanSetSecurity(int ssidIndex, const char *ssidName, const char *encrypt, const char *password) {
  Call c("brelo_wlanSetSecurity");
  return c.result();
}

int brelo_wlanSetWLANStandard(const char *radioType, const char *standard) {
  Call c("brelo_wlanSetWLANStandard");
  return c.result();
}

int brelo_wlansetWLANRadioChannel(const char *radioType, int channel) {
  Call c("brelo_wlansetWLANRadioChannel");
  return c.result();
}

int brelo_wlansetWLANRadioPower(const char *radioType, int transmitPower) {
  Call c("brelo_wlansetWLANRadioPower");
  return c.result();
}

int brelo_wlansetWLANRadioFrequencyWidth(const char *radioType, const char *frequencyWidth) {
  Call c("brelo_wlansetWLANRadioFrequencyWidth");
  return c.result();
}

int brelo_wlanstartWLANWPS(int ssidIndex) {
  Call c("brelo_wlanstartWLANWPS");
  return c.result();
}

int brelo_wlanstopWLANWPS(int ssidIndex) {
  Call c("brelo_wlanstopWLANWPS");
  return c.result();
}

int brelo_wlansetGuestSSIDIndex(int ssidIndex) {
  Call c("brelo_wlansetGuestSSIDIndex");
  return c.result();
}

int brelo_wlandelGuestSSID(int ssidIndex) {
  Call c("brelo_wlandelGuestSSID");
  return c.result();
}

int brelo_wlansetGuestPortIsolation(int ssidIndex, int flag) {
  Call c("brelo_wlansetGuestPortIsolation");
  return c.result();
}

int brelo_wlansetGuestDuration(int ssidIndex, int duration) {
  Call c("brelo_wlansetGuestDuration");
  return c.result();
}

int brelo_wlanGetSSIDInfo(int ssidIndex, WlanSsidInfoRecord *rec) {
  Call c("brelo_wlanGetSSIDInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}

int brelo_wlanGetSSIDStats(int ssidIndex, WlanSsidStatsRecord *rec) {
  Call c("brelo_wlanGetSSIDStats");
  c.record(rec, sizeof *rec);
  return c.result();
}

int brelo_wlanGetWPSStatus(int ssidIndex) {
  Call c("brelo_wlanGetWPSStatus");
  return c.result();
}

int brelo_wlanGetRadioSwitch(const char *radioType) {
  Call c("brelo_wlanGetRadioSwitch");
  return c.result();
}

int brelo_wlanGetRadioInfo(int radio, WlanRadioInfoRecord *rec) {
  Call c("brelo_wlanGetRadioInfo");
  c.record(rec, sizeof *rec);
  return c.result();
}



int brelo_wlanGetSSIDPassword(int ssidIndex, char *buf) {
  Call c("brelo_wlanGetSSIDPassword");
  c.text(buf, WLAN_PASSWORD_SIZE);
  return c.result();
}

int checkIPDomainVaild(const char *text) {
  Call c("checkIPDomainVaild");
  return c.result();
}

int sc_check_ip6_format(const char *text) {
  Call c("sc_check_ip6_format");
  return c.result();
}

int strNull(const char *text) {
  Call c("strNull");
  return c.result();
}

// --- functions whose outputs depend on each other or hold pointers ----------------------

int brelo_lanSetDevMaxBandwidth(unsigned char *mac, int upLimit, int downLimit) {
  Call c("brelo_lanSetDevMaxBandwidth");
  return c.result();
}

int brelo_lanGetDevBandwidth(unsigned char *mac, int *upSpeed, int *downSpeed) {
  Call c("brelo_lanGetDevBandwidth");
  c.number(upSpeed);
  c.number(downSpeed);
  return c.result();
}

int brelo_wanSetIf(int wanIndex, WanChangeRecord *rec) {
  Call c("brelo_wanSetIf");
  return c.result();
}

int tcapi_get(const char *node, const char *attr, char *buf) {
  Call c("tcapi_get");
  c.tree_value(buf);
  return c.result();
}

int brelo_wlanGetNeighbor(int radio, WlanNeighborRecord *array, int *count) {
  Call c("brelo_wlanGetNeighbor");
  c.array(array, count, sizeof *array, WLAN_MAX_NEIGHBORS);
  return c.result();
}

int brelo_wlanGetHostInfo(WlanHostRecord *hosts, int *count, char (*macs)[128], int macCount) {
  Call c("brelo_wlanGetHostInfo");
  c.array(hosts, count, sizeof *hosts, WLAN_MAX_HOSTS);
  return c.result();
}

// *count bytes are wanted; the platform fills at most that many and may change the count.
int brelo_usbRead(int lead1, int lead2, int lead3, int handle, char *buf, int *count,
                  int timeout) {
  Call c("brelo_usbRead");
  if (*count > 0) c.text(buf, static_cast<size_t>(*count));
  c.number(count);
  return c.result();
}

int brelo_usbWrite(int lead1, int lead2, int lead3, int handle, char *buf, int *length) {
  Call c("brelo_usbWrite");
  return c.result();
}

// The hop array has res->hop_count records (or is NULL).
int brelo_getTraceRouteDiagnosticsResult(TraceRouteResult *res, TraceRouteHop **hops) {
  Call c("brelo_getTraceRouteDiagnosticsResult");
  c.record(res, sizeof *res);
  int count = 0;
  c.list(reinterpret_cast<void **>(hops), &count, sizeof(TraceRouteHop));
  if (c.fault() != rawplatform::kFillFF && c.fault() != rawplatform::kFillA)
    res->hop_count = count;
  return c.result();
}

// A chain of malloc()ed nodes; the receiver frees each.
int brelo_voipGetLineInfo(int line, PotsLineNode **list) {
  Call c("brelo_voipGetLineInfo");
  bool null_list = false;
  int count = 0;
  int nodes = c.pointer_list(&count, &null_list);
  PotsLineNode *head = nullptr;
  for (int i = 0; i < nodes && !null_list; ++i) {
    PotsLineNode *n = static_cast<PotsLineNode *>(calloc(1, sizeof(PotsLineNode)));
    c.record(n->phone_number, sizeof n->phone_number);
    n->status = c.word();
    n->next = head;
    head = n;
  }
  *list = head;
  return c.result();
}

// Arrays of rules whose texts are malloc()ed one by one (NULL possible).
int brelo_getForwardRuleInfo(ForwardRule **list, int *count) {
  Call c("brelo_getForwardRuleInfo");
  bool null_list = false;
  int n = c.pointer_list(count, &null_list);
  ForwardRule *rules = nullptr;
  if (!null_list) {
    rules = static_cast<ForwardRule *>(calloc(n > 0 ? n : 1, sizeof(ForwardRule)));
    for (int i = 0; i < n; ++i) {
      rules[i].remote_address = c.heap_text();
      rules[i].remote_port = c.heap_text();
      rules[i].protocol = c.heap_text();
      rules[i].host_mac = c.heap_text();
      rules[i].forward_to_ip = c.heap_text();
      rules[i].forward_to_port = c.word();
    }
  }
  *list = rules;
  return c.result();
}

// The second list stays the platform's: the caller never frees it, so it is a static text.
int brelo_getHTTPTrafficProcessRuleInfo(HttpTrafficProcessRule **list, int *count) {
  Call c("brelo_getHTTPTrafficProcessRuleInfo");
  static char second_list[] = "platform";
  bool null_list = false;
  int n = c.pointer_list(count, &null_list);
  HttpTrafficProcessRule *rules = nullptr;
  if (!null_list) {
    rules = static_cast<HttpTrafficProcessRule *>(
        calloc(n > 0 ? n : 1, sizeof(HttpTrafficProcessRule)));
    for (int i = 0; i < n; ++i) {
      rules[i].remote_address = c.heap_text();
      rules[i].remote_port = c.word();
      rules[i].direction = c.heap_text();
      rules[i].host_mac = c.heap_text();
      rules[i].method_list = c.heap_text();
      rules[i].second_list = c.fault() == rawplatform::kNullNext ? nullptr : second_list;
      rules[i].header_list = c.heap_text();
      rules[i].bundle_name = c.heap_text();
    }
  }
  *list = rules;
  return c.result();
}

int brelo_getTrafficInfoByFlow(int flowId, FlowTrafficItem **array, int *count) {
  Call c("brelo_getTrafficInfoByFlow");
  bool null_list = false;
  int n = c.pointer_list(count, &null_list);
  FlowTrafficItem *items = nullptr;
  if (!null_list) {
    items = static_cast<FlowTrafficItem *>(calloc(n > 0 ? n : 1, sizeof(FlowTrafficItem)));
    for (int i = 0; i < n; ++i) {
      items[i].remote_address = c.heap_text();
      items[i].remote_port = c.heap_text();
    }
  }
  *array = items;
  return c.result();
}

}  // extern "C"
