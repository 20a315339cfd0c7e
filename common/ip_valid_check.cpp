#include "common/ip_valid_check.h"

#include <arpa/inet.h>
#include <regex.h>
#include <string.h>
#include <sys/socket.h>

#include "common/host_lookup.h"
#include "common/trace.h"

namespace {

// The checker looks at no more than this many bytes of its text.
constexpr size_t kCheckedBytes = 128;
// Host names of this length or longer are refused without a lookup.
constexpr size_t kHostNameLimit = 65;

// The dotted-quad rules behind the pattern: exactly "0.0.0.0", or 7 to 15 characters of digits
// and dots with exactly three dots, a first octet of 1..223, middle octets up to 255 and a last
// octet up to 254. Class D and E, a leading 0 and the broadcast end .255 are refused.
int dotIPCheck(const char *ip) {
  if (strcmp(ip, "0.0.0.0") == 0) return 0;
  size_t len = strlen(ip);
  if (len < 7 || len > 15) {
    BUNDLE_TRACE("ip %s has a wrong length\n", ip);
    return -1;
  }
  int dots = 0;
  // At most 15 digits: 64 bits hold any octet the text can spell.
  long long octet[4] = {0, 0, 0, 0};
  for (const char *p = ip; *p != '\0'; ++p) {
    if (*p == '.') {
      ++dots;
    } else if (*p >= '0' && *p <= '9') {
      if (dots < 4) octet[dots] = octet[dots] * 10 + (*p - '0');  // digits after a 4th dot: ignored
    } else {
      BUNDLE_TRACE("ip %s holds a character that is neither digit nor dot\n", ip);
      return -1;
    }
  }
  if (dots == 3 && octet[0] >= 1 && octet[0] <= 223 && octet[1] <= 255 && octet[2] <= 255 &&
      octet[3] <= 254)
    return 0;
  BUNDLE_TRACE("ip %s is out of range\n", ip);
  return -1;
}

}  // namespace

extern "C" int ipValidCheck(const char *text) {
  if (text == nullptr) return -1;
  // One byte more than is looked at, so a 128-byte text stays terminated.
  char work[kCheckedBytes + 1];
  memset(work, 0, sizeof work);
  strncpy(work, text, kCheckedBytes);

  char *slash = strchr(work, '/');
  if (slash != nullptr) {
    *slash = '\0';
    int prefix = 0;  // an empty prefix length reads as 0
    for (const char *p = slash + 1; *p != '\0'; ++p) {
      if (*p < '0' || *p > '9') {
        BUNDLE_TRACE("prefix length %s is not a number\n", slash + 1);
        return -1;
      }
      prefix = prefix * 10 + (*p - '0');
      if (prefix > 32) {
        BUNDLE_TRACE("prefix length %s is larger than 32\n", slash + 1);
        return -1;
      }
    }
  }

  // The dots of this pattern are not escaped and match any character; the dotted-quad rules
  // are what refuse other separators. The pattern is kept as the gateway has always had it.
  regex_t pattern;
  if (regcomp(&pattern, "^[0-9]{1,3}.[0-9]{1,3}.[0-9]{1,3}.[0-9]{1,3}$", REG_EXTENDED) != 0)
    return -1;
  int nomatch = regexec(&pattern, work, 0, nullptr, 0);
  regfree(&pattern);
  if (nomatch == 0) return dotIPCheck(work);

  // Not shaped like an address: a host name.
  if (strlen(work) >= kHostNameLimit) {
    BUNDLE_TRACE("host name %s is too long\n", work);
    return -1;
  }
  bundle::HostAddresses answer;
  if (!bundle::resolve_host(work, &answer)) {
    BUNDLE_TRACE("host name %s does not resolve\n", work);
    return -1;
  }
  char first[INET6_ADDRSTRLEN] = "";
  if (answer.count > 0) inet_ntop(answer.family, answer.address[0], first, sizeof first);
  BUNDLE_TRACE("host name %s resolves to %s\n", work, first);
  return 0;
}
