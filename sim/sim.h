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
//
// A domain whose answers need work on the state (parsing lists, indexing records) keeps
// that work in a sim::Derived<T>, rebuilt only when the state has changed since:
//
//     struct Hosts { std::vector<LanHostRecord> records; ... };
//     sim::Derived<Hosts> g_hosts;
//     ...
//     sim::Guard guard;
//     const Hosts &hosts = g_hosts.get(build_hosts);   // void build_hosts(Hosts *)
//
// The state's text stays the only truth: every change to it (sim_set, sim_unset, sim_load,
// sim_reset, a simulated setter's sim::set) bumps sim::generation(), which sends every
// Derived back to its builder at its next use.
#ifndef SIM_SIM_H
#define SIM_SIM_H

#include <stddef.h>

#include <string>
#include <utility>
#include <vector>

#include "sim/sim_control.h"

#define SIM_EXPORT __attribute__((visibility("default")))

namespace sim {

// Logs "fn(<formatted arguments>)" and runs the hook programmed for fn. With the log off and
// no hook programmed it does nothing (the arguments are not even formatted).
SIM_EXPORT void call(const char *fn, const char *argfmt, ...) __attribute__((format(printf, 2, 3)));
// Whether the call log is on: arguments that take work to put into words (lists) are built
// only then.
SIM_EXPORT bool logging();
// The programmed result of fn, or `usual`; the log records it as what this call returned.
SIM_EXPORT int result(const char *fn, int usual);
// Records rc as what this thread's latest logged call of fn returned, and returns it: for a
// function that returns without asking result() (its own checks failed, or it answers a value).
SIM_EXPORT int returns(const char *fn, int rc);
SIM_EXPORT bool has_result(const char *fn);

// State access. Absent values read as NULL / the default.
SIM_EXPORT const char *get(const char *section, const char *key);
SIM_EXPORT std::string get_str(const char *section, const char *key, const char *dflt = "");
SIM_EXPORT long long get_int(const char *section, const char *key, long long dflt = 0);
SIM_EXPORT void set(const char *section, const char *key, const std::string &value);
// Names of the sections that start with `prefix`, in the order they were first created.
SIM_EXPORT std::vector<std::string> sections(const char *prefix);
// The same without a copy: valid while the caller holds the lock and changes nothing.
SIM_EXPORT const std::vector<std::string> &section_names(const char *prefix);
// Number of keys of a section (0 when it does not exist).
SIM_EXPORT size_t entry_count(const char *section);
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

// The state's generation: changes whenever anything in the state changes.
SIM_EXPORT unsigned long generation();

// A value derived from the state, rebuilt when the state's generation differs from the one it
// was built from. Use it under sim::Guard; the reference from get() holds until the caller
// changes the state or lets go of the lock.
template <typename T>
class Derived {
 public:
  template <typename Build>
  const T &get(Build build) {
    Guard guard;
    unsigned long now = generation();
    if (!built_ || now != generation_) {
      value_ = T();
      build(&value_);
      // Building reads the state only, so the generation is still `now`.
      generation_ = now;
      built_ = true;
    }
    return value_;
  }

 private:
  T value_{};
  unsigned long generation_ = 0;
  bool built_ = false;
};

}  // namespace sim

#endif
