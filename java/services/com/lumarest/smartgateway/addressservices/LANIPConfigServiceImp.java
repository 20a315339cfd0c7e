package com.lumarest.smartgateway.addressservices;

/**
 * Sets the gateway's own address on the LAN and the settings of its DHCP server.
 *
 * <p>Both methods hand the texts to the gateway as they are given; the gateway checks the
 * values and answers with its own status code, which is returned unchanged. The class loads
 * {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the gateway has answered;
 * neither resolves names or runs commands.
 */
public class LANIPConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Sets the gateway's IPv4 address and subnet mask on the LAN.
     *
     * <p>The two texts are passed to the gateway without any check here; the gateway decides
     * whether they are acceptable. Changing the LAN address moves the gateway: LAN hosts
     * reach it at the new address once the gateway has applied it.
     *
     * @param address the gateway's new LAN address as dotted text, for example
     *                "192.168.1.1"; null passes the empty text, which the gateway judges
     * @param mask    the LAN subnet mask as dotted text, for example "255.255.255.0"; null
     *                passes the empty text, which the gateway judges
     * @return the gateway's status, unchanged: 0 when the address was set, any other value
     *         when the gateway refused it; -1 when the virtual machine could not provide a
     *         text (an exception is then pending; the gateway is not asked)
     * @example <pre>{@code
     * setLANHostIPJni "192.168.1.1" "255.255.255.0"
     * 0
     * }</pre>
     */
    public native int setLANHostIPJni(String address, String mask);

    /**
     * Switches the gateway's DHCP server on or off and sets its address pool and lease time.
     *
     * <p>The enable text is checked here; the addresses and the lease time are passed to the
     * gateway as given and checked there. When the enable text is refused, the gateway is not
     * asked and the three Java strings are deliberately never released (a small leak of
     * JVM-held string memory on each refused call; a caller that validates the text first
     * avoids it).
     *
     * @param enable       "TRUE" to run the DHCP server, "FALSE" to stop it, compared without
     *                     regard to case ("true" and "True" are accepted); any other text
     *                     (such as "1" or "yes") and null are refused
     * @param startAddress first address of the pool handed out to LAN hosts, dotted text such
     *                     as "192.168.1.2"; null passes the empty text, which the gateway
     *                     judges
     * @param endAddress   last address of the pool, dotted text such as "192.168.1.254"; null
     *                     passes the empty text, which the gateway judges
     * @param duration     lease duration in the gateway's unit, passed through unchanged
     * @return -1 when the enable text is null or neither "TRUE" nor "FALSE", or when the
     *         virtual machine could not provide a text (an exception is then pending); nothing
     *         is changed then. Else the gateway's status, unchanged: 0 when the settings were
     *         applied, any other value when the gateway refused them
     * @example <pre>{@code
     * setLANDHCPInfoJni "true" "192.168.1.2" "192.168.1.254" 86400
     * 0
     * }</pre>
     */
    public native int setLANDHCPInfoJni(String enable, String startAddress, String endAddress, int duration);
}
