// Platform library (libbrelo.so.1): the PON access line.
#ifndef BUNDLE_COMMON_PLATFORM_PON_H
#define BUNDLE_COMMON_PLATFORM_PON_H

#include <stddef.h>
#include <stdint.h>

// Optical levels filled by brelo_ponGetIfPhyStatusInfo (five signed words; the caller zeroes
// it). Values are the platform's own units, unscaled.
struct PonPhyStatusRecord {
  int32_t tx_power;
  int32_t rx_power;
  int32_t temperature;
  int32_t supply_voltage;
  int32_t bias_current;
};
static_assert(sizeof(PonPhyStatusRecord) == 20, "PonPhyStatusRecord is 20 bytes");
static_assert(offsetof(PonPhyStatusRecord, rx_power) == 4, "receive power at 4");
static_assert(offsetof(PonPhyStatusRecord, temperature) == 8, "temperature at 8");
static_assert(offsetof(PonPhyStatusRecord, supply_voltage) == 12, "supply voltage at 12");
static_assert(offsetof(PonPhyStatusRecord, bias_current) == 16, "bias current at 16");

extern "C" {
int brelo_ponGetIfPhyStatusInfo(PonPhyStatusRecord *rec);
// Uptime of the line, in the platform's unit.
int brelo_ponGetDuration(void);
// Registration state: 0 not registered, 1 registered not authenticated, 2 authenticated.
int brelo_ponGetRegInfo(void);
// Uplink byte counters, upstream then downstream.
int brelo_ponGetUplinkIfStats(unsigned long long *us, unsigned long long *ds);
}

#endif
