// com.lumarest.smartgateway.lanservices.LanHostSpeedLimitServiceImp: a LAN host's bandwidth
// limits.
#include "common/native.h"
#include "common/platform_lan.h"
#include "lanservices/lan_hosts.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanHostSpeedLimitServiceImp_setLANHostSpeedLimitJni(
    JNIEnv *env, jobject, jstring jmac, jint up, jint down) {
  bundle::JavaChars mac_text(env, jmac);
  int result = -1;
  unsigned char mac[6];  // written whole by parse_binary_mac before use
  if (!mac_text.is_null() && bundle::parse_binary_mac(mac_text.get(), mac)) {
    result = brelo_lanSetDevMaxBandwidth(mac, up, down) == 0 ? 0 : -1;
  }
  BUNDLE_TRACE("setLANHostSpeedLimitJni: return code = %d   leave============>\n", result);
  mac_text.release();  // also when the text could not be obtained
  return result;
}

}  // extern "C"
