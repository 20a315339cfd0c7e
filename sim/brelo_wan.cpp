// Simulated platform functions: WAN connections, their state and their configuration.
//
// State (see sim/gateway/wan.ini): one section [wan <index>] per connection, named by its WAN
// index, whose keys are the JSON member names of the information and change records (numbers,
// flags and enum codes as the platform's ints, texts as they are) plus PVC, Entry, Name,
// Password, the status codes, the counters and the bandwidths; and [wan_common] with
// internet_index. brelo_wanAddIf, brelo_wanSetIf and brelo_wanDeleteIf change these sections,
// so later queries show the change, and the configuration tree with them: an added connection
// appears there as the default ones do (sim/gateway/tree.ini: "Wan_PVC%d" with its VLAN,
// "Wan_PVC%d_Entry%d" with IFIdx, ServiceList and WanMode, listed in "ValidIFIndex" of
// "WanInfo_Common"), so port mappings can be made on it; a deleted one leaves the tree with its
// port mappings.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <map>
#include <string>
#include <vector>

#include <rapidjson/document.h>

#include "common/platform_wan.h"
#include "sim/sim.h"

namespace {

// The simulated platform stores WAN texts of up to this many bytes (terminator included) and
// writes them whole: it does not know the sizes of its callers' buffers.
constexpr size_t kStoredTextSize = 256;

const char kCommon[] = "wan_common";

std::string wan_section(int index) { return "wan " + std::to_string(index); }

bool wan_exists(int index) { return sim::get(wan_section(index).c_str(), "PVC") != nullptr; }

// The connections by (PVC, Entry): the first section in order of each pair.
using ConnectionIndex = std::map<std::pair<long long, long long>, std::string>;
sim::Derived<ConnectionIndex> g_connections;

void index_connections(ConnectionIndex *index) {
  for (const std::string &s : sim::section_names("wan ")) {
    if (sim::get(s.c_str(), "PVC") == nullptr) continue;
    index->emplace(std::make_pair(sim::get_int(s.c_str(), "PVC"), sim::get_int(s.c_str(), "Entry")), s);
  }
}

// The section of the connection at (pvc, entry), or "" when there is none.
std::string find_by_pvc_entry(int pvc, int entry) {
  sim::Guard guard;
  const ConnectionIndex &index = g_connections.get(index_connections);
  auto it = index.find(std::make_pair(static_cast<long long>(pvc), static_cast<long long>(entry)));
  return it != index.end() ? it->second : "";
}

// The platform's enum codes and the texts it accepts for them in a change request.
const std::vector<const char *> kConnectionTypes = {
    "", "IP_Routed", "IP_Bridged", "PPPoE_Bridged", "PPPoE_Routed", "PPPoE_Hybrid"};
const std::vector<const char *> kAddressingTypes = {"", "DHCP", "Static"};
const std::vector<const char *> kTriggers = {"", "AlwaysOn", "OnDemand", "Manual"};
const std::vector<const char *> kAddressOrigins = {"None", "DHCPv6", "AutoConfigured", "Static"};
const std::vector<const char *> kPrefixOrigins = {"None", "PrefixDelegation",
                                                  "RouterAdvertisement", "Static"};

enum class Kind { Text, Number, Flag, Code };

struct Member {
  const char *name;  // JSON member name and state key
  size_t offset;     // in WanChangeRecord
  size_t capacity;
  Kind kind;
  const std::vector<const char *> *codes;  // Kind::Code only
};

#define MEMBER(json, field, kind, codes) \
  Member { json, offsetof(WanChangeRecord, field), sizeof(WanChangeRecord::field), kind, codes }

const Member kMembers[] = {
    MEMBER("LanInterface", lan_interface, Kind::Text, nullptr),
    MEMBER("VLANMode", vlan_mode, Kind::Number, nullptr),
    MEMBER("VLANIDMark", vlan_id_mark, Kind::Number, nullptr),
    MEMBER("802-1pMark", priority_8021p, Kind::Number, nullptr),
    MEMBER("MulticastVlan", multicast_vlan, Kind::Number, nullptr),
    MEMBER("LanInterface-DHCPEnable", lan_dhcp_enable, Kind::Flag, nullptr),
    MEMBER("IPMode", ip_mode, Kind::Number, nullptr),
    MEMBER("NATEnabled", nat_enabled, Kind::Flag, nullptr),
    MEMBER("Username", username, Kind::Text, nullptr),
    MEMBER("Password", password, Kind::Text, nullptr),
    MEMBER("AddressingType", addressing_type, Kind::Code, &kAddressingTypes),
    MEMBER("ExternalIPAddress", external_ip_address, Kind::Text, nullptr),
    MEMBER("SubnetMask", subnet_mask, Kind::Text, nullptr),
    MEMBER("DefaultGateway", default_gateway, Kind::Text, nullptr),
    MEMBER("DNSEnabled", dns_enabled, Kind::Flag, nullptr),
    MEMBER("DNSServers", dns_servers, Kind::Text, nullptr),
    MEMBER("MACAddress", mac_address, Kind::Text, nullptr),
    MEMBER("ConnectionTrigger", connection_trigger, Kind::Code, &kTriggers),
    MEMBER("IPv6IPAddressOrigin", ipv6_address_origin, Kind::Code, &kAddressOrigins),
    MEMBER("IPv6IPAddress", ipv6_address, Kind::Text, nullptr),
    MEMBER("IPv6DNSServers", ipv6_dns_servers, Kind::Text, nullptr),
    MEMBER("IPv6PrefixDelegationEnabled", ipv6_prefix_delegation_enabled, Kind::Flag, nullptr),
    MEMBER("IPv6PrefixOrigin", ipv6_prefix_origin, Kind::Code, &kPrefixOrigins),
    MEMBER("IPv6Prefix", ipv6_prefix, Kind::Text, nullptr),
    MEMBER("IPv6PrefixPltime", ipv6_prefix_pltime, Kind::Number, nullptr),
    MEMBER("IPv6PrefixVltime", ipv6_prefix_vltime, Kind::Number, nullptr),
    MEMBER("IPv6DefaultGateway", ipv6_default_gateway, Kind::Text, nullptr),
    MEMBER("IPv6DsliteEnable", ipv6_dslite_enable, Kind::Flag, nullptr),
    MEMBER("IPv6AftrMode", ipv6_aftr_mode, Kind::Number, nullptr),
    MEMBER("IPv6AftrAddress", ipv6_aftr_address, Kind::Text, nullptr),
    MEMBER("ServiceList", service_list, Kind::Text, nullptr),
};

#undef MEMBER

bool parse_number(const std::string &text, long *out) {
  if (text.empty()) return false;
  char *end = nullptr;
  long v = strtol(text.c_str(), &end, 10);
  if (*end != '\0') return false;
  *out = v;
  return true;
}

// A code given as its text or as its number.
bool parse_code(const std::vector<const char *> &codes, const std::string &text, long *out) {
  for (size_t i = 0; i < codes.size(); ++i) {
    if (codes[i][0] != '\0' && text == codes[i]) {
      *out = static_cast<long>(i);
      return true;
    }
  }
  return parse_number(text, out) && *out >= 0 && static_cast<size_t>(*out) < codes.size();
}

// The state value of a change-record text, or false when the platform refuses the text.
bool state_value(const Member &m, const std::string &text, std::string *value) {
  long v = 0;
  switch (m.kind) {
    case Kind::Text:
      *value = text;
      return true;
    case Kind::Number:
      if (!parse_number(text, &v)) return false;
      break;
    case Kind::Flag:
      if (text == "TRUE" || text == "1") {
        v = 1;
      } else if (text == "FALSE" || text == "0") {
        v = 0;
      } else {
        return false;
      }
      break;
    case Kind::Code:
      if (!parse_code(*m.codes, text, &v)) return false;
      break;
  }
  *value = std::to_string(v);
  return true;
}

int text_getter(const char *fn, const char *key, int pvc, int entry, char *out) {
  sim::call(fn, "%d, %d", pvc, entry);
  sim::Guard guard;
  std::string s = find_by_pvc_entry(pvc, entry);
  if (s.empty()) return sim::result(fn, -1);
  sim::out_text(out, kStoredTextSize, s.c_str(), key);
  return sim::result(fn, 0);
}

int int_getter(const char *fn, const char *key, int pvc, int entry, int *out) {
  sim::call(fn, "%d, %d", pvc, entry);
  sim::Guard guard;
  std::string s = find_by_pvc_entry(pvc, entry);
  if (s.empty()) return sim::result(fn, -1);
  if (sim::get(s.c_str(), key) != nullptr) *out = static_cast<int>(sim::get_int(s.c_str(), key));
  return sim::result(fn, 0);
}

// The configuration tree's nodes of a connection.
const char kTreeCommon[] = "tcapi WanInfo_Common";
std::string tree_pvc(long long pvc) { return "tcapi Wan_PVC" + std::to_string(pvc); }
std::string tree_entry(long long pvc, long long entry) {
  return tree_pvc(pvc) + "_Entry" + std::to_string(entry);
}

// The tree's list of connections, internal index PVC * 8 + entry, with `v` added or taken out.
void list_in_tree(long long v, bool listed) {
  std::string list = sim::get_str(kTreeCommon, "ValidIFIndex"), kept;
  size_t pos = 0;
  while (pos <= list.size()) {
    size_t comma = list.find(',', pos);
    if (comma == std::string::npos) comma = list.size();
    std::string item = list.substr(pos, comma - pos);
    if (!item.empty() && item != std::to_string(v)) kept += (kept.empty() ? "" : ",") + item;
    pos = comma + 1;
  }
  if (listed) kept += (kept.empty() ? "" : ",") + std::to_string(v);
  sim::set(kTreeCommon, "ValidIFIndex", kept);
}

// Describes the connection of state section `s` (WAN index `index`) in the tree as the default
// gateway's are: VLAN mode 2 is a tagged VLAN, the bridged connection types are bridges.
void describe_in_tree(const std::string &s, int index) {
  long long pvc = sim::get_int(s.c_str(), "PVC"), entry = sim::get_int(s.c_str(), "Entry");
  long long type = sim::get_int(s.c_str(), "ConnectionType");
  std::string node = tree_pvc(pvc);
  sim::set(node.c_str(), "VLANMode", sim::get_int(s.c_str(), "VLANMode") == 2 ? "TAG" : "UNTAG");
  sim::set(node.c_str(), "VLANID", sim::get_str(s.c_str(), "VLANIDMark"));
  node = tree_entry(pvc, entry);
  sim::set(node.c_str(), "IFIdx", std::to_string(index));
  sim::set(node.c_str(), "ServiceList", sim::get_str(s.c_str(), "ServiceList"));
  sim::set(node.c_str(), "WanMode", type == 2 || type == 3 ? "Bridge" : "Route");
}

// Takes the connection of state section `s` out of the tree, with its port-mapping slots, and
// its PVC's node when no other connection of the PVC is left.
void remove_from_tree(const std::string &s) {
  long long pvc = sim::get_int(s.c_str(), "PVC"), entry = sim::get_int(s.c_str(), "Entry");
  long long v = pvc * 8 + entry;
  list_in_tree(v, false);
  sim::remove_section(tree_entry(pvc, entry).c_str());
  for (int slot = 0; slot < 10; ++slot) {
    std::string rule = "tcapi VirServer_Entry" + std::to_string(v) + "_Entry" + std::to_string(slot);
    sim::remove_section(rule.c_str());
  }
  bool pvc_used = false;
  for (const std::string &other : sim::section_names("wan "))
    if (other != s && sim::get(other.c_str(), "PVC") != nullptr && sim::get_int(other.c_str(), "PVC") == pvc)
      pvc_used = true;
  if (!pvc_used) sim::remove_section(tree_pvc(pvc).c_str());
}

unsigned long long counter(const std::string &section, const char *key) {
  return strtoull(sim::get_str(section.c_str(), key).c_str(), nullptr, 0);
}

}  // namespace

