// com.lumarest.smartgateway.transferservices.TrafficMonitoringConfigServiceImp
#include <stdio.h>

#include <string>
#include <vector>

#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_##m
extern "C" {
jint NATIVE(addTrafficMonitoringDestAddressJni)(JNIEnv *, jobject, jobjectArray, jstring);
jint NATIVE(deleteTrafficMonitoringDestAddressJni)(JNIEnv *, jobject, jobjectArray, jstring);
jstring NATIVE(getTrafficMonitoringDestAddressInfoJni)(JNIEnv *, jobject);
}

namespace traffic_monitoring_config_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const std::string kPrefix =
    "Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_";
const char kCommit[] = "brelo_tcapi_delay_commit(\"TrafficMonitoring\", 3)\n";

std::string group_node(int pvc) { return "TrafficMonitoring_PVC" + std::to_string(pvc); }
std::string entry_node(int pvc, int entry) {
  return group_node(pvc) + "_Entry" + std::to_string(entry);
}
std::string get_line(const std::string &node, const char *attr) {
  return "tcapi_get(\"" + node + "\", \"" + attr + "\")\n";
}
std::string set_line(const std::string &node, const char *attr, const std::string &value) {
  return "tcapi_set(\"" + node + "\", \"" + attr + "\", \"" + value + "\")\n";
}
// The reads of entries first..last (inclusive) of one PVC.
std::string entry_reads(int pvc, int first, int last) {
  std::string s;
  for (int e = first; e <= last; ++e) s += get_line(entry_node(pvc, e), "destAddressList");
  return s;
}
std::string check_line(const std::string &address) {
  return "checkIPDomainVaild(\"" + address + "\")\n";
}
// A valid domain name of exactly 128 characters.
std::string domain_of_128() {
  return std::string(63, 'a') + "." + std::string(60, 'b') + ".com";
}

class TrafficMonitoring : public testsupport::BridgeTest {
 protected:
  jint add(const std::vector<std::string> &addresses, const std::string &bundle) {
    jobjectArray a = jvm().array_of(addresses);
    return NATIVE(addTrafficMonitoringDestAddressJni)(env(), self(), a, jvm().str(bundle));
  }
  jint del(const std::vector<std::string> &addresses, const std::string &bundle) {
    jobjectArray a = jvm().array_of(addresses);
    return NATIVE(deleteTrafficMonitoringDestAddressJni)(env(), self(), a, jvm().str(bundle));
  }
  std::string list() { return text(NATIVE(getTrafficMonitoringDestAddressInfoJni)(env(), self())); }

  void own(int base, const std::string &bundle) {
    sim_set(("tcapi " + group_node(base)).c_str(), "bundleName", bundle.c_str());
  }
  void store(int pvc, int entry, const std::string &address) {
    sim_set(("tcapi " + entry_node(pvc, entry)).c_str(), "destAddressList", address.c_str());
  }
  // Fills entries of PVCs base..base+3 in order with "10.<group>.<pvc>.<entry>" style texts.
  void fill(int base, int count) {
    for (int i = 0; i < count; ++i)
      store(base + i / 255, i % 255,
            "10." + std::to_string(base) + "." + std::to_string(i / 255) + "." +
                std::to_string(i % 255 + 1));
  }
  std::string owner(int pvc) {
    const char *v = sim_get(("tcapi " + group_node(pvc)).c_str(), "bundleName");
    return v != nullptr ? v : "<absent>";
  }
  std::string stored(int pvc, int entry) {
    const char *v = sim_get(("tcapi " + entry_node(pvc, entry)).c_str(), "destAddressList");
    return v != nullptr ? v : "<absent>";
  }
  int commits() { return sim_log_count("brelo_tcapi_delay_commit"); }
  int sets() { return sim_log_count("tcapi_set"); }
};

// ---- addTrafficMonitoringDestAddressJni ----

