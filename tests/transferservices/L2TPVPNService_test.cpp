// com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp, isipv4str and
// handle_route_of_domain
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "common/hardened.h"
#include "tests/test_support.h"

#define VPN(m) Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_##m
extern "C" {
jstring VPN(vpnOnJni)(JNIEnv *, jobject, jstring, jstring, jstring);
jstring VPN(vpnOffJni)(JNIEnv *, jobject, jstring);
jstring VPN(getVpnStatCmdJni)(JNIEnv *, jobject);
jstring VPN(getConnectedIpListJni)(JNIEnv *, jobject);
jint VPN(addVpnDestIPJni)(JNIEnv *, jobject, jobjectArray);
jint VPN(deleteVpnDestIPJni)(JNIEnv *, jobject, jobjectArray);
int isipv4str(const char *text);
int handle_route_of_domain(char *domain, const char *device, int mode);
}

namespace l2tp_vpn_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kOk[] = "{\"Result\":0}";
const char kFail[] = "{\"Result\":-1}";
const char kOn[] = "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni:N:";

std::string add_cmd(const std::string &address, const std::string &dev = "ppp100") {
  return "system(\"/sbin/route add -net " + address + " netmask 255.255.255.255 dev " + dev +
         " >/dev/null 2>&1\")\n";
}
std::string delete_cmd(const std::string &address, const std::string &dev = "ppp100") {
  return "system(\"/sbin/route delete -net " + address + " netmask 255.255.255.255 dev " + dev +
         " >/dev/null 2>&1\")\n";
}

