// com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp: the devices the gateway
// knows on its LAN side (by MAC address, by attachment point, by class), their counters and
// speed limits, the gateway's name and the MAC filter mode.
#include <stdint.h>
#include <stdlib.h>
#include <strings.h>

#include "common/array_readers.h"
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_lan.h"
#include "common/platform_list.h"
#include "lanservices/lan_hosts.h"

extern "C" {
JNIEXPORT const char *HostClassStr[4] = {"ONLINE", "OFFLINE", "BLOCK", "TRUST"};
}

namespace {

const char *const kListFailure = BUNDLE_LIST_FAILURE;
const char *const kListHead = BUNDLE_LIST_HEAD;

// Host lists are composed in a zeroed 64 KiB buffer; a longer list is cut there. The buffer
// lives in the native's heap working struct, never on its stack.
typedef bundle::Reply<0x10000> HostListReply;

// Length of the text actually in the buffer (the offset keeps counting once a reply is cut).
size_t visible_length(const HostListReply &reply) {
  return reply.offset() < reply.capacity() ? reply.offset() : reply.capacity() - 1;
}

// "%02X:%02X:%02X:%02X:%02X:%02X" into an 18-byte buffer (written out here: a host list
// formats one per host).
void format_mac(const uint8_t *mac, char (&text)[18]) {
  static const char kHex[] = "0123456789ABCDEF";
  for (int i = 0; i < 6; ++i) {
    text[3 * i] = kHex[mac[i] >> 4];
    text[3 * i + 1] = kHex[mac[i] & 0x0F];
    text[3 * i + 2] = i < 5 ? ':' : '\0';
  }
}

// The class name of a class code; a code the table does not know prints as "UNKNOWN" instead
// of reading past the table.
const char *class_text(uint32_t code) {
  if (code < sizeof HostClassStr / sizeof HostClassStr[0] && HostClassStr[code] != nullptr)
    return HostClassStr[code];
  return "UNKNOWN";
}

// Appends the host object of `host`, whose MAC text is already formatted.
void append_host(HostListReply &reply, LanHostRecord &host, const char *mac) {
  bundle::terminate_field(host.dhcp_name);
  bundle::terminate_field(host.device_name);
  bundle::terminate_field(host.ipv4);
  bundle::terminate_field(host.ipv6);

  char iface[8];
  if (host.attach_point >= 1 && host.attach_point <= 4) {
    bundle::format_text(iface, sizeof iface, "LAN%d", static_cast<int>(host.attach_point));
  } else if (host.attach_point >= 5 && host.attach_point <= 12) {
    bundle::format_text(iface, sizeof iface, "SSID%d", static_cast<int>(host.attach_point - 4));
  } else {
    memcpy(iface, "UNKNOWN", sizeof iface);
  }
  const char *storage = host.storage_access != 0 ? "ON" : "OFF";
  unsigned int online_time = host.online_time;

  if (host.ipv6[0] != '\0') {
    reply.append("{\"Class\":\"%s\",\"MAC\":\"%s\",\"DhcpName\":\"%s\",\"DeviceName\":\"%s\","
                 "\"IP\":\"%s,%s\",\"ConnectInterface\":\"%s\",\"OnlineTime\":\"%u\","
                 "\"StorageAccessStatus\":\"%s\"}",
                 class_text(host.host_class), mac, host.dhcp_name, host.device_name, host.ipv4,
                 host.ipv6, iface, online_time, storage);
  } else {
    reply.append("{\"Class\":\"%s\",\"MAC\":\"%s\",\"DhcpName\":\"%s\",\"DeviceName\":\"%s\","
                 "\"IP\":\"%s\",\"ConnectInterface\":\"%s\",\"OnlineTime\":\"%u\","
                 "\"StorageAccessStatus\":\"%s\"}",
                 class_text(host.host_class), mac, host.dhcp_name, host.device_name, host.ipv4,
                 iface, online_time, storage);
  }
}

// The host list of a successful query: every record, separated by ",".
void append_host_list(HostListReply &reply, LanHostRecord *list, int count) {
  reply.append("%s", kListHead);
  for (int i = 0; list != nullptr && i < count; ++i) {
    char mac[18];
    format_mac(list[i].mac, mac);
    append_host(reply, list[i], mac);
    if (i < count - 1) reply.append(",");
  }
  reply.append("]}");
}

// Answers whether a MAC text occurs anywhere in a reply that only ever grows, exactly as a
// strstr over the whole reply would, without rescanning the reply for every host.
//
// A MAC text is always 17 characters "HH:HH:HH:HH:HH:HH" of upper-case hexadecimal digits, so
// it can only match a window of the reply with that very shape. Every such window is taken
// into a hash table once, when the text under it has been written (windows may straddle the
// pieces the reply was written in); a query then looks its MAC text up in the table. The
// table keeps the start of the first window of each distinct text (a reply position below
// 64 KiB) and compares the reply's bytes there. It starts small and doubles, taking in the
// reply's windows again, when three quarters of it are used, so a short list prepares only a
// few slots. Should a reply hold more distinct windows than the largest table takes (names
// made of MAC texts), the index gives up and every later query is answered by strstr over the
// whole reply, which is the same answer, only slower.
class MacTextIndex {
 public:
  MacTextIndex() : size_(kFirstSlots), used_(0), scanned_(0), overflow_(false) {
    memset(slots_, 0xFF, kFirstSlots * sizeof slots_[0]);
  }
  MacTextIndex(const MacTextIndex &) = delete;
  MacTextIndex &operator=(const MacTextIndex &) = delete;

