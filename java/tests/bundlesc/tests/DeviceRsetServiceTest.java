package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceRsetServiceImp;
import org.junit.jupiter.api.Test;

class DeviceRsetServiceTest extends GatewayTestBase {
    private final DeviceRsetServiceImp service = new DeviceRsetServiceImp();

    @Test
    void resetIsRecordedAndItsResultPassedThrough() {
        defaultGateway();
        assertEquals(0, service.resetJni());
        assertEquals("1", GatewaySim.get("reset", "count"));
        GatewaySim.programResult("brelo_reset", -3);
        assertEquals(-3, service.resetJni());
        assertEquals("brelo_reset()\nbrelo_reset()\n", GatewaySim.log());
    }
}
