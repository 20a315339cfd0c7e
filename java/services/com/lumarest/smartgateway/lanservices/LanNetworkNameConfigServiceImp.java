package com.lumarest.smartgateway.lanservices;

/**
 * Names the gateway and individual LAN hosts.
 *
 * <p>Sets the name the gateway goes by and the device name a user gives one of the LAN hosts;
 * the names are read back with {@link LANHostsInfoQueryServiceImp#getGatewayNameJni()} and in
 * the {@code "DeviceName"} member of the host lists. The gateway platform keeps the names. The
 * class loads the native library {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the platform has answered;
 * neither resolves names or runs commands.
 */
public class LanNetworkNameConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Sets the gateway's name.
     *
     * <p>The name is handed to the platform as it is; its length and characters are the
     * platform's to judge (it is read back through a 1024-byte buffer, so keep it well under
     * 1024 bytes).
     *
     * @param name the new name; null sets the empty name
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure; -1
     *         when the virtual machine could not provide the name's text (an exception is then
     *         pending)
     * @example <pre>{@code
     * setGatewayNameJni "Home-Gateway"
     * 0
     * }</pre>
     */
    public native int setGatewayNameJni(String name);

    /**
     * Sets the device name of one LAN host.
     *
     * <p>The MAC text and the name are handed to the platform as they are, unchecked; the
     * platform finds the host (the simulated gateway matches the MAC address in either case and
     * refuses one it does not know). The name then appears as {@code "DeviceName"} in the host
     * lists, unescaped.
     *
     * <p>Unlike every other method, this one prints a line
     * {@code lanservicessetLANHostNameJni: return code = <result>   leave============>} on the
     * process's standard output at every call, whether the debug trace is switched on or not.
     *
     * @param mac the host's MAC address as {@code "xx:xx:xx:xx:xx:xx"}; null passes the empty
     *            text (no host has it)
     * @param name the device name to set; null sets the empty name
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure, for
     *         example for a host the gateway does not know; -1 when the virtual machine could not
     *         provide a text (an exception is then pending)
     */
    public native int setLANHostNameJni(String mac, String name);
}
