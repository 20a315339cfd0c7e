package com.lumarest.smartgateway.commservices;

/** Access rights and user accounts of the gateway's FTP, web and Samba services, as JSON. */
public class DeviceAccessRightQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getFTPRightInfoJni();

    public native String getHTTPRightInfoJni();

    public native String getSambaRightInfoJni();
}
