// com.lumarest.smartgateway.lanservices.WlanConfigServiceImp
#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_##m
extern "C" {
jint NATIVE(setWLANSSIDSwitchJni)(JNIEnv *, jobject, jint, jboolean);
jint NATIVE(setWLANSSIDAdvertisementJni)(JNIEnv *, jobject, jint, jboolean);
jint NATIVE(setWLANHardwareSwitchJni)(JNIEnv *, jobject, jstring, jboolean);
jint NATIVE(setWLANSSIDSecurityJni)(JNIEnv *, jobject, jint, jstring, jstring, jstring);
jint NATIVE(setWLANStandardJni)(JNIEnv *, jobject, jstring, jstring);
jint NATIVE(setWLANRadioChannelJni)(JNIEnv *, jobject, jstring, jint);
jint NATIVE(setWLANRadioPowerJni)(JNIEnv *, jobject, jstring, jint);
jint NATIVE(setWLANRadioFrequencyWidthJni)(JNIEnv *, jobject, jstring, jstring);
jint NATIVE(startWLANWPSJni)(JNIEnv *, jobject, jint);
jint NATIVE(stopWLANWPSJni)(JNIEnv *, jobject, jint);
jint NATIVE(addWLANGuestSSIDJni)(JNIEnv *, jobject, jint);
jint NATIVE(deleteWLANGuestSSIDJni)(JNIEnv *, jobject, jint);
jint NATIVE(setWLANGuestPortIsolationJni)(JNIEnv *, jobject, jint, jboolean);
jint NATIVE(setWLANGuestDurationJni)(JNIEnv *, jobject, jint, jint);
}

namespace wlan_config_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kPrefix[] = "Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_";
const char kWpsFlag[] = "/tmp/wps_debug";

class WlanConfigService : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    sim_set("wlan ssid 1", "enable", "1");
    sim_set("wlan ssid 2", "enable", "0");
    sim_set("wlan ssid 2", "hidden", "0");
    sim_set("wlan radio 0", "type", "2.4G");
    sim_set("wlan radio 1", "type", "5G");
    sim_clear_log();
  }
  // A jboolean whose byte is `b` (Java only ever passes 0 or 1).
  static jboolean byte(int b) { return static_cast<jboolean>(b); }
};

// --- boolean flags and 0/-1 results ---------------------------------------------------------

TEST_F(WlanConfigService, SsidSwitchPassesIndexAndFlag) {
  EXPECT_EQ(NATIVE(setWLANSSIDSwitchJni)(env(), self(), 2, JNI_TRUE), 0);
  EXPECT_EQ(log(), "brelo_wlansetWLANSSIDSwitch(2, 1)\n");
  EXPECT_STREQ(sim_get("wlan ssid 2", "enable"), "1");
}

TEST_F(WlanConfigService, OnlyALowByteOfExactlyOneIsTrue) {
  NATIVE(setWLANSSIDSwitchJni)(env(), self(), 2, byte(2));
  NATIVE(setWLANSSIDSwitchJni)(env(), self(), 2, byte(0xFF));
  NATIVE(setWLANSSIDSwitchJni)(env(), self(), 2, byte(0));
  NATIVE(setWLANSSIDSwitchJni)(env(), self(), 2, byte(1));
  EXPECT_EQ(log(),
            "brelo_wlansetWLANSSIDSwitch(2, 0)\nbrelo_wlansetWLANSSIDSwitch(2, 0)\n"
            "brelo_wlansetWLANSSIDSwitch(2, 0)\nbrelo_wlansetWLANSSIDSwitch(2, 1)\n");
}

TEST_F(WlanConfigService, SsidSwitchCollapsesFailuresToMinusOne) {
  sim_program_result("brelo_wlansetWLANSSIDSwitch", -7);
  EXPECT_EQ(NATIVE(setWLANSSIDSwitchJni)(env(), self(), 1, JNI_FALSE), -1);
  sim_program_result("brelo_wlansetWLANSSIDSwitch", 3);
  EXPECT_EQ(NATIVE(setWLANSSIDSwitchJni)(env(), self(), 1, JNI_FALSE), -1);
}

TEST_F(WlanConfigService, SsidSwitchTracesItsReturnCode) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(setWLANSSIDSwitchJni)(env(), self(), 9, JNI_TRUE);  // unknown SSID: refused
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kPrefix) +
                "setWLANSSIDSwitchJni:N:setWLANSSIDSwitchJni: return code = -1   leave============>\n");
}

