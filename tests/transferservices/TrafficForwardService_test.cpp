// com.lumarest.smartgateway.transferservices.TrafficForwardServiceImp
#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

#define FORWARD(m) Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_##m
extern "C" {
jint FORWARD(addForwardRuleJni)(JNIEnv *, jobject, jstring, jstring, jstring, jstring, jstring, jint);
jint FORWARD(deleteForwardRuleJni)(JNIEnv *, jobject, jint);
jint FORWARD(deleteAllForwardRuleJni)(JNIEnv *, jobject);
jstring FORWARD(getForwardRuleInfoJni)(JNIEnv *, jobject);
}

namespace traffic_forward_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kFailure[] = "{\"Result\":-1,\"List\":[]}";
const char kEmpty[] = "{\"Result\":0,\"List\":[]}";

class TrafficForward : public testsupport::BridgeTest {
 protected:
  jint add(const char *addr, const char *port, const char *proto, const char *mac, const char *to,
           jint to_port) {
    auto s = [&](const char *t) { return t != nullptr ? jvm().str(t) : nullptr; };
    return FORWARD(addForwardRuleJni)(env(), self(), s(addr), s(port), s(proto), s(mac), s(to), to_port);
  }
  std::string list() { return text(FORWARD(getForwardRuleInfoJni)(env(), self())); }
  void rule(int n, const char *addr, const char *port, const char *proto, const char *mac,
            const char *to, const char *to_port) {
    std::string s = "forward rule " + std::to_string(n);
    if (addr) sim_set(s.c_str(), "remote_address", addr);
    if (port) sim_set(s.c_str(), "remote_port", port);
    if (proto) sim_set(s.c_str(), "protocol", proto);
    if (mac) sim_set(s.c_str(), "host_mac", mac);
    if (to) sim_set(s.c_str(), "forward_to_ip", to);
    if (to_port) sim_set(s.c_str(), "forward_to_port", to_port);
  }
};

TEST_F(TrafficForward, AddPassesTheRecordAndReturnsThePlatformResult) {
  EXPECT_EQ(add("203.0.113.9", "80-90", "TCP", "00:11:22:33:44:55", "192.168.1.20", 8080), 0);
  EXPECT_EQ(log(), "brelo_addForwardRule(\"203.0.113.9\", \"80-90\", \"TCP\", \"00:11:22:33:44:55\", "
                   "\"192.168.1.20\", 8080)\n");
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"203.0.113.9\",\"RemotePort\":\"80-90\","
            "\"Protocol\":\"TCP\",\"HostMAC\":\"00:11:22:33:44:55\",\"ForwardToIP\":\"192.168.1.20\","
            "\"ForwardToPort\":8080}]}");
  sim_program_result("brelo_addForwardRule", 7);
  EXPECT_EQ(add("a", "b", "c", "d", "e", -1), 7);
  sim_program_result("brelo_addForwardRule", -3);
  EXPECT_EQ(add("a", "b", "c", "d", "e", 1), -3);
  EXPECT_EQ(jvm().acquired(), 15);
  EXPECT_EQ(jvm().released(), 15);
}

TEST_F(TrafficForward, AddReleasesTheTextsInTheOrderObtainedAfterTheCall) {
  jstring t[5] = {jvm().str("a"), jvm().str("b"), jvm().str("c"), jvm().str("d"), jvm().str("e")};
  FORWARD(addForwardRuleJni)(env(), self(), t[0], t[1], t[2], t[3], t[4], 1);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\nGetStringUTFChars(s3)\n"
            "GetStringUTFChars(s4)\nGetStringUTFChars(s5)\n"
            "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\nReleaseStringUTFChars(s3)\n"
            "ReleaseStringUTFChars(s4)\nReleaseStringUTFChars(s5)\n");
}