std::vector<std::string> lines(const std::string &log) {
  std::vector<std::string> out;
  std::istringstream in(log);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

// Every route command in the log is one of the two shapes, with a dotted quad of digits.
void expect_only_dotted_quads(const std::string &log) {
  static const std::regex shape(
      "system\\(\"/sbin/route (add|delete) -net [0-9]{1,3}\\.[0-9]{1,3}\\.[0-9]{1,3}\\.[0-9]{1,3} "
      "netmask 255\\.255\\.255\\.255 dev ppp100 >/dev/null 2>&1\"\\)");
  for (const std::string &line : lines(log)) {
    if (line.rfind("system(", 0) == 0) {
      EXPECT_TRUE(std::regex_match(line, shape)) << line;
    }
  }
}

class Vpn : public testsupport::BridgeTest {
 protected:
  std::string on(jstring s, jstring u, jstring p) { return text(VPN(vpnOnJni)(env(), self(), s, u, p)); }
};

// ---- switching the tunnel ----

TEST_F(Vpn, SwitchedOnTheTunnelConnectsAndListsItsAddresses) {
  sim_set("vpn", "tunnel_ips", "10.255.0.6 10.255.0.1");
  EXPECT_EQ(on(jvm().str("203.0.113.10"), jvm().str("anna"), jvm().str("s3cret")), kOk);
  EXPECT_EQ(text(VPN(getVpnStatCmdJni)(env(), self())), "{\"Result\":0,\"Status\":1}");
  EXPECT_EQ(text(VPN(getVpnStatCmdJni)(env(), self())), "{\"Result\":0,\"Status\":2}");
  EXPECT_EQ(text(VPN(getConnectedIpListJni)(env(), self())),
            "{\"Result\":0,\"ips\":[\"10.255.0.6\",\"10.255.0.1\"]}");
  EXPECT_EQ(text(VPN(vpnOffJni)(env(), self(), jvm().str("203.0.113.10"))), kOk);
  EXPECT_EQ(text(VPN(getVpnStatCmdJni)(env(), self())), "{\"Result\":0,\"Status\":0}");
  EXPECT_EQ(text(VPN(getConnectedIpListJni)(env(), self())), "{\"Result\":0,\"ips\":[]}");
  EXPECT_EQ(log(),
            "brelo_vpnOn(\"203.0.113.10\", \"anna\", \"s3cret\")\n"
            "brelo_getVpnStatCmd()\nbrelo_getVpnStatCmd()\nbrelo_getConnectedIpList(4096)\n"
            "brelo_vpnOff(\"203.0.113.10\")\nbrelo_getVpnStatCmd()\nbrelo_getConnectedIpList(4096)\n");
  EXPECT_EQ(jvm().acquired(), 4);
  EXPECT_EQ(jvm().released(), 4);
}

TEST_F(Vpn, PlatformRefusalsAreFailures) {
  sim_program_result("brelo_vpnOn", 1);
  sim_program_result("brelo_vpnOff", -1);
  EXPECT_EQ(on(jvm().str("s"), jvm().str("u"), jvm().str("p")), kFail);
  EXPECT_EQ(text(VPN(vpnOffJni)(env(), self(), jvm().str("s"))), kFail);
}

TEST_F(Vpn, CredentialsAtTheirLimitsAreAccepted) {
  std::string s31(31, 's'), u63(63, 'u'), p63(63, 'p');
  EXPECT_EQ(on(jvm().str(s31), jvm().str(u63), jvm().str(p63)), kOk);
  EXPECT_EQ(log(), "brelo_vpnOn(\"" + s31 + "\", \"" + u63 + "\", \"" + p63 + "\")\n");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(Vpn, EmptyCredentialsReachThePlatform) {
  EXPECT_EQ(on(jvm().str(""), jvm().str(""), jvm().str("")), kFail);  // the simulated tunnel needs a server
  EXPECT_EQ(log(), "brelo_vpnOn(\"\", \"\", \"\")\n");
}

// Over-long credentials are refused and their texts deliberately never released.
TEST_F(Vpn, OverlongCredentialsAreRefusedAndKept) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(on(jvm().str(std::string(32, 's')), jvm().str("u"), jvm().str("p")), kFail);
  EXPECT_EQ(on(jvm().str("s"), jvm().str(std::string(64, 'u')), jvm().str("p")), kFail);
  EXPECT_EQ(on(jvm().str("s"), jvm().str("u"), jvm().str(std::string(64, 'p'))), kFail);
  EXPECT_EQ(on(jvm().str(std::string(300, 's')), jvm().str(std::string(300, 'u')), jvm().str("p")), kFail);
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_EQ(trace,
            std::string(kOn) + "VPN ServerIP out of size!\n" + kOn + "vpnOnJni: return json = {\"Result\":-1}   leave============>\n" +
                kOn + "VPN username out of size!\n" + kOn + "vpnOnJni: return json = {\"Result\":-1}   leave============>\n" +
                kOn + "VPN password out of size!\n" + kOn + "vpnOnJni: return json = {\"Result\":-1}   leave============>\n" +
                kOn + "VPN ServerIP out of size!\n" + kOn + "vpnOnJni: return json = {\"Result\":-1}   leave============>\n");
  EXPECT_EQ(log(), "");
  // Checks stop at the first refusal: the fourth call never reads its user name.
  EXPECT_EQ(jvm().acquired(), 1 + 2 + 3 + 1);
  EXPECT_EQ(jvm().released(), 0 + 1 + 2 + 0);
  expected_outstanding_ = 4;
}

TEST_F(Vpn, NullCredentialsAreRefusedInOrder) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(on(nullptr, nullptr, nullptr), kFail);
  // A user name that could not be copied: refused, but no reply string while Java's error is
  // pending.
  EXPECT_EQ(on(jvm().str("s"), jvm().failing_str(), jvm().str("p")), "<null>");
  jvm().clear_exception();  // Java has thrown
  EXPECT_EQ(on(jvm().str("s"), jvm().str("u"), nullptr), kFail);
  std::string fail = std::string(kOn) + "vpnOnJni: return json = {\"Result\":-1}   leave============>\n";
  EXPECT_EQ(mask_line_numbers(out.finish()), std::string(kOn) + "VPN ServerIP is NULL!\n" + fail + kOn +
                                                 "VPN username is NULL!\n" + fail + kOn +
                                                 "VPN password is NULL!\n" + fail);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(jvm().null_releases(), 1);
}

