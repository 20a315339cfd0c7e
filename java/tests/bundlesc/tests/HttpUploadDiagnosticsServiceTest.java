package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.accessservices.HttpUploadDiagnosticsServiceImp;
import org.junit.jupiter.api.Test;

class HttpUploadDiagnosticsServiceTest extends GatewayTestBase {
    private static final String COMPLETED = "{\"Result\":\"Completed\", \"TestUploadRate\":48210, "
            + "\"TotalUploadRate\":47985, \"ROMTime\":\"2024-05-01T10:00:00.120000\", "
            + "\"BOMTime\":\"2024-05-01T10:00:00.180000\", \"EOMTime\":\"2024-05-01T10:00:05.400000\", "
            + "\"TestBytesSent\":31457280, \"TotalBytesSend\":31521024, "
            + "\"TCPOpenRequestTime\":\"2024-05-01T10:00:00.125000\", "
            + "\"TCPOpenResponseTime\":\"2024-05-01T10:00:00.150000\"}";

    private final HttpUploadDiagnosticsServiceImp service = new HttpUploadDiagnosticsServiceImp();

    @Test
    void uploadOfTheDefaultGatewayIsRequestedThenCompleted() {
        defaultGateway();
        assertEquals(COMPLETED, service.getHttpUploadDiagnosticsResultJni());  // the gateway's last test
        assertEquals(0, service.startHttpUploadDiagnosticsJni(1, "http://speed.example.net/upload",
                "{\"TestFileLength\":31457280,\"TestDuration\":\"65836\",\"NumberOfConnections\":5}"));
        assertEquals("31457280", GatewaySim.get("http upload request", "file_length"));
        assertEquals("300", GatewaySim.get("http upload request", "duration"));
        assertEquals("1", GatewaySim.get("http upload request", "connections"));
        assertEquals("{\"Result\":\"Requested\"}", service.getHttpUploadDiagnosticsResultJni());
        assertEquals(COMPLETED, service.getHttpUploadDiagnosticsResultJni());
    }

    @Test
    void refusedInputs() {
        assertEquals(-1, service.startHttpUploadDiagnosticsJni(1, "http://x/", ""));
        assertEquals(-1, service.startHttpUploadDiagnosticsJni(1, "http://x/", "{\"TestDuration\":5}"));
        assertEquals(-1, service.startHttpUploadDiagnosticsJni(1, "http://x/", "{\"TestFileLength\":0,\"TestDuration\":0}"));
        assertEquals(-1, service.startHttpUploadDiagnosticsJni(1, null, "{\"TestFileLength\":1}"));
        assertEquals("", GatewaySim.log());
    }

    @Test
    void unknownStateGivesAnEmptyText() {
        GatewaySim.set("http upload", "state", "3");
        assertEquals("", service.getHttpUploadDiagnosticsResultJni());
    }
}
