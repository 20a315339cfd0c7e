// com.lumarest.smartgateway.accessservices.TraceRouteDiagnosticsServiceImp
#include <sys/stat.h>
#include <unistd.h>

#include <stdio.h>
#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_##m
extern "C" {
jint NATIVE(startTraceRouteDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jstring NATIVE(getTraceRouteDiagnosticsResultJni)(JNIEnv *, jobject);
}

namespace trace_route_diagnostics_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kStartName[] =
    "Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_"
    "startTraceRouteDiagnosticsJni";
const char kStatFile[] = "/tmp/cwmp/traceroutediagnostic_stat";

std::string state(const char *section, const char *key) {
  const char *v = sim_get(section, key);
  return v != nullptr ? v : "<absent>";
}

bool exists(const std::string &path) { return access(path.c_str(), F_OK) == 0; }

// Creates the platform's result file for one test (and its folder "cwmp" when it is missing),
// in this test program's own flag folder, and removes whatever it created.
class StatFile {
 public:
  StatFile()
      : file_(testsupport::gateway_file(kStatFile)),
        dir_(file_.substr(0, file_.rfind('/'))),
        made_dir_(!exists(dir_)),
        existed_(exists(file_)) {
    if (made_dir_) mkdir(dir_.c_str(), 0755);
    FILE *f = fopen(file_.c_str(), "a");
    if (f != nullptr) fclose(f);
  }
  ~StatFile() {
    if (!existed_) unlink(file_.c_str());
    else if (!exists(file_)) fclose(fopen(file_.c_str(), "a"));  // put back what was there
    if (made_dir_) rmdir(dir_.c_str());
  }
  bool present() const { return exists(file_); }

 private:
  std::string file_;
  std::string dir_;
  bool made_dir_;
  bool existed_;
};

class TraceRouteDiagnosticsService : public testsupport::BridgeTest {
 protected:
  int start(const std::string &params, jint wan = 1, const std::string &host = "192.0.2.1") {
    jstring jhost = jvm().str(host);  // s1, then the parameter s2
    jstring jparams = jvm().str(params);
    return NATIVE(startTraceRouteDiagnosticsJni)(env(), self(), wan, jhost, jparams);
  }
  std::string result() { return text(NATIVE(getTraceRouteDiagnosticsResultJni)(env(), self())); }
  // tries/timeout/block size/DSCP/maximum hops as the platform received them.
  std::string request() {
    return state("traceroute request", "tries") + "/" + state("traceroute request", "timeout") +
           "/" + state("traceroute request", "block_size") + "/" +
           state("traceroute request", "dscp") + "/" + state("traceroute request", "max_hops");
  }
  void set_hop(int n, const char *host, const char *address, const char *error, const char *rtt) {
    std::string section = "traceroute hop " + std::to_string(n);
    sim_set(section.c_str(), "host", host);
    sim_set(section.c_str(), "address", address);
    sim_set(section.c_str(), "error_code", error);
    sim_set(section.c_str(), "rt_times", rtt);
  }
};

TEST_F(TraceRouteDiagnosticsService, EmptyObjectGivesEveryDefault) {
  EXPECT_EQ(start("{}", 2, "www.example.com"), 0);
  EXPECT_EQ(request(), "3/5/38/0/30");
  EXPECT_EQ(state("traceroute request", "host"), "www.example.com");
  EXPECT_EQ(log(), "brelo_startTraceRouteDiagnostics(2)\n");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(TraceRouteDiagnosticsService, NullOrEmptyParameterTextGivesEveryDefault) {
  EXPECT_EQ(start(""), 0);
  EXPECT_EQ(request(), "3/5/38/0/30");
  sim_unset("traceroute request", nullptr);
  EXPECT_EQ(NATIVE(startTraceRouteDiagnosticsJni)(env(), self(), 1, jvm().str("h"), nullptr), 0);
  EXPECT_EQ(request(), "3/5/38/0/30");
}

TEST_F(TraceRouteDiagnosticsService, ValuesMayBeJsonNumbersOrStrings) {
  start("{\"NumberOfTries\":\"2\",\"Timeout\":2500,\"DataBlockSize\":\"64\",\"DSCP\":10,"
        "\"MaxHopCount\":\"12\"}");
  EXPECT_EQ(request(), "2/2/64/10/12");
}

TEST_F(TraceRouteDiagnosticsService, TimeoutBelowOneSecondAndZeroMembersGetDefaults) {
  start("{\"NumberOfTries\":0,\"Timeout\":500,\"DataBlockSize\":0,\"DSCP\":0,\"MaxHopCount\":0}");
  EXPECT_EQ(request(), "3/5/38/0/30");
}

TEST_F(TraceRouteDiagnosticsService, NegativeAndHugeValues) {
  start("{\"NumberOfTries\":-3,\"Timeout\":-1000,\"DataBlockSize\":\"1e9\",\"DSCP\":99999999999,"
        "\"MaxHopCount\":-99999999999}");
  EXPECT_EQ(request(), "4294967293/4294967295/1/2147483647/2147483648");
}

TEST_F(TraceRouteDiagnosticsService, BadParameterTextsAreRefused) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(start("tries=3"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kStartName) + ":N:JSON Parse format error!\n" + kStartName +
                ":N:startTraceRouteDiagnosticsJni: return code = -1   leave============>\n");
  const std::string unbalanced(50000, '[');
  for (const char *bad : {"{\"MaxHopCount\":", "{\"MaxHopCount\":3", "{MaxHopCount:3}", "{3:3}",
                          "{\"a\":1e999}", unbalanced.c_str()}) {
    EXPECT_EQ(start(bad), -1) << bad;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(TraceRouteDiagnosticsService, DeeplyNestedDocumentGivesDefaults) {
  std::string deep = "{\"a\":" + std::string(50000, '[') + std::string(50000, ']') + "}";
  EXPECT_EQ(start(deep), 0);
  EXPECT_EQ(request(), "3/5/38/0/30");
}

TEST_F(TraceRouteDiagnosticsService, HostOf255BytesIsAcceptedAnd256Refused) {
  EXPECT_EQ(start("{}", 1, std::string(255, 'h')), 0);
  EXPECT_EQ(state("traceroute request", "host"), std::string(255, 'h'));
  EXPECT_EQ(start("{}", 1, std::string(256, 'h')), -1);
  EXPECT_EQ(start("{}", 1, ""), -1);
  EXPECT_EQ(sim_log_count("brelo_startTraceRouteDiagnostics"), 1);
  expected_outstanding_ = 2;  // refused hosts are not given back
}

TEST_F(TraceRouteDiagnosticsService, HostThatCannotBeHadIsRefused) {
  EXPECT_EQ(NATIVE(startTraceRouteDiagnosticsJni)(env(), self(), 1, jvm().failing_str(), jvm().str("{}")),
            -1);
  EXPECT_EQ(jvm().released(), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(TraceRouteDiagnosticsService, PlatformResultIsReturnedUnchanged) {
  sim_program_result("brelo_startTraceRouteDiagnostics", 5);
  EXPECT_EQ(start("{}", 7), 5);
}

TEST_F(TraceRouteDiagnosticsService, StartedTestIsNotCompletedFirstThenListsItsHops) {
  sim_set("traceroute", "response_time", "25");
  set_hop(1, "gw.isp.example", "100.64.0.1", "0", "2,2,3");
  set_hop(2, "", "100.64.10.1", "11", "*,*,*");
  start("{}");
  EXPECT_EQ(result(),
            "{\"Result\":-2,\"FailReaso1n\":\"TraceRoute diagonostics not completed\"}");
  EXPECT_EQ(result(),
            "{\"Result\":0,\"ResponseTime\":25,\"HopsNumberOfEntries\":2,\"RouteHops\": ["
            "{\"HopHost\":\"gw.isp.example\",\"HopHostAddress\":\"100.64.0.1\",\"HopErrorCode\":0,"
            "\"HopRTTimes\":\"2,2,3\"},"
            "{\"HopHost\":\"\",\"HopHostAddress\":\"100.64.10.1\",\"HopErrorCode\":11,"
            "\"HopRTTimes\":\"*,*,*\"}]}");
}

TEST_F(TraceRouteDiagnosticsService, NoHopsGiveAnEmptyList) {
  sim_set("traceroute", "hop_count", "0");
  sim_set("traceroute", "response_time", "4294967295");
  EXPECT_EQ(result(),
            "{\"Result\":0,\"ResponseTime\":4294967295,\"HopsNumberOfEntries\":0,\"RouteHops\": []}");
}

TEST_F(TraceRouteDiagnosticsService, NegativeHopCountIsPrintedAndListsNothing) {
  sim_set("traceroute", "hop_count", "-1");
  EXPECT_EQ(result(),
            "{\"Result\":0,\"ResponseTime\":0,\"HopsNumberOfEntries\":-1,\"RouteHops\": []}");
}

// The reply the bridge composes for `n` made-up hops, from the rule: hops are listed while the
// reply is shorter than 3996 bytes, a comma follows every hop but the count's last, and
// everything beyond 4095 bytes is cut.
std::string expected_hops_reply(int n) {
  std::string r = "{\"Result\":0,\"ResponseTime\":0,\"HopsNumberOfEntries\":" + std::to_string(n) +
                  ",\"RouteHops\": [";
  for (int i = 0; i < n && r.size() < 3996; ++i) {
    int k = i + 1;
    r += "{\"HopHost\":\"hop" + std::to_string(k) + ".example.net\",\"HopHostAddress\":\"198.51.100." +
         std::to_string(k % 256) + "\",\"HopErrorCode\":0,\"HopRTTimes\":\"" + std::to_string(k) +
         "," + std::to_string(k + 1) + "," + std::to_string(k) + "\"}";
    if (i < n - 1) r += ",";
  }
  r += "]}";
  return r.substr(0, 4095);
}

TEST_F(TraceRouteDiagnosticsService, ListJustBelowTheCutIsComplete) {
  sim_set("traceroute", "hop_count", "30");
  std::string reply = result();
  EXPECT_EQ(reply, expected_hops_reply(30));
  EXPECT_EQ(reply.substr(reply.size() - 3), "}]}");
  EXPECT_LT(reply.size(), 3996u);
}

TEST_F(TraceRouteDiagnosticsService, LongListIsCutAfterTheHopThatReachedTheLimitAndKeepsItsComma) {
  sim_set("traceroute", "hop_count", "60");
  std::string reply = result();
  if (bundle::hardened_profile()) {  // the kept comma makes it invalid JSON: the failure reply instead
    EXPECT_EQ(reply, "{\"Result\":-1}");
    return;
  }
  EXPECT_EQ(reply, expected_hops_reply(60));
  EXPECT_EQ(reply.substr(reply.size() - 4), "},]}");  // the comma of a hop that is not the last
  EXPECT_GE(reply.size(), 3996u);
  EXPECT_LT(reply.size(), 4095u);
}

TEST_F(TraceRouteDiagnosticsService, LongHopTextsOverflowTheReplyWithoutWritingPastIt) {
  sim_set("traceroute", "hop_count", "8");
  for (int n = 1; n <= 8; ++n)
    set_hop(n, std::string(300, 'n').c_str(), std::string(300, 'a').c_str(), "4294967295",
            std::string(300, 't').c_str());
  std::string reply = result();
  if (bundle::hardened_profile()) {  // a cut reply: the failure reply instead
    EXPECT_EQ(reply, "{\"Result\":-1}");
    return;
  }
  EXPECT_EQ(reply.size(), 4095u);
  // Every field was cut at its own last byte.
  EXPECT_NE(reply.find("{\"HopHost\":\"" + std::string(256, 'n') + "\",\"HopHostAddress\":\"" +
                       std::string(258, 'a') + "\",\"HopErrorCode\":4294967295,\"HopRTTimes\":\"" +
                       std::string(255, 't') + "\"},"),
            std::string::npos);
}

TEST_F(TraceRouteDiagnosticsService, NotCompletedAndFailedResults) {
  sim_program_result("brelo_getTraceRouteDiagnosticsResult", -2);
  EXPECT_EQ(result(), "{\"Result\":-2,\"FailReaso1n\":\"TraceRoute diagonostics not completed\"}");
  for (int rc : {-1, 1, 3}) {
    sim_program_result("brelo_getTraceRouteDiagnosticsResult", rc);
    EXPECT_EQ(result(), "{\"Result\":-1,\"FailReason\":\"TraceRoute diagonostics fail\"}") << rc;
  }
}

TEST_F(TraceRouteDiagnosticsService, FailedResultStillFreesTheHopsItWasGiven) {
  // The simulated platform hands over hops even with a failure result; the sanitizer tier's
  // leak check sees them freed.
  sim_set("traceroute", "hop_count", "5");
  sim_program_result("brelo_getTraceRouteDiagnosticsResult", -1);
  EXPECT_EQ(result(), "{\"Result\":-1,\"FailReason\":\"TraceRoute diagonostics fail\"}");
}

TEST_F(TraceRouteDiagnosticsService, ResultFileIsDeletedAfterEveryResultQuery) {
  for (int rc : {0, -2, -1}) {
    StatFile stat;
    ASSERT_TRUE(stat.present());
    sim_program_result("brelo_getTraceRouteDiagnosticsResult", rc);
    result();
    EXPECT_FALSE(stat.present()) << rc;
  }
}

TEST_F(TraceRouteDiagnosticsService, ResultQueryWithoutAResultFileIsFine) {
  ASSERT_FALSE(exists(testsupport::gateway_file(kStatFile)));
  EXPECT_EQ(result(), "{\"Result\":0,\"ResponseTime\":0,\"HopsNumberOfEntries\":0,\"RouteHops\": []}");
  EXPECT_EQ(log(), "brelo_getTraceRouteDiagnosticsResult()\n");
}

TEST_F(TraceRouteDiagnosticsService, ResultTracesTheReply) {
  sim_program_result("brelo_getTraceRouteDiagnosticsResult", -2);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  result();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_accessservices_TraceRouteDiagnosticsServiceImp_"
            "getTraceRouteDiagnosticsResultJni:N:getTraceRouteDiagnosticsResultJni: return json = "
            "{\"Result\":-2,\"FailReaso1n\":\"TraceRoute diagonostics not completed\"}"
            "   leave============>\n");
}

}  // namespace trace_route_diagnostics_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
