package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.WlanQueryServiceImp;
import java.nio.charset.StandardCharsets;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

class WlanQueryServiceTest extends GatewayTestBase {
    private final WlanQueryServiceImp service = new WlanQueryServiceImp();

    @BeforeEach
    void gateway() {
        defaultGateway();
    }

    /** What Java's own UTF-8 decoder makes of a neighbour's SSID bytes, escaped for JSON. */
    private static String ssidAsJava(int neighbour) {
        byte[] bytes = GatewaySim.getBytes("wlan neighbour " + neighbour, "ssid");
        String decoded = new String(bytes, StandardCharsets.UTF_8);
        return decoded.replace("\\", "\\\\").replace("\"", "\\\"").replace("/", "\\/");
    }

    private static String neighbour(int n, String bssid, int channel, int rssi, String standard) {
        return "{\"SSIDName\":\"" + ssidAsJava(n) + "\",\"BSSID\":\"" + bssid + "\",\"NetworkType\":\"AP\","
                + "\"Channel\":" + channel + ",\"RSSI\":\"" + rssi + "\",\"Standard\":\"" + standard + "\"}";
    }

    @Test
    void neighbourListWithQuoteEmojiAndNonUtf8SsidsIsIntact() {
        String reply = service.getWLANNeighborJni("2.4G");
        assertEquals("{\"Result\":0,\"List\":["
                + neighbour(1, "3C:84:6A:11:22:33", 1, -61, "11bgn") + ","
                + neighbour(2, "70:4F:57:AA:BB:CC", 11, -74, "11n") + ","
                + neighbour(3, "5C:E9:31:01:02:03", 6, -80, "11g") + ","
                + neighbour(4, "00:0F:66:10:20:30", 3, -88, "11b") + "]}", reply);
        assertTrue(reply.contains("Joe's \\\"Home\\\" AP"), reply);
        assertTrue(reply.contains("Caf\u00e9 \uD83D\uDCF6 WiFi"), reply);
        assertTrue(reply.contains("Old\uFFFDRouter\uFFFD"), reply);
        assertEquals("brelo_wlanGetNeighbor(0)\n", GatewaySim.log());
    }

    @Test
    void neighboursOfTheOtherRadio() {
        String five = "{\"Result\":0,\"List\":[" + neighbour(5, "8C:3B:AD:44:55:66", 36, -67, "11ac") + "]}";
        assertEquals(five, service.getWLANNeighborJni("5G"));
        assertEquals(five, service.getWLANNeighborJni(null));
        assertEquals(five, service.getWLANNeighborJni("2.4g"));
        GatewaySim.programResult("brelo_wlanGetNeighbor", -1);
        assertEquals("{\"Result\":-1,\"FailReason\":\"getWLANNeighbor Error\"}", service.getWLANNeighborJni(""));
    }

    @Test
    void aFullNeighbourListOfQuotesAndBackslashesIsWhole() {
        StringBuilder name = new StringBuilder();
        for (int i = 0; i < 127; i++) {
            name.append(i % 2 == 0 ? '"' : '\\');
        }
        for (int n = 1; n <= 128; n++) {
            GatewaySim.set("wlan neighbour x" + n, "radio", "1");
            GatewaySim.set("wlan neighbour x" + n, "ssid", name.toString());
        }
        String reply = service.getWLANNeighborJni("5G");
        String escaped = name.toString().replace("\\", "\\\\").replace("\"", "\\\"");
        String item = "{\"SSIDName\":\"" + escaped + "\",\"BSSID\":\"\",\"NetworkType\":\"AP\","
                + "\"Channel\":0,\"RSSI\":\"0\",\"Standard\":\"11bg\"}";
        StringBuilder expected = new StringBuilder("{\"Result\":0,\"List\":[");
        expected.append(neighbour(5, "8C:3B:AD:44:55:66", 36, -67, "11ac"));
        for (int n = 1; n <= 127; n++) {
            expected.append(',').append(item);
        }
        assertEquals(expected.append("]}").toString(), reply);
        assertTrue(reply.endsWith("\"Standard\":\"11bg\"}]}"), reply.substring(reply.length() - 80));
    }

