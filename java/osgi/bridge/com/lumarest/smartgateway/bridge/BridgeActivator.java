package com.lumarest.smartgateway.bridge;

import org.osgi.framework.BundleActivator;
import org.osgi.framework.BundleContext;
import org.osgi.framework.BundleException;

/**
 * Starting the bridge bundle loads its native library, so a library that cannot load is
 * reported once, at start, with its cause, rather than as an UnsatisfiedLinkError in whichever
 * bundle first calls a service class. The library is bound to this bundle revision's class
 * loader, the one the service classes share; their own loadLibrary calls then find it loaded.
 * The service classes do not need the bundle started: they load the library themselves when
 * first used, as they do outside a framework.
 */
public final class BridgeActivator implements BundleActivator {
    static final String LIBRARY = "bundle_sc";

    @Override
    public void start(BundleContext context) throws BundleException {
        try {
            System.loadLibrary(LIBRARY);
        } catch (UnsatisfiedLinkError e) {
            throw new BundleException(context.getBundle().getSymbolicName()
                    + ": the native library lib" + LIBRARY + ".so does not load ("
                    + e.getMessage() + "); the platform libraries libbrelo.so.1, libtcapi.so.1"
                    + " and libmjson-1.5.so must be on the system loader's path, and the bundle"
                    + " must have a Bundle-NativeCode clause for this processor ("
                    + System.getProperty("os.arch") + ")", BundleException.NATIVECODE_ERROR, e);
        }
    }

    @Override
    public void stop(BundleContext context) {
        // The library stays bound to this revision's class loader until the loader is collected.
    }
}
