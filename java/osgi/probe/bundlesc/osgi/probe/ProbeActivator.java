package bundlesc.osgi.probe;

import bundlesc.sim.GatewaySim;
import bundlesc.sim.NeutralCalls;
import com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URL;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.Comparator;
import java.util.Enumeration;
import java.util.HashMap;
import java.util.Hashtable;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.function.Function;
import org.osgi.framework.Bundle;
import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;
import org.osgi.framework.ServiceRegistration;

/**
 * A bundle that uses the bridge the way the gateway's bundles do: it imports the six service
 * packages and calls the natives through the service classes. It registers one service, a
 * {@code Function<String, Object>} (a JDK type, so the OSGi test harness outside the framework
 * can call it), with the property "bundlesc.probe" set to its own symbolic name:
 * <ul>
 * <li>"calls": resets the simulated gateway to its default, refuses the harmful platform calls,
 * and calls every native once, in class and method order; answers a list of
 * {"Class.method", reply, call log} for each;
 * <li>"expect": the single-threaded reply of every steady native (see {@link NeutralCalls#LIVE});
 * <li>"soak:N": N rounds of every steady native; answers "" or the first wrong reply and the
 * count of wrong ones;
 * <li>"device": the reply of DeviceInfoQueryServiceImp.getDeviceInfoJni.
 * </ul>
 */
public final class ProbeActivator implements BundleActivator {
    static final String ROOT = "com/lumarest/smartgateway";
    static final String BRIDGE = "com.lumarest.smartgateway.bridge";

    private BundleContext context;
    private ServiceRegistration<?> registration;
    private final Map<String, String> expected = new HashMap<String, String>();

    @Override
    public void start(BundleContext ctx) {
        context = ctx;
        Hashtable<String, Object> props = new Hashtable<String, Object>();
        props.put("bundlesc.probe", ctx.getBundle().getSymbolicName());
        Function<String, Object> service = this::apply;
        registration = ctx.registerService(Function.class.getName(), service, props);
    }

    @Override
    public void stop(BundleContext ctx) {
        registration.unregister();
    }

    synchronized Object apply(String command) {
        try {
            if (command.equals("calls")) {
                return calls();
            } else if (command.equals("expect")) {
                expect();
                return "";
            } else if (command.startsWith("soak:")) {
                return soak(Integer.parseInt(command.substring(5)));
            } else if (command.equals("device")) {
                return new DeviceInfoQueryServiceImp().getDeviceInfoJni();
            }
            return "unknown command " + command;
        } catch (ReflectiveOperationException e) {
            return "failed: " + e;
        }
    }

    /** The service classes the bridge bundle holds, loaded through this bundle's imports. */
    private List<Method> natives() throws ClassNotFoundException {
        Bundle bridge = null;
        for (Bundle b : context.getBundles()) {
            if (BRIDGE.equals(b.getSymbolicName()) && b.getState() != Bundle.UNINSTALLED) {
                bridge = b;
            }
        }
        if (bridge == null) {
            throw new ClassNotFoundException("no bundle " + BRIDGE);
        }
        List<String> names = new ArrayList<String>();
        Enumeration<URL> entries = bridge.findEntries(ROOT, "*Imp.class", true);
        while (entries != null && entries.hasMoreElements()) {
            String path = entries.nextElement().getPath();
            path = path.substring(path.indexOf(ROOT), path.length() - ".class".length());
            names.add(path.replace('/', '.'));
        }
        Collections.sort(names);
        ClassLoader own = ProbeActivator.class.getClassLoader();
        List<Method> natives = new ArrayList<Method>();
        for (String name : names) {
            Method[] methods = Class.forName(name, false, own).getDeclaredMethods();
            Arrays.sort(methods, Comparator.comparing(Method::getName));
            for (Method m : methods) {
                if (Modifier.isNative(m.getModifiers())) {
                    natives.add(m);
                }
            }
        }
        return natives;
    }

    static String key(Method m) {
        return m.getDeclaringClass().getSimpleName() + "." + m.getName();
    }

    /** A reply as text: "int N", "text ...", "null", or "threw ..." */
    static String call(Method m, Map<Class<?>, Object> services) {
        try {
            Object target = services.get(m.getDeclaringClass());
            if (target == null) {
                target = m.getDeclaringClass().getDeclaredConstructor().newInstance();
                services.put(m.getDeclaringClass(), target);
            }
            Object reply = m.invoke(target, NeutralCalls.argumentsFor(m));
            if (reply instanceof String) {
                return "text " + reply;
            }
            return reply == null ? "null" : "int " + reply;
        } catch (InvocationTargetException e) {
            return "threw " + e.getCause();
        } catch (ReflectiveOperationException | RuntimeException | LinkageError e) {
            return "threw " + e;
        }
    }

    private List<String[]> calls() throws ClassNotFoundException {
        if (GatewaySim.loadDefault() != 0) {
            throw new IllegalStateException("the default simulated gateway did not load");
        }
        NeutralCalls.refuseHarmful();
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        List<String[]> out = new ArrayList<String[]>();
        for (Method m : natives()) {
            GatewaySim.clearLog();
            String reply = call(m, services);
            out.add(new String[] {key(m), reply, GatewaySim.log()});
        }
        return out;
    }

    private void expect() throws ClassNotFoundException {
        expected.clear();
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        for (Method m : natives()) {
            if (!NeutralCalls.LIVE.contains(m.getName())) {
                expected.put(key(m), call(m, services));
            }
        }
    }

    private String soak(int rounds) throws ClassNotFoundException {
        List<Method> steady = new ArrayList<Method>();
        for (Method m : natives()) {
            if (!NeutralCalls.LIVE.contains(m.getName())) {
                steady.add(m);
            }
        }
        Map<Class<?>, Object> services = new HashMap<Class<?>, Object>();
        String first = "";
        int wrong = 0;
        for (int r = 0; r < rounds; r++) {
            for (Method m : steady) {
                String reply = call(m, services);
                if (!Objects.equals(reply, expected.get(key(m)))) {
                    if (wrong++ == 0) {
                        first = key(m) + ": " + reply + " instead of " + expected.get(key(m));
                    }
                }
            }
        }
        return wrong == 0 ? "" : wrong + " wrong replies, the first " + first;
    }
}
