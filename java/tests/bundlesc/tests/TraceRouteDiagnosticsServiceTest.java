package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.accessservices.TraceRouteDiagnosticsServiceImp;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import org.junit.jupiter.api.Test;

class TraceRouteDiagnosticsServiceTest extends GatewayTestBase {
    private final TraceRouteDiagnosticsServiceImp service = new TraceRouteDiagnosticsServiceImp();

    @Test
    void traceRouteOfTheDefaultGatewayRunsThenListsItsHops() {
        defaultGateway();
        assertEquals(0, service.startTraceRouteDiagnosticsJni(1, "www.example.com", "{\"MaxHopCount\":\"16\"}"));
        assertEquals("16", GatewaySim.get("traceroute request", "max_hops"));
        assertEquals("3", GatewaySim.get("traceroute request", "tries"));
        assertEquals("{\"Result\":-2,\"FailReaso1n\":\"TraceRoute diagonostics not completed\"}",
                service.getTraceRouteDiagnosticsResultJni());
        assertEquals("{\"Result\":0,\"ResponseTime\":25,\"HopsNumberOfEntries\":3,\"RouteHops\": ["
                + "{\"HopHost\":\"gateway.isp.example\",\"HopHostAddress\":\"100.64.0.1\",\"HopErrorCode\":0,\"HopRTTimes\":\"2,2,3\"},"
                + "{\"HopHost\":\"core1.isp.example\",\"HopHostAddress\":\"100.64.10.1\",\"HopErrorCode\":0,\"HopRTTimes\":\"8,7,9\"},"
                + "{\"HopHost\":\"www.example.com\",\"HopHostAddress\":\"93.184.216.34\",\"HopErrorCode\":0,\"HopRTTimes\":\"24,25,26\"}]}",
                service.getTraceRouteDiagnosticsResultJni());
    }

    @Test
    void resultQueryDeletesThePlatformsResultFile() throws IOException {
        Path file = GatewayFiles.of("/tmp/cwmp/traceroutediagnostic_stat");
        Path dir = file.getParent();
        boolean madeDir = !Files.exists(dir);
        boolean hadFile = Files.exists(file);
        try {
            Files.createDirectories(dir);
            if (!hadFile) {
                Files.createFile(file);
            }
            GatewaySim.set("traceroute", "hop_count", "0");
            assertEquals("{\"Result\":0,\"ResponseTime\":0,\"HopsNumberOfEntries\":0,\"RouteHops\": []}",
                    service.getTraceRouteDiagnosticsResultJni());
            assertFalse(Files.exists(file));
        } finally {
            if (hadFile && !Files.exists(file)) {
                Files.createFile(file);
            }
            if (madeDir) {
                Files.deleteIfExists(dir);
            }
        }
    }

    @Test
    void longHopListIsCut() {
        GatewaySim.set("traceroute", "hop_count", "200");
        String reply = service.getTraceRouteDiagnosticsResultJni();
        assertTrue(reply.endsWith("},]}"), reply);
        assertTrue(reply.length() < 4096);
    }

    @Test
    void refusedInputs() {
        assertEquals(-1, service.startTraceRouteDiagnosticsJni(1, "", "{}"));
        assertEquals(-1, service.startTraceRouteDiagnosticsJni(1, "192.0.2.1", "not json"));
        assertEquals("", GatewaySim.log());
    }
}
