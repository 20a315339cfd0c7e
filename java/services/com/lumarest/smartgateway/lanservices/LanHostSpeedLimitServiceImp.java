package com.lumarest.smartgateway.lanservices;

/** Bandwidth limits of a LAN host. */
public class LanHostSpeedLimitServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setLANHostSpeedLimitJni(String mac, int upLimit, int downLimit);
}
