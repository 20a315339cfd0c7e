package com.lumarest.smartgateway.accessservices;

/**
 * Runs a traceroute from the gateway over one of its WAN connections and reports the route
 * found.
 *
 * <p>The gateway runs the test in the background: the start method returns at once, and the
 * result method reports "not completed" until the test has finished. The class loads
 * {@code libbundle_sc.so} when it is first used.
 *
 * <p>Both methods run on the calling thread and return as soon as the gateway has answered; the
 * start method does not wait for the test, and neither resolves names or runs commands itself.
 */
public class TraceRouteDiagnosticsServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Starts a traceroute to a host over a WAN connection.
     *
     * <p>Parameters missing from the JSON text, and those given as 0, take their defaults:
     * 3 tries per hop, a timeout of 5 s, 38-byte data blocks, DSCP 0 and at most 30 hops.
     * Out-of-range values are not refused here; the gateway decides.
     *
     * <p>A refused host text (empty, or 256 bytes or longer) is deliberately never given back to
     * the virtual machine: its modified-UTF-8 copy stays allocated for the life of the string.
     *
     * @param wanIndex  the WAN index of the connection to trace over, passed to the gateway
     *                  as given
     * @param host      the destination, a name or an address of 1 to 255 bytes; null, an
     *                  empty text and longer texts are refused
     * @param parameter null, an empty text, or a JSON object with any of "NumberOfTries",
     *                  "Timeout" (milliseconds, rounded down to whole seconds; below 1000
     *                  gives the default), "DataBlockSize" (bytes), "DSCP" and "MaxHopCount",
     *                  each a JSON number or a decimal text
     * @return -1 when the host is refused or the parameter text is not JSON (no test is
     *         started); else the gateway's status, unchanged: 0 when the test was started
     * @example <pre>{@code
     * startTraceRouteDiagnosticsJni 2 "www.example.com" "{\"MaxHopCount\":16}"
     * 0
     * }</pre>
     */
    public native int startTraceRouteDiagnosticsJni(int wanIndex, String host, String parameter);

    /**
     * Reports the outcome of the last traceroute test.
     *
     * <p>Each call also deletes the gateway's finished-result file
     * "/tmp/cwmp/traceroutediagnostic_stat", so fetch a completed result once and keep it.
     * Host names and round-trip texts are placed in the reply without JSON escaping (a library
     * built with its hardened profile escapes them).
     *
     * @return a JSON object; when the test has completed: "Result" (number, 0),
     *         "ResponseTime" (bare number), "HopsNumberOfEntries" (bare number, the hops
     *         found) and "RouteHops" (written with a blank after its colon, which is part of the
     *         interface: {@code "RouteHops": [}; an array, one object per hop in
     *         route order with "HopHost" (quoted text, the hop's name), "HopHostAddress"
     *         (quoted text), "HopErrorCode" (bare number) and "HopRTTimes" (quoted text, the
     *         round-trip times, comma-separated)). A very long route is cut after about 4000
     *         characters and may then end with a comma before "]". While the test runs:
     *         {@code {"Result":-2,"FailReaso1n":"TraceRoute diagonostics not completed"}}
     *         (the key "FailReaso1n", with a digit one, is spelt so in this reply only); when
     *         it failed: {@code {"Result":-1,"FailReason":"TraceRoute diagonostics fail"}}.
     * @example <pre>{@code
     * getTraceRouteDiagnosticsResultJni
     * {"Result":0,"ResponseTime":25,"HopsNumberOfEntries":3,"RouteHops": [{"HopHost":"gateway.isp.example","HopHostAddress":"100.64.0.1","HopErrorCode":0,"HopRTTimes":"2,2,3"},{"HopHost":"core1.isp.example","HopHostAddress":"100.64.10.1","HopErrorCode":0,"HopRTTimes":"8,7,9"},{"HopHost":"www.example.com","HopHostAddress":"93.184.216.34","HopErrorCode":0,"HopRTTimes":"24,25,26"}]}
     * }</pre>
     * @oddity TRAILING_COMMA A hop list cut at its limit keeps the comma after its last hop.
     */
    public native String getTraceRouteDiagnosticsResultJni();
}
