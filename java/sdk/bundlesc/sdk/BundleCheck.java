package bundlesc.sdk;

import java.io.BufferedReader;
import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Properties;
import java.util.Set;
import java.util.TreeMap;
import java.util.jar.Attributes;
import java.util.jar.Manifest;
import java.util.zip.ZipEntry;
import java.util.zip.ZipInputStream;

/**
 * Checks a bundle against what the gateway runs: a Java 8 VM (class files up to version 52),
 * the service packages exported by the bridge bundle (imported, never embedded), Gson 2.7, and
 * an OSGi framework that refuses a malformed manifest. Every finding names what to change.
 */
public final class BundleCheck {

    /** The highest class file version the gateway's Java 8 VM loads. */
    public static final int MAX_CLASS_VERSION = 52;

    static final String SERVICE_PREFIX = "com.lumarest.smartgateway.";
    /** The bundle that holds and exports the service classes. */
    static final String BRIDGE_BUNDLE = "com.lumarest.smartgateway.bridge";
    static final List<String> SERVICE_PACKAGES = Collections.unmodifiableList(Arrays.asList(
            "accessservices", "addressservices", "commservices", "lanservices", "transferservices", "voipservices"));

    /** What a finding is about; the box refuses a bundle for {@link #CLASS_VERSION}. */
    public enum Kind { CLASS_VERSION, SERVICE_CLASSES, IMPORTS, MANIFEST, GSON_API }

    /** One finding: an error (the bundle fails on the gateway) or a warning (it may). */
    public static final class Finding {
        public final boolean error;
        public final Kind kind;
        public final String message;

        Finding(boolean error, Kind kind, String message) {
            this.error = error;
            this.kind = kind;
            this.message = message;
        }

        @Override
        public String toString() {
            return (error ? "error: " : "warning: ") + message;
        }
    }

    /** The result: the findings, and what was looked at. */
    public static final class Report {
        public final List<Finding> findings = new ArrayList<Finding>();
        public int classes;
        public int highestClassVersion;

        public boolean hasErrors() {
            for (Finding f : findings) {
                if (f.error) {
                    return true;
                }
            }
            return false;
        }

        public boolean has(Kind kind) {
            for (Finding f : findings) {
                if (f.kind == kind) {
                    return true;
                }
            }
            return false;
        }
    }

    private final String bridgeVersion;
    private final String gsonVersion;
    private final List<String[]> newerGson;

    private BundleCheck(String bridgeVersion, String gsonVersion, List<String[]> newerGson) {
        this.bridgeVersion = bridgeVersion;
        this.gsonVersion = gsonVersion;
        this.newerGson = newerGson;
    }

    /** The check for the gateway this build is for (versions from the build's gateway.properties). */
    public static BundleCheck forGateway() throws IOException {
        Properties p = new Properties();
        try (InputStream in = resource("gateway.properties")) {
            p.load(in);
        }
        List<String[]> gson = new ArrayList<String[]>();
        try (BufferedReader r = new BufferedReader(new InputStreamReader(resource("gson-after-2.7.txt"),
                StandardCharsets.UTF_8))) {
            for (String line = r.readLine(); line != null; line = r.readLine()) {
                String t = line.trim();
                if (!t.isEmpty() && !t.startsWith("#")) {
                    gson.add(t.split("\\s+"));
                }
            }
        }
        return new BundleCheck(p.getProperty("bridge.version"), p.getProperty("gson.version"), gson);
    }

    private static InputStream resource(String name) throws IOException {
        InputStream in = BundleCheck.class.getResourceAsStream(name);
        if (in == null) {
            throw new IOException(name + " is missing beside the checker's classes (a build step writes it)");
        }
        return in;
    }

    /** The Gson version the gateway's bundles are built for, e.g. 2.7.0. */
    public String gsonVersion() {
        return gsonVersion;
    }

    // ---- reading a bundle ------------------------------------------------------------------

    /** The entries of a jar (name to bytes; directories left out), in the jar's order. */
    public static Map<String, byte[]> readJar(InputStream jar) throws IOException {
        Map<String, byte[]> entries = new LinkedHashMap<String, byte[]>();
        ZipInputStream zip = new ZipInputStream(jar);
        for (ZipEntry e = zip.getNextEntry(); e != null; e = zip.getNextEntry()) {
            if (!e.isDirectory()) {
                entries.put(e.getName(), readAll(zip));
            }
        }
        return entries;
    }

