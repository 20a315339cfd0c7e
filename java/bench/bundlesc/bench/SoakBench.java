package bundlesc.bench;

import bundlesc.sim.GatewaySim;
import bundlesc.sim.NativeMix;
import bundlesc.sim.NativeMix.Call;
import bundlesc.sim.NeutralCalls;
import java.io.BufferedReader;
import java.io.File;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.ObjectInputStream;
import java.io.ObjectOutputStream;
import java.io.PrintStream;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Locale;
import java.util.concurrent.atomic.AtomicLong;

/**
 * Long life: the resident memory (VmRSS) and open descriptors of a JVM calling every native
 * millions of times, against the same JVM doing the same Java work without natives.
 *
 * <p>The natives run (default): the default simulated gateway with the calls that have no
 * harmless form refused, the mix of {@link NativeMix} (every native with the arguments of
 * {@link NeutralCalls}, setters given what the gateway holds), its replies learnt
 * single-threaded first. Then --threads threads pick calls of the mix at random (xorshift, one
 * seed per thread) until --calls calls are made, checking every reply; the main thread takes
 * --samples samples spread evenly over the calls, plus one before the first: calls made, seconds,
 * VmRSS and VmHWM from /proc/self/status, descriptors in /proc/self/fd, Java heap in use. The
 * replies are written to --replies for the control run.
 *
 * <p>The control (--control): no library is loaded; every call of the mix is replaced by a
 * Java method called through reflection that answers a fresh copy of the native's reply read
 * from --replies. Same threads, same random choices, same checks, same samples.
 *
 * <p>The report (--report NATIVE CONTROL): the criterion and the figures as Markdown. The
 * first tenth of the calls is warm-up (classes loaded, code compiled, the C library's heap
 * arenas of each thread grown) and is not judged. From there to the end, the growth of each run
 * is the median VmRSS of its last three samples minus the median of its three samples after
 * the warm-up. The natives pass when their growth exceeds the control's (or zero, if the
 * control shrank) by at most 4 MiB, which bounds what the natives could keep by call; when
 * their descriptors at the end are no more than after the warm-up and never more than four
 * above it; and when no reply was wrong. The exit status is 1 when they do not pass.
 *
 * <p>--smoke: whatever the figures, the report judges nothing (ctest runs a few thousand calls
 * to show the benchmark works).
 */
public final class SoakBench {
    private static final long ALLOWANCE_KIB = 4096;
    private static final int FD_SLACK = 4;

    private long calls = 10_000_000L;
    private int threads = 4;
    private int samples = 100;
    private boolean control;
    private boolean smoke;
    private String replies;
    private String out;

    /** One sample of the process. */
    static final class Sample {
        long calls;
        double seconds;
        long rssKib;
        long hwmKib;
        int fds;
        long heapKib;

        String row() {
            return String.format(Locale.ROOT, "%d\t%.2f\t%d\t%d\t%d\t%d", calls, seconds, rssKib,
                    hwmKib, fds, heapKib);
        }

        static Sample parse(String line) {
            String[] f = line.split("\t");
            Sample s = new Sample();
            s.calls = Long.parseLong(f[0]);
            s.seconds = Double.parseDouble(f[1]);
            s.rssKib = Long.parseLong(f[2]);
            s.hwmKib = Long.parseLong(f[3]);
            s.fds = Integer.parseInt(f[4]);
            s.heapKib = Long.parseLong(f[5]);
            return s;
        }
    }

    /** What one run did: its settings, outcome and samples. */
    static final class Run {
        String mode;
        long calls;
        int threads;
        int natives;
        double seconds;
        long wrong;
        String firstWrong = "";
        final List<Sample> samples = new ArrayList<Sample>();
    }

    public static void main(String[] argv) throws Exception {
        SoakBench bench = new SoakBench();
        if (argv.length == 3 && argv[0].equals("--report")) {
            System.exit(bench.report(argv[1], argv[2], false));
        }
        if (argv.length == 4 && argv[0].equals("--report") && argv[3].equals("--smoke")) {
            System.exit(bench.report(argv[1], argv[2], true));
        }
        if (!bench.parse(argv)) {
            System.err.println("usage: SoakBench [--control] [--calls N] [--threads N] [--samples N]"
                    + " --replies FILE --out FILE\n       SoakBench --report NATIVE CONTROL [--smoke]");
            System.exit(2);
        }
        System.exit(bench.soak());
    }

