// The gateway's flag files, off the gateway (libgatewayhost.so).
//
// The library switches behaviour on files under /tmp: "/tmp/brelo_debug" (trace),
// "/tmp/wps_debug", "/tmp/usbapi_test", and it removes the traceroute result
// "/tmp/cwmp/traceroutediagnostic_stat". On a developer's machine /tmp is shared by every
// process, so two test runs side by side would see each other's flags. When the environment
// variable BRELO_SIM_FLAG_DIR names a folder, the host side looks these files up in that folder
// instead (access() and unlink() of exactly these paths; "/tmp/cwmp/x" becomes "<folder>/cwmp/x"),
// so each process can have a /tmp of its own. Unset or empty: /tmp, as on the gateway. Every
// other path passes through unchanged.
#ifndef BUNDLE_SIM_HOST_FLAG_FILES_H
#define BUNDLE_SIM_HOST_FLAG_FILES_H

#include <stddef.h>

#define SIM_FLAG_DIR_ENV "BRELO_SIM_FLAG_DIR"

extern "C" {
// Where the gateway file `path` ("/tmp/...") lives for this process: written into `out`
// (`size` bytes, always terminated) and returned. A path that is not one of the gateway's flag
// files, or no folder set, gives `path` itself; a folder too long for `out` gives `path`.
const char *sim_gateway_file(const char *path, char *out, size_t size);
}

#endif
