// com.lumarest.smartgateway.addressservices.LANIPInfoQueryServiceImp: the gateway's LAN
// addresses and the settings of its DHCP server.
#include <stdio.h>

#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_address.h"

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANHostIPJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  bundle::PlatformText<LAN_IP_TEXT_SIZE> ipv4;
  bundle::PlatformText<LAN_IP_TEXT_SIZE> mask;
  bundle::PlatformText<LAN_IPV6_TEXT_SIZE> ipv6_first;
  bundle::PlatformText<LAN_IPV6_TEXT_SIZE> ipv6_second;
  bundle::PlatformText<LAN_IP_TEXT_SIZE> prefix_len;
  brelo_lanGetHostIP(ipv4.out(), mask.out(), ipv6_first.out(), ipv6_second.out(),
                     prefix_len.out());
  const char *first = ipv6_first.text();
  // Only the first address decides the separator: a first address without a second one
  // keeps its trailing comma.
  reply.append(
      "{\"Result\":0,\"LocalIPv4\":\"%s\",\"LocalIPv6\":\"%s%s%s\",\"Submask\":\"%s\","
      "\"Prefix_len\":\"%s\"}",
      ipv4.text(), first, first[0] != '\0' ? "," : "", ipv6_second.text(), mask.text(),
      prefix_len.text());
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANDHCPInfoJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  DhcpServerSettings settings;
  memset(&settings, 0, sizeof settings);
  brelo_dhcpdGetServerSettings(&settings);
  bundle::terminate_field(settings.start);
  bundle::terminate_field(settings.end);
  reply.append("{\"Result\":0,\"EnableDHCPServer\":\"%s\",\"DHCPStartIP\":\"%s\",\"DHCPEndIP\":\"%s\","
               "\"DHCPDuration\":%d}",
               settings.enabled == 1 ? "TRUE" : "FALSE", settings.start, settings.end,
               static_cast<int>(settings.lease));
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
