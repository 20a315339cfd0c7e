package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.io.UnsupportedEncodingException;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import bundlesc.console.ArgumentParser.Token;
import bundlesc.console.fake.demo.FakeServiceImp;

class BridgeConsoleTest {

    private static final String NL = System.lineSeparator();

    private static final String FAKE_LISTING = String.join(NL,
            "demo.FakeServiceImp.countJni() -> int",
            "demo.FakeServiceImp.getInfoJni() -> String",
            "demo.FakeServiceImp.lookupJni(String) -> int",
            "demo.FakeServiceImp.lookupJni(int) -> int",
            "demo.FakeServiceImp.readJni(byte[], int) -> int",
            "demo.FakeServiceImp.setMacListJni(String[]) -> int",
            "demo.FakeServiceImp.setValueJni(int, boolean) -> int") + NL;

    @TempDir
    Path temp;

    /** Exit status and captured output of one console run. */
    static final class Run {
        int status;
        String out;
        String err;
    }

    private static Run run(ServiceCatalog catalog, String stdin, String... args) throws UnsupportedEncodingException {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        ByteArrayOutputStream err = new ByteArrayOutputStream();
        BridgeConsole console = new BridgeConsole(new ByteArrayInputStream(stdin.getBytes(StandardCharsets.UTF_8)),
                new PrintStream(out, true, "UTF-8"), new PrintStream(err, true, "UTF-8"), catalog);
        Run r = new Run();
        r.status = console.run(args);
        r.out = new String(out.toByteArray(), StandardCharsets.UTF_8);
        r.err = new String(err.toByteArray(), StandardCharsets.UTF_8);
        return r;
    }

    private static Run run(String... args) throws UnsupportedEncodingException {
        return run(ServiceCatalogTest.fakeCatalog(), "", args);
    }

    private static List<Token> tokens(String... texts) {
        Token[] tokens = new Token[texts.length];
        for (int i = 0; i < texts.length; i++) {
            tokens[i] = Token.plain(texts[i]);
        }
        return Arrays.asList(tokens);
    }

    // ---- listing -----------------------------------------------------------------------

    @Test
    void listUsesTheGivenCatalog() throws Exception {
        Run r = run("--list");
        assertEquals("", r.err);
        assertEquals(0, r.status);
        assertEquals(FAKE_LISTING, r.out);
    }

    @Test
    void listOneClass() throws Exception {
        Run r = run("--list", "FakeService");
        assertEquals(0, r.status);
        assertEquals(FAKE_LISTING, r.out);
        r = run("--list", "EmptyServiceImp");
        assertEquals(0, r.status);
        assertEquals("", r.out);
        assertTrue(r.err.contains("declares no public native methods"), r.err);
    }

    @Test
    void listUnknownClassFails() throws Exception {
        Run r = run("--list", "NoSuchService");
        assertEquals(2, r.status);
        assertTrue(r.err.startsWith("error: unknown service class 'NoSuchService'"), r.err);
        assertEquals(2, run("--list", "A", "B").status);
    }

