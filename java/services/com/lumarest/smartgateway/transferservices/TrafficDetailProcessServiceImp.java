package com.lumarest.smartgateway.transferservices;

/**
 * HTTP traffic-process rules: HTTP traffic that matches a remote address and port, a
 * direction, a LAN host, request methods and headers is handed by the gateway to a named
 * bundle.
 *
 * <p>The gateway platform stores, checks and enforces the rules; this class hands them over
 * as given (nothing is checked here but the rule index of a delete) and reports the
 * platform's answers unchanged. Rules are numbered 0 to 255. Texts from the platform are
 * placed in the list reply as they are, without JSON escaping (a library built with its
 * hardened profile escapes them). The methods keep no state and may be called from any
 * thread. The class loads the native library {@code libbundle_sc.so} when it is first used.
 */
public class TrafficDetailProcessServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Adds an HTTP traffic-process rule.
     *
     * <p>No value is checked here: the texts are handed to the platform as they are, for the
     * duration of the call, and the platform decides what it accepts. A null text reaches the
     * platform as no text at all. Each of the three lists is joined into one text with ","
     * between the items, without quotes, blanks or brackets ({@code ["GET","POST"]} becomes
     * {@code GET,POST}); a null list or a null item joins as empty, and a joined list is cut
     * at 1023 bytes.
     *
     * @param remoteAddress the remote address of the HTTP traffic, e.g. "198.51.100.81"; null
     *            for none
     * @param remotePort the remote port, passed on unchanged
     * @param direction the direction of the traffic, e.g. "UP" or "DOWN", as the platform
     *            accepts it; null for none
     * @param hostMAC the MAC address of the LAN host, as "xx:xx:xx:xx:xx:xx"; null for none
     * @param methodList the HTTP request methods to match, e.g. {@code ["GET","HEAD"]};
     *            joined as above
     * @param secondList a second list of texts that the platform keeps with the rule, joined
     *            the same way; its meaning is the platform's, and the rule list does not
     *            report it back
     * @param headerList the HTTP header names to match, e.g. {@code ["Host"]}; joined as above
     * @param bundleName the symbolic name of the bundle the traffic is handed to; the
     *            simulated gateway refuses a rule without one
     * @return the platform's result unchanged: 0 when the rule was added, another value (-1
     *         on the simulated gateway) when the platform refuses it or holds 256 rules
     *         already; -1 also when there is no memory for a joined list (the platform is not
     *         asked then)
     * @example <pre>{@code
     * addHTTPTrafficProcessRuleJni "198.51.100.81" 8080 "DOWN" "F0:18:98:4B:7E:21" ["GET","HEAD"] ["text/html"] ["Host"] "com.lumarest.parental"
     * 0
     * }</pre>
     */
    public native int addHTTPTrafficProcessRuleJni(String remoteAddress, int remotePort, String direction,
            String hostMAC, String[] methodList, String[] secondList, String[] headerList, String bundleName);

    /**
     * Deletes one HTTP traffic-process rule.
     *
     * @param ruleIndex the rule's index, 0 to 255, as the platform numbers its rules (the
     *            simulated gateway numbers them by their position in the list of
     *            {@link #getHTTPTrafficProcessRuleInfoJni}, which carries no index itself);
     *            any other value, negative ones included, gives -1 without asking the platform
     * @return the platform's result unchanged: 0 when the rule was deleted, another value (-1
     *         on the simulated gateway) for an index that names no rule; -1 for an index
     *         outside 0 to 255
     * @example <pre>{@code
     * deleteHTTPTrafficProcessRuleJni 0
     * 0
     * }</pre>
     */
    public native int deleteHTTPTrafficProcessRuleJni(int ruleIndex);

    /**
     * Deletes every HTTP traffic-process rule.
     *
     * @return the platform's result unchanged: 0 on success, another value when the platform
     *         fails
     * @example <pre>{@code
     * deleteAllHTTPTrafficProcessRuleJni
     * 0
     * }</pre>
     */
    public native int deleteAllHTTPTrafficProcessRuleJni();

    /**
     * Lists the HTTP traffic-process rules.
     *
     * <p>The rules come in the platform's order. Texts are inserted unescaped; a text the
     * platform leaves out is listed as the empty text. Mind two things that are part of the
     * interface: the remote port is a number written inside quotes, and the method and
     * header lists are placed between the brackets exactly as the platform keeps them, with
     * no quoting added here (the simulated gateway keeps every item quoted, so the members
     * read as arrays of strings). The second list given on adding is not reported. The reply
     * has room for 512 bytes per rule: a list whose rules are longer on average is cut at
     * that size and is then not complete JSON (a library built with its hardened profile
     * answers the failure reply instead, and also when a method or header list is not the
     * inside of a JSON array, so no list can add a member to the reply).
     *
     * @return a JSON object: {@code "Result"} (bare number, 0), then {@code "List"}, an array
     *         with one object per rule holding {@code "RemoteAddress"} (quoted text),
     *         {@code "RemotePort"} (quoted number), {@code "Direction"}, {@code "HostMAC"}
     *         (quoted texts), {@code "MethodList"} and {@code "HeaderList"} (arrays, the
     *         platform's list text between brackets) and {@code "BundleName"} (quoted text).
     *         No rules give {@code {"Result":0,"List":[]}}. The failure reply (platform
     *         failure, or no memory for the reply) is exactly {@code {"Result":-1,"List":[]}}.
     * @example <pre>{@code
     * getHTTPTrafficProcessRuleInfoJni
     * {"Result":0,"List":[{"RemoteAddress":"198.51.100.80","RemotePort":"80","Direction":"UP","HostMAC":"F0:18:98:4B:7E:21","MethodList":["GET","POST"],"HeaderList":["Host","User-Agent"],"BundleName":"com.lumarest.parental"}]}
     * }</pre>
     * @oddity BARE_VALUE The method and header lists go between the brackets as the gateway keeps
     *     them: a list kept without quotes reads {@code [GET,POST]}.
     */
    public native String getHTTPTrafficProcessRuleInfoJni();
}
