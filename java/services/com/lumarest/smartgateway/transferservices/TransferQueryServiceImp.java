package com.lumarest.smartgateway.transferservices;

/**
 * Reads the gateway's VLAN bindings of its LAN interfaces, its IPv4 and IPv6 route tables
 * (the configured static routes and the routes currently in force) and the status of its IPTV
 * service.
 *
 * <p>Every method asks the gateway platform once and answers a text: the list queries a JSON
 * object whose first member {@code "Result"} is 0 on success and -1 on failure, the IPTV query
 * a bare status name. Texts from the platform are placed in the replies as they are, without
 * JSON escaping (a library built with its hardened profile escapes them). The methods keep no
 * state and may be called from any thread. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 */
public class TransferQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Lists the VLAN bindings of the gateway's LAN interfaces.
     *
     * <p>The platform hands over one binding per bound interface, in its own order. The
     * interface is named from the platform's interface number: "LAN1" to "LAN4" for the
     * Ethernet ports, "SSID1" to "SSID5" for the wireless networks; a number outside that
     * table is listed with an empty name. The binding text is the platform's own (VLAN pairs
     * such as {@code 100/10} on the gateway) and is inserted unescaped.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per binding holding {@code "LanInterface"} (quoted text, the
     *         interface name) and {@code "Bind"} (quoted text, the binding). The failure reply
     *         is exactly {@code {"Result":-1}} (no list); it is also the reply when no
     *         interface is bound and the platform hands over no table at all, so a caller
     *         should read -1 here as "no binding known".
     * @example <pre>{@code
     * getVLANBindInfoJni
     * {"Result":0,"List":[{"LanInterface":"LAN1","Bind":"100/10"},{"LanInterface":"SSID1","Bind":"200/20"}]}
     * }</pre>
     */
    public native String getVLANBindInfoJni();

    /**
     * Lists the IPv4 static routes configured on the gateway.
     *
     * <p>These are the routes added with
     * {@link StaticLayer3ForwardingConfigServiceImp#addLayer3ForwardingStaticJni}, whether or
     * not they are in force. Texts are inserted unescaped.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per route, in the platform's order, holding {@code "Index"}
     *         (the route id as a quoted number, the id that
     *         {@link StaticLayer3ForwardingConfigServiceImp#deleteLayer3ForwardingStaticJni}
     *         takes), {@code "DestIPAddress"}, {@code "DestSubnetMask"},
     *         {@code "GatewayIPAddress"} (empty for an on-link route) and {@code "Interface"}
     *         (all quoted texts). The failure reply is exactly {@code {"Result":-1}}; it is
     *         also the reply when the platform hands over no table at all, which it may do
     *         for an empty one.
     * @example <pre>{@code
     * getLayer3ForwardingStaticConfigInfoJni
     * {"Result":0,"List":[{"Index":"1","DestIPAddress":"10.20.0.0","DestSubnetMask":"255.255.0.0","GatewayIPAddress":"192.168.1.254","Interface":"br0"}]}
     * }</pre>
     */
    public native String getLayer3ForwardingStaticConfigInfoJni();

    /**
     * Lists the IPv4 routes currently in force on the gateway.
     *
     * <p>The table holds the routes the gateway forwards by now (default route, connected
     * networks, the static routes that are up), in the platform's order. Texts are inserted
     * unescaped.
     *
     * @return a JSON object of the same shape as
     *         {@link #getLayer3ForwardingStaticConfigInfoJni}: {@code "Result"} (bare number,
     *         0), then {@code "List"}, an array of objects holding {@code "Index"} (quoted
     *         number, the platform's route index), {@code "DestIPAddress"},
     *         {@code "DestSubnetMask"}, {@code "GatewayIPAddress"} (empty for an on-link
     *         route) and {@code "Interface"} (all quoted texts). The failure reply is exactly
     *         {@code {"Result":-1}}, also when the platform hands over no table at all.
     * @example <pre>{@code
     * getLayer3ForwardingCurrentJni
     * {"Result":0,"List":[{"Index":"101","DestIPAddress":"0.0.0.0","DestSubnetMask":"0.0.0.0","GatewayIPAddress":"100.64.0.1","Interface":"ppp0"},{"Index":"102","DestIPAddress":"192.168.1.0","DestSubnetMask":"255.255.255.0","GatewayIPAddress":"","Interface":"br0"},{"Index":"1","DestIPAddress":"10.20.0.0","DestSubnetMask":"255.255.0.0","GatewayIPAddress":"192.168.1.254","Interface":"br0"}]}
     * }</pre>
     */
    public native String getLayer3ForwardingCurrentJni();

    /**
     * Lists the IPv6 static routes configured on the gateway.
     *
     * <p>These are the routes added with
     * {@link StaticLayer3ForwardingConfigServiceImp#addIPv6Layer3ForwardingStaticJni}, whether
     * or not they are in force. Texts are inserted unescaped.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per route, in the platform's order, holding {@code "Index"}
     *         (the route id as a quoted number, the id that
     *         {@link StaticLayer3ForwardingConfigServiceImp#deleteIPv6Layer3ForwardingStaticJni}
     *         takes), {@code "DestIPPrefix"} (quoted text, "address/length"),
     *         {@code "NextHop"} (quoted text, empty for an on-link route) and
     *         {@code "Interface"} (quoted text). The failure reply is exactly
     *         {@code {"Result":-1}}, also when the platform hands over no table at all.
     * @example <pre>{@code
     * getIPv6Layer3ForwardingStaticConfigInfoJni
     * {"Result":0,"List":[{"Index":"1","DestIPPrefix":"2001:db8:20::/48","NextHop":"fe80::1","Interface":"br0"}]}
     * }</pre>
     */
    public native String getIPv6Layer3ForwardingStaticConfigInfoJni();

    /**
     * Lists the IPv6 routes currently in force on the gateway.
     *
     * <p>The table holds the routes the gateway forwards by now, in the platform's order.
     * Texts are inserted unescaped.
     *
     * @return a JSON object of the same shape as
     *         {@link #getIPv6Layer3ForwardingStaticConfigInfoJni}: {@code "Result"} (bare
     *         number, 0), then {@code "List"}, an array of objects holding {@code "Index"}
     *         (quoted number, the platform's route index), {@code "DestIPPrefix"},
     *         {@code "NextHop"} (empty for an on-link route) and {@code "Interface"} (all
     *         quoted texts). The failure reply is exactly {@code {"Result":-1}}, also when the
     *         platform hands over no table at all.
     * @example <pre>{@code
     * getIPv6Layer3ForwardingCurrentJni
     * {"Result":0,"List":[{"Index":"101","DestIPPrefix":"::/0","NextHop":"fe80::a","Interface":"ppp0"},{"Index":"1","DestIPPrefix":"2001:db8:20::/48","NextHop":"fe80::1","Interface":"br0"}]}
     * }</pre>
     */
    public native String getIPv6Layer3ForwardingCurrentJni();

    /**
     * Reads the status of the gateway's IPTV service.
     *
     * <p>The reply is a plain text, not JSON.
     *
     * @return the status name alone: "NO_IPTV_CONNECTION" (no IPTV connection),
     *         "IPTV_DISCONNECT" (the IPTV connection is down), "INVALID_MULTIVLAN" (the
     *         multicast VLAN is not valid), "IPTV_BUSSINESS_NOK" (the service is not working)
     *         or "IPTV_BUSSINESS_OK" (the service is working); the doubled S of the last two is
     *         part of the texts. A status code the gateway does not know gives the empty text;
     *         there is no other failure reply.
     * @example <pre>{@code
     * getIPTVStatusJni
     * IPTV_BUSSINESS_OK
     * }</pre>
     */
    public native String getIPTVStatusJni();
}
