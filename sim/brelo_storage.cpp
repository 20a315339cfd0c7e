// Simulated platform functions: access rights and user accounts of the FTP, web (HTTP) and
// Samba services.
// State: sections [ftp], [http], [samba] and one numbered section [ftp account N] or
// [samba account N] per account (see sim/gateway/storage.ini).
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "common/platform_storage.h"
#include "sim/sim.h"

namespace {

// "NULL" or the quoted text, for the call log.
std::string quoted(const char *text) {
  return text != nullptr ? "\"" + std::string(text) + "\"" : std::string("NULL");
}

// The account sections of a service ("ftp" or "samba"), in the order they were added.
std::vector<std::string> accounts(const char *service) {
  return sim::sections((std::string(service) + " account ").c_str());
}

std::string find_account(const char *service, const char *user) {
  for (const std::string &s : accounts(service))
    if (user != nullptr && sim::get_str(s.c_str(), "user") == user) return s;
  return "";
}

// A new account takes the section after the highest number in use. Refused (-1) when the
// service already holds the six accounts its record can carry, or the user exists.
int add_account(const char *service, const char *user, const char *password) {
  sim::Guard guard;
  if (user == nullptr || password == nullptr) return -1;
  std::vector<std::string> existing = accounts(service);
  if (existing.size() >= STORAGE_MAX_ACCOUNTS || !find_account(service, user).empty()) return -1;
  long long next = 1;
  std::string prefix = std::string(service) + " account ";
  for (const std::string &s : existing) {
    long long n = atoll(s.c_str() + prefix.size());
    if (n >= next) next = n + 1;
  }
  std::string section = prefix + std::to_string(next);
  sim::set(section.c_str(), "user", user);
  sim::set(section.c_str(), "password", password);
  return 0;
}

int delete_account(const char *service, const char *user) {
  sim::Guard guard;
  std::string section = find_account(service, user);
  if (section.empty()) return -1;
  sim::remove_section(section.c_str());
  return 0;
}

void delete_all_accounts(const char *service) {
  sim::Guard guard;
  for (const std::string &s : accounts(service)) sim::remove_section(s.c_str());
}

// Copies a text into a record field: whole up to the field's size, terminated only when it is
// shorter, as a careless platform might leave a field filled to the brim.
void put_field(char *field, size_t cap, const std::string &text) {
  size_t n = text.size() < cap ? text.size() : cap;
  memcpy(field, text.data(), n);
  if (n < cap) field[n] = '\0';
}

// Fills the names, passwords and count of a record from the service's accounts; at most six
// are written. The count is the number of accounts unless [<service>] account_count overrides
// it (a platform that misreports).
void fill_accounts(const char *service, int32_t *count,
                   char (*names)[STORAGE_ACCOUNT_FIELD_SIZE],
                   char (*passwords)[STORAGE_ACCOUNT_FIELD_SIZE]) {
  std::vector<std::string> list = accounts(service);
  size_t n = list.size() < STORAGE_MAX_ACCOUNTS ? list.size() : STORAGE_MAX_ACCOUNTS;
  for (size_t i = 0; i < n; ++i) {
    put_field(names[i], STORAGE_ACCOUNT_FIELD_SIZE, sim::get_str(list[i].c_str(), "user"));
    put_field(passwords[i], STORAGE_ACCOUNT_FIELD_SIZE, sim::get_str(list[i].c_str(), "password"));
  }
  *count = sim::get(service, "account_count") != nullptr
               ? static_cast<int32_t>(sim::get_int(service, "account_count"))
               : static_cast<int32_t>(n);
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_setFTPRight(int right, unsigned char anonymous) {
  sim::call("brelo_setFTPRight", "%d, %u", right, static_cast<unsigned int>(anonymous));
  sim::Guard guard;
  sim::set("ftp", "right", std::to_string(right));
  sim::set("ftp", "anonymous", std::to_string(static_cast<unsigned int>(anonymous)));
  return sim::result("brelo_setFTPRight", 0);
}

SIM_EXPORT int brelo_setHTTPRight(int right) {
  sim::call("brelo_setHTTPRight", "%d", right);
  sim::set("http", "right", std::to_string(right));
  return sim::result("brelo_setHTTPRight", 0);
}

SIM_EXPORT int brelo_addFTPAccount(const char *user, const char *password) {
  sim::call("brelo_addFTPAccount", "%s, %s", quoted(user).c_str(), quoted(password).c_str());
  int rc = add_account("ftp", user, password);
  return sim::result("brelo_addFTPAccount", rc);
}

SIM_EXPORT int brelo_deleteFTPAccount(const char *user) {
  sim::call("brelo_deleteFTPAccount", "%s", quoted(user).c_str());
  int rc = delete_account("ftp", user);
  return sim::result("brelo_deleteFTPAccount", rc);
}

SIM_EXPORT int brelo_deleteAllFTPAccount(void) {
  sim::call("brelo_deleteAllFTPAccount", "%s", "");
  int rc = sim::result("brelo_deleteAllFTPAccount", 0);
  if (rc == 0) delete_all_accounts("ftp");  // a programmed failure leaves the accounts
  return rc;
}

SIM_EXPORT int brelo_setHTTPUserPassword(const char *password) {
  sim::call("brelo_setHTTPUserPassword", "%s", quoted(password).c_str());
  if (password == nullptr) return sim::result("brelo_setHTTPUserPassword", -1);
  sim::set("http", "password", password);
  return sim::result("brelo_setHTTPUserPassword", 0);
}

SIM_EXPORT int brelo_addSambaAccount(const char *user, const char *password) {
  sim::call("brelo_addSambaAccount", "%s, %s", quoted(user).c_str(), quoted(password).c_str());
  int rc = add_account("samba", user, password);
  return sim::result("brelo_addSambaAccount", rc);
}

SIM_EXPORT int brelo_deleteSambaAccount(const char *user) {
  sim::call("brelo_deleteSambaAccount", "%s", quoted(user).c_str());
  int rc = delete_account("samba", user);
  return sim::result("brelo_deleteSambaAccount", rc);
}

SIM_EXPORT int brelo_deleteAllSambaAccount(void) {
  sim::call("brelo_deleteAllSambaAccount", "%s", "");
  int rc = sim::result("brelo_deleteAllSambaAccount", 0);
  if (rc == 0) delete_all_accounts("samba");  // a programmed failure leaves the accounts
  return rc;
}

// Writes only the members it knows; the accounts beyond those held are left as they were.
// [ftp] scribble = <character> first fills the whole record with that byte, standing in for
// what an unzeroed record may hold.
SIM_EXPORT int brelo_getFTPRightInfo(FtpRightRecord *rec) {
  sim::call("brelo_getFTPRightInfo", "%s", "");
  sim::Guard guard;
  std::string scribble = sim::get_str("ftp", "scribble");
  if (!scribble.empty()) memset(rec, static_cast<unsigned char>(scribble[0]), sizeof *rec);
  rec->right = static_cast<int32_t>(sim::get_int("ftp", "right"));
  rec->anonymous = static_cast<int32_t>(sim::get_int("ftp", "anonymous"));
  fill_accounts("ftp", &rec->account_count, rec->user_name, rec->password);
  return sim::result("brelo_getFTPRightInfo", 0);
}

SIM_EXPORT int brelo_getHTTPRightInfo(int *right, char *password) {
  sim::call("brelo_getHTTPRightInfo", "%s", "");
  sim::Guard guard;
  *right = static_cast<int>(sim::get_int("http", "right"));
  sim::out_text(password, 256, "http", "password");
  return sim::result("brelo_getHTTPRightInfo", 0);
}

SIM_EXPORT int brelo_getSambaRightInfo(SambaRightRecord *rec) {
  sim::call("brelo_getSambaRightInfo", "%s", "");
  sim::Guard guard;
  fill_accounts("samba", &rec->account_count, rec->user_name, rec->password);
  return sim::result("brelo_getSambaRightInfo", 0);
}

}  // extern "C"
