// com.lumarest.smartgateway.accessservices.AccessInfoQueryServiceImp: read-only state of the
// PON access line (optical levels, uptime, registration, uplink counters) and of the WAN
// connections (list, counters, configuration, bandwidth, connection state, Internet WAN).
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "accessservices/wan_members.h"
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_list.h"
#include "common/platform_pon.h"
#include "common/platform_wan.h"
#include "common/text_table.h"

namespace {

// Platform codes and their JSON texts, indexed by the code itself (common/text_table.h); a
// code a table does not know reads as the empty text.
using bundle::table_text;
const char kPonRegisterStates[] = "NO_REG_NO_AUTH\0REG_NO_AUTH\0REG_AUTH";
const char kConnectionTypes[] =
    "\0IP_Routed\0IP_Bridged\0PPPoE_Bridged\0PPPoE_Routed\0PPPoE_Hybrid";
const char kAddressingTypes[] = "\0DHCP\0Static";
const char kConnectionTriggers[] = "\0AlwaysOn\0OnDemand\0Manual";
const char kIpv6AddressOrigins[] = "None\0DHCPv6\0AutoConfigured\0Static";
const char kIpv6PrefixOrigins[] = "None\0PrefixDelegation\0RouterAdvertisement\0Static";
const char kConnectionStatuses[] = "Unconfigured\0Connecting\0Connected\0Disconnected";
const char kLastConnectionErrors[] =
    "ERROR_NONE\0ERROR_UNKNOWN\0ERROR_AUTHENTICATION_FAILURE\0ERROR_ISP_TIME_OUT\0"
    "ERROR_SERVER_OUT_OF_RESOURCES\0ERROR_ISP_DISCONNECT";

// The configuration of one WAN connection as the information reply shows it. Every member is
// a NUL-terminated text of the capacity the reply was designed around, each written whole by
// fill_info; numbers and flags are stored as their texts.
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

// The int a getter reports; a getter that writes nothing leaves 0.
int get_int(WanIntGetter getter, int pvc, int entry) {
  int value = 0;
  getter(pvc, entry, &value);  // result not examined
  return value;
}

// How a member of the information record is filled from its platform getter.
enum InfoKind : uint8_t {
  kInfoText,       // the platform's text
  kInfoNumber,     // the number, as its text
  kInfoVlan,       // the number; no multicast VLAN (0) is shown as -1
  kInfoFlag,       // 1 is "TRUE", anything else "FALSE"
  kInfoDigitFlag,  // 1 is "1", anything else "0" (the AFTR mode is a digit, not a flag word)
  kInfoCode,       // the code's text in the packed table `codes`
};

// A getter of either kind, called as the kind of its member says.
typedef void (*WanGetter)();

struct InfoField {
  uint16_t offset;  // of the member in WanIfInfoRecord
  uint8_t size;     // the member's capacity
  uint8_t kind;     // InfoKind
  uint8_t codes_size;
  WanGetter getter;  // a WanTextGetter for kInfoText, a WanIntGetter otherwise
  const char *codes;
};

#define INFO_TEXT(member, getter)                                                            \
  {offsetof(WanIfInfoRecord, member), sizeof(WanIfInfoRecord::member), kInfoText, 0,         \
   reinterpret_cast<WanGetter>(static_cast<WanTextGetter>(getter)), nullptr}
#define INFO_INT(member, kind, getter)                                                       \
  {offsetof(WanIfInfoRecord, member), sizeof(WanIfInfoRecord::member), kind, 0,              \
   reinterpret_cast<WanGetter>(static_cast<WanIntGetter>(getter)), nullptr}
#define INFO_CODE(member, codes, getter)                                                     \
  {offsetof(WanIfInfoRecord, member), sizeof(WanIfInfoRecord::member), kInfoCode,            \
   sizeof(codes), reinterpret_cast<WanGetter>(static_cast<WanIntGetter>(getter)), codes}

// The members in the order the platform is asked for them.
const InfoField kInfoFields[] = {
    INFO_TEXT(lan_interface, brelo_wanGetLanInterface),
    INFO_INT(vlan_mode, kInfoNumber, brelo_wanGetVlanMode),
    INFO_INT(vlan_id_mark, kInfoNumber, brelo_wanGetVlanIdMark),
    INFO_INT(priority_8021p, kInfoNumber, brelo_wanGet802_1p_priority),
    INFO_INT(multicast_vlan, kInfoVlan, brelo_wanGetMulticastVlan),
    INFO_INT(lan_dhcp_enable, kInfoFlag, brelo_wanGetDhcpEnable),
    INFO_INT(ip_mode, kInfoNumber, brelo_wanGetIpMode),
    INFO_CODE(connection_type, kConnectionTypes, brelo_wanGetConnectionType),
    INFO_INT(nat_enabled, kInfoFlag, brelo_wanGetNatEnabled),
    INFO_TEXT(username, brelo_wanGetUsername),
    INFO_CODE(addressing_type, kAddressingTypes, brelo_wanGetAddressingType),
    INFO_TEXT(external_ip_address, brelo_wanGetExternalIpAddress),
    INFO_TEXT(subnet_mask, brelo_wanGetSubnetMask),
    INFO_TEXT(default_gateway, brelo_wanGetDefaultGateway),
    INFO_INT(dns_enabled, kInfoFlag, brelo_wanGetDnsEnabled),
    INFO_TEXT(dns_servers, brelo_wanGetDnsServers),
    INFO_TEXT(mac_address, brelo_wanGetMacAddress),
    INFO_CODE(connection_trigger, kConnectionTriggers, brelo_wanGetConnectionTrigger),
    INFO_CODE(ipv6_address_origin, kIpv6AddressOrigins, brelo_wanGetIpv6AddressOrigin),
    INFO_TEXT(ipv6_address, brelo_wanGetIpv6IpAddress),
    INFO_TEXT(ipv6_dns_servers, brelo_wanGetIpv6DnsServers),
    INFO_INT(ipv6_prefix_delegation_enabled, kInfoFlag, brelo_wanGetIpv6PrefixDelegationEnabled),
    INFO_CODE(ipv6_prefix_origin, kIpv6PrefixOrigins, brelo_wanGetIpv6PrefixOrigin),
    INFO_TEXT(ipv6_prefix, brelo_wanGetIpv6Prefix),
    INFO_INT(ipv6_prefix_pltime, kInfoNumber, brelo_wanGetIpv6PrefixPltime),
    INFO_INT(ipv6_prefix_vltime, kInfoNumber, brelo_wanGetIpv6PrefixVltime),
    INFO_TEXT(ipv6_default_gateway, brelo_wanGetIpv6DefaultGateway),
    INFO_INT(ipv6_dslite_enable, kInfoFlag, brelo_wanGetIpv6DsliteEnable),
    INFO_INT(ipv6_aftr_mode, kInfoDigitFlag, brelo_wanGetIpv6AftrMode),
    INFO_TEXT(ipv6_aftr_address, brelo_wanGetIpv6AftrAddress),
    INFO_TEXT(service_list, brelo_wanGetServiceList),
};
static_assert(sizeof kInfoFields / sizeof kInfoFields[0] == 31, "31 members");

#undef INFO_TEXT
#undef INFO_INT
#undef INFO_CODE

// A text into a member of `size` bytes, cut at size - 1 and terminated.
void put_text(char *member, size_t size, const char *text) {
  size_t n = strnlen(text, size - 1);
  memcpy(member, text, n);
  member[n] = '\0';
}

// Every member is cut at its capacity. The platform's text getters take no size: each writes
// into a scratch buffer far larger than any member (zeroed as far as it is read back), and
// the text is then cut at the member's capacity, so an over-long platform text never runs
// into the next member or past the record.
void fill_info(WanIfInfoRecord *info, int pvc, int entry) {
  char *base = reinterpret_cast<char *>(info);
  for (const InfoField &field : kInfoFields) {
    char *member = base + field.offset;
    if (field.kind == kInfoText) {
      // Only the member's capacity is read back, so only that much of the scratch needs to be
      // zeroed for a text the platform leaves unterminated.
      char scratch[512];
      memset(scratch, 0, field.size);
      reinterpret_cast<WanTextGetter>(field.getter)(pvc, entry, scratch);  // result not examined
      put_text(member, field.size, scratch);
      continue;
    }
    int value = get_int(reinterpret_cast<WanIntGetter>(field.getter), pvc, entry);
    const char *text;
    switch (field.kind) {
      case kInfoFlag:
        text = value == 1 ? "TRUE" : "FALSE";
        break;
      case kInfoDigitFlag:
        text = value == 1 ? "1" : "0";
        break;
      case kInfoCode:
        text = table_text(field.codes, field.codes_size, value);
        break;
      default:
        if (field.kind == kInfoVlan && value == 0) value = -1;
        snprintf(member, field.size, "%d", value);
        continue;
    }
    put_text(member, field.size, text);
  }
}

typedef int (*WanStatusGetter)(int *out, int pvc, int entry);

// The int a status getter reports (output first); 0 when it writes nothing.
int get_status(WanStatusGetter getter, int pvc, int entry) {
  int value = 0;
  getter(&value, pvc, entry);  // result not examined
  return value;
}

const char kParameterError[] = "parameter error";  // the reason of BUNDLE_FAIL_REASON

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfPhyStatusJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  PonPhyStatusRecord phy;
  memset(&phy, 0, sizeof phy);
  brelo_ponGetIfPhyStatusInfo(&phy);  // result not examined: the reply is always Result 0

