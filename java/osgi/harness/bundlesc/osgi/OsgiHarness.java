package bundlesc.osgi;

import java.io.File;
import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URL;
import java.net.URLClassLoader;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collection;
import java.util.Collections;
import java.util.Comparator;
import java.util.HashMap;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Map;
import java.util.Properties;
import java.util.ServiceLoader;
import java.util.Set;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.function.Function;
import java.util.stream.Stream;
import org.osgi.framework.Bundle;
import org.osgi.framework.BundleContext;
import org.osgi.framework.BundleException;
import org.osgi.framework.FrameworkEvent;
import org.osgi.framework.ServiceReference;
import org.osgi.framework.launch.Framework;
import org.osgi.framework.launch.FrameworkFactory;
import org.osgi.framework.wiring.FrameworkWiring;

/**
 * The osgi.* tier: an OSGi framework embedded in this JVM (run under -Xcheck:jni) through the
 * standard launch API, with a fresh storage directory that is removed afterwards, runs the
 * bridge bundle, the simulator bundle and the probe bundles (bundlesc.osgi.probe) through one
 * scenario. The first argument names the framework the class path holds (felix, equinox or
 * knopflerfish; {@link Kind}), the second the scenario:
 * <ul>
 * <li>calls: every native through the service classes inside the framework; each reply and
 * simulator call log must be the one the same call gives in a plain class loader outside it;
 * <li>concurrent: two probe bundles calling every steady native at once;
 * <li>lifecycle: the bridge bundle stopped, started, updated and refreshed, and which copy of
 * libbundle_sc.so the process has mapped at each step;
 * <li>early-call, installed-twice, foreign-processor, no-platform-library: the bad inputs, each
 * of which must give an error naming its cause and leave the framework running.
 * </ul>
 * The same bundles and the same checks serve every framework; where the frameworks differ in
 * how they load the library, {@link Kind} says so and the check follows it.
 * Errors the framework reports are printed as "ERROR: ..." lines, as a launcher logs them.
 * Exit status 0 when the scenario went as it should; "FAILED: ..." and 1 otherwise.
 *
 * System properties: bundlesc.osgi.dir (the build's osgi/ dir, with the bundles),
 * bundlesc.osgi.classes (the plain Java classes), bundlesc.osgi.properties (the framework's
 * launch properties file, for the frameworks that need one), bundlesc.osgi.natives (how many
 * natives the library exports).
 */
public final class OsgiHarness {
    static final String BRIDGE = "com.lumarest.smartgateway.bridge";
    static final String LIBRARY = "libbundle_sc.so";

    private static final Path OSGI_DIR = Paths.get(System.getProperty("bundlesc.osgi.dir", "osgi"));
    private static int failures;
    private static Kind kind;
    private static Path storage;

    /**
     * The frameworks the tier runs, as Debian 12 ships them. The version is the one whose
     * messages the documentation quotes; another version fails the test rather than passing
     * with messages nobody has read.
     */
    enum Kind {
        /** Takes the processor from os.arch whatever the launcher configures. */
        FELIX("felix", "org.apache.felix.framework", "4.6.", false, false, false),
        EQUINOX("equinox", "org.eclipse.osgi", "3.18.", false, true, false),
        /**
         * Gives a bundle a new class loader each time it starts, with its own library copy; its
         * event thread (not a daemon) outlives the stopped framework.
         */
        KNOPFLERFISH("knopflerfish", "org.knopflerfish.framework", "8.0.", true, true, true);

        final String name;
        final String symbolicName;
        final String version;
        final boolean newLoaderOnStart;
        final boolean keepsConfiguredProcessor;
        final boolean threadOutlivesStop;

        Kind(String name, String symbolicName, String version, boolean newLoaderOnStart,
             boolean keepsConfiguredProcessor, boolean threadOutlivesStop) {
            this.name = name;
            this.symbolicName = symbolicName;
            this.version = version;
            this.newLoaderOnStart = newLoaderOnStart;
            this.keepsConfiguredProcessor = keepsConfiguredProcessor;
            this.threadOutlivesStop = threadOutlivesStop;
        }

        static Kind named(String name) {
            for (Kind k : values()) {
                if (k.name.equals(name)) {
                    return k;
                }
            }
            return null;
        }
    }

