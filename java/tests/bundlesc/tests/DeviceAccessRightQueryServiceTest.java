package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceAccessRightQueryServiceImp;
import org.junit.jupiter.api.Test;

class DeviceAccessRightQueryServiceTest extends GatewayTestBase {
    private final DeviceAccessRightQueryServiceImp query = new DeviceAccessRightQueryServiceImp();

    @Test
    void defaultGatewayRightsAndAccounts() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"Right\":2,\"Anonymous\":\"FALSE\",\"AccountList\":["
                + "{\"UserName\":\"anna\",\"Password\":\"ftp4anna\"},"
                + "{\"UserName\":\"backup\",\"Password\":\"Bk-2026!\"}]}", query.getFTPRightInfoJni());
        assertEquals("{\"Result\":0,\"Right\":1,\"Password\":\"webuser123\"}", query.getHTTPRightInfoJni());
        assertEquals("{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":["
                + "{\"UserName\":\"media\",\"Password\":\"m3dia-share\"}]}", query.getSambaRightInfoJni());
        assertEquals("brelo_getFTPRightInfo()\nbrelo_getHTTPRightInfo()\nbrelo_getSambaRightInfo()\n",
                GatewaySim.log());
    }

    @Test
    void failures() {
        GatewaySim.programResult("brelo_getFTPRightInfo", -1);
        GatewaySim.programResult("brelo_getHTTPRightInfo", -1);
        GatewaySim.programResult("brelo_getSambaRightInfo", -1);
        String fail = "{\"Result\":-1,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}";
        assertEquals(fail, query.getFTPRightInfoJni());
        assertEquals(fail, query.getSambaRightInfoJni());
        assertEquals("{\"Result\":-1,\"Right\":0,\"Password\":\"\"}", query.getHTTPRightInfoJni());
    }

    @Test
    void misreportedCountsAndUnterminatedFieldsStayBounded() {
        GatewaySim.set("ftp", "scribble", "x");
        GatewaySim.set("ftp", "account_count", "1000");
        GatewaySim.set("ftp account 1", "user", "anna");
        GatewaySim.set("ftp account 1", "password", "pw");
        GatewaySim.set("samba", "account_count", "1000");
        String ftp = query.getFTPRightInfoJni();
        assertTrue(ftp.length() < 4096);
        assertEquals(6, ftp.split("UserName").length - 1);
        String samba = query.getSambaRightInfoJni();
        assertEquals(6, samba.split("UserName").length - 1);
    }

    @Test
    void textsThatAreNotUtf8() {
        GatewaySim.setBytes("samba account 1", "user", new byte[] {'c', 'a', 'f', (byte) 0xE9});
        GatewaySim.set("samba account 1", "password", "pw");
        assertEquals("{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":["
                + "{\"UserName\":\"caf\ufffd\",\"Password\":\"pw\"}]}", query.getSambaRightInfoJni());
    }
}
