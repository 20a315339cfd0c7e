package com.lumarest.smartgateway.commservices;

/** Access right levels and user accounts of the gateway's FTP, web and Samba services. */
public class DeviceAccessRightConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int setFTPRightJni(int right, boolean anonymous);

    public native int setHTTPRightJni(int right);

    public native int setSambaRightJni(int right);

    public native int addFTPAccountJni(String userName, String password);

    public native int deleteFTPAccountJni(String userName);

    public native int deleteAllFTPAccountJni();

    public native int setHTTPUserPasswordJni(String password);

    public native int addSambaAccountJni(String userName, String password);

    public native int deleteSambaAccountJni(String userName);

    public native int deleteAllSambaAccountJni();
}
