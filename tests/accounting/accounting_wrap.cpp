#include "tests/accounting/accounting_wrap.h"

#include <jni.h>
#include <malloc.h>
#include <stdlib.h>

#include <string>
#include <unordered_map>

#include "common/platform_diag.h"
#include "common/platform_forward.h"
#include "common/platform_lan.h"
#include "common/platform_qos.h"
#include "common/platform_route.h"
#include "common/platform_voip.h"
#include "common/platform_wan.h"

extern "C" {
void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
void *__real_realloc(void *p, size_t size);
void __real_free(void *p);
}

namespace accounting {
namespace {

// The bookkeeping lives in containers of the C++ runtime, whose own allocations go to the
// C library directly (it is a shared object the wrapping does not reach).
bool g_open = false;
int g_in_reply = 0;
Tally g_tally;
std::unordered_map<void *, size_t> *g_own = nullptr;
std::unordered_map<void *, std::string> *g_platform = nullptr;

void noted_allocation(void *p, size_t size) {
  if (!g_open || p == nullptr) return;
  g_open = false;
  if (g_in_reply > 0) {
    ++g_tally.repair_allocations;
  } else {
    ++g_tally.allocations;
    g_tally.sizes.push_back(size);
  }
  (*g_own)[p] = size;
  g_open = true;
}

void noted_free(void *p) {
  if (!g_open) return;
  g_open = false;
  if (p == nullptr) {
    ++g_tally.null_frees;
  } else if (g_own->erase(p) == 1) {
    ++g_tally.own_frees;
  } else if (g_platform->erase(p) == 1) {
    ++g_tally.platform_frees;
  } else {
    ++g_tally.foreign_frees;
  }
  g_open = true;
}

// A block the platform handed over for the caller to free.
void handed(const char *fn, const void *p, const std::string &what) {
  if (!g_open || p == nullptr) return;
  g_open = false;
  (*g_platform)[const_cast<void *>(p)] = std::string(fn) + ": " + what;
  ++g_tally.platform_blocks;
  g_open = true;
}

// The records of a handed-over array the caller may read (as the library bounds them).
template <typename T>
int records(const T *array, int count) {
  if (array == nullptr || count < 1) return 0;
  size_t held = malloc_usable_size(const_cast<T *>(array)) / sizeof(T);
  return static_cast<size_t>(count) > held ? static_cast<int>(held) : count;
}

template <typename T>
void handed_array(const char *fn, T *const *array) {
  if (array != nullptr) handed(fn, *array, "the array");
}

}  // namespace

void open() {
  if (g_own == nullptr) {
    g_own = new std::unordered_map<void *, size_t>();
    g_platform = new std::unordered_map<void *, std::string>();
  }
  g_own->clear();
  g_platform->clear();
  g_tally = Tally();
  g_tally.sizes.reserve(64);
  g_in_reply = 0;
  g_open = true;
}

Tally close() {
  g_open = false;
  Tally t = g_tally;
  t.own_outstanding = static_cast<int>(g_own->size());
  for (auto &entry : *g_platform) t.platform_outstanding.push_back(entry.second);
  // Blocks left behind stay allocated: the test reports them, the process ends soon.
  g_own->clear();
  g_platform->clear();
  return t;
}

Pause::Pause() : was_(g_open) { g_open = false; }
Pause::~Pause() { g_open = was_; }

}  // namespace accounting

using accounting::handed;
using accounting::handed_array;
using accounting::records;

