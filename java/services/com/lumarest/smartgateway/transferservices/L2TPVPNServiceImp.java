package com.lumarest.smartgateway.transferservices;

/**
 * The gateway's L2TP VPN tunnel: switching it on and off, its state and connected addresses,
 * and the destinations whose traffic is routed into it.
 *
 * <p>The tunnel itself is run by the gateway platform. Destinations are steered into the
 * tunnel with host routes on its interface "ppp100", made by running the system's route tool;
 * a destination given by name is first looked up with the system resolver. The VPN methods
 * answer a small JSON object whose first member {@code "Result"} is 0 on success and -1 on
 * failure; the reason of a refusal shows only in the library's debug trace. The methods keep
 * no state and may be called from any thread. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 */
public class L2TPVPNServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Switches the L2TP VPN tunnel on with a server and credentials.
     *
     * <p>The texts are checked in parameter order and the first refusal ends the call. A text
     * that is too long is deliberately never given back to the virtual machine (its copy
     * stays allocated), so check the lengths in Java. The tunnel is started by the platform;
     * poll {@link #getVpnStatCmdJni} for its state. Note that the library's debug trace, when
     * switched on by the flag file "/tmp/brelo_debug", prints the user name and password in
     * clear (a library built with its hardened profile masks both).
     *
     * @param serverIp the L2TP server's address or name, at most 31 characters; null or a
     *            longer text gives the failure reply
     * @param userName the user name, at most 63 characters; null or a longer text gives the
     *            failure reply
     * @param password the password, at most 63 characters; null or a longer text gives the
     *            failure reply
     * @return {@code {"Result":0}} when the platform accepted the request (bare number); the
     *         failure reply, exactly {@code {"Result":-1}}, for a refused argument or when the
     *         platform fails
     * @example <pre>{@code
     * vpnOnJni "203.0.113.10" "alice" "s3cret"
     * {"Result":0}
     * }</pre>
     */
    public native String vpnOnJni(String serverIp, String userName, String password);

    /**
     * Switches the L2TP VPN tunnel off.
     *
     * <p>A server address that is too long is deliberately never given back to the virtual
     * machine (its copy stays allocated). The tunnel of the default simulated gateway is off,
     * so the example's call fails.
     *
     * @param serverIp the server the tunnel was switched on with, at most 31 characters; null
     *            or a longer text gives the failure reply
     * @return {@code {"Result":0}} when the platform switched the tunnel off (bare number); the
     *         failure reply, exactly {@code {"Result":-1}}, for a refused argument or when the
     *         platform fails (the simulated gateway fails when the tunnel is not on with that
     *         server)
     * @example <pre>{@code
     * vpnOffJni "203.0.113.10"
     * {"Result":-1}
     * }</pre>
     */
    public native String vpnOffJni(String serverIp);

    /**
     * Reads the state of the L2TP VPN tunnel.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0) and {@code "Status"} (bare
     *         number, the platform's tunnel state code; the simulated gateway reports 0 off, 1
     *         connecting, 2 up). The failure reply is exactly {@code {"Result":-1,"Status":0}}.
     * @example <pre>{@code
     * getVpnStatCmdJni
     * {"Result":0,"Status":0}
     * }</pre>
     */
    public native String getVpnStatCmdJni();

    /**
     * Lists the addresses of the L2TP VPN tunnel's connection.
     *
     * <p>The platform delivers the inner part of a JSON array (quoted addresses separated by
     * ",", at most 4095 characters), which is placed between the brackets as it stands. The
     * tunnel of the default simulated gateway is off, so the example's list is empty; once the
     * tunnel is up it reads {@code {"Result":0,"ips":["10.255.0.6","10.255.0.1"]}} there.
     *
     * @return a JSON object: {@code "Result"} (bare number, 0) and {@code "ips"} (an array of
     *         quoted address texts, as the platform gives them; empty while no address is
     *         connected). The failure reply is exactly {@code {"Result":-1,"ips":[]}}; a library
     *         built with its hardened profile also answers it when the platform's text is not
     *         the inside of a JSON array (so it can add no member to the reply).
     * @example <pre>{@code
     * getConnectedIpListJni
     * {"Result":0,"ips":[]}
     * }</pre>
     * @oddity BARE_VALUE The addresses go between the brackets as the gateway lists them: a list
     *     without quotes reads {@code [10.255.0.6,10.255.0.1]}.
     */
    public native String getConnectedIpListJni();

    /**
     * Routes traffic for the given destinations into the L2TP VPN tunnel.
     *
     * <p>For every destination a host route (netmask 255.255.255.255) on the tunnel's
     * interface "ppp100" is added by running the system's route tool. A dotted-quad IPv4
     * address is used directly; any other text is taken as a domain name and looked up with
     * the system resolver, and a host route is added for each IPv4 address it resolves to, in
     * the resolver's order (IPv6 answers are skipped). The call blocks the calling thread for
     * every lookup and every route command, so call it off any time-critical thread. Nothing
     * is reported back: names that do not resolve, null elements and failing route commands
     * (for example while the tunnel is down) are skipped silently, and the name itself never
     * reaches the command line.
     *
     * @param destinations IPv4 addresses ("10.1.2.3": four numbers 0 to 255 and nothing after
     *            them, so "10.0.0.1 " with a blank, "10.0.0" or "256.1.1.1" count as names)
     *            or domain names; at most the first 20000 elements are used, the rest are
     *            ignored; a null or empty array does nothing
     * @return always 0
     * @example <pre>{@code
     * addVpnDestIPJni ["10.1.2.3","video.lumarest.example"]
     * 0
     * }</pre>
     */
    public native int addVpnDestIPJni(String[] destinations);

    /**
     * Stops routing traffic for the given destinations into the L2TP VPN tunnel.
     *
     * <p>The counterpart of {@link #addVpnDestIPJni}: for every destination the host route on
     * "ppp100" is deleted by running the system's route tool, a domain name being looked up
     * again with the system resolver (one route per IPv4 address it resolves to now). The call
     * blocks the calling thread for every lookup and every route command. Nothing is reported
     * back: unknown names, null elements and failing route commands are skipped silently.
     *
     * @param destinations IPv4 addresses or domain names, as for {@link #addVpnDestIPJni}; at
     *            most the first 20000 elements are used; a null or empty array does nothing
     * @return always 0
     * @example <pre>{@code
     * deleteVpnDestIPJni ["10.1.2.3"]
     * 0
     * }</pre>
     */
    public native int deleteVpnDestIPJni(String[] destinations);
}
