// The simulator's call log switch and bound, and the caches it derives from its state: a
// change made through the controls is seen by the very next platform call.
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "common/platform_lan.h"
#include "common/platform_tcapi.h"
#include "sim/sim.h"
#include "sim/sim_control.h"
#include "tests/test_support.h"

namespace {

class SimulatorCache : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    sim_set("lan", "gateway_name", "Lumarest-HGU");
  }
  void TearDown() override {
    sim_set_log(1);
    sim_set_log_limit(0);
    BridgeTest::TearDown();
  }
};

// The hosts a class query lists: "MAC class device_name" per host.
std::vector<std::string> listed(int type, const char *key = nullptr) {
  LanHostRecord *list = nullptr;
  int count = 0;
  EXPECT_EQ(brelo_lanGethostInfobytype(&list, &count, key, type), 0);
  std::vector<std::string> out;
  for (int i = 0; i < count; ++i) {
    char line[300];
    snprintf(line, sizeof line, "%02X:%02X:%02X:%02X:%02X:%02X %u %.*s", list[i].mac[0],
             list[i].mac[1], list[i].mac[2], list[i].mac[3], list[i].mac[4], list[i].mac[5],
             static_cast<unsigned>(list[i].host_class),
             static_cast<int>(sizeof list[i].device_name), list[i].device_name);
    out.push_back(line);
  }
  free(list);
  return out;
}

// The device names of the hosts a MAC query finds, in order.
std::vector<std::string> by_mac(const std::vector<std::string> &macs) {
  static char entries[256][128];
  memset(entries, 0, sizeof entries);
  for (size_t i = 0; i < macs.size(); ++i) snprintf(entries[i], 128, "%s", macs[i].c_str());
  LanHostRecord *list = nullptr;
  int count = 0;
  EXPECT_EQ(brelo_lanGethostInfoByMACArr(&list, &count, entries, static_cast<int>(macs.size())), 0);
  std::vector<std::string> out;
  for (int i = 0; i < count; ++i)
    out.emplace_back(list[i].device_name, strnlen(list[i].device_name, sizeof list[i].device_name));
  free(list);
  return out;
}

void add_host(int n, const char *mac, const char *name) {
  std::string s = "host " + std::to_string(n);
  sim_set(s.c_str(), "mac", mac);
  sim_set(s.c_str(), "device_name", name);
}

TEST_F(SimulatorCache, LogOffWritesNothingAndOnAgainLogs) {
  sim_set_log(0);
  char buf[64] = {};
  EXPECT_EQ(tcapi_get("Missing", "Attr", buf), -1);
  char name[64] = {};
  brelo_sysGetGatewayName(name, sizeof name);
  EXPECT_STREQ(name, "Lumarest-HGU");  // the outputs do not depend on the log
  EXPECT_EQ(log(), "");
  EXPECT_EQ(sim_log_count("tcapi_get"), 0);
  sim_set_log(1);
  tcapi_get("Missing", "Attr", buf);
  EXPECT_EQ(log(), "tcapi_get(\"Missing\", \"Attr\")\n");
  EXPECT_EQ(sim_log_count("tcapi_get"), 1);
}

int g_hooked = 0;
void hook(const char *, void *) { ++g_hooked; }

TEST_F(SimulatorCache, WithTheLogOffHooksAndResultsStillApply) {
  sim_set_log(0);
  g_hooked = 0;
  sim_program_hook("tcapi_save", hook, nullptr);
  sim_program_result("tcapi_set", -7);
  tcapi_save();
  EXPECT_EQ(g_hooked, 1);
  EXPECT_EQ(tcapi_set("N", "a", "b"), -7);
  EXPECT_EQ(log(), "");
  sim_program_hook("tcapi_save", nullptr, nullptr);
  tcapi_save();
  EXPECT_EQ(g_hooked, 1);
}

TEST_F(SimulatorCache, LogCountFollowsTheLinesAndTheClear) {
  char buf[64];
  for (int i = 0; i < 5; ++i) tcapi_get("N", "A", buf);
  tcapi_save();
  EXPECT_EQ(sim_log_count("tcapi_get"), 5);
  EXPECT_EQ(sim_log_count("tcapi_save"), 1);
  EXPECT_EQ(sim_log_count("tcapi"), 0);  // a whole name only
  EXPECT_EQ(sim_log_count("tcapi_set"), 0);
  // A text argument holding a newline starts a line of its own, as a reader sees it.
  tcapi_get("N\nbrelo_fake(", "A", buf);
  EXPECT_EQ(sim_log_count("brelo_fake"), 1);
  EXPECT_EQ(sim_log_count("tcapi_get"), 6);
  sim_clear_log();
  EXPECT_EQ(sim_log_count("tcapi_get"), 0);
  EXPECT_EQ(sim_log_count("brelo_fake"), 0);
}

TEST_F(SimulatorCache, TheLogKeepsItsLastLinesWithinTheBound) {
  sim_set_log_limit(1000);
  char buf[64];
  std::string last;
  for (int i = 0; i < 300; ++i) {
    std::string attr = "Attr" + std::to_string(i);
    tcapi_get("Node", attr.c_str(), buf);
  }
  std::string text = log();
  EXPECT_LE(text.size(), 1000u);
  EXPECT_GE(text.size(), 400u);
  EXPECT_EQ(text.compare(0, 10, "tcapi_get("), 0);  // whole lines only
  const std::string tail = "tcapi_get(\"Node\", \"Attr299\")\n";
  ASSERT_GE(text.size(), tail.size());
  EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
  int lines = 0;
  for (char c : text) lines += c == '\n';
  EXPECT_EQ(sim_log_count("tcapi_get"), lines);
  EXPECT_LT(lines, 300);
  // The bound survives a reset; the log does not.
  sim_reset();
  EXPECT_EQ(log(), "");
  for (int i = 0; i < 300; ++i) tcapi_get("Node", "Attr", buf);
  EXPECT_LE(log().size(), 1000u);
}

