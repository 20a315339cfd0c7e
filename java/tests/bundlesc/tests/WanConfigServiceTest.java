package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.accessservices.AccessInfoQueryServiceImp;
import com.lumarest.smartgateway.accessservices.WanConfigServiceImp;
import org.junit.jupiter.api.Test;

class WanConfigServiceTest extends GatewayTestBase {
    private final WanConfigServiceImp service = new WanConfigServiceImp();
    private final AccessInfoQueryServiceImp query = new AccessInfoQueryServiceImp();

    @Test
    void addedWanAppearsInTheList() {
        defaultGateway();
        assertEquals(5, service.addWANIfJni("2", "50", "PPPoE_Routed"));
        assertEquals("brelo_wanAddIf(\"2\", \"50\", \"PPPoE_Routed\")\n", GatewaySim.log());
        assertTrue(query.getWANIfListJni().endsWith(",{\"Index\":5,\"Name\":\"5_INTERNET_R_VID_50\"}]}"));
    }

    @Test
    void overLongOrNullCreationTextsAreRefused() {
        assertEquals(-1, service.addWANIfJni("2", "12345678901234567890123456789012", "IP_Routed"));
        assertEquals(-1, service.addWANIfJni(null, "41", "IP_Routed"));
        assertEquals("", GatewaySim.log());
    }

    @Test
    void changeIsAppliedAndShownByTheInformation() {
        defaultGateway();
        assertEquals(0, service.setWANIfJni(2, "{\"Username\":\"lmr0755999999\",\"Password\":\"x\"}"));
        assertEquals("lmr0755999999", GatewaySim.get("wan 2", "Username"));
        assertTrue(query.getWANIfInfoJni(2).contains("\"Username\":\"lmr0755999999\""));
    }

    @Test
    void changeRejectedByTheParserNeverReachesSetIf() {
        defaultGateway();
        assertEquals(-1, service.setWANIfJni(2, "{not json"));
        assertEquals(-1, service.setWANIfJni(2, null));
        assertEquals(0, GatewaySim.logCount("brelo_wanSetIf"));
    }

    @Test
    void deleteBelowOneMakesNoCallAndOneReachesThePlatform() {
        defaultGateway();
        assertEquals(-1, service.deleteWANIfJni(0));
        assertEquals(-1, service.deleteWANIfJni(-3));
        assertEquals("", GatewaySim.log());
        assertEquals(0, service.deleteWANIfJni(1));
        assertEquals("brelo_wanDeleteIf(1)\n", GatewaySim.log());
        assertTrue(query.getWANIfListJni().startsWith("{\"Result\":0,\"List\":[{\"Index\":2,"));
    }
}
