package bundlesc.osgi;

import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import org.osgi.framework.Bundle;
import org.osgi.framework.BundleContext;
import org.osgi.framework.launch.Framework;
import org.osgi.framework.wiring.BundleWire;
import org.osgi.framework.wiring.BundleWiring;

/**
 * osgi.reply-reader: the reply reader bundle (bundlesc.reply) installed beside the bridge
 * bundle, with Debian's Gson bundle, in Felix through the osgi.* tier's harness (OsgiHarness), and
 * used from a bundle of its own (bundlesc.osgi.replyuser). Checks that the reader resolves
 * against Gson as a bundle, that the user bundle is wired to it, and that the user reads a JSON
 * reply, a plain text and a reply with objects back to back with the expected repairs.
 *
 * System properties: those of OsgiHarness, and bundlesc.osgi.gson (the Gson bundle's jar).
 * Exit status 0 when everything went as it should; "FAILED: ..." and 1 otherwise.
 */
public final class ReplyBundleHarness {
    static final String READER = "bundlesc.reply";
    static final String USER = "bundlesc.osgi.replyuser";

    private static int failures;

    private ReplyBundleHarness() {}

    static void check(boolean ok, String what) {
        if (ok) {
            System.out.println("ok: " + what);
        } else {
            failures++;
            System.out.println("FAILED: " + what);
        }
    }

    public static void main(String[] args) throws Exception {
        Path storage = Files.createTempDirectory("bundlesc-reply");
        try {
            run(storage);
        } catch (Exception | Error e) {
            check(false, "the scenario threw " + e);
            e.printStackTrace(System.out);
        } finally {
            OsgiHarness.deleteTree(storage);
        }
        System.out.println(failures == 0 ? "osgi reply-reader: passed" : "osgi reply-reader: " + failures + " failures");
        System.exit(failures == 0 ? 0 : 1);
    }

    static void run(Path storage) throws Exception {
        Framework framework = OsgiHarness.launch(OsgiHarness.Kind.FELIX, storage,
                Collections.<String, String>emptyMap());
        BundleContext ctx = framework.getBundleContext();
        Bundle gson = ctx.installBundle(Paths.get(System.getProperty("bundlesc.osgi.gson")).toUri().toString());
        List<Bundle> bundles = new ArrayList<Bundle>(Arrays.asList(gson,
                OsgiHarness.install(ctx, "bundlesc.sim.jar"),
                OsgiHarness.install(ctx, OsgiHarness.BRIDGE + ".jar"),
                OsgiHarness.install(ctx, READER + ".jar"),
                OsgiHarness.install(ctx, "test/" + USER + ".jar")));
        for (Bundle b : bundles) {
            b.start();
        }
        Bundle reader = bundles.get(3);
        Bundle user = bundles.get(4);
        check(reader.getState() == Bundle.ACTIVE && READER.equals(reader.getSymbolicName()),
                "the reply reader bundle " + reader.getSymbolicName() + " " + reader.getVersion() + " is active");
        check(String.valueOf(reader.getHeaders().get("Require-Capability")).contains("JavaSE")
                && String.valueOf(reader.getHeaders().get("Export-Package")).startsWith(READER + ";"),
                "it requires Java 8 and exports " + READER + ": " + reader.getHeaders().get("Export-Package"));
        check(user.getState() == Bundle.ACTIVE, "the bundle using it is active");
        List<String> wiredTo = new ArrayList<String>();
        for (BundleWire wire : user.adapt(BundleWiring.class).getRequiredWires("osgi.wiring.package")) {
            wiredTo.add(wire.getCapability().getAttributes().get("osgi.wiring.package") + "="
                    + wire.getProvider().getBundle().getSymbolicName());
        }
        System.out.println("[osgi] the user bundle's imports: " + wiredTo);
        check(wiredTo.contains(READER + "=" + READER), "the user bundle imports " + READER + " from the reader bundle");
        check(wiredTo.contains("com.google.gson=" + gson.getSymbolicName()),
                "and com.google.gson from the Gson bundle, as the reader does");
        for (BundleWire wire : reader.adapt(BundleWiring.class).getRequiredWires("osgi.wiring.package")) {
            System.out.println("[osgi] the reader's import: "
                    + wire.getCapability().getAttributes().get("osgi.wiring.package") + " from "
                    + wire.getProvider().getBundle().getSymbolicName() + " "
                    + wire.getProvider().getBundle().getVersion());
        }

        @SuppressWarnings("unchecked")
        List<String> lines = (List<String>) OsgiHarness.probe(ctx, USER).apply("read");
        for (String line : lines) {
            System.out.println("[osgi] " + line);
        }
        check(lines.size() == 3, "three replies read");
        check(lines.contains("getDeviceInfoJni JSON [] Vendor=Lumarest RamSize=512"),
                "a JSON reply read into a tree, nothing repaired");
        check(lines.contains("getGatewayNameJni TEXT [] Lumarest-HGU"), "a plain text read as a text");
        check(lines.stream().anyMatch(l -> l.matches("getGuestSSIDInfoJni JSON \\[MISSING_COMMA at \\d+\\] SSIDIndex=3,6")),
                "objects back to back read as two, the repair reported");

        // The reader stopped: its package stays wired and usable by the bundle wired to it.
        reader.stop();
        check(reader.getState() == Bundle.RESOLVED, "the reader bundle stops (it has no activator)");
        check(((List<?>) OsgiHarness.probe(ctx, USER).apply("read")).size() == 3,
                "the user bundle still reads replies with the reader stopped");
        OsgiHarness.stopFramework(framework);
    }
}
