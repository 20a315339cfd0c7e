// The host side looks up the gateway's flag files in the process's own flag folder.
#include <gtest/gtest.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "common/trace.h"
#include "sim/host/flag_files.h"
#include "tests/test_support.h"

namespace flag_files_test {

std::string folder() { return getenv(SIM_FLAG_DIR_ENV); }

void touch(const std::string &path) { fclose(fopen(path.c_str(), "a")); }

TEST(HostFlagFiles, EveryTestProgramHasAFolderOfItsOwn) {
  const char *dir = getenv(SIM_FLAG_DIR_ENV);
  ASSERT_NE(dir, nullptr);
  struct stat st;
  ASSERT_EQ(stat(dir, &st), 0);
  EXPECT_TRUE(S_ISDIR(st.st_mode));
  EXPECT_NE(std::string(dir), "/tmp");
}

TEST(HostFlagFiles, TheGatewaysFilesMapIntoTheFolder) {
  char buf[4096];
  EXPECT_EQ(std::string(sim_gateway_file("/tmp/brelo_debug", buf, sizeof buf)), folder() + "/brelo_debug");
  EXPECT_EQ(std::string(sim_gateway_file("/tmp/wps_debug", buf, sizeof buf)), folder() + "/wps_debug");
  EXPECT_EQ(std::string(sim_gateway_file("/tmp/usbapi_test", buf, sizeof buf)), folder() + "/usbapi_test");
  EXPECT_EQ(std::string(sim_gateway_file("/tmp/cwmp/traceroutediagnostic_stat", buf, sizeof buf)),
            folder() + "/cwmp/traceroutediagnostic_stat");
  EXPECT_EQ(testsupport::gateway_file("/tmp/brelo_debug"), folder() + "/brelo_debug");
}

TEST(HostFlagFiles, OtherPathsPassUnchanged) {
  char buf[4096];
  const char *other[] = {"/tmp", "/tmp/", "/tmp/brelo_debugx", "/tmp/cwmp", "brelo_debug",
                         "/var/tmp/brelo_debug", "/tmp/./brelo_debug", ""};
  for (const char *path : other) EXPECT_EQ(sim_gateway_file(path, buf, sizeof buf), path) << path;
  EXPECT_EQ(sim_gateway_file(nullptr, buf, sizeof buf), nullptr);
}

TEST(HostFlagFiles, AFolderTooLongForTheBufferLeavesThePath) {
  char small[8];
  EXPECT_STREQ(sim_gateway_file("/tmp/brelo_debug", small, sizeof small), "/tmp/brelo_debug");
  EXPECT_STREQ(sim_gateway_file("/tmp/brelo_debug", small, 0), "/tmp/brelo_debug");
}

TEST(HostFlagFiles, WithoutAFolderTheGatewaysOwnPaths) {
  std::string saved = folder();
  char buf[4096];
  setenv(SIM_FLAG_DIR_ENV, "", 1);
  EXPECT_STREQ(sim_gateway_file("/tmp/brelo_debug", buf, sizeof buf), "/tmp/brelo_debug");
  unsetenv(SIM_FLAG_DIR_ENV);
  EXPECT_STREQ(sim_gateway_file("/tmp/wps_debug", buf, sizeof buf), "/tmp/wps_debug");
  setenv(SIM_FLAG_DIR_ENV, saved.c_str(), 1);
}

TEST(HostFlagFiles, AccessAndUnlinkOfTheGatewaysPathsReachTheFolder) {
  std::string flag = folder() + "/wps_debug";
  EXPECT_NE(access("/tmp/wps_debug", F_OK), 0);
  touch(flag);
  EXPECT_EQ(access("/tmp/wps_debug", F_OK), 0);
  EXPECT_EQ(unlink("/tmp/wps_debug"), 0);
  EXPECT_NE(access(flag.c_str(), F_OK), 0);
  EXPECT_NE(access("/tmp/wps_debug", F_OK), 0);
}

TEST(HostFlagFiles, TheTraceFollowsTheFolder) {
  testsupport::CaptureStdout out;
  bundle::trace_puts("probe", 1, "off");
  {
    testsupport::FlagFile flag("/tmp/brelo_debug", true);
    bundle::trace_puts("probe", 1, "on");
  }
  bundle::trace_puts("probe", 1, "off again");
  EXPECT_EQ(out.finish(), "probe:1:on\n");
}

}  // namespace flag_files_test
