// Reads a reply transcript ("<test>\t<reply>" per line, with \xHH for a backslash, control
// bytes and bytes >= 0x7F) and fails on any reply that starts with '{' but is not valid JSON.
//   reply_json_check <transcript>
#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

namespace {

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string unescape(const std::string &s) {
  std::string out;
  for (size_t i = 0; i < s.size(); ++i) {
    if (s[i] == '\\' && i + 3 < s.size() && s[i + 1] == 'x' && hex_value(s[i + 2]) >= 0 &&
        hex_value(s[i + 3]) >= 0) {
      out += static_cast<char>(hex_value(s[i + 2]) * 16 + hex_value(s[i + 3]));
      i += 3;
    } else {
      out += s[i];
    }
  }
  return out;
}

// JSON numbers have no size limit, RapidJSON's do: every run of digits is shortened to 15
// digits, which keeps the grammar (inside strings too) and fits a double.
std::string shorten_numbers(const std::string &s) {
  std::string out;
  size_t run = 0;
  for (char c : s) {
    run = (c >= '0' && c <= '9') ? run + 1 : 0;
    if (run <= 15) out += c;
  }
  return out;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::cerr << "usage: reply_json_check <transcript>\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  if (!in) {
    std::cerr << "cannot read " << argv[1] << "\n";
    return 2;
  }
  std::string line;
  size_t replies = 0, objects = 0, bad = 0;
  while (std::getline(in, line)) {
    ++replies;
    size_t tab = line.find('\t');
    if (tab == std::string::npos) continue;
    std::string reply = unescape(line.substr(tab + 1));
    if (reply.empty() || reply[0] != '{') continue;
    ++objects;
    rapidjson::Document doc;
    std::string parsed = shorten_numbers(reply);
    doc.Parse(parsed.c_str(), parsed.size());
    if (doc.HasParseError()) {
      if (++bad <= 50) {
        std::cout << line.substr(0, tab) << ": "
                  << rapidjson::GetParseError_En(doc.GetParseError()) << " at "
                  << doc.GetErrorOffset() << ": " << line.substr(tab + 1, 400) << "\n";
      }
    }
  }
  std::cout << replies << " replies, " << objects << " JSON objects, " << bad << " invalid\n";
  return bad == 0 && objects > 0 ? 0 : 1;
}
