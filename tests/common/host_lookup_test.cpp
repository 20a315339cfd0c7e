// Name resolution under the library's resolver lock, and bounded reads of the configuration
// tree.
#include "common/host_lookup.h"

#include <arpa/inet.h>
#include <sys/socket.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "common/config_tree.h"
#include "common/platform_tcapi.h"
#include "tests/test_support.h"

namespace {

std::string address_text(const bundle::HostAddresses &a, int i) {
  char text[INET_ADDRSTRLEN] = "";
  inet_ntop(a.family, a.address[i], text, sizeof text);
  return text;
}

class HostLookup : public testsupport::BridgeTest {};

TEST_F(HostLookup, CopiesEveryAddressInTheResolversOrder) {
  sim_set("resolver", "video.example", "198.51.100.23 198.51.100.21 198.51.100.22");
  bundle::HostAddresses a;
  ASSERT_TRUE(bundle::resolve_host("video.example", &a));
  EXPECT_EQ(a.family, AF_INET);
  EXPECT_EQ(a.length, 4);
  ASSERT_EQ(a.count, 3);
  EXPECT_EQ(address_text(a, 0), "198.51.100.23");
  EXPECT_EQ(address_text(a, 1), "198.51.100.21");
  EXPECT_EQ(address_text(a, 2), "198.51.100.22");
  EXPECT_EQ(log(), "gethostbyname(\"video.example\")\n");
}

TEST_F(HostLookup, UnknownNamesDoNotResolve) {
  bundle::HostAddresses a;
  EXPECT_FALSE(bundle::resolve_host("nowhere.example", &a));
  EXPECT_EQ(a.count, 0);
  sim_set("resolver", "down.example", "10.0.0.1");
  sim_program_result("gethostbyname", -1);
  EXPECT_FALSE(bundle::resolve_host("down.example", &a));
}

// Each thread resolves its own name over and over; the simulated resolver answers in one
// static entry, written slowly. Every copy must be the thread's own answer.
TEST_F(HostLookup, ConcurrentLookupsEachGetTheirOwnAnswer) {
  constexpr int kThreads = 16;
  constexpr int kRounds = 200;
  for (int t = 0; t < kThreads; ++t) {
    std::string name = "host" + std::to_string(t) + ".example";
    std::string addresses;
    for (int k = 0; k < 4; ++k) addresses += "10." + std::to_string(t) + ".0." + std::to_string(k + 1) + " ";
    sim_set("resolver", name.c_str(), addresses.c_str());
  }
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &wrong] {
      std::string name = "host" + std::to_string(t) + ".example";
      for (int r = 0; r < kRounds; ++r) {
        bundle::HostAddresses a;
        if (!bundle::resolve_host(name.c_str(), &a) || a.count != 4) {
          ++wrong;
          continue;
        }
        for (int k = 0; k < 4; ++k)
          if (address_text(a, k) != "10." + std::to_string(t) + ".0." + std::to_string(k + 1)) ++wrong;
      }
    });
  }
  for (auto &th : threads) th.join();
  EXPECT_EQ(wrong.load(), 0);
  EXPECT_EQ(sim_log_count("gethostbyname"), kThreads * kRounds);
}

class ConfigTree : public testsupport::BridgeTest {};

TEST_F(ConfigTree, ValuesThatFitArriveUnchanged) {
  sim_set("tcapi Node", "attr", "0123456789abcde");
  char buf[16];
  memset(buf, 'Z', sizeof buf);
  EXPECT_EQ(bundle::tree_get("Node", "attr", buf), 0);
  EXPECT_STREQ(buf, "0123456789abcde");
  EXPECT_EQ(log(), "tcapi_get(\"Node\", \"attr\")\n");
}

TEST_F(ConfigTree, LongerValuesAreCutAtTheBuffer) {
  sim_set("tcapi Node", "attr", std::string(70000, 'v').c_str());
  char buf[20];
  EXPECT_EQ(bundle::tree_get("Node", "attr", buf), 0);
  EXPECT_EQ(std::string(buf), std::string(19, 'v'));
}

TEST_F(ConfigTree, AbsentAttributesReadEmpty) {
  char buf[16];
  memset(buf, 'Z', sizeof buf);
  EXPECT_NE(bundle::tree_get("Node", "missing", buf), 0);
  EXPECT_STREQ(buf, "");
}

TEST_F(ConfigTree, ApplyCallsAreLoggedAndCounted) {
  brelo_tcapi_commit("VirServer_Entry0_Entry1");
  brelo_tcapi_delay_commit("TrafficMirror", 3);
  EXPECT_EQ(log(),
            "brelo_tcapi_commit(\"VirServer_Entry0_Entry1\")\n"
            "brelo_tcapi_delay_commit(\"TrafficMirror\", 3)\n");
  EXPECT_STREQ(sim_get("tree", "commits VirServer_Entry0_Entry1"), "1");
  EXPECT_STREQ(sim_get("tree", "delayed commits TrafficMirror"), "1");
}

// The host side of the simulated gateway stands in for the machine's route tool.
TEST_F(ConfigTree, RouteCommandsOnlyReachTheSimulator) {
  EXPECT_EQ(system("/sbin/route add -net 10.9.8.7 netmask 255.255.255.255 dev ppp100 >/dev/null 2>&1"), 0);
  EXPECT_STREQ(sim_get("route ppp100", "10.9.8.7"), "host route");
  EXPECT_EQ(system("/sbin/route delete -net 10.9.8.7 netmask 255.255.255.255 dev ppp100 >/dev/null 2>&1"), 0);
  EXPECT_EQ(sim_get("route ppp100", "10.9.8.7"), nullptr);
  EXPECT_EQ(sim_log_count("system"), 2);
}

// Tree values read as numbers give what the gateway's 32-bit C library gives, on every build:
// beyond the int range they saturate instead of wrapping as a 64-bit atoi would.
TEST_F(ConfigTree, NumbersReadAsTheGatewayReadsThem) {
  EXPECT_EQ(bundle::tree_atoi("8080"), 8080);
  EXPECT_EQ(bundle::tree_atoi("  -12abc"), -12);
  EXPECT_EQ(bundle::tree_atoi(""), 0);
  EXPECT_EQ(bundle::tree_atoi("Yes"), 0);
  EXPECT_EQ(bundle::tree_atoi("2147483647"), 2147483647);
  EXPECT_EQ(bundle::tree_atoi("2147483648"), 2147483647);
  EXPECT_EQ(bundle::tree_atoi("4294967296"), 2147483647);
  EXPECT_EQ(bundle::tree_atoi("-2147483649"), -2147483647 - 1);
  EXPECT_EQ(bundle::tree_atoi("99999999999999999999999999"), 2147483647);
}

}  // namespace
