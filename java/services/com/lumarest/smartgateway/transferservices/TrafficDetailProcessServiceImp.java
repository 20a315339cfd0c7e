package com.lumarest.smartgateway.transferservices;

/** HTTP traffic-process rules: HTTP traffic matching an address, port, direction, host, methods and headers handed to a bundle. */
public class TrafficDetailProcessServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addHTTPTrafficProcessRuleJni(String remoteAddress, int remotePort, String direction,
            String hostMAC, String[] methodList, String[] secondList, String[] headerList, String bundleName);

    public native int deleteHTTPTrafficProcessRuleJni(int ruleIndex);

    public native int deleteAllHTTPTrafficProcessRuleJni();

    public native String getHTTPTrafficProcessRuleInfoJni();
}
