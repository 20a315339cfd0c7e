package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TransferQueryServiceImp;
import com.lumarest.smartgateway.transferservices.VLANBindConfigServiceImp;
import org.junit.jupiter.api.Test;

class VLANBindConfigServiceTest extends GatewayTestBase {
    private final VLANBindConfigServiceImp service = new VLANBindConfigServiceImp();

    private static String chars(int n) {
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < n; ++i) {
            b.append('a');
        }
        return b.toString();
    }

    @Test
    void bindingIsSetListedAndCleared() {
        assertEquals(0, service.setVLANBindJni("LAN3", "45/3"));
        assertEquals("{\"Result\":0,\"List\":[{\"LanInterface\":\"LAN3\",\"Bind\":\"45/3\"}]}",
                new TransferQueryServiceImp().getVLANBindInfoJni());
        assertEquals(0, service.clearVLANBindJni("LAN3"));
        assertEquals(-1, service.clearVLANBindJni("WAN1"));
        assertEquals("brelo_setVLANBind(\"LAN3\", \"45/3\")\nbrelo_vlanGetBindInfo()\n"
                + "brelo_clearVLANBind(\"LAN3\")\nbrelo_clearVLANBind(\"WAN1\")\n", GatewaySim.log());
    }

    @Test
    void textsOf32CharactersOrMoreAndNullTextsAreRefused() {
        GatewaySim.programResult("brelo_setVLANBind", 0);
        GatewaySim.programResult("brelo_clearVLANBind", 0);
        assertEquals(0, service.setVLANBindJni(chars(31), chars(31)));
        assertEquals(0, service.clearVLANBindJni(chars(31)));
        assertEquals(2, GatewaySim.logCount("brelo_setVLANBind") + GatewaySim.logCount("brelo_clearVLANBind"));
        GatewaySim.clearLog();
        assertEquals(-1, service.setVLANBindJni(chars(32), "1"));
        assertEquals(-1, service.setVLANBindJni("LAN1", chars(33)));
        assertEquals(-1, service.clearVLANBindJni(chars(32)));
        assertEquals(-1, service.setVLANBindJni(null, "1"));
        assertEquals(-1, service.setVLANBindJni("LAN1", null));
        assertEquals(-1, service.clearVLANBindJni(null));
        assertEquals("", GatewaySim.log());
    }
}
