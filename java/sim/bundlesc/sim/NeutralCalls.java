package bundlesc.sim;

import java.lang.reflect.Method;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Map;

/**
 * Calls of every native that leave the default simulated gateway as it was, for the programs
 * that call every native over and over (the soak test, the JVM benchmark): setters get the
 * values the gateway already holds or targets that do not exist, the platform calls that have
 * no harmless form are refused by the simulated gateway, and no call takes a path that keeps a
 * Java text on purpose (so a long run shows what the library keeps, not what its design does).
 */
public final class NeutralCalls {
    /** The MAC text of a host of the default gateway. */
    public static final String HOST = "00:E0:4C:68:01:A2";

    /**
     * Platform calls that have no harmless form (they empty whole tables, restart the gateway,
     * or add rules that another call's delete would race with): see {@link #refuseHarmful()}.
     */
    public static final List<String> REFUSED = Collections.unmodifiableList(Arrays.asList(
            "brelo_deleteAllFTPAccount", "brelo_deleteAllSambaAccount", "brelo_reset",
            "brelo_addForwardRule", "brelo_addHTTPTrafficProcessRule", "brelo_addTrafficToFlow"));

    /**
     * Natives whose answers the simulated gateway changes by design from one call to the next:
     * traffic counters and speeds that move, diagnostics that run for a few polls, a
     * registration and a WPS session that advance, a USB device that is opened, read and
     * closed. Two calls of them in a row give different replies even from one thread.
     */
    public static final List<String> LIVE = Collections.unmodifiableList(Arrays.asList(
            "getStatsByFlowJni", "getSpeedByFlowJni",
            "getIPPingDiagnosticsResultJni", "getTraceRouteDiagnosticsResultJni",
            "getHttpUploadDiagnosticsResultJni", "getHttpDownloadDiagnosticsResultJni",
            "getPasswordRegistrationInfoJni", "setPasswordRegistrationJni",
            "getWLANWPSStatusJni", "startWLANWPSJni", "stopWLANWPSJni",
            "usbOpenJni", "usbCloseJni", "usbReadJni", "usbWriteJni", "usbDataAvailableJni",
            "usbRegisterJni", "usbUnregisterJni", "usbLockJni", "usbUnlockJni", "usbSetSerialJni"));

    private static final Map<String, Object[]> ARGUMENTS = new HashMap<String, Object[]>();

