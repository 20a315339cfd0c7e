package com.lumarest.smartgateway.commservices;

/** The front-panel LED switch. */
public class DeviceConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setLedSwitchJni(boolean enable);
}
