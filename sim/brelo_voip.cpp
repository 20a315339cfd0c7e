// Simulated platform functions: the POTS lines and VoIP event subscriptions.
// State: section [voip], one section [pots line N] per line with information, and one section
// [voip subscriber <name>] per subscriber (see sim/gateway/voip.ini).
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "common/platform_voip.h"
#include "sim/sim.h"

namespace {

std::string quoted(const char *text) {
  return text != nullptr ? "\"" + std::string(text) + "\"" : std::string("NULL");
}

// The items of a comma-separated text, empty items kept ("a,,b" has three).
std::vector<std::string> split(const std::string &all) {
  std::vector<std::string> items;
  if (all.empty()) return items;
  size_t at = 0;
  while (true) {
    size_t comma = all.find(',', at);
    if (comma == std::string::npos) {
      items.push_back(all.substr(at));
      return items;
    }
    items.push_back(all.substr(at, comma - at));
    at = comma + 1;
  }
}

std::string join(const std::vector<std::string> &items) {
  std::string all;
  for (size_t i = 0; i < items.size(); ++i) all += (i ? "," : "") + items[i];
  return all;
}

std::string subscriber_section(const char *subscriber) {
  return std::string("voip subscriber ") + (subscriber != nullptr ? subscriber : "");
}

}  // namespace

extern "C" {

SIM_EXPORT int brelo_voipGetNumberOfPOTS(void) {
  sim::call("brelo_voipGetNumberOfPOTS", "%s", "");
  return sim::result("brelo_voipGetNumberOfPOTS", static_cast<int>(sim::get_int("voip", "lines")));
}

// One node per phone number of [pots line N] "numbers", with the status at the same place in
// "statuses" (5, unknown, where none is given). A line without numbers has no information.
// Numbers are copied whole up to the field's 32 bytes, terminated only when shorter.
SIM_EXPORT int brelo_voipGetLineInfo(int line, PotsLineNode **list) {
  sim::call("brelo_voipGetLineInfo", "%d", line);
  sim::Guard guard;
  std::string section = "pots line " + std::to_string(line);
  std::vector<std::string> numbers = split(sim::get_str(section.c_str(), "numbers"));
  std::vector<std::string> statuses = split(sim::get_str(section.c_str(), "statuses"));
  PotsLineNode *head = nullptr;
  PotsLineNode **tail = &head;
  int rc = numbers.empty() ? -1 : 0;
  for (size_t i = 0; i < numbers.size(); ++i) {
    PotsLineNode *node = static_cast<PotsLineNode *>(malloc(sizeof *node));
    if (node == nullptr) break;
    memset(node, 0, sizeof *node);
    size_t n = numbers[i].size() < sizeof node->phone_number ? numbers[i].size()
                                                              : sizeof node->phone_number;
    memcpy(node->phone_number, numbers[i].data(), n);
    node->status = i < statuses.size() ? static_cast<int32_t>(strtol(statuses[i].c_str(), nullptr, 10))
                                       : POTS_STATUS_UNKNOWN;
    *tail = node;
    tail = &node->next;
  }
  *list = head;
  return sim::result("brelo_voipGetLineInfo", rc);
}

// Adds the listed events to the subscriber's (each event once, in the order first given).
SIM_EXPORT int brelo_subscribeVoIPEvent(const char *subscriber, const char *eventList) {
  sim::call("brelo_subscribeVoIPEvent", "%s, %s", quoted(subscriber).c_str(),
            quoted(eventList).c_str());
  sim::Guard guard;
  if (subscriber == nullptr || eventList == nullptr)
    return sim::result("brelo_subscribeVoIPEvent", -1);
  std::string section = subscriber_section(subscriber);
  std::vector<std::string> events = split(sim::get_str(section.c_str(), "events"));
  for (const std::string &e : split(eventList)) {
    bool known = false;
    for (const std::string &have : events) known = known || have == e;
    if (!known) events.push_back(e);
  }
  sim::set(section.c_str(), "events", join(events));
  return sim::result("brelo_subscribeVoIPEvent", 0);
}

// Withdraws the listed events; a subscriber left with none is forgotten. -1 for a subscriber
// that holds no subscription.
SIM_EXPORT int brelo_unSubscribeVoIPEvent(const char *subscriber, const char *eventList) {
  sim::call("brelo_unSubscribeVoIPEvent", "%s, %s", quoted(subscriber).c_str(),
            quoted(eventList).c_str());
  sim::Guard guard;
  std::string section = subscriber_section(subscriber);
  if (subscriber == nullptr || eventList == nullptr || sim::get(section.c_str(), "events") == nullptr)
    return sim::result("brelo_unSubscribeVoIPEvent", -1);
  std::vector<std::string> withdrawn = split(eventList);
  std::vector<std::string> kept;
  for (const std::string &e : split(sim::get_str(section.c_str(), "events"))) {
    bool gone = false;
    for (const std::string &w : withdrawn) gone = gone || w == e;
    if (!gone) kept.push_back(e);
  }
  if (kept.empty()) {
    sim::remove_section(section.c_str());
  } else {
    sim::set(section.c_str(), "events", join(kept));
  }
  return sim::result("brelo_unSubscribeVoIPEvent", 0);
}

}  // extern "C"
