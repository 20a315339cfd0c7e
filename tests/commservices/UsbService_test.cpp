// com.lumarest.smartgateway.commservices.UsbServiceImp
#include <stdlib.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

#include "sim/sim_usb.h"
#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_commservices_UsbServiceImp_##m
extern "C" {
jint NATIVE(usbRegisterJni)(JNIEnv *, jobject, jstring, jint);
jint NATIVE(usbUnregisterJni)(JNIEnv *, jobject, jstring, jint);
jint NATIVE(usbLockJni)(JNIEnv *, jobject, jint);
jint NATIVE(usbUnlockJni)(JNIEnv *, jobject, jint);
jint NATIVE(usbOpenJni)(JNIEnv *, jobject, jint);
jint NATIVE(usbCloseJni)(JNIEnv *, jobject, jint);
jint NATIVE(usbDataAvailableJni)(JNIEnv *, jobject, jint);
jint NATIVE(usbReadJni)(JNIEnv *, jobject, jint, jbyteArray, jint, jint, jint);
jint NATIVE(usbWriteJni)(JNIEnv *, jobject, jint, jbyteArray, jint, jint);
jint NATIVE(usbSetSerialJni)(JNIEnv *, jobject, jint, jint, jint, jint, jint, jbyte, jboolean);
jstring NATIVE(getStorageInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kUsbTestFlag[] = "/tmp/usbapi_test";
const std::string kPrefix = "Java_com_lumarest_smartgateway_commservices_UsbServiceImp_";

int lent_by_jvm(const void *addr, long length, void *ctx) {
  return static_cast<fakejni::FakeJvm *>(ctx)->lent(addr, length) ? 1 : 0;
}

class UsbService : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    test_mode_.reset(new FlagFile(kUsbTestFlag, false));
    // A serial device with a loopback plug and a storage device.
    sim_set("usb", "next_handle", "7");
    sim_set("usb", "max_transfer", "512");
    sim_set("usb device 1", "echo", "1");
    sim_set("usb device 1", "locked", "0");
    sim_set("usb device 2", "echo", "0");
    sim_set("usb device 2", "locked", "0");
    // The simulated platform touches only memory the fake JVM has pinned.
    sim_usb_set_memory_check(lent_by_jvm, &jvm());
  }
  void TearDown() override {
    sim_usb_set_memory_check(nullptr, nullptr);
    test_mode_.reset();
    testsupport::BridgeTest::TearDown();
  }

  void test_mode(bool on) { test_mode_->set(on); }
  jint open(jint dev) { return NATIVE(usbOpenJni)(env(), self(), dev); }
  jint close(jint handle) { return NATIVE(usbCloseJni)(env(), self(), handle); }
  jint read(jint handle, jbyteArray a, jint offset, jint count, jint timeout = 100) {
    return NATIVE(usbReadJni)(env(), self(), handle, a, offset, count, timeout);
  }
  jint write(jint handle, jbyteArray a, jint offset, jint length) {
    return NATIVE(usbWriteJni)(env(), self(), handle, a, offset, length);
  }
  jint reg(jstring name, jint mask) { return NATIVE(usbRegisterJni)(env(), self(), name, mask); }
  std::string state(const char *section, const char *key) {
    const char *v = sim_get(section, key);
    return v != nullptr ? v : "<absent>";
  }

 private:
  std::unique_ptr<FlagFile> test_mode_;
};

// ---- usbRegisterJni ----

TEST_F(UsbService, RegisterWithMask5RegistersBit1ThenBit4) {
  EXPECT_EQ(reg(jvm().str("svc"), 5), 0);
  EXPECT_EQ(log(), "brelo_usbRegister(2, -1, \"svc\", 1)\nbrelo_usbRegister(2, -1, \"svc\", 4)\n");
  EXPECT_EQ(state("usb listener svc", "types"), "5");
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n");
}

