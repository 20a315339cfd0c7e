// com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp: brings the L2TP VPN tunnel up
// and down, reports its state and addresses, and steers chosen destinations (IPv4 addresses
// or domain names) into it with host routes on the tunnel's interface.
//
// Host routes are made by the system's route tool, run through system() (bundle::run_command,
// which off the gateway runs nothing unless the simulator's host side stands in for it), so
// every text that reaches a command line is built here from numbers or from inet_ntop's
// output: a destination text from Java never reaches the shell, whatever it holds.
#include <arpa/inet.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>

#include "common/host_lookup.h"
#include "common/hardened.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_vpn.h"

extern "C" {
JNIEXPORT int isipv4str(const char *text);
JNIEXPORT int handle_route_of_domain(char *domain, const char *device, int mode);
}

namespace {

const char kSuccess[] = "{\"Result\":0}";
const char kFailure[] = "{\"Result\":-1}";

// Destinations taken from one Java array; the rest are ignored.
constexpr jsize kMaxDestinations = 20000;
// Route commands are cut at 255 characters.
constexpr size_t kCommandSize = 256;
// Text of one resolved address: an IPv4 dotted quad and its terminator. An IPv6 answer does
// not fit and is skipped.
constexpr size_t kAddressTextSize = 16;

enum RouteMode { kRouteAdd = 0, kRouteDelete = 1 };

// Scans "%d.%d.%d.%d%c": exactly four numbers and nothing after them, each below 256 taken as
// unsigned (so negative numbers fail too). Like %d, each number may follow white space and
// carry a sign. A number too large for an int is rejected here rather than left to the C
// library's overflow behaviour, which differs between 32- and 64-bit targets.
bool scan_ipv4(const char *text, int quad[4]) {
  if (text == nullptr) return false;
  int at[4] = {};
  int value[4] = {};
  char trailing = 0;
  if (sscanf(text, "%n%d.%n%d.%n%d.%n%d%c", &at[0], &value[0], &at[1], &value[1], &at[2],
             &value[2], &at[3], &value[3], &trailing) != 4)
    return false;
  for (int i = 0; i < 4; ++i) {
    long long exact = strtoll(text + at[i], nullptr, 10);
    if (exact < 0 || exact > 255) return false;
    quad[i] = static_cast<int>(exact);
  }
  return true;
}

// Interface names as the route tool's last word: 1 to 15 letters, digits, '.', '_', ':' or
// '-'. Anything else could not name an interface and would reach the shell.
bool device_name_safe(const char *device) {
  size_t n = strlen(device);
  if (n == 0 || n > 15) return false;
  return strspn(device, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._:-") == n;
}

const char *route_verb(int mode) { return mode == kRouteAdd ? "add" : "delete"; }

// One host route added or deleted on `device` by the route tool; the outcome is never checked.
void route_host(int mode, const char *address, const char *device) {
  char command[kCommandSize] = {};
  snprintf(command, sizeof command,
           "/sbin/route %s -net %s netmask 255.255.255.255 dev %s >/dev/null 2>&1",
           route_verb(mode), address, device);
  bundle::run_command(command);
}

// One host route on the tunnel for every destination of the array (at most the first 20000):
// an address directly, a domain name through handle_route_of_domain. Outcomes are not checked.
void route_destinations(JNIEnv *env, jobjectArray array, int mode) {
  jsize n = bundle::array_length(env, array);
  if (n <= 0) return;
  if (n > kMaxDestinations) n = kMaxDestinations;
  for (jsize i = 0; i < n; ++i) {
    bundle::LocalRef<jstring> element(
        env, static_cast<jstring>(env->GetObjectArrayElement(array, i)));
    if (element.get() == nullptr) continue;  // a null element names nothing
    bundle::JavaChars text(env, element.get());
    if (text.is_null()) {
      // The JVM could not copy the text and has an exception pending: no further JNI call
      // but the release is allowed, so the rest of the array is left alone.
      text.release();
      return;
    }
    int quad[4];
    if (scan_ipv4(text.get(), quad)) {
      // The address goes into the command as the four scanned numbers, never as the Java
      // text: for every canonical address text that is the text itself, and white space or a
      // sign that the scan lets through before a number cannot reach the shell.
      char address[kAddressTextSize] = {};
      snprintf(address, sizeof address, "%d.%d.%d.%d", quad[0], quad[1], quad[2], quad[3]);
      route_host(mode, address, VPN_TUNNEL_DEVICE);
    } else {
      // Anything else is taken as a domain name; only its resolved addresses reach a command.
      handle_route_of_domain(const_cast<char *>(text.get()), VPN_TUNNEL_DEVICE, mode);
    }
    text.release();
  }
}

// Reads a credential into a zeroed buffer of `size` bytes. False when it is null or has
// `size` characters or more; an over-long text is then never given back to the JVM.
bool read_credential(JNIEnv *env, bundle::TraceName native, jstring s, char *buf, size_t size,
                     const char *null_text, const char *long_text) {
  bundle::JavaChars text(env, s);
  if (text.is_null()) {
    bundle::trace_puts(native, __LINE__, null_text);
    return false;
  }
  size_t len = strlen(text.get());
  if (len >= size) {
    bundle::trace_puts(native, __LINE__, long_text);
    text.keep();  // kept on purpose: the over-long credential has never been released
    return false;
  }
  memcpy(buf, text.get(), len + 1);
  text.release();
  return true;
}

}  // namespace

extern "C" {

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni(
    JNIEnv *env, jobject, jstring jserver, jstring juser, jstring jpassword) {
  bundle::Reply<64> reply;
  char server[VPN_SERVER_SIZE] = {}, user[VPN_USER_SIZE] = {}, password[VPN_PASSWORD_SIZE] = {};
  // Checked in this order; the first refusal ends the call.
  if (!read_credential(env, BUNDLE_NATIVE, jserver, server, sizeof server, "VPN ServerIP is NULL!",
                       "VPN ServerIP out of size!") ||
      !read_credential(env, BUNDLE_NATIVE, juser, user, sizeof user, "VPN username is NULL!",
                       "VPN username out of size!") ||
      !read_credential(env, BUNDLE_NATIVE, jpassword, password, sizeof password,
                       "VPN password is NULL!", "VPN password out of size!")) {
    reply.append("%s", kFailure);
  } else {
    // The debug trace has always shown the user name and password in clear; kept on purpose
    // (it prints only while the trace flag file exists). The hardened profile masks both.
    BUNDLE_TRACE("VPN ServerIP=%s, Uname=%s, Upass=%s\n", server, bundle::secret(user),
                 bundle::secret(password));
    reply.append("%s", brelo_vpnOn(server, user, password) == 0 ? kSuccess : kFailure);
  }
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOffJni(JNIEnv *env, jobject,
                                                                            jstring jserver) {
  bundle::Reply<64> reply;
  char server[VPN_SERVER_SIZE] = {};
  if (!read_credential(env, BUNDLE_NATIVE, jserver, server, sizeof server, "VPN ServerIP is NULL!",
                       "VPN ServerIP out of size!"))
    reply.append("%s", kFailure);
  else
    reply.append("%s", brelo_vpnOff(server) == 0 ? kSuccess : kFailure);
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getVpnStatCmdJni(JNIEnv *env,
                                                                                   jobject) {
  bundle::Reply<128> reply;
  int status = 0;
  if (brelo_getVpnStatCmd(&status) == 0)
    reply.append("{\"Result\":0,\"Status\":%d}", status);
  else
    reply.append("{\"Result\":-1,\"Status\":0}");
  return BUNDLE_JSON_REPLY(env, reply.c_str());
}

// The platform writes the inner part of the JSON array; it is inserted as it stands. The
// reply has room for the whole list buffer, so it is never cut.
JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getConnectedIpListJni(
    JNIEnv *env, jobject) {
  static const char kIpListFailure[] = "{\"Result\":-1,\"ips\":[]}";
  bundle::PlatformText<4096> list;
  bundle::Reply<4120> reply;
  static_assert(sizeof "{\"Result\":0,\"ips\":[]}" + 4095 <= 4120, "the list fits the reply");
  if (brelo_getConnectedIpList(list.out(), list.size()) == 0)
    reply.append("{\"Result\":0,\"ips\":[%s]}", bundle::raw_json(list.text(), bundle::RawJson::kItems));
  else
    reply.append("%s", kIpListFailure);
  // The platform's list goes between the brackets raw; the hardened profile answers the
  // failure reply when it is not the inside of a JSON array.
  return BUNDLE_JSON_REPLY(env, bundle::checked_reply(reply.c_str(), kIpListFailure));
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_addVpnDestIPJni(
    JNIEnv *env, jobject, jobjectArray destinations) {
  route_destinations(env, destinations, kRouteAdd);
  return BUNDLE_CODE_REPLY(0);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_deleteVpnDestIPJni(
    JNIEnv *env, jobject, jobjectArray destinations) {
  route_destinations(env, destinations, kRouteDelete);
  return BUNDLE_CODE_REPLY(0);
}

// 0 when `text` is a dotted-quad IPv4 address (see scan_ipv4), else -1.
JNIEXPORT int isipv4str(const char *text) {
  int quad[4];
  return scan_ipv4(text, quad) ? 0 : -1;
}

// Adds (mode 0) or deletes (mode 1) a host route on `device` for every IPv4 address `domain`
// resolves to, in the resolver's order. 0 when the domain resolved, whatever the route
// commands did; -1 for a null argument, a device that is not an interface name, another mode,
// or a name that does not resolve. The name itself never reaches a command: only inet_ntop's
// text of each address does.
JNIEXPORT int handle_route_of_domain(char *domain, const char *device, int mode) {
  char address[kAddressTextSize] = {};
  if (domain == nullptr || device == nullptr) return -1;
  if (!device_name_safe(device)) {
    BUNDLE_TRACE_PUTS("The device is not an interface name!");
    return -1;
  }
  if (mode != kRouteAdd && mode != kRouteDelete) {
    BUNDLE_TRACE_PUTS("Wrong mode argument!");
    return -1;
  }
  // Copied under the library's resolver lock: another thread's lookup cannot overwrite the
  // answer while it is read.
  bundle::HostAddresses answer;
  if (!bundle::resolve_host(domain, &answer)) {
    BUNDLE_TRACE_PUTS("The domain can not convert to ip!");
    return -1;
  }
  for (int i = 0; i < answer.count; ++i) {
    if (inet_ntop(answer.family, answer.address[i], address, sizeof address) == nullptr) continue;
    route_host(mode, address, device);
  }
  return 0;
}

}  // extern "C"
