package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;
import com.lumarest.smartgateway.lanservices.LanNetworkAccessConfigServiceImp;
import org.junit.jupiter.api.Test;

class LanNetworkAccessConfigServiceTest extends GatewayTestBase {
    private final LanNetworkAccessConfigServiceImp service = new LanNetworkAccessConfigServiceImp();
    private final LANHostsInfoQueryServiceImp hosts = new LANHostsInfoQueryServiceImp();

    @Test
    void aBlackListedHostMovesToTheBlockClass() {
        defaultGateway();
        String mac = "A4:77:33:C1:5D:90";
        assertTrue(hosts.getLANHostInfoByClassJni("ONLINE").contains(mac));
        assertEquals(0, service.addLANHostToBlackListJni(new String[] {mac}));
        assertTrue(!hosts.getLANHostInfoByClassJni("ONLINE").contains(mac));
        assertTrue(hosts.getLANHostInfoByClassJni("BLOCK").contains("{\"Class\":\"BLOCK\",\"MAC\":\"" + mac + "\""));
        assertEquals(0, service.deleteLANHostFromBlackListJni(new String[] {mac}));
        assertTrue(hosts.getLANHostInfoByClassJni("ONLINE").contains(mac));
    }

    @Test
    void trustListNeedsTheTrustModeToRemove() {
        defaultGateway();
        assertEquals(0, service.addLANHostToTrustListJni(new String[] {"00:E0:4C:68:01:A2"}));
        assertEquals(-1, service.deleteLANHostFromTrustListJni(new String[] {"00:E0:4C:68:01:A2"}));
        assertEquals(0, service.setMacFilterModeJni(2));
        assertEquals(0, service.deleteLANHostFromTrustListJni(new String[] {"00:E0:4C:68:01:A2"}));
        assertEquals(2, hosts.getMacFilterModeJni());
    }

    @Test
    void storageBlackList() {
        defaultGateway();
        assertEquals(0, service.addLANHostToStorageBlackListJni(new String[] {"00:E0:4C:68:01:A2"}));
        assertTrue(hosts.getLANHostInfoByMACJni(new String[] {"00:E0:4C:68:01:A2"})
                .endsWith("\"StorageAccessStatus\":\"OFF\"}]}"));
        assertEquals(0, service.deleteLANHostFromStorageBlackListJni(new String[] {"00:E0:4C:68:01:A2"}));
        assertEquals(-1, service.addLANHostToBlackListJni(new String[] {"00:E0:4C:68:01:A2", ""}));
    }
}
