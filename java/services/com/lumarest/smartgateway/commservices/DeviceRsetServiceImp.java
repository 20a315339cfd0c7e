package com.lumarest.smartgateway.commservices;

/**
 * Restores the gateway. The class name is spelt "DeviceRset" and is part of the interface. A
 * library built with its hardened profile behaves exactly the same. The class loads
 * {@code libbundle_sc.so} when it is first used.
 */
public class DeviceRsetServiceImp {
    static {
        System.loadLibrary("bundle_sc");
    }

    /**
     * Asks the gateway to restore itself.
     *
     * <p>The request goes to the gateway as it stands, with no argument; what the restore
     * brings back and whether the gateway restarts is the gateway's own, so a bundle should
     * call this only when it means the gateway to be restored.
     *
     * @return the gateway's own result code, unchanged (0 when the restore was accepted)
     * @example <pre>{@code
     * resetJni
     * 0
     * }</pre>
     */
    public native int resetJni();
}
