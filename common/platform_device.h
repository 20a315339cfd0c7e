// Platform library (libbrelo.so.1): device identity, load and factory credentials.
#ifndef BUNDLE_COMMON_PLATFORM_DEVICE_H
#define BUNDLE_COMMON_PLATFORM_DEVICE_H

#include <stddef.h>
#include <stdint.h>

// Identity record filled by brelo_deviceGetInfo (536 bytes; the caller zeroes it). Texts are
// NUL-terminated within their fields; integers are in the platform's byte order.
struct DeviceInfoRecord {
  char vendor[128];
  char product_class[128];
  char hardware_version[64];
  char firmware_version[64];
  int32_t flash_size;
  int32_t ram_size;
  char main_chip_class[128];
  char nfc[16];
};
static_assert(sizeof(DeviceInfoRecord) == 536, "DeviceInfoRecord is 536 bytes");
static_assert(offsetof(DeviceInfoRecord, product_class) == 128, "product class at 128");
static_assert(offsetof(DeviceInfoRecord, hardware_version) == 256, "hardware version at 256");
static_assert(offsetof(DeviceInfoRecord, firmware_version) == 320, "firmware version at 320");
static_assert(offsetof(DeviceInfoRecord, flash_size) == 384, "flash size at 384");
static_assert(offsetof(DeviceInfoRecord, ram_size) == 388, "RAM size at 388");
static_assert(offsetof(DeviceInfoRecord, main_chip_class) == 392, "main chip class at 392");
static_assert(offsetof(DeviceInfoRecord, nfc) == 520, "NFC text at 520");

// Text getters write a NUL-terminated text into a zeroed caller buffer; where no size is
// passed the buffer has the size the platform expects (in brackets).
extern "C" {
int brelo_deviceGetInfo(DeviceInfoRecord *rec);
int brelo_deviceGetMac(char *buf);  // [128]
int brelo_deviceGetUpTime(void);
int brelo_deviceGetCPUOccupancyRate(void);
int brelo_deviceGetRAMOccupancyRate(void);
int brelo_devInfoGetManufacturerOUI(char *buf);  // [64]
int brelo_devInfoGetSerialNumber(char *buf);     // [129]
int brelo_devInfoGetDefaultWebPasswd(char *buf, int size);
int brelo_wlanGetDefaultSSIDName(char *buf, int size);
int brelo_wlanGetDefaultSSIDPasswd(char *buf, int size);
int brelo_devInfoGetPasswd(char *buf);  // [256]
}

#endif