  // True when `mac` occurs in the first `len` characters of `text` (the whole reply so far).
  bool occurs(const char *text, size_t len, const char *mac) {
    take_in(text, len);
    if (overflow_) return strstr(text, mac) != nullptr;
    for (size_t h = hash(mac) & (size_ - 1);; h = (h + 1) & (size_ - 1)) {
      if (slots_[h] == kEmpty) return false;
      if (memcmp(text + slots_[h], mac, kMacLen) == 0) return true;
    }
  }

 private:
  static const size_t kMacLen = 17;
  static const size_t kFirstSlots = 256;  // powers of two
  static const size_t kSlots = 8192;
  static const uint16_t kEmpty = 0xFFFF;

  static bool is_hex(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); }

  static bool mac_shaped(const char *w) {
    if (w[2] != ':') return false;
    for (size_t k = 5; k < kMacLen; k += 3)
      if (w[k] != ':') return false;
    for (size_t k = 0; k < kMacLen; k += 3)
      if (!is_hex(w[k]) || !is_hex(w[k + 1])) return false;
    return true;
  }

  static size_t hash(const char *w) {
    uint32_t h = 2166136261u;  // FNV-1a over the twelve digits
    for (size_t k = 0; k < kMacLen; k += 3) {
      h = (h ^ static_cast<uint8_t>(w[k])) * 16777619u;
      h = (h ^ static_cast<uint8_t>(w[k + 1])) * 16777619u;
    }
    return h ^ (h >> 15);
  }

  // Takes in every window that ends within text[0, len) and was not looked at yet.
  void take_in(const char *text, size_t len) {
    for (; !overflow_ && scanned_ + kMacLen <= len; ++scanned_)
      if (mac_shaped(text + scanned_)) insert(text, scanned_);
  }

  void insert(const char *text, size_t at) {
    for (;;) {
      size_t h = hash(text + at) & (size_ - 1);
      for (; slots_[h] != kEmpty; h = (h + 1) & (size_ - 1))
        if (memcmp(text + slots_[h], text + at, kMacLen) == 0) return;  // already known
      if (used_ < size_ / 4 * 3) {
        slots_[h] = static_cast<uint16_t>(at);  // below 64 KiB - 17, never kEmpty
        ++used_;
        return;
      }
      if (size_ == kSlots) {
        overflow_ = true;
        return;
      }
      // A table twice the size, holding the windows before this one again.
      size_ *= 2;
      memset(slots_, 0xFF, size_ * sizeof slots_[0]);
      used_ = 0;
      for (size_t before = 0; before < at; ++before)
        if (mac_shaped(text + before)) insert(text, before);
    }
  }

  uint16_t slots_[kSlots];
  size_t size_;
  size_t used_;
  size_t scanned_;
  bool overflow_;
};

static_assert(HostListReply::capacity() - 17 < 0xFFFF, "window starts fit the index's slots");

// Walks a class list: a record whose MAC text already occurs anywhere in the reply is skipped
// without even its separator; the separator after a record depends only on its position, so
// a skipped last record leaves the "," before it in place.
void append_unique_hosts(HostListReply &reply, MacTextIndex &index, LanHostRecord *list,
                         int count) {
  for (int i = 0; list != nullptr && i < count; ++i) {
    char mac[18];
    format_mac(list[i].mac, mac);
    if (index.occurs(reply.c_str(), visible_length(reply), mac)) continue;
    append_host(reply, list[i], mac);
    if (i < count - 1) reply.append(",");
  }
}

