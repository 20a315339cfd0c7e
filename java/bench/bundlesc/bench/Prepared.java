package bundlesc.bench;

/**
 * The prepared platform (libbundle_prepared.so, bench/prepared): preloaded in front of the
 * simulated gateway, it records what the simulator answers to one call of a native (its tape,
 * one per slot) and then answers every later call of that native from the tape, without the
 * simulator.
 */
public final class Prepared {
    static {
        System.loadLibrary("bundle_prepared");
    }

    private Prepared() {}

    /** True when the library was preloaded, so every platform call reaches it first. */
    public static native boolean interposed();

    /** From now on every platform call goes to the simulator and is kept on the slot's tape. */
    public static native boolean record(int slot);

    /** From now on every platform call is answered from the slot's tape. */
    public static native boolean replay(int slot);

    /** From now on every platform call goes to the simulator, nothing kept. */
    public static native void off();

    /** The platform calls on the slot's tape. */
    public static native int calls(int slot);

    /** Calls that were not the next call on the tape while replaying (the simulator answered). */
    public static native long misses();
}
