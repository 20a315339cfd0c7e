package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.voipservices.VoIPInfoSubscribeServiceImp;
import org.junit.jupiter.api.Test;

class VoIPInfoSubscribeServiceTest extends GatewayTestBase {
    private final VoIPInfoSubscribeServiceImp service = new VoIPInfoSubscribeServiceImp();

    @Test
    void subscribeListsAndUnsubscribeWithdraws() {
        defaultGateway();
        assertEquals(0, service.subscribeVoIPEventJni("bundle.call", new String[] {"NOTIFY_LINE_STATUS", "NOTIFY_VOICE_CALL_INFO"}));
        assertEquals("NOTIFY_LINE_STATUS,NOTIFY_VOICE_CALL_INFO", GatewaySim.get("voip subscriber bundle.call", "events"));
        assertEquals(0, service.unSubscribeVoIPEventJni("bundle.call", new String[] {"NOTIFY_LINE_STATUS"}));
        assertEquals("NOTIFY_VOICE_CALL_INFO", GatewaySim.get("voip subscriber bundle.call", "events"));
        assertEquals(0, service.unSubscribeVoIPEventJni("bundle.call", new String[0]));
        assertNull(GatewaySim.get("voip subscriber bundle.call", "events"));
    }

    @Test
    void defaultEventAndBadInput() {
        assertEquals(0, service.subscribeVoIPEventJni("a", new String[0]));
        assertEquals(0, service.subscribeVoIPEventJni("b", null));
        assertEquals(0, service.subscribeVoIPEventJni(null, new String[] {"X", null, "Y"}));
        GatewaySim.programResult("brelo_unSubscribeVoIPEvent", -1);
        assertEquals(0, service.unSubscribeVoIPEventJni("c", new String[] {"X"}));
        assertEquals("brelo_subscribeVoIPEvent(\"a\", \"NOTIFY_VOICE_CALL_INFO\")\n"
                + "brelo_subscribeVoIPEvent(\"b\", \"NOTIFY_VOICE_CALL_INFO\")\n"
                + "brelo_subscribeVoIPEvent(\"\", \"X,,Y\")\n"
                + "brelo_unSubscribeVoIPEvent(\"c\", \"X\")\n", GatewaySim.log());
    }

    @Test
    void threeHundredEventsAreCutAt511Characters() {
        String[] events = new String[300];
        StringBuilder joined = new StringBuilder();
        for (int i = 0; i < events.length; i++) {
            events[i] = "EVENT_" + i;
            joined.append(i == 0 ? "" : ",").append(events[i]);
        }
        assertEquals(0, service.subscribeVoIPEventJni("many", events));
        assertEquals(joined.substring(0, 511), GatewaySim.get("voip subscriber many", "events"));
    }
}
