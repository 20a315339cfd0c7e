package com.lumarest.smartgateway.addressservices;

/**
 * Adds, deletes and switches on or off the port-mapping (virtual server) rules of the
 * gateway's WAN connections.
 *
 * <p>Each WAN connection holds up to ten rules; a rule forwards one external port of the
 * connection to one port of a LAN host. The rules live in the gateway's configuration tree:
 * every successful call writes the change, saves the tree and has the gateway apply it at
 * once; a refused call changes nothing. The reason of a refusal is only visible in the debug
 * trace (printed on standard output while the file "/tmp/brelo_debug" exists). The class
 * loads {@code libbundle_sc.so} when it is first used.
 *
 * <p>A connection is named by its WAN index, the number the gateway's WAN connections list
 * shows; a rule by its port-mapping index, 1 to 10, as
 * {@link PortMappingQueryServiceImp#getPortMappingInfoJni()} lists it.
 *
 * <p>Every method runs on the calling thread; only
 * {@link #addPortMappingJni(int, int, int, String, String)} may block, while a host name given
 * as the internal client is resolved. None runs commands.
 */
public class PortMappingConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds a rule forwarding one external port of a WAN connection to a port of a LAN host.
     *
     * <p>The rule takes the first free of the connection's ten places (the lowest
     * port-mapping index not in use), maps the single external port to the internal port,
     * accepts traffic from any source and is switched on. Existing rules are not compared: the
     * same mapping added twice occupies two places. The management connection (the WAN whose
     * service is exactly "TR069") is refused. When the internal client is a host name, the
     * calling thread blocks while the gateway resolves it.
     *
     * <p>A refused string is deliberately never given back to the virtual machine: the
     * protocol text when the protocol is refused, the internal client text when the client is
     * not an acceptable address. Its modified-UTF-8 copy stays allocated for the life of the
     * string, a small leak on each such call, which a caller avoids by checking them first.
     *
     * @param wanIndex       WAN index of the connection (0 or more; a negative index is
     *                       refused; an index the gateway does not know is refused)
     * @param externalPort   the port on the WAN side, 0 to 65535 (others are refused)
     * @param internalPort   the port on the LAN host, 0 to 65535 (others are refused)
     * @param protocol       exactly "TCP" or "UDP" (upper case; "tcp" is refused); null is
     *                       refused
     * @param internalClient the LAN host receiving the traffic: a dotted IPv4 address whose
     *                       first number is 1 to 223, the middle ones at most 255 and the last
     *                       at most 254 (or exactly "0.0.0.0"), optionally followed by "/" and a
     *                       prefix length up to 32 ("10.0.0.1/24"; an empty one is accepted);
     *                       or a host name of at most 64 bytes that the gateway can resolve. A
     *                       text shaped like four groups of 1 to 3 digits joined by any single
     *                       characters ("10-0-0-1") is judged as an address and never resolved.
     *                       The rule stores the text as given, cut to its first 31 bytes
     *                       (a longer host name is listed cut). Null is refused
     * @return 0 when the rule was added; -1 when an argument was refused (negative WAN index,
     *         port out of range, protocol, internal client, unknown WAN index, management
     *         connection); -2 when the connection already holds ten rules
     * @example <pre>{@code
     * addPortMappingJni 2 8443 443 "TCP" "192.168.1.20"
     * 0
     * }</pre>
     */
    public native int addPortMappingJni(int wanIndex, int externalPort, int internalPort, String protocol,
            String internalClient);

    /**
     * Deletes one port-mapping rule of a WAN connection.
     *
     * <p>The rule's place becomes free and is the first one reused by the next add. Unlike
     * the add, this also works on the management connection.
     *
     * @param wanIndex         WAN index of the connection (0 or more; a negative or unknown
     *                         index is refused)
     * @param portMappingIndex the rule's port-mapping index, 1 to 10, as the query lists it;
     *                         an index that holds no rule (0 included) is refused
     * @return 0 when the rule was deleted; -1 when the WAN index or the port-mapping index
     *         names no rule
     * @example <pre>{@code
     * deletePortMappingJni 2 1
     * 0
     * }</pre>
     */
    public native int deletePortMappingJni(int wanIndex, int portMappingIndex);

    /**
     * Switches one port-mapping rule of a WAN connection on or off.
     *
     * <p>The rule stays in place either way; the query shows it with
     * "PortMappingEnabled":"TRUE" or "FALSE". Unlike the delete, WAN index 0 is refused here
     * (the trace then speaks of the port-mapping index, "port mapping index must greater 0",
     * although the WAN index was refused).
     *
     * @param wanIndex         WAN index of the connection (1 or more; 0, negative and unknown
     *                         indexes are refused)
     * @param portMappingIndex the rule's port-mapping index, 1 to 10, as the query lists it;
     *                         an index that holds no rule (0 included) is refused
     * @param enable           true to switch the rule on, false to switch it off
     * @return 0 when the rule was switched; -1 when the WAN index or the port-mapping index
     *         names no rule
     * @example <pre>{@code
     * setPortMappingSwitchJni 2 2 true
     * 0
     * }</pre>
     */
    public native int setPortMappingSwitchJni(int wanIndex, int portMappingIndex, boolean enable);
}
