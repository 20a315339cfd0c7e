// Simulated platform functions: traffic-forward rules and HTTP traffic-process rules.
// State (see sim/gateway/forward.ini): one section [forward rule N] / [http rule N] per rule,
// listed in the order the sections were created; [forward] and [http] hold options.
//
// The list queries hand out what the real platform does: a malloc()ed array whose texts are
// each malloc()ed on their own, for the caller to free field by field. A key absent from a
// rule's section is a field the platform leaves NULL. The second list of an HTTP rule stays
// the platform's: it points into the state and is never the caller's to free.
#include <stdlib.h>
#include <string.h>

#include <list>
#include <string>
#include <vector>

#include "common/platform_forward.h"
#include "sim/sim.h"

namespace {

const char kForward[] = "forward";
const char kForwardRule[] = "forward rule ";
const char kHttp[] = "http";
const char kHttpRule[] = "http rule ";
constexpr size_t kCapacity = 256;  // rules the platform keeps of each kind

// A text argument as the log shows it: quoted, or NULL.
std::string quoted(const char *text) {
  return text != nullptr ? "\"" + std::string(text) + "\"" : "NULL";
}

// A malloc()ed copy of a state value, or NULL when the key is absent.
char *copy_of(const std::string &section, const char *key) {
  sim::Guard guard;  // the value may not change while it is copied
  const char *v = sim::get(section.c_str(), key);
  return v != nullptr ? strdup(v) : nullptr;
}

char *copy_text(const std::string &text) { return strdup(text.c_str()); }

// The section a new rule goes in: one number past the highest in use.
std::string next_section(const char *prefix) {
  long long highest = 0;
  size_t plen = strlen(prefix);
  for (const std::string &s : sim::sections(prefix)) {
    long long n = atoll(s.c_str() + plen);
    if (n > highest) highest = n;
  }
  return prefix + std::to_string(highest + 1);
}

void set_if(const std::string &section, const char *key, const char *text) {
  if (text != nullptr) sim::set(section.c_str(), key, text);
}

// Removes the rule at `index` (0-based, in list order) of the listed rules; false if none.
bool delete_at(const char *prefix, int index) {
  std::vector<std::string> rules = sim::sections(prefix);
  if (index < 0 || static_cast<size_t>(index) >= rules.size()) return false;
  sim::remove_section(rules[index].c_str());
  return true;
}

// Rules generated after the listed ones ([forward] or [http] extra_rules = N): long tables.
size_t extra_rules(const char *options) {
  long long n = sim::get_int(options, "extra_rules");
  return n > 0 ? static_cast<size_t>(n) : 0;
}

// A comma-separated list as the platform keeps it: every item in double quotes.
std::string quoted_items(const char *list) {
  std::string out;
  if (list == nullptr || *list == '\0') return out;
  std::string all = list;
  size_t at = 0;
  while (at <= all.size()) {
    size_t comma = all.find(',', at);
    if (comma == std::string::npos) comma = all.size();
    out += (out.empty() ? "\"" : ",\"") + all.substr(at, comma - at) + "\"";
    at = comma + 1;
  }
  return out;
}

// The array handed out for n rules: NULL when there are none, unless [<options>]
// empty_array = 1 asks for an allocated empty array.
template <typename T>
T *new_array(size_t n, const char *options) {
  if (n == 0 && sim::get_int(options, "empty_array") == 0) return nullptr;
  return static_cast<T *>(calloc(n > 0 ? n : 1, sizeof(T)));
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_addForwardRule(ForwardRule *rule) {
  sim::call("brelo_addForwardRule", "%s, %s, %s, %s, %s, %d", quoted(rule->remote_address).c_str(),
            quoted(rule->remote_port).c_str(), quoted(rule->protocol).c_str(),
            quoted(rule->host_mac).c_str(), quoted(rule->forward_to_ip).c_str(),
            static_cast<int>(rule->forward_to_port));
  sim::Guard guard;
  // The platform needs somewhere to forward to, and keeps at most 256 rules.
  bool valid = rule->forward_to_ip != nullptr && rule->forward_to_ip[0] != '\0' &&
               sim::sections(kForwardRule).size() < kCapacity;
  int rc = sim::result("brelo_addForwardRule", valid ? 0 : -1);
  if (rc == 0 && valid) {
    std::string s = next_section(kForwardRule);
    set_if(s, "remote_address", rule->remote_address);
    set_if(s, "remote_port", rule->remote_port);
    set_if(s, "protocol", rule->protocol);
    set_if(s, "host_mac", rule->host_mac);
    set_if(s, "forward_to_ip", rule->forward_to_ip);
    sim::set(s.c_str(), "forward_to_port", std::to_string(rule->forward_to_port));
  }
  return rc;
}

SIM_EXPORT int brelo_deleteForwardRule(int index) {
  sim::call("brelo_deleteForwardRule", "%d", index);
  sim::Guard guard;
  if (sim::has_result("brelo_deleteForwardRule")) return sim::result("brelo_deleteForwardRule", 0);
  return sim::returns("brelo_deleteForwardRule", delete_at(kForwardRule, index) ? 0 : -1);
}

SIM_EXPORT int brelo_deleteAllForwardRule(void) {
  sim::call("brelo_deleteAllForwardRule", "%s", "");
  sim::Guard guard;
  int rc = sim::result("brelo_deleteAllForwardRule", 0);
  if (rc == 0)
    for (const std::string &s : sim::sections(kForwardRule)) sim::remove_section(s.c_str());
  return rc;
}

SIM_EXPORT int brelo_getForwardRuleInfo(ForwardRule **list, int *count) {
  sim::call("brelo_getForwardRuleInfo", "%s", "");
  sim::Guard guard;
  std::vector<std::string> rules = sim::sections(kForwardRule);
  size_t extra = extra_rules(kForward);
  size_t n = rules.size() + extra;
  ForwardRule *array = new_array<ForwardRule>(n, kForward);
  if (array == nullptr) n = 0;
  for (size_t i = 0; i < n; ++i) {
    ForwardRule &r = array[i];
    if (i < rules.size()) {
      const std::string &s = rules[i];
      r.remote_address = copy_of(s, "remote_address");
      r.remote_port = copy_of(s, "remote_port");
      r.protocol = copy_of(s, "protocol");
      r.host_mac = copy_of(s, "host_mac");
      r.forward_to_ip = copy_of(s, "forward_to_ip");
      r.forward_to_port = static_cast<int32_t>(sim::get_int(s.c_str(), "forward_to_port"));
    } else {
      size_t k = i - rules.size();
      r.remote_address = copy_text("198.51." + std::to_string(k / 256 % 256) + "." + std::to_string(k % 256));
      r.remote_port = copy_text(std::to_string(1024 + k % 60000));
      r.protocol = copy_text("TCP");
      r.host_mac = copy_text("00:E0:4C:68:01:A2");
      r.forward_to_ip = copy_text("192.168.1.2");
      r.forward_to_port = static_cast<int32_t>(8000 + k % 1000);
    }
  }
  *list = array;
  *count = static_cast<int>(n);
  // A programmed failure still hands the list out: the caller frees it either way.
  return sim::result("brelo_getForwardRuleInfo", 0);
}

SIM_EXPORT int brelo_addHTTPTrafficProcessRule(HttpTrafficProcessRule *rule) {
  sim::call("brelo_addHTTPTrafficProcessRule", "%s, %d, %s, %s, %s, %s, %s, %s",
            quoted(rule->remote_address).c_str(), static_cast<int>(rule->remote_port),
            quoted(rule->direction).c_str(), quoted(rule->host_mac).c_str(),
            quoted(rule->method_list).c_str(), quoted(rule->second_list).c_str(),
            quoted(rule->header_list).c_str(), quoted(rule->bundle_name).c_str());
  sim::Guard guard;
  // The platform hands traffic to a named bundle, and keeps at most 256 rules.
  bool valid = rule->bundle_name != nullptr && rule->bundle_name[0] != '\0' &&
               sim::sections(kHttpRule).size() < kCapacity;
  int rc = sim::result("brelo_addHTTPTrafficProcessRule", valid ? 0 : -1);
  if (rc == 0 && valid) {
    std::string s = next_section(kHttpRule);
    set_if(s, "remote_address", rule->remote_address);
    sim::set(s.c_str(), "remote_port", std::to_string(rule->remote_port));
    set_if(s, "direction", rule->direction);
    set_if(s, "host_mac", rule->host_mac);
    if (rule->method_list != nullptr) sim::set(s.c_str(), "method_list", quoted_items(rule->method_list));
    set_if(s, "second_list", rule->second_list);
    if (rule->header_list != nullptr) sim::set(s.c_str(), "header_list", quoted_items(rule->header_list));
    set_if(s, "bundle_name", rule->bundle_name);
  }
  return rc;
}

SIM_EXPORT int brelo_deleteHTTPTrafficProcessRule(int index) {
  sim::call("brelo_deleteHTTPTrafficProcessRule", "%d", index);
  sim::Guard guard;
  if (sim::has_result("brelo_deleteHTTPTrafficProcessRule"))
    return sim::result("brelo_deleteHTTPTrafficProcessRule", 0);
  return sim::returns("brelo_deleteHTTPTrafficProcessRule", delete_at(kHttpRule, index) ? 0 : -1);
}

SIM_EXPORT int brelo_deleteAllHTTPTrafficProcessRule(void) {
  sim::call("brelo_deleteAllHTTPTrafficProcessRule", "%s", "");
  sim::Guard guard;
  int rc = sim::result("brelo_deleteAllHTTPTrafficProcessRule", 0);
  if (rc == 0)
    for (const std::string &s : sim::sections(kHttpRule)) sim::remove_section(s.c_str());
  return rc;
}

SIM_EXPORT int brelo_getHTTPTrafficProcessRuleInfo(HttpTrafficProcessRule **list, int *count) {
  sim::call("brelo_getHTTPTrafficProcessRuleInfo", "%s", "");
  sim::Guard guard;
  static char no_second_list[] = "";
  // The second lists stay the platform's own and are not handed over: copies that live until
  // this thread lists the rules again, so a rule deleted by another thread meanwhile cannot
  // pull a text from under the caller.
  thread_local std::list<std::string> second_lists;
  second_lists.clear();
  std::vector<std::string> rules = sim::sections(kHttpRule);
  size_t extra = extra_rules(kHttp);
  size_t n = rules.size() + extra;
  HttpTrafficProcessRule *array = new_array<HttpTrafficProcessRule>(n, kHttp);
  if (array == nullptr) n = 0;
  for (size_t i = 0; i < n; ++i) {
    HttpTrafficProcessRule &r = array[i];
    if (i < rules.size()) {
      const std::string &s = rules[i];
      r.remote_address = copy_of(s, "remote_address");
      r.remote_port = static_cast<int32_t>(sim::get_int(s.c_str(), "remote_port"));
      r.direction = copy_of(s, "direction");
      r.host_mac = copy_of(s, "host_mac");
      r.method_list = copy_of(s, "method_list");
      const char *second = sim::get(s.c_str(), "second_list");
      if (second != nullptr) {
        second_lists.emplace_back(second);
        r.second_list = &second_lists.back()[0];
      } else {
        r.second_list = no_second_list;
      }
      r.header_list = copy_of(s, "header_list");
      r.bundle_name = copy_of(s, "bundle_name");
    } else {
      size_t k = i - rules.size();
      r.remote_address = copy_text("203.0." + std::to_string(k / 256 % 256) + "." + std::to_string(k % 256));
      r.remote_port = static_cast<int32_t>(80 + k % 1000);
      r.direction = copy_text("UP");
      r.host_mac = copy_text("F0:18:98:4B:7E:21");
      r.method_list = copy_text("\"GET\"");
      r.second_list = no_second_list;
      r.header_list = copy_text("\"Host\"");
      r.bundle_name = copy_text("bundle" + std::to_string(k));
    }
  }
  *list = array;
  *count = static_cast<int>(n);
  // A programmed failure still hands the list out: the caller frees it either way.
  return sim::result("brelo_getHTTPTrafficProcessRuleInfo", 0);
}

}  // extern "C"
