// The Java String[] readers: the MAC list reader and the comma join.
#include "common/array_readers.h"

#include <string.h>

#include <string>
#include <vector>

#include "tests/test_support.h"

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class MacListTest : public testsupport::BridgeTest {
 protected:
  MacListTest() { memset(entries_, 0, sizeof entries_); }
  int read(jobjectArray a) { return brelo_getMacAddrFromJsonArr(env(), a, entries_, &count_); }
  char entries_[MAX_MAC_ENTRIES][MAC_ENTRY_SIZE];
  int count_ = -7;
};

TEST_F(MacListTest, CopiesEveryTextAndCountsThem) {
  EXPECT_EQ(read(jvm().array_of({"00:11:22:33:44:55", "aa:bb:cc:dd:ee:ff"})), 0);
  EXPECT_EQ(count_, 2);
  EXPECT_STREQ(entries_[0], "00:11:22:33:44:55");
  EXPECT_STREQ(entries_[1], "aa:bb:cc:dd:ee:ff");
  EXPECT_STREQ(entries_[2], "");
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().released(), 2);
}

TEST_F(MacListTest, TextsAreKeptAsGivenWithoutFormatCheck) {
  EXPECT_EQ(read(jvm().array_of({"AA-bb-not-a-mac"})), 0);
  EXPECT_EQ(count_, 1);
  EXPECT_STREQ(entries_[0], "AA-bb-not-a-mac");
}

TEST_F(MacListTest, ThreeHundredTextsGive256Entries) {
  std::vector<std::string> macs;
  for (int i = 0; i < 300; ++i) macs.push_back("mac" + std::to_string(i));
  EXPECT_EQ(read(jvm().array_of(macs)), 0);
  EXPECT_EQ(count_, 256);
  EXPECT_STREQ(entries_[255], "mac255");
  EXPECT_EQ(jvm().acquired(), 256);
  EXPECT_EQ(jvm().released(), 256);
  // Element references are deleted as the loop goes, so a large array never piles them up.
  EXPECT_LE(jvm().max_live_local_refs(), 1);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(MacListTest, AllEmptyTextsReadAsNoEntriesAndSaySo) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(read(jvm().array_of({"", "", ""})), 0);
  EXPECT_EQ(count_, 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "brelo_getMacAddrFromJsonArr:N:++++++++++++++>>>> arraylength: 3\n"
            "brelo_getMacAddrFromJsonArr:N:++++++++++macAddress[0]=\n"
            "brelo_getMacAddrFromJsonArr:N:++++++++++macAddress[1]=\n"
            "brelo_getMacAddrFromJsonArr:N:++++++++++macAddress[2]=\n"
            "brelo_getMacAddrFromJsonArr:N:no mac address!\n");
}

TEST_F(MacListTest, OneNonEmptyTextMakesEveryEntryCount) {
  EXPECT_EQ(read(jvm().array_of({"", "00:11:22:33:44:55"})), 0);
  EXPECT_EQ(count_, 2);
  EXPECT_STREQ(entries_[0], "");
  EXPECT_STREQ(entries_[1], "00:11:22:33:44:55");
}

TEST_F(MacListTest, EmptyArrayReadsAsNoEntries) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(read(jvm().array_of({})), 0);
  EXPECT_EQ(count_, 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "brelo_getMacAddrFromJsonArr:N:++++++++++++++>>>> arraylength: 0\n"
            "brelo_getMacAddrFromJsonArr:N:no mac address!\n");
}

TEST_F(MacListTest, NullArrayReadsAsNoEntries) {
  EXPECT_EQ(read(nullptr), 0);
  EXPECT_EQ(count_, 0);
}

TEST_F(MacListTest, FailedCopyStopsAtOnceAndKeepsWhatWasCopied) {
  jobjectArray a = jvm().array({jvm().str("00:11:22:33:44:55"), jvm().failing_str(),
                                jvm().str("aa:bb:cc:dd:ee:ff")});
  EXPECT_EQ(read(a), -1);
  EXPECT_EQ(count_, 0);
  EXPECT_STREQ(entries_[0], "00:11:22:33:44:55");
  EXPECT_STREQ(entries_[2], "");
  // The failed copy is not released; nothing after it is fetched.
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().released(), 1);
  EXPECT_EQ(jvm().null_releases(), 0);
}

TEST_F(MacListTest, FailedCopyLeavesTheErrorPendingAndNoCallAfterIt) {
  jobjectArray a = jvm().array({jvm().failing_str(), jvm().str("aa:bb:cc:dd:ee:ff")});
  EXPECT_EQ(read(a), -1);
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
  EXPECT_EQ(jvm().events_text(),
            "GetArrayLength(a3)\nGetObjectArrayElement(a3,0)\nGetStringUTFChars(s1)\n"
            "DeleteLocalRef(s1)\n");
  EXPECT_TRUE(jvm().errors().empty());
}

