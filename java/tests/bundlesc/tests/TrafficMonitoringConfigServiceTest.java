package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TrafficMonitoringConfigServiceImp;
import org.junit.jupiter.api.Test;

class TrafficMonitoringConfigServiceTest extends GatewayTestBase {
    private final TrafficMonitoringConfigServiceImp service = new TrafficMonitoringConfigServiceImp();

    @Test
    void aBundleRegistersListsAndRemovesAddresses() {
        // The first address of a new bundle claims a free group.
        assertEquals(0, service.addTrafficMonitoringDestAddressJni(new String[] {"192.0.2.10"}, "org.example.meter"));
        assertEquals(0, service.addTrafficMonitoringDestAddressJni(
                new String[] {"2001:db8::10", "www.example.com", "192.0.2.10"}, "org.example.meter"));
        assertEquals("{\"Result\":0,\"List\":[{\"BundleName\":\"org.example.meter\",\"DestAddressList\":"
                + "[\"192.0.2.10\",\"2001:db8::10\",\"www.example.com\"]}]}",
                service.getTrafficMonitoringDestAddressInfoJni());
        assertEquals(2, GatewaySim.logCount("brelo_tcapi_delay_commit"));
        assertEquals(0, GatewaySim.logCount("tcapi_save"));

        assertEquals(0, service.deleteTrafficMonitoringDestAddressJni(
                new String[] {"192.0.2.10", "2001:db8::10", "www.example.com"}, "org.example.meter"));
        assertEquals("{\"Result\":0,\"List\":[]}", service.getTrafficMonitoringDestAddressInfoJni());
        assertNull(GatewaySim.get("tcapi TrafficMonitoring_PVC0", "bundleName"));
        assertEquals(-1, service.deleteTrafficMonitoringDestAddressJni(new String[] {"192.0.2.10"}, "org.example.meter"));
    }

    @Test
    void badInputIsRefusedWithoutJniWarnings() {
        assertEquals(-1, service.addTrafficMonitoringDestAddressJni(new String[] {"192.0.2.1", "not valid"}, "b"));
        assertEquals(-1, service.addTrafficMonitoringDestAddressJni(new String[] {"192.0.2.1", null}, "b"));
        assertEquals(-1, service.addTrafficMonitoringDestAddressJni(new String[] {"192.0.2.1"}, null));
        assertEquals(-1, service.addTrafficMonitoringDestAddressJni(new String[] {"fe80::1%eth0"}, "b"));
        assertEquals(-1, service.deleteTrafficMonitoringDestAddressJni(null, null));
        assertEquals(0, GatewaySim.logCount("tcapi_set"));
        // An empty array with a free group: nothing to write.
        assertEquals(0, service.addTrafficMonitoringDestAddressJni(new String[0], "b"));
        assertEquals(0, GatewaySim.logCount("tcapi_set"));
    }

    @Test
    void fiveThousandAddressesReadOnlyTheFirst256() {
        GatewaySim.set("tcapi TrafficMonitoring_PVC0", "bundleName", "big");
        String[] addresses = new String[5000];
        for (int i = 0; i < addresses.length; i++) {
            addresses[i] = "10." + (i / 65536) + "." + (i / 256 % 256) + "." + (i % 256);
        }
        assertEquals(0, service.addTrafficMonitoringDestAddressJni(addresses, "big"));
        assertEquals(256, GatewaySim.logCount("checkIPDomainVaild"));
        assertEquals("10.0.0.255", GatewaySim.get("tcapi TrafficMonitoring_PVC1_Entry0", "destAddressList"));
        assertNull(GatewaySim.get("tcapi TrafficMonitoring_PVC1_Entry1", "destAddressList"));
        String reply = service.getTrafficMonitoringDestAddressInfoJni();
        assertEquals(true, reply.endsWith("\"10.0.0.254\",\"10.0.0.255\"]}]}"));
    }

    @Test
    void theDefaultGatewayMonitorsForOneBundle() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"BundleName\":\"com.lumarest.app.netmeter\",\"DestAddressList\":"
                + "[\"198.51.100.7\",\"cdn.example.net\"]}]}", service.getTrafficMonitoringDestAddressInfoJni());
    }
}
