package bundlesc.bench;

import bundlesc.sim.GatewaySim;
import bundlesc.sim.NativeMix;
import bundlesc.sim.NeutralCalls;
import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.PrintStream;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.net.URISyntaxException;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.regex.Pattern;

/**
 * The bridge's own cost per call, in a real JVM, against the floor of a conforming native.
 *
 * Every native of every service class runs against the simulated gateway (the default one,
 * loaded afresh before every batch of calls), each with the arguments that leave the gateway as
 * it was (the setters get the values the default gateway
 * already holds, or targets that do not exist; the calls that have no harmless form are
 * refused by the simulated gateway). Its floor is a bare native (libbundle_floor.so) that reads
 * the same Java arguments (texts borrowed and given back, byte arrays pinned and released),
 * makes as many flag-file checks as the native made in one call and answers the same text or
 * int.
 *
 * After a warm-up, every round times a batch of calls of each native and a batch of its floor,
 * one after the other (the order swapped from round to round); the figures are the medians of
 * the rounds, in nanoseconds per call, and the ratio is the median of the rounds' ratios (each
 * native batch against the floor batch next to it, so a machine that is busier in one round
 * than in another moves both sides alike). Both sides are called through reflection, so both carry
 * the same small invocation cost. Prints a Markdown table sorted by the ratio native / floor,
 * worst first.
 *
 * Run it through bench/run-jvm-bench.sh: libbundle_floor.so must be preloaded (it counts the
 * checks) and /tmp/brelo_debug must not exist (the trace would be printed and timed).
 *
 * Time is the calling thread's CPU time by default (--clock cpu): on a shared machine the
 * time a batch spends waiting for a core is not the bridge's; --clock wall takes System.nanoTime.
 *
 * The platform is the simulated gateway by default (--platform sim): its lock and lookups are
 * part of every native's time. With --platform prepared (libbundle_prepared.so preloaded in
 * front of the simulator) each native's platform calls are recorded from the simulator once,
 * before the timed loop, and answered from that record during it, so the time is the bridge's
 * own and the prepared platform's copying of the answers; a native whose replayed reply differs
 * from the simulator's is a problem.
 *
 * Options: --rounds N (31), --warmup-ms N per native (40), --batch-ms N per batch (3),
 * --min-calls N per warm-up (20), --only REGEX (Class.method), --platform sim|prepared (sim),
 * --smoke (tiny counts; runs even
 * when the flag file exists, for the ctest smoke entry: figures are then meaningless), --expect N
 * (fail unless exactly N natives got a row), --out FILE (the table goes there instead of to
 * standard output, which a native or two print to).
 */
public final class BridgeBench {
    private static final String FLAG = "/tmp/brelo_debug";

    /** One native, its floor and its figures. */
    static final class Bench {
        final int slot;
        final Method method;
        final Object target;
        final Object[] args;
        Method floor;
        Object[] floorArgs;
        int checks;
        int platformCalls;
        int replyBytes;
        String returns;
        int batch = 1;
        long checksTimed;
        long callsTimed;
        final List<Double> nativeNs = new ArrayList<Double>();
        final List<Double> floorNs = new ArrayList<Double>();
        double nativeMedian;
        double floorMedian;

        Bench(int slot, Method method, Object target, Object[] args) {
            this.slot = slot;
            this.method = method;
            this.target = target;
            this.args = args;
        }

        String name() {
            return method.getDeclaringClass().getSimpleName().replaceFirst("Imp$", "") + "."
                    + method.getName();
        }

        /** The median of the rounds' ratios (each native batch against its neighbouring floor batch). */
        double ratio() {
            List<Double> ratios = new ArrayList<Double>();
            for (int i = 0; i < nativeNs.size() && i < floorNs.size(); i++) {
                ratios.add(nativeNs.get(i) / floorNs.get(i));
            }
            return median(ratios);
        }
    }

    private int rounds = 31;
    private long warmupNs = 40_000_000L;
    private long batchNs = 3_000_000L;
    private int minCalls = 20;
    private Pattern only;
    private boolean smoke;
    private int expect = -1;
    private String out;
    private boolean cpuClock = true;
    private boolean prepared;
    private final java.lang.management.ThreadMXBean threads =
            java.lang.management.ManagementFactory.getThreadMXBean();
    private final List<String> problems = new ArrayList<String>();

    public static void main(String[] argv) throws Exception {
        BridgeBench bench = new BridgeBench();
        if (!bench.parse(argv)) {
            System.exit(2);
        }
        System.exit(bench.run());
    }

