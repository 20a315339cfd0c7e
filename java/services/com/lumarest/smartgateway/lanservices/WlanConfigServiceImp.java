package com.lumarest.smartgateway.lanservices;

/**
 * WLAN settings: SSID and radio switches, SSID security, the radios' standard, channel,
 * transmit power and frequency width, WPS, and the guest SSID. Every method returns a status
 * (0 success, -1 failure; WPS start, the radio switch and the guest methods hand on the
 * platform's own codes).
 *
 * <p>Each method makes exactly one request to the gateway platform, which owns all WLAN state,
 * checks every value and keeps the settings; nothing is range-checked here. SSID indexes and
 * radio types are passed exactly as given: no conversion between 0-based and 1-based numbering
 * is made, and a radio type is a name of the platform's ({@code "2.4G"} and {@code "5G"} on the
 * simulated gateway, where the SSIDs are numbered from 1). The settings are read back with
 * {@link WlanQueryServiceImp}. The class loads the native library {@code libbundle_sc.so} when it
 * is first used.
 *
 * <p>Every method runs on the calling thread and returns as soon as the platform has answered;
 * none resolves names or runs commands.
 */
public class WlanConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Switches one SSID (wireless network) on or off.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @param enable true to switch the SSID on, false to switch it off
     * @return 0 when the platform made the change, -1 for any failure (for example an SSID the
     *         gateway does not have)
     * @example <pre>{@code
     * setWLANSSIDSwitchJni 2 false
     * 0
     * }</pre>
     */
    public native int setWLANSSIDSwitchJni(int ssidIndex, boolean enable);

    /**
     * Sets whether an SSID's name is advertised (broadcast in beacons) or hidden.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @param enabled true to advertise the SSID, false to hide it
     * @return 0 when the platform made the change, -1 for any failure (for example an SSID the
     *         gateway does not have)
     * @example <pre>{@code
     * setWLANSSIDAdvertisementJni 2 true
     * 0
     * }</pre>
     */
    public native int setWLANSSIDAdvertisementJni(int ssidIndex, boolean enabled);

    /**
     * Switches one radio on or off.
     *
     * @param radioType the radio's name as the platform knows it ({@code "2.4G"} or {@code "5G"}
     *                  on the simulated gateway); at most 63 bytes are passed, a longer text is
     *                  cut there; null is refused with -1
     * @param enable true to switch the radio on, false to switch it off
     * @return the platform's result as it came: 0 success, non-zero (usually -1) failure, for
     *         example a radio name it does not know; -1 when the radio type is null
     * @example <pre>{@code
     * setWLANHardwareSwitchJni "5G" false
     * 0
     * }</pre>
     */
    public native int setWLANHardwareSwitchJni(String radioType, boolean enable);

    /**
     * Sets an SSID's name, encryption mode and password in one request.
     *
     * <p>The password is printed in clear in the debug trace when tracing is switched on (the
     * trace flag file {@code /tmp/brelo_debug} exists on the gateway; a library built with its
     * hardened profile masks it).
     *
     * <p>An empty encryption text is deliberately never given back to the virtual machine: its
     * modified-UTF-8 copy stays allocated for the life of the string. Pass null rather than
     * {@code ""} to ask for the default mode.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @param ssidName the SSID's name; at most 63 bytes are passed, a longer text is cut there;
     *                 null is refused with -1 and nothing is changed
     * @param encrypt the encryption mode: {@code "OPEN"}, {@code "WEP"}, {@code "WPAPSK"},
     *                {@code "WPAPSK2"} or {@code "MIXED-WPAPSK2"} (the names
     *                {@link WlanQueryServiceImp#getWLANSSIDInfoJni(int)} reports; the platform
     *                judges them); null or {@code ""} sets {@code "MIXED-WPAPSK2"}; at most 63
     *                bytes are passed
     * @param password the password (pre-shared key); at most 63 bytes are passed, a longer text
     *                 is cut there; null sets the empty password
     * @return 0 when the platform made the change, -1 for any failure (for example an encryption
     *         mode it does not accept or an SSID it does not have), -1 when the name is null or
     *         the virtual machine could not provide a text (an exception is then pending)
     * @example <pre>{@code
     * setWLANSSIDSecurityJni 1 "LMR-Home" "WPAPSK2" "n3w-s3cret"
     * 0
     * }</pre>
     */
    public native int setWLANSSIDSecurityJni(int ssidIndex, String ssidName, String encrypt, String password);

    /**
     * Sets the WLAN standard of one radio.
     *
     * @param radioType the radio's name as the platform knows it ({@code "2.4G"} or {@code "5G"}
     *                  on the simulated gateway); at most 31 bytes are passed; null is refused
     *                  with -1
     * @param standard the standard as the platform names it, for example {@code "11bgn"},
     *                 {@code "11gn"} or {@code "11ac"} (the names the queries report); at most
     *                 31 bytes are passed; null is refused with -1
     * @return 0 when the platform made the change, -1 for any failure (for example a standard or
     *         radio it does not know) and when either text is null
     * @example <pre>{@code
     * setWLANStandardJni "2.4G" "11gn"
     * 0
     * }</pre>
     */
    public native int setWLANStandardJni(String radioType, String standard);

    /**
     * Sets the channel of one radio.
     *
     * @param radioType the radio's name as the platform knows it ({@code "2.4G"} or {@code "5G"}
     *                  on the simulated gateway); at most 31 bytes are passed; null is refused
     *                  with -1
     * @param channel the channel number, passed unchanged; the platform judges it (on the
     *                simulated gateway 0 switches automatic channel selection on, any other
     *                channel switches it off)
     * @return 0 when the platform made the change, -1 for any failure and when the radio type is
     *         null
     * @example <pre>{@code
     * setWLANRadioChannelJni "2.4G" 11
     * 0
     * }</pre>
     */
    public native int setWLANRadioChannelJni(String radioType, int channel);

    /**
     * Sets the transmit power of one radio.
     *
     * @param radioType the radio's name as the platform knows it ({@code "2.4G"} or {@code "5G"}
     *                  on the simulated gateway); at most 31 bytes are passed; null is refused
     *                  with -1
     * @param transmitPower the transmit power in the platform's unit, passed unchanged (percent
     *                      on the simulated gateway: 100, 80, 60, 40 or 20, the values
     *                      {@link WlanQueryServiceImp#getWLANRadioInfoJni(String)} reports)
     * @return 0 when the platform made the change, -1 for any failure and when the radio type is
     *         null
     * @example <pre>{@code
     * setWLANRadioPowerJni "5G" 60
     * 0
     * }</pre>
     */
    public native int setWLANRadioPowerJni(String radioType, int transmitPower);

    /**
     * Sets the frequency (channel) width of one radio.
     *
     * @param radioType the radio's name as the platform knows it ({@code "2.4G"} or {@code "5G"}
     *                  on the simulated gateway); at most 31 bytes are passed; null is refused
     *                  with -1
     * @param frequencyWidth the width as the platform names it ({@code "20M"}, {@code "40M"},
     *                       {@code "Auto20M40M"} or {@code "Auto20M40M80M"} on the simulated
     *                       gateway); at most 31 bytes are passed; null is refused with -1
     * @return 0 when the platform made the change, -1 for any failure and when either text is
     *         null
     * @example <pre>{@code
     * setWLANRadioFrequencyWidthJni "2.4G" "40M"
     * 0
     * }</pre>
     */
    public native int setWLANRadioFrequencyWidthJni(String radioType, String frequencyWidth);

    /**
     * Starts WPS (push-button pairing) on one SSID.
     *
     * <p>While the file {@code /tmp/wps_debug} exists on the gateway, WPS is started on SSID 1
     * whatever index is given (for bench testing).
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return 0 when WPS was started; -1, -2, -3, -4 or -5, the platform's own refusal codes,
     *         passed on unchanged (their meanings are the platform's); -100 for any other result
     *         of the platform
     * @example <pre>{@code
     * startWLANWPSJni 1
     * 0
     * }</pre>
     */
    public native int startWLANWPSJni(int ssidIndex);

    /**
     * Stops WPS on one SSID.
     *
     * <p>While the file {@code /tmp/wps_debug} exists on the gateway, WPS is stopped on SSID 1
     * whatever index is given.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return 0 when the platform stopped WPS, -1 for any failure
     * @example <pre>{@code
     * stopWLANWPSJni 1
     * 0
     * }</pre>
     */
    public native int stopWLANWPSJni(int ssidIndex);

    /**
     * Makes an SSID a guest SSID.
     *
     * <p>The gateway keeps at most two guest SSIDs; they are listed by
     * {@link WlanQueryServiceImp#getGuestSSIDInfoJni()}.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return the platform's result as it came: 0 success, non-zero failure (on the simulated
     *         gateway -1 when the SSID is a guest already or both guest places are taken)
     * @example <pre>{@code
     * addWLANGuestSSIDJni 2
     * 0
     * }</pre>
     */
    public native int addWLANGuestSSIDJni(int ssidIndex);

    /**
     * Ends an SSID's role as a guest SSID.
     *
     * @param ssidIndex the guest SSID's index, passed unchanged (the platform's numbering)
     * @return the platform's result as it came: 0 success, non-zero failure (on the simulated
     *         gateway -1 when the SSID is not a guest SSID)
     * @example <pre>{@code
     * deleteWLANGuestSSIDJni 3
     * 0
     * }</pre>
     */
    public native int deleteWLANGuestSSIDJni(int ssidIndex);

    /**
     * Sets whether the stations of a guest SSID are isolated from the LAN ports.
     *
     * <p>A pure pass-through: nothing is traced.
     *
     * @param ssidIndex the guest SSID's index, passed unchanged (the platform's numbering)
     * @param isolate true to isolate the guest SSID, false to let it reach the LAN
     * @return the platform's result as it came: 0 success, non-zero failure (on the simulated
     *         gateway -1 when the SSID is not a guest SSID)
     * @example <pre>{@code
     * setWLANGuestPortIsolationJni 3 false
     * 0
     * }</pre>
     */
    public native int setWLANGuestPortIsolationJni(int ssidIndex, boolean isolate);

    /**
     * Sets how long a guest SSID stays available.
     *
     * <p>A pure pass-through: nothing is traced.
     *
     * @param ssidIndex the guest SSID's index, passed unchanged (the platform's numbering)
     * @param duration the duration in the platform's unit, passed unchanged (minutes on the
     *                 simulated gateway, where setting it also restarts the remaining time)
     * @return the platform's result as it came: 0 success, non-zero failure (on the simulated
     *         gateway -1 when the SSID is not a guest SSID or the duration is negative)
     * @example <pre>{@code
     * setWLANGuestDurationJni 3 120
     * 0
     * }</pre>
     */
    public native int setWLANGuestDurationJni(int ssidIndex, int duration);
}
