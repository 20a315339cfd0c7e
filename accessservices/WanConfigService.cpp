// com.lumarest.smartgateway.accessservices.WanConfigServiceImp: create, change and delete WAN
// connections. The platform validates and applies everything; the bridge moves Java's texts
// into the buffers the platform expects and hands its result back.
#include <stddef.h>
#include <stdio.h>

#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_wan.h"

namespace {

// Copies one creation text into its zeroed 32-byte buffer. A text that would not fit with its
// terminator is refused (false) rather than cut, so the platform never sees half a value.
bool copy_creation_text(char (&buf)[32], const char *text) {
  if (strnlen(text, sizeof buf) >= sizeof buf) return false;
  bundle::copy_padded(buf, text);  // the rest of the buffer zero
  return true;
}

// The members of the change record by JSON name, for the trace.
struct ChangeMember {
  const char *name;
  size_t offset;
  size_t capacity;
};

#define CHANGE_MEMBER(json, field) \
  { json, offsetof(WanChangeRecord, field), sizeof(WanChangeRecord::field) }

const ChangeMember kChangeMembers[] = {
    CHANGE_MEMBER("LanInterface", lan_interface),
    CHANGE_MEMBER("VLANMode", vlan_mode),
    CHANGE_MEMBER("VLANIDMark", vlan_id_mark),
    CHANGE_MEMBER("802-1pMark", priority_8021p),
    CHANGE_MEMBER("MulticastVlan", multicast_vlan),
    CHANGE_MEMBER("LanInterface-DHCPEnable", lan_dhcp_enable),
    CHANGE_MEMBER("IPMode", ip_mode),
    CHANGE_MEMBER("NATEnabled", nat_enabled),
    CHANGE_MEMBER("Username", username),
    CHANGE_MEMBER("Password", password),
    CHANGE_MEMBER("AddressingType", addressing_type),
    CHANGE_MEMBER("ExternalIPAddress", external_ip_address),
    CHANGE_MEMBER("SubnetMask", subnet_mask),
    CHANGE_MEMBER("DefaultGateway", default_gateway),
    CHANGE_MEMBER("DNSEnabled", dns_enabled),
    CHANGE_MEMBER("DNSServers", dns_servers),
    CHANGE_MEMBER("MACAddress", mac_address),
    CHANGE_MEMBER("ConnectionTrigger", connection_trigger),
    CHANGE_MEMBER("IPv6IPAddressOrigin", ipv6_address_origin),
    CHANGE_MEMBER("IPv6IPAddress", ipv6_address),
    CHANGE_MEMBER("IPv6DNSServers", ipv6_dns_servers),
    CHANGE_MEMBER("IPv6PrefixDelegationEnabled", ipv6_prefix_delegation_enabled),
    CHANGE_MEMBER("IPv6PrefixOrigin", ipv6_prefix_origin),
    CHANGE_MEMBER("IPv6Prefix", ipv6_prefix),
    CHANGE_MEMBER("IPv6PrefixPltime", ipv6_prefix_pltime),
    CHANGE_MEMBER("IPv6PrefixVltime", ipv6_prefix_vltime),
    CHANGE_MEMBER("IPv6DefaultGateway", ipv6_default_gateway),
    CHANGE_MEMBER("IPv6DsliteEnable", ipv6_dslite_enable),
    CHANGE_MEMBER("IPv6AftrMode", ipv6_aftr_mode),
    CHANGE_MEMBER("IPv6AftrAddress", ipv6_aftr_address),
    CHANGE_MEMBER("ServiceList", service_list),
};

#undef CHANGE_MEMBER

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_addWANIfJni(
    JNIEnv *env, jobject, jstring vlanMode, jstring vlanIdMark, jstring connectionType) {
  char vlan_mode[32];  // each written whole before the platform is asked
  char vlan_id_mark[32];
  char connection_type[32];
  const jstring texts[] = {vlanMode, vlanIdMark, connectionType};
  char(*const fields[])[32] = {&vlan_mode, &vlan_id_mark, &connection_type};

  // Each text in turn: borrowed, copied, given back. A text that cannot be had, or that would
  // not fit its buffer, ends the call with -1 before the platform is asked.
  for (int i = 0; i < 3; ++i) {
    bundle::JavaChars text(env, texts[i]);
    if (text.is_null()) {
      return BUNDLE_CODE_REPLY(-1);
    }
    bool fits = copy_creation_text(*fields[i], text.get());
    text.release();
    if (!fits) {
      return BUNDLE_CODE_REPLY(-1);
    }
  }

  int wan_id = brelo_wanAddIf(vlan_mode, vlan_id_mark, connection_type);
  BUNDLE_TRACE("addWANIfJni: added wan id = %d   leave============>\n", wan_id);
  return wan_id;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_setWANIfJni(
    JNIEnv *env, jobject, jint wanIndex, jstring wanInfoJson) {
  WanChangeRecord change;
  memset(&change, 0, sizeof change);

  bundle::JavaChars json(env, wanInfoJson);
  if (json.is_null()) {
    return BUNDLE_CODE_REPLY(-1);
  }
  int parsed = brelo_wanParseIfInfoParam(json.get(), &change);
  json.release();
  if (parsed < 0) {
    BUNDLE_TRACE("setWANIfJni: parse wan info failed, return code = %d   leave============>\n",
                 -1);
    return -1;
  }

  // Every member as the platform parsed it, the password too, in clear (masked when hardened).
  const char *record = reinterpret_cast<const char *>(&change);
  for (const ChangeMember &member : kChangeMembers) {
    const char *value = record + member.offset;
    int width = static_cast<int>(member.capacity);
    if (strcmp(member.name, "Password") == 0 && bundle::secret(value) != value) {
      value = bundle::secret(value);
      width = static_cast<int>(strlen(value));
    }
    BUNDLE_TRACE("setWANIfJni: %s = %.*s\n", member.name, width, value);
  }

  int rc = brelo_wanSetIf(wanIndex, &change);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_deleteWANIfJni(
    JNIEnv *, jobject, jint wanIndex) {
  int rc = -1;
  if (wanIndex >= 1) rc = brelo_wanDeleteIf(wanIndex);
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
