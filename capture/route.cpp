// route.ini: IPv4 and IPv6 static routes and the routes in force, the VLAN bindings of the LAN
// interfaces, and the IPTV service status.
//
// The platform lists the routes in force as its other routes followed by the static ones; a
// gateway that lists them otherwise gets "current_only = 1" and its whole list as current
// routes. A route's section is named by its id while the ids rise through the table;
// otherwise sections are numbered in list order and each carries its id. Routes listed
// several times in a row are one section with a repeat count.
#include <stdlib.h>
#include <string.h>

#include "capture/context.h"
#include "common/platform_list.h"

namespace capture {
namespace {

template <typename Record>
struct Table {
  Record *records = nullptr;
  int n = 0;
  ~Table() { free(records); }
};

template <typename Record, typename Read>
void read_table(Context &c, Fn fn, Read read, int which, Table<Record> *t) {
  int count = 0;
  int rc = read(&t->records, &count, which);
  t->n = bundle::platform_list_count(t->records, count);
  c.noted(fn, rc, t->records != nullptr);
}

template <typename Record>
bool same(const Record &a, const Record &b) {
  return memcmp(&a, &b, sizeof a) == 0;
}

// Writes records [from, to) under `prefix`; `fields` writes one record's keys.
template <typename Record, typename Fields>
void write_routes(StateFile *f, const char *prefix, const Record *r, int from, int to, Fields fields) {
  bool rising = true;
  int32_t last = 0;
  bool first = true;
  for (int i = from; i < to; ++i) {
    if (i > from && same(r[i], r[i - 1])) continue;
    if (!first && r[i].index <= last) rising = false;
    last = r[i].index;
    first = false;
  }
  int position = 0;
  for (int i = from; i < to;) {
    int repeat = 1;
    while (i + repeat < to && same(r[i + repeat], r[i])) ++repeat;
    ++position;
    if (rising) {
      f->section("%s%d", prefix, static_cast<int>(r[i].index));
    } else {
      f->section("%s%d", prefix, position);
      f->number("index", r[i].index);
    }
    fields(r[i]);
    if (repeat > 1) f->number("repeat", repeat);
    i += repeat;
  }
}

// Both tables of one family: the static routes, and the routes in force.
template <typename Record, typename Read, typename Fields>
void capture_family(Context &c, StateFile *f, Fn fn, Read read, const char *family, Fields fields) {
  Table<Record> statics, current;
  read_table(c, fn, read, ROUTE_TABLE_STATIC, &statics);
  read_table(c, fn, read, ROUTE_TABLE_CURRENT, &current);
  bool appended = current.n >= statics.n;
  for (int i = 0; appended && i < statics.n; ++i)
    appended = same(current.records[current.n - statics.n + i], statics.records[i]);
  char prefix[64];
  snprintf(prefix, sizeof prefix, "%s static route ", family);
  write_routes(f, prefix, statics.records, 0, statics.n, fields);
  snprintf(prefix, sizeof prefix, "%s current route ", family);
  write_routes(f, prefix, current.records, 0, appended ? current.n - statics.n : current.n, fields);
  if (!appended) {
    f->section("%s routes", family);
    f->number("current_only", 1);
  }
}

void capture_vlan(Context &c, StateFile *f) {
  VlanBindRecord *array = nullptr;
  int count = 0;
  int rc = c.p.brelo_vlanGetBindInfo(&array, &count);
  int n = bundle::platform_list_count(array, count);
  c.noted(k_brelo_vlanGetBindInfo, rc, array != nullptr);
  f->section("vlan bind");
  for (int i = 0; i < n; ++i) {
    char key[16];
    snprintf(key, sizeof key, "%d", static_cast<int>(array[i].lan_if));
    f->field(key, array[i].bind);
  }
  free(array);
}

}  // namespace

void capture_route(Context &c, StateFile *f) {
  if (CAPTURE_HAVE(c, brelo_routeinfoGetLayer3ForwardingStaticConfig)) {
    auto read = [&](Ip4RouteRecord **a, int *n, int which) {
      return c.p.brelo_routeinfoGetLayer3ForwardingStaticConfig(a, n, which);
    };
    capture_family<Ip4RouteRecord>(c, f, k_brelo_routeinfoGetLayer3ForwardingStaticConfig, read,
                                   "ipv4", [&](const Ip4RouteRecord &r) {
                                     f->field("dest", r.dest_ip);
                                     f->field("mask", r.dest_mask);
                                     f->field("gateway", r.gateway_ip);
                                     f->field("interface", r.interface_name);
                                   });
  }
  if (CAPTURE_HAVE(c, brelo_routeinfoGetIp6Layer3ForwardingStaticConfig)) {
    auto read = [&](Ip6RouteRecord **a, int *n, int which) {
      return c.p.brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(a, n, which);
    };
    capture_family<Ip6RouteRecord>(c, f, k_brelo_routeinfoGetIp6Layer3ForwardingStaticConfig, read,
                                   "ipv6", [&](const Ip6RouteRecord &r) {
                                     f->field("prefix", r.dest_prefix);
                                     f->field("next_hop", r.next_hop);
                                     f->field("interface", r.interface_name);
                                   });
  }
  if (CAPTURE_HAVE(c, brelo_vlanGetBindInfo)) capture_vlan(c, f);
  if (CAPTURE_HAVE(c, brelo_iptvGetStatus)) {
    int status = c.p.brelo_iptvGetStatus();  // the status itself
    c.noted(k_brelo_iptvGetStatus, status);
    f->section("iptv");
    f->number("status", status);
  }
}

}  // namespace capture