TEST_F(TrafficForward, NullAndEmptyTextsReachThePlatformAsTheyAre) {
  EXPECT_EQ(add(nullptr, nullptr, nullptr, nullptr, nullptr, 0), -1);  // the platform refuses
  EXPECT_EQ(add("", "", "", "", "", 0), -1);
  EXPECT_EQ(add(nullptr, "", nullptr, nullptr, "10.0.0.1", 65536), 0);
  EXPECT_EQ(log(),
            "brelo_addForwardRule(NULL, NULL, NULL, NULL, NULL, 0)\n"
            "brelo_addForwardRule(\"\", \"\", \"\", \"\", \"\", 0)\n"
            "brelo_addForwardRule(NULL, \"\", NULL, NULL, \"10.0.0.1\", 65536)\n");
  EXPECT_EQ(jvm().acquired(), 7);  // null strings are never handed to the JVM
  // The rule's NULL fields list as empty texts.
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\",\"RemotePort\":\"\",\"Protocol\":\"\","
            "\"HostMAC\":\"\",\"ForwardToIP\":\"10.0.0.1\",\"ForwardToPort\":65536}]}");
}

TEST_F(TrafficForward, AddAsksForNoTextAfterACopyFailed) {
  jstring t[5] = {jvm().str("a"), jvm().failing_str(), jvm().str("c"), jvm().str("d"), jvm().str("e")};
  EXPECT_EQ(FORWARD(addForwardRuleJni)(env(), self(), t[0], t[1], t[2], t[3], t[4], 1), -1);
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(log(), "");  // no rule is added once a text could not be had
}

TEST_F(TrafficForward, DeleteChecksTheIndexAsUnsigned) {
  rule(1, "a", "1", "TCP", "m", "10.0.0.1", "1");
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), 256), -1);
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), -1), -1);
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), INT32_MIN), -1);
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), INT32_MAX), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), 255), -1);  // no such rule
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), 0), 0);
  EXPECT_EQ(log(), "brelo_deleteForwardRule(255)\nbrelo_deleteForwardRule(0)\n");
  EXPECT_EQ(list(), kEmpty);
  sim_program_result("brelo_deleteForwardRule", 12);
  EXPECT_EQ(FORWARD(deleteForwardRuleJni)(env(), self(), 3), 12);
}

TEST_F(TrafficForward, DeleteAllPassesThePlatformResult) {
  rule(1, "a", "1", "TCP", "m", "10.0.0.1", "1");
  rule(2, "b", "2", "UDP", "m", "10.0.0.2", "2");
  EXPECT_EQ(FORWARD(deleteAllForwardRuleJni)(env(), self()), 0);
  EXPECT_EQ(list(), kEmpty);
  sim_program_result("brelo_deleteAllForwardRule", -5);
  EXPECT_EQ(FORWARD(deleteAllForwardRuleJni)(env(), self()), -5);
  EXPECT_EQ(log(), "brelo_deleteAllForwardRule()\nbrelo_getForwardRuleInfo()\nbrelo_deleteAllForwardRule()\n");
}

TEST_F(TrafficForward, QueryListsRulesInOrderSeparatedByCommas) {
  rule(1, "a.example", "1", "TCP", "m1", "10.0.0.1", "-1");
  rule(2, "b.example", "2-3", "TCP/UDP", "m2", "10.0.0.2", "2147483647");
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":["
            "{\"RemoteAddress\":\"a.example\",\"RemotePort\":\"1\",\"Protocol\":\"TCP\",\"HostMAC\":\"m1\","
            "\"ForwardToIP\":\"10.0.0.1\",\"ForwardToPort\":-1},"
            "{\"RemoteAddress\":\"b.example\",\"RemotePort\":\"2-3\",\"Protocol\":\"TCP/UDP\",\"HostMAC\":\"m2\","
            "\"ForwardToIP\":\"10.0.0.2\",\"ForwardToPort\":2147483647}]}");
  EXPECT_EQ(log(), "brelo_getForwardRuleInfo()\n");
}

TEST_F(TrafficForward, QueryOfNoRules) {
  EXPECT_EQ(list(), kEmpty);
  sim_set("forward", "empty_array", "1");  // an allocated empty array is freed too
  EXPECT_EQ(list(), kEmpty);
}

TEST_F(TrafficForward, QueryFailureStillFreesTheList) {
  rule(1, "a", "1", "TCP", "m", "10.0.0.1", "1");
  sim_set("forward", "extra_rules", "3");
  sim_program_result("brelo_getForwardRuleInfo", -1);
  EXPECT_EQ(list(), kFailure);
  sim_program_result("brelo_getForwardRuleInfo", 1);
  EXPECT_EQ(list(), kFailure);  // any result but 0 fails
}

