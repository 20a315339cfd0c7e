// What the capture tests share: capturing the simulated gateway in this process, the query
// natives with their arguments, and their replies.
#ifndef TESTS_CAPTURE_CAPTURE_SUPPORT_H
#define TESTS_CAPTURE_CAPTURE_SUPPORT_H

#include <set>
#include <string>
#include <vector>

#include "capture/anonymize.h"
#include "capture/capture.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace capturetest {

// The platform functions the capture may call: its read functions.
std::set<std::string> capture_reads();
// The platform functions named in a call log, one per line, in order.
std::vector<std::string> logged_functions(const std::string &log);

// Finds platform functions in this process (the simulator the tests link).
void *lookup_linked(const char *name, void *ctx);

// Captures the simulated gateway as it is into `dir`; the tool's messages go to `messages`.
int capture_into(const std::string &dir, bool with_secrets, bool anonymize, std::string *messages,
                 capture::Lookup lookup = lookup_linked, void *ctx = nullptr);

// One call of a native.
struct Call {
  const catalogue::Native *native;
  std::vector<catalogue::Arg> args;
  std::string shown;  // "<method>(<arguments>)"
};

// The natives that only ask the gateway (their names start with "get"), each with the sample
// argument sets and more: SSID, port, WAN and flow numbers, interface and class names, and
// the MACs given (those of the gateway's hosts), rewritten by `anon` when given (to ask an
// anonymized capture about the same hosts). Identical argument lists once.
std::vector<Call> query_calls(fakejni::FakeJvm &jvm, const std::vector<std::string> &macs,
                              const capture::Anonymizer *anon = nullptr);

// The reply of a call as text ("int 3", "text {...}").
std::string reply_of(fakejni::FakeJvm &jvm, const Call &call);

// The MACs of the current simulated gateway's first `n` hosts ([host N] sections).
std::vector<std::string> host_macs(int n);

}  // namespace capturetest

#endif
