// JNI face of the gateway simulator's control interface, for bundlesc.sim.GatewaySim.
#include <jni.h>
#include <string.h>

#include <string>

#include "sim/sim_control.h"

namespace {

// A Java text as a C++ string of its modified UTF-8 bytes ("" for null).
std::string text(JNIEnv *env, jstring s) {
  if (s == nullptr) return std::string();
  const char *chars = env->GetStringUTFChars(s, nullptr);
  std::string out = chars != nullptr ? chars : "";
  env->ReleaseStringUTFChars(s, chars);
  return out;
}

std::string bytes(JNIEnv *env, jbyteArray a) {
  if (a == nullptr) return std::string();
  jsize n = env->GetArrayLength(a);
  std::string out(static_cast<size_t>(n), '\0');
  env->GetByteArrayRegion(a, 0, n, reinterpret_cast<jbyte *>(&out[0]));
  return out;
}

jbyteArray to_bytes(JNIEnv *env, const char *s) {
  jsize n = static_cast<jsize>(strlen(s));
  jbyteArray a = env->NewByteArray(n);
  if (a != nullptr) env->SetByteArrayRegion(a, 0, n, reinterpret_cast<const jbyte *>(s));
  return a;
}

}  // namespace

extern "C" {

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_reset(JNIEnv *, jclass) { sim_reset(); }

JNIEXPORT jint JNICALL Java_bundlesc_sim_GatewaySim_loadDefault(JNIEnv *, jclass) {
  return sim_load_default();
}

JNIEXPORT jint JNICALL Java_bundlesc_sim_GatewaySim_loadFresh(JNIEnv *, jclass) {
  return sim_load_fresh();
}

JNIEXPORT jint JNICALL Java_bundlesc_sim_GatewaySim_load(JNIEnv *env, jclass, jstring path) {
  return sim_load(text(env, path).c_str());
}

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_setBytes(JNIEnv *env, jclass, jstring section,
                                                              jstring key, jbyteArray value) {
  std::string v = bytes(env, value);
  sim_set(text(env, section).c_str(), text(env, key).c_str(), v.c_str());
}

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_unset(JNIEnv *env, jclass, jstring section,
                                                           jstring key) {
  std::string k = text(env, key);
  sim_unset(text(env, section).c_str(), key != nullptr ? k.c_str() : nullptr);
}

JNIEXPORT jbyteArray JNICALL Java_bundlesc_sim_GatewaySim_getBytes(JNIEnv *env, jclass,
                                                                    jstring section, jstring key) {
  const char *v = sim_get(text(env, section).c_str(), text(env, key).c_str());
  return v != nullptr ? to_bytes(env, v) : nullptr;
}

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_programResult(JNIEnv *env, jclass, jstring fn,
                                                                   jint rc) {
  sim_program_result(text(env, fn).c_str(), rc);
}

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_clearResult(JNIEnv *env, jclass, jstring fn) {
  sim_clear_result(text(env, fn).c_str());
}

JNIEXPORT jint JNICALL Java_bundlesc_sim_GatewaySim_platformFunction(JNIEnv *env, jclass, jstring fn) {
  return sim_platform_function(text(env, fn).c_str());
}

JNIEXPORT jboolean JNICALL Java_bundlesc_sim_GatewaySim_hasSection(JNIEnv *env, jclass, jstring section) {
  return sim_section_exists(text(env, section).c_str()) != 0 ? JNI_TRUE : JNI_FALSE;
}

JNIEXPORT jbyteArray JNICALL Java_bundlesc_sim_GatewaySim_logBytes(JNIEnv *env, jclass) {
  return to_bytes(env, sim_log());
}

JNIEXPORT jbyteArray JNICALL Java_bundlesc_sim_GatewaySim_logResultsBytes(JNIEnv *env, jclass) {
  return to_bytes(env, sim_log_results());
}

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_clearLog(JNIEnv *, jclass) { sim_clear_log(); }

JNIEXPORT jint JNICALL Java_bundlesc_sim_GatewaySim_logCount(JNIEnv *env, jclass, jstring fn) {
  return sim_log_count(text(env, fn).c_str());
}

JNIEXPORT void JNICALL Java_bundlesc_sim_GatewaySim_setSavePath(JNIEnv *env, jclass, jstring path) {
  std::string p = text(env, path);
  sim_set_save_path(path != nullptr ? p.c_str() : nullptr);
}

}  // extern "C"
