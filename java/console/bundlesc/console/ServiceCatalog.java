package bundlesc.console;

import java.io.File;
import java.io.IOException;
import java.io.PrintStream;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.JarURLConnection;
import java.net.URISyntaxException;
import java.net.URL;
import java.net.URLClassLoader;
import java.util.ArrayList;
import java.util.Collection;
import java.util.Collections;
import java.util.Comparator;
import java.util.Enumeration;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.SortedSet;
import java.util.TreeSet;
import java.util.jar.Attributes;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;
import java.util.jar.Manifest;

/**
 * Finds the service classes ({@code <root>/<package>/<Name>Imp.class}) on the class path
 * and their native methods, without initialising any class: listing and name resolution
 * work even when the native library cannot be loaded.
 *
 * <p>The root package directory defaults to {@code com/lumarest/smartgateway} and can be
 * changed with the system property {@code bundlesc.console.root} (slashes or dots).
 */
final class ServiceCatalog {

    static final String ROOT_PROPERTY = "bundlesc.console.root";
    static final String DEFAULT_ROOT = "com/lumarest/smartgateway";

    /** Packages the gateway's service classes live in, tried when scanning finds nothing. */
    private static final String[] KNOWN_PACKAGES = {
        "lanservices", "accessservices", "addressservices",
        "commservices", "transferservices", "voipservices",
    };

    private static final String CLASS_SUFFIX = "Imp";

    private final String root;
    private final Collection<File> entries;
    private final ClassLoader loader;
    private final PrintStream warnings;
    private SortedSet<String> names;

    /**
     * @param root     package directory to scan, e.g. "com/lumarest/smartgateway"
     * @param entries  class path entries (directories and jar files) to scan
     * @param loader   loader that loads the classes found
     * @param warnings where to report unreadable jars and unloadable classes (may be null)
     */
    ServiceCatalog(String root, Collection<File> entries, ClassLoader loader, PrintStream warnings) {
        this.root = normaliseRoot(root);
        this.entries = entries;
        this.loader = loader;
        this.warnings = warnings;
    }

    /** A catalog for the running JVM: root from the system property, class path of the loader. */
    static ServiceCatalog fromEnvironment(PrintStream warnings) {
        String root = normaliseRoot(System.getProperty(ROOT_PROPERTY, DEFAULT_ROOT));
        ClassLoader loader = Thread.currentThread().getContextClassLoader();
        if (loader == null) {
            loader = ServiceCatalog.class.getClassLoader();
        }
        return new ServiceCatalog(root, classPathEntries(loader, root), loader, warnings);
    }

    /** "com.lumarest.smartgateway/" or "/com/lumarest/smartgateway" become "com/lumarest/smartgateway". */
    static String normaliseRoot(String root) {
        String r = root.trim().replace('.', '/').replace('\\', '/');
        while (r.startsWith("/")) {
            r = r.substring(1);
        }
        while (r.endsWith("/")) {
            r = r.substring(0, r.length() - 1);
        }
        return r;
    }

    String root() {
        return root;
    }

    // ---- class path ----------------------------------------------------------------------

    /**
     * The places to scan: the entries of {@code java.class.path}, the file URLs of any
     * URLClassLoader between {@code loader} and the system loader (test runners and
     * application launchers often load classes that way), and the directories or jars in
     * which {@code loader} sees the root package.
     */
    static List<File> classPathEntries(ClassLoader loader, String root) {
        Set<File> result = new LinkedHashSet<File>();
        String classPath = System.getProperty("java.class.path", "");
        if (!classPath.isEmpty()) {
            for (String entry : classPath.split(File.pathSeparator, -1)) {
                // an empty entry stands for the current directory
                result.add(canonical(new File(entry.isEmpty() ? "." : entry)));
            }
        }
        for (ClassLoader l = loader; l != null; l = l.getParent()) {
            if (l instanceof URLClassLoader) {
                for (URL url : ((URLClassLoader) l).getURLs()) {
                    File f = fileOf(url);
                    if (f != null) {
                        result.add(canonical(f));
                    }
                }
            }
        }
        if (loader != null && !root.isEmpty()) {
            try {
                Enumeration<URL> hits = loader.getResources(root + "/");
                while (hits.hasMoreElements()) {
                    File base = baseOf(hits.nextElement(), root);
                    if (base != null) {
                        result.add(canonical(base));
                    }
                }
            } catch (IOException e) {
                // the other sources above still apply
            }
        }
        return new ArrayList<File>(result);
    }

    private static File fileOf(URL url) {
        if (!"file".equals(url.getProtocol())) {
            return null;
        }
        try {
            return new File(url.toURI());
        } catch (URISyntaxException | IllegalArgumentException e) {
            return new File(url.getPath());
        }
    }

