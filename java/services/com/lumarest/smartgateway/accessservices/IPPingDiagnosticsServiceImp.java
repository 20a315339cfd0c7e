package com.lumarest.smartgateway.accessservices;

/**
 * Runs a ping from the gateway over one of its WAN connections and reports the outcome.
 *
 * <p>The gateway runs the test in the background: the start method returns at once, and the
 * result method reports "not completed" until the test has finished. The gateway keeps the
 * outcome of its last test. The class loads {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the gateway has answered; the
 * start method does not wait for the test, and neither resolves names or runs commands itself.
 */
public class IPPingDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts a ping of a host over a WAN connection.
     *
     * <p>Parameters missing from the JSON text, and those given as 0, take their defaults:
     * 4 repetitions, a timeout of 10 s, 56-byte data blocks and DSCP 0. Out-of-range values
     * are not refused here; the gateway decides.
     *
     * <p>A refused host text (empty, or 256 bytes or longer) is deliberately never given back to
     * the virtual machine: its modified-UTF-8 copy stays allocated for the life of the string.
     *
     * @param wanIndex  the WAN index of the connection to ping over, passed to the gateway as
     *                  given
     * @param host      the host to ping, a name or an address of 1 to 255 bytes; null, an
     *                  empty text and longer texts are refused
     * @param parameter null, an empty text, or a JSON object with any of
     *                  "NumberOfRepetitions", "Timeout" (milliseconds, rounded down to whole
     *                  seconds; below 1000 gives the default), "DataBlockSize" (bytes) and
     *                  "DSCP", each a JSON number or a decimal text
     * @return -1 when the host is refused or the parameter text is not JSON (no test is
     *         started); else the gateway's status, unchanged: 0 when the test was started
     * @example <pre>{@code
     * startIPPingDiagnosticsJni 2 "www.example.com" "{\"NumberOfRepetitions\":4,\"Timeout\":2000}"
     * 0
     * }</pre>
     */
    public native int startIPPingDiagnosticsJni(int wanIndex, String host, String parameter);

    /**
     * Reports the outcome of the last ping test.
     *
     * @return a JSON object; when the test has completed: "Result" (number, 0),
     *         "SuccessCount" and "FailureCount" (bare numbers, echoes answered and lost),
     *         "AverageResponseTime", "MinimumResponseTime" and "MaximumResponseTime" (bare
     *         numbers, as the gateway measures them), all unsigned 32-bit. While the test runs:
     *         {@code {"Result":-2,"FailReason":"Ping diagonostics not completed"}}; when it
     *         failed: {@code {"Result":-1,"FailReason":"Ping diagonostics fail"}} (the word
     *         "diagonostics" is spelt so in the interface).
     * @example <pre>{@code
     * getIPPingDiagnosticsResultJni
     * {"Result":0,"SuccessCount":4,"FailureCount":0,"AverageResponseTime":12,"MinimumResponseTime":9,"MaximumResponseTime":17}
     * }</pre>
     */
    public native String getIPPingDiagnosticsResultJni();
}
