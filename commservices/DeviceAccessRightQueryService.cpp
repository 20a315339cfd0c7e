// com.lumarest.smartgateway.commservices.DeviceAccessRightQueryServiceImp: the access rights
// and user accounts of the gateway's FTP, web (HTTP) and Samba services as JSON replies.
// Passwords travel in clear; platform texts are inserted as they are, without escaping (the
// hardened profile escapes them and masks these replies in the trace).
#include <stdio.h>
#include <stdlib.h>

#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_storage.h"

namespace {

const char kAccountListFailure[] =
    "{\"Result\":-1,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}";

typedef bundle::Reply<4096> AccountReply;

// Appends the account objects and closes the reply. The count comes from the platform: a
// conforming one never reports more accounts than the record holds, and anything outside
// 0..6 is bounded to what the record can hold. Every field is terminated at its last byte
// before it is read, so a field filled to the brim is cut there.
void append_accounts(AccountReply &reply, int32_t count,
                     char (*names)[STORAGE_ACCOUNT_FIELD_SIZE],
                     char (*passwords)[STORAGE_ACCOUNT_FIELD_SIZE]) {
  if (count > STORAGE_MAX_ACCOUNTS) count = STORAGE_MAX_ACCOUNTS;
  for (int32_t i = 0; i < count && reply.offset() < AccountReply::capacity(); ++i) {
    bundle::terminate_field(names[i]);
    bundle::terminate_field(passwords[i]);
    reply.append("{\"UserName\":\"%s\",\"Password\":\"%s\"}", names[i], passwords[i]);
    if (i < count - 1) reply.append(",");
  }
  reply.append("]}");
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getFTPRightInfoJni(
    JNIEnv *env, jobject) {
  AccountReply reply;
  // Kept on purpose: the record is not zeroed before the call, a conforming platform fills
  // every member read here. Reading it stays bounded whatever it holds (see append_accounts).
  FtpRightRecord *rec = static_cast<FtpRightRecord *>(malloc(sizeof(FtpRightRecord)));
  if (rec == nullptr || brelo_getFTPRightInfo(rec) != 0) {
    reply.append("%s", kAccountListFailure);
  } else {
    reply.append("{\"Result\":0,\"Right\":%d,\"Anonymous\":\"%s\",\"AccountList\":[",
                 static_cast<int>(rec->right), rec->anonymous != 0 ? "TRUE" : "FALSE");
    append_accounts(reply, rec->account_count, rec->user_name, rec->password);
  }
  free(rec);
  return BUNDLE_SECRET_REPLY(env, bundle::checked_reply(reply.c_str(), kAccountListFailure));
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getHTTPRightInfoJni(
    JNIEnv *env, jobject) {
  bundle::Reply<1024> reply;
  int right = 0;
  bundle::PlatformText<256> password;
  if (brelo_getHTTPRightInfo(&right, password.out()) != 0) {
    reply.append("{\"Result\":-1,\"Right\":0,\"Password\":\"\"}");
  } else {
    reply.append("{\"Result\":0,\"Right\":%d,\"Password\":\"%s\"}", right, password.text());
  }
  return BUNDLE_SECRET_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getSambaRightInfoJni(
    JNIEnv *env, jobject) {
  AccountReply reply;
  SambaRightRecord *rec = static_cast<SambaRightRecord *>(calloc(1, sizeof(SambaRightRecord)));
  if (rec == nullptr || brelo_getSambaRightInfo(rec) != 0) {
    reply.append("%s", kAccountListFailure);
  } else {
    // Kept on purpose: the Samba service has no right level and no anonymous access, so the
    // head is fixed whatever the platform holds.
    reply.append("{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[");
    append_accounts(reply, rec->account_count, rec->user_name, rec->password);
  }
  free(rec);
  return BUNDLE_SECRET_REPLY(env, bundle::checked_reply(reply.c_str(), kAccountListFailure));
}

}  // extern "C"
