// com.lumarest.smartgateway.commservices.DeviceSecretInfoQueryServiceImp: the manufacturer
// OUI, the serial number and the factory default credentials printed on the device label.
// Each native replies with the plain text the platform wrote into a zeroed buffer; the
// platform's own result code is ignored, so a getter that fails gives the empty text.
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_device.h"

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceManufacturerOUIJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<64> oui;
  brelo_devInfoGetManufacturerOUI(oui.out());
  return BUNDLE_JSON_REPLY(env, oui.text());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceSerialNumberJni(
    JNIEnv *env, jobject) {
  // 129 bytes, not 128: a 128-character serial number stays terminated.
  bundle::PlatformText<129> serial;
  brelo_devInfoGetSerialNumber(serial.out());
  return BUNDLE_JSON_REPLY(env, serial.text());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultWebPasswordJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<256> password;
  brelo_devInfoGetDefaultWebPasswd(password.out(), password.size());
  return BUNDLE_SECRET_REPLY(env, password.text());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1NameJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<256> ssid;
  brelo_wlanGetDefaultSSIDName(ssid.out(), ssid.size());
  return BUNDLE_JSON_REPLY(env, ssid.text());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDeviceDefaultSSID1PasswordJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<256> password;
  brelo_wlanGetDefaultSSIDPasswd(password.out(), password.size());
  return BUNDLE_SECRET_REPLY(env, password.text());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDevicePasswordJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<256> password;
  brelo_devInfoGetPasswd(password.out());  // this getter takes no size
  return BUNDLE_SECRET_REPLY(env, password.text());
}

}  // extern "C"
