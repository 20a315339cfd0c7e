package com.lumarest.smartgateway.transferservices;

/**
 * Traffic-forward rules: traffic that matches a remote address and port, a protocol and a LAN
 * host is forwarded by the gateway to another host and port.
 *
 * <p>The gateway platform stores, checks and enforces the rules; this class hands them over
 * as given (nothing is checked here but the rule index of a delete) and reports the
 * platform's answers unchanged. Rules are numbered 0 to 255. Texts from the platform are
 * placed in the list reply as they are, without JSON escaping (a library built with its
 * hardened profile escapes them). The methods keep no state and may be called from any
 * thread. The class loads the native library {@code libbundle_sc.so} when it is first used.
 */
public class TrafficForwardServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds a traffic-forward rule.
     *
     * <p>No text is checked here: all five are handed to the platform as they are, for the
     * duration of the call, and the platform decides what it accepts. A null text reaches the
     * platform as no text at all (the rule is then listed with the empty text there).
     *
     * @param remoteAddress the remote address the traffic goes to or comes from, e.g.
     *            "203.0.113.30"; null for none
     * @param remotePort the remote port or port range as text, e.g. "443" or "8080-8090";
     *            null for none
     * @param protocol the protocol, e.g. "TCP" or "UDP", as the platform accepts it; null for
     *            none
     * @param hostMAC the MAC address of the LAN host whose traffic is forwarded, as
     *            "xx:xx:xx:xx:xx:xx"; null for none
     * @param forwardToIP the address of the host the traffic is forwarded to; the simulated
     *            gateway refuses a rule without one
     * @param forwardToPort the port on that host, passed on unchanged
     * @return the platform's result unchanged: 0 when the rule was added, another value (-1
     *         on the simulated gateway) when the platform refuses it or holds 256 rules
     *         already
     * @example <pre>{@code
     * addForwardRuleJni "203.0.113.30" "443" "TCP" "00:E0:4C:68:01:A2" "192.168.1.3" 8443
     * 0
     * }</pre>
     */
    public native int addForwardRuleJni(String remoteAddress, String remotePort, String protocol,
            String hostMAC, String forwardToIP, int forwardToPort);

    /**
     * Deletes one traffic-forward rule.
     *
     * @param ruleIndex the rule's index, 0 to 255, as the platform numbers its rules (the
     *            simulated gateway numbers them by their position in the list of
     *            {@link #getForwardRuleInfoJni}, which carries no index itself); any other
     *            value, negative ones included, gives -1 without asking the platform
     * @return the platform's result unchanged: 0 when the rule was deleted, another value (-1
     *         on the simulated gateway) for an index that names no rule; -1 for an index
     *         outside 0 to 255
     * @example <pre>{@code
     * deleteForwardRuleJni 0
     * 0
     * }</pre>
     */
    public native int deleteForwardRuleJni(int ruleIndex);

    /**
     * Deletes every traffic-forward rule.
     *
     * @return the platform's result unchanged: 0 on success, another value when the platform
     *         fails
     * @example <pre>{@code
     * deleteAllForwardRuleJni
     * 0
     * }</pre>
     */
    public native int deleteAllForwardRuleJni();

    /**
     * Lists the traffic-forward rules.
     *
     * <p>The rules come in the platform's order. Texts are inserted unescaped; a text the
     * platform leaves out is listed as the empty text. The reply has room for 512 bytes per
     * rule: a list whose rules are longer on average is cut at that size and is then not
     * complete JSON (a library built with its hardened profile answers the failure reply
     * instead).
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per rule holding {@code "RemoteAddress"}, {@code "RemotePort"}
     *         (the port or range as text), {@code "Protocol"}, {@code "HostMAC"},
     *         {@code "ForwardToIP"} (all quoted texts) and {@code "ForwardToPort"} (bare
     *         number). No rules give {@code {"Result":0,"List":[]}}. The failure reply
     *         (platform failure, or no memory for the reply) is exactly
     *         {@code {"Result":-1,"List":[]}}.
     * @example <pre>{@code
     * getForwardRuleInfoJni
     * {"Result":0,"List":[{"RemoteAddress":"203.0.113.25","RemotePort":"8080-8090","Protocol":"TCP","HostMAC":"00:E0:4C:68:01:A2","ForwardToIP":"192.168.1.2","ForwardToPort":8080}]}
     * }</pre>
     */
    public native String getForwardRuleInfoJni();
}
