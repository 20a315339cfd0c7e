package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.addressservices.LANIPConfigServiceImp;
import com.lumarest.smartgateway.addressservices.LANIPInfoQueryServiceImp;
import org.junit.jupiter.api.Test;

class LANIPInfoQueryServiceTest extends GatewayTestBase {
    private final LANIPInfoQueryServiceImp query = new LANIPInfoQueryServiceImp();
    private final LANIPConfigServiceImp config = new LANIPConfigServiceImp();

    @Test
    void reportsTheDefaultGatewaysAddresses() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"LocalIPv4\":\"192.168.1.1\",\"LocalIPv6\":\"fe80::1,240e:3a1:4c2:71d0::1\","
                + "\"Submask\":\"255.255.255.0\",\"Prefix_len\":\"64\"}", query.getLANHostIPJni());
        assertEquals("{\"Result\":0,\"EnableDHCPServer\":\"TRUE\",\"DHCPStartIP\":\"192.168.1.2\","
                + "\"DHCPEndIP\":\"192.168.1.254\",\"DHCPDuration\":86400}", query.getLANDHCPInfoJni());
        assertEquals("brelo_lanGetHostIP()\nbrelo_dhcpdGetServerSettings()\n", GatewaySim.log());
    }

    @Test
    void showsWhatTheSettersChanged() {
        defaultGateway();
        GatewaySim.set("lan_ip", "ipv6_second", "");
        assertEquals(0, config.setLANHostIPJni("10.0.0.1", "255.0.0.0"));
        assertEquals(0, config.setLANDHCPInfoJni("FALSE", "10.0.0.10", "10.0.0.20", 600));
        assertEquals("{\"Result\":0,\"LocalIPv4\":\"10.0.0.1\",\"LocalIPv6\":\"fe80::1,\","
                + "\"Submask\":\"255.0.0.0\",\"Prefix_len\":\"64\"}", query.getLANHostIPJni());
        assertEquals("{\"Result\":0,\"EnableDHCPServer\":\"FALSE\",\"DHCPStartIP\":\"10.0.0.10\","
                + "\"DHCPEndIP\":\"10.0.0.20\",\"DHCPDuration\":600}", query.getLANDHCPInfoJni());
    }

    @Test
    void anEmptyPlatformGivesEmptyTexts() {
        assertEquals("{\"Result\":0,\"LocalIPv4\":\"\",\"LocalIPv6\":\"\",\"Submask\":\"\",\"Prefix_len\":\"\"}",
                query.getLANHostIPJni());
        assertEquals("{\"Result\":0,\"EnableDHCPServer\":\"FALSE\",\"DHCPStartIP\":\"\",\"DHCPEndIP\":\"\","
                + "\"DHCPDuration\":0}", query.getLANDHCPInfoJni());
    }
}