TEST_F(WlanConfigService, AdvertisementPassesTheFlagAndHidesTheSsid) {
  EXPECT_EQ(NATIVE(setWLANSSIDAdvertisementJni)(env(), self(), 2, JNI_FALSE), 0);
  EXPECT_EQ(NATIVE(setWLANSSIDAdvertisementJni)(env(), self(), 2, byte(3)), 0);
  EXPECT_EQ(log(), "brelo_wlanSetSSIDAdvertisement(2, 0)\nbrelo_wlanSetSSIDAdvertisement(2, 0)\n");
  EXPECT_STREQ(sim_get("wlan ssid 2", "hidden"), "1");
  sim_program_result("brelo_wlanSetSSIDAdvertisement", 1);
  EXPECT_EQ(NATIVE(setWLANSSIDAdvertisementJni)(env(), self(), 2, JNI_TRUE), -1);
}

// --- radio switch: the platform's own code ----------------------------------------------------

TEST_F(WlanConfigService, HardwareSwitchHandsThePlatformsCodeToJava) {
  EXPECT_EQ(NATIVE(setWLANHardwareSwitchJni)(env(), self(), jvm().str("5G"), JNI_FALSE), 0);
  EXPECT_STREQ(sim_get("wlan radio 1", "enable"), "0");
  sim_program_result("brelo_wlanSetWLANRadioSwitch", 7);
  EXPECT_EQ(NATIVE(setWLANHardwareSwitchJni)(env(), self(), jvm().str("2.4G"), byte(1)), 7);
  EXPECT_EQ(log(), "brelo_wlanSetWLANRadioSwitch(\"5G\", 0)\nbrelo_wlanSetWLANRadioSwitch(\"2.4G\", 1)\n");
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().released(), 2);
}

TEST_F(WlanConfigService, HardwareSwitchGivesTheRadioTypeBackBeforeTheCall) {
  jstring radio = jvm().str("2.4G");
  NATIVE(setWLANHardwareSwitchJni)(env(), self(), radio, JNI_TRUE);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n");
}

TEST_F(WlanConfigService, HardwareSwitchWithAnUnreadableRadioTypeIsMinusOne) {
  EXPECT_EQ(NATIVE(setWLANHardwareSwitchJni)(env(), self(), jvm().failing_str(), JNI_TRUE), -1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
  EXPECT_EQ(NATIVE(setWLANHardwareSwitchJni)(env(), self(), nullptr, JNI_TRUE), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WlanConfigService, HardwareSwitchEmptyRadioTypeIsLeftToThePlatform) {
  EXPECT_EQ(NATIVE(setWLANHardwareSwitchJni)(env(), self(), jvm().str(""), JNI_TRUE), -1);
  EXPECT_EQ(log(), "brelo_wlanSetWLANRadioSwitch(\"\", 1)\n");
}

TEST_F(WlanConfigService, HardwareSwitchCutsAnOverlongRadioTypeAt63Bytes) {
  NATIVE(setWLANHardwareSwitchJni)(env(), self(), jvm().str(std::string(200, 'r')), JNI_TRUE);
  EXPECT_EQ(log(), "brelo_wlanSetWLANRadioSwitch(\"" + std::string(63, 'r') + "\", 1)\n");
}

// --- security -------------------------------------------------------------------------------

TEST_F(WlanConfigService, SecurityPassesTheThreeTextsAndChangesTheSsid) {
  jvm().release_by_pointer(true);
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, jvm().str("Home"), jvm().str("WPAPSK2"),
                                           jvm().str("secret99")),
            0);
  EXPECT_EQ(log(), "brelo_wlanSetSecurity(1, \"Home\", \"WPAPSK2\", \"secret99\")\n");
  EXPECT_STREQ(sim_get("wlan ssid 1", "name"), "Home");
  EXPECT_STREQ(sim_get("wlan ssid 1", "encryption"), "3");
  EXPECT_STREQ(sim_get("wlan ssid 1", "password"), "secret99");
}

