package com.lumarest.smartgateway.transferservices;

/** Destination addresses (IPv4, IPv6 or domain names) whose traffic the gateway monitors, per bundle. */
public class TrafficMonitoringConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addTrafficMonitoringDestAddressJni(String[] destAddresses, String bundleName);

    public native int deleteTrafficMonitoringDestAddressJni(String[] destAddresses, String bundleName);

    public native String getTrafficMonitoringDestAddressInfoJni();
}
