// Debug trace of the bridge.
//
// Every trace point asks afresh whether the flag file /tmp/brelo_debug exists (nothing is
// cached, so creating the file takes effect at the very next trace point, even inside one
// call). When it exists the line goes to standard output as
//     <function name>:<line>:<message>
// and standard output is flushed at once. The trace never changes a result.
//
// In the library, a trace point inside an exported native does not store the native's name a
// second time (the names are long and the dynamic symbol table holds them already): it
// records where it is, and the name is looked up among the library's exported functions only
// when the line is printed. Helpers keep their own (short) names. Built into anything else
// (test programs that compile natives straight in), every trace point uses its own name.
#ifndef BUNDLE_COMMON_TRACE_H
#define BUNDLE_COMMON_TRACE_H

#define BUNDLE_TRACE_FLAG "/tmp/brelo_debug"

namespace bundle {

// Returns true when the flag file named by `path` exists. Never fails; a missing file is false.
bool flag_file_exists(const char *path);

// Whom a trace line is announced under: a name as such, or an address inside an exported
// native whose name is looked up when the line is printed.
struct TraceName {
  const char *name;
  const void *where;

  TraceName(const char *text) : name(text), where(nullptr) {}  // NOLINT: a name is a TraceName
  static TraceName at(const void *address) {
    TraceName n(nullptr);
    n.where = address;
    return n;
  }
};

// printf-style trace line. `fn` is the exported function's full name, `line` a fixed number.
void trace_printf(const char *fn, int line, const char *fmt, ...)
    __attribute__((format(printf, 3, 4)));
void trace_printf(TraceName fn, int line, const char *fmt, ...)
    __attribute__((format(printf, 3, 4)));

// A trace line whose message opens with the name it is announced under:
// "<name>:<line>:<name><rest>" (for messages that name their own native; the name is not
// stored a second time).
void trace_named(TraceName fn, int line, const char *rest, ...)
    __attribute__((format(printf, 3, 4)));

// puts-style trace line: `text` followed by a line feed.
void trace_puts(const char *fn, int line, const char *text);
void trace_puts(TraceName fn, int line, const char *text);

// Trace lines of the exported native that calls them (found from the return address).
__attribute__((noinline)) void trace_native_printf(int line, const char *fmt, ...)
    __attribute__((format(printf, 2, 3)));
__attribute__((noinline)) void trace_native_puts(int line, const char *text);
__attribute__((noinline)) void trace_native_named(int line, const char *rest, ...)
    __attribute__((format(printf, 2, 3)));

// The address the calling function continues at: a place inside the caller.
__attribute__((noinline, noipa)) const void *caller_address();

// True for the name of an exported native (the JNI rule: "Java_" then the class and method).
constexpr bool is_native_name(const char *name) {
  return name[0] == 'J' && name[1] == 'a' && name[2] == 'v' && name[3] == 'a' && name[4] == '_';
}

// A native's closing line, "<method>: return code = %d   leave============>\n" or
// "<method>: return json = %s   leave============>\n" with <method> the native's own Java
// method (its name's last part), is printed from these shared pieces.
constexpr char kClosingCode[] = ": return code = %d   leave============>\n";
constexpr char kClosingJson[] = ": return json = %s   leave============>\n";
enum ClosingLine { kNotClosing = 0, kCodeLine = 1, kJsonLine = 2 };

// The Java method part of a native's name: what follows its last '_'.
constexpr const char *method_of(const char *native) {
  const char *method = native;
  for (const char *p = native; *p != '\0'; ++p) {
    if (*p == '_') method = p + 1;
  }
  return method;
}

constexpr bool same_text(const char *a, const char *b) {
  while (*a != '\0' && *a == *b) {
    ++a;
    ++b;
  }
  return *a == *b;
}

// Which closing line `fmt` is for the native named `native`, if any.
constexpr int closing_line(const char *native, const char *fmt) {
  const char *method = method_of(native);
  while (*method != '\0') {
    if (*fmt != *method) return kNotClosing;
    ++fmt;
    ++method;
  }
  if (same_text(fmt, kClosingCode)) return kCodeLine;
  if (same_text(fmt, kClosingJson)) return kJsonLine;
  return kNotClosing;
}

template <int Value>
struct Constant {
  static constexpr int value = Value;
};

// The closing line of the exported native that calls it: `kind` a ClosingLine, then the
// return code (int) or the reply text (const char *).
__attribute__((noinline)) void trace_native_closing(int line, int kind, ...);

// The closing line of the exported native `native` (its full name, or an address inside it):
// `kind` a ClosingLine, with `text` for a text reply or `code` for an integer one.
void trace_closing(TraceName native, int line, int kind, const char *text, int code);

// The exported native (full name) a native's trace line is announced under, given an address
// inside it; nullptr when no exported function of a loaded library holds `address`.
const char *native_name_at(const void *address);

}  // namespace bundle

