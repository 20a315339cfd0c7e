package com.lumarest.smartgateway.transferservices;

/** VLAN bindings, IPv4 and IPv6 route tables and the IPTV service status. */
public class TransferQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getVLANBindInfoJni();

    public native String getLayer3ForwardingStaticConfigInfoJni();

    public native String getLayer3ForwardingCurrentJni();

    public native String getIPv6Layer3ForwardingStaticConfigInfoJni();

    public native String getIPv6Layer3ForwardingCurrentJni();

    public native String getIPTVStatusJni();
}
