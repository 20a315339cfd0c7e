package bundlesc.fuzz;

import java.io.File;
import java.io.IOException;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.security.MessageDigest;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;

import org.jacoco.core.analysis.Analyzer;
import org.jacoco.core.analysis.CoverageBuilder;
import org.jacoco.core.analysis.IClassCoverage;
import org.jacoco.core.data.ExecutionData;
import org.jacoco.core.data.ExecutionDataStore;
import org.jacoco.core.data.SessionInfoStore;
import org.jacoco.core.instr.Instrumenter;
import org.jacoco.core.runtime.IRuntime;
import org.jacoco.core.runtime.LoggerRuntime;
import org.jacoco.core.runtime.RuntimeData;

/**
 * A small coverage-guided fuzzer for the console's argument parser.
 *
 * <p>The console classes (and the check of the replay test, ConsoleArgumentsCorpusTest.check)
 * are loaded instrumented by JaCoCo; after each input the fuzzer reads which probes it hit and
 * keeps the input when it hit one no earlier input did. New inputs are mutations of kept ones
 * (bytes flipped, inserted, removed, duplicated, tokens of the argument syntax inserted, two
 * inputs spliced). A finding is anything but a usage error escaping the check, or an input
 * running longer than the time limit; the input is written to the crash directory and the run
 * stops.
 *
 * <p>Usage: ConsoleFuzz SECONDS CLASSES_DIR TEST_CLASSES_DIR WORK_DIR CRASH_DIR SEED_DIR...
 */
public final class ConsoleFuzz {

    private static final long TIMEOUT_MS = 10_000;
    private static final int MAX_LEN = 4096;

    private static final String[] TOKENS = {
        "[", "]", "{", "}", "\"", "\\", "\\\"", ",", " ", "\t", "\n", "null", "\"null\"", "true",
        "false", "TRUE", "0", "1", "-", "+", "0x", "0X", "-0x", "hex:", "HEX:", "zeros:", "ZEROS:",
        "0xFFFFFFFF", "0x100000000", "2147483647", "2147483648", "-2147483648", "-2147483649",
        "255", "256", "-128", "-129", "1e3", "1.5", "999999999999", "16777216", "16777217",
        "\\u0041", "\\ud800", "\u00e9", "\u20ac", "\ud83d\ude00", "\u0000", "\u00a0", "\u2028",
        "EthConfigService", "setLANEthernetMaxBitRate", "LanNetworkAccessConfigService",
        "addLANHostToBlackList", "UsbServiceImp", "usbDataTransfer", "WlanConfigService",
        "setWLANSSIDSecurity", "DeviceInfoQueryService", "getDeviceInfo", "Jni",
        "[\"a\",null]", "[1,-2,255]", "[[", "]]", "{\"k\":[1]}",
    };

    private final Random random = new Random();
    private final ExecutionDataStore total = new ExecutionDataStore();
    private final RuntimeData data = new RuntimeData();
    private final List<byte[]> corpus = new ArrayList<byte[]>();
    private Method check;
    private Path work;
    private Path crashes;
    private volatile byte[] current;
    private volatile long started;
    private long executions;

    public static void main(String[] args) throws Exception {
        if (args.length < 6) {
            System.err.println("usage: ConsoleFuzz SECONDS CLASSES_DIR TEST_CLASSES_DIR WORK_DIR CRASH_DIR SEED_DIR...");
            System.exit(2);
        }
        new ConsoleFuzz().run(args);
    }

    /** Loads the console classes from the build's class directories, instrumented. */
    private static final class InstrumentingLoader extends ClassLoader {
        private final Instrumenter instrumenter;
        private final File[] dirs;

        InstrumentingLoader(IRuntime runtime, File[] dirs, ClassLoader parent) {
            super(parent);
            this.instrumenter = new Instrumenter(runtime);
            this.dirs = dirs;
        }

        @Override
        protected Class<?> loadClass(String name, boolean resolve) throws ClassNotFoundException {
            if (!name.startsWith("bundlesc.console.")) {
                return super.loadClass(name, resolve);
            }
            synchronized (getClassLoadingLock(name)) {
                Class<?> c = findLoadedClass(name);
                if (c == null) {
                    byte[] original = classBytes(dirs, name);
                    if (original == null) {
                        throw new ClassNotFoundException(name);
                    }
                    try {
                        byte[] code = instrumenter.instrument(original, name);
                        c = defineClass(name, code, 0, code.length);
                    } catch (IOException e) {
                        throw new ClassNotFoundException(name, e);
                    }
                }
                if (resolve) {
                    resolveClass(c);
                }
                return c;
            }
        }
    }

