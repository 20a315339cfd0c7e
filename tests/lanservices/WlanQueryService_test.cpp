// com.lumarest.smartgateway.lanservices.WlanQueryServiceImp and WlanSecretQueryServiceImp
#include <string>
#include <vector>

#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_##m
#define SECRET(m) Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_##m
extern "C" {
jstring NATIVE(getWLANSSIDInfoJni)(JNIEnv *, jobject, jint);
jstring NATIVE(getWLANSSIDStatsJni)(JNIEnv *, jobject, jint);
jint NATIVE(getWLANWPSStatusJni)(JNIEnv *, jobject, jint);
jboolean NATIVE(getWLANHardwareSwitchJni)(JNIEnv *, jobject, jstring);
jstring NATIVE(getWLANRadioInfoJni)(JNIEnv *, jobject, jstring);
jstring NATIVE(getWLANNeighborJni)(JNIEnv *, jobject, jstring);
jstring NATIVE(getWLANHostInfoJni)(JNIEnv *, jobject, jobjectArray);
jstring NATIVE(getGuestSSIDInfoJni)(JNIEnv *, jobject);
jstring SECRET(getWLANSSIDPasswordJni)(JNIEnv *, jobject, jint);
}

namespace wlan_query_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kPrefix[] = "Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_";

class WlanQueryService : public testsupport::BridgeTest {
 protected:
  static void radio(int n, const char *type, const char *channel, const char *autoc,
                    const char *power, const char *width, const char *standard) {
    std::string s = "wlan radio " + std::to_string(n);
    sim_set(s.c_str(), "type", type);
    sim_set(s.c_str(), "channel", channel);
    sim_set(s.c_str(), "auto_channel", autoc);
    sim_set(s.c_str(), "power_level", power);
    sim_set(s.c_str(), "width_code", width);
    sim_set(s.c_str(), "standard", standard);
  }
  static void ssid(int index, int radio_number, const std::string &name, const char *bssid,
                   const char *enable, const char *hidden, const char *encryption) {
    std::string s = "wlan ssid " + std::to_string(index);
    sim_set(s.c_str(), "radio", std::to_string(radio_number).c_str());
    sim_set(s.c_str(), "name", name.c_str());
    sim_set(s.c_str(), "bssid", bssid);
    sim_set(s.c_str(), "enable", enable);
    sim_set(s.c_str(), "hidden", hidden);
    sim_set(s.c_str(), "encryption", encryption);
  }
  static void neighbour(int n, int radio_number, const std::string &name, const char *bssid,
                        int channel, int rssi, int standard) {
    std::string s = "wlan neighbour " + std::to_string(n);
    sim_set(s.c_str(), "radio", std::to_string(radio_number).c_str());
    sim_set(s.c_str(), "ssid", name.c_str());
    sim_set(s.c_str(), "bssid", bssid);
    sim_set(s.c_str(), "channel", std::to_string(channel).c_str());
    sim_set(s.c_str(), "rssi", std::to_string(rssi).c_str());
    sim_set(s.c_str(), "standard", std::to_string(standard).c_str());
  }
  static void station(int n, int ssid_index, int rssi, const char *mac) {
    std::string s = "wlan station " + std::to_string(n);
    sim_set(s.c_str(), "ssid_index", std::to_string(ssid_index).c_str());
    sim_set(s.c_str(), "rssi", std::to_string(rssi).c_str());
    sim_set(s.c_str(), "mac", mac);
  }
  void gateway() {
    radio(0, "2.4G", "6", "1", "1", "2", "9");
    radio(1, "5G", "149", "0", "3", "3", "11");
    ssid(1, 0, "Home", "00:1A:2B:3C:4D:5F", "1", "0", "4");
    ssid(2, 0, "Say \"hi\"", "02:1A:2B:3C:4D:5F", "0", "1", "1");
    ssid(5, 1, "Home-5G", "00:1A:2B:3C:4D:60", "1", "0", "3");
    sim_clear_log();
  }
  std::string tcapi_lookups(int entries) {
    std::string out;
    for (int e = 0; e < entries; ++e)
      out += "tcapi_get(\"BandWidth_Entry" + std::to_string(e) + "\", \"MAC\")\n";
    return out;
  }
};

// --- SSID information ---------------------------------------------------------------------------

TEST_F(WlanQueryService, SsidInfoFormatsTheRecord) {
  gateway();
  EXPECT_EQ(text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 1)),
            "{\"Result\":0,\"Enable\":\"TRUE\",\"BSSID\":\"00:1A:2B:3C:4D:5F\",\"SSIDName\":\"Home\","
            "\"SSIDAdvertisementEnabled\":\"TRUE\",\"Standard\":\"11bgn\",\"EncryptionMode\":\"MIXED-WPAPSK2\"}");
  EXPECT_EQ(log(), "brelo_wlanGetSSIDInfo(1)\n");
}

