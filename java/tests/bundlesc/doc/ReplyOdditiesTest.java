package bundlesc.doc;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import java.util.concurrent.Callable;
import java.util.stream.Stream;

import org.junit.jupiter.api.DynamicTest;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.TestFactory;

import com.google.gson.JsonParser;
import com.lumarest.smartgateway.accessservices.AccessInfoQueryServiceImp;
import com.lumarest.smartgateway.accessservices.TraceRouteDiagnosticsServiceImp;
import com.lumarest.smartgateway.commservices.UsbServiceImp;
import com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp;
import com.lumarest.smartgateway.lanservices.LanNetworkNameConfigServiceImp;
import com.lumarest.smartgateway.lanservices.WlanQueryServiceImp;
import com.lumarest.smartgateway.transferservices.L2TPVPNServiceImp;
import com.lumarest.smartgateway.transferservices.TrafficDetailProcessServiceImp;
import com.lumarest.smartgateway.voipservices.VoIPInfoQueryServiceImp;

import bundlesc.reply.Reply;
import bundlesc.reply.ReplyReader;
import bundlesc.reply.Repair;
import bundlesc.sim.GatewaySim;

/**
 * The reply reader against the reference: every example of the reference reads as it should
 * (JSON examples as Gson reads them, nothing repaired; plain texts as texts), every
 * {@code @oddity} transcript reads with exactly the oddities its block names, and every
 * oddity a block names without a transcript is brought about here on the default simulated
 * gateway (the state a gateway can be in, set through the simulator) and read with exactly
 * those repairs. The oddities the blocks name, and so the reference's page of oddities, are
 * exactly the ones shown here.
 */
class ReplyOdditiesTest {

    /** An oddity brought about on the default simulated gateway. */
    static final class Case {
        final String nativeKey;
        final Runnable setup;
        final Callable<String> call;
        final Set<String> kinds;

        Case(String nativeKey, Runnable setup, Callable<String> call, Repair.Kind... kinds) {
            this.nativeKey = nativeKey;
            this.setup = setup;
            this.call = call;
            this.kinds = new TreeSet<String>();
            for (Repair.Kind k : kinds) {
                this.kinds.add(k.name());
            }
        }
    }

    private static final String ONLINE_HOST = "00:E0:4C:68:01:A2";

    static final List<Case> CASES = Arrays.asList(
            new Case("accessservices.AccessInfoQueryServiceImp.getWANIfListJni",
                    () -> GatewaySim.set("wan 12", "PVC", "11"),
                    () -> new AccessInfoQueryServiceImp().getWANIfListJni(), Repair.Kind.TRAILING_COMMA),
            new Case("accessservices.TraceRouteDiagnosticsServiceImp.getTraceRouteDiagnosticsResultJni",
                    () -> GatewaySim.set("traceroute", "hop_count", "200"),
                    () -> new TraceRouteDiagnosticsServiceImp().getTraceRouteDiagnosticsResultJni(),
                    Repair.Kind.TRAILING_COMMA),
            // A host listed twice, last: its record is skipped, its comma stays.
            new Case("lanservices.LANHostsInfoQueryServiceImp.getLANHostInfoByClassJni",
                    () -> host("host 8", ONLINE_HOST, "1", "again"),
                    () -> new LANHostsInfoQueryServiceImp().getLANHostInfoByClassJni("ONLINE"),
                    Repair.Kind.TRAILING_COMMA),
            // The same with a blocked host: its comma and the one before the offline blocked
            // hosts follow each other.
            new Case("lanservices.LANHostsInfoQueryServiceImp.getLANHostInfoByClassJni",
                    () -> host("host 8", "3C:5A:B4:10:22:07", "1", "again"),
                    () -> new LANHostsInfoQueryServiceImp().getLANHostInfoByClassJni("BLOCK"),
                    Repair.Kind.STRAY_COMMA),
            new Case("lanservices.LANHostsInfoQueryServiceImp.getLANHostInfoByClassJni",
                    () -> {
                        char[] name = new char[240];
                        Arrays.fill(name, 'n');
                        for (int i = 0; i < 250; i++) {
                            host("host " + (100 + i), String.format("02:00:00:00:%02X:%02X", i / 256, i % 256), "1",
                                    new String(name));
                        }
                    },
                    () -> new LANHostsInfoQueryServiceImp().getLANHostInfoByClassJni("ONLINE"),
                    Repair.Kind.CUT_SHORT),
            new Case("lanservices.LANHostsInfoQueryServiceImp.getLANHostInfoByMACJni",
                    () -> new LanNetworkNameConfigServiceImp().setLANHostNameJni(ONLINE_HOST, "Study\tPC"),
                    () -> new LANHostsInfoQueryServiceImp().getLANHostInfoByMACJni(new String[] {ONLINE_HOST}),
                    Repair.Kind.CONTROL_CHARACTER),
            new Case("lanservices.WlanQueryServiceImp.getGuestSSIDInfoJni",
                    () -> GatewaySim.set("tcapi WLanForGuest_Entry0", "SSIDIndex", ""),
                    () -> new WlanQueryServiceImp().getGuestSSIDInfoJni(), Repair.Kind.MISSING_VALUE),
            new Case("lanservices.WlanQueryServiceImp.getGuestSSIDInfoJni",
                    () -> GatewaySim.set("tcapi WLanForGuest_Entry0", "SSIDIndex", "03"),
                    () -> new WlanQueryServiceImp().getGuestSSIDInfoJni(), Repair.Kind.BARE_VALUE),
            new Case("commservices.UsbServiceImp.getStorageInfoJni",
                    () -> GatewaySim.set("storage 1", "total", ""),
                    () -> new UsbServiceImp().getStorageInfoJni(), Repair.Kind.MISSING_VALUE),
            new Case("commservices.UsbServiceImp.getStorageInfoJni",
                    () -> GatewaySim.set("storage 2", "free", "n/a"),
                    () -> new UsbServiceImp().getStorageInfoJni(), Repair.Kind.BARE_VALUE),
            new Case("transferservices.TrafficDetailProcessServiceImp.getHTTPTrafficProcessRuleInfoJni",
                    () -> GatewaySim.set("http rule 1", "method_list", "GET,POST"),
                    () -> new TrafficDetailProcessServiceImp().getHTTPTrafficProcessRuleInfoJni(),
                    Repair.Kind.BARE_VALUE),
            new Case("transferservices.L2TPVPNServiceImp.getConnectedIpListJni",
                    () -> GatewaySim.set("vpn", "connected_list", "10.255.0.6,10.255.0.1"),
                    () -> new L2TPVPNServiceImp().getConnectedIpListJni(), Repair.Kind.BARE_VALUE),
            new Case("voipservices.VoIPInfoQueryServiceImp.getPOTSInfoJni",
                    () -> GatewaySim.set("voip", "lines", "60"),
                    () -> new VoIPInfoQueryServiceImp().getPOTSInfoJni(), Repair.Kind.CUT_SHORT));

