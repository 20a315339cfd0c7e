package com.lumarest.smartgateway.lanservices;

/** State and counters of a LAN Ethernet port. */
public class EthQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getLANEthernetInfoJni(int port);

    public native String getLANEthernetStatsJni(int port);
}
