package bundlesc.console;

import java.io.PrintStream;
import java.util.ArrayList;
import java.util.List;

import bundlesc.console.ArgumentParser.Token;

/**
 * The framework shell's bridge commands, the console's listing and calling with the same
 * argument syntax and the same output:
 * <pre>
 * g! bridge:list [CLASS]
 * g! bridge:call CLASS METHOD [ARG...]
 * </pre>
 * The shell parses the line first: a JSON array or a text with spaces goes in single quotes
 * ({@code '["00:11:22:33:44:55"]'}), and the word null passes null as on the command line.
 * Results go to the session's standard output, errors to its standard error as "error: ...".
 */
public final class BridgeCommands {

    /** The scope and functions the shell knows these commands by. */
    static final String SCOPE = "bridge";
    static final String[] FUNCTIONS = {"list", "call"};

    private final BridgeCore core = new BridgeCore(null);

    public synchronized void list() {
        list(null);
    }

    public synchronized void list(String className) {
        PrintStream out = System.out;
        try {
            for (String line : core.list(className, System.err)) {
                out.println(line);
            }
        } catch (ConsoleException e) {
            error(e.getMessage());
        } catch (RuntimeException e) {
            error("internal error: " + ServiceCatalog.describeError(e));
        }
        out.flush();
    }

    /** CLASS METHOD [ARG...], every argument as the shell passed it. */
    public synchronized void call(Object[] args) {
        List<Token> tokens = new ArrayList<Token>();
        for (Object arg : args) {
            tokens.add(Token.plain(arg == null ? "null" : String.valueOf(arg)));
        }
        try {
            for (String line : core.call(tokens)) {
                System.out.println(line);
            }
        } catch (ConsoleException e) {
            error(e.getMessage());
        } catch (RuntimeException e) {
            error("internal error: " + ServiceCatalog.describeError(e));
        }
        System.out.flush();
    }

    static void error(String message) {
        System.out.flush();
        System.err.println("error: " + message);
        System.err.flush();
    }
}
