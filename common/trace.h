// Debug trace of the bridge.
//
// Every trace point asks afresh whether the flag file /tmp/brelo_debug exists (nothing is
// cached, so creating the file takes effect at the very next trace point, even inside one
// call). When it exists the line goes to standard output as
//     <function name>:<line>:<message>
// and standard output is flushed at once. The trace never changes a result.
#ifndef BUNDLE_COMMON_TRACE_H
#define BUNDLE_COMMON_TRACE_H

#define BUNDLE_TRACE_FLAG "/tmp/brelo_debug"

namespace bundle {

// Returns true when the flag file named by `path` exists. Never fails; a missing file is false.
bool flag_file_exists(const char *path);

// printf-style trace line. `fn` is the exported function's full name, `line` a fixed number.
void trace_printf(const char *fn, int line, const char *fmt, ...)
    __attribute__((format(printf, 3, 4)));

// puts-style trace line: `text` followed by a line feed.
void trace_puts(const char *fn, int line, const char *text);

}  // namespace bundle

// Trace points inside a native or helper: the prefix is the enclosing C function's own name
// (for an exported native, its full JNI name) and the source line of the trace statement.
#define BUNDLE_TRACE(...) ::bundle::trace_printf(__func__, __LINE__, __VA_ARGS__)
#define BUNDLE_TRACE_PUTS(text) ::bundle::trace_puts(__func__, __LINE__, (text))

// A trace point that announces itself under another name than the enclosing function's.
#define BUNDLE_TRACE_AS(name, ...) ::bundle::trace_printf((name), __LINE__, __VA_ARGS__)

#endif
