package bundlesc.console;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.lang.reflect.Parameter;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Collection;
import java.util.Collections;
import java.util.Comparator;
import java.util.List;
import java.util.SortedSet;
import java.util.TreeSet;

/**
 * The service classes the bridge serves and their native methods, found without initialising
 * any class: listing and name resolution work even when the native library cannot be loaded.
 *
 * <p>The built-in catalog is the list of classes the library exports natives for: the build
 * writes it, one binary class name a line, from the library's export list into the resource
 * {@value #RESOURCE} next to these classes.
 */
final class ServiceCatalog {

    static final String RESOURCE = "service-classes.txt";

    private static final String CLASS_SUFFIX = "Imp";

    private final SortedSet<String> names;
    private final ClassLoader loader;

    /**
     * @param classNames binary names of the service classes
     * @param loader     loader that loads them (never initialising them)
     */
    ServiceCatalog(Collection<String> classNames, ClassLoader loader) {
        this.names = Collections.unmodifiableSortedSet(new TreeSet<String>(classNames));
        this.loader = loader;
    }

    /**
     * The catalog of the build's list, loading the classes through the loader of the console
     * itself (the class path, or in a framework the console bundle's imports).
     */
    static ServiceCatalog builtIn() throws ConsoleException {
        List<String> classNames = new ArrayList<String>();
        InputStream in = ServiceCatalog.class.getResourceAsStream(RESOURCE);
        if (in == null) {
            throw new ConsoleException("the service class list " + RESOURCE
                    + " is missing next to the console classes (a build step writes it)");
        }
        try (BufferedReader reader = new BufferedReader(new InputStreamReader(in, StandardCharsets.UTF_8))) {
            for (String line = reader.readLine(); line != null; line = reader.readLine()) {
                if (!line.trim().isEmpty()) {
                    classNames.add(line.trim());
                }
            }
        } catch (IOException e) {
            throw new ConsoleException("cannot read the service class list " + RESOURCE + ": " + e.getMessage());
        }
        return new ServiceCatalog(classNames, ServiceCatalog.class.getClassLoader());
    }

    /** Binary names of all service classes, sorted. */
    SortedSet<String> classNames() {
        return names;
    }

    /** All service classes, loaded (not initialised), sorted by name. */
    List<Class<?>> loadAll() throws ConsoleException {
        List<Class<?>> classes = new ArrayList<Class<?>>();
        for (String name : names) {
            classes.add(load(name));
        }
        return classes;
    }

    /**
     * Finds the service class meant by {@code name}: a simple name with or without the
     * "Imp" suffix, "package.Name[Imp]" as shown by the listing, or a fully qualified
     * name. The class is loaded but not initialised.
     */
    Class<?> resolve(String name) throws ConsoleException {
        return resolve(name, "--list");
    }

    /** {@link #resolve(String)}, whose errors name {@code listCommand} as the one listing the classes. */
    Class<?> resolve(String name, String listCommand) throws ConsoleException {
        if (name.isEmpty()) {
            throw new ConsoleException("empty service class name");
        }
        String withImp = name.endsWith(CLASS_SUFFIX) ? name : name + CLASS_SUFFIX;
        List<String> matches = new ArrayList<String>();
        for (String candidate : names) {
            if (candidate.equals(name) || candidate.equals(withImp)) {
                return load(candidate);
            }
            if (candidate.endsWith("." + name) || candidate.endsWith("." + withImp)) {
                matches.add(candidate);
            }
        }
        if (matches.size() > 1) {
            throw new ConsoleException("service class name '" + name + "' is ambiguous: "
                    + String.join(", ", matches) + "; use the package-qualified name");
        }
        if (matches.isEmpty()) {
            throw new ConsoleException("unknown service class '" + name + "': not one of the "
                    + names.size() + " service classes of the bridge (" + listCommand + " shows them)");
        }
        return load(matches.get(0));
    }

    private Class<?> load(String name) throws ConsoleException {
        try {
            return Class.forName(name, false, loader);
        } catch (ClassNotFoundException | LinkageError e) {
            throw new ConsoleException("cannot load service class " + name + ": " + describeError(e));
        }
    }

    // ---- natives -------------------------------------------------------------------------

    /** The public native methods declared by {@code c}, sorted by their listing line. */
    static List<Method> natives(Class<?> c) {
        List<Method> result = new ArrayList<Method>();
        for (Method m : c.getDeclaredMethods()) {
            int mod = m.getModifiers();
            if (Modifier.isNative(mod) && Modifier.isPublic(mod)) {
                result.add(m);
            }
        }
        Collections.sort(result, new Comparator<Method>() {
            @Override
            public int compare(Method a, Method b) {
                return describe(a).compareTo(describe(b));
            }
        });
        return result;
    }

    /** "commservices.DeviceInfoQueryServiceImp.getDeviceUpTimeJni() -> int", parameters as {@link #signature}. */
    static String describe(Method m) {
        return shortName(m.getDeclaringClass()) + "." + m.getName() + signature(m)
                + " -> " + m.getReturnType().getSimpleName();
    }

    /**
     * "(String name, int index)": the parameter types, each with its name where the class file
     * keeps it (the build compiles the service classes with their parameter names, the names of
     * the reference's Javadoc); "(String, int)" for a class compiled without them.
     */
    static String signature(Method m) {
        StringBuilder sb = new StringBuilder("(");
        Parameter[] params = m.getParameters();
        for (int i = 0; i < params.length; i++) {
            if (i > 0) {
                sb.append(", ");
            }
            sb.append(params[i].getType().getSimpleName());
            if (params[i].isNamePresent()) {
                sb.append(' ').append(params[i].getName());
            }
        }
        return sb.append(')').toString();
    }

    /** The class name with only the last package segment: "commservices.DeviceInfoQueryServiceImp". */
    static String shortName(Class<?> c) {
        String name = c.getName();
        int lastDot = name.lastIndexOf('.');
        if (lastDot < 0) {
            return name;
        }
        int packageDot = name.lastIndexOf('.', lastDot - 1);
        return name.substring(packageDot + 1);
    }

    /** "UnsatisfiedLinkError: no bundle_sc in java.library.path". */
    static String describeError(Throwable t) {
        String message = t.getMessage();
        String type = t.getClass().getSimpleName().isEmpty() ? t.getClass().getName()
                : t.getClass().getSimpleName();
        return message == null ? type : type + ": " + message;
    }
}
