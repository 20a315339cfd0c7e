// Escaping of a text placed inside a JSON string, exported with C linkage for the gateway's
// other native code as well as for the natives of this library.
#ifndef BUNDLE_COMMON_HTML_ENCODE_H
#define BUNDLE_COMMON_HTML_ENCODE_H

// Size of the output buffer every caller provides.
#define HTML_ENCODE_OUT_SIZE 512

extern "C" {

// Copies `in` to `out`, writing \" for a double quote, \\ for a backslash and \/ for a slash;
// other bytes pass unchanged. Writes the terminating NUL and returns the number of bytes
// written before it. `out` holds HTML_ENCODE_OUT_SIZE bytes: an escaped text that would not
// fit is cut at a whole character (never between a backslash and the byte it escapes).
__attribute__((visibility("default"))) int html_encode(char *out, const char *in);

}

#endif
