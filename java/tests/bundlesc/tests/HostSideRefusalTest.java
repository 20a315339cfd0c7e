package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import java.util.Map;
import java.util.concurrent.CompletableFuture;
import org.junit.jupiter.api.Test;

/**
 * Off the gateway the bridge runs route commands and looks names up only through the
 * simulator's host side (libgatewayhost.so, preloaded): a JVM started without it gets a clear
 * refusal, and no command runs and no name is looked up.
 */
class HostSideRefusalTest {
    private static final String REFUSAL =
            "gateway sim: no route command and no name lookup is made in this process";

    private static final class Run {
        final int status;
        final String out;
        final String err;

        Run(int status, String out, String err) {
            this.status = status;
            this.out = out;
            this.err = err;
        }
    }

    private static String location(Class<?> c) throws Exception {
        return new File(c.getProtectionDomain().getCodeSource().getLocation().toURI()).getPath();
    }

    private static String read(InputStream in) throws Exception {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        byte[] buf = new byte[8192];
        for (int n; (n = in.read(buf)) > 0; ) {
            out.write(buf, 0, n);
        }
        return new String(out.toByteArray(), StandardCharsets.UTF_8);
    }

    /** HostSideChild in a JVM of its own, with `preload` as LD_PRELOAD (null: none at all). */
    private static Run child(String preload) throws Exception {
        String java = System.getProperty("java.home") + File.separator + "bin" + File.separator + "java";
        String classPath = location(HostSideChild.class) + File.pathSeparator + location(L2TPVPNServiceImp.class);
        ProcessBuilder builder = new ProcessBuilder(java, "-Xcheck:jni",
                "-Djava.library.path=" + System.getProperty("java.library.path"),
                "-cp", classPath, HostSideChild.class.getName());
        Map<String, String> env = builder.environment();
        env.remove("LD_PRELOAD");
        if (preload != null) {
            env.put("LD_PRELOAD", preload);
        }
        env.put("BRELO_SIM_SAVE", "");
        Process p = builder.start();
        p.getOutputStream().close();
        CompletableFuture<String> err = CompletableFuture.supplyAsync(() -> {
            try {
                return read(p.getErrorStream());
            } catch (Exception e) {
                return e.toString();
            }
        });
        String out = read(p.getInputStream());
        int status = p.waitFor();
        return new Run(status, out, err.get());
    }

    private static String library(String name) {
        for (String dir : System.getProperty("java.library.path").split(File.pathSeparator)) {
            File f = new File(dir, name);
            if (f.isFile()) {
                return f.getAbsolutePath();
            }
        }
        throw new IllegalStateException(name + " is not on java.library.path");
    }

    private static int occurrences(String text, String part) {
        int n = 0;
        for (int at = text.indexOf(part); at >= 0; at = text.indexOf(part, at + 1)) {
            n++;
        }
        return n;
    }

    private static void assertRefused(Run run) {
        assertEquals(0, run.status, run.out + run.err);
        assertEquals("addVpnDestIPJni 0\n"
                + "deleteVpnDestIPJni 0\n"
                + "addPortMappingJni nas.home -1\n"
                + "addPortMappingJni 192.168.1.20 0\n"
                + "child process faults 0\n"
                + "logged system 0\n"
                + "logged gethostbyname 0\n", run.out, run.err);
        assertEquals(1, occurrences(run.err, REFUSAL), run.err);
        assertTrue(run.err.contains("Start it with LD_PRELOAD=" + library("libgatewayhost.so")
                + " (or through the bundle_sc-simulator launcher)."), run.err);
    }

    @Test
    void aJvmWithoutTheHostSideIsRefusedAndRunsNoCommand() throws Exception {
        assertRefused(child(null));
    }

    /** Another system() and gethostbyname() in front: none of the bridge's calls reaches them. */
    @Test
    void noCallReachesAnotherStandIn() throws Exception {
        Run run = child(library("libhostprobe.so"));
        assertRefused(run);
        assertFalse(run.err.contains("host probe:"), run.err);
    }

    @Test
    void withTheHostSideEverythingRunsAsBefore() throws Exception {
        Run run = child(library("libgatewayhost.so"));
        assertEquals(0, run.status, run.out + run.err);
        assertEquals("addVpnDestIPJni 0\n"
                + "deleteVpnDestIPJni 0\n"
                + "addPortMappingJni nas.home 0\n"
                + "addPortMappingJni 192.168.1.20 0\n"
                + "child process faults 0\n"
                + "logged system 8\n"
                + "logged gethostbyname 3\n", run.out, run.err);
        assertFalse(run.err.contains(REFUSAL), run.err);
    }
}
