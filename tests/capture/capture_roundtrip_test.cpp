// The round trip: a gateway captured into a state folder answers every query native as the
// gateway itself did, byte for byte. The default gateway, a crowded generated one and one
// whose platform fails are each captured (in this process, against the simulator), the
// capture loaded into a fresh simulator, and every query native called with representative
// arguments in both. An anonymized capture still loads and answers every query well-formed.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim/sim_control.h"
#include "tests/capture/capture_support.h"
#include "tests/capture/generated_gateways.h"
#include "tests/test_support.h"

namespace capture_roundtrip_test {

using capturetest::Call;

class CaptureRoundTrip : public testsupport::BridgeTest {
 protected:
  // The replies of every query to the gateway `state` (loaded fresh).
  std::vector<std::string> replies(const std::string &state, const std::vector<Call> &calls) {
    sim_reset();
    EXPECT_EQ(sim_load(state.c_str()), 0) << state;
    sim_set_log(0);
    std::vector<std::string> out;
    for (const Call &c : calls) out.push_back(capturetest::reply_of(jvm(), c));
    sim_set_log(1);
    return out;
  }

  // Captures `state` (with its secrets), replays the capture, compares every reply.
  void round_trip(const std::string &state, const char *tag) {
    sim_reset();
    ASSERT_EQ(sim_load(state.c_str()), 0);
    std::vector<Call> calls = capturetest::query_calls(jvm(), capturetest::host_macs(256));
    std::string folder = gateways::temp_folder(tag) + "/capture";
    std::string messages;
    ASSERT_EQ(capturetest::capture_into(folder, true, false, &messages), capture::kCaptured) << messages;

    std::vector<std::string> original = replies(state, calls);
    std::vector<std::string> replayed = replies(folder, calls);
    ASSERT_EQ(original.size(), replayed.size());
    int differing = 0;
    for (size_t i = 0; i < calls.size(); ++i) {
      if (original[i] == replayed[i]) continue;
      if (++differing <= 10)
        ADD_FAILURE() << tag << ": " << calls[i].shown << "\n  gateway: " << original[i]
                      << "\n  capture: " << replayed[i];
    }
    EXPECT_EQ(differing, 0) << tag << ": " << differing << " of " << calls.size() << " replies differ";
    // Enough of the replies carry the gateway's data for the comparison to mean something.
    int answered = 0;
    for (const std::string &r : original) answered += r.find("\"Result\":0") != std::string::npos;
    EXPECT_GT(answered, 50) << tag;
    gateways::remove_folder(folder.substr(0, folder.rfind('/')));
  }
};

TEST_F(CaptureRoundTrip, DefaultGatewayAnswersAlike) {
  round_trip(gateways::default_gateway(), "default");
}

TEST_F(CaptureRoundTrip, CrowdedGatewayAnswersAlike) {
  std::string dir = gateways::temp_folder("crowded_state");
  gateways::write_crowded(dir);
  round_trip(dir, "crowded");
  gateways::remove_folder(dir);
}

TEST_F(CaptureRoundTrip, FailingGatewayAnswersAlike) {
  std::string dir = gateways::temp_folder("failing_state");
  gateways::write_failing(dir);
  round_trip(dir, "failing");
  gateways::remove_folder(dir);
}

}  // namespace capture_roundtrip_test
