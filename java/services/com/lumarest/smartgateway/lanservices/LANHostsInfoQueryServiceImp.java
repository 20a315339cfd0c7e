package com.lumarest.smartgateway.lanservices;

/**
 * LAN hosts by MAC address, attachment point or class, their counters and limits, the gateway
 * name and the MAC filter mode.
 *
 * <p>Lists the devices the gateway knows on its LAN side: by MAC address, by the Ethernet port or
 * wireless network (SSID) they are attached to, or by their class (online, offline, blocked,
 * trusted), with their traffic counters and speed limits. It also reads the gateway's name and
 * the MAC filter mode. The host table belongs to the gateway platform; every call asks it afresh
 * and keeps nothing. The class loads the native library {@code libbundle_sc.so} when it is first
 * used.
 *
 * <p>The three host queries answer the same JSON list, {@code {"Result":0,"List":[...]}}, whose
 * elements are host objects with these members, in this order, all of them JSON strings:
 * <ul>
 * <li>{@code "Class"}: {@code "ONLINE"}, {@code "OFFLINE"}, {@code "BLOCK"} or {@code "TRUST"}
 *     ({@code "UNKNOWN"} for a class code the gateway does not name);</li>
 * <li>{@code "MAC"}: the host's MAC address as {@code "XX:XX:XX:XX:XX:XX"}, upper-case
 *     hexadecimal digits, two per octet;</li>
 * <li>{@code "DhcpName"}: the name the host gave in DHCP;</li>
 * <li>{@code "DeviceName"}: the name set by the user (empty when none was set);</li>
 * <li>{@code "IP"}: the host's IPv4 address text; when the host also has an IPv6 address, the
 *     IPv4 text, a comma and the IPv6 text in the one string ({@code "192.168.1.2,2001:db8:1::2"});</li>
 * <li>{@code "ConnectInterface"}: {@code "LAN1"} to {@code "LAN4"} for the Ethernet ports,
 *     {@code "SSID1"} to {@code "SSID8"} for the wireless networks, {@code "UNKNOWN"} otherwise;</li>
 * <li>{@code "OnlineTime"}: the time the host has been online, a decimal number in a JSON
 *     string, in the platform's unit (seconds on the simulated gateway);</li>
 * <li>{@code "StorageAccessStatus"}: {@code "ON"} when the host may use the gateway's storage,
 *     {@code "OFF"} when it is on the storage black list.</li>
 * </ul>
 * The names and addresses are placed in the reply as the platform gives them, without JSON
 * escaping: a name holding a double quote or a backslash makes the reply invalid JSON (a library
 * built with its hardened profile escapes them). Bytes
 * that are not valid UTF-8 reach Java as U+FFFD. A host list is composed in a 64 KiB buffer; a
 * longer list is cut there (and is then not valid JSON).
 *
 * <p>Every method runs on the calling thread and returns as soon as the platform has answered;
 * none resolves names or runs commands. Methods may be called from several threads at once.
 */
