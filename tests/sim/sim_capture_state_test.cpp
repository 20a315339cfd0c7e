// What the simulator reads from the state for captured gateways: programmed results in a
// [results] section, a capture folder that replaces the whole state (and one that did not
// finish, refused), lines of any length, and the keys that keep a captured gateway's own
// answers (a host's storage access, a route's id, routes in force alone, steady flows).
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "common/platform_device.h"
#include "common/platform_lan.h"
#include "common/platform_qos.h"
#include "common/platform_registration.h"
#include "common/platform_route.h"
#include "common/platform_tcapi.h"
#include "sim/sim_control.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace sim_capture_state_test {

std::string temp_dir(const char *tag) {
  std::string path = std::string("/tmp/bundle_sc_simcapture_") + tag + "_" + std::to_string(getpid());
  mkdir(path.c_str(), 0755);
  return path;
}

void write_file(const std::string &path, const std::string &text) {
  FILE *f = fopen(path.c_str(), "w");
  ASSERT_NE(f, nullptr);
  fputs(text.c_str(), f);
  fclose(f);
}

void remove_dir(const std::string &dir, const char *const *files) {
  for (const char *const *f = files; *f != nullptr; ++f) unlink((dir + "/" + *f).c_str());
  rmdir(dir.c_str());
}

class SimCaptureState : public testsupport::BridgeTest {};

TEST_F(SimCaptureState, ResultsSectionProgramsResults) {
  std::string dir = temp_dir("results");
  write_file(dir + "/a.ini", "[results]\n# failed\ntcapi_get = -9\nbrelo_deviceGetUpTime = 0x10\n\n[x]\nk = v\n");
  EXPECT_EQ(sim_load(dir.c_str()), 0);
  char buf[16] = {};
  EXPECT_EQ(tcapi_get("N", "a", buf), -9);
  EXPECT_EQ(brelo_deviceGetUpTime(), 16);
  EXPECT_EQ(sim_get("results", "tcapi_get"), nullptr);  // programmed, not state
  EXPECT_STREQ(sim_get("x", "k"), "v");
  sim_reset();
  EXPECT_EQ(tcapi_get("N", "a", buf), -1);
  write_file(dir + "/a.ini", "[results]\ntcapi_get = failed\nbrelo_reset = 99999999999\n");
  EXPECT_EQ(sim_load(dir.c_str()), -1);
  EXPECT_EQ(tcapi_get("N", "a", buf), -1);
  const char *const files[] = {"a.ini", nullptr};
  remove_dir(dir, files);
}

TEST_F(SimCaptureState, CompleteCaptureReplacesTheState) {
  std::string dir = temp_dir("complete");
  write_file(dir + "/capture.ini", "[capture]\ncomplete = 1\n");
  write_file(dir + "/device.ini", "[device]\nvendor = Captured\n");
  sim_set("device", "vendor", "Before");
  sim_set("device", "nfc", "YES");
  sim_program_result("brelo_reset", -4);
  EXPECT_EQ(sim_load(dir.c_str()), 0);
  EXPECT_STREQ(sim_get("device", "vendor"), "Captured");
  EXPECT_EQ(sim_get("device", "nfc"), nullptr);
  EXPECT_EQ(brelo_reset(), 0);
  EXPECT_STREQ(sim_get("capture", "complete"), "1");
  // A folder without capture.ini still loads on top.
  std::string other = temp_dir("ontop");
  write_file(other + "/more.ini", "[device]\nnfc = NO\n");
  EXPECT_EQ(sim_load(other.c_str()), 0);
  EXPECT_STREQ(sim_get("device", "vendor"), "Captured");
  EXPECT_STREQ(sim_get("device", "nfc"), "NO");
  const char *const files[] = {"capture.ini", "device.ini", "more.ini", nullptr};
  remove_dir(dir, files);
  remove_dir(other, files);
}

TEST_F(SimCaptureState, CaptureKeepsWhereTheTreeIsSaved) {
  std::string dir = temp_dir("save");
  std::string saved = dir + "/saved.tree";
  write_file(dir + "/capture.ini", "[capture]\ncomplete = 1\n");
  sim_set_save_path(saved.c_str());
  EXPECT_EQ(sim_load(dir.c_str()), 0);
  tcapi_set("Node", "attr", "kept");
  tcapi_save();
  EXPECT_NE(corpus::contents(saved).find("[tcapi Node]"), std::string::npos);
  sim_set_save_path(nullptr);
  const char *const files[] = {"capture.ini", "saved.tree", nullptr};
  remove_dir(dir, files);
}

TEST_F(SimCaptureState, IncompleteCaptureIsRefusedAndChangesNothing) {
  for (const char *mark : {"[capture]\ncomplete = 0\n", "[capture]\n", "# nothing yet\n"}) {
    std::string dir = temp_dir("incomplete");
    write_file(dir + "/capture.ini", mark);
    write_file(dir + "/device.ini", "[device]\nvendor = Half\n");
    sim_reset();
    sim_set("device", "vendor", "Before");
    EXPECT_EQ(sim_load(dir.c_str()), -1) << mark;
    EXPECT_STREQ(sim_get("device", "vendor"), "Before");
    const char *const files[] = {"capture.ini", "device.ini", nullptr};
    remove_dir(dir, files);
  }
}

