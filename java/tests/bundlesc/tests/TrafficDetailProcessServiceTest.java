package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TrafficDetailProcessServiceImp;
import org.junit.jupiter.api.Test;

class TrafficDetailProcessServiceTest extends GatewayTestBase {
    private final TrafficDetailProcessServiceImp service = new TrafficDetailProcessServiceImp();

    private static final String DEFAULT_RULE = "{\"RemoteAddress\":\"198.51.100.80\",\"RemotePort\":\"80\","
            + "\"Direction\":\"UP\",\"HostMAC\":\"F0:18:98:4B:7E:21\",\"MethodList\":[\"GET\",\"POST\"],"
            + "\"HeaderList\":[\"Host\",\"User-Agent\"],\"BundleName\":\"com.lumarest.parental\"}";

    @Test
    void addedRulesAreListedAndDeleted() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[" + DEFAULT_RULE + "]}", service.getHTTPTrafficProcessRuleInfoJni());
        assertEquals(0, service.addHTTPTrafficProcessRuleJni("203.0.113.7", 8080, "DOWN", "00:E0:4C:68:01:A2",
                new String[] {"GET", "HEAD"}, new String[] {"text/plain"}, new String[] {"Cookie"}, "com.example.b"));
        assertEquals("{\"Result\":0,\"List\":[" + DEFAULT_RULE + ",{\"RemoteAddress\":\"203.0.113.7\","
                + "\"RemotePort\":\"8080\",\"Direction\":\"DOWN\",\"HostMAC\":\"00:E0:4C:68:01:A2\","
                + "\"MethodList\":[\"GET\",\"HEAD\"],\"HeaderList\":[\"Cookie\"],\"BundleName\":\"com.example.b\"}]}",
                service.getHTTPTrafficProcessRuleInfoJni());
        assertEquals(-1, service.deleteHTTPTrafficProcessRuleJni(256));
        assertEquals(0, service.deleteHTTPTrafficProcessRuleJni(0));
        assertEquals(0, service.deleteAllHTTPTrafficProcessRuleJni());
        assertEquals("{\"Result\":0,\"List\":[]}", service.getHTTPTrafficProcessRuleInfoJni());
        assertEquals("brelo_getHTTPTrafficProcessRuleInfo()\n"
                + "brelo_addHTTPTrafficProcessRule(\"203.0.113.7\", 8080, \"DOWN\", \"00:E0:4C:68:01:A2\", "
                + "\"GET,HEAD\", \"text/plain\", \"Cookie\", \"com.example.b\")\n"
                + "brelo_getHTTPTrafficProcessRuleInfo()\nbrelo_deleteHTTPTrafficProcessRule(0)\n"
                + "brelo_deleteAllHTTPTrafficProcessRule()\nbrelo_getHTTPTrafficProcessRuleInfo()\n", GatewaySim.log());
    }

    @Test
    void nullArraysNullElementsAndLongLists() {
        assertEquals(-1, service.addHTTPTrafficProcessRuleJni(null, 0, null, null, null, null, null, null));
        String[] many = new String[400];
        for (int i = 0; i < many.length; i++) {
            many[i] = "X-Header-" + i;
        }
        assertEquals(0, service.addHTTPTrafficProcessRuleJni("", -1, "", "", new String[] {null, "GET"},
                new String[] {null}, many, "b"));
        String log = GatewaySim.log();
        assertTrue(log.contains("\", \",GET\", \"\", \"X-Header-0,X-Header-1,"), log);
        GatewaySim.programResult("brelo_getHTTPTrafficProcessRuleInfo", 1);
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getHTTPTrafficProcessRuleInfoJni());
    }
}
