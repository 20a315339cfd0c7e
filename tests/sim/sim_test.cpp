// The gateway simulator itself: state files, programmed results and hooks, the call log, and
// the configuration tree with its persistence.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

#include "common/platform_forward.h"
#include "common/platform_route.h"
#include "common/platform_tcapi.h"
#include "sim/sim.h"
#include "common/platform_vpn.h"
#include "sim/sim_control.h"
#include "tests/test_support.h"

namespace {

std::string temp_path(const char *tag) {
  return std::string("/tmp/bundle_sc_simtest_") + tag + "_" + std::to_string(getpid()) + ".ini";
}

void write_file(const std::string &path, const char *text) {
  FILE *f = fopen(path.c_str(), "w");
  ASSERT_NE(f, nullptr);
  fputs(text, f);
  fclose(f);
}

// BRELO_SIM_SAVE naming a temporary file, absent at first, for the length of a test.
class SavedTree {
 public:
  explicit SavedTree(const char *tag) : path_(temp_path(tag)) {
    unlink(path_.c_str());
    setenv("BRELO_SIM_SAVE", path_.c_str(), 1);
  }
  ~SavedTree() {
    unlink(path_.c_str());
    unsetenv("BRELO_SIM_SAVE");
  }
  SavedTree(const SavedTree &) = delete;
  SavedTree &operator=(const SavedTree &) = delete;
  const std::string &path() const { return path_; }

 private:
  std::string path_;
};

class Simulator : public testsupport::BridgeTest {};

TEST_F(Simulator, StateFileSectionsKeysAndEscapes) {
  std::string path = temp_path("state");
  write_file(path,
             "# comment\n[device]\nvendor = Lumarest  \nnfc = \"  spaced  \"\n"
             "raw = \\xC4\\xE3 \\\\ \\\"q\\\"\n\n[tcapi Node_Entry0]\nAttr = v\n");
  EXPECT_EQ(sim_load(path.c_str()), 0);
  unlink(path.c_str());
  EXPECT_STREQ(sim_get("device", "vendor"), "Lumarest");
  EXPECT_STREQ(sim_get("device", "nfc"), "  spaced  ");
  EXPECT_STREQ(sim_get("device", "raw"), "\xC4\xE3 \\ \"q\"");
  char buf[64] = "junk";
  EXPECT_EQ(tcapi_get("Node_Entry0", "Attr", buf), 0);
  EXPECT_STREQ(buf, "v");
}

TEST_F(Simulator, MalformedStateFileIsReported) {
  std::string path = temp_path("bad");
  write_file(path, "[device\nkey without equals\n");
  EXPECT_EQ(sim_load(path.c_str()), -1);
  unlink(path.c_str());
  EXPECT_EQ(sim_load("/nonexistent/state.ini"), -1);
}

// A line is read whole however long it is: a tree value of 4095 bytes that are not ASCII takes
// 16 KiB once escaped, and tcapi_save writes it so.
TEST_F(Simulator, LongLinesAreReadWhole) {
  std::string value(4095, '\xC4');
  tcapi_set("Long_Entry0", "Value", value.c_str());
  tcapi_set("Long_Entry0", "Next", "1");
  std::string path = temp_path("long");
  sim_set_save_path(path.c_str());
  tcapi_save();
  sim_reset();
  EXPECT_EQ(sim_load(path.c_str()), 0);
  unlink(path.c_str());
  EXPECT_EQ(sim_get("tcapi Long_Entry0", "Value"), value);
  EXPECT_STREQ(sim_get("tcapi Long_Entry0", "Next"), "1");
}

// A NUL byte in a line makes the line malformed; a value takes one through \x00.
TEST_F(Simulator, NulBytesInALineAreReported) {
  std::string path = temp_path("nul");
  FILE *f = fopen(path.c_str(), "wb");
  ASSERT_NE(f, nullptr);
  static const char text[] = "[device]\nmac = 00\0:11\nmodel = \"H\\x00GU\"\n";
  fwrite(text, 1, sizeof text - 1, f);
  fclose(f);
  EXPECT_EQ(sim_load(path.c_str()), -1);
  unlink(path.c_str());
  EXPECT_EQ(sim_get("device", "mac"), nullptr);
  std::vector<std::pair<std::string, std::string>> entries = sim::entries("device");
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].second, std::string("H\0GU", 4));
}

TEST_F(Simulator, DefaultGatewayLoads) {
  EXPECT_EQ(sim_load_default(), 0);
  EXPECT_NE(sim_get("device", "mac"), nullptr);
  sim_reset();
  EXPECT_EQ(sim_get("device", "mac"), nullptr);
}