TEST_F(TrafficMonitoring, FirstAddressOfANewBundleClaimsTheFirstFreeGroup) {
  EXPECT_EQ(add({"10.0.0.1"}, "bundleA"), 0);
  EXPECT_EQ(log(), check_line("10.0.0.1") + get_line(group_node(0), "bundleName") +
                       entry_reads(0, 0, 254) + set_line(entry_node(0, 0), "destAddressList", "10.0.0.1") +
                       set_line(group_node(0), "bundleName", "bundleA") + kCommit);
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[{\"BundleName\":\"bundleA\",\"DestAddressList\":[\"10.0.0.1\"]}]}");
  // The element references are deleted as they are read; both texts are given back.
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().released(), 2);
  EXPECT_EQ(jvm().live_local_refs(), 1);  // the reply string of the query
  EXPECT_EQ(log().find("tcapi_save"), std::string::npos);
}

TEST_F(TrafficMonitoring, SeveralAddressesOfABundleWithoutGroupAllLandOnEntryZero) {
  // The group is named only after the last address, so each search finds the same unnamed
  // group again and only the last address survives.
  EXPECT_EQ(add({"a.example", "b.example", "c.example"}, "bundleA"), 0);
  EXPECT_EQ(stored(0, 0), "c.example");
  EXPECT_EQ(stored(0, 1), "<absent>");
  EXPECT_EQ(owner(0), "bundleA");
  std::string search = get_line(group_node(0), "bundleName");
  EXPECT_EQ(log(), check_line("a.example") + check_line("b.example") + check_line("c.example") + search +
                       entry_reads(0, 0, 254) +
                       set_line(entry_node(0, 0), "destAddressList", "a.example") + search +
                       set_line(entry_node(0, 0), "destAddressList", "b.example") + search +
                       set_line(entry_node(0, 0), "destAddressList", "c.example") + search +
                       set_line(group_node(0), "bundleName", "bundleA") + kCommit);
}

TEST_F(TrafficMonitoring, AddressesOfAnOwnedGroupGoToTheNextFreeEntries) {
  own(0, "bundleA");
  store(0, 0, "10.0.0.1");
  store(0, 2, "10.0.0.3");  // entry 1 is free
  EXPECT_EQ(add({"10.0.0.9", "10.0.0.3", "10.0.0.9", "10.0.0.8"}, "bundleA"), 0);
  // The stored address is blanked; the same new address given twice is stored twice.
  EXPECT_EQ(stored(0, 1), "10.0.0.9");
  EXPECT_EQ(stored(0, 2), "10.0.0.3");
  EXPECT_EQ(stored(0, 3), "10.0.0.9");
  EXPECT_EQ(stored(0, 4), "10.0.0.8");
  EXPECT_EQ(sets(), 4);  // three addresses and the name
  EXPECT_EQ(commits(), 1);
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"BundleName\":\"bundleA\",\"DestAddressList\":[\"10.0.0.1\","
            "\"10.0.0.9\",\"10.0.0.3\",\"10.0.0.9\",\"10.0.0.8\"]}]}");
}

TEST_F(TrafficMonitoring, TheSearchRunsAgainAfterEveryAddressBlankOrNot) {
  own(0, "bundleA");
  store(0, 0, "10.0.0.1");
  EXPECT_EQ(add({"10.0.0.1", "10.0.0.2"}, "bundleA"), 0);
  std::string search = get_line(group_node(0), "bundleName") + entry_reads(0, 0, 1);
  std::string after = get_line(group_node(0), "bundleName") + entry_reads(0, 0, 2);
  EXPECT_EQ(log(), check_line("10.0.0.1") + check_line("10.0.0.2") + search + entry_reads(0, 0, 254) +
                       search /* after the blanked first address */ +
                       set_line(entry_node(0, 1), "destAddressList", "10.0.0.2") + after +
                       set_line(group_node(0), "bundleName", "bundleA") + kCommit);
}

TEST_F(TrafficMonitoring, AddressesAllStoredAlreadyCommitNothing) {
  own(0, "bundleA");
  store(0, 0, "10.0.0.1");
  store(0, 1, "www.example.com");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add({"www.example.com", "10.0.0.1"}, "bundleA"), 0);
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(commits(), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "addMonitorRuleToEntry:N:monotor address exist, not modified!\n" + kPrefix +
                "addTrafficMonitoringDestAddressJni:N:addTrafficMonitoringDestAddressJni: return code = 0   "
                "leave============>\n");
}

