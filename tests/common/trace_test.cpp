// The debug trace: silent without the flag file, one prefixed and flushed line per trace
// point with it, the flag looked at afresh every time.
#include "common/trace.h"

#include <unistd.h>

#include "tests/test_support.h"

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;

TEST(Trace, PrintsNothingWithoutTheFlagFile) {
  FlagFile flag(TRACE_FLAG_PATH, false);
  CaptureStdout out;
  bundle::trace_printf("Java_x_y", 12, "value %d\n", 5);
  bundle::trace_puts("Java_x_y", 13, "enter");
  EXPECT_EQ(out.finish(), "");
}

TEST(Trace, PrefixesNameAndLineWithTheFlagFile) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  bundle::trace_printf("Java_x_y", 12, "value %d\n", 5);
  bundle::trace_puts("brelo_helper", 13, "enter");
  EXPECT_EQ(out.finish(), "Java_x_y:12:value 5\nbrelo_helper:13:enter\n");
}

TEST(Trace, FlagIsTestedAfreshAtEveryTracePoint) {
  FlagFile flag(TRACE_FLAG_PATH, false);
  CaptureStdout out;
  bundle::trace_puts("f", 1, "first");
  flag.set(true);
  bundle::trace_puts("f", 2, "second");
  flag.set(false);
  bundle::trace_puts("f", 3, "third");
  EXPECT_EQ(out.finish(), "f:2:second\n");
}

TEST(Trace, FlushesEachLine) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  // Nothing sits in stdio's buffer after a trace point: a write straight to the descriptor
  // lands after it.
  bundle::trace_printf("f", 1, "%s", "no newline");
  ASSERT_EQ(write(1, "|", 1), 1);
  EXPECT_EQ(out.finish(), "f:1:no newline|");
}

TEST(Trace, MacrosUseTheEnclosingFunctionsName) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  BUNDLE_TRACE("%s\n", "a");
  BUNDLE_TRACE_AS("lanservicesOther", "%s\n", "b");
  EXPECT_EQ(testsupport::mask_line_numbers(out.finish()),
            "TestBody:N:a\nlanservicesOther:N:b\n");
}

}  // namespace
