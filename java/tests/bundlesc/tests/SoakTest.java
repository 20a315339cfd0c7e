package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import bundlesc.sim.NeutralCalls;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
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


    /** One call of the mix and the reply a single thread gets for it. */
    static final class Call {
        final Method method;
        final Object target;
        final Object[] args;
        Object expected;

        Call(Method method, Object target, Object[] args) {
            this.method = method;
            this.target = target;
            this.args = args;
        }

        Object invoke() throws ReflectiveOperationException {
            return method.invoke(target, args);
        }

        @Override
        public String toString() {
            return method.getDeclaringClass().getSimpleName() + "." + method.getName()
                    + Arrays.deepToString(args);
        }
    }

    /**
     * A single thread gets no one reply for the live natives either ({@link NeutralCalls#LIVE});
     * theirs are checked for their kind and, for texts, the reply envelope.
     */
    private static boolean live(Call c) {
        return NeutralCalls.LIVE.contains(c.method.getName());
    }

    /** True when `reply` is an answer `c` can give: its own, or for a live native one of its kind. */
    private static boolean plausible(Call c, Object reply) {
        if (!live(c)) {
            return Objects.equals(reply, c.expected);
        }
        if (reply == null || c.expected == null || reply.getClass() != c.expected.getClass()) {
            return false;
        }
        if (reply instanceof String) {
            String text = (String) reply;
            return text.startsWith("{\"Result\":") && text.endsWith("}");
        }
        return true;
    }

    private static List<Call> mix;

    @BeforeAll
    static void buildMix() throws Exception {
        mix = new ArrayList<Call>();
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        for (Method m : DeepStackTest.allNatives()) {
            Object target = services.get(m.getDeclaringClass());
            if (target == null) {
                target = m.getDeclaringClass().getDeclaredConstructor().newInstance();
                services.put(m.getDeclaringClass(), target);
            }
            mix.add(new Call(m, target, NeutralCalls.argumentsFor(m)));
        }
    }

    /**
     * Single-threaded: every call twice, forwards then backwards. A call whose reply differs
     * between the passes changed the gateway (or answers differently by itself) and would make
     * the concurrent replies depend on the interleaving.
     */
    private static void expectedReplies() throws Exception {
        defaultGateway();
        NeutralCalls.refuseHarmful();
        for (Call c : mix) {
            c.expected = c.invoke();
        }
        List<String> unsteady = new ArrayList<String>();
        for (int i = mix.size() - 1; i >= 0; i--) {
            Call c = mix.get(i);
            Object again = c.invoke();
            if (!plausible(c, again)) {
                unsteady.add(c + ": " + abbreviate(c.expected) + " then " + abbreviate(again));
            }
        }
        assertEquals("", String.join("\n", unsteady), "calls that change the gateway");
    }

    private static String abbreviate(Object reply) {
        String text = String.valueOf(reply);
        return text.length() <= 60 ? text : text.substring(0, 60) + "...";
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
                    x ^= x << 13;
                    x ^= x >>> 7;
                    x ^= x << 17;
                    Call c = mix.get((int) Long.remainderUnsigned(x, mix.size()));
                    String problem = null;
                    try {
                        Object reply = c.invoke();
                        if (!plausible(c, reply)) {
                            problem = c + ": " + reply + " instead of " + c.expected;
                        }
                    } catch (InvocationTargetException e) {
                        problem = c + " threw " + e.getCause();
                    } catch (ReflectiveOperationException | RuntimeException | Error e) {
                        problem = c + " threw " + e;
                    }
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
