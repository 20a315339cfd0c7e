package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.TrafficQoSServiceImp;
import org.junit.jupiter.api.Test;

class TrafficQoSServiceTest extends GatewayTestBase {
    private final TrafficQoSServiceImp service = new TrafficQoSServiceImp();

    @Test
    void trafficIsAddedListedAndDeleted() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"192.0.2.55\",\"RemotePort\":\"1935\"}]}",
                service.getTrafficInfoByFlowJni(2));
        assertEquals(0, service.addTrafficToFlowJni("203.0.113.99", "8443", 2));
        assertEquals("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"192.0.2.55\",\"RemotePort\":\"1935\"},"
                + "{\"RemoteAddress\":\"203.0.113.99\",\"RemotePort\":\"8443\"}]}", service.getTrafficInfoByFlowJni(2));
        assertEquals(0, service.deleteTrafficFromFlowJni("192.0.2.55", "1935", 2));
        assertEquals(-1, service.addTrafficToFlowJni(null, "80", 2));
        assertEquals(0, service.deleteAllTrafficFromFlowJni(2));
        assertEquals("{\"Result\":0,\"List\":[]}", service.getTrafficInfoByFlowJni(2));
        assertEquals("{\"Result\":-1,\"List\":[]}", service.getTrafficInfoByFlowJni(-1));
        assertEquals("brelo_getTrafficInfoByFlow(2)\nbrelo_addTrafficToFlow(\"203.0.113.99\", \"8443\", 2)\n"
                + "brelo_getTrafficInfoByFlow(2)\nbrelo_deleteTrafficFromFlow(\"192.0.2.55\", \"1935\", 2)\n"
                + "brelo_addTrafficToFlow(NULL, \"80\", 2)\nbrelo_deleteAllTrafficFromFlow(2)\n"
                + "brelo_getTrafficInfoByFlow(2)\nbrelo_getTrafficInfoByFlow(-1)\n", GatewaySim.log());
    }

    @Test
    void countersGrowAndSpeedsMove() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"UsStats\":5000250000,\"DsStats\":73405320000}", service.getStatsByFlowJni(1));
        assertEquals("{\"Result\":0,\"UsStats\":5000500000,\"DsStats\":73410320000}", service.getStatsByFlowJni(1));
        String first = service.getSpeedByFlowJni(1);
        assertEquals("{\"Result\":0,\"upSpeed\":1940,\"downSpeed\":38800}", first);
        assertNotEquals(first, service.getSpeedByFlowJni(1));
        assertEquals("{\"Result\":-1,\"UsStats\":0,\"DsStats\":0}", service.getStatsByFlowJni(Integer.MAX_VALUE));
        assertEquals("{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}", service.getSpeedByFlowJni(-5));
    }

    @Test
    void limitsAndDscp() {
        defaultGateway();
        assertEquals("{\"Result\":0,\"UpSpeed\":128,\"DownSpeed\":1024}", service.getSpeedLimitByFlowJni(2));
        assertEquals(0, service.setSpeedLimitByFlowJni(2, 256, 2048));
        assertEquals("{\"Result\":0,\"UpSpeed\":256,\"DownSpeed\":2048}", service.getSpeedLimitByFlowJni(2));
        assertEquals("{\"Result\":-1,\"UpSpeed\":0,\"DownSpeed\":0}", service.getSpeedLimitByFlowJni(99));
        assertEquals(46, service.getDSCPRemarkByFlowJni(1));
        assertEquals(-1, service.getDSCPRemarkByFlowJni(2));
        assertEquals(-1, service.setDSCPRemarkByFlowJni(1, 64));
        assertEquals(-1, service.setDSCPRemarkByFlowJni(1, -2));
        assertEquals(0, service.setDSCPRemarkByFlowJni(1, 63));
        assertEquals(63, service.getDSCPRemarkByFlowJni(1));
        GatewaySim.programResult("brelo_getDSCPRemarkByFlow", -2);
        assertEquals(-1, service.getDSCPRemarkByFlowJni(99));
    }
}
