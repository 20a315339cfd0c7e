// com.lumarest.smartgateway.accessservices.IPPingDiagnosticsServiceImp
#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_##m
extern "C" {
jint NATIVE(startIPPingDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jstring NATIVE(getIPPingDiagnosticsResultJni)(JNIEnv *, jobject);
}

namespace ip_ping_diagnostics_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kStartName[] =
    "Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_"
    "startIPPingDiagnosticsJni";

std::string state(const char *section, const char *key) {
  const char *v = sim_get(section, key);
  return v != nullptr ? v : "<absent>";
}

class IPPingDiagnosticsService : public testsupport::BridgeTest {
 protected:
  int start(const std::string &params, jint wan = 1, const std::string &host = "192.0.2.1") {
    jstring jhost = jvm().str(host);  // s1, then the parameter s2
    jstring jparams = jvm().str(params);
    return NATIVE(startIPPingDiagnosticsJni)(env(), self(), wan, jhost, jparams);
  }
  std::string result() { return text(NATIVE(getIPPingDiagnosticsResultJni)(env(), self())); }
  // repetitions/timeout/block size/DSCP as the platform received them.
  std::string request() {
    return state("ping request", "repetitions") + "/" + state("ping request", "timeout") + "/" +
           state("ping request", "block_size") + "/" + state("ping request", "dscp");
  }
};

TEST_F(IPPingDiagnosticsService, EmptyObjectGivesEveryDefault) {
  EXPECT_EQ(start("{}", 3, "www.example.com"), 0);
  EXPECT_EQ(request(), "4/10/56/0");
  EXPECT_EQ(state("ping request", "host"), "www.example.com");
  EXPECT_EQ(state("ping request", "wan"), "3");
  EXPECT_EQ(log(), "brelo_startIPPingDiagnostics(3)\n");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(IPPingDiagnosticsService, EmptyParameterTextGivesEveryDefault) {
  EXPECT_EQ(start(""), 0);
  EXPECT_EQ(request(), "4/10/56/0");
}

TEST_F(IPPingDiagnosticsService, NullParameterTextGivesEveryDefault) {
  EXPECT_EQ(NATIVE(startIPPingDiagnosticsJni)(env(), self(), 1, jvm().str("192.0.2.1"), nullptr), 0);
  EXPECT_EQ(request(), "4/10/56/0");
}

TEST_F(IPPingDiagnosticsService, ParameterTextTheJvmCannotCopyStartsNothingAndIsReleased) {
  jstring host = jvm().str("192.0.2.1");
  EXPECT_EQ(NATIVE(startIPPingDiagnosticsJni)(env(), self(), 1, host, jvm().failing_str()), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 1);
}

TEST_F(IPPingDiagnosticsService, ValuesMayBeJsonNumbersOrStrings) {
  EXPECT_EQ(start("{\"NumberOfRepetitions\":7,\"Timeout\":\"3000\",\"DataBlockSize\":\"100\",\"DSCP\":46}"),
            0);
  EXPECT_EQ(request(), "7/3/100/46");
  EXPECT_EQ(start("{\"NumberOfRepetitions\":\"9\",\"Timeout\":4000,\"DataBlockSize\":64,\"DSCP\":\"8\"}"),
            0);
  EXPECT_EQ(request(), "9/4/64/8");
}

TEST_F(IPPingDiagnosticsService, TimeoutIsMillisecondsDividedDown) {
  start("{\"Timeout\":2500}");
  EXPECT_EQ(state("ping request", "timeout"), "2");
  start("{\"Timeout\":500}");  // 0 s: the default
  EXPECT_EQ(state("ping request", "timeout"), "10");
  start("{\"Timeout\":999}");
  EXPECT_EQ(state("ping request", "timeout"), "10");
  start("{\"Timeout\":1000}");
  EXPECT_EQ(state("ping request", "timeout"), "1");
}

TEST_F(IPPingDiagnosticsService, ZeroMembersGetTheirDefaultsButDscpZeroStays) {
  start("{\"NumberOfRepetitions\":0,\"Timeout\":0,\"DataBlockSize\":0,\"DSCP\":0}");
  EXPECT_EQ(request(), "4/10/56/0");
}

TEST_F(IPPingDiagnosticsService, MembersOfOtherTypesOrMissingGetDefaults) {
  start("{\"NumberOfRepetitions\":{},\"Timeout\":[1,2],\"DataBlockSize\":true,\"DSCP\":null,"
        "\"Other\":5}");
  EXPECT_EQ(request(), "4/10/56/0");
}

TEST_F(IPPingDiagnosticsService, NonNumericTextsReadAsZeroAndThenDefault) {
  start("{\"NumberOfRepetitions\":\"many\",\"Timeout\":\"\",\"DataBlockSize\":\"12abc\",\"DSCP\":1.9}");
  EXPECT_EQ(request(), "4/10/12/1");
}

TEST_F(IPPingDiagnosticsService, NegativeValuesWrapAsUnsigned) {
  start("{\"NumberOfRepetitions\":-1,\"Timeout\":-5000,\"DataBlockSize\":-56,\"DSCP\":-2}");
  EXPECT_EQ(request(), "4294967295/4294967291/4294967240/4294967294");
}

TEST_F(IPPingDiagnosticsService, HugeValuesSaturateAtTheThirtyTwoBitRange) {
  start("{\"NumberOfRepetitions\":99999999999,\"Timeout\":\"99999999999999999999999\","
        "\"DataBlockSize\":-99999999999,\"DSCP\":2147483648}");
  EXPECT_EQ(request(), "2147483647/2147483/2147483648/2147483647");
}

TEST_F(IPPingDiagnosticsService, NumberBeyondADoubleIsAParseError) {
  EXPECT_EQ(start("{\"NumberOfRepetitions\":1e400}"), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(IPPingDiagnosticsService, TextThatIsNotJsonIsRefusedAfterReleasingIt) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(start("count=4"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kStartName) + ":N:JSON Parse format error!\n" + kStartName +
                ":N:startIPPingDiagnosticsJni: return code = -1   leave============>\n");
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(IPPingDiagnosticsService, TruncatedOrMalformedJsonIsRefused) {
  for (const char *bad : {"{\"Timeout\":25", "{\"Timeout\":", "{", "[", "{\"Timeout\" 2}",
                          "{Timeout:2500}", "{1:2}", "{\"Timeout\":2500}}", " ", "\"\\x\""}) {
    EXPECT_EQ(start(bad), -1) << bad;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(IPPingDiagnosticsService, RootThatIsNotAnObjectGivesDefaults) {
  EXPECT_EQ(start("[{\"NumberOfRepetitions\":7}]"), 0);
  EXPECT_EQ(request(), "4/10/56/0");
  EXPECT_EQ(start("42"), 0);
  EXPECT_EQ(request(), "4/10/56/0");
}

TEST_F(IPPingDiagnosticsService, DeeplyNestedDocumentsNeitherCrashNorMatchInnerKeys) {
  std::string deep = "{\"x\":" + std::string(100000, '[') + "{\"NumberOfRepetitions\":7}" +
                     std::string(100000, ']') + ",\"DSCP\":3}";
  EXPECT_EQ(start(deep), 0);
  EXPECT_EQ(request(), "4/10/56/3");
  std::string unbalanced = std::string(100000, '{');
  EXPECT_EQ(start(unbalanced), -1);
}

TEST_F(IPPingDiagnosticsService, HostOf255BytesIsAccepted) {
  std::string host(255, 'h');
  EXPECT_EQ(start("{}", 1, host), 0);
  EXPECT_EQ(state("ping request", "host"), host);
}

TEST_F(IPPingDiagnosticsService, HostOf256BytesIsRefusedAndLeftUnreleased) {
  EXPECT_EQ(start("{}", 1, std::string(256, 'h')), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\n");  // the parameter is not even read
  expected_outstanding_ = 1;
}

TEST_F(IPPingDiagnosticsService, EmptyHostIsRefusedAndLeftUnreleased) {
  EXPECT_EQ(start("{}", 1, ""), -1);
  EXPECT_EQ(log(), "");
  expected_outstanding_ = 1;
}

TEST_F(IPPingDiagnosticsService, HostThatCannotBeHadIsRefused) {
  EXPECT_EQ(NATIVE(startIPPingDiagnosticsJni)(env(), self(), 1, jvm().failing_str(), jvm().str("{}")),
            -1);
  EXPECT_EQ(NATIVE(startIPPingDiagnosticsJni)(env(), self(), 1, nullptr, jvm().str("{}")), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().released(), 0);
}

TEST_F(IPPingDiagnosticsService, PlatformResultAndWanIndexPassUnchanged) {
  sim_program_result("brelo_startIPPingDiagnostics", -7);
  EXPECT_EQ(start("{}", -1), -7);
  EXPECT_EQ(log(), "brelo_startIPPingDiagnostics(-1)\n");
}

TEST_F(IPPingDiagnosticsService, StartTracesItsReturnCode) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  start("{\"Timeout\":2000}");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kStartName) +
                ":N:host = 192.0.2.1, repetitions = 4, interval = 2, block size = 56, dscp = 0\n" +
                kStartName + ":N:startIPPingDiagnosticsJni: return code = 0   leave============>\n");
}

TEST_F(IPPingDiagnosticsService, StartedTestIsNotCompletedFirstThenReportsItsFigures) {
  sim_set("ping", "average_response_time", "12");
  sim_set("ping", "minimum_response_time", "9");
  sim_set("ping", "maximum_response_time", "17");
  start("{\"NumberOfRepetitions\":5}");
  EXPECT_EQ(result(), "{\"Result\":-2,\"FailReason\":\"Ping diagonostics not completed\"}");
  EXPECT_EQ(result(),
            "{\"Result\":0,\"SuccessCount\":5,\"FailureCount\":0,\"AverageResponseTime\":12,"
            "\"MinimumResponseTime\":9,\"MaximumResponseTime\":17}");
}

TEST_F(IPPingDiagnosticsService, ResultFiguresAreUnsigned) {
  sim_set("ping", "success_count", "4294967295");
  sim_set("ping", "failure_count", "2147483648");
  EXPECT_EQ(result(),
            "{\"Result\":0,\"SuccessCount\":4294967295,\"FailureCount\":2147483648,"
            "\"AverageResponseTime\":0,\"MinimumResponseTime\":0,\"MaximumResponseTime\":0}");
  EXPECT_EQ(log(), "brelo_getIPPingDiagnostics()\n");
}

TEST_F(IPPingDiagnosticsService, NotCompletedAndFailedResults) {
  sim_program_result("brelo_getIPPingDiagnostics", -2);
  EXPECT_EQ(result(), "{\"Result\":-2,\"FailReason\":\"Ping diagonostics not completed\"}");
  for (int rc : {-1, 1, -3, 2147483647}) {
    sim_program_result("brelo_getIPPingDiagnostics", rc);
    EXPECT_EQ(result(), "{\"Result\":-1,\"FailReason\":\"Ping diagonostics fail\"}") << rc;
  }
}

TEST_F(IPPingDiagnosticsService, ResultTracesTheReply) {
  sim_program_result("brelo_getIPPingDiagnostics", -1);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  result();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_accessservices_IPPingDiagnosticsServiceImp_"
            "getIPPingDiagnosticsResultJni:N:getIPPingDiagnosticsResultJni: return json = "
            "{\"Result\":-1,\"FailReason\":\"Ping diagonostics fail\"}   leave============>\n");
}

}  // namespace ip_ping_diagnostics_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