    private boolean parse(String[] argv) {
        for (int i = 0; i < argv.length; i++) {
            String a = argv[i];
            String v = i + 1 < argv.length ? argv[i + 1] : null;
            switch (a) {
                case "--control": control = true; continue;
                case "--calls": calls = Long.parseLong(v); break;
                case "--threads": threads = Integer.parseInt(v); break;
                case "--samples": samples = Integer.parseInt(v); break;
                case "--replies": replies = v; break;
                case "--out": out = v; break;
                default: return false;
            }
            i++;
        }
        return replies != null && out != null && calls > 0 && threads > 0 && samples > 0;
    }

    /** What the control calls instead of a native: a fresh copy of the native's reply. */
    public static Object answer(Object reply) {
        return reply instanceof String ? new String(((String) reply).toCharArray()) : reply;
    }

    @SuppressWarnings("unchecked")
    private List<Call> mix() throws Exception {
        List<Call> mix = new ArrayList<Call>();
        if (control) {
            Method answer = SoakBench.class.getMethod("answer", Object.class);
            List<Object[]> learnt;
            try (ObjectInputStream in = new ObjectInputStream(new FileInputStream(replies))) {
                learnt = (List<Object[]>) in.readObject();
            }
            for (Object[] r : learnt) {
                mix.add(new Call((String) r[0], answer, null, new Object[] {r[1]}, (Boolean) r[2], r[1]));
            }
            return mix;
        }
        if (GatewaySim.loadDefault() != 0) {
            throw new IllegalStateException("the default simulated gateway did not load");
        }
        NeutralCalls.refuseHarmful();
        GatewaySim.clearLog();
        mix = NativeMix.calls(NativeMix.natives(SoakBench.class.getClassLoader()));
        List<String> unsteady = NativeMix.learnReplies(mix);
        if (!unsteady.isEmpty()) {
            throw new IllegalStateException("calls that change the gateway:\n" + String.join("\n", unsteady));
        }
        ArrayList<Object[]> learnt = new ArrayList<Object[]>();
        for (Call c : mix) {
            learnt.add(new Object[] {c.name, c.expected, c.live});
        }
        try (ObjectOutputStream o = new ObjectOutputStream(new FileOutputStream(replies))) {
            o.writeObject(learnt);
        }
        return mix;
    }

    private int soak() throws Exception {
        Run run = new Run();
        run.mode = control ? "control" : "natives";
        run.calls = calls;
        run.threads = threads;
        List<Call> mix = mix();
        run.natives = mix.size();
        AtomicLong issued = new AtomicLong();
        AtomicLong done = new AtomicLong();
        AtomicLong wrong = new AtomicLong();
        String[] firstWrong = new String[1];
        Thread[] workers = new Thread[threads];
        for (int t = 0; t < threads; t++) {
            final long seed = 0x9E3779B97F4A7C15L * (t + 1);
            workers[t] = new Thread(() -> {
                long x = seed;
                while (issued.getAndIncrement() < calls) {
                    x = NativeMix.next(x);
                    String problem = NativeMix.pick(mix, x).check();
                    if (problem != null && wrong.getAndIncrement() == 0) {
                        synchronized (firstWrong) {
                            firstWrong[0] = problem;
                        }
                    }
                    done.incrementAndGet();
                }
            }, "soak-" + t);
        }
        long start = System.nanoTime();
        run.samples.add(sample(0, 0));
        for (Thread w : workers) {
            w.start();
        }
        for (int k = 1; k <= samples; k++) {
            long boundary = calls * k / samples;
            long now;
            while ((now = done.get()) < boundary) {
                Thread.sleep(10);
            }
            run.samples.add(sample(now, (System.nanoTime() - start) / 1e9));
        }
        for (Thread w : workers) {
            w.join();
        }
        run.seconds = (System.nanoTime() - start) / 1e9;
        run.wrong = wrong.get();
        synchronized (firstWrong) {
            run.firstWrong = firstWrong[0] == null ? "" : firstWrong[0];
        }
        write(run, out);
        System.err.printf(Locale.ROOT, "soak %s: %d calls of %d natives on %d threads in %.1f s, %d wrong%n",
                run.mode, done.get(), run.natives, threads, run.seconds, run.wrong);
        return 0;
    }

