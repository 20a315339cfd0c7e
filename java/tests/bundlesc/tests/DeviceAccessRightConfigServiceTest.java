package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceAccessRightConfigServiceImp;
import com.lumarest.smartgateway.commservices.DeviceAccessRightQueryServiceImp;
import org.junit.jupiter.api.Test;

class DeviceAccessRightConfigServiceTest extends GatewayTestBase {
    private final DeviceAccessRightConfigServiceImp service = new DeviceAccessRightConfigServiceImp();
    private final DeviceAccessRightQueryServiceImp query = new DeviceAccessRightQueryServiceImp();

    @Test
    void rightLevels() {
        defaultGateway();
        assertEquals(0, service.setFTPRightJni(3, true));
        assertEquals(-1, service.setFTPRightJni(4, false));
        assertEquals(0, service.setHTTPRightJni(0));
        assertEquals(-1, service.setHTTPRightJni(-1));
        assertEquals(0, service.setSambaRightJni(7));
        assertEquals("brelo_setFTPRight(3, 1)\nbrelo_setHTTPRight(0)\n", GatewaySim.log());
        assertTrue(query.getFTPRightInfoJni().startsWith(
                "{\"Result\":0,\"Right\":3,\"Anonymous\":\"TRUE\",\"AccountList\":["));
        assertTrue(query.getHTTPRightInfoJni().startsWith("{\"Result\":0,\"Right\":0,"));
    }

    @Test
    void ftpAccountsAreAddedAndDeleted() {
        defaultGateway();
        assertEquals(0, service.addFTPAccountJni("carl", "c4rl"));
        assertTrue(query.getFTPRightInfoJni().endsWith(",{\"UserName\":\"carl\",\"Password\":\"c4rl\"}]}"));
        assertEquals(0, service.deleteFTPAccountJni("carl"));
        assertEquals(-1, service.deleteFTPAccountJni("carl"));
        assertEquals(0, service.deleteAllFTPAccountJni());
        assertEquals("{\"Result\":0,\"Right\":2,\"Anonymous\":\"FALSE\",\"AccountList\":[]}",
                query.getFTPRightInfoJni());
    }

    @Test
    void sambaAccountsAreAddedAndDeleted() {
        defaultGateway();
        assertEquals(0, service.addSambaAccountJni("dora", "d0ra"));
        assertEquals("dora", GatewaySim.get("samba account 2", "user"));
        assertEquals(0, service.deleteSambaAccountJni("media"));
        assertNull(GatewaySim.get("samba account 1", "user"));
        assertEquals(0, service.deleteAllSambaAccountJni());
        assertEquals("{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}",
                query.getSambaRightInfoJni());
    }

    @Test
    void httpPassword() {
        defaultGateway();
        assertEquals(0, service.setHTTPUserPasswordJni("n\u00e9w"));
        assertEquals("{\"Result\":0,\"Right\":1,\"Password\":\"n\u00e9w\"}", query.getHTTPRightInfoJni());
        assertEquals(-1, service.setHTTPUserPasswordJni(""));
    }

    @Test
    void badTextsAreRefusedWithoutAPlatformCall() {
        assertEquals(-1, service.addFTPAccountJni(null, "pw"));
        assertEquals(-1, service.addFTPAccountJni("u", ""));
        assertEquals(-1, service.addSambaAccountJni("", "pw"));
        assertEquals(-1, service.addSambaAccountJni("u", null));
        assertEquals(-1, service.deleteFTPAccountJni(null));
        assertEquals(-1, service.deleteSambaAccountJni(""));
        assertEquals(-1, service.setHTTPUserPasswordJni(null));
        assertEquals("", GatewaySim.log());
    }
}
