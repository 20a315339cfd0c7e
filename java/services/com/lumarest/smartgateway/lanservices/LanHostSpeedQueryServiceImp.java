package com.lumarest.smartgateway.lanservices;

/** Current speed of a LAN host. */
public class LanHostSpeedQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getLANHostSpeedJni(String mac);
}
