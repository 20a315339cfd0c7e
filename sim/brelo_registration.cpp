// Simulated platform functions: registration with the operator's network by password, the
// gateway's province, restore of the gateway and the front-panel LED.
// State: [registration], [led] and [reset] (see sim/gateway/registration.ini). A submitted
// registration advances one step per status query until it is registered.
#include <string.h>

#include <string>

#include "common/platform_registration.h"
#include "sim/sim.h"

namespace {

const char kReg[] = "registration";
const int kRegistering = 1;  // 0: not registered
const int kRegistered = 2;
const int kResultSuccess = 1;

int reg_int(const char *key) { return static_cast<int>(sim::get_int(kReg, key)); }

int count_items(const std::string &list) {
  if (list.empty()) return 0;
  int n = 1;
  for (char c : list)
    if (c == ',') ++n;
  return n;
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_passwordSetRegistration(const char *text1, int number1, int number2,
                                             const char *text2) {
  sim::call("brelo_passwordSetRegistration", "\"%s\", %d, %d, \"%s\"", text1 ? text1 : "(null)",
            number1, number2, text2 ? text2 : "(null)");
  sim::Guard guard;
  // Refused without a first text, or when the attempts allowed are used up.
  int limit = reg_int("limit");
  bool allowed = text1 != nullptr && *text1 != '\0' && text2 != nullptr &&
                 (limit <= 0 || reg_int("times") < limit);
  int rc = sim::result("brelo_passwordSetRegistration", allowed ? 0 : -1);
  if (rc == 0 && allowed) {
    sim::set(kReg, "text1", text1);
    sim::set(kReg, "number1", std::to_string(number1));
    sim::set(kReg, "number2", std::to_string(number2));
    sim::set(kReg, "text2", text2);
    sim::set(kReg, "times", std::to_string(reg_int("times") + 1));
    sim::set(kReg, "status", std::to_string(kRegistering));
    sim::set(kReg, "result", "0");
    sim::set(kReg, "service_num", "0");
    sim::set(kReg, "service_name", "");
    sim::set(kReg, "progress", std::to_string(sim::get_int(kReg, "steps", 1)));
  }
  return rc;
}

SIM_EXPORT int brelo_passwordGetRegistrationInfo(RegistrationInfo *rec) {
  sim::call("brelo_passwordGetRegistrationInfo", "%s", "");
  sim::Guard guard;
  rec->status = reg_int("status");
  rec->result = reg_int("result");
  rec->service_num = reg_int("service_num");
  sim::out_text(rec->service_name, sizeof rec->service_name, kReg, "service_name");
  rec->limit = reg_int("limit");
  rec->times = reg_int("times");
  sim::out_text(rec->province, sizeof rec->province, kReg, "province");
  // The query reports the state, then a registration in progress moves on one step.
  if (rec->status == kRegistering) {
    int left = reg_int("progress") - 1;
    sim::set(kReg, "progress", std::to_string(left > 0 ? left : 0));
    if (left <= 0) {
      std::string services = sim::get_str(kReg, "services");
      sim::set(kReg, "status", std::to_string(kRegistered));
      sim::set(kReg, "result", std::to_string(kResultSuccess));
      sim::set(kReg, "service_num", std::to_string(count_items(services)));
      sim::set(kReg, "service_name", services);
    }
  }
  return sim::result("brelo_passwordGetRegistrationInfo", 0);
}

SIM_EXPORT int brelo_GetProvince(char *buf) {
  sim::call("brelo_GetProvince", "%s", "");
  sim::out_text(buf, PROVINCE_TEXT_SIZE, kReg, "gateway_province");
  return sim::result("brelo_GetProvince", 0);
}

SIM_EXPORT int brelo_reset(void) {
  sim::call("brelo_reset", "%s", "");
  sim::Guard guard;
  int rc = sim::result("brelo_reset", 0);
  if (rc == 0) sim::set("reset", "count", std::to_string(sim::get_int("reset", "count") + 1));
  return rc;
}

SIM_EXPORT int brelo_ledSetSwitch(int flag) {
  sim::call("brelo_ledSetSwitch", "%d", flag);
  sim::Guard guard;
  bool valid = flag == 0 || flag == 1;
  int rc = sim::result("brelo_ledSetSwitch", valid ? 0 : -1);
  if (rc == 0 && valid) sim::set("led", "switch", std::to_string(flag));
  return rc;
}

}  // extern "C"
