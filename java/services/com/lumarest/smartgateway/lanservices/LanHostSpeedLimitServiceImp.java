package com.lumarest.smartgateway.lanservices;

/**
 * Bandwidth limits of a LAN host.
 *
 * <p>Sets the up-stream and down-stream bandwidth limits the gateway applies to one LAN host.
 * The limits in force are read back with
 * {@link LANHostsInfoQueryServiceImp#getLANHostSpeedLimitInfoJni(String[])}. The class loads the
 * native library {@code libbundle_sc.so} when it is first used.
 *
 * <p>The method runs on the calling thread and returns as soon as the platform has answered.
 */
public class LanHostSpeedLimitServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Sets the bandwidth limits of one LAN host.
     *
     * <p>The MAC text is turned into the six octets of the address before the platform is asked;
     * the two limits are passed unchanged, in the platform's unit (the platform decides which
     * values it accepts and what 0 means).
     *
     * @param mac the host's MAC address: six hexadecimal fields of one or two digits, either
     *            case, separated by colons ({@code "f0:18:98:4b:7e:21"} and
     *            {@code "F0:18:98:4B:7E:21"} are the same host); anything after the sixth field is
     *            ignored. Hyphens instead of colons, fewer than six fields, and null are refused
     *            (-1) without asking the platform.
     * @param upLimit the up-stream limit, passed unchanged
     * @param downLimit the down-stream limit, passed unchanged
     * @return 0 when the platform set the limits; -1 when the MAC text is null or does not parse,
     *         or the platform refused (for example a host it does not know)
     * @example <pre>{@code
     * setLANHostSpeedLimitJni "f0:18:98:4b:7e:21" 4096 40960
     * 0
     * }</pre>
     */
    public native int setLANHostSpeedLimitJni(String mac, int upLimit, int downLimit);
}
