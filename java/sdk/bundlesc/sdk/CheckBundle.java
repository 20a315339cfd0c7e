package bundlesc.sdk;

import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.PrintStream;
import java.util.Map;

/**
 * {@code bundle_sc-check-bundle JAR...}: checks bundles against the gateway before they go
 * there. Prints one line a finding ("error: ..." when the bundle fails on the gateway,
 * "warning: ..." when it may) and a last line per jar; exits 0 when no jar has an error, 1 when
 * one has, 2 on a usage error or a jar that cannot be read.
 */
public final class CheckBundle {

    static final String USAGE = String.join("\n",
        "Usage: bundle_sc-check-bundle JAR...",
        "Checks gateway bundles: class files for Java 8 (version " + BundleCheck.MAX_CLASS_VERSION + " at most),",
        "Import-Package covering every package the classes use (the service packages",
        "com.lumarest.smartgateway.* included), no service classes inside the bundle, valid",
        "manifest headers, and Gson API the gateway's Gson lacks (a warning).",
        "Exit status: 0 no errors, 1 a jar has errors, 2 usage error or unreadable jar.");

    private CheckBundle() {
    }

    public static void main(String[] args) {
        System.exit(run(args, System.out, System.err));
    }

    static int run(String[] args, PrintStream out, PrintStream err) {
        if (args.length == 0) {
            err.println(USAGE);
            return 2;
        }
        if (args[0].equals("--help") || args[0].equals("-h")) {
            out.println(USAGE);
            return 0;
        }
        BundleCheck check;
        try {
            check = BundleCheck.forGateway();
        } catch (IOException e) {
            err.println("bundle_sc-check-bundle: " + e.getMessage());
            return 2;
        }
        int status = 0;
        for (String jar : args) {
            Map<String, byte[]> entries;
            try (InputStream in = new FileInputStream(jar)) {
                entries = BundleCheck.readJar(in);
            } catch (IOException e) {
                err.println(jar + ": cannot read: " + e.getMessage());
                status = 2;
                continue;
            }
            BundleCheck.Report report = check.check(entries);
            int errors = 0;
            int warnings = 0;
            for (BundleCheck.Finding f : report.findings) {
                out.println(jar + ": " + f);
                if (f.error) {
                    errors++;
                } else {
                    warnings++;
                }
            }
            if (errors == 0) {
                out.println(jar + ": fits the gateway (" + report.classes + (report.classes == 1 ? " class" : " classes")
                        + ", class file version "
                        + report.highestClassVersion + " at most" + (warnings == 0 ? ")" : "; " + warnings
                        + (warnings == 1 ? " warning)" : " warnings)")));
            } else {
                out.println(jar + ": " + errors + (errors == 1 ? " error" : " errors")
                        + (warnings == 0 ? "" : ", " + warnings + (warnings == 1 ? " warning" : " warnings")));
                status = Math.max(status, 1);
            }
        }
        return status;
    }
}
