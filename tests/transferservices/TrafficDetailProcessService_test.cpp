// com.lumarest.smartgateway.transferservices.TrafficDetailProcessServiceImp
#include <string>
#include <vector>

#include "common/hardened.h"
#include "tests/test_support.h"

#define HTTP(m) Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_##m
extern "C" {
jint HTTP(addHTTPTrafficProcessRuleJni)(JNIEnv *, jobject, jstring, jint, jstring, jstring,
                                        jobjectArray, jobjectArray, jobjectArray, jstring);
jint HTTP(deleteHTTPTrafficProcessRuleJni)(JNIEnv *, jobject, jint);
jint HTTP(deleteAllHTTPTrafficProcessRuleJni)(JNIEnv *, jobject);
jstring HTTP(getHTTPTrafficProcessRuleInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kFailure[] = "{\"Result\":-1,\"List\":[]}";
const char kEmpty[] = "{\"Result\":0,\"List\":[]}";

class HttpTrafficProcess : public testsupport::BridgeTest {
 protected:
  jint add(jstring addr, jint port, jstring dir, jstring mac, jobjectArray methods,
           jobjectArray second, jobjectArray headers, jstring bundle) {
    return HTTP(addHTTPTrafficProcessRuleJni)(env(), self(), addr, port, dir, mac, methods, second,
                                              headers, bundle);
  }
  std::string list() { return text(HTTP(getHTTPTrafficProcessRuleInfoJni)(env(), self())); }
};

TEST_F(HttpTrafficProcess, AddJoinsTheListsAndPassesTheRecord) {
  EXPECT_EQ(add(jvm().str("198.51.100.1"), 8080, jvm().str("UP"), jvm().str("00:11:22:33:44:55"),
                jvm().array_of({"GET", "POST"}), jvm().array_of({"text/html"}),
                jvm().array_of({"Host", "Cookie", "Referer"}), jvm().str("com.example.bundle")),
            0);
  EXPECT_EQ(log(),
            "brelo_addHTTPTrafficProcessRule(\"198.51.100.1\", 8080, \"UP\", \"00:11:22:33:44:55\", "
            "\"GET,POST\", \"text/html\", \"Host,Cookie,Referer\", \"com.example.bundle\")\n");
  // The simulated platform keeps list items quoted; the second list is not reported.
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"198.51.100.1\",\"RemotePort\":\"8080\","
            "\"Direction\":\"UP\",\"HostMAC\":\"00:11:22:33:44:55\",\"MethodList\":[\"GET\",\"POST\"],"
            "\"HeaderList\":[\"Host\",\"Cookie\",\"Referer\"],\"BundleName\":\"com.example.bundle\"}]}");
  EXPECT_EQ(jvm().acquired(), 10);
  EXPECT_EQ(jvm().released(), 10);
}

TEST_F(HttpTrafficProcess, AddReadsTextsListsThenTheBundleName) {
  jstring addr = jvm().str("a");
  jstring dir = jvm().str("UP");
  jstring mac = jvm().str("m");
  jobjectArray methods = jvm().array_of({"GET"});
  jstring bundle = jvm().str("b");
  add(addr, 1, dir, mac, methods, jvm().array_of({}), jvm().array_of({}), bundle);
  std::string events = jvm().events_text();
  EXPECT_EQ(events.rfind("GetStringUTFChars(s1)\nGetStringUTFChars(s2)\nGetStringUTFChars(s3)\n", 0), 0u) << events;
  size_t method = events.find("GetStringUTFChars(s4)");
  size_t name = events.find("GetStringUTFChars(s6)");
  EXPECT_LT(method, name) << events;
  EXPECT_NE(events.find("ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\nReleaseStringUTFChars(s3)\n"
                        "ReleaseStringUTFChars(s6)\n"),
            std::string::npos)
      << events;
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(HttpTrafficProcess, NullArraysNullElementsAndEmptyTexts) {
  EXPECT_EQ(add(nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), -1);
  EXPECT_EQ(add(jvm().str(""), -1, jvm().str(""), jvm().str(""),
                jvm().array({nullptr, jvm().str("GET"), nullptr}), jvm().array({nullptr}),
                jvm().array_of({"", ""}), jvm().str("")),
            -1);
  EXPECT_EQ(add(nullptr, 65536, nullptr, nullptr, jvm().array({}), nullptr,
                jvm().array({jvm().str("Host"), nullptr}), jvm().str("b")),
            0);
  EXPECT_EQ(log(),
            "brelo_addHTTPTrafficProcessRule(NULL, 0, NULL, NULL, \"\", \"\", \"\", NULL)\n"
            "brelo_addHTTPTrafficProcessRule(\"\", -1, \"\", \"\", \",GET,\", \"\", \",\", \"\")\n"
            "brelo_addHTTPTrafficProcessRule(NULL, 65536, NULL, NULL, \"\", \"\", \"Host,\", \"b\")\n");
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\",\"RemotePort\":\"65536\",\"Direction\":\"\","
            "\"HostMAC\":\"\",\"MethodList\":[],\"HeaderList\":[\"Host\",\"\"],\"BundleName\":\"b\"}]}");
}

TEST_F(HttpTrafficProcess, AJoinedListIsCutAt1023Bytes) {
  std::vector<std::string> methods(300, "METHOD");  // 300 x 7 - 1 = 2099 bytes joined
  add(jvm().str("a"), 1, jvm().str("UP"), jvm().str("m"), jvm().array_of(methods),
      jvm().array_of({std::string(500, 's')}), jvm().array_of({}), jvm().str("b"));
  std::string joined;
  for (int i = 0; i < 300; ++i) joined += (i ? "," : "") + methods[i];
  std::string expected = "brelo_addHTTPTrafficProcessRule(\"a\", 1, \"UP\", \"m\", \"" + joined.substr(0, 1023) +
                         "\", \"" + std::string(500, 's') + "\", \"\", \"b\")\n";
  EXPECT_EQ(log(), expected);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(HttpTrafficProcess, AddAsksForNoTextAfterACopyFailed) {
  jstring addr = jvm().str("a");
  jstring dir = jvm().failing_str();
  EXPECT_EQ(add(addr, 1, dir, jvm().str("m"), jvm().array_of({"GET"}), jvm().array_of({"x"}),
                jvm().array_of({"Host"}), jvm().str("b")),
            -1);
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2,NULL)\n");
  // No rule is added once a text could not be had; Java sees the pending error.
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
}

TEST_F(HttpTrafficProcess, AFailingListElementStopsTheRule) {
  EXPECT_EQ(add(jvm().str("a"), 1, jvm().str("UP"), jvm().str("m"),
                jvm().array({jvm().str("GET"), jvm().failing_str()}), jvm().array_of({"x"}),
                jvm().array_of({}), jvm().str("b")),
            -1);
  EXPECT_EQ(log(), "");
  // Neither the later lists nor the bundle name are asked for; every text had is given back.
  EXPECT_EQ(jvm().acquired(), 5);
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(jvm().live_local_refs(), 0);
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
}

TEST_F(HttpTrafficProcess, AddReturnsThePlatformResult) {
  sim_program_result("brelo_addHTTPTrafficProcessRule", 42);
  EXPECT_EQ(add(nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 42);
  sim_program_result("brelo_addHTTPTrafficProcessRule", -7);
  EXPECT_EQ(add(nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, jvm().str("b")), -7);
}

TEST_F(HttpTrafficProcess, DeleteChecksTheIndexAsUnsigned) {
  sim_set("http rule 1", "bundle_name", "b");
  EXPECT_EQ(HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), 256), -1);
  EXPECT_EQ(HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), -1), -1);
  EXPECT_EQ(HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), INT32_MIN), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), 255), -1);
  EXPECT_EQ(HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), 0), 0);
  EXPECT_EQ(log(), "brelo_deleteHTTPTrafficProcessRule(255)\nbrelo_deleteHTTPTrafficProcessRule(0)\n");
  EXPECT_EQ(list(), kEmpty);
  sim_program_result("brelo_deleteHTTPTrafficProcessRule", 3);
  EXPECT_EQ(HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), 1), 3);
}