    static byte[] classBytes(File[] dirs, String name) {
        for (File dir : dirs) {
            File f = new File(dir, name.replace('.', '/') + ".class");
            if (f.isFile()) {
                try {
                    return Files.readAllBytes(f.toPath());
                } catch (IOException e) {
                    return null;
                }
            }
        }
        return null;
    }

    private void run(String[] args) throws Exception {
        long seconds = Long.parseLong(args[0]);
        File[] dirs = {new File(args[1]), new File(args[2])};
        work = Paths.get(args[3]);
        crashes = Paths.get(args[4]);
        Files.createDirectories(work);
        Files.createDirectories(crashes);

        IRuntime runtime = new LoggerRuntime();
        runtime.startup(data);
        ClassLoader loader = new InstrumentingLoader(runtime, dirs, ConsoleFuzz.class.getClassLoader());
        Class<?> test = loader.loadClass("bundlesc.console.ConsoleArgumentsCorpusTest");
        check = test.getDeclaredMethod("check", byte[].class);
        check.setAccessible(true);
        startWatchdog();

        List<Path> initial = new ArrayList<Path>();
        for (int i = 4; i < args.length; i++) {
            collectFiles(Paths.get(args[i]), initial);
        }
        collectFiles(work, initial);
        for (Path p : initial) {
            execute(Files.readAllBytes(p), false);
        }
        if (corpus.isEmpty()) {
            corpus.add(new byte[0]);
        }
        System.out.printf("console: INITED %d inputs, corpus %d, probes %d/%d%n", initial.size(),
                corpus.size(), covered(), totalProbes());

        long end = System.currentTimeMillis() + seconds * 1000;
        long start = System.currentTimeMillis();
        long nextReport = start + 10_000;
        while (System.currentTimeMillis() < end) {
            execute(mutate(corpus.get(random.nextInt(corpus.size()))), true);
            if (System.currentTimeMillis() >= nextReport) {
                nextReport += 10_000;
                report("pulse", start);
            }
        }
        report("DONE", start);
        branches(dirs);
        runtime.shutdown();
        System.exit(0);
    }

    private static void collectFiles(Path dir, List<Path> out) throws IOException {
        if (!Files.isDirectory(dir)) {
            return;
        }
        List<Path> files = new ArrayList<Path>();
        try (java.util.stream.Stream<Path> s = Files.list(dir)) {
            s.filter(p -> Files.isRegularFile(p) && !p.getFileName().toString().startsWith("."))
                    .forEach(files::add);
        }
        java.util.Collections.sort(files);
        out.addAll(files);
    }

    private void report(String what, long start) {
        double secs = Math.max(1, System.currentTimeMillis() - start) / 1000.0;
        System.out.printf("console: %s executions %d (%.0f/s), corpus %d, probes %d/%d, findings 0%n",
                what, executions, executions / secs, corpus.size(), covered(), totalProbes());
    }

    /** Runs one input; keeps it when it hit a probe no earlier input did. */
    private void execute(byte[] input, boolean save) throws Exception {
        current = input;
        started = System.currentTimeMillis();
        try {
            check.invoke(null, (Object) input);
        } catch (InvocationTargetException e) {
            finding(input, e.getCause());
        } finally {
            started = 0;
        }
        executions++;
        // The runtime's probe arrays are reset in place: copy them first.
        List<ExecutionData> hits = new ArrayList<ExecutionData>();
        data.collect(ed -> hits.add(new ExecutionData(ed.getId(), ed.getName(), ed.getProbes().clone())),
                new SessionInfoStore(), false);
        data.reset();
        boolean fresh = false;
        for (ExecutionData ed : hits) {
            ExecutionData known = total.get(ed.getId());
            boolean[] probes = ed.getProbes();
            if (known == null) {
                for (boolean p : probes) {
                    fresh |= p;
                }
            } else {
                boolean[] old = known.getProbes();
                for (int i = 0; i < probes.length && !fresh; i++) {
                    fresh = probes[i] && !old[i];
                }
            }
            total.visitClassExecution(ed);
        }
        if (fresh) {
            corpus.add(input);
            if (save) {
                Files.write(work.resolve(sha1(input)), input);
            }
        }
    }

    private int covered() {
        int n = 0;
        for (ExecutionData ed : total.getContents()) {
            for (boolean p : ed.getProbes()) {
                n += p ? 1 : 0;
            }
        }
        return n;
    }

    private int totalProbes() {
        int n = 0;
        for (ExecutionData ed : total.getContents()) {
            n += ed.getProbes().length;
        }
        return n;
    }

