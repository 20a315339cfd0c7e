// com.lumarest.smartgateway.lanservices.WlanSecretQueryServiceImp: an SSID's password.
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_wlan.h"

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni(
    JNIEnv *env, jobject, jint ssidIndex) {
  bundle::PlatformText<WLAN_PASSWORD_SIZE> password;
  brelo_wlanGetSSIDPassword(ssidIndex, password.out());  // its result is not examined
  // The bare password (not JSON), printed in clear when tracing is on (masked when hardened).
  return BUNDLE_SECRET_REPLY(env, password.text());
}

}  // extern "C"
