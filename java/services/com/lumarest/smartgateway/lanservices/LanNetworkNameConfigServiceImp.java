package com.lumarest.smartgateway.lanservices;

/** Names the gateway and individual LAN hosts. */
public class LanNetworkNameConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setGatewayNameJni(String name);

    public native int setLANHostNameJni(String mac, String name);
}
