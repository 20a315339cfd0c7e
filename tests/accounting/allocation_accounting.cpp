// Heap accounting of every native: what the library's own code allocates around each call on
// the default simulated gateway (and when the platform refuses the native's first call), held
// against what each class allocates by design, and what it must give back before it returns.
//
// A native allocates only its own heap buffers (the work struct that keeps its frame small, a
// reply buffer too large for the stack, a list it builds) and frees each of them on every path;
// it frees every block a platform list query hands over (arrays, and the texts or nodes that
// hang from them), and nothing else. The reply-string maker's repair copy of a long reply that
// is not modified UTF-8 is allowed once per reply, and must be gone when the native returns.
#include <gtest/gtest.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <set>
#include <string>
#include <vector>

#include "sim/sim_control.h"
#include "tests/accounting/accounting_wrap.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace {

// ---------------------------------------------------------------------------------------------
// Allocations by design: per class, why it allocates; per native, the most allocations of its
// own code in one call (the reply-string maker's repair copy is counted apart).
struct Entry {
  const char *method;
  int allocations;
};
struct ClassBudget {
  const char *cls;
  const char *design;
  std::vector<Entry> natives;
};

const ClassBudget kBudgets[] = {
    {"LANHostsInfoQueryServiceImp",
     "each list query takes one work struct from the heap (the MAC list with the reply of up "
     "to 64 KiB, or the host-list reply) and frees the platform's host array; the gateway "
     "name and filter mode are read on the stack",
     {
         {"getGatewayNameJni", 0},
         {"getLANHostInfoByMACJni", 1},
         {"getLANHostInfoByInterfaceJni", 1},
         {"getMacFilterModeJni", 0},
         {"getLANHostInfoByClassJni", 1},
         {"getLANHostStatsJni", 1},
         {"getLANHostSpeedLimitInfoJni", 1},
     }},
    {"LanNetworkNameConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setGatewayNameJni", 0},
         {"setLANHostNameJni", 0},
     }},
    {"LanHostSpeedLimitServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setLANHostSpeedLimitJni", 0},
     }},
    {"LanHostSpeedQueryServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"getLANHostSpeedJni", 0},
     }},
    {"LanNetworkAccessConfigServiceImp",
     "each list setter takes the 32 KiB MAC list buffer from the heap (the deletes only in "
     "their filter mode); the mode setter works on the stack",
     {
         {"setMacFilterModeJni", 0},
         {"addLANHostToBlackListJni", 1},
         {"deleteLANHostFromBlackListJni", 1},
         {"addLANHostToStorageBlackListJni", 1},
         {"deleteLANHostFromStorageBlackListJni", 1},
         {"addLANHostToTrustListJni", 1},
         {"deleteLANHostFromTrustListJni", 1},
     }},
    {"WlanConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setWLANSSIDSwitchJni", 0},
         {"setWLANSSIDAdvertisementJni", 0},
         {"setWLANHardwareSwitchJni", 0},
         {"setWLANSSIDSecurityJni", 0},
         {"setWLANStandardJni", 0},
         {"setWLANRadioChannelJni", 0},
         {"setWLANRadioPowerJni", 0},
         {"setWLANRadioFrequencyWidthJni", 0},
         {"startWLANWPSJni", 0},
         {"stopWLANWPSJni", 0},
         {"addWLANGuestSSIDJni", 0},
         {"deleteWLANGuestSSIDJni", 0},
         {"setWLANGuestPortIsolationJni", 0},
         {"setWLANGuestDurationJni", 0},
     }},
    {"WlanQueryServiceImp",
     "neighbours: the 23,040-byte record array and the list reply sized to its entries; host "
     "info: the 32 KiB MAC list, the station records of its MACs and the list reply; the "
     "other queries work on the stack",
     {
         {"getWLANSSIDInfoJni", 0},
         {"getWLANSSIDStatsJni", 0},
         {"getWLANWPSStatusJni", 0},
         {"getWLANHardwareSwitchJni", 0},
         {"getWLANRadioInfoJni", 0},
         {"getWLANNeighborJni", 2},
         {"getWLANHostInfoJni", 3},
         {"getGuestSSIDInfoJni", 0},
     }},
    {"WlanSecretQueryServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"getWLANSSIDPasswordJni", 0},
     }},
    {"EthQueryServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"getLANEthernetInfoJni", 0},
         {"getLANEthernetStatsJni", 0},
     }},
    {"EthConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setLANEthernetEnableJni", 0},
         {"setLANEthernetMaxBitRateJni", 0},
         {"setLANEthernetDuplexModeJni", 0},
     }},
    {"AccessInfoQueryServiceImp",
     "nothing of its own (replies on the stack); the WAN list query frees the platform's "
     "array",
     {
         {"getPONIfPhyStatusJni", 0},
         {"getPONIfUpTimeJni", 0},
         {"getPONIfRegisterStatusJni", 0},
         {"getUplinkIfStatsJni", 0},
         {"getWANIfListJni", 0},
         {"getWANIfStatsJni", 0},
         {"getWANIfInfoJni", 0},
         {"getWanIfBandwidthJni", 0},
         {"getWANIfStatusJni", 0},
         {"getInternetWANIndexJni", 0},
     }},
    {"WanConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"addWANIfJni", 0},
         {"setWANIfJni", 0},
         {"deleteWANIfJni", 0},
     }},
    {"IPPingDiagnosticsServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"startIPPingDiagnosticsJni", 0},
         {"getIPPingDiagnosticsResultJni", 0},
     }},
    {"TraceRouteDiagnosticsServiceImp",
     "nothing of its own; the result query frees the platform's hop array",
     {
         {"startTraceRouteDiagnosticsJni", 0},
         {"getTraceRouteDiagnosticsResultJni", 0},
     }},
    {"HttpUploadDiagnosticsServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"startHttpUploadDiagnosticsJni", 0},
         {"getHttpUploadDiagnosticsResultJni", 0},
     }},
    {"HttpDownloadDiagnosticsServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"startHttpDownloadDiagnosticsJni", 0},
         {"getHttpDownloadDiagnosticsResultJni", 0},
     }},
    {"LANIPConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setLANHostIPJni", 0},
         {"setLANDHCPInfoJni", 0},
     }},
    {"LANIPInfoQueryServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"getLANHostIPJni", 0},
         {"getLANDHCPInfoJni", 0},
     }},
    {"PortMappingConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"addPortMappingJni", 0},
         {"deletePortMappingJni", 0},
         {"setPortMappingSwitchJni", 0},
     }},
    {"PortMappingQueryServiceImp",
     "the reply buffer, sized to the valid WAN connections",
     {
         {"getPortMappingInfoJni", 1},
     }},
    {"DeviceInfoQueryServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"getDeviceInfoJni", 0},
         {"getDeviceMACJni", 0},
         {"getDeviceUpTimeJni", 0},
         {"getOSGiInfoJni", 0},
         {"getJVMInfoJni", 0},
         {"getAPIVersionJni", 0},
         {"getCPUOccupancyRateJni", 0},
         {"getRAMOccupancyRateJni", 0},
     }},
    {"DeviceSecretInfoQueryServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"getDeviceManufacturerOUIJni", 0},
         {"getDeviceSerialNumberJni", 0},
         {"getDeviceDefaultWebPasswordJni", 0},
         {"getDeviceDefaultSSID1NameJni", 0},
         {"getDeviceDefaultSSID1PasswordJni", 0},
         {"getDevicePasswordJni", 0},
     }},
    {"UsbServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"usbRegisterJni", 0},
         {"usbUnregisterJni", 0},
         {"usbLockJni", 0},
         {"usbUnlockJni", 0},
         {"usbOpenJni", 0},
         {"usbCloseJni", 0},
         {"usbDataAvailableJni", 0},
         {"usbReadJni", 0},
         {"usbWriteJni", 0},
         {"usbSetSerialJni", 0},
         {"getStorageInfoJni", 0},
     }},
    {"DeviceAccessRightConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setFTPRightJni", 0},
         {"setHTTPRightJni", 0},
         {"setSambaRightJni", 0},
         {"addFTPAccountJni", 0},
         {"deleteFTPAccountJni", 0},
         {"deleteAllFTPAccountJni", 0},
         {"setHTTPUserPasswordJni", 0},
         {"addSambaAccountJni", 0},
         {"deleteSambaAccountJni", 0},
         {"deleteAllSambaAccountJni", 0},
     }},
    {"DeviceAccessRightQueryServiceImp",
     "one right record (about 3 KiB) per query",
     {
         {"getFTPRightInfoJni", 1},
         {"getHTTPRightInfoJni", 0},
         {"getSambaRightInfoJni", 1},
     }},
    {"RegistrationServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setPasswordRegistrationJni", 0},
         {"getPasswordRegistrationInfoJni", 0},
     }},
    {"DeviceRsetServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"resetJni", 0},
     }},
    {"DeviceConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setLedSwitchJni", 0},
     }},
    {"TrafficMonitoringConfigServiceImp",
     "add and delete: the request's destination-address array (32 KiB); the query: the "
     "collected tree text and the reply, 128 KiB each; the switch works on the stack",
     {
         {"addTrafficMonitoringDestAddressJni", 1},
         {"deleteTrafficMonitoringDestAddressJni", 1},
         {"getTrafficMonitoringDestAddressInfoJni", 2},
     }},
    {"TrafficMirrorServiceImp",
     "the rule-list reply (32 KiB); the setters work on the stack",
     {
         {"addMirrorRuleJni", 0},
         {"deleteMirrorRuleJni", 0},
         {"deleteAllMirrorRuleJni", 0},
         {"getMirroRuleInfoJni", 1},
     }},
    {"TrafficForwardServiceImp",
     "the rule-list reply sized to the platform's count; the list's array and every text of "
     "it are freed",
     {
         {"addForwardRuleJni", 0},
         {"deleteForwardRuleJni", 0},
         {"deleteAllForwardRuleJni", 0},
         {"getForwardRuleInfoJni", 1},
     }},
    {"TrafficDetailProcessServiceImp",
     "add: one copy of each of the three joined Java lists handed to the platform; the list "
     "query: the rule-list reply, and the list's array and texts freed (the second lists "
     "stay the platform's)",
     {
         {"addHTTPTrafficProcessRuleJni", 3},
         {"deleteHTTPTrafficProcessRuleJni", 0},
         {"deleteAllHTTPTrafficProcessRuleJni", 0},
         {"getHTTPTrafficProcessRuleInfoJni", 1},
     }},
    {"TrafficQoSServiceImp",
     "nothing of its own; the flow query frees the platform's array and each of its texts",
     {
         {"addTrafficToFlowJni", 0},
         {"deleteTrafficFromFlowJni", 0},
         {"deleteAllTrafficFromFlowJni", 0},
         {"getTrafficInfoByFlowJni", 0},
         {"getStatsByFlowJni", 0},
         {"getSpeedByFlowJni", 0},
         {"setSpeedLimitByFlowJni", 0},
         {"getSpeedLimitByFlowJni", 0},
         {"setDSCPRemarkByFlowJni", 0},
         {"getDSCPRemarkByFlowJni", 0},
     }},
    {"TransferQueryServiceImp",
     "each list query: the reply sized to the platform's count (none when the query fails), "
     "and the platform's array freed",
     {
         {"getVLANBindInfoJni", 1},
         {"getLayer3ForwardingStaticConfigInfoJni", 1},
         {"getLayer3ForwardingCurrentJni", 1},
         {"getIPv6Layer3ForwardingStaticConfigInfoJni", 1},
         {"getIPv6Layer3ForwardingCurrentJni", 1},
         {"getIPTVStatusJni", 0},
     }},
    {"StaticLayer3ForwardingConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"addLayer3ForwardingStaticJni", 0},
         {"addIPv6Layer3ForwardingStaticJni", 0},
         {"deleteLayer3ForwardingStaticJni", 0},
         {"deleteIPv6Layer3ForwardingStaticJni", 0},
     }},
    {"VLANBindConfigServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"setVLANBindJni", 0},
         {"clearVLANBindJni", 0},
     }},
    {"L2TPVPNServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"vpnOnJni", 0},
         {"vpnOffJni", 0},
         {"getVpnStatCmdJni", 0},
         {"getConnectedIpListJni", 0},
         {"addVpnDestIPJni", 0},
         {"deleteVpnDestIPJni", 0},
     }},
    {"VoIPInfoQueryServiceImp",
     "nothing of its own; every node of the platform's line lists is freed",
     {
         {"getPOTSInfoJni", 0},
     }},
    {"VoIPInfoSubscribeServiceImp",
     "nothing: replies, records and buffers on the stack",
     {
         {"subscribeVoIPEventJni", 0},
         {"unSubscribeVoIPEventJni", 0},
     }},
};

