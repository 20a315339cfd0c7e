// com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp
#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_##m
extern "C" {
jstring NATIVE(getDeviceInfoJni)(JNIEnv *, jobject);
jstring NATIVE(getDeviceMACJni)(JNIEnv *, jobject);
jint NATIVE(getDeviceUpTimeJni)(JNIEnv *, jobject);
jstring NATIVE(getOSGiInfoJni)(JNIEnv *, jobject);
jstring NATIVE(getJVMInfoJni)(JNIEnv *, jobject);
jstring NATIVE(getAPIVersionJni)(JNIEnv *, jobject);
jint NATIVE(getCPUOccupancyRateJni)(JNIEnv *, jobject);
jint NATIVE(getRAMOccupancyRateJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kInfoName[] =
    "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceInfoJni";

class DeviceInfoQueryService : public testsupport::BridgeTest {
 protected:
  void set_identity() {
    sim_set("device", "vendor", "Lumarest");
    sim_set("device", "product_class", "HGU-2000");
    sim_set("device", "hardware_version", "HV1.2");
    sim_set("device", "firmware_version", "FW3.4.10");
    sim_set("device", "flash_size", "256");
    sim_set("device", "ram_size", "512");
    sim_set("device", "main_chip_class", "MIPS 1004Kc");
    sim_set("device", "nfc", "NO");
  }
};

const char kIdentityReply[] =
    "{\"Result\":0,\"Vendor\":\"Lumarest\",\"ProductCLass\":\"HGU-2000\",\"HardwareVer\":\"HV1.2\","
    "\"FirmwareVer\":\"FW3.4.10\",\"FlashSize\":256,\"RamSize\":512,\"MainChipClass\":\"MIPS "
    "1004Kc\",\"NFC\":\"NO\"}";

TEST_F(DeviceInfoQueryService, InfoFormatsTheIdentityRecord) {
  set_identity();
  EXPECT_EQ(text(NATIVE(getDeviceInfoJni)(env(), self())), kIdentityReply);
  EXPECT_EQ(log(), "brelo_deviceGetInfo()\n");
}

TEST_F(DeviceInfoQueryService, InfoOfAPlatformThatWritesNothingIsStillResultZero) {
  EXPECT_EQ(text(NATIVE(getDeviceInfoJni)(env(), self())),
            "{\"Result\":0,\"Vendor\":\"\",\"ProductCLass\":\"\",\"HardwareVer\":\"\","
            "\"FirmwareVer\":\"\",\"FlashSize\":0,\"RamSize\":0,\"MainChipClass\":\"\",\"NFC\":\"\"}");
}

TEST_F(DeviceInfoQueryService, InfoIgnoresThePlatformsResultAndPrintsSizesSigned) {
  set_identity();
  sim_set("device", "flash_size", "-1");
  sim_set("device", "ram_size", "2147483647");
  sim_program_result("brelo_deviceGetInfo", -1);
  std::string reply = text(NATIVE(getDeviceInfoJni)(env(), self()));
  EXPECT_NE(reply.find("\"FlashSize\":-1,\"RamSize\":2147483647,"), std::string::npos) << reply;
  EXPECT_EQ(reply.rfind("{\"Result\":0,", 0), 0u);
}

TEST_F(DeviceInfoQueryService, InfoFieldsFilledToTheBrimStayWithinTheirFields) {
  sim_set("device", "vendor", std::string(200, 'v').c_str());
  sim_set("device", "nfc", std::string(40, 'n').c_str());
  std::string reply = text(NATIVE(getDeviceInfoJni)(env(), self()));
  EXPECT_NE(reply.find("\"Vendor\":\"" + std::string(127, 'v') + "\","), std::string::npos);
  EXPECT_NE(reply.find("\"NFC\":\"" + std::string(15, 'n') + "\"}"), std::string::npos);
}

TEST_F(DeviceInfoQueryService, InfoTracesEnterAndTheReply) {
  set_identity();
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getDeviceInfoJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kInfoName) + ":N:enter\n" + kInfoName +
                ":N:getDeviceInfoJni: return json = " + kIdentityReply +
                "   leave============>\n");
}

TEST_F(DeviceInfoQueryService, InfoIsSilentWithoutTheFlagFile) {
  CaptureStdout out;
  NATIVE(getDeviceInfoJni)(env(), self());
  EXPECT_EQ(out.finish(), "");
}

FlagFile *g_flag_to_raise = nullptr;
void raise_flag(const char *, void *) { g_flag_to_raise->set(true); }