TEST_F(UsbService, RegisterWithMask31WalksAllFiveBitsInOrder) {
  EXPECT_EQ(reg(jvm().str("svc"), 31), 0);
  EXPECT_EQ(log(),
            "brelo_usbRegister(2, -1, \"svc\", 1)\nbrelo_usbRegister(2, -1, \"svc\", 2)\n"
            "brelo_usbRegister(2, -1, \"svc\", 4)\nbrelo_usbRegister(2, -1, \"svc\", 8)\n"
            "brelo_usbRegister(2, -1, \"svc\", 16)\n");
  sim_clear_log();
  EXPECT_EQ(reg(jvm().str("svc"), 16), 0);
  EXPECT_EQ(log(), "brelo_usbRegister(2, -1, \"svc\", 16)\n");
}

TEST_F(UsbService, RegisterRefusesMasksOutside1To31WithoutAPlatformCall) {
  for (jint mask : {0, 32, 33, 64, -1, -31, 0x7FFFFFFF, static_cast<jint>(0x80000000)})
    EXPECT_EQ(reg(jvm().str("svc"), mask), -1) << mask;
  EXPECT_EQ(log(), "");
  // The name was still taken and given back each time.
  EXPECT_EQ(jvm().acquired(), 8);
  EXPECT_EQ(jvm().released(), 8);
}

int g_register_calls = 0;
void fail_second_register(const char *, void *) {
  if (++g_register_calls == 2) sim_program_result("brelo_usbRegister", 7);
}

TEST_F(UsbService, RegisterStopsAtTheFirstRefusalAndReturnsItAsItIs) {
  g_register_calls = 0;
  sim_program_hook("brelo_usbRegister", fail_second_register, nullptr);
  EXPECT_EQ(reg(jvm().str("svc"), 3), 7);
  EXPECT_EQ(log(), "brelo_usbRegister(2, -1, \"svc\", 1)\nbrelo_usbRegister(2, -1, \"svc\", 2)\n");
  EXPECT_EQ(state("usb listener svc", "types"), "1");  // bit 1 stays registered
  EXPECT_EQ(jvm().released(), 1);
}

TEST_F(UsbService, RegisterReturnsANegativeRefusalToo) {
  sim_program_result("brelo_usbRegister", -9);
  EXPECT_EQ(reg(jvm().str("svc"), 12), -9);
  EXPECT_EQ(log(), "brelo_usbRegister(2, -1, \"svc\", 4)\n");
}

TEST_F(UsbService, RegisterWithoutANameIsMinusOneWithoutAPlatformCall) {
  EXPECT_EQ(reg(nullptr, 5), -1);
  EXPECT_TRUE(jvm().events().empty());
  EXPECT_EQ(reg(jvm().failing_str(), 5), -1);
  EXPECT_EQ(jvm().null_releases(), 1);  // the failed copy is given back with its NULL
  EXPECT_EQ(log(), "");
}

TEST_F(UsbService, RegisterTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  reg(jvm().str("svc"), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "usbRegisterJni:N:usbRegisterJni: return code = -1   leave============>\n");
}

// ---- usbUnregisterJni ----

TEST_F(UsbService, UnregisterNormalisesThePlatformResultAndIgnoresTheMask) {
  reg(jvm().str("svc"), 1);
  sim_clear_log();
  EXPECT_EQ(NATIVE(usbUnregisterJni)(env(), self(), jvm().str("svc"), 12345), 0);
  EXPECT_EQ(state("usb listener svc", "types"), "<absent>");
  EXPECT_EQ(NATIVE(usbUnregisterJni)(env(), self(), jvm().str("svc"), 0), -1);  // not registered
  sim_program_result("brelo_usbUnregister", 3);
  EXPECT_EQ(NATIVE(usbUnregisterJni)(env(), self(), jvm().str("x"), 1), -1);
  EXPECT_EQ(log(),
            "brelo_usbUnregister(2, -1, \"svc\")\nbrelo_usbUnregister(2, -1, \"svc\")\n"
            "brelo_usbUnregister(2, -1, \"x\")\n");
}

TEST_F(UsbService, UnregisterWithoutANameIsMinusOneWithoutAPlatformCall) {
  EXPECT_EQ(NATIVE(usbUnregisterJni)(env(), self(), nullptr, 1), -1);
  EXPECT_EQ(NATIVE(usbUnregisterJni)(env(), self(), jvm().failing_str(), 1), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 1);
}

