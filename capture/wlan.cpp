// wlan.ini: radios, SSIDs, neighbouring access points, associated stations, and the WLAN nodes
// of the configuration tree (guest SSIDs, station speed limits).
//
// The library names radio 0 "2.4G" and radio 1 by any other text; the state names them so. An
// SSID reports its radio's standard; an SSID is put on the radio its index suggests (1-4 the
// 2.4 GHz one, others the 5 GHz one) or on the other, whichever has its standard, else on a
// radio of its own (numbered from 2, never asked for by the library).
#include <stdlib.h>
#include <string.h>

#include "capture/array.h"
#include "capture/context.h"
#include "capture/tree_node.h"

namespace capture {
namespace {

constexpr int kMaxSsidIndex = 16;  // indexes 0 to 16 are asked
constexpr int kRadios = 2;
constexpr int kGuestEntries = 2;
constexpr int kBandwidthEntries = 64;
const char *const kRadioTypes[kRadios] = {"2.4G", "5G"};

struct Ssid {
  int index;
  int radio;
  WlanSsidInfoRecord info;
  WlanSsidStatsRecord stats;
  int wps;
  char password[WLAN_PASSWORD_SIZE];
};

struct Radio {
  bool exists;  // the platform knows it (radios 0 and 1 only)
  bool has_standard;
  int32_t standard;
  WlanRadioInfoRecord info;
  int on;
};

// The radio an SSID goes on (see above); `radios` grows when a radio of its own is needed.
int radio_for(Array<Radio> *radios, int index, int32_t standard) {
  int preferred = index >= 1 && index <= 4 ? 0 : 1;
  const int tried[2] = {preferred, 1 - preferred};
  for (int r : tried) {
    Radio &radio = (*radios)[static_cast<size_t>(r)];
    if (!radio.exists) continue;
    if (!radio.has_standard) {
      radio.has_standard = true;
      radio.standard = standard;
    }
    if (radio.standard == standard) return r;
  }
  for (size_t r = kRadios; r < radios->size(); ++r)
    if ((*radios)[r].standard == standard) return static_cast<int>(r);
  if (Radio *own = radios->add()) {
    own->has_standard = true;
    own->standard = standard;
    return static_cast<int>(radios->size() - 1);
  }
  return preferred;
}

void capture_radios_and_ssids(Context &c, StateFile *f) {
  Array<Radio> radios;
  for (int r = 0; r < kRadios; ++r) {
    Radio *radio = radios.add();
    if (radio == nullptr) return;
    int info_rc = -1;
    if (CAPTURE_HAVE(c, brelo_wlanGetRadioInfo)) {
      info_rc = c.p.brelo_wlanGetRadioInfo(r, &radio->info);
      c.noted(k_brelo_wlanGetRadioInfo, info_rc, any_bytes(&radio->info, sizeof radio->info));
    }
    if (CAPTURE_HAVE(c, brelo_wlanGetRadioSwitch)) {
      radio->on = c.p.brelo_wlanGetRadioSwitch(kRadioTypes[r]);
      c.noted(k_brelo_wlanGetRadioSwitch, radio->on);
    }
    radio->exists = info_rc == 0 || any_bytes(&radio->info, sizeof radio->info) || radio->on != 0;
  }
  // A text no radio has, so the switch's answer for an unknown radio is seen too.
  if (CAPTURE_HAVE(c, brelo_wlanGetRadioSwitch))
    c.noted(k_brelo_wlanGetRadioSwitch, c.p.brelo_wlanGetRadioSwitch("capture-no-radio"));

  Array<Ssid> ssids;
  for (int index = 0; index <= kMaxSsidIndex; ++index) {
    Ssid s;
    memset(&s, 0, sizeof s);
    s.index = index;
    int info_rc = -1;
    if (CAPTURE_HAVE(c, brelo_wlanGetSSIDInfo)) {
      info_rc = c.p.brelo_wlanGetSSIDInfo(index, &s.info);
      c.noted(k_brelo_wlanGetSSIDInfo, info_rc, any_bytes(&s.info, sizeof s.info));
    }
    if (CAPTURE_HAVE(c, brelo_wlanGetSSIDStats)) {
      int rc = c.p.brelo_wlanGetSSIDStats(index, &s.stats);
      c.noted(k_brelo_wlanGetSSIDStats, rc, any_bytes(&s.stats, sizeof s.stats));
    }
    if (CAPTURE_HAVE(c, brelo_wlanGetWPSStatus)) {
      s.wps = c.p.brelo_wlanGetWPSStatus(index);
      c.noted(k_brelo_wlanGetWPSStatus, s.wps);
    }
    if (CAPTURE_HAVE(c, brelo_wlanGetSSIDPassword)) {
      int rc = c.p.brelo_wlanGetSSIDPassword(index, s.password);
      c.noted(k_brelo_wlanGetSSIDPassword, rc, s.password[0] != '\0');
    }
    // An SSID the platform does not know fails its information query and hands out nothing.
    if (info_rc != 0 && !any_bytes(&s.info, sizeof s.info)) continue;
    s.radio = radio_for(&radios, index, s.info.standard);
    ssids.push(s);
  }

  for (int r = 0; r < kRadios; ++r) {
    const Radio &radio = radios[static_cast<size_t>(r)];
    if (!radio.exists) continue;
    f->section("wlan radio %d", r);
    f->text("type", kRadioTypes[r]);
    f->number("enable", radio.on);
    f->number("channel", radio.info.channel);
    f->number("auto_channel", radio.info.auto_channel);
    f->number("power_level", radio.info.power_level);
    f->number("width_code", radio.info.width_code);
    if (radio.has_standard) f->number("standard", radio.standard);
  }
  for (size_t r = kRadios; r < radios.size(); ++r) {
    f->section("wlan radio %zu", r);
    f->comment("only the standard of the SSIDs below; the library never asks for this radio");
    f->number("standard", radios[r].standard);
  }

  for (size_t i = 0; i < ssids.size(); ++i) {
    const Ssid &s = ssids[i];
    f->section("wlan ssid %d", s.index);
    f->number("radio", s.radio);
    f->number("enable", s.info.enabled);
    f->number("hidden", s.info.hidden);
    c.customer(f, "bssid", Customer::kMac, s.info.bssid);
    c.customer(f, "name", Customer::kSsid, s.info.ssid);
    c.secret(f, "password", s.password);
    f->number("encryption", s.info.encryption);
    f->number("wps_status", s.wps);
    f->unsigned_number("bytes_sent", s.stats.bytes_sent);
    f->unsigned_number("bytes_received", s.stats.bytes_received);
    f->unsigned_number("packets_sent", s.stats.packets_sent);
    f->unsigned_number("packets_received", s.stats.packets_received);
    f->unsigned_number("errors_sent", s.stats.errors_sent);
    f->unsigned_number("errors_received", s.stats.errors_received);
    f->unsigned_number("discard_sent", s.stats.discard_sent);
    f->unsigned_number("discard_received", s.stats.discard_received);
  }
}

int bounded(int count, int capacity) { return count < 0 ? 0 : count > capacity ? capacity : count; }

// Neighbours: every record the library would read (the count bounded by the array), those the
// platform left zero included, so each radio reports the same number again.
void capture_neighbours(Context &c, StateFile *f) {
  if (!CAPTURE_HAVE(c, brelo_wlanGetNeighbor)) return;
  WlanNeighborRecord *list =
      static_cast<WlanNeighborRecord *>(calloc(WLAN_MAX_NEIGHBORS, sizeof(WlanNeighborRecord)));
  if (list == nullptr) return;
  int section = 0;
  for (int r = 0; r < kRadios; ++r) {
    memset(list, 0, WLAN_MAX_NEIGHBORS * sizeof(WlanNeighborRecord));
    int count = 0;
    int rc = c.p.brelo_wlanGetNeighbor(r, list, &count);
    int n = bounded(count, WLAN_MAX_NEIGHBORS);
    c.noted(k_brelo_wlanGetNeighbor, rc, n > 0);
    for (int i = 0; i < n; ++i) {
      const WlanNeighborRecord &ap = list[i];
      f->section("wlan neighbour %d", ++section);
      f->number("radio", r);
      c.customer(f, "ssid", Customer::kNeighbour, ap.ssid);
      c.customer(f, "bssid", Customer::kMac, ap.bssid);
      f->number("channel", ap.channel);
      f->number("rssi", ap.rssi);
      f->number("standard", ap.standard);
    }
  }
  free(list);
}

// Stations: the records up to the last one the platform wrote; a count that says otherwise
// is kept as the platform's count ([wlan] station_count), which holds for every query.
void capture_stations(Context &c, StateFile *f) {
  if (!CAPTURE_HAVE(c, brelo_wlanGetHostInfo)) return;
  WlanHostRecord *hosts = static_cast<WlanHostRecord *>(calloc(WLAN_MAX_HOSTS, sizeof(WlanHostRecord)));
  char(*macs)[128] = static_cast<char(*)[128]>(calloc(1, 128));
  if (hosts == nullptr || macs == nullptr) {
    free(hosts);
    free(macs);
    return;
  }
  int count = 0;
  int rc = c.p.brelo_wlanGetHostInfo(hosts, &count, macs, 0);
  int n = bounded(count, WLAN_MAX_HOSTS);
  c.noted(k_brelo_wlanGetHostInfo, rc, n > 0);
  int written = n;
  while (written > 0 && !any_bytes(&hosts[written - 1], sizeof hosts[0])) --written;
  if (written != n || count != n) {
    f->section("wlan");
    f->number("station_count", count);
  }
  for (int i = 0; i < written; ++i) {
    f->section("wlan station %d", i + 1);
    f->number("ssid_index", hosts[i].ssid_index);
    f->number("rssi", hosts[i].rssi);
    c.customer(f, "mac", Customer::kMac, hosts[i].mac);
  }
  free(hosts);
  free(macs);
}

void capture_wlan_tree(Context &c, StateFile *f) {
  for (int e = 0; e < kGuestEntries; ++e) {
    TreeNode node(c, f, "WLanForGuest_Entry%d", e);
    node.attr("SSIDIndex");
    node.attr("Duration");
    node.attr("DurationRemain");
    node.attr("PortIsolation");
  }
  for (int e = 0; e < kBandwidthEntries; ++e) {
    TreeNode node(c, f, "BandWidth_Entry%d", e);
    node.attr("MAC", Customer::kMac);
    node.attr("upRate");
    node.attr("downRate");
  }
}

}  // namespace

void capture_wlan(Context &c, StateFile *f) {
  capture_radios_and_ssids(c, f);
  capture_neighbours(c, f);
  capture_stations(c, f);
  capture_wlan_tree(c, f);
}

}  // namespace capture
