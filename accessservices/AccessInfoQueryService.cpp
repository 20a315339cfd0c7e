// com.lumarest.smartgateway.accessservices.AccessInfoQueryServiceImp: read-only state of the
// PON access line (optical levels, uptime, registration, uplink counters) and of the WAN
// connections (list, counters, configuration, bandwidth, connection state, Internet WAN).
#include <stdio.h>
#include <stdlib.h>

#include "common/hardened.h"
#include "common/native.h"
#include "common/platform_list.h"
#include "common/platform_pon.h"
#include "common/platform_wan.h"

namespace {

// Platform codes and their JSON texts, indexed by the code itself.
const char *const kPonRegisterStates[] = {"NO_REG_NO_AUTH", "REG_NO_AUTH", "REG_AUTH"};
const char *const kConnectionTypes[] = {"",           "IP_Routed",    "IP_Bridged",
                                        "PPPoE_Bridged", "PPPoE_Routed", "PPPoE_Hybrid"};
const char *const kAddressingTypes[] = {"", "DHCP", "Static"};
const char *const kConnectionTriggers[] = {"", "AlwaysOn", "OnDemand", "Manual"};
const char *const kIpv6AddressOrigins[] = {"None", "DHCPv6", "AutoConfigured", "Static"};
const char *const kIpv6PrefixOrigins[] = {"None", "PrefixDelegation", "RouterAdvertisement",
                                          "Static"};
const char *const kConnectionStatuses[] = {"Unconfigured", "Connecting", "Connected",
                                           "Disconnected"};
const char *const kLastConnectionErrors[] = {"ERROR_NONE",
                                             "ERROR_UNKNOWN",
                                             "ERROR_AUTHENTICATION_FAILURE",
                                             "ERROR_ISP_TIME_OUT",
                                             "ERROR_SERVER_OUT_OF_RESOURCES",
                                             "ERROR_ISP_DISCONNECT"};

// The text of `code`; a code the table does not know reads as the empty text, never as
// memory beyond the table.
template <size_t N>
const char *table_text(const char *const (&table)[N], int code) {
  return code >= 0 && static_cast<size_t>(code) < N ? table[code] : "";
}

// The configuration of one WAN connection as the information reply shows it (zeroed whole
// before use). Every member is a NUL-terminated text of the capacity the reply was designed
// around; numbers and flags are stored as their texts.
struct WanIfInfoRecord {
  char lan_interface[128];
  char vlan_mode[4];
  char vlan_id_mark[20];
  char priority_8021p[20];
  char multicast_vlan[16];
  char lan_dhcp_enable[8];
  char ip_mode[16];
  char connection_type[64];
  char nat_enabled[12];
  char username[64];
  char addressing_type[8];
  char external_ip_address[32];
  char subnet_mask[32];
  char default_gateway[32];
  char dns_enabled[8];
  char dns_servers[65];
  char mac_address[64];
  char connection_trigger[32];
  char ipv6_address_origin[33];
  char ipv6_address[64];
  char ipv6_dns_servers[129];
  char ipv6_prefix_delegation_enabled[10];
  char ipv6_prefix_origin[32];
  char ipv6_prefix[65];
  char ipv6_prefix_pltime[32];
  char ipv6_prefix_vltime[32];
  char ipv6_default_gateway[64];
  char ipv6_dslite_enable[10];
  char ipv6_aftr_mode[10];
  char ipv6_aftr_address[120];
  char service_list[128];
};
static_assert(sizeof(WanIfInfoRecord) == 1354, "WanIfInfoRecord is 1354 bytes");

typedef int (*WanTextGetter)(int pvc, int entry, char *out);
typedef int (*WanIntGetter)(int pvc, int entry, int *out);

// A text member. The platform's text getters take no size: each writes into a zeroed scratch
// buffer far larger than any member, and the text is then cut at the member's capacity, so an
// over-long platform text never runs into the next member or past the record.
template <size_t N>
void fill_text(char (&member)[N], WanTextGetter getter, int pvc, int entry) {
  bundle::PlatformText<512> scratch;
  getter(pvc, entry, scratch.out());  // result not examined
  snprintf(member, N, "%s", scratch.text());
}

// The int a getter reports; a getter that writes nothing leaves 0.
int get_int(WanIntGetter getter, int pvc, int entry) {
  int value = 0;
  getter(pvc, entry, &value);  // result not examined
  return value;
}

template <size_t N>
void fill_number(char (&member)[N], int value) {
  snprintf(member, N, "%d", value);  // cut at the member's capacity, like every member
}

template <size_t N>
void fill_flag(char (&member)[N], WanIntGetter getter, int pvc, int entry) {
  snprintf(member, N, "%s", get_int(getter, pvc, entry) == 1 ? "TRUE" : "FALSE");
}

template <size_t N, size_t T>
void fill_code(char (&member)[N], const char *const (&table)[T], WanIntGetter getter, int pvc,
               int entry) {
  snprintf(member, N, "%s", table_text(table, get_int(getter, pvc, entry)));
}

void fill_info(WanIfInfoRecord *info, int pvc, int entry) {
  fill_text(info->lan_interface, brelo_wanGetLanInterface, pvc, entry);
  fill_number(info->vlan_mode, get_int(brelo_wanGetVlanMode, pvc, entry));
  fill_number(info->vlan_id_mark, get_int(brelo_wanGetVlanIdMark, pvc, entry));
  fill_number(info->priority_8021p, get_int(brelo_wanGet802_1p_priority, pvc, entry));
  // No multicast VLAN (0) is shown as -1.
  int multicast_vlan = get_int(brelo_wanGetMulticastVlan, pvc, entry);
  fill_number(info->multicast_vlan, multicast_vlan == 0 ? -1 : multicast_vlan);
  fill_flag(info->lan_dhcp_enable, brelo_wanGetDhcpEnable, pvc, entry);
  fill_number(info->ip_mode, get_int(brelo_wanGetIpMode, pvc, entry));
  fill_code(info->connection_type, kConnectionTypes, brelo_wanGetConnectionType, pvc, entry);
  fill_flag(info->nat_enabled, brelo_wanGetNatEnabled, pvc, entry);
  fill_text(info->username, brelo_wanGetUsername, pvc, entry);
  fill_code(info->addressing_type, kAddressingTypes, brelo_wanGetAddressingType, pvc, entry);
  fill_text(info->external_ip_address, brelo_wanGetExternalIpAddress, pvc, entry);
  fill_text(info->subnet_mask, brelo_wanGetSubnetMask, pvc, entry);
  fill_text(info->default_gateway, brelo_wanGetDefaultGateway, pvc, entry);
  fill_flag(info->dns_enabled, brelo_wanGetDnsEnabled, pvc, entry);
  fill_text(info->dns_servers, brelo_wanGetDnsServers, pvc, entry);
  fill_text(info->mac_address, brelo_wanGetMacAddress, pvc, entry);
  fill_code(info->connection_trigger, kConnectionTriggers, brelo_wanGetConnectionTrigger, pvc,
            entry);
  fill_code(info->ipv6_address_origin, kIpv6AddressOrigins, brelo_wanGetIpv6AddressOrigin, pvc,
            entry);
  fill_text(info->ipv6_address, brelo_wanGetIpv6IpAddress, pvc, entry);
  fill_text(info->ipv6_dns_servers, brelo_wanGetIpv6DnsServers, pvc, entry);
  fill_flag(info->ipv6_prefix_delegation_enabled, brelo_wanGetIpv6PrefixDelegationEnabled, pvc,
            entry);
  fill_code(info->ipv6_prefix_origin, kIpv6PrefixOrigins, brelo_wanGetIpv6PrefixOrigin, pvc,
            entry);
  fill_text(info->ipv6_prefix, brelo_wanGetIpv6Prefix, pvc, entry);
  fill_number(info->ipv6_prefix_pltime, get_int(brelo_wanGetIpv6PrefixPltime, pvc, entry));
  fill_number(info->ipv6_prefix_vltime, get_int(brelo_wanGetIpv6PrefixVltime, pvc, entry));
  fill_text(info->ipv6_default_gateway, brelo_wanGetIpv6DefaultGateway, pvc, entry);
  fill_flag(info->ipv6_dslite_enable, brelo_wanGetIpv6DsliteEnable, pvc, entry);
  // The AFTR mode is a digit, not a flag word.
  snprintf(info->ipv6_aftr_mode, sizeof info->ipv6_aftr_mode, "%s",
           get_int(brelo_wanGetIpv6AftrMode, pvc, entry) == 1 ? "1" : "0");
  fill_text(info->ipv6_aftr_address, brelo_wanGetIpv6AftrAddress, pvc, entry);
  fill_text(info->service_list, brelo_wanGetServiceList, pvc, entry);
}

typedef int (*WanStatusGetter)(int *out, int pvc, int entry);

// The int a status getter reports (output first); 0 when it writes nothing.
int get_status(WanStatusGetter getter, int pvc, int entry) {
  int value = 0;
  getter(&value, pvc, entry);  // result not examined
  return value;
}

const char kParameterError[] = "{\"Result\":-1,\"FailReason\":\"parameter error\"}";

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfPhyStatusJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  PonPhyStatusRecord phy;
  memset(&phy, 0, sizeof phy);
  brelo_ponGetIfPhyStatusInfo(&phy);  // result not examined: the reply is always Result 0

