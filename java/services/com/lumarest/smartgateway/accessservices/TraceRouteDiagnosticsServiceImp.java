package com.lumarest.smartgateway.accessservices;

/** Traceroute diagnostics run by the gateway in the background. */
public class TraceRouteDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts a traceroute to host; parameter is a JSON object with NumberOfTries, Timeout (ms),
     * DataBlockSize, DSCP, MaxHopCount. The platform's code, -1 if refused.
     */
    public native int startTraceRouteDiagnosticsJni(int wanIndex, String host, String parameter);

    /** JSON: Result 0 with ResponseTime and RouteHops, -2 while running, -1 on failure. */
    public native String getTraceRouteDiagnosticsResultJni();
}
