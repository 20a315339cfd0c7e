package com.lumarest.smartgateway.commservices;

/** Restore of the gateway. */
public class DeviceRsetServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int resetJni();
}
