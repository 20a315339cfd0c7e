// A fake JNIEnv for unit tests. It implements only the JNI functions the bridge may call and
// aborts, naming the slot, on any other; it accounts every borrowed text and local reference,
// and checks that every reply handed to NewStringUTF is valid modified UTF-8.
#ifndef TESTS_FAKE_JNI_H
#define TESTS_FAKE_JNI_H

#include <jni.h>

#include <functional>
#include <list>
#include <string>
#include <vector>

namespace fakejni {

struct Object;

class FakeJvm {
 public:
  FakeJvm();
  ~FakeJvm();
  FakeJvm(const FakeJvm &) = delete;
  FakeJvm &operator=(const FakeJvm &) = delete;

  JNIEnv *env() { return &env_; }
  jobject self() { return reinterpret_cast<jobject>(&self_tag_); }

  // A Java string whose modified-UTF-8 text is `utf`.
  jstring str(const std::string &utf);
  // A Java string whose text the JVM cannot copy: GetStringUTFChars returns NULL with an
  // OutOfMemoryError pending, as HotSpot does.
  jstring failing_str(const std::string &utf = "x");
  // A Java String[] of the given elements (a null element stays null).
  jobjectArray array(const std::vector<jstring> &elements);
  jobjectArray array_of(const std::vector<std::string> &texts);
  // A Java byte[] holding `contents`.
  jbyteArray bytes(const std::vector<jbyte> &contents);
  jbyteArray bytes_of(const std::string &contents);
  // A byte[] the JVM cannot pin: GetByteArrayElements returns NULL with an OutOfMemoryError
  // pending.
  jbyteArray failing_bytes(const std::string &contents = "x");
  // The current contents of a byte[] (what Java would see).
  std::string contents(jbyteArray a) const;

  // The bytes of a string made by the library with NewStringUTF; "<null>" for NULL.
  std::string text(jstring s) const;
  bool is_null(jstring s) const { return s == nullptr; }

  // Accounting.
  int acquired() const { return acquired_; }            // GetStringUTFChars calls
  int released() const { return released_; }            // ReleaseStringUTFChars calls
  int null_releases() const { return null_releases_; }  // of those, with a NULL text
  int outstanding() const;                              // texts copied and not given back
  int live_local_refs() const { return live_locals_; }
  int max_live_local_refs() const { return max_live_locals_; }
  int new_strings() const { return new_strings_; }
  int pins() const { return pins_; }                   // GetByteArrayElements calls
  int pin_releases() const { return pin_releases_; }   // ReleaseByteArrayElements calls
  int pinned() const;                                  // pinned buffers not given back
  // The modes of the ReleaseByteArrayElements calls, in order.
  const std::vector<jint> &release_modes() const { return release_modes_; }
  // True when [addr, addr + length) lies within one buffer pinned now: memory the library
  // may lend to the platform.
  bool lent(const void *addr, long length) const;
  // The exception a JNI call left pending ("" for none), e.g. when GetByteArrayRegion was
  // asked for elements outside the array. While one is pending, any JNI call but the
  // releases, DeleteLocalRef and the exception queries is misuse.
  const std::string &pending_exception() const { return pending_exception_; }
  void clear_exception() { pending_exception_.clear(); }
  // Leaves `name` pending, as a JNI call that failed would.
  void raise(const std::string &name) { pending_exception_ = name; }
  // ExceptionCheck/ExceptionOccurred calls. They are counted here, not logged in events().
  int exception_checks() const { return exception_checks_; }
  // Runs `f` each time a failing string's copy fails (e.g. to note the gateway's call log at
  // that moment).
  void on_failed_copy(std::function<void()> f) { on_failed_copy_ = std::move(f); }
  void count_exception_check() { ++exception_checks_; }
  // Misuse seen: bad release pointers, double releases, invalid modified UTF-8, ...
  const std::vector<std::string> &errors() const { return errors_; }
  // Every JNI call in order, e.g. "GetStringUTFChars(s1)", "ReleaseStringUTFChars(s1,NULL)".
  const std::vector<std::string> &events() const { return events_; }
  std::string events_text() const;
  // Makes NewStringUTF return NULL, as a JVM out of memory does.
  void fail_new_string(bool fail) { fail_new_string_ = fail; }
  // Lets ReleaseStringUTFChars free a text borrowed from another string than the one named,
  // as HotSpot does (it frees by the pointer); the call is still recorded under the name
  // passed. Off by default: naming the wrong string is then misuse.
  void release_by_pointer(bool on) { release_by_pointer_ = on; }

  // Implementation hooks (used by the function table).
  static FakeJvm *current();
  Object *resolve(jobject o);
  std::string name(jobject o);
  jobject new_local(Object *target);
  void delete_local(jobject o);
  void event(const std::string &e) {
    if (!pending_exception_.empty() && e.rfind("Release", 0) != 0 &&
        e.rfind("DeleteLocalRef", 0) != 0 && e.rfind("Exception", 0) != 0)
      error("JNI call with an exception pending: " + e);
    events_.push_back(e);
  }
  void error(const std::string &e) { errors_.push_back(e); }
  const char *get_chars(jstring s);
  void release_chars(jstring s, const char *chars);
  jstring new_string(const char *utf);
  jbyte *pin(jbyteArray a);
  void unpin(jbyteArray a, jbyte *elements, jint mode);
  void copy_region(jbyteArray a, jsize start, jsize length, jbyte *out);

 private:
  JNINativeInterface_ table_;
  JNIEnv env_;
  int self_tag_ = 0;
  std::list<Object> objects_;
  int next_id_ = 1;
  int acquired_ = 0, released_ = 0, null_releases_ = 0;
  int live_locals_ = 0, max_live_locals_ = 0, new_strings_ = 0;
  bool fail_new_string_ = false;
  bool release_by_pointer_ = false;
  std::vector<std::string> errors_;
  std::vector<std::string> events_;
  struct Pin {
    Object *array;
    char *block;  // guard bytes, the elements, guard bytes
    size_t length;
  };
  std::vector<Pin> pins_live_;
  int pins_ = 0, pin_releases_ = 0;
  std::vector<jint> release_modes_;
  std::string pending_exception_;
  int exception_checks_ = 0;
  std::function<void()> on_failed_copy_;
};

// True when `s` is valid modified UTF-8 (what NewStringUTF requires).
bool is_modified_utf8(const std::string &s);

}  // namespace fakejni

#endif
