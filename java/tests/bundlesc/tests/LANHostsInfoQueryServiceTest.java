package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;
import org.junit.jupiter.api.Test;

class LANHostsInfoQueryServiceTest extends GatewayTestBase {
    private final LANHostsInfoQueryServiceImp service = new LANHostsInfoQueryServiceImp();

    private static final String STUDY_PC = "{\"Class\":\"ONLINE\",\"MAC\":\"00:E0:4C:68:01:A2\","
            + "\"DhcpName\":\"desktop-study\",\"DeviceName\":\"Study PC\","
            + "\"IP\":\"192.168.1.2,2001:db8:1::2\",\"ConnectInterface\":\"LAN1\","
            + "\"OnlineTime\":\"86011\",\"StorageAccessStatus\":\"ON\"}";

    @Test
    void gatewayNameAndFilterMode() {
        defaultGateway();
        assertEquals("Lumarest-HGU", service.getGatewayNameJni());
        assertEquals(1, service.getMacFilterModeJni());
        assertEquals("brelo_sysGetGatewayName(1024)\nbrelo_lanGetFilterMode()\n", GatewaySim.log());
    }

    @Test
    void hostsByMac() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[" + STUDY_PC + "]}",
                service.getLANHostInfoByMACJni(new String[] {"00:e0:4c:68:01:a2"}));
        assertEquals("{\"Result\":0,\"List\":[]}", service.getLANHostInfoByMACJni(new String[0]));
    }

    @Test
    void threeHundredMacsAreReadWithoutPilingUpLocalReferences() {
        // -Xcheck:jni warns once a native holds more local references than it reserved; the
        // array reader deletes each element's reference as it goes. Only the first 256 count.
        defaultGateway();
        String[] macs = new String[300];
        for (int i = 0; i < macs.length; i++) {
            macs[i] = String.format("02:00:00:00:%02X:%02X", i / 256, i % 256);
        }
        macs[299] = "00:E0:4C:68:01:A2";
        assertEquals("{\"Result\":0,\"List\":[]}", service.getLANHostInfoByMACJni(macs));
        macs[255] = "00:E0:4C:68:01:A2";
        assertEquals("{\"Result\":0,\"List\":[" + STUDY_PC + "]}", service.getLANHostInfoByMACJni(macs));
    }

    @Test
    void hostsByInterface() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[" + STUDY_PC + "]}", service.getLANHostInfoByInterfaceJni("LAN1"));
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getLANHostInfoByInterfaceJni("ssid3"));
        assertEquals("brelo_lanGethostInfobytype(\"1\", 5)\n", GatewaySim.log());
    }

    @Test
    void hostsByClass() {
        defaultGateway();
        String online = service.getLANHostInfoByClassJni("online");
        assertTrue(online.startsWith("{\"Result\":0,\"List\":[" + STUDY_PC + ",{\"Class\":\"ONLINE\""), online);
        String blocked = service.getLANHostInfoByClassJni("BLOCK");
        assertTrue(blocked.contains("\"MAC\":\"3C:5A:B4:10:22:07\"") && blocked.contains("\"MAC\":\"DC:A6:32:55:9E:01\""),
                blocked);
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getLANHostInfoByClassJni("blocked"));
        // A name that is not UTF-8 on the gateway reaches Java repaired.
        String offline = service.getLANHostInfoByClassJni("OFFLINE");
        assertTrue(offline.contains("\"DeviceName\":\"Caf\uFFFD NAS\""), offline);
    }

    @Test
    void statsAndLimits() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"UsStats\":1203344512 ,\"DsStats\":98877120334}]}",
                service.getLANHostStatsJni(new String[] {"00:E0:4C:68:01:A2"}));
        assertEquals("{\"Result\":0,\"List\":[{\"UpSpeed\":2048,\"DownSpeed\":20480}]}",
                service.getLANHostSpeedLimitInfoJni(new String[] {"F0:18:98:4B:7E:21"}));
        GatewaySim.programResult("brelo_lanGethostStatsAndSpeedByMacAddr", -1);
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getLANHostStatsJni(new String[] {"x"}));
    }
}