TEST_F(Simulator, AbsentAttributeReadsAsEmptyText) {
  char buf[32] = "junk";
  EXPECT_NE(tcapi_get("Missing", "Attr", buf), 0);
  EXPECT_STREQ(buf, "");
}

TEST_F(Simulator, TreeSetGetUnsetAndTheLog) {
  tcapi_set("Wan_PVC0_Entry1", "IFIdx", "1");
  char buf[32] = {};
  EXPECT_EQ(tcapi_get("Wan_PVC0_Entry1", "IFIdx", buf), 0);
  EXPECT_STREQ(buf, "1");
  tcapi_unset("Wan_PVC0_Entry1");
  EXPECT_NE(tcapi_get("Wan_PVC0_Entry1", "IFIdx", buf), 0);
  EXPECT_EQ(log(),
            "tcapi_set(\"Wan_PVC0_Entry1\", \"IFIdx\", \"1\")\n"
            "tcapi_get(\"Wan_PVC0_Entry1\", \"IFIdx\")\n"
            "tcapi_unset(\"Wan_PVC0_Entry1\")\n"
            "tcapi_get(\"Wan_PVC0_Entry1\", \"IFIdx\")\n");
  EXPECT_EQ(sim_log_count("tcapi_get"), 2);
  sim_clear_log();
  EXPECT_EQ(log(), "");
}

TEST_F(Simulator, SavedTreeIsReadBackByTheNextLoad) {
  SavedTree saved("save");
  sim_load_default();
  tcapi_set("VirServer_Entry0_Entry0", "Description", "web \"cam\"\xC4");
  tcapi_save();
  tcapi_set("VirServer_Entry0_Entry0", "Description", "not saved");
  sim_load_default();
  char buf[64] = {};
  tcapi_get("VirServer_Entry0_Entry0", "Description", buf);
  EXPECT_STREQ(buf, "web \"cam\"\xC4");
}

// An older saved tree, holding only some nodes: those replace the default ones of the same
// name, whole; every other default node (WLAN, traffic, the other rules) stays.
TEST_F(Simulator, SavedTreeReplacesOnlyTheNodesItHolds) {
  SavedTree saved("partial");
  write_file(saved.path(), "[tcapi VirServer_Entry8_Entry0]\nLOCALIP = 192.168.1.99\n");
  EXPECT_EQ(sim_load_default(), 0);
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry0", "LOCALIP"), "192.168.1.99");
  EXPECT_EQ(sim_get("tcapi VirServer_Entry8_Entry0", "Protocal"), nullptr);
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry1", "LOCALIP"), "192.168.1.33");
  EXPECT_STREQ(sim_get("tcapi WanInfo_Common", "ValidIFIndex"), "0,8,16,24");
  EXPECT_NE(sim_get("tcapi BandWidth_Entry0", "MAC"), nullptr);
  EXPECT_NE(sim_get("tcapi WLanForGuest_Entry0", "Duration"), nullptr);
  EXPECT_NE(sim_get("tcapi TrafficMonitoring_PVC0_Entry0", "destAddressList"), nullptr);
  EXPECT_NE(sim_get("tcapi TrafficMirror_Entry0", "protocol"), nullptr);
}

// A node removed before the save stays removed when the tree is read back; made again and
// saved, it is back.
TEST_F(Simulator, NodesRemovedBeforeTheSaveStayRemoved) {
  SavedTree saved("removed");
  sim_load_default();
  tcapi_unset("VirServer_Entry8_Entry1");
  tcapi_unset("NeverThere");
  tcapi_save();
  sim_load_default();
  EXPECT_EQ(sim_get("tcapi VirServer_Entry8_Entry1", "LOCALIP"), nullptr);
  EXPECT_EQ(sim_get("removed tree nodes", "VirServer_Entry8_Entry1"), nullptr);  // not state
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry0", "LOCALIP"), "192.168.1.20");
  tcapi_save();  // the removal is kept from one save to the next
  sim_load_default();
  EXPECT_EQ(sim_get("tcapi VirServer_Entry8_Entry1", "LOCALIP"), nullptr);
  tcapi_set("VirServer_Entry8_Entry1", "LOCALIP", "192.168.1.34");
  tcapi_save();
  sim_load_default();
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry1", "LOCALIP"), "192.168.1.34");
}

TEST_F(Simulator, FreshLoadIgnoresTheSavedTreeButStillSaves) {
  SavedTree saved("fresh");
  sim_load_default();
  tcapi_set("VirServer_Entry8_Entry0", "LOCALIP", "192.168.1.77");
  tcapi_save();
  EXPECT_EQ(sim_load_fresh(), 0);
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry0", "LOCALIP"), "192.168.1.20");
  tcapi_set("VirServer_Entry8_Entry0", "Active", "No");
  tcapi_save();
  sim_load_default();
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry0", "LOCALIP"), "192.168.1.20");
  EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry0", "Active"), "No");
}

