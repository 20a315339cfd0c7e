package com.lumarest.smartgateway.transferservices;

/**
 * Adds and deletes the gateway's IPv4 and IPv6 static routes.
 *
 * <p>A static route sends the traffic for a destination network through a gateway address or
 * next hop and out of a named interface. The gateway platform keeps the routes and numbers
 * them with route ids 1 to 16; {@link TransferQueryServiceImp} lists them. Each method is one
 * call of the platform, whose status is handed back unchanged. The methods keep no state and
 * may be called from any thread. The class loads the native library {@code libbundle_sc.so}
 * when it is first used.
 */
public class StaticLayer3ForwardingConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds an IPv4 static route.
     *
     * <p>The four texts are read in parameter order, copied and given back before the
     * gateway is asked; the gateway checks them. The route is listed afterwards by
     * {@link TransferQueryServiceImp#getLayer3ForwardingStaticConfigInfoJni}.
     *
     * @param dstIPAddr the destination network address as a dotted quad, e.g. "10.30.0.0";
     *            at most 63 characters are passed on; null gives -1
     * @param dstSubMask the destination subnet mask as a dotted quad, e.g. "255.255.0.0";
     *            at most 63 characters; null gives -1
     * @param gatewayIPAddr the gateway address as a dotted quad, or the empty text for a
     *            route on the link itself; at most 63 characters; null gives -1
     * @param interfaceName the name of the interface the route leaves by, e.g. "br0"; at most
     *            127 characters; null gives -1
     * @return the gateway's answer unchanged: the new route's id (1 to 16) on success, a
     *         negative value when the gateway refuses the route or has no free id; -1 also
     *         when a text cannot be read (null), in which case the gateway is not asked
     * @example <pre>{@code
     * addLayer3ForwardingStaticJni "10.30.0.0" "255.255.0.0" "192.168.1.254" "br0"
     * 2
     * }</pre>
     */
    public native int addLayer3ForwardingStaticJni(String dstIPAddr, String dstSubMask,
            String gatewayIPAddr, String interfaceName);

    /**
     * Adds an IPv6 static route.
     *
     * <p>The three texts are read in parameter order, copied and given back before the
     * gateway is asked; the gateway checks them. The route is listed afterwards by
     * {@link TransferQueryServiceImp#getIPv6Layer3ForwardingStaticConfigInfoJni}.
     *
     * @param dstIPPrefix the destination prefix as "address/length", e.g. "2001:db8:30::/48";
     *            at most 127 characters are passed on; null gives -1
     * @param nextHop the next hop's IPv6 address, or the empty text for a route on the link
     *            itself; at most 63 characters; null gives -1
     * @param interfaceName the name of the interface the route leaves by, e.g. "br0"; at most
     *            127 characters; null gives -1
     * @return the gateway's answer unchanged: the new route's id (1 to 16) on success, a
     *         negative value when the gateway refuses the route or has no free id; -1 also
     *         when a text cannot be read (null), in which case the gateway is not asked
     * @example <pre>{@code
     * addIPv6Layer3ForwardingStaticJni "2001:db8:30::/48" "fe80::1" "br0"
     * 2
     * }</pre>
     */
    public native int addIPv6Layer3ForwardingStaticJni(String dstIPPrefix, String nextHop,
            String interfaceName);

    /**
     * Deletes an IPv4 static route.
     *
     * @param routeId the route's id, 1 to 16, as {@link #addLayer3ForwardingStaticJni}
     *            returned it and as the {@code "Index"} member of
     *            {@link TransferQueryServiceImp#getLayer3ForwardingStaticConfigInfoJni} lists
     *            it; any other value (0 and negative ones included) gives -1 without asking
     *            the gateway
     * @return the gateway's answer unchanged (0 when the route was deleted, a negative value
     *         when the gateway refuses, e.g. for an id that names no route); -1 for an id
     *         outside 1 to 16
     * @example <pre>{@code
     * deleteLayer3ForwardingStaticJni 1
     * 0
     * }</pre>
     */
    public native int deleteLayer3ForwardingStaticJni(int routeId);

    /**
     * Deletes an IPv6 static route.
     *
     * @param routeId the route's id, 1 to 16, as {@link #addIPv6Layer3ForwardingStaticJni}
     *            returned it and as the {@code "Index"} member of
     *            {@link TransferQueryServiceImp#getIPv6Layer3ForwardingStaticConfigInfoJni}
     *            lists it; any other value (0 and negative ones included) gives -1 without
     *            asking the gateway
     * @return the gateway's answer unchanged (0 when the route was deleted, a negative value
     *         when the gateway refuses, e.g. for an id that names no route); -1 for an id
     *         outside 1 to 16
     * @example <pre>{@code
     * deleteIPv6Layer3ForwardingStaticJni 1
     * 0
     * }</pre>
     */
    public native int deleteIPv6Layer3ForwardingStaticJni(int routeId);
}
