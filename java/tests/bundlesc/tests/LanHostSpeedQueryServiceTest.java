package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import com.lumarest.smartgateway.lanservices.LanHostSpeedQueryServiceImp;
import org.junit.jupiter.api.Test;

class LanHostSpeedQueryServiceTest extends GatewayTestBase {
    private final LanHostSpeedQueryServiceImp service = new LanHostSpeedQueryServiceImp();

    @Test
    void readsTheSpeedOfAHost() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"upSpeed\":120,\"downSpeed\":4800}", service.getLANHostSpeedJni("00:E0:4C:68:01:A2"));
        assertEquals("{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}", service.getLANHostSpeedJni("no mac"));
        assertEquals("{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}", service.getLANHostSpeedJni(null));
    }
}
