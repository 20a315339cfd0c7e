// The host side of the simulated gateway: the system's route tool and name resolver, which a
// few natives reach through the C library (system, gethostbyname) rather than the platform.
//
// libgatewayhost.so defines both functions, so a process that loads it ahead of the C library
// (linked into the unit tests, LD_PRELOADed into the JVM tests, the console and the demo) never
// changes the machine's routes and never asks the network:
//   - system(command) logs system("<command>") in the call log and returns its programmed
//     result (0 by default); route commands on the VPN interface are kept in section
//     "route ppp100" (key: the address, value: "host route") so a person sees their effect;
//   - gethostbyname(name) logs gethostbyname("<name>") and answers from section "resolver"
//     (key: the name, value: IPv4 addresses separated by blanks); any other name, or a
//     programmed result other than 0, does not resolve (h_errno HOST_NOT_FOUND).
// Like the real resolver it answers in one static entry that the next lookup overwrites.
// Without it, in a process that runs the bridge off the gateway, the bridge makes no route
// command and no lookup at all (sim/host_side.cpp).
#include <arpa/inet.h>
#include <netdb.h>
#include <sched.h>
#include <stdio.h>
#include <string.h>

#include <string>

#include "sim/sim.h"

namespace {

constexpr int kMaxAddresses = 32;

struct StaticAnswer {
  struct hostent entry;
  char name[256];
  char *aliases[1];
  char *addresses[kMaxAddresses + 1];
  struct in_addr address[kMaxAddresses];
};

StaticAnswer g_answer;

// Keeps the effect of a route command on the VPN interface in the state.
void note_route(const char *command) {
  char verb[16], address[64], device[32];
  if (sscanf(command, "/sbin/route %15s -net %63s netmask 255.255.255.255 dev %31s", verb, address,
             device) != 3)
    return;
  std::string section = std::string("route ") + device;
  if (strcmp(verb, "add") == 0)
    sim::set(section.c_str(), address, "host route");
  else if (strcmp(verb, "delete") == 0)
    sim_unset(section.c_str(), address);
}

}  // namespace

extern "C" {

// Marks this library for the simulated platform, which tells the bridge whether it is in place
// (sim/host_side.cpp).
SIM_EXPORT int sim_host_side(void) { return 1; }

SIM_EXPORT int system(const char *command) {
  if (command == nullptr) return 1;  // a shell is available
  sim::call("system", "\"%s\"", command);
  int rc = sim::result("system", 0);
  if (rc == 0) note_route(command);
  return rc;
}

SIM_EXPORT struct hostent *gethostbyname(const char *name) {
  sim::call("gethostbyname", "\"%s\"", name != nullptr ? name : "(null)");
  std::string value = name != nullptr ? sim::get_str("resolver", name) : "";
  if (name == nullptr || value.empty() || sim::result("gethostbyname", 0) != 0) {
    h_errno = HOST_NOT_FOUND;
    return nullptr;
  }
  // The static answer is written piece by piece, yielding in between, as a slow resolver
  // would: a caller that reads it without holding a lock sees another thread's answer.
  StaticAnswer &a = g_answer;
  snprintf(a.name, sizeof a.name, "%s", name);
  sched_yield();
  int n = 0;
  size_t pos = 0;
  while (n < kMaxAddresses) {
    size_t start = value.find_first_not_of(" ,", pos);
    if (start == std::string::npos) break;
    size_t end = value.find_first_of(" ,", start);
    std::string text = value.substr(start, end == std::string::npos ? std::string::npos : end - start);
    pos = end == std::string::npos ? value.size() : end;
    if (inet_pton(AF_INET, text.c_str(), &a.address[n]) != 1) continue;
    a.addresses[n] = reinterpret_cast<char *>(&a.address[n]);
    ++n;
    sched_yield();
  }
  a.addresses[n] = nullptr;
  a.aliases[0] = nullptr;
  a.entry.h_name = a.name;
  a.entry.h_aliases = a.aliases;
  a.entry.h_addrtype = AF_INET;
  a.entry.h_length = sizeof(struct in_addr);
  a.entry.h_addr_list = a.addresses;
  if (n == 0) {
    h_errno = NO_ADDRESS;
    return nullptr;
  }
  return &a.entry;
}

}  // extern "C"
