// com.lumarest.smartgateway.transferservices.TransferQueryServiceImp: the VLAN bindings of the
// LAN interfaces, the IPv4 and IPv6 route tables (configured static routes and routes in
// force), and the IPTV service status.
#include <stdint.h>
#include <stdlib.h>

#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_list.h"
#include "common/platform_route.h"
#include "common/text_table.h"

namespace {

const char kFailure[] = "{\"Result\":-1}";
const char *const kListHead = BUNDLE_LIST_HEAD;
const char kListTail[] = "]}";

// LAN interfaces by the platform's 0-based interface number (common/text_table.h).
const char kLanInterfaceNames[] = "LAN1\0LAN2\0LAN3\0LAN4\0SSID1\0SSID2\0SSID3\0SSID4\0SSID5";

// IPTV service status names by status code (the doubled S is the system's own spelling).
const char kIptvStatusNames[] =
    "NO_IPTV_CONNECTION\0IPTV_DISCONNECT\0INVALID_MULTIVLAN\0IPTV_BUSSINESS_NOK\0IPTV_BUSSINESS_OK";

const char kVlanObject[] = "{\"LanInterface\":\"%s\",\"Bind\":\"%s\"}";
const char kIp4Object[] =
    "{\"Index\":\"%d\",\"DestIPAddress\":\"%s\",\"DestSubnetMask\":\"%s\","
    "\"GatewayIPAddress\":\"%s\",\"Interface\":\"%s\"}";
const char kIp6Object[] =
    "{\"Index\":\"%d\",\"DestIPPrefix\":\"%s\",\"NextHop\":\"%s\",\"Interface\":\"%s\"}";

// Room for one listed object and the "," before it. Every field is terminated within its
// record, so an object never outgrows its format, its fields and an 11-character index; the
// reply is sized from the record count and is never cut.
constexpr size_t kObjectRoom = 512;
constexpr size_t kIndexRoom = 11;  // "-2147483648"
static_assert(1 + sizeof kVlanObject + 5 + sizeof(VlanBindRecord::bind) <= kObjectRoom,
              "a VLAN binding fits its room");
static_assert(1 + sizeof kIp4Object + kIndexRoom + sizeof(Ip4RouteRecord::dest_ip) +
                      sizeof(Ip4RouteRecord::dest_mask) + sizeof(Ip4RouteRecord::gateway_ip) +
                      sizeof(Ip4RouteRecord::interface_name) <=
                  kObjectRoom,
              "an IPv4 route fits its room");
static_assert(1 + sizeof kIp6Object + kIndexRoom + sizeof(Ip6RouteRecord::dest_prefix) +
                      sizeof(Ip6RouteRecord::next_hop) + sizeof(Ip6RouteRecord::interface_name) <=
                  kObjectRoom,
              "an IPv6 route fits its room");

// Interface names outside the table read as empty rather than past it.
const char *lan_interface_name(int32_t lan_if) {
  return bundle::table_text(kLanInterfaceNames, lan_if);
}

// The objects of the three kinds of record, each given as an untyped record so that one list
// walk serves them all.
void append_vlan(char *text, size_t cap, size_t *off, void *record) {
  VlanBindRecord *r = static_cast<VlanBindRecord *>(record);
  bundle::terminate_field(r->bind);
  bundle::reply_append(text, cap, off, kVlanObject, lan_interface_name(r->lan_if), r->bind);
}

void append_ip4(char *text, size_t cap, size_t *off, void *record) {
  Ip4RouteRecord *r = static_cast<Ip4RouteRecord *>(record);
  bundle::terminate_field(r->dest_ip);
  bundle::terminate_field(r->dest_mask);
  bundle::terminate_field(r->gateway_ip);
  bundle::terminate_field(r->interface_name);
  bundle::reply_append(text, cap, off, kIp4Object, static_cast<int>(r->index), r->dest_ip,
                       r->dest_mask, r->gateway_ip, r->interface_name);
}

void append_ip6(char *text, size_t cap, size_t *off, void *record) {
  Ip6RouteRecord *r = static_cast<Ip6RouteRecord *>(record);
  bundle::terminate_field(r->dest_prefix);
  bundle::terminate_field(r->next_hop);
  bundle::terminate_field(r->interface_name);
  bundle::reply_append(text, cap, off, kIp6Object, static_cast<int>(r->index), r->dest_prefix,
                       r->next_hop, r->interface_name);
}

// The reply of the list queries, handed to Java, after which the platform's array is freed.
// A null array is a failure whatever the platform returned (an empty table the platform
// allocated nothing for included); so is a non-zero result. The reply goes on the heap, sized
// for `count` objects of `size` bytes each shown by `append`; when that cannot be had the query
// fails.
typedef void (*AppendObject)(char *text, size_t cap, size_t *off, void *record);
jstring list_reply(JNIEnv *env, bundle::TraceName native, int line, int rc, void *array,
                   int count, size_t size, AppendObject append) {
  char *text = nullptr;
  if (array != nullptr && rc == 0) {
    size_t n = count > 0 ? static_cast<size_t>(count) : 0;
    size_t fixed = sizeof BUNDLE_LIST_HEAD + sizeof kListTail;
    if (n <= (SIZE_MAX - fixed) / kObjectRoom) {
      size_t cap = fixed + n * kObjectRoom;
      text = static_cast<char *>(malloc(cap));  // only the text composed into it is read
      if (text != nullptr) {
        size_t off = 0;
        text[0] = '\0';
        bundle::reply_append(text, cap, &off, "%s", kListHead);
        for (size_t i = 0; i < n; ++i) {
          if (i != 0) bundle::reply_append(text, cap, &off, ",");
          append(text, cap, &off, static_cast<char *>(array) + i * size);
        }
        bundle::reply_append(text, cap, &off, "%s", kListTail);
      }
    }
  }
  jstring reply =
      bundle::traced_native_reply(env, native, line, text != nullptr ? text : kFailure);
  free(text);
  free(array);
  return reply;
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getVLANBindInfoJni(
    JNIEnv *env, jobject) {
  VlanBindRecord *array = nullptr;
  int count = 0;
  int rc = brelo_vlanGetBindInfo(&array, &count);
  count = bundle::platform_list_count(array, count);
  return list_reply(env, BUNDLE_NATIVE, __LINE__, rc, array, count, sizeof *array, append_vlan);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingStaticConfigInfoJni(
    JNIEnv *env, jobject) {
  Ip4RouteRecord *array = nullptr;
  int count = 0;
  int rc = brelo_routeinfoGetLayer3ForwardingStaticConfig(&array, &count, ROUTE_TABLE_STATIC);
  count = bundle::platform_list_count(array, count);
  return list_reply(env, BUNDLE_NATIVE, __LINE__, rc, array, count, sizeof *array, append_ip4);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingCurrentJni(
    JNIEnv *env, jobject) {
  Ip4RouteRecord *array = nullptr;
  int count = 0;
  int rc = brelo_routeinfoGetLayer3ForwardingStaticConfig(&array, &count, ROUTE_TABLE_CURRENT);
  count = bundle::platform_list_count(array, count);
  return list_reply(env, BUNDLE_NATIVE, __LINE__, rc, array, count, sizeof *array, append_ip4);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingStaticConfigInfoJni(
    JNIEnv *env, jobject) {
  Ip6RouteRecord *array = nullptr;
  int count = 0;
  int rc = brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(&array, &count, ROUTE_TABLE_STATIC);
  count = bundle::platform_list_count(array, count);
  return list_reply(env, BUNDLE_NATIVE, __LINE__, rc, array, count, sizeof *array, append_ip6);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPv6Layer3ForwardingCurrentJni(
    JNIEnv *env, jobject) {
  Ip6RouteRecord *array = nullptr;
  int count = 0;
  int rc = brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(&array, &count, ROUTE_TABLE_CURRENT);
  count = bundle::platform_list_count(array, count);
  return list_reply(env, BUNDLE_NATIVE, __LINE__, rc, array, count, sizeof *array, append_ip6);
}

// The bare status name, not JSON; a status outside the table gives the empty text.
JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPTVStatusJni(
    JNIEnv *env, jobject) {
  bundle::Reply<256> reply;
  int status = brelo_iptvGetStatus();
  reply.append("%s", bundle::table_text(kIptvStatusNames, status));
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