    private OsgiHarness() {}

    public static void main(String[] args) throws Exception {
        kind = args.length == 2 ? Kind.named(args[0]) : null;
        if (kind == null) {
            System.err.println("usage: OsgiHarness felix|equinox|knopflerfish calls|concurrent|"
                    + "lifecycle|early-call|installed-twice|foreign-processor|no-platform-library");
            System.exit(2);
        }
        String scenario = args[1];
        storage = Files.createTempDirectory("bundlesc-" + kind.name);
        try {
            run(scenario);
        } catch (Exception | Error e) {
            fail(scenario + " threw " + e);
            e.printStackTrace(System.out);
        } finally {
            deleteTree(storage);
        }
        if (Files.exists(storage)) {
            fail("the framework storage " + storage + " was not removed");
        }
        List<String> left = new ArrayList<String>();
        for (Thread t : Thread.getAllStackTraces().keySet()) {
            if (!t.isDaemon() && t != Thread.currentThread() && t.isAlive()) {
                left.add(t.getName());
            }
        }
        info("threads that would keep the VM running: " + left);
        check(left.isEmpty() != kind.threadOutlivesStop, kind.threadOutlivesStop
                ? "a thread of the stopped framework keeps the VM running: the launcher ends it"
                : "the stopped framework leaves no thread that keeps the VM running");
        String name = "osgi " + kind.name + " " + scenario;
        System.out.println(failures == 0 ? name + ": passed" : name + ": " + failures + " failures");
        // Ends the VM whatever threads the framework left, as a launcher must for Knopflerfish.
        System.exit(failures == 0 ? 0 : 1);
    }

    private static void run(String scenario) throws Exception {
        switch (scenario) {
            case "calls": calls(); break;
            case "concurrent": concurrent(); break;
            case "lifecycle": lifecycle(); break;
            case "early-call": earlyCall(); break;
            case "installed-twice": installedTwice(); break;
            case "foreign-processor": foreignProcessor(); break;
            case "no-platform-library": noPlatformLibrary(); break;
            default: fail("unknown scenario " + scenario);
        }
    }

    // ---- checks and output

    static void fail(String what) {
        failures++;
        System.out.println("FAILED: " + what);
    }

    static void check(boolean ok, String what) {
        if (ok) {
            System.out.println("ok: " + what);
        } else {
            fail(what);
        }
    }

    static void info(String what) {
        System.out.println("[osgi] " + what);
    }

    /** Prints an error the framework reported, as a launcher logs it, and answers its text. */
    static String logged(Throwable e) {
        StringBuilder text = new StringBuilder();
        for (Throwable t = e; t != null; t = t.getCause()) {
            if (text.length() > 0) {
                text.append(" <- ");
            }
            text.append(t.getMessage());
        }
        System.out.println("ERROR: " + text);
        return text.toString();
    }

    // ---- the framework

    /**
     * Launches the framework the class path holds: the first FrameworkFactory the service
     * loader finds, given the launch properties file (if any), a storage directory and `extra`.
     */
    static Framework startFramework(Map<String, String> extra) throws Exception {
        return launch(kind, storage, extra);
    }

    /** Launches framework `k` (the one on the class path) with its storage in `dir`. */
    static Framework launch(Kind k, Path dir, Map<String, String> extra) throws Exception {
        Map<String, String> config = new HashMap<String, String>();
        String file = System.getProperty("bundlesc.osgi.properties", "");
        if (!file.isEmpty()) {
            Properties props = new Properties();
            try (InputStream in = new FileInputStream(file)) {
                props.load(in);
            }
            for (String name : props.stringPropertyNames()) {
                config.put(name, props.getProperty(name));
            }
        }
        config.put("org.osgi.framework.storage", dir.toString());
        config.put("org.osgi.framework.storage.clean", "onFirstInit");
        config.putAll(extra);
        FrameworkFactory factory = ServiceLoader.load(FrameworkFactory.class).iterator().next();
        Framework framework = factory.newFramework(config);
        framework.init();
        String version = framework.getVersion().toString();
        info("framework " + framework.getSymbolicName() + " " + version);
        if (!k.symbolicName.equals(framework.getSymbolicName()) || !version.startsWith(k.version)) {
            throw new IllegalStateException("the class path holds " + framework.getSymbolicName()
                    + " " + version + ", not " + k.symbolicName + " " + k.version + "x");
        }
        framework.getBundleContext().addFrameworkListener(event -> {
            if (event.getType() == FrameworkEvent.ERROR) {
                System.out.print("framework event from " + event.getBundle().getSymbolicName() + ": ");
                logged(event.getThrowable());
            }
        });
        framework.start();
        return framework;
    }

