package com.lumarest.smartgateway.commservices;

/** Manufacturer OUI, serial number and the factory credentials of the device label (plain texts). */
public class DeviceSecretInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getDeviceManufacturerOUIJni();

    public native String getDeviceSerialNumberJni();

    public native String getDeviceDefaultWebPasswordJni();

    public native String getDeviceDefaultSSID1NameJni();

    public native String getDeviceDefaultSSID1PasswordJni();

    public native String getDevicePasswordJni();
}