    /** Branch coverage of the console classes (the check itself left out). */
    private void branches(File[] dirs) throws IOException {
        CoverageBuilder builder = new CoverageBuilder();
        Analyzer analyzer = new Analyzer(total, builder);
        for (ExecutionData ed : total.getContents()) {
            String name = ed.getName().replace('/', '.');
            if (name.startsWith("bundlesc.console.ConsoleArgumentsCorpusTest")) {
                continue;
            }
            byte[] original = classBytes(dirs, name);
            if (original != null) {
                analyzer.analyzeClass(original, ed.getName());
            }
        }
        int branches = 0;
        int coveredBranches = 0;
        int lines = 0;
        int coveredLines = 0;
        for (IClassCoverage c : builder.getClasses()) {
            branches += c.getBranchCounter().getTotalCount();
            coveredBranches += c.getBranchCounter().getCoveredCount();
            lines += c.getLineCounter().getTotalCount();
            coveredLines += c.getLineCounter().getCoveredCount();
        }
        System.out.printf("console: branches %d/%d, lines %d/%d of the loaded console classes%n",
                coveredBranches, branches, coveredLines, lines);
    }

    private byte[] mutate(byte[] base) {
        byte[] b = base;
        int rounds = 1 + random.nextInt(4);
        for (int r = 0; r < rounds; r++) {
            int n = b.length;
            switch (random.nextInt(7)) {
                case 0:
                    if (n > 0) {
                        b = b.clone();
                        b[random.nextInt(n)] ^= (byte) (1 << random.nextInt(8));
                    }
                    break;
                case 1:
                    b = insert(b, random.nextInt(n + 1), new byte[] {(byte) random.nextInt(256)});
                    break;
                case 2:
                    if (n > 0) {
                        int at = random.nextInt(n);
                        int len = 1 + random.nextInt(Math.min(8, n - at));
                        b = remove(b, at, len);
                    }
                    break;
                case 3:
                    if (n > 0) {
                        int at = random.nextInt(n);
                        int len = 1 + random.nextInt(n - at);
                        b = insert(b, random.nextInt(n + 1), java.util.Arrays.copyOfRange(b, at, at + len));
                    }
                    break;
                case 4:
                case 5:
                    b = insert(b, random.nextInt(n + 1),
                            TOKENS[random.nextInt(TOKENS.length)].getBytes(java.nio.charset.StandardCharsets.UTF_8));
                    break;
                default:
                    byte[] other = corpus.get(random.nextInt(corpus.size()));
                    int cut = random.nextInt(n + 1);
                    int from = random.nextInt(other.length + 1);
                    byte[] spliced = java.util.Arrays.copyOf(b, cut + other.length - from);
                    System.arraycopy(other, from, spliced, cut, other.length - from);
                    b = spliced;
                    break;
            }
        }
        return b.length > MAX_LEN ? java.util.Arrays.copyOf(b, MAX_LEN) : b;
    }

    private static byte[] insert(byte[] b, int at, byte[] piece) {
        byte[] out = new byte[b.length + piece.length];
        System.arraycopy(b, 0, out, 0, at);
        System.arraycopy(piece, 0, out, at, piece.length);
        System.arraycopy(b, at, out, at + piece.length, b.length - at);
        return out;
    }

    private static byte[] remove(byte[] b, int at, int len) {
        byte[] out = new byte[b.length - len];
        System.arraycopy(b, 0, out, 0, at);
        System.arraycopy(b, at + len, out, at, b.length - at - len);
        return out;
    }

    private void finding(byte[] input, Throwable t) throws IOException {
        Path file = crashes.resolve("crash-" + sha1(input));
        Files.write(file, input);
        System.out.println("console: FINDING " + t + " (input written to " + file + ")");
        t.printStackTrace(System.out);
        System.out.printf("console: executions %d, findings 1%n", executions);
        System.exit(1);
    }

    /** Stops the run, keeping the input, when one input runs longer than the time limit. */
    private void startWatchdog() {
        Thread dog = new Thread(() -> {
            while (true) {
                try {
                    Thread.sleep(500);
                } catch (InterruptedException e) {
                    return;
                }
                long s = started;
                byte[] input = current;
                if (s != 0 && System.currentTimeMillis() - s > TIMEOUT_MS) {
                    try {
                        Path file = crashes.resolve("timeout-" + sha1(input));
                        Files.write(file, input);
                        System.out.println("console: FINDING an input ran longer than " + TIMEOUT_MS
                                + " ms (input written to " + file + ")");
                    } catch (IOException e) {
                        System.out.println("console: FINDING timeout; cannot write the input: " + e);
                    }
                    Runtime.getRuntime().halt(1);
                }
            }
        }, "watchdog");
        dog.setDaemon(true);
        dog.start();
    }

    private static String sha1(byte[] input) {
        try {
            StringBuilder sb = new StringBuilder();
            for (byte x : MessageDigest.getInstance("SHA-1").digest(input)) {
                sb.append(String.format("%02x", x & 0xff));
            }
            return sb.toString();
        } catch (java.security.NoSuchAlgorithmException e) {
            throw new IllegalStateException(e);
        }
    }
}