// ---------------------------------------------------------------------------------------------
// Neutral arguments, as the JVM soak passes them: plain values of every kind, and for the
// setters the values the default gateway holds or targets that do not exist, so every call
// runs its whole course and leaves the gateway as it was.
const char kHost[] = "00:E0:4C:68:01:A2";

struct Override {
  const char *method;
  std::vector<const char *> values;  // one per parameter; texts, numbers and array elements
};
const Override kOverrides[] = {
    {"getLANHostInfoByInterfaceJni", {"LAN1"}},
    {"getLANHostInfoByClassJni", {"ONLINE"}},
    {"getLANHostSpeedJni", {kHost}},
    {"setGatewayNameJni", {"Lumarest-HGU"}},
    {"addLANHostToBlackListJni", {"3C:5A:B4:10:22:07"}},
    {"addLANHostToTrustListJni", {"F0:18:98:4B:7E:21"}},
    {"addLANHostToStorageBlackListJni", {"9C:B6:D0:0A:44:E3"}},
    {"deleteLANHostFromBlackListJni", {"02:00:00:00:00:99"}},
    {"deleteLANHostFromTrustListJni", {"02:00:00:00:00:99"}},
    {"deleteLANHostFromStorageBlackListJni", {"02:00:00:00:00:99"}},
    {"setSpeedLimitByFlowJni", {"1", "0", "0"}},
    {"setDSCPRemarkByFlowJni", {"1", "46"}},
    {"deleteLayer3ForwardingStaticJni", {"99"}},
    {"deleteIPv6Layer3ForwardingStaticJni", {"99"}},
    {"vpnOffJni", {"203.0.113.250"}},
    {"deleteWLANGuestSSIDJni", {"7"}},
    {"deleteWANIfJni", {"99"}},
    {"setWANIfJni", {"99", "{}"}},
    {"addWANIfJni", {"1", "1", "none of them"}},
    {"vpnOnJni", {"", "user", "secret"}},
    {"addWLANGuestSSIDJni", {"3"}},
    {"addFTPAccountJni", {"anna", "ftp4anna"}},
    {"deleteFTPAccountJni", {"nobody"}},
    {"addSambaAccountJni", {"media", "m3dia-share"}},
    {"deleteSambaAccountJni", {"nobody"}},
    {"deleteForwardRuleJni", {"99"}},
    {"deleteHTTPTrafficProcessRuleJni", {"99"}},
    {"deleteMirrorRuleJni", {"99"}},
};