TEST_F(TrafficForward, QueryOfRulesWithNullFields) {
  sim_set("forward rule 1", "comment", "every field NULL");
  rule(2, "x", nullptr, "UDP", nullptr, "10.0.0.9", "9");
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":["
            "{\"RemoteAddress\":\"\",\"RemotePort\":\"\",\"Protocol\":\"\",\"HostMAC\":\"\",\"ForwardToIP\":\"\",\"ForwardToPort\":0},"
            "{\"RemoteAddress\":\"x\",\"RemotePort\":\"\",\"Protocol\":\"UDP\",\"HostMAC\":\"\",\"ForwardToIP\":\"10.0.0.9\",\"ForwardToPort\":9}]}");
}

TEST_F(TrafficForward, QueryOfTenThousandRulesIsComplete) {
  sim_set("forward", "extra_rules", "10000");
  std::string reply = list();
  EXPECT_EQ(reply.rfind("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"198.51.0.0\",\"RemotePort\":\"1024\"", 0), 0u);
  EXPECT_EQ(reply.substr(reply.size() - 2), "]}");
  size_t objects = 0;
  for (size_t at = reply.find("{\"RemoteAddress\""); at != std::string::npos;
       at = reply.find("{\"RemoteAddress\"", at + 1))
    ++objects;
  EXPECT_EQ(objects, 10000u);
  EXPECT_NE(reply.find("{\"RemoteAddress\":\"198.51.39.15\",\"RemotePort\":\"11023\",\"Protocol\":\"TCP\","
                       "\"HostMAC\":\"00:E0:4C:68:01:A2\",\"ForwardToIP\":\"192.168.1.2\",\"ForwardToPort\":8999}]}"),
            std::string::npos);
}

TEST_F(TrafficForward, OverlongRulesAreCutAtTheListBufferNotOverflowed) {
  // One rule has (1 + 1) x 512 bytes of reply: a 2000-byte address cuts it at 1023 bytes.
  rule(1, std::string(2000, 'a').c_str(), "1", "TCP", "m", "10.0.0.1", "1");
  std::string reply = list();
  if (bundle::hardened_profile()) {  // a cut list: the failure reply instead
    EXPECT_EQ(reply, "{\"Result\":-1,\"List\":[]}");
    return;
  }
  EXPECT_EQ(reply.size(), 1023u);
  std::string head = "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"";
  EXPECT_EQ(reply, head + std::string(1023 - head.size(), 'a'));
}

TEST_F(TrafficForward, TextsThatAreNotUtf8StillReachJava) {
  rule(1, "caf\xE9", "1", "TCP", "m", "10.0.0.1", "1");
  EXPECT_EQ(list().find("\"RemoteAddress\":\"caf\xEF\xBF\xBD\""), 21u);
}

TEST_F(TrafficForward, TracesEveryReturn) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  add("a", "b", "c", "d", "e", 1);
  FORWARD(deleteForwardRuleJni)(env(), self(), 300);
  FORWARD(deleteAllForwardRuleJni)(env(), self());
  list();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_addForwardRuleJni:N:"
            "addForwardRuleJni: return code = 0   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteForwardRuleJni:N:"
            "deleteForwardRuleJni: return code = -1   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_deleteAllForwardRuleJni:N:"
            "deleteAllForwardRuleJni: return code = 0   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_getForwardRuleInfoJni:N:"
            "getForwardRuleInfoJni: return json = {\"Result\":0,\"List\":[]}   leave============>\n");
}

TEST_F(TrafficForward, NoTraceWithoutTheFlagFile) {
  CaptureStdout out;
  add("a", "b", "c", "d", "e", 1);
  list();
  EXPECT_EQ(out.finish(), "");
}

TEST_F(TrafficForward, ANullReplyStringIsReturnedAsIs) {
  jvm().fail_new_string(true);
  EXPECT_EQ(FORWARD(getForwardRuleInfoJni)(env(), self()), nullptr);
}

}  // namespace traffic_forward_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef FORWARD