TEST_F(WlanConfigService, SecurityReleasesThePasswordNamingTheEncryptionString) {
  jvm().release_by_pointer(true);
  jstring name = jvm().str("Home");       // s1
  jstring encrypt = jvm().str("WEP");     // s2
  jstring password = jvm().str("pw");     // s3
  NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, name, encrypt, password);
  // Deliberately: the password's text goes back under the encryption string's name.
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n"
            "GetStringUTFChars(s3)\nReleaseStringUTFChars(s2)\n");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(WlanConfigService, SecurityWithANullEncryptionConfiguresMixedWpaPsk2) {
  jvm().release_by_pointer(true);
  jstring name = jvm().str("Home");
  jstring password = jvm().str("pw");
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, name, nullptr, password), 0);
  EXPECT_EQ(log(), "brelo_wlanSetSecurity(1, \"Home\", \"MIXED-WPAPSK2\", \"pw\")\n");
  // A null encryption object can't be named: the password's own object is.
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s2)\n");
}

TEST_F(WlanConfigService, SecurityWithAnEmptyEncryptionConfiguresMixedWpaPsk2AndKeepsItsText) {
  jvm().release_by_pointer(true);
  jstring name = jvm().str("Home");
  jstring encrypt = jvm().str("");
  jstring password = jvm().str("pw");
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, name, encrypt, password), 0);
  EXPECT_EQ(log(), "brelo_wlanSetSecurity(1, \"Home\", \"MIXED-WPAPSK2\", \"pw\")\n");
  // The empty encryption text is by design never given back.
  expected_outstanding_ = 1;
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "GetStringUTFChars(s3)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(WlanConfigService, SecurityWithAnUnreadableEncryptionChangesNothing) {
  jvm().release_by_pointer(true);
  jstring name = jvm().str("Home");
  jstring encrypt = jvm().failing_str();
  jstring password = jvm().str("pw");
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, name, encrypt, password), -1);
  EXPECT_EQ(log(), "");
  // The failed copy is not given back (as an empty encryption text is not), and the password
  // is not asked for.
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(WlanConfigService, SecurityWithANullOrUnreadablePasswordConfiguresAnEmptyOne) {
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, jvm().str("Home"), jvm().str("OPEN"),
                                           nullptr),
            0);
  // A password that could not be copied changes nothing.
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, jvm().str("Home"), jvm().str("OPEN"),
                                           jvm().failing_str()),
            -1);
  EXPECT_EQ(log(), "brelo_wlanSetSecurity(1, \"Home\", \"OPEN\", \"\")\n");
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(jvm().null_releases(), 0);
}

TEST_F(WlanConfigService, SecurityWithAnUnreadableSsidNameIsMinusOneAtOnce) {
  jstring name = jvm().failing_str();
  jstring encrypt = jvm().str("OPEN");
  jstring password = jvm().str("pw");
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, name, encrypt, password), -1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, nullptr, nullptr, nullptr), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WlanConfigService, SecurityWithAnEmptySsidNameIsLeftToThePlatform) {
  jvm().release_by_pointer(true);
  NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, jvm().str(""), jvm().str("OPEN"), jvm().str(""));
  EXPECT_EQ(log(), "brelo_wlanSetSecurity(1, \"\", \"OPEN\", \"\")\n");
}

TEST_F(WlanConfigService, SecurityCollapsesFailuresAndCutsOverlongTexts) {
  jvm().release_by_pointer(true);
  // An unknown encryption name is the platform's to refuse.
  EXPECT_EQ(NATIVE(setWLANSSIDSecurityJni)(env(), self(), 1, jvm().str(std::string(100, 'n')),
                                           jvm().str(std::string(70, 'e')),
                                           jvm().str(std::string(64, 'p'))),
            -1);
  EXPECT_EQ(log(), "brelo_wlanSetSecurity(1, \"" + std::string(63, 'n') + "\", \"" +
                       std::string(63, 'e') + "\", \"" + std::string(63, 'p') + "\")\n");
}

TEST_F(WlanConfigService, SecurityTracesThePasswordInClear) {
  jvm().release_by_pointer(true);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(setWLANSSIDSecurityJni)(env(), self(), 2, jvm().str("Home"), nullptr, jvm().str("pw1"));
  std::string trace = mask_line_numbers(out.finish());
  // "line=%d" carries a fixed source line number.
  size_t at = trace.find("line=");
  ASSERT_NE(at, std::string::npos) << trace;
  size_t digits = trace.find_first_not_of("0123456789", at + 5);
  EXPECT_GT(digits, at + 5);
  trace.replace(at + 5, digits - at - 5, "L");
  EXPECT_EQ(trace, std::string(kPrefix) +
                       "setWLANSSIDSecurityJni:N:setWLANSSIDSecurity, line=L: ssidIndex = 2 "
                       ",ssidname= Home ,encrypt=MIXED-WPAPSK2, password=" +
                       (bundle::hardened_profile() ? "******" : "pw1") + "\n");
}