// ---- usbLockJni, usbUnlockJni ----

TEST_F(UsbService, LockAndUnlockPassTheThreeLeadingConstantsAndNormalise) {
  EXPECT_EQ(NATIVE(usbLockJni)(env(), self(), 1), 0);
  EXPECT_EQ(state("usb device 1", "locked"), "1");
  EXPECT_EQ(NATIVE(usbLockJni)(env(), self(), 1), -1);  // already locked
  EXPECT_EQ(NATIVE(usbUnlockJni)(env(), self(), 1), 0);
  EXPECT_EQ(state("usb device 1", "locked"), "0");
  EXPECT_EQ(NATIVE(usbUnlockJni)(env(), self(), 99), -1);
  sim_program_result("brelo_usbLock", 5);
  EXPECT_EQ(NATIVE(usbLockJni)(env(), self(), 2), -1);
  EXPECT_EQ(log(),
            "brelo_usbLock(2, -1, 0, 1)\nbrelo_usbLock(2, -1, 0, 1)\nbrelo_usbUnlock(2, -1, 0, 1)\n"
            "brelo_usbUnlock(2, -1, 0, 99)\nbrelo_usbLock(2, -1, 0, 2)\n");
}

TEST_F(UsbService, LockIgnoresTheTestMode) {
  open(2);
  test_mode(true);
  sim_clear_log();
  NATIVE(usbLockJni)(env(), self(), 1);
  NATIVE(usbUnlockJni)(env(), self(), 1);
  EXPECT_EQ(log(), "brelo_usbLock(2, -1, 0, 1)\nbrelo_usbUnlock(2, -1, 0, 1)\n");
}

TEST_F(UsbService, LockTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(usbLockJni)(env(), self(), 1);
  NATIVE(usbUnlockJni)(env(), self(), 42);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "usbLockJni:N:usbLockJni: return code = 0   leave============>\n" + kPrefix +
                "usbUnlockJni:N:usbUnlockJni: return code = -1   leave============>\n");
}

// ---- usbOpenJni, usbCloseJni and the last opened handle ----

TEST_F(UsbService, OpenReturnsTheHandleThePlatformWrote) {
  EXPECT_EQ(open(1), 7);
  EXPECT_EQ(open(1), 8);
  EXPECT_EQ(state("usb handle 8", "device"), "1");
  EXPECT_EQ(log(), "brelo_usbOpen(2, -1, 0, 1)\nbrelo_usbOpen(2, -1, 0, 1)\n");
}

TEST_F(UsbService, OpenIgnoresThePlatformsResultCode) {
  sim_program_result("brelo_usbOpen", 3);
  EXPECT_EQ(open(1), 7);
}

TEST_F(UsbService, OpenOfADeviceThatCannotOpenIsMinusOneAndBecomesTheLastHandle) {
  EXPECT_EQ(open(1), 7);
  EXPECT_EQ(open(99), -1);
  test_mode(true);
  sim_clear_log();
  EXPECT_EQ(close(7), -1);
  EXPECT_EQ(log(), "brelo_usbClose(-1)\n");
}

TEST_F(UsbService, CloseInTestModeClosesTheLastOpenedHandle) {
  EXPECT_EQ(open(2), 7);
  EXPECT_EQ(open(1), 8);
  test_mode(true);
  sim_clear_log();
  EXPECT_EQ(close(12345), 0);
  EXPECT_EQ(log(), "brelo_usbClose(8)\n");
  EXPECT_EQ(state("usb handle 8", "device"), "<absent>");
  EXPECT_EQ(state("usb handle 7", "device"), "2");
}

TEST_F(UsbService, CloseWithoutTheTestModeClosesTheHandleGiven) {
  open(2);
  open(1);
  sim_clear_log();
  EXPECT_EQ(close(7), 0);
  EXPECT_EQ(close(7), -1);
  sim_program_result("brelo_usbClose", 2);
  EXPECT_EQ(close(8), -1);
  EXPECT_EQ(log(), "brelo_usbClose(7)\nbrelo_usbClose(7)\nbrelo_usbClose(8)\n");
}

