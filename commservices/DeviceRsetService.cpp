// com.lumarest.smartgateway.commservices.DeviceRsetServiceImp (the class name is spelt so):
// restore of the gateway.
#include "common/native.h"
#include "common/platform_registration.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceRsetServiceImp_resetJni(JNIEnv *, jobject) {
  int rc = brelo_reset();
  BUNDLE_TRACE("ResetJni=====result=%d=======>\n", rc);
  return rc;
}

}  // extern "C"
