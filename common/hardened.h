// The hardened build profile (cmake -DBUNDLE_HARDENED=ON) for integrators who want replies
// that are always valid JSON and a trace that never shows a secret.
//
// In the default profile every function here leaves texts exactly as they are, so replies and
// traces stay byte for byte what the gateway's Java side has always received. In the hardened
// profile:
//   - the reply composer (reply_vappend) JSON-escapes every %s argument it places inside a
//     JSON string of the reply (", \ and control characters); arguments placed outside a
//     string (structural pieces, lists composed beforehand) are copied as they are;
//   - a platform text placed outside a string (raw_json: the items of a list, a number) is
//     placed only when it is exactly that, so it can never close its list or add a member;
//   - a reply that starts with '{' but is not valid JSON (e.g. one cut at its buffer) reaches
//     Java as the native's failure reply, or "{\"Result\":-1}";
//   - secret() prints a fixed mask instead of a password or other credential in the trace.
// Only common/hardened.cpp is compiled differently; everything else asks at run time.
#ifndef BUNDLE_COMMON_HARDENED_H
#define BUNDLE_COMMON_HARDENED_H

#include <jni.h>
#include <stdarg.h>
#include <stddef.h>
#include <stdint.h>

#include "common/reply.h"
#include "common/trace.h"

namespace bundle {

// True in the hardened profile.
bool hardened_profile();

// The text to print in the trace for a secret: `text` itself by default, "******" when
// hardened.
const char *secret(const char *text);

// The reply composer of the hardened profile (see reply_vappend for the cut semantics, which
// are the same): %s arguments that land inside a JSON string are escaped.
int escaped_vappend(char *buf, size_t cap, size_t *off, const char *fmt, va_list ap);

// True when `text` is one complete JSON value (RFC 8259; bytes >= 0x80 are accepted inside
// strings, they are repaired to modified UTF-8 later).
bool json_valid(const char *text);

// What a platform text placed outside quotes in a reply must be.
enum class RawJson {
  kItems,   // the inside of a JSON array: values separated by commas, or nothing
  kNumber,  // one JSON number
};

// A text no JSON reply can hold: raw_json's answer for a fragment it refuses.
extern const char kRejectedFragment[];

// The platform text to place raw (outside quotes) in a reply where a `kind` belongs; at most
// its first `max` bytes are placed (the caller bounds the conversion, e.g. "%.*s"). In the
// default profile `text` itself. In the hardened profile `text` when those bytes are exactly
// a `kind`, else kRejectedFragment, which makes the reply invalid JSON, so checked_reply gives
// the native's failure reply: a platform text can neither end its list nor add a member.
const char *raw_json(const char *text, RawJson kind, size_t max = SIZE_MAX);

// The text handed to Java for a composed reply: `text` itself unless the profile is hardened
// and `text` starts with '{' without being valid JSON; then `failure`.
const char *checked_reply(const char *text, const char *failure);

// The generic failure reply of the hardened profile.
extern const char kHardenedFailure[];

// traced_text_reply (common/native.h) for a reply that carries a secret: the closing trace
// shows secret(text), Java receives the text.
inline jstring traced_secret_reply(JNIEnv *env, TraceName native, int line, const char *method,
                                   const char *text) {
  trace_printf(native, line, "%s: return json = %s   leave============>\n", method, secret(text));
  return new_reply_string(env, text);
}

// traced_text_reply for a composed JSON reply whose own failure reply is `failure`: in the
// hardened profile a reply that is not valid JSON (cut at its buffer) reaches Java as
// `failure`; the trace shows what Java receives.
inline jstring traced_checked_reply(JNIEnv *env, TraceName native, int line, const char *method,
                                    const char *text, const char *failure) {
  text = checked_reply(text, failure);
  trace_printf(native, line, "%s: return json = %s   leave============>\n", method, text);
  return new_reply_string(env, text);
}

}  // namespace bundle

#endif
