package com.lumarest.smartgateway.lanservices;

/**
 * Current speed of a LAN host.
 *
 * <p>Reads the up-stream and down-stream speed the gateway currently measures for one LAN
 * host. The limits set on a host are read with
 * {@link LANHostsInfoQueryServiceImp#getLANHostSpeedLimitInfoJni(String[])} instead. The class
 * loads the native library {@code libbundle_sc.so} when it is first used.
 *
 * <p>The method runs on the calling thread and returns as soon as the platform has answered.
 */
public class LanHostSpeedQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the current up-stream and down-stream speed of one LAN host.
     *
     * @param mac the host's MAC address: six hexadecimal fields of one or two digits, either
     *            case, separated by colons; anything after the sixth field is ignored. Hyphens
     *            instead of colons, fewer than six fields, and null give the failure reply without
     *            asking the platform.
     * @return {@code {"Result":0,"upSpeed":<up>,"downSpeed":<down>}}: the two speeds as bare
     *         signed 32-bit numbers in the platform's unit; the member names begin in lower case
     *         here, unlike the {@code "UpSpeed"} of the speed-limit list. The failure reply keeps
     *         the same shape: {@code {"Result":-1,"upSpeed":0,"downSpeed":0}}, for a null or
     *         unparsable MAC text or when the platform call fails (for example a host it does not
     *         know).
     * @example <pre>{@code
     * getLANHostSpeedJni "00:E0:4C:68:01:A2"
     * {"Result":0,"upSpeed":120,"downSpeed":4800}
     * }</pre>
     */
    public native String getLANHostSpeedJni(String mac);
}
