// com.lumarest.smartgateway.transferservices.StaticLayer3ForwardingConfigServiceImp
#include <string>

#include "tests/test_support.h"

#define ROUTES(m) Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_##m
#define QUERY(m) Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_##m
extern "C" {
jint ROUTES(addLayer3ForwardingStaticJni)(JNIEnv *, jobject, jstring, jstring, jstring, jstring);
jint ROUTES(addIPv6Layer3ForwardingStaticJni)(JNIEnv *, jobject, jstring, jstring, jstring);
jint ROUTES(deleteLayer3ForwardingStaticJni)(JNIEnv *, jobject, jint);
jint ROUTES(deleteIPv6Layer3ForwardingStaticJni)(JNIEnv *, jobject, jint);
jstring QUERY(getLayer3ForwardingStaticConfigInfoJni)(JNIEnv *, jobject);
jstring QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class StaticRoutes : public testsupport::BridgeTest {};

TEST_F(StaticRoutes, AnIpv4RouteIsAddedAndListed) {
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str("10.30.0.0"),
                                                 jvm().str("255.255.0.0"), jvm().str("192.168.1.254"),
                                                 jvm().str("br0")),
            1);
  EXPECT_EQ(log(), "brelo_routeAddIp4ForwardingStatic(\"10.30.0.0\", \"255.255.0.0\", \"192.168.1.254\", \"br0\")\n");
  EXPECT_EQ(text(QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"1\",\"DestIPAddress\":\"10.30.0.0\",\"DestSubnetMask\":"
            "\"255.255.0.0\",\"GatewayIPAddress\":\"192.168.1.254\",\"Interface\":\"br0\"}]}");
  EXPECT_EQ(jvm().acquired(), 4);
  EXPECT_EQ(jvm().released(), 4);
}

TEST_F(StaticRoutes, TheRouteIdComesBackUnchanged) {
  sim_program_result("brelo_routeAddIp4ForwardingStatic", 12345);
  sim_program_result("brelo_routeAddIp6ForwardingStatic", -7);
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str("a"), jvm().str("b"), jvm().str("c"),
                                                 jvm().str("d")),
            12345);
  EXPECT_EQ(ROUTES(addIPv6Layer3ForwardingStaticJni)(env(), self(), jvm().str("a"), jvm().str("b"), jvm().str("c")),
            -7);
}

TEST_F(StaticRoutes, TextsAreReadAndReleasedInParameterOrder) {
  jstring s1 = jvm().str("1"), s2 = jvm().str("2"), s3 = jvm().str("3"), s4 = jvm().str("4");
  ROUTES(addLayer3ForwardingStaticJni)(env(), self(), s1, s2, s3, s4);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\nGetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n"
            "GetStringUTFChars(s3)\nReleaseStringUTFChars(s3)\nGetStringUTFChars(s4)\nReleaseStringUTFChars(s4)\n");
}

TEST_F(StaticRoutes, TheFirstUnreadableTextEndsTheCall) {
  // Third text cannot be read: -1, the fourth is never read, no platform call.
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str("1"), jvm().str("2"),
                                                 jvm().failing_str(), jvm().str("4")),
            -1);
  EXPECT_EQ(jvm().acquired(), 3);
  EXPECT_EQ(jvm().released(), 3);
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), nullptr, jvm().str("2"), jvm().str("3"),
                                                 jvm().str("4")),
            -1);
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str("1"), jvm().str("2"), jvm().str("3"),
                                                 nullptr),
            -1);
  EXPECT_EQ(ROUTES(addIPv6Layer3ForwardingStaticJni)(env(), self(), jvm().str("1"), nullptr, jvm().str("3")), -1);
  EXPECT_EQ(ROUTES(addIPv6Layer3ForwardingStaticJni)(env(), self(), jvm().str("1"), jvm().str("2"),
                                                     jvm().failing_str()),
            -1);
  EXPECT_EQ(log(), "");
}

TEST_F(StaticRoutes, LongTextsAreCutAtTheirBuffers) {
  std::string big(300, 'x');
  sim_program_result("brelo_routeAddIp4ForwardingStatic", 2);
  sim_program_result("brelo_routeAddIp6ForwardingStatic", 3);
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str(big), jvm().str(big), jvm().str(big),
                                                 jvm().str(big)),
            2);
  EXPECT_EQ(ROUTES(addIPv6Layer3ForwardingStaticJni)(env(), self(), jvm().str(big), jvm().str(big), jvm().str(big)),
            3);
  std::string x63(63, 'x'), x127(127, 'x');
  EXPECT_EQ(log(), "brelo_routeAddIp4ForwardingStatic(\"" + x63 + "\", \"" + x63 + "\", \"" + x63 + "\", \"" +
                       x127 + "\")\nbrelo_routeAddIp6ForwardingStatic(\"" + x127 + "\", \"" + x63 + "\", \"" +
                       x127 + "\")\n");
}

