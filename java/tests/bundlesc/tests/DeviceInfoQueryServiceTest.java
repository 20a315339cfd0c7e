package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp;
import org.junit.jupiter.api.Test;

class DeviceInfoQueryServiceTest extends GatewayTestBase {
    private final DeviceInfoQueryServiceImp service = new DeviceInfoQueryServiceImp();

    @Test
    void deviceInfoOfTheDefaultGateway() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"Vendor\":\"Lumarest\",\"ProductCLass\":\"HGU-2000\","
                + "\"HardwareVer\":\"HV1.2\",\"FirmwareVer\":\"FW3.4.10\",\"FlashSize\":256,"
                + "\"RamSize\":512,\"MainChipClass\":\"MIPS 1004Kc\",\"NFC\":\"NO\"}",
                service.getDeviceInfoJni());
        assertEquals("brelo_deviceGetInfo()\n", GatewaySim.log());
    }

    @Test
    void deviceInfoOfAnEmptyPlatform() {
        assertEquals("{\"Result\":0,\"Vendor\":\"\",\"ProductCLass\":\"\",\"HardwareVer\":\"\","
                + "\"FirmwareVer\":\"\",\"FlashSize\":0,\"RamSize\":0,\"MainChipClass\":\"\","
                + "\"NFC\":\"\"}", service.getDeviceInfoJni());
    }

    @Test
    void macUptimeAndLoad() {
        GatewaySim.set("device", "mac", "00:1A:2B:3C:4D:5E");
        GatewaySim.set("device", "uptime", "86400");
        GatewaySim.set("device", "cpu_occupancy", "12");
        GatewaySim.set("device", "ram_occupancy", "41");
        assertEquals("00:1A:2B:3C:4D:5E", service.getDeviceMACJni());
        assertEquals(86400, service.getDeviceUpTimeJni());
        assertEquals(12, service.getCPUOccupancyRateJni());
        assertEquals(41, service.getRAMOccupancyRateJni());
        assertEquals("brelo_deviceGetMac()\nbrelo_deviceGetUpTime()\n"
                + "brelo_deviceGetCPUOccupancyRate()\nbrelo_deviceGetRAMOccupancyRate()\n",
                GatewaySim.log());
    }

    @Test
    void integersArePassedThroughUnchanged() {
        GatewaySim.programResult("brelo_deviceGetUpTime", -5);
        GatewaySim.programResult("brelo_deviceGetCPUOccupancyRate", 250);
        assertEquals(-5, service.getDeviceUpTimeJni());
        assertEquals(250, service.getCPUOccupancyRateJni());
    }

    @Test
    void fixedIdentities() {
        assertEquals("{\"Result\":0,\"Name\":\"OSGI\",\"Vendor\":\"Apache Felix\",\"Version\":\"5.4.0\"}",
                service.getOSGiInfoJni());
        assertEquals("{\"Result\":0,\"Name\":\"JVM\",\"Vendor\":\"Oracle\",\"Version\":\"1.8.0\"}",
                service.getJVMInfoJni());
        assertEquals("v1.0", service.getAPIVersionJni());
        assertEquals("", GatewaySim.log());
    }
}
