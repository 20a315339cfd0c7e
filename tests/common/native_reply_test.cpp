// A native's closing call: its closing trace line and its reply (or code) in one call,
// announced under the native's own name with the method taken from that name, exactly as a
// closing BUNDLE_TRACE line followed by the reply would be. Also the shared part of replies of
// every size.
#include "common/native_reply.h"

#include <string>

#include "common/hardened.h"
#include "common/heap_object.h"
#include "common/reply.h"
#include "tests/test_support.h"

extern "C" {

// Natives of a made-up class, built into this test: the closing calls as natives use them.
jstring Java_com_example_probe_ProbeServiceImp_getProbeInfoJni(JNIEnv *env, jobject) {
  bundle::Reply<64> reply;
  reply.append("{\"Result\":%d,\"Name\":\"%s\"}", 0, "probe");
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

jint Java_com_example_probe_ProbeServiceImp_setProbeJni(JNIEnv *, jobject, jint code) {
  return BUNDLE_CODE_REPLY(code - 1);  // evaluated once
}

jstring Java_com_example_probe_ProbeServiceImp_getProbePasswordJni(JNIEnv *env, jobject) {
  return BUNDLE_SECRET_REPLY(env, "s3cret");
}

}  // extern "C"

namespace native_reply_test {

using testsupport::BridgeTest;
using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kProbe[] = "Java_com_example_probe_ProbeServiceImp_";

class NativeReply : public BridgeTest {};

TEST_F(NativeReply, JsonReplyTracesTheClosingLineUnderTheNativeThenReplies) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  jstring reply = Java_com_example_probe_ProbeServiceImp_getProbeInfoJni(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kProbe) +
                "getProbeInfoJni:N:getProbeInfoJni: return json = {\"Result\":0,\"Name\":\"probe\"}"
                "   leave============>\n");
  EXPECT_EQ(text(reply), "{\"Result\":0,\"Name\":\"probe\"}");
}

TEST_F(NativeReply, JsonReplyWithoutTheFlagFileRepliesSilently) {
  CaptureStdout out;
  jstring reply = Java_com_example_probe_ProbeServiceImp_getProbeInfoJni(env(), self());
  EXPECT_EQ(out.finish(), "");
  EXPECT_EQ(text(reply), "{\"Result\":0,\"Name\":\"probe\"}");
}

TEST_F(NativeReply, CodeReplyTracesTheCodeAndGivesItBack) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(Java_com_example_probe_ProbeServiceImp_setProbeJni(env(), self(), -1), -2);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kProbe) +
                "setProbeJni:N:setProbeJni: return code = -2   leave============>\n");
}

TEST_F(NativeReply, CodeReplyWithoutTheFlagFileGivesTheCodeBackSilently) {
  CaptureStdout out;
  EXPECT_EQ(Java_com_example_probe_ProbeServiceImp_setProbeJni(env(), self(), 8), 7);
  EXPECT_EQ(out.finish(), "");
}

TEST_F(NativeReply, SecretReplyTracesTheSecretAsTheProfileShowsIt) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  jstring reply = Java_com_example_probe_ProbeServiceImp_getProbePasswordJni(env(), self());
  const std::string shown = bundle::hardened_profile() ? "******" : "s3cret";
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string(kProbe) + "getProbePasswordJni:N:getProbePasswordJni: return json = " +
                shown + "   leave============>\n");
  EXPECT_EQ(text(reply), "s3cret");  // Java always receives the text itself
}

TEST_F(NativeReply, HelperReplyTakesTheMethodFromTheNativesName) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  jstring reply = bundle::traced_native_reply(
      env(), bundle::TraceName("Java_com_example_probe_ProbeServiceImp_listProbesJni"), 41,
      "{\"Result\":0,\"List\":[]}");
  EXPECT_EQ(out.finish(), std::string(kProbe) +
                              "listProbesJni:41:listProbesJni: return json = "
                              "{\"Result\":0,\"List\":[]}   leave============>\n");
  EXPECT_EQ(text(reply), "{\"Result\":0,\"List\":[]}");
}

TEST_F(NativeReply, ClosingLineOfAnUnknownPlaceIsAnnouncedAsUnknown) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  bundle::trace_closing(bundle::TraceName(nullptr), 3, bundle::kCodeLine, nullptr, 5);
  EXPECT_EQ(out.finish(), "?:3:?: return code = 5   leave============>\n");
}

TEST(ReplyText, RepliesOfDifferentSizesKeepTheirOwnZeroedBuffers) {
  bundle::Reply<8> small;
  bundle::Reply<64> large;
  EXPECT_STREQ(small.c_str(), "");
  EXPECT_STREQ(large.c_str(), "");
  small.append("%s", "0123456789");
  large.append("%s", "0123456789");
  EXPECT_STREQ(small.c_str(), "0123456");
  EXPECT_TRUE(small.truncated());
  EXPECT_EQ(small.offset(), 10u);
  EXPECT_STREQ(large.c_str(), "0123456789");
  EXPECT_FALSE(large.truncated());
  EXPECT_EQ(bundle::Reply<8>::capacity(), 8u);
  EXPECT_EQ(bundle::Reply<64>::capacity(), 64u);
}

TEST(ReplyText, AReplyOnTheHeapComposesInItsOwnBuffer) {
  bundle::HeapObject<bundle::Reply<0x10000>> reply;
  ASSERT_TRUE(reply.ok());
  reply->append("{\"Result\":%d}", 0);
  EXPECT_STREQ(reply->c_str(), "{\"Result\":0}");
  EXPECT_GE(reply->c_str(), reinterpret_cast<const char *>(reply.get()));
  EXPECT_LT(reply->c_str(), reinterpret_cast<const char *>(reply.get()) + sizeof *reply.get());
}

}  // namespace native_reply_test