TEST_F(Vpn, TheTraceShowsTheCredentials) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  on(jvm().str("203.0.113.10"), jvm().str("anna"), jvm().str("pw"));
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kOn) + "VPN ServerIP=203.0.113.10, Uname=" +
                (bundle::hardened_profile() ? "******, Upass=******" : "anna, Upass=pw") + "\n" + kOn +
                "vpnOnJni: return json = {\"Result\":0}   leave============>\n");
}

TEST_F(Vpn, RepliesAreTheSameWithoutTheTrace) {
  CaptureStdout out;
  EXPECT_EQ(on(nullptr, jvm().str("u"), jvm().str("p")), kFail);
  EXPECT_EQ(on(jvm().str("s"), jvm().str("u"), jvm().str("p")), kOk);
  EXPECT_EQ(out.finish(), "");
}

TEST_F(Vpn, SwitchingOffChecksItsServerText) {
  EXPECT_EQ(text(VPN(vpnOffJni)(env(), self(), nullptr)), kFail);
  EXPECT_EQ(text(VPN(vpnOffJni)(env(), self(), jvm().failing_str())), "<null>");
  jvm().clear_exception();  // Java has thrown
  EXPECT_EQ(text(VPN(vpnOffJni)(env(), self(), jvm().str(std::string(32, 's')))), kFail);
  EXPECT_EQ(log(), "");
  expected_outstanding_ = 1;  // the over-long text is kept
  std::string s31(31, 's');
  EXPECT_EQ(text(VPN(vpnOffJni)(env(), self(), jvm().str(s31))), kFail);  // no tunnel to it
  EXPECT_EQ(log(), "brelo_vpnOff(\"" + s31 + "\")\n");
}

TEST_F(Vpn, StatusQueryFailure) {
  sim_program_result("brelo_getVpnStatCmd", -1);
  EXPECT_EQ(text(VPN(getVpnStatCmdJni)(env(), self())), "{\"Result\":-1,\"Status\":0}");
}

TEST_F(Vpn, ConnectedListIsInsertedAsItStands) {
  sim_set("vpn", "connected_list", "");
  EXPECT_EQ(text(VPN(getConnectedIpListJni)(env(), self())), "{\"Result\":0,\"ips\":[]}");
  sim_set("vpn", "connected_list", "\"a\",{\"b\":1}");
  EXPECT_EQ(text(VPN(getConnectedIpListJni)(env(), self())), "{\"Result\":0,\"ips\":[\"a\",{\"b\":1}]}");
  // The platform fills its 4096 bytes: the reply has room for all of it.
  sim_set("vpn", "connected_list", std::string(5000, '1').c_str());
  EXPECT_EQ(text(VPN(getConnectedIpListJni)(env(), self())),
            "{\"Result\":0,\"ips\":[" + std::string(4095, '1') + "]}");
  sim_program_result("brelo_getConnectedIpList", 3);
  EXPECT_EQ(text(VPN(getConnectedIpListJni)(env(), self())), "{\"Result\":-1,\"ips\":[]}");
}

// ---- isipv4str ----

TEST_F(Vpn, DottedQuadsAreAddresses) {
  for (const char *yes : {"10.0.0.1", "0.0.0.0", "255.255.255.255", "1.2.3.4", "010.0.0.1", " 1.2.3.4",
                          "\n1.2.3.4", "+1.2.3.4", "1. 2.3.4", "1.+2.3.4"})
    EXPECT_EQ(isipv4str(yes), 0) << yes;
  for (const char *no : {"10.0.0.1 ", "10.0.0", "256.1.1.1", "-1.2.3.4", "1.2.3.-1", "1.2.3.256", "",
                         "1.2.3.4.5", "a.b.c.d", "1.2.3.4\n", "1.2.3.4;", "4294967297.1.1.1",
                         "1.2.3.99999999999999999999", "example.com", "1..2.3"})
    EXPECT_EQ(isipv4str(no), -1) << no;
  EXPECT_EQ(isipv4str(nullptr), -1);
}

