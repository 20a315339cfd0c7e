package com.lumarest.smartgateway.accessservices;

/** Ping diagnostics run by the gateway in the background. */
public class IPPingDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts a ping of host over the WAN connection; parameter is a JSON object with
     * NumberOfRepetitions, Timeout (ms), DataBlockSize, DSCP. The platform's code, -1 if refused.
     */
    public native int startIPPingDiagnosticsJni(int wanIndex, String host, String parameter);

    /** JSON: Result 0 with the counts and response times, -2 while running, -1 on failure. */
    public native String getIPPingDiagnosticsResultJni();
}