    public static byte[] readAll(InputStream in) throws IOException {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        byte[] buf = new byte[8192];
        for (int n = in.read(buf); n > 0; n = in.read(buf)) {
            out.write(buf, 0, n);
        }
        return out.toByteArray();
    }

    // ---- the check -------------------------------------------------------------------------

    /** Checks a bundle given by its entries (as {@link #readJar} returns them). */
    public Report check(Map<String, byte[]> entries) {
        Report report = new Report();
        byte[] manifestBytes = entries.get("META-INF/MANIFEST.MF");
        if (manifestBytes == null) {
            error(report, Kind.MANIFEST, "the jar has no META-INF/MANIFEST.MF: it is no bundle"
                    + " (jar cfm BUNDLE.jar MANIFEST.MF -C CLASSES .)");
            return report;
        }
        Attributes headers;
        try {
            headers = new Manifest(new ByteArrayInputStream(manifestBytes)).getMainAttributes();
        } catch (IOException | RuntimeException e) {
            error(report, Kind.MANIFEST, "META-INF/MANIFEST.MF cannot be read: " + e.getMessage());
            return report;
        }
        Map<String, byte[]> classes = classEntries(entries, headers, report);
        checkManifest(headers, classes, report);
        checkClasses(classes, headers, report);
        if (BRIDGE_BUNDLE.equals(trim(headers.getValue("Bundle-SymbolicName")))) {
            // The bridge bundle is where the service classes belong.
            report.findings.removeIf(f -> f.kind == Kind.SERVICE_CLASSES);
        }
        return report;
    }

    /** The class files the bundle's class path holds: the jar itself and the jars of Bundle-ClassPath. */
    private static Map<String, byte[]> classEntries(Map<String, byte[]> entries, Attributes headers, Report report) {
        Map<String, byte[]> classes = new LinkedHashMap<String, byte[]>();
        List<String> path = new ArrayList<String>();
        String bcp = headers.getValue("Bundle-ClassPath");
        if (bcp == null) {
            path.add(".");
        } else {
            try {
                for (HeaderClauses.Clause c : HeaderClauses.parse("Bundle-ClassPath", bcp)) {
                    path.addAll(c.paths);
                }
            } catch (IllegalArgumentException e) {
                error(report, Kind.MANIFEST, e.getMessage());
                path.add(".");
            }
        }
        for (String element : path) {
            String prefix = element.equals(".") || element.equals("/") ? "" : element.replaceFirst("^/", "");
            byte[] jar = prefix.isEmpty() ? null : entries.get(prefix);
            if (jar != null) {
                try {
                    if (jar.length < 4 || jar[0] != 'P' || jar[1] != 'K') {
                        throw new IOException("it does not start as a zip file does");
                    }
                    for (Map.Entry<String, byte[]> e : readJar(new ByteArrayInputStream(jar)).entrySet()) {
                        addClass(classes, e.getKey(), e.getValue(), prefix + "!/");
                    }
                } catch (IOException e) {
                    error(report, Kind.MANIFEST, "Bundle-ClassPath names " + prefix + ", which is no readable jar: "
                            + e.getMessage());
                }
                continue;
            }
            String dir = prefix.isEmpty() || prefix.endsWith("/") ? prefix : prefix + "/";
            boolean found = prefix.isEmpty();
            for (Map.Entry<String, byte[]> e : entries.entrySet()) {
                if (e.getKey().startsWith(dir)) {
                    found = true;
                    addClass(classes, e.getKey().substring(dir.length()), e.getValue(), dir);
                }
            }
            if (!found) {
                error(report, Kind.MANIFEST, "Bundle-ClassPath names " + element + ", which the jar does not hold");
            }
        }
        return classes;
    }

    /** Keyed by the class's path in its class path element; the value's where is kept in the key's map. */
    private static void addClass(Map<String, byte[]> classes, String name, byte[] bytes, String where) {
        // Java 8 loads neither module descriptors nor the versioned classes of a multi-release jar.
        if (name.endsWith(".class") && !name.endsWith("module-info.class") && !name.startsWith("META-INF/")
                && !classes.containsKey(name)) {
            classes.put(name, bytes);
        }
    }