  // "SupplyVottage" is the wire name Java bundles read; it is spelt so on purpose.
  reply.append("{\"Result\":0,\"TXPower\":%d,\"RXPower\":%d,\"TransceiverTemperature\":%d,"
               "\"SupplyVottage\":%d,\"BiasCurrent\":%d}",
               static_cast<int>(phy.tx_power), static_cast<int>(phy.rx_power),
               static_cast<int>(phy.temperature), static_cast<int>(phy.supply_voltage),
               static_cast<int>(phy.bias_current));

  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfUpTimeJni(
    JNIEnv *, jobject) {
  int uptime = brelo_ponGetDuration();
  return BUNDLE_CODE_REPLY(uptime);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getPONIfRegisterStatusJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  int state = brelo_ponGetRegInfo();
  reply.append("{\"Result\":0,\"RegisterStatus\":\"%s\"}", table_text(kPonRegisterStates, state));
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getUplinkIfStatsJni(
    JNIEnv *env, jobject) {
  bundle::Reply<64> reply;
  unsigned long long us = 0, ds = 0;
  brelo_ponGetUplinkIfStats(&us, &ds);  // result not examined
  reply.append("{\"Result\":0,\"UsStats\":%llu,\"DsStats\":%llu}", us, ds);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
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
    reply.append(BUNDLE_FAIL_REASON, "parameter NULL");
    return bundle::new_reply_string(env, reply.c_str());
  }

  if (rc != 0) {
    reply.append(BUNDLE_FAIL_REASON, "parameter NULL");
  } else {
    reply.append("{\"Result\":0,\"List\":[");
    int printed = 0;
    // Ordered by WAN index, not by the platform's order; only indexes 1..8 are shown.
    for (int index = 1; index <= 8; ++index) {
      for (int i = 0; i < count; ++i) {
        if (list[i].index != index) continue;
        // The hardened profile separates the elements shown, so the list stays valid JSON.
        if (bundle::hardened_profile() && printed > 0) reply.append(",");
        // The name is read within its 32-byte field even when the platform filled it whole.
        reply.append("{\"Index\":%d,\"Name\":\"%.32s\"}", index, list[i].name);
        ++printed;
        // The separator follows the platform's count, not the number of elements shown: an
        // element outside 1..8 or a repeated index leaves a trailing comma before "]}" (kept
        // on purpose in the default profile, Java has always read it so).
        if (!bundle::hardened_profile() && count > printed) reply.append(",");
        break;
      }
    }
    reply.append("]}");
  }

  jstring result = BUNDLE_JSON_REPLY(env, reply.c_str());
  free(list);  // also after a failed call, once the reply is made
  return result;
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatsJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::Reply<1024> reply;
  unsigned long long us = 0, ds = 0;
  if (brelo_wanGetIfPackageStats(wanIndex, &us, &ds) != 0) {
    reply.append(BUNDLE_FAIL_REASON, kParameterError);
  } else {
    reply.append("{\"Result\":0,\"UsStats\":%llu,\"DsStats\":%llu}", us, ds);
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::Reply<4096> reply;
  int pvc = 0, entry = 0;
  if (brelo_wanGetPvcEntryIndex(wanIndex, &pvc, &entry) == -1) {
    reply.append(BUNDLE_FAIL_REASON, kParameterError);
  } else {
    WanIfInfoRecord info;  // every member written whole by fill_info
    fill_info(&info, pvc, entry);

    // Every member is a JSON string, numbers included; texts go in as the platform gave them.
    reply.append("{\"Result\":0,");
    // The members' names are bundle::kWanMemberNames, in the record's order.
    const char *name = bundle::kWanMemberNames;
    const char *base = reinterpret_cast<const char *>(&info);
    for (const InfoField &field : kInfoFields) {
      name = bundle::wan_member_present(name, "Password");
      reply.append("\"%s\":\"%s\"%s", name, base + field.offset,
                   &field == &kInfoFields[30] ? "}" : ",");
      name = bundle::wan_member_after(name);
    }
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWanIfBandwidthJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::PlatformText<128> us;
  bundle::PlatformText<128> ds;
  bundle::Reply<1024> reply;
  if (wanIndex < 1) {
    // Index 1 itself is accepted; the message's wording is the one Java bundles know.
    reply.append(BUNDLE_FAIL_REASON, "parameter WanIndex must greater than 1");
  } else {
    brelo_wanGetIfBandwidth(wanIndex, us.out(), ds.out());  // result not examined
    reply.append("{\"Result\":0,\"UsBandwidth\":\"%s\",\"DsBandwidth\":\"%s\"}", us.text(),
                 ds.text());
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfStatusJni(
    JNIEnv *env, jobject, jint wanIndex) {
  bundle::Reply<4096> reply;
  int pvc = 0, entry = 0;
  if (brelo_wanGetPvcEntryIndex(wanIndex, &pvc, &entry) == -1) {
    reply.append(BUNDLE_FAIL_REASON, kParameterError);
  } else {
    // The four values in the order the platform is asked for them. Each text fits the field
    // the reply has always been given for it (uptime 16 bytes, statuses 64, last error 256),
    // so they go into the reply as they are.
    int uptime = get_status(brelo_wanGetUptime, pvc, entry);
    const char *ipv4_status =
        table_text(kConnectionStatuses, get_status(brelo_wanGetIpv4ConnStatus, pvc, entry));
    const char *ipv6_status =
        table_text(kConnectionStatuses, get_status(brelo_wanGetIpv6ConnStatus, pvc, entry));
    const char *last_error = table_text(kLastConnectionErrors,
                                        get_status(brelo_wanGetLastConnectionError, pvc, entry));
    reply.append("{\"Result\":0,\"Uptime\":\"%d\",\"ConnectionStatus\":\"%s\","
                 "\"IPv6ConnStatus\":\"%s\",\"LastConnectionError\":\"%s\"}",
                 uptime, ipv4_status, ipv6_status, last_error);
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getInternetWANIndexJni(
    JNIEnv *, jobject) {
  int index = brelo_wanGetInternetWANIndex();
  return BUNDLE_CODE_REPLY(index);
}

}  // extern "C"
