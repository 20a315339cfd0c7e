// com.lumarest.smartgateway.transferservices.StaticLayer3ForwardingConfigServiceImp: adds and
// deletes the gateway's IPv4 and IPv6 static routes.
#include <stdio.h>

#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_route.h"

namespace {

// Route ids run from 1 to 16; one unsigned comparison rejects 0 and negative ids too.
bool route_id_valid(jint route_id) { return static_cast<unsigned int>(route_id) - 1u < 16u; }

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addLayer3ForwardingStaticJni(
    JNIEnv *env, jobject, jstring jdst, jstring jmask, jstring jgateway, jstring jinterface) {
  // Each text reaches the platform in a zero-filled buffer (cut at its size - 1). Texts are
  // read in parameter order; the first that cannot be read ends the call (those read before
  // it are already given back).
  char dst[64], mask[64], gateway[64], ifname[128];
  if (!bundle::take_text(env, jdst, dst) || !bundle::take_text(env, jmask, mask) ||
      !bundle::take_text(env, jgateway, gateway) || !bundle::take_text(env, jinterface, ifname)) {
    return BUNDLE_CODE_REPLY(-1);
  }
  int route_id = brelo_routeAddIp4ForwardingStatic(dst, mask, gateway, ifname);
  BUNDLE_TRACE("addLayer3ForwardingStaticJni: return route id = %d   leave============>\n",
               route_id);
  return route_id;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addIPv6Layer3ForwardingStaticJni(
    JNIEnv *env, jobject, jstring jprefix, jstring jnext_hop, jstring jinterface) {
  char prefix[128], next_hop[64], ifname[128];
  if (!bundle::take_text(env, jprefix, prefix) || !bundle::take_text(env, jnext_hop, next_hop) ||
      !bundle::take_text(env, jinterface, ifname)) {
    return BUNDLE_CODE_REPLY(-1);
  }
  int route_id = brelo_routeAddIp6ForwardingStatic(prefix, next_hop, ifname);
  BUNDLE_TRACE("addIPv6Layer3ForwardingStaticJni: return route id = %d   leave============>\n",
               route_id);
  return route_id;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteLayer3ForwardingStaticJni(
    JNIEnv *, jobject, jint route_id) {
  int rc = route_id_valid(route_id) ? brelo_routeDeleteIp4ForwardingStatic(route_id) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteIPv6Layer3ForwardingStaticJni(
    JNIEnv *, jobject, jint route_id) {
  int rc = route_id_valid(route_id) ? brelo_routeDeleteIp6ForwardingStatic(route_id) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
