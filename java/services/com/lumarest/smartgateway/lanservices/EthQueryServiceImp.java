package com.lumarest.smartgateway.lanservices;

/**
 * State and counters of a LAN Ethernet port.
 *
 * <p>Reads whether one of the gateway's LAN Ethernet ports is enabled, its link status, bit rate
 * and duplex mode, and its traffic counters. The port number goes to the gateway platform
 * unchanged; the numbering is the platform's (ports 1 to 4 on the simulated gateway). The
 * settings are changed with {@link EthConfigServiceImp}. The class loads the native library
 * {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the platform has answered.
 */
public class EthQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads whether a LAN Ethernet port is enabled, its status, bit rate and duplex mode.
     *
     * <p>The four values are texts of the platform's, placed in the reply as it wrote them
     * (each at most 63 bytes, without JSON escaping; a library built with its hardened profile
     * escapes them); on the simulated gateway the enable text is
     * {@code "1"} or {@code "0"}, the status {@code "Up"}, {@code "NoLink"} or
     * {@code "Disabled"}, the bit rate {@code "10"}, {@code "100"}, {@code "1000"} or
     * {@code "Auto"}, the duplex mode {@code "Half"}, {@code "Full"} or {@code "Auto"}.
     *
     * @param port the port number, passed unchanged (the platform's numbering)
     * @return {@code {"Result":0,"Enable":"...","Status":"...","BitRate":"...","DuplexMode":"..."}},
     *         all four members JSON strings; {@code {"Result":-1,"FailReason":"Get LANEthernetInfo fail"}}
     *         when the platform call fails (for example an unknown port)
     * @example <pre>{@code
     * getLANEthernetInfoJni 1
     * {"Result":0,"Enable":"1","Status":"Up","BitRate":"1000","DuplexMode":"Full"}
     * }</pre>
     */
    public native String getLANEthernetInfoJni(int port);

    /**
     * Reads the traffic counters of a LAN Ethernet port.
     *
     * @param port the port number, passed unchanged (the platform's numbering)
     * @return {@code {"Result":0,"BytesSent":<n>,"BytesReceived":<n>,"PacketsSent":<n>,"PacketsReceived":<n>}},
     *         the four counters as bare unsigned 32-bit decimal numbers (0 to 4294967295; they
     *         wrap around there); {@code {"Result":-1,"FailReason":"Get LANEthernetStats fail"}}
     *         when the platform call fails (for example an unknown port)
     * @example <pre>{@code
     * getLANEthernetStatsJni 1
     * {"Result":0,"BytesSent":1834201442,"BytesReceived":402118877,"PacketsSent":1523044,"PacketsReceived":987311}
     * }</pre>
     */
    public native String getLANEthernetStatsJni(int port);
}
