package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.accessservices.IPPingDiagnosticsServiceImp;
import org.junit.jupiter.api.Test;

class IPPingDiagnosticsServiceTest extends GatewayTestBase {
    private final IPPingDiagnosticsServiceImp service = new IPPingDiagnosticsServiceImp();

    @Test
    void pingOfTheDefaultGatewayRunsThenReports() {
        defaultGateway();
        assertEquals(0, service.startIPPingDiagnosticsJni(1, "www.example.com",
                "{\"NumberOfRepetitions\":\"5\",\"Timeout\":2500}"));
        assertEquals("5", GatewaySim.get("ping request", "repetitions"));
        assertEquals("2", GatewaySim.get("ping request", "timeout"));
        assertEquals("{\"Result\":-2,\"FailReason\":\"Ping diagonostics not completed\"}",
                service.getIPPingDiagnosticsResultJni());
        assertEquals("{\"Result\":0,\"SuccessCount\":5,\"FailureCount\":0,\"AverageResponseTime\":12,"
                + "\"MinimumResponseTime\":9,\"MaximumResponseTime\":17}",
                service.getIPPingDiagnosticsResultJni());
    }

    @Test
    void refusedInputs() {
        assertEquals(-1, service.startIPPingDiagnosticsJni(1, "192.0.2.1", "{\"Timeout\":"));
        assertEquals(-1, service.startIPPingDiagnosticsJni(1, new String(new char[256]).replace('\0', 'h'), "{}"));
        assertEquals(-1, service.startIPPingDiagnosticsJni(1, null, "{}"));
        assertEquals(0, service.startIPPingDiagnosticsJni(1, "192.0.2.1", null));
        assertEquals("brelo_startIPPingDiagnostics(1)\n", GatewaySim.log());
    }

    @Test
    void failedPing() {
        GatewaySim.programResult("brelo_getIPPingDiagnostics", -1);
        assertEquals("{\"Result\":-1,\"FailReason\":\"Ping diagonostics fail\"}",
                service.getIPPingDiagnosticsResultJni());
    }
}
