// Every native with Java text or text-array parameters, called with one of its texts failing
// (GetStringUTFChars gives NULL with an OutOfMemoryError pending): no JNI call but the allowed
// ones follows, the native answers its failure value, nothing is left borrowed but the texts
// kept on purpose, the gateway is not touched, and Java still sees the exception.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "sim/sim_control.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace {

using catalogue::Arg;
using catalogue::Native;
using catalogue::Returns;

// The failure value of an int native whose failed text gives another code than -1: natives
// that always answer 0 (Java sees the pending exception, not the value).
const std::map<std::string, jint> kIntFailure = {
    {"addVpnDestIPJni", 0},
    {"deleteVpnDestIPJni", 0},
    {"subscribeVoIPEventJni", 0},
    {"unSubscribeVoIPEventJni", 0},
};

// Texts a native deliberately keeps when a given parameter fails ("method/position"): the
// URL the upload and download diagnostics never give back.
const std::map<std::string, int> kKeptTexts = {
    {"startHttpUploadDiagnosticsJni/2", 1},
    {"startHttpDownloadDiagnosticsJni/2", 1},
};

// Gateway state some natives need before they read their texts at all.
void prepare(const std::string &method) {
  if (method == "deleteLANHostFromBlackListJni") sim_set("lan", "filter_mode", "1");
  if (method == "deleteLANHostFromTrustListJni") sim_set("lan", "filter_mode", "2");
}

// Texts that let a native read every later text (it refuses some before reading on); "1"
// serves the others.
const std::map<std::string, std::vector<std::string>> kSampleTexts = {
    {"addPortMappingJni", {"TCP", "192.168.1.20"}},
    {"setLANDHCPInfoJni", {"TRUE", "192.168.1.2", "192.168.1.99"}},
    {"addMirrorRuleJni",
     {"192.168.1.30", "80", "UP", "TCP", "00:11:22:33:44:55", "192.168.1.20"}},
    {"addTrafficMonitoringDestAddressJni", {"bundle.one"}},
    {"deleteTrafficMonitoringDestAddressJni", {"bundle.one"}},
};
const std::map<std::string, std::vector<std::string>> kSampleElements = {
    {"addTrafficMonitoringDestAddressJni", {"192.168.1.30", "192.168.1.31", "192.168.1.32"}},
    {"deleteTrafficMonitoringDestAddressJni", {"192.168.1.30", "192.168.1.31", "192.168.1.32"}},
};

std::string sample_text(const Native &n, size_t nth) {
  auto it = kSampleTexts.find(n.method);
  return it != kSampleTexts.end() && nth < it->second.size() ? it->second[nth] : "1";
}

std::vector<std::string> sample_elements(const Native &n) {
  auto it = kSampleElements.find(n.method);
  return it != kSampleElements.end()
             ? it->second
             : std::vector<std::string>{"00:11:22:33:44:55", "00:11:22:33:44:66",
                                        "00:11:22:33:44:77"};
}

struct Case {
  std::string label;
  size_t param;   // position of the failing parameter
  int element;    // for an array: which element fails (-1 for a string)
};

std::vector<Case> cases_of(const Native &n) {
  std::vector<Case> out;
  for (size_t p = 0; n.params[p] != '\0'; ++p) {
    if (n.params[p] == 'S') out.push_back({"text " + std::to_string(p), p, -1});
    if (n.params[p] == 'A') {
      out.push_back({"array " + std::to_string(p) + " first element", p, 0});
      out.push_back({"array " + std::to_string(p) + " later element", p, 1});
    }
  }
  return out;
}

// Valid sample arguments, one per parameter, with the chosen one failing.
std::vector<Arg> arguments(fakejni::FakeJvm &jvm, const Native &n, const Case &c) {
  std::vector<Arg> args;
  size_t texts = 0;
  for (size_t p = 0; n.params[p] != '\0'; ++p) {
    Arg a;
    switch (n.params[p]) {
      case 'I': a.i = 1; break;
      case 'Z': a.z = JNI_TRUE; break;
      case 'B': a.b = 1; break;
      case 'S': {
        std::string t = sample_text(n, texts++);
        a.s = p == c.param ? jvm.failing_str(t) : jvm.str(t);
        break;
      }
      case 'A': {
        std::vector<jstring> e;
        for (auto &t : sample_elements(n)) e.push_back(jvm.str(t));
        if (p == c.param) e[static_cast<size_t>(c.element)] = jvm.failing_str("x");
        a.a = jvm.array(e);
        break;
      }
      case 'Y': a.y = jvm.bytes_of("1234"); break;
    }
    args.push_back(a);
  }
  return args;
}

bool has_java_text_input(const Native &n) {
  for (const char *p = n.params; *p; ++p)
    if (*p == 'S' || *p == 'A') return true;
  return false;
}

// The natives whose Java inputs include a text or a text array (byte[] inputs are pinned, not
// copied as texts, and have their own failure tests).
TEST(JniFailure, CatalogueHasSixtyOneNativesWithTextInputs) {
  size_t count = 0;
  for (size_t i = 0; i < catalogue::kNativeCount; ++i)
    if (has_java_text_input(catalogue::kNatives[i])) ++count;
  EXPECT_EQ(count, 61u);
}

TEST(JniFailure, EveryNativeStopsAtAFailedText) {
  int cases = 0;
  for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
    const Native &n = catalogue::kNatives[i];
    for (const Case &c : cases_of(n)) {
      ++cases;
      const std::string where = std::string(n.cls) + "." + n.method + ", " + c.label + ": ";
      sim_reset();
      prepare(n.method);
      sim_clear_log();
      fakejni::FakeJvm jvm;
      std::string log_at_failure;
      bool failed = false;
      jvm.on_failed_copy([&] {
        log_at_failure = sim_log();
        failed = true;
      });
      std::vector<Arg> args = arguments(jvm, n, c);
      catalogue::Result r = n.call(jvm.env(), jvm.self(), args.data());

      EXPECT_TRUE(failed) << where << "the failing text was never asked for";
      for (auto &e : jvm.errors()) ADD_FAILURE() << where << "JNI misuse: " << e;
      EXPECT_EQ(jvm.pending_exception(), "java/lang/OutOfMemoryError") << where;
      EXPECT_EQ(std::string(sim_log()), log_at_failure) << where << "platform calls after the failure";
      EXPECT_EQ(jvm.new_strings(), 0) << where << "a reply string was made";
      std::string key = std::string(n.method) + "/" + std::to_string(c.param);
      auto kept = kKeptTexts.find(key);
      EXPECT_EQ(jvm.outstanding(), kept != kKeptTexts.end() ? kept->second : 0)
          << where << "texts left borrowed";
      EXPECT_EQ(jvm.live_local_refs(), 0) << where << "local references left";
      switch (n.returns) {
        case Returns::kInt: {
          auto f = kIntFailure.find(n.method);
          EXPECT_EQ(r.number, f != kIntFailure.end() ? f->second : -1) << where;
          break;
        }
        case Returns::kBool: EXPECT_EQ(r.number, JNI_FALSE) << where; break;
        case Returns::kText: EXPECT_EQ(r.text, nullptr) << where << jvm.text(r.text); break;
      }
    }
  }
  EXPECT_GT(cases, 61);
}

}  // namespace
