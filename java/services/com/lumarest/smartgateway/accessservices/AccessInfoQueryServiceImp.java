package com.lumarest.smartgateway.accessservices;

/**
 * Reads the state of the gateway's access line (the PON optical link) and of its WAN
 * connections.
 *
 * <p>Every method is a read-only query answered from the gateway's current figures; nothing
 * is cached between calls. A WAN connection is named by its WAN index, the number that
 * {@link #getWANIfListJni()} lists as "Index" (1 to 8). JSON replies carry the gateway's texts
 * as they are, without JSON escaping (a library built with its hardened profile escapes them).
 * Where a reply member names a state or an error, a code the gateway reports beyond the names
 * listed reads as the empty text. The class loads {@code libbundle_sc.so} when it is first used.
 *
 * <p>Every method runs on the calling thread and returns as soon as the gateway has answered;
 * none resolves names or runs commands. Methods may be called from several threads at once.
 */
public class AccessInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reports the optical levels of the PON transceiver.
     *
     * <p>The five figures are plain integers as the gateway's transceiver delivers them,
     * unscaled; their units are the gateway's. When the gateway cannot read the transceiver,
     * the figures are 0.
     *
     * @return a JSON object with, in this order: "Result" (number, always 0), "TXPower"
     *         (transmit power), "RXPower" (receive power), "TransceiverTemperature",
     *         "SupplyVottage" (the supply voltage; the key is spelt so and is part of the
     *         interface) and "BiasCurrent", all bare numbers, possibly negative. There is no
     *         failure reply.
     * @example <pre>{@code
     * getPONIfPhyStatusJni
     * {"Result":0,"TXPower":2310,"RXPower":-1870,"TransceiverTemperature":47,"SupplyVottage":3285,"BiasCurrent":12}
     * }</pre>
     */
    public native String getPONIfPhyStatusJni();

    /**
     * Reports how long the PON access line has been up.
     *
     * @return the line's uptime as the gateway counts it (its unit is the gateway's), passed
     *         through unchanged; the gateway's own error value when it cannot tell
     * @example <pre>{@code
     * getPONIfUpTimeJni
     * 172800
     * }</pre>
     */
    public native int getPONIfUpTimeJni();

    /**
     * Reports whether the gateway is registered and authenticated on the PON access line.
     *
     * @return a JSON object: "Result" (number, always 0) and "RegisterStatus" (quoted text):
     *         "NO_REG_NO_AUTH" (not registered), "REG_NO_AUTH" (registered, not
     *         authenticated) or "REG_AUTH" (registered and authenticated); the empty text for a
     *         state the gateway reports without a name. There is no failure reply.
     * @example <pre>{@code
     * getPONIfRegisterStatusJni
     * {"Result":0,"RegisterStatus":"REG_AUTH"}
     * }</pre>
     */
    public native String getPONIfRegisterStatusJni();

    /**
     * Reports the byte counters of the PON uplink.
     *
     * @return a JSON object: "Result" (number, always 0), "UsStats" (bare number, bytes sent
     *         upstream) and "DsStats" (bare number, bytes received downstream), unsigned 64-bit
     *         counters (read them as {@code long}, they soon exceed an {@code int}); 0 when the
     *         gateway cannot read them. There is no failure reply.
     * @example <pre>{@code
     * getUplinkIfStatsJni
     * {"Result":0,"UsStats":81234567890,"DsStats":912345678901}
     * }</pre>
     */
    public native String getUplinkIfStatsJni();

    /**
     * Lists the gateway's WAN connections by WAN index.
     *
     * <p>The list is ordered by WAN index, 1 to 8, whatever order the gateway keeps them in;
     * connections with other indexes are not shown.
     *
     * @return a JSON object: "Result" (number, 0) and "List" (array, one object per
     *         connection with "Index", bare number, the WAN index, and "Name", quoted text,
     *         the connection's name on the gateway). An empty list is
     *         {@code {"Result":0,"List":[]}}. When the gateway holds a connection whose index
     *         lies outside 1 to 8, or two with the same index, the list keeps a trailing comma
     *         before "]" (a reply a strict JSON parser refuses; kept as the interface has it).
     *         Failure reply: {@code {"Result":-1,"FailReason":"parameter NULL"}} when the
     *         gateway cannot give its list.
     * @example <pre>{@code
     * getWANIfListJni
     * {"Result":0,"List":[{"Index":1,"Name":"1_TR069_R_VID_46"},{"Index":2,"Name":"2_INTERNET_R_VID_41"},{"Index":3,"Name":"3_OTHER_B_VID_45"},{"Index":4,"Name":"4_INTERNET_R_VID_43"}]}
     * }</pre>
     * @oddity TRAILING_COMMA A WAN whose index lies outside 1 to 8 (or repeats one) leaves a comma
     *     before the closing bracket.
     */
    public native String getWANIfListJni();

    /**
     * Reports the byte counters of one WAN connection.
     *
     * @param wanIndex the connection's WAN index, as {@link #getWANIfListJni()} lists it
     * @return a JSON object: "Result" (number, 0), "UsStats" (bare number, bytes sent
     *         upstream) and "DsStats" (bare number, bytes received), unsigned 64-bit counters.
     *         Failure reply: {@code {"Result":-1,"FailReason":"parameter error"}} when the
     *         gateway refuses the index.
     * @example <pre>{@code
     * getWANIfStatsJni 2
     * {"Result":0,"UsStats":81234567890,"DsStats":912345678901}
     * }</pre>
     */
    public native String getWANIfStatsJni(int wanIndex);

    /**
     * Reports the whole configuration of one WAN connection.
     *
     * <p>The members are named as in the change request that
     * {@link WanConfigServiceImp#setWANIfJni(int, String)} takes (which also carries a
     * "Password" that this reply never shows). Values the gateway does not give are reported
     * empty, "FALSE" or "0".
     *
     * @param wanIndex the connection's WAN index, as {@link #getWANIfListJni()} lists it
     * @return a JSON object whose members are all quoted text, numbers included, in this
     *         order: "Result" (bare number, 0), "LanInterface" (the LAN ports and SSIDs bound
     *         to the connection), "VLANMode", "VLANIDMark", "802-1pMark" (decimal numbers),
     *         "MulticastVlan" (decimal; "-1" when there is none), "LanInterface-DHCPEnable"
     *         ("TRUE" or "FALSE"), "IPMode" (decimal), "ConnectionType" ("IP_Routed",
     *         "IP_Bridged", "PPPoE_Bridged", "PPPoE_Routed", "PPPoE_Hybrid" or ""),
     *         "NATEnabled" ("TRUE" or "FALSE"), "Username" (the PPPoE user name),
     *         "AddressingType" ("DHCP", "Static" or ""), "ExternalIPAddress", "SubnetMask",
     *         "DefaultGateway", "DNSEnabled" ("TRUE" or "FALSE"), "DNSServers"
     *         (comma-separated), "MACAddress", "ConnectionTrigger" ("AlwaysOn", "OnDemand",
     *         "Manual" or ""), "IPv6IPAddressOrigin" ("None", "DHCPv6", "AutoConfigured",
     *         "Static" or ""), "IPv6IPAddress", "IPv6DNSServers", "IPv6PrefixDelegationEnabled"
     *         ("TRUE" or "FALSE"), "IPv6PrefixOrigin" ("None", "PrefixDelegation",
     *         "RouterAdvertisement", "Static" or ""), "IPv6Prefix", "IPv6PrefixPltime" and
     *         "IPv6PrefixVltime" (decimal, possibly negative), "IPv6DefaultGateway",
     *         "IPv6DsliteEnable" ("TRUE" or "FALSE"), "IPv6AftrMode" ("1" or "0"),
     *         "IPv6AftrAddress" and "ServiceList" (the connection's services, such as
     *         "INTERNET" or "TR069"). Failure reply:
     *         {@code {"Result":-1,"FailReason":"parameter error"}} when no connection has this
     *         WAN index.
     * @example <pre>{@code
     * getWANIfInfoJni 2
     * {"Result":0,"LanInterface":"LAN1,LAN2,LAN3,SSID1,SSID5","VLANMode":"2","VLANIDMark":"41","802-1pMark":"0","MulticastVlan":"-1","LanInterface-DHCPEnable":"TRUE","IPMode":"3","ConnectionType":"PPPoE_Routed","NATEnabled":"TRUE","Username":"lmr0755123456","AddressingType":"","ExternalIPAddress":"100.64.23.141","SubnetMask":"255.255.255.255","DefaultGateway":"100.64.0.1","DNSEnabled":"TRUE","DNSServers":"202.96.128.86,202.96.134.33","MACAddress":"00:1A:2B:3C:4D:62","ConnectionTrigger":"AlwaysOn","IPv6IPAddressOrigin":"AutoConfigured","IPv6IPAddress":"240e:3a1:4c2:71d0::1","IPv6DNSServers":"240e:1f:1::1,240e:1f:1::33","IPv6PrefixDelegationEnabled":"TRUE","IPv6PrefixOrigin":"PrefixDelegation","IPv6Prefix":"240e:3a1:4c2:71d0::/60","IPv6PrefixPltime":"172800","IPv6PrefixVltime":"259200","IPv6DefaultGateway":"fe80::1","IPv6DsliteEnable":"FALSE","IPv6AftrMode":"0","IPv6AftrAddress":"","ServiceList":"INTERNET"}
     * }</pre>
     */
    public native String getWANIfInfoJni(int wanIndex);

    /**
     * Reports the upstream and downstream bandwidth of one WAN connection.
     *
     * @param wanIndex the connection's WAN index, 1 or more (0 and negative indexes are
     *                 refused; 1 is accepted although the failure text says otherwise)
     * @return a JSON object: "Result" (number, 0), "UsBandwidth" and "DsBandwidth" (quoted
     *         text, the bandwidths as the gateway gives them; empty when it gives none).
     *         Failure reply:
     *         {@code {"Result":-1,"FailReason":"parameter WanIndex must greater than 1"}} for an
     *         index below 1.
     * @example <pre>{@code
     * getWanIfBandwidthJni 2
     * {"Result":0,"UsBandwidth":"102400","DsBandwidth":"1024000"}
     * }</pre>
     */
    public native String getWanIfBandwidthJni(int wanIndex);

    /**
     * Reports whether one WAN connection is up, since when, and its last connection error.
     *
     * @param wanIndex the connection's WAN index, as {@link #getWANIfListJni()} lists it
     * @return a JSON object, all members after "Result" quoted text: "Result" (bare number,
     *         0), "Uptime" (decimal, the connection's uptime as the gateway counts it),
     *         "ConnectionStatus" (IPv4) and "IPv6ConnStatus", each "Unconfigured",
     *         "Connecting", "Connected" or "Disconnected", and "LastConnectionError"
     *         ("ERROR_NONE", "ERROR_UNKNOWN", "ERROR_AUTHENTICATION_FAILURE",
     *         "ERROR_ISP_TIME_OUT", "ERROR_SERVER_OUT_OF_RESOURCES" or "ERROR_ISP_DISCONNECT"; the
     *         empty text for a status or error the gateway reports without a name).
     *         Failure reply: {@code {"Result":-1,"FailReason":"parameter error"}} when no
     *         connection has this WAN index.
     * @example <pre>{@code
     * getWANIfStatusJni 2
     * {"Result":0,"Uptime":"172611","ConnectionStatus":"Connected","IPv6ConnStatus":"Connected","LastConnectionError":"ERROR_NONE"}
     * }</pre>
     */
    public native String getWANIfStatusJni(int wanIndex);

    /**
     * Tells which WAN connection carries the Internet service.
     *
     * @return the WAN index of the Internet connection, as the gateway gives it, passed
     *         through unchanged (the gateway's own error value when it has none)
     * @example <pre>{@code
     * getInternetWANIndexJni
     * 2
     * }</pre>
     */
    public native int getInternetWANIndexJni();
}
