package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.addressservices.PortMappingQueryServiceImp;
import org.junit.jupiter.api.Test;

class PortMappingQueryServiceTest extends GatewayTestBase {
    private final PortMappingQueryServiceImp query = new PortMappingQueryServiceImp();

    @Test
    void listsTheDefaultGatewaysRules() {
        defaultGateway();
        assertEquals("{\"Result\":0, \"List\":[{\"WANName\":\"2_INTERNET_R_VID_41\",\"MapList\":["
                + "{\"PortMappingIndex\":1,\"PortMappingEnabled\":\"TRUE\",\"ExternalPort\":8080,\"InternalPort\":80,"
                + "\"PortMappingProtocol\":\"TCP\",\"InternalClient\":\"192.168.1.20\"},"
                + "{\"PortMappingIndex\":2,\"PortMappingEnabled\":\"FALSE\",\"ExternalPort\":3074,\"InternalPort\":3074,"
                + "\"PortMappingProtocol\":\"UDP\",\"InternalClient\":\"192.168.1.33\"}]}]}", query.getPortMappingInfoJni());
    }

    @Test
    void anEmptyTreeGivesTheEmptyList() {
        assertEquals("{\"Result\":0, \"List\":[]}", query.getPortMappingInfoJni());
    }

    @Test
    void aTreeValueThatIsNotUtf8StillMakesAJavaString() {
        defaultGateway();
        GatewaySim.setBytes("tcapi VirServer_Entry8_Entry0", "LOCALIP", new byte[] {'h', (byte) 0xff, 'x'});
        String reply = query.getPortMappingInfoJni();
        assertEquals(true, reply.contains("\"InternalClient\":\"h\ufffdx\"}"), reply);
    }
}
