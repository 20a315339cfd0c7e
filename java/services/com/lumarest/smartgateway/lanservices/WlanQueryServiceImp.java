package com.lumarest.smartgateway.lanservices;

/**
 * WLAN state: SSID information and counters, WPS status, radio switch and radio information,
 * neighbouring access points, associated stations and guest SSIDs (JSON replies).
 *
 * <p>Each query asks the gateway platform (and, for the guest SSIDs and station speeds, the
 * gateway's configuration tree) afresh and keeps nothing. SSID indexes are passed exactly as
 * given, in the platform's numbering (from 1 on the simulated gateway). Where a radio type is
 * given, the text {@code "2.4G"} exactly selects the 2.4 GHz radio; any other text, lower-case
 * {@code "2.4g"} and null included, selects the 5 GHz radio. Booleans in the replies are the
 * JSON strings {@code "TRUE"} and {@code "FALSE"}. The settings are changed with
 * {@link WlanConfigServiceImp}; the SSID password is read with {@link WlanSecretQueryServiceImp}.
 * The class loads the native library {@code libbundle_sc.so} when it is first used.
 *
 * <p>Standard names, used in the {@code "Standard"} members: {@code "11bg"}, {@code "11b"},
 * {@code "11a"}, {@code "11g"}, {@code "11n"}, {@code "11gn"}, {@code "11na"},
 * {@code "11bgn"}, {@code "11ac"}; a standard the gateway reports without a name gives the
 * empty text. Texts that are not valid UTF-8 reach Java with the offending bytes replaced by
 * U+FFFD.
 *
 * <p>Every method runs on the calling thread and returns as soon as the platform has answered;
 * none resolves names or runs commands.
 */