// Unset or empty, BRELO_SIM_SAVE names no file: the tree is saved nowhere (the save still
// answers 0) and the default gateway is all there is.
TEST_F(Simulator, WithoutASavePathTheTreeIsSavedNowhere) {
  for (const char *save : {static_cast<const char *>(nullptr), ""}) {
    if (save == nullptr) unsetenv("BRELO_SIM_SAVE");
    else setenv("BRELO_SIM_SAVE", save, 1);
    sim_load_default();
    tcapi_set("VirServer_Entry8_Entry0", "LOCALIP", "192.168.1.99");
    EXPECT_EQ(tcapi_save(), 0);
    sim_load_default();
    EXPECT_STREQ(sim_get("tcapi VirServer_Entry8_Entry0", "LOCALIP"), "192.168.1.20");
  }
  unsetenv("BRELO_SIM_SAVE");
}

TEST_F(Simulator, ProgrammedResultsReplaceTheUsualOnes) {
  sim_program_result("tcapi_set", -3);
  EXPECT_EQ(tcapi_set("N", "a", "b"), -3);
  EXPECT_STREQ(sim_get("tcapi N", "a"), "b");
}

TEST_F(Simulator, AProgrammedResultIsCleared) {
  sim_program_result("tcapi_set", -3);
  sim_clear_result("tcapi_set");
  EXPECT_EQ(tcapi_set("N", "a", "b"), 0);
  sim_clear_result("tcapi_get");  // never programmed: nothing to clear
  char buf[8];
  EXPECT_EQ(tcapi_get("N", "a", buf), 0);
}

TEST_F(Simulator, TheLogWithReturnCodes) {
  sim_clear_log();
  tcapi_set("N", "a", "two\nlines");
  char buf[32];
  tcapi_get("N", "missing", buf);
  sim_program_result("tcapi_get", 7);
  tcapi_get("N", "a", buf);
  EXPECT_EQ(log(),
            "tcapi_set(\"N\", \"a\", \"two\nlines\")\n"
            "tcapi_get(\"N\", \"missing\")\n"
            "tcapi_get(\"N\", \"a\")\n")
      << "the log's own lines stay as they are";
  EXPECT_STREQ(sim_log_results(),
               "tcapi_set(\"N\", \"a\", \"two\nlines\") -> 0\n"
               "tcapi_get(\"N\", \"missing\") -> -1\n"
               "tcapi_get(\"N\", \"a\") -> 7\n");
  sim_clear_log();
  EXPECT_STREQ(sim_log_results(), "");
}

TEST_F(Simulator, ReturnCodesStayWithTheirCallsWhenOldLinesAreDropped) {
  sim_set("tcapi N", "a", "v");
  sim_clear_log();
  sim_set_log_limit(200);
  char buf[32];
  for (int i = 0; i < 40; ++i) tcapi_get(i % 2 == 0 ? "Missing" : "N", "a", buf);
  sim_set_log_limit(0);
  std::string lines = sim_log_results();
  ASSERT_FALSE(lines.empty());
  size_t start = 0, count = 0;
  while (start < lines.size()) {
    size_t end = lines.find('\n', start);
    std::string line = lines.substr(start, end - start);
    bool missing = line.find("Missing") != std::string::npos;
    std::string want = missing ? " -> -1" : " -> 0";
    ASSERT_GT(line.size(), want.size());
    EXPECT_EQ(line.substr(line.size() - want.size()), want) << line;
    start = end + 1;
    ++count;
  }
  EXPECT_LT(count, 40u);
}

