package bundlesc.console;

import java.util.ArrayList;
import java.util.Hashtable;
import java.util.List;

import java.io.IOException;

import org.osgi.framework.Bundle;
import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;
import org.osgi.framework.ServiceRegistration;
import org.osgi.framework.hooks.resolver.ResolverHookFactory;

import bundlesc.sdk.BundleCheck;

/**
 * Registers the shell commands as command services of the framework's shell: an object of
 * any class, found by the service properties osgi.command.scope and osgi.command.function.
 * The simulator commands are registered only where the simulator bundle is there (never on
 * the gateway), and there bundles installed later are checked against the gateway.
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
        guardBundles(context);
    }

    /**
     * The box only: bundles installed from now on are checked against the gateway as they are
     * resolved (BoxBundleGuard).
     */
    private void guardBundles(BundleContext context) {
        long next = 0;
        for (Bundle b : context.getBundles()) {
            next = Math.max(next, b.getBundleId() + 1);
        }
        try {
            registrations.add(context.registerService(ResolverHookFactory.class,
                    new BoxBundleGuard(BundleCheck.forGateway(), next), null));
        } catch (IOException e) {
            System.err.println("gateway-box: bundles are not checked against the gateway: " + e.getMessage());
        }
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