    static void stopFramework(Framework framework) throws Exception {
        framework.stop();
        FrameworkEvent stopped = framework.waitForStop(10000);
        check(stopped.getType() == FrameworkEvent.STOPPED, "the framework stops");
    }

    static Bundle install(BundleContext ctx, String jar) throws BundleException {
        return ctx.installBundle(OSGI_DIR.resolve(jar).toUri().toString());
    }

    static String probeJar(String name) {
        return "test/" + name + ".jar";
    }

    @SuppressWarnings({"unchecked", "rawtypes"})
    static Function<String, Object> probe(BundleContext ctx, String name) throws Exception {
        Collection<ServiceReference<Function>> refs = ctx.getServiceReferences(Function.class,
                "(bundlesc.probe=" + name + ")");
        if (refs.isEmpty()) {
            throw new IllegalStateException("no service of probe " + name);
        }
        return ctx.getService(refs.iterator().next());
    }

    /** Refreshes `bundles` and waits until the framework has finished. */
    static void refresh(Framework framework, Collection<Bundle> bundles) throws InterruptedException {
        CountDownLatch done = new CountDownLatch(1);
        framework.adapt(FrameworkWiring.class).refreshBundles(bundles, event -> done.countDown());
        if (!done.await(20, TimeUnit.SECONDS)) {
            fail("the refresh did not finish");
        }
    }

    /**
     * The copies of libbundle_sc.so this process has mapped, by file. Knopflerfish names most
     * of the copies it loads "N_libbundle_sc.so".
     */
    static Set<String> mappedLibraries() throws IOException {
        Set<String> files = new LinkedHashSet<String>();
        for (String line : Files.readAllLines(Paths.get("/proc/self/maps"))) {
            int slash = line.indexOf('/');
            if (slash >= 0 && (line.endsWith("/" + LIBRARY) || line.endsWith("_" + LIBRARY))) {
                files.add(line.substring(slash));
            }
        }
        return files;
    }

    /** Garbage-collects until none of `files` is mapped or a few seconds pass; true if none is. */
    static boolean unmappedAfterCollection(Collection<String> files) throws Exception {
        for (int i = 0; i < 50; i++) {
            if (Collections.disjoint(mappedLibraries(), files)) {
                return true;
            }
            System.gc();
            Thread.sleep(100);
        }
        return false;
    }

    /** The one copy of the library mapped, from the framework's storage, or null. */
    static String oneCopyInStorage() throws IOException {
        Set<String> mapped = mappedLibraries();
        if (mapped.size() != 1) {
            return null;
        }
        String file = mapped.iterator().next();
        return inStorage(file) ? file : null;
    }

    /** True if `file` is in the framework's storage directory. */
    static boolean inStorage(String file) throws IOException {
        return file.startsWith(storage.toRealPath() + "/");
    }

    // ---- the replies outside the framework

