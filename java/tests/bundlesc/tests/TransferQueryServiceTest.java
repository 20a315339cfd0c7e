package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TransferQueryServiceImp;
import org.junit.jupiter.api.Test;

class TransferQueryServiceTest extends GatewayTestBase {
    private final TransferQueryServiceImp service = new TransferQueryServiceImp();

    @Test
    void listsTheDefaultGatewaysBindingsAndRoutes() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"LanInterface\":\"LAN1\",\"Bind\":\"100/10\"},"
                + "{\"LanInterface\":\"SSID1\",\"Bind\":\"200/20\"}]}", service.getVLANBindInfoJni());
        assertEquals("{\"Result\":0,\"List\":[{\"Index\":\"1\",\"DestIPAddress\":\"10.20.0.0\","
                + "\"DestSubnetMask\":\"255.255.0.0\",\"GatewayIPAddress\":\"192.168.1.254\",\"Interface\":\"br0\"}]}",
                service.getLayer3ForwardingStaticConfigInfoJni());
        assertTrue(service.getLayer3ForwardingCurrentJni().startsWith(
                "{\"Result\":0,\"List\":[{\"Index\":\"101\",\"DestIPAddress\":\"0.0.0.0\""));
        assertEquals("{\"Result\":0,\"List\":[{\"Index\":\"1\",\"DestIPPrefix\":\"2001:db8:20::/48\","
                + "\"NextHop\":\"fe80::1\",\"Interface\":\"br0\"}]}",
                service.getIPv6Layer3ForwardingStaticConfigInfoJni());
        assertTrue(service.getIPv6Layer3ForwardingCurrentJni().startsWith(
                "{\"Result\":0,\"List\":[{\"Index\":\"101\",\"DestIPPrefix\":\"::/0\""));
        assertEquals("IPTV_BUSSINESS_OK", service.getIPTVStatusJni());
    }

    @Test
    void emptyTablesAreFailuresAndStatusesOutsideTheTableEmpty() {
        assertEquals("{\"Result\":-1}", service.getVLANBindInfoJni());
        assertEquals("{\"Result\":-1}", service.getLayer3ForwardingCurrentJni());
        assertEquals("{\"Result\":-1}", service.getIPv6Layer3ForwardingCurrentJni());
        GatewaySim.set("iptv", "status", "3");
        assertEquals("IPTV_BUSSINESS_NOK", service.getIPTVStatusJni());
        GatewaySim.set("iptv", "status", "5");
        assertEquals("", service.getIPTVStatusJni());
        GatewaySim.set("iptv", "status", "-1");
        assertEquals("", service.getIPTVStatusJni());
    }

    @Test
    void aLongTableIsListedWhole() {
        GatewaySim.set("ipv4 current route 7", "dest", "10.1.2.0");
        GatewaySim.set("ipv4 current route 7", "mask", "255.255.255.0");
        GatewaySim.set("ipv4 current route 7", "interface", "br0");
        GatewaySim.set("ipv4 current route 7", "repeat", "10000");
        String reply = service.getLayer3ForwardingCurrentJni();
        String one = "{\"Index\":\"7\",\"DestIPAddress\":\"10.1.2.0\",\"DestSubnetMask\":\"255.255.255.0\","
                + "\"GatewayIPAddress\":\"\",\"Interface\":\"br0\"}";
        assertEquals("{\"Result\":0,\"List\":[".length() + 10000 * one.length() + 9999 + 2, reply.length());
        assertTrue(reply.endsWith(one + "]}"));
    }
}