TEST_F(WlanQueryService, SsidInfoInvertsTheHiddenFlagAndSendsTheNameUnescaped) {
  gateway();
  EXPECT_EQ(text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 2)),
            std::string("{\"Result\":0,\"Enable\":\"FALSE\",\"BSSID\":\"02:1A:2B:3C:4D:5F\",\"SSIDName\":") +
            (bundle::hardened_profile() ? "\"Say \\\"hi\\\"\"," : "\"Say \"hi\"\",") +  // escaped when hardened
            "\"SSIDAdvertisementEnabled\":\"FALSE\",\"Standard\":\"11bgn\",\"EncryptionMode\":\"WEP\"}");
}

TEST_F(WlanQueryService, SsidInfoNamesEveryStandardAndEncryptionCode) {
  gateway();
  const char *standards[] = {"11bg", "11b", "11a", "", "11g", "", "11n", "11gn", "11na", "11bgn", "",
                             "11ac", "", ""};
  for (int code = -1; code <= 13; ++code) {
    sim_set("wlan radio 0", "standard", std::to_string(code).c_str());
    std::string reply = text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 1));
    std::string name = code >= 0 ? standards[code] : "";
    EXPECT_NE(reply.find(",\"Standard\":\"" + name + "\","), std::string::npos) << code << reply;
  }
  const char *encryptions[] = {"OPEN", "WEP", "WPAPSK", "WPAPSK2", "MIXED-WPAPSK2", ""};
  for (int code = -1; code <= 5; ++code) {
    sim_set("wlan ssid 1", "encryption", std::to_string(code).c_str());
    std::string reply = text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 1));
    std::string name = code >= 0 ? encryptions[code] : "";
    EXPECT_NE(reply.find(",\"EncryptionMode\":\"" + name + "\"}"), std::string::npos) << code << reply;
  }
}

TEST_F(WlanQueryService, SsidInfoFailureReply) {
  EXPECT_EQ(text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 4)),
            "{\"Result\":-1,\"FailReason\":\"getWLANSSIDInfo Error\"}");
  gateway();
  sim_program_result("brelo_wlanGetSSIDInfo", 1);
  EXPECT_EQ(text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 1)),
            "{\"Result\":-1,\"FailReason\":\"getWLANSSIDInfo Error\"}");
}

TEST_F(WlanQueryService, SsidInfoFieldsFilledToTheBrimStayWithinTheirFields) {
  gateway();
  sim_set("wlan ssid 1", "name", std::string(200, 'n').c_str());
  sim_set("wlan ssid 1", "bssid", std::string(50, 'b').c_str());
  std::string reply = text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 1));
  EXPECT_NE(reply.find("\"BSSID\":\"" + std::string(31, 'b') + "\",\"SSIDName\":\"" +
                       std::string(127, 'n') + "\","),
            std::string::npos)
      << reply;
}

TEST_F(WlanQueryService, SsidInfoTracesTheReply) {
  gateway();
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  std::string reply = text(NATIVE(getWLANSSIDInfoJni)(env(), self(), 5));
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kPrefix) + "getWLANSSIDInfoJni:N:getWLANSSIDInfoJni: return json = " + reply +
                "   leave============>\n");
}

// --- SSID counters ------------------------------------------------------------------------------

TEST_F(WlanQueryService, SsidStatsPrintsEightUnsignedCounters) {
  gateway();
  const char *keys[] = {"bytes_sent", "bytes_received", "packets_sent", "packets_received",
                        "errors_sent", "errors_received", "discard_sent", "discard_received"};
  const char *values[] = {"4294967295", "2147483648", "3", "4", "0", "6", "7", "8"};
  for (int i = 0; i < 8; ++i) sim_set("wlan ssid 5", keys[i], values[i]);
  EXPECT_EQ(text(NATIVE(getWLANSSIDStatsJni)(env(), self(), 5)),
            "{\"Result\":0,\"TotalBytesSent\":4294967295,\"TotalBytesReceived\":2147483648,"
            "\"TotalPacketsSent\":3,\"TotalPacketsReceived\":4,\"ErrorsSent\":0,\"ErrorsReceived\":6,"
            "\"DiscardPacketsSent\":7,\"DiscardPacketsReceived\":8}");
  EXPECT_EQ(log(), "brelo_wlanGetSSIDStats(5)\n");
}

