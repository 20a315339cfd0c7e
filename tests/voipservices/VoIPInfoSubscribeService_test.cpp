// com.lumarest.smartgateway.voipservices.VoIPInfoSubscribeServiceImp
#include <string>
#include <vector>

#include "tests/test_support.h"

#define SUB(m) Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_##m
extern "C" {
jint SUB(subscribeVoIPEventJni)(JNIEnv *, jobject, jstring, jobjectArray);
jint SUB(unSubscribeVoIPEventJni)(JNIEnv *, jobject, jstring, jobjectArray);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class VoipSubscription : public testsupport::BridgeTest {};

TEST_F(VoipSubscription, EventsAreJoinedAndTheSubscriptionIsListed) {
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("bundle.a"),
                                       jvm().array_of({"NOTIFY_VOICE_CALL_INFO", "NOTIFY_LINE_STATUS"})),
            0);
  EXPECT_EQ(log(), "brelo_subscribeVoIPEvent(\"bundle.a\", \"NOTIFY_VOICE_CALL_INFO,NOTIFY_LINE_STATUS\")\n");
  EXPECT_STREQ(sim_get("voip subscriber bundle.a", "events"), "NOTIFY_VOICE_CALL_INFO,NOTIFY_LINE_STATUS");
  EXPECT_EQ(SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().str("bundle.a"),
                                         jvm().array_of({"NOTIFY_LINE_STATUS"})),
            0);
  EXPECT_STREQ(sim_get("voip subscriber bundle.a", "events"), "NOTIFY_VOICE_CALL_INFO");
  EXPECT_EQ(SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().str("bundle.a"), jvm().array_of({})), 0);
  EXPECT_EQ(sim_get("voip subscriber bundle.a", "events"), nullptr);
  EXPECT_EQ(log(),
            "brelo_subscribeVoIPEvent(\"bundle.a\", \"NOTIFY_VOICE_CALL_INFO,NOTIFY_LINE_STATUS\")\n"
            "brelo_unSubscribeVoIPEvent(\"bundle.a\", \"NOTIFY_LINE_STATUS\")\n"
            "brelo_unSubscribeVoIPEvent(\"bundle.a\", \"NOTIFY_VOICE_CALL_INFO\")\n");
  // The subscriber texts are never given back; the event texts are.
  expected_outstanding_ = 3;
  EXPECT_EQ(jvm().acquired(), 3 + 3);
  EXPECT_EQ(jvm().released(), 3);
}

TEST_F(VoipSubscription, OneEventIsPassedWithoutSeparator) {
  SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of({"E1"}));
  EXPECT_EQ(log(), "brelo_subscribeVoIPEvent(\"s\", \"E1\")\n");
  expected_outstanding_ = 1;
}

TEST_F(VoipSubscription, NoEventsSubscribeToTheDefaultEvent) {
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of({})), 0);
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("t"), nullptr), 0);
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("u"), jvm().array_of({""})), 0);
  EXPECT_EQ(SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().str("s"), nullptr), 0);
  EXPECT_EQ(log(),
            "brelo_subscribeVoIPEvent(\"s\", \"NOTIFY_VOICE_CALL_INFO\")\n"
            "brelo_subscribeVoIPEvent(\"t\", \"NOTIFY_VOICE_CALL_INFO\")\n"
            "brelo_subscribeVoIPEvent(\"u\", \"NOTIFY_VOICE_CALL_INFO\")\n"
            "brelo_unSubscribeVoIPEvent(\"s\", \"NOTIFY_VOICE_CALL_INFO\")\n");
  expected_outstanding_ = 4;
}

