// The gateway simulator itself: state files, programmed results and hooks, the call log, and
// the configuration tree with its persistence.
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

#include "common/platform_tcapi.h"
#include "sim/sim.h"
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
  std::string path = temp_path("save");
  setenv("BRELO_SIM_SAVE", path.c_str(), 1);
  unlink(path.c_str());
  sim_load_default();
  tcapi_set("VirServer_Entry0_Entry0", "Description", "web \"cam\"\xC4");
  tcapi_save();
  tcapi_set("VirServer_Entry0_Entry0", "Description", "not saved");
  sim_load_default();
  char buf[64] = {};
  tcapi_get("VirServer_Entry0_Entry0", "Description", buf);
  EXPECT_STREQ(buf, "web \"cam\"\xC4");
  unlink(path.c_str());
  unsetenv("BRELO_SIM_SAVE");
}

TEST_F(Simulator, ProgrammedResultsReplaceTheUsualOnes) {
  sim_program_result("tcapi_set", -3);
  EXPECT_EQ(tcapi_set("N", "a", "b"), -3);
  EXPECT_STREQ(sim_get("tcapi N", "a"), "b");
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