TEST_F(Simulator, FunctionsThatAnswerWithoutAProgrammedResultRecordTheirReturnCodes) {
  sim_load_default();
  sim_clear_log();
  char none[] = "203.0.113.9";
  char empty[] = "";
  char user[] = "u";
  EXPECT_EQ(brelo_deleteForwardRule(999), -1);
  EXPECT_EQ(brelo_deleteHTTPTrafficProcessRule(999), -1);
  EXPECT_EQ(brelo_routeAddIp4ForwardingStatic("x", "255.255.255.0", "", "ppp0"), -1);
  EXPECT_EQ(brelo_routeAddIp6ForwardingStatic("x", "", "ppp0"), -1);
  EXPECT_EQ(brelo_routeDeleteIp4ForwardingStatic(99), -1);
  EXPECT_EQ(brelo_routeDeleteIp6ForwardingStatic(99), -1);
  EXPECT_EQ(brelo_setVLANBind("nothing", "100/10"), -1);
  EXPECT_EQ(brelo_clearVLANBind("nothing"), -1);
  EXPECT_EQ(brelo_vpnOn(empty, user, user), -1);
  EXPECT_EQ(brelo_vpnOff(none), -1);
  EXPECT_EQ(brelo_getConnectedIpList(nullptr, 0), -1);
  int id4 = brelo_routeAddIp4ForwardingStatic("198.51.100.0", "255.255.255.0", "", "ppp0");
  int id6 = brelo_routeAddIp6ForwardingStatic("2001:db8::/64", "", "ppp0");
  ASSERT_GT(id4, 0);
  ASSERT_GT(id6, 0);
  EXPECT_EQ(brelo_routeDeleteIp4ForwardingStatic(id4), 0);
  EXPECT_EQ(brelo_routeDeleteIp6ForwardingStatic(id6), 0);
  EXPECT_EQ(brelo_setVLANBind("LAN1", "100/10"), 0);
  EXPECT_EQ(brelo_clearVLANBind("LAN1"), 0);
  EXPECT_EQ(brelo_vpnOn(none, user, user), 0);
  EXPECT_EQ(brelo_vpnOff(none), 0);
  std::string lines = sim_log_results();
  const char *expected[] = {" -> -1", " -> -1", " -> -1", " -> -1", " -> -1", " -> -1", " -> -1",
                            " -> -1", " -> -1", " -> -1", " -> -1"};
  size_t start = 0;
  for (const char *rc : expected) {
    size_t end = lines.find('\n', start);
    ASSERT_NE(end, std::string::npos);
    EXPECT_EQ(lines.substr(end - strlen(rc), strlen(rc)), rc) << lines.substr(start, end - start);
    start = end + 1;
  }
  EXPECT_NE(lines.find(") -> " + std::to_string(id4) + "\n"), std::string::npos) << lines;
  EXPECT_NE(lines.find("brelo_routeDeleteIp6ForwardingStatic(" + std::to_string(id6) + ") -> 0\n"),
            std::string::npos)
      << lines;
  EXPECT_NE(lines.find("brelo_clearVLANBind(\"LAN1\") -> 0\n"), std::string::npos) << lines;
  EXPECT_NE(lines.find("brelo_vpnOff(\"203.0.113.9\") -> 0\n"), std::string::npos) << lines;
}

TEST_F(Simulator, PlatformFunctionsAreKnownByName) {
  EXPECT_EQ(sim_platform_function("tcapi_get"), 1);
  EXPECT_EQ(sim_platform_function("brelo_deviceGetMac"), 1);
  EXPECT_EQ(sim_platform_function("brelo_deviceGetMak"), 0);
  EXPECT_EQ(sim_platform_function("sim_reset"), 0) << "the simulator's control is no platform function";
}

TEST_F(Simulator, SectionsAreFoundByName) {
  sim_set("wlan ssid 9", "name", "x");
  EXPECT_EQ(sim_section_exists("wlan ssid 9"), 1);
  sim_unset("wlan ssid 9", "name");
  EXPECT_EQ(sim_section_exists("wlan ssid 9"), 1) << "a section without values is still there";
  sim_unset("wlan ssid 9", nullptr);
  EXPECT_EQ(sim_section_exists("wlan ssid 9"), 0);
}

int g_hook_calls = 0;
void count_hook(const char *fn, void *ctx) {
  ++g_hook_calls;
  *static_cast<std::string *>(ctx) = fn;
}

TEST_F(Simulator, HooksRunAtEveryCall) {
  std::string seen;
  g_hook_calls = 0;
  sim_program_hook("tcapi_save", count_hook, &seen);
  tcapi_save();
  tcapi_save();
  EXPECT_EQ(g_hook_calls, 2);
  EXPECT_EQ(seen, "tcapi_save");
}

void note_arguments(const char *, void *ctx) {
  const char *args = sim_hook_arguments();
  *static_cast<std::string *>(ctx) = args != nullptr ? args : "<null>";
}

// A hook sees what the call was given, as the log shows it, with the log on or off.
TEST_F(Simulator, HooksSeeTheCallsArguments) {
  std::string seen;
  sim_program_hook("tcapi_get", note_arguments, &seen);
  char buf[32] = {};
  tcapi_get("Node_Entry0", "Attr", buf);
  EXPECT_EQ(seen, "\"Node_Entry0\", \"Attr\"");
  sim_set_log(0);
  seen.clear();
  tcapi_get("Node_Entry1", "Other", buf);
  sim_set_log(1);
  EXPECT_EQ(seen, "\"Node_Entry1\", \"Other\"");
  EXPECT_EQ(sim_hook_arguments(), nullptr);
}

}  // namespace
