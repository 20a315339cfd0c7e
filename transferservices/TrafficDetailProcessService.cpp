// com.lumarest.smartgateway.transferservices.TrafficDetailProcessServiceImp: HTTP
// traffic-process rules (HTTP traffic of a remote address and port, direction and LAN host,
// with given request methods and headers, handed to a named bundle), passed straight through
// to the platform, which stores, checks and enforces them.
#include <stdlib.h>
#include <string.h>

#include "common/array_readers.h"
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_forward.h"
#include "common/platform_list.h"
#include "transferservices/rule_lists.h"

namespace {

// Size of the buffer a Java list is joined in, terminator included.
constexpr int kJoinedListSize = 1024;

// Joins a Java String[] with "," (cut at 1023 bytes) and returns a heap copy of the result,
// or NULL when the heap has no room. Once a text copy of the call has failed, the reader asks
// the JVM for nothing and the list joins as empty.
char *joined_list_copy(JNIEnv *env, jobjectArray array) {
  char joined[kJoinedListSize];
  memset(joined, 0, sizeof joined);
  parseObjecArray(env, array, joined, sizeof joined);
  size_t n = strlen(joined);
  char *copy = static_cast<char *>(malloc(n + 1));
  if (copy != nullptr) memcpy(copy, joined, n + 1);
  return copy;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_addHTTPTrafficProcessRuleJni(
    JNIEnv *env, jobject, jstring jremoteAddress, jint remotePort, jstring jdirection,
    jstring jhostMac, jobjectArray jmethodList, jobjectArray jsecondList, jobjectArray jheaderList,
    jstring jbundleName) {
  HttpTrafficProcessRule rule;
  memset(&rule, 0, sizeof rule);
  // No text is tested: a null one reaches the platform as a NULL field. Once a copy has
  // failed, the later texts read as NULL without asking the JVM.
  bundle::JavaChars remoteAddress(env, jremoteAddress);
  bundle::JavaChars direction(env, jdirection);
  bundle::JavaChars hostMac(env, jhostMac);
  rule.remote_address = const_cast<char *>(remoteAddress.get());
  rule.remote_port = remotePort;
  rule.direction = const_cast<char *>(direction.get());
  rule.host_mac = const_cast<char *>(hostMac.get());

  rule.method_list = joined_list_copy(env, jmethodList);
  rule.second_list = joined_list_copy(env, jsecondList);
  rule.header_list = joined_list_copy(env, jheaderList);
  bundle::JavaChars bundleName(env, jbundleName);
  rule.bundle_name = const_cast<char *>(bundleName.get());
  if (bundle::acquire_failed(env, remoteAddress, direction, hostMac, bundleName)) {
    free(rule.method_list);
    free(rule.second_list);
    free(rule.header_list);
    return -1;
  }

  int rc = -1;
  // A list the heap had no room for fails the call before the platform sees a half rule.
  if (rule.method_list != nullptr && rule.second_list != nullptr && rule.header_list != nullptr)
    rc = brelo_addHTTPTrafficProcessRule(&rule);
  BUNDLE_TRACE("addHTTPTrafficProcessRuleJni: return code = %d   leave============>\n", rc);
  remoteAddress.release();
  direction.release();
  hostMac.release();
  bundleName.release();
  free(rule.method_list);
  free(rule.second_list);
  free(rule.header_list);
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteHTTPTrafficProcessRuleJni(
    JNIEnv *, jobject, jint ruleIndex) {
  int rc = transfer::rule_index_valid(ruleIndex) ? brelo_deleteHTTPTrafficProcessRule(ruleIndex) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteAllHTTPTrafficProcessRuleJni(
    JNIEnv *, jobject) {
  int rc = brelo_deleteAllHTTPTrafficProcessRule();
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni(
    JNIEnv *env, jobject) {
  HttpTrafficProcessRule *list = nullptr;
  int count = 0;
  int rc = brelo_getHTTPTrafficProcessRuleInfo(&list, &count);
  count = bundle::platform_list_count(list, count);

  transfer::RuleListText reply(rc, count);
  if (rc == 0) {
    for (int i = 0; list != nullptr && i < count; ++i) {
      const HttpTrafficProcessRule &r = list[i];
      // The port is a number written inside quotes, and the two lists go between the
      // brackets raw, as the platform keeps them: both kept on purpose, Java reads them so.
      // The hardened profile places a list only when it is the inside of a JSON array.
      reply.append("{\"RemoteAddress\":\"%s\",\"RemotePort\":\"%d\",\"Direction\":\"%s\","
                   "\"HostMAC\":\"%s\",\"MethodList\":[%s],\"HeaderList\":[%s],"
                   "\"BundleName\":\"%s\"}",
                   transfer::field_text(r.remote_address), static_cast<int>(r.remote_port),
                   transfer::field_text(r.direction), transfer::field_text(r.host_mac),
                   bundle::raw_json(transfer::field_text(r.method_list), bundle::RawJson::kItems),
                   bundle::raw_json(transfer::field_text(r.header_list), bundle::RawJson::kItems),
                   transfer::field_text(r.bundle_name));
      if (i != count - 1) reply.append(",");
    }
  }
  reply.finish();

  // The platform's list, on failure too: every text of every rule but the second list,
  // which stays the platform's, then the array.
  if (list != nullptr) {
    for (int i = 0; i < count; ++i) {
      free(list[i].remote_address);
      free(list[i].direction);
      free(list[i].host_mac);
      free(list[i].method_list);
      free(list[i].header_list);
      free(list[i].bundle_name);
    }
    free(list);
  }
  return BUNDLE_JSON_REPLY(env, reply.text());
}

}  // extern "C"