// Reads "<prefix>%d" as sscanf does (the prefix exactly, then blanks, a sign and digits; the
// rest is ignored) and returns whether a number was found. A number that does not fit an int
// reads as 0, which no attachment point has, the same on every target.
bool scan_prefixed_number(const char *text, const char *prefix, int *number) {
  size_t n = strlen(prefix);
  if (strncmp(text, prefix, n) != 0) return false;
  const char *p = text + n;
  while (*p == ' ' || (*p >= '\t' && *p <= '\r')) ++p;
  bool negative = *p == '-';
  if (*p == '-' || *p == '+') ++p;
  if (*p < '0' || *p > '9') return false;
  long long value = 0;
  for (; *p >= '0' && *p <= '9'; ++p) {
    value = value * 10 + (*p - '0');
    if (value > 2147483648LL) {
      *number = 0;
      return true;
    }
  }
  if (negative) value = -value;
  *number = value >= -2147483647LL - 1 && value <= 2147483647LL ? static_cast<int>(value) : 0;
  return true;
}

void free_hosts(LanHostRecord *&list) {
  if (list != nullptr) free(list);
  list = nullptr;
}

// The class code of a class name in any case, or -1 for a NULL or unknown one.
int class_code(const char *name) {
  for (int k = 0; name != nullptr && k < 4; ++k)
    if (strcasecmp(name, HostClassStr[k]) == 0) return k;
  return -1;
}

// The working memory of a class query: its reply and the index of the MAC texts in it.
struct ClassWork {
  HostListReply reply;
  MacTextIndex index;
};

// Composes the reply of a class query for class `host_class` (-1: the name is unknown) in
// `work` and gives its text, or the failure reply's. Traces under `native`.
const char *class_query(ClassWork &work, int host_class, bundle::TraceName native) {
  HostListReply &reply = work.reply;
  if (host_class < 0) {
    reply.append("%s", kListFailure);
    return reply.c_str();
  }

  LanHostRecord *list = nullptr;
  int count = 0;
  int rc = brelo_lanGethostInfobytype(&list, &count, nullptr, host_class);
  count = bundle::platform_list_count(list, count);

  // Blocked hosts come in two lists, the present ones and the offline ones. Without present
  // ones the offline list is the whole answer.
  bool offline_walked = false;
  if (host_class == LAN_HOST_CLASS_BLOCK && (rc != 0 || count == 0)) {
    count = 0;
    free_hosts(list);
    rc = brelo_lanGethostInfobyBlockOffline(&list, &count);
    count = bundle::platform_list_count(list, count);
    BUNDLE_TRACE_AS(native, "get BlockOffline ret %d\n", rc);
    if (rc != 0) {
      free_hosts(list);
      reply.append("%s", kListFailure);
      return reply.c_str();
    }
    offline_walked = true;
  }

  reply.append("%s", kListHead);
  append_unique_hosts(reply, work.index, list, count);

  if (host_class == LAN_HOST_CLASS_BLOCK && !offline_walked) {
    free_hosts(list);
    count = 0;
    rc += brelo_lanGethostInfobyBlockOffline(&list, &count);
    count = bundle::platform_list_count(list, count);
    if (rc == 0 && count != 0) {
      // Decided before knowing whether any offline host is new: an all-duplicate second
      // list leaves this comma just before the closing bracket.
      reply.append(",");
      append_unique_hosts(reply, work.index, list, count);
    }
  }
  reply.append("]}");
  free_hosts(list);
  // Only the platform's "not completed" fails the query; other results keep the list.
  return rc == -2 ? kListFailure : reply.c_str();
}

