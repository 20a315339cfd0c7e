// Platform library (libbrelo.so.1): the L2TP VPN tunnel.
#ifndef BUNDLE_COMMON_PLATFORM_VPN_H
#define BUNDLE_COMMON_PLATFORM_VPN_H

// Credential buffers as the bridge hands them over (NUL-terminated, zero-filled).
#define VPN_SERVER_SIZE 32
#define VPN_USER_SIZE 64
#define VPN_PASSWORD_SIZE 64

// The tunnel's interface, on which destinations are routed into it.
#define VPN_TUNNEL_DEVICE "ppp100"

// All return 0 on success.
extern "C" {
int brelo_vpnOn(char *serverIp, char *userName, char *password);
int brelo_vpnOff(char *serverIp);
// *status: the tunnel state as the platform numbers it.
int brelo_getVpnStatCmd(int *status);
// Writes the inner part of a JSON array of the tunnel's addresses (e.g. "a","b"), at most
// size - 1 characters and a terminator.
int brelo_getConnectedIpList(char *buffer, int size);
}

#endif
