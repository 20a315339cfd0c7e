// Simulated platform functions: the LAN host table, host names, speed limits, the MAC filter
// mode and access lists, and the gateway's name.
// State: section [lan] and one numbered section [host N] per host (see sim/gateway/lan.ini).
#include <ctype.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "common/platform_lan.h"
#include "sim/sim.h"

namespace {

const char kLan[] = "lan";
const char kHostPrefix[] = "host ";

std::string upper(const std::string &text) {
  std::string out = text;
  for (char &c : out) c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
  return out;
}

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// "xx:xx:xx:xx:xx:xx" in either case into six bytes; false when it is not a MAC text.
bool parse_mac(const std::string &text, uint8_t mac[6]) {
  // The usual shape, read directly; anything else goes through sscanf, whose leniency
  // (one-digit groups, spaces, signs) the platform shares.
  if (text.size() == 17) {
    bool plain = true;
    for (int i = 0; i < 6 && plain; ++i) {
      int h = hex_value(text[i * 3]), l = hex_value(text[i * 3 + 1]);
      plain = h >= 0 && l >= 0 && (i == 5 || text[i * 3 + 2] == ':');
      if (plain) mac[i] = static_cast<uint8_t>(h * 16 + l);
    }
    if (plain) return true;
  }
  unsigned int o[6];
  char rest;
  if (sscanf(text.c_str(), "%2x:%2x:%2x:%2x:%2x:%2x%c", &o[0], &o[1], &o[2], &o[3], &o[4], &o[5],
             &rest) != 6)
    return false;
  for (int i = 0; i < 6; ++i) mac[i] = static_cast<uint8_t>(o[i]);
  return true;
}

std::string mac_text(const uint8_t *mac) {
  static const char kHex[] = "0123456789ABCDEF";
  char text[17];
  for (int i = 0; i < 6; ++i) {
    text[i * 3] = kHex[mac[i] >> 4];
    text[i * 3 + 1] = kHex[mac[i] & 0xF];
    if (i < 5) text[i * 3 + 2] = ':';
  }
  return std::string(text, 17);
}

// The canonical (upper-case) form of a MAC text, or the text itself upper-cased when it is
// not one.
std::string canonical(const std::string &text) {
  uint8_t mac[6];
  return parse_mac(text, mac) ? mac_text(mac) : upper(text);
}

// The comma-separated MAC lists of [lan]: black_list, trust_list, storage_black_list.
std::vector<std::string> list_items(const char *key) {
  std::vector<std::string> items;
  std::string all = sim::get_str(kLan, key);
  size_t at = 0;
  while (at <= all.size()) {
    size_t comma = all.find(',', at);
    if (comma == std::string::npos) comma = all.size();
    std::string item = all.substr(at, comma - at);
    if (!item.empty()) items.push_back(canonical(item));
    at = comma + 1;
  }
  return items;
}

// One host as the platform hands it out, with what the queries select on.
struct Host {
  std::string section;
  LanHostRecord record;
  bool online;
  long long port;
  int32_t up_speed, down_speed, up_limit, down_limit;
  uint64_t up_bytes, down_bytes;
};

// The host table parsed from the state: records in section order, the first host of each
// canonical MAC text, and the three lists.
struct HostTable {
  std::vector<Host> hosts;
  std::unordered_map<std::string, size_t> by_mac;
  std::unordered_set<std::string> black, trust, storage_black;
};

sim::Derived<HostTable> g_table;

// One host section's keys, read once (a table rebuild would otherwise look each key up
// through the whole state).
class HostKeys {
 public:
  explicit HostKeys(const std::string &section) : entries_(sim::entries(section.c_str())) {}
  const char *get(const char *key) const {
    size_t n = strlen(key);
    for (const auto &e : entries_)
      if (e.first.size() == n && memcmp(e.first.data(), key, n) == 0) return e.second.c_str();
    return nullptr;
  }
  std::string str(const char *key, const char *dflt = "") const {
    const char *v = get(key);
    return v != nullptr ? v : dflt;
  }
  long long number(const char *key, long long dflt = 0) const {
    const char *v = get(key);
    return v == nullptr || *v == '\0' ? dflt : strtoll(v, nullptr, 0);
  }

