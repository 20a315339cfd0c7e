// Platform library (libbrelo.so.1): access rights and user accounts of the gateway's FTP,
// web (HTTP) and Samba services.
#ifndef BUNDLE_COMMON_PLATFORM_STORAGE_H
#define BUNDLE_COMMON_PLATFORM_STORAGE_H

#include <stddef.h>
#include <stdint.h>

// Accounts a service record holds, and the size of each user name and password field.
#define STORAGE_MAX_ACCOUNTS 6
#define STORAGE_ACCOUNT_FIELD_SIZE 256

// FTP rights record filled by brelo_getFTPRightInfo (3084 bytes). Texts are NUL-terminated
// within their fields; only the first account_count names and passwords are meaningful.
struct FtpRightRecord {
  int32_t right;          // right level 0..3
  int32_t anonymous;      // non-zero: anonymous access allowed
  int32_t account_count;  // 0..6 from a conforming platform
  char user_name[STORAGE_MAX_ACCOUNTS][STORAGE_ACCOUNT_FIELD_SIZE];
  char password[STORAGE_MAX_ACCOUNTS][STORAGE_ACCOUNT_FIELD_SIZE];  // same order as the names
};
static_assert(sizeof(FtpRightRecord) == 3084, "FtpRightRecord is 3084 bytes");
static_assert(offsetof(FtpRightRecord, anonymous) == 4, "anonymous flag at 4");
static_assert(offsetof(FtpRightRecord, account_count) == 8, "account count at 8");
static_assert(offsetof(FtpRightRecord, user_name) == 12, "user names at 12");
static_assert(offsetof(FtpRightRecord, password) == 1548, "passwords at 1548");

// Samba rights record filled by brelo_getSambaRightInfo (3076 bytes): accounts only, no right
// level and no anonymous flag.
struct SambaRightRecord {
  int32_t account_count;  // 0..6 from a conforming platform
  char user_name[STORAGE_MAX_ACCOUNTS][STORAGE_ACCOUNT_FIELD_SIZE];
  char password[STORAGE_MAX_ACCOUNTS][STORAGE_ACCOUNT_FIELD_SIZE];  // same order as the names
};
static_assert(sizeof(SambaRightRecord) == 3076, "SambaRightRecord is 3076 bytes");
static_assert(offsetof(SambaRightRecord, user_name) == 4, "user names at 4");
static_assert(offsetof(SambaRightRecord, password) == 1540, "passwords at 1540");

// Setters return 0 on success, anything else on failure.
extern "C" {
int brelo_setFTPRight(int right, unsigned char anonymous);
int brelo_setHTTPRight(int right);
int brelo_addFTPAccount(const char *user, const char *password);
int brelo_deleteFTPAccount(const char *user);
int brelo_deleteAllFTPAccount(void);
int brelo_setHTTPUserPassword(const char *password);
int brelo_addSambaAccount(const char *user, const char *password);
int brelo_deleteSambaAccount(const char *user);
int brelo_deleteAllSambaAccount(void);

int brelo_getFTPRightInfo(FtpRightRecord *rec);
int brelo_getHTTPRightInfo(int *right, char *password);  // password: [256], zeroed by the caller
int brelo_getSambaRightInfo(SambaRightRecord *rec);
}

#endif
