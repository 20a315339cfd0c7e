package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.accessservices.AccessInfoQueryServiceImp;
import org.junit.jupiter.api.Test;

class AccessInfoQueryServiceTest extends GatewayTestBase {
    private final AccessInfoQueryServiceImp service = new AccessInfoQueryServiceImp();

    @Test
    void ponLineOfTheDefaultGateway() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"TXPower\":2310,\"RXPower\":-1870,\"TransceiverTemperature\":47,"
                + "\"SupplyVottage\":3285,\"BiasCurrent\":12}", service.getPONIfPhyStatusJni());
        assertEquals(172800, service.getPONIfUpTimeJni());
        assertEquals("{\"Result\":0,\"RegisterStatus\":\"REG_AUTH\"}", service.getPONIfRegisterStatusJni());
        assertEquals("{\"Result\":0,\"UsStats\":81234567890,\"DsStats\":912345678901}",
                service.getUplinkIfStatsJni());
        assertEquals("brelo_ponGetIfPhyStatusInfo()\nbrelo_ponGetDuration()\nbrelo_ponGetRegInfo()\n"
                + "brelo_ponGetUplinkIfStats()\n", GatewaySim.log());
    }

    @Test
    void registrationCodeOutsideTheTableIsEmpty() {
        GatewaySim.programResult("brelo_ponGetRegInfo", 3);
        assertEquals("{\"Result\":0,\"RegisterStatus\":\"\"}", service.getPONIfRegisterStatusJni());
    }

    @Test
    void wanListOfTheDefaultGateway() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"1_TR069_R_VID_46\"},"
                + "{\"Index\":2,\"Name\":\"2_INTERNET_R_VID_41\"},"
                + "{\"Index\":3,\"Name\":\"3_OTHER_B_VID_45\"},"
                + "{\"Index\":4,\"Name\":\"4_INTERNET_R_VID_43\"}]}", service.getWANIfListJni());
        assertEquals(2, service.getInternetWANIndexJni());
    }

    @Test
    void wanListWithAnIndexOutsideOneToEight() {
        GatewaySim.set("wan 2", "PVC", "1");
        GatewaySim.set("wan 2", "Name", "w2");
        GatewaySim.set("wan 12", "PVC", "11");
        assertEquals("{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"w2\"},]}", service.getWANIfListJni());
    }

    @Test
    void countersBandwidthAndStatus() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"UsStats\":81234567890,\"DsStats\":912345678901}",
                service.getWANIfStatsJni(2));
        assertEquals("{\"Result\":-1,\"FailReason\":\"parameter error\"}", service.getWANIfStatsJni(8));
        assertEquals("{\"Result\":0,\"UsBandwidth\":\"2048\",\"DsBandwidth\":\"2048\"}",
                service.getWanIfBandwidthJni(1));
        assertEquals("{\"Result\":-1,\"FailReason\":\"parameter WanIndex must greater than 1\"}",
                service.getWanIfBandwidthJni(0));
        assertEquals("{\"Result\":0,\"Uptime\":\"3550\",\"ConnectionStatus\":\"Disconnected\","
                + "\"IPv6ConnStatus\":\"Connected\",\"LastConnectionError\":\"ERROR_ISP_TIME_OUT\"}",
                service.getWANIfStatusJni(4));
        assertEquals("{\"Result\":-1,\"FailReason\":\"parameter error\"}", service.getWANIfStatusJni(9));
    }

    @Test
    void informationOfTheManagementWan() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"LanInterface\":\"\",\"VLANMode\":\"2\",\"VLANIDMark\":\"46\","
                + "\"802-1pMark\":\"6\",\"MulticastVlan\":\"-1\",\"LanInterface-DHCPEnable\":\"FALSE\","
                + "\"IPMode\":\"1\",\"ConnectionType\":\"IP_Routed\",\"NATEnabled\":\"FALSE\","
                + "\"Username\":\"\",\"AddressingType\":\"DHCP\",\"ExternalIPAddress\":\"10.46.18.77\","
                + "\"SubnetMask\":\"255.255.240.0\",\"DefaultGateway\":\"10.46.16.1\","
                + "\"DNSEnabled\":\"TRUE\",\"DNSServers\":\"10.46.0.53,10.46.0.54\","
                + "\"MACAddress\":\"00:1A:2B:3C:4D:61\",\"ConnectionTrigger\":\"AlwaysOn\","
                + "\"IPv6IPAddressOrigin\":\"None\",\"IPv6IPAddress\":\"\",\"IPv6DNSServers\":\"\","
                + "\"IPv6PrefixDelegationEnabled\":\"FALSE\",\"IPv6PrefixOrigin\":\"None\","
                + "\"IPv6Prefix\":\"\",\"IPv6PrefixPltime\":\"0\",\"IPv6PrefixVltime\":\"0\","
                + "\"IPv6DefaultGateway\":\"\",\"IPv6DsliteEnable\":\"FALSE\",\"IPv6AftrMode\":\"0\","
                + "\"IPv6AftrAddress\":\"\",\"ServiceList\":\"TR069\"}", service.getWANIfInfoJni(1));
        assertEquals("{\"Result\":-1,\"FailReason\":\"parameter error\"}", service.getWANIfInfoJni(7));
    }

    @Test
    void platformTextsThatAreNotUtf8SurviveTheReply() {
        GatewaySim.set("wan 1", "PVC", "0");
        GatewaySim.setBytes("wan 1", "Username", new byte[] {'a', (byte) 0xff, 'b'});
        String reply = service.getWANIfInfoJni(1);
        assertEquals(true, reply.contains("\"Username\":\"a\uFFFDb\""), reply);
    }
}
