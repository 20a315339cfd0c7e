package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.Collections;

import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import bundlesc.console.fake.sim.FakeSimulator;

/** Where a console session's configuration tree goes, against a simulator that records its calls. */
class SimulatorSessionTest {
    private static final String FAKE = FakeSimulator.class.getName();

    @TempDir
    Path temp;

    private final ByteArrayOutputStream notes = new ByteArrayOutputStream();

    @BeforeEach
    void freshFake() {
        FakeSimulator.CALLS.clear();
        FakeSimulator.freshResult = 0;
        FakeSimulator.failSave = false;
    }

    private SimulatorSession begin(boolean fresh, String save, String simulator) throws ConsoleException {
        return SimulatorSession.begin(fresh, save, simulator, temp, new PrintStream(notes, true));
    }

    private String notes() {
        return new String(notes.toByteArray(), StandardCharsets.UTF_8);
    }

    @Test
    void aSavePathTheUserSetIsLeftToTheSimulator() throws Exception {
        for (String save : Arrays.asList("/somewhere/tree.ini", "")) {
            SimulatorSession session = begin(false, save, FAKE);
            assertNull(session.folder);
            session.end();
        }
        assertEquals(Collections.emptyList(), FakeSimulator.CALLS);
        assertEquals("", notes());
    }

    @Test
    void otherwiseTheSessionSavesInAFolderOfItsOwnItPrints() throws Exception {
        SimulatorSession session = begin(false, null, FAKE);
        assertTrue(Files.isDirectory(session.folder));
        assertEquals(temp, session.folder.getParent());
        assertTrue(session.folder.getFileName().toString().startsWith("bundle_sc-session-"));
        String file = session.folder.resolve("tcapi-saved.ini").toString();
        assertEquals(Collections.singletonList("setSavePath " + file), FakeSimulator.CALLS);
        assertEquals("simulated gateway: this session saves its configuration tree in " + file
                + " (BRELO_SIM_SAVE=FILE keeps it from one session to the next)" + System.lineSeparator(), notes());
        session.end();  // nothing saved: the folder goes
        assertFalse(Files.exists(session.folder));
    }

    @Test
    void aFolderWithASavedTreeStays() throws Exception {
        SimulatorSession session = begin(false, null, FAKE);
        Files.write(session.folder.resolve("tcapi-saved.ini"), new byte[] {'#'});
        session.end();
        assertTrue(Files.exists(session.folder.resolve("tcapi-saved.ini")));
    }

    @Test
    void freshLoadsTheDefaultGatewayWithoutTheSavedTree() throws Exception {
        assertNull(begin(true, "/somewhere/tree.ini", FAKE).folder);
        assertEquals(Collections.singletonList("loadFresh"), FakeSimulator.CALLS);
        SimulatorSession session = begin(true, null, FAKE);
        assertEquals(Arrays.asList("loadFresh", "loadFresh",
                "setSavePath " + session.folder.resolve("tcapi-saved.ini")), FakeSimulator.CALLS);
        session.end();
    }

    @Test
    void aFreshLoadThatFailsEndsTheSession() {
        FakeSimulator.freshResult = -1;
        ConsoleException e = assertThrows(ConsoleException.class, () -> begin(true, "", FAKE));
        assertEquals("the default simulated gateway did not load", e.getMessage());
    }

    @Test
    void onTheGatewayThereIsNoSimulatorAndNothingIsDone() throws Exception {
        assertNull(begin(false, null, "bundlesc.no.Simulator").folder);
        assertEquals("", notes());
        ConsoleException e = assertThrows(ConsoleException.class, () -> begin(true, null, "bundlesc.no.Simulator"));
        assertEquals("--fresh needs the simulated gateway (bundlesc.no.Simulator on the class path, "
                + "its library on java.library.path)", e.getMessage());
    }

    @Test
    void aSimulatorThatCannotDoItIsReported() throws Exception {
        ConsoleException e = assertThrows(ConsoleException.class, () -> begin(true, null, "java.lang.Object"));
        assertTrue(e.getMessage().startsWith("the simulated gateway has no loadFresh: "), e.getMessage());
        FakeSimulator.failSave = true;
        e = assertThrows(ConsoleException.class, () -> begin(false, null, FAKE));
        assertEquals("the simulated gateway's setSavePath failed: java.lang.IllegalStateException: no room",
                e.getMessage());
        try (java.util.stream.Stream<Path> left = Files.list(temp)) {
            assertEquals(0, left.count());  // the session's folder went with it
        }
    }

    @Test
    void aFolderThatCannotBeMadeIsReported() throws Exception {
        Path file = Files.write(temp.resolve("a-file"), new byte[0]);
        ConsoleException e = assertThrows(ConsoleException.class,
                () -> SimulatorSession.begin(false, null, FAKE, file, new PrintStream(notes, true)));
        assertTrue(e.getMessage().startsWith("cannot make a folder for this session's configuration tree: "),
                e.getMessage());
    }
}