// ---- destination routes ----

TEST_F(Vpn, AddressesBecomeHostRoutesOnTheTunnel) {
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array_of({"10.0.0.1", "192.0.2.7"})), 0);
  EXPECT_EQ(log(), add_cmd("10.0.0.1") + add_cmd("192.0.2.7"));
  EXPECT_STREQ(sim_get("route ppp100", "10.0.0.1"), "host route");
  EXPECT_EQ(VPN(deleteVpnDestIPJni)(env(), self(), jvm().array_of({"10.0.0.1"})), 0);
  EXPECT_EQ(sim_get("route ppp100", "10.0.0.1"), nullptr);
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(Vpn, DomainsRouteEveryAddressInTheResolversOrder) {
  sim_set("resolver", "video.example", "198.51.100.23 198.51.100.21 198.51.100.22");
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array_of({"video.example"})), 0);
  EXPECT_EQ(VPN(deleteVpnDestIPJni)(env(), self(), jvm().array_of({"video.example"})), 0);
  EXPECT_EQ(log(), "gethostbyname(\"video.example\")\n" + add_cmd("198.51.100.23") + add_cmd("198.51.100.21") +
                       add_cmd("198.51.100.22") + "gethostbyname(\"video.example\")\n" +
                       delete_cmd("198.51.100.23") + delete_cmd("198.51.100.21") + delete_cmd("198.51.100.22"));
}

TEST_F(Vpn, TextsThatAreNotAddressesGoToTheResolver) {
  jobjectArray a = jvm().array_of({"10.0.0.1 ", "10.0.0", "256.1.1.1", "-1.2.3.4"});
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), a), 0);
  EXPECT_EQ(log(),
            "gethostbyname(\"10.0.0.1 \")\ngethostbyname(\"10.0.0\")\ngethostbyname(\"256.1.1.1\")\n"
            "gethostbyname(\"-1.2.3.4\")\n");
}

// White space or a sign that the scan accepts before a number never reaches the command: the
// address is written from the four scanned numbers.
TEST_F(Vpn, CommandsCarryTheScannedNumbersOnly) {
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(),
                                 jvm().array_of({"\n1.2.3.4", " +1.2.3.4", "\t1.\n2. 3.+4", "010.001.0.9"})),
            0);
  EXPECT_EQ(log(), add_cmd("1.2.3.4") + add_cmd("1.2.3.4") + add_cmd("1.2.3.4") + add_cmd("10.1.0.9"));
}

TEST_F(Vpn, NoDestinationTextReachesTheShell) {
  const std::vector<std::string> hostile = {
      "1.2.3.4;reboot", ";reboot", "$(reboot)", "`reboot`", "1.2.3.4 && reboot", "a b", "1.2.3.4\nreboot",
      "\n;reboot", "1.2.3.4|sh", "'", "\"", "1.2.3.4$(id)", std::string(31, 'n'), std::string(300, 'n'),
      std::string(300, ';'), "1.2.3.4`id`", "", "\\", "1.2.3.4#"};
  // Let the resolver answer for the hostile names too: only its addresses may appear.
  for (const std::string &name : hostile)
    if (!name.empty() && name.find('\n') == std::string::npos) sim_set("resolver", name.c_str(), "10.66.0.1");
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array_of(hostile)), 0);
  EXPECT_EQ(VPN(deleteVpnDestIPJni)(env(), self(), jvm().array_of(hostile)), 0);
  std::string all = log();
  expect_only_dotted_quads(all);
  EXPECT_GT(sim_log_count("system"), 0);
  for (const std::string &line : lines(all)) {
    if (line.rfind("system(", 0) == 0) {
      EXPECT_NE(line.find("-net 10.66.0.1 "), std::string::npos) << line;
    }
  }
}

