package com.lumarest.smartgateway.transferservices;

/** Sets and clears the VLAN binding of a LAN interface. */
public class VLANBindConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setVLANBindJni(String lanInterface, String bind);

    public native int clearVLANBindJni(String lanInterface);
}
