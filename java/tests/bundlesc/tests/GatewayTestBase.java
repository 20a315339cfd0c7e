package bundlesc.tests;

import bundlesc.sim.GatewaySim;
import org.junit.jupiter.api.BeforeEach;

/** Every JVM test starts from an empty simulated gateway with an empty call log. */
abstract class GatewayTestBase {
    @BeforeEach
    void emptyGateway() {
        GatewaySim.reset();
    }

    /** Loads the default simulated gateway the demo uses, and clears the log. */
    static void defaultGateway() {
        if (GatewaySim.loadDefault() != 0) {
            throw new IllegalStateException("the default simulated gateway did not load");
        }
        GatewaySim.clearLog();
    }
}
