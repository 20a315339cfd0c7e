package bundlesc.console;

import java.io.IOException;
import java.io.InputStream;
import java.net.URL;
import java.util.Collection;
import java.util.Enumeration;
import java.util.HashMap;
import java.util.Iterator;
import java.util.LinkedHashMap;
import java.util.Map;

import org.osgi.framework.Bundle;
import org.osgi.framework.hooks.resolver.ResolverHook;
import org.osgi.framework.hooks.resolver.ResolverHookFactory;
import org.osgi.framework.wiring.BundleCapability;
import org.osgi.framework.wiring.BundleRequirement;
import org.osgi.framework.wiring.BundleRevision;

import bundlesc.sdk.BundleCheck;

/**
 * In the gateway in a box, a bundle installed after the box's own is checked as
 * bundle_sc-check-bundle checks it, before the framework resolves it: the box's Java is newer
 * than the gateway's, so a bundle with classes newer than Java 8 is refused here as the gateway
 * would refuse it; the other findings (Gson API newer than the gateway's, imports, ...) are
 * printed once and the framework goes on as it would.
 */
final class BoxBundleGuard implements ResolverHookFactory {

    private final BundleCheck check;
    private final long firstChecked;
    /** The findings of each bundle revision checked, by bundle id and time of its last change. */
    private final Map<String, BundleCheck.Report> reports = new HashMap<String, BundleCheck.Report>();

    /** @param firstChecked the id of the first bundle to check (the box's own come before it) */
    BoxBundleGuard(BundleCheck check, long firstChecked) {
        this.check = check;
        this.firstChecked = firstChecked;
    }

    @Override
    public ResolverHook begin(Collection<BundleRevision> triggers) {
        return new ResolverHook() {
            @Override
            public void filterResolvable(Collection<BundleRevision> candidates) {
                for (Iterator<BundleRevision> it = candidates.iterator(); it.hasNext();) {
                    Bundle bundle = it.next().getBundle();
                    if (bundle.getBundleId() >= firstChecked && refused(bundle)) {
                        it.remove();
                    }
                }
            }

            @Override
            public void filterSingletonCollisions(BundleCapability singleton, Collection<BundleCapability> collisions) {
            }

            @Override
            public void filterMatches(BundleRequirement requirement, Collection<BundleCapability> candidates) {
            }

            @Override
            public void end() {
            }
        };
    }

    /** Checks the bundle once (per change of it), printing the findings; true when it is refused. */
    private synchronized boolean refused(Bundle bundle) {
        String key = bundle.getBundleId() + "@" + bundle.getLastModified();
        BundleCheck.Report report = reports.get(key);
        String name = "bundle " + bundle.getBundleId() + " (" + bundle.getLocation() + ")";
        if (report == null) {
            try {
                report = check.check(entries(bundle));
            } catch (IOException | RuntimeException e) {
                System.err.println("gateway-box: " + name + " cannot be checked: " + e);
                return false;
            }
            reports.put(key, report);
            for (BundleCheck.Finding f : report.findings) {
                System.err.println("gateway-box: " + name + ": " + f);
            }
        }
        if (report.has(BundleCheck.Kind.CLASS_VERSION)) {
            System.err.println("gateway-box: " + name + " is refused, as the gateway's Java 8 would refuse it");
            return true;
        }
        return false;
    }

    /** The bundle's entries, read without resolving it. */
    private static Map<String, byte[]> entries(Bundle bundle) throws IOException {
        Map<String, byte[]> entries = new LinkedHashMap<String, byte[]>();
        collect(bundle, "/", entries);
        return entries;
    }

    private static void collect(Bundle bundle, String dir, Map<String, byte[]> entries) throws IOException {
        Enumeration<String> paths = bundle.getEntryPaths(dir);
        while (paths != null && paths.hasMoreElements()) {
            String path = paths.nextElement();
            if (path.endsWith("/")) {
                collect(bundle, path, entries);
                continue;
            }
            URL url = bundle.getEntry(path);
            if (url != null) {
                try (InputStream in = url.openStream()) {
                    entries.put(path.startsWith("/") ? path.substring(1) : path, BundleCheck.readAll(in));
                }
            }
        }
    }
}
