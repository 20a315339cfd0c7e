// Simulated platform functions: the PON access line.
// State: section [pon] (see sim/gateway/pon.ini).
#include <stdlib.h>

#include "common/platform_pon.h"
#include "sim/sim.h"

namespace {

int32_t pon_int(const char *key) { return static_cast<int32_t>(sim::get_int("pon", key)); }

// Byte counters are unsigned 64-bit: read them as such, not through a signed conversion.
unsigned long long pon_counter(const char *key) {
  return strtoull(sim::get_str("pon", key).c_str(), nullptr, 0);
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_ponGetIfPhyStatusInfo(PonPhyStatusRecord *rec) {
  sim::call("brelo_ponGetIfPhyStatusInfo", "%s", "");
  sim::Guard guard;
  rec->tx_power = pon_int("TXPower");
  rec->rx_power = pon_int("RXPower");
  rec->temperature = pon_int("TransceiverTemperature");
  rec->supply_voltage = pon_int("SupplyVoltage");
  rec->bias_current = pon_int("BiasCurrent");
  return sim::result("brelo_ponGetIfPhyStatusInfo", 0);
}

SIM_EXPORT int brelo_ponGetDuration(void) {
  sim::call("brelo_ponGetDuration", "%s", "");
  return sim::result("brelo_ponGetDuration", pon_int("Duration"));
}

SIM_EXPORT int brelo_ponGetRegInfo(void) {
  sim::call("brelo_ponGetRegInfo", "%s", "");
  return sim::result("brelo_ponGetRegInfo", pon_int("RegisterState"));
}

SIM_EXPORT int brelo_ponGetUplinkIfStats(unsigned long long *us, unsigned long long *ds) {
  sim::call("brelo_ponGetUplinkIfStats", "%s", "");
  sim::Guard guard;
  *us = pon_counter("UsStats");
  *ds = pon_counter("DsStats");
  return sim::result("brelo_ponGetUplinkIfStats", 0);
}

}  // extern "C"
