// storage.ini: access rights and accounts of the FTP, web and Samba services. A record holds
// at most six accounts; a count the platform reports beyond what the accounts show is kept as
// its account_count.
#include <stdlib.h>
#include <string.h>

#include "capture/context.h"

namespace capture {
namespace {

void write_accounts(Context &c, StateFile *f, const char *service, int32_t count,
                    const char (*users)[STORAGE_ACCOUNT_FIELD_SIZE],
                    const char (*passwords)[STORAGE_ACCOUNT_FIELD_SIZE]) {
  int n = count < 0 ? 0 : count > STORAGE_MAX_ACCOUNTS ? STORAGE_MAX_ACCOUNTS : count;
  if (count != n) {
    f->section("%s", service);
    f->number("account_count", count);
  }
  for (int i = 0; i < n; ++i) {
    f->section("%s account %d", service, i + 1);
    f->field("user", users[i], STORAGE_ACCOUNT_FIELD_SIZE);
    c.secret(f, "password", passwords[i], STORAGE_ACCOUNT_FIELD_SIZE);
  }
}

}  // namespace

void capture_storage(Context &c, StateFile *f) {
  if (CAPTURE_HAVE(c, brelo_getFTPRightInfo)) {
    FtpRightRecord *rec = static_cast<FtpRightRecord *>(calloc(1, sizeof(FtpRightRecord)));
    if (rec != nullptr) {
      c.noted(k_brelo_getFTPRightInfo, c.p.brelo_getFTPRightInfo(rec));
      f->section("ftp");
      f->number("right", rec->right);
      f->number("anonymous", rec->anonymous);
      write_accounts(c, f, "ftp", rec->account_count, rec->user_name, rec->password);
      free(rec);
    }
  }
  if (CAPTURE_HAVE(c, brelo_getSambaRightInfo)) {
    SambaRightRecord *rec = static_cast<SambaRightRecord *>(calloc(1, sizeof(SambaRightRecord)));
    if (rec != nullptr) {
      c.noted(k_brelo_getSambaRightInfo, c.p.brelo_getSambaRightInfo(rec));
      write_accounts(c, f, "samba", rec->account_count, rec->user_name, rec->password);
      free(rec);
    }
  }
  if (CAPTURE_HAVE(c, brelo_getHTTPRightInfo)) {
    int right = 0;
    char password[256] = {};
    c.noted(k_brelo_getHTTPRightInfo, c.p.brelo_getHTTPRightInfo(&right, password));
    f->section("http");
    f->number("right", right);
    c.secret(f, "password", password);
  }
}

}  // namespace capture
