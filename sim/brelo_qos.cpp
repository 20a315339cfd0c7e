// Simulated platform functions: flow QoS.
// State (see sim/gateway/qos.ini): one section [flow N] per flow the platform knows, N being
// the flow id. A flow that has no section is unknown and every call about it fails with -1.
//
// Counters and speeds move: every statistics query counts one more second of traffic at the
// flow's nominal speeds, and every speed query reports a speed that wanders around them,
// held under the flow's limit. A flow with "steady = 1" (a captured gateway's readings)
// reports its counters and speeds as they stand.
#include <stdlib.h>
#include <string.h>

#include <string>
#include <utility>
#include <vector>

#include "common/platform_qos.h"
#include "sim/sim.h"

namespace {

// A NULL text of a traffic item, in the state.
const char kNullText[] = "(null)";

std::string quoted(const char *text) {
  return text != nullptr ? "\"" + std::string(text) + "\"" : "NULL";
}

std::string flow_section(int flow) { return "flow " + std::to_string(flow); }

bool flow_known(const std::string &s) { return sim::entry_count(s.c_str()) != 0; }

using Item = std::pair<std::string, std::string>;

// The traffic of a flow: "address port" items separated by ";".
std::vector<Item> traffic_of(const std::string &s) {
  std::vector<Item> items;
  std::string all = sim::get_str(s.c_str(), "traffic");
  size_t at = 0;
  while (at < all.size()) {
    size_t end = all.find(';', at);
    if (end == std::string::npos) end = all.size();
    std::string item = all.substr(at, end - at);
    size_t b = item.find_first_not_of(' ');
    size_t e = item.find_last_not_of(' ');
    if (b != std::string::npos) {
      item = item.substr(b, e - b + 1);
      size_t space = item.find(' ');
      if (space == std::string::npos)
        items.emplace_back(item, "");
      else
        items.emplace_back(item.substr(0, space), item.substr(item.find_first_not_of(' ', space)));
    }
    at = end + 1;
  }
  return items;
}

void store_traffic(const std::string &s, const std::vector<Item> &items) {
  std::string all;
  for (const Item &i : items) all += (all.empty() ? "" : ";") + i.first + " " + i.second;
  sim::set(s.c_str(), "traffic", all);
}

char *copy_text(const std::string &text) {
  return text == kNullText ? nullptr : strdup(text.c_str());
}

int usual(const std::string &s) { return flow_known(s) ? 0 : -1; }

bool steady(const std::string &s) { return sim::get_int(s.c_str(), "steady") == 1; }

// One reading of a speed that wanders around `nominal`, never above a positive `limit`.
int wandering(long long nominal, long long limit, long long step) {
  long long speed = nominal * (90 + (step * 7) % 21) / 100;
  if (limit > 0 && speed > limit) speed = limit;
  return static_cast<int>(speed);
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_addTrafficToFlow(const char *remoteAddress, const char *remotePort, int flowId) {
  sim::call("brelo_addTrafficToFlow", "%s, %s, %d", quoted(remoteAddress).c_str(),
            quoted(remotePort).c_str(), flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  // Traffic needs an address and a port without spaces or ";".
  bool valid = flow_known(s) && remoteAddress != nullptr && remotePort != nullptr &&
               remoteAddress[0] != '\0' && strpbrk(remoteAddress, " ;") == nullptr &&
               strpbrk(remotePort, " ;") == nullptr;
  int rc = sim::result("brelo_addTrafficToFlow", valid ? 0 : -1);
  if (rc == 0 && valid) {
    std::vector<Item> items = traffic_of(s);
    Item item(remoteAddress, remotePort);
    bool present = false;
    for (const Item &i : items) present = present || i == item;
    if (!present) items.push_back(item);
    store_traffic(s, items);
  }
  return rc;
}

SIM_EXPORT int brelo_deleteTrafficFromFlow(const char *remoteAddress, const char *remotePort,
                                           int flowId) {
  sim::call("brelo_deleteTrafficFromFlow", "%s, %s, %d", quoted(remoteAddress).c_str(),
            quoted(remotePort).c_str(), flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  bool found = false;
  std::vector<Item> kept;
  if (flow_known(s) && remoteAddress != nullptr && remotePort != nullptr) {
    for (const Item &i : traffic_of(s)) {
      if (i.first == remoteAddress && i.second == remotePort)
        found = true;
      else
        kept.push_back(i);
    }
  }
  int rc = sim::result("brelo_deleteTrafficFromFlow", found ? 0 : -1);
  if (rc == 0 && found) store_traffic(s, kept);
  return rc;
}

SIM_EXPORT int brelo_deleteAllTrafficFromFlow(int flowId) {
  sim::call("brelo_deleteAllTrafficFromFlow", "%d", flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  int rc = sim::result("brelo_deleteAllTrafficFromFlow", usual(s));
  if (rc == 0 && flow_known(s)) sim::set(s.c_str(), "traffic", "");
  return rc;
}

SIM_EXPORT int brelo_getTrafficInfoByFlow(int flowId, FlowTrafficItem **array, int *count) {
  sim::call("brelo_getTrafficInfoByFlow", "%d", flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  std::vector<Item> items = traffic_of(s);
  // extra_traffic = N: N generated items after the listed ones (long lists).
  long long extra = sim::get_int(s.c_str(), "extra_traffic");
  size_t n = items.size() + (extra > 0 ? static_cast<size_t>(extra) : 0);
  FlowTrafficItem *out = nullptr;
  if (n > 0) out = static_cast<FlowTrafficItem *>(calloc(n, sizeof *out));
  if (out == nullptr) n = 0;
  for (size_t i = 0; i < n; ++i) {
    if (i < items.size()) {
      out[i].remote_address = copy_text(items[i].first);
      out[i].remote_port = copy_text(items[i].second);
    } else {
      size_t k = i - items.size();
      out[i].remote_address =
          strdup(("192.0." + std::to_string(k / 256 % 256) + "." + std::to_string(k % 256)).c_str());
      out[i].remote_port = strdup(std::to_string(1 + k % 65535).c_str());
    }
  }
  *array = out;
  *count = static_cast<int>(n);
  // A failure still hands out what it has: the caller frees it either way.
  return sim::result("brelo_getTrafficInfoByFlow", usual(s));
}

SIM_EXPORT int brelo_getStatsByFlow(int flowId, unsigned long long *upBytes,
                                    unsigned long long *downBytes) {
  sim::call("brelo_getStatsByFlow", "%d", flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  if (flow_known(s) && steady(s)) {
    *upBytes = strtoull(sim::get_str(s.c_str(), "up_bytes").c_str(), nullptr, 10);
    *downBytes = strtoull(sim::get_str(s.c_str(), "down_bytes").c_str(), nullptr, 10);
  } else if (flow_known(s)) {
    const char *sec = s.c_str();
    // One more second of traffic at the nominal speeds (kbit/s) since the last query.
    unsigned long long up = strtoull(sim::get_str(sec, "up_bytes").c_str(), nullptr, 10) +
                            125ULL * static_cast<unsigned long long>(sim::get_int(sec, "up_speed"));
    unsigned long long down = strtoull(sim::get_str(sec, "down_bytes").c_str(), nullptr, 10) +
                              125ULL * static_cast<unsigned long long>(sim::get_int(sec, "down_speed"));
    sim::set(sec, "up_bytes", std::to_string(up));
    sim::set(sec, "down_bytes", std::to_string(down));
    *upBytes = up;
    *downBytes = down;
  }
  return sim::result("brelo_getStatsByFlow", usual(s));
}

SIM_EXPORT int brelo_getSpeedByFlow(int flowId, int *up, int *down) {
  sim::call("brelo_getSpeedByFlow", "%d", flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  if (flow_known(s) && steady(s)) {
    *up = static_cast<int>(sim::get_int(s.c_str(), "up_speed"));
    *down = static_cast<int>(sim::get_int(s.c_str(), "down_speed"));
  } else if (flow_known(s)) {
    const char *sec = s.c_str();
    long long step = sim::get_int(sec, "speed_queries") + 1;
    sim::set(sec, "speed_queries", std::to_string(step));
    *up = wandering(sim::get_int(sec, "up_speed"), sim::get_int(sec, "up_limit"), step);
    *down = wandering(sim::get_int(sec, "down_speed"), sim::get_int(sec, "down_limit"), step);
  }
  return sim::result("brelo_getSpeedByFlow", usual(s));
}

SIM_EXPORT int brelo_setSpeedLimitByFlow(int flowId, int upLimit, int downLimit) {
  sim::call("brelo_setSpeedLimitByFlow", "%d, %d, %d", flowId, upLimit, downLimit);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  // 0 lifts a limit; a negative one is refused.
  bool valid = flow_known(s) && upLimit >= 0 && downLimit >= 0;
  int rc = sim::result("brelo_setSpeedLimitByFlow", valid ? 0 : -1);
  if (rc == 0 && valid) {
    sim::set(s.c_str(), "up_limit", std::to_string(upLimit));
    sim::set(s.c_str(), "down_limit", std::to_string(downLimit));
  }
  return rc;
}

SIM_EXPORT int brelo_getSpeedLimitByFlow(int flowId, int *up, int *down) {
  sim::call("brelo_getSpeedLimitByFlow", "%d", flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  if (flow_known(s)) {
    *up = static_cast<int>(sim::get_int(s.c_str(), "up_limit"));
    *down = static_cast<int>(sim::get_int(s.c_str(), "down_limit"));
  }
  return sim::result("brelo_getSpeedLimitByFlow", usual(s));
}

SIM_EXPORT int brelo_setDSCPRemarkByFlow(int flowId, int dscp) {
  sim::call("brelo_setDSCPRemarkByFlow", "%d, %d", flowId, dscp);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  // DSCP 0 to 63, or -1 for no re-marking.
  bool valid = flow_known(s) && dscp >= -1 && dscp <= 63;
  int rc = sim::result("brelo_setDSCPRemarkByFlow", valid ? 0 : -1);
  if (rc == 0 && valid) sim::set(s.c_str(), "dscp", std::to_string(dscp));
  return rc;
}

SIM_EXPORT int brelo_getDSCPRemarkByFlow(int flowId, int *dscp) {
  sim::call("brelo_getDSCPRemarkByFlow", "%d", flowId);
  sim::Guard guard;
  std::string s = flow_section(flowId);
  // An unknown flow leaves the value untouched.
  if (flow_known(s)) *dscp = static_cast<int>(sim::get_int(s.c_str(), "dscp", -1));
  return sim::result("brelo_getDSCPRemarkByFlow", usual(s));
}

}  // extern "C"
