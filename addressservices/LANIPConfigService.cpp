// com.lumarest.smartgateway.addressservices.LANIPConfigServiceImp: sets the gateway's LAN
// address and its DHCP server.
#include <strings.h>

#include "common/native.h"
#include "common/platform_address.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANHostIPJni(
    JNIEnv *env, jobject, jstring jaddress, jstring jmask) {
  bundle::JavaChars address(env, jaddress);
  bundle::JavaChars mask(env, jmask);
  if (bundle::acquire_failed(env, address, mask)) return -1;
  // No syntax check here: the platform judges the texts.
  int rc = brelo_lanSetLanHostIP(address.or_empty(), mask.or_empty());
  BUNDLE_TRACE("setLANHostIPJni: return code = %d   leave============>\n", rc);
  address.release();
  mask.release();
  return rc;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANDHCPInfoJni(
    JNIEnv *env, jobject, jstring jenable, jstring jstart, jstring jend, jint duration) {
  bundle::JavaChars enable_text(env, jenable);
  bundle::JavaChars start(env, jstart);
  bundle::JavaChars end(env, jend);
  int enable;
  if (!enable_text.is_null() && strcasecmp(enable_text.get(), "TRUE") == 0) {
    enable = 1;
  } else if (!enable_text.is_null() && strcasecmp(enable_text.get(), "FALSE") == 0) {
    enable = 0;
  } else {
    // Kept on purpose: an enable text other than TRUE/FALSE returns at once and never gives
    // the three texts back.
    enable_text.keep();
    start.keep();
    end.keep();
    return -1;
  }
  // A pool text that could not be obtained leaves the DHCP server as it is.
  if (bundle::acquire_failed(env, enable_text, start, end)) return -1;
  // The pool and the duration go to the platform as given, reversed or malformed alike.
  int rc = brelo_lanSetLANDHCPInfo(enable, start.or_empty(), end.or_empty(), duration);
  BUNDLE_TRACE("setLANDHCPInfoJni: return code = %d   leave============>\n", rc);
  enable_text.release();
  start.release();
  end.release();
  return rc;
}

}  // extern "C"
