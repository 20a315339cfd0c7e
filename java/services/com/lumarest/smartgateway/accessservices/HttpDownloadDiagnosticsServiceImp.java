package com.lumarest.smartgateway.accessservices;

/**
 * Runs an HTTP download speed test from the gateway over one of its WAN connections and
 * reports its figures.
 *
 * <p>The gateway runs the test in the background: the start method returns at once, and the
 * result method reports the test's state ("Requested" while it runs) until it has completed.
 * Unlike the other services, the reply's "Result" is the state as a text, not a number. The
 * class loads {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the gateway has answered; the
 * start method does not wait for the test, and neither resolves names or runs commands itself.
 */
public class HttpDownloadDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts an HTTP download speed test from a URL.
     *
     * <p>The URL text is handed to the gateway, which keeps it for the test: its Java string
     * is deliberately never released (the JVM keeps that string's memory; start tests
     * sparingly). Out-of-range values are not refused but replaced: a "MeasurementOffset"
     * above 300 becomes 0, a "TestDuration" above 300 becomes 30 and a "NumberOfConnections"
     * above 4 becomes 1 (each value is first cut to its low 16 bits). A duration of 0 is
     * passed on as it is.
     *
     * @param wanIndex  the WAN index of the connection to test over, passed to the gateway as
     *                  given
     * @param url       what to download, in the form the gateway accepts; null is refused
     * @param parameter null, an empty text (offset 0, 30 seconds, one connection), or a JSON
     *                  object with any of "MeasurementOffset" (seconds, 0 to 300, default 0),
     *                  "TestDuration" (seconds, 0 to 300, default 30) and
     *                  "NumberOfConnections" (0 to 4, default 1), each a JSON number or a
     *                  decimal text
     * @return -1 when the URL is null or the parameter text is not JSON (no test is started);
     *         else the gateway's status, unchanged: 0 when the test was started
     * @example <pre>{@code
     * startHttpDownloadDiagnosticsJni 2 "http://speed.example.net/100MB.bin" "{\"TestDuration\":5,\"NumberOfConnections\":2}"
     * 0
     * }</pre>
     */
    public native int startHttpDownloadDiagnosticsJni(int wanIndex, String url, String parameter);

    /**
     * Reports the state of the last HTTP download test and, once it has completed, its
     * figures.
     *
     * @return a JSON object whose "Result" is quoted text. When the test has completed, its
     *         members are separated by a comma and a blank: "Result" ("Completed"),
     *         "TestDownloadRate" and "TotalDownloadRate" (bare numbers, the rate during the
     *         measurement and over the whole test), "ROMTime", "BOMTime" and "EOMTime"
     *         (quoted text, the times of the request, of the measurement's begin and end),
     *         "TestBytesReceived" and "TotalBytesReceived" (bare numbers, bytes received
     *         during the measurement and in total), "TCPOpenRequestTime" and
     *         "TCPOpenResponseTime" (quoted text). Otherwise the reply is the state alone:
     *         {@code {"Result":"Requested"}} (running), {@code {"Result":"None"}} (no test),
     *         {@code {"Result":"Error_InitConnectionFailed"}},
     *         {@code {"Result":"Error_NoResponse"}}, {@code {"Result":"Error_Timeout"}} or
     *         {@code {"Result":"Other_Error"}}; an empty text when the gateway reports a
     *         state it has no name for.
     * @example <pre>{@code
     * getHttpDownloadDiagnosticsResultJni
     * {"Result":"Completed", "TestDownloadRate":195340, "TotalDownloadRate":194870, "ROMTime":"2024-05-01T10:01:00.110000", "BOMTime":"2024-05-01T10:01:00.160000", "EOMTime":"2024-05-01T10:01:05.330000", "TestBytesReceived":127926272, "TotalBytesReceived":128057344, "TCPOpenRequestTime":"2024-05-01T10:01:00.114000", "TCPOpenResponseTime":"2024-05-01T10:01:00.139000"}
     * }</pre>
     */
    public native String getHttpDownloadDiagnosticsResultJni();
}
