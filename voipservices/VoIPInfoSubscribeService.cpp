// com.lumarest.smartgateway.voipservices.VoIPInfoSubscribeServiceImp: registers and withdraws
// a subscriber's interest in VoIP events with the platform. Both natives answer 0 whatever the
// platform says.
#include <stdio.h>

#include "common/array_readers.h"
#include "common/native.h"
#include "common/platform_voip.h"

namespace {

// The event subscribed to when Java names none.
const char kDefaultEvents[] = "NOTIFY_VOICE_CALL_INFO";

typedef int (*EventSubscription)(const char *subscriber, const char *eventList);

// Joins the events (at most 511 characters, cut there), falls back to the default event when
// none is given, and hands the list to the platform with the subscriber's text.
void change_subscription(JNIEnv *env, jstring jsubscriber, jobjectArray events,
                         EventSubscription platform) {
  char eventList[512] = {};
  parseObjecArray(env, events, eventList, sizeof eventList);
  if (bundle::exception_pending(env)) return;  // an event text could not be obtained
  if (eventList[0] == '\0') snprintf(eventList, sizeof eventList, "%s", kDefaultEvents);

  bundle::JavaChars subscriber(env, jsubscriber);
  if (bundle::exception_pending(env)) {
    subscriber.keep();  // never given back, as on every other path
    return;
  }
  // A null subscriber (or one the JVM could not copy) reaches the platform as the empty text.
  platform(subscriber.or_empty(), eventList);
  // Kept on purpose: the subscriber text is never given back.
  subscriber.keep();
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_subscribeVoIPEventJni(
    JNIEnv *env, jobject, jstring subscriber, jobjectArray events) {
  BUNDLE_TRACE_PUTS("========= subscribeVoIPEvent enter==========>");
  change_subscription(env, subscriber, events, brelo_subscribeVoIPEvent);
  BUNDLE_TRACE_PUTS("<========= subscribeVoIPEvent leave==========");
  return 0;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_voipservices_VoIPInfoSubscribeServiceImp_unSubscribeVoIPEventJni(
    JNIEnv *env, jobject, jstring subscriber, jobjectArray events) {
  BUNDLE_TRACE_PUTS("========= unSubscribeVoIPEvent enter==========>");
  change_subscription(env, subscriber, events, brelo_unSubscribeVoIPEvent);
  // Kept on purpose: this closing banner has no line feed.
  BUNDLE_TRACE("<========= unSubscribeVoIPEvent leave==========");
  return 0;
}

}  // extern "C"
