// forward.ini: traffic-forward rules and HTTP traffic-process rules, in the order listed. A
// text the platform lists as NULL is a key left out; the platform's texts are freed as the
// library frees them.
#include <stdlib.h>
#include <string.h>

#include "capture/context.h"
#include "common/platform_list.h"

namespace capture {
namespace {

// A platform text has no stated bound: one longer than this is cut here.
constexpr size_t kMaxRuleText = 65536;

// A rule's text: a key left out when the platform lists it as NULL.
void rule_text(Context &c, StateFile *f, const char *key, const char *text,
               Customer kind = Customer::kPlain) {
  if (text != nullptr) c.customer(f, key, kind, text, strnlen(text, kMaxRuleText));
}

void capture_forward_rules(Context &c, StateFile *f) {
  ForwardRule *list = nullptr;
  int count = 0;
  int rc = c.p.brelo_getForwardRuleInfo(&list, &count);
  int n = bundle::platform_list_count(list, count);
  c.noted(k_brelo_getForwardRuleInfo, rc, list != nullptr);
  if (list != nullptr && n == 0) {
    f->section("forward");
    f->number("empty_array", 1);
  }
  for (int i = 0; i < n; ++i) {
    ForwardRule &r = list[i];
    f->section("forward rule %d", i + 1);
    rule_text(c, f, "remote_address", r.remote_address);
    rule_text(c, f, "remote_port", r.remote_port);
    rule_text(c, f, "protocol", r.protocol);
    rule_text(c, f, "host_mac", r.host_mac, Customer::kMac);
    rule_text(c, f, "forward_to_ip", r.forward_to_ip, Customer::kAddress);
    f->number("forward_to_port", r.forward_to_port);
    free(r.remote_address);
    free(r.remote_port);
    free(r.protocol);
    free(r.host_mac);
    free(r.forward_to_ip);
  }
  free(list);
}

void capture_http_rules(Context &c, StateFile *f) {
  HttpTrafficProcessRule *list = nullptr;
  int count = 0;
  int rc = c.p.brelo_getHTTPTrafficProcessRuleInfo(&list, &count);
  int n = bundle::platform_list_count(list, count);
  c.noted(k_brelo_getHTTPTrafficProcessRuleInfo, rc, list != nullptr);
  if (list != nullptr && n == 0) {
    f->section("http");
    f->number("empty_array", 1);
  }
  for (int i = 0; i < n; ++i) {
    HttpTrafficProcessRule &r = list[i];
    f->section("http rule %d", i + 1);
    rule_text(c, f, "remote_address", r.remote_address);
    f->number("remote_port", r.remote_port);
    rule_text(c, f, "direction", r.direction);
    rule_text(c, f, "host_mac", r.host_mac, Customer::kMac);
    rule_text(c, f, "method_list", r.method_list);
    // The second list stays the platform's: read, never freed.
    if (r.second_list != nullptr && r.second_list[0] != '\0') rule_text(c, f, "second_list", r.second_list);
    rule_text(c, f, "header_list", r.header_list);
    rule_text(c, f, "bundle_name", r.bundle_name);
    free(r.remote_address);
    free(r.direction);
    free(r.host_mac);
    free(r.method_list);
    free(r.header_list);
    free(r.bundle_name);
  }
  free(list);
}

}  // namespace

void capture_forward(Context &c, StateFile *f) {
  if (CAPTURE_HAVE(c, brelo_getForwardRuleInfo)) capture_forward_rules(c, f);
  if (CAPTURE_HAVE(c, brelo_getHTTPTrafficProcessRuleInfo)) capture_http_rules(c, f);
}

}  // namespace capture