TEST_F(UsbService, TestModeIsDecidedAfreshOnEveryCall) {
  open(1);  // 7
  open(2);  // 8
  sim_clear_log();
  NATIVE(usbDataAvailableJni)(env(), self(), 7);
  test_mode(true);
  NATIVE(usbDataAvailableJni)(env(), self(), 7);
  test_mode(false);
  NATIVE(usbDataAvailableJni)(env(), self(), 7);
  EXPECT_EQ(log(),
            "brelo_usbDataAvailable(2, -1, 0, 7)\nbrelo_usbDataAvailable(2, -1, 0, 8)\n"
            "brelo_usbDataAvailable(2, -1, 0, 7)\n");
}

TEST_F(UsbService, EveryNativeThatTakesAHandleUsesTheLastOneInTestMode) {
  open(2);  // 7
  open(1);  // 8
  test_mode(true);
  sim_clear_log();
  jbyteArray a = jvm().bytes_of("hi");
  NATIVE(usbDataAvailableJni)(env(), self(), 1);
  write(2, a, 0, 2);
  read(3, a, 0, 2, 5);
  NATIVE(usbSetSerialJni)(env(), self(), 4, 9600, 8, 1, 0, 0, 0);
  close(5);
  EXPECT_EQ(log(),
            "brelo_usbDataAvailable(2, -1, 0, 8)\nbrelo_usbWrite(2, -1, 0, 8, 2)\n"
            "brelo_usbRead(2, -1, 0, 8, 2, 5)\nbrelo_usbSetSerial(2, -1, 0, 8, {9600, 8, 1, 0, 0, 0})\n"
            "brelo_usbClose(8)\n");
}

TEST_F(UsbService, OpenAndCloseTrace) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  open(1);
  close(7);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "usbOpenJni:N:usbOpenJni: return code = 7   leave============>\n" + kPrefix +
                "usbCloseJni:N:usbCloseJni: return code = 0   leave============>\n");
}

// Java threads open and close at once: every handle the test mode reads is one that an open
// stored, and the last open wins once the threads are done.
TEST_F(UsbService, OpensAndClosesFromManyThreadsSeeOnlyIssuedHandles) {
  sim_set("usb", "next_handle", "1000");
  test_mode(true);
  const int kThreads = 8, kRounds = 150;
  std::vector<std::vector<jint>> opened(kThreads);
  std::vector<std::thread> threads;
  JNIEnv *e = env();
  jobject me = self();
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kRounds; ++i) {
        opened[t].push_back(NATIVE(usbOpenJni)(e, me, 1 + (i % 2)));
        NATIVE(usbCloseJni)(e, me, -77);
      }
    });
  }
  for (auto &th : threads) th.join();

  std::set<int> issued;
  for (auto &v : opened)
    for (jint h : v) {
      EXPECT_GE(h, 1000);
      EXPECT_LT(h, 1000 + kThreads * kRounds);
      issued.insert(h);
    }
  EXPECT_EQ(issued.size(), static_cast<size_t>(kThreads * kRounds));  // all distinct
  // Every close went to a handle some open stored (never the -77 passed, never a torn value).
  std::string calls = log();
  int closes = 0;
  for (size_t pos = calls.find("brelo_usbClose("); pos != std::string::npos;
       pos = calls.find("brelo_usbClose(", pos + 1)) {
    int h = atoi(calls.c_str() + pos + strlen("brelo_usbClose("));
    EXPECT_EQ(issued.count(h), 1u) << h;
    ++closes;
  }
  EXPECT_EQ(closes, kThreads * kRounds);
  // Once the threads are done, the next open is the last one.
  jint last = open(1);
  sim_clear_log();
  EXPECT_EQ(close(-77), 0);
  EXPECT_EQ(log(), "brelo_usbClose(" + std::to_string(last) + ")\n");
}

TEST_F(UsbService, ConcurrentOpensWithoutTestModeCloseTheirOwnHandles) {
  const int kThreads = 6, kRounds = 100;
  std::vector<std::thread> threads;
  std::vector<int> failures(kThreads, 0);
  JNIEnv *e = env();
  jobject me = self();
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kRounds; ++i) {
        jint h = NATIVE(usbOpenJni)(e, me, 1);
        if (h < 0 || NATIVE(usbCloseJni)(e, me, h) != 0) ++failures[t];
      }
    });
  }
  for (auto &th : threads) th.join();
  for (int f : failures) EXPECT_EQ(f, 0);
  EXPECT_EQ(sim_log_count("brelo_usbClose"), kThreads * kRounds);
  EXPECT_TRUE(sim_get("usb handle 7", "device") == nullptr);
}

