// The capture tool's promises beyond the round trip: it calls nothing but read functions,
// records what fails or is missing, masks secrets unless told, rewrites customer data the same
// way every time, keeps bytes that are not UTF-8 exactly, and never leaves a folder that loads
// as complete when it could not finish.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>
#include <string>
#include <vector>

#include "capture/interrupt.h"
#include "sim/sim_control.h"
#include "tests/capture/capture_support.h"
#include "tests/capture/generated_gateways.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace capture_tool_test {

using capturetest::capture_into;

bool exists(const std::string &path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

std::string read_file(const std::string &path) { return corpus::contents(path); }

// Every file of a folder, by name, and their text joined.
std::string folder_text(const std::string &dir) {
  std::string all;
  for (const std::string &f : corpus::files(dir)) all += "== " + f.substr(dir.size() + 1) + "\n" + read_file(f);
  return all;
}

class CaptureTool : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    root_ = gateways::temp_folder("tool");
  }
  void TearDown() override {
    gateways::remove_folder(root_);
    BridgeTest::TearDown();
  }
  void load_default() { ASSERT_EQ(sim_load(gateways::default_gateway().c_str()), 0); }
  std::string root_;
};

TEST_F(CaptureTool, CallsOnlyReadFunctions) {
  std::string dir = gateways::temp_folder("tool_crowded");
  gateways::write_crowded(dir);
  ASSERT_EQ(sim_load(dir.c_str()), 0);
  sim_clear_log();
  std::string messages;
  ASSERT_EQ(capture_into(root_ + "/out", false, false, &messages), capture::kCaptured) << messages;
  std::set<std::string> reads = capturetest::capture_reads();
  std::set<std::string> called;
  for (const std::string &fn : capturetest::logged_functions(log())) {
    EXPECT_TRUE(reads.count(fn)) << fn << " is not a read function";
    called.insert(fn);
  }
  // And it called every read function it knows.
  EXPECT_EQ(called, reads);
  gateways::remove_folder(dir);
}

// Every query native asks the platform only what the capture reads (the address checks apart,
// which hold no state): what a native answers from, the capture has.
TEST_F(CaptureTool, ReadsEverythingTheQueryNativesAsk) {
  std::set<std::string> reads = capturetest::capture_reads();
  reads.insert({"checkIPDomainVaild", "sc_check_ip6_format", "strNull"});
  load_default();
  std::vector<capturetest::Call> calls = capturetest::query_calls(jvm(), capturetest::host_macs(8));
  ASSERT_GT(calls.size(), 100u);
  for (const capturetest::Call &c : calls) {
    sim_clear_log();
    capturetest::reply_of(jvm(), c);
    for (const std::string &fn : capturetest::logged_functions(log()))
      EXPECT_TRUE(reads.count(fn)) << c.shown << " calls " << fn << ", which the capture does not read";
  }
}

TEST_F(CaptureTool, FolderHasTheHeaderAndTheSimulatorsLayout) {
  load_default();
  std::string out = root_ + "/gw";
  std::string messages;
  ASSERT_EQ(capture_into(out, false, false, &messages), capture::kCaptured);
  EXPECT_NE(messages.find("captured Lumarest HGU-2000 FW3.4.10, MAC 00:1A:2B:3C:4D:5E into " + out),
            std::string::npos) << messages;
  const char *const kFiles[] = {"address.ini", "capture.ini", "device.ini", "diag.ini", "eth.ini",
                                "forward.ini", "lan.ini", "pon.ini", "qos.ini", "registration.ini",
                                "results.ini", "route.ini", "storage.ini", "traffic.ini", "tree.ini",
                                "usb.ini", "voip.ini", "vpn.ini", "wan.ini", "wlan.ini"};
  std::vector<std::string> expected;
  for (const char *f : kFiles) expected.push_back(out + "/" + f);
  EXPECT_EQ(corpus::files(out), expected);
  std::string header = std::string("# The gateway Lumarest HGU-2000 FW3.4.10, MAC 00:1A:2B:3C:4D:5E, "
                                    "captured at 2026-01-01T00:00:00Z by bundle_sc-capture ") +
                       capture::version() + ".\n";
  for (const std::string &f : expected) EXPECT_EQ(read_file(f).rfind(header, 0), 0u) << f;
  EXPECT_NE(read_file(out + "/capture.ini").find(std::string("\nversion = ") + capture::version() + "\n"),
            std::string::npos);
  std::string capture = read_file(out + "/capture.ini");
  EXPECT_NE(capture.find("\n[capture]\n"), std::string::npos);
  EXPECT_NE(capture.find("\ncomplete = 1\n"), std::string::npos);
  EXPECT_NE(capture.find("\ntime = 2026-01-01T00:00:00Z\n"), std::string::npos);
  EXPECT_NE(capture.find("\nvendor = Lumarest\n"), std::string::npos);
  EXPECT_NE(capture.find("\nsecrets = masked\n"), std::string::npos);
  EXPECT_NE(capture.find("\nmissing = \"\"\n"), std::string::npos);
  // No partial folder is left beside it.
  for (const std::string &f : corpus::files(root_)) EXPECT_EQ(f, out);
}

