package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp;
import com.lumarest.smartgateway.commservices.DeviceSecretInfoQueryServiceImp;
import java.io.ByteArrayOutputStream;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import org.junit.jupiter.api.Test;

/**
 * Platform texts are bytes: UTF-8 with characters outside the BMP, or another encoding
 * altogether. Either way the reply must reach Java whole, with the characters Java's own UTF-8
 * decoder would read from those bytes.
 */
class ReplyTextTest extends GatewayTestBase {
    private static final String EMOJI = "\uD83D\uDE00\uD83C\uDFE0";  // U+1F600 U+1F3E0

    private static byte[] concat(byte[]... parts) {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        for (byte[] p : parts) {
            out.write(p, 0, p.length);
        }
        return out.toByteArray();
    }

    @Test
    void emojiInAPlatformTextArrivesAsItsCharacters() {
        String ssid = "Home " + EMOJI + " caf\u00e9";
        GatewaySim.set("secrets", "default_ssid1_name", ssid);
        assertEquals(ssid, new DeviceSecretInfoQueryServiceImp().getDeviceDefaultSSID1NameJni());
    }

    @Test
    void gbkAndEmojiInsideAJsonReplyLeaveTheRestIntact() {
        byte[] gbk = "\u4f60\u597d\u7f51\u7edc".getBytes(Charset.forName("GBK"));
        byte[] vendor = concat("Lumarest ".getBytes(StandardCharsets.UTF_8), gbk,
                (" " + EMOJI).getBytes(StandardCharsets.UTF_8));
        GatewaySim.setBytes("device", "vendor", vendor);
        GatewaySim.set("device", "product_class", "HGU-2000");
        GatewaySim.set("device", "nfc", "NO");

        String expectedVendor = new String(vendor, StandardCharsets.UTF_8);
        assertEquals("{\"Result\":0,\"Vendor\":\"" + expectedVendor + "\",\"ProductCLass\":\"HGU-2000\","
                + "\"HardwareVer\":\"\",\"FirmwareVer\":\"\",\"FlashSize\":0,\"RamSize\":0,"
                + "\"MainChipClass\":\"\",\"NFC\":\"NO\"}",
                new DeviceInfoQueryServiceImp().getDeviceInfoJni());
    }

    @Test
    void strayAndCutSequencesReadAsJavaReadsThem() {
        byte[][] cases = {
            {(byte) 0x80},
            {(byte) 0xC3},
            {(byte) 0xE2, (byte) 0x82},
            {(byte) 0xF0, (byte) 0x9F, (byte) 0x98},
            {(byte) 0xC0, (byte) 0xAF},
            {(byte) 0xE0, (byte) 0x80, (byte) 0x80},
            {(byte) 0xF4, (byte) 0x90, (byte) 0x80, (byte) 0x80},
            {(byte) 0xFF, (byte) 0xFE},
            {(byte) 0xC4, (byte) 0xE3, (byte) 0xBA, (byte) 0xC3},
        };
        DeviceInfoQueryServiceImp service = new DeviceInfoQueryServiceImp();
        for (byte[] bad : cases) {
            byte[] mac = concat("<".getBytes(StandardCharsets.UTF_8), bad, ">".getBytes(StandardCharsets.UTF_8));
            GatewaySim.setBytes("device", "mac", mac);
            assertEquals(new String(mac, StandardCharsets.UTF_8), service.getDeviceMACJni());
        }
    }
}