TEST_F(MacListTest, WithAnErrorAlreadyPendingNothingIsRead) {
  jobjectArray a = jvm().array_of({"00:11:22:33:44:55"});
  jvm().raise("java/lang/OutOfMemoryError");
  EXPECT_EQ(read(a), 0);  // a null or unreadable array reads as no entries
  EXPECT_EQ(count_, 0);
  EXPECT_EQ(jvm().events_text(), "");
}

TEST_F(MacListTest, NullElementFailsLikeAFailedCopy) {
  EXPECT_EQ(read(jvm().array({jvm().str("00:11:22:33:44:55"), nullptr})), -1);
  EXPECT_EQ(count_, 0);
  EXPECT_EQ(jvm().released(), 1);
}

TEST_F(MacListTest, OverlongTextIsCutAt127Bytes) {
  std::string longtext(300, 'm');
  EXPECT_EQ(read(jvm().array_of({longtext, "next"})), 0);
  EXPECT_EQ(std::string(entries_[0]), std::string(127, 'm'));
  EXPECT_STREQ(entries_[1], "next");
}

TEST_F(MacListTest, CountIsResetBeforeAnythingElse) {
  count_ = 99;
  read(jvm().array_of({"", ""}));
  EXPECT_EQ(count_, 0);
}

class JoinTest : public testsupport::BridgeTest {
 protected:
  std::string join(jobjectArray a, int size) {
    std::vector<char> buf(static_cast<size_t>(size) + 16, 'G');
    memset(buf.data(), 0, static_cast<size_t>(size));
    EXPECT_EQ(parseObjecArray(env(), a, buf.data(), size), 0);
    // Nothing beyond `size` bytes is touched.
    for (size_t i = static_cast<size_t>(size); i < buf.size(); ++i) EXPECT_EQ(buf[i], 'G');
    return std::string(buf.data());
  }
};

TEST_F(JoinTest, JoinsWithCommasAndNothingElse) {
  EXPECT_EQ(join(jvm().array_of({"a", "b", "c"}), 1024), "a,b,c");
  EXPECT_EQ(jvm().acquired(), 3);
  EXPECT_EQ(jvm().released(), 3);
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(JoinTest, OneElementHasNoSeparator) {
  EXPECT_EQ(join(jvm().array_of({"onlyone"}), 512), "onlyone");
}

TEST_F(JoinTest, EmptyArrayLeavesTheBufferUntouched) {
  EXPECT_EQ(join(jvm().array_of({}), 512), "");
  EXPECT_EQ(jvm().acquired(), 0);
}

TEST_F(JoinTest, EmptyElementsKeepTheirSeparators) {
  EXPECT_EQ(join(jvm().array_of({"", "x", ""}), 512), ",x,");
}

TEST_F(JoinTest, OverlongJoinIsCutAtSizeMinusOne) {
  std::vector<std::string> texts;
  for (int i = 0; i < 100; ++i) texts.push_back("element" + std::to_string(i));
  std::string full;
  for (size_t i = 0; i < texts.size(); ++i) full += (i ? "," : "") + texts[i];
  EXPECT_EQ(join(jvm().array_of(texts), 512), full.substr(0, 511));
  EXPECT_EQ(jvm().released(), 100);
}

TEST_F(JoinTest, JoinThatFillsTheBufferExactlyIsWhole) {
  EXPECT_EQ(join(jvm().array_of({"abc", "de"}), 7), "abc,de");
}

TEST_F(JoinTest, NullElementJoinsAsEmptyText) {
  EXPECT_EQ(join(jvm().array({jvm().str("a"), nullptr, jvm().str("b")}), 64), "a,,b");
}

TEST_F(JoinTest, FailedCopyEndsTheJoinWithTheErrorPending) {
  jobjectArray a = jvm().array({jvm().str("a"), jvm().failing_str(), jvm().str("c")});
  EXPECT_EQ(join(a, 64), "a,");
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
  // The failed copy is given back with NULL; the third element is never fetched.
  EXPECT_EQ(jvm().acquired(), 2);
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(jvm().events_text().find("GetObjectArrayElement(a4,2)"), std::string::npos)
      << jvm().events_text();
  EXPECT_EQ(jvm().live_local_refs(), 0);
  EXPECT_TRUE(jvm().errors().empty());
}

TEST_F(JoinTest, WithAnErrorAlreadyPendingNothingIsJoined) {
  jobjectArray a = jvm().array_of({"a"});
  jvm().raise("java/lang/OutOfMemoryError");
  EXPECT_EQ(join(a, 64), "");
  EXPECT_EQ(jvm().events_text(), "");
}

TEST_F(JoinTest, NullArrayJoinsNothing) { EXPECT_EQ(join(nullptr, 64), ""); }

}  // namespace