TEST_F(TrafficMonitoring, StoredAddressesCompareCaseSensitively) {
  own(0, "bundleA");
  store(0, 0, "www.example.com");
  EXPECT_EQ(add({"WWW.example.com"}, "bundleA"), 0);
  EXPECT_EQ(stored(0, 1), "WWW.example.com");
}

TEST_F(TrafficMonitoring, EmptyArrayFailsOnlyWhenNoGroupIsLeft) {
  for (int b = 0; b < 32; b += 4) own(b, "other" + std::to_string(b));
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add({}, "bundleA"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "check_all_dest_is_null:N:no dest address!\n"
            "addMonitorRuleToEntry:N:monitor entry is full\n" +
                kPrefix + "addTrafficMonitoringDestAddressJni:N:monitor rules full\n" + kPrefix +
                "addTrafficMonitoringDestAddressJni:N:addTrafficMonitoringDestAddressJni: return code = -1   "
                "leave============>\n");
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(commits(), 0);

  sim_unset(("tcapi " + group_node(20)).c_str(), nullptr);  // group 20 is free again
  sim_clear_log();
  EXPECT_EQ(add({}, "bundleA"), 0);
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(commits(), 0);
  EXPECT_EQ(owner(20), "<absent>");
  // A null array reads as an empty one.
  EXPECT_EQ(NATIVE(addTrafficMonitoringDestAddressJni)(env(), self(), nullptr, jvm().str("bundleA")), 0);
  EXPECT_EQ(sets(), 0);
}

TEST_F(TrafficMonitoring, AFreeGroupBeforeTheOwnGroupIsPreferred) {
  own(4, "bundleA");
  store(4, 0, "10.0.0.1");
  EXPECT_EQ(add({"10.0.0.2"}, "bundleA"), 0);
  EXPECT_EQ(stored(0, 0), "10.0.0.2");
  EXPECT_EQ(owner(0), "bundleA");
  EXPECT_EQ(stored(4, 1), "<absent>");
}

TEST_F(TrafficMonitoring, TheNameGoesOnTheFoundPvcOnceTheFirstPvcIsFull) {
  own(0, "bundleA");
  fill(0, 255);  // PVC 0 full
  EXPECT_EQ(add({"192.168.9.9"}, "bundleA"), 0);
  EXPECT_EQ(stored(1, 0), "192.168.9.9");
  EXPECT_EQ(owner(1), "bundleA");  // a non-base PVC's name, never read by the search
  EXPECT_EQ(owner(0), "bundleA");
  // The duplicate scan covers PVCs 0 and 1.
  EXPECT_EQ(sim_log_count("tcapi_get"), 1 + 256 + 510);
}

TEST_F(TrafficMonitoring, The1021stAddressGoesToTheFirstFreeGroupWhichTheBundleClaims) {
  own(0, "bundleA");
  fill(0, 1020);
  own(4, "bundleB");
  EXPECT_EQ(add({"172.16.0.1"}, "bundleA"), 0);
  EXPECT_EQ(stored(8, 0), "172.16.0.1");
  EXPECT_EQ(owner(8), "bundleA");
  std::string reply = list();
  EXPECT_NE(reply.find("{\"BundleName\":\"bundleB\",\"DestAddressList\":[]},{\"BundleName\":\"bundleA\","
                       "\"DestAddressList\":[\"172.16.0.1\"]}]}"),
            std::string::npos);
}

TEST_F(TrafficMonitoring, ASearchThatFindsNothingLeavesTheLastSlotToBeOverwritten) {
  own(0, "bundleA");
  fill(0, 1019);  // only PVC 3 entry 254 is free
  for (int b = 4; b < 32; b += 4) own(b, "other");
  EXPECT_EQ(add({"10.9.9.1", "10.9.9.2"}, "bundleA"), 0);
  EXPECT_EQ(stored(3, 254), "10.9.9.2");
  EXPECT_EQ(owner(3), "bundleA");
  EXPECT_EQ(commits(), 1);
}

