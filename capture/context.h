// What every domain of a capture shares: the resolved platform, the options, the rewriting of
// customer data, and the outcome of every call (from which the failures are recorded).
#ifndef BUNDLE_CAPTURE_CONTEXT_H
#define BUNDLE_CAPTURE_CONTEXT_H

#include <stdint.h>

#include "capture/anonymize.h"
#include "capture/capture.h"
#include "capture/platform.h"
#include "capture/state_file.h"

namespace capture {

// The results one function gave over all its calls.
struct Outcome {
  int calls = 0;
  int first_rc = 0;
  bool same = true;       // every call gave first_rc
  bool data = false;      // some call that failed still handed out data
};

// Who the gateway is, for the header of every file (texts as captured, the MAC rewritten
// under --anonymize).
struct Identity {
  Text vendor, product_class, firmware_version, mac;
};

struct Context {
  Context(const Platform &platform, const Options &options)
      : p(platform), opt(options), anon(options.anonymize) {}

  const Platform &p;
  const Options &opt;
  Anonymizer anon;
  Outcome outcomes[kReadCount];
  Identity identity;

  // Notes a call's result; `data`: it handed out something (an item that exists).
  void noted(Fn fn, int rc, bool data = true) {
    Outcome &o = outcomes[fn];
    if (o.calls == 0) o.first_rc = rc;
    if (rc != o.first_rc) o.same = false;
    if (rc != 0 && data) o.data = true;
    ++o.calls;
  }

  // A text of customer data as written: rewritten under --anonymize.
  void customer(StateFile *f, const char *key, Customer kind, const char *text, size_t n) const;
  template <size_t N>
  void customer(StateFile *f, const char *key, Customer kind, const char (&field)[N]) const {
    customer(f, key, kind, field, field_length(field, N));
  }

  // A secret as written: kept with --with-secrets, otherwise masked (an empty one stays empty,
  // which says there is none).
  void secret(StateFile *f, const char *key, const char *field, size_t cap) const;
  template <size_t N>
  void secret(StateFile *f, const char *key, const char (&field)[N]) const {
    secret(f, key, field, N);
  }
};

// Whether a record holds anything but zero bytes.
bool any_bytes(const void *record, size_t size);

// Calls a platform function only when the gateway exports it; otherwise `missing` (the
// function's absence is recorded once for the whole capture).
#define CAPTURE_HAVE(c, fn) ((c).p.fn != nullptr)

// The domains, one state file each (see sim/gateway/ for the files they mirror).
void capture_device(Context &c, StateFile *f);
void capture_lan(Context &c, StateFile *f);
void capture_address(Context &c, StateFile *f);
void capture_eth(Context &c, StateFile *f);
void capture_wlan(Context &c, StateFile *f);
void capture_pon(Context &c, StateFile *f);
void capture_wan(Context &c, StateFile *f);
void capture_tree(Context &c, StateFile *f);
void capture_traffic(Context &c, StateFile *f);
void capture_diag(Context &c, StateFile *f);
void capture_usb(Context &c, StateFile *f);
void capture_storage(Context &c, StateFile *f);
void capture_registration(Context &c, StateFile *f);
void capture_forward(Context &c, StateFile *f);
void capture_qos(Context &c, StateFile *f);
void capture_route(Context &c, StateFile *f);
void capture_vpn(Context &c, StateFile *f);
void capture_voip(Context &c, StateFile *f);

// The failures and missing functions, as the simulator's [results] section; returns how many
// failures were recorded (missing functions not counted).
int write_results(const Context &c, StateFile *f, const char *const *missing, int missing_count);

}  // namespace capture

#endif
