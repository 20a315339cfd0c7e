// Simulated platform functions: IPv4 and IPv6 static routes and the routes in force, the VLAN
// bindings of the LAN interfaces, and the IPTV service status.
// State (see sim/gateway/route.ini): sections [ipv4 static route N] and [ipv6 static route N]
// (N = route id 1-16), [ipv4 current route N] and [ipv6 current route N] (routes in force
// besides the static ones), [vlan bind] (interface number = binding) and [iptv].
#include <arpa/inet.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/platform_route.h"
#include "sim/sim.h"

namespace {

const char kIp4Static[] = "ipv4 static route ";
const char kIp4Current[] = "ipv4 current route ";
const char kIp6Static[] = "ipv6 static route ";
const char kIp6Current[] = "ipv6 current route ";
const char kVlan[] = "vlan bind";
constexpr int kMaxStaticRoutes = 16;

// The platform's LAN interface names by interface number.
const char *const kLanNames[] = {"LAN1",  "LAN2",  "LAN3",  "LAN4", "SSID1",
                                 "SSID2", "SSID3", "SSID4", "SSID5"};

const char *text_arg(const char *s) { return s != nullptr ? s : "(null)"; }

int lan_number(const char *name) {
  for (int i = 0; name != nullptr && i < 9; ++i)
    if (strcmp(name, kLanNames[i]) == 0) return i;
  return -1;
}

// Sections of one table in route-id order.
std::vector<std::string> table(const char *prefix) {
  std::vector<std::string> names = sim::sections(prefix);
  size_t skip = strlen(prefix);
  std::stable_sort(names.begin(), names.end(), [skip](const std::string &a, const std::string &b) {
    return atoi(a.c_str() + skip) < atoi(b.c_str() + skip);
  });
  return names;
}

// Texts are copied whole up to the field's last byte; a field filled to the brim is left
// without a terminator, as a careless platform might.
template <size_t N>
void put(char (&field)[N], const std::string &section, const char *key) {
  std::string v = sim::get_str(section.c_str(), key);
  memcpy(field, v.data(), std::min(v.size(), N));
}

// A route's id: its section's number, unless an "index" key gives another (a captured
// gateway's routes keep their ids in the order listed).
int32_t route_index(const std::string &s) {
  if (sim::get(s.c_str(), "index") != nullptr) return static_cast<int32_t>(sim::get_int(s.c_str(), "index"));
  size_t at = s.find_last_of(' ');
  return atoi(s.c_str() + at + 1);
}

template <typename Record, typename Fill>
void hand_out(const std::vector<std::string> &sections, Record **array, int *count, Fill fill) {
  *array = nullptr;
  *count = 0;
  if (sections.empty()) return;  // nothing is allocated for an empty table
  Record *records = static_cast<Record *>(calloc(sections.size(), sizeof(Record)));
  if (records == nullptr) return;
  for (size_t i = 0; i < sections.size(); ++i) fill(sections[i], &records[i]);
  *array = records;
  *count = static_cast<int>(sections.size());
}

// The routes of a table: 0 the configured static routes, 1 the routes in force (the other
// routes in force, then the static ones; only the other ones when the table's options section,
// [ipv4 routes] or [ipv6 routes], says current_only = 1, as a captured gateway's may).
// A route with a "repeat" count is listed that many times (a long table).
std::vector<std::string> routes(const char *current, const char *fixed, const char *options,
                                int which) {
  std::vector<std::string> sections;
  if (which == ROUTE_TABLE_CURRENT) sections = table(current);
  if (which == ROUTE_TABLE_STATIC || sim::get_int(options, "current_only") != 1) {
    std::vector<std::string> statics = table(fixed);
    sections.insert(sections.end(), statics.begin(), statics.end());
  }
  std::vector<std::string> out;
  for (const std::string &s : sections) {
    long long repeat = sim::get_int(s.c_str(), "repeat", 1);
    for (long long i = 0; i < repeat && out.size() < 1000000; ++i) out.push_back(s);
  }
  return out;
}

bool ipv4_text(const char *s) {
  struct in_addr a;
  return s != nullptr && inet_pton(AF_INET, s, &a) == 1;
}

// "address" or "address/length" with length 0-128.
bool ipv6_prefix(const char *s) {
  if (s == nullptr) return false;
  std::string text = s;
  size_t slash = text.find('/');
  struct in6_addr a;
  if (inet_pton(AF_INET6, text.substr(0, slash).c_str(), &a) != 1) return false;
  if (slash == std::string::npos) return true;
  std::string len = text.substr(slash + 1);
  return !len.empty() && len.size() <= 3 && len.find_first_not_of("0123456789") == std::string::npos &&
         atoi(len.c_str()) <= 128;
}

// The first free route id of a static table, or -1 when all 16 are taken.
int free_route_id(const char *prefix) {
  for (int id = 1; id <= kMaxStaticRoutes; ++id)
    if (sim::entry_count((prefix + std::to_string(id)).c_str()) == 0) return id;
  return -1;
}

int delete_route(const char *fn, const char *prefix, int routeId) {
  sim::call(fn, "%d", routeId);
  if (sim::has_result(fn)) return sim::result(fn, 0);
  sim::Guard guard;
  std::string section = prefix + std::to_string(routeId);
  if (sim::entry_count(section.c_str()) == 0) return sim::returns(fn, -1);
  sim::remove_section(section.c_str());
  return sim::returns(fn, 0);
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_vlanGetBindInfo(VlanBindRecord **array, int *count) {
  sim::call("brelo_vlanGetBindInfo", "%s", "");
  sim::Guard guard;
  std::vector<std::pair<std::string, std::string>> binds = sim::entries(kVlan);
  std::stable_sort(binds.begin(), binds.end(), [](const auto &a, const auto &b) {
    return atoi(a.first.c_str()) < atoi(b.first.c_str());
  });
  std::vector<std::string> keys;
  for (const auto &b : binds) keys.push_back(b.first);
  size_t next = 0;
  hand_out(keys, array, count, [&binds, &next](const std::string &key, VlanBindRecord *r) {
    r->lan_if = atoi(key.c_str());
    const std::string &v = binds[next++].second;
    memcpy(r->bind, v.data(), std::min(v.size(), sizeof r->bind));
  });
  return sim::result("brelo_vlanGetBindInfo", 0);
}

SIM_EXPORT int brelo_routeinfoGetLayer3ForwardingStaticConfig(Ip4RouteRecord **array, int *count,
                                                              int which) {
  sim::call("brelo_routeinfoGetLayer3ForwardingStaticConfig", "%d", which);
  sim::Guard guard;
  *array = nullptr;
  *count = 0;
  if (which != ROUTE_TABLE_STATIC && which != ROUTE_TABLE_CURRENT)
    return sim::result("brelo_routeinfoGetLayer3ForwardingStaticConfig", -1);
  hand_out(routes(kIp4Current, kIp4Static, "ipv4 routes", which), array, count,
           [](const std::string &s, Ip4RouteRecord *r) {
             r->index = route_index(s);
             put(r->dest_ip, s, "dest");
             put(r->dest_mask, s, "mask");
             put(r->gateway_ip, s, "gateway");
             put(r->interface_name, s, "interface");
           });
  return sim::result("brelo_routeinfoGetLayer3ForwardingStaticConfig", 0);
}

SIM_EXPORT int brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(Ip6RouteRecord **array,
                                                                 int *count, int which) {
  sim::call("brelo_routeinfoGetIp6Layer3ForwardingStaticConfig", "%d", which);
  sim::Guard guard;
  *array = nullptr;
  *count = 0;
  if (which != ROUTE_TABLE_STATIC && which != ROUTE_TABLE_CURRENT)
    return sim::result("brelo_routeinfoGetIp6Layer3ForwardingStaticConfig", -1);
  hand_out(routes(kIp6Current, kIp6Static, "ipv6 routes", which), array, count,
           [](const std::string &s, Ip6RouteRecord *r) {
             r->index = route_index(s);
             put(r->dest_prefix, s, "prefix");
             put(r->next_hop, s, "next_hop");
             put(r->interface_name, s, "interface");
           });
  return sim::result("brelo_routeinfoGetIp6Layer3ForwardingStaticConfig", 0);
}

SIM_EXPORT int brelo_iptvGetStatus(void) {
  sim::call("brelo_iptvGetStatus", "%s", "");
  return sim::result("brelo_iptvGetStatus", static_cast<int>(sim::get_int("iptv", "status")));
}

// A route to an IPv4 destination and mask, through a gateway address or none (empty), on a
// named interface; the new route takes the first free id.
SIM_EXPORT int brelo_routeAddIp4ForwardingStatic(const char *dstIPAddr, const char *dstSubMask,
                                                 const char *gatewayIPAddr,
                                                 const char *interfaceName) {
  const char *fn = "brelo_routeAddIp4ForwardingStatic";
  sim::call(fn, "\"%s\", \"%s\", \"%s\", \"%s\"", text_arg(dstIPAddr), text_arg(dstSubMask),
            text_arg(gatewayIPAddr), text_arg(interfaceName));
  if (sim::has_result(fn)) return sim::result(fn, 0);
  if (!ipv4_text(dstIPAddr) || !ipv4_text(dstSubMask) || gatewayIPAddr == nullptr ||
      (gatewayIPAddr[0] != '\0' && !ipv4_text(gatewayIPAddr)) || interfaceName == nullptr ||
      interfaceName[0] == '\0')
    return sim::returns(fn, -1);
  sim::Guard guard;
  int id = free_route_id(kIp4Static);
  if (id < 0) return sim::returns(fn, -1);
  std::string s = kIp4Static + std::to_string(id);
  sim::set(s.c_str(), "dest", dstIPAddr);
  sim::set(s.c_str(), "mask", dstSubMask);
  sim::set(s.c_str(), "gateway", gatewayIPAddr);
  sim::set(s.c_str(), "interface", interfaceName);
  return sim::returns(fn, id);
}

SIM_EXPORT int brelo_routeAddIp6ForwardingStatic(const char *dstIPPrefix, const char *nextHop,
                                                 const char *interfaceName) {
  const char *fn = "brelo_routeAddIp6ForwardingStatic";
  sim::call(fn, "\"%s\", \"%s\", \"%s\"", text_arg(dstIPPrefix), text_arg(nextHop),
            text_arg(interfaceName));
  if (sim::has_result(fn)) return sim::result(fn, 0);
  struct in6_addr a;
  if (!ipv6_prefix(dstIPPrefix) || nextHop == nullptr ||
      (nextHop[0] != '\0' && inet_pton(AF_INET6, nextHop, &a) != 1) || interfaceName == nullptr ||
      interfaceName[0] == '\0')
    return sim::returns(fn, -1);
  sim::Guard guard;
  int id = free_route_id(kIp6Static);
  if (id < 0) return sim::returns(fn, -1);
  std::string s = kIp6Static + std::to_string(id);
  sim::set(s.c_str(), "prefix", dstIPPrefix);
  sim::set(s.c_str(), "next_hop", nextHop);
  sim::set(s.c_str(), "interface", interfaceName);
  return sim::returns(fn, id);
}

SIM_EXPORT int brelo_routeDeleteIp4ForwardingStatic(int routeId) {
  return delete_route("brelo_routeDeleteIp4ForwardingStatic", kIp4Static, routeId);
}

SIM_EXPORT int brelo_routeDeleteIp6ForwardingStatic(int routeId) {
  return delete_route("brelo_routeDeleteIp6ForwardingStatic", kIp6Static, routeId);
}

// Binds a LAN interface (by name) to the platform's VLAN binding text, e.g. "100/10".
SIM_EXPORT int brelo_setVLANBind(const char *lanInterface, const char *bind) {
  sim::call("brelo_setVLANBind", "\"%s\", \"%s\"", text_arg(lanInterface), text_arg(bind));
  if (sim::has_result("brelo_setVLANBind")) return sim::result("brelo_setVLANBind", 0);
  int n = lan_number(lanInterface);
  if (n < 0 || bind == nullptr || bind[0] == '\0') return sim::returns("brelo_setVLANBind", -1);
  sim::set(kVlan, std::to_string(n).c_str(), bind);
  return sim::returns("brelo_setVLANBind", 0);
}

SIM_EXPORT int brelo_clearVLANBind(const char *lanInterface) {
  sim::call("brelo_clearVLANBind", "\"%s\"", text_arg(lanInterface));
  if (sim::has_result("brelo_clearVLANBind")) return sim::result("brelo_clearVLANBind", 0);
  int n = lan_number(lanInterface);
  if (n < 0) return sim::returns("brelo_clearVLANBind", -1);
  sim_unset(kVlan, std::to_string(n).c_str());
  return sim::returns("brelo_clearVLANBind", 0);
}

}  // extern "C"
