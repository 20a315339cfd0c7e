package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.addressservices.PortMappingConfigServiceImp;
import com.lumarest.smartgateway.addressservices.PortMappingQueryServiceImp;
import java.io.File;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Collections;
import org.junit.jupiter.api.Test;

class PortMappingConfigServiceTest extends GatewayTestBase {
    private final PortMappingConfigServiceImp service = new PortMappingConfigServiceImp();
    private final PortMappingQueryServiceImp query = new PortMappingQueryServiceImp();

    private static final String RULE3 = "{\"PortMappingIndex\":3,\"PortMappingEnabled\":\"%s\",\"ExternalPort\":2222,"
            + "\"InternalPort\":22,\"PortMappingProtocol\":\"TCP\",\"InternalClient\":\"192.168.1.40\"}";

    @Test
    void addSwitchAndDeleteRoundTripThroughTheQuery() {
        defaultGateway();
        assertEquals(0, service.addPortMappingJni(2, 2222, 22, "TCP", "192.168.1.40"));
        assertEquals("OSGI_Add_Rule_2_2", GatewaySim.get("tcapi VirServer_Entry8_Entry2", "MapName"));
        assertTrue(query.getPortMappingInfoJni().contains(String.format(RULE3, "TRUE")));
        assertEquals(0, service.setPortMappingSwitchJni(2, 3, false));
        assertTrue(query.getPortMappingInfoJni().contains(String.format(RULE3, "FALSE")));
        assertEquals(0, service.deletePortMappingJni(2, 3));
        assertTrue(!query.getPortMappingInfoJni().contains("2222"));
        assertEquals(3, GatewaySim.logCount("tcapi_save"));
        assertEquals(3, GatewaySim.logCount("brelo_tcapi_commit"));
    }

    @Test
    void refusals() {
        defaultGateway();
        assertEquals(-1, service.addPortMappingJni(1, 80, 80, "TCP", "192.168.1.40"));  // the TR069 WAN
        assertEquals(-1, service.addPortMappingJni(2, 65536, 80, "TCP", "192.168.1.40"));
        assertEquals(-1, service.addPortMappingJni(2, 80, -1, "TCP", "192.168.1.40"));
        assertEquals(-1, service.addPortMappingJni(-1, 80, 80, "TCP", "192.168.1.40"));
        assertEquals(-1, service.addPortMappingJni(9, 80, 80, "UDP", "192.168.1.40"));
        assertEquals(-1, service.addPortMappingJni(2, 80, 80, null, "192.168.1.40"));
        assertEquals(-1, service.addPortMappingJni(2, 80, 80, "UDP", null));
        assertEquals(-1, service.deletePortMappingJni(2, 0));
        assertEquals(-1, service.deletePortMappingJni(2, Integer.MIN_VALUE));
        assertEquals(-1, service.setPortMappingSwitchJni(0, 1, true));
        assertEquals(-1, service.setPortMappingSwitchJni(2, Integer.MAX_VALUE, true));
        assertEquals(0, GatewaySim.logCount("tcapi_set"));
        assertEquals(0, GatewaySim.logCount("tcapi_unset"));
    }

    @Test
    void refusedProtocolAndClientTextsAreKept() {
        defaultGateway();
        // These texts are never given back; under -Xcheck:jni that must not raise a warning.
        assertEquals(-1, service.addPortMappingJni(2, 80, 80, "tcp", "192.168.1.40"));
        assertEquals(-1, service.addPortMappingJni(2, 80, 80, "TCP", "224.0.0.1"));
        assertEquals(0, GatewaySim.logCount("tcapi_set"));
    }

    @Test
    void anAddedRuleIsFoundByAFreshJvm() throws Exception {
        Path saved = Files.createTempFile("portmapping-tree", ".ini");
        try {
            defaultGateway();
            GatewaySim.setSavePath(saved.toString());
            assertEquals(0, service.addPortMappingJni(4, 5060, 5060, "UDP", "192.168.1.50"));

            ChildJvm child = ChildJvm.run(Collections.singletonMap("BRELO_SIM_SAVE", saved.toString()), "-cp",
                    ChildJvm.location(PortMappingQueryServiceImp.class) + File.pathSeparator + "/usr/share/java/gson.jar",
                    "bundlesc.console.BridgeConsole", "PortMappingQueryService", "getPortMappingInfoJni");
            String listed = child.out;
            assertEquals(0, child.status, listed + child.err);
            assertTrue(listed.contains("{\"WANName\":\"4_INTERNET_R_VID_43\",\"MapList\":[{\"PortMappingIndex\":1,"
                    + "\"PortMappingEnabled\":\"TRUE\",\"ExternalPort\":5060,\"InternalPort\":5060,"
                    + "\"PortMappingProtocol\":\"UDP\",\"InternalClient\":\"192.168.1.50\"}]}"), listed);
        } finally {
            Files.deleteIfExists(saved);
        }
    }
}
