// com.lumarest.smartgateway.lanservices.WlanSecretQueryServiceImp: an SSID's password.
#include "common/hardened.h"
#include "common/native.h"
#include "common/platform_wlan.h"

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni(
    JNIEnv *env, jobject, jint ssidIndex) {
  bundle::PlatformText<WLAN_PASSWORD_SIZE> password;
  brelo_wlanGetSSIDPassword(ssidIndex, password.out());  // its result is not examined
  // The bare password (not JSON), printed in clear when tracing is on (masked when hardened).
  BUNDLE_TRACE("getWLANSSIDPasswordJni: return json = %s   leave============>\n",
               bundle::secret(password.text()));
  return bundle::new_reply_string(env, password.text());
}

}  // extern "C"
