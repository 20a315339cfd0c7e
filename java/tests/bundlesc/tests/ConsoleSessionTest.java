package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.lumarest.smartgateway.addressservices.PortMappingQueryServiceImp;
import java.io.File;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/**
 * The console against the simulated gateway, each run a JVM of its own: the configuration tree
 * goes where BRELO_SIM_SAVE says, else into a folder of the session's own that the console
 * prints, never into the build; --fresh starts from the default gateway.
 */
class ConsoleSessionTest {
    private static final String RULE = "{\"PortMappingIndex\":1,\"PortMappingEnabled\":\"TRUE\","
            + "\"ExternalPort\":5060,\"InternalPort\":5060,\"PortMappingProtocol\":\"UDP\","
            + "\"InternalClient\":\"192.168.1.50\"}";
    private static final Pattern SESSION = Pattern.compile(
            "simulated gateway: this session saves its configuration tree in (\\S+)"
            + " \\(BRELO_SIM_SAVE=FILE keeps it from one session to the next\\)");

    @TempDir
    Path temp;

    /** The console with `args`, its temporary folder in the test's; save: BRELO_SIM_SAVE or null. */
    private ChildJvm console(String save, String... args) throws Exception {
        List<String> command = new ArrayList<String>(Arrays.asList("-Djava.io.tmpdir=" + temp, "-cp",
                ChildJvm.location(PortMappingQueryServiceImp.class) + File.pathSeparator + "/usr/share/java/gson.jar",
                "bundlesc.console.BridgeConsole"));
        command.addAll(Arrays.asList(args));
        ChildJvm run = ChildJvm.run(Collections.singletonMap("BRELO_SIM_SAVE", save), command.toArray(new String[0]));
        assertEquals(0, run.status, run.out + run.err);
        return run;
    }

    private List<String> sessionFolders() throws Exception {
        try (Stream<Path> entries = Files.list(temp)) {
            return entries.map(e -> e.getFileName().toString()).filter(n -> n.startsWith("bundle_sc-session-"))
                    .collect(Collectors.toList());
        }
    }

    @Test
    void aSessionSavesInAFolderOfItsOwnAndTheNextReadsItOnlyWhenAsked() throws Exception {
        ChildJvm first = console(null, "PortMappingConfigService", "addPortMappingJni", "4", "5060", "5060", "UDP",
                "192.168.1.50");
        assertEquals("0\n", first.out);
        Matcher m = SESSION.matcher(first.err);
        assertTrue(m.find(), first.err);
        Path saved = new File(m.group(1)).toPath();
        assertEquals(temp, saved.getParent().getParent());
        assertTrue(new String(Files.readAllBytes(saved), StandardCharsets.UTF_8)
                .contains("[tcapi VirServer_Entry24_Entry0]\nProtocal = \"UDP\"\n"));

        // A session of its own again: the default gateway, not the tree the first one saved.
        ChildJvm second = console(null, "PortMappingQueryService", "getPortMappingInfoJni");
        assertFalse(second.out.contains(RULE), second.out);
        assertEquals(1, sessionFolders().size(), "the second session saved nothing: its folder went");

        // Named in BRELO_SIM_SAVE, the saved tree is read back, and nothing is printed.
        ChildJvm third = console(saved.toString(), "PortMappingQueryService", "getPortMappingInfoJni");
        assertTrue(third.out.contains("\"MapList\":[" + RULE + "]"), third.out);
        assertEquals("", third.err);
        // The shipped rules of the other WAN are still there: the saved tree replaced only its nodes.
        assertTrue(third.out.contains("\"InternalClient\":\"192.168.1.33\""), third.out);

        // --fresh: the default gateway, whatever was saved.
        ChildJvm fresh = console(saved.toString(), "--fresh", "PortMappingQueryService", "getPortMappingInfoJni");
        assertFalse(fresh.out.contains(RULE), fresh.out);
        assertEquals("", fresh.err);
    }
}