    private static void host(String section, String mac, String online, String name) {
        GatewaySim.set(section, "mac", mac);
        GatewaySim.set(section, "dhcp_name", "h");
        GatewaySim.set(section, "device_name", name);
        GatewaySim.set(section, "ip", "192.168.1.99");
        GatewaySim.set(section, "ipv6", "");
        GatewaySim.set(section, "port", "1");
        GatewaySim.set(section, "online", online);
    }

    static List<NativeDoc> natives() throws Exception {
        String root = System.getenv("BUNDLE_SOURCE_DIR");
        assertNotNull(root, "BUNDLE_SOURCE_DIR names the source tree");
        return ReferenceSources.read(new File(root, "java/services"));
    }

    private static Set<String> kinds(Reply reply) {
        Set<String> kinds = new TreeSet<String>();
        for (Repair r : reply.repairs()) {
            kinds.add(r.kind().name());
        }
        return kinds;
    }

    @TestFactory
    Stream<DynamicTest> everyExampleReadsWithNothingRepaired() throws Exception {
        List<DynamicTest> tests = new ArrayList<DynamicTest>();
        for (NativeDoc n : natives()) {
            if (!n.hasExample() || !n.returnsString()) {
                continue;
            }
            String text = n.exampleOutput.get(0);
            tests.add(DynamicTest.dynamicTest(n.key(), () -> {
                Reply reply = ReplyReader.read(text);
                assertEquals(Collections.emptyList(), reply.repairs(), text);
                if (text.startsWith("{")) {
                    assertEquals(Reply.Form.JSON, reply.form(), text);
                    assertEquals(JsonParser.parseString(text), reply.tree(), text);
                } else {
                    assertEquals(Reply.Form.TEXT, reply.form(), text);
                    assertEquals(text, reply.tree().getAsString());
                }
            }));
        }
        assertTrue(tests.size() > 60, "the reference's examples: " + tests.size());
        return tests.stream();
    }

    @TestFactory
    Stream<DynamicTest> everyOddityTranscriptReadsWithTheOdditiesItNames() throws Exception {
        List<DynamicTest> tests = new ArrayList<DynamicTest>();
        for (NativeDoc n : natives()) {
            for (NativeDoc.Oddity o : n.oddities) {
                if (o.reply() == null) {
                    continue;
                }
                tests.add(DynamicTest.dynamicTest(n.key() + " " + o.kinds, () -> {
                    Reply reply = ReplyReader.read(o.reply());
                    assertEquals(Reply.Form.JSON, reply.form(), o.reply());
                    assertEquals(new TreeSet<String>(o.kinds), kinds(reply), o.reply() + " " + reply.repairs());
                }));
            }
        }
        assertFalse(tests.isEmpty(), "no @oddity transcript in the reference");
        return tests.stream();
    }

    @TestFactory
    Stream<DynamicTest> everyOddityShowsOnTheSimulatedGateway() {
        List<DynamicTest> tests = new ArrayList<DynamicTest>();
        for (Case c : CASES) {
            tests.add(DynamicTest.dynamicTest(c.nativeKey + " " + c.kinds, () -> {
                assertEquals(0, GatewaySim.loadDefault(), "the default simulated gateway did not load");
                c.setup.run();
                String text = c.call.call();
                Reply reply = ReplyReader.read(text);
                assertEquals(Reply.Form.JSON, reply.form(), text);
                assertEquals(c.kinds, kinds(reply), text + " " + reply.repairs());
            }));
        }
        return tests.stream();
    }

