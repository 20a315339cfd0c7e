// Simulated platform functions: WLAN radios, SSIDs, WPS, guest SSIDs, neighbours and
// stations. State: sections [wlan radio <n>], [wlan ssid <index>], [wlan neighbour <n>],
// [wlan station <n>] and the configuration-tree nodes WLanForGuest_Entry0/1
// (see sim/gateway/wlan.ini).
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <string>

#include "common/platform_wlan.h"
#include "sim/sim.h"

namespace {

std::string ssid_section(int index) { return "wlan ssid " + std::to_string(index); }
std::string radio_section(int radio) { return "wlan radio " + std::to_string(radio); }

bool has_section(const std::string &name) { return sim::entry_count(name.c_str()) != 0; }

// The radio section whose "type" is `type` ("" when none is).
std::string radio_named(const char *type) {
  for (auto &s : sim::sections("wlan radio ")) {
    if (sim::get_str(s.c_str(), "type") == type) return s;
  }
  return "";
}

int code_of(const char *name, const char *const *names, int count) {
  for (int i = 0; i < count; ++i)
    if (names[i][0] != '\0' && strcmp(names[i], name) == 0) return i;
  return -1;
}

const char *const kStandards[] = {"11bg", "11b", "11a", "", "11g", "", "11n",
                                  "11gn", "11na", "11bgn", "", "11ac"};
const char *const kEncryptions[] = {"OPEN", "WEP", "WPAPSK", "WPAPSK2", "MIXED-WPAPSK2"};
const char *const kWidths[] = {"20M", "40M", "Auto20M40M", "Auto20M40M80M"};

template <size_t N>
void put_text(char (&field)[N], const std::string &value) {
  size_t n = value.size() < N - 1 ? value.size() : N - 1;
  memcpy(field, value.data(), n);
  field[n] = '\0';
}

int32_t get32(const std::string &section, const char *key) {
  return static_cast<int32_t>(sim::get_int(section.c_str(), key));
}

// Sets a key of an existing SSID; -1 (and no change) for an SSID the gateway does not have.
int set_ssid(int index, const char *key, const std::string &value) {
  std::string s = ssid_section(index);
  if (!has_section(s)) return -1;
  sim::set(s.c_str(), key, value);
  return 0;
}

// The guest node whose SSIDIndex is `index` ("" when none is).
std::string guest_node_of(int index) {
  sim::Guard guard;
  for (int e = 0; e < 2; ++e) {
    std::string node = "tcapi WLanForGuest_Entry" + std::to_string(e);
    const char *v = sim::get(node.c_str(), "SSIDIndex");
    if (v != nullptr && atoi(v) == index) return node;
  }
  return "";
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_wlansetWLANSSIDSwitch(int ssidIndex, int flag) {
  sim::call("brelo_wlansetWLANSSIDSwitch", "%d, %d", ssidIndex, flag);
  sim::Guard guard;
  int rc = set_ssid(ssidIndex, "enable", flag ? "1" : "0");
  return sim::result("brelo_wlansetWLANSSIDSwitch", rc);
}

SIM_EXPORT int brelo_wlanSetSSIDAdvertisement(int ssidIndex, int flag) {
  sim::call("brelo_wlanSetSSIDAdvertisement", "%d, %d", ssidIndex, flag);
  sim::Guard guard;
  int rc = set_ssid(ssidIndex, "hidden", flag ? "0" : "1");
  return sim::result("brelo_wlanSetSSIDAdvertisement", rc);
}

SIM_EXPORT int brelo_wlanSetWLANRadioSwitch(const char *radioType, int flag) {
  sim::call("brelo_wlanSetWLANRadioSwitch", "\"%s\", %d", radioType, flag);
  sim::Guard guard;
  std::string s = radio_named(radioType);
  int rc = -1;
  if (!s.empty()) {
    sim::set(s.c_str(), "enable", flag ? "1" : "0");
    rc = 0;
  }
  return sim::result("brelo_wlanSetWLANRadioSwitch", rc);
}

SIM_EXPORT int brelo_wlanSetSecurity(int ssidIndex, const char *ssidName, const char *encrypt,
                                     const char *password) {
  sim::call("brelo_wlanSetSecurity", "%d, \"%s\", \"%s\", \"%s\"", ssidIndex, ssidName, encrypt,
            password);
  sim::Guard guard;
  int code = code_of(encrypt, kEncryptions, 5);
  int rc = -1;
  if (code >= 0 && has_section(ssid_section(ssidIndex))) {
    set_ssid(ssidIndex, "name", ssidName);
    set_ssid(ssidIndex, "encryption", std::to_string(code));
    set_ssid(ssidIndex, "password", password);
    rc = 0;
  }
  return sim::result("brelo_wlanSetSecurity", rc);
}

SIM_EXPORT int brelo_wlanSetWLANStandard(const char *radioType, const char *standard) {
  sim::call("brelo_wlanSetWLANStandard", "\"%s\", \"%s\"", radioType, standard);
  sim::Guard guard;
  std::string s = radio_named(radioType);
  int code = code_of(standard, kStandards, 12);
  int rc = -1;
  if (!s.empty() && code >= 0) {
    sim::set(s.c_str(), "standard", std::to_string(code));
    rc = 0;
  }
  return sim::result("brelo_wlanSetWLANStandard", rc);
}

SIM_EXPORT int brelo_wlansetWLANRadioChannel(const char *radioType, int channel) {
  sim::call("brelo_wlansetWLANRadioChannel", "\"%s\", %d", radioType, channel);
  sim::Guard guard;
  std::string s = radio_named(radioType);
  int rc = -1;
  // Channel 0 asks for automatic selection.
  if (!s.empty() && channel >= 0 && channel <= 196) {
    if (channel == 0) {
      sim::set(s.c_str(), "auto_channel", "1");
    } else {
      sim::set(s.c_str(), "auto_channel", "0");
      sim::set(s.c_str(), "channel", std::to_string(channel));
    }
    rc = 0;
  }
  return sim::result("brelo_wlansetWLANRadioChannel", rc);
}

SIM_EXPORT int brelo_wlansetWLANRadioPower(const char *radioType, int transmitPower) {
  sim::call("brelo_wlansetWLANRadioPower", "\"%s\", %d", radioType, transmitPower);
  sim::Guard guard;
  std::string s = radio_named(radioType);
  int rc = -1;
  // The power is given in percent: 100, 80, 60, 40 or 20 (levels 1 to 5).
  if (!s.empty() && transmitPower >= 20 && transmitPower <= 100 && transmitPower % 20 == 0) {
    sim::set(s.c_str(), "power_level", std::to_string((120 - transmitPower) / 20));
    rc = 0;
  }
  return sim::result("brelo_wlansetWLANRadioPower", rc);
}

SIM_EXPORT int brelo_wlansetWLANRadioFrequencyWidth(const char *radioType,
                                                   const char *frequencyWidth) {
  sim::call("brelo_wlansetWLANRadioFrequencyWidth", "\"%s\", \"%s\"", radioType, frequencyWidth);
  sim::Guard guard;
  std::string s = radio_named(radioType);
  int code = code_of(frequencyWidth, kWidths, 4);
  int rc = -1;
  if (!s.empty() && code >= 0) {
    sim::set(s.c_str(), "width_code", std::to_string(code));
    rc = 0;
  }
  return sim::result("brelo_wlansetWLANRadioFrequencyWidth", rc);
}

SIM_EXPORT int brelo_wlanstartWLANWPS(int ssidIndex) {
  sim::call("brelo_wlanstartWLANWPS", "%d", ssidIndex);
  sim::Guard guard;
  int rc = set_ssid(ssidIndex, "wps_status", "1");
  return sim::result("brelo_wlanstartWLANWPS", rc);
}

SIM_EXPORT int brelo_wlanstopWLANWPS(int ssidIndex) {
  sim::call("brelo_wlanstopWLANWPS", "%d", ssidIndex);
  sim::Guard guard;
  int rc = set_ssid(ssidIndex, "wps_status", "0");
  return sim::result("brelo_wlanstopWLANWPS", rc);
}

// A new guest SSID takes the first free of the two guest nodes; -1 when both are taken or the
// SSID is already a guest.
SIM_EXPORT int brelo_wlansetGuestSSIDIndex(int ssidIndex) {
  sim::call("brelo_wlansetGuestSSIDIndex", "%d", ssidIndex);
  sim::Guard guard;
  int rc = -1;
  if (guest_node_of(ssidIndex).empty()) {
    for (int e = 0; e < 2; ++e) {
      std::string node = "tcapi WLanForGuest_Entry" + std::to_string(e);
      if (sim::get(node.c_str(), "SSIDIndex") != nullptr) continue;
      sim::set(node.c_str(), "SSIDIndex", std::to_string(ssidIndex));
      sim::set(node.c_str(), "Duration", "0");
      sim::set(node.c_str(), "DurationRemain", "0");
      sim::set(node.c_str(), "PortIsolation", "0");
      rc = 0;
      break;
    }
  }
  return sim::result("brelo_wlansetGuestSSIDIndex", rc);
}

SIM_EXPORT int brelo_wlandelGuestSSID(int ssidIndex) {
  sim::call("brelo_wlandelGuestSSID", "%d", ssidIndex);
  sim::Guard guard;
  std::string node = guest_node_of(ssidIndex);
  int rc = -1;
  if (!node.empty()) {
    sim::remove_section(node.c_str());
    rc = 0;
  }
  return sim::result("brelo_wlandelGuestSSID", rc);
}

SIM_EXPORT int brelo_wlansetGuestPortIsolation(int ssidIndex, int flag) {
  sim::call("brelo_wlansetGuestPortIsolation", "%d, %d", ssidIndex, flag);
  sim::Guard guard;
  std::string node = guest_node_of(ssidIndex);
  int rc = -1;
  if (!node.empty()) {
    sim::set(node.c_str(), "PortIsolation", flag ? "1" : "0");
    rc = 0;
  }
  return sim::result("brelo_wlansetGuestPortIsolation", rc);
}

// The duration (minutes) restarts the remaining time.
SIM_EXPORT int brelo_wlansetGuestDuration(int ssidIndex, int duration) {
  sim::call("brelo_wlansetGuestDuration", "%d, %d", ssidIndex, duration);
  sim::Guard guard;
  std::string node = guest_node_of(ssidIndex);
  int rc = -1;
  if (!node.empty() && duration >= 0) {
    sim::set(node.c_str(), "Duration", std::to_string(duration));
    sim::set(node.c_str(), "DurationRemain", std::to_string(duration));
    rc = 0;
  }
  return sim::result("brelo_wlansetGuestDuration", rc);
}

SIM_EXPORT int brelo_wlanGetSSIDInfo(int ssidIndex, WlanSsidInfoRecord *rec) {
  sim::call("brelo_wlanGetSSIDInfo", "%d", ssidIndex);
  sim::Guard guard;
  std::string s = ssid_section(ssidIndex);
  if (!has_section(s)) return sim::result("brelo_wlanGetSSIDInfo", -1);
  rec->enabled = get32(s, "enable");
  put_text(rec->bssid, sim::get_str(s.c_str(), "bssid"));
  put_text(rec->ssid, sim::get_str(s.c_str(), "name"));
  rec->hidden = get32(s, "hidden");
  rec->standard = get32(radio_section(get32(s, "radio")), "standard");
  rec->encryption = get32(s, "encryption");
  return sim::result("brelo_wlanGetSSIDInfo", 0);
}

SIM_EXPORT int brelo_wlanGetSSIDStats(int ssidIndex, WlanSsidStatsRecord *rec) {
  sim::call("brelo_wlanGetSSIDStats", "%d", ssidIndex);
  sim::Guard guard;
  std::string s = ssid_section(ssidIndex);
  if (!has_section(s)) return sim::result("brelo_wlanGetSSIDStats", -1);
  auto counter = [&](const char *key) {
    return static_cast<uint32_t>(sim::get_int(s.c_str(), key));
  };
  rec->bytes_sent = counter("bytes_sent");
  rec->bytes_received = counter("bytes_received");
  rec->packets_sent = counter("packets_sent");
  rec->packets_received = counter("packets_received");
  rec->errors_sent = counter("errors_sent");
  rec->errors_received = counter("errors_received");
  rec->discard_sent = counter("discard_sent");
  rec->discard_received = counter("discard_received");
  return sim::result("brelo_wlanGetSSIDStats", 0);
}

SIM_EXPORT int brelo_wlanGetWPSStatus(int ssidIndex) {
  sim::call("brelo_wlanGetWPSStatus", "%d", ssidIndex);
  sim::Guard guard;
  std::string s = ssid_section(ssidIndex);
  int status = has_section(s) ? get32(s, "wps_status") : -1;
  return sim::result("brelo_wlanGetWPSStatus", status);
}

SIM_EXPORT int brelo_wlanGetRadioSwitch(const char *radioType) {
  sim::call("brelo_wlanGetRadioSwitch", "\"%s\"", radioType);
  sim::Guard guard;
  std::string s = radio_named(radioType);
  int on = s.empty() ? 0 : (get32(s, "enable") != 0 ? 1 : 0);
  return sim::result("brelo_wlanGetRadioSwitch", on);
}

SIM_EXPORT int brelo_wlanGetRadioInfo(int radio, WlanRadioInfoRecord *rec) {
  sim::call("brelo_wlanGetRadioInfo", "%d", radio);
  sim::Guard guard;
  std::string s = radio_section(radio);
  if (!has_section(s)) return sim::result("brelo_wlanGetRadioInfo", -1);
  rec->channel = get32(s, "channel");
  rec->auto_channel = get32(s, "auto_channel");
  rec->power_level = get32(s, "power_level");
  rec->width_code = get32(s, "width_code");
  return sim::result("brelo_wlanGetRadioInfo", 0);
}

// Fills the neighbours of `radio` in section order, at most WLAN_MAX_NEIGHBORS. The count
// reported may be programmed with [wlan] neighbour_count (a platform that reports more than
// it wrote).
SIM_EXPORT int brelo_wlanGetNeighbor(int radio, WlanNeighborRecord *array, int *count) {
  sim::call("brelo_wlanGetNeighbor", "%d", radio);
  sim::Guard guard;
  int n = 0;
  for (auto &s : sim::sections("wlan neighbour ")) {
    if (n == WLAN_MAX_NEIGHBORS) break;
    if (get32(s, "radio") != radio) continue;
    WlanNeighborRecord &r = array[n++];
    put_text(r.ssid, sim::get_str(s.c_str(), "ssid"));
    put_text(r.bssid, sim::get_str(s.c_str(), "bssid"));
    r.channel = get32(s, "channel");
    r.rssi = get32(s, "rssi");
    r.standard = get32(s, "standard");
  }
  *count = sim::get("wlan", "neighbour_count") != nullptr ? get32("wlan", "neighbour_count") : n;
  return sim::result("brelo_wlanGetNeighbor", 0);
}

// Fills the associated stations in section order, at most WLAN_MAX_HOSTS; with MACs requested
// only the stations among them (ignoring case). The count reported may be programmed with
// [wlan] station_count.
SIM_EXPORT int brelo_wlanGetHostInfo(WlanHostRecord *hosts, int *count, char (*macs)[128],
                                     int macCount) {
  std::string requested = "[";
  for (int j = 0; sim::logging() && j < macCount && j < 256; ++j) {  // only the log shows it
    if (j > 0) requested += ", ";
    requested += "\"" + std::string(macs[j], strnlen(macs[j], 128)) + "\"";
  }
  requested += "]";
  sim::call("brelo_wlanGetHostInfo", "%s, %d", requested.c_str(), macCount);
  sim::Guard guard;
  int n = 0;
  for (auto &s : sim::sections("wlan station ")) {
    if (n == WLAN_MAX_HOSTS) break;
    std::string mac = sim::get_str(s.c_str(), "mac");
    bool wanted = macCount <= 0;
    for (int j = 0; j < macCount && j < 256 && !wanted; ++j)
      wanted = strncasecmp(macs[j], mac.c_str(), 128) == 0;
    if (!wanted) continue;
    WlanHostRecord &h = hosts[n++];
    h.ssid_index = get32(s, "ssid_index");
    h.rssi = get32(s, "rssi");
    put_text(h.mac, mac);
  }
  *count = sim::get("wlan", "station_count") != nullptr ? get32("wlan", "station_count") : n;
  return sim::result("brelo_wlanGetHostInfo", 0);
}

SIM_EXPORT int brelo_wlanGetSSIDPassword(int ssidIndex, char *buf) {
  sim::call("brelo_wlanGetSSIDPassword", "%d", ssidIndex);
  sim::Guard guard;
  std::string s = ssid_section(ssidIndex);
  if (!has_section(s)) return sim::result("brelo_wlanGetSSIDPassword", -1);
  sim::out_text(buf, WLAN_PASSWORD_SIZE, s.c_str(), "password");
  return sim::result("brelo_wlanGetSSIDPassword", 0);
}

}  // extern "C"
