// Every test program keeps the gateway's flag files ("/tmp/brelo_debug" and the others, see
// sim/host/flag_files.h) in a folder of its own, made when it starts and removed when it ends,
// so test programs running side by side never see each other's flags. A folder already named
// by BRELO_SIM_FLAG_DIR (a caller that wants to look inside) is used as it is.
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include "sim/host/flag_files.h"

namespace {

const char *const kFlagFolderFiles[] = {"brelo_debug", "wps_debug", "usbapi_test",
                              "cwmp/traceroutediagnostic_stat"};

class PrivateFlagFolder {
 public:
  PrivateFlagFolder() {
    const char *given = getenv(SIM_FLAG_DIR_ENV);
    if (given != nullptr && given[0] != '\0') return;
    const char *tmp = getenv("TMPDIR");
    snprintf(path_, sizeof path_, "%s/bundle_sc-flags.XXXXXX",
             tmp != nullptr && tmp[0] != '\0' ? tmp : "/tmp");
    if (mkdtemp(path_) == nullptr) {
      perror("flag folder");
      abort();
    }
    setenv(SIM_FLAG_DIR_ENV, path_, 1);
    made_ = true;
  }
  ~PrivateFlagFolder() {
    if (!made_) return;
    char file[sizeof path_ + 64];
    for (const char *name : kFlagFolderFiles) {
      snprintf(file, sizeof file, "%s/%s", path_, name);
      unlink(file);
    }
    snprintf(file, sizeof file, "%s/cwmp", path_);
    rmdir(file);
    rmdir(path_);
  }

 private:
  char path_[1024] = "";
  bool made_ = false;
};

PrivateFlagFolder g_flag_folder;

}  // namespace