std::vector<catalogue::Arg> arguments(fakejni::FakeJvm &jvm, const catalogue::Native &n) {
  const Override *own = nullptr;
  for (const Override &o : kOverrides)
    if (strcmp(o.method, n.method) == 0) own = &o;
  std::vector<catalogue::Arg> args(strlen(n.params) + 1);  // never empty
  for (size_t i = 0; n.params[i] != '\0'; ++i) {
    const char *value = own != nullptr && i < own->values.size() ? own->values[i] : nullptr;
    switch (n.params[i]) {
      case 'I': args[i].i = value != nullptr ? atoi(value) : 1; break;
      case 'Z': args[i].z = JNI_TRUE; break;
      case 'B': args[i].b = 1; break;
      case 'S': args[i].s = jvm.str(value != nullptr ? value : "1"); break;
      case 'A': args[i].a = jvm.array_of({value != nullptr ? value : kHost}); break;
      case 'Y': args[i].y = jvm.bytes(std::vector<jbyte>(16)); break;
    }
  }
  return args;
}

// ---------------------------------------------------------------------------------------------
// The fake JVM allocates for the native (pinned copies, released texts) in this executable's
// own code; a JNIEnv of its own pauses the count around those calls.
JNINativeInterface_ g_real;
JNINativeInterface_ g_paused;

