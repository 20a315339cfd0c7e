package bundlesc.console;

import java.util.ArrayList;
import java.util.Hashtable;
import java.util.List;

import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;
import org.osgi.framework.ServiceRegistration;

/**
 * Registers the shell commands as command services of the framework's shell: an object of
 * any class, found by the service properties osgi.command.scope and osgi.command.function.
 * The simulator commands are registered only where the simulator bundle is there (never on
 * the gateway).
 */
public final class ConsoleActivator implements BundleActivator {

    private final List<ServiceRegistration<?>> registrations = new ArrayList<ServiceRegistration<?>>();

    @Override
    public void start(BundleContext context) {
        register(context, new BridgeCommands(), BridgeCommands.SCOPE, BridgeCommands.FUNCTIONS);
        try {
            Class.forName("bundlesc.sim.GatewaySim", false, ConsoleActivator.class.getClassLoader());
        } catch (ClassNotFoundException | LinkageError e) {
            return; // no simulator bundle: the bridge runs against the real platform
        }
        register(context, new SimCommands(), SimCommands.SCOPE, SimCommands.FUNCTIONS);
    }

    private void register(BundleContext context, Object commands, String scope, String[] functions) {
        Hashtable<String, Object> properties = new Hashtable<String, Object>();
        properties.put("osgi.command.scope", scope);
        properties.put("osgi.command.function", functions);
        registrations.add(context.registerService(Object.class.getName(), commands, properties));
    }

    @Override
    public void stop(BundleContext context) {
        for (ServiceRegistration<?> r : registrations) {
            r.unregister();
        }
        registrations.clear();
    }
}