TEST_F(WlanQueryService, SsidStatsFailureReply) {
  EXPECT_EQ(text(NATIVE(getWLANSSIDStatsJni)(env(), self(), 3)),
            "{\"Result\":-1,\"FailReason\":\"getWLANSSIDStats Error\"}");
}

// --- WPS status and radio switch ----------------------------------------------------------------

TEST_F(WlanQueryService, WpsStatusIsThePlatformsValue) {
  gateway();
  sim_set("wlan ssid 1", "wps_status", "2");
  EXPECT_EQ(NATIVE(getWLANWPSStatusJni)(env(), self(), 1), 2);
  sim_program_result("brelo_wlanGetWPSStatus", -42);
  EXPECT_EQ(NATIVE(getWLANWPSStatusJni)(env(), self(), 1), -42);
  EXPECT_EQ(log(), "brelo_wlanGetWPSStatus(1)\nbrelo_wlanGetWPSStatus(1)\n");
}

TEST_F(WlanQueryService, HardwareSwitchIsTrueOnlyForOne) {
  const struct {
    int platform;
    jboolean java;
  } cases[] = {{1, JNI_TRUE}, {0, JNI_FALSE}, {2, JNI_FALSE}, {-1, JNI_FALSE}, {257, JNI_FALSE}};
  for (auto &c : cases) {
    sim_program_result("brelo_wlanGetRadioSwitch", c.platform);
    EXPECT_EQ(NATIVE(getWLANHardwareSwitchJni)(env(), self(), jvm().str("5G")), c.java) << c.platform;
  }
  EXPECT_EQ(sim_log_count("brelo_wlanGetRadioSwitch"), 5);
}

TEST_F(WlanQueryService, HardwareSwitchPassesABoundedCopyOfTheRadioType) {
  gateway();
  sim_set("wlan radio 0", "enable", "1");
  EXPECT_EQ(NATIVE(getWLANHardwareSwitchJni)(env(), self(), jvm().str("2.4G")), JNI_TRUE);
  NATIVE(getWLANHardwareSwitchJni)(env(), self(), jvm().str(std::string(40, 'r')));
  EXPECT_EQ(log(), "brelo_wlanGetRadioSwitch(\"2.4G\")\nbrelo_wlanGetRadioSwitch(\"" +
                       std::string(31, 'r') + "\")\n");
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().released(), 2);
}

TEST_F(WlanQueryService, HardwareSwitchWithANullOrUnreadableRadioTypeAsksForTheEmptyName) {
  gateway();
  EXPECT_EQ(NATIVE(getWLANHardwareSwitchJni)(env(), self(), nullptr), JNI_FALSE);
  EXPECT_EQ(NATIVE(getWLANHardwareSwitchJni)(env(), self(), jvm().failing_str()), JNI_FALSE);
  // An unreadable radio type asks the platform nothing.
  EXPECT_EQ(log(), "brelo_wlanGetRadioSwitch(\"\")\n");
  EXPECT_EQ(jvm().null_releases(), 1);
}

// --- radio information --------------------------------------------------------------------------

TEST_F(WlanQueryService, RadioInfoOfThe24GRadio) {
  gateway();
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4G"))),
            "{\"Result\":0,\"Channel\":6,\"AutoChannelEnable\":\"TRUE\","
            "\"ChannelsInUse\":\"1,2,3,4,5,6,7,8,9,10,11,12,13\",\"TransmitPower\":\"100\","
            "\"FrequencyWidth\":\"Auto20M40M\"}");
  EXPECT_EQ(log(), "brelo_wlanGetRadioInfo(0)\n");
}

TEST_F(WlanQueryService, EveryOtherRadioTypeSelectsRadioOne) {
  gateway();
  const std::string five =
      "{\"Result\":0,\"Channel\":149,\"AutoChannelEnable\":\"FALSE\","
      "\"ChannelsInUse\":\"52,56,60,64,149,153,157,160\",\"TransmitPower\":\"60\","
      "\"FrequencyWidth\":\"Auto20M40M80M\"}";
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("5G"))), five);
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4g"))), five);
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4G "))), five);
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str(""))), five);
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), nullptr)), five);
  // An unreadable radio type asks the platform nothing and makes no reply string.
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().failing_str())), "<null>");
  std::string expected;
  for (int i = 0; i < 5; ++i) expected += "brelo_wlanGetRadioInfo(1)\n";
  EXPECT_EQ(log(), expected);
  // Every text read is given back, the unreadable one with its NULL pointer.
  EXPECT_EQ(jvm().acquired(), 5);
  EXPECT_EQ(jvm().released(), 5);
  EXPECT_EQ(jvm().null_releases(), 1);
}

