package bundlesc.console;

import bundlesc.sim.GatewaySim;

/**
 * The framework shell's simulator commands: the simulated gateway seen and changed from the
 * shell while bundles call the bridge.
 * <pre>
 * g! sim:get SECTION KEY            a value, or (absent)
 * g! sim:set SECTION KEY VALUE      sets a value (a person sees the effect in the next call)
 * g! sim:unset SECTION [KEY]        removes a value, or the whole section
 * g! sim:log                        the platform calls since the last clearlog, one a line
 * g! sim:clearlog                   empties the call log
 * g! sim:reset                      an empty gateway: no values, no programmed results
 * g! sim:load [PATH]                the default gateway again, or a state file or folder on top
 *                                   (a bundle_sc-capture folder replaces the whole gateway)
 * g! sim:result FUNCTION RC         every later call of FUNCTION returns RC
 * </pre>
 * Sections of the configuration tree are named "tcapi NODE": quote them in the shell.
 */
public final class SimCommands {

    static final String SCOPE = "sim";
    static final String[] FUNCTIONS = {"get", "set", "unset", "log", "clearlog", "reset", "load", "result"};

    public void get(String section, String key) {
        String value = GatewaySim.get(section, key);
        System.out.println(value == null ? "(absent)" : value);
    }

    public void set(String section, String key, String value) {
        GatewaySim.set(section, key, value);
    }

    public void unset(String section) {
        GatewaySim.unset(section, null);
    }

    public void unset(String section, String key) {
        GatewaySim.unset(section, key);
    }

    public void log() {
        System.out.print(GatewaySim.log());
        System.out.flush();
    }

    public void clearlog() {
        GatewaySim.clearLog();
    }

    public void reset() {
        GatewaySim.reset();
    }

    public void load() {
        report("the default gateway", GatewaySim.loadDefault());
    }

    public void load(String path) {
        report(path, GatewaySim.load(path));
    }

    public void result(String function, int rc) {
        GatewaySim.programResult(function, rc);
    }

    private static void report(String what, int rc) {
        if (rc != 0) {
            BridgeCommands.error("loading " + what + " failed (" + rc + ")");
        }
    }
}
