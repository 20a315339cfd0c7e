package bundlesc.console;

import java.io.BufferedReader;
import java.io.FileDescriptor;
import java.io.FileInputStream;
import java.io.FileNotFoundException;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.io.UnsupportedEncodingException;
import java.util.ArrayList;
import java.util.List;

import bundlesc.console.ArgumentParser.Token;

/**
 * Command-line console for trying the native bridge from a shell: lists the native
 * methods of the gateway service classes and calls them one at a time, either from the
 * command line or from a batch file. Run with {@code --help} for the syntax.
 *
 * <p>The service classes load libbundle_sc.so in their static initialiser, so the JVM
 * needs {@code -Djava.library.path=<directory of libbundle_sc.so>} for calls; listing
 * never initialises a class and works without the library.
 */
public final class BridgeConsole {

    static final int EXIT_OK = 0;
    static final int EXIT_BATCH_FAILED = 1;
    static final int EXIT_ERROR = 2;

    static final String USAGE = String.join("\n",
        "Usage: java [-Djava.library.path=DIR] -cp CLASSPATH bundlesc.console.BridgeConsole COMMAND",
        "",
        "Commands:",
        "  --list [CLASS]                  list the native methods of all service classes, or of one",
        "  CLASS METHOD [ARG...]           call one native method and print its result",
        "  --batch FILE|- [--echo-off]     run one command per line from FILE or standard input",
        "  --fresh CALL-OR-BATCH           start from the default simulated gateway, not from the",
        "                                  configuration tree saved in $BRELO_SIM_SAVE",
        "  --help                          show this text",
        "",
        "CLASS is a service class: DeviceInfoQueryServiceImp, DeviceInfoQueryService,",
        "commservices.DeviceInfoQueryServiceImp or the fully qualified name.",
        "METHOD is the native's name, with or without the Jni suffix; among methods of that",
        "name the one taking as many parameters as ARGs are given is called.",
        "",
        "Arguments are converted by parameter type:",
        "  int       42, -1, 0x1f (hex up to 0xFFFFFFFF is the 32-bit pattern)",
        "  boolean   true, false, 1, 0",
        "  byte      -128..255, decimal or 0x hex (128..255 are the 8-bit pattern)",
        "  String    the text as given; null alone passes null (in a batch line \"null\" passes the word)",
        "  String[]  a JSON array of strings, e.g. '[\"00:11:22:33:44:55\",null]'; null alone passes null",
        "  byte[]    a JSON array of numbers -128..255 ([1,2,255]), hex:0a0bff, zeros:N (N zero bytes), null",
        "",
        "The result is printed on one line: a String as is ((null) for null), an int in decimal.",
        "A byte[] argument the native changed is printed afterwards as: bytes: [..]",
        "",
        "Batch lines use the same syntax as the command line. Arguments are separated by",
        "whitespace; \"double-quoted text\" (with \\\" and \\\\ inside) and JSON arrays stay whole.",
        "Blank lines and lines starting with # are skipped. Each command is echoed as",
        "'> command' before its result unless --echo-off is given; a failing command is",
        "reported and the batch continues. --list and --help may be used in a batch line.",
        "",
        "Exit status: 0 success, 1 a batch command failed, 2 usage error or failed call",
        "(unknown class or method, bad argument, native library not loadable, native threw).",
        "",
        "The service classes are those the library exports natives for (the build's list).",
        "",
        "Against the simulated gateway the configuration tree is saved at every tcapi_save: to",
        "$BRELO_SIM_SAVE when it is set (and read back by the next session), else to a folder of",
        "this session's own, printed at the start and removed at the end if nothing was saved.");

    private final InputStream stdin;
    private final PrintStream out;
    private final PrintStream err;
    private final BridgeCore core;

    /**
     * @param catalog the service classes to work with, or null for the built-in catalog (the
     *                classes the library exports natives for)
     */
    BridgeConsole(InputStream stdin, PrintStream out, PrintStream err, ServiceCatalog catalog) {
        this.stdin = stdin;
        this.out = out;
        this.err = err;
        this.core = new BridgeCore(catalog);
    }

    public static void main(String[] args) {
        PrintStream out = utf8(new FileOutputStream(FileDescriptor.out));
        PrintStream err = utf8(new FileOutputStream(FileDescriptor.err));
        int status = new BridgeConsole(System.in, out, err, null).run(args);
        out.flush();
        err.flush();
        System.exit(status);
    }

    /** Strings from the platform are UTF-8; print them as such whatever the locale says. */
    private static PrintStream utf8(FileOutputStream stream) {
        try {
            return new PrintStream(stream, false, "UTF-8");
        } catch (UnsupportedEncodingException e) {
            return new PrintStream(stream, false);
        }
    }

    /** Runs the console with command-line arguments and returns the exit status. */
    int run(String[] args) {
        try {
            return runOptions(args);
        } catch (ConsoleException e) {
            error(e.getMessage());
            return EXIT_ERROR;
        } catch (RuntimeException e) {
            error("internal error: " + ServiceCatalog.describeError(e));
            return EXIT_ERROR;
        } finally {
            out.flush();
            err.flush();
        }
    }