TEST_F(HttpTrafficProcess, DeleteAllPassesThePlatformResult) {
  sim_set("http rule 1", "bundle_name", "b");
  EXPECT_EQ(HTTP(deleteAllHTTPTrafficProcessRuleJni)(env(), self()), 0);
  EXPECT_EQ(list(), kEmpty);
  sim_program_result("brelo_deleteAllHTTPTrafficProcessRule", -9);
  EXPECT_EQ(HTTP(deleteAllHTTPTrafficProcessRuleJni)(env(), self()), -9);
}

TEST_F(HttpTrafficProcess, QueryInsertsTheListsRawAndQuotesThePort) {
  sim_set("http rule 1", "remote_address", "a");
  sim_set("http rule 1", "remote_port", "-80");
  sim_set("http rule 1", "direction", "DOWN");
  sim_set("http rule 1", "host_mac", "m");
  sim_set("http rule 1", "method_list", "GET,POST");
  sim_set("http rule 1", "second_list", "never listed");
  sim_set("http rule 1", "header_list", "{\"x\":1}");
  sim_set("http rule 1", "bundle_name", "b1");
  sim_set("http rule 2", "bundle_name", "b2");  // every other field NULL
  if (bundle::hardened_profile()) {  // GET,POST between brackets is not JSON: the failure reply instead
    EXPECT_EQ(list(), "{\"Result\":-1,\"List\":[]}");
    return;
  }
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":["
            "{\"RemoteAddress\":\"a\",\"RemotePort\":\"-80\",\"Direction\":\"DOWN\",\"HostMAC\":\"m\","
            "\"MethodList\":[GET,POST],\"HeaderList\":[{\"x\":1}],\"BundleName\":\"b1\"},"
            "{\"RemoteAddress\":\"\",\"RemotePort\":\"0\",\"Direction\":\"\",\"HostMAC\":\"\","
            "\"MethodList\":[],\"HeaderList\":[],\"BundleName\":\"b2\"}]}");
  EXPECT_EQ(log(), "brelo_getHTTPTrafficProcessRuleInfo()\n");
}

