// bundle_sc-capture: reads what a gateway's platform answers (libbrelo.so.1, libtcapi.so.1),
// calling only functions that change nothing, and writes it as a state folder of the gateway
// simulator, which then answers every native as that gateway did.
//
// The folder is written under a temporary name beside the destination, marked incomplete
// (capture.ini, "complete = 0") until every file is written, then marked complete and renamed
// into place: a capture that was stopped half-way never loads as a gateway.
#ifndef BUNDLE_CAPTURE_CAPTURE_H
#define BUNDLE_CAPTURE_CAPTURE_H

#include <stdio.h>

#include "capture/platform.h"

namespace capture {

// The tool's version: the project's (written into every capture's header).
const char *version();

struct Options {
  const char *out_dir = nullptr;  // the folder to create (must not exist, or be empty)
  bool with_secrets = false;      // keep passwords, credentials and the serial number
  bool anonymize = false;         // rewrite customer data (MACs, names, addresses, SSIDs)
  Lookup lookup = nullptr;        // finds the platform's functions
  void *lookup_ctx = nullptr;
  FILE *messages = nullptr;       // warnings and errors (stderr when NULL)
  const char *time_text = nullptr;  // the capture time written (NULL: now, UTC)
  // Told where the folder is being written, once that temporary folder exists.
  void (*on_partial)(const char *partial, const char *destination) = nullptr;
};

// Exit codes of the tool.
enum { kCaptured = 0, kOutputFailed = 1, kUsage = 2 };

// Captures the gateway into o.out_dir. Returns kCaptured (also when some functions are missing
// or failed: they are recorded and reported) or kOutputFailed with a message.
int run(const Options &o);

}  // namespace capture

#endif
