// The bridge reaches the machine's route tool and resolver only through the simulator's host
// side off the gateway: when the simulated platform says it is not in place, no route command
// runs and no name is looked up, and the refusal is explained once on standard error.
#include <string>

#include "common/host_lookup.h"
#include "common/ip_valid_check.h"
#include "tests/test_support.h"

extern "C" {
jint Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(JNIEnv *, jobject,
                                                                                       jobjectArray);
jint Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni(JNIEnv *, jobject,
                                                                                          jobjectArray);
jint Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(
    JNIEnv *, jobject, jint, jint, jint, jstring, jstring);
int handle_route_of_domain(char *domain, const char *device, int mode);
}

namespace host_side_test {

const char kRefusal[] = "gateway sim: no route command and no name lookup is made in this process";

// The simulated platform's answer for the length of a test, then detection again.
class HostSide : public testsupport::BridgeTest {
 protected:
  void TearDown() override {
    sim_set_host_side(-1);
    testsupport::BridgeTest::TearDown();
  }
  static size_t count(const std::string &text, const std::string &part) {
    size_t n = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
    return n;
  }
};

// This test program links the host side ahead of the C library, as a preload puts it.
TEST_F(HostSide, IsFoundInPlaceInTheTestProgram) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(sim_host_side_ready(), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  sim_set("resolver", "video.example", "198.51.100.23");
  bundle::HostAddresses a;
  EXPECT_TRUE(bundle::resolve_host("video.example", &a));
  EXPECT_EQ(bundle::run_command("/sbin/route add -net 10.9.8.7 netmask 255.255.255.255 dev ppp100"), 0);
  EXPECT_EQ(log(),
            "gethostbyname(\"video.example\")\n"
            "system(\"/sbin/route add -net 10.9.8.7 netmask 255.255.255.255 dev ppp100\")\n");
}

TEST_F(HostSide, WithoutItNoCommandRunsAndNoNameIsLookedUp) {
  sim_set_host_side(0);
  sim_set("resolver", "video.example", "198.51.100.23");
  sim_set("tree", "x", "y");  // the simulator itself keeps answering
  testing::internal::CaptureStderr();
  bundle::HostAddresses a;
  a.count = 7;
  EXPECT_FALSE(bundle::resolve_host("video.example", &a));
  EXPECT_EQ(a.count, 0);
  EXPECT_EQ(bundle::run_command("/sbin/route add -net 10.9.8.7 netmask 255.255.255.255 dev ppp100"), -1);
  EXPECT_EQ(handle_route_of_domain(const_cast<char *>("video.example"), "ppp100", 0), -1);
  EXPECT_EQ(ipValidCheck("video.example"), -1);
  EXPECT_EQ(ipValidCheck("192.168.1.20"), 0);  // an address needs no lookup
  jobjectArray destinations = jvm().array({jvm().str("10.0.0.1"), jvm().str("video.example")});
  EXPECT_EQ(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(
                env(), self(), destinations),
            0);
  EXPECT_EQ(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni(
                env(), self(), destinations),
            0);
  std::string told = testing::internal::GetCapturedStderr();
  EXPECT_EQ(log(), "");
  EXPECT_EQ(sim_get("route ppp100", "10.0.0.1"), nullptr);
  // One message, naming the fix.
  EXPECT_EQ(count(told, kRefusal), 1u) << told;
  EXPECT_NE(told.find("Start it with LD_PRELOAD="), std::string::npos) << told;
  EXPECT_NE(told.find("/libgatewayhost.so (or through the bundle_sc-simulator launcher).\n"),
            std::string::npos)
      << told;
}

// A port mapping to a host name is refused like a name that does not resolve; one to an
// address is made as ever.
TEST_F(HostSide, PortMappingsToAddressesKeepWorking) {
  sim_load_default();
  sim_set_save_path(nullptr);
  sim_set("resolver", "nas.home", "192.168.1.20");
  sim_set_host_side(0);
  testing::internal::CaptureStderr();
  auto add = [&](const char *client) {
    return Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(
        env(), self(), 2, 8081, 81, jvm().str("TCP"), jvm().str(client));
  };
  EXPECT_EQ(add("nas.home"), -1);
  expected_outstanding_ = 1;  // a refused client text is kept, as it always was
  EXPECT_EQ(sim_log_count("gethostbyname"), 0);
  EXPECT_EQ(add("192.168.1.20"), 0);
  EXPECT_EQ(count(testing::internal::GetCapturedStderr(), kRefusal), 1u);
  sim_set_host_side(1);
  EXPECT_EQ(add("nas.home"), 0);
  EXPECT_EQ(sim_log_count("gethostbyname"), 1);
}

// Each refusal after the answer changed is explained again, once.
TEST_F(HostSide, TheRefusalIsExplainedOncePerChange) {
  sim_set_host_side(0);
  testing::internal::CaptureStderr();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(sim_host_side_ready(), 0);
  sim_set_host_side(0);
  EXPECT_EQ(sim_host_side_ready(), 0);
  sim_set_host_side(1);
  EXPECT_EQ(sim_host_side_ready(), 1);
  EXPECT_EQ(count(testing::internal::GetCapturedStderr(), kRefusal), 2u);
}

}  // namespace host_side_test