TEST_F(Vpn, OnlyTheFirstTwentyThousandDestinationsAreTaken) {
  std::vector<std::string> many;
  for (int i = 0; i < 25000; ++i) many.push_back("10." + std::to_string(i / 65536) + "." + std::to_string(i / 256 % 256) + "." + std::to_string(i % 256));
  sim_program_result("system", 1);  // the route tool fails: nothing to keep
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array_of(many)), 0);
  EXPECT_EQ(sim_log_count("system"), 20000);
  std::string all = log();
  EXPECT_EQ(all.rfind(add_cmd(many[19999])), all.size() - add_cmd(many[19999]).size());
  EXPECT_EQ(all.find("-net " + many[20000] + " "), std::string::npos);
  EXPECT_LE(jvm().max_live_local_refs(), 4);
  sim_clear_log();
  EXPECT_EQ(VPN(deleteVpnDestIPJni)(env(), self(), jvm().array_of(many)), 0);
  EXPECT_EQ(sim_log_count("system"), 20000);
}

TEST_F(Vpn, EmptyAndNullArraysDoNothing) {
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), nullptr), 0);
  EXPECT_EQ(VPN(deleteVpnDestIPJni)(env(), self(), nullptr), 0);
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array_of({})), 0);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().acquired(), 0);
}

TEST_F(Vpn, NullElementsAreSkipped) {
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array({nullptr, jvm().str("10.0.0.1"), nullptr})), 0);
  EXPECT_EQ(log(), add_cmd("10.0.0.1"));
  EXPECT_EQ(jvm().acquired(), 1);
}

// A text the JVM cannot copy leaves an exception pending: the rest of the array is left alone.
TEST_F(Vpn, AnUnreadableElementEndsTheWalk) {
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array({jvm().str("10.0.0.1"), jvm().failing_str(),
                                                             jvm().str("10.0.0.2")})),
            0);
  EXPECT_EQ(log(), add_cmd("10.0.0.1"));
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(Vpn, FailingRouteCommandsAreIgnored) {
  sim_program_result("system", 2);
  sim_set("resolver", "a.example", "10.1.1.1");
  EXPECT_EQ(VPN(addVpnDestIPJni)(env(), self(), jvm().array_of({"10.0.0.1", "a.example", "nowhere.example"})), 0);
  EXPECT_EQ(log(), add_cmd("10.0.0.1") + "gethostbyname(\"a.example\")\n" + add_cmd("10.1.1.1") +
                       "gethostbyname(\"nowhere.example\")\n");
  EXPECT_EQ(sim_get("route ppp100", "10.0.0.1"), nullptr);
}

TEST_F(Vpn, DestinationNativesTraceTheirResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  VPN(addVpnDestIPJni)(env(), self(), nullptr);
  VPN(deleteVpnDestIPJni)(env(), self(), jvm().array_of({"nowhere.example"}));
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni:N:"
            "addVpnDestIPJni: return code = 0   leave============>\n"
            "handle_route_of_domain:N:The domain can not convert to ip!\n"
            "Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni:N:"
            "deleteVpnDestIPJni: return code = 0   leave============>\n");
}

// ---- handle_route_of_domain ----

TEST_F(Vpn, DomainRoutesOnAnyDevice) {
  sim_set("resolver", "nas.home", "192.168.1.20");
  char name[] = "nas.home";
  EXPECT_EQ(handle_route_of_domain(name, "ppp0", 0), 0);
  EXPECT_EQ(handle_route_of_domain(name, "ppp0", 1), 0);
  EXPECT_EQ(handle_route_of_domain(name, "eth0.100:a_b-c9x", 0), -1);  // 16 characters
  EXPECT_EQ(handle_route_of_domain(name, "eth0.100:a_b-c9", 0), 0);  // 15
  EXPECT_EQ(log(), "gethostbyname(\"nas.home\")\n" + add_cmd("192.168.1.20", "ppp0") +
                       "gethostbyname(\"nas.home\")\n" + delete_cmd("192.168.1.20", "ppp0") +
                       "gethostbyname(\"nas.home\")\n" + add_cmd("192.168.1.20", "eth0.100:a_b-c9"));
}