    private boolean parse(String[] argv) {
        for (int i = 0; i < argv.length; i++) {
            String a = argv[i];
            boolean hasValue = i + 1 < argv.length;
            if (a.equals("--smoke")) {
                smoke = true;
                rounds = 1;
                warmupNs = 0;
                batchNs = 0;
                minCalls = 1;
            } else if (a.equals("--rounds") && hasValue) {
                rounds = Math.max(1, Integer.parseInt(argv[++i]));
            } else if (a.equals("--warmup-ms") && hasValue) {
                warmupNs = Long.parseLong(argv[++i]) * 1_000_000L;
            } else if (a.equals("--batch-ms") && hasValue) {
                batchNs = Long.parseLong(argv[++i]) * 1_000_000L;
            } else if (a.equals("--min-calls") && hasValue) {
                minCalls = Math.max(1, Integer.parseInt(argv[++i]));
            } else if (a.equals("--expect") && hasValue) {
                expect = Integer.parseInt(argv[++i]);
            } else if (a.equals("--clock") && hasValue) {
                String clock = argv[++i];
                if (!clock.equals("cpu") && !clock.equals("wall")) {
                    System.err.println("--clock cpu or --clock wall");
                    return false;
                }
                cpuClock = clock.equals("cpu");
            } else if (a.equals("--platform") && hasValue) {
                String platform = argv[++i];
                if (!platform.equals("sim") && !platform.equals("prepared")) {
                    System.err.println("--platform sim or --platform prepared");
                    return false;
                }
                prepared = platform.equals("prepared");
            } else if (a.equals("--out") && hasValue) {
                out = argv[++i];
            } else if (a.equals("--only") && hasValue) {
                only = Pattern.compile(argv[++i]);
            } else {
                System.err.println("usage: BridgeBench [--rounds N] [--warmup-ms N] [--batch-ms N]"
                        + " [--min-calls N] [--only REGEX] [--clock cpu|wall]"
                        + " [--platform sim|prepared] [--expect N]"
                        + " [--out FILE] [--smoke]");
                return false;
            }
        }
        return true;
    }

    private int run() throws Exception {
        if (new File(FLAG).exists()) {
            if (!smoke) {
                System.err.println(FLAG + " exists: the trace would be printed and timed; remove it"
                        + " and run again");
                return 2;
            }
            System.out.println("note: " + FLAG + " exists; smoke run only, figures meaningless");
        }
        if (!Floor.interposed()) {
            System.err.println("libbundle_floor.so is not preloaded: run with"
                    + " LD_PRELOAD=<build>/lib/libbundle_floor.so (bench/run-jvm-bench.sh does)");
            return 2;
        }
        if (prepared && !Prepared.interposed()) {
            System.err.println("libbundle_prepared.so is not preloaded: run with"
                    + " LD_PRELOAD=<build>/lib/libbundle_prepared.so (bench/run-jvm-bench.sh"
                    + " --platform prepared does)");
            return 2;
        }
        List<Bench> benches = natives();
        if (benches.isEmpty()) {
            System.err.println("no natives found under " + NativeMix.ROOT + " on the class path");
            return 2;
        }
        gateway();
        for (Bench b : benches) {
            prepare(b);
        }
        long start = System.nanoTime();
        for (Bench b : benches) {
            warmUp(b);
        }
        for (int r = 0; r < rounds; r++) {
            for (Bench b : benches) {
                round(b, r % 2 == 0);
            }
        }
        double seconds = (System.nanoTime() - start) / 1e9;
        for (Bench b : benches) {
            b.nativeMedian = median(b.nativeNs);
            b.floorMedian = median(b.floorNs);
        }
        if (out == null) {
            print(benches, seconds, System.out);
        } else {
            try (PrintStream table = new PrintStream(new FileOutputStream(out), true, "UTF-8")) {
                print(benches, seconds, table);
            }
        }
        if (!smoke && new File(FLAG).exists()) {
            System.err.println(FLAG + " appeared during the run: the figures are void");
            return 2;
        }
        if (prepared && Prepared.misses() > 0) {
            problems.add(Prepared.misses() + " platform calls were not the recorded ones");
        }
        for (Bench b : benches) {
            if (Double.isNaN(b.ratio())) {
                problems.add(b.name() + ": no figures");
            }
        }
        if (expect >= 0 && benches.size() != expect) {
            problems.add(benches.size() + " natives measured, " + expect + " expected");
        }
        for (String p : problems) {
            System.err.println("problem: " + p);
        }
        return problems.isEmpty() ? 0 : 1;
    }

