package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TrafficForwardServiceImp;
import org.junit.jupiter.api.Test;

class TrafficForwardServiceTest extends GatewayTestBase {
    private final TrafficForwardServiceImp service = new TrafficForwardServiceImp();

    private static final String DEFAULT_RULE = "{\"RemoteAddress\":\"203.0.113.25\",\"RemotePort\":\"8080-8090\","
            + "\"Protocol\":\"TCP\",\"HostMAC\":\"00:E0:4C:68:01:A2\",\"ForwardToIP\":\"192.168.1.2\","
            + "\"ForwardToPort\":8080}";

    @Test
    void addedRulesAreListedAndDeleted() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[" + DEFAULT_RULE + "]}", service.getForwardRuleInfoJni());
        assertEquals(0, service.addForwardRuleJni("198.51.100.4", "443", "UDP", "F0:18:98:4B:7E:21",
                "192.168.1.3", 4443));
        assertEquals("{\"Result\":0,\"List\":[" + DEFAULT_RULE + ",{\"RemoteAddress\":\"198.51.100.4\","
                + "\"RemotePort\":\"443\",\"Protocol\":\"UDP\",\"HostMAC\":\"F0:18:98:4B:7E:21\","
                + "\"ForwardToIP\":\"192.168.1.3\",\"ForwardToPort\":4443}]}", service.getForwardRuleInfoJni());
        assertEquals(-1, service.deleteForwardRuleJni(256));
        assertEquals(-1, service.deleteForwardRuleJni(-1));
        assertEquals(0, service.deleteForwardRuleJni(1));
        assertEquals("{\"Result\":0,\"List\":[" + DEFAULT_RULE + "]}", service.getForwardRuleInfoJni());
        assertEquals(0, service.deleteAllForwardRuleJni());
        assertEquals("{\"Result\":0,\"List\":[]}", service.getForwardRuleInfoJni());
        assertEquals("brelo_getForwardRuleInfo()\n"
                + "brelo_addForwardRule(\"198.51.100.4\", \"443\", \"UDP\", \"F0:18:98:4B:7E:21\", \"192.168.1.3\", 4443)\n"
                + "brelo_getForwardRuleInfo()\nbrelo_deleteForwardRule(1)\nbrelo_getForwardRuleInfo()\n"
                + "brelo_deleteAllForwardRule()\nbrelo_getForwardRuleInfo()\n", GatewaySim.log());
    }

    @Test
    void nullTextsAndPlatformFailures() {
        assertEquals(-1, service.addForwardRuleJni(null, null, null, null, null, 0));
        assertEquals(0, service.addForwardRuleJni(null, "", null, null, "10.0.0.1", 1));
        GatewaySim.programResult("brelo_getForwardRuleInfo", -1);
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getForwardRuleInfoJni());
    }

    @Test
    void tenThousandRules() {
        GatewaySim.set("forward", "extra_rules", "10000");
        String reply = service.getForwardRuleInfoJni();
        assertTrue(reply.startsWith("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"198.51.0.0\""), reply);
        assertTrue(reply.endsWith("\"ForwardToPort\":8999}]}"));
    }
}