TEST_F(CaptureTool, SecretsAreMaskedUnlessKept) {
  load_default();
  std::string masked = root_ + "/masked", kept = root_ + "/kept";
  ASSERT_EQ(capture_into(masked, false, false, nullptr), capture::kCaptured);
  ASSERT_EQ(capture_into(kept, true, false, nullptr), capture::kCaptured);
  std::string m = folder_text(masked), k = folder_text(kept);
  // The default gateway's secrets: label credentials, serial number, SSID, account and web
  // passwords.
  const char *const kSecrets[] = {"LMR2000A1B2C3D4", "Lmr@8x2k", "k9w2hq7z", "useradmin",
                                  "iot-2k9w", "ftp4anna", "Bk-2026!", "m3dia-share", "webuser123",
                                  "off/ice\\\"1"};
  for (const char *s : kSecrets) {
    EXPECT_EQ(m.find(s), std::string::npos) << s;
    EXPECT_NE(k.find(s), std::string::npos) << s;
  }
  EXPECT_NE(m.find("\nserial_number = ******\n"), std::string::npos);
  EXPECT_NE(m.find("\npassword = ******\n"), std::string::npos);
  EXPECT_NE(read_file(kept + "/capture.ini").find("\nsecrets = kept\n"), std::string::npos);
  // What is not secret is there in both.
  EXPECT_NE(m.find("\nname = LMR-3C4D5E\n"), std::string::npos);
}

TEST_F(CaptureTool, BytesThatAreNotUtf8AreKeptExactly) {
  load_default();
  std::string out = root_ + "/gw";
  ASSERT_EQ(capture_into(out, true, false, nullptr), capture::kCaptured);
  std::string wlan = read_file(out + "/wlan.ini");
  EXPECT_NE(wlan.find("ssid = Old\\xA0Router\\xFF\n"), std::string::npos) << wlan;
  EXPECT_NE(wlan.find("ssid = Caf\xC3\xA9 \xF0\x9F\x93\xB6 WiFi\n"), std::string::npos);  // UTF-8 as is
  EXPECT_NE(wlan.find("ssid = Joe's \\\"Home\\\" AP\n"), std::string::npos);
  EXPECT_NE(read_file(out + "/lan.ini").find("device_name = Caf\\xE9 NAS\n"), std::string::npos);
  // Loaded back, the bytes are the gateway's.
  ASSERT_EQ(sim_load(out.c_str()), 0);
  EXPECT_STREQ(sim_get("wlan neighbour 4", "ssid"), "Old\xA0Router\xFF");
}