// ---- usbDataAvailableJni ----

TEST_F(UsbService, DataAvailableInvertsTheSense) {
  jint h = open(1);
  EXPECT_EQ(NATIVE(usbDataAvailableJni)(env(), self(), h), -1);  // nothing waiting
  sim_set("usb device 1", "pending", "414243");
  EXPECT_EQ(NATIVE(usbDataAvailableJni)(env(), self(), h), 1);
  sim_program_result("brelo_usbDataAvailable", -5);
  EXPECT_EQ(NATIVE(usbDataAvailableJni)(env(), self(), h), 1);
  sim_program_result("brelo_usbDataAvailable", 0);
  EXPECT_EQ(NATIVE(usbDataAvailableJni)(env(), self(), h), -1);
}

// ---- usbReadJni, usbWriteJni ----

TEST_F(UsbService, WrittenBytesComeBackFromTheLoopbackDevice) {
  jint h = open(1);
  jbyteArray out = jvm().bytes_of("hello");
  EXPECT_EQ(write(h, out, 0, 5), 5);
  EXPECT_EQ(state("usb device 1", "pending"), "68656c6c6f");
  EXPECT_EQ(state("usb device 1", "written"), "68656c6c6f");
  EXPECT_EQ(NATIVE(usbDataAvailableJni)(env(), self(), h), 1);

  jbyteArray in = jvm().bytes_of(std::string(10, '.'));
  EXPECT_EQ(read(h, in, 2, 8, 250), 5);
  EXPECT_EQ(jvm().contents(in), "..hello...");
  EXPECT_EQ(state("usb device 1", "pending"), "");
  EXPECT_EQ(log(),
            "brelo_usbOpen(2, -1, 0, 1)\nbrelo_usbWrite(2, -1, 0, 7, 5)\n"
            "brelo_usbDataAvailable(2, -1, 0, 7)\nbrelo_usbRead(2, -1, 0, 7, 8, 250)\n");
  EXPECT_EQ(jvm().release_modes(), (std::vector<jint>{0, 0}));
  EXPECT_EQ(jvm().pins(), 2);
  EXPECT_EQ(jvm().pin_releases(), 2);
}

TEST_F(UsbService, ReadPinsCallsAndReleasesWithModeZero) {
  jint h = open(1);
  sim_set("usb device 1", "pending", "0102");
  jbyteArray in = jvm().bytes_of("abcd");
  EXPECT_EQ(read(h, in, 1, 2), 2);
  EXPECT_EQ(jvm().contents(in), std::string("a\x01\x02" "d"));
  EXPECT_EQ(jvm().events_text(), "GetByteArrayElements(b1)\nReleaseByteArrayElements(b1,0)\n");
}

TEST_F(UsbService, ReadReturnsThePlatformsResultUnchanged) {
  jint h = open(1);
  jbyteArray in = jvm().bytes_of("abcd");
  EXPECT_EQ(read(h, in, 0, 4), 0);  // nothing waiting
  sim_program_result("brelo_usbRead", 42);
  EXPECT_EQ(read(h, in, 0, 4), 42);
  sim_program_result("brelo_usbRead", -3);
  EXPECT_EQ(read(h, in, 0, 4), -3);
  EXPECT_EQ(read(99, in, 0, 4), -3);
  EXPECT_EQ(jvm().pinned(), 0);
}

TEST_F(UsbService, ReadOfAHandleNotOpenFails) {
  EXPECT_EQ(read(99, jvm().bytes_of("abcd"), 0, 4), -1);
  EXPECT_EQ(jvm().release_modes(), (std::vector<jint>{0}));
}