// --- standard, channel, power, width ----------------------------------------------------------

TEST_F(WlanConfigService, StandardPassesBothTextsAndChangesTheRadio) {
  jstring radio = jvm().str("5G");
  jstring standard = jvm().str("11ac");
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), radio, standard), 0);
  EXPECT_EQ(log(), "brelo_wlanSetWLANStandard(\"5G\", \"11ac\")\n");
  EXPECT_STREQ(sim_get("wlan radio 1", "standard"), "11");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s2)\n");
}

TEST_F(WlanConfigService, StandardOutsideThePlatformsTableIsMinusOne) {
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), jvm().str("2.4G"), jvm().str("11zz")), -1);
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), jvm().str("2.4G"), jvm().str("")), -1);
  EXPECT_EQ(sim_log_count("brelo_wlanSetWLANStandard"), 2);
}

TEST_F(WlanConfigService, StandardWithAnUnreadableSecondTextCallsNothing) {
  jstring radio = jvm().str("5G");
  jstring standard = jvm().failing_str();
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), radio, standard), -1);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s2,NULL)\n");
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), jvm().str("5G"), nullptr), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WlanConfigService, StandardWithAnUnreadableRadioTypeNeverReadsTheStandard) {
  jstring radio = jvm().failing_str();
  jstring standard = jvm().str("11n");
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), radio, standard), -1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
  EXPECT_EQ(NATIVE(setWLANStandardJni)(env(), self(), nullptr, nullptr), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WlanConfigService, StandardCutsOverlongTextsAt31Bytes) {
  NATIVE(setWLANStandardJni)(env(), self(), jvm().str(std::string(40, 'r')),
                             jvm().str(std::string(33, 's')));
  EXPECT_EQ(log(), "brelo_wlanSetWLANStandard(\"" + std::string(31, 'r') + "\", \"" +
                       std::string(31, 's') + "\")\n");
}

TEST_F(WlanConfigService, ChannelPassesRadioTypeAndNumber) {
  EXPECT_EQ(NATIVE(setWLANRadioChannelJni)(env(), self(), jvm().str("2.4G"), 11), 0);
  EXPECT_STREQ(sim_get("wlan radio 0", "channel"), "11");
  EXPECT_EQ(NATIVE(setWLANRadioChannelJni)(env(), self(), jvm().str("2.4g"), 11), -1);
  EXPECT_EQ(NATIVE(setWLANRadioChannelJni)(env(), self(), jvm().str("2.4G"), -3), -1);
  EXPECT_EQ(log(),
            "brelo_wlansetWLANRadioChannel(\"2.4G\", 11)\nbrelo_wlansetWLANRadioChannel(\"2.4g\", 11)\n"
            "brelo_wlansetWLANRadioChannel(\"2.4G\", -3)\n");
}

TEST_F(WlanConfigService, ChannelWithAnUnreadableRadioTypeIsMinusOne) {
  EXPECT_EQ(NATIVE(setWLANRadioChannelJni)(env(), self(), jvm().failing_str(), 6), -1);
  EXPECT_EQ(NATIVE(setWLANRadioChannelJni)(env(), self(), nullptr, 6), -1);
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(log(), "");
}

TEST_F(WlanConfigService, PowerPassesTheValueAndTheCodeIsCollapsed) {
  EXPECT_EQ(NATIVE(setWLANRadioPowerJni)(env(), self(), jvm().str("5G"), 60), 0);
  EXPECT_STREQ(sim_get("wlan radio 1", "power_level"), "3");
  // Values outside what the platform accepts are refused by it.
  EXPECT_EQ(NATIVE(setWLANRadioPowerJni)(env(), self(), jvm().str("5G"), 55), -1);
  EXPECT_EQ(NATIVE(setWLANRadioPowerJni)(env(), self(), jvm().str("5G"), -20), -1);
  EXPECT_EQ(NATIVE(setWLANRadioPowerJni)(env(), self(), jvm().str("5G"), 0x7FFFFFFF), -1);
  EXPECT_EQ(log(),
            "brelo_wlansetWLANRadioPower(\"5G\", 60)\nbrelo_wlansetWLANRadioPower(\"5G\", 55)\n"
            "brelo_wlansetWLANRadioPower(\"5G\", -20)\n"
            "brelo_wlansetWLANRadioPower(\"5G\", 2147483647)\n");
  EXPECT_EQ(NATIVE(setWLANRadioPowerJni)(env(), self(), nullptr, 60), -1);
  EXPECT_EQ(NATIVE(setWLANRadioPowerJni)(env(), self(), jvm().failing_str(), 60), -1);
  EXPECT_EQ(sim_log_count("brelo_wlansetWLANRadioPower"), 4);
}