    /** The default simulated gateway, with the calls that have no harmless form refused. */
    private static void gateway() {
        if (GatewaySim.loadDefault() != 0) {
            throw new IllegalStateException("the default simulated gateway did not load");
        }
        NeutralCalls.refuseHarmful();
        GatewaySim.clearLog();
    }

    /** Every native of every service class on the class path, in package, class, name order. */
    private List<Bench> natives() throws IOException, URISyntaxException, ClassNotFoundException,
            ReflectiveOperationException {
        List<Bench> benches = new ArrayList<Bench>();
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        for (Method m : NativeMix.natives(BridgeBench.class.getClassLoader())) {
            Object target = services.get(m.getDeclaringClass());
            if (target == null) {
                target = m.getDeclaringClass().getDeclaredConstructor().newInstance();
                services.put(m.getDeclaringClass(), target);
            }
            Bench b = new Bench(benches.size(), m, target, NeutralCalls.argumentsFor(m));
            if (only == null || only.matcher(b.name()).find()) {
                benches.add(b);
            }
        }
        return benches;
    }

    private Object call(Bench b) {
        try {
            return b.method.invoke(b.target, b.args);
        } catch (InvocationTargetException e) {
            problems.add(b.name() + " threw " + e.getCause());
        } catch (ReflectiveOperationException e) {
            problems.add(b.name() + ": " + e);
        }
        return null;
    }

    /**
     * One call to learn what the native answers, how many flag-file checks and platform calls
     * it makes; then the floor is given the same answer and the same number of checks.
     */
    private void prepare(Bench b) throws ReflectiveOperationException {
        gateway();
        call(b);  // loads the library and settles anything a first call does
        GatewaySim.clearLog();
        Object recorded = null;
        if (prepared) {
            gateway();
            Prepared.record(b.slot);
            recorded = call(b);
            Prepared.replay(b.slot);
        }
        long before = Floor.flagChecks();
        Object reply = call(b);
        b.checks = (int) (Floor.flagChecks() - before);
        String log = GatewaySim.log();
        b.platformCalls = log.isEmpty() ? 0 : log.split("\n").length;
        GatewaySim.clearLog();
        if (prepared) {
            Prepared.off();
            b.platformCalls = Prepared.calls(b.slot);
            if (!java.util.Objects.equals(recorded, reply)) {
                problems.add(b.name() + ": the prepared platform's reply differs from the"
                        + " simulator's: " + reply + " instead of " + recorded);
            }
        }
        Class<?> returns = b.method.getReturnType();
        boolean prepared;
        if (returns == String.class) {
            String text = (String) reply;
            b.returns = "text";
            b.replyBytes = text == null ? 0 : text.getBytes(StandardCharsets.UTF_8).length;
            prepared = Floor.prepareText(b.slot, text, b.checks);
            b.floor = Floor.class.getMethod("floorText", int.class, Object[].class);
        } else if (returns == int.class) {
            b.returns = "int";
            prepared = Floor.prepareInt(b.slot, reply == null ? 0 : (Integer) reply, b.checks);
            b.floor = Floor.class.getMethod("floorInt", int.class, Object[].class);
        } else if (returns == boolean.class) {
            b.returns = "boolean";
            prepared = Floor.prepareInt(b.slot, Boolean.TRUE.equals(reply) ? 1 : 0, b.checks);
            b.floor = Floor.class.getMethod("floorBoolean", int.class, Object[].class);
        } else {
            throw new IllegalArgumentException(b.method + ": return type " + returns);
        }
        if (!prepared) {
            problems.add(b.name() + ": the floor could not keep its answer");
        }
        b.floorArgs = new Object[] {b.slot, b.args};
    }

    private long clock() {
        return cpuClock ? threads.getCurrentThreadCpuTime() : System.nanoTime();
    }

    private long timeNative(Bench b, int calls) {
        // Every batch starts from the default gateway: a few natives leave something behind
        // by design (every usbOpenJni issues a new handle), and a state that grows from batch
        // to batch would slow every later native down.
        gateway();
        if (prepared) {
            Prepared.replay(b.slot);
        }
        long checks = Floor.flagChecks();
        long start = clock();
        for (int i = 0; i < calls; i++) {
            call(b);
        }
        long elapsed = clock() - start;
        if (prepared) {
            Prepared.off();
        }
        b.checksTimed += Floor.flagChecks() - checks;
        b.callsTimed += calls;
        return elapsed;
    }

