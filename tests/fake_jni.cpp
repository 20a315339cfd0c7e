#include "tests/fake_jni.h"

#include <gtest/gtest.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <utility>

namespace fakejni {

enum class Kind { String, Array, LocalRef, ByteArray };

struct Object {
  Object(Kind k, int i, const std::string &t) : kind(k), id(i), text(t) {}
  Kind kind;
  int id;
  std::string text;                // String
  bool fail_chars = false;         // String
  std::vector<jobject> elements;   // Array
  Object *target = nullptr;        // LocalRef
  bool deleted = false;            // LocalRef
  std::vector<char *> borrowed;    // String: copies handed out, not yet released
  std::string bytes;               // ByteArray
  bool fail_pin = false;           // ByteArray
};

namespace {

// One fake JVM per thread: tests that call natives from several threads give each its own.
thread_local FakeJvm *g_current = nullptr;

constexpr size_t kSlots = sizeof(JNINativeInterface_) / sizeof(void *);

template <size_t N>
void forbidden() {
  fprintf(stderr, "fake JNI: the library called JNI function slot %zu, which it must not use\n", N);
  abort();
}

template <size_t... I>
void fill_traps(void **slots, std::index_sequence<I...>) {
  ((slots[I] = reinterpret_cast<void *>(&forbidden<I>)), ...);
}

jint JNICALL get_array_length(JNIEnv *, jarray a) {
  FakeJvm *jvm = FakeJvm::current();
  Object *o = jvm->resolve(a);
  jvm->event("GetArrayLength(" + jvm->name(a) + ")");
  if (o == nullptr || o->kind != Kind::Array) {
    jvm->error("GetArrayLength on a non-array");
    return 0;
  }
  return static_cast<jint>(o->elements.size());
}

jobject JNICALL get_object_array_element(JNIEnv *, jobjectArray a, jsize i) {
  FakeJvm *jvm = FakeJvm::current();
  Object *o = jvm->resolve(a);
  jvm->event("GetObjectArrayElement(" + jvm->name(a) + "," + std::to_string(i) + ")");
  if (o == nullptr || o->kind != Kind::Array || i < 0 ||
      static_cast<size_t>(i) >= o->elements.size()) {
    jvm->error("GetObjectArrayElement out of bounds");
    return nullptr;
  }
  jobject e = o->elements[static_cast<size_t>(i)];
  return e == nullptr ? nullptr : jvm->new_local(jvm->resolve(e));
}

void JNICALL delete_local_ref(JNIEnv *, jobject o) { FakeJvm::current()->delete_local(o); }

const char *JNICALL get_string_utf_chars(JNIEnv *, jstring s, jboolean *is_copy) {
  if (is_copy != nullptr) FakeJvm::current()->error("GetStringUTFChars with a copy flag");
  return FakeJvm::current()->get_chars(s);
}

void JNICALL release_string_utf_chars(JNIEnv *, jstring s, const char *chars) {
  FakeJvm::current()->release_chars(s, chars);
}

jstring JNICALL new_string_utf(JNIEnv *, const char *utf) { return FakeJvm::current()->new_string(utf); }

jbyte *JNICALL get_byte_array_elements(JNIEnv *, jbyteArray a, jboolean *is_copy) {
  if (is_copy != nullptr) *is_copy = JNI_TRUE;
  return FakeJvm::current()->pin(a);
}

void JNICALL release_byte_array_elements(JNIEnv *, jbyteArray a, jbyte *elements, jint mode) {
  FakeJvm::current()->unpin(a, elements, mode);
}

void JNICALL get_byte_array_region(JNIEnv *, jbyteArray a, jsize start, jsize length, jbyte *out) {
  FakeJvm::current()->copy_region(a, start, length, out);
}

jboolean JNICALL exception_check(JNIEnv *) {
  FakeJvm *jvm = FakeJvm::current();
  jvm->count_exception_check();
  return jvm->pending_exception().empty() ? JNI_FALSE : JNI_TRUE;
}

jthrowable JNICALL exception_occurred(JNIEnv *) {
  FakeJvm *jvm = FakeJvm::current();
  jvm->count_exception_check();
  // A stand-in reference: the library only compares it with NULL.
  return jvm->pending_exception().empty() ? nullptr
                                          : reinterpret_cast<jthrowable>(jvm->self());
}

// Pinned copies sit between guard bytes, as a checking JVM places them, so a write outside
// the elements is found when they are released.
constexpr size_t kGuard = 32;
constexpr unsigned char kGuardByte = 0xA5;

}  // namespace

FakeJvm::FakeJvm() {
  memset(&table_, 0, sizeof table_);
  fill_traps(reinterpret_cast<void **>(&table_), std::make_index_sequence<kSlots>());
  table_.GetArrayLength = get_array_length;
  table_.GetObjectArrayElement = get_object_array_element;
  table_.DeleteLocalRef = delete_local_ref;
  table_.GetStringUTFChars = get_string_utf_chars;
  table_.ReleaseStringUTFChars = release_string_utf_chars;
  table_.NewStringUTF = new_string_utf;
  table_.GetByteArrayElements = get_byte_array_elements;
  table_.ReleaseByteArrayElements = release_byte_array_elements;
  table_.GetByteArrayRegion = get_byte_array_region;
  table_.ExceptionCheck = exception_check;
  table_.ExceptionOccurred = exception_occurred;
  env_.functions = &table_;
  g_current = this;
}

FakeJvm::~FakeJvm() {
  for (auto &o : objects_)
    for (char *c : o.borrowed) free(c);
  for (auto &p : pins_live_) free(p.block);
  if (g_current == this) g_current = nullptr;
}

FakeJvm *FakeJvm::current() {
  if (g_current == nullptr) {
    fprintf(stderr, "fake JNI: no FakeJvm alive\n");
    abort();
  }
  return g_current;
}

jstring FakeJvm::str(const std::string &utf) {
  objects_.emplace_back(Object(Kind::String, next_id_++, utf));
  return reinterpret_cast<jstring>(&objects_.back());
}

jstring FakeJvm::failing_str(const std::string &utf) {
  jstring s = str(utf);
  resolve(s)->fail_chars = true;
  return s;
}

jobjectArray FakeJvm::array(const std::vector<jstring> &elements) {
  Object o{Kind::Array, next_id_++, ""};
  o.elements.assign(elements.begin(), elements.end());
  objects_.push_back(std::move(o));
  return reinterpret_cast<jobjectArray>(&objects_.back());
}

jobjectArray FakeJvm::array_of(const std::vector<std::string> &texts) {
  std::vector<jstring> elements;
  for (auto &t : texts) elements.push_back(str(t));
  return array(elements);
}

jbyteArray FakeJvm::bytes(const std::vector<jbyte> &contents) {
  return bytes_of(std::string(contents.begin(), contents.end()));
}

jbyteArray FakeJvm::bytes_of(const std::string &contents) {
  objects_.emplace_back(Object(Kind::ByteArray, next_id_++, ""));
  objects_.back().bytes = contents;
  return reinterpret_cast<jbyteArray>(&objects_.back());
}

jbyteArray FakeJvm::failing_bytes(const std::string &contents) {
  jbyteArray a = bytes_of(contents);
  resolve(a)->fail_pin = true;
  return a;
}

std::string FakeJvm::contents(jbyteArray a) const {
  Object *o = const_cast<FakeJvm *>(this)->resolve(a);
  return o != nullptr && o->kind == Kind::ByteArray ? o->bytes : std::string();
}

int FakeJvm::pinned() const { return static_cast<int>(pins_live_.size()); }

bool FakeJvm::lent(const void *addr, long length) const {
  if (length < 0) return false;
  uintptr_t begin = reinterpret_cast<uintptr_t>(addr);
  for (auto &p : pins_live_) {
    uintptr_t base = reinterpret_cast<uintptr_t>(p.block + kGuard);
    if (begin >= base && begin - base <= p.length &&
        static_cast<size_t>(length) <= p.length - (begin - base))
      return true;
  }
  return false;
}

jbyte *FakeJvm::pin(jbyteArray a) {
  Object *o = resolve(a);
  event("GetByteArrayElements(" + name(a) + ")");
  ++pins_;
  if (o == nullptr || o->kind != Kind::ByteArray) {
    error("GetByteArrayElements on a null or non-byte-array object");
    return nullptr;
  }
  if (o->fail_pin) {
    pending_exception_ = "java/lang/OutOfMemoryError";
    return nullptr;
  }
  size_t n = o->bytes.size();
  char *block = static_cast<char *>(malloc(n + 2 * kGuard));
  memset(block, kGuardByte, n + 2 * kGuard);
  if (n > 0) memcpy(block + kGuard, o->bytes.data(), n);
  pins_live_.push_back(Pin{o, block, n});
  return reinterpret_cast<jbyte *>(block + kGuard);
}

void FakeJvm::unpin(jbyteArray a, jbyte *elements, jint mode) {
  Object *o = resolve(a);
  event("ReleaseByteArrayElements(" + name(a) + "," + std::to_string(mode) + ")");
  ++pin_releases_;
  release_modes_.push_back(mode);
  for (auto it = pins_live_.begin(); it != pins_live_.end(); ++it) {
    if (it->array != o || reinterpret_cast<char *>(elements) != it->block + kGuard) continue;
    for (size_t i = 0; i < kGuard; ++i) {
      if (static_cast<unsigned char>(it->block[i]) != kGuardByte ||
          static_cast<unsigned char>(it->block[kGuard + it->length + i]) != kGuardByte) {
        error("pinned byte[] written outside its elements");
        break;
      }
    }
    if (mode == 0 || mode == JNI_COMMIT) o->bytes.assign(it->block + kGuard, it->length);
    if (mode != JNI_COMMIT) {
      free(it->block);
      pins_live_.erase(it);
    }
    return;
  }
  error("ReleaseByteArrayElements of elements not pinned from this array");
}

void FakeJvm::copy_region(jbyteArray a, jsize start, jsize length, jbyte *out) {
  Object *o = resolve(a);
  event("GetByteArrayRegion(" + name(a) + "," + std::to_string(start) + "," +
        std::to_string(length) + ")");
  if (o == nullptr || o->kind != Kind::ByteArray) {
    error("GetByteArrayRegion on a null or non-byte-array object");
    return;
  }
  long long size = static_cast<long long>(o->bytes.size());
  if (start < 0 || length < 0 || static_cast<long long>(start) + length > size) {
    pending_exception_ = "java/lang/ArrayIndexOutOfBoundsException";
    return;
  }
  if (length > 0) memcpy(out, o->bytes.data() + start, static_cast<size_t>(length));
}

Object *FakeJvm::resolve(jobject o) {
  if (o == nullptr) return nullptr;
  Object *obj = reinterpret_cast<Object *>(o);
  if (obj->kind == Kind::LocalRef) {
    if (obj->deleted) error("use of a deleted local reference");
    return obj->target;
  }
  return obj;
}

std::string FakeJvm::name(jobject o) {
  Object *obj = resolve(o);
  if (obj == nullptr) return "null";
  const char *prefix = obj->kind == Kind::Array ? "a" : obj->kind == Kind::ByteArray ? "b" : "s";
  return prefix + std::to_string(obj->id);
}

jobject FakeJvm::new_local(Object *target) {
  objects_.emplace_back(Object(Kind::LocalRef, 0, ""));
  objects_.back().target = target;
  if (++live_locals_ > max_live_locals_) max_live_locals_ = live_locals_;
  return reinterpret_cast<jobject>(&objects_.back());
}

void FakeJvm::delete_local(jobject o) {
  if (o == nullptr) return;
  Object *obj = reinterpret_cast<Object *>(o);
  event("DeleteLocalRef(" + name(o) + ")");
  if (obj->kind != Kind::LocalRef || obj->deleted) {
    error("DeleteLocalRef of something that is not a live local reference");
    return;
  }
  obj->deleted = true;
  --live_locals_;
}

const char *FakeJvm::get_chars(jstring s) {
  Object *o = resolve(s);
  event("GetStringUTFChars(" + name(s) + ")");
  ++acquired_;
  if (o == nullptr || o->kind != Kind::String) {
    error("GetStringUTFChars on a null or non-string object");
    return nullptr;
  }
  if (o->fail_chars) {
    // As HotSpot: the copy could not be made, NULL comes back with the error pending.
    pending_exception_ = "java/lang/OutOfMemoryError";
    if (on_failed_copy_) on_failed_copy_();
    return nullptr;
  }
  char *copy = strdup(o->text.c_str());
  o->borrowed.push_back(copy);
  return copy;
}

void FakeJvm::release_chars(jstring s, const char *chars) {
  Object *o = resolve(s);
  event("ReleaseStringUTFChars(" + name(s) + (chars == nullptr ? ",NULL)" : ")"));
  ++released_;
  if (o == nullptr || o->kind != Kind::String) {
    error("ReleaseStringUTFChars on a null or non-string object");
    return;
  }
  if (chars == nullptr) {
    ++null_releases_;
    return;
  }
  for (auto it = o->borrowed.begin(); it != o->borrowed.end(); ++it) {
    if (*it == chars) {
      free(*it);
      o->borrowed.erase(it);
      return;
    }
  }
  if (release_by_pointer_) {
    for (auto &other : objects_) {
      for (auto it = other.borrowed.begin(); it != other.borrowed.end(); ++it) {
        if (*it == chars) {
          free(*it);
          other.borrowed.erase(it);
          return;
        }
      }
    }
  }
  error("ReleaseStringUTFChars with a text not borrowed from this string");
}

// With BUNDLE_REPLY_TRANSCRIPT set, every reply handed to NewStringUTF is appended to that
// file as "<test>\t<reply, escaped>" so the replies of two builds (x86-64 and MIPS) can be
// compared byte for byte.
static void transcribe(const char *utf) {
  const char *path = getenv("BUNDLE_REPLY_TRANSCRIPT");
  if (path == nullptr || *path == '\0') return;
  FILE *f = fopen(path, "a");
  if (f == nullptr) return;
  const ::testing::TestInfo *t = ::testing::UnitTest::GetInstance()->current_test_info();
  fprintf(f, "%s.%s\t", t != nullptr ? t->test_suite_name() : "-", t != nullptr ? t->name() : "-");
  for (const unsigned char *p = reinterpret_cast<const unsigned char *>(utf); *p; ++p) {
    if (*p == '\\' || *p < 0x20 || *p >= 0x7F)
      fprintf(f, "\\x%02X", *p);
    else
      fputc(*p, f);
  }
  fputc('\n', f);
  fclose(f);
}

jstring FakeJvm::new_string(const char *utf) {
  event("NewStringUTF");
  ++new_strings_;
  if (utf == nullptr) {
    error("NewStringUTF(NULL)");
    return nullptr;
  }
  transcribe(utf);
  if (!is_modified_utf8(utf)) error(std::string("NewStringUTF with invalid modified UTF-8: ") + utf);
  if (fail_new_string_) return nullptr;
  objects_.emplace_back(Object(Kind::String, next_id_++, utf));
  return static_cast<jstring>(new_local(&objects_.back()));
}

std::string FakeJvm::text(jstring s) const {
  if (s == nullptr) return "<null>";
  Object *o = const_cast<FakeJvm *>(this)->resolve(s);
  return o != nullptr ? o->text : "<null>";
}

int FakeJvm::outstanding() const {
  int n = 0;
  for (auto &o : objects_) n += static_cast<int>(o.borrowed.size());
  return n;
}

std::string FakeJvm::events_text() const {
  std::string out;
  for (auto &e : events_) out += e + "\n";
  return out;
}

bool is_modified_utf8(const std::string &str) {
  const unsigned char *s = reinterpret_cast<const unsigned char *>(str.c_str());
  size_t n = str.size();
  for (size_t i = 0; i < n;) {
    unsigned char c = s[i];
    if (c == 0) return false;
    if (c < 0x80) {
      ++i;
    } else if ((c & 0xE0) == 0xC0) {
      // two bytes; C0 80 is the encoded NUL, other overlong forms are refused
      if (i + 1 >= n || (s[i + 1] & 0xC0) != 0x80) return false;
      if (c < 0xC2 && !(c == 0xC0 && s[i + 1] == 0x80)) return false;
      i += 2;
    } else if ((c & 0xF0) == 0xE0) {
      if (i + 2 >= n || (s[i + 1] & 0xC0) != 0x80 || (s[i + 2] & 0xC0) != 0x80) return false;
      if (c == 0xE0 && s[i + 1] < 0xA0) return false;
      i += 3;
    } else {
      return false;  // four-byte forms and stray bytes are not modified UTF-8
    }
  }
  return true;
}

}  // namespace fakejni
