// usb.ini: the mounted storage volumes. The USB devices themselves are not captured: the
// platform tells about a device only once it is opened, and opening changes the gateway.
#include "capture/context.h"

namespace capture {
namespace {

// Volumes read at most: the array stays the platform's and its size is not known, so an
// absurd count is not followed far (the library's 4 KiB reply holds fewer anyway).
constexpr int kMaxVolumes = 256;

}  // namespace

void capture_usb(Context &c, StateFile *f) {
  f->comment("USB devices ([usb device N]) are not captured: only opening one tells about it.");
  if (!CAPTURE_HAVE(c, brelo_getStorageInfo)) return;
  StorageRecord *list = nullptr;
  int count = 0;
  int rc = c.p.brelo_getStorageInfo(&list, &count);
  c.noted(k_brelo_getStorageInfo, rc, list != nullptr && count > 0);
  int n = list == nullptr || count < 0 ? 0 : count > kMaxVolumes ? kMaxVolumes : count;
  for (int i = 0; i < n; ++i) {
    f->section("storage %d", i + 1);
    f->field("path", list[i].path);
    f->field("total", list[i].total);
    f->field("free", list[i].free);
  }
  // The array is the platform's own: never freed.
}

}  // namespace capture
