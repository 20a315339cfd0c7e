package com.lumarest.smartgateway.commservices;

/**
 * Switches the LEDs of the gateway's front panel on and off, for example to keep a gateway
 * dark at night. A library built with its hardened profile behaves exactly the same. The
 * class loads {@code libbundle_sc.so} when it is first used.
 */
public class DeviceConfigServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Switches the front-panel LEDs on or off.
     *
     * @param enable true to switch the LEDs on, false to switch them off
     * @return 0 when the gateway switched the LEDs, -1 when it refused
     * @example <pre>{@code
     * setLedSwitchJni false
     * 0
     * }</pre>
     */
    public native int setLedSwitchJni(boolean enable);
}