    static {
        String[] host = {HOST};
        ARGUMENTS.put("getLANHostInfoByMACJni", new Object[] {host});
        ARGUMENTS.put("getLANHostStatsJni", new Object[] {host});
        ARGUMENTS.put("getLANHostSpeedLimitInfoJni", new Object[] {host});
        ARGUMENTS.put("getWLANHostInfoJni", new Object[] {host});
        ARGUMENTS.put("getLANHostInfoByInterfaceJni", new Object[] {"LAN1"});
        ARGUMENTS.put("getLANHostInfoByClassJni", new Object[] {"ONLINE"});
        ARGUMENTS.put("getLANHostSpeedJni", new Object[] {HOST});
        // Setters: the values the default gateway holds, or targets that do not exist.
        ARGUMENTS.put("setGatewayNameJni", new Object[] {"Lumarest-HGU"});
        ARGUMENTS.put("addLANHostToBlackListJni", new Object[] {new String[] {"3C:5A:B4:10:22:07"}});
        ARGUMENTS.put("addLANHostToTrustListJni", new Object[] {new String[] {"F0:18:98:4B:7E:21"}});
        ARGUMENTS.put("addLANHostToStorageBlackListJni",
                new Object[] {new String[] {"9C:B6:D0:0A:44:E3"}});
        String[] stranger = {"02:00:00:00:00:99"};
        ARGUMENTS.put("deleteLANHostFromBlackListJni", new Object[] {stranger});
        ARGUMENTS.put("deleteLANHostFromTrustListJni", new Object[] {stranger});
        ARGUMENTS.put("deleteLANHostFromStorageBlackListJni", new Object[] {stranger});
        ARGUMENTS.put("setSpeedLimitByFlowJni", new Object[] {1, 0, 0});
        ARGUMENTS.put("setDSCPRemarkByFlowJni", new Object[] {1, 46});
        ARGUMENTS.put("deleteLayer3ForwardingStaticJni", new Object[] {99});
        ARGUMENTS.put("deleteIPv6Layer3ForwardingStaticJni", new Object[] {99});
        ARGUMENTS.put("vpnOffJni", new Object[] {"203.0.113.250"});
        ARGUMENTS.put("deleteWLANGuestSSIDJni", new Object[] {7});
        ARGUMENTS.put("deleteWANIfJni", new Object[] {99});
        ARGUMENTS.put("setWANIfJni", new Object[] {99, "{}"});
        ARGUMENTS.put("addWANIfJni", new Object[] {"1", "1", "none of them"});
        ARGUMENTS.put("vpnOnJni", new Object[] {"", "user", "secret"});
        ARGUMENTS.put("addWLANGuestSSIDJni", new Object[] {3});
        ARGUMENTS.put("addFTPAccountJni", new Object[] {"anna", "ftp4anna"});
        ARGUMENTS.put("deleteFTPAccountJni", new Object[] {"nobody"});
        ARGUMENTS.put("addSambaAccountJni", new Object[] {"media", "m3dia-share"});
        ARGUMENTS.put("deleteSambaAccountJni", new Object[] {"nobody"});
        ARGUMENTS.put("deleteForwardRuleJni", new Object[] {99});
        ARGUMENTS.put("deleteHTTPTrafficProcessRuleJni", new Object[] {99});
        ARGUMENTS.put("deleteMirrorRuleJni", new Object[] {99});
        // A device that does not exist: an open of a real one adds a handle nobody closes.
        ARGUMENTS.put("usbOpenJni", new Object[] {99});
        // Paths that keep no Java text. A refusal keeps the refused texts on purpose (the VM's
        // copy of each stays allocated), so these calls are accepted instead and change
        // nothing: the DHCP pool the gateway holds; valid texts, given back, and then a
        // refusal: a port mapping on a WAN that does not exist, a mirror rule to port 0.
        ARGUMENTS.put("setLANDHCPInfoJni", new Object[] {"TRUE", "192.168.1.2", "192.168.1.254", 86400});
        ARGUMENTS.put("addPortMappingJni", new Object[] {99, 8080, 80, "TCP", "192.168.1.20"});
        ARGUMENTS.put("addMirrorRuleJni",
                new Object[] {null, "53", "ALL", "UDP", HOST, "192.168.1.200", 0});
        // These keep their text on every call (the URL goes to the platform, the subscriber is
        // never given back), except a null one, which is never copied.
        ARGUMENTS.put("startHttpUploadDiagnosticsJni", new Object[] {1, null, "1"});
        ARGUMENTS.put("startHttpDownloadDiagnosticsJni", new Object[] {1, null, "1"});
        ARGUMENTS.put("subscribeVoIPEventJni", new Object[] {null, new String[] {"NOTIFY_VOICE_CALL_INFO"}});
        ARGUMENTS.put("unSubscribeVoIPEventJni", new Object[] {null, new String[] {"NOTIFY_VOICE_CALL_INFO"}});
    }

    private NeutralCalls() {}

    /** Arguments for `m` that leave the gateway as it was (with the harmful calls refused). */
    public static Object[] argumentsFor(Method m) {
        Object[] args = ARGUMENTS.get(m.getName());
        return args != null ? args : plainArgumentsFor(m);
    }

    /** Plain arguments of the parameter types the service classes use. */
    public static Object[] plainArgumentsFor(Method m) {
        Class<?>[] types = m.getParameterTypes();
        Object[] args = new Object[types.length];
        for (int i = 0; i < types.length; i++) {
            Class<?> t = types[i];
            if (t == int.class) {
                args[i] = 1;
            } else if (t == boolean.class) {
                args[i] = Boolean.TRUE;
            } else if (t == byte.class) {
                args[i] = (byte) 1;
            } else if (t == String.class) {
                args[i] = "1";
            } else if (t == String[].class) {
                args[i] = new String[] {HOST};
            } else if (t == byte[].class) {
                args[i] = new byte[16];
            } else {
                throw new IllegalArgumentException(m + ": parameter type " + t);
            }
        }
        return args;
    }

    /** Programs the simulated gateway to refuse (-1) every call of {@link #REFUSED}. */
    public static void refuseHarmful() {
        for (String function : REFUSED) {
            GatewaySim.programResult(function, -1);
        }
    }
}
