package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.WlanConfigServiceImp;
import com.lumarest.smartgateway.lanservices.WlanQueryServiceImp;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;

class WlanConfigServiceTest extends GatewayTestBase {
    private final WlanConfigServiceImp config = new WlanConfigServiceImp();
    private final WlanQueryServiceImp query = new WlanQueryServiceImp();

    @BeforeEach
    void gateway() {
        defaultGateway();
    }

    @Test
    void ssidSwitchAndAdvertisementShowInTheSsidInformation() {
        assertEquals(0, config.setWLANSSIDSwitchJni(2, false));
        assertEquals(0, config.setWLANSSIDAdvertisementJni(2, true));
        String info = query.getWLANSSIDInfoJni(2);
        assertTrue(info.startsWith("{\"Result\":0,\"Enable\":\"FALSE\","), info);
        assertTrue(info.contains("\"SSIDAdvertisementEnabled\":\"TRUE\""), info);
        assertEquals(-1, config.setWLANSSIDSwitchJni(42, true));
        assertEquals("brelo_wlansetWLANSSIDSwitch(2, 0)\nbrelo_wlanSetSSIDAdvertisement(2, 1)\n"
                + "brelo_wlanGetSSIDInfo(2)\nbrelo_wlansetWLANSSIDSwitch(42, 1)\n", GatewaySim.log());
    }

    @Test
    void radioSwitchHandsOnThePlatformsCode() {
        assertEquals(0, config.setWLANHardwareSwitchJni("5G", false));
        assertEquals(false, query.getWLANHardwareSwitchJni("5G"));
        assertEquals(-1, config.setWLANHardwareSwitchJni(null, true));
        assertEquals(-1, config.setWLANHardwareSwitchJni("", true));
        GatewaySim.programResult("brelo_wlanSetWLANRadioSwitch", 7);
        assertEquals(7, config.setWLANHardwareSwitchJni("2.4G", true));
    }

    @Test
    void securityChangesNameEncryptionAndPassword() {
        assertEquals(0, config.setWLANSSIDSecurityJni(1, "Home", "WPAPSK2", "n3w-pass"));
        String info = query.getWLANSSIDInfoJni(1);
        assertTrue(info.contains("\"SSIDName\":\"Home\""), info);
        assertTrue(info.contains("\"EncryptionMode\":\"WPAPSK2\""), info);
        assertEquals("n3w-pass", GatewaySim.get("wlan ssid 1", "password"));
    }

    @Test
    void securityWithoutEncryptionOrPasswordFallsBack() {
        assertEquals(0, config.setWLANSSIDSecurityJni(1, "Home", null, "pw-one"));
        assertEquals("4", GatewaySim.get("wlan ssid 1", "encryption"));
        assertEquals(0, config.setWLANSSIDSecurityJni(1, "Home", "", "pw-two"));
        assertEquals(0, config.setWLANSSIDSecurityJni(1, "Home", "OPEN", null));
        assertEquals(-1, config.setWLANSSIDSecurityJni(1, null, "OPEN", "x"));
        assertEquals("brelo_wlanSetSecurity(1, \"Home\", \"MIXED-WPAPSK2\", \"pw-one\")\n"
                + "brelo_wlanSetSecurity(1, \"Home\", \"MIXED-WPAPSK2\", \"pw-two\")\n"
                + "brelo_wlanSetSecurity(1, \"Home\", \"OPEN\", \"\")\n", GatewaySim.log());
    }

    @Test
    void radioSettingsShowInTheRadioInformation() {
        assertEquals(0, config.setWLANStandardJni("5G", "11na"));
        assertEquals(0, config.setWLANRadioChannelJni("5G", 157));
        assertEquals(0, config.setWLANRadioPowerJni("5G", 40));
        assertEquals(0, config.setWLANRadioFrequencyWidthJni("5G", "40M"));
        assertEquals("{\"Result\":0,\"Channel\":157,\"AutoChannelEnable\":\"FALSE\","
                + "\"ChannelsInUse\":\"52,56,60,64,149,153,157,160\",\"TransmitPower\":\"40\","
                + "\"FrequencyWidth\":\"40M\"}", query.getWLANRadioInfoJni("5G"));
        assertTrue(query.getWLANSSIDInfoJni(5).contains("\"Standard\":\"11na\""));
    }

    @Test
    void refusedOrUnreadableRadioSettingsAreMinusOne() {
        assertEquals(-1, config.setWLANStandardJni("5G", "11zz"));
        assertEquals(-1, config.setWLANStandardJni(null, "11n"));
        assertEquals(-1, config.setWLANStandardJni("5G", null));
        assertEquals(-1, config.setWLANRadioChannelJni(null, 6));
        assertEquals(-1, config.setWLANRadioPowerJni("2.4G", 55));
        assertEquals(-1, config.setWLANRadioPowerJni(null, 60));
        assertEquals(-1, config.setWLANRadioFrequencyWidthJni("2.4G", null));
        assertEquals(-1, config.setWLANRadioFrequencyWidthJni("", ""));
    }

    @Test
    void wpsStartAndStop() {
        assertEquals(0, config.startWLANWPSJni(5));
        assertEquals(1, query.getWLANWPSStatusJni(5));
        assertEquals(0, config.stopWLANWPSJni(5));
        assertEquals(0, query.getWLANWPSStatusJni(5));
        GatewaySim.programResult("brelo_wlanstartWLANWPS", -4);
        assertEquals(-4, config.startWLANWPSJni(5));
        GatewaySim.programResult("brelo_wlanstartWLANWPS", 9);
        assertEquals(-100, config.startWLANWPSJni(5));
        GatewaySim.programResult("brelo_wlanstopWLANWPS", -3);
        assertEquals(-1, config.stopWLANWPSJni(5));
    }

    @Test
    void guestSsidAddTuneAndDelete() {
        assertEquals(0, config.addWLANGuestSSIDJni(6));
        assertEquals(0, config.setWLANGuestPortIsolationJni(6, true));
        assertEquals(0, config.setWLANGuestDurationJni(6, 30));
        assertEquals("{\"Result\":0,\"List\":[{\"SSIDIndex\":3,\"Duration\":240,\"PortIsolation\":\"TRUE\","
                + "\"RemainDuration\":135}{\"SSIDIndex\":6,\"Duration\":30,\"PortIsolation\":\"TRUE\","
                + "\"RemainDuration\":30}]}", query.getGuestSSIDInfoJni());
        assertEquals(-1, config.addWLANGuestSSIDJni(2));  // both guest slots taken
        assertEquals(0, config.deleteWLANGuestSSIDJni(3));
        assertEquals(-1, config.deleteWLANGuestSSIDJni(3));
        assertEquals("{\"Result\":0,\"List\":[{\"SSIDIndex\":6,\"Duration\":30,\"PortIsolation\":\"TRUE\","
                + "\"RemainDuration\":30}]}", query.getGuestSSIDInfoJni());
        GatewaySim.programResult("brelo_wlansetGuestDuration", -8);
        assertEquals(-8, config.setWLANGuestDurationJni(6, 10));
    }
}
