package com.lumarest.smartgateway.accessservices;

/**
 * Runs an HTTP upload speed test from the gateway over one of its WAN connections and
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
public class HttpUploadDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts an HTTP upload speed test towards a URL.
     *
     * <p>The URL text is handed to the gateway, which keeps it for the test: its Java string
     * is deliberately never released (the JVM keeps that string's memory; start tests
     * sparingly). Out-of-range optional values are not refused but replaced: a
     * "MeasurementOffset" above 300 becomes 0, a "TestDuration" above 300 becomes 30 and a
     * "NumberOfConnections" above 4 becomes 1 (each value is first cut to its low 16 bits).
     *
     * @param wanIndex  the WAN index of the connection to test over, passed to the gateway as
     *                  given
     * @param url       where to upload, in the form the gateway accepts; null is refused
     * @param parameter a JSON object with "TestFileLength" (required, bytes to send) and
     *                  optionally "MeasurementOffset" (seconds, 0 to 300, default 0),
     *                  "TestDuration" (seconds, 0 to 300, default 30) and
     *                  "NumberOfConnections" (0 to 4, default 1), each a JSON number or a
     *                  decimal text; null and an empty text are refused
     * @return -1 when the URL is null, the parameter text is null, empty or not JSON, it has no
     *         "TestFileLength", or both the file length and the duration are 0 (no test is
     *         started); else the gateway's status, unchanged: 0 when the test was started
     * @example <pre>{@code
     * startHttpUploadDiagnosticsJni 2 "http://speed.example.net/upload" "{\"TestFileLength\":31457280,\"TestDuration\":5}"
     * 0
     * }</pre>
     */
    public native int startHttpUploadDiagnosticsJni(int wanIndex, String url, String parameter);

    /**
     * Reports the state of the last HTTP upload test and, once it has completed, its figures.
     *
     * @return a JSON object whose "Result" is quoted text. When the test has completed, its
     *         members are separated by a comma and a blank: "Result" ("Completed"),
     *         "TestUploadRate" and "TotalUploadRate" (bare numbers, the rate during the
     *         measurement and over the whole test), "ROMTime", "BOMTime" and "EOMTime"
     *         (quoted text, the times of the request, of the measurement's begin and end),
     *         "TestBytesSent" and "TotalBytesSend" (bare numbers, bytes sent during the
     *         measurement and in total; "TotalBytesSend" is spelt so in the interface),
     *         "TCPOpenRequestTime" and "TCPOpenResponseTime" (quoted text). Otherwise the
     *         reply is the state alone: {@code {"Result":"Requested"}} (running),
     *         {@code {"Result":"None"}} (no test), {@code {"Result":"Error_InitConnectionFailed"}},
     *         {@code {"Result":"Error_NoResponse"}}, {@code {"Result":"Error_Timeout"}} or
     *         {@code {"Result":"Other_Error"}}; an empty text when the gateway reports a
     *         state it has no name for.
     * @example <pre>{@code
     * getHttpUploadDiagnosticsResultJni
     * {"Result":"Completed", "TestUploadRate":48210, "TotalUploadRate":47985, "ROMTime":"2024-05-01T10:00:00.120000", "BOMTime":"2024-05-01T10:00:00.180000", "EOMTime":"2024-05-01T10:00:05.400000", "TestBytesSent":31457280, "TotalBytesSend":31521024, "TCPOpenRequestTime":"2024-05-01T10:00:00.125000", "TCPOpenResponseTime":"2024-05-01T10:00:00.150000"}
     * }</pre>
     */
    public native String getHttpUploadDiagnosticsResultJni();
}
