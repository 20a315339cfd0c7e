package com.lumarest.smartgateway.voipservices;

/** The gateway's analogue telephone ports (POTS lines): phone number and line status, as JSON. */
public class VoIPInfoQueryServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native String getPOTSInfoJni();
}
