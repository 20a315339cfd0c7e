package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.commservices.UsbServiceImp;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import org.junit.jupiter.api.Test;

class UsbServiceTest extends GatewayTestBase {
    private static final Path TEST_MODE = GatewayFiles.of("/tmp/usbapi_test");

    private final UsbServiceImp service = new UsbServiceImp();

    private static byte[] ascii(String s) {
        return s.getBytes(StandardCharsets.US_ASCII);
    }

    @Test
    void bytesWrittenToTheLoopbackDeviceAreReadBackIntoAJavaArray() {
        defaultGateway();
        int h = service.usbOpenJni(1);
        assertEquals(1, h);
        assertEquals(-1, service.usbDataAvailableJni(h));
        assertEquals(5, service.usbWriteJni(h, ascii("hello"), 0, 5));
        assertEquals("68656c6c6f", GatewaySim.get("usb device 1", "pending"));
        assertEquals(1, service.usbDataAvailableJni(h));

        byte[] in = ascii("................");
        assertEquals(5, service.usbReadJni(h, in, 3, 8, 100));
        assertArrayEquals(ascii("...hello........"), in);
        assertEquals(-1, service.usbDataAvailableJni(h));
        assertEquals(0, service.usbCloseJni(h));
        assertEquals("brelo_usbOpen(2, -1, 0, 1)\nbrelo_usbDataAvailable(2, -1, 0, 1)\n"
                + "brelo_usbWrite(2, -1, 0, 1, 5)\nbrelo_usbDataAvailable(2, -1, 0, 1)\n"
                + "brelo_usbRead(2, -1, 0, 1, 8, 100)\nbrelo_usbDataAvailable(2, -1, 0, 1)\n"
                + "brelo_usbClose(1)\n", GatewaySim.log());
    }

    @Test
    void aWriteFromAnOffsetCopiesTheBytesSentOverTheStartOfTheArray() {
        defaultGateway();
        int h = service.usbOpenJni(1);
        byte[] out = ascii("ABCDEFGHIJ");
        assertEquals(4, service.usbWriteJni(h, out, 3, 4));
        assertEquals("44454647", GatewaySim.get("usb device 1", "written"));
        assertArrayEquals(ascii("DEFGEFGHIJ"), out);
    }

    @Test
    void offsetsAndCountsOutsideTheArrayDoNotCrash() {
        defaultGateway();
        int h = service.usbOpenJni(1);
        byte[] buffer = ascii("abcdefgh");
        // Counts the device cannot take are refused before anything is touched.
        assertEquals(-1, service.usbReadJni(h, buffer, 0, 100000, 10));
        assertEquals(-1, service.usbReadJni(h, buffer, 0, -1, 10));
        // Nothing is waiting, so a read at an offset outside the array writes nothing.
        assertEquals(0, service.usbReadJni(h, buffer, 100, 4, 10));
        assertEquals(0, service.usbReadJni(h, buffer, -4, 2, 10));
        assertArrayEquals(ascii("abcdefgh"), buffer);
        // The JVM refuses a region outside the array when the write copies it.
        assertThrows(ArrayIndexOutOfBoundsException.class, () -> service.usbWriteJni(h, buffer, 6, 4));
        assertThrows(ArrayIndexOutOfBoundsException.class, () -> service.usbWriteJni(h, buffer, 0, 100000));
        assertThrows(ArrayIndexOutOfBoundsException.class, () -> service.usbWriteJni(h, buffer, -1, 2));
        assertArrayEquals(ascii("abcdefgh"), buffer);
        assertEquals(-1, service.usbReadJni(h, null, 0, 4, 10));
        assertEquals(-1, service.usbWriteJni(h, null, 0, 4));
        assertEquals(4, GatewaySim.logCount("brelo_usbRead"));
    }

    @Test
    void registrationWalksTheBitsOfTheMask() {
        defaultGateway();
        assertEquals(0, service.usbRegisterJni("bundle.a", 5));
        assertEquals("5", GatewaySim.get("usb listener bundle.a", "types"));
        assertEquals(-1, service.usbRegisterJni("bundle.a", 0));
        assertEquals(-1, service.usbRegisterJni("bundle.a", 32));
        assertEquals(-1, service.usbRegisterJni(null, 1));
        assertEquals(0, service.usbUnregisterJni("bundle.a", 0));
        assertEquals(-1, service.usbUnregisterJni("bundle.a", 0));
        assertEquals(-1, service.usbUnregisterJni(null, 0));
        assertEquals("brelo_usbRegister(2, -1, \"bundle.a\", 1)\nbrelo_usbRegister(2, -1, \"bundle.a\", 4)\n"
                + "brelo_usbUnregister(2, -1, \"bundle.a\")\nbrelo_usbUnregister(2, -1, \"bundle.a\")\n",
                GatewaySim.log());
        GatewaySim.programResult("brelo_usbRegister", 7);
        assertEquals(7, service.usbRegisterJni("bundle.b", 3));
    }

    @Test
    void lockUnlockAndSerialSettings() {
        defaultGateway();
        assertEquals(0, service.usbLockJni(1));
        assertEquals("1", GatewaySim.get("usb device 1", "locked"));
        assertEquals(-1, service.usbLockJni(1));
        assertEquals(0, service.usbUnlockJni(1));
        assertEquals(-1, service.usbUnlockJni(9));
        int h = service.usbOpenJni(1);
        assertEquals(0, service.usbSetSerialJni(h, 115200, 8, 1, 0, (byte) -1, true));
        assertEquals("115200, 8, 1, 0, 255, 1", GatewaySim.get("usb device 1", "serial"));
        assertEquals(-1, service.usbSetSerialJni(999, 9600, 8, 1, 0, (byte) 0, false));
        assertEquals(-1, service.usbOpenJni(9));
    }

    @Test
    void theTestModeTalksToTheLastOpenedHandle() throws IOException {
        defaultGateway();
        int first = service.usbOpenJni(2);
        int last = service.usbOpenJni(1);
        boolean existed = Files.exists(TEST_MODE);
        try {
            if (!existed) {
                Files.createDirectories(TEST_MODE.getParent());
                Files.createFile(TEST_MODE);
            }
            GatewaySim.clearLog();
            assertEquals(3, service.usbWriteJni(12345, ascii("abc"), 0, 3));
            assertEquals(0, service.usbCloseJni(12345));
            assertEquals("brelo_usbWrite(2, -1, 0, " + last + ", 3)\nbrelo_usbClose(" + last + ")\n",
                    GatewaySim.log());
        } finally {
            if (!existed) {
                Files.deleteIfExists(TEST_MODE);
            }
        }
        assertEquals(0, service.usbCloseJni(first));
    }

    @Test
    void storageOfTheDefaultGateway() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"storagePath\":\"/mnt/usb1_1\",\"totalStorage\":15512064,"
                + "\"validStorage\":9830400},{\"storagePath\":\"/mnt/usb2_1\",\"totalStorage\":61865984,"
                + "\"validStorage\":61410304}]}", service.getStorageInfoJni());
        GatewaySim.programResult("brelo_getStorageInfo", 1);
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getStorageInfoJni());
    }

    @Test
    void storageOfAnEmptyPlatform() {
        assertEquals("{\"Result\":0,\"List\":[]}", service.getStorageInfoJni());
    }
}
