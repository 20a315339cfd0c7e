package com.lumarest.smartgateway.addressservices;

/** The gateway's LAN addresses and the settings of its DHCP server, as JSON. */
public class LANIPInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getLANHostIPJni();

    public native String getLANDHCPInfoJni();
}
