// wan.ini: the WAN connections. The list names them; WAN indexes 0 to kMaxWanIndex are asked
// too (a gateway whose list is unavailable still has its connections). A connection is known
// when the platform gives its (PVC, entry), through which every getter is asked.
#include <stdlib.h>
#include <string.h>

#include "capture/array.h"
#include "capture/context.h"
#include "common/platform_list.h"

namespace capture {
namespace {

constexpr int kMaxWanIndex = 16;
const int kUnset = -0x5A5A5A5B;  // an int the platform did not write keeps this

struct Wan {
  int index;
  bool listed;
  char name[32];
};

void add_wan(Array<Wan> *wans, int index, const char *name, bool listed) {
  for (size_t i = 0; i < wans->size(); ++i)
    if ((*wans)[i].index == index) return;
  Wan *w = wans->add();
  if (w == nullptr) return;
  w->index = index;
  w->listed = listed;
  if (name != nullptr) memcpy(w->name, name, sizeof w->name);
}

// The PPPoE user name and the MACs are customer data; the other texts are the connection's.
Customer kind_of(const char *key) {
  if (strcmp(key, "Username") == 0) return Customer::kUser;
  if (strcmp(key, "MACAddress") == 0) return Customer::kMac;
  return Customer::kPlain;
}

void capture_connection(Context &c, StateFile *f, const Wan &w) {
  int pvc = kUnset, entry = kUnset;
  int rc = c.p.brelo_wanGetPvcEntryIndex(w.index, &pvc, &entry);
  bool known = rc != -1 || pvc != kUnset || entry != kUnset;
  c.noted(k_brelo_wanGetPvcEntryIndex, rc, known);
  if (!known) return;
  f->section("wan %d", w.index);
  f->number("PVC", pvc != kUnset ? pvc : 0);
  f->number("Entry", entry != kUnset ? entry : 0);
  if (w.listed) f->field("Name", w.name);

  char text[512];
#define CAPTURE_TEXT_GETTER(fn, key)                                    \
  if (CAPTURE_HAVE(c, fn)) {                                            \
    memset(text, 0, sizeof text);                                       \
    int getter_rc = c.p.fn(pvc, entry, text);                           \
    c.noted(k_##fn, getter_rc, text[0] != '\0');                        \
    c.customer(f, key, kind_of(key), text, field_length(text, sizeof text - 1)); \
  }
  CAPTURE_WAN_TEXT_GETTERS(CAPTURE_TEXT_GETTER)
#undef CAPTURE_TEXT_GETTER
#define CAPTURE_INT_GETTER(fn, key)                   \
  if (CAPTURE_HAVE(c, fn)) {                          \
    int v = kUnset;                                   \
    int getter_rc = c.p.fn(pvc, entry, &v);           \
    c.noted(k_##fn, getter_rc, v != kUnset);          \
    if (v != kUnset) f->number(key, v);               \
  }
  CAPTURE_WAN_INT_GETTERS(CAPTURE_INT_GETTER)
#undef CAPTURE_INT_GETTER
#define CAPTURE_STATUS_GETTER(fn, key)                \
  if (CAPTURE_HAVE(c, fn)) {                          \
    int v = kUnset;                                   \
    int getter_rc = c.p.fn(&v, pvc, entry);           \
    c.noted(k_##fn, getter_rc, v != kUnset);          \
    if (v != kUnset) f->number(key, v);               \
  }
  CAPTURE_WAN_STATUS_GETTERS(CAPTURE_STATUS_GETTER)
#undef CAPTURE_STATUS_GETTER

  if (CAPTURE_HAVE(c, brelo_wanGetIfPackageStats)) {
    unsigned long long us = 0, ds = 0;
    int stats_rc = c.p.brelo_wanGetIfPackageStats(w.index, &us, &ds);
    c.noted(k_brelo_wanGetIfPackageStats, stats_rc, us != 0 || ds != 0);
    f->unsigned_number("UsStats", us);
    f->unsigned_number("DsStats", ds);
  }
  if (CAPTURE_HAVE(c, brelo_wanGetIfBandwidth)) {
    char us[128] = {}, ds[128] = {};
    int bw_rc = c.p.brelo_wanGetIfBandwidth(w.index, us, ds);
    c.noted(k_brelo_wanGetIfBandwidth, bw_rc, us[0] != '\0' || ds[0] != '\0');
    f->field("UsBandwidth", us);
    f->field("DsBandwidth", ds);
  }
}

}  // namespace

void capture_wan(Context &c, StateFile *f) {
  f->section("wan_common");
  if (CAPTURE_HAVE(c, brelo_wanGetInternetWANIndex)) {
    int v = c.p.brelo_wanGetInternetWANIndex();  // the index itself
    c.noted(k_brelo_wanGetInternetWANIndex, v);
    f->number("internet_index", v);
  }
  Array<Wan> wans;
  if (CAPTURE_HAVE(c, brelo_wanGetIfList)) {
    WanIfListRecord *list = nullptr;
    int count = 0;
    int rc = c.p.brelo_wanGetIfList(&list, &count);
    c.noted(k_brelo_wanGetIfList, rc, list != nullptr);
    if (list == nullptr) f->number("list_unavailable", 1);
    int n = bundle::platform_list_count(list, count);
    for (int i = 0; i < n; ++i) add_wan(&wans, list[i].index, list[i].name, true);
    free(list);
  }
  for (int index = 0; index <= kMaxWanIndex; ++index) add_wan(&wans, index, nullptr, false);
  if (!CAPTURE_HAVE(c, brelo_wanGetPvcEntryIndex)) {
    f->comment("the WAN connections cannot be told apart without brelo_wanGetPvcEntryIndex");
    return;
  }
  for (size_t i = 0; i < wans.size(); ++i) capture_connection(c, f, wans[i]);
}

}  // namespace capture