public class WlanQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the state, name, advertisement, standard and encryption mode of one SSID.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return {@code {"Result":0,...}} with these members after {@code "Result"}, in order, all
     *         JSON strings: {@code "Enable"} ({@code "TRUE"} when the SSID is switched on),
     *         {@code "BSSID"} (the access point's MAC text), {@code "SSIDName"} (the name as the
     *         platform gives it, without JSON escaping, so a name holding a double quote or a
     *         backslash makes the reply invalid JSON; a library built with its hardened
     *         profile escapes it), {@code "SSIDAdvertisementEnabled"}
     *         ({@code "TRUE"} when the name is advertised, {@code "FALSE"} when the SSID is
     *         hidden), {@code "Standard"} (a standard name, see the class comment) and
     *         {@code "EncryptionMode"} ({@code "OPEN"}, {@code "WEP"}, {@code "WPAPSK"},
     *         {@code "WPAPSK2"} or {@code "MIXED-WPAPSK2"}; the empty text for a mode the
     *         gateway reports without a name). {@code {"Result":-1,"FailReason":"getWLANSSIDInfo Error"}}
     *         when the platform call fails (for example an SSID the gateway does not have).
     * @example <pre>{@code
     * getWLANSSIDInfoJni 1
     * {"Result":0,"Enable":"TRUE","BSSID":"00:1A:2B:3C:4D:5F","SSIDName":"LMR-3C4D5E","SSIDAdvertisementEnabled":"TRUE","Standard":"11bgn","EncryptionMode":"MIXED-WPAPSK2"}
     * }</pre>
     * @oddity UNESCAPED_QUOTE The SSID name is sent unescaped: <pre>{@code
     * > WlanConfigService setWLANSSIDSecurityJni 1 "Say \"hi\"" MIXED-WPAPSK2 k9w2hq7z
     * 0
     * > WlanQueryService getWLANSSIDInfoJni 1
     * {"Result":0,"Enable":"TRUE","BSSID":"00:1A:2B:3C:4D:5F","SSIDName":"Say "hi"","SSIDAdvertisementEnabled":"TRUE","Standard":"11bgn","EncryptionMode":"MIXED-WPAPSK2"}
     * }</pre>
     */
    public native String getWLANSSIDInfoJni(int ssidIndex);

    /**
     * Reads the traffic counters of one SSID.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return {@code {"Result":0,...}} with these members after {@code "Result"}, in order, all
     *         bare unsigned 32-bit decimal numbers (0 to 4294967295): {@code "TotalBytesSent"},
     *         {@code "TotalBytesReceived"}, {@code "TotalPacketsSent"},
     *         {@code "TotalPacketsReceived"}, {@code "ErrorsSent"}, {@code "ErrorsReceived"},
     *         {@code "DiscardPacketsSent"}, {@code "DiscardPacketsReceived"};
     *         {@code {"Result":-1,"FailReason":"getWLANSSIDStats Error"}} when the platform call
     *         fails (for example an SSID the gateway does not have)
     * @example <pre>{@code
     * getWLANSSIDStatsJni 1
     * {"Result":0,"TotalBytesSent":4026531840,"TotalBytesReceived":987654321,"TotalPacketsSent":3100000,"TotalPacketsReceived":2800000,"ErrorsSent":3,"ErrorsReceived":7,"DiscardPacketsSent":0,"DiscardPacketsReceived":12}
     * }</pre>
     */
    public native String getWLANSSIDStatsJni(int ssidIndex);

    /**
     * Reads the WPS status of one SSID.
     *
     * @param ssidIndex the SSID's index, passed unchanged (the platform's numbering)
     * @return the platform's status value as it came; its meanings are the platform's (on the
     *         simulated gateway 1 while WPS is started, 0 otherwise, -1 for an SSID it does not
     *         have)
     * @example <pre>{@code
     * getWLANWPSStatusJni 1
     * 0
     * }</pre>
     */
    public native int getWLANWPSStatusJni(int ssidIndex);

    /**
     * Tells whether one radio is switched on.
     *
     * @param radioType the radio's name as the platform knows it ({@code "2.4G"} or {@code "5G"}
     *                  on the simulated gateway); at most 31 bytes are passed, a longer text is
     *                  cut there; null passes the empty name
     * @return true exactly when the platform answered 1 (the radio is on); false for any other
     *         answer, failures and unknown radio names included, and when the virtual machine
     *         could not provide the text (an exception is then pending)
     * @example <pre>{@code
     * getWLANHardwareSwitchJni "2.4G"
     * true
     * }</pre>
     */
    public native boolean getWLANHardwareSwitchJni(String radioType);

    /**
     * Reads the channel, channel selection, transmit power and frequency width of one radio.
     *
     * @param radioType {@code "2.4G"} exactly for the 2.4 GHz radio; any other text, and null,
     *                  selects the 5 GHz radio
     * @return {@code {"Result":0,...}} with these members after {@code "Result"}, in order:
     *         {@code "Channel"} (the current channel, a bare number), {@code "AutoChannelEnable"}
     *         ({@code "TRUE"} when the channel is chosen automatically), {@code "ChannelsInUse"}
     *         (a JSON string holding a fixed list of the product, not asked of the platform:
     *         {@code "1,2,3,4,5,6,7,8,9,10,11,12,13"} for the 2.4 GHz radio,
     *         {@code "52,56,60,64,149,153,157,160"} for the 5 GHz radio, whose last entry is
     *         {@code "160"} as the product has always listed it), {@code "TransmitPower"} (the
     *         power in percent as a JSON string: {@code "100"}, {@code "80"}, {@code "60"},
     *         {@code "40"} or {@code "20"} for the platform's levels 1 to 5, {@code "0"} for any
     *         other level) and {@code "FrequencyWidth"} ({@code "20M"}, {@code "40M"},
     *         {@code "Auto20M40M80M"} or {@code "Auto20M40M"});
     *         {@code {"Result":-1,"FailReason":"getWLANRadioInfo Error"}} when the platform call
     *         fails; null when the virtual machine could not provide the text (an exception is
     *         then pending)
     * @example <pre>{@code
     * getWLANRadioInfoJni "2.4G"
     * {"Result":0,"Channel":6,"AutoChannelEnable":"TRUE","ChannelsInUse":"1,2,3,4,5,6,7,8,9,10,11,12,13","TransmitPower":"100","FrequencyWidth":"Auto20M40M"}
     * }</pre>
     */
    public native String getWLANRadioInfoJni(String radioType);

    /**
     * Lists the neighbouring access points one radio sees.
     *
     * <p>The platform reports at most 128 access points. Their names are escaped for JSON here,
     * unlike everywhere else in this class: a double quote becomes {@code \"}, a backslash
     * {@code \\} and a slash {@code \/}; other bytes are placed as they are.
     *
     * @param radioType {@code "2.4G"} exactly for the 2.4 GHz radio; any other text, and null,
     *                  selects the 5 GHz radio
     * @return {@code {"Result":0,"List":[...]}}, one object per access point with these members,
     *         in order: {@code "SSIDName"} (the escaped name), {@code "BSSID"} (its MAC text),
     *         {@code "NetworkType"} (always {@code "AP"}), {@code "Channel"} (a bare number),
     *         {@code "RSSI"} (the signal strength in the platform's unit, dBm on the simulated
     *         gateway, as a JSON string such as {@code "-67"}) and {@code "Standard"} (a standard
     *         name, see the class comment); {@code {"Result":0,"List":[]}} when none is seen;
     *         {@code {"Result":-1,"FailReason":"getWLANNeighbor Error"}} when the platform call
     *         fails; null when no memory could be had for the reply or the virtual machine could
     *         not provide the text (an exception is then pending)
     * @example <pre>{@code
     * getWLANNeighborJni "5G"
     * {"Result":0,"List":[{"SSIDName":"lab\/5G\\ext","BSSID":"8C:3B:AD:44:55:66","NetworkType":"AP","Channel":36,"RSSI":"-67","Standard":"11ac"}]}
     * }</pre>
     */
    public native String getWLANNeighborJni(String radioType);

    /**
     * Lists the wireless stations associated with the gateway's SSIDs, all of them or the ones
     * asked for.
     *
     * <p>For each station the SSID it uses is queried for its name and standard; the station is
     * also looked up in the gateway's speed-limit table (the configuration tree's
     * {@code "BandWidth_Entry0"} to {@code "BandWidth_Entry63"}), but the rates found there only
     * reach the debug trace: {@code "RxRate"} and {@code "TxRate"} are always {@code "0"}.
     *
     * @param macs the stations' MAC addresses as {@code "xx:xx:xx:xx:xx:xx"} texts, matched
     *             without regard to case; null, an empty array or an array of nothing but empty
     *             texts lists every station. Otherwise the list has exactly one entry per element,
     *             in array order: an empty text, or one that matches no station, gives an all-zero
     *             entry {@code {"SSIDIndex":0,"SSIDName":"","MAC":"","RSSI":"0","RxRate":"0","TxRate":"0","Standard":""}}.
     *             At most the first 256 elements are read, texts are cut at 127 bytes; a null
     *             element ends the reading and the array then counts as empty.
     * @return {@code {"Result":0,"List":[...]}}, one object per station with these members, in
     *         order: {@code "SSIDIndex"} (a bare number), {@code "SSIDName"} (the SSID's name
     *         without JSON escaping, as in {@link #getWLANSSIDInfoJni(int)}), {@code "MAC"} (the station's MAC text as the platform gives
     *         it), {@code "RSSI"}, {@code "RxRate"} and {@code "TxRate"} (numbers in JSON strings;
     *         the rates always {@code "0"}) and {@code "Standard"} (the SSID's standard name, see
     *         the class comment). A station whose SSID cannot be queried gives an all-zero entry.
     *         {@code {"Result":0,"List":[]}} when no station is associated;
     *         {@code {"Result":-1,"FailReason":"getWLANHostInfo Error"}} when the platform call
     *         fails or no working memory could be had; null when no memory could be had for the
     *         reply text or the virtual machine could not provide an element's text (an exception
     *         is then pending)
     * @example <pre>{@code
     * getWLANHostInfoJni ["a4:5e:60:c1:22:9b","00:00:00:00:00:01"]
     * {"Result":0,"List":[{"SSIDIndex":1,"SSIDName":"LMR-3C4D5E","MAC":"A4:5E:60:C1:22:9B","RSSI":"-45","RxRate":"0","TxRate":"0","Standard":"11bgn"},{"SSIDIndex":0,"SSIDName":"","MAC":"","RSSI":"0","RxRate":"0","TxRate":"0","Standard":""}]}
     * }</pre>
     * @oddity UNESCAPED_QUOTE The SSID name is sent unescaped: <pre>{@code
     * > WlanConfigService setWLANSSIDSecurityJni 1 "Say \"hi\"" MIXED-WPAPSK2 k9w2hq7z
     * 0
     * > WlanQueryService getWLANHostInfoJni ["A4:5E:60:C1:22:9B"]
     * {"Result":0,"List":[{"SSIDIndex":1,"SSIDName":"Say "hi"","MAC":"A4:5E:60:C1:22:9B","RSSI":"-45","RxRate":"0","TxRate":"0","Standard":"11bgn"}]}
     * }</pre>
     */
    public native String getWLANHostInfoJni(String[] macs);

    /**
     * Lists the guest SSIDs with their duration, remaining time and port isolation.
     *
     * <p>Read from the gateway's configuration tree, nodes {@code "WLanForGuest_Entry0"} and
     * {@code "WLanForGuest_Entry1"} (in that order; an absent node is skipped), so there are at
     * most two entries. When both are present the two objects follow each other without a comma
     * ({@code [{...}{...}]}), which is not valid JSON; this is part of the interface, kept on
     * purpose, and a caller must split the objects itself.
     *
     * @return {@code {"Result":0,"List":[...]}}, one object per guest SSID with these members, in
     *         order: {@code "SSIDIndex"} (the index as the tree stores it, placed bare, unquoted
     *         and unchecked), {@code "Duration"} (a bare number, the platform's unit: minutes on
     *         the simulated gateway), {@code "PortIsolation"} ({@code "TRUE"} or {@code "FALSE"})
     *         and {@code "RemainDuration"} (a bare number, the time left, 0 instead of a negative
     *         value); {@code {"Result":0,"List":[]}} when there is no guest SSID. There is no
     *         failure reply.
     * @example <pre>{@code
     * getGuestSSIDInfoJni
     * {"Result":0,"List":[{"SSIDIndex":3,"Duration":240,"PortIsolation":"TRUE","RemainDuration":135}]}
     * }</pre>
     * @oddity MISSING_COMMA With two guest SSIDs their objects come back to back, with no comma
     *     between them: <pre>{@code
     * > WlanConfigService addWLANGuestSSIDJni 6
     * 0
     * > WlanQueryService getGuestSSIDInfoJni
     * {"Result":0,"List":[{"SSIDIndex":3,"Duration":240,"PortIsolation":"TRUE","RemainDuration":135}{"SSIDIndex":6,"Duration":0,"PortIsolation":"FALSE","RemainDuration":0}]}
     * }</pre>
     * @oddity MISSING_VALUE A guest entry whose SSID index is empty gives {@code "SSIDIndex":,}.
     * @oddity BARE_VALUE The SSID index goes in as the tree holds it, so an index that is no plain
     *     number (e.g. {@code 03}) is no JSON value.
     */
    public native String getGuestSSIDInfoJni();
}