TEST_F(CaptureTool, AnonymizedCaptureRewritesCustomerDataTheSameWayEveryTime) {
  load_default();
  std::string first = root_ + "/a1", second = root_ + "/a2";
  ASSERT_EQ(capture_into(first, false, true, nullptr), capture::kCaptured);
  sim_reset();
  load_default();
  ASSERT_EQ(capture_into(second, false, true, nullptr), capture::kCaptured);
  std::string a = folder_text(first), b = folder_text(second);
  EXPECT_EQ(a, b);
  const char *const kCustomer[] = {"00:E0:4C:68:01:A2", "desktop-study", "Study PC", "Anna's laptop",
                                   "2001:db8:1::2", "LMR-IoT", "CafeNet",
                                   "3C:84:6A:11:22:33", "A4:5E:60:C1:22:9B", "a45e60c1229b",
                                   "Lumarest-HGU", "lmr0755123456"};
  for (const char *s : kCustomer) EXPECT_EQ(a.find(s), std::string::npos) << s;
  EXPECT_NE(read_file(first + "/capture.ini").find("\nanonymized = yes\n"), std::string::npos);
  // One host's MAC is rewritten alike in the host table, the lists and the forward rule.
  ASSERT_EQ(sim_load(first.c_str()), 0);
  std::string mac;
  for (int h = 1; h <= 7 && mac.empty(); ++h) {
    std::string s = "host " + std::to_string(h);
    if (std::string(sim_get(s.c_str(), "dhcp_name")) == "") continue;
    const char *port = sim_get(s.c_str(), "port");
    if (port != nullptr && std::string(port) == "1") mac = sim_get(s.c_str(), "mac");
  }
  ASSERT_EQ(mac.size(), 17u);
  EXPECT_EQ(mac.substr(1, 1).find_first_of("26AEae"), 0u) << mac;  // locally administered
  EXPECT_STREQ(sim_get("forward rule 1", "host_mac"), mac.c_str());
  EXPECT_STREQ(sim_get("tcapi TrafficMirror_Entry0", "hostMAC"), mac.c_str());
}

// An anonymized capture answers every query with the same results and lists of the same
// lengths, its replies as well-formed as the gateway's.
TEST_F(CaptureTool, AnonymizedCaptureAnswersEveryQueryWellFormed) {
  std::string crowded = gateways::temp_folder("tool_anon_crowded");
  gateways::write_crowded(crowded);
  for (const std::string &state : {gateways::default_gateway(), crowded}) {
    sim_reset();
    ASSERT_EQ(sim_load(state.c_str()), 0);
    std::vector<std::string> macs = capturetest::host_macs(4);
    std::vector<capturetest::Call> calls = capturetest::query_calls(jvm(), macs);
    // The same calls about the same hosts, under their new MACs.
    capture::Anonymizer anon(true);
    const char *serial = sim_get("secrets", "serial_number");
    anon.set_key(serial, strlen(serial));
    std::vector<capturetest::Call> anonymized_calls = capturetest::query_calls(jvm(), macs, &anon);
    ASSERT_EQ(calls.size(), anonymized_calls.size());
    std::string out = root_ + "/anon";
    gateways::remove_folder(out);
    ASSERT_EQ(capture_into(out, false, true, nullptr), capture::kCaptured);
    auto shape = [](const std::string &reply) {
      // The result code and the number of objects and list items.
      std::string code;
      size_t at = reply.find("\"Result\":");
      if (at != std::string::npos) code = reply.substr(at, reply.find_first_of(",}", at) - at);
      size_t objects = 0;
      for (char c : reply) objects += c == '{';
      return reply.substr(0, 4) + " " + code + " " + std::to_string(objects);
    };
    std::vector<std::string> original, anonymized;
    sim_reset();
    ASSERT_EQ(sim_load(state.c_str()), 0);
    for (const capturetest::Call &c : calls) original.push_back(capturetest::reply_of(jvm(), c));
    sim_reset();
    ASSERT_EQ(sim_load(out.c_str()), 0);
    for (const capturetest::Call &c : anonymized_calls) anonymized.push_back(capturetest::reply_of(jvm(), c));
    for (size_t i = 0; i < calls.size(); ++i) {
      if (calls[i].shown.find("PASSWORD") != std::string::npos ||
          calls[i].shown.find("Password") != std::string::npos)
        continue;  // masked secrets are texts of another length, nothing else
      EXPECT_EQ(shape(original[i]), shape(anonymized[i])) << calls[i].shown << "\n" << anonymized[i];
    }
    EXPECT_TRUE(jvm().errors().empty());  // every reply valid modified UTF-8
  }
  gateways::remove_folder(crowded);
}