    @Test
    void listWithNothingFoundFails() throws Exception {
        ServiceCatalog empty = new ServiceCatalog(Collections.<String>emptyList(), getClass().getClassLoader());
        Run r = run(empty, "", "--list");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("no service classes in the catalog"), r.err);
    }

    // ---- usage errors ------------------------------------------------------------------

    @Test
    void helpAndUsageErrors() throws Exception {
        Run r = run("--help");
        assertEquals(0, r.status);
        assertTrue(r.out.startsWith("Usage: "), r.out);
        assertEquals(0, run("-h").status);

        r = run();
        assertEquals(2, r.status);
        assertTrue(r.err.contains("no command given"), r.err);
        r = run("--bogus");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("unknown option --bogus"), r.err);
        assertEquals(2, run("--batch").status);
        assertEquals(2, run("--echo-off", "FakeService", "getInfo").status);
        r = run("FakeService");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("missing method name after FakeService"), r.err);
        r = run("--fresh");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("no command given"), r.err);
        r = run(ServiceCatalogTest.fakeCatalog(), "--fresh FakeService getInfo\n", "--batch", "-");
        assertEquals(1, r.status);
        assertTrue(r.err.contains("option --fresh cannot be used in a batch line"), r.err);
        assertTrue(run("--help").out.contains("  --fresh CALL-OR-BATCH"));
    }

    // ---- method selection (nothing is called: the fake has no library) -----------------

    @Test
    void unknownClassOrMethodExitsWithTwo() throws Exception {
        Run r = run("NoSuchService", "doIt");
        assertEquals(2, r.status);
        assertTrue(r.err.startsWith("error: unknown service class"), r.err);
        assertEquals("", r.out);

        r = run("FakeService", "nosuch");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("demo.FakeServiceImp has no native method 'nosuch' (its natives: countJni, "
                + "getInfoJni, lookupJni, readJni, setMacListJni, setValueJni)"), r.err);

        r = run("EmptyService", "plain");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("other.EmptyServiceImp declares no public native methods"), r.err);
    }

    @Test
    void wrongArgumentCountExitsWithTwo() throws Exception {
        Run r = run("FakeService", "setValue", "1");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("demo.FakeServiceImp.setValueJni takes 2 arguments (int, boolean) but 1 argument "
                + "was given"), r.err);
        r = run("FakeService", "lookupJni");
        assertTrue(r.err.contains("lookupJni takes (String) or (int) but 0 arguments were given"), r.err);
    }

    @Test
    void badArgumentNamesTheArgument() throws Exception {
        Run r = run("FakeService", "setValueJni", "7", "maybe");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("argument 2 of setValueJni (boolean): 'maybe' is not a boolean"), r.err);
        r = run("FakeService", "setMacList", "[\"a\",]");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("argument 1 of setMacListJni (String[]): invalid JSON array of strings: "),
                r.err);
    }

    @Test
    void selectsByNameCountAndConvertibleTypes() throws Exception {
        BridgeCore.Selection s = BridgeCore.select(FakeServiceImp.class, "getInfo", tokens());
        assertEquals("getInfoJni", s.method.getName());
        s = BridgeCore.select(FakeServiceImp.class, "setValueJni", tokens("0x10", "1"));
        assertArrayEquals(new Object[] {16, true}, s.values);
        s = BridgeCore.select(FakeServiceImp.class, "lookup", tokens("42"));
        assertEquals(Collections.singletonList(int.class), Arrays.asList(s.method.getParameterTypes()));
        assertArrayEquals(new Object[] {42}, s.values);
        s = BridgeCore.select(FakeServiceImp.class, "lookup", tokens("wan0"));
        assertEquals(Collections.singletonList(String.class), Arrays.asList(s.method.getParameterTypes()));
        s = BridgeCore.select(FakeServiceImp.class, "readJni", tokens("zeros:4", "4"));
        assertArrayEquals(new byte[4], (byte[]) s.values[0]);
        s = BridgeCore.select(FakeServiceImp.class, "setMacList", tokens("null"));
        assertArrayEquals(new Object[] {null}, s.values);
    }

    // ---- invoking (on plain Java methods standing in for natives) ----------------------

    /** Methods with the shapes of the natives, implemented in Java. */
    static final class Stand {
        public String text(String s) {
            return s == null ? null : "got " + s;
        }

        public int add(int a, int b) {
            return a + b;
        }

        public int read(byte[] buffer, int length) {
            for (int i = 0; i < length; i++) {
                buffer[i] = (byte) (0xf0 + i);
            }
            return length;
        }

        public int keep(byte[] buffer) {
            return buffer == null ? -1 : buffer.length;
        }

        public int two(byte[] a, byte[] b) {
            b[0] = 9;
            return 0;
        }

        public String[] names() {
            return new String[] {"a", null};
        }

        public void nothing() {
        }

        public String fail() {
            throw new IllegalStateException("boom");
        }

        public String unlinked() {
            throw new UnsatisfiedLinkError("'java.lang.String Stand.unlinked()'");
        }
    }

    private static List<String> invoke(String name, Object... values) throws ConsoleException {
        for (Method m : Stand.class.getDeclaredMethods()) {
            if (m.getName().equals(name)) {
                return BridgeCore.invoke(new Stand(), m, values);
            }
        }
        throw new AssertionError("no method " + name);
    }

    @Test
    void printsResults() throws Exception {
        assertEquals(Arrays.asList("got x y"), invoke("text", "x y"));
        assertEquals(Arrays.asList("(null)"), invoke("text", (Object) null));
        assertEquals(Arrays.asList("-3"), invoke("add", -5, 2));
        assertEquals(Arrays.asList("[\"a\",null]"), invoke("names"));
        assertEquals(Arrays.asList("(void)"), invoke("nothing"));
    }

    @Test
    void printsByteArraysTheNativeChanged() throws Exception {
        byte[] buffer = new byte[4];
        assertEquals(Arrays.asList("3", "bytes: [240,241,242,0]"), invoke("read", buffer, 3));
        assertEquals(Arrays.asList("0"), invoke("read", new byte[2], 0));
        assertEquals(Arrays.asList("2"), invoke("keep", new byte[] {1, 2}));
        assertEquals(Arrays.asList("-1"), invoke("keep", (Object) null));
        assertEquals(Arrays.asList("0", "bytes (argument 2): [9]"), invoke("two", new byte[1], new byte[1]));
    }

    @Test
    void reportsWhatTheCallThrew() {
        String message = assertThrows(ConsoleException.class, () -> invoke("fail")).getMessage();
        assertEquals("console.BridgeConsoleTest$Stand.fail threw java.lang.IllegalStateException: boom", message);
        message = assertThrows(ConsoleException.class, () -> invoke("unlinked")).getMessage();
        assertTrue(message.contains("unlinked() is not implemented by the loaded library: UnsatisfiedLinkError"),
                message);
    }

    // ---- batch -------------------------------------------------------------------------

    private static final String BATCH = String.join("\n",
            "# a comment",
            "",
            "   --list   FakeService  ",
            "FakeService nosuch",
            "  # indented comment",
            "FakeService setValue 1 maybe",
            "FakeService setMacList [\"a b\", \"c\"",
            "--batch other.txt",
            "--list EmptyService",
            "");

    @Test
    void batchEchoesCommandsAndContinuesAfterErrors() throws Exception {
        Path file = temp.resolve("commands.txt");
        Files.write(file, BATCH.getBytes(StandardCharsets.UTF_8));
        Run r = run(ServiceCatalogTest.fakeCatalog(), "", "--batch", file.toString());
        assertEquals(1, r.status);
        assertEquals("> --list   FakeService" + NL + FAKE_LISTING
                + "> FakeService nosuch" + NL
                + "> FakeService setValue 1 maybe" + NL
                + "> FakeService setMacList [\"a b\", \"c\"" + NL
                + "> --batch other.txt" + NL
                + "> --list EmptyService" + NL, r.out);
        String[] errors = r.err.split("\\R");
        assertEquals(5, errors.length, r.err);
        assertTrue(errors[0].startsWith("error: line 4: demo.FakeServiceImp has no native method 'nosuch'"), errors[0]);
        assertTrue(errors[1].startsWith("error: line 6: argument 2 of setValueJni (boolean)"), errors[1]);
        assertTrue(errors[2].startsWith("error: line 7: unterminated JSON array starting at character 24"),
                errors[2]);
        assertTrue(errors[3].startsWith("error: line 8: option --batch cannot be used in a batch line"), errors[3]);
        assertTrue(errors[4].startsWith("note: "), errors[4]);
    }

    @Test
    void batchFromStandardInputWithEchoOff() throws Exception {
        Run r = run(ServiceCatalogTest.fakeCatalog(), "# only a listing\n--list FakeServiceImp\n",
                "--echo-off", "--batch", "-");
        assertEquals(0, r.status);
        assertEquals("", r.err);
        assertEquals(FAKE_LISTING, r.out);
        assertFalse(r.out.startsWith("> ") || r.out.contains(NL + "> "));
    }

    @Test
    void batchArgumentErrors() throws Exception {
        Run r = run("--batch", temp.resolve("missing.txt").toString());
        assertEquals(2, r.status);
        assertTrue(r.err.contains("cannot open batch file"), r.err);
        r = run("--batch", "-", "FakeService", "getInfo");
        assertEquals(2, r.status);
        assertTrue(r.err.contains("--batch takes no command"), r.err);
        r = run("--batch", "-", "--list");
        assertEquals(2, r.status);
    }
}
