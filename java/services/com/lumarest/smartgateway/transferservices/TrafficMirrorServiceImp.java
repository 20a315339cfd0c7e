package com.lumarest.smartgateway.transferservices;

/** Rules that copy selected traffic to a mirror host and port. */
public class TrafficMirrorServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addMirrorRuleJni(String remoteAddress, String remotePort, String direction,
            String protocol, String hostMAC, String mirrorToIP, int mirrorToPort);

    public native int deleteMirrorRuleJni(int entryIndex);

    public native int deleteAllMirrorRuleJni();

    /** "Mirro" is the method's own spelling. */
    public native String getMirroRuleInfoJni();
}
