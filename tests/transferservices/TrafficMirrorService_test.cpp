// com.lumarest.smartgateway.transferservices.TrafficMirrorServiceImp and the exported
// is_duplicated_traffic_mirror_rule
#include <limits.h>
#include <string.h>

#include <string>
#include <vector>

#include "common/hardened.h"
#include "tests/test_support.h"
#include "transferservices/traffic_mirror_rule.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_##m
extern "C" {
jint NATIVE(addMirrorRuleJni)(JNIEnv *, jobject, jstring, jstring, jstring, jstring, jstring, jstring, jint);
jint NATIVE(deleteMirrorRuleJni)(JNIEnv *, jobject, jint);
jint NATIVE(deleteAllMirrorRuleJni)(JNIEnv *, jobject);
jstring NATIVE(getMirroRuleInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const std::string kPrefix = "Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_";
const char kCommit[] = "brelo_tcapi_delay_commit(\"TrafficMirror\", 3)\n";

std::string node(int i) { return "TrafficMirror_Entry" + std::to_string(i); }

// The texts of one addMirrorRuleJni call; "<null>" passes a null jstring.
struct Rule {
  std::string remote = "www.example.com";
  std::string port = "80";
  std::string direction = "UP";
  std::string protocol = "TCP";
  std::string mac = "00:11:22:33:44:55";
  std::string mirror_ip = "192.168.1.20";
  int mirror_port = 9000;
};

class TrafficMirror : public testsupport::BridgeTest {
 protected:
  jstring js(const std::string &t) { return t == "<null>" ? nullptr : jvm().str(t); }
  jint add(const Rule &r) {
    jstring a = js(r.remote), b = js(r.port), c = js(r.direction), d = js(r.protocol), e = js(r.mac),
            f = js(r.mirror_ip);
    return NATIVE(addMirrorRuleJni)(env(), self(), a, b, c, d, e, f, r.mirror_port);
  }
  std::string list() { return text(NATIVE(getMirroRuleInfoJni)(env(), self())); }
  std::string attr(int i, const char *a) {
    const char *v = sim_get(("tcapi " + node(i)).c_str(), a);
    return v != nullptr ? v : "<absent>";
  }
  void store(int i, const Rule &r) {
    std::string s = "tcapi " + node(i);
    sim_set(s.c_str(), "remoteAddress", r.remote.c_str());
    sim_set(s.c_str(), "remotePort", r.port.c_str());
    sim_set(s.c_str(), "direction", r.direction.c_str());
    sim_set(s.c_str(), "protocol", r.protocol.c_str());
    sim_set(s.c_str(), "hostMAC", r.mac.c_str());
    sim_set(s.c_str(), "mirrorToIP", r.mirror_ip.c_str());
    sim_set(s.c_str(), "mirrorToPort", std::to_string(r.mirror_port).c_str());
  }
  int commits() { return sim_log_count("brelo_tcapi_delay_commit"); }
  int sets() { return sim_log_count("tcapi_set"); }
};

std::string reads(const char *attr) {
  std::string s;
  for (int i = 0; i < 255; ++i) s += "tcapi_get(\"" + node(i) + "\", \"" + attr + "\")\n";
  return s;
}

// ---- addMirrorRuleJni ----

TEST_F(TrafficMirror, AValidRuleIsStoredInTheFirstFreeEntry) {
  Rule r;
  EXPECT_EQ(add(r), 0);
  std::string n = node(0);
  auto set = [&](const char *a, const char *v) {
    return "tcapi_set(\"" + n + "\", \"" + a + "\", \"" + v + "\")\n";
  };
  EXPECT_EQ(log(), "checkIPDomainVaild(\"www.example.com\")\n" + reads("mirrorToIP") + "tcapi_get(\"" + n +
                       "\", \"mirrorToIP\")\n" + set("remoteAddress", "www.example.com") +
                       set("remotePort", "80") + set("direction", "UP") + set("protocol", "TCP") +
                       set("hostMAC", "00:11:22:33:44:55") + set("mirrorToIP", "192.168.1.20") +
                       set("mirrorToPort", "9000") + kCommit);
  EXPECT_EQ(jvm().acquired(), 6);
  EXPECT_EQ(jvm().released(), 6);
  // Every text is given back right after it was copied, in order.
  EXPECT_EQ(jvm().events_text().rfind("GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\n", 0), 0u)
      << jvm().events_text();

  store(0, r);  // unchanged
  store(1, Rule());
  sim_unset(("tcapi " + node(1)).c_str(), "mirrorToIP");  // entry 1 not in use
  r.mirror_ip = "10.1.1.1";
  EXPECT_EQ(add(r), 1);
  EXPECT_EQ(attr(1, "mirrorToIP"), "10.1.1.1");
  EXPECT_EQ(log().find("tcapi_save"), std::string::npos);
}

TEST_F(TrafficMirror, TheSameRuleTwiceGivesTheSameIndexAndIsStoredOnce) {
  Rule r;
  store(3, Rule{"a.example", "1", "ALL", "UDP", "", "10.0.0.1", 1});
  EXPECT_EQ(add(r), 0);
  sim_clear_log();
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add(r), 0);
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_NE(trace.find("is_duplicated_traffic_mirror_rule:N:is_duplicated_traffic_mirror_rule:"), std::string::npos);
  EXPECT_NE(trace.find("===duplicated mirror rule=====\n" + kPrefix + "addMirrorRuleJni:N:mirror rule is duplicated\n" +
                       kPrefix + "addMirrorRuleJni:N:addMirrorRuleJni: return code = 0   leave============>\n"),
            std::string::npos)
      << trace;
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(commits(), 0);
  // The stored rule 3 is found by its own index.
  EXPECT_EQ(add(Rule{"a.example", "1", "ALL", "UDP", "", "10.0.0.1", 1}), 3);
}

TEST_F(TrafficMirror, DuplicateComparisonStopsAtTheFirstDifference) {
  Rule r;
  store(0, r);
  r.direction = "DOWN";
  EXPECT_EQ(add(r), 1);
  std::string lg = log();
  std::string n = node(0);
  EXPECT_NE(lg.find("tcapi_get(\"" + n + "\", \"mirrorToIP\")\ntcapi_get(\"" + n + "\", \"remoteAddress\")\ntcapi_get(\"" + n +
                    "\", \"remotePort\")\ntcapi_get(\"" + n + "\", \"direction\")\ntcapi_get(\"" + node(1) +
                    "\", \"mirrorToIP\")\n"),
            std::string::npos)
      << lg;
  // Differences in MAC case and in the port alone make different rules too.
  Rule upper;
  upper.mac = "AA:BB:CC:DD:EE:FF";
  Rule lower;
  lower.mac = "aa:bb:cc:dd:ee:ff";
  EXPECT_EQ(add(upper), 2);
  EXPECT_EQ(add(lower), 3);
  Rule other_port;
  other_port.mirror_port = 9001;
  EXPECT_EQ(add(other_port), 4);
}

TEST_F(TrafficMirror, RemotePortChecks) {
  for (const char *ok : {"80", "!80", "1-2-3", "", "0", "65535", "1000-2000", "!", "5-5"}) {
    Rule r;
    r.port = ok;
    EXPECT_GE(add(r), 0) << ok;
  }
  for (const char *bad : {"!80-90", "-80", "80-", "65536", "100-50", "10-", "abc", "-1", "!!80", "8 0", "99999999999"}) {
    Rule r;
    r.port = bad;
    EXPECT_EQ(add(r), -1) << bad;
    ++expected_outstanding_;  // a refused text is never given back
  }
}

TEST_F(TrafficMirror, MirrorPortChecks) {
  for (int bad : {0, 65536, -1, INT_MIN, INT_MAX}) {
    Rule r;
    r.mirror_port = bad;
    EXPECT_EQ(add(r), -1) << bad;
  }
  EXPECT_EQ(sets(), 0);
  Rule r;
  r.mirror_port = 65535;
  EXPECT_EQ(add(r), 0);
  EXPECT_EQ(attr(0, "mirrorToPort"), "65535");
  r.mirror_port = 1;
  EXPECT_EQ(add(r), 1);
}

TEST_F(TrafficMirror, DirectionAndProtocolMustMatchExactly) {
  for (const char *d : {"up", "Up", "BOTH", ""}) {
    Rule r;
    r.direction = d;
    EXPECT_EQ(add(r), -1) << d;
    ++expected_outstanding_;
  }
  for (const char *p : {"tcp", "TCP/udp", "ICMP", ""}) {
    Rule r;
    r.protocol = p;
    EXPECT_EQ(add(r), -1) << p;
    ++expected_outstanding_;
  }
  int index = 0;
  for (const char *d : {"UP", "DOWN", "ALL"})
    for (const char *p : {"TCP", "UDP", "TCP/UDP"}) {
      Rule r;
      r.direction = d;
      r.protocol = p;
      EXPECT_EQ(add(r), index++) << d << p;
    }
}

TEST_F(TrafficMirror, HostMacChecks) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  Rule r;
  r.mac = "00:11:22:33:44:5G";
  EXPECT_EQ(add(r), -1);
  std::string t = mask_line_numbers(out.finish());
  EXPECT_NE(t.find("macValidCheck:N:regex: status: 1\n" + kPrefix + "addMirrorRuleJni:N:00:11:22:33:44:5G is an invalid MAC\n"),
            std::string::npos)
      << t;
  ++expected_outstanding_;
  for (const char *bad : {"00-11-22-33-44-55", "0:11:22:33:44:55", "00:11:22:33:44:55:66", "001122334455",
                          " 00:11:22:33:44:55", "00:11:22:33:44:55 "}) {
    r.mac = bad;
    EXPECT_EQ(add(r), -1) << bad;
    ++expected_outstanding_;
  }
  CaptureStdout out2;
  r.mac = std::string(33, 'a');
  EXPECT_EQ(add(r), -1);
  EXPECT_NE(mask_line_numbers(out2.finish()).find(kPrefix + "addMirrorRuleJni:N:mac len is  too long!\n"),
            std::string::npos);
  ++expected_outstanding_;
  EXPECT_EQ(sets(), 0);

  r.mac = "";
  EXPECT_EQ(add(r), 0);
  EXPECT_EQ(attr(0, "hostMAC"), "");
  r.mac = "<null>";  // none: the same rule as the empty MAC
  EXPECT_EQ(add(r), 0);
  r.mac = "aA:bB:cC:dD:eE:fF";
  EXPECT_EQ(add(r), 1);
}

