// Every native of the library behind one uniform call, for tests that walk them all (fuzz
// targets, platform faults, the soak): its Java class and method, the kinds of its Java
// parameters, and a function that calls it with an array of arguments.
#ifndef TESTS_NATIVE_CATALOGUE_H
#define TESTS_NATIVE_CATALOGUE_H

#include <jni.h>
#include <stddef.h>

namespace catalogue {

// One Java argument; the member used is the one of the parameter's kind.
struct Arg {
  jint i = 0;
  jboolean z = JNI_FALSE;
  jbyte b = 0;
  jstring s = nullptr;
  jobjectArray a = nullptr;
  jbyteArray y = nullptr;
};

enum class Returns { kInt, kBool, kText };

// What a native answered.
struct Result {
  Returns kind;
  jint number;  // kInt, kBool
  jstring text; // kText
  static Result of_int(jint v) { return Result{Returns::kInt, v, nullptr}; }
  static Result of_bool(jboolean v) { return Result{Returns::kBool, v, nullptr}; }
  static Result of_text(jstring s) { return Result{Returns::kText, 0, s}; }
};

struct Native {
  const char *package;  // "lanservices"
  const char *cls;      // "LANHostsInfoQueryServiceImp"
  const char *method;   // "getLANHostInfoByMACJni"
  const char *symbol;   // the exported JNI name
  // One letter per Java parameter, in order: I int, Z boolean, B byte, S String,
  // A String[], Y byte[].
  const char *params;
  Returns returns;
  // Calls the native; `args` holds one element per letter of `params`.
  Result (*call)(JNIEnv *env, jobject self, const Arg *args);
};

extern const Native kNatives[];
extern const size_t kNativeCount;

}  // namespace catalogue

#endif
