// The rewriting of customer data for a capture that is to be shared (--anonymize).
//
// Every value is replaced by one derived from it with a keyed hash, so the same value becomes
// the same replacement everywhere in the capture (a host's MAC in the host table, the lists,
// the stations, the rules) and in every capture of the same gateway. The key is the gateway's
// serial number, which an anonymized capture does not hold unless --with-secrets keeps it: the
// replacements cannot be reversed by trying candidate values without it.
//   MACs        a locally administered MAC, in the original's shape and letter case
//   names       "<kind>-<6 hex digits>" (host names, SSID names, neighbours, the gateway name,
//               the PPPoE user name); empty names stay empty
//   addresses   private IPv4 addresses keep their /24 and get another last number; other IPv4
//               addresses become 198.18.x.y; IPv6 addresses become 2001:db8:… (fe80::… for
//               link-local ones); anything else in an address field becomes a name
// Turned off, every function copies its input unchanged.
#ifndef BUNDLE_CAPTURE_ANONYMIZE_H
#define BUNDLE_CAPTURE_ANONYMIZE_H

#include <stddef.h>
#include <stdint.h>

#include "capture/text.h"

namespace capture {

// What a text of customer data is, for its rewriting (kPlain: not customer data).
enum class Customer { kPlain, kMac, kAddress, kHost, kSsid, kNeighbour, kGateway, kUser };

class Anonymizer {
 public:
  explicit Anonymizer(bool on) : on_(on) {}
  bool on() const { return on_; }
  // Keys the rewriting (the gateway's serial number).
  void set_key(const char *bytes, size_t n);

  void mac(const uint8_t in[6], uint8_t out[6]) const;
  // A MAC written as text ("aa:bb:cc:dd:ee:ff", "aa-bb-…" or "aabbccddeeff"); a text of any
  // other shape is rewritten as a name of kind "mac".
  void mac_text(const char *in, size_t n, Text *out) const;
  void name(const char *kind, const char *in, size_t n, Text *out) const;
  void address(const char *in, size_t n, Text *out) const;
  // Any of the above by kind (kPlain copies).
  void rewrite(Customer kind, const char *in, size_t n, Text *out) const;

 private:
  uint64_t hash(const char *kind, const void *bytes, size_t n) const;
  bool on_;
  uint64_t key_ = 0x6361707475726531ULL;
};

}  // namespace capture

#endif
