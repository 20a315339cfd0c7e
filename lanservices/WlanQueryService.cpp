// com.lumarest.smartgateway.lanservices.WlanQueryServiceImp: SSID information and counters,
// WPS status, radio switch and radio information, neighbouring access points, associated
// stations and guest SSIDs.
#include <stdio.h>
#include <stdlib.h>
#include <strings.h>

#include "common/array_readers.h"
#include "common/config_tree.h"
#include "common/hardened.h"
#include "common/html_encode.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_tcapi.h"
#include "common/platform_wlan.h"
#include "common/text_table.h"
#include "lanservices/lan_hosts.h"

namespace {

// Every list entry of the neighbour and station replies is given this many bytes.
const size_t kListEntrySize = 512;

// Handed to Java as a null string: the text has no buffer to land in.
const char *const kNoMemory = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";

const char kTrue[] = "TRUE";
const char kFalse[] = "FALSE";

const char *bool_text(bool value) { return value ? kTrue : kFalse; }

// Standard names indexed by the platform's standard code (common/text_table.h); empty names
// are unknown codes.
const char kStandardNames[] = "11bg\0" "11b\0" "11a\0\0" "11g\0\0" "11n\0" "11gn\0" "11na\0" "11bgn\0\0" "11ac";

// Writes the name of a standard code into `out` (32 bytes). 0 for a known code; -1 with an
// empty name for an unknown one, and -1 without writing for a NULL `out`.
int wlanStandardName(int code, char *out) {
  if (out == nullptr) return -1;
  const char *name = bundle::table_text(kStandardNames, code);
  strcpy(out, name);  // the longest name is 5 characters; an unknown code's is empty
  return name[0] != '\0' ? 0 : -1;
}

// Encryption names indexed by the platform's encryption code; other codes give "".
const char *encryption_name(int code) {
  return bundle::table_text("OPEN\0WEP\0WPAPSK\0WPAPSK2\0MIXED-WPAPSK2", code);
}

// Transmit power in percent indexed by the platform's power level. The table has eight
// entries; a level outside it (0 or below, 8 and above) reports 0.
int power_percent(int level) {
  static const int kPercent[8] = {0, 100, 80, 60, 40, 20, 0, 0};
  if (level <= 0 || level >= 8) return 0;
  return kPercent[level];
}

const char *width_name(int code) {
  switch (code) {
    case 0: return "20M";
    case 1: return "40M";
    case 3: return "Auto20M40M80M";
    default: return "Auto20M40M";
  }
}

// Channels each radio may use: constants of the product, not asked of the platform. The
// last 5 GHz entry is "160" as the product has always listed it.
const char k24GChannels[] = "1,2,3,4,5,6,7,8,9,10,11,12,13";
const char k5GChannels[] = "52,56,60,64,149,153,157,160";

// Radio 0 is named "2.4G" exactly; any other name, or a text that can't be read, is radio 1.
// The text is given back whatever was read (a failed copy with its NULL pointer).
int radio_of(JNIEnv *env, jstring jradioType) {
  bundle::JavaChars radioType(env, jradioType);
  int radio = (radioType.get() != nullptr && strcmp(radioType.get(), "2.4G") == 0) ? 0 : 1;
  radioType.release();
  return radio;
}

// A platform count made safe to index the platform's fixed array with.
int bounded_count(int count, int capacity) {
  if (count < 0) return 0;
  return count > capacity ? capacity : count;
}

// One associated station of the host reply (208 bytes).
struct StationReply {
  int32_t ssid_index;
  char ssid[128];
  char mac[32];
  int32_t rssi;
  int32_t rx_rate;
  int32_t tx_rate;
  char standard[32];
};
static_assert(sizeof(StationReply) == 208, "StationReply is 208 bytes");

// Looks the station up in the speed-limit table "BandWidth_Entry0..63" of the configuration
// tree. The rates found only reach the trace: the reply always reports rates of 0.
void getStaSpeed(const char *mac) {
  unsigned int b[6] = {0, 0, 0, 0, 0, 0};
  sscanf(mac, "%02x:%02x:%02x:%02x:%02x:%02x", &b[0], &b[1], &b[2], &b[3], &b[4], &b[5]);
  char key[16];
  snprintf(key, sizeof key, "%02x%02x%02x%02x%02x%02x", b[0] & 0xFFu, b[1] & 0xFFu,
           b[2] & 0xFFu, b[3] & 0xFFu, b[4] & 0xFFu, b[5] & 0xFFu);

  int up = 0, down = 0;
  // Every tree read leaves a terminated text, all that is read of its buffer.
  for (int entry = 0; entry < 64; ++entry) {
    char node[32];
    bundle::format_text(node, sizeof node, "BandWidth_Entry%d", entry);
    char entry_mac[32];
    bundle::tree_get(node, "MAC", entry_mac);
    if (strcasecmp(entry_mac, key) == 0) {
      char up_rate[32];
      char down_rate[32];
      bundle::tree_get(node, "upRate", up_rate);
      bundle::tree_get(node, "downRate", down_rate);
      up = bundle::tree_atoi(up_rate);
      down = bundle::tree_atoi(down_rate);
      break;
    }
  }
  BUNDLE_TRACE("getStaSpeed: mac:%s  up: %d   down: %d\n", mac, up, down);
}

// Fills one station reply from host record i; a station whose SSID can't be queried leaves
// the reply all zero.
void fillWlanHostEntry(StationReply *reply, const WlanHostRecord *hosts, int i) {
  WlanSsidInfoRecord ssid;
  memset(&ssid, 0, sizeof ssid);
  if (brelo_wlanGetSSIDInfo(hosts[i].ssid_index, &ssid) != 0) return;
  bundle::terminate_field(ssid.ssid);

  getStaSpeed(hosts[i].mac);

  reply->ssid_index = hosts[i].ssid_index;
  memcpy(reply->ssid, ssid.ssid, sizeof reply->ssid);
  memcpy(reply->mac, hosts[i].mac, sizeof reply->mac);
  reply->rssi = hosts[i].rssi;
  reply->rx_rate = 0;  // kept at 0: the looked-up rates are not reported
  reply->tx_rate = 0;
  wlanStandardName(ssid.standard, reply->standard);
}

// An empty list reply in a heap buffer of (entries + 1) x 512 bytes; NULL when it can't be
// had. Only the text composed into it is ever read.
char *new_list_text(int entries, size_t *cap) {
  *cap = (static_cast<size_t>(entries) + 1) * kListEntrySize;
  char *text = static_cast<char *>(malloc(*cap));
  if (text != nullptr) text[0] = '\0';
  return text;
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDInfoJni(
    JNIEnv *env, jobject, jint ssidIndex) {
  bundle::Reply<1024> reply;
  WlanSsidInfoRecord info;
  memset(&info, 0, sizeof info);
  if (brelo_wlanGetSSIDInfo(ssidIndex, &info) != 0) {
    reply.append(BUNDLE_FAIL_REASON, "getWLANSSIDInfo Error");
  } else {
    bundle::terminate_field(info.bssid);
    bundle::terminate_field(info.ssid);
    char standard[32];  // written by wlanStandardName
    wlanStandardName(info.standard, standard);
    // The name is not escaped here. The record says "hidden"; Java is told whether the SSID
    // is advertised.
    reply.append("{\"Result\":0,\"Enable\":\"%s\",\"BSSID\":\"%s\",\"SSIDName\":\"%s\","
                 "\"SSIDAdvertisementEnabled\":\"%s\",\"Standard\":\"%s\",\"EncryptionMode\":\"%s\"}",
                 bool_text(info.enabled != 0), info.bssid, info.ssid, bool_text(info.hidden == 0),
                 standard, encryption_name(info.encryption));
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANSSIDStatsJni(
    JNIEnv *env, jobject, jint ssidIndex) {
  bundle::Reply<1024> reply;
  WlanSsidStatsRecord stats;
  memset(&stats, 0, sizeof stats);
  if (brelo_wlanGetSSIDStats(ssidIndex, &stats) != 0) {
    reply.append(BUNDLE_FAIL_REASON, "getWLANSSIDStats Error");
  } else {
    reply.append("{\"Result\":0,\"TotalBytesSent\":%u,\"TotalBytesReceived\":%u,"
                 "\"TotalPacketsSent\":%u,\"TotalPacketsReceived\":%u,\"ErrorsSent\":%u,"
                 "\"ErrorsReceived\":%u,\"DiscardPacketsSent\":%u,\"DiscardPacketsReceived\":%u}",
                 static_cast<unsigned>(stats.bytes_sent), static_cast<unsigned>(stats.bytes_received),
                 static_cast<unsigned>(stats.packets_sent),
                 static_cast<unsigned>(stats.packets_received),
                 static_cast<unsigned>(stats.errors_sent), static_cast<unsigned>(stats.errors_received),
                 static_cast<unsigned>(stats.discard_sent),
                 static_cast<unsigned>(stats.discard_received));
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANWPSStatusJni(
    JNIEnv *, jobject, jint ssidIndex) {
  int status = brelo_wlanGetWPSStatus(ssidIndex);
  return BUNDLE_CODE_REPLY(status);
}

JNIEXPORT jboolean JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHardwareSwitchJni(
    JNIEnv *env, jobject, jstring jradioType) {
  char radio[32];
  bundle::JavaChars radioType(env, jradioType);
  if (bundle::acquire_failed(env, radioType)) return JNI_FALSE;
  bundle::copy_padded(radio, radioType.or_empty());
  radioType.release();

  int rc = brelo_wlanGetRadioSwitch(radio);
  jboolean on = rc == 1 ? JNI_TRUE : JNI_FALSE;
  return BUNDLE_CODE_REPLY(on);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANRadioInfoJni(
    JNIEnv *env, jobject, jstring jradioType) {
  int radio = radio_of(env, jradioType);
  if (bundle::exception_pending(env)) return nullptr;  // the radio text could not be obtained
  bundle::Reply<1024> reply;
  WlanRadioInfoRecord info;
  memset(&info, 0, sizeof info);
  if (brelo_wlanGetRadioInfo(radio, &info) != 0) {
    reply.append(BUNDLE_FAIL_REASON, "getWLANRadioInfo Error");
  } else {
    reply.append("{\"Result\":0,\"Channel\":%d,\"AutoChannelEnable\":\"%s\",\"ChannelsInUse\":\"%s\","
                 "\"TransmitPower\":\"%d\",\"FrequencyWidth\":\"%s\"}",
                 static_cast<int>(info.channel), bool_text(info.auto_channel != 0),
                 radio == 0 ? k24GChannels : k5GChannels, power_percent(info.power_level),
                 width_name(info.width_code));
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(
    JNIEnv *env, jobject, jstring jradioType) {
  int radio = radio_of(env, jradioType);
  if (bundle::exception_pending(env)) return nullptr;  // the radio text could not be obtained
  static_assert(sizeof(WlanNeighborRecord) * WLAN_MAX_NEIGHBORS == 23040, "23,040 bytes");
  // Too large for the stack frame: the record array is taken from the heap, zeroed as the
  // platform is handed it (a record it fills in part reads as zeros beyond).
  struct Neighbors {
    Neighbors() : list{} {}
    WlanNeighborRecord list[WLAN_MAX_NEIGHBORS];
  };
  bundle::HeapObject<Neighbors> neighbors;
  if (!neighbors.ok()) {
    BUNDLE_TRACE("getWLANNeighborJni: return json = %s   leave============>\n", kNoMemory);
    return nullptr;  // Java receives a null string
  }
  WlanNeighborRecord *list = neighbors->list;
  int count = 0;
  int rc = brelo_wlanGetNeighbor(radio, list, &count);
  // The platform is not told the array's capacity: never more than it holds is read.
  int n = rc == 0 ? bounded_count(count, WLAN_MAX_NEIGHBORS) : 0;

  size_t cap;
  char *text = new_list_text(n, &cap);
  if (text == nullptr) {
    BUNDLE_TRACE("getWLANNeighborJni: return json = %s   leave============>\n", kNoMemory);
    return nullptr;  // Java receives a null string
  }
  size_t off = 0;
  if (rc != 0) {
    bundle::reply_append(text, cap, &off, BUNDLE_FAIL_REASON, "getWLANNeighbor Error");
  } else {
    bundle::reply_append(text, cap, &off, "{\"Result\":0,\"List\":[");
    for (int i = 0; i < n; ++i) {
      WlanNeighborRecord &ap = list[i];
      bundle::terminate_field(ap.ssid);
      bundle::terminate_field(ap.bssid);
      // Both texts are written whole (terminator included) before they are read.
      char ssid[HTML_ENCODE_OUT_SIZE];
      if (bundle::hardened_profile()) {
        snprintf(ssid, sizeof ssid, "%s", ap.ssid);  // the composer escapes it, once
      } else {
        html_encode(ssid, ap.ssid);
      }
      char standard[32];
      wlanStandardName(ap.standard, standard);
      bundle::reply_append(text, cap, &off,
                           "{\"SSIDName\":\"%s\",\"BSSID\":\"%s\",\"NetworkType\":\"%s\",\"Channel\":%d,"
                           "\"RSSI\":\"%d\",\"Standard\":\"%s\"}",
                           ssid, ap.bssid, "AP", static_cast<int>(ap.channel),
                           static_cast<int>(ap.rssi), standard);
      if (i != n - 1) bundle::reply_append(text, cap, &off, ",");
    }
    bundle::reply_append(text, cap, &off, "]}");
  }
  jstring result = BUNDLE_JSON_REPLY(env, text);
  free(text);
  return result;
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANHostInfoJni(
    JNIEnv *env, jobject, jobjectArray jmacs) {
  static const char kFailure[] = "{\"Result\":-1,\"FailReason\":\"getWLANHostInfo Error\"}";

  // The reader's result is not examined.
  bundle::HeapMacList mac_list(env, jmacs);
  if (bundle::exception_pending(env)) return nullptr;  // a MAC text could not be obtained
  const char *reply = kFailure;
  StationReply *records = nullptr;
  char *text = nullptr;
  WlanHostRecord hosts[WLAN_MAX_HOSTS];
  int host_count = 0;
  char(*macs)[MAC_ENTRY_SIZE] = nullptr;
  int mac_count = 0;
  bool listed = mac_list.ok();
  if (listed) {
    macs = mac_list.entries();
    mac_count = mac_list.count();
    memset(hosts, 0, sizeof hosts);
    listed = brelo_wlanGetHostInfo(hosts, &host_count, macs, mac_count) == 0;
  }
  if (listed) {
    // parseToJsonWlanHostList: one reply record per station, or per requested MAC.
    int n = bounded_count(host_count, WLAN_MAX_HOSTS);
    for (int i = 0; i < n; ++i) bundle::terminate_field(hosts[i].mac);
    int entries = mac_count > 0 ? mac_count : n;
    // At least one record, so an empty list never depends on what calloc(0) gives.
    records = static_cast<StationReply *>(calloc(entries > 0 ? entries : 1, sizeof(StationReply)));
    if (records == nullptr) {
      printf("calloc err\n");
      fflush(stdout);
    } else {
      if (mac_count == 0) {
        for (int i = 0; i < n; ++i) fillWlanHostEntry(&records[i], hosts, i);
      } else {
        // Each request takes the first station with its MAC (ignoring case); an empty or
        // unknown request stays an all-zero entry of the list.
        for (int j = 0; j < mac_count; ++j) {
          if (macs[j][0] == '\0') continue;
          for (int i = 0; i < n; ++i) {
            if (strcasecmp(hosts[i].mac, macs[j]) == 0) {
              fillWlanHostEntry(&records[j], hosts, i);
              break;
            }
          }
        }
      }

      size_t cap;
      text = new_list_text(entries, &cap);
      if (text == nullptr) {
        free(records);
        BUNDLE_TRACE("getWLANHostInfoJni: return json = %s   leave============>\n", kNoMemory);
        return nullptr;  // Java receives a null string
      }
      size_t off = 0;
      bundle::reply_append(text, cap, &off, "{\"Result\":0,\"List\":[");
      for (int j = 0; j < entries; ++j) {
        const StationReply &r = records[j];
        // The SSID name is not escaped.
        bundle::reply_append(text, cap, &off,
                             "{\"SSIDIndex\":%d,\"SSIDName\":\"%s\",\"MAC\":\"%s\",\"RSSI\":\"%d\","
                             "\"RxRate\":\"%d\",\"TxRate\":\"%d\",\"Standard\":\"%s\"}",
                             static_cast<int>(r.ssid_index), r.ssid, r.mac, static_cast<int>(r.rssi),
                             static_cast<int>(r.rx_rate), static_cast<int>(r.tx_rate), r.standard);
        if (j != entries - 1) bundle::reply_append(text, cap, &off, ",");
      }
      bundle::reply_append(text, cap, &off, "]}");
      reply = text;
    }
  }
  jstring result = BUNDLE_JSON_REPLY(env, reply);
  free(records);
  free(text);
  return result;
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getGuestSSIDInfoJni(JNIEnv *env,
                                                                                   jobject) {
  bundle::Reply<1024> reply;
  bool opened = false;
  for (int entry = 0; entry < 2; ++entry) {
    // Every tree read leaves a terminated text, all that is read of its buffer.
    char node[32];
    bundle::format_text(node, sizeof node, "WLanForGuest_Entry%d", entry);
    char index[32];
    if (bundle::tree_get(node, "SSIDIndex", index) != 0) continue;  // no such guest entry
    char duration[32];
    char remain[32];
    char isolation[32];
    bundle::tree_get(node, "Duration", duration);
    bundle::tree_get(node, "DurationRemain", remain);
    bundle::tree_get(node, "PortIsolation", isolation);
    int remaining = bundle::tree_atoi(remain);
    if (remaining < 0) remaining = 0;

    if (!opened) {
      reply.append("{\"Result\":0,\"List\":[");
      opened = true;
    }
    // No separator between two entries: Java's readers expect the objects back to back (kept
    // on purpose), and the index text goes in as it stands. The hardened profile separates the
    // entries and writes the index as a number, so the reply is valid JSON.
    if (bundle::hardened_profile()) {
      if (reply.offset() > sizeof "{\"Result\":0,\"List\":[" - 1) reply.append(",");
      reply.append("{\"SSIDIndex\":%d", bundle::tree_atoi(index));
    } else {
      reply.append("{\"SSIDIndex\":%s", index);
    }
    reply.append(",\"Duration\":%d,\"PortIsolation\":\"%s\",\"RemainDuration\":%d}", bundle::tree_atoi(duration),
                 bool_text(isolation[0] == '1'), remaining);
  }
  if (!opened) reply.append("{\"Result\":0,\"List\":[");
  reply.append("]}");
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
