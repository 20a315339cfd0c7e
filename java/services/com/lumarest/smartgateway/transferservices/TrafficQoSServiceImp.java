package com.lumarest.smartgateway.transferservices;

/** Per-flow quality of service: a flow's traffic, counters, speed, speed limit and DSCP re-marking. */
public class TrafficQoSServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int addTrafficToFlowJni(String remoteAddress, String remotePort, int flowId);

    public native int deleteTrafficFromFlowJni(String remoteAddress, String remotePort, int flowId);

    public native int deleteAllTrafficFromFlowJni(int flowId);

    public native String getTrafficInfoByFlowJni(int flowId);

    public native String getStatsByFlowJni(int flowId);

    public native String getSpeedByFlowJni(int flowId);

    public native int setSpeedLimitByFlowJni(int flowId, int upLimit, int downLimit);

    public native String getSpeedLimitByFlowJni(int flowId);

    public native int setDSCPRemarkByFlowJni(int flowId, int dscp);

    public native int getDSCPRemarkByFlowJni(int flowId);
}
