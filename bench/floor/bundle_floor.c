/* The floor of a conforming native, for the JVM benchmark of the bridge (BridgeBench).
 *
 * A native of the bridge cannot cost less than a bare native that makes the same number of
 * flag-file checks (every trace point asks access("/tmp/brelo_debug") afresh, and the natives
 * of the USB handles and of WPS ask for their own flag files, /tmp/usbapi_test and
 * /tmp/wps_debug, on every call), reads the same Java arguments (every text borrowed and
 * given back, every text of a String[] too, every byte[] pinned and released) and hands the
 * same answer to Java. This library is that bare native, and the counter that tells the
 * benchmark how many checks each native of the bridge makes:
 *
 *  - preloaded (LD_PRELOAD), its access() stands in front of the C library's and counts the
 *    calls that ask for a flag file, then forwards every call to the real access();
 *  - bundlesc.bench.Floor.prepareText/prepareInt keep an answer and a check count in a slot;
 *    floorText/floorInt(slot, args) read the native's arguments, make that many access() calls
 *    on the flag path (through the same counting access(), as the bridge's do) and answer the
 *    kept text (NewStringUTF) or int.
 *
 * Bench only: never linked into libbundle_sc.so.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <jni.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#define FLOOR_FLAG "/tmp/brelo_debug"
#define FLOOR_SLOTS 1024

typedef int (*access_fn)(const char *, int);

static access_fn real_access;
static long flag_checks;

static access_fn next_access(void) {
  access_fn fn = __atomic_load_n(&real_access, __ATOMIC_ACQUIRE);
  if (fn == NULL) {
    fn = (access_fn)dlsym(RTLD_NEXT, "access");
    __atomic_store_n(&real_access, fn, __ATOMIC_RELEASE);
  }
  return fn;
}

/* A null path goes on to the real access() (which fails with EFAULT), uncounted. */
static int is_flag(const char *path) {
  static const char *const flags[] = {FLOOR_FLAG, "/tmp/usbapi_test", "/tmp/wps_debug"};
  for (size_t i = 0; path != NULL && i < sizeof flags / sizeof flags[0]; i++) {
    if (strcmp(path, flags[i]) == 0) return 1;
  }
  return 0;
}

__attribute__((visibility("default"))) int access(const char *path, int mode) {
  if (is_flag(path)) {
    __atomic_fetch_add(&flag_checks, 1, __ATOMIC_RELAXED);
  }
  access_fn fn = next_access();
  return fn != NULL ? fn(path, mode) : -1;
}

struct slot {
  char *text; /* modified UTF-8, terminated; NULL: the native answered null */
  jint value;
  jint checks;
};

static struct slot slots[FLOOR_SLOTS];

static struct slot *slot_at(jint i) {
  return i >= 0 && i < FLOOR_SLOTS ? &slots[i] : NULL;
}

/* Reads the Java arguments as a native that takes them must: Strings and the Strings of a
 * String[] borrowed (GetStringUTFChars) and given back, byte[] pinned and released. Boxed
 * numbers stand for the int parameters, which cost nothing. */
static void read_arguments(JNIEnv *env, jobjectArray args) {
  static jclass string_class, strings_class, bytes_class;
  if (string_class == NULL) {
    string_class = (jclass)(*env)->NewGlobalRef(env, (*env)->FindClass(env, "java/lang/String"));
    strings_class = (jclass)(*env)->NewGlobalRef(env, (*env)->FindClass(env, "[Ljava/lang/String;"));
    bytes_class = (jclass)(*env)->NewGlobalRef(env, (*env)->FindClass(env, "[B"));
  }
  jsize n = args != NULL ? (*env)->GetArrayLength(env, args) : 0;
  for (jsize i = 0; i < n; i++) {
    jobject arg = (*env)->GetObjectArrayElement(env, args, i);
    if (arg == NULL) continue;
    if ((*env)->IsInstanceOf(env, arg, string_class)) {
      const char *chars = (*env)->GetStringUTFChars(env, (jstring)arg, NULL);
      if (chars != NULL) (*env)->ReleaseStringUTFChars(env, (jstring)arg, chars);
    } else if ((*env)->IsInstanceOf(env, arg, strings_class)) {
      jsize m = (*env)->GetArrayLength(env, (jobjectArray)arg);
      for (jsize k = 0; k < m; k++) {
        jstring text = (jstring)(*env)->GetObjectArrayElement(env, (jobjectArray)arg, k);
        if (text == NULL) continue;
        const char *chars = (*env)->GetStringUTFChars(env, text, NULL);
        if (chars != NULL) (*env)->ReleaseStringUTFChars(env, text, chars);
        (*env)->DeleteLocalRef(env, text);
      }
    } else if ((*env)->IsInstanceOf(env, arg, bytes_class)) {
      jbyte *bytes = (*env)->GetByteArrayElements(env, (jbyteArray)arg, NULL);
      if (bytes != NULL) (*env)->ReleaseByteArrayElements(env, (jbyteArray)arg, bytes, 0);
    }
    (*env)->DeleteLocalRef(env, arg);
  }
}