// A gateway whose libraries lack functions: recorded as missing, answered with -1 when
// replayed, and named in the messages.
const char *const kHidden[] = {"brelo_wlanGetNeighbor", "brelo_deviceGetUpTime", "brelo_vpnOn",
                               "tcapi_get"};

void *lookup_without(const char *name, void *) {
  for (const char *h : kHidden)
    if (strcmp(name, h) == 0) return nullptr;
  return capturetest::lookup_linked(name, nullptr);
}

TEST_F(CaptureTool, MissingFunctionsAreRecordedAndAnsweredWithMinusOne) {
  load_default();
  sim_clear_log();
  std::string out = root_ + "/gw";
  std::string messages;
  ASSERT_EQ(capture_into(out, true, false, &messages, lookup_without), capture::kCaptured);
  EXPECT_NE(messages.find("the gateway's libraries lack 4 platform functions (recorded in "
                          "results.ini, answered with -1 when replayed): brelo_deviceGetUpTime "
                          "brelo_wlanGetNeighbor tcapi_get brelo_vpnOn"),
            std::string::npos)
      << messages;
  for (const std::string &fn : capturetest::logged_functions(log()))
    for (const char *h : kHidden) EXPECT_NE(fn, h);
  std::string results = read_file(out + "/results.ini");
  for (const char *h : kHidden) EXPECT_NE(results.find(std::string("\n") + h + " = -1\n"), std::string::npos) << h;
  EXPECT_NE(read_file(out + "/capture.ini").find(
                "\nmissing = brelo_deviceGetUpTime,brelo_wlanGetNeighbor,tcapi_get,brelo_vpnOn\n"),
            std::string::npos);
  // Replayed: the missing functions fail, the others answer as captured.
  ASSERT_EQ(sim_load(out.c_str()), 0);
  char buf[64] = {};
  EXPECT_EQ(tcapi_get("WanInfo_Common", "ValidIFIndex", buf), -1);
  EXPECT_EQ(brelo_deviceGetUpTime(), -1);
  EXPECT_EQ(brelo_deviceGetCPUOccupancyRate(), 12);
  EXPECT_EQ(sim_get("tcapi WanInfo_Common", "ValidIFIndex"), nullptr);
}

TEST_F(CaptureTool, FailuresAreRecordedAsTheSimulatorsResults) {
  load_default();
  sim_program_result("brelo_deviceGetInfo", -5);
  sim_program_result("brelo_wlanGetSSIDInfo", -7);
  sim_program_result("brelo_wanGetIfList", -3);
  std::string out = root_ + "/gw";
  std::string messages;
  ASSERT_EQ(capture_into(out, true, false, &messages), capture::kCaptured);
  EXPECT_NE(messages.find("(3 functions failed on every call: see results.ini)"), std::string::npos) << messages;
  std::string results = read_file(out + "/results.ini");
  EXPECT_NE(results.find("\n# brelo_deviceGetInfo failed on every call (1)\nbrelo_deviceGetInfo = -5\n"),
            std::string::npos) << results;
  EXPECT_NE(results.find("\nbrelo_wlanGetSSIDInfo = -7\n"), std::string::npos);
  EXPECT_NE(results.find("\nbrelo_wanGetIfList = -3\n"), std::string::npos);
  // An SSID that does not exist, a port, an absent tree attribute: the simulator's own -1.
  EXPECT_EQ(results.find("brelo_getLANEthernetInfo"), std::string::npos);
  EXPECT_EQ(results.find("tcapi_get"), std::string::npos);
  ASSERT_EQ(sim_load(out.c_str()), 0);
  DeviceInfoRecord rec;
  memset(&rec, 0, sizeof rec);
  EXPECT_EQ(brelo_deviceGetInfo(&rec), -5);
  EXPECT_STREQ(rec.vendor, "Lumarest");
}

