// com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp: what the gateway is
// (identity record, MAC address, uptime, load) and the fixed identity of the OSGi framework
// and Java virtual machine it runs.
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_device.h"

namespace {

// Replies {"Result":0,"Name":...,"Vendor":...,"Version":...} for a fixed software identity
// (each text far shorter than the 127 characters a member holds).
jstring identity_reply(JNIEnv *env, bundle::TraceName native, const char *name, const char *vendor,
                       const char *version) {
  bundle::Reply<1024> reply;
  reply.append("{\"Result\":0,\"Name\":\"%s\",\"Vendor\":\"%s\",\"Version\":\"%s\"}", name, vendor,
               version);
  return bundle::traced_native_reply(env, native, __LINE__, reply.c_str());
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceInfoJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  BUNDLE_TRACE_PUTS("enter");

  DeviceInfoRecord info;
  memset(&info, 0, sizeof info);
  brelo_deviceGetInfo(&info);  // its result is not examined: the reply is always Result 0
  bundle::terminate_field(info.vendor);
  bundle::terminate_field(info.product_class);
  bundle::terminate_field(info.hardware_version);
  bundle::terminate_field(info.firmware_version);
  bundle::terminate_field(info.main_chip_class);
  bundle::terminate_field(info.nfc);

  // "ProductCLass", capital L, is the wire name Java bundles read.
  reply.append("{\"Result\":0,\"Vendor\":\"%s\",\"ProductCLass\":\"%s\",\"HardwareVer\":\"%s\","
               "\"FirmwareVer\":\"%s\",\"FlashSize\":%d,\"RamSize\":%d,\"MainChipClass\":\"%s\","
               "\"NFC\":\"%s\"}",
               info.vendor, info.product_class, info.hardware_version, info.firmware_version,
               static_cast<int>(info.flash_size), static_cast<int>(info.ram_size),
               info.main_chip_class, info.nfc);

  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceMACJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<128> mac;
  brelo_deviceGetMac(mac.out());
  return BUNDLE_JSON_REPLY(env, mac.text());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceUpTimeJni(
    JNIEnv *, jobject) {
  int uptime = brelo_deviceGetUpTime();
  return BUNDLE_CODE_REPLY(uptime);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getOSGiInfoJni(
    JNIEnv *env, jobject) {
  return identity_reply(env, BUNDLE_NATIVE, "OSGI", "Apache Felix", "5.4.0");
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getJVMInfoJni(
    JNIEnv *env, jobject) {
  return identity_reply(env, BUNDLE_NATIVE, "JVM", "Oracle", "1.8.0");
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getAPIVersionJni(
    JNIEnv *env, jobject) {
  bundle::Reply<64> version;
  version.append("v1.0");  // plain text, not JSON
  return BUNDLE_JSON_REPLY(env, version.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getCPUOccupancyRateJni(
    JNIEnv *, jobject) {
  int rate = brelo_deviceGetCPUOccupancyRate();
  return BUNDLE_CODE_REPLY(rate);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getRAMOccupancyRateJni(
    JNIEnv *, jobject) {
  int rate = brelo_deviceGetRAMOccupancyRate();
  return BUNDLE_CODE_REPLY(rate);
}

}  // extern "C"
