package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.LanHostSpeedLimitServiceImp;
import org.junit.jupiter.api.Test;

class LanHostSpeedLimitServiceTest extends GatewayTestBase {
    private final LanHostSpeedLimitServiceImp service = new LanHostSpeedLimitServiceImp();

    @Test
    void setsTheLimitsOfAHost() {
        defaultGateway();
        assertEquals(0, service.setLANHostSpeedLimitJni("00:e0:4c:68:01:a2", 512, 4096));
        assertEquals("512", GatewaySim.get("host 1", "up_limit"));
        assertEquals("4096", GatewaySim.get("host 1", "down_limit"));
        assertEquals(-1, service.setLANHostSpeedLimitJni("00-e0-4c-68-01-a2", 1, 1));
        assertEquals("brelo_lanSetDevMaxBandwidth(00:E0:4C:68:01:A2, 512, 4096)\n", GatewaySim.log());
    }
}
