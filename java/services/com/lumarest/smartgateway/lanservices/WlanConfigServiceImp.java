package com.lumarest.smartgateway.lanservices;

/**
 * WLAN settings: SSID and radio switches, SSID security, the radios' standard, channel,
 * transmit power and frequency width, WPS, and the guest SSID. Every method returns a status
 * (0 success, -1 failure; WPS start and the guest methods hand on the platform's own codes).
 */
public class WlanConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setWLANSSIDSwitchJni(int ssidIndex, boolean enable);

    public native int setWLANSSIDAdvertisementJni(int ssidIndex, boolean enabled);

    public native int setWLANHardwareSwitchJni(String radioType, boolean enable);

    public native int setWLANSSIDSecurityJni(int ssidIndex, String ssidName, String encrypt, String password);

    public native int setWLANStandardJni(String radioType, String standard);

    public native int setWLANRadioChannelJni(String radioType, int channel);

    public native int setWLANRadioPowerJni(String radioType, int transmitPower);

    public native int setWLANRadioFrequencyWidthJni(String radioType, String frequencyWidth);

    public native int startWLANWPSJni(int ssidIndex);

    public native int stopWLANWPSJni(int ssidIndex);

    public native int addWLANGuestSSIDJni(int ssidIndex);

    public native int deleteWLANGuestSSIDJni(int ssidIndex);

    public native int setWLANGuestPortIsolationJni(int ssidIndex, boolean isolate);

    public native int setWLANGuestDurationJni(int ssidIndex, int duration);
}
