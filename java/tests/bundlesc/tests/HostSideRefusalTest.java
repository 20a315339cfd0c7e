package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp;
import java.io.File;
import java.util.HashMap;
import java.util.Map;
import org.junit.jupiter.api.Test;

/**
 * Off the gateway the bridge runs route commands and looks names up only through the
 * simulator's host side (libgatewayhost.so, preloaded): a JVM started without it gets a clear
 * refusal, and no command runs and no name is looked up.
 */
class HostSideRefusalTest {
    private static final String REFUSAL =
            "gateway sim: no route command and no name lookup is made in this process";

    /** HostSideChild in a JVM of its own, with `preload` as LD_PRELOAD (null: none at all). */
    private static ChildJvm child(String preload) throws Exception {
        Map<String, String> env = new HashMap<String, String>();
        env.put("LD_PRELOAD", preload);
        env.put("BRELO_SIM_SAVE", "");
        return ChildJvm.run(env, "-cp", ChildJvm.location(HostSideChild.class) + File.pathSeparator
                + ChildJvm.location(L2TPVPNServiceImp.class), HostSideChild.class.getName());
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

    /** The child's own lines, without any debug trace. */
    private static String said(ChildJvm run) {
        StringBuilder b = new StringBuilder();
        for (String line : run.out.split("\n")) {
            if (line.startsWith("child: ")) {
                b.append(line.substring("child: ".length())).append('\n');
            }
        }
        return b.toString();
    }

    private static int occurrences(String text, String part) {
        int n = 0;
        for (int at = text.indexOf(part); at >= 0; at = text.indexOf(part, at + 1)) {
            n++;
        }
        return n;
    }

    private static void assertRefused(ChildJvm run) {
        assertEquals(0, run.status, run.out + run.err);
        assertEquals("addVpnDestIPJni 0\n"
                + "deleteVpnDestIPJni 0\n"
                + "addPortMappingJni nas.home -1\n"
                + "addPortMappingJni 192.168.1.20 0\n"
                + "child process faults 0\n"
                + "logged system 0\n"
                + "logged gethostbyname 0\n", said(run), run.out + run.err);
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
        ChildJvm run = child(library("libhostprobe.so"));
        assertRefused(run);
        assertFalse(run.err.contains("host probe:"), run.err);
    }

    @Test
    void withTheHostSideEverythingRunsAsBefore() throws Exception {
        ChildJvm run = child(library("libgatewayhost.so"));
        assertEquals(0, run.status, run.out + run.err);
        assertEquals("addVpnDestIPJni 0\n"
                + "deleteVpnDestIPJni 0\n"
                + "addPortMappingJni nas.home 0\n"
                + "addPortMappingJni 192.168.1.20 0\n"
                + "child process faults 0\n"
                + "logged system 8\n"
                + "logged gethostbyname 3\n", said(run), run.out + run.err);
        assertFalse(run.err.contains(REFUSAL), run.err);
    }
}
