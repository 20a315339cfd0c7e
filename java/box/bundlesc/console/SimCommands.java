package bundlesc.console;

import java.util.Arrays;

import org.apache.felix.service.command.Descriptor;

import bundlesc.sim.GatewaySim;

/**
 * The framework shell's simulator commands: the simulated gateway seen and changed from the
 * shell while bundles call the bridge.
 * <pre>
 * g! sim:get SECTION... KEY           a value, or (absent)
 * g! sim:set SECTION... KEY VALUE     sets a value (a person sees the effect in the next call)
 * g! sim:unset SECTION... [KEY]       removes a value, or the whole section
 * g! sim:log                          the platform calls since the last clearlog with their return codes
 * g! sim:clearlog                     empties the call log
 * g! sim:reset                        an empty gateway: no values, no programmed results
 * g! sim:load [PATH]                  the default gateway again, or a state file or folder on top
 *                                     (a bundle_sc-capture folder replaces the whole gateway)
 * g! sim:result FUNCTION RC|clear     every later call of FUNCTION returns RC (clear: its usual result)
 * </pre>
 * A section name may be several words ({@code sim:get wlan ssid 1 name}): the last word is the
 * key (for set the last two are key and value). Sections of the configuration tree are named
 * "tcapi NODE".
 */
public final class SimCommands {

    static final String SCOPE = "sim";
    static final String[] FUNCTIONS = {"get", "set", "unset", "log", "clearlog", "reset", "load", "result"};

    private static final String SECTION = "the section's name, one word or several (wlan ssid 1; the"
            + " configuration tree's nodes are tcapi NODE)";

    @Descriptor("prints a value of the simulated gateway, or (absent)")
    public void get(@Descriptor("SECTION... KEY  " + SECTION + ", then the key") Object[] words) {
        run(() -> {
            String[] w = words(words, 2, "sim:get SECTION... KEY (e.g. sim:get wlan ssid 1 name)");
            String value = GatewaySim.get(join(w, 0, w.length - 1), w[w.length - 1]);
            System.out.println(value == null ? "(absent)" : value);
        });
    }

    @Descriptor("sets a value of the simulated gateway (the natives see it at their next call)")
    public void set(@Descriptor("SECTION... KEY VALUE  " + SECTION + ", then the key and the value"
            + " (a value with spaces or JSON in single quotes)") Object[] words) {
        run(() -> {
            String[] w = words(words, 3, "sim:set SECTION... KEY VALUE (e.g. sim:set wlan ssid 1 name Home)");
            GatewaySim.set(join(w, 0, w.length - 2), w[w.length - 2], w[w.length - 1]);
        });
    }

    @Descriptor("removes a section of the simulated gateway, or one value of it")
    public void unset(@Descriptor("SECTION... [KEY]  " + SECTION + ", then the key; the words naming a section"
            + " remove all of it") Object[] words) {
        run(() -> {
            String[] w = words(words, 1, "sim:unset SECTION... [KEY] (e.g. sim:unset wlan ssid 1 name)");
            String all = join(w, 0, w.length);
            if (GatewaySim.hasSection(all)) {
                GatewaySim.unset(all, null);
                return;
            }
            String section = join(w, 0, w.length - 1);
            if (w.length == 1 || !GatewaySim.hasSection(section)) {
                throw new ConsoleException("the gateway has no section '" + all + "'"
                        + (w.length == 1 ? "" : " nor '" + section + "'"));
            }
            GatewaySim.unset(section, w[w.length - 1]);
        });
    }

    @Descriptor("prints the platform calls since the last sim:clearlog, one a line: function(arguments) -> return code")
    public void log() {
        System.out.print(GatewaySim.logWithResults());
        System.out.flush();
    }

    @Descriptor("empties the call log")
    public void clearlog() {
        GatewaySim.clearLog();
    }

    @Descriptor("empties the simulated gateway: no values, no programmed results, an empty call log")
    public void reset() {
        GatewaySim.reset();
    }

    @Descriptor("loads the default gateway again (sim/gateway/*.ini)")
    public void load() {
        report("the default gateway", GatewaySim.loadDefault());
    }

    @Descriptor("loads a state file, or the *.ini files of a folder, on top of the gateway")
    public void load(@Descriptor("PATH  a state file or a folder of them") String path) {
        report(path, GatewaySim.load(path));
    }

    @Descriptor("makes every later call of a platform function return a code, or its usual result again")
    public void result(@Descriptor("FUNCTION  a platform function, e.g. brelo_deviceGetMac (sim:log shows the"
                    + " ones a native calls)") String function,
            @Descriptor("RC  the return code, a whole number; clear for the function's usual result") Object rc) {
        run(() -> {
            String code = ShellWords.text(rc, "RC");
            int known = GatewaySim.platformFunction(function);
            if (known == 0) {
                throw new ConsoleException(function + " is no platform function of the simulated gateway"
                        + " (sim:log shows the ones a native calls)");
            }
            if (known < 0) {
                System.err.println("note: the platform libraries do not open, " + function + " is taken as given");
            }
            if ("clear".equals(code)) {
                GatewaySim.clearResult(function);
                return;
            }
            int value;
            try {
                value = Integer.parseInt(code);
            } catch (NumberFormatException e) {
                throw new ConsoleException("RC must be a whole number or clear, not '" + code + "'");
            }
            GatewaySim.programResult(function, value);
        });
    }

    /** A command's body, its failures printed as "error: ...". */
    private interface Body {
        void run() throws ConsoleException;
    }

    private static void run(Body body) {
        try {
            body.run();
        } catch (ConsoleException e) {
            BridgeCommands.error(e.getMessage());
        }
        System.out.flush();
    }

    private static String[] words(Object[] words, int least, String usage) throws ConsoleException {
        if (words.length < least) {
            throw new ConsoleException("usage: " + usage);
        }
        String[] texts = new String[words.length];
        for (int i = 0; i < words.length; i++) {
            texts[i] = ShellWords.text(words[i], "word " + (i + 1));
            if (texts[i] == null) {
                throw new ConsoleException("word " + (i + 1) + " is null (put null in single quotes for the text)");
            }
        }
        return texts;
    }

    private static String join(String[] words, int from, int to) {
        return String.join(" ", Arrays.asList(words).subList(from, to));
    }

    private static void report(String what, int rc) {
        if (rc != 0) {
            BridgeCommands.error("loading " + what + " failed (" + rc + ")");
        }
    }
}
