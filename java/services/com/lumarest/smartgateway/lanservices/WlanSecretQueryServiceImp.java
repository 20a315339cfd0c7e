package com.lumarest.smartgateway.lanservices;

/** The password of an SSID (the bare text). */
public class WlanSecretQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getWLANSSIDPasswordJni(int ssidIndex);
}
