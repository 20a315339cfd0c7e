// com.lumarest.smartgateway.transferservices.TrafficMonitoringConfigServiceImp: destination
// addresses (IPv4, IPv6 or domain names) whose traffic the gateway monitors, per bundle.
//
// The lists live in the configuration tree. The 32 PVC numbers form 8 groups of 4; a group
// belongs to the bundle named by "bundleName" of the node "TrafficMonitoring_PVC<b>" of its
// first PVC b (0, 4, ..., 28), empty when the group is free. Each PVC holds 255 entries
// "TrafficMonitoring_PVC<p>_Entry<e>" whose "destAddressList" holds one address (empty: free),
// so a group holds up to 1020 addresses. Changes are applied by a delayed commit of the node
// "TrafficMonitoring"; nothing is saved here.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "common/config_tree.h"
#include "common/json_list.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_addrcheck.h"
#include "common/platform_tcapi.h"

namespace {

constexpr int kPvcCount = 32;
constexpr int kGroupPvcs = 4;        // PVC numbers per group
constexpr int kEntriesPerPvc = 255;  // entries 0..254 of each PVC
// The working array of the addresses of one call: 256 entries of 128 bytes (32 KiB, on the
// heap). Addresses beyond the 256th are not read; a longer text is cut at 127 bytes.
constexpr int kMaxDestAddresses = 256;
constexpr size_t kDestAddressSize = 128;
constexpr size_t kBundleNameSize = 256;
constexpr size_t kNodeNameSize = 64;
constexpr size_t kTreeValueSize = 256;        // "bundleName" and "destAddressList" reads
constexpr size_t kQueryValueSize = 1024;      // "destAddressList" reads of the query
constexpr size_t kQueryBufferSize = 131072;   // collection text and reply of the query

const char kCommitNode[] = "TrafficMonitoring";
constexpr int kCommitDelay = 3;

typedef char DestAddress[kDestAddressSize];

// Node names and tree values are always written whole (terminated) before they are read, so
// their buffers are not zeroed: a query reads up to 1,020 entries per group.
void group_node(char (&node)[kNodeNameSize], int pvc) {
  bundle::format_text(node, sizeof node, "TrafficMonitoring_PVC%d", pvc);
}

void entry_node(char (&node)[kNodeNameSize], int pvc, int entry) {
  bundle::format_text(node, sizeof node, "TrafficMonitoring_PVC%d_Entry%d", pvc, entry);
}

// 1 when the first byte of each of the first `count` entries is zero (also for count 0).
int check_all_dest_is_null(DestAddress *dest, int count) {
  for (int i = 0; i < count; ++i)
    if (dest[i][0] != '\0') return 0;
  BUNDLE_TRACE_PUTS("no dest address!");
  return 1;
}

// The addresses and bundle name of one add or delete call.
struct MonitorRequest {
  MonitorRequest() = default;
  MonitorRequest(const MonitorRequest &) = delete;
  MonitorRequest &operator=(const MonitorRequest &) = delete;
  ~MonitorRequest() { free(dest); }

