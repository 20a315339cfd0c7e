// Platform library (libbrelo.so.1): the gateway's registration with the operator's network by
// password, its province, restore of the gateway and the front-panel LED switch.
#ifndef BUNDLE_COMMON_PLATFORM_REGISTRATION_H
#define BUNDLE_COMMON_PLATFORM_REGISTRATION_H

#include <stddef.h>
#include <stdint.h>

// Registration state filled by brelo_passwordGetRegistrationInfo (148 bytes; the caller
// zeroes it). Codes are the platform's; texts are NUL-terminated within their fields.
struct RegistrationInfo {
  int32_t status;
  int32_t result;
  int32_t service_num;
  char service_name[64];
  int32_t limit;
  int32_t times;
  char province[64];  // may be empty: the gateway's own province then applies
};
static_assert(sizeof(RegistrationInfo) == 148, "RegistrationInfo is 148 bytes");
static_assert(offsetof(RegistrationInfo, result) == 4, "result at 4");
static_assert(offsetof(RegistrationInfo, service_num) == 8, "service count at 8");
static_assert(offsetof(RegistrationInfo, service_name) == 12, "service name at 12");
static_assert(offsetof(RegistrationInfo, limit) == 76, "limit counter at 76");
static_assert(offsetof(RegistrationInfo, times) == 80, "times counter at 80");
static_assert(offsetof(RegistrationInfo, province) == 84, "province at 84");

// The zeroed buffer brelo_GetProvince writes the gateway's province text into.
#define PROVINCE_TEXT_SIZE 32

extern "C" {
int brelo_passwordSetRegistration(const char *text1, int number1, int number2, const char *text2);
int brelo_passwordGetRegistrationInfo(RegistrationInfo *rec);
int brelo_GetProvince(char *buf);  // [PROVINCE_TEXT_SIZE]
int brelo_reset(void);
int brelo_ledSetSwitch(int flag);  // flag 1 on, 0 off
}

#endif
