// com.lumarest.smartgateway.accessservices.HttpUploadDiagnosticsServiceImp
#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_##m
extern "C" {
jint NATIVE(startHttpUploadDiagnosticsJni)(JNIEnv *, jobject, jint, jstring, jstring);
jstring NATIVE(getHttpUploadDiagnosticsResultJni)(JNIEnv *, jobject);
}

namespace http_upload_diagnostics_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kStartName[] =
    "Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_"
    "startHttpUploadDiagnosticsJni";
const char kUrl[] = "http://speed.example.net/upload";

std::string state(const char *section, const char *key) {
  const char *v = sim_get(section, key);
  return v != nullptr ? v : "<absent>";
}

class HttpUploadDiagnosticsService : public testsupport::BridgeTest {
 protected:
  int start(const std::string &params, jint wan = 1) {
    jstring url = jvm().str(kUrl);  // s1, then the parameter s2
    jstring jparams = jvm().str(params);
    ++expected_outstanding_;  // the URL is never given back
    return NATIVE(startHttpUploadDiagnosticsJni)(env(), self(), wan, url, jparams);
  }
  std::string result() { return text(NATIVE(getHttpUploadDiagnosticsResultJni)(env(), self())); }
  // file length/offset/duration/connections as the platform received them.
  std::string request() {
    return state("http upload request", "file_length") + "/" +
           state("http upload request", "measurement_offset") + "/" +
           state("http upload request", "duration") + "/" +
           state("http upload request", "connections");
  }
  void set_figures() {
    sim_set("http upload", "test_rate", "48210");
    sim_set("http upload", "total_rate", "4294967295");
    sim_set("http upload", "test_bytes", "31457280");
    sim_set("http upload", "total_bytes", "-1");  // all 64 bits set
    sim_set("http upload", "rom_time", "2024-05-01T10:00:00.120000");
    sim_set("http upload", "bom_time", "2024-05-01T10:00:00.180000");
    sim_set("http upload", "eom_time", "2024-05-01T10:00:05.400000");
    sim_set("http upload", "tcp_open_request_time", "2024-05-01T10:00:00.125000");
    sim_set("http upload", "tcp_open_response_time", "2024-05-01T10:00:00.150000");
  }
};

const char kCompleted[] =
    "{\"Result\":\"Completed\", \"TestUploadRate\":48210, \"TotalUploadRate\":4294967295, "
    "\"ROMTime\":\"2024-05-01T10:00:00.120000\", \"BOMTime\":\"2024-05-01T10:00:00.180000\", "
    "\"EOMTime\":\"2024-05-01T10:00:05.400000\", \"TestBytesSent\":31457280, "
    "\"TotalBytesSend\":18446744073709551615, \"TCPOpenRequestTime\":\"2024-05-01T10:00:00.125000\", "
    "\"TCPOpenResponseTime\":\"2024-05-01T10:00:00.150000\"}";