    private long timeFloor(Bench b, int calls) throws ReflectiveOperationException {
        long start = clock();
        for (int i = 0; i < calls; i++) {
            b.floor.invoke(null, b.floorArgs);
        }
        return clock() - start;
    }

    /**
     * Calls the native and its floor for the warm-up time (at least minCalls each, so the
     * reflective call sites are compiled), in batches that double up to half a batch time;
     * the last of them sizes the batches of the rounds to about batchNs.
     */
    private void warmUp(Bench b) throws ReflectiveOperationException {
        int size = 1;
        long calls = 0;
        double perCall = 1.0;
        long start = System.nanoTime();
        while (calls < minCalls || System.nanoTime() - start < warmupNs) {
            long spent = timeNative(b, size);
            timeFloor(b, size);
            calls += size;
            perCall = Math.max(1.0, (double) spent / size);
            if (spent < batchNs / 2 && size < 100_000) {
                size *= 2;
            }
        }
        b.batch = (int) Math.max(1, Math.min(100_000, batchNs / perCall));
        b.checksTimed = 0;
        b.callsTimed = 0;
    }

    private void round(Bench b, boolean nativeFirst) throws ReflectiveOperationException {
        if (nativeFirst) {
            b.nativeNs.add((double) timeNative(b, b.batch) / b.batch);
            b.floorNs.add((double) timeFloor(b, b.batch) / b.batch);
        } else {
            b.floorNs.add((double) timeFloor(b, b.batch) / b.batch);
            b.nativeNs.add((double) timeNative(b, b.batch) / b.batch);
        }
    }

    private static String loadAverage() {
        try {
            String[] fields = new String(java.nio.file.Files.readAllBytes(
                    java.nio.file.Paths.get("/proc/loadavg")), StandardCharsets.US_ASCII).split(" ");
            return fields[0] + " " + fields[1] + " " + fields[2];
        } catch (IOException | RuntimeException e) {
            return "unknown";
        }
    }

    private static double median(List<Double> values) {
        if (values.isEmpty()) {
            return Double.NaN;
        }
        List<Double> sorted = new ArrayList<Double>(values);
        Collections.sort(sorted);
        int n = sorted.size();
        return n % 2 == 1 ? sorted.get(n / 2) : (sorted.get(n / 2 - 1) + sorted.get(n / 2)) / 2;
    }

    private static String grouped(double value) {
        return String.format(Locale.ROOT, "%,.0f", value);
    }

    private void print(List<Bench> benches, double seconds, PrintStream o) {
        List<Bench> sorted = new ArrayList<Bench>(benches);
        sorted.sort((a, b) -> Double.compare(b.ratio(), a.ratio()));
        boolean logged = prepared;
        for (Bench b : benches) {
            logged |= b.platformCalls > 0;
        }
        o.printf(Locale.ROOT, "Java %s (%s), %s, %d natives, %d rounds, %s time, %.1f s,"
                        + " load average at the end %s%n%n",
                System.getProperty("java.version"), System.getProperty("java.vm.name"),
                prepared ? "prepared platform" : "simulated gateway",
                benches.size(), rounds, cpuClock ? "thread CPU" : "wall", seconds, loadAverage());
        o.println("| # | native | answers | flag checks | platform calls | reply bytes"
                + " | calls/batch | native ns | floor ns | ratio | excess ns |");
        o.println("|---:|---|---|---:|---:|---:|---:|---:|---:|---:|---:|");
        int rank = 0;
        List<Double> ratios = new ArrayList<Double>();
        for (Bench b : sorted) {
            ratios.add(b.ratio());
            String checks = Integer.toString(b.checks);
            if (b.callsTimed > 0 && b.checksTimed != (long) b.checks * b.callsTimed) {
                checks += String.format(Locale.ROOT, " (%.1f)", (double) b.checksTimed / b.callsTimed);
            }
            o.printf(Locale.ROOT, "| %d | %s | %s | %s | %s | %s | %d | %s | %s | %.2f | %s |%n",
                    ++rank, b.name(), b.returns, checks,
                    logged ? Integer.toString(b.platformCalls) : "-",
                    b.returns.equals("text") ? grouped(b.replyBytes) : "-", b.batch,
                    grouped(b.nativeMedian), grouped(b.floorMedian), b.ratio(),
                    grouped(b.nativeMedian - b.floorMedian));
        }
        o.printf(Locale.ROOT, "%nmedian ratio %.2f; rows: %d of %d natives%n",
                median(ratios), rank, benches.size());
    }
}