#define SIM_WAN_TEXT_GETTER(fn, key) \
  extern "C" SIM_EXPORT int fn(int pvc, int entry, char *out) { \
    return text_getter(#fn, key, pvc, entry, out);                \
  }
#define SIM_WAN_INT_GETTER(fn, key) \
  extern "C" SIM_EXPORT int fn(int pvc, int entry, int *out) { \
    return int_getter(#fn, key, pvc, entry, out);              \
  }
// The status getters take their output first.
#define SIM_WAN_STATUS_GETTER(fn, key) \
  extern "C" SIM_EXPORT int fn(int *out, int pvc, int entry) { \
    return int_getter(#fn, key, pvc, entry, out);              \
  }

SIM_WAN_TEXT_GETTER(brelo_wanGetLanInterface, "LanInterface")
SIM_WAN_INT_GETTER(brelo_wanGetVlanMode, "VLANMode")
SIM_WAN_INT_GETTER(brelo_wanGetVlanIdMark, "VLANIDMark")
SIM_WAN_INT_GETTER(brelo_wanGet802_1p_priority, "802-1pMark")
SIM_WAN_INT_GETTER(brelo_wanGetMulticastVlan, "MulticastVlan")
SIM_WAN_INT_GETTER(brelo_wanGetDhcpEnable, "LanInterface-DHCPEnable")
SIM_WAN_INT_GETTER(brelo_wanGetIpMode, "IPMode")
SIM_WAN_INT_GETTER(brelo_wanGetConnectionType, "ConnectionType")
SIM_WAN_INT_GETTER(brelo_wanGetNatEnabled, "NATEnabled")
SIM_WAN_TEXT_GETTER(brelo_wanGetUsername, "Username")
SIM_WAN_INT_GETTER(brelo_wanGetAddressingType, "AddressingType")
SIM_WAN_TEXT_GETTER(brelo_wanGetExternalIpAddress, "ExternalIPAddress")
SIM_WAN_TEXT_GETTER(brelo_wanGetSubnetMask, "SubnetMask")
SIM_WAN_TEXT_GETTER(brelo_wanGetDefaultGateway, "DefaultGateway")
SIM_WAN_INT_GETTER(brelo_wanGetDnsEnabled, "DNSEnabled")
SIM_WAN_TEXT_GETTER(brelo_wanGetDnsServers, "DNSServers")
SIM_WAN_TEXT_GETTER(brelo_wanGetMacAddress, "MACAddress")
SIM_WAN_INT_GETTER(brelo_wanGetConnectionTrigger, "ConnectionTrigger")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6AddressOrigin, "IPv6IPAddressOrigin")
SIM_WAN_TEXT_GETTER(brelo_wanGetIpv6IpAddress, "IPv6IPAddress")
SIM_WAN_TEXT_GETTER(brelo_wanGetIpv6DnsServers, "IPv6DNSServers")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6PrefixDelegationEnabled, "IPv6PrefixDelegationEnabled")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6PrefixOrigin, "IPv6PrefixOrigin")
SIM_WAN_TEXT_GETTER(brelo_wanGetIpv6Prefix, "IPv6Prefix")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6PrefixPltime, "IPv6PrefixPltime")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6PrefixVltime, "IPv6PrefixVltime")
SIM_WAN_TEXT_GETTER(brelo_wanGetIpv6DefaultGateway, "IPv6DefaultGateway")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6DsliteEnable, "IPv6DsliteEnable")
SIM_WAN_INT_GETTER(brelo_wanGetIpv6AftrMode, "IPv6AftrMode")
SIM_WAN_TEXT_GETTER(brelo_wanGetIpv6AftrAddress, "IPv6AftrAddress")
SIM_WAN_TEXT_GETTER(brelo_wanGetServiceList, "ServiceList")