  reply.append("{\"Result\":0,\"TXPower\":%d,\"RXPower\":%d,\"TransceiverTemperature\":%d,",
               static_cast<int>(phy.tx_power), static_cast<int>(phy.rx_power),
               static_cast<int>(phy.temperature));
  // "SupplyVottage" is the wire name Java bundles read; it is spelt so on purpose.
  reply.append("\"SupplyVottage\":%d,\"BiasCurrent\":%d}", static_cast<int>(phy.supply_voltage),
               static_cast<int>(phy.bias_current));

  BUNDLE_TRACE("getPONIfPhyStatusJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfUpTimeJni(
    JNIEnv *, jobject) {
  int uptime = brelo_ponGetDuration();
  BUNDLE_TRACE("getPONIfUpTimeJni: return code = %d   leave============>\n", uptime);
  return uptime;
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfRegisterStatusJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  int state = brelo_ponGetRegInfo();
  reply.append("{\"Result\":0,\"RegisterStatus\":\"%s\"}", table_text(kPonRegisterStates, state));
  BUNDLE_TRACE("getPONIfRegisterStatusJni: return json = %s   leave============>\n",
               reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getUplinkIfStatsJni(
    JNIEnv *env, jobject) {
  bundle::Reply<64> reply;
  unsigned long long us = 0, ds = 0;
  brelo_ponGetUplinkIfStats(&us, &ds);  // result not examined
  reply.append("{\"Result\":0,\"UsStats\":%llu,\"DsStats\":%llu}", us, ds);
  BUNDLE_TRACE("getUplinkIfStatsJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  WanIfListRecord *list = nullptr;
  int count = 0;
  int rc = brelo_wanGetIfList(&list, &count);
  count = bundle::platform_list_count(list, count);

  if (list == nullptr) {
    // Nothing was handed over: nothing to free, and no trace on this path.
    reply.append("%s", "{\"Result\":-1,\"FailReason\":\"parameter NULL\"}");
    return bundle::new_reply_string(env, reply.c_str());
  }

  if (rc != 0) {
    reply.append("%s", "{\"Result\":-1,\"FailReason\":\"parameter NULL\"}");
  } else {
    reply.append("%s", "{\"Result\":0,\"List\":[");
    int printed = 0;
    // Ordered by WAN index, not by the platform's order; only indexes 1..8 are shown.
    for (int index = 1; index <= 8; ++index) {
      for (int i = 0; i < count; ++i) {
        if (list[i].index != index) continue;
        // The hardened profile separates the elements shown, so the list stays valid JSON.
        if (bundle::hardened_profile() && printed > 0) reply.append("%s", ",");
        // The name is read within its 32-byte field even when the platform filled it whole.
        reply.append("{\"Index\":%d,\"Name\":\"%.32s\"}", index, list[i].name);
        ++printed;
        // The separator follows the platform's count, not the number of elements shown: an
        // element outside 1..8 or a repeated index leaves a trailing comma before "]}" (kept
        // on purpose in the default profile, Java has always read it so).
        if (!bundle::hardened_profile() && count > printed) reply.append("%s", ",");
        break;
      }
    }
    reply.append("%s", "]}");
  }

  BUNDLE_TRACE("getWANIfListJni: return json = %s   leave============>\n", reply.c_str());
  jstring result = bundle::new_reply_string(env, reply.c_str());
  free(list);  // also after a failed call, once the reply is made
  return result;
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatsJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::Reply<1024> reply;
  unsigned long long us = 0, ds = 0;
  if (brelo_wanGetIfPackageStats(wanIndex, &us, &ds) != 0) {
    reply.append("%s", kParameterError);
  } else {
    reply.append("{\"Result\":0,\"UsStats\":%llu,\"DsStats\":%llu}", us, ds);
  }
  BUNDLE_TRACE("getWANIfStatsJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::Reply<4096> reply;
  int pvc = 0, entry = 0;
  if (brelo_wanGetPvcEntryIndex(wanIndex, &pvc, &entry) == -1) {
    reply.append("%s", kParameterError);
    BUNDLE_TRACE("getWANIfInfoJni: return json = %s   leave============>\n", reply.c_str());
    return bundle::new_reply_string(env, reply.c_str());
  }

  WanIfInfoRecord info;
  memset(&info, 0, sizeof info);
  fill_info(&info, pvc, entry);

  // Every member is a JSON string, numbers included; texts go in as the platform gave them.
  reply.append("{\"Result\":0,\"LanInterface\":\"%s\",\"VLANMode\":\"%s\",", info.lan_interface,
               info.vlan_mode);
  reply.append("\"VLANIDMark\":\"%s\",\"802-1pMark\":\"%s\",", info.vlan_id_mark,
               info.priority_8021p);
  reply.append("\"MulticastVlan\":\"%s\",\"LanInterface-DHCPEnable\":\"%s\",", info.multicast_vlan,
               info.lan_dhcp_enable);
  reply.append("\"IPMode\":\"%s\",\"ConnectionType\":\"%s\",", info.ip_mode, info.connection_type);
  reply.append("\"NATEnabled\":\"%s\",\"Username\":\"%s\",", info.nat_enabled, info.username);
  reply.append("\"AddressingType\":\"%s\",\"ExternalIPAddress\":\"%s\",", info.addressing_type,
               info.external_ip_address);
  reply.append("\"SubnetMask\":\"%s\",\"DefaultGateway\":\"%s\",", info.subnet_mask,
               info.default_gateway);
  reply.append("\"DNSEnabled\":\"%s\",\"DNSServers\":\"%s\",", info.dns_enabled, info.dns_servers);
  reply.append("\"MACAddress\":\"%s\",\"ConnectionTrigger\":\"%s\",", info.mac_address,
               info.connection_trigger);
  reply.append("\"IPv6IPAddressOrigin\":\"%s\",\"IPv6IPAddress\":\"%s\",",
               info.ipv6_address_origin, info.ipv6_address);
  reply.append("\"IPv6DNSServers\":\"%s\",\"IPv6PrefixDelegationEnabled\":\"%s\",",
               info.ipv6_dns_servers, info.ipv6_prefix_delegation_enabled);
  reply.append("\"IPv6PrefixOrigin\":\"%s\",\"IPv6Prefix\":\"%s\",", info.ipv6_prefix_origin,
               info.ipv6_prefix);
  reply.append("\"IPv6PrefixPltime\":\"%s\",\"IPv6PrefixVltime\":\"%s\",", info.ipv6_prefix_pltime,
               info.ipv6_prefix_vltime);
  reply.append("\"IPv6DefaultGateway\":\"%s\",\"IPv6DsliteEnable\":\"%s\",",
               info.ipv6_default_gateway, info.ipv6_dslite_enable);
  reply.append("\"IPv6AftrMode\":\"%s\",\"IPv6AftrAddress\":\"%s\",\"ServiceList\":\"%s\"}",
               info.ipv6_aftr_mode, info.ipv6_aftr_address, info.service_list);

  BUNDLE_TRACE("getWANIfInfoJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWanIfBandwidthJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::PlatformText<128> us;
  bundle::PlatformText<128> ds;
  bundle::Reply<1024> reply;
  if (wanIndex < 1) {
    // Index 1 itself is accepted; the message's wording is the one Java bundles know.
    reply.append("%s",
                 "{\"Result\":-1,\"FailReason\":\"parameter WanIndex must greater than 1\"}");
  } else {
    brelo_wanGetIfBandwidth(wanIndex, us.out(), ds.out());  // result not examined
    reply.append("{\"Result\":0,\"UsBandwidth\":\"%s\",\"DsBandwidth\":\"%s\"}", us.text(),
                 ds.text());
  }
  BUNDLE_TRACE("getWanIfBandwidthJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatusJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::Reply<4096> reply;
  int pvc = 0, entry = 0;
  if (brelo_wanGetPvcEntryIndex(wanIndex, &pvc, &entry) == -1) {
    reply.append("%s", kParameterError);
    BUNDLE_TRACE("getWANIfStatusJni: return json = %s   leave============>\n", reply.c_str());
    return bundle::new_reply_string(env, reply.c_str());
  }

  // The four texts of the reply, 400 bytes in all.
  struct {
    char uptime[16];
    char ipv4_status[64];
    char ipv6_status[64];
    char last_error[256];
  } status;
  static_assert(sizeof status == 400, "status texts are 400 bytes");
  memset(&status, 0, sizeof status);

  snprintf(status.uptime, sizeof status.uptime, "%d",
           get_status(brelo_wanGetUptime, pvc, entry));
  snprintf(status.ipv4_status, sizeof status.ipv4_status, "%s",
           table_text(kConnectionStatuses, get_status(brelo_wanGetIpv4ConnStatus, pvc, entry)));
  snprintf(status.ipv6_status, sizeof status.ipv6_status, "%s",
           table_text(kConnectionStatuses, get_status(brelo_wanGetIpv6ConnStatus, pvc, entry)));
  snprintf(status.last_error, sizeof status.last_error, "%s",
           table_text(kLastConnectionErrors,
                      get_status(brelo_wanGetLastConnectionError, pvc, entry)));

  reply.append("{\"Result\":0,\"Uptime\":\"%s\",\"ConnectionStatus\":\"%s\",", status.uptime,
               status.ipv4_status);
  reply.append("\"IPv6ConnStatus\":\"%s\",\"LastConnectionError\":\"%s\"}", status.ipv6_status,
               status.last_error);

  BUNDLE_TRACE("getWANIfStatusJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getInternetWANIndexJni(
    JNIEnv *, jobject) {
  int index = brelo_wanGetInternetWANIndex();
  BUNDLE_TRACE("getInternetWANIndexJni: return code = %d   leave============>\n", index);
  return index;
}

}  // extern "C"