TEST_F(HttpTrafficProcess, QueryOfNoRules) {
  EXPECT_EQ(list(), kEmpty);
  sim_set("http", "empty_array", "1");
  EXPECT_EQ(list(), kEmpty);
}

TEST_F(HttpTrafficProcess, QueryFailureStillFreesTheList) {
  sim_set("http rule 1", "bundle_name", "b");
  sim_set("http", "extra_rules", "2");
  sim_program_result("brelo_getHTTPTrafficProcessRuleInfo", -1);
  EXPECT_EQ(list(), kFailure);
  sim_program_result("brelo_getHTTPTrafficProcessRuleInfo", 2);
  EXPECT_EQ(list(), kFailure);
}

TEST_F(HttpTrafficProcess, QueryOfTenThousandRulesIsComplete) {
  sim_set("http", "extra_rules", "10000");
  std::string reply = list();
  size_t objects = 0;
  for (size_t at = reply.find("{\"RemoteAddress\""); at != std::string::npos;
       at = reply.find("{\"RemoteAddress\"", at + 1))
    ++objects;
  EXPECT_EQ(objects, 10000u);
  EXPECT_NE(reply.find(",{\"RemoteAddress\":\"203.0.39.15\",\"RemotePort\":\"1079\",\"Direction\":\"UP\","
                       "\"HostMAC\":\"F0:18:98:4B:7E:21\",\"MethodList\":[\"GET\"],\"HeaderList\":[\"Host\"],"
                       "\"BundleName\":\"bundle9999\"}]}"),
            std::string::npos);
}

TEST_F(HttpTrafficProcess, OverlongRulesAreCutAtTheListBuffer) {
  sim_set("http rule 1", "bundle_name", std::string(3000, 'b').c_str());
  std::string reply = list();
  if (bundle::hardened_profile()) {  // a cut list: the failure reply instead
    EXPECT_EQ(reply, "{\"Result\":-1,\"List\":[]}");
    return;
  }
  EXPECT_EQ(reply.size(), 1023u);
  EXPECT_EQ(reply.substr(reply.size() - 3), "bbb");
}

TEST_F(HttpTrafficProcess, TracesEveryReturn) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  add(nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, jvm().str("b"));
  HTTP(deleteHTTPTrafficProcessRuleJni)(env(), self(), -1);
  HTTP(deleteAllHTTPTrafficProcessRuleJni)(env(), self());
  sim_program_result("brelo_getHTTPTrafficProcessRuleInfo", -1);
  list();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_addHTTPTrafficProcessRuleJni:N:"
            "addHTTPTrafficProcessRuleJni: return code = 0   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteHTTPTrafficProcessRuleJni:N:"
            "deleteHTTPTrafficProcessRuleJni: return code = -1   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_deleteAllHTTPTrafficProcessRuleJni:N:"
            "deleteAllHTTPTrafficProcessRuleJni: return code = 0   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni:N:"
            "getHTTPTrafficProcessRuleInfoJni: return json = {\"Result\":-1,\"List\":[]}   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef HTTP
