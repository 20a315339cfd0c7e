// com.lumarest.smartgateway.addressservices.PortMappingConfigServiceImp: adds, deletes and
// switches port-mapping (virtual-server) rules of a WAN connection, straight on the
// configuration tree.
//
// The rules of the WAN with internal index v live in the nodes "VirServer_Entry<v>_Entry<slot>",
// slots 0..9. Java names a rule by its port-mapping index, slot + 1. These operations count a
// slot as taken when its "Protocal" reads exactly "TCP" or "UDP" (the query lists a slot by its
// "INTPORT" instead; the two tests differ on purpose). Every change is saved with tcapi_save()
// and applied at once with brelo_tcapi_commit(node).
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "addressservices/wan_lookup.h"
#include "common/config_tree.h"
#include "common/ip_valid_check.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_tcapi.h"

namespace {

constexpr int kSlots = 10;

bool slot_in_use(const char *protocol) {
  return strcmp(protocol, "UDP") == 0 || strcmp(protocol, "TCP") == 0;
}

// The rule node of a port-mapping index. The slot is index - 1 without a range check, computed
// wide so that INT_MIN names a slot that does not exist instead of overflowing.
void rule_node(char (&node)[64], int pvc, int entry, jint mapping_index) {
  long long slot = static_cast<long long>(mapping_index) - 1;
  snprintf(node, sizeof node, "VirServer_Entry%d_Entry%lld", pvc * 8 + entry, slot);
}

// Steps 2..3 of delete and switch: the rule node of (WAN index, port-mapping index) when the
// WAN exists and the slot holds a rule; false after tracing why not.
bool existing_rule(bundle::TraceName native, jint wan_index, jint mapping_index, char (&node)[64]) {
  int pvc = 0;
  int entry = 0;
  if (bundle::getPVCEntryByIFIdx(wan_index, &pvc, &entry) < 0) {
    BUNDLE_TRACE_AS(native, "wanIndex is not exist: %d\n", wan_index);
    return false;
  }
  rule_node(node, pvc, entry, mapping_index);
  char protocol[32];  // every tree read leaves a terminated text
  bundle::tree_get(node, "Protocal", protocol);
  if (!slot_in_use(protocol)) {
    BUNDLE_TRACE_AS(native, "portMappingIndex %d is not exist\n", mapping_index);
    return false;
  }
  return true;
}

// Saves the tree and applies the changed node.
void save_and_commit(const char *node) {
  tcapi_save();
  brelo_tcapi_commit(node);
}

enum RuleText { kProtocol, kClient };

// NULL for an accepted text of kind `kind`, or the trace line that refuses it (its %s is the
// text). Only "TCP" and "UDP" are accepted as the protocol: exactly the texts that mark a slot
// as taken.
const char *refusal(int kind, const char *text) {
  if (kind == kProtocol) return slot_in_use(text) ? nullptr : "protocol %s is not valid\n";
  return ipValidCheck(text) < 0 ? "%s is an invalid IP\n" : nullptr;
}

// The attributes of a new rule's node, in the order they are written.
const char kRuleAttributes[] = "Protocal\0SrcIP\0STARTPORT\0ENDPORT\0INTPORT\0LOCALIP\0MapName\0Active";

// Traces under `native`, the add native.
int add_port_mapping(JNIEnv *env, bundle::TraceName native, jint wan_index, jint external_port,
                     jint internal_port, jstring jprotocol, jstring jclient) {
  if (wan_index < 0) return -1;
  // Taken as unsigned, so a negative port is refused as well; port 0 is accepted.
  if (static_cast<uint32_t>(external_port) > 65535u) return -1;
  if (static_cast<uint32_t>(internal_port) > 65535u) return -1;

  // Each text is given back once copied; a refused one is kept on purpose, never given back.
  char protocol[16];
  // A host name up to 64 characters passes the check; the stored address is cut to the
  // 31 characters of its buffer.
  char client[32];
  if (!bundle::take_checked_text(env, native, jprotocol, refusal, kProtocol, protocol,
                                 sizeof protocol) ||
      !bundle::take_checked_text(env, native, jclient, refusal, kClient, client, sizeof client))
    return -1;

  int pvc = 0;
  int entry = 0;
  if (bundle::getPVCEntryByIFIdx(wan_index, &pvc, &entry) < 0) {
    BUNDLE_TRACE_AS(native, "wanIndex is not exist: %d\n", wan_index);
    return -1;
  }

  char node[64];
  char service[32];
  snprintf(node, sizeof node, "Wan_PVC%d_Entry%d", pvc, entry);
  bundle::tree_get(node, "ServiceList", service);
  if (strcmp(service, "TR069") == 0) {
    bundle::trace_puts(native, __LINE__, "this is TR069 wan, could not set portmapping");
    return -1;
  }

  int slot = -1;
  for (int s = 0; s < kSlots && slot < 0; ++s) {
    char used[32];
    snprintf(node, sizeof node, "VirServer_Entry%d_Entry%d", pvc * 8 + entry, s);
    bundle::tree_get(node, "Protocal", used);
    if (!slot_in_use(used)) slot = s;
  }
  if (slot < 0) {
    bundle::trace_puts(native, __LINE__, "VirServer Entry is full");
    return -2;
  }

  // The same mapping may be added twice: existing rules are not compared.
  char external[16];
  char internal[16];
  char map_name[64];
  snprintf(external, sizeof external, "%d", external_port);
  snprintf(internal, sizeof internal, "%d", internal_port);
  snprintf(map_name, sizeof map_name, "OSGI_Add_Rule_%d_%d", wan_index, slot);
  // A rule always maps a single port: ENDPORT is STARTPORT.
  const char *const values[] = {protocol, "0.0.0.0", external, external,
                                internal, client,    map_name, "Yes"};
  const char *attr = kRuleAttributes;
  for (const char *value : values) {
    tcapi_set(node, attr, value);
    attr += strlen(attr) + 1;
  }
  save_and_commit(node);
  return 0;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(
    JNIEnv *env, jobject, jint wanIndex, jint externalPort, jint internalPort,
    jstring protocol, jstring internalClient) {
  int rc = add_port_mapping(env, BUNDLE_NATIVE, wanIndex, externalPort, internalPort, protocol,
                            internalClient);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_deletePortMappingJni(
    JNIEnv *, jobject, jint wanIndex, jint portMappingIndex) {
  int rc = -1;
  char node[64];
  // WAN index 0 is accepted here (the switch refuses it).
  if (wanIndex >= 0 && existing_rule(BUNDLE_NATIVE, wanIndex, portMappingIndex, node)) {
    tcapi_unset(node);
    save_and_commit(node);
    rc = 0;
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_setPortMappingSwitchJni(
    JNIEnv *, jobject, jint wanIndex, jint portMappingIndex, jboolean enable) {
  int rc = -1;
  char node[64];
  if (wanIndex <= 0) {
    // Kept on purpose: stricter than delete (WAN index 0 refused), and the message speaks of
    // the port-mapping index although the WAN index is tested.
    BUNDLE_TRACE_PUTS("port mapping index must greater 0");
  } else if (existing_rule(BUNDLE_NATIVE, wanIndex, portMappingIndex, node)) {
    tcapi_set(node, "Active", enable == 1 ? "Yes" : "No");
    save_and_commit(node);
    rc = 0;
  }
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
