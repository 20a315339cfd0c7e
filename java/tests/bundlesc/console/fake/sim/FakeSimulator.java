package bundlesc.console.fake.sim;

import java.util.ArrayList;
import java.util.List;

/** Stands in for bundlesc.sim.GatewaySim in SimulatorSessionTest: records what it is asked. */
public final class FakeSimulator {
    public static final List<String> CALLS = new ArrayList<String>();
    public static int freshResult;
    public static boolean failSave;

    private FakeSimulator() {}

    public static int loadFresh() {
        CALLS.add("loadFresh");
        return freshResult;
    }

    public static void setSavePath(String path) {
        CALLS.add("setSavePath " + path);
        if (failSave) {
            throw new IllegalStateException("no room");
        }
    }
}
