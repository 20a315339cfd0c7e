// Platform library (libbrelo.so.1): WLAN radios, SSIDs, WPS, guest SSIDs, neighbouring access
// points and associated stations.
#ifndef BUNDLE_COMMON_PLATFORM_WLAN_H
#define BUNDLE_COMMON_PLATFORM_WLAN_H

#include <stddef.h>
#include <stdint.h>

// One SSID as brelo_wlanGetSSIDInfo reports it (176 bytes; the caller zeroes it).
struct WlanSsidInfoRecord {
  int32_t enabled;     // non-zero = enabled
  char bssid[32];
  char ssid[128];
  int32_t hidden;      // non-zero = not advertised
  int32_t standard;    // standard code (0 "11bg" ... 11 "11ac")
  int32_t encryption;  // 0 OPEN, 1 WEP, 2 WPAPSK, 3 WPAPSK2, 4 MIXED-WPAPSK2
};
static_assert(sizeof(WlanSsidInfoRecord) == 176, "WlanSsidInfoRecord is 176 bytes");
static_assert(offsetof(WlanSsidInfoRecord, bssid) == 4, "BSSID at 4");
static_assert(offsetof(WlanSsidInfoRecord, ssid) == 36, "SSID name at 36");
static_assert(offsetof(WlanSsidInfoRecord, hidden) == 164, "hidden flag at 164");
static_assert(offsetof(WlanSsidInfoRecord, standard) == 168, "standard code at 168");
static_assert(offsetof(WlanSsidInfoRecord, encryption) == 172, "encryption code at 172");

// Counters of one SSID (32 bytes).
struct WlanSsidStatsRecord {
  uint32_t bytes_sent;
  uint32_t bytes_received;
  uint32_t packets_sent;
  uint32_t packets_received;
  uint32_t errors_sent;
  uint32_t errors_received;
  uint32_t discard_sent;
  uint32_t discard_received;
};
static_assert(sizeof(WlanSsidStatsRecord) == 32, "WlanSsidStatsRecord is 32 bytes");
static_assert(offsetof(WlanSsidStatsRecord, discard_received) == 28, "last counter at 28");

// One radio (16 bytes). Radio 0 is the 2.4 GHz radio, radio 1 the 5 GHz one.
struct WlanRadioInfoRecord {
  int32_t channel;
  int32_t auto_channel;  // non-zero = automatic channel selection
  int32_t power_level;   // 1 (100 %) .. 5 (20 %)
  int32_t width_code;    // 0 20 MHz, 1 40 MHz, 3 auto 20/40/80 MHz, other auto 20/40 MHz
};
static_assert(sizeof(WlanRadioInfoRecord) == 16, "WlanRadioInfoRecord is 16 bytes");
static_assert(offsetof(WlanRadioInfoRecord, width_code) == 12, "width code at 12");

// One neighbouring access point (180 bytes). brelo_wlanGetNeighbor fills at most
// WLAN_MAX_NEIGHBORS of them.
struct WlanNeighborRecord {
  char ssid[128];
  char bssid[32];
  int32_t channel;
  int32_t rssi;
  int32_t reserved1;  // the platform's own
  int32_t standard;
  int32_t reserved2;  // the platform's own
};
static_assert(sizeof(WlanNeighborRecord) == 180, "WlanNeighborRecord is 180 bytes");
static_assert(offsetof(WlanNeighborRecord, bssid) == 128, "BSSID at 128");
static_assert(offsetof(WlanNeighborRecord, channel) == 160, "channel at 160");
static_assert(offsetof(WlanNeighborRecord, rssi) == 164, "RSSI at 164");
static_assert(offsetof(WlanNeighborRecord, standard) == 172, "standard code at 172");

// One associated station (40 bytes). brelo_wlanGetHostInfo fills at most WLAN_MAX_HOSTS.
struct WlanHostRecord {
  int32_t ssid_index;
  int32_t rssi;
  char mac[32];  // "xx:xx:xx:xx:xx:xx"
};
static_assert(sizeof(WlanHostRecord) == 40, "WlanHostRecord is 40 bytes");
static_assert(offsetof(WlanHostRecord, mac) == 8, "MAC text at 8");

#define WLAN_MAX_NEIGHBORS 128
#define WLAN_MAX_HOSTS 128
#define WLAN_PASSWORD_SIZE 512

// Texts are NUL-terminated; flags are 0/1; every function returns 0 on success unless noted.
extern "C" {
int brelo_wlansetWLANSSIDSwitch(int ssidIndex, int flag);
int brelo_wlanSetSSIDAdvertisement(int ssidIndex, int flag);
int brelo_wlanSetWLANRadioSwitch(const char *radioType, int flag);
int brelo_wlanSetSecurity(int ssidIndex, const char *ssidName, const char *encrypt,
                          const char *password);
int brelo_wlanSetWLANStandard(const char *radioType, const char *standard);
int brelo_wlansetWLANRadioChannel(const char *radioType, int channel);
int brelo_wlansetWLANRadioPower(const char *radioType, int transmitPower);
int brelo_wlansetWLANRadioFrequencyWidth(const char *radioType, const char *frequencyWidth);
// 0 started; -1 .. -5 are the platform's distinct refusals.
int brelo_wlanstartWLANWPS(int ssidIndex);
int brelo_wlanstopWLANWPS(int ssidIndex);
int brelo_wlansetGuestSSIDIndex(int ssidIndex);
int brelo_wlandelGuestSSID(int ssidIndex);
int brelo_wlansetGuestPortIsolation(int ssidIndex, int flag);
int brelo_wlansetGuestDuration(int ssidIndex, int duration);

int brelo_wlanGetSSIDInfo(int ssidIndex, WlanSsidInfoRecord *rec);
int brelo_wlanGetSSIDStats(int ssidIndex, WlanSsidStatsRecord *rec);
// The WPS status itself.
int brelo_wlanGetWPSStatus(int ssidIndex);
// 1 when the radio is switched on.
int brelo_wlanGetRadioSwitch(const char *radioType);
int brelo_wlanGetRadioInfo(int radio, WlanRadioInfoRecord *rec);
// `array` holds WLAN_MAX_NEIGHBORS records (the capacity is not passed).
int brelo_wlanGetNeighbor(int radio, WlanNeighborRecord *array, int *count);
// `hosts` holds WLAN_MAX_HOSTS records; `macs` is the MAC list buffer (256 x 128) of which
// `macCount` entries are requested (0: every station).
int brelo_wlanGetHostInfo(WlanHostRecord *hosts, int *count, char (*macs)[128], int macCount);
// `buf` holds WLAN_PASSWORD_SIZE bytes (the size is not passed).
int brelo_wlanGetSSIDPassword(int ssidIndex, char *buf);
}

#endif
