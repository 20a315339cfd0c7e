package com.lumarest.smartgateway.transferservices;

/** The L2TP VPN tunnel, its state and addresses, and the destinations routed into it. */
public class L2TPVPNServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String vpnOnJni(String serverIp, String userName, String password);

    public native String vpnOffJni(String serverIp);

    public native String getVpnStatCmdJni();

    public native String getConnectedIpListJni();

    public native int addVpnDestIPJni(String[] destinations);

    public native int deleteVpnDestIPJni(String[] destinations);
}
