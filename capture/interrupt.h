// What a capture stopped by a signal (Ctrl-C, kill) says: which folder it leaves incomplete.
// The folder itself needs no cleaning to be safe: it is marked incomplete and never loads.
#ifndef BUNDLE_CAPTURE_INTERRUPT_H
#define BUNDLE_CAPTURE_INTERRUPT_H

namespace capture {

// Handles SIGINT, SIGTERM and SIGHUP: the message (once a folder is being written), then the
// signal's own end.
void watch_interrupts();
// Options::on_partial for the command: the folder the message names.
void note_partial(const char *partial, const char *destination);

}  // namespace capture

#endif
