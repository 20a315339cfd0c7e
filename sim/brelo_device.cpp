// Simulated platform functions: device identity, load and factory credentials.
// State: section [device] and section [secrets] (see sim/gateway/device.ini).
#include <string.h>

#include "common/platform_device.h"
#include "sim/sim.h"

namespace {

void copy_field(char *field, size_t cap, const char *key) { sim::out_text(field, cap, "device", key); }

}  // namespace

extern "C" {

SIM_EXPORT int brelo_deviceGetInfo(DeviceInfoRecord *rec) {
  sim::call("brelo_deviceGetInfo", "%s", "");
  sim::Guard guard;
  copy_field(rec->vendor, sizeof rec->vendor, "vendor");
  copy_field(rec->product_class, sizeof rec->product_class, "product_class");
  copy_field(rec->hardware_version, sizeof rec->hardware_version, "hardware_version");
  copy_field(rec->firmware_version, sizeof rec->firmware_version, "firmware_version");
  if (sim::get("device", "flash_size") != nullptr)
    rec->flash_size = static_cast<int32_t>(sim::get_int("device", "flash_size"));
  if (sim::get("device", "ram_size") != nullptr)
    rec->ram_size = static_cast<int32_t>(sim::get_int("device", "ram_size"));
  copy_field(rec->main_chip_class, sizeof rec->main_chip_class, "main_chip_class");
  copy_field(rec->nfc, sizeof rec->nfc, "nfc");
  return sim::result("brelo_deviceGetInfo", 0);
}

SIM_EXPORT int brelo_deviceGetMac(char *buf) {
  sim::call("brelo_deviceGetMac", "%s", "");
  sim::out_text(buf, 128, "device", "mac");
  return sim::result("brelo_deviceGetMac", 0);
}

SIM_EXPORT int brelo_deviceGetUpTime(void) {
  sim::call("brelo_deviceGetUpTime", "%s", "");
  return sim::result("brelo_deviceGetUpTime", static_cast<int>(sim::get_int("device", "uptime")));
}

SIM_EXPORT int brelo_deviceGetCPUOccupancyRate(void) {
  sim::call("brelo_deviceGetCPUOccupancyRate", "%s", "");
  return sim::result("brelo_deviceGetCPUOccupancyRate",
                     static_cast<int>(sim::get_int("device", "cpu_occupancy")));
}

SIM_EXPORT int brelo_deviceGetRAMOccupancyRate(void) {
  sim::call("brelo_deviceGetRAMOccupancyRate", "%s", "");
  return sim::result("brelo_deviceGetRAMOccupancyRate",
                     static_cast<int>(sim::get_int("device", "ram_occupancy")));
}

SIM_EXPORT int brelo_devInfoGetManufacturerOUI(char *buf) {
  sim::call("brelo_devInfoGetManufacturerOUI", "%s", "");
  sim::out_text(buf, 64, "secrets", "manufacturer_oui");
  return sim::result("brelo_devInfoGetManufacturerOUI", 0);
}

SIM_EXPORT int brelo_devInfoGetSerialNumber(char *buf) {
  sim::call("brelo_devInfoGetSerialNumber", "%s", "");
  sim::out_text(buf, 129, "secrets", "serial_number");
  return sim::result("brelo_devInfoGetSerialNumber", 0);
}

SIM_EXPORT int brelo_devInfoGetDefaultWebPasswd(char *buf, int size) {
  sim::call("brelo_devInfoGetDefaultWebPasswd", "%d", size);
  sim::out_text(buf, size > 0 ? static_cast<size_t>(size) : 0, "secrets", "default_web_password");
  return sim::result("brelo_devInfoGetDefaultWebPasswd", 0);
}

SIM_EXPORT int brelo_wlanGetDefaultSSIDName(char *buf, int size) {
  sim::call("brelo_wlanGetDefaultSSIDName", "%d", size);
  sim::out_text(buf, size > 0 ? static_cast<size_t>(size) : 0, "secrets", "default_ssid1_name");
  return sim::result("brelo_wlanGetDefaultSSIDName", 0);
}

SIM_EXPORT int brelo_wlanGetDefaultSSIDPasswd(char *buf, int size) {
  sim::call("brelo_wlanGetDefaultSSIDPasswd", "%d", size);
  sim::out_text(buf, size > 0 ? static_cast<size_t>(size) : 0, "secrets", "default_ssid1_password");
  return sim::result("brelo_wlanGetDefaultSSIDPasswd", 0);
}

SIM_EXPORT int brelo_devInfoGetPasswd(char *buf) {
  sim::call("brelo_devInfoGetPasswd", "%s", "");
  sim::out_text(buf, 256, "secrets", "password");
  return sim::result("brelo_devInfoGetPasswd", 0);
}

}  // extern "C"