TEST_F(SimulatorCache, StateChangesBumpTheGenerationOnlyWhenSomethingChanges) {
  unsigned long g0 = sim::generation();
  sim_set("lan", "gateway_name", "Lumarest-HGU");  // already so
  EXPECT_EQ(sim::generation(), g0);
  sim_set("lan", "gateway_name", "Other");
  unsigned long g1 = sim::generation();
  EXPECT_NE(g1, g0);
  sim_unset("lan", "no such key");
  EXPECT_EQ(sim::generation(), g1);
  sim_unset("lan", "gateway_name");
  EXPECT_NE(sim::generation(), g1);
  unsigned long g2 = sim::generation();
  sim_reset();
  EXPECT_NE(sim::generation(), g2);
}

TEST_F(SimulatorCache, DerivedValuesAreRebuiltAfterAChangeOnly) {
  static sim::Derived<std::string> derived;
  int builds = 0;
  auto build = [&](std::string *out) {
    ++builds;
    *out = sim::get_str("lan", "gateway_name");
  };
  sim::Guard guard;
  EXPECT_EQ(derived.get(build), "Lumarest-HGU");
  EXPECT_EQ(derived.get(build), "Lumarest-HGU");
  EXPECT_EQ(builds, 1);
  sim_set("lan", "gateway_name", "Renamed");
  EXPECT_EQ(derived.get(build), "Renamed");
  EXPECT_EQ(builds, 2);
}

TEST_F(SimulatorCache, SectionListsFollowNewAndRemovedSections) {
  size_t before = sim::sections("host ").size();
  sim_set("host 99", "mac", "02:00:00:00:00:99");
  std::vector<std::string> after = sim::sections("host ");
  ASSERT_EQ(after.size(), before + 1);
  EXPECT_EQ(after.back(), "host 99");
  sim_unset("host 99", nullptr);
  EXPECT_EQ(sim::sections("host ").size(), before);
}

TEST_F(SimulatorCache, HostTableFollowsEveryChange) {
  sim_reset();
  add_host(1, "02:00:00:00:00:01", "one");
  add_host(2, "02:00:00:00:00:02", "two");
  EXPECT_EQ(listed(LAN_HOST_CLASS_ONLINE),
            (std::vector<std::string>{"02:00:00:00:00:01 0 one", "02:00:00:00:00:02 0 two"}));
  // A name set through the controls, then through the platform.
  sim_set("host 2", "device_name", "renamed");
  EXPECT_EQ(by_mac({"02:00:00:00:00:02"}), (std::vector<std::string>{"renamed"}));
  EXPECT_EQ(brelo_lanSetLanHostName("02:00:00:00:00:01", "named"), 0);
  EXPECT_EQ(by_mac({"02:00:00:00:00:01", "02:00:00:00:00:02"}),
            (std::vector<std::string>{"named", "renamed"}));
  // The lists decide the class.
  sim_set("lan", "black_list", "02:00:00:00:00:02");
  EXPECT_EQ(listed(LAN_HOST_CLASS_ONLINE), (std::vector<std::string>{"02:00:00:00:00:01 0 named"}));
  EXPECT_EQ(listed(LAN_HOST_CLASS_BLOCK), (std::vector<std::string>{"02:00:00:00:00:02 2 renamed"}));
  EXPECT_EQ(brelo_lanSetLanDevAccessPermission("02:00:00:00:00:02", LAN_PERMISSION_TRUST, 1), 0);
  EXPECT_EQ(listed(LAN_HOST_CLASS_TRUST), (std::vector<std::string>{"02:00:00:00:00:02 3 renamed"}));
  // A new host, a changed MAC, a host gone.
  add_host(3, "02:00:00:00:00:03", "three");
  EXPECT_EQ(by_mac({"02:00:00:00:00:03"}), (std::vector<std::string>{"three"}));
  sim_set("host 3", "mac", "02:00:00:00:00:33");
  EXPECT_EQ(by_mac({"02:00:00:00:00:03"}), (std::vector<std::string>{}));
  EXPECT_EQ(by_mac({"02:00:00:00:00:33"}), (std::vector<std::string>{"three"}));
  sim_unset("host 1", nullptr);
  EXPECT_EQ(by_mac({"02:00:00:00:00:01", "02:00:00:00:00:33"}), (std::vector<std::string>{"three"}));
  sim_set("host 3", "online", "0");
  EXPECT_EQ(listed(LAN_HOST_CLASS_OFFLINE), (std::vector<std::string>{"02:00:00:00:00:33 1 three"}));
}

TEST_F(SimulatorCache, MacLookupIgnoresCaseAndTheFirstHostOfAMacWins) {
  sim_reset();
  add_host(1, "0a:0b:0c:0d:0e:0f", "first");
  add_host(2, "0A:0B:0C:0D:0E:0F", "second");
  add_host(3, "not a mac", "odd");
  add_host(4, "A:B:C:D:E:F", "short");  // one-digit groups are a MAC text too
  EXPECT_EQ(by_mac({"0A:0B:0C:0D:0E:0F", "0a:0b:0c:0d:0e:0f", "NOT A MAC", "0a:0b:0c:0d:0e:0f "}),
            (std::vector<std::string>{"first", "first", "odd"}));
  EXPECT_EQ(by_mac({"0a:0b:0c:0d:0e:0F"}), (std::vector<std::string>{"first"}));
  EXPECT_EQ(by_mac({"0A:0B:0C:0D:0E:0F"}), (std::vector<std::string>{"first"}));
}

}  // namespace
