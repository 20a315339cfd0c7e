// pon.ini: the PON access line.
#include <string.h>

#include "capture/context.h"

namespace capture {

void capture_pon(Context &c, StateFile *f) {
  f->section("pon");
  if (CAPTURE_HAVE(c, brelo_ponGetIfPhyStatusInfo)) {
    PonPhyStatusRecord rec;
    memset(&rec, 0, sizeof rec);
    c.noted(k_brelo_ponGetIfPhyStatusInfo, c.p.brelo_ponGetIfPhyStatusInfo(&rec));
    f->number("TXPower", rec.tx_power);
    f->number("RXPower", rec.rx_power);
    f->number("TransceiverTemperature", rec.temperature);
    f->number("SupplyVoltage", rec.supply_voltage);
    f->number("BiasCurrent", rec.bias_current);
  }
  // These two answer with the figure itself.
  if (CAPTURE_HAVE(c, brelo_ponGetDuration)) {
    int v = c.p.brelo_ponGetDuration();
    c.noted(k_brelo_ponGetDuration, v);
    f->number("Duration", v);
  }
  if (CAPTURE_HAVE(c, brelo_ponGetRegInfo)) {
    int v = c.p.brelo_ponGetRegInfo();
    c.noted(k_brelo_ponGetRegInfo, v);
    f->number("RegisterState", v);
  }
  if (CAPTURE_HAVE(c, brelo_ponGetUplinkIfStats)) {
    unsigned long long us = 0, ds = 0;
    c.noted(k_brelo_ponGetUplinkIfStats, c.p.brelo_ponGetUplinkIfStats(&us, &ds));
    f->unsigned_number("UsStats", us);
    f->unsigned_number("DsStats", ds);
  }
}

}  // namespace capture