TEST_F(WlanQueryService, TransmitPowerTable) {
  gateway();
  const char *percent[] = {"0", "100", "80", "60", "40", "20", "0", "0", "0", "0"};
  for (int level = -1; level <= 8; ++level) {
    sim_set("wlan radio 0", "power_level", std::to_string(level).c_str());
    std::string reply = text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4G")));
    std::string want = level >= 0 ? percent[level] : "0";
    EXPECT_NE(reply.find(",\"TransmitPower\":\"" + want + "\","), std::string::npos) << level << reply;
  }
  sim_set("wlan radio 0", "power_level", "2147483647");
  EXPECT_NE(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4G"))).find("\"TransmitPower\":\"0\""),
            std::string::npos);
  sim_set("wlan radio 0", "power_level", "-2147483648");
  EXPECT_NE(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4G"))).find("\"TransmitPower\":\"0\""),
            std::string::npos);
}

TEST_F(WlanQueryService, FrequencyWidthNames) {
  gateway();
  const struct {
    const char *code, *name;
  } cases[] = {{"0", "20M"}, {"1", "40M"}, {"2", "Auto20M40M"}, {"3", "Auto20M40M80M"},
               {"4", "Auto20M40M"}, {"-1", "Auto20M40M"}};
  for (auto &c : cases) {
    sim_set("wlan radio 1", "width_code", c.code);
    std::string reply = text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("5G")));
    EXPECT_NE(reply.find(",\"FrequencyWidth\":\"" + std::string(c.name) + "\"}"), std::string::npos)
        << c.code << reply;
  }
}

TEST_F(WlanQueryService, RadioInfoFailureReply) {
  EXPECT_EQ(text(NATIVE(getWLANRadioInfoJni)(env(), self(), jvm().str("2.4G"))),
            "{\"Result\":-1,\"FailReason\":\"getWLANRadioInfo Error\"}");
}

// --- neighbours ---------------------------------------------------------------------------------

TEST_F(WlanQueryService, NeighbourListEscapesTheSsidNames) {
  neighbour(1, 0, "CafeNet", "3C:84:6A:11:22:33", 1, -61, 9);
  neighbour(2, 1, "five", "8C:3B:AD:44:55:66", 36, -67, 11);
  neighbour(3, 0, "Joe's \"Home\" a/b\\c", "70:4F:57:AA:BB:CC", 11, -74, 3);
  EXPECT_EQ(text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("2.4G"))),
            "{\"Result\":0,\"List\":["
            "{\"SSIDName\":\"CafeNet\",\"BSSID\":\"3C:84:6A:11:22:33\",\"NetworkType\":\"AP\","
            "\"Channel\":1,\"RSSI\":\"-61\",\"Standard\":\"11bgn\"},"
            "{\"SSIDName\":\"Joe's \\\"Home\\\" a" + std::string(bundle::hardened_profile() ? "/" : "\\/") + "b\\\\c\",\"BSSID\":\"70:4F:57:AA:BB:CC\","
            "\"NetworkType\":\"AP\",\"Channel\":11,\"RSSI\":\"-74\",\"Standard\":\"\"}]}");
  EXPECT_EQ(log(), "brelo_wlanGetNeighbor(0)\n");
  EXPECT_EQ(text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("5g"))),
            "{\"Result\":0,\"List\":[{\"SSIDName\":\"five\",\"BSSID\":\"8C:3B:AD:44:55:66\","
            "\"NetworkType\":\"AP\",\"Channel\":36,\"RSSI\":\"-67\",\"Standard\":\"11ac\"}]}");
}

TEST_F(WlanQueryService, NoNeighboursGiveAnEmptyList) {
  EXPECT_EQ(text(NATIVE(getWLANNeighborJni)(env(), self(), nullptr)), "{\"Result\":0,\"List\":[]}");
  EXPECT_EQ(log(), "brelo_wlanGetNeighbor(1)\n");
}

TEST_F(WlanQueryService, NeighbourFailureReply) {
  neighbour(1, 1, "x", "b", 1, 1, 1);
  sim_program_result("brelo_wlanGetNeighbor", -1);
  EXPECT_EQ(text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("5G"))),
            "{\"Result\":-1,\"FailReason\":\"getWLANNeighbor Error\"}");
  EXPECT_EQ(jvm().released(), 1);
}

TEST_F(WlanQueryService, NeighboursOfAnUnreadableRadioTypeAreNotAskedFor) {
  neighbour(1, 1, "x", "b", 1, 1, 1);
  EXPECT_EQ(text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().failing_str())), "<null>");
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 1);
}

