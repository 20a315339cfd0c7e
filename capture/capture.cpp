#include "capture/capture.h"

#include <string.h>
#include <time.h>

#include "capture/context.h"
#include "capture/folder.h"

namespace capture {
namespace {

constexpr int kMissingRoom = 256;

// A captured text shown in a comment line: control characters would end the line.
void comment_text(Text *out, const Text &in) {
  for (size_t i = 0; i < in.size(); ++i) {
    char ch = in.data()[i];
    out->append(static_cast<unsigned char>(ch) < 0x20 ? '?' : ch);
  }
}

struct Header {
  char time[64];
  Text line;  // "<vendor> <product class> <firmware>, MAC <mac>"
};

void make_header(const Context &c, const Options &o, Header *h) {
  if (o.time_text != nullptr) {
    snprintf(h->time, sizeof h->time, "%s", o.time_text);
  } else {
    time_t now = time(nullptr);
    struct tm utc;
    gmtime_r(&now, &utc);
    strftime(h->time, sizeof h->time, "%Y-%m-%dT%H:%M:%SZ", &utc);
  }
  h->line.clear();
  const Identity &id = c.identity;
  if (id.vendor.size() + id.product_class.size() + id.firmware_version.size() + id.mac.size() == 0) {
    h->line.append("(not identified)");
    return;
  }
  comment_text(&h->line, c.identity.vendor);
  h->line.append(' ');
  comment_text(&h->line, c.identity.product_class);
  h->line.append(' ');
  comment_text(&h->line, c.identity.firmware_version);
  h->line.append(", MAC ");
  comment_text(&h->line, c.identity.mac);
}

void write_header(const Context &c, const Header &h, StateFile *f) {
  f->comment("The gateway %s, captured at %s by bundle_sc-capture %s.", h.line.data(), h.time,
             version());
  f->comment("%s%s", c.opt.with_secrets ? "Secrets kept (--with-secrets)." : "Secrets masked as ******.",
             c.opt.anonymize ? " Customer data rewritten (--anonymize)." : "");
}

void write_capture(const Context &c, const Header &h, bool complete, const char *const *missing,
                   int missing_count, StateFile *f) {
  write_header(c, h, f);
  f->comment("A state folder of the gateway simulator: BRELO_SIM_STATE=<this folder>, sim_load(),");
  f->comment("sim:load <this folder> in the gateway in a box. It replaces the whole simulated gateway.");
  f->comment("Not captured: USB devices, VoIP subscribers, the VPN's credentials, WAN passwords,");
  f->comment("the name resolver (hosts.ini); the simulator's own defaults stand for them.");
  f->section("capture");
  f->comment("1 once every file is written; a folder with 0 does not load");
  f->number("complete", complete ? 1 : 0);
  f->text("tool", "bundle_sc-capture");
  f->text("version", version());
  f->text("time", h.time);
  f->text("vendor", c.identity.vendor.data(), c.identity.vendor.size());
  f->text("product_class", c.identity.product_class.data(), c.identity.product_class.size());
  f->text("firmware_version", c.identity.firmware_version.data(), c.identity.firmware_version.size());
  f->text("mac", c.identity.mac.data(), c.identity.mac.size());
  f->text("secrets", c.opt.with_secrets ? "kept" : "masked");
  f->text("anonymized", c.opt.anonymize ? "yes" : "no");
  Text names;
  for (int i = 0; i < missing_count && i < kMissingRoom; ++i) {
    if (i > 0) names.append(',');
    names.append(missing[i]);
  }
  f->text("missing", names.data(), names.size());
}

struct Domain {
  const char *file;
  void (*capture)(Context &, StateFile *);
};

const Domain kDomains[] = {
    {"lan.ini", capture_lan},           {"address.ini", capture_address},
    {"eth.ini", capture_eth},           {"wlan.ini", capture_wlan},
    {"pon.ini", capture_pon},           {"wan.ini", capture_wan},
    {"tree.ini", capture_tree},         {"traffic.ini", capture_traffic},
    {"diag.ini", capture_diag},         {"usb.ini", capture_usb},
    {"storage.ini", capture_storage},   {"registration.ini", capture_registration},
    {"forward.ini", capture_forward},   {"qos.ini", capture_qos},
    {"route.ini", capture_route},       {"vpn.ini", capture_vpn},
    {"voip.ini", capture_voip},
};

}  // namespace

const char *version() { return BUNDLE_CAPTURE_VERSION; }

int run(const Options &o) {
  Options opt = o;
  if (opt.messages == nullptr) opt.messages = stderr;
  Platform p;
  const char *missing[kMissingRoom];
  int missing_count = resolve(&p, opt.lookup, opt.lookup_ctx, missing, kMissingRoom);
  if (missing_count > kMissingRoom) missing_count = kMissingRoom;

  Folder folder(opt.messages);
  if (!folder.create(opt.out_dir)) return kOutputFailed;
  if (opt.on_partial != nullptr) opt.on_partial(folder.partial(), folder.destination());
  Context c(p, opt);
  Header header;
  make_header(c, opt, &header);
  {
    // First of all: a folder stopped from here on is marked incomplete.
    StateFile mark("capture.ini");
    write_capture(c, header, false, missing, missing_count, &mark);
    if (!folder.write(mark)) return kOutputFailed;
  }
  StateFile device("device.ini");
  capture_device(c, &device);
  make_header(c, opt, &header);
  {
    StateFile file("device.ini");
    write_header(c, header, &file);
    file.append(device);
    if (!folder.write(file)) return kOutputFailed;
  }
  for (const Domain &d : kDomains) {
    StateFile file(d.file);
    write_header(c, header, &file);
    d.capture(c, &file);
    if (!folder.write(file)) return kOutputFailed;
  }
  StateFile results("results.ini");
  write_header(c, header, &results);
  int failures = write_results(c, &results, missing, missing_count);
  if (!folder.write(results)) return kOutputFailed;
  StateFile done("capture.ini");
  write_capture(c, header, true, missing, missing_count, &done);
  if (!folder.write(done) || !folder.finish()) return kOutputFailed;

  if (missing_count > 0) {
    fprintf(opt.messages, "bundle_sc-capture: the gateway's libraries lack %d platform function%s "
            "(recorded in results.ini, answered with -1 when replayed):", missing_count,
            missing_count == 1 ? "" : "s");
    for (int i = 0; i < missing_count; ++i) fprintf(opt.messages, " %s", missing[i]);
    fprintf(opt.messages, "\n");
  }
  fprintf(opt.messages, "bundle_sc-capture: captured %s into %s", header.line.data(), folder.destination());
  if (failures > 0) fprintf(opt.messages, " (%d function%s failed on every call: see results.ini)",
                            failures, failures == 1 ? "" : "s");
  fprintf(opt.messages, "\n");
  return kCaptured;
}

}  // namespace capture