    /**
     * Every native called in a plain class loader over the build's classes, as a plain JVM
     * program does: {"Class.method", reply, call log} in class and method order. The same
     * simulated gateway serves both sides (the simulator bundle's library and this loader's
     * share one libgatewaysim.so).
     */
    static List<String[]> plainReplies() throws Exception {
        File classes = new File(System.getProperty("bundlesc.osgi.classes"));
        URLClassLoader loader = new URLClassLoader(new URL[] {classes.toURI().toURL()},
                ClassLoader.getPlatformClassLoader());
        Class<?> sim = Class.forName("bundlesc.sim.GatewaySim", true, loader);
        Class<?> neutral = Class.forName("bundlesc.sim.NeutralCalls", true, loader);
        Method argumentsFor = neutral.getMethod("argumentsFor", Method.class);
        Method log = sim.getMethod("log");
        Method clearLog = sim.getMethod("clearLog");
        if ((Integer) sim.getMethod("loadDefault").invoke(null) != 0) {
            throw new IllegalStateException("the default simulated gateway did not load");
        }
        neutral.getMethod("refuseHarmful").invoke(null);
        List<String> names = new ArrayList<String>();
        Path root = classes.toPath();
        try (Stream<Path> files = Files.walk(root.resolve("com/lumarest/smartgateway"))) {
            files.filter(p -> p.toString().endsWith("Imp.class")).forEach(p -> {
                String rel = root.relativize(p).toString();
                names.add(rel.substring(0, rel.length() - ".class".length()).replace('/', '.'));
            });
        }
        Collections.sort(names);
        List<String[]> out = new ArrayList<String[]>();
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        for (String name : names) {
            Class<?> cls = Class.forName(name, false, loader);
            Method[] methods = cls.getDeclaredMethods();
            Arrays.sort(methods, Comparator.comparing(Method::getName));
            for (Method m : methods) {
                if (!Modifier.isNative(m.getModifiers())) {
                    continue;
                }
                clearLog.invoke(null);
                String reply;
                try {
                    Object target = services.get(cls);
                    if (target == null) {
                        target = cls.getDeclaredConstructor().newInstance();
                        services.put(cls, target);
                    }
                    Object r = m.invoke(target, (Object[]) argumentsFor.invoke(null, m));
                    reply = r instanceof String ? "text " + r : r == null ? "null" : "int " + r;
                } catch (java.lang.reflect.InvocationTargetException e) {
                    reply = "threw " + e.getCause();
                }
                out.add(new String[] {cls.getSimpleName() + "." + m.getName(), reply,
                                      (String) log.invoke(null)});
            }
        }
        return out;
    }

    // ---- scenarios

    /** Starts the simulator, bridge and given probe bundles; answers the framework. */
    static Framework standard(String... probes) throws Exception {
        Framework framework = startFramework(Collections.<String, String>emptyMap());
        BundleContext ctx = framework.getBundleContext();
        List<Bundle> bundles = new ArrayList<Bundle>();
        bundles.add(install(ctx, "bundlesc.sim.jar"));
        bundles.add(install(ctx, BRIDGE + ".jar"));
        for (String p : probes) {
            bundles.add(install(ctx, probeJar(p)));
        }
        for (Bundle b : bundles) {
            b.start();
        }
        return framework;
    }

    static void calls() throws Exception {
        List<String[]> plain = plainReplies();
        Framework framework = standard("bundlesc.osgi.probe.a");
        @SuppressWarnings("unchecked")
        List<String[]> inside = (List<String[]>) probe(framework.getBundleContext(),
                "bundlesc.osgi.probe.a").apply("calls");
        int natives = Integer.getInteger("bundlesc.osgi.natives", -1);
        check(inside.size() == natives, inside.size() + " natives called inside the framework, "
                + natives + " exported by the library");
        check(plain.size() == inside.size(), plain.size() + " natives called outside");
        int same = 0;
        int silent = 0;
        for (int i = 0; i < Math.min(plain.size(), inside.size()); i++) {
            String[] out = plain.get(i);
            String[] in = inside.get(i);
            if (!Arrays.equals(out, in)) {
                fail(in[0] + " inside the framework: " + in[1] + " | " + in[2].trim()
                        + "\n  outside: " + out[0] + " " + out[1] + " | " + out[2].trim());
                continue;
            }
            same++;
            if (in[1].startsWith("threw")) {
                fail(in[0] + " " + in[1]);
            }
            if (in[2].isEmpty()) {
                silent++;
            }
        }
        check(same == plain.size(), same + " replies and call logs byte for byte the same "
                + "inside the framework and outside");
        info(silent + " natives made no platform call with their neutral arguments");
        String device = (String) probe(framework.getBundleContext(), "bundlesc.osgi.probe.a")
                .apply("device");
        info("getDeviceInfoJni inside the framework: " + device);
        check(device.startsWith("{\"Result\":0"), "getDeviceInfoJni answers from the simulated gateway");
        int inStorage = 0;
        for (String file : mappedLibraries()) {
            inStorage += inStorage(file) ? 1 : 0;
        }
        check(mappedLibraries().size() == 2 && inStorage == 1, "two copies of " + LIBRARY
                + " mapped, the plain loader's and the bundle's from the framework's storage: "
                + mappedLibraries());
        stopFramework(framework);
    }