TEST_F(TrafficMirror, MirrorAddressChecks) {
  sim_set("resolver", "mirror.lan", "192.168.1.30");
  Rule r;
  r.mirror_ip = "mirror.lan";
  EXPECT_EQ(add(r), 0);
  EXPECT_NE(log().find("gethostbyname(\"mirror.lan\")"), std::string::npos);
  r.mirror_ip = "2001:db8::20";
  sim_clear_log();
  EXPECT_EQ(add(r), 1);
  // ipValidCheck first (a host name that does not resolve), then the IPv6 check.
  EXPECT_NE(log().find("gethostbyname(\"2001:db8::20\")\nsc_check_ip6_format(\"2001:db8::20\")\n"), std::string::npos);
  r.mirror_ip = "10.0.0.1/24";
  EXPECT_EQ(add(r), 2);
  for (const char *bad : {"fe80::1%eth0", "[2001:db8::1]", "192.168.1.255", "224.0.0.1", "", "nowhere.lan",
                          "2001:db8::1/64"}) {
    r.mirror_ip = bad;
    EXPECT_EQ(add(r), -1) << bad;
    ++expected_outstanding_;
  }
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  r.mirror_ip = "[::1]";
  EXPECT_EQ(add(r), -1);
  ++expected_outstanding_;
  EXPECT_NE(mask_line_numbers(out.finish()).find(kPrefix + "addMirrorRuleJni:N:mirror IP [::1] is not valid\n"),
            std::string::npos);
}

