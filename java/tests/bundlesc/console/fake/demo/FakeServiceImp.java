package bundlesc.console.fake.demo;

/**
 * Stand-in for a gateway service class, in the catalog the console tests give the console.
 * Deliberately has no static initialiser and no
 * native library: the tests only list and resolve its natives, they never call them.
 */
public class FakeServiceImp {

    public native String getInfoJni();

    public native int setValueJni(int value, boolean persist);

    public native int setMacListJni(String[] macs);

    public native int readJni(byte[] buffer, int length);

    public native int lookupJni(int id);

    public native int lookupJni(String name);

    public static native int countJni();

    native int packagePrivateJni();

    public int notNative() {
        return 0;
    }

    /** Its class file, FakeServiceImp$InnerImp.class, must not count as a service class. */
    public static class InnerImp {
        public native int innerJni();
    }
}