    /** Maps the URL of the root package directory back to its class path entry. */
    private static File baseOf(URL url, String root) {
        if ("jar".equals(url.getProtocol())) {
            try {
                return fileOf(((JarURLConnection) url.openConnection()).getJarFileURL());
            } catch (IOException | ClassCastException e) {
                return null;
            }
        }
        File dir = fileOf(url);
        if (dir == null) {
            return null;
        }
        for (int depth = root.split("/").length; depth > 0 && dir != null; depth--) {
            dir = dir.getParentFile();
        }
        return dir;
    }

    private static File canonical(File f) {
        try {
            return f.getCanonicalFile();
        } catch (IOException e) {
            return f.getAbsoluteFile();
        }
    }

    // ---- scanning ------------------------------------------------------------------------

    /** Binary names of all service classes found, sorted; scanned once. */
    SortedSet<String> classNames() {
        if (names == null) {
            names = scanClassNames(entries, root, warnings);
        }
        return names;
    }

    /**
     * Scans directories and jar files (following the Class-Path of jar manifests) for
     * {@code <root>/<package>/<Name>Imp.class}; nested classes and deeper packages are
     * not service classes.
     */
    static SortedSet<String> scanClassNames(Collection<File> entries, String root, PrintStream warnings) {
        String prefix = root.isEmpty() ? "" : root + "/";
        SortedSet<String> found = new TreeSet<String>();
        Set<File> seen = new LinkedHashSet<File>();
        List<File> queue = new ArrayList<File>(entries);
        for (int q = 0; q < queue.size(); q++) {
            File entry = canonical(queue.get(q));
            if (!seen.add(entry)) {
                continue;
            }
            if (entry.isDirectory()) {
                scanDirectory(new File(entry, prefix), prefix, found);
            } else if (entry.isFile()) {
                scanJar(entry, prefix, found, queue, warnings);
            }
        }
        return found;
    }

    private static void scanDirectory(File rootDir, String prefix, Set<String> found) {
        File[] packages = rootDir.listFiles();
        if (packages == null) {
            return;
        }
        for (File pkg : packages) {
            if (!pkg.isDirectory() || !isIdentifier(pkg.getName())) {
                continue;
            }
            String[] files = pkg.list();
            if (files == null) {
                continue;
            }
            for (String file : files) {
                String name = serviceClassName(prefix + pkg.getName() + "/" + file, prefix);
                if (name != null && new File(pkg, file).isFile()) {
                    found.add(name);
                }
            }
        }
    }

    private static void scanJar(File jar, String prefix, Set<String> found, List<File> queue,
            PrintStream warnings) {
        JarFile jf;
        try {
            jf = new JarFile(jar);
        } catch (IOException e) {
            if (jar.getName().endsWith(".jar") || jar.getName().endsWith(".zip")) {
                warn(warnings, "cannot read class path entry " + jar + ": " + e.getMessage());
            }
            return;
        }
        try {
            Enumeration<JarEntry> it = jf.entries();
            while (it.hasMoreElements()) {
                JarEntry e = it.nextElement();
                String name = e.isDirectory() ? null : serviceClassName(e.getName(), prefix);
                if (name != null) {
                    found.add(name);
                }
            }
            Manifest manifest = jf.getManifest();
            String classPath = manifest == null ? null
                    : manifest.getMainAttributes().getValue(Attributes.Name.CLASS_PATH);
            if (classPath != null) {
                for (String ref : classPath.trim().split("\\s+")) {
                    File f = resolveManifestEntry(jar, ref);
                    if (f != null) {
                        queue.add(f);
                    }
                }
            }
        } catch (IOException e) {
            warn(warnings, "cannot read class path entry " + jar + ": " + e.getMessage());
        } finally {
            try {
                jf.close();
            } catch (IOException e) {
                // nothing left to do with it
            }
        }
    }

    private static File resolveManifestEntry(File jar, String ref) {
        if (ref.isEmpty()) {
            return null;
        }
        try {
            URL url = new URL(jar.getParentFile().toURI().toURL(), ref);
            return fileOf(url);
        } catch (IOException | RuntimeException e) {
            return null;
        }
    }

    /** "com/x/pkg/FooImp.class" with prefix "com/x/" gives "com.x.pkg.FooImp"; otherwise null. */
    static String serviceClassName(String path, String prefix) {
        if (!path.startsWith(prefix) || !path.endsWith(CLASS_SUFFIX + ".class")) {
            return null;
        }
        String rest = path.substring(prefix.length(), path.length() - ".class".length());
        int slash = rest.indexOf('/');
        if (slash <= 0 || rest.indexOf('/', slash + 1) >= 0) {
            return null;
        }
        String pkg = rest.substring(0, slash);
        String simple = rest.substring(slash + 1);
        if (!isIdentifier(pkg) || !isIdentifier(simple) || simple.indexOf('$') >= 0) {
            return null;
        }
        return path.substring(0, path.length() - ".class".length()).replace('/', '.');
    }