TEST_F(TrafficMonitoring, AnInvalidAddressAfterValidOnesRefusesTheWholeCall) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add({"10.0.0.1", "2001:db8::1", "bad..name", "10.0.0.2"}, "bundleA"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "addTrafficMonitoringDestAddressJni:N:Ip(domain)destAddressList bad..name is not valid\n" +
                kPrefix +
                "addTrafficMonitoringDestAddressJni:N:addTrafficMonitoringDestAddressJni: return code = -1   "
                "leave============>\n");
  EXPECT_EQ(log(), check_line("10.0.0.1") + check_line("2001:db8::1") +
                       "sc_check_ip6_format(\"2001:db8::1\")\n" + check_line("bad..name") +
                       "sc_check_ip6_format(\"bad..name\")\n");
  // The bundle name was never read; every address text obtained was given back.
  EXPECT_EQ(jvm().acquired(), 3);
  EXPECT_EQ(jvm().released(), 3);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(TrafficMonitoring, IPv6AddressesWithZonesOrBracketsAreRefused) {
  EXPECT_EQ(add({"fe80::1%eth0"}, "b"), -1);
  EXPECT_EQ(add({"[2001:db8::1]"}, "b"), -1);
  EXPECT_EQ(add({"2001:db8::1/64"}, "b"), -1);
  EXPECT_EQ(add({"256.1.1.1"}, "b"), -1);
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(add({"2001:DB8::1"}, "b"), 0);
  EXPECT_EQ(stored(0, 0), "2001:DB8::1");
}

TEST_F(TrafficMonitoring, NullElementsAndUnreadableTextsRefuseTheCall) {
  jobjectArray a = jvm().array({jvm().str("10.0.0.1"), nullptr});
  EXPECT_EQ(NATIVE(addTrafficMonitoringDestAddressJni)(env(), self(), a, jvm().str("b")), -1);
  jobjectArray f = jvm().array({jvm().failing_str("10.0.0.1")});
  EXPECT_EQ(NATIVE(deleteTrafficMonitoringDestAddressJni)(env(), self(), f, jvm().str("b")), -1);
  EXPECT_EQ(jvm().null_releases(), 1);  // the failed copy is released with its NULL pointer
  EXPECT_EQ(sets(), 0);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(TrafficMonitoring, EmptyTextsAreRefusedByTheChecks) {
  EXPECT_EQ(add({""}, "b"), -1);
  EXPECT_EQ(add({"10.0.0.1", ""}, "b"), -1);
  EXPECT_EQ(sets(), 0);
}

TEST_F(TrafficMonitoring, EmptyTextsThatTheChecksAcceptCountAsNoAddress) {
  sim_program_result("checkIPDomainVaild", 0);  // accepts anything
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add({"", ""}, "bundleA"), 0);
  EXPECT_NE(out.finish().find("check_all_dest_is_null:"), std::string::npos);
  EXPECT_EQ(sets(), 0);
  // One non-empty text makes every entry count; the empty one is skipped.
  sim_clear_log();
  EXPECT_EQ(add({"", "x.example"}, "bundleA"), 0);
  EXPECT_EQ(stored(0, 0), "x.example");
  EXPECT_EQ(commits(), 1);
}

TEST_F(TrafficMonitoring, LongAddressTextsAreCutAt127Bytes) {
  std::string d128 = domain_of_128();
  ASSERT_EQ(d128.size(), 128u);
  own(0, "b");
  EXPECT_EQ(add({d128}, "b"), 0);
  EXPECT_EQ(stored(0, 0), d128.substr(0, 127));
  // Adding it again finds the cut text stored.
  EXPECT_EQ(add({d128}, "b"), 0);
  EXPECT_EQ(stored(0, 1), "<absent>");

  std::string huge(70000, 'a');
  EXPECT_EQ(add({huge}, "b"), -1);  // not a domain name
  sim_program_result("checkIPDomainVaild", 0);
  EXPECT_EQ(add({huge}, "b"), 0);
  EXPECT_EQ(stored(0, 1), std::string(127, 'a'));
}

