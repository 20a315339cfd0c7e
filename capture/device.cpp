// device.ini: identity, load and the label's credentials.
#include <string.h>

#include "capture/context.h"

namespace capture {
namespace {

// A text the platform writes into a caller's buffer of `cap` bytes (zeroed first).
template <typename Read>
bool read_text(Context &c, Fn fn, char *buf, size_t cap, Read read) {
  memset(buf, 0, cap);
  int rc = read(buf);
  c.noted(fn, rc, buf[0] != '\0');
  return rc == 0 || buf[0] != '\0';
}

}  // namespace

void capture_device(Context &c, StateFile *f) {
  // The serial number keys the rewriting of customer data: read before any of it is written.
  char serial[129];
  bool have_serial = CAPTURE_HAVE(c, brelo_devInfoGetSerialNumber) &&
                     read_text(c, k_brelo_devInfoGetSerialNumber, serial, sizeof serial,
                               [&](char *b) { return c.p.brelo_devInfoGetSerialNumber(b); });
  if (have_serial) c.anon.set_key(serial, field_length(serial));

  f->section("device");
  if (CAPTURE_HAVE(c, brelo_deviceGetInfo)) {
    DeviceInfoRecord rec;
    memset(&rec, 0, sizeof rec);
    c.noted(k_brelo_deviceGetInfo, c.p.brelo_deviceGetInfo(&rec));
    f->field("vendor", rec.vendor);
    f->field("product_class", rec.product_class);
    f->field("hardware_version", rec.hardware_version);
    f->field("firmware_version", rec.firmware_version);
    f->number("flash_size", rec.flash_size);
    f->number("ram_size", rec.ram_size);
    f->field("main_chip_class", rec.main_chip_class);
    f->field("nfc", rec.nfc);
    c.identity.vendor.append(rec.vendor, field_length(rec.vendor));
    c.identity.product_class.append(rec.product_class, field_length(rec.product_class));
    c.identity.firmware_version.append(rec.firmware_version, field_length(rec.firmware_version));
  }
  char buf[256];
  if (CAPTURE_HAVE(c, brelo_deviceGetMac) &&
      read_text(c, k_brelo_deviceGetMac, buf, 128, [&](char *b) { return c.p.brelo_deviceGetMac(b); })) {
    c.customer(f, "mac", Customer::kMac, buf, field_length(buf, 128));
    c.anon.rewrite(Customer::kMac, buf, field_length(buf, 128), &c.identity.mac);
  }
  // These answer with the figure itself.
  if (CAPTURE_HAVE(c, brelo_deviceGetUpTime)) {
    int v = c.p.brelo_deviceGetUpTime();
    c.noted(k_brelo_deviceGetUpTime, v);
    f->number("uptime", v);
  }
  if (CAPTURE_HAVE(c, brelo_deviceGetCPUOccupancyRate)) {
    int v = c.p.brelo_deviceGetCPUOccupancyRate();
    c.noted(k_brelo_deviceGetCPUOccupancyRate, v);
    f->number("cpu_occupancy", v);
  }
  if (CAPTURE_HAVE(c, brelo_deviceGetRAMOccupancyRate)) {
    int v = c.p.brelo_deviceGetRAMOccupancyRate();
    c.noted(k_brelo_deviceGetRAMOccupancyRate, v);
    f->number("ram_occupancy", v);
  }

  f->section("secrets");
  if (CAPTURE_HAVE(c, brelo_devInfoGetManufacturerOUI) &&
      read_text(c, k_brelo_devInfoGetManufacturerOUI, buf, 64,
                [&](char *b) { return c.p.brelo_devInfoGetManufacturerOUI(b); }))
    f->field("manufacturer_oui", buf, 64);
  if (have_serial) c.secret(f, "serial_number", serial);
  if (CAPTURE_HAVE(c, brelo_devInfoGetDefaultWebPasswd) &&
      read_text(c, k_brelo_devInfoGetDefaultWebPasswd, buf, sizeof buf,
                [&](char *b) { return c.p.brelo_devInfoGetDefaultWebPasswd(b, sizeof buf); }))
    c.secret(f, "default_web_password", buf);
  if (CAPTURE_HAVE(c, brelo_wlanGetDefaultSSIDName) &&
      read_text(c, k_brelo_wlanGetDefaultSSIDName, buf, sizeof buf,
                [&](char *b) { return c.p.brelo_wlanGetDefaultSSIDName(b, sizeof buf); })) {
    c.customer(f, "default_ssid1_name", Customer::kSsid, buf);
  }
  if (CAPTURE_HAVE(c, brelo_wlanGetDefaultSSIDPasswd) &&
      read_text(c, k_brelo_wlanGetDefaultSSIDPasswd, buf, sizeof buf,
                [&](char *b) { return c.p.brelo_wlanGetDefaultSSIDPasswd(b, sizeof buf); }))
    c.secret(f, "default_ssid1_password", buf);
  if (CAPTURE_HAVE(c, brelo_devInfoGetPasswd) &&
      read_text(c, k_brelo_devInfoGetPasswd, buf, sizeof buf,
                [&](char *b) { return c.p.brelo_devInfoGetPasswd(b); }))
    c.secret(f, "password", buf);
}

}  // namespace capture
