package com.lumarest.smartgateway.accessservices;

/** HTTP download speed test run by the gateway in the background. */
public class HttpDownloadDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts a download from url; parameter is a JSON object with MeasurementOffset,
     * TestDuration, NumberOfConnections (all optional). The platform's code, -1 if refused.
     */
    public native int startHttpDownloadDiagnosticsJni(int wanIndex, String url, String parameter);

    /** JSON whose Result is the test state as a text ("Completed" with the figures). */
    public native String getHttpDownloadDiagnosticsResultJni();
}
