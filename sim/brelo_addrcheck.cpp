// Simulated address checks of the gateway's libraries (checkIPDomainVaild,
// sc_check_ip6_format, strNull). They keep no state; each call is logged and a programmed
// result replaces the check's own answer (so a test can make a check accept anything).
//   checkIPDomainVaild: 0 for an IPv4 dotted quad (four decimal numbers 0..255 of one to three
//     digits) or a domain name (1 to 253 characters, labels of 1 to 63 letters, digits and
//     hyphens, no label beginning or ending with a hyphen, separated by single dots); a text
//     of digits and dots only must be a dotted quad. -1 otherwise.
//   sc_check_ip6_format: 0 when inet_pton(AF_INET6) accepts the text (no zone, no brackets,
//     no prefix length), -1 otherwise.
//   strNull: 1 for an empty text (or NULL), 0 otherwise.
#include <arpa/inet.h>
#include <string.h>

#include "common/platform_addrcheck.h"
#include "sim/sim.h"

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_dotted_quad(const char *t) {
  int parts = 0;
  const char *p = t;
  while (true) {
    int digits = 0, value = 0;
    while (is_digit(*p) && digits < 4) {
      value = value * 10 + (*p - '0');
      ++digits;
      ++p;
    }
    if (digits == 0 || digits > 3 || value > 255) return false;
    ++parts;
    if (*p == '\0') return parts == 4;
    if (*p != '.' || parts == 4) return false;
    ++p;
  }
}

bool is_domain_name(const char *t) {
  size_t len = strlen(t);
  if (len == 0 || len > 253) return false;
  size_t label = 0;
  char prev = '.';
  for (const char *p = t; *p != '\0'; ++p) {
    char c = *p;
    if (c == '.') {
      if (label == 0 || prev == '-') return false;
      label = 0;
    } else {
      bool alnum = is_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
      if (!alnum && c != '-') return false;
      if (c == '-' && label == 0) return false;
      if (++label > 63) return false;
    }
    prev = c;
  }
  return label != 0 && prev != '-';
}

bool digits_and_dots_only(const char *t) {
  for (const char *p = t; *p != '\0'; ++p)
    if (!is_digit(*p) && *p != '.') return false;
  return true;
}

}  // namespace

extern "C" {

SIM_EXPORT int checkIPDomainVaild(const char *text) {
  sim::call("checkIPDomainVaild", "\"%s\"", text != nullptr ? text : "(null)");
  bool ok = false;
  if (text != nullptr)
    ok = digits_and_dots_only(text) ? is_dotted_quad(text) : is_domain_name(text);
  return sim::result("checkIPDomainVaild", ok ? 0 : -1);
}

SIM_EXPORT int sc_check_ip6_format(const char *text) {
  sim::call("sc_check_ip6_format", "\"%s\"", text != nullptr ? text : "(null)");
  unsigned char address[16];
  bool ok = text != nullptr && inet_pton(AF_INET6, text, address) == 1;
  return sim::result("sc_check_ip6_format", ok ? 0 : -1);
}

SIM_EXPORT int strNull(const char *text) {
  sim::call("strNull", "\"%s\"", text != nullptr ? text : "(null)");
  return sim::result("strNull", text == nullptr || *text == '\0' ? 1 : 0);
}

}  // extern "C"
