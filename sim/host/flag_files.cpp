// The gateway's flag files looked up in a folder of the process's own (see flag_files.h).
#include "sim/host/flag_files.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "sim/sim.h"

namespace {

// Every file under /tmp the library looks at or removes.
const char *const kGatewayFiles[] = {
    "/tmp/brelo_debug",
    "/tmp/wps_debug",
    "/tmp/usbapi_test",
    "/tmp/cwmp/traceroutediagnostic_stat",
};

constexpr char kTmp[] = "/tmp/";
constexpr size_t kPathMax = 4096;

}  // namespace

extern "C" {

SIM_EXPORT const char *sim_gateway_file(const char *path, char *out, size_t size) {
  const char *folder = getenv(SIM_FLAG_DIR_ENV);
  if (path == nullptr || folder == nullptr || folder[0] == '\0' || size == 0) return path;
  for (const char *file : kGatewayFiles) {
    if (strcmp(path, file) != 0) continue;
    int n = snprintf(out, size, "%s/%s", folder, path + sizeof kTmp - 1);
    return n >= 0 && static_cast<size_t>(n) < size ? out : path;
  }
  return path;
}

// The C library's own functions are reached through their *at() forms, which nothing here
// interposes.
SIM_EXPORT int access(const char *path, int mode) {
  char buf[kPathMax];
  return faccessat(AT_FDCWD, sim_gateway_file(path, buf, sizeof buf), mode, 0);
}

SIM_EXPORT int unlink(const char *path) {
  char buf[kPathMax];
  return unlinkat(AT_FDCWD, sim_gateway_file(path, buf, sizeof buf), 0);
}

}  // extern "C"