TEST_F(TrafficMirror, RemoteAddressNullMeansNoneAndInvalidRefuses) {
  Rule r;
  r.remote = "<null>";
  EXPECT_EQ(add(r), 0);
  EXPECT_EQ(attr(0, "remoteAddress"), "");
  EXPECT_EQ(log().find("checkIPDomainVaild"), std::string::npos);
  r.remote = "2001:db8::1";  // only checkIPDomainVaild is asked
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add(r), -1);
  ++expected_outstanding_;
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "addMirrorRuleJni:N:IP(Domain) 2001:db8::1 is not valid\n" + kPrefix +
                "addMirrorRuleJni:N:addMirrorRuleJni: return code = -1   leave============>\n");
  r.remote = "";
  EXPECT_EQ(add(r), -1);
  ++expected_outstanding_;
}

TEST_F(TrafficMirror, ARefusedTextIsKeptAndTheLaterOnesAreNeverRead) {
  Rule r;
  r.direction = "sideways";
  EXPECT_EQ(add(r), -1);
  expected_outstanding_ = 1;
  EXPECT_EQ(jvm().acquired(), 3);
  EXPECT_EQ(jvm().released(), 2);
  EXPECT_EQ(jvm().events_text().find("GetStringUTFChars(s4)"), std::string::npos);
}

