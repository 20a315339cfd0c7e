// Pinning Java byte arrays: pin/release accounting, the release mode, null arrays, failed
// pins and ranges the JVM refuses.
#include "common/java_bytes.h"

#include <utility>

#include "common/shared_int32.h"
#include "tests/test_support.h"

namespace {

class JavaBytesTest : public testsupport::BridgeTest {};

TEST_F(JavaBytesTest, PinsAndReleasesOnceWithModeZero) {
  jbyteArray a = jvm().bytes_of("abc");
  {
    bundle::JavaBytes bytes(env(), a);
    ASSERT_FALSE(bytes.is_null());
    bytes.get()[1] = 'X';
    bytes.release();
    bytes.release();
  }
  EXPECT_EQ(jvm().contents(a), "aXc");
  EXPECT_EQ(jvm().events_text(), "GetByteArrayElements(b1)\nReleaseByteArrayElements(b1,0)\n");
}

TEST_F(JavaBytesTest, ReleasesAtScopeEndAndMovesOwnership) {
  jbyteArray a = jvm().bytes_of("abc");
  {
    bundle::JavaBytes first(env(), a);
    bundle::JavaBytes second(std::move(first));
    EXPECT_TRUE(first.is_null());
    EXPECT_FALSE(second.is_null());
  }
  EXPECT_EQ(jvm().pin_releases(), 1);
  EXPECT_EQ(jvm().pinned(), 0);
}

TEST_F(JavaBytesTest, NullArrayPinsNothingWithoutAnyJniCall) {
  bundle::JavaBytes bytes(env(), nullptr);
  EXPECT_TRUE(bytes.is_null());
  bytes.copy_region_to_start(0, 4);
  bytes.release();
  EXPECT_TRUE(jvm().events().empty());
}

TEST_F(JavaBytesTest, FailedPinMakesNoFurtherJniCall) {
  bundle::JavaBytes bytes(env(), jvm().failing_bytes("abc"));
  EXPECT_TRUE(bytes.is_null());
  bytes.copy_region_to_start(0, 1);
  bytes.release();
  EXPECT_EQ(jvm().events_text(), "GetByteArrayElements(b1)\n");
  jvm().clear_exception();
}

TEST_F(JavaBytesTest, RegionIsCopiedToTheStart) {
  jbyteArray a = jvm().bytes_of("0123456789");
  bundle::JavaBytes bytes(env(), a);
  bytes.copy_region_to_start(6, 3);
  bytes.release();
  EXPECT_EQ(jvm().contents(a), "6783456789");
}

TEST_F(JavaBytesTest, RegionOutsideTheArrayCopiesNothingAndOnlyTheReleaseFollows) {
  jbyteArray a = jvm().bytes_of("0123");
  bundle::JavaBytes bytes(env(), a);
  bytes.copy_region_to_start(2, 3);
  EXPECT_EQ(jvm().pending_exception(), "java/lang/ArrayIndexOutOfBoundsException");
  bytes.release();
  EXPECT_EQ(jvm().contents(a), "0123");
  EXPECT_TRUE(jvm().errors().empty());
  jvm().clear_exception();
}

TEST(SharedInt32Test, KeepsTheLastStore) {
  static bundle::SharedInt32 value(-1);  // statically initialised
  EXPECT_EQ(value.load(), -1);
  value.store(12345);
  EXPECT_EQ(value.load(), 12345);
  value.store(INT32_MIN);
  EXPECT_EQ(value.load(), INT32_MIN);
}

}  // namespace
