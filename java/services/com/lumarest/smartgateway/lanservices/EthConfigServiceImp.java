package com.lumarest.smartgateway.lanservices;

/** Enable, maximum bit rate and duplex mode of a LAN Ethernet port. */
public class EthConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setLANEthernetEnableJni(int port, boolean enable);

    public native int setLANEthernetMaxBitRateJni(int port, String bitRate);

    public native int setLANEthernetDuplexModeJni(int port, String duplexMode);
}
