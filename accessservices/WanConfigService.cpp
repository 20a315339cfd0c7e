// com.lumarest.smartgateway.accessservices.WanConfigServiceImp: create, change and delete WAN
// connections. The platform validates and applies everything; the bridge moves Java's texts
// into the buffers the platform expects and hands its result back.
#include <stddef.h>
#include <stdio.h>

#include "accessservices/wan_members.h"
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

// The members of the change record, for the trace, in the order of their JSON names
// (bundle::kWanMemberNames).
struct ChangeMember {
  uint16_t offset;
  uint16_t capacity;
};

#define CHANGE_MEMBER(field) {offsetof(WanChangeRecord, field), sizeof(WanChangeRecord::field)}

const ChangeMember kChangeMembers[] = {
    CHANGE_MEMBER(lan_interface),        CHANGE_MEMBER(vlan_mode),
    CHANGE_MEMBER(vlan_id_mark),         CHANGE_MEMBER(priority_8021p),
    CHANGE_MEMBER(multicast_vlan),       CHANGE_MEMBER(lan_dhcp_enable),
    CHANGE_MEMBER(ip_mode),              CHANGE_MEMBER(nat_enabled),
    CHANGE_MEMBER(username),             CHANGE_MEMBER(password),
    CHANGE_MEMBER(addressing_type),      CHANGE_MEMBER(external_ip_address),
    CHANGE_MEMBER(subnet_mask),          CHANGE_MEMBER(default_gateway),
    CHANGE_MEMBER(dns_enabled),          CHANGE_MEMBER(dns_servers),
    CHANGE_MEMBER(mac_address),          CHANGE_MEMBER(connection_trigger),
    CHANGE_MEMBER(ipv6_address_origin),  CHANGE_MEMBER(ipv6_address),
    CHANGE_MEMBER(ipv6_dns_servers),     CHANGE_MEMBER(ipv6_prefix_delegation_enabled),
    CHANGE_MEMBER(ipv6_prefix_origin),   CHANGE_MEMBER(ipv6_prefix),
    CHANGE_MEMBER(ipv6_prefix_pltime),   CHANGE_MEMBER(ipv6_prefix_vltime),
    CHANGE_MEMBER(ipv6_default_gateway), CHANGE_MEMBER(ipv6_dslite_enable),
    CHANGE_MEMBER(ipv6_aftr_mode),       CHANGE_MEMBER(ipv6_aftr_address),
    CHANGE_MEMBER(service_list),
};
static_assert(sizeof kChangeMembers / sizeof kChangeMembers[0] == 31, "31 members");

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
  int taken = 0;
  for (; taken < 3; ++taken) {
    bundle::JavaChars text(env, texts[taken]);
    if (text.is_null()) break;
    bool fits = copy_creation_text(*fields[taken], text.get());
    text.release();
    if (!fits) break;
  }
  if (taken < 3) return BUNDLE_CODE_REPLY(-1);

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
  int rc = -1;
  if (!json.is_null()) {
    int parsed = brelo_wanParseIfInfoParam(json.get(), &change);
    json.release();
    if (parsed < 0) {
      BUNDLE_TRACE("setWANIfJni: parse wan info failed, return code = %d   leave============>\n",
                   -1);
      return -1;
    }

    // Every member as the platform parsed it, the password too, in clear (masked when
    // hardened).
    const char *record = reinterpret_cast<const char *>(&change);
    const char *name = bundle::kWanMemberNames;
    for (const ChangeMember &member : kChangeMembers) {
      name = bundle::wan_member_present(name, "ConnectionType");
      const char *value = record + member.offset;
      int width = static_cast<int>(member.capacity);
      if (strcmp(name, "Password") == 0 && bundle::secret(value) != value) {
        value = bundle::secret(value);
        width = static_cast<int>(strlen(value));
      }
      BUNDLE_TRACE("setWANIfJni: %s = %.*s\n", name, width, value);
      name = bundle::wan_member_after(name);
    }
    rc = brelo_wanSetIf(wanIndex, &change);
  }
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
