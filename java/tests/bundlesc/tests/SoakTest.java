package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.NativeMix;
import bundlesc.sim.NativeMix.Call;
import bundlesc.sim.NeutralCalls;
import java.util.List;
import java.util.concurrent.atomic.AtomicLong;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/**
 * Many Java threads calling every native at once against the simulated gateway, as the
 * bundles of a busy gateway do: 64 threads of 10,000 calls each, once with the VM's usual
 * thread stacks and once with 136 KiB stacks. Every reply must be the one a single thread gets;
 * no call may throw, and -Xcheck:jni must stay silent (ctest fails the run on any warning).
 *
 * The mix holds every native. Setters are given the values the default gateway already holds
 * (or values it refuses), so the gateway's state stays the same whatever the interleaving and
 * every reply has exactly one right answer; the test checks that first, single-threaded.
 */
class SoakTest extends GatewayTestBase {
    private static final int THREADS = 64;
    private static final int CALLS_PER_THREAD = Integer.getInteger("soak.calls", 10_000);
    private static final long SMALL_STACK = 136 * 1024;

    private static List<Call> mix;

    @BeforeAll
    static void buildMix() throws Exception {
        mix = NativeMix.calls(NativeMix.natives(SoakTest.class.getClassLoader()));
    }

    /**
     * Single-threaded: every call twice, forwards then backwards. A call whose reply differs
     * between the passes changed the gateway (or answers differently by itself) and would make
     * the concurrent replies depend on the interleaving.
     */
    private static void expectedReplies() throws Exception {
        defaultGateway();
        NeutralCalls.refuseHarmful();
        assertEquals("", String.join("\n", NativeMix.learnReplies(mix)), "calls that change the gateway");
    }

    private static void soak(long stackSize) throws Exception {
        expectedReplies();
        AtomicLong calls = new AtomicLong();
        AtomicReference<String> firstProblem = new AtomicReference<String>();
        AtomicLong problems = new AtomicLong();
        java.util.concurrent.ConcurrentHashMap<String, Integer> byCall =
                new java.util.concurrent.ConcurrentHashMap<String, Integer>();
        Thread[] threads = new Thread[THREADS];
        long start = System.nanoTime();
        for (int t = 0; t < THREADS; t++) {
            final long seed = 0x9E3779B97F4A7C15L * (t + 1);
            Runnable work = () -> {
                long x = seed;
                for (int i = 0; i < CALLS_PER_THREAD; i++) {
                    x = NativeMix.next(x);
                    Call c = NativeMix.pick(mix, x);
                    String problem = c.check();
                    calls.incrementAndGet();
                    if (problem != null) {
                        problems.incrementAndGet();
                        byCall.merge(c.toString(), 1, Integer::sum);
                        firstProblem.compareAndSet(null, problem);
                    }
                }
            };
            threads[t] = stackSize > 0 ? new Thread(null, work, "soak-" + t, stackSize)
                                       : new Thread(work, "soak-" + t);
        }
        for (Thread t : threads) {
            t.start();
        }
        for (Thread t : threads) {
            t.join();
        }
        double seconds = (System.nanoTime() - start) / 1e9;
        System.out.printf("soak (%s stacks): %d threads x %d calls of %d natives in %.1f s, "
                        + "%.0f calls/s, %d wrong or failed%n",
                stackSize > 0 ? (stackSize / 1024) + " KiB" : "default", THREADS,
                CALLS_PER_THREAD, mix.size(), seconds, calls.get() / seconds, problems.get());
        assertEquals("", byCall.toString().replace("{}", ""), "wrong or failed calls");
        assertEquals(null, firstProblem.get());
        assertEquals((long) THREADS * CALLS_PER_THREAD, calls.get());
    }

    @Test
    void sixtyFourThreadsGetTheRepliesOfOne() throws Exception {
        assertTrue(mix.size() >= 163, "every native is in the mix");
        soak(0);
    }

    @Test
    void sixtyFourThreadsWith136KiBStacks() throws Exception {
        soak(SMALL_STACK);
    }
}
