package com.lumarest.smartgateway.transferservices;

/**
 * Traffic mirror rules: the gateway copies selected traffic (to or from a remote address and
 * port range, in a direction, of a protocol, optionally only that of one LAN host) to a
 * mirror host and port, for example a capture station on the LAN.
 *
 * <p>Up to 255 rules are kept in the gateway's configuration tree, in entries numbered 0 to
 * 254; the entry number is the rule's identity, returned by
 * {@link #addMirrorRuleJni} and taken by {@link #deleteMirrorRuleJni}. Every change is handed
 * to the gateway with a delayed apply of the mirror configuration (a short delay of the
 * platform's), and none is saved by this class. The methods keep no state and may be called
 * from any thread; the configuration tree serialises concurrent changes, but two bundles
 * adding rules at once may race for the same free entry. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 */
public class TrafficMirrorServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds a traffic mirror rule, or finds the identical rule already stored.
     *
     * <p>The arguments are checked in parameter order and the first refusal ends the call
     * with -1; nothing is changed then. A rule equal in all seven values to a stored one is
     * not stored twice: its entry number is returned and nothing is changed (texts compare
     * exactly, so {@code aa:bb:cc:dd:ee:ff} and {@code AA:BB:CC:DD:EE:FF} make different
     * rules). Otherwise the rule takes the lowest free entry and is applied.
     *
     * <p>The text of a refused argument is deliberately never given back to the virtual
     * machine (its copy stays allocated); check arguments in Java before calling where they
     * may be refused often. A mirror host given by name (or as an IPv6 address, which is first
     * tried as a name) is looked up with the system resolver, which blocks the calling thread
     * until it answers.
     *
     * @param remoteAddress the remote IPv4 address or domain name the traffic goes to or comes
     *            from, as the gateway's address checker accepts it; null for any remote
     *            address (the checker may refuse the empty text, so pass null, not "");
     *            at most 511 characters are stored, and only the first 255 take part in the
     *            duplicate test
     * @param remotePort the remote port as text: a port such as "80", a negated port such as
     *            "!80" (all ports but 80), a range such as "1000-2000" (lower bound first), or
     *            the empty text for any port; every number at most 65535. A leading "-", a
     *            "!" with a range, a lower bound above the upper one ("100-50", "80-") and any
     *            other character are refused; "1-2-3" passes as the range 2 to 3. At most 63
     *            characters are stored; null gives -1
     * @param direction exactly "UP", "DOWN" or "ALL" (upper case); anything else or null gives
     *            -1
     * @param protocol exactly "TCP", "UDP" or "TCP/UDP"; anything else or null gives -1
     * @param hostMAC the MAC address of the LAN host whose traffic is mirrored, as six pairs
     *            of hexadecimal digits of either case separated by ":"
     *            ("00:E0:4C:68:01:A2"); null or the empty text for all hosts; a text longer
     *            than 32 characters or of another form gives -1
     * @param mirrorToIP the host that receives the copies: an IPv4 address (first number 1 to
     *            223, last one at most 254, optionally followed by "/" and a prefix length up
     *            to 32), a host name of at most 64 characters that the resolver knows, or an
     *            IPv6 address as the gateway's checker accepts it; at most 127 characters are
     *            stored and 63 take part in the duplicate test; null or anything else gives -1
     * @param mirrorToPort the port on the mirror host, 1 to 65535; anything else gives -1
     * @return the entry number 0 to 254 of the new rule, or of the identical stored rule; -1
     *         when an argument is refused or null; -2 when all 255 entries are in use (an
     *         identical rule is still found then)
     * @example <pre>{@code
     * addMirrorRuleJni "cdn.example.net" "1000-2000" "UP" "TCP" "00:E0:4C:68:01:A2" "nas.home" 5556
     * 1
     * }</pre>
     */
    public native int addMirrorRuleJni(String remoteAddress, String remotePort, String direction,
            String protocol, String hostMAC, String mirrorToIP, int mirrorToPort);

    /**
     * Deletes the traffic mirror rule of one entry.
     *
     * <p>The entry is removed from the configuration tree and the change is applied. The
     * number is used as given: it is not range-checked and the entry need not hold a rule.
     *
     * @param entryIndex the rule's entry number, 0 to 254, as {@link #addMirrorRuleJni}
     *            returned it; other numbers name no rule and change nothing
     * @return always 0
     * @example <pre>{@code
     * deleteMirrorRuleJni 0
     * 0
     * }</pre>
     */
    public native int deleteMirrorRuleJni(int entryIndex);

    /**
     * Deletes every traffic mirror rule.
     *
     * <p>All 255 entries are removed from the configuration tree, then the change is applied
     * once.
     *
     * @return always 0
     * @example <pre>{@code
     * deleteAllMirrorRuleJni
     * 0
     * }</pre>
     */
    public native int deleteAllMirrorRuleJni();

    /**
     * Lists the traffic mirror rules. "Mirro" is the method's own spelling.
     *
     * <p>The rules come in entry order, but the list carries no entry number: keep the number
     * {@link #addMirrorRuleJni} returned to delete a rule. The stored texts are inserted
     * unescaped (a library built with its hardened profile escapes them). The reply holds at
     * most 32,640 bytes (128 per possible rule); a longer list is cut there and is then not
     * complete JSON.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per rule holding {@code "RemoteAddress"} (quoted text, empty for
     *         any address), {@code "RemotePort"} (quoted text, as given on adding),
     *         {@code "Direction"}, {@code "Protocol"}, {@code "HostMAC"} (empty for all hosts),
     *         {@code "MirrorToIP"} (quoted texts) and {@code "MirrorToPort"} (bare number). No
     *         rules give {@code {"Result":0,"List":[]}}. The failure reply (no memory for the
     *         reply) is exactly {@code {"Result":-1,"FailReason":"No enough memory"}}.
     * @example <pre>{@code
     * getMirroRuleInfoJni
     * {"Result":0,"List":[{"RemoteAddress":"","RemotePort":"53","Direction":"ALL","Protocol":"UDP","HostMAC":"00:E0:4C:68:01:A2","MirrorToIP":"192.168.1.200","MirrorToPort":5555}]}
     * }</pre>
     */
    public native String getMirroRuleInfoJni();
}