TEST_F(TrafficMonitoring, MoreThan256AddressesReadOnlyTheFirst256) {
  for (int n : {257, 5000}) {
    sim_reset();
    own(0, "bundleA");
    std::vector<std::string> addresses;
    for (int i = 0; i < n; ++i)
      addresses.push_back("10." + std::to_string(i / 65536) + "." + std::to_string(i / 256 % 256) + "." +
                          std::to_string(i % 256));
    FlagFile flag(TRACE_FLAG_PATH, true);
    CaptureStdout out;
    EXPECT_EQ(add(addresses, "bundleA"), 0);
    EXPECT_NE(out.finish().find(std::to_string(n) +
                                " destination addresses given, only the first 256 are read\n"),
              std::string::npos);
    EXPECT_EQ(sim_log_count("checkIPDomainVaild"), 256);
    EXPECT_EQ(stored(0, 254), "10.0.0.254");
    EXPECT_EQ(stored(1, 0), "10.0.0.255");
    EXPECT_EQ(stored(1, 1), "<absent>");  // the 257th is never read
    EXPECT_EQ(owner(1), "bundleA");
    EXPECT_LE(jvm().max_live_local_refs(), 4);
  }
}

TEST_F(TrafficMonitoring, BundleNamesNullEmptyAndLong) {
  EXPECT_EQ(NATIVE(addTrafficMonitoringDestAddressJni)(env(), self(), jvm().array_of({"10.0.0.1"}), nullptr), -1);
  EXPECT_EQ(NATIVE(addTrafficMonitoringDestAddressJni)(env(), self(), jvm().array_of({"10.0.0.1"}),
                                                       jvm().failing_str("b")),
            -1);
  jvm().clear_exception();  // Java has thrown
  EXPECT_EQ(NATIVE(deleteTrafficMonitoringDestAddressJni)(env(), self(), jvm().array_of({"10.0.0.1"}), nullptr), -1);
  EXPECT_EQ(sets(), 0);

  // An empty name writes an empty name: the addresses are stored but the group stays free and
  // unlisted.
  EXPECT_EQ(add({"10.0.0.1"}, ""), 0);
  EXPECT_EQ(stored(0, 0), "10.0.0.1");
  EXPECT_EQ(owner(0), "");
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[]}");

  // A 300-byte name is cut at 255 bytes, in the tree and when compared.
  std::string name(300, 'n');
  EXPECT_EQ(add({"10.0.0.2"}, name), 0);
  EXPECT_EQ(owner(0), std::string(255, 'n'));
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[{\"BundleName\":\"" + std::string(255, 'n') +
                        "\",\"DestAddressList\":[\"10.0.0.2\"]}]}");
  EXPECT_EQ(del({"10.0.0.2"}, name), 0);
  EXPECT_EQ(owner(0), "<absent>");
}

// ---- deleteTrafficMonitoringDestAddressJni ----

