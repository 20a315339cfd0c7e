// com.lumarest.smartgateway.commservices.DeviceSecretInfoQueryServiceImp
#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_##m
extern "C" {
jstring NATIVE(getDeviceManufacturerOUIJni)(JNIEnv *, jobject);
jstring NATIVE(getDeviceSerialNumberJni)(JNIEnv *, jobject);
jstring NATIVE(getDeviceDefaultWebPasswordJni)(JNIEnv *, jobject);
jstring NATIVE(getDeviceDefaultSSID1NameJni)(JNIEnv *, jobject);
jstring NATIVE(getDeviceDefaultSSID1PasswordJni)(JNIEnv *, jobject);
jstring NATIVE(getDevicePasswordJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class DeviceSecretInfoQueryService : public testsupport::BridgeTest {};

TEST_F(DeviceSecretInfoQueryService, EachNativeRepliesWithItsPlatformText) {
  sim_set("secrets", "manufacturer_oui", "001A2B");
  sim_set("secrets", "serial_number", "LMR2000A1B2C3D4");
  sim_set("secrets", "default_web_password", "Lmr@8x2k");
  sim_set("secrets", "default_ssid1_name", "LMR-3C4D5E");
  sim_set("secrets", "default_ssid1_password", "k9w2hq7z");
  sim_set("secrets", "password", "useradmin");
  EXPECT_EQ(text(NATIVE(getDeviceManufacturerOUIJni)(env(), self())), "001A2B");
  EXPECT_EQ(text(NATIVE(getDeviceSerialNumberJni)(env(), self())), "LMR2000A1B2C3D4");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultWebPasswordJni)(env(), self())), "Lmr@8x2k");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultSSID1NameJni)(env(), self())), "LMR-3C4D5E");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultSSID1PasswordJni)(env(), self())), "k9w2hq7z");
  EXPECT_EQ(text(NATIVE(getDevicePasswordJni)(env(), self())), "useradmin");
  // Sizes are passed to the three getters that take one, and to no other.
  EXPECT_EQ(log(),
            "brelo_devInfoGetManufacturerOUI()\n"
            "brelo_devInfoGetSerialNumber()\n"
            "brelo_devInfoGetDefaultWebPasswd(256)\n"
            "brelo_wlanGetDefaultSSIDName(256)\n"
            "brelo_wlanGetDefaultSSIDPasswd(256)\n"
            "brelo_devInfoGetPasswd()\n");
}

TEST_F(DeviceSecretInfoQueryService, APlatformThatWritesNothingGivesEmptyTexts) {
  EXPECT_EQ(text(NATIVE(getDeviceManufacturerOUIJni)(env(), self())), "");
  EXPECT_EQ(text(NATIVE(getDeviceSerialNumberJni)(env(), self())), "");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultWebPasswordJni)(env(), self())), "");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultSSID1NameJni)(env(), self())), "");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultSSID1PasswordJni)(env(), self())), "");
  EXPECT_EQ(text(NATIVE(getDevicePasswordJni)(env(), self())), "");
}

TEST_F(DeviceSecretInfoQueryService, FailingGettersStillGiveWhatTheyLeft) {
  sim_set("secrets", "password", "left-behind");
  sim_program_result("brelo_devInfoGetPasswd", -1);
  EXPECT_EQ(text(NATIVE(getDevicePasswordJni)(env(), self())), "left-behind");
}

TEST_F(DeviceSecretInfoQueryService, SerialNumberOf128CharactersIsReturnedWhole) {
  std::string serial(128, 'S');
  serial[0] = 'A';
  serial[127] = 'Z';
  sim_set("secrets", "serial_number", serial.c_str());
  EXPECT_EQ(text(NATIVE(getDeviceSerialNumberJni)(env(), self())), serial);
}

TEST_F(DeviceSecretInfoQueryService, TextsAreCutAtTheirBuffers) {
  sim_set("secrets", "manufacturer_oui", std::string(100, 'o').c_str());
  sim_set("secrets", "default_ssid1_name", std::string(400, 's').c_str());
  EXPECT_EQ(text(NATIVE(getDeviceManufacturerOUIJni)(env(), self())), std::string(63, 'o'));
  EXPECT_EQ(text(NATIVE(getDeviceDefaultSSID1NameJni)(env(), self())), std::string(255, 's'));
}

TEST_F(DeviceSecretInfoQueryService, SsidNameWithEmojiAndGbkBytesArrivesAsJavaCharacters) {
  sim_set("secrets", "default_ssid1_name", "Home\xF0\x9F\x8F\xA0\xBC\xD2");
  EXPECT_EQ(text(NATIVE(getDeviceDefaultSSID1NameJni)(env(), self())),
            "Home\xED\xA0\xBC\xED\xBF\xA0\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(DeviceSecretInfoQueryService, TraceNamesTheNativeAndTheText) {
  sim_set("secrets", "manufacturer_oui", "001A2B");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getDeviceManufacturerOUIJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_"
            "getDeviceManufacturerOUIJni:N:getDeviceManufacturerOUIJni: return json = 001A2B"
            "   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
