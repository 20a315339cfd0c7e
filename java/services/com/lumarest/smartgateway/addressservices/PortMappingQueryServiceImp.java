package com.lumarest.smartgateway.addressservices;

/** The port-mapping rules of every WAN connection but the management one, as JSON. */
public class PortMappingQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getPortMappingInfoJni();
}