TEST_F(StaticRoutes, EmptyTextsReachThePlatform) {
  EXPECT_EQ(ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str(""), jvm().str(""), jvm().str(""),
                                                 jvm().str("")),
            -1);  // the simulated platform refuses them
  EXPECT_EQ(log(), "brelo_routeAddIp4ForwardingStatic(\"\", \"\", \"\", \"\")\n");
}

TEST_F(StaticRoutes, AnIpv6RouteIsAddedListedAndDeleted) {
  EXPECT_EQ(ROUTES(addIPv6Layer3ForwardingStaticJni)(env(), self(), jvm().str("2001:db8:30::/48"),
                                                     jvm().str("fe80::1"), jvm().str("br0")),
            1);
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"1\",\"DestIPPrefix\":\"2001:db8:30::/48\",\"NextHop\":\"fe80::1\","
            "\"Interface\":\"br0\"}]}");
  EXPECT_EQ(ROUTES(deleteIPv6Layer3ForwardingStaticJni)(env(), self(), 1), 0);
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())), "{\"Result\":-1}");
  EXPECT_EQ(log(),
            "brelo_routeAddIp6ForwardingStatic(\"2001:db8:30::/48\", \"fe80::1\", \"br0\")\n"
            "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(0)\n"
            "brelo_routeDeleteIp6ForwardingStatic(1)\n"
            "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(0)\n");
}

TEST_F(StaticRoutes, RouteIdsOneToSixteenReachThePlatform) {
  sim_program_result("brelo_routeDeleteIp4ForwardingStatic", 5);
  sim_program_result("brelo_routeDeleteIp6ForwardingStatic", -3);
  EXPECT_EQ(ROUTES(deleteLayer3ForwardingStaticJni)(env(), self(), 1), 5);
  EXPECT_EQ(ROUTES(deleteLayer3ForwardingStaticJni)(env(), self(), 16), 5);
  EXPECT_EQ(ROUTES(deleteIPv6Layer3ForwardingStaticJni)(env(), self(), 1), -3);
  EXPECT_EQ(ROUTES(deleteIPv6Layer3ForwardingStaticJni)(env(), self(), 16), -3);
  EXPECT_EQ(log(),
            "brelo_routeDeleteIp4ForwardingStatic(1)\nbrelo_routeDeleteIp4ForwardingStatic(16)\n"
            "brelo_routeDeleteIp6ForwardingStatic(1)\nbrelo_routeDeleteIp6ForwardingStatic(16)\n");
}

TEST_F(StaticRoutes, RouteIdsOutsideOneToSixteenAreRefusedWithoutACall) {
  for (jint id : {0, 17, -1, -16, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(ROUTES(deleteLayer3ForwardingStaticJni)(env(), self(), id), -1) << id;
    EXPECT_EQ(ROUTES(deleteIPv6Layer3ForwardingStaticJni)(env(), self(), id), -1) << id;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(StaticRoutes, TracesCallTheResultTheRouteId) {
  sim_program_result("brelo_routeAddIp4ForwardingStatic", 4);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  ROUTES(addLayer3ForwardingStaticJni)(env(), self(), jvm().str("1"), jvm().str("2"), jvm().str("3"), jvm().str("4"));
  ROUTES(addIPv6Layer3ForwardingStaticJni)(env(), self(), nullptr, jvm().str("2"), jvm().str("3"));
  ROUTES(deleteLayer3ForwardingStaticJni)(env(), self(), 0);
  ROUTES(deleteIPv6Layer3ForwardingStaticJni)(env(), self(), 17);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addLayer3ForwardingStaticJni:N:"
            "addLayer3ForwardingStaticJni: return route id = 4   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_addIPv6Layer3ForwardingStaticJni:N:"
            "addIPv6Layer3ForwardingStaticJni: return code = -1   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteLayer3ForwardingStaticJni:N:"
            "deleteLayer3ForwardingStaticJni: return code = -1   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_StaticLayer3ForwardingConfigServiceImp_deleteIPv6Layer3ForwardingStaticJni:N:"
            "deleteIPv6Layer3ForwardingStaticJni: return code = -1   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef QUERY
#undef ROUTES
