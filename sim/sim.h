// Internals shared by the simulated platform functions.
//
// A simulated function is a few lines:
//
//     extern "C" int brelo_deviceGetMac(char *buf) {
//       sim::call("brelo_deviceGetMac", "");
//       sim::out_text(buf, 128, "device", "mac");
//       return sim::result("brelo_deviceGetMac", 0);
//     }
//
// sim::call logs the call (and runs any hook a test programmed), the outputs come from the
// state, and sim::result returns the programmed result or the usual one.
#ifndef SIM_SIM_H
#define SIM_SIM_H

#include <stddef.h>

#include <string>
#include <utility>
#include <vector>

#include "sim/sim_control.h"

#define SIM_EXPORT __attribute__((visibility("default")))

namespace sim {

// Logs "fn(<formatted arguments>)" and runs the hook programmed for fn.
SIM_EXPORT void call(const char *fn, const char *argfmt, ...) __attribute__((format(printf, 2, 3)));
// The programmed result of fn, or `usual`.
SIM_EXPORT int result(const char *fn, int usual);
SIM_EXPORT bool has_result(const char *fn);

// State access. Absent values read as NULL / the default.
SIM_EXPORT const char *get(const char *section, const char *key);
SIM_EXPORT std::string get_str(const char *section, const char *key, const char *dflt = "");
SIM_EXPORT long long get_int(const char *section, const char *key, long long dflt = 0);
SIM_EXPORT void set(const char *section, const char *key, const std::string &value);
// Names of the sections that start with `prefix`, in the order they were first created.
SIM_EXPORT std::vector<std::string> sections(const char *prefix);
// The keys and values of one section, in order.
SIM_EXPORT std::vector<std::pair<std::string, std::string>> entries(const char *section);
SIM_EXPORT void remove_section(const char *section);

// Copies a state value into a platform buffer of `cap` bytes, cut at cap - 1 and terminated,
// as the platform does for the buffers it knows the size of. An absent value writes nothing.
SIM_EXPORT void out_text(char *buf, size_t cap, const char *section, const char *key);

// Writes the configuration tree (the "tcapi <node>" sections) to the save path, if any.
SIM_EXPORT int save_tree();

// Guards the state for functions that read several values at once (natives may run on
// several Java threads). Recursive: sim::* calls inside are fine.
SIM_EXPORT void lock();
SIM_EXPORT void unlock();
struct Guard {
  Guard() { lock(); }
  ~Guard() { unlock(); }
  Guard(const Guard &) = delete;
  Guard &operator=(const Guard &) = delete;
};

}  // namespace sim

#endif
