package com.lumarest.smartgateway.commservices;

/** The gateway's registration with the operator's network by password. */
public class RegistrationServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /** Submits a registration; the platform's result. */
    public native int setPasswordRegistrationJni(String text1, int number1, int number2, String text2);

    /** JSON: Status, RegisterResult, ServiceNum, ServiceName, Limit, Times, Province. */
    public native String getPasswordRegistrationInfoJni();
}
