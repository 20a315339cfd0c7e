package com.lumarest.smartgateway.commservices;

/**
 * The gateway's factory identity and credentials: the manufacturer OUI, the serial number and
 * the default credentials printed on the device label (web password, name and password of the
 * first SSID, device password).
 *
 * <p>Every method returns a plain text (not JSON), exactly as the gateway writes it; the
 * gateway's own result code is not looked at, so a value the gateway cannot give reads as the
 * empty text. Passwords are returned in clear, and while the debug trace is on (the file
 * /tmp/brelo_debug exists) they are also printed on the gateway's standard output (a library
 * built with its hardened profile prints {@code ******} there instead; the replies are the
 * same). The class loads {@code libbundle_sc.so} when it is first used.
 */
public class DeviceSecretInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the manufacturer's OUI (the organisationally unique identifier of the maker).
     *
     * @return the OUI as plain text, up to 63 characters, as the gateway writes it; the empty
     *         text when the gateway gives none. There is no failure reply.
     * @example <pre>{@code
     * getDeviceManufacturerOUIJni
     * 001A2B
     * }</pre>
     */
    public native String getDeviceManufacturerOUIJni();

    /**
     * Reads the gateway's serial number.
     *
     * @return the serial number as plain text, up to 128 characters (a serial number of
     *         exactly 128 characters is returned whole); the empty text when the gateway gives
     *         none. There is no failure reply.
     * @example <pre>{@code
     * getDeviceSerialNumberJni
     * LMR2000A1B2C3D4
     * }</pre>
     */
    public native String getDeviceSerialNumberJni();

    /**
     * Reads the factory default password of the gateway's web interface.
     *
     * @return the password in clear as plain text, up to 255 characters; the empty text when
     *         the gateway gives none. There is no failure reply.
     * @example <pre>{@code
     * getDeviceDefaultWebPasswordJni
     * Lmr@8x2k
     * }</pre>
     */
    public native String getDeviceDefaultWebPasswordJni();

    /**
     * Reads the factory default name of the gateway's first SSID.
     *
     * @return the SSID name as plain text, up to 255 characters; the empty text when the
     *         gateway gives none. There is no failure reply.
     * @example <pre>{@code
     * getDeviceDefaultSSID1NameJni
     * LMR-3C4D5E
     * }</pre>
     */
    public native String getDeviceDefaultSSID1NameJni();

    /**
     * Reads the factory default password of the gateway's first SSID.
     *
     * @return the password in clear as plain text, up to 255 characters; the empty text when
     *         the gateway gives none. There is no failure reply.
     * @example <pre>{@code
     * getDeviceDefaultSSID1PasswordJni
     * k9w2hq7z
     * }</pre>
     */
    public native String getDeviceDefaultSSID1PasswordJni();

    /**
     * Reads the gateway's device password.
     *
     * @return the password in clear as plain text, up to 255 characters; the empty text when
     *         the gateway gives none. There is no failure reply.
     * @example <pre>{@code
     * getDevicePasswordJni
     * useradmin
     * }</pre>
     */
    public native String getDevicePasswordJni();
}
