package com.lumarest.smartgateway.commservices;

/** What the gateway is: identity, MAC address, uptime, load, framework and VM identity. */
public class DeviceInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /** JSON: Vendor, ProductCLass, HardwareVer, FirmwareVer, FlashSize, RamSize, MainChipClass, NFC. */
    public native String getDeviceInfoJni();

    /** Plain text: the gateway's MAC address. */
    public native String getDeviceMACJni();

    public native int getDeviceUpTimeJni();

    /** JSON: Name, Vendor, Version of the OSGi framework. */
    public native String getOSGiInfoJni();

    /** JSON: Name, Vendor, Version of the Java virtual machine. */
    public native String getJVMInfoJni();

    /** Plain text "v1.0". */
    public native String getAPIVersionJni();

    public native int getCPUOccupancyRateJni();

    public native int getRAMOccupancyRateJni();
}
