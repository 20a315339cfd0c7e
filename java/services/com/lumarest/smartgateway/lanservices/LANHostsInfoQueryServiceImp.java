package com.lumarest.smartgateway.lanservices;

/** LAN hosts by MAC address, attachment point or class, their counters and limits, the gateway name and the MAC filter mode. */
public class LANHostsInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getGatewayNameJni();

    public native String getLANHostInfoByMACJni(String[] macs);

    public native String getLANHostInfoByInterfaceJni(String interfaceName);

    public native int getMacFilterModeJni();

    public native String getLANHostInfoByClassJni(String hostClass);

    public native String getLANHostStatsJni(String[] macs);

    public native String getLANHostSpeedLimitInfoJni(String[] macs);
}