    static void concurrent() throws Exception {
        Framework framework = standard("bundlesc.osgi.probe.a", "bundlesc.osgi.probe.b");
        BundleContext ctx = framework.getBundleContext();
        Function<String, Object> a = probe(ctx, "bundlesc.osgi.probe.a");
        Function<String, Object> b = probe(ctx, "bundlesc.osgi.probe.b");
        probe(ctx, "bundlesc.osgi.probe.a").apply("calls");  // the default gateway, harmful calls refused
        a.apply("expect");
        b.apply("expect");
        int rounds = Integer.getInteger("bundlesc.osgi.rounds", 100);
        Object[] results = new Object[2];
        Thread[] threads = new Thread[2];
        List<Function<String, Object>> probes = Arrays.asList(a, b);
        long start = System.nanoTime();
        for (int t = 0; t < 2; t++) {
            final int i = t;
            threads[t] = new Thread(() -> {
                try {
                    results[i] = probes.get(i).apply("soak:" + rounds);
                } catch (RuntimeException | Error e) {
                    results[i] = "threw " + e;
                }
            }, "probe-" + t);
            threads[t].start();
        }
        for (Thread t : threads) {
            t.join();
        }
        info(String.format("two bundles, %d rounds of every steady native each, at once, in %.1f s",
                rounds, (System.nanoTime() - start) / 1e9));
        check("".equals(results[0]), "bundle a got the replies of a single caller " + results[0]);
        check("".equals(results[1]), "bundle b got the replies of a single caller " + results[1]);
        check(mappedLibraries().size() == 1, "one copy of " + LIBRARY + " serves both bundles: "
                + mappedLibraries());
        stopFramework(framework);
    }

    /**
     * The bridge bundle stopped, started, updated and refreshed while a probe bundle calls
     * through it, and which copies of the library the process has mapped at each step. Every
     * new class loader of the bridge bundle loads its own copy (a VM binds a library to one
     * class loader), extracted into the framework's storage; an old copy goes when its loader
     * is garbage-collected. Where each framework puts the copies is printed.
     */
    static void lifecycle() throws Exception {
        Framework framework = standard("bundlesc.osgi.probe.a");
        BundleContext ctx = framework.getBundleContext();
        Bundle bridge = null;
        for (Bundle b : ctx.getBundles()) {
            if (BRIDGE.equals(b.getSymbolicName())) {
                bridge = b;
            }
        }
        String device = (String) probe(ctx, "bundlesc.osgi.probe.a").apply("device");
        String first = oneCopyInStorage();
        info("started: " + mappedLibraries());
        check(first != null, "started: the bridge bundle's library is loaded once, from the "
                + "framework's storage");

        bridge.stop();
        check(bridge.getState() == Bundle.RESOLVED, "stopped: the bridge bundle is resolved");
        check(device.equals(probe(ctx, "bundlesc.osgi.probe.a").apply("device")),
                "stopped: a bundle wired to it still calls the natives");
        check(mappedLibraries().equals(Collections.singleton(first)),
                "stopped: the same library stays loaded");

        bridge.start();
        info("started again: " + mappedLibraries());
        check(bridge.getState() == Bundle.ACTIVE, "started again: active");
        check(device.equals(probe(ctx, "bundlesc.osgi.probe.a").apply("device")),
                "started again: same reply");
        if (kind.newLoaderOnStart) {
            check(unmappedAfterCollection(Collections.singleton(first)),
                    "started again: the old class loader's copy is unloaded once collected");
            String second = oneCopyInStorage();
            check(second != null && !second.equals(first),
                    "started again: a new class loader, with its own copy " + second);
        } else {
            check(mappedLibraries().equals(Collections.singleton(first)),
                    "started again: the same library, not loaded again");
        }
        Set<String> beforeUpdate = mappedLibraries();

        try (InputStream in = Files.newInputStream(OSGI_DIR.resolve(BRIDGE + ".jar"))) {
            bridge.update(in);
        }
        Set<String> updated = mappedLibraries();
        info("updated: " + updated);
        check(bridge.getState() == Bundle.ACTIVE, "updated: active again");
        check(updated.size() == 2 && updated.containsAll(beforeUpdate),
                "updated, not refreshed: the new revision loads its own copy of the library from "
                + "its own directory in the storage, the old copy stays for the bundles wired to it");
        check(device.equals(probe(ctx, "bundlesc.osgi.probe.a").apply("device")),
                "updated, not refreshed: the probe still calls through the old revision");

        refresh(framework, Collections.singleton(bridge));
        info("refreshed: " + mappedLibraries());
        check(device.equals(probe(ctx, "bundlesc.osgi.probe.a").apply("device")),
                "refreshed: the probe, rewired to the new revision, gets the same reply");
        check(unmappedAfterCollection(updated), "refreshed: the copies loaded before the refresh "
                + "are unloaded once their class loaders are collected");
        String refreshed = oneCopyInStorage();
        check(refreshed != null, "refreshed: one copy left, the refreshed class loader's own: "
                + refreshed);

        // Update and refresh at once, as a management agent does.
        try (InputStream in = Files.newInputStream(OSGI_DIR.resolve(BRIDGE + ".jar"))) {
            bridge.update(in);
        }
        refresh(framework, Collections.singleton(bridge));
        check(device.equals(probe(ctx, "bundlesc.osgi.probe.a").apply("device")),
                "updated and refreshed again: same reply");
        info("updated and refreshed again: " + mappedLibraries());
        check(unmappedAfterCollection(Collections.singleton(refreshed)) && oneCopyInStorage() != null,
                "updated and refreshed again: one copy left once collected: " + mappedLibraries());
        stopFramework(framework);
    }