    private static Sample sample(long calls, double seconds) throws IOException {
        Sample s = new Sample();
        s.calls = calls;
        s.seconds = seconds;
        try (BufferedReader r = new BufferedReader(new InputStreamReader(
                new FileInputStream("/proc/self/status"), StandardCharsets.US_ASCII))) {
            for (String line; (line = r.readLine()) != null; ) {
                if (line.startsWith("VmRSS:")) {
                    s.rssKib = kib(line);
                } else if (line.startsWith("VmHWM:")) {
                    s.hwmKib = kib(line);
                }
            }
        }
        String[] fds = new File("/proc/self/fd").list();
        s.fds = fds == null ? -1 : fds.length;
        Runtime rt = Runtime.getRuntime();
        s.heapKib = (rt.totalMemory() - rt.freeMemory()) / 1024;
        return s;
    }

    private static long kib(String statusLine) {
        String[] f = statusLine.trim().split("\\s+");
        return Long.parseLong(f[1]);
    }

    private static void write(Run run, String path) throws IOException {
        try (PrintStream o = new PrintStream(new FileOutputStream(path), false, "UTF-8")) {
            o.printf(Locale.ROOT, "# mode %s calls %d threads %d natives %d seconds %.2f wrong %d%n",
                    run.mode, run.calls, run.threads, run.natives, run.seconds, run.wrong);
            o.println("# first wrong: " + run.firstWrong.replace('\n', ' '));
            o.println("# calls\tseconds\tVmRSS KiB\tVmHWM KiB\tdescriptors\tJava heap KiB");
            for (Sample s : run.samples) {
                o.println(s.row());
            }
        }
    }

    private static Run read(String path) throws IOException {
        Run run = new Run();
        try (BufferedReader r = new BufferedReader(new InputStreamReader(new FileInputStream(path),
                StandardCharsets.UTF_8))) {
            for (String line; (line = r.readLine()) != null; ) {
                if (line.startsWith("# mode ")) {
                    String[] f = line.split(" ");
                    run.mode = f[2];
                    run.calls = Long.parseLong(f[4]);
                    run.threads = Integer.parseInt(f[6]);
                    run.natives = Integer.parseInt(f[8]);
                    run.seconds = Double.parseDouble(f[10]);
                    run.wrong = Long.parseLong(f[12]);
                } else if (line.startsWith("# first wrong: ")) {
                    run.firstWrong = line.substring("# first wrong: ".length());
                } else if (!line.startsWith("#") && !line.isEmpty()) {
                    run.samples.add(Sample.parse(line));
                }
            }
        }
        return run;
    }

    /** The judged figures of one run. */
    static final class Judged {
        long baseRss;
        long endRss;
        int baseFds;
        int endFds;
        int maxFds;
        long judgedCalls;

        long growth() {
            return endRss - baseRss;
        }
    }

    private static long median3(List<Sample> s, int from) {
        long[] v = {s.get(from).rssKib, s.get(from + 1).rssKib, s.get(from + 2).rssKib};
        Arrays.sort(v);
        return v[1];
    }

    private static Judged judge(Run run) {
        List<Sample> s = run.samples;
        int n = s.size() - 1;  // samples after the start
        int first = Math.max(1, n / 10);  // the sample at the end of the warm-up
        if (s.size() < first + 3 || s.size() < 4) {
            throw new IllegalArgumentException(run.mode + ": too few samples");
        }
        Judged j = new Judged();
        j.baseRss = median3(s, first);
        j.endRss = median3(s, s.size() - 3);
        j.baseFds = s.get(first).fds;
        j.endFds = s.get(s.size() - 1).fds;
        for (int i = first; i < s.size(); i++) {
            j.maxFds = Math.max(j.maxFds, s.get(i).fds);
        }
        j.judgedCalls = s.get(s.size() - 1).calls - s.get(first).calls;
        return j;
    }

