// Shared test fixtures: a fresh fake JVM and an empty simulated gateway for every test, the
// trace flag file under the test's control, and standard output captured.
#ifndef TESTS_TEST_SUPPORT_H
#define TESTS_TEST_SUPPORT_H

#include <gtest/gtest.h>
#include <jni.h>

#include <memory>
#include <string>

#include "sim/sim_control.h"
#include "tests/fake_jni.h"

namespace testsupport {

// Where the gateway's file `path` ("/tmp/brelo_debug", ...) is for this test program: in its own
// flag folder (tests/flag_folder.cpp), where the host side makes the library look.
std::string gateway_file(const char *path);

// Creates or removes one of the gateway's flag files (named by its gateway path) for the
// duration of a scope and restores what was there.
class FlagFile {
 public:
  FlagFile(const char *path, bool present);
  ~FlagFile();
  void set(bool present);
  FlagFile(const FlagFile &) = delete;
  FlagFile &operator=(const FlagFile &) = delete;

 private:
  std::string path_;
  bool existed_;
};

// Captures what is written to standard output (file descriptor 1) while it is alive.
class CaptureStdout {
 public:
  CaptureStdout();
  ~CaptureStdout();
  // Stops capturing (once) and returns everything written.
  std::string finish();

 private:
  int saved_fd_ = -1;
  FILE *file_ = nullptr;
  std::string text_;
  bool done_ = false;
};

// Replaces every run of digits between the first two colons of each trace line with "N", so
// trace lines can be compared without their fixed line numbers:
//   "Java_x:123:enter\n" -> "Java_x:N:enter\n"
std::string mask_line_numbers(const std::string &trace);

// Base fixture: an empty simulated gateway (sim_reset), no trace flag file, a fresh fake JVM.
// TearDown checks that no Java text was left borrowed and that the JVM saw no misuse.
class BridgeTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  JNIEnv *env() { return jvm_->env(); }
  jobject self() { return jvm_->self(); }
  fakejni::FakeJvm &jvm() { return *jvm_; }
  // The text of a reply string.
  std::string text(jstring s) { return jvm_->text(s); }
  std::string log() { return sim_log(); }
  // Set when a test leaves a Java text unreleased on purpose.
  int expected_outstanding_ = 0;

 private:
  std::unique_ptr<fakejni::FakeJvm> jvm_;
  std::unique_ptr<FlagFile> trace_flag_;
};

}  // namespace testsupport

#define TRACE_FLAG_PATH "/tmp/brelo_debug"

#endif
