// One input of the state-file fuzzer: the bytes are a state file of the gateway simulator, as a
// capture from the field would be. The simulator reads it into an empty gateway with its
// state-file reader (sim_load); the configuration tree read must come back unchanged through
// tcapi_save and the reader; then one native answers from the state read, through the
// simulated platform, which parses the values it hands out (lists, records, JSON).
//
// The first line names the native, as a comment the reader skips:
//   # <Class.method> <argument set>
// with one of the sample argument sets of tests/sample_arguments.h (0 by default). A first line
// of another form picks the native by the sum of its bytes, so mutated lines still spread over
// every native.
//
// A finding aborts with a message: a reader answering other than 0 or -1, a configuration tree
// that tcapi_save writes and the reader reads back differently, or a call that went wrong
// (fuzzinput::check_call).
#ifndef FUZZ_STATE_FILE_HARNESS_H
#define FUZZ_STATE_FILE_HARNESS_H

#include <stddef.h>
#include <stdint.h>

namespace fuzzstate {

// Runs one input; aborts (after printing what went wrong) on a finding.
void run_one_input(const uint8_t *data, size_t size);

}  // namespace fuzzstate

#endif
