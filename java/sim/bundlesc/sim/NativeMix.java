package bundlesc.sim;

import java.io.File;
import java.io.IOException;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URISyntaxException;
import java.net.URL;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.Enumeration;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;

/**
 * Every native of the service classes, each with the arguments of {@link NeutralCalls} and the
 * reply a single thread gets from it on the default simulated gateway: the mix the programs
 * that call every native over and over share (the soak test, the soak benchmark, the JVM
 * benchmark).
 */
public final class NativeMix {
    /** The package the service classes live under. */
    public static final String ROOT = "com.lumarest.smartgateway";

    private NativeMix() {}

    /** One call of the mix and the reply a single thread gets for it. */
    public static final class Call {
        public final String name;
        public final Method method;
        public final Object target;
        public final Object[] args;
        /** A native whose answers change by design from one call to the next ({@link NeutralCalls#LIVE}). */
        public final boolean live;
        /** What a single thread gets (set by {@link #learnReplies}). */
        public Object expected;

        Call(Method method, Object target, Object[] args) {
            this(method.getDeclaringClass().getSimpleName() + "." + method.getName(), method, target,
                    args, NeutralCalls.LIVE.contains(method.getName()), null);
        }

        /**
         * A call of anything standing in for a native (a benchmark's control): `method` on
         * `target` with `args` must answer `expected`.
         */
        public Call(String name, Method method, Object target, Object[] args, boolean live, Object expected) {
            this.name = name;
            this.method = method;
            this.target = target;
            this.args = args;
            this.live = live;
            this.expected = expected;
        }

        public Object invoke() throws ReflectiveOperationException {
            return method.invoke(target, args);
        }

        /**
         * True when `reply` is an answer this call can give: its own; for a live native, one of
         * its kind, a text in the reply envelope.
         */
        public boolean plausible(Object reply) {
            return NativeMix.plausible(expected, reply, live);
        }

        /** Calls once: null when the reply is plausible, otherwise what went wrong. */
        public String check() {
            try {
                Object reply = invoke();
                return plausible(reply) ? null : this + ": " + abbreviate(reply) + " instead of " + abbreviate(expected);
            } catch (InvocationTargetException e) {
                return this + " threw " + e.getCause();
            } catch (ReflectiveOperationException | RuntimeException | Error e) {
                return this + " threw " + e;
            }
        }

        @Override
        public String toString() {
            return name + Arrays.deepToString(args);
        }
    }

    /**
     * The next value of a thread's xorshift sequence: the programs that call the mix from many
     * threads give each thread a seed of its own and pick call next(x) % size.
     */
    public static long next(long x) {
        x ^= x << 13;
        x ^= x >>> 7;
        x ^= x << 17;
        return x;
    }

    /** The call `x` picks from `mix`. */
    public static Call pick(List<Call> mix, long x) {
        return mix.get((int) Long.remainderUnsigned(x, mix.size()));
    }

    /** True when `reply` can stand for `expected`: equal, or for a live native of its kind. */
    public static boolean plausible(Object expected, Object reply, boolean live) {
        if (!live) {
            return Objects.equals(reply, expected);
        }
        if (reply == null || expected == null || reply.getClass() != expected.getClass()) {
            return false;
        }
        if (reply instanceof String) {
            String text = (String) reply;
            return text.startsWith("{\"Result\":") && text.endsWith("}");
        }
        return true;
    }

    /**
     * Every native method of every service class on the class path of `loader` (class files
     * in directories), in package, class and method name order.
     */
    public static List<Method> natives(ClassLoader loader)
            throws IOException, URISyntaxException, ClassNotFoundException {
        List<String> classes = new ArrayList<String>();
        Enumeration<URL> roots = loader.getResources(ROOT.replace('.', '/'));
        while (roots.hasMoreElements()) {
            URL url = roots.nextElement();
            if (!url.getProtocol().equals("file")) {
                continue;
            }
            File[] packages = new File(url.toURI()).listFiles(File::isDirectory);
            if (packages == null) {
                continue;
            }
            for (File pkg : packages) {
                String[] names = pkg.list((dir, name) -> name.endsWith("Imp.class"));
                if (names == null) {
                    continue;
                }
                for (String name : names) {
                    classes.add(ROOT + "." + pkg.getName() + "." + name.replace(".class", ""));
                }
            }
        }
        Collections.sort(classes);
        List<Method> natives = new ArrayList<Method>();
        for (String name : classes) {
            Method[] methods = Class.forName(name, false, loader).getDeclaredMethods();
            Arrays.sort(methods, (a, b) -> a.getName().compareTo(b.getName()));
            for (Method m : methods) {
                if (Modifier.isNative(m.getModifiers())) {
                    m.setAccessible(true);
                    natives.add(m);
                }
            }
        }
        return natives;
    }

    /** One call per native, one service object per class, the arguments of {@link NeutralCalls}. */
    public static List<Call> calls(List<Method> natives) throws ReflectiveOperationException {
        List<Call> mix = new ArrayList<Call>();
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        for (Method m : natives) {
            Object target = services.get(m.getDeclaringClass());
            if (target == null) {
                target = m.getDeclaringClass().getDeclaredConstructor().newInstance();
                services.put(m.getDeclaringClass(), target);
            }
            mix.add(new Call(m, target, NeutralCalls.argumentsFor(m)));
        }
        return mix;
    }

    /**
     * Learns every call's reply, single-threaded, on the gateway as it is (the default one with
     * {@link NeutralCalls#refuseHarmful()}): every call once forwards, then once backwards. A
     * call whose second reply is not plausible changed the gateway (or answers differently by
     * itself) and would make replies depend on the order of calls: those are returned, one
     * line each (none: the mix is steady).
     */
    public static List<String> learnReplies(List<Call> mix) throws ReflectiveOperationException {
        for (Call c : mix) {
            c.expected = c.invoke();
        }
        List<String> unsteady = new ArrayList<String>();
        for (int i = mix.size() - 1; i >= 0; i--) {
            Call c = mix.get(i);
            Object again = c.invoke();
            if (!c.plausible(again)) {
                unsteady.add(c + ": " + abbreviate(c.expected) + " then " + abbreviate(again));
            }
        }
        return unsteady;
    }

    /** A reply in at most 60 characters. */
    public static String abbreviate(Object reply) {
        String text = String.valueOf(reply);
        return text.length() <= 60 ? text : text.substring(0, 60) + "...";
    }
}
