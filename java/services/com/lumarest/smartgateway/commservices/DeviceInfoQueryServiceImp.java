package com.lumarest.smartgateway.commservices;

/**
 * What the gateway is: its identity record (vendor, product class, hardware and firmware
 * versions, memory sizes, main chip), its MAC address, uptime and load, the identity of the
 * OSGi framework and Java virtual machine it runs, and the version of this interface.
 *
 * <p>Every method asks the gateway for one value, or answers a constant, and returns at once;
 * none of them fails on its own. Texts from the gateway are placed in the JSON replies as the
 * gateway gives them, without JSON escaping (a library built with its hardened profile escapes
 * them; nothing else differs there). The class loads {@code libbundle_sc.so} when it is first
 * used.
 */
public class DeviceInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Reads the gateway's identity record.
     *
     * <p>The gateway reports its vendor, product class, hardware and firmware versions, flash
     * and RAM sizes, main chip class and NFC capability in one record. Its texts are placed in
     * the reply unescaped. The key "ProductCLass" is spelt with a capital L: that is its name
     * on the wire, and bundles must read it so. If the gateway fills nothing, the texts are
     * empty and the sizes 0, and the reply still carries "Result":0.
     *
     * @return a JSON object whose members are, in this order: "Result" (bare number, always
     *         0), "Vendor" (quoted text, up to 127 characters), "ProductCLass" (quoted text, up
     *         to 127 characters), "HardwareVer" (quoted text, up to 63 characters),
     *         "FirmwareVer" (quoted text, up to 63 characters), "FlashSize" (bare number, in
     *         the gateway's own unit), "RamSize" (bare number, in the gateway's own unit),
     *         "MainChipClass" (quoted text, up to 127 characters) and "NFC" (quoted text, up to
     *         15 characters). There is no failure reply.
     * @example <pre>{@code
     * getDeviceInfoJni
     * {"Result":0,"Vendor":"Lumarest","ProductCLass":"HGU-2000","HardwareVer":"HV1.2","FirmwareVer":"FW3.4.10","FlashSize":256,"RamSize":512,"MainChipClass":"MIPS 1004Kc","NFC":"NO"}
     * }</pre>
     */
    public native String getDeviceInfoJni();

    /**
     * Reads the gateway's MAC address.
     *
     * @return the MAC address as plain text (not JSON), exactly as the gateway writes it (for
     *         example "00:1A:2B:3C:4D:5E"), up to 127 characters; the empty text when the
     *         gateway reports none. There is no failure reply.
     * @example <pre>{@code
     * getDeviceMACJni
     * 00:1A:2B:3C:4D:5E
     * }</pre>
     */
    public native String getDeviceMACJni();

    /**
     * Reads how long the gateway has been running.
     *
     * @return the gateway's uptime, the gateway's value unchanged (no scaling, no clamping),
     *         in the gateway's own unit (seconds on the simulated gateway). There is no
     *         failure value of its own: whatever the gateway answers is returned.
     * @example <pre>{@code
     * getDeviceUpTimeJni
     * 86400
     * }</pre>
     */
    public native int getDeviceUpTimeJni();

    /**
     * Reports the identity of the OSGi framework the gateway runs.
     *
     * <p>The identity is fixed in the library: nothing is asked of the gateway or of the
     * running framework.
     *
     * @return always the JSON object
     *         {@code {"Result":0,"Name":"OSGI","Vendor":"Apache Felix","Version":"5.4.0"}}:
     *         "Result" a bare number, "Name", "Vendor" and "Version" quoted texts. There is no
     *         failure reply.
     * @example <pre>{@code
     * getOSGiInfoJni
     * {"Result":0,"Name":"OSGI","Vendor":"Apache Felix","Version":"5.4.0"}
     * }</pre>
     */
    public native String getOSGiInfoJni();

    /**
     * Reports the identity of the Java virtual machine the gateway runs.
     *
     * <p>The identity is fixed in the library: nothing is asked of the gateway or of the
     * running virtual machine.
     *
     * @return always the JSON object
     *         {@code {"Result":0,"Name":"JVM","Vendor":"Oracle","Version":"1.8.0"}}: "Result" a
     *         bare number, "Name", "Vendor" and "Version" quoted texts. There is no failure
     *         reply.
     * @example <pre>{@code
     * getJVMInfoJni
     * {"Result":0,"Name":"JVM","Vendor":"Oracle","Version":"1.8.0"}
     * }</pre>
     */
    public native String getJVMInfoJni();

    /**
     * Reports the version of the gateway's service interface.
     *
     * @return always the plain text (not JSON) "v1.0".
     * @example <pre>{@code
     * getAPIVersionJni
     * v1.0
     * }</pre>
     */
    public native String getAPIVersionJni();

    /**
     * Reads the gateway's current CPU load.
     *
     * @return the CPU occupancy rate as a percentage, the gateway's value unchanged (no
     *         scaling, no clamping).
     * @example <pre>{@code
     * getCPUOccupancyRateJni
     * 12
     * }</pre>
     */
    public native int getCPUOccupancyRateJni();

    /**
     * Reads how much of the gateway's RAM is in use.
     *
     * @return the RAM occupancy rate as a percentage, the gateway's value unchanged (no
     *         scaling, no clamping).
     * @example <pre>{@code
     * getRAMOccupancyRateJni
     * 41
     * }</pre>
     */
    public native int getRAMOccupancyRateJni();
}
