package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.WlanSecretQueryServiceImp;
import org.junit.jupiter.api.Test;

class WlanSecretQueryServiceTest extends GatewayTestBase {
    private final WlanSecretQueryServiceImp service = new WlanSecretQueryServiceImp();

    @Test
    void passwordsOfTheDefaultGatewayAreBareTexts() {
        defaultGateway();
        assertEquals("k9w2hq7z", service.getWLANSSIDPasswordJni(1));
        assertEquals("off/ice\"1", service.getWLANSSIDPasswordJni(6));
        assertEquals("", service.getWLANSSIDPasswordJni(4));
        assertEquals("brelo_wlanGetSSIDPassword(1)\nbrelo_wlanGetSSIDPassword(6)\n"
                + "brelo_wlanGetSSIDPassword(4)\n", GatewaySim.log());
    }
}
