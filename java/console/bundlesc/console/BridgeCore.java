package bundlesc.console;

import java.io.PrintStream;
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
 * What the console and the framework shell commands share: the service catalog, choosing a
 * native by class, name and arguments, converting the arguments, calling, and the text of
 * listings, results and errors. One instance keeps one object per service class between calls.
 */
final class BridgeCore {

    private ServiceCatalog catalog;
    private final String listCommand;
    private final String helpCommand;
    private final Map<Class<?>, Object> instances = new HashMap<Class<?>, Object>();
    private final Map<Class<?>, String> initFailures = new HashMap<Class<?>, String>();

    /** @param catalog the service classes to work with, or null for the built-in catalog */
    BridgeCore(ServiceCatalog catalog) {
        this(catalog, "--list", "--help");
    }

    /**
     * @param listCommand what lists the service classes where this core runs ("--list" in the
     *                    console), named by the error about an unknown class
     * @param helpCommand what shows the usage ("--help"), named by the errors about the usage
     */
    BridgeCore(ServiceCatalog catalog, String listCommand, String helpCommand) {
        this.catalog = catalog;
        this.listCommand = listCommand;
        this.helpCommand = helpCommand;
    }

    ServiceCatalog catalog() throws ConsoleException {
        if (catalog == null) {
            catalog = ServiceCatalog.builtIn();
        }
        return catalog;
    }

    static ConsoleException usageError(String message) {
        return new ConsoleException(message + " (--help shows the usage)");
    }

    // ---- listing -----------------------------------------------------------------------

    /**
     * The listing lines of the natives of every service class ({@code className} null) or of
     * one, sorted; a class without natives gets a note on {@code notes}.
     */
    List<String> list(String className, PrintStream notes) throws ConsoleException {
        List<Class<?>> classes = new ArrayList<Class<?>>();
        if (className == null) {
            classes.addAll(catalog().loadAll());
            if (classes.isEmpty()) {
                throw new ConsoleException("no service classes in the catalog");
            }
        } else {
            classes.add(catalog().resolve(className, listCommand));
        }
        List<String> lines = new ArrayList<String>();
        for (Class<?> c : classes) {
            for (Method m : ServiceCatalog.natives(c)) {
                lines.add(ServiceCatalog.describe(m));
            }
        }
        if (lines.isEmpty() && className != null) {
            notes.println("note: " + classes.get(0).getName() + " declares no public native methods");
        }
        Collections.sort(lines);
        return lines;
    }

    // ---- calling -----------------------------------------------------------------------

    /**
     * Calls CLASS METHOD [ARG...] and returns the lines to print: the result, then the
     * byte[] arguments the native changed.
     */
    List<String> call(List<Token> tokens) throws ConsoleException {
        if (tokens.size() < 2) {
            throw new ConsoleException((tokens.isEmpty() ? "no command given"
                    : "missing method name after " + tokens.get(0).text) + " (" + helpCommand + " shows the usage)");
        }
        Class<?> service = catalog().resolve(tokens.get(0).text, listCommand);
        Selection selection = select(service, tokens.get(1).text, tokens.subList(2, tokens.size()));
        Object target = prepare(selection.method);
        return invoke(target, selection.method, selection.values);
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
            return ArgumentParser.formatStringArray((String[]) result);
        }
        return String.valueOf(result);
    }

    private static String thrown(Throwable t) {
        String message = t.getMessage();
        return t.getClass().getName() + (message == null ? "" : ": " + message);
    }
}