    private int report(String nativePath, String controlPath, boolean smokeRun) throws IOException {
        smoke = smokeRun;
        Run nat = read(nativePath);
        Run ctl = read(controlPath);
        Judged jn = judge(nat);
        Judged jc = judge(ctl);
        long excess = jn.growth() - Math.max(0, jc.growth());
        boolean memoryOk = excess <= ALLOWANCE_KIB;
        boolean fdsOk = jn.endFds <= jn.baseFds && jn.maxFds <= jn.baseFds + FD_SLACK;
        boolean repliesOk = nat.wrong == 0 && ctl.wrong == 0;
        boolean pass = memoryOk && fdsOk && repliesOk;
        PrintStream o = System.out;
        o.printf(Locale.ROOT, "# Soak: %s calls of every native%n%n", grouped(nat.calls));
        o.printf(Locale.ROOT, "Written by `bench/soak.sh` (java/bench/bundlesc/bench/SoakBench.java). One JVM called the "
                + "%d natives of the service classes %s times in all, picked at random by %d threads, "
                + "against the default simulated gateway with its call log off (BRELO_SIM_LOG=off); setters "
                + "get the values the gateway already holds, every reply is checked. A control JVM did the "
                + "same Java work without the library: the same threads and random choices, each call a Java "
                + "method called through reflection that answers a fresh copy of the native's reply. Both ran "
                + "with the same fixed, pre-touched heap.%n%n", nat.natives, grouped(nat.calls), nat.threads);
        o.printf(Locale.ROOT, "Criterion: the first tenth of the calls is warm-up and not judged. A run's growth is the "
                + "median VmRSS of its last three samples minus the median of its three samples after the "
                + "warm-up. The natives pass when their growth exceeds the control's (zero if the control "
                + "shrank) by at most %d KiB, when their open descriptors at the end are no more than after "
                + "the warm-up and never more than %d above it, and when no reply is wrong.%n%n",
                ALLOWANCE_KIB, FD_SLACK);
        o.println("| Run | Calls | Time | Calls/s | VmRSS after warm-up | VmRSS at the end | Growth | Descriptors after warm-up, at the end, most | Wrong replies |");
        o.println("|---|---:|---:|---:|---:|---:|---:|---|---:|");
        for (Object[] r : new Object[][] {{nat, jn}, {ctl, jc}}) {
            Run run = (Run) r[0];
            Judged j = (Judged) r[1];
            o.printf(Locale.ROOT, "| %s | %s | %.0f s | %s | %s KiB | %s KiB | %+d KiB | %d, %d, %d | %d |%n",
                    run.mode, grouped(run.calls), run.seconds, grouped(Math.round(run.calls / run.seconds)),
                    grouped(j.baseRss), grouped(j.endRss), j.growth(), j.baseFds, j.endFds, j.maxFds, run.wrong);
        }
        o.println();
        double perCall = Math.max(0, excess) * 1024.0 / Math.max(1, jn.judgedCalls);
        String verdict = smoke ? "not judged (smoke run)" : pass ? "**passed**" : "**FAILED**";
        o.printf(Locale.ROOT, "Result: %s. The natives' growth beyond the control's: %+d KiB over %s judged calls "
                + "(%.3f bytes a call; the allowance is %d KiB); descriptors %s.%n",
                verdict, excess, grouped(jn.judgedCalls), perCall, ALLOWANCE_KIB,
                fdsOk ? "did not grow" : "GREW");
        if (!repliesOk) {
            o.println();
            o.println("First wrong reply: " + (nat.wrong > 0 ? nat.firstWrong : ctl.firstWrong));
        }
        o.println();
        o.println("## Samples");
        o.println();
        o.printf(Locale.ROOT, "Resident memory (VmRSS, and its peak VmHWM), open descriptors and Java heap in use, "
                + "before the first call and after every %s calls.%n", grouped(nat.calls / (nat.samples.size() - 1)));
        o.println();
        o.println("| Calls | natives: s | VmRSS KiB | VmHWM KiB | fds | heap KiB | control: s | VmRSS KiB | VmHWM KiB | fds | heap KiB |");
        o.println("|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|");
        for (int i = 0; i < nat.samples.size(); i++) {
            Sample a = nat.samples.get(i);
            Sample b = i < ctl.samples.size() ? ctl.samples.get(i) : null;
            o.printf(Locale.ROOT, "| %s | %.1f | %s | %s | %d | %s |", grouped(a.calls), a.seconds,
                    grouped(a.rssKib), grouped(a.hwmKib), a.fds, grouped(a.heapKib));
            if (b != null) {
                o.printf(Locale.ROOT, " %.1f | %s | %s | %d | %s |%n", b.seconds, grouped(b.rssKib),
                        grouped(b.hwmKib), b.fds, grouped(b.heapKib));
            } else {
                o.println(" | | | | |");
            }
        }
        return smoke || pass ? 0 : 1;
    }

    private static String grouped(long v) {
        return String.format(Locale.ROOT, "%,d", v);
    }
}