const char *JNICALL paused_get_chars(JNIEnv *env, jstring s, jboolean *is_copy) {
  accounting::Pause p;
  return g_real.GetStringUTFChars(env, s, is_copy);
}
void JNICALL paused_release_chars(JNIEnv *env, jstring s, const char *chars) {
  accounting::Pause p;
  g_real.ReleaseStringUTFChars(env, s, chars);
}
jstring JNICALL paused_new_string(JNIEnv *env, const char *utf) {
  accounting::Pause p;
  return g_real.NewStringUTF(env, utf);
}
jbyte *JNICALL paused_pin(JNIEnv *env, jbyteArray a, jboolean *is_copy) {
  accounting::Pause p;
  return g_real.GetByteArrayElements(env, a, is_copy);
}
void JNICALL paused_unpin(JNIEnv *env, jbyteArray a, jbyte *elements, jint mode) {
  accounting::Pause p;
  g_real.ReleaseByteArrayElements(env, a, elements, mode);
}

// The fake JVM's JNIEnv with the count paused in the calls that allocate.
JNIEnv paused_env(fakejni::FakeJvm &jvm) {
  g_real = *jvm.env()->functions;
  g_paused = g_real;
  g_paused.GetStringUTFChars = paused_get_chars;
  g_paused.ReleaseStringUTFChars = paused_release_chars;
  g_paused.NewStringUTF = paused_new_string;
  g_paused.GetByteArrayElements = paused_pin;
  g_paused.ReleaseByteArrayElements = paused_unpin;
  JNIEnv env;
  env.functions = &g_paused;
  return env;
}

