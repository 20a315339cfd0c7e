// Platform library (libbrelo.so.1): the analogue telephone ports (POTS lines) and VoIP event
// subscriptions.
#ifndef BUNDLE_COMMON_PLATFORM_VOIP_H
#define BUNDLE_COMMON_PLATFORM_VOIP_H

#include <stddef.h>
#include <stdint.h>

// Line status codes as the platform reports them (an index into the status names).
enum PotsLineStatus {
  POTS_STATUS_SUCCESS = 0,
  POTS_STATUS_IADERROR = 1,
  POTS_STATUS_NOROUTE = 2,
  POTS_STATUS_NORESPONSE = 3,
  POTS_STATUS_ACCOUNTERR = 4,
  POTS_STATUS_UNKNOWN = 5,
};

// One node of a line's information list (40 bytes on the 32-bit gateway). The platform
// malloc()s every node; the receiver frees each one with free().
struct PotsLineNode {
  PotsLineNode *next;  // null at the end
  char phone_number[32];
  int32_t status;      // PotsLineStatus
};
#if UINTPTR_MAX == 0xFFFFFFFFu
static_assert(sizeof(PotsLineNode) == 40, "PotsLineNode is 40 bytes");
static_assert(offsetof(PotsLineNode, phone_number) == 4, "phone number at 4");
static_assert(offsetof(PotsLineNode, status) == 36, "status at 36");
#else
static_assert(offsetof(PotsLineNode, phone_number) == sizeof(void *), "phone number after next");
static_assert(offsetof(PotsLineNode, status) == sizeof(void *) + 32, "status after the number");
#endif

extern "C" {
int brelo_voipGetNumberOfPOTS(void);
// `line` is 1-based; *list is left null when the line has no information. The result is not
// meaningful to callers.
int brelo_voipGetLineInfo(int line, PotsLineNode **list);
// `eventList` is a comma-separated list of event names.
int brelo_subscribeVoIPEvent(const char *subscriber, const char *eventList);
int brelo_unSubscribeVoIPEvent(const char *subscriber, const char *eventList);
}

#endif
