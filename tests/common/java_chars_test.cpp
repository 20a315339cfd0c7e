// Borrowing Java texts: acquire/release accounting, null strings, failed copies, texts kept
// on purpose, and local references.
#include "common/java_chars.h"

#include "tests/test_support.h"

namespace {

class JavaCharsTest : public testsupport::BridgeTest {};

TEST_F(JavaCharsTest, BorrowsAndReleasesOnce) {
  jstring s = jvm().str("00:11:22:33:44:55");
  {
    bundle::JavaChars mac(env(), s);
    EXPECT_STREQ(mac.get(), "00:11:22:33:44:55");
    EXPECT_FALSE(mac.is_null());
    mac.release();
    mac.release();
  }
  EXPECT_EQ(jvm().acquired(), 1);
  EXPECT_EQ(jvm().released(), 1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n");
}

TEST_F(JavaCharsTest, ReleasesInTheOrderTheNativeSays) {
  jstring a = jvm().str("a"), b = jvm().str("b");
  bundle::JavaChars first(env(), a);
  bundle::JavaChars second(env(), b);
  first.release();
  second.release();
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(JavaCharsTest, ReleasesAtScopeEndWhenTheNativeDidNot) {
  { bundle::JavaChars t(env(), jvm().str("x")); }
  EXPECT_EQ(jvm().released(), 1);
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(JavaCharsTest, NullStringReadsAsNullWithoutAnyJniCall) {
  bundle::JavaChars t(env(), nullptr);
  EXPECT_TRUE(t.is_null());
  EXPECT_STREQ(t.or_empty(), "");
  t.release();
  EXPECT_TRUE(jvm().events().empty());
}

TEST_F(JavaCharsTest, FailedCopyIsReleasedWithItsNullPointer) {
  jstring s = jvm().failing_str();
  {
    bundle::JavaChars t(env(), s);
    EXPECT_TRUE(t.is_null());
    t.release();
  }
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
}

TEST_F(JavaCharsTest, AFailedCopyLeavesTheErrorPending) {
  jstring s = jvm().failing_str();
  bundle::JavaChars text(env(), s);
  EXPECT_TRUE(text.is_null());
  EXPECT_TRUE(bundle::exception_pending(env()));
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
  text.release();
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
}

TEST_F(JavaCharsTest, WithAnErrorPendingNothingIsAskedForNorGivenBack) {
  jvm().raise("java/lang/OutOfMemoryError");
  jstring s = jvm().str("a");
  {
    bundle::JavaChars text(env(), s);
    EXPECT_TRUE(text.is_null());
    EXPECT_STREQ(text.or_empty(), "");
    text.release();
  }
  EXPECT_EQ(jvm().events_text(), "");
  EXPECT_EQ(jvm().acquired(), 0);
  EXPECT_EQ(jvm().released(), 0);
  EXPECT_EQ(jvm().exception_checks(), 1);  // one check per text
}

TEST_F(JavaCharsTest, AcquireFailedReleasesInOrderOnlyWhatWasObtained) {
  jstring a = jvm().str("a"), b = jvm().failing_str(), c = jvm().str("c");
  bundle::JavaChars first(env(), a);
  bundle::JavaChars second(env(), b);
  bundle::JavaChars third(env(), c);
  EXPECT_TRUE(bundle::acquire_failed(env(), first, second, third));
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
            "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2,NULL)\n");
  EXPECT_TRUE(jvm().errors().empty());
}

TEST_F(JavaCharsTest, AcquireFailedIsFalseWithoutAnError) {
  bundle::JavaChars text(env(), jvm().str("a"));
  EXPECT_FALSE(bundle::acquire_failed(env(), text));
  EXPECT_STREQ(text.get(), "a");
  text.release();
}

TEST_F(JavaCharsTest, ArrayWithAnErrorPendingHasLengthZeroWithoutAnyJniCall) {
  jobjectArray a = jvm().array_of({"x"});
  jvm().raise("java/lang/OutOfMemoryError");
  EXPECT_EQ(bundle::array_length(env(), a), 0);
  EXPECT_EQ(jvm().events_text(), "");
}

TEST_F(JavaCharsTest, KeptTextIsNeverReleased) {
  {
    bundle::JavaChars t(env(), jvm().str("url"));
    t.keep();
  }
  EXPECT_EQ(jvm().released(), 0);
  expected_outstanding_ = 1;
}

TEST_F(JavaCharsTest, MovedFromHolderDoesNotReleaseTwice) {
  {
    bundle::JavaChars a(env(), jvm().str("x"));
    bundle::JavaChars b(static_cast<bundle::JavaChars &&>(a));
    EXPECT_STREQ(b.get(), "x");
  }
  EXPECT_EQ(jvm().released(), 1);
}

TEST_F(JavaCharsTest, LocalRefIsDeletedAtScopeEnd) {
  jobjectArray arr = jvm().array_of({"a"});
  {
    bundle::LocalRef<jobject> e(env(), env()->GetObjectArrayElement(arr, 0));
    EXPECT_EQ(jvm().live_local_refs(), 1);
  }
  EXPECT_EQ(jvm().live_local_refs(), 0);
}

TEST_F(JavaCharsTest, NullArrayHasLengthZero) {
  EXPECT_EQ(bundle::array_length(env(), nullptr), 0);
  EXPECT_TRUE(jvm().events().empty());
}

}  // namespace