TEST_F(TrafficMirror, NullOrUnreadableRequiredTextsRefuse) {
  for (int field = 0; field < 4; ++field) {
    Rule r;
    std::string *f[] = {&r.port, &r.direction, &r.protocol, &r.mirror_ip};
    *f[field] = "<null>";
    EXPECT_EQ(add(r), -1) << field;
  }
  EXPECT_EQ(jvm().null_releases(), 0);
  jint rc = NATIVE(addMirrorRuleJni)(env(), self(), jvm().str("a.example"), jvm().failing_str(), jvm().str("UP"),
                                     jvm().str("TCP"), nullptr, jvm().str("10.0.0.1"), 1);
  EXPECT_EQ(rc, -1);
  EXPECT_EQ(jvm().null_releases(), 1);
  rc = NATIVE(addMirrorRuleJni)(env(), self(), jvm().failing_str(), jvm().str("1"), jvm().str("UP"), jvm().str("TCP"),
                                nullptr, jvm().str("10.0.0.1"), 1);
  EXPECT_EQ(rc, -1);
  EXPECT_EQ(sets(), 0);
}

TEST_F(TrafficMirror, LongTextsAreCopiedCutAndComparedCut) {
  sim_program_result("checkIPDomainVaild", 0);  // accepts anything
  Rule r;
  r.remote = std::string(70000, 'r');
  EXPECT_EQ(add(r), 0);
  EXPECT_EQ(attr(0, "remoteAddress"), std::string(511, 'r'));
  // The rule holds 255 characters of it and the test reads 255: a duplicate.
  EXPECT_EQ(add(r), 0);
  r.remote = std::string(300, 'r');
  EXPECT_EQ(add(r), 0);

  // A mirror-to address longer than the rule's 63 characters never compares equal.
  sim_set("resolver", std::string(64, 'm').c_str(), "10.0.0.9");
  Rule m;
  m.mirror_ip = std::string(64, 'm');
  EXPECT_EQ(add(m), 1);
  EXPECT_EQ(add(m), 2);
  EXPECT_EQ(attr(2, "mirrorToIP"), std::string(64, 'm'));
}

TEST_F(TrafficMirror, HugeTextsInAnyFieldAreRefusedSafely) {
  std::string huge(70000, '1');
  std::string huge_alpha(70000, 'a');
  for (int field = 0; field < 6; ++field) {
    Rule r;
    std::string *f[] = {&r.remote, &r.port, &r.direction, &r.protocol, &r.mac, &r.mirror_ip};
    *f[field] = field == 1 ? huge : huge_alpha;
    EXPECT_EQ(add(r), -1) << field;
    ++expected_outstanding_;
  }
  EXPECT_EQ(sets(), 0);
}

TEST_F(TrafficMirror, FullTableGivesMinusTwoButDuplicatesStillTheirIndex) {
  for (int i = 0; i < 255; ++i) {
    Rule r;
    r.mirror_port = i + 1;
    store(i, r);
  }
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  Rule fresh;
  fresh.mirror_port = 60000;
  EXPECT_EQ(add(fresh), -2);
  EXPECT_NE(mask_line_numbers(out.finish()).find(kPrefix + "addMirrorRuleJni:N:Mirror Entry is full\n"),
            std::string::npos);
  Rule old;
  old.mirror_port = 200;
  EXPECT_EQ(add(old), 199);
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(commits(), 0);
}

// ---- deleteMirrorRuleJni, deleteAllMirrorRuleJni ----

TEST_F(TrafficMirror, DeleteUnsetsTheIndexAsGiven) {
  store(2, Rule());
  EXPECT_EQ(NATIVE(deleteMirrorRuleJni)(env(), self(), 2), 0);
  EXPECT_EQ(attr(2, "mirrorToIP"), "<absent>");
  EXPECT_EQ(NATIVE(deleteMirrorRuleJni)(env(), self(), 300), 0);
  EXPECT_EQ(NATIVE(deleteMirrorRuleJni)(env(), self(), -1), 0);
  EXPECT_EQ(log(), "tcapi_unset(\"TrafficMirror_Entry2\")\n" + std::string(kCommit) +
                       "tcapi_unset(\"TrafficMirror_Entry300\")\n" + kCommit +
                       "tcapi_unset(\"TrafficMirror_Entry-1\")\n" + kCommit);
  // The freed entry is the first reused.
  store(0, Rule{"x.example", "1", "UP", "TCP", "", "10.0.0.1", 1});
  EXPECT_EQ(add(Rule()), 1);
}

