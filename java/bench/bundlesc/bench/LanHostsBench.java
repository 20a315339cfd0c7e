package bundlesc.bench;

import bundlesc.sim.GatewaySim;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;
import java.util.Arrays;

/**
 * Time per call of the LAN host queries in a real JVM against a simulated gateway of N hosts
 * (16, 64 and 256 by default): the class query ("ONLINE") and the MAC query asking for every
 * host's MAC text. The whole call is timed: argument conversion, the simulated platform, the
 * reply and the Java string. Medians of rounds after a warm-up; run through
 * bench/run-jvm-bench.sh's environment (BRELO_SIM_LOG=off, no flag file).
 *
 * <p>Usage: LanHostsBench [--rounds N] [--calls N] [hosts...]
 */
public final class LanHostsBench {
    private LanHostsBench() {}

    public static void main(String[] argv) {
        int rounds = 15;
        int calls = 50;
        int[] sizes = {16, 64, 256};
        int n = 0;
        int[] given = new int[argv.length];
        for (int i = 0; i < argv.length; i++) {
            if (argv[i].equals("--rounds") && i + 1 < argv.length) {
                rounds = Integer.parseInt(argv[++i]);
            } else if (argv[i].equals("--calls") && i + 1 < argv.length) {
                calls = Integer.parseInt(argv[++i]);
            } else {
                given[n++] = Integer.parseInt(argv[i]);
            }
        }
        if (n > 0) {
            sizes = Arrays.copyOf(given, n);
        }
        LANHostsInfoQueryServiceImp service = new LANHostsInfoQueryServiceImp();
        System.out.println("| hosts | class query µs | class reply bytes | MAC query µs | MAC reply bytes |");
        System.out.println("|---:|---:|---:|---:|---:|");
        for (int hosts : sizes) {
            String[] macs = loadHosts(hosts);
            String classReply = service.getLANHostInfoByClassJni("ONLINE");
            String macReply = service.getLANHostInfoByMACJni(macs);
            double classUs = median(rounds, calls, () -> service.getLANHostInfoByClassJni("ONLINE"));
            double macUs = median(rounds, calls, () -> service.getLANHostInfoByMACJni(macs));
            System.out.printf("| %d | %.1f | %d | %.1f | %d |%n", hosts, classUs, classReply.length(),
                    macUs, macReply.length());
        }
    }

    /** A gateway of `n` hosts, named and addressed like busy home networks; their MAC texts. */
    private static String[] loadHosts(int n) {
        GatewaySim.reset();
        String[] macs = new String[n];
        for (int i = 0; i < n; i++) {
            String s = "host " + (i + 1);
            macs[i] = String.format("3C:5A:B4:%02X:%02X:%02X", (i * 37) & 0xFF, (i >> 8) & 0xFF, i & 0xFF);
            GatewaySim.set(s, "mac", macs[i]);
            GatewaySim.set(s, "dhcp_name", "android-" + (100000 + i * 7919));
            GatewaySim.set(s, "device_name", "Living room device " + i);
            GatewaySim.set(s, "ip", "192.168." + (1 + i / 250) + "." + (2 + i % 250));
            GatewaySim.set(s, "ipv6", i % 2 == 1 ? "2001:db8:1::" + i : "");
            GatewaySim.set(s, "port", Integer.toString(1 + i % 12));
            GatewaySim.set(s, "online_time", Integer.toString(i * 61));
            GatewaySim.set(s, "class_code", "0");
        }
        return macs;
    }

    /** Median over rounds of the mean wall time per call of a round of `calls` calls, in µs. */
    private static double median(int rounds, int calls, Runnable call) {
        for (int i = 0; i < calls * 4; i++) {
            call.run();  // warm-up: compiled paths, the simulator's host table built
        }
        double[] perCall = new double[rounds];
        for (int r = 0; r < rounds; r++) {
            long t0 = System.nanoTime();
            for (int i = 0; i < calls; i++) {
                call.run();
            }
            perCall[r] = (System.nanoTime() - t0) / 1000.0 / calls;
        }
        Arrays.sort(perCall);
        return perCall[rounds / 2];
    }
}