TEST_F(TrafficMonitoring, DeleteForAnUnknownBundleFails) {
  own(0, "bundleA");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(del({"10.0.0.1"}, "bundleZ"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "deleteMonitorRuleToEntry:N:BundleName bundleZ is not exist\n" + kPrefix +
                "deleteTrafficMonitoringDestAddressJni:N:monitor rules full\n" + kPrefix +
                "deleteTrafficMonitoringDestAddressJni:N:deleteTrafficMonitoringDestAddressJni: return code = -1   "
                "leave============>\n");
  EXPECT_EQ(sim_log_count("tcapi_unset"), 0);
  EXPECT_EQ(commits(), 0);
}

TEST_F(TrafficMonitoring, DeleteRemovesMatchingEntriesAndCommitsOnce) {
  own(4, "bundleA");
  store(4, 0, "10.0.0.1");
  store(4, 1, "10.0.0.2");
  store(4, 2, "10.0.0.1");
  store(5, 7, "10.0.0.3");
  EXPECT_EQ(del({"10.0.0.1", "10.0.0.3", "10.0.0.4"}, "bundleA"), 0);
  EXPECT_EQ(stored(4, 0), "");
  EXPECT_EQ(stored(4, 1), "10.0.0.2");
  EXPECT_EQ(stored(4, 2), "");
  EXPECT_EQ(stored(5, 7), "");
  EXPECT_EQ(sets(), 3);
  EXPECT_EQ(commits(), 1);
  // The emptied PVCs 5..7 lose their nodes; PVC 4 keeps its address and the name.
  std::string lg = log();
  EXPECT_EQ(sim_log_count("tcapi_unset"), 3);
  std::string end = "tcapi_unset(\"TrafficMonitoring_PVC7\")\n" + std::string(kCommit);
  EXPECT_EQ(lg.substr(lg.size() - end.size()), end);
  EXPECT_NE(lg.find("tcapi_unset(\"TrafficMonitoring_PVC5\")"), std::string::npos);
  EXPECT_NE(lg.find("tcapi_unset(\"TrafficMonitoring_PVC6\")"), std::string::npos);
  EXPECT_EQ(lg.find("tcapi_unset(\"TrafficMonitoring_PVC4\")"), std::string::npos);
  EXPECT_EQ(owner(4), "bundleA");
}

TEST_F(TrafficMonitoring, DeletingAddressesThatAreNotStoredStillUnsetsEmptyPvcs) {
  own(0, "bundleA");
  store(0, 0, "10.0.0.1");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(del({"10.0.0.9"}, "bundleA"), 0);
  EXPECT_NE(out.finish().find("deleteMonitorRuleToEntry:"), std::string::npos);
  EXPECT_EQ(commits(), 0);
  EXPECT_EQ(sets(), 0);
  // PVC 0 holds an address: its clean-up reads stop at the first one; PVCs 1..3 are read in
  // full and unset.
  std::string tail = entry_reads(0, 0, 0);
  for (int p = 1; p <= 3; ++p)
    tail += entry_reads(p, 0, 254) + "tcapi_unset(\"" + group_node(p) + "\")\n";
  std::string lg = log();
  ASSERT_GE(lg.size(), tail.size());
  EXPECT_EQ(lg.substr(lg.size() - tail.size()), tail);
  EXPECT_EQ(sim_log_count("tcapi_unset"), 3);
  EXPECT_EQ(owner(0), "bundleA");
}

TEST_F(TrafficMonitoring, DeletingTheLastAddressOfTheFirstPvcFreesTheGroup) {
  own(0, "bundleA");
  store(0, 0, "10.0.0.1");
  store(1, 0, "10.0.0.2");
  EXPECT_EQ(del({"10.0.0.1"}, "bundleA"), 0);
  EXPECT_EQ(owner(0), "<absent>");
  EXPECT_EQ(stored(1, 0), "10.0.0.2");  // kept, but no longer listed
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[]}");
  EXPECT_EQ(commits(), 1);
}

TEST_F(TrafficMonitoring, DeleteReadsOnlyTheFirst256Addresses) {
  own(0, "bundleA");
  std::vector<std::string> addresses(300, "10.0.0.1");
  addresses[299] = "10.0.0.2";
  store(0, 0, "10.0.0.2");
  EXPECT_EQ(del(addresses, "bundleA"), 0);
  EXPECT_EQ(stored(0, 0), "10.0.0.2");
  EXPECT_EQ(commits(), 0);
}

// ---- getTrafficMonitoringDestAddressInfoJni ----

TEST_F(TrafficMonitoring, QueryOfAnEmptyTree) {
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[]}");
  std::string expected;
  for (int b = 0; b < 32; b += 4) expected += get_line(group_node(b), "bundleName");
  EXPECT_EQ(log(), expected);
}

TEST_F(TrafficMonitoring, QueryListsGroupsInOrderAndAddressesInPvcAndEntryOrder) {
  own(8, "second");
  store(8, 3, "b.example");
  store(9, 0, "c.example");
  store(8, 1, "a.example");
  own(0, "first");
  own(28, "empty");
  store(4, 0, "orphan.example");  // a free group is not listed
  EXPECT_EQ(list(),
            "{\"Result\":0,\"List\":[{\"BundleName\":\"first\",\"DestAddressList\":[]},"
            "{\"BundleName\":\"second\",\"DestAddressList\":[\"a.example\",\"b.example\",\"c.example\"]},"
            "{\"BundleName\":\"empty\",\"DestAddressList\":[]}]}");
  EXPECT_EQ(sim_log_count("tcapi_get"), 8 + 3 * 1020);
  EXPECT_EQ(sim_log_count("strNull"), 3 * 1020);
}

