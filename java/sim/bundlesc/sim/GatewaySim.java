package bundlesc.sim;

import java.nio.charset.StandardCharsets;

/**
 * Programs the simulated gateway that stands in for libbrelo.so.1 and libtcapi.so.1 when the
 * bridge runs off the gateway. The simulated gateway is a set of sections of key = value texts
 * (see sim/gateway/*.ini); configuration-tree nodes are the sections named "tcapi &lt;node&gt;".
 * Every platform call is logged as one line "function(arguments)".
 */
public final class GatewaySim {
    static {
        System.loadLibrary("gatewaysim_jni");
    }

    private GatewaySim() {}

    /** Forgets everything: an empty gateway, no programmed results, an empty call log. */
    public static native void reset();

    /**
     * Resets, then loads the default simulated gateway and the configuration tree saved in
     * $BRELO_SIM_SAVE, if any (its nodes replace those of the same name); 0 on success.
     */
    public static native int loadDefault();

    /** As {@link #loadDefault()}, without reading a saved tree back; 0 on success. */
    public static native int loadFresh();

    /**
     * Loads a state file or a directory of *.ini files on top of the current state; a folder
     * captured by bundle_sc-capture replaces the whole gateway (one that is incomplete is
     * refused). 0 on success.
     */
    public static native int load(String path);

    /** Sets a value from raw bytes (for texts that are not UTF-8 on the gateway). */
    public static native void setBytes(String section, String key, byte[] value);

    /** Sets a value; the text reaches the platform as UTF-8. */
    public static void set(String section, String key, String value) {
        setBytes(section, key, value.getBytes(StandardCharsets.UTF_8));
    }

    /** Removes a value, or the whole section when key is null. */
    public static native void unset(String section, String key);

    /** The raw bytes of a value, or null when absent. */
    public static native byte[] getBytes(String section, String key);

    /** A value read as UTF-8, or null when absent. */
    public static String get(String section, String key) {
        byte[] v = getBytes(section, key);
        return v == null ? null : new String(v, StandardCharsets.UTF_8);
    }

    /** Every later call of the platform function returns rc. */
    public static native void programResult(String function, int rc);

    /** The platform function returns its usual result again. */
    public static native void clearResult(String function);

    /**
     * 1 when the simulated platform (libbrelo.so.1, libtcapi.so.1) has the function, 0 when it
     * has not, -1 when the platform libraries cannot be opened to tell.
     */
    public static native int platformFunction(String function);

    /** Whether the state has a section of that name (possibly without values). */
    public static native boolean hasSection(String section);

    private static native byte[] logBytes();

    private static native byte[] logResultsBytes();

    /** The platform calls since the last reset or clearLog, one "function(arguments)" line each. */
    public static String log() {
        return new String(logBytes(), StandardCharsets.UTF_8);
    }

    /** The same lines, each call that has returned followed by " -> " and its return code. */
    public static String logWithResults() {
        return new String(logResultsBytes(), StandardCharsets.UTF_8);
    }

    public static native void clearLog();

    /** How many times the platform function was called. */
    public static native int logCount(String function);

    /** Where tcapi_save writes the configuration tree (null: nowhere). */
    public static native void setSavePath(String path);
}
