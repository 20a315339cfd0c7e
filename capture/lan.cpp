// lan.ini: the gateway's name, the MAC filter mode and the LAN host table.
//
// The platform lists its hosts only in parts: by class (online, offline, blocked and present,
// trusted), the blocked ones that are offline, and by attachment point (LAN ports 1-4, SSIDs
// 1-8). A host is one record as the lists give it (two hosts may share a MAC); the table's
// order is merged from the order of every list. Whether a host is online follows from the list
// it came in. The MAC lists of the state (black, trust, storage black) are made from the hosts'
// classes and storage access; a host whose class or storage access the lists do not give
// (codes out of range, two hosts of one MAC in different classes) carries its own.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "capture/array.h"
#include "capture/context.h"
#include "capture/merge_order.h"
#include "common/platform_list.h"

namespace capture {
namespace {

constexpr int kAttachPoints = 12;  // LAN ports 1-4, SSIDs 1-8

struct Host {
  LanHostRecord rec;
  int occurrence;       // the k-th identical record of a list: identical hosts stay apart
  int online;           // 1, 0, or -1 when no list said
  LanHostStatsRecord stats;
  LanHostStatsRecord limits;
};

struct Hosts {
  Array<Host> all;
  MergeOrder order;
};

int find_or_add(Hosts *h, const LanHostRecord &rec, int occurrence) {
  for (size_t i = 0; i < h->all.size(); ++i)
    if (h->all[i].occurrence == occurrence && memcmp(&h->all[i].rec, &rec, sizeof rec) == 0)
      return static_cast<int>(i);
  Host *host = h->all.add();
  if (host == nullptr) return -1;
  host->rec = rec;
  host->occurrence = occurrence;
  host->online = -1;
  return static_cast<int>(h->all.size() - 1);
}

// Takes in one list the platform handed out; `online`: what being in it says (-1 nothing).
void take_list(Hosts *h, LanHostRecord *list, int count, int online) {
  int n = bundle::platform_list_count(list, count);
  h->order.list_begin();
  for (int i = 0; i < n; ++i) {
    int occurrence = 0;
    for (int j = 0; j < i; ++j)
      if (memcmp(&list[j], &list[i], sizeof list[i]) == 0) ++occurrence;
    int id = find_or_add(h, list[i], occurrence);
    if (id < 0) break;
    h->order.list_item(id);
    if (online >= 0) h->all[static_cast<size_t>(id)].online = online;
  }
  free(list);
}

void mac_text(const uint8_t *mac, char out[18]) {
  snprintf(out, 18, "%02X:%02X:%02X:%02X:%02X:%02X", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
}

bool same_mac(const Host &a, const Host &b) { return memcmp(a.rec.mac, b.rec.mac, 6) == 0; }

// The figures the platform gives for one MAC ("Stats" or "SpeedMax").
void figures_of(Context &c, const char *mac, const char *selector, LanHostStatsRecord *out) {
  char macs[1][128] = {};
  snprintf(macs[0], sizeof macs[0], "%s", mac);
  LanHostStatsRecord *list = nullptr;
  int count = 0;
  int rc = c.p.brelo_lanGethostStatsAndSpeedByMacAddr(&list, &count, macs, 1, selector);
  int n = bundle::platform_list_count(list, count);
  c.noted(k_brelo_lanGethostStatsAndSpeedByMacAddr, rc, n > 0);
  if (n > 0) *out = list[0];
  free(list);
}

// Appends the MAC of every host `in` selects, each MAC once, comma-separated.
template <typename In>
void mac_list(const Context &c, const Array<Host> &hosts, const Array<int> &order, In in, Text *out) {
  for (size_t i = 0; i < order.size(); ++i) {
    const Host &h = hosts[static_cast<size_t>(order[i])];
    if (!in(h)) continue;
    bool listed = false;
    for (size_t j = 0; j < i && !listed; ++j) {
      const Host &g = hosts[static_cast<size_t>(order[j])];
      listed = in(g) && same_mac(g, h);
    }
    if (listed) continue;
    uint8_t mac[6];
    c.anon.mac(h.rec.mac, mac);
    char text[18];
    mac_text(mac, text);
    if (out->size() > 0) out->append(',');
    out->append(text);
  }
}

template <typename In>
bool in_list(const Array<Host> &hosts, const Host &h, In in) {
  for (size_t i = 0; i < hosts.size(); ++i)
    if (same_mac(hosts[i], h) && in(hosts[i])) return true;
  return false;
}


}  // namespace

void capture_lan(Context &c, StateFile *f) {
  f->section("lan");
  if (CAPTURE_HAVE(c, brelo_sysGetGatewayName)) {
    char name[1024] = {};
    int rc = c.p.brelo_sysGetGatewayName(name, sizeof name);
    c.noted(k_brelo_sysGetGatewayName, rc);
    c.customer(f, "gateway_name", Customer::kGateway, name);
  }
  if (CAPTURE_HAVE(c, brelo_lanGetFilterMode)) {
    // A mode the platform does not write leaves the caller's value: it stays absent.
    const int kUnset = -0x5A5A5A5B;
    int mode = kUnset;
    c.noted(k_brelo_lanGetFilterMode, c.p.brelo_lanGetFilterMode(&mode));
    if (mode != kUnset) f->number("filter_mode", mode);
  }

  Hosts h;
  if (CAPTURE_HAVE(c, brelo_lanGethostInfobytype)) {
    // Classes 0 online, 1 offline, 2 blocked and present, 3 trusted (online or not).
    static const int kOnline[] = {1, 0, 1, -1};
    for (int type = LAN_HOST_CLASS_ONLINE; type <= LAN_HOST_CLASS_TRUST; ++type) {
      LanHostRecord *list = nullptr;
      int count = 0;
      int rc = c.p.brelo_lanGethostInfobytype(&list, &count, nullptr, type);
      c.noted(k_brelo_lanGethostInfobytype, rc);
      take_list(&h, list, count, kOnline[type]);
    }
  }
  if (CAPTURE_HAVE(c, brelo_lanGethostInfobyBlockOffline)) {
    LanHostRecord *list = nullptr;
    int count = 0;
    c.noted(k_brelo_lanGethostInfobyBlockOffline, c.p.brelo_lanGethostInfobyBlockOffline(&list, &count));
    take_list(&h, list, count, 0);
  }
  if (CAPTURE_HAVE(c, brelo_lanGethostInfobytype)) {
    for (int point = 1; point <= kAttachPoints; ++point) {
      char key[16];
      snprintf(key, sizeof key, "%d", point);
      LanHostRecord *list = nullptr;
      int count = 0;
      int rc = c.p.brelo_lanGethostInfobytype(&list, &count, key, LAN_HOST_TYPE_ATTACH_POINT);
      c.noted(k_brelo_lanGethostInfobytype, rc);
      take_list(&h, list, count, -1);
    }
  }
  // One host per MAC, and the MAC query: it answers with the first host of each MAC in the
  // platform's order, which therefore comes before the other hosts of its MAC.
  Array<int> macs;  // index into the hosts, one per MAC
  for (size_t i = 0; i < h.all.size(); ++i) {
    bool seen = false;
    for (size_t j = 0; j < macs.size() && !seen; ++j) seen = same_mac(h.all[static_cast<size_t>(macs[j])], h.all[i]);
    if (!seen) macs.push(static_cast<int>(i));
  }
  if (CAPTURE_HAVE(c, brelo_lanGethostInfoByMACArr)) {
    // As the library asks: up to 256 MACs of 128 bytes a query.
    char(*list)[128] = static_cast<char(*)[128]>(calloc(256, 128));
    for (size_t from = 0; list != nullptr && (from < macs.size() || from == 0); from += 256) {
      int n = 0;
      memset(list, 0, 256 * 128);
      for (size_t j = from; j < macs.size() && n < 256; ++j)
        mac_text(h.all[static_cast<size_t>(macs[j])].rec.mac, list[n++]);
      LanHostRecord *records = nullptr;
      int count = 0;
      int rc = c.p.brelo_lanGethostInfoByMACArr(&records, &count, list, n);
      c.noted(k_brelo_lanGethostInfoByMACArr, rc, records != nullptr);
      int got = bundle::platform_list_count(records, count);
      for (int r = 0; r < got; ++r) {
        int first = -1;
        for (size_t i = 0; i < h.all.size() && first < 0; ++i)
          if (h.all[i].occurrence == 0 && memcmp(&h.all[i].rec, &records[r], sizeof records[r]) == 0)
            first = static_cast<int>(i);
        for (size_t i = 0; first >= 0 && i < h.all.size(); ++i)
          if (static_cast<int>(i) != first && same_mac(h.all[i], h.all[static_cast<size_t>(first)]))
            h.order.before(first, static_cast<int>(i));
      }
      free(records);
    }
    free(list);
  }
  Array<int> order;
  if (!h.order.order(static_cast<int>(h.all.size()), &order)) {
    f->comment("the host table did not fit in memory");
    return;
  }
  // The figures are asked by MAC: the platform answers with those of the MAC's first host.
  for (size_t j = 0; j < macs.size(); ++j) {
    for (size_t i = 0; i < order.size(); ++i) {
      if (same_mac(h.all[static_cast<size_t>(order[i])], h.all[static_cast<size_t>(macs[j])])) {
        macs[j] = order[i];
        break;
      }
    }
  }
  for (size_t j = 0; j < macs.size(); ++j) {
    Host &host = h.all[static_cast<size_t>(macs[j])];
    char text[18];
    mac_text(host.rec.mac, text);
    if (CAPTURE_HAVE(c, brelo_lanGethostStatsAndSpeedByMacAddr)) {
      figures_of(c, text, "Stats", &host.stats);
      figures_of(c, text, "SpeedMax", &host.limits);
    }
    if (CAPTURE_HAVE(c, brelo_lanGetDevBandwidth)) {
      int up = 0, down = 0;
      c.noted(k_brelo_lanGetDevBandwidth, c.p.brelo_lanGetDevBandwidth(host.rec.mac, &up, &down));
    }
  }

  auto blocked = [](const Host &x) { return x.rec.host_class == LAN_HOST_CLASS_BLOCK; };
  auto trusted = [](const Host &x) { return x.rec.host_class == LAN_HOST_CLASS_TRUST; };
  auto denied = [](const Host &x) { return x.rec.storage_access == 0; };
  Text black, trust, storage;
  mac_list(c, h.all, order, blocked, &black);
  mac_list(c, h.all, order, trusted, &trust);
  mac_list(c, h.all, order, denied, &storage);
  f->text("black_list", black.data(), black.size());
  f->text("trust_list", trust.data(), trust.size());
  f->text("storage_black_list", storage.data(), storage.size());

  for (size_t i = 0; i < order.size(); ++i) {
    const Host &host = h.all[static_cast<size_t>(order[i])];
    const LanHostRecord &r = host.rec;
    f->section("host %zu", i + 1);
    uint8_t mac[6];
    c.anon.mac(r.mac, mac);
    char text[18];
    mac_text(mac, text);
    f->text("mac", text);
    c.customer(f, "dhcp_name", Customer::kHost, r.dhcp_name);
    c.customer(f, "device_name", Customer::kHost, r.device_name);
    c.customer(f, "ip", Customer::kAddress, r.ipv4);
    c.customer(f, "ipv6", Customer::kAddress, r.ipv6);
    f->number("port", r.attach_point);
    int online = host.online != 0 ? 1 : 0;
    f->number("online", online);
    f->unsigned_number("online_time", r.online_time);
    // Every host of a MAC shows the figures of its first host.
    const Host *first = &host;
    for (size_t j = 0; j < macs.size(); ++j)
      if (same_mac(h.all[static_cast<size_t>(macs[j])], host)) first = &h.all[static_cast<size_t>(macs[j])];
    f->number("up_speed", first->stats.up_speed);
    f->number("down_speed", first->stats.down_speed);
    f->number("up_limit", first->limits.up_speed);
    f->number("down_limit", first->limits.down_speed);
    f->unsigned_number("up_bytes", first->stats.up_bytes);
    f->unsigned_number("down_bytes", first->stats.down_bytes);
    // The class and storage access the lists give this host, as the platform derives them.
    uint32_t derived = in_list(h.all, host, blocked)   ? LAN_HOST_CLASS_BLOCK
                       : in_list(h.all, host, trusted) ? LAN_HOST_CLASS_TRUST
                       : online                        ? LAN_HOST_CLASS_ONLINE
                                                       : LAN_HOST_CLASS_OFFLINE;
    if (derived != r.host_class) f->unsigned_number("class_code", r.host_class);
    int32_t access = in_list(h.all, host, denied) ? 0 : 1;
    if (access != r.storage_access) f->number("storage_access", r.storage_access);
  }
}

}  // namespace capture
