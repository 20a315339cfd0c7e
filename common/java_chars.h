// Borrowing Java texts and local references.
//
// A native's acquire/release sequence stays visible in its own code:
//
//     bundle::JavaChars name(env, jname);      // GetStringUTFChars(env, jname, NULL)
//     int rc = brelo_something(name.get());
//     BUNDLE_TRACE("...: return code = %d   leave============>\n", rc);
//     name.release();                          // ReleaseStringUTFChars, in the order obtained
//
// A text still held when its JavaChars goes out of scope is released then, so no path leaks
// by accident; the few texts that are deliberately never given back say so with keep().
//
// Failure contract: once a JNI call has failed with an exception pending (a text that could
// not be copied, an array element out of reach), the helpers here make no JNI call but
// ReleaseStringUTFChars, DeleteLocalRef and ExceptionCheck; a native then releases what it
// holds and returns its failure value (see exception_pending).
#ifndef BUNDLE_COMMON_JAVA_CHARS_H
#define BUNDLE_COMMON_JAVA_CHARS_H

#include <jni.h>
#include <stddef.h>

namespace bundle {

class JavaChars {
 public:
  // Borrows the modified-UTF-8 text of `s`. A null `s` reads as a NULL text without any JNI
  // call (a JVM would abort on it); a JVM that cannot copy the text gives NULL with an
  // exception pending, and that NULL text is still held (released with NULL). With an
  // exception already pending, nothing is asked of the JVM: the text reads as NULL and is not
  // held, so no Release is ever made for a text that was never obtained.
  JavaChars(JNIEnv *env, jstring s)
      : env_(env), s_(s), chars_(nullptr),
        held_(s != nullptr && env->ExceptionCheck() == JNI_FALSE) {
    if (held_) chars_ = env->GetStringUTFChars(s, nullptr);
  }
  JavaChars(JavaChars &&other) noexcept
      : env_(other.env_), s_(other.s_), chars_(other.chars_), held_(other.held_) {
    other.held_ = false;
  }
  JavaChars(const JavaChars &) = delete;
  JavaChars &operator=(const JavaChars &) = delete;
  JavaChars &operator=(JavaChars &&) = delete;
  ~JavaChars() { release(); }

  // The text, or NULL (null string or failed copy).
  const char *get() const { return chars_; }
  // The text, or "" where it is NULL: for platform arguments that must never be NULL.
  const char *or_empty() const { return chars_ != nullptr ? chars_ : ""; }
  bool is_null() const { return chars_ == nullptr; }

  // Gives the text back with ReleaseStringUTFChars(s, chars). A failed copy is released too,
  // passing its NULL pointer, as the bridge always has. Idempotent; a no-op for a null string.
  void release() {
    if (!held_) return;
    held_ = false;
    env_->ReleaseStringUTFChars(s_, chars_);
  }

  // Deliberately never gives the text back (the JVM keeps the copy for the life of the
  // string). Used only where the bridge has always left a text unreleased.
  void keep() { held_ = false; }

 private:
  JNIEnv *env_;
  jstring s_;
  const char *chars_;
  bool held_;
};

// A local reference deleted when it goes out of scope, so loops over Java arrays do not
// fill the JVM's local reference table.
template <typename T>
class LocalRef {
 public:
  LocalRef(JNIEnv *env, T ref) : env_(env), ref_(ref) {}
  LocalRef(const LocalRef &) = delete;
  LocalRef &operator=(const LocalRef &) = delete;
  ~LocalRef() {
    if (ref_ != nullptr) env_->DeleteLocalRef(ref_);
  }
  T get() const { return ref_; }

 private:
  JNIEnv *env_;
  T ref_;
};

// True when a JNI call has left an exception pending (ExceptionCheck). A native that sees it
// after its acquires releases what it holds and returns its failure value at once, without
// any platform call and without a reply string.
inline bool exception_pending(JNIEnv *env) { return env->ExceptionCheck() == JNI_TRUE; }

// After a native's acquires: when an exception is pending, releases `texts` in the order
// given (the failed one with its NULL, those never obtained not at all) and answers true; the
// native then returns its failure value at once. One ExceptionCheck per call.
template <typename... Texts>
inline bool acquire_failed(JNIEnv *env, Texts &...texts) {
  if (!exception_pending(env)) return false;
  (texts.release(), ...);
  return true;
}

// Copies the text of `s` into `buf` of `size` bytes exactly as strncpy(buf, text, size - 1)
// into a zeroed buffer leaves it (the text cut at size - 1 bytes, every byte after it zero),
// and gives the text back at once (a failed copy too, with its NULL). False, with `buf`
// untouched, when the text could not be had (a null string included).
bool take_text(JNIEnv *env, jstring s, char *buf, size_t size);
template <size_t N>
inline bool take_text(JNIEnv *env, jstring s, char (&buf)[N]) {
  return take_text(env, s, buf, N);
}

struct TraceName;

// take_text for a text a check may refuse: `refusal(kind, text)` gives NULL for an accepted
// text, or the trace line (its %s is the text) that refuses it. A refused text is traced under
// `native` and kept on purpose (never given back), as the gateway has always done. False, with
// `buf` untouched, when the text is refused or could not be had.
bool take_checked_text(JNIEnv *env, TraceName native, jstring s,
                       const char *(*refusal)(int kind, const char *text), int kind, char *buf,
                       size_t size);

// The same bytes for a C text: `text` cut at size - 1 bytes into `buf`, zero after it.
void copy_padded(char *buf, size_t size, const char *text);
template <size_t N>
inline void copy_padded(char (&buf)[N], const char *text) {
  copy_padded(buf, N, text);
}

// Length of a Java array; a null array counts as empty, and so does any array while an
// exception is pending (no JNI call is made then).
inline jsize array_length(JNIEnv *env, jobjectArray array) {
  if (array == nullptr || exception_pending(env)) return 0;
  return env->GetArrayLength(array);
}

}  // namespace bundle

#endif