  // kMaxDestAddresses entries; the first `count` are written whole before any is read, the
  // rest never are.
  DestAddress *dest = nullptr;
  int count = 0;                // effective count: 0 when every entry is empty
  char bundle[kBundleNameSize];  // written by read_request before it is read
};

// Reads the addresses (each must be accepted by checkIPDomainVaild or sc_check_ip6_format)
// and the bundle name. -1 for an address that can't be read or is invalid, a bundle name that
// can't be read, or no memory for the working array; nothing has been written by then.
// Traces under the calling native's name.
int read_request(JNIEnv *env, jobjectArray addresses, jstring bundle_name, bundle::TraceName native,
                 MonitorRequest *req) {
  req->dest = static_cast<DestAddress *>(malloc(kMaxDestAddresses * sizeof(DestAddress)));
  if (req->dest == nullptr) {
    BUNDLE_TRACE_AS(native, "no memory for the destination addresses\n");
    return -1;
  }
  int n = bundle::array_length(env, addresses);
  if (n > kMaxDestAddresses) {
    BUNDLE_TRACE_AS(native, "%d destination addresses given, only the first %d are read\n", n,
                    kMaxDestAddresses);
    n = kMaxDestAddresses;
  }
  for (int i = 0; i < n; ++i) {
    bundle::LocalRef<jstring> element(
        env, static_cast<jstring>(env->GetObjectArrayElement(addresses, i)));
    bundle::JavaChars address(env, element.get());
    if (address.is_null()) return -1;
    if (checkIPDomainVaild(address.get()) < 0 && sc_check_ip6_format(address.get()) < 0) {
      BUNDLE_TRACE_AS(native, "Ip(domain)destAddressList %s is not valid\n", address.get());
      return -1;
    }
    bundle::copy_padded(req->dest[i], kDestAddressSize, address.get());
    address.release();
  }
  req->count = check_all_dest_is_null(req->dest, n) ? 0 : n;

  bundle::JavaChars bundle(env, bundle_name);
  if (bundle.is_null()) return -1;
  bundle::copy_padded(req->bundle, bundle.get());
  bundle.release();
  return 0;
}

// First fit in group order: the bundle's own group gives its first empty entry (a full own
// group is passed over), a free group (empty "bundleName") gives its first PVC's entry 0.
// Because groups are tried in order, a free group before the bundle's own one wins over free
// entries in the own group. The outputs are written only when something is found.
void findMonitorFreeEntry(const char *bundle, int *base, int *pvc, int *entry) {
  for (int b = 0; b < kPvcCount; b += kGroupPvcs) {
    char node[kNodeNameSize];
    char owner[kTreeValueSize];
    group_node(node, b);
    bundle::tree_get(node, "bundleName", owner);
    if (strcmp(owner, bundle) == 0) {
      for (int p = b; p < b + kGroupPvcs; ++p) {
        for (int e = 0; e < kEntriesPerPvc; ++e) {
          char address[kTreeValueSize];
          entry_node(node, p, e);
          bundle::tree_get(node, "destAddressList", address);
          if (address[0] == '\0') {
            *base = b;
            *pvc = p;
            *entry = e;
            return;
          }
        }
      }
      continue;  // the bundle's group is full
    }
    if (owner[0] == '\0') {
      *base = b;
      *pvc = b;
      *entry = 0;
      return;
    }
  }
}

// Compares the addresses stored on PVCs `first`..`last` with the request's. Without `clear`,
// every address of the request equal to a stored one is blanked; with it, a stored address
// equal to one of the request's is cleared from its entry. Gives the number of entries cleared.
int match_stored(MonitorRequest *req, int first, int last, bool clear) {
  int cleared = 0;
  for (int p = first; p <= last; ++p) {
    for (int e = 0; e < kEntriesPerPvc; ++e) {
      char node[kNodeNameSize];
      char stored[kTreeValueSize];
      entry_node(node, p, e);
      bundle::tree_get(node, "destAddressList", stored);
      if (stored[0] == '\0') continue;
      for (int i = 0; i < req->count; ++i) {
        if (strcmp(req->dest[i], stored) != 0) continue;
        if (!clear) {
          req->dest[i][0] = '\0';
          continue;
        }
        tcapi_set(node, "destAddressList", "");
        ++cleared;
        break;
      }
    }
  }
  return cleared;
}

int addMonitorRuleToEntry(MonitorRequest *req) {
  int base = -1, pvc = -1, entry = -1;
  findMonitorFreeEntry(req->bundle, &base, &pvc, &entry);
  if (base < 0 || pvc < 0 || entry < 0) {
    BUNDLE_TRACE_PUTS("monitor entry is full");
    return -1;
  }

  // New addresses already stored on the PVCs from the group base up to the found PVC are
  // blanked. New addresses are not compared with each other.
  match_stored(req, base, pvc, false);

  // Kept as the gateway has always done it: the search runs again after each address, and
  // "bundleName" is written only once at the end, so a bundle without a group finds the same
  // still unnamed free group each time and every address lands on (and overwrites) its entry 0;
  // a search that finds nothing leaves the last slot, which the next address overwrites.
  int written = 0;
  for (int i = 0; i < req->count; ++i) {
    if (req->dest[i][0] != '\0') {
      char node[kNodeNameSize];
      entry_node(node, pvc, entry);
      tcapi_set(node, "destAddressList", req->dest[i]);
      ++written;
    }
    if (req->count != 1) findMonitorFreeEntry(req->bundle, &base, &pvc, &entry);
  }

  if (written > 0) {
    // Kept on purpose: the name goes on the PVC of the most recent search, which is the group
    // base only while the group's first PVC still has room.
    char node[kNodeNameSize];
    group_node(node, pvc);
    tcapi_set(node, "bundleName", req->bundle);
    brelo_tcapi_delay_commit(kCommitNode, kCommitDelay);
  } else {
    BUNDLE_TRACE_PUTS("monotor address exist, not modified!");  // spelled so on purpose
  }
  return 0;
}

// True when some entry of the PVC holds an address.
bool pvc_has_address(int pvc) {
  for (int e = 0; e < kEntriesPerPvc; ++e) {
    char node[kNodeNameSize];
    char stored[kTreeValueSize];
    entry_node(node, pvc, e);
    bundle::tree_get(node, "destAddressList", stored);
    if (stored[0] != '\0') return true;
  }
  return false;
}

int deleteMonitorRuleToEntry(MonitorRequest *req) {
  int base = -1;
  for (int b = 0; b < kPvcCount; b += kGroupPvcs) {
    char node[kNodeNameSize];
    char owner[kTreeValueSize];
    group_node(node, b);
    bundle::tree_get(node, "bundleName", owner);
    if (strcmp(owner, req->bundle) == 0) {
      base = b;
      break;
    }
  }
  if (base < 0) {
    BUNDLE_TRACE("BundleName %s is not exist\n", req->bundle);
    return -1;
  }

  int deleted = match_stored(req, base, base + kGroupPvcs - 1, true);

  // Every empty PVC of the group loses its node, whether or not anything was deleted. For the
  // group's first PVC that removes "bundleName" and frees the group, even while later PVCs of
  // the group still hold addresses (which are then no longer listed).
  for (int p = base; p < base + kGroupPvcs; ++p) {
    if (pvc_has_address(p)) continue;
    char node[kNodeNameSize];
    group_node(node, p);
    tcapi_unset(node);
  }

  if (deleted > 0)
    brelo_tcapi_delay_commit(kCommitNode, kCommitDelay);
  else
    BUNDLE_TRACE_PUTS("to delete dest address not exist, not modified!");
  return 0;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_addTrafficMonitoringDestAddressJni(
    JNIEnv *env, jobject, jobjectArray destAddresses, jstring bundleName) {
  MonitorRequest req;
  int rc = read_request(env, destAddresses, bundleName, BUNDLE_NATIVE, &req);
  if (rc == 0) {
    rc = addMonitorRuleToEntry(&req);
    if (rc < 0) BUNDLE_TRACE_PUTS("monitor rules full");
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_deleteTrafficMonitoringDestAddressJni(
    JNIEnv *env, jobject, jobjectArray destAddresses, jstring bundleName) {
  MonitorRequest req;
  int rc = read_request(env, destAddresses, bundleName, BUNDLE_NATIVE, &req);
  if (rc == 0) {
    rc = deleteMonitorRuleToEntry(&req);
    // The same text as the add's failure, kept as the gateway has it.
    if (rc < 0) BUNDLE_TRACE_PUTS("monitor rules full");
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_getTrafficMonitoringDestAddressInfoJni(
    JNIEnv *env, jobject) {
  char *collection = static_cast<char *>(malloc(kQueryBufferSize));
  char *reply = static_cast<char *>(malloc(kQueryBufferSize));
  // Without either buffer, whichever was allocated is given back too.
  const char *text = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";
  if (collection != nullptr && reply != nullptr) {
    reply[0] = '\0';
    size_t off = 0;
    bundle::reply_append(reply, kQueryBufferSize, &off, "{\"Result\":0,\"List\":[");

    for (int b = 0; b < kPvcCount; b += kGroupPvcs) {
      char node[kNodeNameSize];
      char owner[kTreeValueSize];
      group_node(node, b);
      bundle::tree_get(node, "bundleName", owner);
      if (owner[0] == '\0') continue;

      bundle::append_object_opener(reply, kQueryBufferSize, &off);
      bundle::reply_append(reply, kQueryBufferSize, &off, "\"BundleName\":\"%s\",", owner);
      bundle::reply_append(reply, kQueryBufferSize, &off, "\"DestAddressList\":[");

      // The group's addresses joined as "a,b,c," in PVC and entry order, up to the size of the
      // collection buffer (a text that reaches it is cut there).
      collection[0] = '\0';
      size_t coff = 0;
      for (int p = b; p < b + kGroupPvcs && coff < kQueryBufferSize; ++p) {
        for (int e = 0; e < kEntriesPerPvc && coff < kQueryBufferSize; ++e) {
          char address[kQueryValueSize];
          entry_node(node, p, e);
          bundle::tree_get(node, "destAddressList", address);
          if (strNull(address)) continue;
          bundle::reply_append(collection, kQueryBufferSize, &coff, "%s,", address);
        }
      }

      // Split again at ","; an address that itself holds "," becomes two pieces.
      char *save = nullptr;
      for (char *piece = strtok_r(collection, ",", &save); piece != nullptr;
           piece = strtok_r(nullptr, ",", &save)) {
        if (bundle::reply_last_char(reply, kQueryBufferSize, off) != '[')
          bundle::reply_append(reply, kQueryBufferSize, &off, ",");
        bundle::reply_append(reply, kQueryBufferSize, &off, "\"%s\"", piece);
      }
      bundle::reply_append(reply, kQueryBufferSize, &off, "]}");
    }
    bundle::reply_append(reply, kQueryBufferSize, &off, "]}");
    text = reply;
  }
  jstring result = BUNDLE_JSON_REPLY(env, text);
  free(collection);
  free(reply);
  return result;
}

}  // extern "C"