struct Run {
  accounting::Tally tally;
  std::string first_call;  // the first platform function called ("" for none)
  std::string reply;
  std::vector<std::string> jni_errors;
};

// Runs `n` on a fresh default gateway; `refused` (if not NULL) answers -1 from then on.
Run run(const catalogue::Native &n, const char *refused) {
  sim_reset();
  EXPECT_EQ(sim_load_default(), 0);
  sim_set_save_path(nullptr);
  if (refused != nullptr) sim_program_result(refused, -1);
  sim_clear_log();

  fakejni::FakeJvm jvm;
  // One native gives a text back under another string of its call, as it always has.
  jvm.release_by_pointer(true);
  std::vector<catalogue::Arg> args = arguments(jvm, n);
  JNIEnv env = paused_env(jvm);

  accounting::open();
  catalogue::Result r = n.call(&env, jvm.self(), args.data());
  Run out;
  out.tally = accounting::close();

  std::string log = sim_log();
  out.first_call = log.substr(0, log.find('('));
  if (r.kind == catalogue::Returns::kText)
    out.reply = r.text == nullptr ? "<null>" : jvm.text(r.text);
  else
    out.reply = std::to_string(r.number);
  out.jni_errors = jvm.errors();
  return out;
}

const ClassBudget *class_budget(const char *cls) {
  for (const ClassBudget &c : kBudgets)
    if (strcmp(c.cls, cls) == 0) return &c;
  return nullptr;
}

const Entry *budget(const catalogue::Native &n) {
  const ClassBudget *c = class_budget(n.cls);
  if (c == nullptr) return nullptr;
  for (const Entry &e : c->natives)
    if (strcmp(e.method, n.method) == 0) return &e;
  return nullptr;
}

std::string sizes(const std::vector<size_t> &v) {
  std::string s;
  for (size_t x : v) s += (s.empty() ? "" : ", ") + std::to_string(x);
  return "[" + s + "]";
}

// Holds one run to its class's design. ALLOC_ACCOUNTING_DEBUG=1 prints what every run did.
void check(const catalogue::Native &n, const Entry &e, const Run &r, const char *path) {
  std::string where = std::string(n.cls) + "." + n.method + " (" + path + ")";
  const accounting::Tally &t = r.tally;
  if (getenv("ALLOC_ACCOUNTING_DEBUG") != nullptr)
    printf("%s: %d allocations %s, %d repair, %d/%d platform blocks freed, first call %s\n",
           where.c_str(), t.allocations, sizes(t.sizes).c_str(), t.repair_allocations,
           t.platform_frees, t.platform_blocks, r.first_call.c_str());
  EXPECT_LE(t.allocations, e.allocations)
      << where << ": allocates more than its class's design; sizes " << sizes(t.sizes);
  EXPECT_LE(t.repair_allocations, t.replies) << where << ": more than one repair copy per reply";
  EXPECT_EQ(t.own_outstanding, 0) << where << ": leaves its own blocks allocated";
  std::string left;
  for (const std::string &b : t.platform_outstanding) left += "\n  " + b;
  EXPECT_TRUE(t.platform_outstanding.empty())
      << where << ": does not free what the platform handed over:" << left;
  EXPECT_EQ(t.foreign_frees, 0) << where << ": frees blocks it neither allocated nor was given";
  EXPECT_TRUE(r.jni_errors.empty()) << where << ": JNI misuse";
}

