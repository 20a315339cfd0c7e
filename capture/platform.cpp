#include "capture/platform.h"

namespace capture {
namespace {

const char *const kReadNames[] = {
#define CAPTURE_NAME(fn, key) #fn,
    CAPTURE_READS(CAPTURE_NAME)
#undef CAPTURE_NAME
};
static_assert(sizeof kReadNames / sizeof kReadNames[0] == kReadCount, "one name per function");

}  // namespace

const char *read_name(int fn) { return fn >= 0 && fn < kReadCount ? kReadNames[fn] : "?"; }

const char *const kOtherFunctions[] = {
    // LAN hosts, names, lists, speed limits, Ethernet ports
    "brelo_sysSetGatewayName", "brelo_lanSetLanHostName", "brelo_lanSetDevMaxBandwidth",
    "brelo_lanSetFilterMode", "brelo_lanSetLanDevAccessPermission",
    "brelo_lanSetStorageDevAccessPermission", "brelo_macClearFromList",
    "brelo_setLANEthernetEnable", "brelo_setLANEthernetMaxBitRate",
    "brelo_setLANEthernetDuplexMode",
    // WLAN
    "brelo_wlansetWLANSSIDSwitch", "brelo_wlanSetSSIDAdvertisement",
    "brelo_wlanSetWLANRadioSwitch", "brelo_wlanSetSecurity", "brelo_wlanSetWLANStandard",
    "brelo_wlansetWLANRadioChannel", "brelo_wlansetWLANRadioPower",
    "brelo_wlansetWLANRadioFrequencyWidth", "brelo_wlanstartWLANWPS", "brelo_wlanstopWLANWPS",
    "brelo_wlansetGuestSSIDIndex", "brelo_wlandelGuestSSID", "brelo_wlansetGuestPortIsolation",
    "brelo_wlansetGuestDuration",
    // WAN and diagnostics
    "brelo_wanAddIf", "brelo_wanParseIfInfoParam", "brelo_wanSetIf", "brelo_wanDeleteIf",
    "brelo_startIPPingDiagnostics", "brelo_startTraceRouteDiagnostics",
    "brelo_startHttpSpeedTestDiagnostics",
    // LAN address, configuration tree
    "brelo_lanSetLanHostIP", "brelo_lanSetLANDHCPInfo", "tcapi_set", "tcapi_unset",
    "tcapi_save", "brelo_tcapi_commit", "brelo_tcapi_delay_commit",
    // USB, access rights, registration, reset, LED
    "brelo_usbRegister", "brelo_usbUnregister", "brelo_usbLock", "brelo_usbUnlock",
    "brelo_usbOpen", "brelo_usbClose", "brelo_usbDataAvailable", "brelo_usbRead",
    "brelo_usbWrite", "brelo_usbSetSerial", "brelo_setFTPRight", "brelo_setHTTPRight",
    "brelo_addFTPAccount", "brelo_deleteFTPAccount", "brelo_deleteAllFTPAccount",
    "brelo_setHTTPUserPassword", "brelo_addSambaAccount", "brelo_deleteSambaAccount",
    "brelo_deleteAllSambaAccount", "brelo_passwordSetRegistration", "brelo_reset",
    "brelo_ledSetSwitch",
    // address checks of the gateway's libraries
    "checkIPDomainVaild", "sc_check_ip6_format", "strNull",
    // forward and HTTP rules, flows, routes, VLAN bindings, VPN, VoIP
    "brelo_addForwardRule", "brelo_deleteForwardRule", "brelo_deleteAllForwardRule",
    "brelo_addHTTPTrafficProcessRule", "brelo_deleteHTTPTrafficProcessRule",
    "brelo_deleteAllHTTPTrafficProcessRule", "brelo_addTrafficToFlow",
    "brelo_deleteTrafficFromFlow", "brelo_deleteAllTrafficFromFlow", "brelo_setSpeedLimitByFlow",
    "brelo_setDSCPRemarkByFlow", "brelo_routeAddIp4ForwardingStatic",
    "brelo_routeAddIp6ForwardingStatic", "brelo_routeDeleteIp4ForwardingStatic",
    "brelo_routeDeleteIp6ForwardingStatic", "brelo_setVLANBind", "brelo_clearVLANBind",
    "brelo_vpnOn", "brelo_vpnOff", "brelo_subscribeVoIPEvent", "brelo_unSubscribeVoIPEvent",
    nullptr,
};

int resolve(Platform *p, Lookup lookup, void *ctx, const char **missing, int room) {
  int count = 0;
  auto note = [&](const char *name) {
    if (missing != nullptr && count < room) missing[count] = name;
    ++count;
  };
#define CAPTURE_RESOLVE(fn, key)                                              \
  p->fn = reinterpret_cast<decltype(&::fn)>(lookup(#fn, ctx)); \
  if (p->fn == nullptr) note(#fn);
  CAPTURE_READS(CAPTURE_RESOLVE)
#undef CAPTURE_RESOLVE
  for (const char *const *name = kOtherFunctions; *name != nullptr; ++name)
    if (lookup(*name, ctx) == nullptr) note(*name);
  return count;
}

}  // namespace capture
