package com.lumarest.smartgateway.voipservices;

/** Registers and withdraws a subscriber's interest in VoIP events. */
public class VoIPInfoSubscribeServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    public native int subscribeVoIPEventJni(String subscriber, String[] events);

    public native int unSubscribeVoIPEventJni(String subscriber, String[] events);
}
