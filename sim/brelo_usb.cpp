// Simulated platform functions: USB devices and the mounted storage volumes.
// State: [usb], [usb device N], [usb handle H], [usb listener NAME] and [storage N] (see
// sim/gateway/usb.ini). Device 1 of the default gateway is a serial device with a loopback
// plug: what is written to it comes back to be read.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <list>
#include <mutex>
#include <string>
#include <vector>

#include "common/platform_usb.h"
#include "sim/sim.h"
#include "sim/sim_usb.h"

namespace {

const char kUsb[] = "usb";
const size_t kMaxPending = 4096;  // bytes a device holds for reading; more are dropped
const size_t kMaxWrittenShown = 64;

sim_usb_memory_check_fn g_memory_check = nullptr;
void *g_memory_check_ctx = nullptr;

std::string device_section(int devId) { return "usb device " + std::to_string(devId); }
std::string handle_section(int handle) { return "usb handle " + std::to_string(handle); }

bool known(const std::string &section) { return sim::entry_count(section.c_str()) != 0; }

// The device section of an open handle, or "" when the handle is not open.
std::string device_of(int handle) {
  std::string h = handle_section(handle);
  if (!known(h)) return "";
  std::string d = "usb device " + sim::get_str(h.c_str(), "device");
  return known(d) ? d : "";
}

std::string to_hex(const std::string &bytes) {
  std::string out;
  char two[3];
  for (unsigned char c : bytes) {
    snprintf(two, sizeof two, "%02x", c);
    out += two;
  }
  return out;
}

std::string from_hex(const std::string &hex) {
  std::string out;
  for (size_t i = 0; i + 1 < hex.size(); i += 2)
    out.push_back(static_cast<char>(strtoul(hex.substr(i, 2).c_str(), nullptr, 16)));
  return out;
}

// A transfer of `count` bytes at `buf` is made only when the count is within the devices'
// bound and the memory check (if any) says the bytes are the caller's to lend.
bool transfer_allowed(const void *buf, int count) {
  if (count < 0 || count > sim::get_int(kUsb, "max_transfer", 512)) return false;
  if (count == 0) return true;
  return g_memory_check == nullptr || g_memory_check(buf, count, g_memory_check_ctx) != 0;
}

const char *quoted(const char *text) { return text != nullptr ? text : "(null)"; }

}  // namespace