    /** The framework is running and the simulator bundle still works in it. */
    static void stillRunning(Framework framework) throws BundleException {
        check(framework.getState() == Bundle.ACTIVE, "the framework is still running");
        Bundle b = install(framework.getBundleContext(), "bundlesc.sim.jar");
        b.start();
        check(b.getState() == Bundle.ACTIVE, "and starts another bundle");
    }

    static void earlyCall() throws Exception {
        Framework framework = startFramework(Collections.<String, String>emptyMap());
        BundleContext ctx = framework.getBundleContext();
        install(ctx, "bundlesc.sim.jar").start();
        Bundle probe = install(ctx, probeJar("bundlesc.osgi.probe.a"));
        try {
            probe.start();
            fail("a bundle importing the service packages started without the bridge bundle");
        } catch (BundleException e) {
            String text = logged(e);
            check(text.contains("com.lumarest.smartgateway."), "the error names the missing "
                    + "service package");
        }
        check(probe.getState() == Bundle.INSTALLED, "the calling bundle stays installed");
        check(framework.getState() == Bundle.ACTIVE, "the framework is still running");
        // Installed but not started: the framework resolves the bridge for its importer, and
        // the service classes load the library themselves; no start is needed to call.
        Bundle bridge = install(ctx, BRIDGE + ".jar");
        probe.start();
        check(bridge.getState() == Bundle.RESOLVED, "the bridge bundle is resolved, not started");
        Object device = probe(ctx, "bundlesc.osgi.probe.a").apply("device");
        check(String.valueOf(device).startsWith("{\"Result\":0"),
                "a call through a resolved, not started bridge bundle answers: " + device);
        bridge.start();
        check(bridge.getState() == Bundle.ACTIVE, "the bridge bundle starts afterwards");
        stopFramework(framework);
    }

    static void installedTwice() throws Exception {
        Framework framework = standard();
        BundleContext ctx = framework.getBundleContext();
        Bundle bridge = null;
        for (Bundle b : ctx.getBundles()) {
            if (BRIDGE.equals(b.getSymbolicName())) {
                bridge = b;
            }
        }
        Bundle again = install(ctx, BRIDGE + ".jar");
        check(again == bridge, "the same location installed again is the same bundle (id "
                + again.getBundleId() + ")");
        Path copy = Files.createTempDirectory("bundlesc-copy").resolve(BRIDGE + "-copy.jar");
        try {
            Files.copy(OSGI_DIR.resolve(BRIDGE + ".jar"), copy);
            ctx.installBundle(copy.toUri().toString());
            fail("a second bridge bundle of the same name and version was installed");
        } catch (BundleException e) {
            String text = logged(e);
            check(text.contains(BRIDGE), "the error names the bundle installed twice");
        } finally {
            deleteTree(copy.getParent());
        }
        check(bridge.getState() == Bundle.ACTIVE, "the first bridge bundle is still active");
        stillRunning(framework);
        stopFramework(framework);
    }