void account_class(const char *cls) {
  for (size_t k = 0; k < catalogue::kNativeCount; ++k) {
    const catalogue::Native &n = catalogue::kNatives[k];
    if (strcmp(n.cls, cls) != 0) continue;
    const Entry *e = budget(n);
    if (e == nullptr) {
      ADD_FAILURE() << n.cls << "." << n.method << " has no entry in the allocation table";
      continue;
    }
    Run neutral = run(n, nullptr);
    check(n, *e, neutral, "default gateway");
    if (neutral.first_call.empty()) continue;
    Run refused = run(n, neutral.first_call.c_str());
    check(n, *e, refused, (neutral.first_call + " answers -1").c_str());
  }
}

// The table names every native of the catalogue, and nothing else.
TEST(AllocationAccounting, TableNamesEveryNativeAndNoOther) {
  std::set<std::string> natives, table;
  for (size_t k = 0; k < catalogue::kNativeCount; ++k)
    natives.insert(std::string(catalogue::kNatives[k].cls) + "." + catalogue::kNatives[k].method);
  for (const ClassBudget &c : kBudgets) {
    EXPECT_STRNE(c.design, "") << c.cls << ": no design given";
    for (const Entry &e : c.natives) {
      std::string name = std::string(c.cls) + "." + e.method;
      EXPECT_TRUE(table.insert(name).second) << name << " appears twice";
      EXPECT_GE(e.allocations, 0) << name;
    }
  }
  for (const std::string &n : natives) EXPECT_EQ(table.count(n), 1u) << n << ": not in the table";
  for (const std::string &t : table) EXPECT_EQ(natives.count(t), 1u) << t << ": stale entry";
  EXPECT_EQ(natives.size(), catalogue::kNativeCount);
}

// The repair copy of a long reply that is not modified UTF-8 is counted apart from the
// native's own buffers, once per reply, and is gone when the native returns: neighbours whose
// SSIDs hold bytes that are not UTF-8 make a reply of more than 1 KiB.
TEST(AllocationAccounting, RepairCopyOfALongReplyIsCountedApart) {
  sim_reset();
  sim_set_save_path(nullptr);
  for (int i = 1; i <= 24; ++i) {
    std::string section = "wlan neighbour " + std::to_string(i);
    sim_set(section.c_str(), "radio", "0");
    sim_set(section.c_str(), "ssid", "Caf\xE9 \xFF\xFE network");
    sim_set(section.c_str(), "bssid", "3C:84:6A:11:22:33");
  }
  const catalogue::Native *neighbour = nullptr;
  for (size_t k = 0; k < catalogue::kNativeCount; ++k)
    if (strcmp(catalogue::kNatives[k].method, "getWLANNeighborJni") == 0)
      neighbour = &catalogue::kNatives[k];
  ASSERT_NE(neighbour, nullptr);
  fakejni::FakeJvm jvm;
  catalogue::Arg radio;
  radio.s = jvm.str("2.4G");
  JNIEnv env = paused_env(jvm);
  accounting::open();
  catalogue::Result r = neighbour->call(&env, jvm.self(), &radio);
  accounting::Tally t = accounting::close();
  ASSERT_NE(r.text, nullptr);
  EXPECT_GT(jvm.text(r.text).size(), 1024u);
  EXPECT_NE(jvm.text(r.text).find("\xEF\xBF\xBD"), std::string::npos);  // repaired
  EXPECT_EQ(t.replies, 1);
  EXPECT_EQ(t.repair_allocations, 1);
  EXPECT_EQ(t.allocations, 2);  // the neighbour records and the list text, as on any gateway
  EXPECT_EQ(t.own_outstanding, 0);
  EXPECT_EQ(t.foreign_frees, 0);
}

// One test per class, named after it: AllocationAccounting.LANHostsInfoQueryService.
class ClassAccounting : public ::testing::Test {
 public:
  explicit ClassAccounting(const char *cls) : cls_(cls) {}
  void TestBody() override { account_class(cls_); }

 private:
  const char *cls_;
};

const bool kRegistered = [] {
  std::set<std::string> seen;
  for (size_t k = 0; k < catalogue::kNativeCount; ++k) {
    const char *cls = catalogue::kNatives[k].cls;
    if (!seen.insert(cls).second) continue;
    std::string name(cls);
    if (name.size() > 3 && name.compare(name.size() - 3, 3, "Imp") == 0)
      name.resize(name.size() - 3);
    ::testing::RegisterTest("AllocationAccounting", name.c_str(), nullptr, nullptr, __FILE__,
                            __LINE__, [cls]() -> ::testing::Test * {
                              return new ClassAccounting(cls);
                            });
  }
  return true;
}();

}  // namespace