TEST_F(WlanQueryService, NonUtf8AndEmojiSsidsReachJavaAsValidText) {
  neighbour(1, 0, "Caf\xC3\xA9 \xF0\x9F\x93\xB6", "b1", 6, -80, 4);
  neighbour(2, 0, "Old\xA0Router\xFF", "b2", 3, -88, 1);
  std::string reply = text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("2.4G")));
  // The emoji becomes its surrogate pair; each stray byte U+FFFD, as Java's decoder reads them.
  EXPECT_EQ(reply,
            "{\"Result\":0,\"List\":[{\"SSIDName\":\"Caf\xC3\xA9 \xED\xA0\xBD\xED\xB3\xB6\","
            "\"BSSID\":\"b1\",\"NetworkType\":\"AP\",\"Channel\":6,\"RSSI\":\"-80\",\"Standard\":\"11g\"},"
            "{\"SSIDName\":\"Old\xEF\xBF\xBDRouter\xEF\xBF\xBD\",\"BSSID\":\"b2\",\"NetworkType\":\"AP\","
            "\"Channel\":3,\"RSSI\":\"-88\",\"Standard\":\"11b\"}]}");
}

TEST_F(WlanQueryService, A128NeighbourListOfQuotesAndBackslashesIsWhole) {
  std::string name;
  for (int i = 0; i < 127; ++i) name += (i % 3 == 0) ? '\\' : '"';
  std::string escaped;
  for (char c : name) escaped += std::string("\\") + c;
  for (int n = 1; n <= 128; ++n) neighbour(n, 0, name, "AA:BB:CC:DD:EE:FF", 13, -100, 11);
  std::string reply = text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("2.4G")));
  std::string item = "{\"SSIDName\":\"" + escaped +
                     "\",\"BSSID\":\"AA:BB:CC:DD:EE:FF\",\"NetworkType\":\"AP\",\"Channel\":13,"
                     "\"RSSI\":\"-100\",\"Standard\":\"11ac\"}";
  std::string expected = "{\"Result\":0,\"List\":[";
  for (int n = 0; n < 128; ++n) expected += (n ? "," : "") + item;
  expected += "]}";
  EXPECT_EQ(reply, expected);
  EXPECT_LT(item.size() + 1, 512u);
}

TEST_F(WlanQueryService, APlatformReportingMoreNeighboursThanTheArrayHoldsIsReadTo128) {
  for (int n = 1; n <= 130; ++n) neighbour(n, 1, "ap" + std::to_string(n), "b", 1, -1, 0);
  sim_set("wlan", "neighbour_count", "100000");
  std::string reply = text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("5G")));
  EXPECT_NE(reply.find("{\"SSIDName\":\"ap128\""), std::string::npos);
  EXPECT_EQ(reply.find("ap129"), std::string::npos);
  EXPECT_EQ(reply.substr(reply.size() - 4), "\"}]}");
  sim_set("wlan", "neighbour_count", "-5");
  EXPECT_EQ(text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("5G"))),
            "{\"Result\":0,\"List\":[]}");
}

TEST_F(WlanQueryService, NeighbourFieldsFilledToTheBrimStayWithinTheirFields) {
  neighbour(1, 0, std::string(300, '/'), std::string(40, 'b').c_str(), 1, 2, 0);
  std::string reply = text(NATIVE(getWLANNeighborJni)(env(), self(), jvm().str("2.4G")));
  std::string slashes;
  // html_encode writes \/ and stops at its buffer; the hardened composer leaves slashes as
  // they are, bounded by the record's field.
  if (bundle::hardened_profile())
    slashes = std::string(127, '/');
  else
    for (int i = 0; i < 127; ++i) slashes += "\\/";
  EXPECT_NE(reply.find("{\"SSIDName\":\"" + slashes + "\",\"BSSID\":\"" + std::string(31, 'b') + "\","),
            std::string::npos)
      << reply;
}

// --- associated stations ------------------------------------------------------------------------