    private int runOptions(String[] args) throws ConsoleException {
        String batch = null;
        boolean echo = true;
        boolean fresh = false;
        int i = 0;
        while (i < args.length && args[i].startsWith("-")) {
            String option = args[i];
            if (option.equals("--help") || option.equals("-h")) {
                out.println(USAGE);
                return EXIT_OK;
            } else if (option.equals("--list")) {
                if (batch != null) {
                    throw usageError("--list cannot be combined with --batch");
                }
                List<Token> rest = tokens(args, i + 1);
                list(rest);
                return EXIT_OK;
            } else if (option.equals("--batch")) {
                if (i + 1 >= args.length) {
                    throw usageError("--batch needs a file name, or - for standard input");
                }
                batch = args[i + 1];
                i += 2;
            } else if (option.equals("--echo-off")) {
                echo = false;
                i++;
            } else if (option.equals("--fresh")) {
                fresh = true;
                i++;
            } else if (option.equals("--")) {
                i++;
                break;
            } else {
                throw usageError("unknown option " + option);
            }
        }
        if (batch != null) {
            if (i < args.length) {
                throw usageError("--batch takes no command on the command line (found '" + args[i] + "')");
            }
        } else if (!echo) {
            throw usageError("--echo-off only applies to --batch");
        } else if (i >= args.length) {
            throw usageError("no command given");
        }
        SimulatorSession session = SimulatorSession.begin(fresh, notes());
        try {
            if (batch != null) {
                return runBatch(batch, echo);
            }
            call(tokens(args, i));
            return EXIT_OK;
        } finally {
            session.end();
        }
    }

    private static ConsoleException usageError(String message) {
        return BridgeCore.usageError(message);
    }

    private static List<Token> tokens(String[] args, int from) {
        List<Token> tokens = new ArrayList<Token>();
        for (int i = from; i < args.length; i++) {
            tokens.add(Token.plain(args[i]));
        }
        return tokens;
    }

    // ---- batch -------------------------------------------------------------------------

    private int runBatch(String source, boolean echo) throws ConsoleException {
        InputStream in;
        if (source.equals("-")) {
            in = stdin;
        } else {
            try {
                in = new FileInputStream(source);
            } catch (FileNotFoundException e) {
                throw new ConsoleException("cannot open batch file " + source + ": " + e.getMessage());
            }
        }
        int failures = 0;
        try {
            BufferedReader reader = new BufferedReader(new InputStreamReader(in, "UTF-8"));
            int lineNumber = 0;
            for (String line = reader.readLine(); line != null; line = reader.readLine()) {
                lineNumber++;
                if (ArgumentParser.isSkippable(line)) {
                    continue;
                }
                if (echo) {
                    out.println("> " + line.trim());
                }
                if (!executeLine(line, lineNumber)) {
                    failures++;
                }
                out.flush();
            }
        } catch (IOException e) {
            throw new ConsoleException("cannot read batch input " + source + ": " + e.getMessage());
        } finally {
            if (in != stdin) {
                try {
                    in.close();
                } catch (IOException e) {
                    // already read what we could
                }
            }
        }
        return failures == 0 ? EXIT_OK : EXIT_BATCH_FAILED;
    }

    /** Runs one batch line; reports a failure and returns false instead of throwing. */
    private boolean executeLine(String line, int lineNumber) {
        try {
            List<Token> tokens = ArgumentParser.splitLine(line);
            Token first = tokens.get(0);
            if (!first.quoted && first.text.equals("--list")) {
                list(tokens.subList(1, tokens.size()));
            } else if (!first.quoted && (first.text.equals("--help") || first.text.equals("-h"))) {
                out.println(USAGE);
            } else if (!first.quoted && first.text.startsWith("-")) {
                throw new ConsoleException("option " + first.text + " cannot be used in a batch line");
            } else {
                call(tokens);
            }
            return true;
        } catch (ConsoleException e) {
            error("line " + lineNumber + ": " + e.getMessage());
        } catch (RuntimeException e) {
            error("line " + lineNumber + ": internal error: " + ServiceCatalog.describeError(e));
        }
        return false;
    }

    // ---- listing and calling -----------------------------------------------------------

    private void list(List<Token> args) throws ConsoleException {
        if (args.size() > 1) {
            throw usageError("--list takes at most one class name");
        }
        List<String> lines = core.list(args.isEmpty() ? null : args.get(0).text, notes());
        for (String line : lines) {
            out.println(line);
        }
    }

    /** Notes go to stderr after whatever was printed on stdout so far. */
    private PrintStream notes() {
        out.flush();
        return err;
    }

    /** Calls CLASS METHOD [ARG...] and prints the result. */
    private void call(List<Token> tokens) throws ConsoleException {
        for (String line : core.call(tokens)) {
            out.println(line);
        }
    }

    /** Reports an error on stderr, after whatever was printed on stdout so far. */
    private void error(String message) {
        out.flush();
        err.println("error: " + message);
        err.flush();
    }
}
