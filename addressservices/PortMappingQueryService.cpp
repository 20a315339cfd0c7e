// com.lumarest.smartgateway.addressservices.PortMappingQueryServiceImp: lists the port-mapping
// rules of every WAN connection except the management one, straight from the configuration
// tree.
//
// Reply: {"Result":0, "List":[{"WANName":"<name>","MapList":[{rule},{rule}]},...]}. A WAN is
// named "<IFIdx>_<ServiceList>_<R|B>_VID_<VLANID>" and left out when that name holds "TR069";
// a slot is listed when its "INTPORT" is non-empty; a WAN without listed slots writes nothing.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "addressservices/wan_lookup.h"
#include "common/config_tree.h"
#include "common/native.h"
#include "common/native_reply.h"

namespace {

#define LIST_HEAD "{\"Result\":0, \"List\":["
#define WAN_HEAD "\"WANName\":\"%s\",\"MapList\":["
#define RULE_INDEX "\"PortMappingIndex\":%d,"
#define RULE_ENABLED "\"PortMappingEnabled\":\"%s\","
#define RULE_EXTERNAL "\"ExternalPort\":%d,"
#define RULE_INTERNAL "\"InternalPort\":%d,"
#define RULE_PROTOCOL "\"PortMappingProtocol\":\"%s\","
#define RULE_CLIENT "\"InternalClient\":\"%s\"}"
#define LIST_TAIL "]}"

constexpr int kSlots = 10;
constexpr size_t kWanNameSize = 64;
constexpr size_t kOpenerMax = 2;  // ",{"
constexpr size_t kIntMax = 11;    // "-2147483648"

// Longest text of one WAN with ten rules. Each template's "%s"/"%d" (2 characters) is counted
// with it and then replaced by the longest value its read buffer allows, so every reply the
// tree can produce fits and nothing is ever cut.
constexpr size_t kWanHeadMax = kOpenerMax + sizeof(WAN_HEAD) - 1 - 2 + (kWanNameSize - 1);
constexpr size_t kRuleMax = kOpenerMax + sizeof(RULE_INDEX) - 1 - 2 + 2 /* "10" */ +
                            sizeof(RULE_ENABLED) - 1 - 2 + 5 /* "FALSE" */ +
                            sizeof(RULE_EXTERNAL) - 1 - 2 + kIntMax +
                            sizeof(RULE_INTERNAL) - 1 - 2 + kIntMax +
                            sizeof(RULE_PROTOCOL) - 1 - 2 + (32 - 1) /* "Protocal" */ +
                            sizeof(RULE_CLIENT) - 1 - 2 + (32 - 1) /* "LOCALIP" */;
constexpr size_t kWanMax = kWanHeadMax + kSlots * kRuleMax + sizeof(LIST_TAIL) - 1;

// Room for the list of `count` WANs: the head, every WAN at its longest, the tail and the
// terminator. The empty list fits too.
size_t reply_size(int count) {
  return sizeof(LIST_HEAD) - 1 + static_cast<size_t>(count) * kWanMax + sizeof(LIST_TAIL);
}

// "{" opens an object; after a closed object it is ",{" so that objects are separated by
// commas whether they are WANs or rules.
void append_opener(char *buf, size_t cap, size_t *off) {
  bool after_object = *off > 0 && *off < cap && buf[*off - 1] == '}';
  bundle::reply_append(buf, cap, off, "%s", after_object ? ",{" : "{");
}

// The display name of the WAN with internal index v (what the trace calls getWANName).
void wan_name(bundle::TraceName native, int v, char (&name)[kWanNameSize]) {
  // Every tree read and name leaves a terminated text, all that is read of its buffer.
  char node[64];
  char vlan_mode[32];
  char vlan_id[16];
  char ifidx[16];
  char service[32];
  char wan_mode[16];
  snprintf(node, sizeof node, "Wan_PVC%d", v >> 3);
  bundle::tree_get(node, "VLANMode", vlan_mode);
  bundle::tree_get(node, "VLANID", vlan_id);
  snprintf(node, sizeof node, "Wan_PVC%d_Entry%d", v >> 3, v & 7);
  bundle::tree_get(node, "IFIdx", ifidx);
  bundle::tree_get(node, "ServiceList", service);
  bundle::tree_get(node, "WanMode", wan_mode);
  bundle::format_text(name, sizeof name, "%s_%s_%s_VID_%s", ifidx, service,
           strcmp(wan_mode, "Route") == 0 ? "R" : "B",
           strcmp(vlan_mode, "TAG") == 0 ? vlan_id : "");
  BUNDLE_TRACE_AS(native, "getWANName: %s\n", name);
}

// Appends the WAN object of internal index v and its rules, or nothing when no slot is listed.
void append_wan(bundle::TraceName native, char *buf, size_t cap, size_t *off, int v) {
  char name[kWanNameSize];
  wan_name(native, v, name);
  if (strstr(name, "TR069") != nullptr) return;  // the management WAN is never listed
  bool listed = false;
  for (int slot = 0; slot < kSlots; ++slot) {
    char node[64];
    char intport[16];
    bundle::format_text(node, sizeof node, "VirServer_Entry%d_Entry%d", v, slot);
    bundle::tree_get(node, "INTPORT", intport);
    if (intport[0] == '\0') continue;
    if (!listed) {
      append_opener(buf, cap, off);
      bundle::reply_append(buf, cap, off, WAN_HEAD, name);
      listed = true;
    }
    char startport[32];
    char protocol[32];
    char localip[32];
    char active[16];
    bundle::tree_get(node, "STARTPORT", startport);
    bundle::tree_get(node, "Protocal", protocol);
    bundle::tree_get(node, "LOCALIP", localip);
    bundle::tree_get(node, "Active", active);
    append_opener(buf, cap, off);
    bundle::reply_append(buf, cap, off,
                         RULE_INDEX RULE_ENABLED RULE_EXTERNAL RULE_INTERNAL RULE_PROTOCOL RULE_CLIENT,
                         slot + 1, strcmp(active, "Yes") == 0 ? "TRUE" : "FALSE",
                         bundle::tree_atoi(startport), bundle::tree_atoi(intport), protocol, localip);
  }
  if (listed) bundle::reply_append(buf, cap, off, "%s", LIST_TAIL);
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(
    JNIEnv *env, jobject) {
  int valid[bundle::kQueryWanRoom] = {0};
  // The count is held in a signed byte, as it always was; 32 values at most keep it positive.
  int8_t count = static_cast<int8_t>(bundle::getValidIFIndex(valid, bundle::kQueryWanRoom));
  char *buf = nullptr;  // only the text composed into it is read
  const char *text;
  if (count < 0) {
    text = "{\"Result\":-1,\"FailReason\":\"No Valid WAN\"}";
  } else if ((buf = static_cast<char *>(malloc(reply_size(count)))) == nullptr) {
    text = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";
  } else {
    size_t cap = reply_size(count);
    size_t off = 0;
    buf[0] = '\0';
    bundle::reply_append(buf, cap, &off, "%s", LIST_HEAD);
    bundle::TraceName native = BUNDLE_NATIVE;
    for (int i = 0; i < count; ++i) append_wan(native, buf, cap, &off, valid[i]);
    bundle::reply_append(buf, cap, &off, "%s", LIST_TAIL);
    text = buf;
  }
  jstring reply = BUNDLE_JSON_REPLY(env, text);
  free(buf);
  return reply;
}

}  // extern "C"
