package com.lumarest.smartgateway.lanservices;

/**
 * WLAN state: SSID information and counters, WPS status, radio switch and radio information,
 * neighbouring access points, associated stations and guest SSIDs (JSON replies).
 */
public class WlanQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getWLANSSIDInfoJni(int ssidIndex);

    public native String getWLANSSIDStatsJni(int ssidIndex);

    public native int getWLANWPSStatusJni(int ssidIndex);

    public native boolean getWLANHardwareSwitchJni(String radioType);

    public native String getWLANRadioInfoJni(String radioType);

    public native String getWLANNeighborJni(String radioType);

    public native String getWLANHostInfoJni(String[] macs);

    public native String getGuestSSIDInfoJni();
}
