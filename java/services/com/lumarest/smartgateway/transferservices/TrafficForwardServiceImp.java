package com.lumarest.smartgateway.transferservices;

/** Traffic-forward rules: traffic of a remote address, port, protocol and LAN host forwarded to another host and port. */
public class TrafficForwardServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addForwardRuleJni(String remoteAddress, String remotePort, String protocol,
            String hostMAC, String forwardToIP, int forwardToPort);

    public native int deleteForwardRuleJni(int ruleIndex);

    public native int deleteAllForwardRuleJni();

    public native String getForwardRuleInfoJni();
}