TEST_F(Vpn, DomainRouteRefusals) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  sim_set("resolver", "nas.home", "192.168.1.20");
  char name[] = "nas.home";
  char unknown[] = "nowhere.example";
  EXPECT_EQ(handle_route_of_domain(nullptr, "ppp100", 0), -1);
  EXPECT_EQ(handle_route_of_domain(name, nullptr, 0), -1);
  EXPECT_EQ(handle_route_of_domain(name, "ppp100", 2), -1);
  EXPECT_EQ(handle_route_of_domain(name, "ppp100", -1), -1);
  EXPECT_EQ(handle_route_of_domain(unknown, "ppp100", 0), -1);
  EXPECT_EQ(handle_route_of_domain(name, "ppp0;reboot", 0), -1);
  EXPECT_EQ(handle_route_of_domain(name, "", 0), -1);
  EXPECT_EQ(handle_route_of_domain(name, "a very long device", 0), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "handle_route_of_domain:N:Wrong mode argument!\n"
            "handle_route_of_domain:N:Wrong mode argument!\n"
            "handle_route_of_domain:N:The domain can not convert to ip!\n"
            "handle_route_of_domain:N:The device is not an interface name!\n"
            "handle_route_of_domain:N:The device is not an interface name!\n"
            "handle_route_of_domain:N:The device is not an interface name!\n");
  EXPECT_EQ(log(), "gethostbyname(\"nowhere.example\")\n");
}

TEST_F(Vpn, AResolverFailureIsMinusOne) {
  sim_set("resolver", "nas.home", "192.168.1.20");
  sim_program_result("gethostbyname", -1);
  char name[] = "nas.home";
  EXPECT_EQ(handle_route_of_domain(name, "ppp100", 0), -1);
  EXPECT_EQ(sim_log_count("system"), 0);
}

// Many threads route their own domain on their own device while the simulated resolver
// overwrites its one static answer: every command names an address of its thread's domain.
TEST_F(Vpn, ConcurrentDomainsEachRouteTheirOwnAddresses) {
  constexpr int kThreads = 16;
  constexpr int kRounds = 50;
  for (int t = 0; t < kThreads; ++t) {
    std::string name = "d" + std::to_string(t) + ".example";
    std::string addresses;
    for (int k = 1; k <= 3; ++k) addresses += "10." + std::to_string(t) + ".0." + std::to_string(k) + " ";
    sim_set("resolver", name.c_str(), addresses.c_str());
  }
  sim_program_result("system", 1);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([t] {
      std::string name = "d" + std::to_string(t) + ".example";
      std::string dev = "tun" + std::to_string(t);
      for (int r = 0; r < kRounds; ++r) handle_route_of_domain(&name[0], dev.c_str(), r % 2);
    });
  for (auto &th : threads) th.join();
  EXPECT_EQ(sim_log_count("system"), kThreads * kRounds * 3);
  static const std::regex shape(
      "system\\(\"/sbin/route (add|delete) -net 10\\.([0-9]+)\\.0\\.[1-3] netmask 255\\.255\\.255\\.255 "
      "dev tun([0-9]+) >/dev/null 2>&1\"\\)");
  int checked = 0;
  for (const std::string &line : lines(log())) {
    if (line.rfind("system(", 0) != 0) continue;
    std::smatch m;
    ASSERT_TRUE(std::regex_match(line, m, shape)) << line;
    EXPECT_EQ(m[2].str(), m[3].str()) << line;
    ++checked;
  }
  EXPECT_EQ(checked, kThreads * kRounds * 3);
}

}  // namespace l2tp_vpn_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef VPN