extern "C" {

void *__wrap_malloc(size_t size) {
  void *p = __real_malloc(size);
  accounting::noted_allocation(p, size);
  return p;
}

void *__wrap_calloc(size_t count, size_t size) {
  void *p = __real_calloc(count, size);
  accounting::noted_allocation(p, count * size);
  return p;
}

void *__wrap_realloc(void *old, size_t size) {
  void *p = __real_realloc(old, size);
  if (p != nullptr && old != nullptr) accounting::noted_free(old);
  accounting::noted_allocation(p, size);
  return p;
}

void __wrap_free(void *p) {
  accounting::noted_free(p);
  __real_free(p);
}

// The platform's list queries: what they hand over is noted as the caller's to free.

int __real_brelo_lanGethostInfoByMACArr(LanHostRecord **, int *, char (*)[128], int);
int __wrap_brelo_lanGethostInfoByMACArr(LanHostRecord **list, int *count, char (*macs)[128],
                                        int macCount) {
  int rc = __real_brelo_lanGethostInfoByMACArr(list, count, macs, macCount);
  handed_array("brelo_lanGethostInfoByMACArr", list);
  return rc;
}

int __real_brelo_lanGethostInfobytype(LanHostRecord **, int *, const char *, int);
int __wrap_brelo_lanGethostInfobytype(LanHostRecord **list, int *count, const char *key,
                                      int type) {
  int rc = __real_brelo_lanGethostInfobytype(list, count, key, type);
  handed_array("brelo_lanGethostInfobytype", list);
  return rc;
}

int __real_brelo_lanGethostInfobyBlockOffline(LanHostRecord **, int *);
int __wrap_brelo_lanGethostInfobyBlockOffline(LanHostRecord **list, int *count) {
  int rc = __real_brelo_lanGethostInfobyBlockOffline(list, count);
  handed_array("brelo_lanGethostInfobyBlockOffline", list);
  return rc;
}

int __real_brelo_lanGethostStatsAndSpeedByMacAddr(LanHostStatsRecord **, int *, char (*)[128],
                                                  int, const char *);
int __wrap_brelo_lanGethostStatsAndSpeedByMacAddr(LanHostStatsRecord **list, int *count,
                                                  char (*macs)[128], int macCount,
                                                  const char *selector) {
  int rc = __real_brelo_lanGethostStatsAndSpeedByMacAddr(list, count, macs, macCount, selector);
  handed_array("brelo_lanGethostStatsAndSpeedByMacAddr", list);
  return rc;
}

int __real_brelo_getTraceRouteDiagnosticsResult(TraceRouteResult *, TraceRouteHop **);
int __wrap_brelo_getTraceRouteDiagnosticsResult(TraceRouteResult *res, TraceRouteHop **hops) {
  int rc = __real_brelo_getTraceRouteDiagnosticsResult(res, hops);
  handed_array("brelo_getTraceRouteDiagnosticsResult", hops);
  return rc;
}

int __real_brelo_vlanGetBindInfo(VlanBindRecord **, int *);
int __wrap_brelo_vlanGetBindInfo(VlanBindRecord **array, int *count) {
  int rc = __real_brelo_vlanGetBindInfo(array, count);
  handed_array("brelo_vlanGetBindInfo", array);
  return rc;
}

int __real_brelo_routeinfoGetLayer3ForwardingStaticConfig(Ip4RouteRecord **, int *, int);
int __wrap_brelo_routeinfoGetLayer3ForwardingStaticConfig(Ip4RouteRecord **array, int *count,
                                                          int which) {
  int rc = __real_brelo_routeinfoGetLayer3ForwardingStaticConfig(array, count, which);
  handed_array("brelo_routeinfoGetLayer3ForwardingStaticConfig", array);
  return rc;
}

int __real_brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(Ip6RouteRecord **, int *, int);
int __wrap_brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(Ip6RouteRecord **array,
                                                             int *count, int which) {
  int rc = __real_brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(array, count, which);
  handed_array("brelo_routeinfoGetIp6Layer3ForwardingStaticConfig", array);
  return rc;
}

int __real_brelo_wanGetIfList(WanIfListRecord **, int *);
int __wrap_brelo_wanGetIfList(WanIfListRecord **list, int *count) {
  int rc = __real_brelo_wanGetIfList(list, count);
  handed_array("brelo_wanGetIfList", list);
  return rc;
}

int __real_brelo_getTrafficInfoByFlow(int, FlowTrafficItem **, int *);
int __wrap_brelo_getTrafficInfoByFlow(int flowId, FlowTrafficItem **array, int *count) {
  int rc = __real_brelo_getTrafficInfoByFlow(flowId, array, count);
  const char *fn = "brelo_getTrafficInfoByFlow";
  if (array != nullptr && count != nullptr) {
    int n = records(*array, *count);
    for (int i = 0; i < n; ++i) {
      std::string at = "item " + std::to_string(i) + " ";
      handed(fn, (*array)[i].remote_address, at + "remote address");
      handed(fn, (*array)[i].remote_port, at + "remote port");
    }
  }
  handed_array(fn, array);
  return rc;
}

int __real_brelo_getForwardRuleInfo(ForwardRule **, int *);
int __wrap_brelo_getForwardRuleInfo(ForwardRule **list, int *count) {
  int rc = __real_brelo_getForwardRuleInfo(list, count);
  const char *fn = "brelo_getForwardRuleInfo";
  if (list != nullptr && count != nullptr) {
    int n = records(*list, *count);
    for (int i = 0; i < n; ++i) {
      const ForwardRule &r = (*list)[i];
      std::string at = "rule " + std::to_string(i) + " ";
      handed(fn, r.remote_address, at + "remote address");
      handed(fn, r.remote_port, at + "remote port");
      handed(fn, r.protocol, at + "protocol");
      handed(fn, r.host_mac, at + "host MAC");
      handed(fn, r.forward_to_ip, at + "forward-to IP");
    }
  }
  handed_array(fn, list);
  return rc;
}

int __real_brelo_getHTTPTrafficProcessRuleInfo(HttpTrafficProcessRule **, int *);
int __wrap_brelo_getHTTPTrafficProcessRuleInfo(HttpTrafficProcessRule **list, int *count) {
  int rc = __real_brelo_getHTTPTrafficProcessRuleInfo(list, count);
  const char *fn = "brelo_getHTTPTrafficProcessRuleInfo";
  if (list != nullptr && count != nullptr) {
    int n = records(*list, *count);
    for (int i = 0; i < n; ++i) {
      const HttpTrafficProcessRule &r = (*list)[i];
      std::string at = "rule " + std::to_string(i) + " ";
      handed(fn, r.remote_address, at + "remote address");
      handed(fn, r.direction, at + "direction");
      handed(fn, r.host_mac, at + "host MAC");
      handed(fn, r.method_list, at + "method list");
      handed(fn, r.header_list, at + "header list");
      handed(fn, r.bundle_name, at + "bundle name");
      // The second list stays the platform's.
    }
  }
  handed_array(fn, list);
  return rc;
}

int __real_brelo_voipGetLineInfo(int, PotsLineNode **);
int __wrap_brelo_voipGetLineInfo(int line, PotsLineNode **list) {
  int rc = __real_brelo_voipGetLineInfo(line, list);
  int i = 0;
  for (PotsLineNode *node = list != nullptr ? *list : nullptr; node != nullptr;
       node = node->next)
    handed("brelo_voipGetLineInfo", node, "node " + std::to_string(i++));
  return rc;
}

// bundle::new_reply_string: what it allocates is the repair copy, not the native's own.
jstring __real__ZN6bundle16new_reply_stringEP7JNIEnv_PKc(JNIEnv *env, const char *text);
jstring __wrap__ZN6bundle16new_reply_stringEP7JNIEnv_PKc(JNIEnv *env, const char *text) {
  ++accounting::g_in_reply;
  if (accounting::g_open) ++accounting::g_tally.replies;
  jstring s = __real__ZN6bundle16new_reply_stringEP7JNIEnv_PKc(env, text);
  --accounting::g_in_reply;
  return s;
}

}  // extern "C"
