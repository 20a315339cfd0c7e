package com.lumarest.smartgateway.accessservices;

/** HTTP upload speed test run by the gateway in the background. */
public class HttpUploadDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts an upload to url; parameter is a JSON object with TestFileLength (required),
     * MeasurementOffset, TestDuration, NumberOfConnections. The platform's code, -1 if refused.
     */
    public native int startHttpUploadDiagnosticsJni(int wanIndex, String url, String parameter);

    /** JSON whose Result is the test state as a text ("Completed" with the figures). */
    public native String getHttpUploadDiagnosticsResultJni();
}