extern "C" {

SIM_EXPORT void sim_usb_set_memory_check(sim_usb_memory_check_fn check, void *ctx) {
  sim::Guard guard;
  g_memory_check = check;
  g_memory_check_ctx = ctx;
}

SIM_EXPORT int brelo_usbRegister(int lead1, int lead2, const char *name, int typeBit) {
  sim::call("brelo_usbRegister", "%d, %d, \"%s\", %d", lead1, lead2, quoted(name), typeBit);
  sim::Guard guard;
  bool valid = name != nullptr && *name != '\0' && typeBit > 0 && (typeBit & (typeBit - 1)) == 0 &&
               typeBit <= USB_TYPE_BIT_LAST;
  int rc = sim::result("brelo_usbRegister", valid ? 0 : -1);
  if (rc == 0 && valid) {
    std::string s = std::string("usb listener ") + name;
    long long types = sim::get_int(s.c_str(), "types");
    sim::set(s.c_str(), "types", std::to_string(types | typeBit));
  }
  return rc;
}

SIM_EXPORT int brelo_usbUnregister(int lead1, int lead2, const char *name) {
  sim::call("brelo_usbUnregister", "%d, %d, \"%s\"", lead1, lead2, quoted(name));
  sim::Guard guard;
  std::string s = std::string("usb listener ") + quoted(name);
  bool registered = name != nullptr && known(s);
  int rc = sim::result("brelo_usbUnregister", registered ? 0 : -1);
  if (rc == 0 && registered) sim::remove_section(s.c_str());
  return rc;
}

SIM_EXPORT int brelo_usbLock(int lead1, int lead2, int lead3, int devId) {
  sim::call("brelo_usbLock", "%d, %d, %d, %d", lead1, lead2, lead3, devId);
  sim::Guard guard;
  std::string d = device_section(devId);
  bool free_device = known(d) && sim::get_int(d.c_str(), "locked") == 0;
  int rc = sim::result("brelo_usbLock", free_device ? 0 : -1);
  if (rc == 0 && free_device) sim::set(d.c_str(), "locked", "1");
  return rc;
}

SIM_EXPORT int brelo_usbUnlock(int lead1, int lead2, int lead3, int devId) {
  sim::call("brelo_usbUnlock", "%d, %d, %d, %d", lead1, lead2, lead3, devId);
  sim::Guard guard;
  std::string d = device_section(devId);
  int rc = sim::result("brelo_usbUnlock", known(d) ? 0 : -1);
  if (rc == 0 && known(d)) sim::set(d.c_str(), "locked", "0");
  return rc;
}

SIM_EXPORT int brelo_usbOpen(int lead1, int lead2, int lead3, int devId, int *handle) {
  sim::call("brelo_usbOpen", "%d, %d, %d, %d", lead1, lead2, lead3, devId);
  sim::Guard guard;
  std::string d = device_section(devId);
  // A known device is opened whatever result a test programmed (callers go by the handle).
  if (known(d)) {
    int issued = static_cast<int>(sim::get_int(kUsb, "next_handle", 1));
    sim::set(kUsb, "next_handle", std::to_string(issued + 1));
    sim::set(handle_section(issued).c_str(), "device", std::to_string(devId));
    *handle = issued;
  }
  return sim::result("brelo_usbOpen", known(d) ? 0 : -1);
}

SIM_EXPORT int brelo_usbClose(int handle) {
  sim::call("brelo_usbClose", "%d", handle);
  sim::Guard guard;
  std::string h = handle_section(handle);
  int rc = sim::result("brelo_usbClose", known(h) ? 0 : -1);
  if (rc == 0 && known(h)) sim::remove_section(h.c_str());
  return rc;
}

SIM_EXPORT int brelo_usbDataAvailable(int lead1, int lead2, int lead3, int handle) {
  sim::call("brelo_usbDataAvailable", "%d, %d, %d, %d", lead1, lead2, lead3, handle);
  sim::Guard guard;
  std::string d = device_of(handle);
  // The number of bytes waiting; 0 for none or a handle that is not open.
  int waiting = d.empty() ? 0 : static_cast<int>(sim::get_str(d.c_str(), "pending").size() / 2);
  return sim::result("brelo_usbDataAvailable", waiting);
}

SIM_EXPORT int brelo_usbRead(int lead1, int lead2, int lead3, int handle, char *buf, int *count,
                             int timeout) {
  sim::call("brelo_usbRead", "%d, %d, %d, %d, %d, %d", lead1, lead2, lead3, handle, *count,
            timeout);
  sim::Guard guard;
  std::string d = device_of(handle);
  if (d.empty() || !transfer_allowed(buf, *count)) return sim::result("brelo_usbRead", -1);
  // No waiting: what is pending now is what is read (possibly nothing).
  std::string pending = from_hex(sim::get_str(d.c_str(), "pending"));
  size_t n = pending.size() < static_cast<size_t>(*count) ? pending.size() : static_cast<size_t>(*count);
  if (n > 0) memcpy(buf, pending.data(), n);
  sim::set(d.c_str(), "pending", to_hex(pending.substr(n)));
  *count = static_cast<int>(n);
  return sim::result("brelo_usbRead", static_cast<int>(n));
}

SIM_EXPORT int brelo_usbWrite(int lead1, int lead2, int lead3, int handle, char *buf, int *length) {
  sim::call("brelo_usbWrite", "%d, %d, %d, %d, %d", lead1, lead2, lead3, handle, *length);
  sim::Guard guard;
  std::string d = device_of(handle);
  if (d.empty() || !transfer_allowed(buf, *length)) return sim::result("brelo_usbWrite", -1);
  std::string bytes(buf, static_cast<size_t>(*length));
  std::string shown = bytes.size() > kMaxWrittenShown ? bytes.substr(bytes.size() - kMaxWrittenShown) : bytes;
  sim::set(d.c_str(), "written", to_hex(shown));
  if (sim::get_int(d.c_str(), "echo") != 0) {
    std::string pending = from_hex(sim::get_str(d.c_str(), "pending")) + bytes;
    if (pending.size() > kMaxPending) pending.resize(kMaxPending);
    sim::set(d.c_str(), "pending", to_hex(pending));
  }
  return sim::result("brelo_usbWrite", *length);
}

SIM_EXPORT int brelo_usbSetSerial(int lead1, int lead2, int lead3, int handle,
                                  UsbSerialSettings *s) {
  std::string words = std::to_string(s->setting1) + ", " + std::to_string(s->setting2) + ", " +
                      std::to_string(s->setting3) + ", " + std::to_string(s->setting4) + ", " +
                      std::to_string(s->setting5) + ", " + std::to_string(s->setting6);
  sim::call("brelo_usbSetSerial", "%d, %d, %d, %d, {%s}", lead1, lead2, lead3, handle,
            words.c_str());
  sim::Guard guard;
  std::string d = device_of(handle);
  int rc = sim::result("brelo_usbSetSerial", d.empty() ? -1 : 0);
  if (rc == 0 && !d.empty()) sim::set(d.c_str(), "serial", words);
  return rc;
}

SIM_EXPORT int brelo_getStorageInfo(StorageRecord **list, int *count) {
  sim::call("brelo_getStorageInfo", "%s", "");
  sim::Guard guard;
  std::vector<StorageRecord> records;
  for (const std::string &s : sim::sections("storage ")) {
    StorageRecord rec;
    memset(&rec, 0, sizeof rec);
    sim::out_text(rec.path, sizeof rec.path, s.c_str(), "path");
    sim::out_text(rec.total, sizeof rec.total, s.c_str(), "total");
    sim::out_text(rec.free, sizeof rec.free, s.c_str(), "free");
    records.push_back(rec);
  }
  // Callers never free the array, so it stays the simulator's: every distinct array handed
  // out is kept for the life of the process and handed out again while the state is the same.
  static std::list<std::vector<StorageRecord>> arrays;
  std::vector<StorageRecord> *kept = nullptr;
  for (auto &a : arrays) {
    if (a.size() == records.size() &&
        (records.empty() || memcmp(a.data(), records.data(), records.size() * sizeof records[0]) == 0)) {
      kept = &a;
      break;
    }
  }
  if (kept == nullptr) {
    arrays.push_back(records);
    kept = &arrays.back();
  }
  *list = kept->empty() ? nullptr : kept->data();
  *count = static_cast<int>(kept->size());
  return sim::result("brelo_getStorageInfo", 0);
}

}  // extern "C"
