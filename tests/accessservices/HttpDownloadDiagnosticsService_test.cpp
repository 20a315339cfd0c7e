// com.lumarest.smartgateway.accessservices.HttpDownloadDiagnosticsServiceImp
#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_##m
extern "C" {
jint NATIVE(startHttpDownloadDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jstring NATIVE(getHttpDownloadDiagnosticsResultJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kUrl[] = "http://speed.example.net/100MB.bin";

std::string state(const char *section, const char *key) {
  const char *v = sim_get(section, key);
  return v != nullptr ? v : "<absent>";
}

class HttpDownloadDiagnosticsService : public testsupport::BridgeTest {
 protected:
  int start(const std::string &params, jint wan = 1) {
    jstring url = jvm().str(kUrl);  // s1, then the parameter s2
    jstring jparams = jvm().str(params);
    ++expected_outstanding_;  // the URL is never given back
    return NATIVE(startHttpDownloadDiagnosticsJni)(env(), self(), wan, url, jparams);
  }
  std::string result() { return text(NATIVE(getHttpDownloadDiagnosticsResultJni)(env(), self())); }
  std::string request() {
    return state("http download request", "file_length") + "/" +
           state("http download request", "measurement_offset") + "/" +
           state("http download request", "duration") + "/" +
           state("http download request", "connections");
  }
};

TEST_F(HttpDownloadDiagnosticsService, EmptyParameterTextStartsWithTheDefaults) {
  EXPECT_EQ(start("", 4), 0);
  EXPECT_EQ(request(), "0/0/30/1");
  EXPECT_EQ(state("http upload request", "url"), "<absent>");  // direction word 0
  EXPECT_EQ(log(), std::string("brelo_startHttpSpeedTestDiagnostics(4, \"") + kUrl + "\")\n");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(HttpDownloadDiagnosticsService, NullParameterTextStartsWithTheDefaults) {
  ++expected_outstanding_;
  EXPECT_EQ(NATIVE(startHttpDownloadDiagnosticsJni)(env(), self(), 1, jvm().str(kUrl), nullptr), 0);
  EXPECT_EQ(request(), "0/0/30/1");
}

TEST_F(HttpDownloadDiagnosticsService, ParametersByTheTableAndNoFileLength) {
  EXPECT_EQ(start("{\"TestFileLength\":5000,\"MeasurementOffset\":\"12\",\"TestDuration\":60,"
                  "\"NumberOfConnections\":\"3\"}"),
            0);
  EXPECT_EQ(request(), "0/12/60/3");
}

TEST_F(HttpDownloadDiagnosticsService, BoundsAndSixteenBitTruncation) {
  start("{\"MeasurementOffset\":300,\"TestDuration\":301,\"NumberOfConnections\":4}");
  EXPECT_EQ(request(), "0/300/30/4");
  start("{\"MeasurementOffset\":301,\"TestDuration\":65836,\"NumberOfConnections\":5}");
  EXPECT_EQ(request(), "0/0/300/1");
  start("{\"MeasurementOffset\":-99999999999,\"TestDuration\":\"99999999999\",\"NumberOfConnections\":0}");
  EXPECT_EQ(request(), "0/0/30/0");
}

TEST_F(HttpDownloadDiagnosticsService, ZeroDurationIsNotRefused) {
  EXPECT_EQ(start("{\"TestDuration\":0}"), 0);
  EXPECT_EQ(request(), "0/0/0/1");
}

TEST_F(HttpDownloadDiagnosticsService, UnparsableParameterTextsAreRefused) {
  const std::string deep(100000, '{');
  for (const char *bad : {"duration=5", "{\"TestDuration\":5", "{\"TestDuration\":\"5}", "{5:5}",
                          "{\"TestDuration\":-1e999}", deep.c_str()}) {
    EXPECT_EQ(start(bad), -1) << bad;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(HttpDownloadDiagnosticsService, DeeplyNestedOrNonObjectDocumentsGiveDefaults) {
  std::string deep = "[" + std::string(100000, '[') + std::string(100000, ']') + "]";
  EXPECT_EQ(start(deep), 0);
  EXPECT_EQ(request(), "0/0/30/1");
  EXPECT_EQ(start("\"TestDuration\""), 0);
  EXPECT_EQ(request(), "0/0/30/1");
}

TEST_F(HttpDownloadDiagnosticsService, UrlThatCannotBeHadIsRefused) {
  EXPECT_EQ(NATIVE(startHttpDownloadDiagnosticsJni)(env(), self(), 1, jvm().failing_str(), jvm().str("")),
            -1);
  EXPECT_EQ(jvm().released(), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(HttpDownloadDiagnosticsService, PlatformResultIsReturnedUnchanged) {
  sim_program_result("brelo_startHttpSpeedTestDiagnostics", 1);
  EXPECT_EQ(start(""), 1);
}

TEST_F(HttpDownloadDiagnosticsService, StartedTestIsRequestedThenCompleted) {
  sim_set("http download", "test_rate", "195340");
  sim_set("http download", "total_rate", "194870");
  sim_set("http download", "test_bytes", "127926272");
  sim_set("http download", "total_bytes", "5000000000");
  sim_set("http download", "rom_time", "R");
  sim_set("http download", "bom_time", "B");
  sim_set("http download", "eom_time", "E");
  sim_set("http download", "tcp_open_request_time", "Q");
  sim_set("http download", "tcp_open_response_time", "S");
  start("{}");
  EXPECT_EQ(result(), "{\"Result\":\"Requested\"}");
  EXPECT_EQ(result(),
            "{\"Result\":\"Completed\", \"TestDownloadRate\":195340, \"TotalDownloadRate\":194870, "
            "\"ROMTime\":\"R\", \"BOMTime\":\"B\", \"EOMTime\":\"E\", \"TestBytesReceived\":127926272, "
            "\"TotalBytesReceived\":5000000000, \"TCPOpenRequestTime\":\"Q\", "
            "\"TCPOpenResponseTime\":\"S\"}");
  EXPECT_NE(log().find("brelo_getHttpSpeedTestDiagnostics(0)\n"), std::string::npos);  // download
}

TEST_F(HttpDownloadDiagnosticsService, StateCodes) {
  const std::pair<const char *, const char *> cases[] = {
      {"-4", "{\"Result\":\"Other_Error\"}"},
      {"-3", "{\"Result\":\"Error_Timeout\"}"},
      {"-2", "{\"Result\":\"Error_NoResponse\"}"},
      {"-1", "{\"Result\":\"Error_InitConnectionFailed\"}"},
      {"1", "{\"Result\":\"Requested\"}"},
      {"2", "{\"Result\":\"None\"}"},
      {"3", ""},
      {"-5", ""},  // below the named states: empty as well
  };
  for (auto &c : cases) {
    sim_set("http download", "state", c.first);
    EXPECT_EQ(result(), c.second) << c.first;
  }
}

TEST_F(HttpDownloadDiagnosticsService, StartTracesItsReturnCode) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  start("");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_accessservices_HttpDownloadDiagnosticsServiceImp_"
            "startHttpDownloadDiagnosticsJni:N:startHttpDownloadDiagnosticsJni: return code = 0"
            "   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
