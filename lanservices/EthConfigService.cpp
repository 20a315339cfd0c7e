// com.lumarest.smartgateway.lanservices.EthConfigServiceImp: enable, maximum bit rate and
// duplex mode of one LAN Ethernet port. The texts are not validated here; the platform
// judges them.
#include "common/native.h"
#include "common/platform_lan.h"

namespace {

typedef int (*PortTextSetter)(int port, const char *text);

// Copies the Java text into a zero-filled 32-byte buffer (cut at 31 bytes), gives the text
// back at once, then hands the copy to the platform.
__attribute__((noinline)) int set_port_text(JNIEnv *env, bundle::TraceName native, jint port,
                                            jstring jtext, PortTextSetter setter) {
  char copy[32];
  if (!bundle::take_text(env, jtext, copy)) return -1;
  int rc = setter(port, copy);
  bundle::trace_named(native, __LINE__, ":  ret =%d  \n", rc);
  return rc;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetEnableJni(
    JNIEnv *, jobject, jint port, jboolean enable) {
  // True only when the low byte is exactly 1.
  int flag = (static_cast<unsigned int>(enable) & 0xFFu) == 1u ? 1 : 0;
  BUNDLE_TRACE_NAMED(", line=%d: C_Index = %d ,enable = %d \n", __LINE__,
               static_cast<int>(port), flag);
  int rc = brelo_setLANEthernetEnable(port, flag);
  BUNDLE_TRACE_NAMED(":  ret =%d  \n", rc);
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetMaxBitRateJni(
    JNIEnv *env, jobject, jint port, jstring rate) {
  return set_port_text(env, BUNDLE_NATIVE, port, rate, brelo_setLANEthernetMaxBitRate);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_setLANEthernetDuplexModeJni(
    JNIEnv *env, jobject, jint port, jstring mode) {
  return set_port_text(env, BUNDLE_NATIVE, port, mode, brelo_setLANEthernetDuplexMode);
}

}  // extern "C"