    static void foreignProcessor() throws Exception {
        // Felix takes the processor from os.arch (a configured org.osgi.framework.processor is
        // overwritten), so in every framework the bundle is first the variant: the bridge bundle
        // with a native clause for a processor other than this machine's only.
        Framework framework = startFramework(Collections.<String, String>emptyMap());
        BundleContext ctx = framework.getBundleContext();
        Bundle bridge = null;
        try {
            bridge = install(ctx, "test/" + BRIDGE + "-foreign.jar");
            bridge.start();
            fail("the bridge bundle started without a native clause for the processor");
        } catch (BundleException e) {
            String text = logged(e);
            check(text.toLowerCase().contains("native"), "the error names the native code");
        }
        if (bridge != null) {
            check(bridge.getState() == Bundle.INSTALLED, "the bridge bundle stays installed");
        }
        stillRunning(framework);
        stopFramework(framework);

        // Then the bridge bundle itself, in a framework told it runs on a processor that no
        // native clause names; Felix does not take the processor it is told.
        framework = startFramework(Collections.singletonMap("org.osgi.framework.processor", "sparc"));
        ctx = framework.getBundleContext();
        String processor = ctx.getProperty("org.osgi.framework.processor");
        if (!kind.keepsConfiguredProcessor) {
            check(!"sparc".equals(processor), "a configured processor is replaced by os.arch's: "
                    + processor);
        } else {
            check("sparc".equals(processor), "the configured processor is kept: " + processor);
            bridge = install(ctx, BRIDGE + ".jar");
            try {
                bridge.start();
                fail("the bridge bundle started on a processor it has no native clause for");
            } catch (BundleException e) {
                String text = logged(e);
                check(text.toLowerCase().contains("native"), "the error names the native code");
            }
            check(bridge.getState() == Bundle.INSTALLED, "the bridge bundle stays installed");
            check(framework.getState() == Bundle.ACTIVE, "the framework is still running");
        }
        stopFramework(framework);
    }

    static void noPlatformLibrary() throws Exception {
        Framework framework = startFramework(Collections.<String, String>emptyMap());
        BundleContext ctx = framework.getBundleContext();
        Bundle bridge = install(ctx, BRIDGE + ".jar");
        try {
            bridge.start();
            fail("the bridge bundle started although libbrelo.so.1 is not on the loader's path");
        } catch (BundleException e) {
            String text = logged(e);
            check(text.contains("libbrelo.so.1"), "the error names the missing libbrelo.so.1");
        }
        check(bridge.getState() == Bundle.RESOLVED, "the bridge bundle stays resolved");
        check(framework.getState() == Bundle.ACTIVE, "the framework is still running");
        // A bundle calling anyway gets the VM's UnsatisfiedLinkError, with the same cause.
        install(ctx, "bundlesc.sim.jar").start();
        Bundle other = install(ctx, probeJar("bundlesc.osgi.probe.a"));
        other.start();
        check(other.getState() == Bundle.ACTIVE, "a bundle importing the packages still starts");
        try {
            Object reply = probe(ctx, "bundlesc.osgi.probe.a").apply("device");
            fail("a call answered without the platform libraries: " + reply);
        } catch (LinkageError e) {
            String text = logged(e);
            check(text.contains("libbrelo.so.1"), "the caller's error names libbrelo.so.1 too");
        }
        check(framework.getState() == Bundle.ACTIVE, "the framework is still running");
        stopFramework(framework);
    }

    static void deleteTree(Path root) throws IOException {
        if (!Files.exists(root)) {
            return;
        }
        try (Stream<Path> paths = Files.walk(root)) {
            paths.sorted(Comparator.reverseOrder()).forEach(p -> p.toFile().delete());
        }
    }
}
