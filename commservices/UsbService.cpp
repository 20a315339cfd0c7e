// com.lumarest.smartgateway.commservices.UsbServiceImp: USB device events, lock, open and
// close, byte transfers to and from a serial-type device and its line settings, and the
// mounted storage volumes.
//
// The last opened handle is the library's one piece of mutable state. Every open overwrites
// it; while the flag file /tmp/usbapi_test exists, every native that takes a handle talks to
// that last opened handle instead of the one Java passed, so a Java side that does not keep
// handles can still reach the device it opened last.
#include <stdint.h>

#include "common/java_bytes.h"
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_usb.h"
#include "common/shared_int32.h"

#define USB_TEST_FLAG "/tmp/usbapi_test"

namespace {

// Written by every open (including -1 for a device that did not open), read in test mode.
// Java threads may open and close at once: each access is atomic, the last open wins.
bundle::SharedInt32 g_last_opened_handle(USB_NO_HANDLE);

// The handle a native acts on: the last opened one in test mode, else the one given. The
// test mode is decided afresh on every call.
int resolveUsbHandle(int handle) {
  if (bundle::flag_file_exists(USB_TEST_FLAG)) return g_last_opened_handle.load();
  return handle;
}

// 0 stays 0, any other platform result becomes -1.
int zero_or_failure(int rc) { return rc == 0 ? 0 : -1; }

// The address `offset` bytes from the pinned elements. The offset is not checked against the
// array (the platform is handed whatever Java passed); the address is computed as an integer
// so that an offset outside the array is passed on rather than being undefined behaviour.
char *offset_address(jbyte *elements, jint offset) {
  uintptr_t base = reinterpret_cast<uintptr_t>(elements);
  return reinterpret_cast<char *>(base + static_cast<uintptr_t>(static_cast<intptr_t>(offset)));
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbRegisterJni(
    JNIEnv *env, jobject, jstring listenerName, jint deviceTypeMask) {
  bundle::JavaChars name(env, listenerName);
  int rc = -1;
  if (!name.is_null() && deviceTypeMask >= USB_TYPE_BIT_FIRST &&
      deviceTypeMask <= USB_TYPE_MASK_ALL) {
    // Each set bit is registered on its own, lowest first; the first refusal stops the walk
    // and leaves the bits before it registered.
    rc = 0;
    int remaining = deviceTypeMask;
    for (int bit = USB_TYPE_BIT_FIRST; bit <= USB_TYPE_BIT_LAST && remaining != 0; bit <<= 1) {
      if ((remaining & bit) == 0) continue;
      remaining &= ~bit;
      rc = brelo_usbRegister(USB_LEAD_CLASS, USB_LEAD_ANY, name.get(), bit);
      if (rc != 0) break;
    }
  }
  BUNDLE_TRACE("usbRegisterJni: return code = %d   leave============>\n", rc);
  name.release();
  return rc;
}

// The Java method passes a device-type mask too; unregistering ignores it.
JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnregisterJni(
    JNIEnv *env, jobject, jstring listenerName, jint) {
  bundle::JavaChars name(env, listenerName);
  int rc = -1;
  if (!name.is_null())
    rc = zero_or_failure(brelo_usbUnregister(USB_LEAD_CLASS, USB_LEAD_ANY, name.get()));
  BUNDLE_TRACE("usbUnregisterJni: return code = %d   leave============>\n", rc);
  name.release();
  return rc;
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbLockJni(
    JNIEnv *, jobject, jint devId) {
  int rc = zero_or_failure(brelo_usbLock(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE, devId));
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbUnlockJni(
    JNIEnv *, jobject, jint devId) {
  int rc = zero_or_failure(brelo_usbUnlock(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE, devId));
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbOpenJni(
    JNIEnv *, jobject, jint devId) {
  int handle = USB_NO_HANDLE;
  // The result code is not used: the handle says whether the device opened.
  brelo_usbOpen(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE, devId, &handle);
  g_last_opened_handle.store(handle);
  return BUNDLE_CODE_REPLY(handle);
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbCloseJni(
    JNIEnv *, jobject, jint handle) {
  int rc = zero_or_failure(brelo_usbClose(resolveUsbHandle(handle)));
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbDataAvailableJni(JNIEnv *, jobject,
                                                                              jint handle) {
  int available = brelo_usbDataAvailable(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE,
                                         resolveUsbHandle(handle));
  int rc = available != 0 ? 1 : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbReadJni(
    JNIEnv *env, jobject, jint handle, jbyteArray buffer, jint offset, jint count, jint timeout) {
  int target = resolveUsbHandle(handle);
  bundle::JavaBytes bytes(env, buffer);
  int rc = -1;
  if (!bytes.is_null()) {
    // The platform may change the count; the changed value is not reported to Java.
    int wanted = count;
    rc = brelo_usbRead(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE, target,
                       offset_address(bytes.get(), offset), &wanted, timeout);
  }
  BUNDLE_TRACE("usbReadJni: return code = %d   leave============>\n", rc);
  bytes.release();  // mode 0: the bytes read appear in the Java array
  return rc;
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbWriteJni(
    JNIEnv *env, jobject, jint handle, jbyteArray buffer, jint offset, jint length) {
  int target = resolveUsbHandle(handle);
  bundle::JavaBytes bytes(env, buffer);
  // The bytes to send are copied to the start of the pinned elements, and the elements are
  // released with mode 0: a write from a non-zero offset thus leaves the first `length` bytes
  // of the Java array replaced by the bytes sent. Kept on purpose: Java callers see this.
  bytes.copy_region_to_start(offset, length);
  int rc = -1;
  if (!bytes.is_null()) {
    int sent = length;
    rc = brelo_usbWrite(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE, target,
                        reinterpret_cast<char *>(bytes.get()), &sent);
  }
  BUNDLE_TRACE("usbWriteJni: return code = %d   leave============>\n", rc);
  bytes.release();
  return rc;
}

JNIEXPORT jint JNICALL Java_com_lumarest_smartgateway_commservices_UsbServiceImp_usbSetSerialJni(
    JNIEnv *, jobject, jint handle, jint setting1, jint setting2, jint setting3, jint setting4,
    jbyte setting5, jboolean setting6) {
  int target = resolveUsbHandle(handle);
  UsbSerialSettings settings;
  memset(&settings, 0, sizeof settings);
  settings.setting1 = static_cast<uint32_t>(setting1);
  settings.setting2 = static_cast<uint32_t>(setting2);
  settings.setting3 = static_cast<uint32_t>(setting3);
  settings.setting4 = static_cast<uint32_t>(setting4);
  // The last two count by their low 8 bits only; the sixth is 1 exactly when that byte is 1.
  settings.setting5 = static_cast<uint32_t>(setting5) & 0xFFu;
  settings.setting6 = (static_cast<uint32_t>(setting6) & 0xFFu) == 1u ? 1u : 0u;
  int rc = zero_or_failure(
      brelo_usbSetSerial(USB_LEAD_CLASS, USB_LEAD_ANY, USB_LEAD_NONE, target, &settings));
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni(JNIEnv *env, jobject) {
  static const char kStorageFailure[] = "{\"Result\":-1,\"List\":[]}";
  bundle::Reply<4096> reply;
  StorageRecord *list = nullptr;
  int count = 0;
  if (brelo_getStorageInfo(&list, &count) != 0) {
    reply.append("%s", kStorageFailure);
  } else {
    reply.append("{\"Result\":0,\"List\":[");
    // The array stays the platform's: it is neither freed nor written to, so its fields are
    // bounded by precision instead of being terminated in place.
    for (int i = 0; list != nullptr && i < count; ++i) {
      const StorageRecord &rec = list[i];
      if (i > 0) reply.append(",");
      // The sizes go in as raw text and so read as JSON numbers (the hardened profile places
      // only numbers there).
      reply.append("{\"storagePath\":\"%.*s\",\"totalStorage\":%.*s,\"validStorage\":%.*s}",
                   static_cast<int>(sizeof rec.path - 1), rec.path,
                   static_cast<int>(sizeof rec.total - 1),
                   bundle::raw_json(rec.total, bundle::RawJson::kNumber, sizeof rec.total - 1),
                   static_cast<int>(sizeof rec.free - 1),
                   bundle::raw_json(rec.free, bundle::RawJson::kNumber, sizeof rec.free - 1));
    }
    reply.append("]}");
  }
  return BUNDLE_JSON_REPLY(env, bundle::checked_reply(reply.c_str(), kStorageFailure));
}

}  // extern "C"