TEST_F(TrafficMonitoring, QuerySplitsStoredTextsAtCommas) {
  own(0, "b");
  store(0, 0, "x.example,y.example");
  store(0, 1, ",");
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[{\"BundleName\":\"b\",\"DestAddressList\":[\"x.example\",\"y.example\"]}]}");
}

TEST_F(TrafficMonitoring, TreeValuesLongerThanTheReadBuffersAreCut) {
  own(0, std::string(300, 'n'));
  store(0, 0, std::string(2000, 'x'));
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[{\"BundleName\":\"" + std::string(255, 'n') +
                        "\",\"DestAddressList\":[\"" + std::string(1023, 'x') + "\"]}]}");
  // add and delete read the same values into 256 bytes.
  EXPECT_EQ(add({"10.0.0.1"}, std::string(300, 'n')), 0);
  EXPECT_EQ(stored(0, 1), "10.0.0.1");
  EXPECT_EQ(del({"10.0.0.1"}, std::string(255, 'n')), 0);
  EXPECT_EQ(stored(0, 1), "");
}

TEST_F(TrafficMonitoring, ACollectionOrReplyThatOutgrowsItsBufferIsCut) {
  own(0, "b");
  std::string long_address(1000, 'a');
  for (int e = 0; e < 200; ++e) store(0, e, long_address);  // 200 x 1001 > 131072
  std::string reply = list();
  if (bundle::hardened_profile()) {  // a cut list: the failure reply instead
    EXPECT_EQ(reply, "{\"Result\":-1}");
    return;
  }
  EXPECT_EQ(reply.size(), 131071u);
  EXPECT_EQ(reply.rfind("{\"Result\":0,\"List\":[{\"BundleName\":\"b\",\"DestAddressList\":[\"" + long_address + "\",\"", 0), 0u);
  // The collection stops reading once it is full: 131 addresses fill it.
  EXPECT_EQ(sim_log_count("strNull"), 131);
}

TEST_F(TrafficMonitoring, QueryTracesItsReply) {
  own(0, "b");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  list();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "getTrafficMonitoringDestAddressInfoJni:N:getTrafficMonitoringDestAddressInfoJni: return json = "
                      "{\"Result\":0,\"List\":[{\"BundleName\":\"b\",\"DestAddressList\":[]}]}   leave============>\n");
}

TEST_F(TrafficMonitoring, TheQueryHandsJavaValidTextsOnly) {
  own(0, "b");
  store(0, 0, "\xff\xfe");
  std::string reply = list();
  EXPECT_TRUE(fakejni::is_modified_utf8(reply));
  EXPECT_TRUE(jvm().errors().empty());
}

}  // namespace traffic_monitoring_config_service_test

namespace traffic_monitoring_config_service_test {

// A bundle name from Java is stored and listed later: in the hardened profile it stays inside
// its string, quotes, backslashes and control characters escaped.
TEST_F(TrafficMonitoring, ABundleNameFromJavaStaysInsideItsStringWhenHardened) {
  const std::string name = "b\",\"Injected\":\"x\\\t";
  ASSERT_EQ(add({"10.0.0.1"}, name), 0);
  std::string reply = list();
  if (bundle::hardened_profile()) {
    EXPECT_NE(reply.find("\"BundleName\":\"b\\\",\\\"Injected\\\":\\\"x\\\\\\t\""), std::string::npos)
        << reply;
    EXPECT_TRUE(bundle::json_valid(reply.c_str())) << reply;
  } else {
    EXPECT_NE(reply.find("\"BundleName\":\"" + name + "\""), std::string::npos) << reply;
  }
}

}  // namespace traffic_monitoring_config_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
