// One input of the configuration-tree fuzzer: a native that reads the configuration tree is
// called against the default simulated gateway, and every value it reads with tcapi_get comes
// from the input (port-mapping rules and the WAN nodes they hang on, traffic-monitoring
// entries, mirror rules, guest SSID and station nodes, ...).
//
// Input layout (every read past the end gives zeros, so any byte string is an input):
//   <Class.method>\n   one of the natives below; another name picks one by the sum of its bytes
//   every Java parameter in order, laid out as fuzz/native_input.h describes
//   then one item per tcapi_get the native makes, in the order it makes them; the value is put
//   into the tree before the read answers, so it stays there for later reads and writes:
//     0  the value the tree holds (the default gateway's, or one put there before)
//     1  no such attribute
//     2  a piece: a length byte and that many bytes (a NUL ends the value)
//     3  a piece and a 1-byte repeat count (the tree hands out at most 4095 bytes)
//     any other tag: a value of a small table of typical and extreme ones
// A finding aborts with a message (fuzzinput::check_call).
#ifndef FUZZ_TREE_VALUES_HARNESS_H
#define FUZZ_TREE_VALUES_HARNESS_H

#include <stddef.h>
#include <stdint.h>

#include <string>

namespace fuzztree {

// The natives that read the configuration tree.
size_t native_count();
// "Class.method" of the i-th of them.
std::string native_name(size_t i);

// Runs one input; aborts (after printing what went wrong) on a finding.
void run_one_input(const uint8_t *data, size_t size);

}  // namespace fuzztree

#endif