    private void checkManifest(Attributes h, Map<String, byte[]> classes, Report report) {
        if (!"2".equals(trim(h.getValue("Bundle-ManifestVersion")))) {
            error(report, Kind.MANIFEST, h.getValue("Bundle-ManifestVersion") == null
                    ? "Bundle-ManifestVersion: 2 is missing (without it the framework takes the jar for an old-style bundle)"
                    : "Bundle-ManifestVersion is " + h.getValue("Bundle-ManifestVersion") + ", not 2");
        }
        String name = h.getValue("Bundle-SymbolicName");
        if (name == null) {
            error(report, Kind.MANIFEST, "Bundle-SymbolicName is missing (e.g. Bundle-SymbolicName: com.example.hello)");
        } else {
            try {
                List<HeaderClauses.Clause> clauses = HeaderClauses.parse("Bundle-SymbolicName", name);
                if (clauses.size() != 1 || clauses.get(0).paths.size() != 1
                        || !clauses.get(0).paths.get(0).matches("[A-Za-z0-9_-]+(\\.[A-Za-z0-9_-]+)*")) {
                    error(report, Kind.MANIFEST, "Bundle-SymbolicName '" + name
                            + "' is not one dotted name (e.g. com.example.hello)");
                }
            } catch (IllegalArgumentException e) {
                error(report, Kind.MANIFEST, e.getMessage());
            }
        }
        String version = h.getValue("Bundle-Version");
        if (version != null) {
            try {
                VersionRange.version(version);
            } catch (IllegalArgumentException e) {
                error(report, Kind.MANIFEST, "Bundle-Version: " + e.getMessage());
            }
        }
        String activator = h.getValue("Bundle-Activator");
        if (activator != null && !classes.containsKey(activator.trim().replace('.', '/') + ".class")) {
            error(report, Kind.MANIFEST, "Bundle-Activator names " + activator.trim()
                    + ", which the bundle does not hold");
        }
        checkImports(h.getValue("Import-Package"), report);
        String exports = h.getValue("Export-Package");
        if (exports != null) {
            try {
                for (HeaderClauses.Clause c : HeaderClauses.parse("Export-Package", exports)) {
                    for (String p : c.paths) {
                        if (p.startsWith(SERVICE_PREFIX)) {
                            error(report, Kind.SERVICE_CLASSES, "Export-Package exports " + p
                                    + ": only the bridge bundle exports the service packages");
                        }
                    }
                    checkVersionAttribute("Export-Package", c, false, report);
                }
            } catch (IllegalArgumentException e) {
                error(report, Kind.MANIFEST, e.getMessage());
            }
        }
        String dynamic = h.getValue("DynamicImport-Package");
        if (dynamic != null) {
            try {
                HeaderClauses.parse("DynamicImport-Package", dynamic);
            } catch (IllegalArgumentException e) {
                error(report, Kind.MANIFEST, e.getMessage());
            }
        }
        checkExecutionEnvironment(h, report);
    }

    private void checkImports(String imports, Report report) {
        if (imports == null) {
            return;
        }
        List<HeaderClauses.Clause> clauses;
        try {
            clauses = HeaderClauses.parse("Import-Package", imports);
        } catch (IllegalArgumentException e) {
            error(report, Kind.MANIFEST, e.getMessage());
            return;
        }
        Set<String> seen = new HashSet<String>();
        for (HeaderClauses.Clause c : clauses) {
            VersionRange range = checkVersionAttribute("Import-Package", c, true, report);
            for (String p : c.paths) {
                if (!seen.add(p)) {
                    error(report, Kind.MANIFEST, "Import-Package imports " + p + " twice (the framework refuses the bundle)");
                }
                if (p.startsWith("java.")) {
                    error(report, Kind.MANIFEST, "Import-Package imports " + p
                            + ": java.* packages come from the VM and must not be imported");
                } else if (!p.matches("[A-Za-z_$][A-Za-z0-9_$]*(\\.[A-Za-z_$][A-Za-z0-9_$]*)*")) {
                    error(report, Kind.MANIFEST, "Import-Package names '" + p + "', which is no package name");
                }
                if (range == null) {
                    continue;
                }
                if (isServicePackage(p) && !range.includes(bridgeVersion)) {
                    error(report, Kind.IMPORTS, "Import-Package asks for " + p + " " + range
                            + ", but the bridge bundle exports it at " + bridgeVersion + " (use version=\"[1.0,2)\")");
                } else if (p.startsWith("com.google.gson") && !range.includes(gsonVersion)) {
                    error(report, Kind.IMPORTS, "Import-Package asks for " + p + " " + range
                            + ", but the gateway's Gson is " + gsonVersion + " (use version=\"[2.7,3)\")");
                }
            }
        }
    }

