package bundlesc.console;

import java.io.PrintStream;
import java.util.ArrayList;
import java.util.List;

import org.apache.felix.service.command.Descriptor;

import bundlesc.console.ArgumentParser.Token;

/**
 * The framework shell's bridge commands, the console's listing and calling with the same
 * argument syntax and the same output:
 * <pre>
 * g! bridge:list [CLASS]
 * g! bridge:call CLASS METHOD [ARG...]
 * </pre>
 * The shell parses the line first: a JSON array or object, or a text with spaces, goes in single
 * quotes ({@code '["00:11:22:33:44:55"]'}); JSON typed without them is refused (the shell has
 * already taken it apart). The word null passes null as on the command line. Results go to the
 * session's standard output, errors to its standard error as "error: ...". The texts of
 * {@code help bridge:call} come from the {@link Descriptor}s (the shell's annotation, an optional
 * import: without the shell they are not there).
 */
public final class BridgeCommands {

    /** The scope and functions the shell knows these commands by. */
    static final String SCOPE = "bridge";
    static final String[] FUNCTIONS = {"list", "call"};

    private final BridgeCore core = new BridgeCore(null, "bridge:list", "help bridge:call");

    @Descriptor("lists the natives of every service class: CLASS.METHOD(TYPE NAME, ...) -> RESULT")
    public synchronized void list() {
        list(null);
    }

    @Descriptor("lists the natives of one service class: CLASS.METHOD(TYPE NAME, ...) -> RESULT")
    public synchronized void list(
            @Descriptor("CLASS  a service class: DeviceInfoQueryService, DeviceInfoQueryServiceImp or"
                    + " commservices.DeviceInfoQueryServiceImp") String className) {
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

    @Descriptor("calls one native of a service class and prints its result (a byte[] argument the native"
            + " changed follows as bytes: [..])")
    public synchronized void call(
            @Descriptor("CLASS METHOD [ARG...]  CLASS a service class (bridge:list shows them), METHOD one of"
                    + " its natives (the Jni suffix may be left out), ARG its arguments, as bridge:list CLASS names"
                    + " them: int 42 -1 0x1f, boolean true false, String as typed (null passes null), String[] a"
                    + " JSON array in single quotes '[\"a\",\"b\"]', byte[] '[1,2,255]' hex:0a0b zeros:64")
            Object[] args) {
        try {
            List<Token> tokens = new ArrayList<Token>();
            for (int i = 0; i < args.length; i++) {
                String what = i == 0 ? "the service class" : i == 1 ? "the method" : "argument " + (i - 1);
                String text = ShellWords.text(args[i], what);
                tokens.add(Token.plain(text == null ? "null" : text));
            }
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
