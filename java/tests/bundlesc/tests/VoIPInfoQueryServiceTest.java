package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.voipservices.VoIPInfoQueryServiceImp;
import org.junit.jupiter.api.Test;

class VoIPInfoQueryServiceTest extends GatewayTestBase {
    private final VoIPInfoQueryServiceImp query = new VoIPInfoQueryServiceImp();

    @Test
    void defaultGatewayHasTwoLines() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"POTSNum\":2,\"Info\":["
                + "{\"POTSIndex\":1,\"PhoneNumber\":\"02150001001\",\"LineStatus\":\"SUCCESS\"},"
                + "{\"POTSIndex\":2,\"PhoneNumber\":\"02150001002\",\"LineStatus\":\"ACCOUNTERR\"}]}",
                query.getPOTSInfoJni());
        assertEquals("brelo_voipGetNumberOfPOTS()\nbrelo_voipGetLineInfo(1)\nbrelo_voipGetLineInfo(2)\n",
                GatewaySim.log());
    }

    @Test
    void noLines() {
        assertEquals("{\"Result\":0,\"POTSNum\":0,\"Info\":[]}", query.getPOTSInfoJni());
    }

    @Test
    void unknownLinesAndStatusesOutsideTheTable() {
        GatewaySim.set("voip", "lines", "2");
        GatewaySim.set("pots line 2", "numbers", "777");
        GatewaySim.set("pots line 2", "statuses", "99");
        assertEquals("{\"Result\":0,\"POTSNum\":2,\"Info\":["
                + "{\"POTSIndex\":1,\"PhoneNumber\":\"\",\"LineStatus\":\"UNKNOWN\"},"
                + "{\"POTSIndex\":2,\"PhoneNumber\":\"777\",\"LineStatus\":\"UNKNOWN\"}]}",
                query.getPOTSInfoJni());
    }

    @Test
    void aLongListIsCut() {
        GatewaySim.set("voip", "lines", "60");
        String reply = query.getPOTSInfoJni();
        assertEquals(1023, reply.length());
        assertTrue(reply.startsWith("{\"Result\":0,\"POTSNum\":60,\"Info\":[{\"POTSIndex\":1,"));
        assertEquals(60, GatewaySim.logCount("brelo_voipGetLineInfo"));
    }
}
