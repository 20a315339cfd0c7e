package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.accessservices.HttpDownloadDiagnosticsServiceImp;
import org.junit.jupiter.api.Test;

class HttpDownloadDiagnosticsServiceTest extends GatewayTestBase {
    private final HttpDownloadDiagnosticsServiceImp service = new HttpDownloadDiagnosticsServiceImp();

    @Test
    void downloadOfTheDefaultGatewayIsRequestedThenCompleted() {
        defaultGateway();
        assertEquals(0, service.startHttpDownloadDiagnosticsJni(2, "http://speed.example.net/100MB.bin", ""));
        assertEquals("0/30/1", GatewaySim.get("http download request", "measurement_offset") + "/"
                + GatewaySim.get("http download request", "duration") + "/"
                + GatewaySim.get("http download request", "connections"));
        assertEquals("{\"Result\":\"Requested\"}", service.getHttpDownloadDiagnosticsResultJni());
        assertEquals("{\"Result\":\"Completed\", \"TestDownloadRate\":195340, \"TotalDownloadRate\":194870, "
                + "\"ROMTime\":\"2024-05-01T10:01:00.110000\", \"BOMTime\":\"2024-05-01T10:01:00.160000\", "
                + "\"EOMTime\":\"2024-05-01T10:01:05.330000\", \"TestBytesReceived\":127926272, "
                + "\"TotalBytesReceived\":128057344, \"TCPOpenRequestTime\":\"2024-05-01T10:01:00.114000\", "
                + "\"TCPOpenResponseTime\":\"2024-05-01T10:01:00.139000\"}",
                service.getHttpDownloadDiagnosticsResultJni());
    }

    @Test
    void errorStatesAndRefusedInputs() {
        GatewaySim.set("http download", "state", "-3");
        assertEquals("{\"Result\":\"Error_Timeout\"}", service.getHttpDownloadDiagnosticsResultJni());
        assertEquals(-1, service.startHttpDownloadDiagnosticsJni(1, "http://x/", "{\"TestDuration\":"));
        assertEquals(0, service.startHttpDownloadDiagnosticsJni(1, "http://x/", "{\"TestDuration\":0}"));
        assertEquals("0", GatewaySim.get("http download request", "duration"));
    }
}
