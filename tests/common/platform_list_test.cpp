// The readable records of a list the platform allocated: its count, capped at the block.
#include "common/platform_list.h"

#include <stdint.h>
#include <stdlib.h>

#include <gtest/gtest.h>

namespace {

struct Record {
  char bytes[100];
};

TEST(PlatformListCount, ANullListHasNoRecordsWhateverItsCount) {
  EXPECT_EQ(bundle::platform_list_count(static_cast<Record *>(nullptr), 3), 0);
  EXPECT_EQ(bundle::platform_list_count(static_cast<Record *>(nullptr), 0), 0);
}

TEST(PlatformListCount, ACountBelowOneIsNoRecords) {
  Record *list = static_cast<Record *>(calloc(2, sizeof(Record)));
  EXPECT_EQ(bundle::platform_list_count(list, 0), 0);
  EXPECT_EQ(bundle::platform_list_count(list, -1), 0);
  EXPECT_EQ(bundle::platform_list_count(list, INT32_MIN), 0);
  free(list);
}

TEST(PlatformListCount, ACountWithinTheBlockIsKept) {
  Record *list = static_cast<Record *>(calloc(3, sizeof(Record)));
  EXPECT_EQ(bundle::platform_list_count(list, 1), 1);
  EXPECT_EQ(bundle::platform_list_count(list, 3), 3);
  free(list);
}

TEST(PlatformListCount, ACountAboveTheBlockIsCutAtTheBlock) {
  Record *list = static_cast<Record *>(calloc(3, sizeof(Record)));
  // glibc may round a block up by less than a record, never by one.
  EXPECT_EQ(bundle::platform_list_count(list, 1000), 3);
  EXPECT_EQ(bundle::platform_list_count(list, INT32_MAX), 3);
  free(list);
}

TEST(PlatformListCount, RecordsOfNoSizeAreNone) {
  void *list = calloc(1, 16);
  EXPECT_EQ(bundle::platform_list_count(list, 5, 0), 0);
  free(list);
}

}  // namespace
