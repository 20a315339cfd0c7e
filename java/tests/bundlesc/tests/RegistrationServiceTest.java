package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.RegistrationServiceImp;
import org.junit.jupiter.api.Test;

class RegistrationServiceTest extends GatewayTestBase {
    private final RegistrationServiceImp service = new RegistrationServiceImp();

    @Test
    void aRegistrationProgressesFromRegisteringToRegistered() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"Status\":\"0\",\"RegisterResult\":\"0\",\"ServiceNum\":\"0\","
                + "\"ServiceName\":\"\",\"Limit\":\"10\",\"Times\":\"0\",\"Province\":\"Guangdong\"}",
                service.getPasswordRegistrationInfoJni());
        assertEquals(0, service.setPasswordRegistrationJni("LOID0001", 1, 0, "pw12"));
        assertEquals("{\"Result\":0,\"Status\":\"1\",\"RegisterResult\":\"0\",\"ServiceNum\":\"0\","
                + "\"ServiceName\":\"\",\"Limit\":\"10\",\"Times\":\"1\",\"Province\":\"Guangdong\"}",
                service.getPasswordRegistrationInfoJni());
        assertEquals("{\"Result\":0,\"Status\":\"2\",\"RegisterResult\":\"1\",\"ServiceNum\":\"3\","
                + "\"ServiceName\":\"INTERNET,IPTV,VOIP\",\"Limit\":\"10\",\"Times\":\"1\","
                + "\"Province\":\"Guangdong\"}", service.getPasswordRegistrationInfoJni());
        assertEquals("brelo_GetProvince()\nbrelo_passwordGetRegistrationInfo()\n"
                + "brelo_passwordSetRegistration(\"LOID0001\", 1, 0, \"pw12\")\n"
                + "brelo_GetProvince()\nbrelo_passwordGetRegistrationInfo()\n"
                + "brelo_GetProvince()\nbrelo_passwordGetRegistrationInfo()\n", GatewaySim.log());
    }

    @Test
    void theRecordsOwnProvinceWins() {
        defaultGateway();
        GatewaySim.set("registration", "province", "Sichuan");
        assertEquals("{\"Result\":0,\"Status\":\"0\",\"RegisterResult\":\"0\",\"ServiceNum\":\"0\","
                + "\"ServiceName\":\"\",\"Limit\":\"10\",\"Times\":\"0\",\"Province\":\"Sichuan\"}",
                service.getPasswordRegistrationInfoJni());
    }

    @Test
    void nullTextsAreRefusedWithoutAPlatformCall() {
        assertEquals(-1, service.setPasswordRegistrationJni(null, 1, 2, "pw"));
        assertEquals(-1, service.setPasswordRegistrationJni("LOID", 1, 2, null));
        assertEquals("", GatewaySim.log());
        GatewaySim.programResult("brelo_passwordSetRegistration", 9);
        assertEquals(9, service.setPasswordRegistrationJni("LOID", 1, 2, "pw"));
    }
}