 private:
  std::vector<std::pair<std::string, std::string>> entries_;
};

// The class a host is listed under: blocked, else trusted, else online or offline. A
// "class_code" key overrides it (a platform that reports codes out of range). `mac` is the
// host's canonical MAC text.
uint32_t host_class(const HostTable &t, const HostKeys &keys, const std::string &mac, bool online) {
  if (keys.get("class_code") != nullptr) return static_cast<uint32_t>(keys.number("class_code"));
  if (t.black.count(mac) != 0) return LAN_HOST_CLASS_BLOCK;
  if (t.trust.count(mac) != 0) return LAN_HOST_CLASS_TRUST;
  return online ? LAN_HOST_CLASS_ONLINE : LAN_HOST_CLASS_OFFLINE;
}

void build_table(HostTable *t) {
  for (const std::string &item : list_items("black_list")) t->black.insert(item);
  for (const std::string &item : list_items("trust_list")) t->trust.insert(item);
  for (const std::string &item : list_items("storage_black_list")) t->storage_black.insert(item);
  const std::vector<std::string> &sections = sim::section_names(kHostPrefix);
  t->hosts.resize(sections.size());
  for (size_t i = 0; i < sections.size(); ++i) {
    Host &h = t->hosts[i];
    h.section = sections[i];
    HostKeys keys(h.section);
    std::string mac = keys.str("mac");
    std::string key = canonical(mac);
    h.online = keys.number("online", 1) != 0;
    h.port = keys.number("port");
    h.up_speed = static_cast<int32_t>(keys.number("up_speed"));
    h.down_speed = static_cast<int32_t>(keys.number("down_speed"));
    h.up_limit = static_cast<int32_t>(keys.number("up_limit"));
    h.down_limit = static_cast<int32_t>(keys.number("down_limit"));
    h.up_bytes = strtoull(keys.str("up_bytes", "0").c_str(), nullptr, 10);
    h.down_bytes = strtoull(keys.str("down_bytes", "0").c_str(), nullptr, 10);
    LanHostRecord *rec = &h.record;
    memset(rec, 0, sizeof *rec);
    rec->host_class = host_class(*t, keys, key, h.online);
    uint8_t bytes[6] = {};
    if (parse_mac(mac, bytes)) memcpy(rec->mac, bytes, 6);
    // Texts are copied whole up to the field's last byte; a field filled to the brim is left
    // without a terminator, as a careless platform might.
    auto put = [&](char *field, size_t cap, const char *name) {
      const char *v = keys.get(name);
      size_t n = v != nullptr ? strlen(v) : 0;
      memcpy(field, v != nullptr ? v : "", n < cap ? n : cap);
    };
    put(rec->dhcp_name, sizeof rec->dhcp_name, "dhcp_name");
    put(rec->device_name, sizeof rec->device_name, "device_name");
    put(rec->ipv4, sizeof rec->ipv4, "ip");
    put(rec->ipv6, sizeof rec->ipv6, "ipv6");
    rec->attach_point = static_cast<int32_t>(h.port);
    rec->online_time = static_cast<uint32_t>(keys.number("online_time"));
    // A "storage_access" key overrides the storage black list (a captured gateway's own
    // value, whatever it is).
    rec->storage_access = keys.get("storage_access") != nullptr
                              ? static_cast<int32_t>(keys.number("storage_access"))
                              : (t->storage_black.count(key) != 0 ? 0 : 1);
    t->by_mac.emplace(key, i);  // the first host of a MAC text wins
  }
}

// The host table as of now (under the caller's sim::Guard).
const HostTable &table() { return g_table.get(build_table); }

bool in_list(const char *key, const std::string &mac) {
  for (const std::string &item : list_items(key))
    if (item == canonical(mac)) return true;
  return false;
}

void store_list(const char *key, const std::vector<std::string> &items) {
  std::string all;
  for (const std::string &item : items) all += (all.empty() ? "" : ",") + item;
  sim::set(kLan, key, all);
}

void add_to_list(const char *key, const std::string &mac) {
  if (in_list(key, mac)) return;
  std::vector<std::string> items = list_items(key);
  items.push_back(canonical(mac));
  store_list(key, items);
}

void remove_from_list(const char *key, const std::string &mac) {
  std::vector<std::string> kept;
  for (const std::string &item : list_items(key))
    if (item != canonical(mac)) kept.push_back(item);
  store_list(key, kept);
}

const char *list_key(int kind) {
  switch (kind) {
    case LAN_LIST_BLACK: return "black_list";
    case LAN_LIST_STORAGE_BLACK: return "storage_black_list";
    case LAN_LIST_TRUST: return "trust_list";
    default: return nullptr;
  }
}

// The host whose MAC is `mac` (either case), or NULL.
const Host *find_host(const HostTable &t, const std::string &mac) {
  auto it = t.by_mac.find(canonical(mac));
  return it != t.by_mac.end() ? &t.hosts[it->second] : nullptr;
}

// The section of the host whose MAC is `mac` (either case), or "": a walk over the hosts' MAC
// texts, for setters, which change the state anyway (building the whole table for one lookup
// that is followed by a change would cost more).
std::string find_host_section(const std::string &mac) {
  std::string wanted = canonical(mac);
  for (const std::string &s : sim::section_names(kHostPrefix)) {
    const char *m = sim::get(s.c_str(), "mac");
    if (canonical(m != nullptr ? m : "") == wanted) return s;
  }
  return "";
}

// Hands out the records of `hosts` as a malloc()ed array (NULL when empty).
void hand_out(const std::vector<const Host *> &hosts, LanHostRecord **list, int *count) {
  *list = nullptr;
  *count = 0;
  if (hosts.empty()) return;
  LanHostRecord *array = static_cast<LanHostRecord *>(malloc(hosts.size() * sizeof *array));
  if (array == nullptr) return;
  for (size_t i = 0; i < hosts.size(); ++i) array[i] = hosts[i]->record;
  *list = array;
  *count = static_cast<int>(hosts.size());
}

// The listed MAC entries as the log shows them: ["aa", "bb"] (a long list ends in ", ...").
std::string log_macs(char (*macs)[128], int n) {
  std::string out = "[";
  if (!sim::logging()) return out;  // not shown anywhere
  if (n > 256) n = 256;
  for (int i = 0; macs != nullptr && i < n; ++i) {
    std::string entry(macs[i], strnlen(macs[i], 128));
    std::string piece = (i ? ", \"" : "\"") + entry + "\"";
    if (out.size() + piece.size() > 1500) {  // the log keeps about 2 KiB of arguments
      out += ", ...";
      break;
    }
    out += piece;
  }
  return out + "]";
}

// The hosts named by the first n entries, in the order named; unknown ones are left out.
std::vector<const Host *> named_hosts(const HostTable &t, char (*macs)[128], int n) {
  std::vector<const Host *> hosts;
  if (n > 256) n = 256;
  for (int i = 0; macs != nullptr && i < n; ++i) {
    const Host *h = find_host(t, std::string(macs[i], strnlen(macs[i], 128)));
    if (h != nullptr) hosts.push_back(h);
  }
  return hosts;
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_lanGethostInfoByMACArr(LanHostRecord **list, int *count, char (*macs)[128],
                                            int macCount) {
  sim::call("brelo_lanGethostInfoByMACArr", "%s, %d", log_macs(macs, macCount).c_str(), macCount);
  sim::Guard guard;
  hand_out(named_hosts(table(), macs, macCount), list, count);
  return sim::result("brelo_lanGethostInfoByMACArr", 0);
}

SIM_EXPORT int brelo_lanGethostInfobytype(LanHostRecord **list, int *count, const char *key,
                                          int type) {
  if (key != nullptr) {
    sim::call("brelo_lanGethostInfobytype", "\"%s\", %d", key, type);
  } else {
    sim::call("brelo_lanGethostInfobytype", "NULL, %d", type);
  }
  sim::Guard guard;
  std::vector<const Host *> hosts;
  for (const Host &h : table().hosts) {
    if (type == LAN_HOST_TYPE_ATTACH_POINT) {
      if (key != nullptr && h.port == atoi(key)) hosts.push_back(&h);
    } else if (type == LAN_HOST_CLASS_BLOCK) {
      // The present blocked hosts; the offline ones come from the offline query.
      if (h.record.host_class == LAN_HOST_CLASS_BLOCK && h.online) hosts.push_back(&h);
    } else if (static_cast<int64_t>(h.record.host_class) == type) {
      hosts.push_back(&h);
    }
  }
  hand_out(hosts, list, count);
  return sim::result("brelo_lanGethostInfobytype", 0);
}

SIM_EXPORT int brelo_lanGethostInfobyBlockOffline(LanHostRecord **list, int *count) {
  sim::call("brelo_lanGethostInfobyBlockOffline", "%s", "");
  sim::Guard guard;
  std::vector<const Host *> hosts;
  for (const Host &h : table().hosts)
    if (h.record.host_class == LAN_HOST_CLASS_BLOCK && !h.online) hosts.push_back(&h);
  hand_out(hosts, list, count);
  return sim::result("brelo_lanGethostInfobyBlockOffline", 0);
}

SIM_EXPORT int brelo_lanGethostStatsAndSpeedByMacAddr(LanHostStatsRecord **list, int *count,
                                                      char (*macs)[128], int macCount,
                                                      const char *selector) {
  sim::call("brelo_lanGethostStatsAndSpeedByMacAddr", "%s, %d, \"%s\"",
            log_macs(macs, macCount).c_str(), macCount, selector ? selector : "(null)");
  sim::Guard guard;
  *list = nullptr;
  *count = 0;
  std::vector<const Host *> hosts = named_hosts(table(), macs, macCount);
  bool limits = selector != nullptr && strcmp(selector, "SpeedMax") == 0;
  if (!hosts.empty()) {
    LanHostStatsRecord *array =
        static_cast<LanHostStatsRecord *>(calloc(hosts.size(), sizeof *array));
    if (array != nullptr) {
      for (size_t i = 0; i < hosts.size(); ++i) {
        const Host &h = *hosts[i];
        array[i].up_speed = limits ? h.up_limit : h.up_speed;
        array[i].down_speed = limits ? h.down_limit : h.down_speed;
        array[i].up_bytes = h.up_bytes;
        array[i].down_bytes = h.down_bytes;
      }
      *list = array;
      *count = static_cast<int>(hosts.size());
    }
  }
  return sim::result("brelo_lanGethostStatsAndSpeedByMacAddr", 0);
}

SIM_EXPORT int brelo_sysGetGatewayName(char *buf, int size) {
  sim::call("brelo_sysGetGatewayName", "%d", size);
  sim::out_text(buf, size > 0 ? static_cast<size_t>(size) : 0, kLan, "gateway_name");
  return sim::result("brelo_sysGetGatewayName", 0);
}

SIM_EXPORT int brelo_sysSetGatewayName(const char *name) {
  sim::call("brelo_sysSetGatewayName", "\"%s\"", name);
  int rc = sim::result("brelo_sysSetGatewayName", 0);
  if (rc == 0) sim::set(kLan, "gateway_name", name);
  return rc;
}

SIM_EXPORT int brelo_lanGetFilterMode(int *mode) {
  sim::call("brelo_lanGetFilterMode", "%s", "");
  if (sim::get(kLan, "filter_mode") != nullptr)
    *mode = static_cast<int>(sim::get_int(kLan, "filter_mode"));
  return sim::result("brelo_lanGetFilterMode", 0);
}

SIM_EXPORT int brelo_lanSetFilterMode(int mode) {
  sim::call("brelo_lanSetFilterMode", "%d", mode);
  int usual = (mode == LAN_FILTER_MODE_BLACK || mode == LAN_FILTER_MODE_TRUST || mode == 0) ? 0 : -1;
  int rc = sim::result("brelo_lanSetFilterMode", usual);
  if (rc == 0) sim::set(kLan, "filter_mode", std::to_string(mode));
  return rc;
}

SIM_EXPORT int brelo_lanSetLanHostName(const char *mac, const char *name) {
  sim::call("brelo_lanSetLanHostName", "\"%s\", \"%s\"", mac, name);
  sim::Guard guard;
  std::string s = find_host_section(mac);
  int rc = sim::result("brelo_lanSetLanHostName", s.empty() ? -1 : 0);
  if (rc == 0 && !s.empty()) sim::set(s.c_str(), "device_name", name);
  return rc;
}

SIM_EXPORT int brelo_lanSetDevMaxBandwidth(unsigned char *mac, int upLimit, int downLimit) {
  std::string text = mac_text(mac);
  sim::call("brelo_lanSetDevMaxBandwidth", "%s, %d, %d", text.c_str(), upLimit, downLimit);
  sim::Guard guard;
  std::string s = find_host_section(text);
  int rc = sim::result("brelo_lanSetDevMaxBandwidth", s.empty() ? -1 : 0);
  if (rc == 0 && !s.empty()) {
    sim::set(s.c_str(), "up_limit", std::to_string(upLimit));
    sim::set(s.c_str(), "down_limit", std::to_string(downLimit));
  }
  return rc;
}

SIM_EXPORT int brelo_lanGetDevBandwidth(unsigned char *mac, int *upSpeed, int *downSpeed) {
  std::string text = mac_text(mac);
  sim::call("brelo_lanGetDevBandwidth", "%s", text.c_str());
  sim::Guard guard;
  const Host *h = find_host(table(), text);
  if (h != nullptr) {
    *upSpeed = static_cast<int>(sim::get_int(h->section.c_str(), "up_speed"));
    *downSpeed = static_cast<int>(sim::get_int(h->section.c_str(), "down_speed"));
  }
  return sim::result("brelo_lanGetDevBandwidth", h == nullptr ? -1 : 0);
}

SIM_EXPORT int brelo_lanSetLanDevAccessPermission(const char *mac, int kind, int op) {
  sim::call("brelo_lanSetLanDevAccessPermission", "\"%s\", %d, %d", mac, kind, op);
  sim::Guard guard;
  uint8_t bytes[6];
  bool valid = parse_mac(mac, bytes) && (kind == LAN_PERMISSION_BLACK || kind == LAN_PERMISSION_TRUST);
  int rc = sim::result("brelo_lanSetLanDevAccessPermission", valid ? 0 : -1);
  if (rc == 0 && valid) {
    // A host is on one of the two lists at a time.
    const char *to = kind == LAN_PERMISSION_BLACK ? "black_list" : "trust_list";
    const char *from = kind == LAN_PERMISSION_BLACK ? "trust_list" : "black_list";
    remove_from_list(from, mac);
    add_to_list(to, mac);
  }
  return rc;
}

SIM_EXPORT int brelo_lanSetStorageDevAccessPermission(const char *mac, int op) {
  sim::call("brelo_lanSetStorageDevAccessPermission", "\"%s\", %d", mac, op);
  sim::Guard guard;
  uint8_t bytes[6];
  bool valid = parse_mac(mac, bytes);
  int rc = sim::result("brelo_lanSetStorageDevAccessPermission", valid ? 0 : -1);
  if (rc == 0 && valid) add_to_list("storage_black_list", mac);
  return rc;
}

SIM_EXPORT int brelo_macClearFromList(char (*macs)[128], int count, int listKind) {
  sim::call("brelo_macClearFromList", "%s, %d, %d", log_macs(macs, count).c_str(), count, listKind);
  sim::Guard guard;
  const char *key = list_key(listKind);
  int rc = sim::result("brelo_macClearFromList", key != nullptr ? 0 : -1);
  if (rc == 0 && key != nullptr) {
    for (int i = 0; macs != nullptr && i < count && i < 256; ++i) {
      std::string entry(macs[i], strnlen(macs[i], 128));
      if (!entry.empty()) remove_from_list(key, entry);
    }
  }
  return rc;
}

}  // extern "C"