// Counter or speed-limit list of the hosts named by `macs`, selector "Stats" or "SpeedMax".
jstring host_stats_reply(JNIEnv *env, jobjectArray macs, const char *selector,
                         bundle::TraceName native) {
  bundle::HeapMacList list_of_macs(env, macs);
  if (bundle::exception_pending(env)) return nullptr;  // a MAC text could not be obtained
  if (!list_of_macs.ok()) return bundle::traced_native_reply(env, native, __LINE__, kListFailure);

  LanHostStatsRecord *list = nullptr;
  int count = 0;
  int rc = brelo_lanGethostStatsAndSpeedByMacAddr(&list, &count, list_of_macs.entries(),
                                                  list_of_macs.count(), selector);
  count = bundle::platform_list_count(list, count);

  bundle::Reply<8192> reply;
  if (rc != 0) {
    reply.append("%s", kListFailure);
  } else {
    bool counters = strcmp(selector, "Stats") == 0;
    reply.append("%s", kListHead);
    for (int i = 0; list != nullptr && i < count; ++i) {
      if (counters) {
        // The blank before the comma is part of the wire format.
        reply.append("{\"UsStats\":%llu ,\"DsStats\":%llu}",
                     static_cast<unsigned long long>(list[i].up_bytes),
                     static_cast<unsigned long long>(list[i].down_bytes));
      } else {
        reply.append("{\"UpSpeed\":%d,\"DownSpeed\":%d}", static_cast<int>(list[i].up_speed),
                     static_cast<int>(list[i].down_speed));
      }
      if (i < count - 1) reply.append(",");
    }
    reply.append("]}");
  }
  if (list != nullptr) free(list);
  return bundle::traced_native_reply(env, native, __LINE__,
                                     bundle::checked_reply(reply.c_str(), kListFailure));
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getGatewayNameJni(
    JNIEnv *env, jobject) {
  bundle::PlatformText<1024> name;
  brelo_sysGetGatewayName(name.out(), name.size());  // the reply is the buffer, whatever it says
  return BUNDLE_JSON_REPLY(env, name.text());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByMACJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  struct Work {
    bundle::MacList macs;
    HostListReply reply;
  };
  bundle::HeapObject<Work> work;
  if (!work.ok()) {
    return BUNDLE_JSON_REPLY(env, kListFailure);
  }
  bundle::MacList &list_of_macs = work->macs;
  list_of_macs.read(env, macs);
  if (bundle::exception_pending(env)) return nullptr;  // a MAC text could not be obtained

  LanHostRecord *list = nullptr;
  int count = 0;
  // A count of 0 goes to the platform as it is.
  int rc = brelo_lanGethostInfoByMACArr(&list, &count, list_of_macs.entries, list_of_macs.count);
  count = bundle::platform_list_count(list, count);

  HostListReply &reply = work->reply;
  if (rc == 0) {
    append_host_list(reply, list, count);
  } else {
    reply.append("%s", kListFailure);
  }
  free_hosts(list);
  BUNDLE_TRACE("getLANHostInfoByMACJni: return json = %s   leave============>\n", reply.c_str());
  return bundle::new_reply_string(env, bundle::checked_reply(reply.c_str(), kListFailure));
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByInterfaceJni(
    JNIEnv *env, jobject, jstring jname) {
  bundle::JavaChars name(env, jname);
  if (bundle::acquire_failed(env, name)) return nullptr;

  // "LAN<n>" is taken as it is, so LAN5 to LAN12 also name the wireless networks 1 to 8;
  // "SSID1" to "SSID8" become 5 to 12. Both prefixes are case-sensitive.
  int point = 0;
  if (!scan_prefixed_number(name.or_empty(), "LAN", &point)) {
    int ssid = 0;
    if (scan_prefixed_number(name.or_empty(), "SSID", &ssid) && ssid >= 1 && ssid <= 8) {
      point = ssid + 4;
    } else {
      point = 0;
    }
  }

  bundle::HeapObject<HostListReply> work;
  if (!work.ok()) {
    name.release();
    BUNDLE_TRACE("lanservicesgetLANHostInfoBySSIDJni: return json = %s   leave============>\n",
                 kListFailure);
    return bundle::new_reply_string(env, kListFailure);
  }
  HostListReply &reply = *work;
  LanHostRecord *list = nullptr;
  if (point < 1 || point > 12) {
    reply.append("%s", kListFailure);
  } else {
    char key[8];
    bundle::format_text(key, sizeof key, "%d", point);
    int count = 0;
    int rc = brelo_lanGethostInfobytype(&list, &count, key, LAN_HOST_TYPE_ATTACH_POINT);
    count = bundle::platform_list_count(list, count);
    if (rc == 0) {
      append_host_list(reply, list, count);
    } else {
      reply.append("%s", kListFailure);
    }
  }
  free_hosts(list);
  name.release();
  // The closing trace has always named this native after its former name.
  BUNDLE_TRACE("lanservicesgetLANHostInfoBySSIDJni: return json = %s   leave============>\n",
               reply.c_str());
  return bundle::new_reply_string(env, bundle::checked_reply(reply.c_str(), kListFailure));
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getMacFilterModeJni(
    JNIEnv *, jobject) {
  int mode = 0;
  int rc = brelo_lanGetFilterMode(&mode);
  int result = rc != 0 ? rc : mode;
  return BUNDLE_CODE_REPLY(result);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
    JNIEnv *env, jobject, jstring jclass) {
  bundle::JavaChars name(env, jclass);
  if (bundle::acquire_failed(env, name)) return nullptr;
  bundle::HeapObject<ClassWork> work;
  const char *text = work.ok() ? class_query(*work, class_code(name.get()), BUNDLE_NATIVE) : kListFailure;
  name.release();
  BUNDLE_TRACE("getLANHostInfoByClassJni: return json = %s   leave============>\n", text);
  return bundle::new_reply_string(env, bundle::checked_reply(text, kListFailure));
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostStatsJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  return host_stats_reply(env, macs, "Stats", BUNDLE_NATIVE);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostSpeedLimitInfoJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  return host_stats_reply(env, macs, "SpeedMax", BUNDLE_NATIVE);
}

}  // extern "C"