TEST_F(WlanConfigService, FrequencyWidthPassesBothTexts) {
  EXPECT_EQ(NATIVE(setWLANRadioFrequencyWidthJni)(env(), self(), jvm().str("2.4G"), jvm().str("40M")),
            0);
  EXPECT_STREQ(sim_get("wlan radio 0", "width_code"), "1");
  sim_program_result("brelo_wlansetWLANRadioFrequencyWidth", 2);
  EXPECT_EQ(NATIVE(setWLANRadioFrequencyWidthJni)(env(), self(), jvm().str("2.4G"), jvm().str("40M")),
            -1);
  EXPECT_EQ(log(),
            "brelo_wlansetWLANRadioFrequencyWidth(\"2.4G\", \"40M\")\n"
            "brelo_wlansetWLANRadioFrequencyWidth(\"2.4G\", \"40M\")\n");
}

TEST_F(WlanConfigService, FrequencyWidthWithAnUnreadableTextCallsNothing) {
  jstring radio = jvm().str("5G");
  jstring width = jvm().failing_str();
  EXPECT_EQ(NATIVE(setWLANRadioFrequencyWidthJni)(env(), self(), radio, width), -1);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s2,NULL)\n");
  EXPECT_EQ(NATIVE(setWLANRadioFrequencyWidthJni)(env(), self(), nullptr, jvm().str("40M")), -1);
  EXPECT_EQ(NATIVE(setWLANRadioFrequencyWidthJni)(env(), self(), jvm().str("5G"), nullptr), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(WlanConfigService, FrequencyWidthWithAnEmptyWidthIsLeftToThePlatform) {
  EXPECT_EQ(NATIVE(setWLANRadioFrequencyWidthJni)(env(), self(), jvm().str(""), jvm().str("")), -1);
  EXPECT_EQ(log(), "brelo_wlansetWLANRadioFrequencyWidth(\"\", \"\")\n");
}

// --- WPS ----------------------------------------------------------------------------------------

TEST_F(WlanConfigService, WpsStartMapsThePlatformsCodes) {
  FlagFile wps(kWpsFlag, false);
  const struct {
    int platform, java;
  } cases[] = {{0, 0}, {-1, -1}, {-2, -2}, {-3, -3}, {-4, -4}, {-5, -5},
               {-6, -100}, {7, -100}, {1, -100}, {-100, -100}};
  for (auto &c : cases) {
    sim_program_result("brelo_wlanstartWLANWPS", c.platform);
    EXPECT_EQ(NATIVE(startWLANWPSJni)(env(), self(), 3), c.java) << c.platform;
  }
  EXPECT_EQ(sim_log_count("brelo_wlanstartWLANWPS"), 10);
}

TEST_F(WlanConfigService, WpsStartsOnTheSsidJavaNamesAndChangesItsStatus) {
  FlagFile wps(kWpsFlag, false);
  EXPECT_EQ(NATIVE(startWLANWPSJni)(env(), self(), 2), 0);
  EXPECT_STREQ(sim_get("wlan ssid 2", "wps_status"), "1");
  EXPECT_EQ(NATIVE(stopWLANWPSJni)(env(), self(), 2), 0);
  EXPECT_STREQ(sim_get("wlan ssid 2", "wps_status"), "0");
  EXPECT_EQ(log(), "brelo_wlanstartWLANWPS(2)\nbrelo_wlanstopWLANWPS(2)\n");
}

TEST_F(WlanConfigService, WithTheWpsDebugFileStartAndStopActOnSsidOne) {
  FlagFile wps(kWpsFlag, true);
  NATIVE(startWLANWPSJni)(env(), self(), 3);
  NATIVE(stopWLANWPSJni)(env(), self(), 3);
  EXPECT_EQ(log(), "brelo_wlanstartWLANWPS(1)\nbrelo_wlanstopWLANWPS(1)\n");
}

TEST_F(WlanConfigService, WpsStopHasNoCodeTable) {
  FlagFile wps(kWpsFlag, false);
  sim_program_result("brelo_wlanstopWLANWPS", -5);
  EXPECT_EQ(NATIVE(stopWLANWPSJni)(env(), self(), 1), -1);
  sim_program_result("brelo_wlanstopWLANWPS", 9);
  EXPECT_EQ(NATIVE(stopWLANWPSJni)(env(), self(), 1), -1);
}

TEST_F(WlanConfigService, WpsTracesTheMappedCode) {
  FlagFile wps(kWpsFlag, false);
  sim_program_result("brelo_wlanstartWLANWPS", 12);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(startWLANWPSJni)(env(), self(), 1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kPrefix) +
                "startWLANWPSJni:N:startWLANWPSJni: return code = -100   leave============>\n");
}

