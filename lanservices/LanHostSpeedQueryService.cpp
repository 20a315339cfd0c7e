// com.lumarest.smartgateway.lanservices.LanHostSpeedQueryServiceImp: a LAN host's current
// speed.
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_lan.h"
#include "lanservices/lan_hosts.h"

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LanHostSpeedQueryServiceImp_getLANHostSpeedJni(
    JNIEnv *env, jobject, jstring jmac) {
  bundle::Reply<256> reply;  // the longest reply has 58 characters
  int up = 0;
  int down = 0;
  bundle::JavaChars mac_text(env, jmac);
  unsigned char mac[6];  // written whole by parse_binary_mac before use
  if (!mac_text.is_null() && bundle::parse_binary_mac(mac_text.get(), mac) &&
      brelo_lanGetDevBandwidth(mac, &up, &down) == 0) {
    // Lower-case member names here, unlike the speed-limit list.
    reply.append("{\"Result\":0,\"upSpeed\":%d,\"downSpeed\":%d}", up, down);
  } else {
    reply.append("{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}");
  }
  mac_text.release();
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
