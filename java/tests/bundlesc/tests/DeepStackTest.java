package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.NeutralCalls;
import java.io.File;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.atomic.AtomicReference;
import org.junit.jupiter.api.Test;

/**
 * Every query native called at the bottom of a deep Java stack: the VM keeps only a small
 * reserve of stack for native code, so a native with a large frame kills the VM there without
 * a trace. Each native must answer or raise a StackOverflowError that Java can catch.
 */
class DeepStackTest extends GatewayTestBase {
    private static final long THREAD_STACK = 256 * 1024;
    private static final String ROOT = "com.lumarest.smartgateway";

    /** The natives that return a text, of every service class declared in java/services. */
    static List<Method> queryNatives() throws ClassNotFoundException {
        List<Method> queries = new ArrayList<Method>();
        for (Method m : allNatives()) {
            if (m.getReturnType() == String.class) {
                queries.add(m);
            }
        }
        return queries;
    }

    /** Every native method of every service class declared in java/services, in name order. */
    static List<Method> allNatives() throws ClassNotFoundException {
        String source = System.getenv("BUNDLE_SOURCE_DIR");
        assertNotNull(source, "BUNDLE_SOURCE_DIR names the source tree");
        File root = new File(source, "java/services/" + ROOT.replace('.', '/'));
        List<Method> natives = new ArrayList<Method>();
        File[] packages = root.listFiles(File::isDirectory);
        assertNotNull(packages, root.toString());
        Arrays.sort(packages);
        for (File pkg : packages) {
            File[] classes = pkg.listFiles((dir, name) -> name.endsWith("Imp.java"));
            Arrays.sort(classes);
            for (File cls : classes) {
                String name = ROOT + "." + pkg.getName() + "." + cls.getName().replace(".java", "");
                Method[] methods = Class.forName(name, false, DeepStackTest.class.getClassLoader())
                        .getDeclaredMethods();
                Arrays.sort(methods, (a, b) -> a.getName().compareTo(b.getName()));
                for (Method m : methods) {
                    if (Modifier.isNative(m.getModifiers())) {
                        natives.add(m);
                    }
                }
            }
        }
        return natives;
    }

    /** Outcomes of one native at the bottom of one thread's stack. */
    static final class Outcome {
        int replies;
        int overflows;
    }

    /**
     * Recurses until the stack is exhausted, then calls the native from the deepest frame that
     * catches the overflow; when the call itself overflows, the frame above tries again with a
     * little more stack, so the native runs with as little stack as a Java caller can leave it.
     */
    private static void descend(Method m, Object target, Object[] args, Outcome outcome)
            throws ReflectiveOperationException {
        try {
            descend(m, target, args, outcome);
        } catch (StackOverflowError e) {
            try {
                m.invoke(target, args);
                outcome.replies++;
            } catch (InvocationTargetException ite) {
                if (!(ite.getCause() instanceof StackOverflowError)) {
                    throw ite;
                }
                outcome.overflows++;
            }
        }
    }

    @Test
    void everyQueryNativeAnswersOrOverflowsAtTheBottomOfA256KiBStack() throws Exception {
        defaultGateway();
        List<Method> natives = queryNatives();
        assertFalse(natives.isEmpty());
        for (Method m : natives) {
            Object target = m.getDeclaringClass().getDeclaredConstructor().newInstance();
            Object[] args = NeutralCalls.plainArgumentsFor(m);
            m.invoke(target, args);  // loads the library outside the deep stack
            Outcome outcome = new Outcome();
            AtomicReference<Throwable> failure = new AtomicReference<Throwable>();
            Thread t = new Thread(null, () -> {
                try {
                    descend(m, target, args, outcome);
                } catch (Throwable e) {
                    failure.set(e);
                }
            }, "deep-" + m.getName(), THREAD_STACK);
            t.start();
            t.join();
            assertEquals(null, failure.get(), m.toString());
            assertTrue(outcome.replies + outcome.overflows > 0, m.toString());
        }
    }
}
