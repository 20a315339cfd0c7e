package com.lumarest.smartgateway.lanservices;

/**
 * Enable, maximum bit rate and duplex mode of a LAN Ethernet port.
 *
 * <p>Switches one of the gateway's LAN Ethernet ports on or off and sets its maximum bit rate and
 * duplex mode. The port number goes to the gateway platform unchanged; the numbering and the
 * values accepted are the platform's, which also judges every text (nothing is validated here).
 * The state is read back with {@link EthQueryServiceImp}. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 *
 * <p>Every method runs on the calling thread and returns as soon as the platform has answered.
 */
public class EthConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Switches a LAN Ethernet port on or off.
     *
     * @param port the port number, passed unchanged (the platform's numbering)
     * @param enable true to enable the port, false to disable it
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure, for
     *         example an unknown port
     * @example <pre>{@code
     * setLANEthernetEnableJni 3 false
     * 0
     * }</pre>
     */
    public native int setLANEthernetEnableJni(int port, boolean enable);

    /**
     * Sets the maximum bit rate of a LAN Ethernet port.
     *
     * <p>The text is copied and given back to the virtual machine before the platform is asked.
     *
     * @param port the port number, passed unchanged (the platform's numbering)
     * @param bitRate the bit rate as the platform names it (on the simulated gateway
     *                {@code "10"}, {@code "100"}, {@code "1000"} or {@code "Auto"}); at most 31
     *                bytes are passed, a longer text is cut there; null is refused with -1
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure, for
     *         example a rate it does not accept; -1 when the text is null
     * @example <pre>{@code
     * setLANEthernetMaxBitRateJni 2 "1000"
     * 0
     * }</pre>
     */
    public native int setLANEthernetMaxBitRateJni(int port, String bitRate);

    /**
     * Sets the duplex mode of a LAN Ethernet port.
     *
     * <p>The text is copied and given back to the virtual machine before the platform is asked.
     *
     * @param port the port number, passed unchanged (the platform's numbering)
     * @param duplexMode the duplex mode as the platform names it (on the simulated gateway
     *                   {@code "Half"}, {@code "Full"} or {@code "Auto"}); at most 31 bytes are
     *                   passed, a longer text is cut there; null is refused with -1
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure, for
     *         example a mode it does not accept; -1 when the text is null
     * @example <pre>{@code
     * setLANEthernetDuplexModeJni 2 "Half"
     * 0
     * }</pre>
     */
    public native int setLANEthernetDuplexModeJni(int port, String duplexMode);
}
