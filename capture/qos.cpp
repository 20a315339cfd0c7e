// qos.ini: flow QoS. Flow ids 0 to kMaxFlow are asked; a flow the platform does not know
// fails every query and gets no section. A captured flow is steady: its counters and speeds
// read as they stood at the capture, query after query.
#include <stdlib.h>
#include <string.h>

#include "capture/context.h"
#include "common/platform_list.h"

namespace capture {
namespace {

constexpr int kMaxFlow = 32;
constexpr size_t kMaxItemText = 4096;
const int kUnset = -0x5A5A5A5B;

// One traffic item as the state writes it: "address port", NULL texts as "(null)".
void append_item(Text *all, const char *address, const char *port) {
  if (all->size() > 0) all->append(';');
  all->append(address != nullptr ? address : "(null)", address != nullptr ? strnlen(address, kMaxItemText) : 6);
  all->append(' ');
  all->append(port != nullptr ? port : "(null)", port != nullptr ? strnlen(port, kMaxItemText) : 6);
}

}  // namespace

void capture_qos(Context &c, StateFile *f) {
  for (int flow = 0; flow <= kMaxFlow; ++flow) {
    bool known = false;
    Text traffic;
    if (CAPTURE_HAVE(c, brelo_getTrafficInfoByFlow)) {
      FlowTrafficItem *items = nullptr;
      int count = 0;
      int rc = c.p.brelo_getTrafficInfoByFlow(flow, &items, &count);
      int n = bundle::platform_list_count(items, count);
      c.noted(k_brelo_getTrafficInfoByFlow, rc, n > 0);
      known = known || rc == 0 || n > 0;
      for (int i = 0; i < n; ++i) {
        append_item(&traffic, items[i].remote_address, items[i].remote_port);
        free(items[i].remote_address);
        free(items[i].remote_port);
      }
      free(items);
    }
    unsigned long long up_bytes = 0, down_bytes = 0;
    if (CAPTURE_HAVE(c, brelo_getStatsByFlow)) {
      int rc = c.p.brelo_getStatsByFlow(flow, &up_bytes, &down_bytes);
      bool data = up_bytes != 0 || down_bytes != 0;
      c.noted(k_brelo_getStatsByFlow, rc, data);
      known = known || rc == 0 || data;
    }
    int up_speed = kUnset, down_speed = kUnset;
    if (CAPTURE_HAVE(c, brelo_getSpeedByFlow)) {
      int rc = c.p.brelo_getSpeedByFlow(flow, &up_speed, &down_speed);
      bool data = up_speed != kUnset || down_speed != kUnset;
      c.noted(k_brelo_getSpeedByFlow, rc, data);
      known = known || rc == 0 || data;
    }
    int up_limit = kUnset, down_limit = kUnset;
    if (CAPTURE_HAVE(c, brelo_getSpeedLimitByFlow)) {
      int rc = c.p.brelo_getSpeedLimitByFlow(flow, &up_limit, &down_limit);
      bool data = up_limit != kUnset || down_limit != kUnset;
      c.noted(k_brelo_getSpeedLimitByFlow, rc, data);
      known = known || rc == 0 || data;
    }
    int dscp = kUnset;
    if (CAPTURE_HAVE(c, brelo_getDSCPRemarkByFlow)) {
      int rc = c.p.brelo_getDSCPRemarkByFlow(flow, &dscp);
      c.noted(k_brelo_getDSCPRemarkByFlow, rc, dscp != kUnset);
      known = known || rc == 0 || dscp != kUnset;
    }
    if (!known) continue;
    f->section("flow %d", flow);
    f->text("traffic", traffic.data(), traffic.size());
    f->unsigned_number("up_bytes", up_bytes);
    f->unsigned_number("down_bytes", down_bytes);
    f->number("up_speed", up_speed != kUnset ? up_speed : 0);
    f->number("down_speed", down_speed != kUnset ? down_speed : 0);
    f->number("up_limit", up_limit != kUnset ? up_limit : 0);
    f->number("down_limit", down_limit != kUnset ? down_limit : 0);
    f->number("dscp", dscp != kUnset ? dscp : -1);
    f->number("steady", 1);
  }
}

}  // namespace capture
