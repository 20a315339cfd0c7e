package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;
import com.lumarest.smartgateway.lanservices.LanNetworkNameConfigServiceImp;
import org.junit.jupiter.api.Test;

class LanNetworkNameConfigServiceTest extends GatewayTestBase {
    private final LanNetworkNameConfigServiceImp service = new LanNetworkNameConfigServiceImp();

    @Test
    void namesTheGatewayAndAHost() {
        defaultGateway();
        assertEquals(0, service.setGatewayNameJni("Home gateway"));
        assertEquals("Home gateway", new LANHostsInfoQueryServiceImp().getGatewayNameJni());
        assertEquals(0, service.setLANHostNameJni("a4:77:33:c1:5d:90", "Printer \u00e9"));
        assertEquals("Printer \u00e9", GatewaySim.get("host 6", "device_name"));
        assertEquals(-1, service.setLANHostNameJni("00:00:00:00:00:00", "nobody"));
        assertTrue(GatewaySim.log().contains("brelo_lanSetLanHostName(\"00:00:00:00:00:00\", \"nobody\")"));
    }
}