TEST_F(WlanQueryService, HostListOfEveryStation) {
  gateway();
  station(1, 1, -45, "A4:5E:60:C1:22:9B");
  station(2, 5, -39, "f0:18:98:6a:3b:04");
  sim_set("tcapi BandWidth_Entry0", "MAC", "A45E60C1229B");
  sim_set("tcapi BandWidth_Entry0", "upRate", "2048");
  sim_set("tcapi BandWidth_Entry0", "downRate", "8192");
  sim_clear_log();
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(), jvm().array_of({}))),
            "{\"Result\":0,\"List\":["
            "{\"SSIDIndex\":1,\"SSIDName\":\"Home\",\"MAC\":\"A4:5E:60:C1:22:9B\",\"RSSI\":\"-45\","
            "\"RxRate\":\"0\",\"TxRate\":\"0\",\"Standard\":\"11bgn\"},"
            "{\"SSIDIndex\":5,\"SSIDName\":\"Home-5G\",\"MAC\":\"f0:18:98:6a:3b:04\",\"RSSI\":\"-39\","
            "\"RxRate\":\"0\",\"TxRate\":\"0\",\"Standard\":\"11ac\"}]}");
  // The first station's rate entry is found at once; the second is looked for in all 64.
  EXPECT_EQ(log(), "brelo_wlanGetHostInfo([], 0)\nbrelo_wlanGetSSIDInfo(1)\n" + tcapi_lookups(1) +
                       "tcapi_get(\"BandWidth_Entry0\", \"upRate\")\n"
                       "tcapi_get(\"BandWidth_Entry0\", \"downRate\")\n"
                       "brelo_wlanGetSSIDInfo(5)\n" +
                       tcapi_lookups(64));
}

TEST_F(WlanQueryService, StationRatesOnlyReachTheTrace) {
  gateway();
  station(1, 1, -45, "a4:5e:60:c1:22:9b");
  sim_set("tcapi BandWidth_Entry7", "MAC", "A45E60C1229B");
  sim_set("tcapi BandWidth_Entry7", "upRate", "2048");
  sim_set("tcapi BandWidth_Entry7", "downRate", "8192");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  std::string reply = text(NATIVE(getWLANHostInfoJni)(env(), self(), nullptr));
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_NE(reply.find("\"RxRate\":\"0\",\"TxRate\":\"0\""), std::string::npos);
  EXPECT_NE(trace.find("getStaSpeed:N:getStaSpeed: mac:a4:5e:60:c1:22:9b  up: 2048   down: 8192\n"),
            std::string::npos)
      << trace;
  EXPECT_NE(trace.find(std::string(kPrefix) + "getWLANHostInfoJni:N:getWLANHostInfoJni: return json = " +
                       reply + "   leave============>\n"),
            std::string::npos);
}

TEST_F(WlanQueryService, HostListNamesTheSsidUnescaped) {
  gateway();
  station(1, 2, -50, "00:00:00:00:00:01");
  std::string reply = text(NATIVE(getWLANHostInfoJni)(env(), self(), nullptr));
  EXPECT_NE(reply.find(bundle::hardened_profile() ? "\"SSIDName\":\"Say \\\"hi\\\"\"" : "\"SSIDName\":\"Say \"hi\"\""),
            std::string::npos)
      << reply;
}

TEST_F(WlanQueryService, TwoRequestedMacsOfWhichOneIsUnknown) {
  gateway();
  station(1, 1, -45, "A4:5E:60:C1:22:9B");
  station(2, 5, -39, "F0:18:98:6A:3B:04");
  sim_clear_log();
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(
                env(), self(), jvm().array_of({"f0:18:98:6a:3b:04", "11:22:33:44:55:66"}))),
            "{\"Result\":0,\"List\":["
            "{\"SSIDIndex\":5,\"SSIDName\":\"Home-5G\",\"MAC\":\"F0:18:98:6A:3B:04\",\"RSSI\":\"-39\","
            "\"RxRate\":\"0\",\"TxRate\":\"0\",\"Standard\":\"11ac\"},"
            "{\"SSIDIndex\":0,\"SSIDName\":\"\",\"MAC\":\"\",\"RSSI\":\"0\",\"RxRate\":\"0\","
            "\"TxRate\":\"0\",\"Standard\":\"\"}]}");
  EXPECT_EQ(log().substr(0, log().find('\n') + 1),
            "brelo_wlanGetHostInfo([\"f0:18:98:6a:3b:04\", \"11:22:33:44:55:66\"], 2)\n");
}

TEST_F(WlanQueryService, EmptyRequestsAreListedAsAllZeroEntries) {
  gateway();
  station(1, 1, -45, "A4:5E:60:C1:22:9B");
  const std::string zero =
      "{\"SSIDIndex\":0,\"SSIDName\":\"\",\"MAC\":\"\",\"RSSI\":\"0\",\"RxRate\":\"0\","
      "\"TxRate\":\"0\",\"Standard\":\"\"}";
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(),
                                            jvm().array_of({"", "A4:5E:60:C1:22:9B", ""}))),
            "{\"Result\":0,\"List\":[" + zero +
                ",{\"SSIDIndex\":1,\"SSIDName\":\"Home\",\"MAC\":\"A4:5E:60:C1:22:9B\",\"RSSI\":\"-45\","
                "\"RxRate\":\"0\",\"TxRate\":\"0\",\"Standard\":\"11bgn\"}," +
                zero + "]}");
}

