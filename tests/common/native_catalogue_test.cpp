// The catalogue of natives that the walking tests use holds exactly the exported natives.
#include "tests/native_catalogue.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace {

TEST(NativeCatalogue, MatchesExportMap) {
  std::ifstream map(BUNDLE_MAP_PATH);
  ASSERT_TRUE(map.good()) << BUNDLE_MAP_PATH;
  std::set<std::string> exported;
  std::regex symbol("^\\s*(Java_[A-Za-z0-9_]+);");
  for (std::string line; std::getline(map, line);) {
    std::smatch m;
    if (std::regex_search(line, m, symbol)) exported.insert(m[1]);
  }
  std::set<std::string> listed;
  for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
    const catalogue::Native &n = catalogue::kNatives[i];
    EXPECT_TRUE(listed.insert(n.symbol).second) << n.symbol;
    EXPECT_EQ(std::string(n.symbol),
              std::string("Java_com_lumarest_smartgateway_") + n.package + "_" + n.cls + "_" +
                  n.method);
  }
  EXPECT_EQ(listed, exported);
  EXPECT_EQ(catalogue::kNativeCount, 163u);
}

}  // namespace
