// com.lumarest.smartgateway.commservices.DeviceAccessRightConfigServiceImp: the access right
// levels of the gateway's FTP, web (HTTP) and Samba services and their user accounts. Every
// native answers 0 on success and -1 on failure; the platform's own code is not passed on.
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_storage.h"

namespace {

// Right levels are 0..3; a negative level reads as a large unsigned one and is refused too.
bool valid_right(jint right) { return static_cast<uint32_t>(right) < 4u; }

// A text is usable when it was had and is not empty.
bool usable(const bundle::JavaChars &text) { return !text.is_null() && text.get()[0] != '\0'; }

// Gives back a text that was had; a text that could not be copied has nothing to give back.
void release_if_had(bundle::JavaChars &text) {
  if (text.is_null()) {
    text.keep();
  } else {
    text.release();
  }
}

int normalised(int rc) { return rc == 0 ? 0 : -1; }

typedef int (*OneTextSetter)(const char *text);
typedef int (*TwoTextSetter)(const char *user, const char *password);

// Account setters with one text (delete an account, the web password): the platform is asked
// only for a non-empty text.
int set_one_text(JNIEnv *env, bundle::TraceName native, const char *method, jstring jtext,
                 OneTextSetter setter) {
  bundle::JavaChars text(env, jtext);
  int rc = usable(text) ? normalised(setter(text.get())) : -1;
  bundle::trace_printf(native, __LINE__, "%s: return code = %d   leave============>\n", method, rc);
  release_if_had(text);
  return rc;
}

// Account setters with a user name and a password: both texts are taken first (the password
// even when the name is missing), and the platform is asked only when both are non-empty.
int set_two_texts(JNIEnv *env, bundle::TraceName native, const char *method, jstring juser,
                  jstring jpassword, TwoTextSetter setter) {
  bundle::JavaChars user(env, juser);
  bundle::JavaChars password(env, jpassword);
  int rc = usable(user) && usable(password) ? normalised(setter(user.get(), password.get())) : -1;
  bundle::trace_printf(native, __LINE__, "%s: return code = %d   leave============>\n", method, rc);
  release_if_had(user);
  release_if_had(password);
  return rc;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setFTPRightJni(
    JNIEnv *, jobject, jint right, jboolean anonymous) {
  // The anonymous flag goes on as the low 8 bits of the Java argument, not normalised.
  int rc = valid_right(right)
               ? normalised(brelo_setFTPRight(right, static_cast<unsigned char>(anonymous)))
               : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPRightJni(
    JNIEnv *, jobject, jint right) {
  int rc = valid_right(right) ? normalised(brelo_setHTTPRight(right)) : -1;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setSambaRightJni(
    JNIEnv *, jobject, jint) {
  // Kept on purpose: the Samba service has no settable right level, so this reports success
  // and changes nothing.
  int rc = 0;
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addFTPAccountJni(
    JNIEnv *env, jobject, jstring userName, jstring password) {
  return set_two_texts(env, BUNDLE_NATIVE, "addFTPAccountJni", userName, password,
                       brelo_addFTPAccount);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteFTPAccountJni(
    JNIEnv *env, jobject, jstring userName) {
  return set_one_text(env, BUNDLE_NATIVE, "deleteFTPAccountJni", userName, brelo_deleteFTPAccount);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllFTPAccountJni(
    JNIEnv *, jobject) {
  int rc = normalised(brelo_deleteAllFTPAccount());
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_setHTTPUserPasswordJni(
    JNIEnv *env, jobject, jstring password) {
  return set_one_text(env, BUNDLE_NATIVE, "setHTTPUserPasswordJni", password,
                      brelo_setHTTPUserPassword);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_addSambaAccountJni(
    JNIEnv *env, jobject, jstring userName, jstring password) {
  return set_two_texts(env, BUNDLE_NATIVE, "addSambaAccountJni", userName, password,
                       brelo_addSambaAccount);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteSambaAccountJni(
    JNIEnv *env, jobject, jstring userName) {
  return set_one_text(env, BUNDLE_NATIVE, "deleteSambaAccountJni", userName,
                      brelo_deleteSambaAccount);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_deleteAllSambaAccountJni(
    JNIEnv *, jobject) {
  int rc = normalised(brelo_deleteAllSambaAccount());
  return BUNDLE_CODE_REPLY(rc);
}

}  // extern "C"