    private static VersionRange checkVersionAttribute(String header, HeaderClauses.Clause c, boolean range,
            Report report) {
        String v = c.attributes.get("version");
        if (v == null) {
            return null;
        }
        try {
            if (range) {
                return VersionRange.parse(v);
            }
            VersionRange.version(v);
        } catch (IllegalArgumentException e) {
            error(report, Kind.MANIFEST, header + " " + String.join(";", c.paths) + ": " + e.getMessage());
        }
        return null;
    }

    /** The gateway runs Java 8: an execution environment above it never resolves there. */
    private static void checkExecutionEnvironment(Attributes h, Report report) {
        String bree = h.getValue("Bundle-RequiredExecutionEnvironment");
        if (bree != null) {
            boolean fits = false;
            for (String ee : bree.split(",")) {
                String e = ee.trim();
                fits |= e.matches("(J2SE-1\\.[2-5]|JavaSE-1\\.[6-8]|OSGi/Minimum-1\\.[0-2]|JRE-1\\.1|CDC-1\\.[01]/.*)");
            }
            if (!fits) {
                error(report, Kind.MANIFEST, "Bundle-RequiredExecutionEnvironment is " + bree.trim()
                        + ": the gateway's Java 8 offers JavaSE-1.8 at most");
            }
        }
        String caps = h.getValue("Require-Capability");
        if (caps != null) {
            java.util.regex.Matcher m = java.util.regex.Pattern
                    .compile("osgi\\.ee[^,]*?\\(version\\s*(>=|=)\\s*([0-9.]+)\\)").matcher(caps);
            while (m.find()) {
                long[] v = VersionRange.version(m.group(2));
                if (v[0] > 1 || (v[0] == 1 && v[1] > 8)) {
                    error(report, Kind.MANIFEST, "Require-Capability asks for Java " + m.group(2)
                            + ": the gateway's VM is Java 8 (version>=1.8 at most)");
                }
            }
        }
    }

    private void checkClasses(Map<String, byte[]> classes, Attributes h, Report report) {
        Map<String, ClassFile> parsed = new TreeMap<String, ClassFile>();
        List<String> tooNew = new ArrayList<String>();
        int newest = 0;
        for (Map.Entry<String, byte[]> e : classes.entrySet()) {
            ClassFile cf;
            try {
                cf = ClassFile.parse(e.getValue());
            } catch (IOException ex) {
                error(report, Kind.MANIFEST, e.getKey() + ": " + ex.getMessage());
                continue;
            }
            parsed.put(e.getKey(), cf);
            report.highestClassVersion = Math.max(report.highestClassVersion, cf.major);
            if (cf.major > MAX_CLASS_VERSION) {
                tooNew.add(e.getKey());
                newest = Math.max(newest, cf.major);
            }
        }
        report.classes = parsed.size();
        if (!tooNew.isEmpty()) {
            error(report, Kind.CLASS_VERSION, plural(tooNew.size(), "class is", "classes are") + " Java "
                    + ClassFile.javaRelease(newest) + " bytecode (class file version " + newest + "), e.g. "
                    + tooNew.get(0) + ": the gateway's Java 8 VM loads class file versions up to "
                    + MAX_CLASS_VERSION + " only; compile with javac --release 8");
        }
        List<String> embedded = new ArrayList<String>();
        Set<String> own = new HashSet<String>();
        for (String name : classes.keySet()) {
            own.add(packageOf(name.substring(0, name.length() - ".class".length())));
            if (name.startsWith(SERVICE_PREFIX.replace('.', '/'))) {
                embedded.add(name);
            }
        }
        if (!embedded.isEmpty()) {
            error(report, Kind.SERVICE_CLASSES, "the bundle holds " + plural(embedded.size(), "service class", "service classes")
                    + " (e.g. " + embedded.get(0) + "): import their packages from the bridge bundle instead; a second"
                    + " copy cannot load libbundle_sc.so, which the bridge bundle's copy has loaded");
        }
        checkImportsCoverUse(parsed, own, h, report);
        checkGsonApi(parsed, report);
    }

