// Readers of Java String[] parameters, exported with C linkage for the gateway's other
// native code as well as for the natives of this library.
#ifndef BUNDLE_COMMON_ARRAY_READERS_H
#define BUNDLE_COMMON_ARRAY_READERS_H

#include <jni.h>

// The MAC list buffer: 256 entries of 128 bytes, zeroed by the caller, plus a separate count.
#define MAX_MAC_ENTRIES 256
#define MAC_ENTRY_SIZE 128

extern "C" {

// Copies the texts of `array` into `entries` (at most 256; a text is cut at 127 bytes).
// Returns 0 when the array was read to its end, -1 at the first element whose text could not
// be obtained. *count is the capped array length when any entry is non-empty, else 0.
// Failure contract: stops at a pending exception (-1, *count 0), making no JNI call after it.
JNIEXPORT int brelo_getMacAddrFromJsonArr(JNIEnv *env, jobjectArray array,
                                          char (*entries)[MAC_ENTRY_SIZE], int *count);

// Joins the texts of `array` with "," into `out` (`size` bytes, zeroed by the caller); never
// writes past out + size, cutting the joined text at size - 1 characters. Always returns 0.
// Failure contract: stops at a pending exception, leaving it pending for the caller to see.
JNIEXPORT int parseObjecArray(JNIEnv *env, jobjectArray array, char *out, int size);

}

#endif
