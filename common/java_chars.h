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
#ifndef BUNDLE_COMMON_JAVA_CHARS_H
#define BUNDLE_COMMON_JAVA_CHARS_H

#include <jni.h>

namespace bundle {

class JavaChars {
 public:
  // Borrows the modified-UTF-8 text of `s`. A null `s` reads as a NULL text without any JNI
  // call (a JVM would abort on it); a JVM that cannot copy the text also gives NULL.
  JavaChars(JNIEnv *env, jstring s)
      : env_(env), s_(s), chars_(s != nullptr ? env->GetStringUTFChars(s, nullptr) : nullptr),
        held_(s != nullptr) {}
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

// Length of a Java array; a null array counts as empty.
inline jsize array_length(JNIEnv *env, jobjectArray array) {
  return array != nullptr ? env->GetArrayLength(array) : 0;
}

}  // namespace bundle

#endif