TEST_F(TrafficMirror, DeleteAllUnsetsEveryEntryAndCommitsOnce) {
  store(0, Rule());
  store(254, Rule());
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(NATIVE(deleteAllMirrorRuleJni)(env(), self()), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "deleteAllMirrorRuleJni:N:deleteAllMirrorRuleJni: return code = 0   leave============>\n");
  std::string expected;
  for (int i = 0; i < 255; ++i) expected += "tcapi_unset(\"" + node(i) + "\")\n";
  EXPECT_EQ(log(), expected + kCommit);
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[]}");
}

// ---- getMirroRuleInfoJni ----

TEST_F(TrafficMirror, QueryListsRulesInEntryOrder) {
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[]}");
  EXPECT_EQ(log(), reads("mirrorToIP"));
  store(7, Rule{"", "!80", "DOWN", "UDP", "", "2001:db8::1", 443});
  store(2, Rule());
  sim_set("tcapi TrafficMirror_Entry2", "mirrorToPort", "12abc");
  sim_set("tcapi TrafficMirror_Entry5", "remoteAddress", "not listed");  // no mirrorToIP
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"www.example.com\",\"RemotePort\":\"80\",\"Direction\":\"UP\","
            "\"Protocol\":\"TCP\",\"HostMAC\":\"00:11:22:33:44:55\",\"MirrorToIP\":\"192.168.1.20\",\"MirrorToPort\":12},"
            "{\"RemoteAddress\":\"\",\"RemotePort\":\"!80\",\"Direction\":\"DOWN\",\"Protocol\":\"UDP\",\"HostMAC\":\"\","
            "\"MirrorToIP\":\"2001:db8::1\",\"MirrorToPort\":443}]}");
}

TEST_F(TrafficMirror, QueryCutsLongValuesAndAFullList) {
  Rule r;
  r.remote = std::string(600, 'r');
  store(0, r);
  std::string one = list();
  EXPECT_NE(one.find("\"RemoteAddress\":\"" + std::string(255, 'r') + "\","), std::string::npos);
  for (int i = 0; i < 255; ++i) store(i, r);
  std::string full = list();
  if (bundle::hardened_profile()) {  // a cut list: the failure reply instead
    EXPECT_EQ(full, "{\"Result\":-1}");
    return;
  }
  EXPECT_EQ(full.size(), 32639u);
  EXPECT_EQ(full.rfind("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"" + std::string(255, 'r'), 0), 0u);
}

TEST_F(TrafficMirror, QueryTracesItsReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  list();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "getMirroRuleInfoJni:N:getMirroRuleInfoJni: return json = {\"Result\":0,\"List\":[]}   "
                      "leave============>\n");
}

// ---- is_duplicated_traffic_mirror_rule ----

TEST_F(TrafficMirror, DuplicateTestCalledDirectly) {
  traffic_mirror_rule rule;
  memset(&rule, 0, sizeof rule);
  int index = -7;
  EXPECT_EQ(is_duplicated_traffic_mirror_rule(&rule, &index), 0);  // nothing stored
  EXPECT_EQ(index, -7);
  EXPECT_EQ(is_duplicated_traffic_mirror_rule(nullptr, &index), 0);

  store(9, Rule());
  strcpy(rule.remoteAddress, "www.example.com");
  strcpy(rule.remotePort, "80");
  strcpy(rule.direction, "UP");
  strcpy(rule.protocol, "TCP");
  strcpy(rule.hostMAC, "00:11:22:33:44:55");
  strcpy(rule.mirrorToIP, "192.168.1.20");
  rule.mirrorToPort = 9000;
  EXPECT_EQ(is_duplicated_traffic_mirror_rule(&rule, &index), 1);
  EXPECT_EQ(index, 9);
  EXPECT_EQ(is_duplicated_traffic_mirror_rule(&rule, nullptr), 1);
  // A field filled to the brim is read cut at its last byte, not past it.
  memset(rule.hostMAC, 'x', sizeof rule.hostMAC);
  EXPECT_EQ(is_duplicated_traffic_mirror_rule(&rule, &index), 0);
  // The stored port compares by atoi.
  memcpy(rule.hostMAC, "00:11:22:33:44:55", 18);
  sim_set("tcapi TrafficMirror_Entry9", "mirrorToPort", "9000 ");
  EXPECT_EQ(is_duplicated_traffic_mirror_rule(&rule, &index), 1);
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