    /** "package.Class.method KIND" of every oddity named in the reference or shown here. */
    @Test
    void theReferenceNamesExactlyTheOdditiesShown() throws Exception {
        Set<String> named = new TreeSet<String>();
        Set<String> shown = new TreeSet<String>();
        for (NativeDoc n : natives()) {
            for (NativeDoc.Oddity o : n.oddities) {
                for (String k : o.kinds) {
                    named.add(n.key() + " " + k);
                    if (o.reply() != null) {
                        shown.add(n.key() + " " + k);
                    }
                }
            }
        }
        for (Case c : CASES) {
            for (String k : c.kinds) {
                shown.add(c.nativeKey + " " + k);
            }
        }
        assertEquals(shown, named, "the @oddity blocks of the service classes and the oddities shown "
                + "(transcripts and this test's cases) differ");
    }

    // ---- the tool's side

    @Test
    void oddityBlocksAreRead() throws Exception {
        String comment = String.join("\n",
                "Lists things.",
                "@param x a thing",
                "@oddity TRAILING_COMMA,STRAY_COMMA With a {@code [x]}",
                "   repeated.",
                "@oddity MISSING_COMMA Two at once: <pre>{@code",
                " > DemoService addJni 6",
                " 0",
                " > DemoService getJni",
                " [{}{}]",
                " }</pre>",
                "@return the list");
        List<NativeDoc.Oddity> oddities = ReferenceSources.oddities(comment, "here");
        assertEquals(2, oddities.size());
        assertEquals(Arrays.asList("TRAILING_COMMA", "STRAY_COMMA"), oddities.get(0).kinds);
        assertEquals("With a {@code [x]} repeated.", oddities.get(0).words);
        assertTrue(oddities.get(0).transcript.isEmpty());
        assertEquals(null, oddities.get(0).reply());
        assertEquals("Two at once:", oddities.get(1).words);
        assertEquals(Arrays.asList("> DemoService addJni 6", "0", "> DemoService getJni", "[{}{}]"),
                oddities.get(1).transcript);
        assertEquals("[{}{}]", oddities.get(1).reply());
        assertTrue(ReferenceSources.oddities("no oddity", "here").isEmpty());
        for (String bad : new String[] {"@oddity missing names", "@oddity TRAILING_COMMA <pre>{@code\n0\n}</pre>",
                "@oddity TRAILING_COMMA <pre>{@code\n> A b\n}</pre>", "@oddity TRAILING_COMMA <pre>{@code\n> A b\n"}) {
            assertThrows(ReferenceSources.SourceException.class, () -> ReferenceSources.oddities(bad, "here"), bad);
        }
    }

    @Test
    void anOddityTheReaderDoesNotKnowStopsTheReference() {
        NativeDoc n = new NativeDoc("demoservices", "DemoServiceImp", "getJni", "String",
                Collections.<String>emptyList(), Collections.<String>emptyList(), "c", null,
                Collections.<String>emptyList(), Arrays.asList(new NativeDoc.Oddity(Arrays.asList("NO_SUCH"), "w",
                        Collections.<String>emptyList())));
        ReferenceSources.SourceException e = assertThrows(ReferenceSources.SourceException.class,
                () -> ReferenceTool.checkOddityNames(Arrays.asList(n)));
        assertTrue(e.getMessage().contains("NO_SUCH"), e.getMessage());
    }

    @Test
    void theOdditiesPageListsEveryOddityWithTheNativesThatShowIt() throws Exception {
        List<NativeDoc> natives = natives();
        ReferenceTool.checkOddityNames(natives);
        String page = ReferenceTool.odditiesPage(natives);
        for (Repair.Kind k : Repair.Kind.values()) {
            assertTrue(page.contains("<tr id=\"" + k + "\">"), k.name());
        }
        for (NativeDoc n : natives) {
            if (!n.oddities.isEmpty()) {
                assertTrue(page.contains("href=\"" + Html.escape(ReferenceTool.docLink(n)) + "\""), n.key());
            }
        }
        assertTrue(page.contains("none known"), "an oddity no native shows is said so");
        assertTrue(page.contains("getDeviceMACJni</code></a>, e.g. <code>00:1A:2B:3C:4D:5E</code>"),
                "the plain-text natives are listed with their examples");
        assertEquals("com/lumarest/smartgateway/lanservices/LANHostsInfoQueryServiceImp.html"
                + "#getLANHostInfoByMACJni(java.lang.String[])", ReferenceTool.docLink(natives.stream()
                        .filter(x -> x.key().equals("lanservices.LANHostsInfoQueryServiceImp.getLANHostInfoByMACJni"))
                        .findFirst().get()));
        assertEquals("a <code>[x]</code> and <code>&#123;&#125;</code> and <code>open</code>",
                ReferenceTool.inlineCode(" a {@code [x]} and {@code {}} and {@code open"));
    }
}
