// com.lumarest.smartgateway.lanservices.WlanConfigServiceImp: switches SSIDs and radios, sets
// an SSID's security and the radios' standard, channel, power and width, starts and stops
// WPS, and manages the guest SSID. Each setter makes exactly one platform call; the platform
// owns every range, index and name check.
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_wlan.h"

namespace {

// WPS acts on SSID 1 whatever Java asks while this file exists (bench testing of the button).
const char kWpsDebugFlag[] = "/tmp/wps_debug";

// Encryption configured when Java sends none.
const char kDefaultEncryption[] = "MIXED-WPAPSK2";

// A Java boolean reaches the platform as 1 only when its low byte is exactly 1.
int platform_flag(jboolean value) { return static_cast<unsigned char>(value) == 1 ? 1 : 0; }

// Java texts reach the platform in zero-filled fixed buffers (Java sends short values; a
// longer one is cut rather than overflowing): bundle::take_text and bundle::copy_padded leave
// exactly those bytes.

int success_or_failure(int rc) { return rc == 0 ? 0 : -1; }

int wps_index(jint ssidIndex) { return bundle::flag_file_exists(kWpsDebugFlag) ? 1 : ssidIndex; }

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSwitchJni(
    JNIEnv *, jobject, jint ssidIndex, jboolean enable) {
  int ret = success_or_failure(brelo_wlansetWLANSSIDSwitch(ssidIndex, platform_flag(enable)));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDAdvertisementJni(
    JNIEnv *, jobject, jint ssidIndex, jboolean enabled) {
  int ret = success_or_failure(brelo_wlanSetSSIDAdvertisement(ssidIndex, platform_flag(enabled)));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANHardwareSwitchJni(
    JNIEnv *env, jobject, jstring jradioType, jboolean enable) {
  char radio[64];  // written whole before use
  // The platform's own code goes back to Java.
  int ret = bundle::take_text(env, jradioType, radio)
                ? brelo_wlanSetWLANRadioSwitch(radio, platform_flag(enable))
                : -1;
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSecurityJni(
    JNIEnv *env, jobject, jint ssidIndex, jstring jssidName, jstring jencrypt,
    jstring jpassword) {
  char name[64];  // written whole before use
  char mode[64];  // written whole before use
  char password[64];  // written whole before use

  bundle::JavaChars ssidName(env, jssidName);
  if (ssidName.is_null()) {
    ssidName.release();
    return -1;
  }
  bundle::copy_padded(name, ssidName.get());
  ssidName.release();

  bundle::JavaChars encrypt(env, jencrypt);
  if (encrypt.is_null() || encrypt.get()[0] == '\0') {
    bundle::copy_padded(mode, kDefaultEncryption);
    // Deliberately not given back: an empty encryption text stays borrowed (and a failed
    // copy has nothing to give back).
    encrypt.keep();
  } else {
    bundle::copy_padded(mode, encrypt.get());
    encrypt.release();
  }

  bundle::JavaChars pass(env, jpassword);
  bundle::copy_padded(password, "");  // no password: an empty one
  if (!pass.is_null()) {
    bundle::copy_padded(password, pass.get());
    // Deliberately released naming the encryption string object; the VM frees the text by
    // its pointer. A null encryption object cannot be named, so the password's own is.
    env->ReleaseStringUTFChars(jencrypt != nullptr ? jencrypt : jpassword, pass.get());
  }
  pass.keep();  // given back above, or nothing to give back
  // An encryption or password text that could not be obtained leaves the security as it is.
  if (bundle::exception_pending(env)) return -1;

  // The password is printed in clear when tracing is on.
  BUNDLE_TRACE("setWLANSSIDSecurity, line=%d: ssidIndex = %d ,ssidname= %s ,encrypt=%s, password=%s\n",
               __LINE__, ssidIndex, name, mode, bundle::secret(password));
  return success_or_failure(brelo_wlanSetSecurity(ssidIndex, name, mode, password));
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANStandardJni(
    JNIEnv *env, jobject, jstring jradioType, jstring jstandard) {
  char radio[32];  // written whole before use
  char standard[32];  // written whole before use
  int ret = -1;

  // The radio type is read and given back before the standard is read.
  if (bundle::take_text(env, jradioType, radio) && bundle::take_text(env, jstandard, standard))
    ret = success_or_failure(brelo_wlanSetWLANStandard(radio, standard));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioChannelJni(
    JNIEnv *env, jobject, jstring jradioType, jint channel) {
  char radio[32];  // written whole before use
  int ret = -1;

  if (bundle::take_text(env, jradioType, radio))
    ret = success_or_failure(brelo_wlansetWLANRadioChannel(radio, channel));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioPowerJni(
    JNIEnv *env, jobject, jstring jradioType, jint transmitPower) {
  char radio[32];  // written whole before use
  int ret = -1;

  if (bundle::take_text(env, jradioType, radio))
    ret = success_or_failure(brelo_wlansetWLANRadioPower(radio, transmitPower));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANRadioFrequencyWidthJni(
    JNIEnv *env, jobject, jstring jradioType, jstring jfrequencyWidth) {
  char radio[32];  // written whole before use
  char width[32];  // written whole before use
  int ret = -1;

  if (bundle::take_text(env, jradioType, radio) && bundle::take_text(env, jfrequencyWidth, width))
    ret = success_or_failure(brelo_wlansetWLANRadioFrequencyWidth(radio, width));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_startWLANWPSJni(
    JNIEnv *, jobject, jint ssidIndex) {
  int rc = brelo_wlanstartWLANWPS(wps_index(ssidIndex));
  // The platform's refusals -1 .. -5 reach Java as they are; anything else unexpected is -100.
  int ret;
  if (rc == 0 || (rc <= -1 && rc >= -5)) {
    ret = rc;
  } else {
    ret = -100;
  }
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_stopWLANWPSJni(
    JNIEnv *, jobject, jint ssidIndex) {
  int ret = success_or_failure(brelo_wlanstopWLANWPS(wps_index(ssidIndex)));
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_addWLANGuestSSIDJni(
    JNIEnv *, jobject, jint ssidIndex) {
  int ret = brelo_wlansetGuestSSIDIndex(ssidIndex);
  return BUNDLE_CODE_REPLY(ret);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_deleteWLANGuestSSIDJni(
    JNIEnv *, jobject, jint ssidIndex) {
  int ret = brelo_wlandelGuestSSID(ssidIndex);
  return BUNDLE_CODE_REPLY(ret);
}

// The two guest tunings are pure pass-throughs: no trace.
JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestPortIsolationJni(
    JNIEnv *, jobject, jint ssidIndex, jboolean isolate) {
  return brelo_wlansetGuestPortIsolation(ssidIndex, platform_flag(isolate));
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANGuestDurationJni(
    JNIEnv *, jobject, jint ssidIndex, jint duration) {
  return brelo_wlansetGuestDuration(ssidIndex, duration);
}

}  // extern "C"
