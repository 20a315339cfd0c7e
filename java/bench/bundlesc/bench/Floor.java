package bundlesc.bench;

/**
 * The floor of a conforming native (libbundle_floor.so, bench/floor): a bare native that reads
 * the arguments it is given as a native must (Java texts borrowed and given back, byte arrays
 * pinned and released), makes a given number of flag-file checks and answers a kept text or
 * int, and the count of the
 * flag-file checks made in this process (the library's access() counts them when it is
 * preloaded).
 */
public final class Floor {
    static {
        System.loadLibrary("bundle_floor");
    }

    private Floor() {}

    /** True when the library was preloaded, so the checks of every library are counted. */
    public static native boolean interposed();

    /** The flag-file checks made so far in this process. */
    public static native long flagChecks();

    /** Keeps the text (may be null) that floorText(slot) answers after `checks` checks. */
    public static native boolean prepareText(int slot, String text, int checks);

    /** Keeps the int (or boolean, non-zero) that floorInt/floorBoolean(slot) answer. */
    public static native boolean prepareInt(int slot, int value, int checks);

    /** Reads the native's arguments as it must, makes the checks, answers the kept text. */
    public static native String floorText(int slot, Object[] args);

    public static native int floorInt(int slot, Object[] args);

    public static native boolean floorBoolean(int slot, Object[] args);
}
