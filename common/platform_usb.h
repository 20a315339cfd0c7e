// Platform library (libbrelo.so.1): USB devices (event registration, lock, open and close,
// byte transfers and serial line settings) and the mounted storage volumes.
#ifndef BUNDLE_COMMON_PLATFORM_USB_H
#define BUNDLE_COMMON_PLATFORM_USB_H

#include <stddef.h>
#include <stdint.h>

// Every USB call except close and storage info starts with these constants, which the
// platform's USB interface expects exactly so (register and unregister take the first two).
#define USB_LEAD_CLASS 2
#define USB_LEAD_ANY (-1)
#define USB_LEAD_NONE 0

// Device-type bits of an event registration, tried in this order; a mask is 1..31.
#define USB_TYPE_BIT_FIRST 1
#define USB_TYPE_BIT_LAST 16
#define USB_TYPE_MASK_ALL 31

// A USB handle issued by the platform on open; -1 is none.
#define USB_NO_HANDLE (-1)

// Serial line settings handed to brelo_usbSetSerial: six unsigned 32-bit words whose meaning
// is the platform's. The first four come from Java unchanged, the fifth is a byte, the sixth
// a 0/1 flag.
struct UsbSerialSettings {
  uint32_t setting1;
  uint32_t setting2;
  uint32_t setting3;
  uint32_t setting4;
  uint32_t setting5;
  uint32_t setting6;
};
static_assert(sizeof(UsbSerialSettings) == 24, "UsbSerialSettings is 24 bytes");
static_assert(offsetof(UsbSerialSettings, setting2) == 4, "setting 2 at 4");
static_assert(offsetof(UsbSerialSettings, setting3) == 8, "setting 3 at 8");
static_assert(offsetof(UsbSerialSettings, setting4) == 12, "setting 4 at 12");
static_assert(offsetof(UsbSerialSettings, setting5) == 16, "setting 5 at 16");
static_assert(offsetof(UsbSerialSettings, setting6) == 20, "setting 6 at 20");

// One mounted storage volume (576 bytes). The sizes are decimal texts. The array of them
// that brelo_getStorageInfo delivers stays the platform's: it is never freed nor written.
struct StorageRecord {
  char path[512];
  char total[32];
  char free[32];
};
static_assert(sizeof(StorageRecord) == 576, "StorageRecord is 576 bytes");
static_assert(offsetof(StorageRecord, total) == 512, "total size at 512");
static_assert(offsetof(StorageRecord, free) == 544, "free size at 544");

extern "C" {
int brelo_usbRegister(int lead1, int lead2, const char *name, int typeBit);
int brelo_usbUnregister(int lead1, int lead2, const char *name);
int brelo_usbLock(int lead1, int lead2, int lead3, int devId);
int brelo_usbUnlock(int lead1, int lead2, int lead3, int devId);
// Writes the new handle into *handle (left alone when the device cannot be opened); the
// result code is not meaningful to callers.
int brelo_usbOpen(int lead1, int lead2, int lead3, int devId, int *handle);
int brelo_usbClose(int handle);
// Non-zero when data is waiting to be read.
int brelo_usbDataAvailable(int lead1, int lead2, int lead3, int handle);
// *count: bytes wanted at buf; the platform may change it.
int brelo_usbRead(int lead1, int lead2, int lead3, int handle, char *buf, int *count,
                  int timeout);
// *length: bytes to send from buf.
int brelo_usbWrite(int lead1, int lead2, int lead3, int handle, char *buf, int *length);
int brelo_usbSetSerial(int lead1, int lead2, int lead3, int handle, UsbSerialSettings *settings);
// 0 on success, with *list (the platform's) and *count set.
int brelo_getStorageInfo(StorageRecord **list, int *count);
}

#endif