static void make_checks(jint checks) {
  for (jint i = 0; i < checks; i++) {
    (void)access(FLOOR_FLAG, F_OK);
  }
}

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Floor_interposed(JNIEnv *env, jclass cls) {
  /* True when this library's access() is the one every other library binds to: the first
   * definition in the global scope lies in this library. (Comparing with the address of
   * access as this library sees it would be true whoever comes first: that address is the
   * global one too.) */
  Dl_info first, self;
  void *bound = dlsym(RTLD_DEFAULT, "access");
  if (bound == NULL || !dladdr(bound, &first) || !dladdr((void *)slot_at, &self)) return JNI_FALSE;
  return first.dli_fbase == self.dli_fbase ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jlong JNICALL Java_bundlesc_bench_Floor_flagChecks(JNIEnv *env, jclass cls) {
  return (jlong)__atomic_load_n(&flag_checks, __ATOMIC_RELAXED);
}

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Floor_prepareText(JNIEnv *env, jclass cls,
                                                                jint i, jstring text,
                                                                jint checks) {
  struct slot *s = slot_at(i);
  if (s == NULL) return JNI_FALSE;
  free(s->text);
  s->text = NULL;
  s->checks = checks;
  if (text == NULL) return JNI_TRUE;
  jsize chars = (*env)->GetStringLength(env, text);
  jsize bytes = (*env)->GetStringUTFLength(env, text);
  s->text = (char *)malloc((size_t)bytes + 1);
  if (s->text == NULL) return JNI_FALSE;
  (*env)->GetStringUTFRegion(env, text, 0, chars, s->text);
  s->text[bytes] = '\0';
  return (*env)->ExceptionCheck(env) ? JNI_FALSE : JNI_TRUE;
}

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Floor_prepareInt(JNIEnv *env, jclass cls, jint i,
                                                               jint value, jint checks) {
  struct slot *s = slot_at(i);
  if (s == NULL) return JNI_FALSE;
  s->value = value;
  s->checks = checks;
  return JNI_TRUE;
}

JNIEXPORT jstring JNICALL Java_bundlesc_bench_Floor_floorText(JNIEnv *env, jclass cls, jint i,
                                                              jobjectArray args) {
  struct slot *s = slot_at(i);
  if (s == NULL) return NULL;
  read_arguments(env, args);
  make_checks(s->checks);
  return s->text != NULL ? (*env)->NewStringUTF(env, s->text) : NULL;
}

JNIEXPORT jint JNICALL Java_bundlesc_bench_Floor_floorInt(JNIEnv *env, jclass cls, jint i,
                                                         jobjectArray args) {
  struct slot *s = slot_at(i);
  if (s == NULL) return 0;
  read_arguments(env, args);
  make_checks(s->checks);
  return s->value;
}

JNIEXPORT jboolean JNICALL Java_bundlesc_bench_Floor_floorBoolean(JNIEnv *env, jclass cls, jint i,
                                                                 jobjectArray args) {
  struct slot *s = slot_at(i);
  if (s == NULL) return JNI_FALSE;
  read_arguments(env, args);
  make_checks(s->checks);
  return s->value != 0 ? JNI_TRUE : JNI_FALSE;
}
