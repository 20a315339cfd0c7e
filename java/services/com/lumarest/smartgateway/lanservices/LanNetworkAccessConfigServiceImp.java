package com.lumarest.smartgateway.lanservices;

/** The MAC filter mode and the network black list, storage black list and trust list. */
public class LanNetworkAccessConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setMacFilterModeJni(int mode);

    public native int addLANHostToBlackListJni(String[] macs);

    public native int deleteLANHostFromBlackListJni(String[] macs);

    public native int addLANHostToStorageBlackListJni(String[] macs);

    public native int deleteLANHostFromStorageBlackListJni(String[] macs);

    public native int addLANHostToTrustListJni(String[] macs);

    public native int deleteLANHostFromTrustListJni(String[] macs);
}
