// The reply builder and the conversion of reply texts into Java strings.
#include "common/reply.h"

#include <string.h>

#include <string>

#include "tests/test_support.h"

namespace {

using testsupport::BridgeTest;

TEST(Reply, StartsZeroedAndAppendsWherePreviousPieceEnded) {
  bundle::Reply<64> r;
  EXPECT_STREQ(r.c_str(), "");
  EXPECT_EQ(r.append("{\"Result\":%d,", 0), 12);
  r.append("\"A\":\"%s\"}", "x");
  EXPECT_STREQ(r.c_str(), "{\"Result\":0,\"A\":\"x\"}");
  EXPECT_EQ(r.offset(), strlen(r.c_str()));
  EXPECT_FALSE(r.truncated());
}

TEST(Reply, TextThatFillsBufferExactlyIsKept) {
  bundle::Reply<8> r;
  r.append("%s", "1234567");
  EXPECT_STREQ(r.c_str(), "1234567");
  EXPECT_FALSE(r.truncated());
}

TEST(Reply, OverlongReplyIsCutAtCapacityMinusOneAndLaterPiecesDropped) {
  struct {
    bundle::Reply<8> r;
    char guard[8];
  } s;
  memset(s.guard, 'G', sizeof s.guard);
  EXPECT_EQ(s.r.append("%s", "0123456789"), 10);
  EXPECT_STREQ(s.r.c_str(), "0123456");
  EXPECT_EQ(s.r.offset(), 10u);
  EXPECT_TRUE(s.r.truncated());
  // The offset has gone past the end, as with snprintf lengths added up: nothing more is
  // written, and nothing outside the buffer ever is.
  EXPECT_EQ(s.r.append("%s", "abc"), 3);
  EXPECT_STREQ(s.r.c_str(), "0123456");
  EXPECT_EQ(std::string(s.guard, 8), "GGGGGGGG");
}

TEST(Reply, PieceThatCrossesTheEndIsCutAndTheOffsetCountsItWhole) {
  bundle::Reply<6> r;
  r.append("%s", "abc");
  r.append("%s", "defgh");
  EXPECT_STREQ(r.c_str(), "abcde");
  EXPECT_EQ(r.offset(), 8u);
}

TEST(PlatformText, IsZeroedAndTerminatedAtItsLastByte) {
  bundle::PlatformText<4> t;
  EXPECT_EQ(t.size(), 4);
  EXPECT_STREQ(t.text(), "");
  memcpy(t.out(), "abcd", 4);  // a platform that forgot the terminator
  EXPECT_STREQ(t.text(), "abc");
}

TEST(TerminateField, CutsAFieldFilledToTheBrim) {
  char field[4] = {'w', 'x', 'y', 'z'};
  bundle::terminate_field(field);
  EXPECT_STREQ(field, "wxy");
}

std::string convert(const std::string &in, bool *unchanged = nullptr) {
  bool same;
  size_t n = bundle::modified_utf8_length(in.c_str(), &same);
  std::string out(n + 1, '\0');
  bundle::to_modified_utf8(in.c_str(), &out[0]);
  EXPECT_EQ(strlen(out.c_str()), n);
  out.resize(n);
  if (unchanged != nullptr) *unchanged = same;
  return out;
}

TEST(ModifiedUtf8, ValidTextPassesUnchanged) {
  const std::string texts[] = {
      "",
      "plain ascii {\"Result\":0}",
      "caf\xC3\xA9 \xE4\xB8\xAD\xE6\x96\x87",          // 2- and 3-byte sequences
      "\xEF\xBF\xBF \xE0\xA0\x80 \xDF\xBF \xC2\x80",    // edges of the ranges
      "\xED\xA0\xBD\xED\xB8\x80",                       // a surrogate pair, as Java writes it
      "\xC0\x80",                                       // modified UTF-8's encoded NUL
  };
  for (const auto &t : texts) {
    bool unchanged = false;
    EXPECT_EQ(convert(t, &unchanged), t);
    EXPECT_TRUE(unchanged) << t;
  }
}

TEST(ModifiedUtf8, FourByteSequenceBecomesItsSurrogatePair) {
  bool unchanged = true;
  // U+1F600 GRINNING FACE -> D83D DE00
  EXPECT_EQ(convert("a\xF0\x9F\x98\x80z", &unchanged), "a\xED\xA0\xBD\xED\xB8\x80z");
  EXPECT_FALSE(unchanged);
  // U+10000 and U+10FFFF, the ends of the supplementary planes
  EXPECT_EQ(convert("\xF0\x90\x80\x80"), "\xED\xA0\x80\xED\xB0\x80");
  EXPECT_EQ(convert("\xF4\x8F\xBF\xBF"), "\xED\xAF\xBF\xED\xBF\xBF");
}

TEST(ModifiedUtf8, IllFormedBytesBecomeReplacementCharacters) {
  const std::string fffd = "\xEF\xBF\xBD";
  bool unchanged = true;
  // GBK bytes of a Chinese word, C4E3 BAC3 ("ni hao"), read as UTF-8: C4 lacks its
  // continuation, E3 BA is a cut three-byte sequence, C3 lacks its continuation.
  EXPECT_EQ(convert("\xC4\xE3\xBA\xC3", &unchanged), fffd + fffd + fffd);
  EXPECT_FALSE(unchanged);
  EXPECT_EQ(convert("a\x80z"), "a" + fffd + "z");                   // stray continuation
  EXPECT_EQ(convert("a\xC3z"), "a" + fffd + "z");                   // truncated sequence
  EXPECT_EQ(convert("\xC1\xBF"), fffd + fffd);                      // overlong lead
  EXPECT_EQ(convert("\xE0\x80\x80"), fffd + fffd + fffd);           // overlong 3-byte
  EXPECT_EQ(convert("\xE2\x82"), fffd);                             // maximal subpart
  EXPECT_EQ(convert("\xF0\x9F\x98"), fffd);                         // cut emoji
  EXPECT_EQ(convert("\xF4\x90\x80\x80"), fffd + fffd + fffd + fffd);  // above U+10FFFF
  EXPECT_EQ(convert("\xF5\xFF"), fffd + fffd);
  // Same length in and out, but still repaired.
  EXPECT_EQ(convert("\xF0\x9F\x98" "a", &unchanged), fffd + "a");
  EXPECT_FALSE(unchanged);
}

class NewReplyString : public BridgeTest {};

TEST_F(NewReplyString, ValidTextGoesToNewStringUtfAsIs) {
  jstring s = bundle::new_reply_string(env(), "{\"Result\":0}");
  EXPECT_EQ(text(s), "{\"Result\":0}");
  EXPECT_EQ(jvm().new_strings(), 1);
}

TEST_F(NewReplyString, EmojiAndGbkSurviveAndTheReplyStaysWhole) {
  std::string reply = "{\"Result\":0,\"SSID\":\"caf\xC3\xA9\xF0\x9F\x98\x80\xC4\xE3\",\"End\":1}";
  jstring s = bundle::new_reply_string(env(), reply.c_str());
  EXPECT_EQ(text(s),
            "{\"Result\":0,\"SSID\":\"caf\xC3\xA9\xED\xA0\xBD\xED\xB8\x80\xEF\xBF\xBD\xEF\xBF\xBD\","
            "\"End\":1}");
}

TEST_F(NewReplyString, LargeRepairUsesAHeapCopy) {
  std::string reply(70000, 'x');
  reply[100] = '\xFF';
  jstring s = bundle::new_reply_string(env(), reply.c_str());
  std::string expected = reply.substr(0, 100) + "\xEF\xBF\xBD" + reply.substr(101);
  EXPECT_EQ(text(s), expected);
}

TEST_F(NewReplyString, NoStringIsMadeWithAnErrorPending) {
  jvm().raise("java/lang/OutOfMemoryError");
  EXPECT_EQ(bundle::new_reply_string(env(), "{\"Result\":0}"), nullptr);
  EXPECT_EQ(bundle::new_reply_string(env(), "caf\xFF"), nullptr);
  EXPECT_EQ(jvm().new_strings(), 0);
  EXPECT_EQ(jvm().events_text(), "");
  EXPECT_EQ(jvm().exception_checks(), 2);  // one check per reply, none per byte
}

TEST_F(NewReplyString, NullFromTheJvmIsReturnedAsIs) {
  jvm().fail_new_string(true);
  EXPECT_EQ(bundle::new_reply_string(env(), "x"), nullptr);
}

}  // namespace