SIM_WAN_STATUS_GETTER(brelo_wanGetUptime, "Uptime")
SIM_WAN_STATUS_GETTER(brelo_wanGetIpv4ConnStatus, "ConnectionStatus")
SIM_WAN_STATUS_GETTER(brelo_wanGetIpv6ConnStatus, "IPv6ConnStatus")
SIM_WAN_STATUS_GETTER(brelo_wanGetLastConnectionError, "LastConnectionError")

extern "C" {

// The list in section order. [wan_common] list_unavailable = 1 makes the platform hand over
// no list at all (a NULL pointer).
SIM_EXPORT int brelo_wanGetIfList(WanIfListRecord **list, int *count) {
  sim::call("brelo_wanGetIfList", "%s", "");
  sim::Guard guard;
  if (sim::get_int(kCommon, "list_unavailable") == 1) return sim::result("brelo_wanGetIfList", -1);
  std::vector<std::string> names;
  for (const std::string &s : sim::sections("wan "))
    if (sim::get(s.c_str(), "PVC") != nullptr) names.push_back(s);
  // Never a NULL list on success, even when it is empty.
  auto *out = static_cast<WanIfListRecord *>(calloc(names.size() + 1, sizeof(WanIfListRecord)));
  if (out == nullptr) return sim::result("brelo_wanGetIfList", -1);
  for (size_t i = 0; i < names.size(); ++i) {
    out[i].index = static_cast<int32_t>(atoi(names[i].c_str() + 4));
    sim::out_text(out[i].name, sizeof out[i].name, names[i].c_str(), "Name");
  }
  *list = out;
  *count = static_cast<int>(names.size());
  return sim::result("brelo_wanGetIfList", 0);
}

SIM_EXPORT int brelo_wanGetIfPackageStats(int wanIndex, unsigned long long *us,
                                          unsigned long long *ds) {
  sim::call("brelo_wanGetIfPackageStats", "%d", wanIndex);
  sim::Guard guard;
  if (!wan_exists(wanIndex)) return sim::result("brelo_wanGetIfPackageStats", -1);
  *us = counter(wan_section(wanIndex), "UsStats");
  *ds = counter(wan_section(wanIndex), "DsStats");
  return sim::result("brelo_wanGetIfPackageStats", 0);
}

SIM_EXPORT int brelo_wanGetIfBandwidth(int wanIndex, char *us, char *ds) {
  sim::call("brelo_wanGetIfBandwidth", "%d", wanIndex);
  sim::Guard guard;
  if (!wan_exists(wanIndex)) return sim::result("brelo_wanGetIfBandwidth", -1);
  sim::out_text(us, 128, wan_section(wanIndex).c_str(), "UsBandwidth");
  sim::out_text(ds, 128, wan_section(wanIndex).c_str(), "DsBandwidth");
  return sim::result("brelo_wanGetIfBandwidth", 0);
}

SIM_EXPORT int brelo_wanGetPvcEntryIndex(int wanIndex, int *pvc, int *entry) {
  sim::call("brelo_wanGetPvcEntryIndex", "%d", wanIndex);
  sim::Guard guard;
  if (!wan_exists(wanIndex)) return sim::result("brelo_wanGetPvcEntryIndex", -1);
  *pvc = static_cast<int>(sim::get_int(wan_section(wanIndex).c_str(), "PVC"));
  *entry = static_cast<int>(sim::get_int(wan_section(wanIndex).c_str(), "Entry"));
  return sim::result("brelo_wanGetPvcEntryIndex", 0);
}

SIM_EXPORT int brelo_wanGetInternetWANIndex(void) {
  sim::call("brelo_wanGetInternetWANIndex", "%s", "");
  return sim::result("brelo_wanGetInternetWANIndex",
                     static_cast<int>(sim::get_int(kCommon, "internet_index")));
}

// A new connection at the lowest free WAN index 1..8 and the lowest free PVC, entry 0, named
// after its service and VLAN as the gateway names them. -1 for an unknown connection type, a
// VLAN text that is not a number, or no free index.
SIM_EXPORT int brelo_wanAddIf(char *vlanMode, char *vlanIdMark, char *connectionType) {
  sim::call("brelo_wanAddIf", "\"%s\", \"%s\", \"%s\"", vlanMode, vlanIdMark, connectionType);
  sim::Guard guard;
  long mode = 0, vid = 0, type = 0;
  if (!parse_number(vlanMode, &mode) || !parse_number(vlanIdMark, &vid) ||
      !parse_code(kConnectionTypes, connectionType, &type) || type == 0)
    return sim::result("brelo_wanAddIf", -1);
  int index = 0;
  for (int i = 1; i <= 8 && index == 0; ++i)
    if (!wan_exists(i)) index = i;
  if (index == 0) return sim::result("brelo_wanAddIf", -1);
  int pvc = 0;
  while (!find_by_pvc_entry(pvc, 0).empty()) ++pvc;

  bool bridged = type == 2 || type == 3;
  char name[64];
  snprintf(name, sizeof name, "%d_INTERNET_%s_VID_%ld", index, bridged ? "B" : "R", vid);
  char mac[32];
  snprintf(mac, sizeof mac, "00:1A:2B:3C:4D:%02X", 0x60 + index);
  std::string s = wan_section(index);
  const std::pair<const char *, std::string> values[] = {
      {"PVC", std::to_string(pvc)},
      {"Entry", "0"},
      {"Name", name},
      {"LanInterface", ""},
      {"VLANMode", std::to_string(mode)},
      {"VLANIDMark", std::to_string(vid)},
      {"802-1pMark", "0"},
      {"MulticastVlan", "0"},
      {"LanInterface-DHCPEnable", bridged ? "0" : "1"},
      {"IPMode", "1"},
      {"ConnectionType", std::to_string(type)},
      {"NATEnabled", bridged ? "0" : "1"},
      {"AddressingType", type == 1 ? "1" : "0"},
      {"DNSEnabled", bridged ? "0" : "1"},
      {"MACAddress", mac},
      {"ConnectionTrigger", "1"},
      {"ServiceList", "INTERNET"},
      {"Uptime", "0"},
      {"ConnectionStatus", bridged ? "0" : "1"},
      {"IPv6ConnStatus", "0"},
      {"LastConnectionError", "0"},
      {"UsStats", "0"},
      {"DsStats", "0"},
  };
  for (const auto &v : values) sim::set(s.c_str(), v.first, v.second);
  describe_in_tree(s, index);
  list_in_tree(pvc * 8, true);
  return sim::result("brelo_wanAddIf", index);
}

// Accepts a JSON object whose members are named as in the change record; each member is a
// string, a number or a boolean and must fit its field. Other members are ignored. Negative
// for anything else (not JSON, not an object, a member of another type or too long).
SIM_EXPORT int brelo_wanParseIfInfoParam(const char *json, WanChangeRecord *rec) {
  sim::call("brelo_wanParseIfInfoParam", "\"%s\"", json);
  rapidjson::Document doc;
  doc.Parse(json);
  if (doc.HasParseError() || !doc.IsObject()) return sim::result("brelo_wanParseIfInfoParam", -1);
  char *base = reinterpret_cast<char *>(rec);
  for (const Member &m : kMembers) {
    auto it = doc.FindMember(m.name);
    if (it == doc.MemberEnd()) continue;
    const rapidjson::Value &v = it->value;
    std::string text;
    if (v.IsString()) {
      text.assign(v.GetString(), v.GetStringLength());
    } else if (v.IsInt64()) {
      text = std::to_string(v.GetInt64());
    } else if (v.IsBool()) {
      text = v.GetBool() ? "TRUE" : "FALSE";
    } else {
      return sim::result("brelo_wanParseIfInfoParam", -1);
    }
    if (text.size() >= m.capacity || text.find('\0') != std::string::npos)
      return sim::result("brelo_wanParseIfInfoParam", -1);
    memcpy(base + m.offset, text.c_str(), text.size() + 1);
  }
  return sim::result("brelo_wanParseIfInfoParam", 0);
}

// Applies every non-empty member of the change request to the connection, all or nothing:
// -1 for an unknown index or a member value the platform does not accept.
SIM_EXPORT int brelo_wanSetIf(int wanIndex, WanChangeRecord *rec) {
  sim::call("brelo_wanSetIf", "%d", wanIndex);
  sim::Guard guard;
  if (!wan_exists(wanIndex)) return sim::result("brelo_wanSetIf", -1);
  const char *base = reinterpret_cast<const char *>(rec);
  std::vector<std::pair<const char *, std::string>> changes;
  for (const Member &m : kMembers) {
    std::string text(base + m.offset, strnlen(base + m.offset, m.capacity));
    if (text.empty()) continue;
    std::string value;
    if (!state_value(m, text, &value)) return sim::result("brelo_wanSetIf", -1);
    changes.emplace_back(m.name, value);
  }
  std::string s = wan_section(wanIndex);
  for (const auto &c : changes) sim::set(s.c_str(), c.first, c.second);
  if (!changes.empty()) describe_in_tree(s, wanIndex);
  return sim::result("brelo_wanSetIf", 0);
}

SIM_EXPORT int brelo_wanDeleteIf(int wanIndex) {
  sim::call("brelo_wanDeleteIf", "%d", wanIndex);
  sim::Guard guard;
  if (!wan_exists(wanIndex)) return sim::result("brelo_wanDeleteIf", -1);
  remove_from_tree(wan_section(wanIndex));
  sim::remove_section(wan_section(wanIndex).c_str());
  return sim::result("brelo_wanDeleteIf", 0);
}

}  // extern "C"
