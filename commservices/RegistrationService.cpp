// com.lumarest.smartgateway.commservices.RegistrationServiceImp: the gateway's registration
// with the operator's network by password, submitted and reported. The meaning of the texts,
// numbers and codes is the platform's; they are passed through unchanged.
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_registration.h"

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_setPasswordRegistrationJni(
    JNIEnv *env, jobject, jstring text1, jint number1, jint number2, jstring text2) {
  // Each text reaches the platform in a zero-filled buffer, copied and given back before the
  // next one is read.
  char first[128];
  char second[64];
  int rc = -1;
  if (bundle::take_text(env, text1, first) && bundle::take_text(env, text2, second))
    rc = brelo_passwordSetRegistration(first, number1, number2, second);

  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_getPasswordRegistrationInfoJni(
    JNIEnv *env, jobject) {
  bundle::Reply<4096> reply;
  bundle::PlatformText<PROVINCE_TEXT_SIZE> province;
  int province_rc = brelo_GetProvince(province.out());
  BUNDLE_TRACE("getPasswordRegistrationInfoJni: brelo_GetProvince ret = %d\n", province_rc);

  RegistrationInfo info;
  memset(&info, 0, sizeof info);
  // The result is ignored: a failed call reports the zeroed record, still as Result 0.
  brelo_passwordGetRegistrationInfo(&info);
  bundle::terminate_field(info.service_name);
  bundle::terminate_field(info.province);

  // The record's own province wins; an empty one falls back to the gateway's province.
  const char *shown_province = info.province[0] != '\0' ? info.province : province.text();

  // Every number goes out as a quoted string.
  reply.append("{\"Result\":0,\"Status\":\"%d\",\"RegisterResult\":\"%d\",\"ServiceNum\":\"%d\","
               "\"ServiceName\":\"%s\",\"Limit\":\"%d\",\"Times\":\"%d\",\"Province\":\"%s\"}",
               static_cast<int>(info.status), static_cast<int>(info.result),
               static_cast<int>(info.service_num), info.service_name, static_cast<int>(info.limit),
               static_cast<int>(info.times), shown_province);

  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

}  // extern "C"
