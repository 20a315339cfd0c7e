// com.lumarest.smartgateway.transferservices.TrafficQoSServiceImp: per-flow quality of
// service. A flow is a numbered traffic class of the platform: Java adds and removes traffic
// (remote address and port pairs), reads its traffic, counters and speed, and sets and reads
// its speed limit and DSCP re-marking. One platform call per native.
#include <stdlib.h>
#include <string.h>

#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_qos.h"
#include "common/platform_list.h"

namespace {

// Size of the traffic-list reply; a longer list is cut at its last byte.
constexpr size_t kTrafficListSize = 10240;

const char *field_text(const char *field) { return field != nullptr ? field : ""; }

// Both texts of an add or delete, read first and given back after the platform call. A null
// text reaches the platform as NULL. Once a copy failed (the JVM then has an exception
// pending) the second text is not asked for and reads as NULL.
struct TrafficTexts {
  TrafficTexts(JNIEnv *env, jstring jaddress, jstring jport)
      : address(env, jaddress),
        port(env, jaddress != nullptr && address.is_null() ? nullptr : jport) {}
  bundle::JavaChars address;
  bundle::JavaChars port;
};

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_addTrafficToFlowJni(
    JNIEnv *env, jobject, jstring jremoteAddress, jstring jremotePort, jint flowId) {
  TrafficTexts texts(env, jremoteAddress, jremotePort);
  if (bundle::acquire_failed(env, texts.address, texts.port)) return -1;
  int rc = brelo_addTrafficToFlow(texts.address.get(), texts.port.get(), flowId);
  BUNDLE_TRACE("addTrafficToFlowJni: return code = %d   leave============>\n", rc);
  texts.address.release();
  texts.port.release();
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteTrafficFromFlowJni(
    JNIEnv *env, jobject, jstring jremoteAddress, jstring jremotePort, jint flowId) {
  TrafficTexts texts(env, jremoteAddress, jremotePort);
  if (bundle::acquire_failed(env, texts.address, texts.port)) return -1;
  int rc = brelo_deleteTrafficFromFlow(texts.address.get(), texts.port.get(), flowId);
  BUNDLE_TRACE("deleteTrafficFromFlowJni: return code = %d   leave============>\n", rc);
  texts.address.release();
  texts.port.release();
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_deleteAllTrafficFromFlowJni(
    JNIEnv *, jobject, jint flowId) {
  int rc = brelo_deleteAllTrafficFromFlow(flowId);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getTrafficInfoByFlowJni(
    JNIEnv *env, jobject, jint flowId) {
  const char *const kFlowFailure = BUNDLE_LIST_FAILURE;
  bundle::Reply<kTrafficListSize> reply;
  FlowTrafficItem *items = nullptr;
  int count = 0;
  int rc = brelo_getTrafficInfoByFlow(flowId, &items, &count);
  count = bundle::platform_list_count(items, count);
  if (rc != 0) {
    reply.append("%s", kFlowFailure);
  } else {
    reply.append("{\"Result\":0,\"List\":[");
    for (int i = 0; items != nullptr && i < count; ++i) {
      reply.append("{\"RemoteAddress\":\"%s\",\"RemotePort\":\"%s\"}",
                   field_text(items[i].remote_address), field_text(items[i].remote_port));
      if (i != count - 1) reply.append(",");
    }
    reply.append("]}");
  }
  // The platform's items, on failure too: both texts of each, then the array.
  if (items != nullptr) {
    for (int i = 0; i < count; ++i) {
      free(items[i].remote_address);
      free(items[i].remote_port);
    }
    free(items);
  }
  return BUNDLE_JSON_REPLY(env, bundle::checked_reply(reply.c_str(), kFlowFailure));
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getStatsByFlowJni(
    JNIEnv *env, jobject, jint flowId) {
  bundle::Reply<1024> reply;
  unsigned long long upstream = 0;
  unsigned long long downstream = 0;
  if (brelo_getStatsByFlow(flowId, &upstream, &downstream) != 0)
    reply.append("{\"Result\":-1,\"UsStats\":0,\"DsStats\":0}");
  else
    reply.append("{\"Result\":0,\"UsStats\":%llu,\"DsStats\":%llu}", upstream, downstream);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedByFlowJni(
    JNIEnv *env, jobject, jint flowId) {
  bundle::Reply<1024> reply;
  int up = 0;
  int down = 0;
  // The current speed is reported in lower camel case, unlike the limit: kept on purpose,
  // Java reads both spellings.
  if (brelo_getSpeedByFlow(flowId, &up, &down) != 0)
    reply.append("{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}");
  else
    reply.append("{\"Result\":0,\"upSpeed\":%d,\"downSpeed\":%d}", up, down);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setSpeedLimitByFlowJni(
    JNIEnv *, jobject, jint flowId, jint upLimit, jint downLimit) {
  int rc = brelo_setSpeedLimitByFlow(flowId, upLimit, downLimit);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getSpeedLimitByFlowJni(
    JNIEnv *env, jobject, jint flowId) {
  bundle::Reply<1024> reply;
  int up = 0;
  int down = 0;
  // The limit is reported in upper camel case, unlike the current speed: kept on purpose.
  if (brelo_getSpeedLimitByFlow(flowId, &up, &down) != 0)
    reply.append("{\"Result\":-1,\"UpSpeed\":0,\"DownSpeed\":0}");
  else
    reply.append("{\"Result\":0,\"UpSpeed\":%d,\"DownSpeed\":%d}", up, down);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_setDSCPRemarkByFlowJni(
    JNIEnv *, jobject, jint flowId, jint dscp) {
  int rc = brelo_setDSCPRemarkByFlow(flowId, dscp);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_getDSCPRemarkByFlowJni(
    JNIEnv *, jobject, jint flowId) {
  int dscp = -1;
  // Exactly -1 fails; any other result hands back whatever the platform left in the value,
  // so a failure that wrote one returns it, and one that wrote nothing reads as -1.
  int ret = brelo_getDSCPRemarkByFlow(flowId, &dscp) == -1 ? -1 : dscp;
  return BUNDLE_CODE_REPLY(ret);
}

}  // extern "C"