    @Test
    void ssidInformationAndCounters() {
        assertEquals("{\"Result\":0,\"Enable\":\"TRUE\",\"BSSID\":\"00:1A:2B:3C:4D:5F\",\"SSIDName\":\"LMR-3C4D5E\","
                + "\"SSIDAdvertisementEnabled\":\"TRUE\",\"Standard\":\"11bgn\",\"EncryptionMode\":\"MIXED-WPAPSK2\"}",
                service.getWLANSSIDInfoJni(1));
        assertTrue(service.getWLANSSIDInfoJni(2).contains("\"SSIDAdvertisementEnabled\":\"FALSE\""));
        assertEquals("{\"Result\":-1,\"FailReason\":\"getWLANSSIDInfo Error\"}", service.getWLANSSIDInfoJni(4));
        assertEquals("{\"Result\":0,\"TotalBytesSent\":4026531840,\"TotalBytesReceived\":987654321,"
                + "\"TotalPacketsSent\":3100000,\"TotalPacketsReceived\":2800000,\"ErrorsSent\":3,"
                + "\"ErrorsReceived\":7,\"DiscardPacketsSent\":0,\"DiscardPacketsReceived\":12}",
                service.getWLANSSIDStatsJni(1));
        assertEquals("{\"Result\":-1,\"FailReason\":\"getWLANSSIDStats Error\"}", service.getWLANSSIDStatsJni(9));
    }

    @Test
    void wpsStatusAndRadioSwitch() {
        assertEquals(0, service.getWLANWPSStatusJni(1));
        assertEquals(-1, service.getWLANWPSStatusJni(4));
        assertTrue(service.getWLANHardwareSwitchJni("2.4G"));
        assertFalse(service.getWLANHardwareSwitchJni("6G"));
        assertFalse(service.getWLANHardwareSwitchJni(null));
    }

    @Test
    void radioInformation() {
        assertEquals("{\"Result\":0,\"Channel\":6,\"AutoChannelEnable\":\"TRUE\","
                + "\"ChannelsInUse\":\"1,2,3,4,5,6,7,8,9,10,11,12,13\",\"TransmitPower\":\"100\","
                + "\"FrequencyWidth\":\"Auto20M40M\"}", service.getWLANRadioInfoJni("2.4G"));
        assertEquals("{\"Result\":0,\"Channel\":149,\"AutoChannelEnable\":\"FALSE\","
                + "\"ChannelsInUse\":\"52,56,60,64,149,153,157,160\",\"TransmitPower\":\"80\","
                + "\"FrequencyWidth\":\"Auto20M40M80M\"}", service.getWLANRadioInfoJni(null));
    }

    @Test
    void stationsAllOrByMac() {
        String all = service.getWLANHostInfoJni(new String[0]);
        assertTrue(all.startsWith("{\"Result\":0,\"List\":[{\"SSIDIndex\":1,\"SSIDName\":\"LMR-3C4D5E\","
                + "\"MAC\":\"A4:5E:60:C1:22:9B\",\"RSSI\":\"-45\",\"RxRate\":\"0\",\"TxRate\":\"0\","
                + "\"Standard\":\"11bgn\"},"), all);
        assertEquals(4, all.split("\"SSIDIndex\"", -1).length - 1);
        assertEquals(all, service.getWLANHostInfoJni(null));
        assertEquals("{\"Result\":0,\"List\":[{\"SSIDIndex\":5,\"SSIDName\":\"LMR-3C4D5E-5G\","
                + "\"MAC\":\"F0:18:98:6A:3B:04\",\"RSSI\":\"-39\",\"RxRate\":\"0\",\"TxRate\":\"0\","
                + "\"Standard\":\"11ac\"},{\"SSIDIndex\":0,\"SSIDName\":\"\",\"MAC\":\"\",\"RSSI\":\"0\","
                + "\"RxRate\":\"0\",\"TxRate\":\"0\",\"Standard\":\"\"}]}",
                service.getWLANHostInfoJni(new String[] {"f0:18:98:6a:3b:04", "11:22:33:44:55:66"}));
        assertEquals(all, service.getWLANHostInfoJni(new String[] {"", ""}));
    }

    @Test
    void guestSsids() {
        assertEquals("{\"Result\":0,\"List\":[{\"SSIDIndex\":3,\"Duration\":240,\"PortIsolation\":\"TRUE\","
                + "\"RemainDuration\":135}]}", service.getGuestSSIDInfoJni());
        GatewaySim.reset();
        assertEquals("{\"Result\":0,\"List\":[]}", service.getGuestSSIDInfoJni());
    }
}
