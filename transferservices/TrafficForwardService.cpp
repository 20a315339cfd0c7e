// com.lumarest.smartgateway.transferservices.TrafficForwardServiceImp: traffic-forward rules
// (traffic of a remote address, port, protocol and LAN host forwarded to another host and
// port), passed straight through to the platform, which stores, checks and enforces them.
#include <stdlib.h>
#include <string.h>

#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_forward.h"
#include "common/platform_list.h"
#include "transferservices/rule_lists.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_addForwardRuleJni(
    JNIEnv *env, jobject, jstring jremoteAddress, jstring jremotePort, jstring jprotocol,
    jstring jhostMac, jstring jforwardToIp, jint forwardToPort) {
  ForwardRule rule;
  memset(&rule, 0, sizeof rule);
  // No text is tested: a null one reaches the platform as a NULL field. Once a copy has
  // failed, the later texts read as NULL without asking the JVM.
  bundle::JavaChars remoteAddress(env, jremoteAddress);
  bundle::JavaChars remotePort(env, jremotePort);
  bundle::JavaChars protocol(env, jprotocol);
  bundle::JavaChars hostMac(env, jhostMac);
  bundle::JavaChars forwardToIp(env, jforwardToIp);
  if (bundle::acquire_failed(env, remoteAddress, remotePort, protocol, hostMac, forwardToIp))
    return -1;
  rule.remote_address = const_cast<char *>(remoteAddress.get());
  rule.remote_port = const_cast<char *>(remotePort.get());
  rule.protocol = const_cast<char *>(protocol.get());
  rule.host_mac = const_cast<char *>(hostMac.get());
  rule.forward_to_ip = const_cast<char *>(forwardToIp.get());
  rule.forward_to_port = forwardToPort;

  int rc = brelo_addForwardRule(&rule);
  BUNDLE_TRACE("addForwardRuleJni: return code = %d   leave============>\n", rc);
  remoteAddress.release();
  remotePort.release();
  protocol.release();
  hostMac.release();
  forwardToIp.release();
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteForwardRuleJni(
    JNIEnv *, jobject, jint ruleIndex) {
  int rc = transfer::rule_index_valid(ruleIndex) ? brelo_deleteForwardRule(ruleIndex) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteAllForwardRuleJni(
    JNIEnv *, jobject) {
  int rc = brelo_deleteAllForwardRule();
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_getForwardRuleInfoJni(
    JNIEnv *env, jobject) {
  ForwardRule *list = nullptr;
  int count = 0;
  int rc = brelo_getForwardRuleInfo(&list, &count);
  count = bundle::platform_list_count(list, count);

  transfer::RuleListText reply(rc, count);
  if (rc == 0) {
    for (int i = 0; list != nullptr && i < count; ++i) {
      const ForwardRule &r = list[i];
      reply.append("{\"RemoteAddress\":\"%s\",\"RemotePort\":\"%s\",\"Protocol\":\"%s\","
                   "\"HostMAC\":\"%s\",\"ForwardToIP\":\"%s\",\"ForwardToPort\":%d}",
                   transfer::field_text(r.remote_address), transfer::field_text(r.remote_port),
                   transfer::field_text(r.protocol), transfer::field_text(r.host_mac),
                   transfer::field_text(r.forward_to_ip), static_cast<int>(r.forward_to_port));
      if (i != count - 1) reply.append(",");
    }
  }
  reply.finish();

  // The platform's list, on failure too: the five texts of every rule, then the array.
  if (list != nullptr) {
    for (int i = 0; i < count; ++i) {
      free(list[i].remote_address);
      free(list[i].remote_port);
      free(list[i].protocol);
      free(list[i].host_mac);
      free(list[i].forward_to_ip);
    }
    free(list);
  }
  return BUNDLE_JSON_REPLY(env, reply.text());
}

}  // extern "C"