// --- guest SSID ---------------------------------------------------------------------------------

TEST_F(WlanConfigService, GuestAddAndDeleteHandThePlatformsCodeToJava) {
  EXPECT_EQ(NATIVE(addWLANGuestSSIDJni)(env(), self(), 3), 0);
  EXPECT_STREQ(sim_get("tcapi WLanForGuest_Entry0", "SSIDIndex"), "3");
  EXPECT_EQ(NATIVE(deleteWLANGuestSSIDJni)(env(), self(), 3), 0);
  EXPECT_EQ(sim_get("tcapi WLanForGuest_Entry0", "SSIDIndex"), nullptr);
  sim_program_result("brelo_wlansetGuestSSIDIndex", -3);
  sim_program_result("brelo_wlandelGuestSSID", 4);
  EXPECT_EQ(NATIVE(addWLANGuestSSIDJni)(env(), self(), 7), -3);
  EXPECT_EQ(NATIVE(deleteWLANGuestSSIDJni)(env(), self(), 7), 4);
  EXPECT_EQ(log(),
            "brelo_wlansetGuestSSIDIndex(3)\nbrelo_wlandelGuestSSID(3)\n"
            "brelo_wlansetGuestSSIDIndex(7)\nbrelo_wlandelGuestSSID(7)\n");
}

TEST_F(WlanConfigService, GuestTuningIsAPurePassThrough) {
  sim_set("tcapi WLanForGuest_Entry1", "SSIDIndex", "4");
  EXPECT_EQ(NATIVE(setWLANGuestPortIsolationJni)(env(), self(), 4, JNI_TRUE), 0);
  EXPECT_EQ(NATIVE(setWLANGuestPortIsolationJni)(env(), self(), 4, byte(2)), 0);
  EXPECT_EQ(NATIVE(setWLANGuestDurationJni)(env(), self(), 4, 90), 0);
  EXPECT_STREQ(sim_get("tcapi WLanForGuest_Entry1", "Duration"), "90");
  sim_program_result("brelo_wlansetGuestPortIsolation", -9);
  sim_program_result("brelo_wlansetGuestDuration", 5);
  EXPECT_EQ(NATIVE(setWLANGuestPortIsolationJni)(env(), self(), 4, JNI_FALSE), -9);
  EXPECT_EQ(NATIVE(setWLANGuestDurationJni)(env(), self(), 4, -1), 5);
  EXPECT_EQ(log(),
            "brelo_wlansetGuestPortIsolation(4, 1)\nbrelo_wlansetGuestPortIsolation(4, 0)\n"
            "brelo_wlansetGuestDuration(4, 90)\nbrelo_wlansetGuestPortIsolation(4, 0)\n"
            "brelo_wlansetGuestDuration(4, -1)\n");
}

TEST_F(WlanConfigService, GuestTuningNeverTraces) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(setWLANGuestPortIsolationJni)(env(), self(), 4, JNI_TRUE);
  NATIVE(setWLANGuestDurationJni)(env(), self(), 4, 30);
  EXPECT_EQ(out.finish(), "");
}

TEST_F(WlanConfigService, GuestAddTracesItsReturnCode) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(addWLANGuestSSIDJni)(env(), self(), 3);
  NATIVE(deleteWLANGuestSSIDJni)(env(), self(), 8);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kPrefix) +
                "addWLANGuestSSIDJni:N:addWLANGuestSSIDJni: return code = 0   leave============>\n" +
                kPrefix +
                "deleteWLANGuestSSIDJni:N:deleteWLANGuestSSIDJni: return code = -1   leave============>\n");
}

}  // namespace wlan_config_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
