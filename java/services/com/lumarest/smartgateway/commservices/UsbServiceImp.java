package com.lumarest.smartgateway.commservices;

/**
 * USB devices: event registration, lock, open and close, byte transfers to and from a
 * serial-type device and its line settings, and the mounted storage volumes. While the file
 * /tmp/usbapi_test exists, every method that takes a handle uses the last opened one instead.
 */
public class UsbServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /** Registers for the device types of the mask (bits 1, 2, 4, 8, 16; 1..31). */
    public native int usbRegisterJni(String listenerName, int deviceTypeMask);

    /** The mask is not used. */
    public native int usbUnregisterJni(String listenerName, int deviceTypeMask);

    public native int usbLockJni(int devId);

    public native int usbUnlockJni(int devId);

    /** The new handle, or -1. */
    public native int usbOpenJni(int devId);

    public native int usbCloseJni(int handle);

    /** 1 when data is waiting, else -1. */
    public native int usbDataAvailableJni(int handle);

    /** Reads up to count bytes into buffer from offset on; the platform's result. */
    public native int usbReadJni(int handle, byte[] buffer, int offset, int count, int timeout);

    /**
     * Sends length bytes of buffer from offset on; the platform's result. The bytes sent are
     * also copied over the start of buffer.
     */
    public native int usbWriteJni(int handle, byte[] buffer, int offset, int length);

    /** Serial line settings, passed to the platform as six words. */
    public native int usbSetSerialJni(int handle, int setting1, int setting2, int setting3,
            int setting4, byte setting5, boolean setting6);

    /** JSON: List of storagePath, totalStorage, validStorage. */
    public native String getStorageInfoJni();
}
