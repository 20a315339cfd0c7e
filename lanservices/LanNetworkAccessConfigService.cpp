// com.lumarest.smartgateway.lanservices.LanNetworkAccessConfigServiceImp: the MAC filter mode
// and the three MAC lists (network black list, storage black list, trust list). A MAC list
// buffer that cannot be allocated answers -1 before any platform call.
#include "common/array_readers.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_lan.h"
#include "lanservices/lan_hosts.h"

namespace {

// What a list native does: add its hosts to a list, or clear them from one.
enum ListChange {
  kAddBlack,
  kAddTrust,
  kAddStorageBlack,
  kClearBlack,
  kClearTrust,
  kClearStorageBlack,
};

// Adds the entries one by one. An empty entry (the reader counts empty texts once any text is
// non-empty) or a platform -1 stops the walk with -1; otherwise the result is the last call's
// (0 when there was nothing to add).
int add_each(char (*entries)[MAC_ENTRY_SIZE], int count, ListChange target) {
  int rc = 0;
  for (int i = 0; i < count; ++i) {
    if (entries[i][0] == '\0') return -1;
    switch (target) {
      case kAddBlack:
        rc = brelo_lanSetLanDevAccessPermission(entries[i], LAN_PERMISSION_BLACK, 1);
        break;
      case kAddTrust:
        rc = brelo_lanSetLanDevAccessPermission(entries[i], LAN_PERMISSION_TRUST, 1);
        break;
      default:  // kAddStorageBlack
        rc = brelo_lanSetStorageDevAccessPermission(entries[i], 1);
        break;
    }
    if (rc == -1) return -1;
  }
  return rc;
}

// Removal from the network black list or the trust list is refused (-1, the array unread)
// unless the filter is in the matching mode; adding is always attempted.
bool filter_mode_is(int mode_needed) {
  int mode = 0;
  return brelo_lanGetFilterMode(&mode) == 0 && mode == mode_needed;
}

// The body of the six list natives: the MAC array read (heap buffer), then the change. A
// clearing from the network black list or the trust list is refused first unless the filter
// is in the matching mode; the storage list's changes keep the filter mode as it was (read
// before, set again after, whatever the outcome; its read result is ignored); a clearing from
// the trust list sets the trust mode again. `*pending` is set when a MAC text could not be
// obtained: the native then returns -1 without its closing line.
int change_list(JNIEnv *env, jobjectArray macs, ListChange change, bool *pending) {
  if (change == kClearBlack && !filter_mode_is(LAN_FILTER_MODE_BLACK)) return -1;
  if (change == kClearTrust && !filter_mode_is(LAN_FILTER_MODE_TRUST)) return -1;
  bundle::HeapMacList list(env, macs);
  if (bundle::exception_pending(env)) {
    *pending = true;
    return -1;
  }
  if (!list.ok()) return -1;
  const bool storage = change == kAddStorageBlack || change == kClearStorageBlack;
  int saved_mode = 0;
  if (storage) brelo_lanGetFilterMode(&saved_mode);
  int rc;
  if (change <= kAddStorageBlack) {
    rc = add_each(list.entries(), list.count(), change);
  } else {
    rc = brelo_macClearFromList(list.entries(), list.count(),
                                change == kClearBlack   ? LAN_LIST_BLACK
                                : change == kClearTrust ? LAN_LIST_TRUST
                                                        : LAN_LIST_STORAGE_BLACK);
  }
  if (storage) brelo_lanSetFilterMode(saved_mode);
  // Unlike the black list, the trust mode is set again after a removal.
  if (change == kClearTrust) brelo_lanSetFilterMode(LAN_FILTER_MODE_TRUST);  // result ignored
  return rc;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_setMacFilterModeJni(
    JNIEnv *, jobject, jint mode) {
  int rc = brelo_lanSetFilterMode(mode);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bool pending = false;
  int rc = change_list(env, macs, kAddBlack, &pending);
  if (pending) return -1;  // a MAC text could not be obtained
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bool pending = false;
  int rc = change_list(env, macs, kClearBlack, &pending);
  if (pending) return -1;  // a MAC text could not be obtained
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToStorageBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bool pending = false;
  int rc = change_list(env, macs, kAddStorageBlack, &pending);
  if (pending) return -1;  // a MAC text could not be obtained
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromStorageBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bool pending = false;
  int rc = change_list(env, macs, kClearStorageBlack, &pending);
  if (pending) return -1;  // a MAC text could not be obtained
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToTrustListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bool pending = false;
  int rc = change_list(env, macs, kAddTrust, &pending);
  if (pending) return -1;  // a MAC text could not be obtained
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromTrustListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bool pending = false;
  int rc = change_list(env, macs, kClearTrust, &pending);
  if (pending) return -1;  // a MAC text could not be obtained
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