    /** Every package the classes use, but java.* and the bundle's own, must be imported. */
    private static void checkImportsCoverUse(Map<String, ClassFile> parsed, Set<String> own, Attributes h,
            Report report) {
        Set<String> imported = new HashSet<String>();
        List<String> dynamic = new ArrayList<String>();
        try {
            String imports = h.getValue("Import-Package");
            if (imports != null) {
                for (HeaderClauses.Clause c : HeaderClauses.parse("Import-Package", imports)) {
                    imported.addAll(c.paths);
                }
            }
            String dyn = h.getValue("DynamicImport-Package");
            if (dyn != null) {
                for (HeaderClauses.Clause c : HeaderClauses.parse("DynamicImport-Package", dyn)) {
                    dynamic.addAll(c.paths);
                }
            }
        } catch (IllegalArgumentException e) {
            return; // reported with the manifest
        }
        Map<String, String> missing = new TreeMap<String, String>();
        for (Map.Entry<String, ClassFile> e : parsed.entrySet()) {
            for (String used : e.getValue().referencedClasses) {
                String p = packageOf(used).replace('/', '.');
                if (p.isEmpty() || p.startsWith("java.") || own.contains(packageOf(used)) || imported.contains(p)
                        || dynamicallyImported(p, dynamic) || missing.containsKey(p)) {
                    continue;
                }
                missing.put(p, e.getKey());
            }
        }
        for (Map.Entry<String, String> m : missing.entrySet()) {
            String p = m.getKey();
            String hint = isServicePackage(p) ? p + ";version=\"[1.0,2)\""
                    : p.startsWith("com.google.gson") ? p + ";version=\"[2.7,3)\"" : p;
            error(report, Kind.IMPORTS, m.getValue() + " uses the package " + p
                    + ", which Import-Package does not import (add " + hint + ")");
        }
    }

    private static boolean dynamicallyImported(String p, List<String> patterns) {
        for (String pattern : patterns) {
            if (pattern.equals("*") || pattern.equals(p)
                    || (pattern.endsWith(".*") && p.startsWith(pattern.substring(0, pattern.length() - 1)))) {
                return true;
            }
        }
        return false;
    }

    private void checkGsonApi(Map<String, ClassFile> parsed, Report report) {
        Map<String, String> uses = new TreeMap<String, String>();
        for (Map.Entry<String, ClassFile> e : parsed.entrySet()) {
            ClassFile cf = e.getValue();
            for (String[] api : newerGson) {
                String version = api[api.length - 1];
                if (api.length == 2) {
                    if (cf.referencedClasses.contains(api[0])) {
                        note(uses, api[0].replace('/', '.') + " (Gson " + version + ")", e.getKey());
                    }
                    continue;
                }
                for (ClassFile.MemberRef ref : cf.memberRefs) {
                    if (ref.owner != null && ref.owner.equals(api[0]) && ref.name.equals(api[1])
                            && (api.length == 3 || ref.descriptor.contains(api[2]))) {
                        note(uses, api[0].replace('/', '.') + "." + api[1] + " (Gson " + version + ")", e.getKey());
                    }
                }
            }
        }
        for (Map.Entry<String, String> u : uses.entrySet()) {
            report.findings.add(new Finding(false, Kind.GSON_API, u.getValue() + " uses " + u.getKey()
                    + ", which the gateway's Gson " + gsonVersion + " does not have"));
        }
    }

    private static void note(Map<String, String> uses, String what, String where) {
        if (!uses.containsKey(what)) {
            uses.put(what, where);
        }
    }

    static boolean isServicePackage(String p) {
        return p.startsWith(SERVICE_PREFIX) && SERVICE_PACKAGES.contains(p.substring(SERVICE_PREFIX.length()));
    }

    private static String packageOf(String internalName) {
        int slash = internalName.lastIndexOf('/');
        return slash < 0 ? "" : internalName.substring(0, slash);
    }

    private static String plural(int n, String one, String many) {
        return n + " " + (n == 1 ? one : many);
    }

    private static String trim(String s) {
        return s == null ? null : s.trim();
    }

    private static void error(Report report, Kind kind, String message) {
        report.findings.add(new Finding(true, kind, message));
    }
}