TEST_F(UsbService, ReadIntoANullArrayIsMinusOneWithoutAnyJniOrPlatformCall) {
  jint h = open(1);
  sim_clear_log();
  EXPECT_EQ(read(h, nullptr, 0, 4), -1);
  EXPECT_TRUE(jvm().events().empty());
  EXPECT_EQ(log(), "");
}

TEST_F(UsbService, ReadIntoAnArrayThatCannotBePinnedIsMinusOne) {
  jint h = open(1);
  sim_clear_log();
  EXPECT_EQ(read(h, jvm().failing_bytes("abcd"), 0, 4), -1);
  EXPECT_EQ(jvm().events_text(), "GetByteArrayElements(b1)\n");  // nothing to release
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
  jvm().clear_exception();
  EXPECT_EQ(log(), "");
}

// Offsets and counts are handed to the platform as Java gave them; the simulated platform
// refuses those outside the pinned array and touches nothing.
TEST_F(UsbService, ReadWithOffsetOrCountOutsideTheArrayIsPassedOnAndRefused) {
  jint h = open(1);
  sim_set("usb device 1", "pending", "41424344454647484950");
  sim_clear_log();
  jbyteArray in = jvm().bytes_of("abcdefgh");
  struct Case { jint offset, count; };
  for (Case c : {Case{8, 1}, Case{100, 4}, Case{-1, 2}, Case{-100000, 4}, Case{0, 9},
                 Case{4, 5}, Case{0, -1}, Case{0x7FFFFFFF, 1}, Case{static_cast<jint>(0x80000000), 1},
                 Case{2, 0x7FFFFFFF}})
    EXPECT_EQ(read(h, in, c.offset, c.count), -1) << c.offset << "," << c.count;
  EXPECT_EQ(jvm().contents(in), "abcdefgh");
  EXPECT_EQ(state("usb device 1", "pending"), "41424344454647484950");
  EXPECT_EQ(sim_log_count("brelo_usbRead"), 10);
  EXPECT_NE(log().find("brelo_usbRead(2, -1, 0, 7, 4, 100)"), std::string::npos);
  EXPECT_EQ(jvm().pin_releases(), 10);
  // The last byte and a zero count at the very end are the array's own.
  EXPECT_EQ(read(h, in, 7, 1), 1);
  EXPECT_EQ(read(h, in, 8, 0), 0);
  EXPECT_EQ(jvm().contents(in), "abcdefgA");
}

TEST_F(UsbService, ReadTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  read(99, nullptr, 0, 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "usbReadJni:N:usbReadJni: return code = -1   leave============>\n");
}

TEST_F(UsbService, WriteCopiesTheRegionToTheStartAndSendsIt) {
  jint h = open(1);
  sim_clear_log();
  jbyteArray out = jvm().bytes_of("hello");
  EXPECT_EQ(write(h, out, 0, 5), 5);
  EXPECT_EQ(jvm().events_text(),
            "GetByteArrayElements(b1)\nGetByteArrayRegion(b1,0,5)\n"
            "ReleaseByteArrayElements(b1,0)\n");
  EXPECT_EQ(jvm().contents(out), "hello");
  EXPECT_EQ(log(), "brelo_usbWrite(2, -1, 0, 7, 5)\n");
}

TEST_F(UsbService, WriteFromAnOffsetOverwritesTheStartOfTheJavaArray) {
  jint h = open(1);
  jbyteArray out = jvm().bytes_of("ABCDEFGHIJ");
  EXPECT_EQ(write(h, out, 3, 4), 4);
  EXPECT_EQ(state("usb device 1", "written"), "44454647");  // DEFG was sent
  EXPECT_EQ(jvm().contents(out), "DEFGEFGHIJ");             // and copied back over ABCD
}

TEST_F(UsbService, WriteReturnsThePlatformsResultUnchanged) {
  jint h = open(2);
  jbyteArray out = jvm().bytes_of("abc");
  EXPECT_EQ(write(h, out, 0, 3), 3);
  EXPECT_EQ(state("usb device 2", "pending"), "<absent>");  // not a loopback device
  sim_program_result("brelo_usbWrite", -7);
  EXPECT_EQ(write(h, out, 0, 3), -7);
  sim_program_result("brelo_usbWrite", 1000);
  EXPECT_EQ(write(h, out, 0, 0), 1000);
}

