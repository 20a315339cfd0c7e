package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import com.lumarest.smartgateway.lanservices.EthQueryServiceImp;
import org.junit.jupiter.api.Test;

class EthQueryServiceTest extends GatewayTestBase {
    private final EthQueryServiceImp service = new EthQueryServiceImp();

    @Test
    void stateAndCountersOfAPort() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"Enable\":\"1\",\"Status\":\"Up\",\"BitRate\":\"1000\",\"DuplexMode\":\"Full\"}",
                service.getLANEthernetInfoJni(1));
        assertEquals("{\"Result\":0,\"BytesSent\":4294967295,\"BytesReceived\":12,\"PacketsSent\":3,"
                + "\"PacketsReceived\":1}", service.getLANEthernetStatsJni(4));
        assertEquals("{\"Result\":-1,\"FailReason\":\"Get LANEthernetInfo fail\"}", service.getLANEthernetInfoJni(9));
        assertEquals("{\"Result\":-1,\"FailReason\":\"Get LANEthernetStats fail\"}", service.getLANEthernetStatsJni(0));
    }
}
