// The JSON names of a WAN connection's members, in the order both the information reply
// (AccessInfoQueryService, whose record has no "Password") and the change record's trace
// (WanConfigService, whose record has no "ConnectionType") list them, packed once for both.
#ifndef BUNDLE_ACCESSSERVICES_WAN_MEMBERS_H
#define BUNDLE_ACCESSSERVICES_WAN_MEMBERS_H

#include <string.h>

namespace bundle {

inline constexpr char kWanMemberNames[] =
    "LanInterface\0VLANMode\0VLANIDMark\0" "802-1pMark\0MulticastVlan\0LanInterface-DHCPEnable\0"
    "IPMode\0ConnectionType\0NATEnabled\0Username\0Password\0AddressingType\0ExternalIPAddress\0"
    "SubnetMask\0DefaultGateway\0DNSEnabled\0DNSServers\0MACAddress\0ConnectionTrigger\0"
    "IPv6IPAddressOrigin\0IPv6IPAddress\0IPv6DNSServers\0IPv6PrefixDelegationEnabled\0"
    "IPv6PrefixOrigin\0IPv6Prefix\0IPv6PrefixPltime\0IPv6PrefixVltime\0IPv6DefaultGateway\0"
    "IPv6DsliteEnable\0IPv6AftrMode\0IPv6AftrAddress\0ServiceList";

// The name after `name` in kWanMemberNames; with `absent`, a name equal to it (the one member
// the caller's record does not have) is passed over first.
inline const char *wan_member_after(const char *name) { return name + strlen(name) + 1; }
inline const char *wan_member_present(const char *name, const char *absent) {
  return strcmp(name, absent) == 0 ? wan_member_after(name) : name;
}

}  // namespace bundle

#endif
