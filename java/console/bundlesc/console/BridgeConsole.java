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
import java.lang.reflect.Constructor;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.Comparator;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;

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
        "System property bundlesc.console.root (default " + ServiceCatalog.DEFAULT_ROOT + ") is the",
        "package directory scanned for <package>/<Name>Imp.class.");

    private final InputStream stdin;
    private final PrintStream out;
    private final PrintStream err;
    private ServiceCatalog catalog;
    private final Map<Class<?>, Object> instances = new HashMap<Class<?>, Object>();
    private final Map<Class<?>, String> initFailures = new HashMap<Class<?>, String>();

    /**
     * @param catalog the service classes to work with, or null to scan the class path of
     *                the running JVM on first use
     */
    BridgeConsole(InputStream stdin, PrintStream out, PrintStream err, ServiceCatalog catalog) {
        this.stdin = stdin;
        this.out = out;
        this.err = err;
        this.catalog = catalog;
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
            return runBatch(batch, echo);
        }
        if (!echo) {
            throw usageError("--echo-off only applies to --batch");
        }
        if (i >= args.length) {
            throw usageError("no command given");
        }
        call(tokens(args, i));
        return EXIT_OK;
    }

    private static ConsoleException usageError(String message) {
        return new ConsoleException(message + " (--help shows the usage)");
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

    // ---- listing -----------------------------------------------------------------------

    private void list(List<Token> args) throws ConsoleException {
        if (args.size() > 1) {
            throw usageError("--list takes at most one class name");
        }
        List<Class<?>> classes = new ArrayList<Class<?>>();
        if (args.isEmpty()) {
            classes.addAll(catalog().loadAll());
            if (classes.isEmpty()) {
                throw new ConsoleException("no service classes found: no " + catalog().root()
                        + "/*/*Imp.class in the class path (java.class.path="
                        + System.getProperty("java.class.path", "") + ")");
            }
        } else {
            classes.add(catalog().resolve(args.get(0).text));
        }
        List<String> lines = new ArrayList<String>();
        for (Class<?> c : classes) {
            for (Method m : ServiceCatalog.natives(c)) {
                lines.add(ServiceCatalog.describe(m));
            }
        }
        if (lines.isEmpty() && !args.isEmpty()) {
            out.flush();
            err.println("note: " + classes.get(0).getName() + " declares no public native methods");
        }
        Collections.sort(lines);
        for (String line : lines) {
            out.println(line);
        }
    }

    private ServiceCatalog catalog() {
        if (catalog == null) {
            catalog = ServiceCatalog.fromEnvironment(err);
        }
        return catalog;
    }

    // ---- calling -----------------------------------------------------------------------

    /** Calls CLASS METHOD [ARG...] and prints the result. */
    private void call(List<Token> tokens) throws ConsoleException {
        if (tokens.size() < 2) {
            throw usageError(tokens.isEmpty() ? "no command given"
                    : "missing method name after " + tokens.get(0).text);
        }
        Class<?> service = catalog().resolve(tokens.get(0).text);
        Selection selection = select(service, tokens.get(1).text, tokens.subList(2, tokens.size()));
        Object target = prepare(selection.method);
        for (String line : invoke(target, selection.method, selection.values)) {
            out.println(line);
        }
    }

    /** A native method chosen for a command, with its converted arguments. */
    static final class Selection {
        final Method method;
        final Object[] values;

        Selection(Method method, Object[] values) {
            this.method = method;
            this.values = values;
        }
    }

    /**
     * Chooses the native of {@code service} to call by name and argument count, and
     * converts the arguments. Among overloads with that count the first whose parameter
     * types accept the arguments wins.
     */
    static Selection select(Class<?> service, String name, List<Token> args) throws ConsoleException {
        List<String> problems = new ArrayList<String>();
        for (Method candidate : candidates(service, name, args.size())) {
            try {
                return new Selection(candidate, convertArguments(candidate, args));
            } catch (ArgumentException e) {
                problems.add(e.getMessage());
            }
        }
        throw new ArgumentException(problems.size() == 1 ? problems.get(0)
                : "no overload accepts these arguments: " + String.join("; ", problems));
    }

    /**
     * The natives of {@code service} named {@code name} (or {@code name + "Jni"}) taking
     * {@code count} parameters, in the order they should be tried.
     */
    static List<Method> candidates(Class<?> service, String name, int count) throws ConsoleException {
        List<Method> natives = ServiceCatalog.natives(service);
        String shortName = ServiceCatalog.shortName(service);
        if (natives.isEmpty()) {
            throw new ConsoleException(shortName + " declares no public native methods");
        }
        List<Method> named = new ArrayList<Method>();
        for (String wanted : new String[] {name, name + "Jni"}) {
            for (Method m : natives) {
                if (m.getName().equals(wanted)) {
                    named.add(m);
                }
            }
            if (!named.isEmpty()) {
                break;
            }
        }
        if (named.isEmpty()) {
            Set<String> available = new LinkedHashSet<String>();
            for (Method m : natives) {
                available.add(m.getName());
            }
            throw new ConsoleException(shortName + " has no native method '" + name
                    + "' (its natives: " + String.join(", ", available) + ")");
        }
        List<Method> fitting = new ArrayList<Method>();
        List<String> signatures = new ArrayList<String>();
        for (Method m : named) {
            signatures.add(ServiceCatalog.signature(m));
            if (m.getParameterTypes().length == count) {
                fitting.add(m);
            }
        }
        if (fitting.isEmpty()) {
            Method first = named.get(0);
            String expected = named.size() == 1
                    ? "takes " + plural(first.getParameterTypes().length, "argument") + " " + signatures.get(0)
                    : "takes " + String.join(" or ", signatures);
            throw new ArgumentException(shortName + "." + first.getName() + " " + expected
                    + " but " + plural(count, "argument") + (count == 1 ? " was" : " were") + " given");
        }
        // Overloads with the same parameter count: try the ones with fewer String
        // parameters first, since a String parameter accepts any text.
        Collections.sort(fitting, new Comparator<Method>() {
            @Override
            public int compare(Method a, Method b) {
                return Integer.compare(stringParameters(a), stringParameters(b));
            }
        });
        return fitting;
    }

    private static int stringParameters(Method m) {
        int n = 0;
        for (Class<?> type : m.getParameterTypes()) {
            if (type == String.class) {
                n++;
            }
        }
        return n;
    }

    private static String plural(int n, String word) {
        return n + " " + word + (n == 1 ? "" : "s");
    }

    static Object[] convertArguments(Method m, List<Token> args) throws ArgumentException {
        Class<?>[] types = m.getParameterTypes();
        Object[] values = new Object[types.length];
        for (int i = 0; i < types.length; i++) {
            values[i] = ArgumentParser.convert(args.get(i), types[i], "argument " + (i + 1) + " of " + m.getName());
        }
        return values;
    }

    /**
     * Initialises the declaring class (which loads the native library) and returns the
     * object to call {@code m} on: null for a static method, else one instance per class,
     * reused for later calls.
     */
    private Object prepare(Method m) throws ConsoleException {
        Class<?> c = m.getDeclaringClass();
        Object instance = instances.get(c);
        if (instance != null) {
            return instance;
        }
        String failure = initFailures.get(c);
        if (failure != null) {
            throw new ConsoleException(failure);
        }
        try {
            initialise(c);
            if (Modifier.isStatic(m.getModifiers())) {
                return null;
            }
            instance = construct(c);
        } catch (ConsoleException e) {
            initFailures.put(c, e.getMessage());
            throw e;
        }
        instances.put(c, instance);
        return instance;
    }

    private static void initialise(Class<?> c) throws ConsoleException {
        String name = ServiceCatalog.shortName(c);
        try {
            Class.forName(c.getName(), true, c.getClassLoader());
        } catch (UnsatisfiedLinkError e) {
            throw new ConsoleException(libraryFailure(name, e));
        } catch (ExceptionInInitializerError e) {
            Throwable cause = e.getCause() == null ? e : e.getCause();
            throw new ConsoleException("initialising " + name + " failed: " + ServiceCatalog.describeError(cause));
        } catch (LinkageError e) {
            throw new ConsoleException("cannot initialise " + name + ": " + ServiceCatalog.describeError(e));
        } catch (ClassNotFoundException e) {
            throw new ConsoleException("cannot load " + name + ": " + ServiceCatalog.describeError(e));
        }
    }

    private static String libraryFailure(String className, UnsatisfiedLinkError e) {
        String message = "cannot load the native library for " + className + ": "
                + ServiceCatalog.describeError(e);
        if (e.getMessage() != null && e.getMessage().contains("java.library.path")) {
            message += " (start the JVM with -Djava.library.path=<directory of libbundle_sc.so>)";
        }
        return message;
    }

    private static Object construct(Class<?> c) throws ConsoleException {
        String name = ServiceCatalog.shortName(c);
        try {
            Constructor<?> constructor = c.getDeclaredConstructor();
            makeAccessible(constructor);
            return constructor.newInstance();
        } catch (NoSuchMethodException e) {
            throw new ConsoleException(name + " has no constructor without arguments");
        } catch (InvocationTargetException e) {
            Throwable cause = e.getCause();
            if (cause instanceof UnsatisfiedLinkError) {
                throw new ConsoleException(libraryFailure(name, (UnsatisfiedLinkError) cause));
            }
            throw new ConsoleException("constructor of " + name + " threw " + thrown(cause));
        } catch (InstantiationException | IllegalAccessException e) {
            throw new ConsoleException("cannot create " + name + ": " + ServiceCatalog.describeError(e));
        }
    }

    private static void makeAccessible(java.lang.reflect.AccessibleObject member) {
        try {
            member.setAccessible(true);
        } catch (RuntimeException e) {
            // public members of public classes are callable anyway
        }
    }

    /**
     * Calls {@code m} on {@code target} and returns the lines to print: the result, then
     * "bytes: [..]" for each byte[] argument whose contents the call changed.
     */
    static List<String> invoke(Object target, Method m, Object[] values) throws ConsoleException {
        Class<?>[] types = m.getParameterTypes();
        byte[][] before = new byte[values.length][];
        int byteArrays = 0;
        for (int i = 0; i < values.length; i++) {
            if (types[i] == byte[].class && values[i] != null) {
                before[i] = ((byte[]) values[i]).clone();
                byteArrays++;
            }
        }
        String where = ServiceCatalog.shortName(m.getDeclaringClass()) + "." + m.getName();
        Object result;
        try {
            makeAccessible(m);
            result = m.invoke(target, values);
        } catch (InvocationTargetException e) {
            Throwable cause = e.getCause();
            if (cause instanceof UnsatisfiedLinkError) {
                throw new ConsoleException("native method " + where + ServiceCatalog.signature(m)
                        + " is not implemented by the loaded library: " + ServiceCatalog.describeError(cause));
            }
            throw new ConsoleException(where + " threw " + thrown(cause));
        } catch (IllegalAccessException | IllegalArgumentException e) {
            throw new ConsoleException("cannot call " + where + ": " + ServiceCatalog.describeError(e));
        }
        List<String> lines = new ArrayList<String>();
        lines.add(formatResult(result, m.getReturnType()));
        for (int i = 0; i < values.length; i++) {
            if (before[i] != null && !Arrays.equals(before[i], (byte[]) values[i])) {
                String label = byteArrays == 1 ? "bytes: " : "bytes (argument " + (i + 1) + "): ";
                lines.add(label + ArgumentParser.formatBytes((byte[]) values[i]));
            }
        }
        return lines;
    }

    static String formatResult(Object result, Class<?> type) {
        if (type == void.class) {
            return "(void)";
        }
        if (result == null) {
            return "(null)";
        }
        if (result instanceof byte[]) {
            return ArgumentParser.formatBytes((byte[]) result);
        }
        if (result instanceof String[]) {
            return JsonArrays.formatStringArray((String[]) result);
        }
        return String.valueOf(result);
    }

    private static String thrown(Throwable t) {
        String message = t.getMessage();
        return t.getClass().getName() + (message == null ? "" : ": " + message);
    }

    /** Reports an error on stderr, after whatever was printed on stdout so far. */
    private void error(String message) {
        out.flush();
        err.println("error: " + message);
        err.flush();
    }
}
