package com.lumarest.smartgateway.accessservices;

/** Creates, changes and deletes WAN connections. */
public class WanConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /** The new connection's WAN index, or -1. */
    public native int addWANIfJni(String vlanMode, String vlanIdMark, String connectionType);

    /** Applies a JSON change request named as in getWANIfInfoJni (plus Password); -1 if refused. */
    public native int setWANIfJni(int wanIndex, String wanInfoJson);

    public native int deleteWANIfJni(int wanIndex);
}
