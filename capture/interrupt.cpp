#include "capture/interrupt.h"

#include <limits.h>
#include <signal.h>
#include <stdio.h>
#include <unistd.h>

namespace capture {
namespace {

char g_message[2 * PATH_MAX + 160];
volatile sig_atomic_t g_length = 0;

void on_signal(int sig) {
  if (g_length > 0) {
    ssize_t ignored = write(2, g_message, static_cast<size_t>(g_length));
    (void)ignored;
  }
  signal(sig, SIG_DFL);
  raise(sig);
}

}  // namespace

void note_partial(const char *partial, const char *destination) {
  g_length = 0;
  int n = snprintf(g_message, sizeof g_message,
                   "\nbundle_sc-capture: stopped before %s was complete: %s is left incomplete "
                   "(it does not load; remove it and capture again)\n",
                   destination, partial);
  if (n > 0) g_length = static_cast<sig_atomic_t>(static_cast<size_t>(n) < sizeof g_message ? n : sizeof g_message - 1);
}

void watch_interrupts() {
  signal(SIGINT, on_signal);
  signal(SIGTERM, on_signal);
  signal(SIGHUP, on_signal);
}

}  // namespace capture
