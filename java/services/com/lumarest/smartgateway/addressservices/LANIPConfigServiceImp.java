package com.lumarest.smartgateway.addressservices;

/** The gateway's LAN address and its DHCP server. */
public class LANIPConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setLANHostIPJni(String address, String mask);

    /** enable is "TRUE" or "FALSE" in any case; anything else gives -1. */
    public native int setLANDHCPInfoJni(String enable, String startAddress, String endAddress, int duration);
}
