// Address and text checks of the gateway's own libraries, imported by name (the traffic
// monitoring and mirror rules validate their addresses with them). Only their sign conventions
// are relied on; their exact acceptance rules are the gateway's.
#ifndef BUNDLE_COMMON_PLATFORM_ADDRCHECK_H
#define BUNDLE_COMMON_PLATFORM_ADDRCHECK_H

extern "C" {
// Negative when `text` is neither a valid IPv4 address nor a valid domain name ("Vaild" is the
// library's own spelling of the symbol).
int checkIPDomainVaild(const char *text);
// Negative when `text` is not a valid IPv6 address.
int sc_check_ip6_format(const char *text);
// Non-zero when `text` is empty.
int strNull(const char *text);
}

#endif
