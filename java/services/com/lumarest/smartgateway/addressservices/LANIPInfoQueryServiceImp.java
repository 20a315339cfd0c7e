package com.lumarest.smartgateway.addressservices;

/**
 * Reads the gateway's own LAN addresses and the settings of its DHCP server.
 *
 * <p>Both queries answer a JSON object whose "Result" is always 0: when the gateway cannot
 * tell a value, the member is reported empty ("FALSE" or 0 for the DHCP switch and lease).
 * The class loads {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the gateway has answered;
 * neither resolves names or runs commands.
 */
public class LANIPInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reports the gateway's IPv4 and IPv6 addresses on the LAN, its subnet mask and its IPv6
     * prefix length.
     *
     * <p>The texts come from the gateway and are placed in the reply without JSON escaping (a
     * library built with its hardened profile escapes them).
     *
     * @return a JSON object with, in this order: "Result" (number, always 0), "LocalIPv4"
     *         (quoted text, the dotted IPv4 address), "LocalIPv6" (quoted text: the gateway's
     *         first IPv6 address, a comma and its second; "" when it has none; when there is
     *         a first address but no second, the first address followed by a trailing comma;
     *         when there is only a second, that address alone),
     *         "Submask" (quoted text, the dotted subnet mask) and "Prefix_len" (quoted text,
     *         the IPv6 prefix length in decimal, inside quotes). There is no failure reply.
     * @example <pre>{@code
     * getLANHostIPJni
     * {"Result":0,"LocalIPv4":"192.168.1.1","LocalIPv6":"fe80::1,240e:3a1:4c2:71d0::1","Submask":"255.255.255.0","Prefix_len":"64"}
     * }</pre>
     */
    public native String getLANHostIPJni();

    /**
     * Reports whether the gateway's DHCP server runs, its address pool and its lease time.
     *
     * <p>The pool addresses come from the gateway and are placed in the reply without JSON
     * escaping (a library built with its hardened profile escapes them).
     *
     * @return a JSON object with, in this order: "Result" (number, always 0),
     *         "EnableDHCPServer" (quoted text, "TRUE" or "FALSE"), "DHCPStartIP" and
     *         "DHCPEndIP" (quoted text, the first and last address of the pool) and
     *         "DHCPDuration" (bare number, the lease duration in the gateway's unit). There is
     *         no failure reply.
     * @example <pre>{@code
     * getLANDHCPInfoJni
     * {"Result":0,"EnableDHCPServer":"TRUE","DHCPStartIP":"192.168.1.2","DHCPEndIP":"192.168.1.254","DHCPDuration":86400}
     * }</pre>
     */
    public native String getLANDHCPInfoJni();
}
