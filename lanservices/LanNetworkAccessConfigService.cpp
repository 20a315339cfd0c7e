// com.lumarest.smartgateway.lanservices.LanNetworkAccessConfigServiceImp: the MAC filter mode
// and the three MAC lists (network black list, storage black list, trust list). A MAC list
// buffer that cannot be allocated answers -1 before any platform call.
#include "common/array_readers.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_lan.h"
#include "lanservices/lan_hosts.h"

namespace {

// The list an add native puts its hosts on.
enum AddTarget { kAddBlack, kAddTrust, kAddStorageBlack };

// Adds the entries one by one. An empty entry (the reader counts empty texts once any text is
// non-empty) or a platform -1 stops the walk with -1; otherwise the result is the last call's
// (0 when there was nothing to add).
int add_each(char (*entries)[MAC_ENTRY_SIZE], int count, AddTarget target) {
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
      case kAddStorageBlack:
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
  bundle::HeapMacList list(env, macs);
  if (bundle::exception_pending(env)) return -1;  // a MAC text could not be obtained
  // The filter mode is neither read nor changed when adding.
  int rc = list.ok() ? add_each(list.entries(), list.count(), kAddBlack) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  int rc = -1;
  if (filter_mode_is(LAN_FILTER_MODE_BLACK)) {
    bundle::HeapMacList list(env, macs);
    if (bundle::exception_pending(env)) return -1;  // a MAC text could not be obtained
    if (list.ok()) rc = brelo_macClearFromList(list.entries(), list.count(), LAN_LIST_BLACK);
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToStorageBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bundle::HeapMacList list(env, macs);
  if (bundle::exception_pending(env)) return -1;  // a MAC text could not be obtained
  int rc = -1;
  if (list.ok()) {
    int saved_mode = 0;
    brelo_lanGetFilterMode(&saved_mode);  // its result is ignored
    rc = add_each(list.entries(), list.count(), kAddStorageBlack);
    brelo_lanSetFilterMode(saved_mode);  // restored whatever the outcome
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromStorageBlackListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bundle::HeapMacList list(env, macs);
  if (bundle::exception_pending(env)) return -1;  // a MAC text could not be obtained
  int rc = -1;
  if (list.ok()) {
    int saved_mode = 0;
    brelo_lanGetFilterMode(&saved_mode);  // its result is ignored
    // The storage list is cleared whatever the mode is.
    rc = brelo_macClearFromList(list.entries(), list.count(), LAN_LIST_STORAGE_BLACK);
    brelo_lanSetFilterMode(saved_mode);
  }
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_addLANHostToTrustListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  bundle::HeapMacList list(env, macs);
  if (bundle::exception_pending(env)) return -1;  // a MAC text could not be obtained
  int rc = list.ok() ? add_each(list.entries(), list.count(), kAddTrust) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_deleteLANHostFromTrustListJni(
    JNIEnv *env, jobject, jobjectArray macs) {
  int rc = -1;
  if (filter_mode_is(LAN_FILTER_MODE_TRUST)) {
    bundle::HeapMacList list(env, macs);
    if (bundle::exception_pending(env)) return -1;  // a MAC text could not be obtained
    if (list.ok()) {
      rc = brelo_macClearFromList(list.entries(), list.count(), LAN_LIST_TRUST);
      // Unlike the black list, the trust mode is set again after a removal.
      brelo_lanSetFilterMode(LAN_FILTER_MODE_TRUST);  // its result is ignored
    }
  }
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