TEST_F(UsbService, WriteOfANullArrayIsMinusOneWithoutAnyJniOrPlatformCall) {
  jint h = open(1);
  sim_clear_log();
  EXPECT_EQ(write(h, nullptr, 0, 4), -1);
  EXPECT_TRUE(jvm().events().empty());
  EXPECT_EQ(log(), "");
}

TEST_F(UsbService, WriteOfAnArrayThatCannotBePinnedMakesNoFurtherCall) {
  jint h = open(1);
  sim_clear_log();
  EXPECT_EQ(write(h, jvm().failing_bytes("abcd"), 0, 4), -1);
  EXPECT_EQ(jvm().events_text(), "GetByteArrayElements(b1)\n");
  jvm().clear_exception();
  EXPECT_EQ(log(), "");
}

// The JVM refuses a region outside the array (nothing copied, an exception pending); the
// platform is still handed the pinned elements and the length, and only the release follows.
TEST_F(UsbService, WriteWithARegionOutsideTheArrayReleasesAndLeavesTheJvmsException) {
  jint h = open(1);
  sim_clear_log();
  jbyteArray out = jvm().bytes_of("ABCDEFGHIJ");
  EXPECT_EQ(write(h, out, 8, 5), 5);  // the first five pinned bytes, unchanged, are sent
  EXPECT_EQ(jvm().events_text(),
            "GetByteArrayElements(b1)\nGetByteArrayRegion(b1,8,5)\n"
            "ReleaseByteArrayElements(b1,0)\n");
  EXPECT_EQ(jvm().pending_exception(), "java/lang/ArrayIndexOutOfBoundsException");
  jvm().clear_exception();
  EXPECT_EQ(state("usb device 1", "written"), "4142434445");
  EXPECT_EQ(jvm().contents(out), "ABCDEFGHIJ");

  // Lengths beyond the pinned elements, or negative, reach the platform, which refuses them.
  for (jint length : {11, 1000, -1, static_cast<jint>(0x80000000)}) {
    EXPECT_EQ(write(h, out, 0, length), -1) << length;
    EXPECT_EQ(jvm().pending_exception(), "java/lang/ArrayIndexOutOfBoundsException");
    jvm().clear_exception();
  }
  for (jint offset : {-1, 11, static_cast<jint>(0x80000000)}) {
    write(h, out, offset, 2);
    EXPECT_EQ(jvm().pending_exception(), "java/lang/ArrayIndexOutOfBoundsException") << offset;
    jvm().clear_exception();
  }
  EXPECT_EQ(jvm().contents(out), "ABCDEFGHIJ");
  EXPECT_EQ(sim_log_count("brelo_usbWrite"), 8);
  EXPECT_EQ(jvm().pinned(), 0);
}

TEST_F(UsbService, WriteTracesItsResult) {
  jint h = open(1);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  write(h, jvm().bytes_of("xy"), 0, 2);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "usbWriteJni:N:usbWriteJni: return code = 2   leave============>\n");
}

// ---- usbSetSerialJni ----

TEST_F(UsbService, SetSerialFillsTheSettingsRecord) {
  jint h = open(1);
  sim_clear_log();
  EXPECT_EQ(NATIVE(usbSetSerialJni)(env(), self(), h, 115200, 8, 1, -1, static_cast<jbyte>(-1), 1), 0);
  EXPECT_EQ(state("usb device 1", "serial"), "115200, 8, 1, 4294967295, 255, 1");
  EXPECT_EQ(NATIVE(usbSetSerialJni)(env(), self(), h, 9600, 7, 2, 0, 0x12, 2), 0);  // 2 is not 1
  EXPECT_EQ(NATIVE(usbSetSerialJni)(env(), self(), h, 0, 0, 0, 0, 0, 0), 0);
  EXPECT_EQ(NATIVE(usbSetSerialJni)(env(), self(), h, 1, 2, 3, 4, static_cast<jbyte>(0x80), 0xFF), 0);
  EXPECT_EQ(log(),
            "brelo_usbSetSerial(2, -1, 0, 7, {115200, 8, 1, 4294967295, 255, 1})\n"
            "brelo_usbSetSerial(2, -1, 0, 7, {9600, 7, 2, 0, 18, 0})\n"
            "brelo_usbSetSerial(2, -1, 0, 7, {0, 0, 0, 0, 0, 0})\n"
            "brelo_usbSetSerial(2, -1, 0, 7, {1, 2, 3, 4, 128, 0})\n");
}

