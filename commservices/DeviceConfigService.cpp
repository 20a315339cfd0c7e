// com.lumarest.smartgateway.commservices.DeviceConfigServiceImp: the front-panel LED switch.
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_registration.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceConfigServiceImp_setLedSwitchJni(
    JNIEnv *, jobject, jboolean enable) {
  // The boolean's low byte switches the LED on only when it is exactly 1.
  int flag = (static_cast<unsigned int>(enable) & 0xFFu) == 1u ? 1 : 0;
  int rc = brelo_ledSetSwitch(flag) == 0 ? 0 : -1;
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
