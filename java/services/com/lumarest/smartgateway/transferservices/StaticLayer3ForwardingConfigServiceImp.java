package com.lumarest.smartgateway.transferservices;

/** Adds and deletes the gateway's IPv4 and IPv6 static routes (route ids 1 to 16). */
public class StaticLayer3ForwardingConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addLayer3ForwardingStaticJni(String dstIPAddr, String dstSubMask,
            String gatewayIPAddr, String interfaceName);

    public native int addIPv6Layer3ForwardingStaticJni(String dstIPPrefix, String nextHop,
            String interfaceName);

    public native int deleteLayer3ForwardingStaticJni(int routeId);

    public native int deleteIPv6Layer3ForwardingStaticJni(int routeId);
}
