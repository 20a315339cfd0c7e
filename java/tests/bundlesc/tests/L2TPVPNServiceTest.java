package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import org.junit.jupiter.api.Test;

class L2TPVPNServiceTest extends GatewayTestBase {
    private final L2TPVPNServiceImp service = new L2TPVPNServiceImp();

    private static String chars(char c, int n) {
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < n; ++i) {
            b.append(c);
        }
        return b.toString();
    }

    private static String add(String address) {
        return "system(\"/sbin/route add -net " + address
                + " netmask 255.255.255.255 dev ppp100 >/dev/null 2>&1\")\n";
    }

    @Test
    void tunnelComesUpListsItsAddressesAndGoesDown() {
        defaultGateway();
        assertEquals("{\"Result\":0}", service.vpnOnJni("203.0.113.10", "anna", "s3cret"));
        assertEquals("{\"Result\":0,\"Status\":1}", service.getVpnStatCmdJni());
        assertEquals("{\"Result\":0,\"Status\":2}", service.getVpnStatCmdJni());
        assertEquals("{\"Result\":0,\"ips\":[\"10.255.0.6\",\"10.255.0.1\"]}", service.getConnectedIpListJni());
        assertEquals("{\"Result\":0}", service.vpnOffJni("203.0.113.10"));
        assertEquals("{\"Result\":0,\"ips\":[]}", service.getConnectedIpListJni());
        assertEquals("{\"Result\":-1}", service.vpnOffJni("203.0.113.10"));
    }

    @Test
    void credentialLimitsAndNullCredentials() {
        assertEquals("{\"Result\":0}", service.vpnOnJni(chars('s', 31), chars('u', 63), chars('p', 63)));
        assertEquals("{\"Result\":-1}", service.vpnOnJni(chars('s', 32), "u", "p"));
        assertEquals("{\"Result\":-1}", service.vpnOnJni("s", chars('u', 64), "p"));
        assertEquals("{\"Result\":-1}", service.vpnOnJni("s", "u", chars('p', 64)));
        assertEquals("{\"Result\":-1}", service.vpnOnJni(null, "u", "p"));
        assertEquals("{\"Result\":-1}", service.vpnOnJni("s", null, "p"));
        assertEquals("{\"Result\":-1}", service.vpnOnJni("s", "u", null));
        assertEquals("{\"Result\":-1}", service.vpnOffJni(null));
        assertEquals("{\"Result\":-1}", service.vpnOffJni(chars('s', 32)));
        assertEquals(1, GatewaySim.logCount("brelo_vpnOn"));
        assertEquals(0, GatewaySim.logCount("brelo_vpnOff"));
        GatewaySim.programResult("brelo_getVpnStatCmd", -1);
        assertEquals("{\"Result\":-1,\"Status\":0}", service.getVpnStatCmdJni());
    }

    // The route tool is the simulator's: commands land in its call log and state only.
    @Test
    void destinationRoutesReachOnlyTheSimulatedRouteTool() {
        defaultGateway();
        assertEquals(0, service.addVpnDestIPJni(new String[] {"10.0.0.1", "video.lumarest.example", null,
            "1.2.3.4;reboot", "$(reboot)", " +1.2.3.5"}));
        assertEquals(add("10.0.0.1") + "gethostbyname(\"video.lumarest.example\")\n"
                + add("198.51.100.21") + add("198.51.100.22") + add("198.51.100.23")
                + "gethostbyname(\"1.2.3.4;reboot\")\ngethostbyname(\"$(reboot)\")\n" + add("1.2.3.5"),
                GatewaySim.log());
        assertEquals("host route", GatewaySim.get("route ppp100", "198.51.100.22"));
        assertEquals(0, service.deleteVpnDestIPJni(new String[] {"10.0.0.1"}));
        assertEquals(null, GatewaySim.get("route ppp100", "10.0.0.1"));
        assertEquals(0, service.addVpnDestIPJni(null));
        assertEquals(0, service.deleteVpnDestIPJni(new String[0]));
    }

    @Test
    void onlyTheFirstTwentyThousandDestinationsAreTaken() {
        String[] many = new String[25000];
        for (int i = 0; i < many.length; ++i) {
            many[i] = "10." + (i / 65536) + "." + (i / 256 % 256) + "." + (i % 256);
        }
        GatewaySim.programResult("system", 1);
        assertEquals(0, service.addVpnDestIPJni(many));
        assertEquals(20000, GatewaySim.logCount("system"));
    }

    // Java threads route their own domains at once; every command names an address of the
    // domain its own thread asked for (the devices differ only through the domain's addresses).
    @Test
    void concurrentDomainsEachRouteTheirOwnAddresses() throws InterruptedException {
        final int threads = 8;
        final int rounds = 40;
        for (int t = 0; t < threads; ++t) {
            GatewaySim.set("resolver", "d" + t + ".example", "10." + t + ".0.1 10." + t + ".0.2 10." + t + ".0.3");
        }
        GatewaySim.programResult("system", 1);
        final AtomicInteger failures = new AtomicInteger();
        List<Thread> workers = new ArrayList<>();
        for (int t = 0; t < threads; ++t) {
            final String name = "d" + t + ".example";
            workers.add(new Thread(() -> {
                for (int r = 0; r < rounds; ++r) {
                    String[] one = {name};
                    if ((r % 2 == 0 ? service.addVpnDestIPJni(one) : service.deleteVpnDestIPJni(one)) != 0) {
                        failures.incrementAndGet();
                    }
                }
            }));
        }
        for (Thread w : workers) {
            w.start();
        }
        for (Thread w : workers) {
            w.join();
        }
        assertEquals(0, failures.get());
        // Each lookup of dN is followed, in order, by commands for 10.N.0.1-3; commands of other
        // threads may interleave, so count per domain instead.
        String log = GatewaySim.log();
        Pattern command = Pattern.compile("-net 10\\.(\\d+)\\.0\\.([1-3]) netmask");
        Matcher m = command.matcher(log);
        int[] seen = new int[threads];
        int total = 0;
        while (m.find()) {
            seen[Integer.parseInt(m.group(1))]++;
            total++;
        }
        assertEquals(threads * rounds * 3, total);
        for (int t = 0; t < threads; ++t) {
            assertEquals(rounds * 3, seen[t], "domain d" + t);
        }
        assertTrue(!log.contains("-net 0.") && !log.contains("-net 127."));
    }
}
