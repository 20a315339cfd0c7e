package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.EthConfigServiceImp;
import org.junit.jupiter.api.Test;

class EthConfigServiceTest extends GatewayTestBase {
    private final EthConfigServiceImp service = new EthConfigServiceImp();

    @Test
    void setsAPort() {
        defaultGateway();
        assertEquals(0, service.setLANEthernetEnableJni(2, false));
        assertEquals("0", GatewaySim.get("eth 2", "enable"));
        assertEquals(0, service.setLANEthernetMaxBitRateJni(2, "100"));
        assertEquals(0, service.setLANEthernetDuplexModeJni(2, "Half"));
        assertEquals(-1, service.setLANEthernetDuplexModeJni(2, "sideways"));
        assertEquals(-1, service.setLANEthernetMaxBitRateJni(2, null));
        assertEquals("brelo_setLANEthernetEnable(2, 0)\nbrelo_setLANEthernetMaxBitRate(2, \"100\")\n"
                + "brelo_setLANEthernetDuplexMode(2, \"Half\")\nbrelo_setLANEthernetDuplexMode(2, \"sideways\")\n",
                GatewaySim.log());
    }
}
