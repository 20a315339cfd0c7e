// The exported address checker of port-mapping clients and mirror destinations.
#include "common/ip_valid_check.h"

#include <string>

#include "tests/test_support.h"

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class IpValidCheck : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    sim_set("resolver", "nas.home", "192.168.1.20");
  }
};

TEST_F(IpValidCheck, AcceptsUsableUnicastAddresses) {
  for (const char *ok : {"192.168.1.1", "1.0.0.0", "223.255.255.254", "10.0.0.1", "0.0.0.0",
                         "001.002.003.004"})
    EXPECT_EQ(ipValidCheck(ok), 0) << ok;
  EXPECT_EQ(log(), "");  // addresses are never resolved
}

TEST_F(IpValidCheck, RefusesBroadcastMulticastAndZeroNetworks) {
  for (const char *bad : {"192.168.1.255", "255.255.255.255", "224.0.0.1", "239.1.1.1",
                          "240.0.0.1", "0.1.2.3", "0.0.0.1", "1.256.0.1", "1.0.256.1",
                          "999.1.1.1"})
    EXPECT_EQ(ipValidCheck(bad), -1) << bad;
  EXPECT_EQ(log(), "");
}

TEST_F(IpValidCheck, PrefixLengthUpToThirtyTwo) {
  EXPECT_EQ(ipValidCheck("10.0.0.1/24"), 0);
  EXPECT_EQ(ipValidCheck("10.0.0.1/32"), 0);
  EXPECT_EQ(ipValidCheck("10.0.0.1/0"), 0);
  EXPECT_EQ(ipValidCheck("10.0.0.1/"), 0);  // an empty prefix length reads as 0
  EXPECT_EQ(ipValidCheck("10.0.0.1/33"), -1);
  EXPECT_EQ(ipValidCheck("10.0.0.1/0032"), 0);  // leading zeros count for nothing
  EXPECT_EQ(ipValidCheck("10.0.0.1/0033"), -1);
  EXPECT_EQ(ipValidCheck("10.0.0.1/2a"), -1);
  EXPECT_EQ(ipValidCheck("10.0.0.1/-1"), -1);
  EXPECT_EQ(ipValidCheck("10.0.0.1/99999999999999999999"), -1);
  EXPECT_EQ(ipValidCheck("/"), -1);   // nothing before the slash: not an address, an empty name
  EXPECT_EQ(ipValidCheck("/0"), -1);
  EXPECT_EQ(ipValidCheck("/32"), -1);
  EXPECT_EQ(ipValidCheck("/33"), -1);
  EXPECT_EQ(ipValidCheck("0.0.0.0/0"), 0);
  EXPECT_EQ(ipValidCheck("10.0.0.255/24"), -1);
}

TEST_F(IpValidCheck, PatternDotsMatchAnyCharacterButOnlyDotsPass) {
  // "1a2b3c4" matches the pattern (its dots are not escaped) and fails the dotted-quad rules.
  EXPECT_EQ(ipValidCheck("1a2b3c4"), -1);
  EXPECT_EQ(ipValidCheck("1111111"), -1);  // no dots at all
  EXPECT_EQ(ipValidCheck("123456789012345"), -1);  // fifteen digits in one octet
  EXPECT_EQ(log(), "");
}

TEST_F(IpValidCheck, TextsNotShapedLikeAddressesAreResolved) {
  EXPECT_EQ(ipValidCheck("nas.home"), 0);
  EXPECT_EQ(ipValidCheck("192.168.1.1x"), -1);  // fails the pattern, then is no known host
  EXPECT_EQ(ipValidCheck(""), -1);
  EXPECT_EQ(log(),
            "gethostbyname(\"nas.home\")\n"
            "gethostbyname(\"192.168.1.1x\")\n"
            "gethostbyname(\"\")\n");
}

TEST_F(IpValidCheck, HostNamesOf65BytesOrMoreAreNotResolved) {
  std::string name64(60, 'a');
  name64 += ".lan";
  std::string name65 = "b" + name64;
  sim_set("resolver", name64.c_str(), "10.1.1.1");
  sim_set("resolver", name65.c_str(), "10.1.1.2");
  EXPECT_EQ(ipValidCheck(name64.c_str()), 0);
  EXPECT_EQ(ipValidCheck(name65.c_str()), -1);
  EXPECT_EQ(log(), "gethostbyname(\"" + name64 + "\")\n");
}

TEST_F(IpValidCheck, OnlyTheFirst128BytesAreLookedAt) {
  std::string text(128, 'x');
  EXPECT_EQ(ipValidCheck(text.c_str()), -1);
  EXPECT_EQ(ipValidCheck((text + "/40").c_str()), -1);
  EXPECT_EQ(ipValidCheck(std::string(70000, '9').c_str()), -1);
  // A prefix length beyond the 128th byte is never seen.
  std::string padded = "10.0.0.1/" + std::string(119, '0') + "99";
  EXPECT_EQ(ipValidCheck(padded.c_str()), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(IpValidCheck, NullIsRefused) { EXPECT_EQ(ipValidCheck(nullptr), -1); }

TEST_F(IpValidCheck, ResolvedAddressIsTraced) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(ipValidCheck("nas.home"), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()), "ipValidCheck:N:host name nas.home resolves to 192.168.1.20\n");
}

TEST_F(IpValidCheck, DottedQuadRefusalsTraceUnderTheInnerCheck) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(ipValidCheck("224.0.0.1"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()), "dotIPCheck:N:ip 224.0.0.1 is out of range\n");
}

}  // namespace