    private static boolean isIdentifier(String s) {
        if (s.isEmpty() || !Character.isJavaIdentifierStart(s.charAt(0))) {
            return false;
        }
        for (int i = 1; i < s.length(); i++) {
            if (!Character.isJavaIdentifierPart(s.charAt(i))) {
                return false;
            }
        }
        return true;
    }

    // ---- loading and resolving -----------------------------------------------------------

    /** All service classes that could be loaded (not initialised), sorted by name. */
    List<Class<?>> loadAll() {
        List<Class<?>> classes = new ArrayList<Class<?>>();
        for (String name : classNames()) {
            try {
                classes.add(Class.forName(name, false, loader));
            } catch (ClassNotFoundException | LinkageError e) {
                warn(warnings, "cannot load " + name + ": " + describeError(e));
            }
        }
        return classes;
    }

    /**
     * Finds the service class meant by {@code name}: a simple name with or without the
     * "Imp" suffix, "package.Name[Imp]" as shown by the listing, or a fully qualified
     * name. The class is loaded but not initialised.
     */
    Class<?> resolve(String name) throws ConsoleException {
        if (name.isEmpty()) {
            throw new ConsoleException("empty service class name");
        }
        String withImp = name.endsWith(CLASS_SUFFIX) ? name : name + CLASS_SUFFIX;
        List<String> matches = new ArrayList<String>();
        for (String candidate : classNames()) {
            if (candidate.equals(name) || candidate.equals(withImp)
                    || candidate.endsWith("." + name) || candidate.endsWith("." + withImp)) {
                matches.add(candidate);
            }
        }
        if (matches.size() > 1) {
            // an exact fully qualified match wins over suffix matches
            for (String m : matches) {
                if (m.equals(name) || m.equals(withImp)) {
                    return load(m);
                }
            }
            throw new ConsoleException("service class name '" + name + "' is ambiguous: "
                    + join(matches) + "; use the package-qualified name");
        }
        if (matches.size() == 1) {
            return load(matches.get(0));
        }
        Class<?> direct = tryLoad(directCandidates(name, withImp));
        if (direct != null) {
            return direct;
        }
        String file = withImp.substring(withImp.lastIndexOf('.') + 1) + ".class";
        throw new ConsoleException("unknown service class '" + name + "': no " + root + "/*/" + file
                + " on the class path (" + classNames().size()
                + " service classes found; --list shows them)");
    }

    /**
     * Names to try with the loader directly when scanning found nothing (classes the
     * loader can see but that are not in a scannable class path entry). Only names of
     * service classes, ending in "Imp", are tried.
     */
    private List<String> directCandidates(String name, String withImp) {
        List<String> candidates = new ArrayList<String>();
        String rootDots = root.replace('/', '.');
        if (name.indexOf('.') >= 0) {
            candidates.add(withImp);
            if (!rootDots.isEmpty()) {
                candidates.add(rootDots + "." + withImp);
            }
        } else if (!rootDots.isEmpty()) {
            for (String pkg : KNOWN_PACKAGES) {
                candidates.add(rootDots + "." + pkg + "." + withImp);
            }
        }
        return candidates;
    }

    private Class<?> tryLoad(List<String> candidates) {
        for (String candidate : candidates) {
            try {
                return Class.forName(candidate, false, loader);
            } catch (ClassNotFoundException | LinkageError e) {
                // not this one
            }
        }
        return null;
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

    /** "commservices.DeviceInfoQueryServiceImp.getDeviceInfoJni() -> String". */
    static String describe(Method m) {
        return shortName(m.getDeclaringClass()) + "." + m.getName() + signature(m)
                + " -> " + m.getReturnType().getSimpleName();
    }

    /** "(String, int)". */
    static String signature(Method m) {
        StringBuilder sb = new StringBuilder("(");
        Class<?>[] params = m.getParameterTypes();
        for (int i = 0; i < params.length; i++) {
            if (i > 0) {
                sb.append(", ");
            }
            sb.append(params[i].getSimpleName());
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

    private static String join(List<String> items) {
        StringBuilder sb = new StringBuilder();
        for (String s : items) {
            if (sb.length() > 0) {
                sb.append(", ");
            }
            sb.append(s);
        }
        return sb.toString();
    }

    private static void warn(PrintStream warnings, String message) {
        if (warnings != null) {
            warnings.println("warning: " + message);
            warnings.flush();
        }
    }
}
