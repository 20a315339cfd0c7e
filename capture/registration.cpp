// registration.ini: registration with the operator's network, as the gateway reports it now.
// A registration in progress is recorded as in progress; replayed, the simulator completes it
// at the next status query (without services: the gateway does not tell which will come).
#include <string.h>

#include "capture/context.h"

namespace capture {

void capture_registration(Context &c, StateFile *f) {
  f->section("registration");
  if (CAPTURE_HAVE(c, brelo_passwordGetRegistrationInfo)) {
    RegistrationInfo rec;
    memset(&rec, 0, sizeof rec);
    c.noted(k_brelo_passwordGetRegistrationInfo, c.p.brelo_passwordGetRegistrationInfo(&rec));
    f->number("status", rec.status);
    f->number("result", rec.result);
    f->number("service_num", rec.service_num);
    f->field("service_name", rec.service_name);
    f->number("limit", rec.limit);
    f->number("times", rec.times);
    f->field("province", rec.province);
  }
  if (CAPTURE_HAVE(c, brelo_GetProvince)) {
    char province[PROVINCE_TEXT_SIZE] = {};
    c.noted(k_brelo_GetProvince, c.p.brelo_GetProvince(province));
    f->field("gateway_province", province);
  }
}

}  // namespace capture
