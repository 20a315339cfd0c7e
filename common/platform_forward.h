// Platform library (libbrelo.so.1): traffic-forward rules and HTTP traffic-process rules,
// stored and enforced by the platform.
#ifndef BUNDLE_COMMON_PLATFORM_FORWARD_H
#define BUNDLE_COMMON_PLATFORM_FORWARD_H

#include <stddef.h>
#include <stdint.h>

// One traffic-forward rule: 24 bytes on the gateway (4-byte pointers). On an add the texts
// belong to the caller for the duration of the call; in a list every text and the array
// itself are malloc()ed by the platform and freed by the caller, field by field.
struct ForwardRule {
  char *remote_address;
  char *remote_port;  // a port or a range, as text
  char *protocol;
  char *host_mac;
  char *forward_to_ip;
  int32_t forward_to_port;
};
static_assert(offsetof(ForwardRule, remote_port) == 1 * sizeof(void *), "remote port after address");
static_assert(offsetof(ForwardRule, protocol) == 2 * sizeof(void *), "protocol third");
static_assert(offsetof(ForwardRule, host_mac) == 3 * sizeof(void *), "host MAC fourth");
static_assert(offsetof(ForwardRule, forward_to_ip) == 4 * sizeof(void *), "forward-to IP fifth");
static_assert(offsetof(ForwardRule, forward_to_port) == 5 * sizeof(void *), "port after the texts");
#if __SIZEOF_POINTER__ == 4
static_assert(sizeof(ForwardRule) == 24, "ForwardRule is 24 bytes");
static_assert(offsetof(ForwardRule, forward_to_port) == 20, "forward-to port at 20");
#endif

// One HTTP traffic-process rule: 32 bytes on the gateway. The three lists are comma-separated
// texts. The second list is the platform's own: given on add, never listed, and not freed by
// the caller of a list query.
struct HttpTrafficProcessRule {
  char *remote_address;
  int32_t remote_port;
  char *direction;
  char *host_mac;
  char *method_list;
  char *second_list;
  char *header_list;
  char *bundle_name;
};
#if __SIZEOF_POINTER__ == 4
static_assert(sizeof(HttpTrafficProcessRule) == 32, "HttpTrafficProcessRule is 32 bytes");
static_assert(offsetof(HttpTrafficProcessRule, remote_port) == 4, "remote port at 4");
static_assert(offsetof(HttpTrafficProcessRule, direction) == 8, "direction at 8");
static_assert(offsetof(HttpTrafficProcessRule, host_mac) == 12, "host MAC at 12");
static_assert(offsetof(HttpTrafficProcessRule, method_list) == 16, "method list at 16");
static_assert(offsetof(HttpTrafficProcessRule, second_list) == 20, "second list at 20");
static_assert(offsetof(HttpTrafficProcessRule, header_list) == 24, "header list at 24");
static_assert(offsetof(HttpTrafficProcessRule, bundle_name) == 28, "bundle name at 28");
#else
static_assert(offsetof(HttpTrafficProcessRule, direction) == 2 * sizeof(void *), "direction third");
static_assert(offsetof(HttpTrafficProcessRule, bundle_name) == 7 * sizeof(void *), "bundle name last");
static_assert(sizeof(HttpTrafficProcessRule) == 8 * sizeof(void *), "eight slots");
#endif

// Adds, deletes and delete-alls return the platform's own codes. The list queries return 0
// on success with *list a malloc()ed array of *count rules (or NULL); anything else fails,
// and whatever *list then holds is still the caller's to free.
extern "C" {
int brelo_addForwardRule(ForwardRule *rule);
int brelo_deleteForwardRule(int index);
int brelo_deleteAllForwardRule(void);
int brelo_getForwardRuleInfo(ForwardRule **list, int *count);

int brelo_addHTTPTrafficProcessRule(HttpTrafficProcessRule *rule);
int brelo_deleteHTTPTrafficProcessRule(int index);
int brelo_deleteAllHTTPTrafficProcessRule(void);
int brelo_getHTTPTrafficProcessRuleInfo(HttpTrafficProcessRule **list, int *count);
}

#endif