TEST_F(UsbService, SetSerialNormalisesThePlatformResult) {
  EXPECT_EQ(NATIVE(usbSetSerialJni)(env(), self(), 99, 9600, 8, 1, 0, 0, 0), -1);  // not open
  jint h = open(1);
  sim_program_result("brelo_usbSetSerial", 6);
  EXPECT_EQ(NATIVE(usbSetSerialJni)(env(), self(), h, 9600, 8, 1, 0, 0, 0), -1);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(usbSetSerialJni)(env(), self(), h, 9600, 8, 1, 0, 0, 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "usbSetSerialJni:N:usbSetSerialJni: return code = -1   leave============>\n");
}

// ---- getStorageInfoJni ----

TEST_F(UsbService, StorageListsEveryVolumeWithTheSizesAsNumbers) {
  sim_set("storage 1", "path", "/mnt/usb1_1");
  sim_set("storage 1", "total", "15512064");
  sim_set("storage 1", "free", "9830400");
  sim_set("storage 2", "path", "/mnt/usb2_1");
  sim_set("storage 2", "total", "61865984");
  sim_set("storage 2", "free", "0");
  EXPECT_EQ(text(NATIVE(getStorageInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"storagePath\":\"/mnt/usb1_1\",\"totalStorage\":15512064,"
            "\"validStorage\":9830400},{\"storagePath\":\"/mnt/usb2_1\",\"totalStorage\":61865984,"
            "\"validStorage\":0}]}");
  EXPECT_EQ(log(), "brelo_getStorageInfo()\n");
}

TEST_F(UsbService, StorageWithoutVolumesIsAnEmptyList) {
  EXPECT_EQ(text(NATIVE(getStorageInfoJni)(env(), self())), "{\"Result\":0,\"List\":[]}");
}

TEST_F(UsbService, StorageFailureIsMinusOneWithAnEmptyList) {
  sim_set("storage 1", "path", "/mnt/usb1_1");
  sim_program_result("brelo_getStorageInfo", 1);
  EXPECT_EQ(text(NATIVE(getStorageInfoJni)(env(), self())), "{\"Result\":-1,\"List\":[]}");
}

TEST_F(UsbService, StorageFieldsFilledToTheBrimStayWithinTheirFields) {
  sim_set("storage 1", "path", std::string(600, 'p').c_str());
  sim_set("storage 1", "total", std::string(40, '1').c_str());
  sim_set("storage 1", "free", std::string(40, '2').c_str());
  EXPECT_EQ(text(NATIVE(getStorageInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"storagePath\":\"" + std::string(511, 'p') +
                "\",\"totalStorage\":" + std::string(31, '1') + ",\"validStorage\":" +
                std::string(31, '2') + "}]}");
}

TEST_F(UsbService, StorageReplyIsCutAt4095Characters) {
  for (int i = 1; i <= 12; ++i) {
    std::string s = "storage " + std::to_string(i);
    sim_set(s.c_str(), "path", ("/mnt/" + std::string(400, 'a' + i)).c_str());
    sim_set(s.c_str(), "total", "1");
    sim_set(s.c_str(), "free", "1");
  }
  std::string reply = text(NATIVE(getStorageInfoJni)(env(), self()));
  if (bundle::hardened_profile()) {  // a cut reply: the native's failure reply instead
    EXPECT_EQ(reply, "{\"Result\":-1,\"List\":[]}");
    return;
  }
  EXPECT_EQ(reply.size(), 4095u);
  EXPECT_EQ(reply.rfind("{\"Result\":0,\"List\":[{\"storagePath\":\"/mnt/bbbb", 0), 0u);
}

TEST_F(UsbService, StorageTracesTheReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getStorageInfoJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "getStorageInfoJni:N:getStorageInfoJni: return json = "
                      "{\"Result\":0,\"List\":[]}   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
