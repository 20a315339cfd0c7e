// com.lumarest.smartgateway.lanservices.LanNetworkNameConfigServiceImp: names the gateway and
// individual LAN hosts.
#include <stdio.h>

#include "common/native.h"
#include "common/platform_lan.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setGatewayNameJni(
    JNIEnv *env, jobject, jstring jname) {
  bundle::JavaChars name(env, jname);
  if (bundle::acquire_failed(env, name)) return -1;
  int rc = brelo_sysSetGatewayName(name.or_empty());
  BUNDLE_TRACE("setGatewayNameJni: return code = %d   leave============>\n", rc);
  name.release();
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_setLANHostNameJni(
    JNIEnv *env, jobject, jstring jmac, jstring jname) {
  bundle::JavaChars mac(env, jmac);
  bundle::JavaChars name(env, jname);
  if (bundle::acquire_failed(env, mac, name)) return -1;
  int rc = brelo_lanSetLanHostName(mac.or_empty(), name.or_empty());
  // This native alone prints its closing line always: no flag file, no prefix, no flush.
  printf("lanservicessetLANHostNameJni: return code = %d   leave============>\n", rc);
  mac.release();
  name.release();
  return rc;
}

}  // extern "C"