#if defined(BUNDLE_TRACE_BY_ADDRESS) && BUNDLE_TRACE_BY_ADDRESS
// Trace points inside a native or helper: the prefix is the enclosing C function's own name
// (for an exported native, its full JNI name, looked up) and the source line of the trace
// statement.
// A native's closing line stores neither the name nor the method: both are the native's own.
#define BUNDLE_TRACE(...) BUNDLE_TRACE_LINE(__VA_ARGS__)
#define BUNDLE_TRACE_LINE(fmt, ...)                                                          \
  (!::bundle::Constant<::bundle::is_native_name(__func__)>::value                            \
       ? ::bundle::trace_printf(__func__, __LINE__, fmt, ##__VA_ARGS__)                      \
   : ::bundle::Constant<::bundle::closing_line(__func__, fmt)>::value != ::bundle::kNotClosing \
       ? ::bundle::trace_native_closing(                                                     \
             __LINE__, ::bundle::Constant<::bundle::closing_line(__func__, fmt)>::value,     \
             ##__VA_ARGS__)                                                                  \
       : ::bundle::trace_native_printf(__LINE__, fmt, ##__VA_ARGS__))
#define BUNDLE_TRACE_PUTS(text)                                \
  (::bundle::is_native_name(__func__)                          \
       ? ::bundle::trace_native_puts(__LINE__, (text))         \
       : ::bundle::trace_puts(__func__, __LINE__, (text)))
// The enclosing native, for helpers that trace on its behalf (a TraceName).
#define BUNDLE_NATIVE                                                          \
  (::bundle::is_native_name(__func__)                                          \
       ? ::bundle::TraceName::at(::bundle::caller_address())                   \
       : ::bundle::TraceName(__func__))
#else
#define BUNDLE_TRACE(...) ::bundle::trace_printf(__func__, __LINE__, __VA_ARGS__)
#define BUNDLE_TRACE_PUTS(text) ::bundle::trace_puts(__func__, __LINE__, (text))
#define BUNDLE_NATIVE ::bundle::TraceName(__func__)
#endif

// A trace point of a native whose message opens with the native's own name.
#if defined(BUNDLE_TRACE_BY_ADDRESS) && BUNDLE_TRACE_BY_ADDRESS
#define BUNDLE_TRACE_NAMED(rest, ...)                                            \
  (::bundle::is_native_name(__func__)                                           \
       ? ::bundle::trace_native_named(__LINE__, (rest), ##__VA_ARGS__)          \
       : ::bundle::trace_named(__func__, __LINE__, (rest), ##__VA_ARGS__))
#else
#define BUNDLE_TRACE_NAMED(rest, ...) \
  ::bundle::trace_named(__func__, __LINE__, (rest), ##__VA_ARGS__)
#endif

// A trace point that announces itself under another name than the enclosing function's.
#define BUNDLE_TRACE_AS(name, ...) ::bundle::trace_printf((name), __LINE__, __VA_ARGS__)

#endif