TEST_F(WlanQueryService, OnlyEmptyRequestsReadAsNoRequestAtAll) {
  gateway();
  station(1, 1, -45, "A4:5E:60:C1:22:9B");
  std::string reply = text(NATIVE(getWLANHostInfoJni)(env(), self(), jvm().array_of({"", ""})));
  EXPECT_NE(reply.find("\"MAC\":\"A4:5E:60:C1:22:9B\""), std::string::npos) << reply;
  EXPECT_NE(log().find("brelo_wlanGetHostInfo([], 0)\n"), std::string::npos);
}

TEST_F(WlanQueryService, AnUnreadableMacTextStopsTheQuery) {
  gateway();
  station(1, 1, -45, "A4:5E:60:C1:22:9B");
  jobjectArray macs = jvm().array({jvm().str("A4:5E:60:C1:22:9B"), jvm().failing_str()});
  sim_clear_log();
  // The platform is not asked and no reply string is made while the error is pending.
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(), macs)), "<null>");
  EXPECT_EQ(log(), "");
}

TEST_F(WlanQueryService, A300MacRequestListsTheFirst256) {
  gateway();
  std::vector<std::string> macs;
  for (int i = 0; i < 300; ++i) macs.push_back("02:00:00:00:00:" + std::to_string(i % 100));
  std::string reply = text(NATIVE(getWLANHostInfoJni)(env(), self(), jvm().array_of(macs)));
  size_t entries = 0;
  for (size_t at = reply.find("{\"SSIDIndex\""); at != std::string::npos;
       at = reply.find("{\"SSIDIndex\"", at + 1))
    ++entries;
  EXPECT_EQ(entries, 256u);
  EXPECT_EQ(reply.substr(reply.size() - 4), "\"}]}");
}

TEST_F(WlanQueryService, AStationWhoseSsidCantBeQueriedIsAnAllZeroEntry) {
  station(1, 9, -45, "A4:5E:60:C1:22:9B");
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(), nullptr)),
            "{\"Result\":0,\"List\":[{\"SSIDIndex\":0,\"SSIDName\":\"\",\"MAC\":\"\",\"RSSI\":\"0\","
            "\"RxRate\":\"0\",\"TxRate\":\"0\",\"Standard\":\"\"}]}");
  EXPECT_EQ(log(), "brelo_wlanGetHostInfo([], 0)\nbrelo_wlanGetSSIDInfo(9)\n");
}

TEST_F(WlanQueryService, NoStationsGiveAnEmptyList) {
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(), nullptr)), "{\"Result\":0,\"List\":[]}");
}

TEST_F(WlanQueryService, HostFailureReply) {
  sim_program_result("brelo_wlanGetHostInfo", 3);
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(), jvm().array_of({"x"}))),
            "{\"Result\":-1,\"FailReason\":\"getWLANHostInfo Error\"}");
  EXPECT_EQ(log(), "brelo_wlanGetHostInfo([\"x\"], 1)\n");
}

TEST_F(WlanQueryService, APlatformReportingMoreStationsThanTheArrayHoldsIsReadTo128) {
  gateway();
  for (int n = 1; n <= 130; ++n) station(n, 9, -1, "00:00:00:00:00:00");
  sim_set("wlan", "station_count", "99999");
  std::string reply = text(NATIVE(getWLANHostInfoJni)(env(), self(), nullptr));
  EXPECT_EQ(sim_log_count("brelo_wlanGetSSIDInfo"), 128);
  sim_set("wlan", "station_count", "-1");
  EXPECT_EQ(text(NATIVE(getWLANHostInfoJni)(env(), self(), nullptr)), "{\"Result\":0,\"List\":[]}");
}

// --- guest SSIDs --------------------------------------------------------------------------------

TEST_F(WlanQueryService, NoGuestEntryGivesAnEmptyList) {
  EXPECT_EQ(text(NATIVE(getGuestSSIDInfoJni)(env(), self())), "{\"Result\":0,\"List\":[]}");
  EXPECT_EQ(log(), "tcapi_get(\"WLanForGuest_Entry0\", \"SSIDIndex\")\n"
                   "tcapi_get(\"WLanForGuest_Entry1\", \"SSIDIndex\")\n");
}

