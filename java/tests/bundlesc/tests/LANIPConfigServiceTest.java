package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.addressservices.LANIPConfigServiceImp;
import org.junit.jupiter.api.Test;

class LANIPConfigServiceTest extends GatewayTestBase {
    private final LANIPConfigServiceImp service = new LANIPConfigServiceImp();

    @Test
    void setsTheLanAddress() {
        defaultGateway();
        assertEquals(0, service.setLANHostIPJni("192.168.8.1", "255.255.255.0"));
        assertEquals("192.168.8.1", GatewaySim.get("lan_ip", "ipv4"));
        assertEquals(-1, service.setLANHostIPJni("192.168.8", null));
        assertEquals("brelo_lanSetLanHostIP(\"192.168.8.1\", \"255.255.255.0\")\n"
                + "brelo_lanSetLanHostIP(\"192.168.8\", \"\")\n", GatewaySim.log());
    }

    @Test
    void setsTheDhcpServerWithAnEnableTextInAnyCase() {
        defaultGateway();
        assertEquals(0, service.setLANDHCPInfoJni("false", "192.168.1.100", "192.168.1.199", 3600));
        assertEquals("0", GatewaySim.get("dhcp_server", "enabled"));
        // A reversed pool goes to the platform, which refuses it.
        assertEquals(-1, service.setLANDHCPInfoJni("True", "192.168.1.199", "192.168.1.100", 3600));
        assertEquals("brelo_lanSetLANDHCPInfo(0, \"192.168.1.100\", \"192.168.1.199\", 3600)\n"
                + "brelo_lanSetLANDHCPInfo(1, \"192.168.1.199\", \"192.168.1.100\", 3600)\n", GatewaySim.log());
    }

    @Test
    void otherEnableTextsNeverReachThePlatform() {
        assertEquals(-1, service.setLANDHCPInfoJni("yes", "192.168.1.100", "192.168.1.199", 1));
        assertEquals(-1, service.setLANDHCPInfoJni(null, null, null, 1));
        assertEquals("", GatewaySim.log());
    }
}
