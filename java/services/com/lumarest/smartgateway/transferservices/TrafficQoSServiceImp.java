package com.lumarest.smartgateway.transferservices;

/**
 * Per-flow quality of service on the gateway: which traffic belongs to a flow, the flow's
 * byte counters and current speed, its speed limit and the DSCP value its packets are
 * re-marked with.
 *
 * <p>A flow is a numbered traffic class that the gateway platform keeps; its id is passed to
 * the platform unchanged, and the platform decides which ids exist. Each method is one call
 * of the platform: setters hand back the platform's status unchanged (0 on success), queries
 * answer a JSON object whose first member {@code "Result"} is 0 on success and -1 on failure.
 * Speeds, limits and counters are in the platform's units. Texts from the platform are placed
 * in the replies as they are, without JSON escaping (a library built with its hardened
 * profile escapes them). The methods keep no state and may be called from any thread. The
 * class loads the native library {@code libbundle_sc.so} when it is first used.
 */
public class TrafficQoSServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds traffic (a remote address and port) to a flow.
     *
     * <p>Neither text is checked here: both are handed to the platform as they are, and the
     * platform checks them. A null text reaches the platform as no text at all.
     *
     * @param remoteAddress the remote address of the traffic, e.g. "192.0.2.77"; null is
     *            passed on as no address
     * @param remotePort the remote port or port range as text, e.g. "8000" or "5000-5100";
     *            null is passed on as no port
     * @param flowId the flow's id, passed on unchanged
     * @return the platform's status unchanged: 0 when the traffic was added, another value
     *         (-1 on the simulated gateway) when the platform refuses it or does not know the
     *         flow
     * @example <pre>{@code
     * addTrafficToFlowJni "192.0.2.77" "8000" 2
     * 0
     * }</pre>
     */
    public native int addTrafficToFlowJni(String remoteAddress, String remotePort, int flowId);

    /**
     * Removes traffic (a remote address and port) from a flow.
     *
     * <p>Neither text is checked here: both are handed to the platform as they are. A null
     * text reaches the platform as no text at all.
     *
     * @param remoteAddress the remote address as it was added; null is passed on as no
     *            address
     * @param remotePort the remote port or port range as it was added; null is passed on as no
     *            port
     * @param flowId the flow's id, passed on unchanged
     * @return the platform's status unchanged: 0 when the traffic was removed, another value
     *         (-1 on the simulated gateway) when the flow does not hold it or is unknown
     * @example <pre>{@code
     * deleteTrafficFromFlowJni "192.0.2.55" "1935" 2
     * 0
     * }</pre>
     */
    public native int deleteTrafficFromFlowJni(String remoteAddress, String remotePort, int flowId);

    /**
     * Removes all traffic from a flow.
     *
     * @param flowId the flow's id, passed on unchanged
     * @return the platform's status unchanged: 0 on success, another value (-1 on the
     *         simulated gateway) for an unknown flow
     * @example <pre>{@code
     * deleteAllTrafficFromFlowJni 1
     * 0
     * }</pre>
     */
    public native int deleteAllTrafficFromFlowJni(int flowId);

    /**
     * Lists the traffic (remote address and port pairs) of a flow.
     *
     * <p>The pairs come in the platform's order; texts are inserted unescaped, and a text the
     * platform leaves out is listed as the empty text. The reply holds at most 10,240 bytes:
     * a longer list is cut there and is then not complete JSON (a library built with its
     * hardened profile answers the failure reply instead).
     *
     * @param flowId the flow's id, passed on unchanged
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per item holding {@code "RemoteAddress"} and
     *         {@code "RemotePort"} (both quoted texts); a flow without traffic gives
     *         {@code {"Result":0,"List":[]}}. The failure reply (unknown flow, platform
     *         failure) is exactly {@code {"Result":-1,"List":[]}}.
     * @example <pre>{@code
     * getTrafficInfoByFlowJni 1
     * {"Result":0,"List":[{"RemoteAddress":"203.0.113.10","RemotePort":"443"},{"RemoteAddress":"198.51.100.7","RemotePort":"5000-5100"}]}
     * }</pre>
     */
    public native String getTrafficInfoByFlowJni(int flowId);

    /**
     * Reads the byte counters of a flow.
     *
     * @param flowId the flow's id, passed on unchanged
     * @return a JSON object: {@code "Result"} (bare number, 0), {@code "UsStats"} (bare
     *         number, the upstream byte count) and {@code "DsStats"} (bare number, the
     *         downstream byte count); both counters are unsigned 64-bit values written in
     *         full, beyond the range of {@code int} (parse them with
     *         {@code Long.parseUnsignedLong} or as {@code BigInteger}). The failure reply is
     *         exactly
     *         {@code {"Result":-1,"UsStats":0,"DsStats":0}}.
     * @example <pre>{@code
     * getStatsByFlowJni 1
     * {"Result":0,"UsStats":5000250000,"DsStats":73405320000}
     * }</pre>
     */
    public native String getStatsByFlowJni(int flowId);

    /**
     * Reads the current speed of a flow.
     *
     * <p>Mind the keys: the current speed is reported as "upSpeed" and "downSpeed" (lower
     * case first letter), the limit of {@link #getSpeedLimitByFlowJni} as "UpSpeed" and
     * "DownSpeed"; both spellings are part of the interface.
     *
     * @param flowId the flow's id, passed on unchanged
     * @return a JSON object: {@code "Result"} (bare number, 0), {@code "upSpeed"} and
     *         {@code "downSpeed"} (bare signed 32-bit numbers, in the platform's units; the
     *         simulated gateway uses kbit/s). The failure reply is exactly
     *         {@code {"Result":-1,"upSpeed":0,"downSpeed":0}}.
     * @example <pre>{@code
     * getSpeedByFlowJni 1
     * {"Result":0,"upSpeed":1940,"downSpeed":38800}
     * }</pre>
     */
    public native String getSpeedByFlowJni(int flowId);

    /**
     * Sets the speed limit of a flow.
     *
     * @param flowId the flow's id, passed on unchanged
     * @param upLimit the upstream limit, in the platform's units (kbit/s on the simulated
     *            gateway, where 0 means no limit), passed on unchanged
     * @param downLimit the downstream limit, in the same units, passed on unchanged
     * @return the platform's status unchanged: 0 on success, another value (-1 on the
     *         simulated gateway) when the platform refuses the limit or does not know the flow
     * @example <pre>{@code
     * setSpeedLimitByFlowJni 1 1000 20000
     * 0
     * }</pre>
     */
    public native int setSpeedLimitByFlowJni(int flowId, int upLimit, int downLimit);

    /**
     * Reads the speed limit of a flow.
     *
     * <p>Mind the keys: the limit is reported as "UpSpeed" and "DownSpeed" (capital first
     * letter), unlike the current speed of {@link #getSpeedByFlowJni}; both spellings are part
     * of the interface.
     *
     * @param flowId the flow's id, passed on unchanged
     * @return a JSON object: {@code "Result"} (bare number, 0), {@code "UpSpeed"} and
     *         {@code "DownSpeed"} (bare signed 32-bit numbers, in the platform's units; 0 is no
     *         limit on the simulated gateway). The failure reply is exactly
     *         {@code {"Result":-1,"UpSpeed":0,"DownSpeed":0}}.
     * @example <pre>{@code
     * getSpeedLimitByFlowJni 2
     * {"Result":0,"UpSpeed":128,"DownSpeed":1024}
     * }</pre>
     */
    public native String getSpeedLimitByFlowJni(int flowId);

    /**
     * Sets the DSCP value with which the packets of a flow are re-marked.
     *
     * @param flowId the flow's id, passed on unchanged
     * @param dscp the DSCP code point, 0 to 63; passed on unchanged, the platform checks the
     *            range
     * @return the platform's status unchanged: 0 on success, another value (-1 on the
     *         simulated gateway) for a value out of range or an unknown flow
     * @example <pre>{@code
     * setDSCPRemarkByFlowJni 2 34
     * 0
     * }</pre>
     */
    public native int setDSCPRemarkByFlowJni(int flowId, int dscp);

    /**
     * Reads the DSCP value with which the packets of a flow are re-marked.
     *
     * <p>The result is a number, not JSON. It cannot always tell a failure from a value: -1
     * is both the failure value and what the simulated gateway reports for a flow without
     * re-marking.
     *
     * @param flowId the flow's id, passed on unchanged
     * @return the DSCP value (0 to 63) on success; -1 when the platform answers -1, or fails
     *         without giving a value, or reports no re-marking; a platform failure other than
     *         -1 that still gives a value returns that value
     * @example <pre>{@code
     * getDSCPRemarkByFlowJni 1
     * 46
     * }</pre>
     */
    public native int getDSCPRemarkByFlowJni(int flowId);
}
