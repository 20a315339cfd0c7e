package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.StaticLayer3ForwardingConfigServiceImp;
import com.lumarest.smartgateway.transferservices.TransferQueryServiceImp;
import org.junit.jupiter.api.Test;

class StaticLayer3ForwardingConfigServiceTest extends GatewayTestBase {
    private final StaticLayer3ForwardingConfigServiceImp service = new StaticLayer3ForwardingConfigServiceImp();
    private final TransferQueryServiceImp query = new TransferQueryServiceImp();

    @Test
    void addedIpv4RouteIsListedAndDeleted() {
        defaultGateway();
        assertEquals(2, service.addLayer3ForwardingStaticJni("10.30.0.0", "255.255.0.0", "192.168.1.254", "br0"));
        assertTrue(query.getLayer3ForwardingStaticConfigInfoJni().endsWith(
                "{\"Index\":\"2\",\"DestIPAddress\":\"10.30.0.0\",\"DestSubnetMask\":\"255.255.0.0\","
                + "\"GatewayIPAddress\":\"192.168.1.254\",\"Interface\":\"br0\"}]}"));
        assertEquals(0, service.deleteLayer3ForwardingStaticJni(2));
        assertEquals(-1, service.deleteLayer3ForwardingStaticJni(2));
        assertEquals("brelo_routeAddIp4ForwardingStatic(\"10.30.0.0\", \"255.255.0.0\", \"192.168.1.254\", \"br0\")\n"
                + "brelo_routeinfoGetLayer3ForwardingStaticConfig(0)\n"
                + "brelo_routeDeleteIp4ForwardingStatic(2)\nbrelo_routeDeleteIp4ForwardingStatic(2)\n",
                GatewaySim.log());
    }

    @Test
    void addedIpv6RouteIsListedAndDeleted() {
        assertEquals(1, service.addIPv6Layer3ForwardingStaticJni("2001:db8:40::/48", "fe80::2", "br0"));
        assertEquals("{\"Result\":0,\"List\":[{\"Index\":\"1\",\"DestIPPrefix\":\"2001:db8:40::/48\","
                + "\"NextHop\":\"fe80::2\",\"Interface\":\"br0\"}]}", query.getIPv6Layer3ForwardingStaticConfigInfoJni());
        assertEquals(0, service.deleteIPv6Layer3ForwardingStaticJni(1));
    }

    @Test
    void nullTextsAndRouteIdsOutsideOneToSixteenMakeNoCall() {
        assertEquals(-1, service.addLayer3ForwardingStaticJni(null, "255.0.0.0", "", "br0"));
        assertEquals(-1, service.addLayer3ForwardingStaticJni("10.0.0.0", "255.0.0.0", "", null));
        assertEquals(-1, service.addIPv6Layer3ForwardingStaticJni("2001:db8::/32", null, "br0"));
        for (int id : new int[] {0, 17, -1}) {
            assertEquals(-1, service.deleteLayer3ForwardingStaticJni(id));
            assertEquals(-1, service.deleteIPv6Layer3ForwardingStaticJni(id));
        }
        assertEquals("", GatewaySim.log());
        GatewaySim.programResult("brelo_routeDeleteIp4ForwardingStatic", 9);
        assertEquals(9, service.deleteLayer3ForwardingStaticJni(16));
    }
}