TEST_F(CaptureTool, OutputThatCannotBeWrittenIsReportedAndLeavesNothing) {
  load_default();
  std::string messages;
  // A folder whose parent is a file.
  std::string file = root_ + "/plain-file";
  FILE *f = fopen(file.c_str(), "w");
  ASSERT_NE(f, nullptr);
  fclose(f);
  EXPECT_EQ(capture_into(file + "/gw", false, false, &messages), capture::kOutputFailed);
  EXPECT_EQ(messages, "bundle_sc-capture: cannot create the folder " + file + "/gw.partial-XXXXXX (for " +
                          file + "/gw): Not a directory\n");
  // A folder that exists with something in it.
  std::string full = root_ + "/full";
  mkdir(full.c_str(), 0755);
  FILE *g = fopen((full + "/keep.txt").c_str(), "w");
  ASSERT_NE(g, nullptr);
  fclose(g);
  EXPECT_EQ(capture_into(full, false, false, &messages), capture::kOutputFailed);
  EXPECT_EQ(messages, "bundle_sc-capture: " + full + " already exists: give a new folder (or an empty one)\n");
  EXPECT_EQ(corpus::files(full), std::vector<std::string>{full + "/keep.txt"});
  // An empty folder is taken (with or without a trailing slash).
  std::string empty = root_ + "/empty";
  mkdir(empty.c_str(), 0755);
  EXPECT_EQ(capture_into(empty + "/", false, false, &messages), capture::kCaptured) << messages;
  EXPECT_TRUE(exists(empty + "/capture.ini"));
  // Nothing was left beside them.
  std::vector<std::string> left = corpus::files(root_);
  EXPECT_EQ(left, (std::vector<std::string>{empty, full, file}));
}

// Stopped half-way (here: killed while it reads the neighbours), a capture leaves only its
// temporary folder, which the simulator refuses; a signal it can catch names that folder.
void die_here(const char *, void *ctx) {
  if (ctx != nullptr) raise(SIGTERM);
  _exit(9);
}

TEST_F(CaptureTool, StoppedCaptureNeverLoadsAsComplete) {
  for (bool caught : {false, true}) {
    std::string out = root_ + (caught ? "/term" : "/killed");
    int pipe_fd[2];
    ASSERT_EQ(pipe(pipe_fd), 0);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      dup2(pipe_fd[1], 2);
      close(pipe_fd[0]);
      load_default();
      sim_program_hook("brelo_wlanGetNeighbor", die_here, caught ? &out : nullptr);
      capture::Options o;
      o.out_dir = out.c_str();
      o.lookup = capturetest::lookup_linked;
      o.messages = stderr;
      if (caught) {
        o.on_partial = capture::note_partial;
        capture::watch_interrupts();
      }
      capture::run(o);
      _exit(0);
    }
    close(pipe_fd[1]);
    std::string said;
    char buf[1024];
    ssize_t n;
    while ((n = read(pipe_fd[0], buf, sizeof buf)) > 0) said.append(buf, static_cast<size_t>(n));
    close(pipe_fd[0]);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (caught) {
      EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
      EXPECT_NE(said.find("bundle_sc-capture: stopped before " + out + " was complete: " + out + ".partial-"),
                std::string::npos) << said;
      EXPECT_NE(said.find(" is left incomplete (it does not load; remove it and capture again)\n"),
                std::string::npos) << said;
    } else {
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 9) << status;
    }
    EXPECT_FALSE(exists(out));
    std::string partial;
    for (const std::string &f : corpus::files(root_))
      if (f.rfind(out + ".partial-", 0) == 0) partial = f;
    ASSERT_FALSE(partial.empty());
    EXPECT_NE(read_file(partial + "/capture.ini").find("\ncomplete = 0\n"), std::string::npos);
    EXPECT_TRUE(exists(partial + "/lan.ini"));  // written before it stopped
    sim_reset();
    sim_set("device", "vendor", "before");
    EXPECT_EQ(sim_load(partial.c_str()), -1);
    EXPECT_STREQ(sim_get("device", "vendor"), "before");
  }
}

}  // namespace capture_tool_test
