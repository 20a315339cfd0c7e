package bundlesc.tests;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.addressservices.PortMappingConfigServiceImp;
import com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Paths;

/**
 * The JVM that HostSideRefusalTest starts with or without the simulator's host side: it calls
 * the natives that run route commands and look names up, and prints their results, the calls
 * the simulator's host side logged, and whether any child process ran (a route command runs
 * the shell, whose page faults the kernel adds to this process's count for its children). Its
 * lines start with "child: ", apart from any debug trace a flag file outside the test's
 * control switches on in a JVM without the host side.
 */
public final class HostSideChild {
    private HostSideChild() {}

    public static void main(String[] args) throws IOException {
        if (GatewaySim.loadDefault() != 0) {
            throw new IllegalStateException("the default simulated gateway did not load");
        }
        GatewaySim.clearLog();
        long before = childrensFaults();
        L2TPVPNServiceImp vpn = new L2TPVPNServiceImp();
        PortMappingConfigServiceImp mappings = new PortMappingConfigServiceImp();
        String[] destinations = {"10.0.0.1", "video.lumarest.example"};
        say("addVpnDestIPJni " + vpn.addVpnDestIPJni(destinations));
        say("deleteVpnDestIPJni " + vpn.deleteVpnDestIPJni(destinations));
        say("addPortMappingJni nas.home " + mappings.addPortMappingJni(2, 8081, 81, "TCP", "nas.home"));
        say("addPortMappingJni 192.168.1.20 "
                + mappings.addPortMappingJni(2, 8082, 82, "TCP", "192.168.1.20"));
        say("child process faults " + (childrensFaults() - before));
        say("logged system " + GatewaySim.logCount("system"));
        say("logged gethostbyname " + GatewaySim.logCount("gethostbyname"));
    }

    private static void say(String line) {
        System.out.println("child: " + line);
    }

    /** cminflt of /proc/self/stat: minor faults of the children this process waited for. */
    private static long childrensFaults() throws IOException {
        String stat = new String(Files.readAllBytes(Paths.get("/proc/self/stat")), StandardCharsets.US_ASCII);
        // The fields after the command name, which is in parentheses: state is field 3,
        // cminflt field 11.
        String[] fields = stat.substring(stat.lastIndexOf(')') + 2).trim().split(" ");
        return Long.parseLong(fields[11 - 3]);
    }
}
