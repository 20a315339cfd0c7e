#include "capture/anonymize.h"

#include <arpa/inet.h>
#include <stdio.h>
#include <string.h>

namespace capture {
namespace {

uint64_t fnv1a(uint64_t h, const void *bytes, size_t n) {
  const unsigned char *p = static_cast<const unsigned char *>(bytes);
  for (size_t i = 0; i < n; ++i) {
    h ^= p[i];
    h *= 0x100000001B3ULL;
  }
  return h;
}

// Spreads every input bit over the whole word (the finaliser of splitmix64).
uint64_t mix(uint64_t z) {
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool private_ipv4(const uint8_t a[4]) {
  return a[0] == 10 || (a[0] == 172 && (a[1] & 0xF0) == 16) || (a[0] == 192 && a[1] == 168) ||
         (a[0] == 169 && a[1] == 254);
}

}  // namespace

void Anonymizer::set_key(const char *bytes, size_t n) {
  key_ = mix(fnv1a(0xCBF29CE484222325ULL, bytes, n));
}

uint64_t Anonymizer::hash(const char *kind, const void *bytes, size_t n) const {
  uint64_t h = fnv1a(0xCBF29CE484222325ULL ^ key_, kind, strlen(kind) + 1);
  return mix(fnv1a(h, bytes, n));
}

void Anonymizer::mac(const uint8_t in[6], uint8_t out[6]) const {
  if (!on_) {
    memcpy(out, in, 6);
    return;
  }
  uint64_t h = hash("mac", in, 6);
  for (int i = 0; i < 6; ++i) out[i] = static_cast<uint8_t>(h >> (8 * i));
  out[0] = static_cast<uint8_t>((out[0] & 0xFC) | 0x02);  // locally administered, unicast
}

void Anonymizer::mac_text(const char *in, size_t n, Text *out) const {
  if (!on_ || n == 0) {
    out->append(in, n);
    return;
  }
  // Six pairs of hex digits, separated alike by ':' or '-' or not at all.
  uint8_t bytes[6];
  bool separated = n == 17, plain = n == 12, lower = false, shaped = separated || plain;
  size_t step = separated ? 3 : 2;
  for (int i = 0; shaped && i < 6; ++i) {
    int h = hex_value(in[i * step]), l = hex_value(in[i * step + 1]);
    shaped = h >= 0 && l >= 0 && (!separated || i == 5 || in[i * 3 + 2] == in[2]);
    if (shaped) bytes[i] = static_cast<uint8_t>(h * 16 + l);
    if ((in[i * step] >= 'a' && in[i * step] <= 'f') || (in[i * step + 1] >= 'a' && in[i * step + 1] <= 'f'))
      lower = true;
  }
  if (separated && shaped) shaped = in[2] == ':' || in[2] == '-';
  if (!shaped) {
    name("mac", in, n, out);
    return;
  }
  uint8_t rewritten[6];
  mac(bytes, rewritten);
  for (int i = 0; i < 6; ++i) {
    if (i > 0 && separated) out->append(in[2]);
    out->printf(lower ? "%02x" : "%02X", rewritten[i]);
  }
}

void Anonymizer::name(const char *kind, const char *in, size_t n, Text *out) const {
  if (!on_ || n == 0) {
    out->append(in, n);
    return;
  }
  out->printf("%s-%06llx", kind, static_cast<unsigned long long>(hash(kind, in, n) & 0xFFFFFF));
}

void Anonymizer::address(const char *in, size_t n, Text *out) const {
  if (!on_ || n == 0) {
    out->append(in, n);
    return;
  }
  char text[64];
  if (n >= sizeof text) {
    name("address", in, n, out);
    return;
  }
  memcpy(text, in, n);
  text[n] = '\0';
  uint8_t a[16];
  uint64_t h = hash("address", in, n);
  if (inet_pton(AF_INET, text, a) == 1) {
    uint32_t all = static_cast<uint32_t>(a[0]) << 24 | a[1] << 16 | a[2] << 8 | a[3];
    if (all == 0 || all == 0xFFFFFFFFu) {
      out->append(in, n);  // "any" and "all" say nothing about anyone
    } else if (private_ipv4(a)) {
      out->printf("%u.%u.%u.%u", a[0], a[1], a[2], static_cast<unsigned>(2 + h % 253));
    } else {
      out->printf("198.%u.%u.%u", static_cast<unsigned>(18 + (h & 1)),
                  static_cast<unsigned>((h >> 8) & 0xFF), static_cast<unsigned>((h >> 16) & 0xFF));
    }
  } else if (inet_pton(AF_INET6, text, a) == 1) {
    bool unspecified = true;
    for (int i = 0; i < 16; ++i) unspecified = unspecified && a[i] == (i == 15 ? a[15] : 0);
    if (unspecified && a[15] <= 1) {
      out->append(in, n);  // "::" and "::1" say nothing about anyone
    } else if (a[0] == 0xFE && (a[1] & 0xC0) == 0x80) {
      out->printf("fe80::%x:%x:%x:%x", static_cast<unsigned>(h & 0xFFFF),
                  static_cast<unsigned>((h >> 16) & 0xFFFF), static_cast<unsigned>((h >> 32) & 0xFFFF),
                  static_cast<unsigned>(h >> 48));
    } else {
      out->printf("2001:db8:%x:%x::%x:%x", static_cast<unsigned>(h & 0xFFFF),
                  static_cast<unsigned>((h >> 16) & 0xFFFF), static_cast<unsigned>((h >> 32) & 0xFFFF),
                  static_cast<unsigned>(h >> 48));
    }
  } else {
    name("address", in, n, out);
  }
}

void Anonymizer::rewrite(Customer kind, const char *in, size_t n, Text *out) const {
  switch (kind) {
    case Customer::kPlain: out->append(in, n); break;
    case Customer::kMac: mac_text(in, n, out); break;
    case Customer::kAddress: address(in, n, out); break;
    case Customer::kHost: name("host", in, n, out); break;
    case Customer::kSsid: name("ssid", in, n, out); break;
    case Customer::kNeighbour: name("neighbour", in, n, out); break;
    case Customer::kGateway: name("gateway", in, n, out); break;
    case Customer::kUser: name("user", in, n, out); break;
  }
}

}  // namespace capture
