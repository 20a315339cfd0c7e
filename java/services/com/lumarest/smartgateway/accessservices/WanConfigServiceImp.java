package com.lumarest.smartgateway.accessservices;

/**
 * Creates, changes and deletes the gateway's WAN connections.
 *
 * <p>The gateway itself checks the values, writes its configuration and restarts the
 * connection; this class hands it the texts and returns its status. The settings of a
 * connection are read back with {@link AccessInfoQueryServiceImp#getWANIfInfoJni(int)}, whose
 * member names the change request shares. The class loads {@code libbundle_sc.so} when it is
 * first used.
 *
 * <p>Every method runs on the calling thread and returns when the gateway has answered; none
 * resolves names or runs commands itself.
 */
public class WanConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Creates a WAN connection.
     *
     * <p>The gateway picks the new connection's WAN index and fills in the rest of its
     * configuration; change it afterwards with {@link #setWANIfJni(int, String)}.
     *
     * @param vlanMode       the connection's VLAN mode, as "VLANMode" of the information reply
     *                       shows it (a decimal number as text); at most 31 characters; null is
     *                       refused
     * @param vlanIdMark     the VLAN ID as decimal text, such as "50"; at most 31 characters;
     *                       null is refused
     * @param connectionType the connection type: "IP_Routed", "IP_Bridged", "PPPoE_Bridged",
     *                       "PPPoE_Routed" or "PPPoE_Hybrid"; at most 31 characters; null is
     *                       refused
     * @return -1 when a text is null or longer than 31 characters (the gateway is then not
     *         asked); else what the gateway answers: the new connection's WAN index, or its
     *         error value (-1) when it refuses the connection
     * @example <pre>{@code
     * addWANIfJni "2" "50" "PPPoE_Routed"
     * 5
     * }</pre>
     */
    public native int addWANIfJni(String vlanMode, String vlanIdMark, String connectionType);

    /**
     * Changes the configuration of a WAN connection.
     *
     * <p>The gateway reads the JSON text and applies the members it contains. While the
     * debug trace is on (the file "/tmp/brelo_debug" exists), every member of the change is
     * printed on standard output, the password in clear (a library built with its hardened
     * profile masks it).
     *
     * @param wanIndex    the connection's WAN index, passed to the gateway as given
     * @param wanInfoJson a JSON object whose members are named as in the information reply
     *                    ("LanInterface", "VLANMode", "VLANIDMark", "802-1pMark",
     *                    "MulticastVlan", "LanInterface-DHCPEnable", "IPMode", "NATEnabled",
     *                    "Username", "Password", "AddressingType", "ExternalIPAddress",
     *                    "SubnetMask", "DefaultGateway", "DNSEnabled", "DNSServers",
     *                    "MACAddress", "ConnectionTrigger", the IPv6 members and
     *                    "ServiceList"); which members and values are accepted is the
     *                    gateway's decision; null is refused
     * @return -1 when the text is null or the gateway cannot read it (nothing is changed);
     *         else the gateway's status, unchanged: 0 when the change was applied, any other
     *         value when it was refused
     * @example <pre>{@code
     * setWANIfJni 2 "{\"NATEnabled\":\"TRUE\"}"
     * 0
     * }</pre>
     */
    public native int setWANIfJni(int wanIndex, String wanInfoJson);

    /**
     * Deletes a WAN connection.
     *
     * @param wanIndex the connection's WAN index, 1 or more; 0 and negative indexes are
     *                 refused without asking the gateway
     * @return -1 for an index below 1; else the gateway's status, unchanged: 0 when the
     *         connection was deleted, any other value when it was refused
     * @example <pre>{@code
     * deleteWANIfJni 4
     * 0
     * }</pre>
     */
    public native int deleteWANIfJni(int wanIndex);
}
