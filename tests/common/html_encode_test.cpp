// Escaping of texts placed inside JSON strings.
#include "common/html_encode.h"

#include <string.h>

#include <string>

#include <gtest/gtest.h>

namespace {

std::string encode(const std::string &in, int *written = nullptr) {
  char out[HTML_ENCODE_OUT_SIZE + 16];
  memset(out, 'Z', sizeof out);  // anything written past the 512 bytes would show
  int n = html_encode(out, in.c_str());
  if (written != nullptr) *written = n;
  EXPECT_EQ(std::string(out + HTML_ENCODE_OUT_SIZE, 16), std::string(16, 'Z'));
  return out;
}

TEST(HtmlEncode, EscapesQuoteBackslashAndSlash) {
  int n = 0;
  EXPECT_EQ(encode("a\"b\\c/d", &n), "a\\\"b\\\\c\\/d");
  EXPECT_EQ(n, 10);
}

TEST(HtmlEncode, OtherBytesPassUnchanged) {
  std::string in = "Caf\xC3\xA9 \xF0\x9F\x93\xB6 <x>&'\xFF\t";
  int n = 0;
  EXPECT_EQ(encode(in, &n), in);
  EXPECT_EQ(n, static_cast<int>(in.size()));
}

TEST(HtmlEncode, EmptyTextGivesEmptyText) {
  int n = -1;
  EXPECT_EQ(encode("", &n), "");
  EXPECT_EQ(n, 0);
}

TEST(HtmlEncode, A127ByteSsidOfQuotesAndBackslashesFits) {
  std::string in;
  for (int i = 0; i < 127; ++i) in += (i % 2 == 0) ? '"' : '\\';
  int n = 0;
  std::string out = encode(in, &n);
  EXPECT_EQ(n, 254);
  EXPECT_EQ(out.size(), 254u);
  EXPECT_EQ(out.substr(0, 4), "\\\"\\\\");
}

TEST(HtmlEncode, ATextThatWouldOverflowStopsAtAWholePieceWithinTheBuffer) {
  int n = 0;
  std::string out = encode(std::string(400, '/'), &n);
  EXPECT_EQ(n, 510);  // 255 pairs; a 256th would need bytes 510 and 511 and the terminator
  std::string pairs;
  for (int i = 0; i < 255; ++i) pairs += "\\/";
  EXPECT_EQ(out, pairs);
  out = encode(std::string(600, 'x'), &n);
  EXPECT_EQ(n, 511);
  EXPECT_EQ(out, std::string(511, 'x'));
  out = encode(std::string(510, 'x') + "\"yz", &n);
  EXPECT_EQ(n, 510);  // the escaped quote does not fit in whole: never half of it
  EXPECT_EQ(out, std::string(510, 'x'));
}

}  // namespace
