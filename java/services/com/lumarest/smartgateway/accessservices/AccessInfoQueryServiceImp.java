package com.lumarest.smartgateway.accessservices;

/** State of the PON access line and of the WAN connections. */
public class AccessInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /** JSON: TXPower, RXPower, TransceiverTemperature, SupplyVottage, BiasCurrent. */
    public native String getPONIfPhyStatusJni();

    public native int getPONIfUpTimeJni();

    /** JSON: RegisterStatus. */
    public native String getPONIfRegisterStatusJni();

    /** JSON: UsStats, DsStats of the uplink. */
    public native String getUplinkIfStatsJni();

    /** JSON: List of Index, Name, by WAN index. */
    public native String getWANIfListJni();

    /** JSON: UsStats, DsStats of one WAN connection. */
    public native String getWANIfStatsJni(int wanIndex);

    /** JSON: the configuration of one WAN connection. */
    public native String getWANIfInfoJni(int wanIndex);

    /** JSON: UsBandwidth, DsBandwidth. */
    public native String getWanIfBandwidthJni(int wanIndex);

    /** JSON: Uptime, ConnectionStatus, IPv6ConnStatus, LastConnectionError. */
    public native String getWANIfStatusJni(int wanIndex);

    public native int getInternetWANIndexJni();
}
