// Pinning the elements of a Java byte[] for the platform to read or fill.
//
//     bundle::JavaBytes bytes(env, jarray);    // GetByteArrayElements(env, jarray, NULL)
//     if (bytes.get() != NULL) rc = brelo_something(bytes.get(), ...);
//     bytes.release();                         // ReleaseByteArrayElements(..., 0)
//
// Failure contract: a null array or a failed pin gives get() == NULL and no further JNI call.
#ifndef BUNDLE_COMMON_JAVA_BYTES_H
#define BUNDLE_COMMON_JAVA_BYTES_H

#include <jni.h>

namespace bundle {

class JavaBytes {
 public:
  // Pins the elements of `array`. A null array pins nothing without any JNI call (a JVM would
  // abort on it); a JVM that cannot pin gives NULL with an exception pending.
  JavaBytes(JNIEnv *env, jbyteArray array)
      : env_(env), array_(array),
        elements_(array != nullptr ? env->GetByteArrayElements(array, nullptr) : nullptr) {}
  JavaBytes(JavaBytes &&other) noexcept
      : env_(other.env_), array_(other.array_), elements_(other.elements_) {
    other.elements_ = nullptr;
  }
  JavaBytes(const JavaBytes &) = delete;
  JavaBytes &operator=(const JavaBytes &) = delete;
  JavaBytes &operator=(JavaBytes &&) = delete;
  ~JavaBytes() { release(); }

  // The pinned elements, or NULL (null array or failed pin).
  jbyte *get() const { return elements_; }
  bool is_null() const { return elements_ == nullptr; }

  // Copies `length` elements of the array, from `offset` on, into the start of the pinned
  // elements (GetByteArrayRegion). The JVM checks the range: outside the array it copies
  // nothing and leaves an ArrayIndexOutOfBoundsException pending, after which only the
  // release is made. Nothing happens when nothing is pinned.
  void copy_region_to_start(jsize offset, jsize length) {
    if (elements_ != nullptr) env_->GetByteArrayRegion(array_, offset, length, elements_);
  }

  // Gives the elements back with mode 0: the JVM copies them into the array and frees its
  // buffer, so whatever the platform wrote there reaches Java. Idempotent; a no-op when
  // nothing was pinned (allowed with an exception pending).
  void release() {
    if (elements_ == nullptr) return;
    jbyte *elements = elements_;
    elements_ = nullptr;
    env_->ReleaseByteArrayElements(array_, elements, 0);
  }

 private:
  JNIEnv *env_;
  jbyteArray array_;
  jbyte *elements_;
};

}  // namespace bundle

#endif
