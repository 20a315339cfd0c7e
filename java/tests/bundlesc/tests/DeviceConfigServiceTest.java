package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceConfigServiceImp;
import org.junit.jupiter.api.Test;

class DeviceConfigServiceTest extends GatewayTestBase {
    private final DeviceConfigServiceImp service = new DeviceConfigServiceImp();

    @Test
    void ledSwitch() {
        defaultGateway();
        assertEquals(0, service.setLedSwitchJni(false));
        assertEquals("0", GatewaySim.get("led", "switch"));
        assertEquals(0, service.setLedSwitchJni(true));
        assertEquals("1", GatewaySim.get("led", "switch"));
        GatewaySim.programResult("brelo_ledSetSwitch", 4);
        assertEquals(-1, service.setLedSwitchJni(true));
        assertEquals("brelo_ledSetSwitch(0)\nbrelo_ledSetSwitch(1)\nbrelo_ledSetSwitch(1)\n", GatewaySim.log());
    }
}
