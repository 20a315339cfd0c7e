package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceSecretInfoQueryServiceImp;
import org.junit.jupiter.api.Test;

class DeviceSecretInfoQueryServiceTest extends GatewayTestBase {
    private final DeviceSecretInfoQueryServiceImp service = new DeviceSecretInfoQueryServiceImp();

    @Test
    void labelTextsOfTheDefaultGateway() {
        defaultGateway();
        assertEquals("001A2B", service.getDeviceManufacturerOUIJni());
        assertEquals("LMR2000A1B2C3D4", service.getDeviceSerialNumberJni());
        assertEquals("Lmr@8x2k", service.getDeviceDefaultWebPasswordJni());
        assertEquals("LMR-3C4D5E", service.getDeviceDefaultSSID1NameJni());
        assertEquals("k9w2hq7z", service.getDeviceDefaultSSID1PasswordJni());
        assertEquals("useradmin", service.getDevicePasswordJni());
        assertEquals("brelo_devInfoGetManufacturerOUI()\nbrelo_devInfoGetSerialNumber()\n"
                + "brelo_devInfoGetDefaultWebPasswd(256)\nbrelo_wlanGetDefaultSSIDName(256)\n"
                + "brelo_wlanGetDefaultSSIDPasswd(256)\nbrelo_devInfoGetPasswd()\n", GatewaySim.log());
    }

    @Test
    void anEmptyPlatformGivesEmptyTexts() {
        assertEquals("", service.getDeviceManufacturerOUIJni());
        assertEquals("", service.getDeviceSerialNumberJni());
        assertEquals("", service.getDeviceDefaultWebPasswordJni());
        assertEquals("", service.getDeviceDefaultSSID1NameJni());
        assertEquals("", service.getDeviceDefaultSSID1PasswordJni());
        assertEquals("", service.getDevicePasswordJni());
    }

    @Test
    void serialNumberOf128CharactersIsWhole() {
        StringBuilder serial = new StringBuilder();
        for (int i = 0; i < 128; i++) {
            serial.append((char) ('A' + i % 26));
        }
        GatewaySim.set("secrets", "serial_number", serial.toString());
        assertEquals(serial.toString(), service.getDeviceSerialNumberJni());
    }
}