TEST_F(WlanQueryService, OneGuestEntry) {
  sim_set("tcapi WLanForGuest_Entry1", "SSIDIndex", "3");
  sim_set("tcapi WLanForGuest_Entry1", "Duration", "240");
  sim_set("tcapi WLanForGuest_Entry1", "DurationRemain", "135");
  sim_set("tcapi WLanForGuest_Entry1", "PortIsolation", "1");
  EXPECT_EQ(text(NATIVE(getGuestSSIDInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"SSIDIndex\":3,\"Duration\":240,\"PortIsolation\":\"TRUE\","
            "\"RemainDuration\":135}]}");
  EXPECT_EQ(log(), "tcapi_get(\"WLanForGuest_Entry0\", \"SSIDIndex\")\n"
                   "tcapi_get(\"WLanForGuest_Entry1\", \"SSIDIndex\")\n"
                   "tcapi_get(\"WLanForGuest_Entry1\", \"Duration\")\n"
                   "tcapi_get(\"WLanForGuest_Entry1\", \"DurationRemain\")\n"
                   "tcapi_get(\"WLanForGuest_Entry1\", \"PortIsolation\")\n");
}

TEST_F(WlanQueryService, TwoGuestEntriesAreAdjacentObjectsWithoutAComma) {
  sim_set("tcapi WLanForGuest_Entry0", "SSIDIndex", "3");
  sim_set("tcapi WLanForGuest_Entry0", "Duration", "60");
  sim_set("tcapi WLanForGuest_Entry0", "DurationRemain", "-5");
  sim_set("tcapi WLanForGuest_Entry0", "PortIsolation", "0");
  sim_set("tcapi WLanForGuest_Entry1", "SSIDIndex", "4");
  // Duration, DurationRemain and PortIsolation absent: empty texts.
  // Separated by a comma in the hardened profile.
  EXPECT_EQ(text(NATIVE(getGuestSSIDInfoJni)(env(), self())),
            std::string("{\"Result\":0,\"List\":[{\"SSIDIndex\":3,\"Duration\":60,\"PortIsolation\":\"FALSE\","
            "\"RemainDuration\":0}") + (bundle::hardened_profile() ? "," : "") + "{\"SSIDIndex\":4,\"Duration\":0,\"PortIsolation\":\"FALSE\","
            "\"RemainDuration\":0}]}");
}

TEST_F(WlanQueryService, GuestIndexTextIsInsertedAsItStands) {
  sim_set("tcapi WLanForGuest_Entry0", "SSIDIndex", "");
  sim_set("tcapi WLanForGuest_Entry0", "PortIsolation", "1x");
  EXPECT_EQ(text(NATIVE(getGuestSSIDInfoJni)(env(), self())),
            bundle::hardened_profile() ? "{\"Result\":0,\"List\":[{\"SSIDIndex\":0,\"Duration\":0,\"PortIsolation\":\"TRUE\","
                   "\"RemainDuration\":0}]}" :  // a number in the hardened profile
            "{\"Result\":0,\"List\":[{\"SSIDIndex\":,\"Duration\":0,\"PortIsolation\":\"TRUE\","
            "\"RemainDuration\":0}]}");
}

// --- SSID password ------------------------------------------------------------------------------

TEST_F(WlanQueryService, PasswordIsTheBareText) {
  gateway();
  sim_set("wlan ssid 1", "password", "k9w2\"hq7z");
  EXPECT_EQ(text(SECRET(getWLANSSIDPasswordJni)(env(), self(), 1)), "k9w2\"hq7z");
  EXPECT_EQ(log(), "brelo_wlanGetSSIDPassword(1)\n");
}

TEST_F(WlanQueryService, PasswordOfAFailedQueryIsEmpty) {
  EXPECT_EQ(text(SECRET(getWLANSSIDPasswordJni)(env(), self(), 7)), "");
  gateway();
  sim_set("wlan ssid 1", "password", "pw");
  sim_program_result("brelo_wlanGetSSIDPassword", -1);
  EXPECT_EQ(text(SECRET(getWLANSSIDPasswordJni)(env(), self(), 1)), "pw");
}

TEST_F(WlanQueryService, PasswordIsTracedInClear) {
  gateway();
  sim_set("wlan ssid 1", "password", "pw1");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  SECRET(getWLANSSIDPasswordJni)(env(), self(), 1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string("Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni:N:"
                        "getWLANSSIDPasswordJni: return json = ") +
                (bundle::hardened_profile() ? "******" : "pw1") +
                "   leave============>\n");
}

TEST_F(WlanQueryService, PasswordOf511BytesIsWhole) {
  gateway();
  sim_set("wlan ssid 1", "password", std::string(600, 'p').c_str());
  EXPECT_EQ(text(SECRET(getWLANSSIDPasswordJni)(env(), self(), 1)), std::string(511, 'p'));
}

}  // namespace wlan_query_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
#undef SECRET
