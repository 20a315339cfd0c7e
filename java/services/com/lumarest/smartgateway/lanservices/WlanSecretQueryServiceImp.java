package com.lumarest.smartgateway.lanservices;

/**
 * The password of an SSID (the bare text).
 *
 * <p>Reads the password (pre-shared key) of one of the gateway's wireless networks, kept apart
 * from {@link WlanQueryServiceImp} so that bundles can be given the other WLAN queries without
 * the secret. The password is set with
 * {@link WlanConfigServiceImp#setWLANSSIDSecurityJni(int, String, String, String)}. The class
 * loads the native library {@code libbundle_sc.so} when it is first used.
 *
 * <p>The method runs on the calling thread and returns as soon as the platform has answered.
 */
public class WlanSecretQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the password of one SSID.
     *
     * <p>The platform writes the password into a zeroed 512-byte buffer (at most 511 bytes). Its
     * result is not examined: when it fails, for example for an SSID the gateway does not have,
     * the reply is whatever it left in the buffer, usually the empty text. The password is
     * printed in clear in the debug trace when tracing is switched on (the trace flag file
     * {@code /tmp/brelo_debug} exists on the gateway; a library built with its hardened profile
     * masks it).
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return the password as plain text (not JSON); the empty text when the platform wrote
     *         nothing
     * @example <pre>{@code
     * getWLANSSIDPasswordJni 1
     * k9w2hq7z
     * }</pre>
     */
    public native String getWLANSSIDPasswordJni(int ssidIndex);
}