TEST_F(SimCaptureState, LinesOfAnyLength) {
  std::string dir = temp_dir("long");
  std::string value;
  for (int i = 0; i < 4095; ++i) value += "\\xC4";
  write_file(dir + "/a.ini", "[tcapi Long]\nattr = " + value + "\n[after]\nk = v\n");
  EXPECT_EQ(sim_load(dir.c_str()), 0);
  EXPECT_EQ(strlen(sim_get("tcapi Long", "attr")), 4095u);
  EXPECT_STREQ(sim_get("after", "k"), "v");
  const char *const files[] = {"a.ini", nullptr};
  remove_dir(dir, files);
}

TEST_F(SimCaptureState, HostStorageAccessFromTheState) {
  sim_set("lan", "storage_black_list", "00:00:00:00:00:01,00:00:00:00:00:02");
  sim_set("host 1", "mac", "00:00:00:00:00:01");
  sim_set("host 2", "mac", "00:00:00:00:00:02");
  sim_set("host 2", "storage_access", "5");
  sim_set("host 3", "mac", "00:00:00:00:00:03");
  sim_set("host 3", "storage_access", "0");
  LanHostRecord *list = nullptr;
  int count = 0;
  ASSERT_EQ(brelo_lanGethostInfobytype(&list, &count, nullptr, LAN_HOST_CLASS_ONLINE), 0);
  ASSERT_EQ(count, 3);
  EXPECT_EQ(list[0].storage_access, 0);
  EXPECT_EQ(list[1].storage_access, 5);
  EXPECT_EQ(list[2].storage_access, 0);
  free(list);
}

TEST_F(SimCaptureState, RouteIdsAndRoutesInForceAlone) {
  sim_set("ipv4 static route 1", "dest", "10.0.0.0");
  sim_set("ipv4 current route 1", "dest", "10.1.0.0");
  sim_set("ipv4 current route 1", "index", "77");
  sim_set("ipv4 current route 2", "dest", "10.2.0.0");
  Ip4RouteRecord *routes = nullptr;
  int count = 0;
  ASSERT_EQ(brelo_routeinfoGetLayer3ForwardingStaticConfig(&routes, &count, ROUTE_TABLE_CURRENT), 0);
  ASSERT_EQ(count, 3);
  EXPECT_EQ(routes[0].index, 77);
  EXPECT_EQ(routes[1].index, 2);
  EXPECT_STREQ(routes[2].dest_ip, "10.0.0.0");
  free(routes);
  sim_set("ipv4 routes", "current_only", "1");
  ASSERT_EQ(brelo_routeinfoGetLayer3ForwardingStaticConfig(&routes, &count, ROUTE_TABLE_CURRENT), 0);
  EXPECT_EQ(count, 2);
  free(routes);
  ASSERT_EQ(brelo_routeinfoGetLayer3ForwardingStaticConfig(&routes, &count, ROUTE_TABLE_STATIC), 0);
  EXPECT_EQ(count, 1);
  free(routes);
  Ip6RouteRecord *routes6 = nullptr;
  sim_set("ipv6 static route 3", "prefix", "::/0");
  sim_set("ipv6 current route 9", "prefix", "2001:db8::/32");
  sim_set("ipv6 routes", "current_only", "1");
  ASSERT_EQ(brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(&routes6, &count, ROUTE_TABLE_CURRENT), 0);
  ASSERT_EQ(count, 1);
  EXPECT_EQ(routes6[0].index, 9);
  free(routes6);
}

TEST_F(SimCaptureState, SteadyFlowReportsItsReadings) {
  sim_set("flow 1", "up_bytes", "1000");
  sim_set("flow 1", "down_bytes", "2000");
  sim_set("flow 1", "up_speed", "100");
  sim_set("flow 1", "down_speed", "200");
  sim_set("flow 1", "steady", "1");
  for (int i = 0; i < 3; ++i) {
    unsigned long long up = 0, down = 0;
    EXPECT_EQ(brelo_getStatsByFlow(1, &up, &down), 0);
    EXPECT_EQ(up, 1000u);
    EXPECT_EQ(down, 2000u);
    int su = 0, sd = 0;
    EXPECT_EQ(brelo_getSpeedByFlow(1, &su, &sd), 0);
    EXPECT_EQ(su, 100);
    EXPECT_EQ(sd, 200);
  }
  sim_unset("flow 1", "steady");
  unsigned long long up = 0, down = 0;
  EXPECT_EQ(brelo_getStatsByFlow(1, &up, &down), 0);
  EXPECT_EQ(up, 1000u + 125u * 100u);
}

}  // namespace sim_capture_state_test