TEST_F(HttpUploadDiagnosticsService, StartsWithTheGivenParametersAndKeepsTheUrl) {
  EXPECT_EQ(start("{\"TestFileLength\":1048576,\"MeasurementOffset\":300,\"TestDuration\":20,"
                  "\"NumberOfConnections\":4}",
                  2),
            0);
  EXPECT_EQ(request(), "1048576/300/20/4");
  EXPECT_EQ(state("http upload request", "url"), kUrl);
  EXPECT_EQ(state("http download request", "url"), "<absent>");  // direction word 1
  EXPECT_EQ(log(), std::string("brelo_startHttpSpeedTestDiagnostics(2, \"") + kUrl + "\")\n");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(HttpUploadDiagnosticsService, ValuesMayBeJsonStringsAndMissingOnesGetDefaults) {
  EXPECT_EQ(start("{\"TestFileLength\":\"4096\"}"), 0);
  EXPECT_EQ(request(), "4096/0/30/1");
}

TEST_F(HttpUploadDiagnosticsService, OutOfRangeValuesFallBackToDefaults) {
  start("{\"TestFileLength\":1,\"MeasurementOffset\":301,\"TestDuration\":301,\"NumberOfConnections\":5}");
  EXPECT_EQ(request(), "1/0/30/1");
  start("{\"TestFileLength\":1,\"MeasurementOffset\":\"300\",\"TestDuration\":300,\"NumberOfConnections\":0}");
  EXPECT_EQ(request(), "1/300/300/0");
}

TEST_F(HttpUploadDiagnosticsService, ValuesKeepTheirLowSixteenBits) {
  start("{\"TestFileLength\":1,\"MeasurementOffset\":65536,\"TestDuration\":65836,"
        "\"NumberOfConnections\":65540}");
  EXPECT_EQ(request(), "1/0/300/4");
  start("{\"TestFileLength\":1,\"MeasurementOffset\":-1,\"TestDuration\":-65236,\"NumberOfConnections\":-1}");
  EXPECT_EQ(request(), "1/0/300/1");
}

TEST_F(HttpUploadDiagnosticsService, FileLengthIsSignExtendedAndSaturatesLikeA32BitLong) {
  start("{\"TestFileLength\":-1}");
  EXPECT_EQ(state("http upload request", "file_length"), "18446744073709551615");
  start("{\"TestFileLength\":99999999999}");
  EXPECT_EQ(state("http upload request", "file_length"), "2147483647");
}

TEST_F(HttpUploadDiagnosticsService, ZeroLengthAndZeroDurationIsRefused) {
  EXPECT_EQ(start("{\"TestFileLength\":0,\"TestDuration\":0}"), -1);
  EXPECT_EQ(start("{\"TestFileLength\":\"0\",\"TestDuration\":65536}"), -1);  // low bits 0
  EXPECT_EQ(log(), "");
}

TEST_F(HttpUploadDiagnosticsService, ZeroLengthWithoutDurationStartsForThirtySeconds) {
  EXPECT_EQ(start("{\"TestFileLength\":0}"), 0);
  EXPECT_EQ(request(), "0/0/30/1");
}

TEST_F(HttpUploadDiagnosticsService, MissingFileLengthIsRefused) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(start("{\"TestDuration\":10}"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kStartName) + ":N:JSON Parse TestFileLength failed!\n" + kStartName +
                ":N:startHttpUploadDiagnosticsJni: return code = -1   leave============>\n");
  for (const char *bad : {"{\"TestFileLength\":null}", "{\"TestFileLength\":{}}",
                          "{\"TestFileLength\":[1]}", "[1]", "7"}) {
    EXPECT_EQ(start(bad), -1) << bad;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(HttpUploadDiagnosticsService, MissingOrEmptyParameterTextIsRefused) {
  EXPECT_EQ(start(""), -1);
  ++expected_outstanding_;
  EXPECT_EQ(NATIVE(startHttpUploadDiagnosticsJni)(env(), self(), 1, jvm().str(kUrl), nullptr), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(HttpUploadDiagnosticsService, UnparsableParameterTextsAreRefused) {
  const std::string deep(100000, '[');
  for (const char *bad : {"TestFileLength=1", "{\"TestFileLength\":1", "{\"TestFileLength\":",
                          "{TestFileLength:1}", "{1:1}", "{\"TestFileLength\":1e999}", deep.c_str()}) {
    EXPECT_EQ(start(bad), -1) << bad;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(HttpUploadDiagnosticsService, DeeplyNestedDocumentStillFindsTheTopLevelKeys) {
  std::string deep = "{\"x\":" + std::string(100000, '[') + std::string(100000, ']') +
                     ",\"TestFileLength\":5}";
  EXPECT_EQ(start(deep), 0);
  EXPECT_EQ(request(), "5/0/30/1");
}

TEST_F(HttpUploadDiagnosticsService, UrlThatCannotBeHadIsRefusedBeforeTheParameters) {
  EXPECT_EQ(NATIVE(startHttpUploadDiagnosticsJni)(env(), self(), 1, jvm().failing_str(),
                                                  jvm().str("{\"TestFileLength\":1}")),
            -1);
  EXPECT_EQ(NATIVE(startHttpUploadDiagnosticsJni)(env(), self(), 1, nullptr,
                                                  jvm().str("{\"TestFileLength\":1}")),
            -1);
  EXPECT_EQ(jvm().acquired(), 1);
  EXPECT_EQ(jvm().released(), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(HttpUploadDiagnosticsService, PlatformResultIsReturnedUnchanged) {
  sim_program_result("brelo_startHttpSpeedTestDiagnostics", -5);
  EXPECT_EQ(start("{\"TestFileLength\":1}", -3), -5);
  EXPECT_EQ(log(), std::string("brelo_startHttpSpeedTestDiagnostics(-3, \"") + kUrl + "\")\n");
}

TEST_F(HttpUploadDiagnosticsService, StartedTestIsRequestedThenCompleted) {
  set_figures();
  EXPECT_EQ(result(), "{\"Result\":\"None\"}");
  start("{\"TestFileLength\":1}");
  EXPECT_EQ(result(), "{\"Result\":\"Requested\"}");
  EXPECT_EQ(result(), kCompleted);
  EXPECT_EQ(sim_log_count("brelo_getHttpSpeedTestDiagnostics"), 3);
  EXPECT_NE(log().find("brelo_getHttpSpeedTestDiagnostics(1)\n"), std::string::npos);  // upload
}

TEST_F(HttpUploadDiagnosticsService, EveryStateCodeHasItsReply) {
  set_figures();
  const std::pair<const char *, std::string> cases[] = {
      {"-4", "{\"Result\":\"Other_Error\"}"},
      {"-3", "{\"Result\":\"Error_Timeout\"}"},
      {"-2", "{\"Result\":\"Error_NoResponse\"}"},
      {"-1", "{\"Result\":\"Error_InitConnectionFailed\"}"},
      {"0", kCompleted},
      {"1", "{\"Result\":\"Requested\"}"},
      {"2", "{\"Result\":\"None\"}"},
      {"3", ""},
      {"-5", ""},
      {"2147483647", ""},
  };
  for (auto &c : cases) {
    sim_set("http upload", "state", c.first);
    EXPECT_EQ(result(), c.second) << c.first;
  }
}

TEST_F(HttpUploadDiagnosticsService, ThePlatformsReturnValueIsIgnored) {
  sim_set("http upload", "state", "-3");
  sim_program_result("brelo_getHttpSpeedTestDiagnostics", -1);
  EXPECT_EQ(result(), "{\"Result\":\"Error_Timeout\"}");
}

TEST_F(HttpUploadDiagnosticsService, TimeTextsFilledToTheBrimStayInTheirFields) {
  sim_set("http upload", "state", "0");
  sim_set("http upload", "rom_time", std::string(40, 'r').c_str());
  std::string reply = result();
  EXPECT_NE(reply.find("\"ROMTime\":\"" + std::string(31, 'r') + "\", \"BOMTime\":\"\""),
            std::string::npos)
      << reply;
}

TEST_F(HttpUploadDiagnosticsService, ResultTracesTheReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  sim_set("http upload", "state", "3");
  result();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_accessservices_HttpUploadDiagnosticsServiceImp_"
            "getHttpUploadDiagnosticsResultJni:N:getHttpUploadDiagnosticsResultJni: return json = "
            "   leave============>\n");
}

}  // namespace http_upload_diagnostics_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
