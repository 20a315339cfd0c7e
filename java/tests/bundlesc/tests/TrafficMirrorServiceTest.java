package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TrafficMirrorServiceImp;
import org.junit.jupiter.api.Test;

class TrafficMirrorServiceTest extends GatewayTestBase {
    private final TrafficMirrorServiceImp service = new TrafficMirrorServiceImp();

    @Test
    void rulesAreAddedListedAndDeleted() {
        assertEquals(0, service.addMirrorRuleJni("www.example.com", "80-443", "ALL", "TCP", "00:11:22:33:44:55",
                "192.168.1.20", 9000));
        assertEquals(1, service.addMirrorRuleJni(null, "!53", "UP", "UDP", null, "2001:db8::20", 9001));
        // The same rule again: its index, nothing committed.
        assertEquals(0, service.addMirrorRuleJni("www.example.com", "80-443", "ALL", "TCP", "00:11:22:33:44:55",
                "192.168.1.20", 9000));
        assertEquals(2, GatewaySim.logCount("brelo_tcapi_delay_commit"));
        assertEquals("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"www.example.com\",\"RemotePort\":\"80-443\","
                + "\"Direction\":\"ALL\",\"Protocol\":\"TCP\",\"HostMAC\":\"00:11:22:33:44:55\","
                + "\"MirrorToIP\":\"192.168.1.20\",\"MirrorToPort\":9000},{\"RemoteAddress\":\"\",\"RemotePort\":\"!53\","
                + "\"Direction\":\"UP\",\"Protocol\":\"UDP\",\"HostMAC\":\"\",\"MirrorToIP\":\"2001:db8::20\","
                + "\"MirrorToPort\":9001}]}", service.getMirroRuleInfoJni());

        assertEquals(0, service.deleteMirrorRuleJni(0));
        assertNull(GatewaySim.get("tcapi TrafficMirror_Entry0", "mirrorToIP"));
        assertEquals(0, service.deleteMirrorRuleJni(300));
        assertEquals(0, service.deleteAllMirrorRuleJni());
        assertEquals("{\"Result\":0,\"List\":[]}", service.getMirroRuleInfoJni());
    }

    @Test
    void badRulesAreRefused() {
        assertEquals(-1, service.addMirrorRuleJni("a.example", "-1", "UP", "TCP", "", "192.168.1.20", 1));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "65536", "UP", "TCP", "", "192.168.1.20", 1));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "80", "up", "TCP", "", "192.168.1.20", 1));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "80", "UP", "TCP", "00-11-22-33-44-55", "192.168.1.20", 1));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "80", "UP", "TCP", "", "[2001:db8::1]", 1));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "80", "UP", "TCP", "", "fe80::1%eth0", 1));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "80", "UP", "TCP", "", "192.168.1.20", 0));
        assertEquals(-1, service.addMirrorRuleJni("a.example", "80", "UP", "TCP", "", "192.168.1.20", 65536));
        assertEquals(-1, service.addMirrorRuleJni("a.example", null, "UP", "TCP", "", "192.168.1.20", 1));
        assertEquals(0, GatewaySim.logCount("tcapi_set"));
    }

    @Test
    void theDefaultGatewayMirrorsOneHostsDns() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\",\"RemotePort\":\"53\",\"Direction\":\"ALL\","
                + "\"Protocol\":\"UDP\",\"HostMAC\":\"00:E0:4C:68:01:A2\",\"MirrorToIP\":\"192.168.1.200\","
                + "\"MirrorToPort\":5555}]}", service.getMirroRuleInfoJni());
        assertEquals(1, service.addMirrorRuleJni("a.example", "80", "UP", "TCP", "", "192.168.1.20", 8080));
    }
}
