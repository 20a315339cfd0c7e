package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import bundlesc.sim.NeutralCalls;
import java.io.File;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/**
 * A gateway captured by bundle_sc-capture, loaded into the simulator of a running JVM
 * (GatewaySim.load of the capture folder replaces the whole gateway), answers every query
 * native through the service classes exactly as the gateway it was captured from.
 */
class CaptureReplayTest extends GatewayTestBase {

    /** The capture tool of this build: bin/ beside the lib/ directory the JVM loads from. */
    private static File tool() {
        String libraries = System.getProperty("java.library.path").split(File.pathSeparator)[0];
        return new File(new File(libraries).getParentFile(), "bin/bundle_sc-capture");
    }

    private static List<String> queryReplies() throws Exception {
        List<String> replies = new ArrayList<String>();
        for (Method m : DeepStackTest.allNatives()) {
            if (!m.getName().startsWith("get")) {
                continue;
            }
            Object service = m.getDeclaringClass().getDeclaredConstructor().newInstance();
            m.setAccessible(true);
            replies.add(m.getDeclaringClass().getSimpleName() + "." + m.getName() + " -> "
                    + m.invoke(service, NeutralCalls.argumentsFor(m)));
        }
        return replies;
    }

    @Test
    void captureAnswersEveryQueryAsTheGateway(@TempDir Path dir) throws Exception {
        File folder = dir.resolve("gateway").toFile();
        ProcessBuilder capture = new ProcessBuilder(tool().getPath(), "--with-secrets", folder.getPath());
        capture.environment().put("BRELO_SIM_SAVE", "");
        capture.environment().remove("BRELO_SIM_STATE");
        capture.redirectErrorStream(true);
        Process p = capture.start();
        String said = new String(readAll(p), StandardCharsets.UTF_8);
        assertEquals(0, p.waitFor(), said);
        assertTrue(said.contains("captured Lumarest HGU-2000 FW3.4.10"), said);

        defaultGateway();
        List<String> gateway = queryReplies();
        GatewaySim.set("device", "vendor", "not captured");
        assertEquals(0, GatewaySim.load(folder.getPath()));
        assertEquals("1", GatewaySim.get("capture", "complete"));
        List<String> captured = queryReplies();
        assertEquals(gateway.size(), captured.size());
        assertTrue(gateway.size() > 60, "query natives: " + gateway.size());
        for (int i = 0; i < gateway.size(); i++) {
            assertEquals(gateway.get(i), captured.get(i));
        }
    }

    @Test
    void incompleteCaptureDoesNotLoad(@TempDir Path dir) throws Exception {
        Path folder = Files.createDirectory(dir.resolve("gateway.partial-x"));
        Files.write(folder.resolve("capture.ini"), "[capture]\ncomplete = 0\n".getBytes(StandardCharsets.UTF_8));
        Files.write(folder.resolve("device.ini"), "[device]\nvendor = Half\n".getBytes(StandardCharsets.UTF_8));
        defaultGateway();
        assertEquals(-1, GatewaySim.load(folder.toString()));
        assertEquals("Lumarest", GatewaySim.get("device", "vendor"));
    }

    private static byte[] readAll(Process p) throws Exception {
        java.io.ByteArrayOutputStream out = new java.io.ByteArrayOutputStream();
        byte[] buf = new byte[4096];
        int n;
        while ((n = p.getInputStream().read(buf)) > 0) {
            out.write(buf, 0, n);
        }
        return out.toByteArray();
    }
}