public class LANHostsInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the gateway's name.
     *
     * <p>The platform writes the name into a zeroed 1024-byte buffer, so the name has at most
     * 1023 bytes. The platform's result is not examined: if it fails, the reply is whatever it
     * left in the buffer, usually the empty text.
     *
     * @return the gateway's name as plain text (not JSON); the empty text when the platform
     *         wrote nothing
     * @example <pre>{@code
     * getGatewayNameJni
     * Lumarest-HGU
     * }</pre>
     */
    public native String getGatewayNameJni();

    /**
     * Lists the LAN hosts that have the given MAC addresses.
     *
     * <p>The gateway is asked for the records of the listed hosts and answers them in its own
     * order; hosts it does not know are left out (on the simulated gateway the hosts come in the
     * order asked, and a MAC address matches in either case). The same host listed twice may be
     * answered twice.
     *
     * @param macs the hosts' MAC addresses as {@code "xx:xx:xx:xx:xx:xx"} texts. At most the first
     *             256 elements are read, the rest is ignored without notice; a text longer than
     *             127 bytes is cut there. The texts are passed on unchecked. A null or empty array,
     *             or an array of nothing but empty texts, asks the platform for zero hosts (the
     *             simulated gateway then answers an empty list); as soon as one text is non-empty,
     *             every element counts, the empty ones included. A null element ends the reading
     *             and the platform is then asked for zero hosts.
     * @return {@code {"Result":0,"List":[...]}} with one host object per host found (members
     *         described in the class comment), {@code {"Result":0,"List":[]}} when none was found;
     *         {@code {"Result":-1,"List":[]}} when the platform call fails or no working memory
     *         could be had; null when the virtual machine could not provide an element's text
     *         (an exception is then pending)
     * @example <pre>{@code
     * getLANHostInfoByMACJni ["00:E0:4C:68:01:A2","9C:B6:D0:0A:44:E3"]
     * {"Result":0,"List":[{"Class":"ONLINE","MAC":"00:E0:4C:68:01:A2","DhcpName":"desktop-study","DeviceName":"Study PC","IP":"192.168.1.2,2001:db8:1::2","ConnectInterface":"LAN1","OnlineTime":"86011","StorageAccessStatus":"ON"},{"Class":"ONLINE","MAC":"9C:B6:D0:0A:44:E3","DhcpName":"android-7f3e2a","DeviceName":"","IP":"192.168.1.4","ConnectInterface":"SSID2","OnlineTime":"620","StorageAccessStatus":"OFF"}]}
     * }</pre>
     * @oddity UNESCAPED_QUOTE,UNESCAPED_BACKSLASH Host names are sent unescaped: <pre>{@code
     * > LanNetworkNameConfigService setLANHostNameJni 00:E0:4C:68:01:A2 "Anna's \"big\" PC"
     * 0
     * > LanNetworkNameConfigService setLANHostNameJni F0:18:98:4B:7E:21 "C:\\share"
     * 0
     * > LANHostsInfoQueryService getLANHostInfoByMACJni ["00:E0:4C:68:01:A2","F0:18:98:4B:7E:21"]
     * {"Result":0,"List":[{"Class":"ONLINE","MAC":"00:E0:4C:68:01:A2","DhcpName":"desktop-study","DeviceName":"Anna's "big" PC","IP":"192.168.1.2,2001:db8:1::2","ConnectInterface":"LAN1","OnlineTime":"86011","StorageAccessStatus":"ON"},{"Class":"TRUST","MAC":"F0:18:98:4B:7E:21","DhcpName":"MacBook-Air","DeviceName":"C:\share","IP":"192.168.1.3,2001:db8:1::3","ConnectInterface":"SSID1","OnlineTime":"3605","StorageAccessStatus":"ON"}]}
     * }</pre>
     * @oddity DUPLICATE_NAME A name that holds {@code ","Name":"} adds a member of its own: <pre>{@code
     * > LanNetworkNameConfigService setLANHostNameJni 00:E0:4C:68:01:A2 "x\",\"Class\":\"TRUST"
     * 0
     * > LANHostsInfoQueryService getLANHostInfoByMACJni ["00:E0:4C:68:01:A2"]
     * {"Result":0,"List":[{"Class":"ONLINE","MAC":"00:E0:4C:68:01:A2","DhcpName":"desktop-study","DeviceName":"x","Class":"TRUST","IP":"192.168.1.2,2001:db8:1::2","ConnectInterface":"LAN1","OnlineTime":"86011","StorageAccessStatus":"ON"}]}
     * }</pre>
     * @oddity CONTROL_CHARACTER A name holding a tab or a line feed keeps it unescaped.
     */
    public native String getLANHostInfoByMACJni(String[] macs);

    /**
     * Lists the LAN hosts attached to one Ethernet port or one wireless network.
     *
     * <p>The name selects an attachment point: {@code "LAN1"} to {@code "LAN4"} the Ethernet
     * ports 1 to 4, {@code "SSID1"} to {@code "SSID8"} the wireless networks (SSIDs) 1 to 8. The
     * prefixes are case-sensitive ({@code "ssid3"} is refused). The number after the prefix is
     * read as a decimal integer (leading blanks and a sign allowed, anything after it ignored, so
     * {@code "LAN2x"} selects port 2). {@code "LAN5"} to {@code "LAN12"} are also accepted as they
     * are and select the wireless networks 1 to 8; this is kept on purpose.
     *
     * @param interfaceName {@code "LAN1"} to {@code "LAN4"} or {@code "SSID1"} to {@code "SSID8"}
     *                      (or {@code "LAN5"} to {@code "LAN12"} for the wireless networks); any
     *                      other text, and null, gives the failure reply
     * @return {@code {"Result":0,"List":[...]}} with one host object per host on that attachment
     *         point (members described in the class comment), {@code {"Result":0,"List":[]}} when
     *         none is attached; {@code {"Result":-1,"List":[]}} for a name that selects no
     *         attachment point, when the platform call fails or no working memory could be had;
     *         null when the virtual machine could not provide the name's text (an exception is
     *         then pending)
     * @example <pre>{@code
     * getLANHostInfoByInterfaceJni "SSID1"
     * {"Result":0,"List":[{"Class":"TRUST","MAC":"F0:18:98:4B:7E:21","DhcpName":"MacBook-Air","DeviceName":"Anna's laptop","IP":"192.168.1.3,2001:db8:1::3","ConnectInterface":"SSID1","OnlineTime":"3605","StorageAccessStatus":"ON"}]}
     * }</pre>
     */
    public native String getLANHostInfoByInterfaceJni(String interfaceName);

    /**
     * Reads the gateway's MAC filter mode.
     *
     * <p>The mode decides which of the access lists is in force: 1 the network black list (listed
     * hosts are refused), 2 the trust list (only listed hosts are admitted). Other values are the
     * platform's.
     *
     * @return the mode (1 black list, 2 trust list) when the platform answered; otherwise the
     *         platform's non-zero failure code as it came (usually -1)
     * @example <pre>{@code
     * getMacFilterModeJni
     * 1
     * }</pre>
     */
    public native int getMacFilterModeJni();

    /**
     * Lists the LAN hosts of one class: online, offline, blocked or trusted.
     *
     * <p>The class name is matched without regard to case. For {@code "BLOCK"} the list holds the
     * blocked hosts that are present, followed by the blocked hosts that are offline, each host
     * once; when there are no present ones (or the gateway could not list them) it holds the
     * blocked offline hosts alone.
     *
     * <p>Each host appears once: a host whose MAC text already occurs anywhere in the reply
     * written so far is skipped (so is a host whose MAC text appears inside an earlier host's
     * name). The separators are decided by position, not by what was written: when the last host
     * of a list is skipped, the reply keeps a comma just before the closing {@code "]"}, and so
     * does a blocked list whose offline hosts were all listed already. That comma is part of the
     * interface, kept on purpose; a parser that refuses it must strip it.
     *
     * @param hostClass {@code "ONLINE"}, {@code "OFFLINE"}, {@code "BLOCK"} or {@code "TRUST"},
     *                  in any case; any other text, and null, gives the failure reply
     * @return {@code {"Result":0,"List":[...]}} with one host object per host of that class
     *         (members described in the class comment), {@code {"Result":0,"List":[]}} when there
     *         is none; {@code {"Result":-1,"List":[]}} for an unknown class name, when the
     *         platform reports that the list is not complete (-2), when the blocked offline hosts
     *         could not be read while they were the whole answer, or when no working memory could
     *         be had. Other platform failures still give {@code "Result":0} with whatever hosts
     *         were returned. Null when the virtual machine could not provide the name's text (an
     *         exception is then pending).
     * @example <pre>{@code
     * getLANHostInfoByClassJni "online"
     * {"Result":0,"List":[{"Class":"ONLINE","MAC":"00:E0:4C:68:01:A2","DhcpName":"desktop-study","DeviceName":"Study PC","IP":"192.168.1.2,2001:db8:1::2","ConnectInterface":"LAN1","OnlineTime":"86011","StorageAccessStatus":"ON"},{"Class":"ONLINE","MAC":"9C:B6:D0:0A:44:E3","DhcpName":"android-7f3e2a","DeviceName":"","IP":"192.168.1.4","ConnectInterface":"SSID2","OnlineTime":"620","StorageAccessStatus":"OFF"},{"Class":"ONLINE","MAC":"A4:77:33:C1:5D:90","DhcpName":"printer","DeviceName":"","IP":"192.168.1.20","ConnectInterface":"LAN3","OnlineTime":"259200","StorageAccessStatus":"ON"}]}
     * }</pre>
     * @oddity TRAILING_COMMA A host listed twice whose second record comes last leaves the comma
     *     before it: {@code [{...},]}.
     * @oddity STRAY_COMMA For {@code BLOCK}, when that last record is a blocked host's, its comma
     *     and the one before the offline blocked hosts follow each other: {@code [{...},,{...}]}.
     * @oddity CUT_SHORT A list longer than the reply's 65,535 characters is cut there.
     */
    public native String getLANHostInfoByClassJni(String hostClass);

    /**
     * Reads the traffic counters of the LAN hosts that have the given MAC addresses.
     *
     * <p>One counter pair per host the platform reports, in the platform's order (on the
     * simulated gateway the hosts come in the order asked; unknown ones are left out).
     *
     * @param macs the hosts' MAC addresses as {@code "xx:xx:xx:xx:xx:xx"} texts, read as by
     *             {@link #getLANHostInfoByMACJni(String[])}: at most 256 elements, texts cut at 127
     *             bytes; a null or empty array asks the platform for zero hosts
     * @return {@code {"Result":0,"List":[...]}} whose elements are
     *         {@code {"UsStats":<up>,"DsStats":<down>}}: the up-stream and down-stream byte counts,
     *         bare unsigned 64-bit numbers, written with a blank before the comma
     *         ({@code "UsStats":1203344512 ,"DsStats":...}), which is part of the interface;
     *         {@code {"Result":-1,"List":[]}} when the platform call fails or no working memory
     *         could be had; null when the virtual machine could not provide an element's text (an
     *         exception is then pending). The reply is composed in 8192 bytes; a longer one is cut
     *         there.
     * @example <pre>{@code
     * getLANHostStatsJni ["00:E0:4C:68:01:A2","F0:18:98:4B:7E:21"]
     * {"Result":0,"List":[{"UsStats":1203344512 ,"DsStats":98877120334},{"UsStats":20331 ,"DsStats":7712009}]}
     * }</pre>
     */
    public native String getLANHostStatsJni(String[] macs);

    /**
     * Reads the speed limits of the LAN hosts that have the given MAC addresses.
     *
     * <p>These are the limits set with {@code LanHostSpeedLimitServiceImp}; the current speed of
     * a host is read with {@code LanHostSpeedQueryServiceImp}. One limit pair per host the
     * platform reports, in the platform's order.
     *
     * @param macs the hosts' MAC addresses as {@code "xx:xx:xx:xx:xx:xx"} texts, read as by
     *             {@link #getLANHostInfoByMACJni(String[])}: at most 256 elements, texts cut at 127
     *             bytes; a null or empty array asks the platform for zero hosts
     * @return {@code {"Result":0,"List":[...]}} whose elements are
     *         {@code {"UpSpeed":<up>,"DownSpeed":<down>}}: the up-stream and down-stream limits,
     *         bare signed 32-bit numbers in the platform's unit (upper-case {@code "UpSpeed"}
     *         here, unlike the speed query); {@code {"Result":-1,"List":[]}} when the platform
     *         call fails or no working memory could be had; null when the virtual machine could
     *         not provide an element's text (an exception is then pending). The reply is composed
     *         in 8192 bytes; a longer one is cut there.
     * @example <pre>{@code
     * getLANHostSpeedLimitInfoJni ["F0:18:98:4B:7E:21","00:11:32:7A:0B:C4"]
     * {"Result":0,"List":[{"UpSpeed":2048,"DownSpeed":20480},{"UpSpeed":1024,"DownSpeed":8192}]}
     * }</pre>
     */
    public native String getLANHostSpeedLimitInfoJni(String[] macs);
}