TEST_F(VoipSubscription, NullElementsJoinAsEmptyTexts) {
  jobjectArray events = jvm().array({jvm().str("A"), nullptr, jvm().str("B"), nullptr});
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), events), 0);
  EXPECT_EQ(log(), "brelo_subscribeVoIPEvent(\"s\", \"A,,B,\")\n");
  jobjectArray only_nulls = jvm().array({nullptr, nullptr});
  EXPECT_EQ(SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().str("s"), only_nulls), 0);
  // "," is not empty: the default event is used only when nothing at all was joined.
  EXPECT_EQ(log(),
            "brelo_subscribeVoIPEvent(\"s\", \"A,,B,\")\n"
            "brelo_unSubscribeVoIPEvent(\"s\", \",\")\n");
  expected_outstanding_ = 2;
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(VoipSubscription, ThreeHundredEventsAreCutAtTheBuffer) {
  std::vector<std::string> names;
  std::string joined;
  for (int i = 0; i < 300; ++i) {
    names.push_back("EVENT_" + std::to_string(i));
    joined += (i ? "," : "") + names.back();
  }
  ASSERT_GT(joined.size(), 511u);
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of(names)), 0);
  EXPECT_EQ(log(), "brelo_subscribeVoIPEvent(\"s\", \"" + joined.substr(0, 511) + "\")\n");
  EXPECT_EQ(jvm().acquired(), 301);
  EXPECT_EQ(jvm().released(), 300);
  EXPECT_LE(jvm().max_live_local_refs(), 1);
  expected_outstanding_ = 1;
}

TEST_F(VoipSubscription, PlatformFailureIsNotVisible) {
  sim_program_result("brelo_subscribeVoIPEvent", -1);
  sim_program_result("brelo_unSubscribeVoIPEvent", 5);
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of({"E"})), 0);
  EXPECT_EQ(SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().str("nobody"), jvm().array_of({"E"})), 0);
  expected_outstanding_ = 2;
}

TEST_F(VoipSubscription, ANullSubscriberReachesThePlatformAsTheEmptyText) {
  EXPECT_EQ(SUB(subscribeVoIPEventJni)(env(), self(), nullptr, jvm().array_of({"E"})), 0);
  // A subscriber that could not be copied changes no subscription (Java sees the error).
  EXPECT_EQ(SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().failing_str(), jvm().array_of({"E"})), 0);
  EXPECT_EQ(log(), "brelo_subscribeVoIPEvent(\"\", \"E\")\n");
  // Nothing to give back: the null string never reached the JVM, the failed copy gave nothing.
  EXPECT_EQ(jvm().null_releases(), 0);
  EXPECT_EQ(jvm().released(), 2);
}

TEST_F(VoipSubscription, TheSubscriberIsTakenAfterTheEvents) {
  jstring subscriber = jvm().str("s");  // s1
  jobjectArray events = jvm().array_of({"E"});
  SUB(subscribeVoIPEventJni)(env(), self(), subscriber, events);
  std::string events_text = jvm().events_text();
  size_t element = events_text.find("GetObjectArrayElement");
  size_t taken = events_text.find("GetStringUTFChars(s1)");
  ASSERT_NE(element, std::string::npos) << events_text;
  ASSERT_NE(taken, std::string::npos) << events_text;
  EXPECT_LT(element, taken) << events_text;
  EXPECT_EQ(events_text.find("ReleaseStringUTFChars(s1"), std::string::npos) << events_text;
  expected_outstanding_ = 1;
}

TEST_F(VoipSubscription, BannersAreTracedAndTheLastHasNoLineFeed) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of({"E"}));
  SUB(unSubscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of({"E"}));
  const std::string prefix = "Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_";
  EXPECT_EQ(mask_line_numbers(out.finish()),
            prefix + "subscribeVoIPEventJni:N:========= subscribeVoIPEvent enter==========>\n" +
                prefix + "subscribeVoIPEventJni:N:<========= subscribeVoIPEvent leave==========\n" +
                prefix + "unSubscribeVoIPEventJni:N:========= unSubscribeVoIPEvent enter==========>\n" +
                prefix + "unSubscribeVoIPEventJni:N:<========= unSubscribeVoIPEvent leave==========");
  expected_outstanding_ = 2;
}

TEST_F(VoipSubscription, NothingIsPrintedWithoutTheFlagFile) {
  CaptureStdout out;
  SUB(subscribeVoIPEventJni)(env(), self(), jvm().str("s"), jvm().array_of({"E"}));
  EXPECT_EQ(out.finish(), "");
  expected_outstanding_ = 1;
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef SUB
