// results.ini: what the simulator is to answer in place of its usual results, so a replayed
// gateway fails where the captured one failed.
//
// A function whose every call gave the same non-zero result is recorded with it, unless that
// result is what the simulator answers anyway: the figure a function returns as its result
// (an uptime, a status), or -1 for an item that does not exist (an SSID, a port, a tree
// attribute) when no call handed anything out. A function that answered several different
// failures is noted in a comment: the simulator holds one result per function. A function the
// gateway's libraries do not export answers -1.
#include "capture/context.h"

namespace capture {
namespace {

enum class Kind {
  kPlain,      // 0 on success
  kItem,       // 0 for an item that exists, -1 for one that does not
  kValue,      // the result is the figure asked for
  kItemValue,  // the figure of an item, -1 (WPS status) or 0 (radio switch) without one
};

Kind kind_of(int fn) {
  switch (fn) {
    case k_brelo_deviceGetUpTime:
    case k_brelo_deviceGetCPUOccupancyRate:
    case k_brelo_deviceGetRAMOccupancyRate:
    case k_brelo_ponGetDuration:
    case k_brelo_ponGetRegInfo:
    case k_brelo_wanGetInternetWANIndex:
    case k_brelo_iptvGetStatus:
    case k_brelo_voipGetNumberOfPOTS:
    case k_brelo_getIPPingDiagnostics:
    case k_brelo_getTraceRouteDiagnosticsResult:
      return Kind::kValue;
    case k_brelo_wlanGetWPSStatus:
    case k_brelo_wlanGetRadioSwitch:
      return Kind::kItemValue;
    case k_brelo_getLANEthernetInfo:
    case k_brelo_getLANEthernetStats:
    case k_brelo_wlanGetSSIDInfo:
    case k_brelo_wlanGetSSIDStats:
    case k_brelo_wlanGetRadioInfo:
    case k_brelo_wlanGetSSIDPassword:
    case k_brelo_wanGetIfList:
    case k_brelo_wanGetIfPackageStats:
    case k_brelo_wanGetIfBandwidth:
    case k_brelo_wanGetPvcEntryIndex:
    case k_brelo_lanGetDevBandwidth:
    case k_brelo_getTrafficInfoByFlow:
    case k_brelo_getStatsByFlow:
    case k_brelo_getSpeedByFlow:
    case k_brelo_getSpeedLimitByFlow:
    case k_brelo_getDSCPRemarkByFlow:
    case k_brelo_voipGetLineInfo:
    case k_tcapi_get:
#define CAPTURE_CASE(fn, key) case k_##fn:
      CAPTURE_WAN_TEXT_GETTERS(CAPTURE_CASE)
      CAPTURE_WAN_INT_GETTERS(CAPTURE_CASE)
      CAPTURE_WAN_STATUS_GETTERS(CAPTURE_CASE)
#undef CAPTURE_CASE
      return Kind::kItem;
    default:
      return Kind::kPlain;
  }
}

int without_item(int fn) { return fn == k_brelo_wlanGetRadioSwitch ? 0 : -1; }

}  // namespace

int write_results(const Context &c, StateFile *f, const char *const *missing, int missing_count) {
  int recorded = 0;
  f->comment("Results the simulator gives in place of its usual ones (sim_program_result).");
  f->section("results");
  for (int fn = 0; fn < kReadCount; ++fn) {
    const Outcome &o = c.outcomes[fn];
    if (o.calls == 0) continue;
    Kind kind = kind_of(fn);
    if (kind == Kind::kValue) continue;
    if (!o.same) {
      if (kind == Kind::kPlain)
        f->comment("%s answered different results over its %d calls: not recorded", read_name(fn), o.calls);
      continue;
    }
    bool record = false;
    switch (kind) {
      case Kind::kPlain: record = o.first_rc != 0; break;
      case Kind::kItem: record = o.first_rc != 0 && (o.data || o.first_rc != -1); break;
      case Kind::kItemValue: record = o.first_rc != without_item(fn); break;
      case Kind::kValue: break;
    }
    if (!record) continue;
    f->comment("%s failed on every call (%d)", read_name(fn), o.calls);
    f->number(read_name(fn), o.first_rc);
    ++recorded;
  }
  for (int i = 0; i < missing_count; ++i) {
    f->comment("%s: not exported by the gateway's libraries", missing[i]);
    f->number(missing[i], -1);
  }
  return recorded;
}

}  // namespace capture
