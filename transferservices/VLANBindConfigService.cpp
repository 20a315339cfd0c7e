// com.lumarest.smartgateway.transferservices.VLANBindConfigServiceImp: sets and clears the
// VLAN binding of a LAN interface.
#include <string.h>

#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_route.h"

namespace {

constexpr size_t kVlanTextSize = 32;  // at most 31 characters

// Reads a Java text into a zero-filled 32-byte buffer and gives it back. False when it cannot
// be read, or when it has 32 characters or more: such a text is never given back to the JVM.
bool read_vlan_text(JNIEnv *env, jstring s, char (&buf)[kVlanTextSize]) {
  bundle::JavaChars text(env, s);
  if (text.is_null()) return false;
  if (strlen(text.get()) >= kVlanTextSize) {
    text.keep();  // kept on purpose: the over-long text has never been released
    return false;
  }
  bundle::copy_padded(buf, text.get());
  text.release();
  return true;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_setVLANBindJni(
    JNIEnv *env, jobject, jstring jinterface, jstring jbind) {
  char lan_interface[kVlanTextSize], bind[kVlanTextSize];  // written whole before use
  int rc = -1;
  if (read_vlan_text(env, jinterface, lan_interface) && read_vlan_text(env, jbind, bind))
    rc = brelo_setVLANBind(lan_interface, bind);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_clearVLANBindJni(
    JNIEnv *env, jobject, jstring jinterface) {
  char lan_interface[kVlanTextSize];  // written whole before use
  int rc = -1;
  if (read_vlan_text(env, jinterface, lan_interface)) rc = brelo_clearVLANBind(lan_interface);
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
