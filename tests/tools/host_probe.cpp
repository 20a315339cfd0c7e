// A system() and gethostbyname() that are not the simulator's host side, for the JVM test of
// the bridge's refusal (HostSideRefusalTest): preloaded into a JVM, they report every call on
// standard error and do nothing else, so a call that got past the refusal shows up without
// touching the machine.
#include <netdb.h>
#include <stdio.h>

extern "C" {

__attribute__((visibility("default"))) int system(const char *command) {
  fprintf(stderr, "host probe: system(%s)\n", command != nullptr ? command : "NULL");
  fflush(stderr);
  return -1;
}

__attribute__((visibility("default"))) struct hostent *gethostbyname(const char *name) {
  fprintf(stderr, "host probe: gethostbyname(%s)\n", name != nullptr ? name : "NULL");
  fflush(stderr);
  h_errno = HOST_NOT_FOUND;
  return nullptr;
}

}  // extern "C"
