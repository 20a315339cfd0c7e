// The reply builder and the conversion of reply texts into Java strings.
#include "common/reply.h"

#include <limits.h>
#include <new>
#include <stdio.h>
#include <string.h>

#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

namespace {

using testsupport::BridgeTest;

TEST(Reply, StartsEmptyAndAppendsWherePreviousPieceEnded) {
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

TEST(Reply, WritesOnlyItsTextAndTerminator) {
  // Pieces write their text and one terminator, nothing more: a 64 KiB host list is not
  // written in full for a reply of a few hundred bytes.
  bundle::Reply<16> r;
  EXPECT_STREQ(r.c_str(), "");
  char *raw = const_cast<char *>(r.c_str());
  memset(raw + 1, 'Q', 15);  // what an earlier use of the memory left there
  r.append("%s", "ab");
  r.append("%d", 7);
  EXPECT_STREQ(r.c_str(), "ab7");
  for (size_t i = 4; i < 16; ++i) EXPECT_EQ(r.c_str()[i], 'Q') << i;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
// reply_append gives the bytes and the result snprintf gives, at every capacity from 0 to past
// the whole text, and never writes past the capacity. A capacity of one byte has room for the
// terminator alone, which the buffer already holds: nothing is written there.
template <typename... Args>
void same_as_snprintf(const char *fmt, Args... args) {
  SCOPED_TRACE(fmt);
  int whole = snprintf(nullptr, 0, fmt, args...);  // -1 for a format it refuses
  size_t last = whole >= 0 ? static_cast<size_t>(whole) + 2 : 8;
  for (size_t cap = 0; cap <= last; ++cap) {
    char want[128], got[128];
    memset(want, 'Z', sizeof want);
    memset(got, 'Z', sizeof got);
    ASSERT_LT(cap, sizeof want);
    int n = snprintf(cap > 1 ? want : nullptr, cap > 1 ? cap : 0, fmt, args...);
    size_t off = 0;
    EXPECT_EQ(bundle::reply_append(got, cap, &off, fmt, args...), n) << "cap " << cap;
    EXPECT_EQ(std::string(got, sizeof got), std::string(want, sizeof want)) << "cap " << cap;
    EXPECT_EQ(off, static_cast<size_t>(n > 0 ? n : 0)) << "cap " << cap;
  }
}

TEST(Reply, ComposesEveryPieceAsSnprintfDoes) {
  // Texts: plain, empty, NULL (vsnprintf's own "(null)"), cut by a precision.
  same_as_snprintf("%s", "abc");
  same_as_snprintf("a%sb", "");
  same_as_snprintf("<%s>", static_cast<const char *>(nullptr));
  same_as_snprintf("%.3s|%.32s|%.0s", "abcdef", "short", "x");
  same_as_snprintf("%.*s|%.*s|%.*s", 3, "abcdef", -1, "whole", 0, "x");
  same_as_snprintf("%.*d|%.*s", 4, 7, 2, "ab");
  same_as_snprintf("{\"Name\":\"%s\",\"Vendor\":\"%s\"}", "OSGI", "Apache Felix");
  // Numbers of every length, at their ends, 64-bit ones written without a 64-bit division.
  same_as_snprintf("%d %d %d %i", INT_MIN, INT_MAX, 0, -42);
  same_as_snprintf("%u %u", 0u, UINT_MAX);
  same_as_snprintf("%ld %lu", LONG_MIN, ULONG_MAX);
  same_as_snprintf("%lld %llu %llu", LLONG_MIN, ULLONG_MAX, 4294967295ull);
  same_as_snprintf("%lld %llu %lld", -4294967295LL, 5000000000ull, -4294967296LL);
  same_as_snprintf("{\"UsStats\":%llu ,\"DsStats\":%llu}", 0ull, 12345678901ull);
  same_as_snprintf("%llu %llu %lld %llu", 10000000000000000000ull, 65536ull, -281474976710656LL,
                   4294967296ull);
  // Characters (a NUL one too), percent signs.
  same_as_snprintf("x%cy", 'c');
  same_as_snprintf("x%cy", 0);
  same_as_snprintf("100%% %%%s%%", "q");
  // Conversions the composer hands to vsnprintf whole, after pieces it wrote itself.
  same_as_snprintf("%s %02X:%02x", "mac", 10, 255);
  same_as_snprintf("%d|%5d|%-4s|%+d", 1, 3, "ab", 4);
  same_as_snprintf("%s%hhd%s", "a", 300, "b");
  same_as_snprintf("%.2d %x %o", 5, 255u, 8u);
  std::string lone = "end %";  // not a literal: the compiler would refuse it
  if (!bundle::hardened_profile()) {
    same_as_snprintf(lone.c_str());  // vsnprintf refuses it: -1, nothing counted
  } else {
    // The hardened profile's escaping composer keeps what precedes a lone '%' and stops there.
    char got[16];
    size_t off = 0;
    EXPECT_EQ(bundle::reply_append(got, sizeof got, &off, lone.c_str()), 4);
    EXPECT_STREQ(got, "end ");
    EXPECT_EQ(off, 4u);
  }
  same_as_snprintf("");
}
#pragma GCC diagnostic pop

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

TEST(ModifiedUtf8, LongAsciiRunsBeforeOtherBytesAreMeasuredExactly) {
  // The ASCII part is passed a word at a time: whatever follows it, at every alignment.
  const std::string fffd = "\xEF\xBF\xBD";
  for (size_t k = 0; k < 40; ++k) {
    std::string run(k, 'a');
    bool unchanged = false;
    EXPECT_EQ(convert(run + "\xC3\xA9z", &unchanged), run + "\xC3\xA9z") << k;
    EXPECT_TRUE(unchanged) << k;
    EXPECT_EQ(convert(run + "\xC3z" + run, &unchanged), run + fffd + "z" + run) << k;
    EXPECT_FALSE(unchanged) << k;
    EXPECT_EQ(convert(run, &unchanged), run) << k;
    EXPECT_TRUE(unchanged) << k;
  }
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
