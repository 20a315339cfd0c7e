// Whether the bridge may make a route command or a name lookup in this process: the answer
// to the bridge's weak hook sim_host_side_ready (common/host_lookup.cpp).
//
// The bridge's system() and gethostbyname() are the first definitions the process's global
// scope holds. They are the simulator's host side (libgatewayhost.so) when that library was
// loaded ahead of the C library: preloaded, as the launcher, the demo, the box and the JVM
// tests do, or linked into a test program before it. A sanitizer's interceptor in front of
// them still ends there, since it forwards to the next definition. In any other process (no
// host side, or one opened later with dlopen, which the global scope never puts before the
// C library) a command or lookup would reach this machine's route table or the network: the
// bridge makes none, and the first refusal says once, on standard error, how to fix it.
#include <dlfcn.h>
#include <link.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include <atomic>
#include <string>

#include "sim/sim.h"

namespace {

std::atomic<int> g_forced{-1};    // sim_set_host_side: -1 detect, else the answer
std::atomic<bool> g_told{false};  // the refusal was explained

struct FirstOf {
  uintptr_t host;  // an address inside libgatewayhost.so
  uintptr_t libc;  // an address inside the C library
  int found;       // 1: the host side comes first, 0: the C library, -1: neither seen yet
};

bool holds(const struct dl_phdr_info *info, uintptr_t address) {
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const ElfW(Phdr) &ph = info->dlpi_phdr[i];
    uintptr_t start = info->dlpi_addr + ph.p_vaddr;
    if (ph.p_type == PT_LOAD && address >= start && address - start < ph.p_memsz) return true;
  }
  return false;
}

// Objects are visited in load order, which for the objects loaded at start is the order the
// global scope searches them in.
int first_of(struct dl_phdr_info *info, size_t, void *data) {
  FirstOf *f = static_cast<FirstOf *>(data);
  if (holds(info, f->host)) f->found = 1;
  else if (holds(info, f->libc)) f->found = 0;
  return f->found >= 0;
}

bool detect() {
  void *host = dlsym(RTLD_DEFAULT, "sim_host_side");  // defined by libgatewayhost.so alone
  void *libc = dlsym(RTLD_DEFAULT, "gnu_get_libc_version");
  if (host == nullptr) return false;
  if (libc == nullptr) return true;  // no C library of its own to fall through to
  FirstOf f{reinterpret_cast<uintptr_t>(host), reinterpret_cast<uintptr_t>(libc), -1};
  dl_iterate_phdr(first_of, &f);
  return f.found == 1;
}

// The host side is installed beside this library (the build's lib/ directory, or the
// installed simulator's).
std::string host_side_path() {
  Dl_info info;
  std::string dir = ".";
  if (dladdr(reinterpret_cast<void *>(&host_side_path), &info) != 0 && info.dli_fname != nullptr) {
    dir = info.dli_fname;
    size_t slash = dir.rfind('/');
    dir = slash == std::string::npos ? "." : dir.substr(0, slash);
  }
  return dir + "/libgatewayhost.so";
}

void tell() {
  fprintf(stderr,
          "gateway sim: no route command and no name lookup is made in this process: its "
          "system() and gethostbyname() are this machine's own, not the simulator's. Start it "
          "with LD_PRELOAD=%s (or through the bundle_sc-simulator launcher).\n",
          host_side_path().c_str());
  fflush(stderr);
}

}  // namespace

extern "C" {

SIM_EXPORT int sim_host_side_ready(void) {
  static const bool in_place = detect();
  int forced = g_forced.load();
  bool ready = forced >= 0 ? forced != 0 : in_place;
  if (!ready && !g_told.exchange(true)) tell();
  return ready ? 1 : 0;
}

SIM_EXPORT void sim_set_host_side(int ready) {
  g_forced.store(ready < 0 ? -1 : ready != 0 ? 1 : 0);
  g_told.store(false);
}

}  // extern "C"
