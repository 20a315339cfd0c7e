// bundle_sc-capture: the command. The platform libraries are opened at run time and every
// function looked up by name, so a gateway whose libraries lack a function still runs the
// tool (the function is recorded as missing).
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "capture/capture.h"
#include "capture/interrupt.h"

namespace {

const char kUsage[] =
    "usage: bundle_sc-capture [--with-secrets] [--anonymize] FOLDER\n"
    "       bundle_sc-capture --help | --version\n"
    "Reads what this gateway's platform (libbrelo.so.1, libtcapi.so.1) answers, calling only\n"
    "functions that change nothing, and writes FOLDER: a state folder of the gateway simulator\n"
    "(BRELO_SIM_STATE=FOLDER, or sim:load FOLDER in the gateway in a box).\n"
    "  --with-secrets  keep passwords, credentials and the serial number (masked by default)\n"
    "  --anonymize     rewrite customer data (MACs, host names and addresses, SSID names,\n"
    "                  neighbours) the same way every time, for a capture to be shared\n"
    "FOLDER must not exist (or be empty); it is written under FOLDER.partial-XXXXXX first and\n"
    "renamed once complete. Exit status: 0 captured, 1 the folder could not be written or the\n"
    "platform not loaded, 2 usage.\n";

void *g_brelo = nullptr;
void *g_tcapi = nullptr;
int (*g_tcapi_get)(const char *, const char *, char *) = nullptr;

void *lookup(const char *name, void *) {
  void *f = nullptr;
  if (g_brelo != nullptr) f = dlsym(g_brelo, name);
  if (f == nullptr && g_tcapi != nullptr) f = dlsym(g_tcapi, name);
  // The address checks come from another library of the gateway, loaded by then.
  if (f == nullptr) f = dlsym(RTLD_DEFAULT, name);
  return f;
}

bool open_platform() {
  g_brelo = dlopen("libbrelo.so.1", RTLD_LAZY);
  if (g_brelo == nullptr) fprintf(stderr, "bundle_sc-capture: %s\n", dlerror());
  g_tcapi = dlopen("libtcapi.so.1", RTLD_LAZY);
  if (g_tcapi == nullptr) fprintf(stderr, "bundle_sc-capture: %s\n", dlerror());
  if (g_brelo == nullptr && g_tcapi == nullptr) {
    fprintf(stderr,
            "bundle_sc-capture: no platform library loads: run this on the gateway (or against "
            "the simulator, through bundle_sc-simulator)\n");
    return false;
  }
  if (g_tcapi != nullptr)
    g_tcapi_get = reinterpret_cast<int (*)(const char *, const char *, char *)>(dlsym(g_tcapi, "tcapi_get"));
  return true;
}

}  // namespace

// The library's bounded tree read (common/config_tree.cpp) calls tcapi_get by name: here that
// name leads to the opened libtcapi.so.1 (an attribute reads as absent without one).
extern "C" int tcapi_get(const char *node, const char *attr, char *buf) {
  if (g_tcapi_get == nullptr) {
    buf[0] = '\0';
    return -1;
  }
  return g_tcapi_get(node, attr, buf);
}

int main(int argc, char **argv) {
  capture::Options o;
  for (int i = 1; i < argc; ++i) {
    const char *a = argv[i];
    if (strcmp(a, "--help") == 0 || strcmp(a, "-h") == 0) {
      fputs(kUsage, stdout);
      return capture::kCaptured;
    } else if (strcmp(a, "--version") == 0) {
      printf("bundle_sc-capture %s\n", capture::version());
      return capture::kCaptured;
    } else if (strcmp(a, "--with-secrets") == 0) {
      o.with_secrets = true;
    } else if (strcmp(a, "--anonymize") == 0) {
      o.anonymize = true;
    } else if (a[0] == '-' && a[1] != '\0') {
      fprintf(stderr, "bundle_sc-capture: unknown option %s\n%s", a, kUsage);
      return capture::kUsage;
    } else if (o.out_dir == nullptr) {
      o.out_dir = a;
    } else {
      fprintf(stderr, "bundle_sc-capture: one folder only (%s, then %s)\n%s", o.out_dir, a, kUsage);
      return capture::kUsage;
    }
  }
  if (o.out_dir == nullptr) {
    fprintf(stderr, "bundle_sc-capture: no folder given\n%s", kUsage);
    return capture::kUsage;
  }
  if (!open_platform()) return capture::kOutputFailed;
  o.lookup = lookup;
  o.on_partial = capture::note_partial;
  capture::watch_interrupts();
  return capture::run(o);
}
