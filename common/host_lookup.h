// What the library asks of the machine itself rather than of the platform: host names
// resolved by gethostbyname and route commands run by system(). Every such call goes through
// this file.
//
// gethostbyname answers in static storage that the next lookup of any thread overwrites, and
// natives run on many Java threads at once. resolve_host holds the library's one resolver lock
// around the lookup and the copy of the answer, and nothing else; callers then work on their
// own copy.
//
// Off the gateway these calls must never reach the machine the simulator runs on: the
// simulated platform says whether this process's system() and gethostbyname() are the
// simulator's stand-ins, and when they are not, no lookup and no command is made (see
// host_lookup.cpp).
#ifndef BUNDLE_COMMON_HOST_LOOKUP_H
#define BUNDLE_COMMON_HOST_LOOKUP_H

// Addresses copied from one answer; further addresses of a larger answer are dropped.
#define HOST_LOOKUP_MAX_ADDRESSES 64

namespace bundle {

struct HostAddresses {
  int family;  // h_addrtype of the answer (AF_INET from gethostbyname)
  int length;  // bytes of each address as the answer gave them (copied up to 16)
  int count;   // addresses copied, in the resolver's order
  unsigned char address[HOST_LOOKUP_MAX_ADDRESSES][16];
};

// Resolves `name` (not NULL) with gethostbyname and copies the answer into *out. Returns false,
// with out->count 0, when the name does not resolve (or may not be looked up here).
bool resolve_host(const char *name, HostAddresses *out);

// Runs `command` with system() and returns its status; -1 without running it when commands
// may not be run here.
int run_command(const char *command);

}  // namespace bundle

#endif