TEST_F(DeviceInfoQueryService, FlagCreatedDuringTheCallTakesEffectAtTheNextTracePoint) {
  FlagFile flag(TRACE_FLAG_PATH, false);
  g_flag_to_raise = &flag;
  sim_program_hook("brelo_deviceGetInfo", raise_flag, nullptr);
  CaptureStdout out;
  NATIVE(getDeviceInfoJni)(env(), self());
  std::string trace = mask_line_numbers(out.finish());
  // "enter" came before the flag existed; the closing line after.
  EXPECT_EQ(trace.find(":N:enter"), std::string::npos) << trace;
  EXPECT_EQ(trace.rfind(std::string(kInfoName) + ":N:getDeviceInfoJni: return json = ", 0), 0u)
      << trace;
}

TEST_F(DeviceInfoQueryService, MacIsThePlatformsTextAsPlainText) {
  sim_set("device", "mac", "00:1A:2B:3C:4D:5E");
  EXPECT_EQ(text(NATIVE(getDeviceMACJni)(env(), self())), "00:1A:2B:3C:4D:5E");
  EXPECT_EQ(log(), "brelo_deviceGetMac()\n");
}

TEST_F(DeviceInfoQueryService, MacOfAPlatformThatWritesNothingIsEmpty) {
  EXPECT_EQ(text(NATIVE(getDeviceMACJni)(env(), self())), "");
}

TEST_F(DeviceInfoQueryService, IntegersArePassedThroughUnchanged) {
  sim_set("device", "uptime", "86400");
  sim_set("device", "cpu_occupancy", "12");
  sim_set("device", "ram_occupancy", "41");
  EXPECT_EQ(NATIVE(getDeviceUpTimeJni)(env(), self()), 86400);
  EXPECT_EQ(NATIVE(getCPUOccupancyRateJni)(env(), self()), 12);
  EXPECT_EQ(NATIVE(getRAMOccupancyRateJni)(env(), self()), 41);
  EXPECT_EQ(log(),
            "brelo_deviceGetUpTime()\nbrelo_deviceGetCPUOccupancyRate()\n"
            "brelo_deviceGetRAMOccupancyRate()\n");
}

TEST_F(DeviceInfoQueryService, IntegersAreNeitherScaledNorClamped) {
  sim_program_result("brelo_deviceGetUpTime", -5);
  sim_program_result("brelo_deviceGetCPUOccupancyRate", 250);
  sim_program_result("brelo_deviceGetRAMOccupancyRate", -1);
  EXPECT_EQ(NATIVE(getDeviceUpTimeJni)(env(), self()), -5);
  EXPECT_EQ(NATIVE(getCPUOccupancyRateJni)(env(), self()), 250);
  EXPECT_EQ(NATIVE(getRAMOccupancyRateJni)(env(), self()), -1);
}

TEST_F(DeviceInfoQueryService, IntegerTracesPrintTheValue) {
  sim_program_result("brelo_deviceGetUpTime", -5);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getDeviceUpTimeJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_commservices_DeviceInfoQueryServiceImp_getDeviceUpTimeJni"
            ":N:getDeviceUpTimeJni: return code = -5   leave============>\n");
}

TEST_F(DeviceInfoQueryService, OsgiIdentityIsFixed) {
  EXPECT_EQ(text(NATIVE(getOSGiInfoJni)(env(), self())),
            "{\"Result\":0,\"Name\":\"OSGI\",\"Vendor\":\"Apache Felix\",\"Version\":\"5.4.0\"}");
  EXPECT_EQ(log(), "");
}

TEST_F(DeviceInfoQueryService, JvmIdentityIsFixed) {
  EXPECT_EQ(text(NATIVE(getJVMInfoJni)(env(), self())),
            "{\"Result\":0,\"Name\":\"JVM\",\"Vendor\":\"Oracle\",\"Version\":\"1.8.0\"}");
  EXPECT_EQ(log(), "");
}

TEST_F(DeviceInfoQueryService, ApiVersionIsPlainText) {
  EXPECT_EQ(text(NATIVE(getAPIVersionJni)(env(), self())), "v1.0");
  EXPECT_EQ(log(), "");
}

TEST_F(DeviceInfoQueryService, NonUtf8PlatformTextArrivesRepairedInAWholeReply) {
  set_identity();
  sim_set("device", "vendor", "\xC4\xE3\xBA\xC3 \xF0\x9F\x98\x80");
  std::string reply = text(NATIVE(getDeviceInfoJni)(env(), self()));
  EXPECT_NE(reply.find("\"Vendor\":\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD "
                       "\xED\xA0\xBD\xED\xB8\x80\",\"ProductCLass\""),
            std::string::npos)
      << reply;
  EXPECT_EQ(reply.substr(reply.size() - 12), ",\"NFC\":\"NO\"}");
}

TEST_F(DeviceInfoQueryService, NullFromNewStringUtfReachesJava) {
  jvm().fail_new_string(true);
  EXPECT_EQ(NATIVE(getOSGiInfoJni)(env(), self()), nullptr);
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
