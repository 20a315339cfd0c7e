package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static org.junit.jupiter.api.Assertions.fail;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Stream;

import org.junit.jupiter.api.DynamicTest;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.TestFactory;

import bundlesc.sim.GatewaySim;

/**
 * The examples of the reference cannot lie: every example documented on a native is run
 * through the bridge console against the default simulated gateway, loaded afresh for each,
 * and its output must be the documented text byte for byte. So is every transcript of an
 * {@code @oddity} block, commands echoed.
 *
 * <p>The examples come from the file the reference tool writes at build time (system
 * property {@code bundlesc.reference.examples}).
 */
class ReferenceExamplesTests {

    static final String PROPERTY = "bundlesc.reference.examples";
    private static final String NL = System.lineSeparator();

    /** One native of the examples file, with its example when it has one. */
    static final class Example {
        String className;
        String method;
        String returnType;
        String parameters;
        boolean documented;
        String call;
        final List<String> output = new ArrayList<String>();
        /** The transcripts of its @oddity blocks (console commands "> ..." and their output). */
        final List<List<String>> transcripts = new ArrayList<List<String>>();

        String simpleClassName() {
            return className.substring(className.lastIndexOf('.') + 1);
        }

        String name() {
            return simpleClassName() + "." + method;
        }
    }

    static List<Example> read() throws IOException {
        String path = System.getProperty(PROPERTY);
        if (path == null || path.isEmpty()) {
            fail("system property " + PROPERTY + " names no examples file (the build writes it; ctest passes it)");
        }
        List<String> lines = Files.readAllLines(new File(path).toPath(), StandardCharsets.UTF_8);
        assertFalse(lines.isEmpty(), path + " is empty");
        assertEquals("# bundle_sc reference examples 1", lines.get(0), path + " is not an examples file");
        List<Example> result = new ArrayList<Example>();
        Example current = null;
        for (String line : lines) {
            if (line.startsWith("#")) {
                continue;
            }
            int tab = line.indexOf('\t');
            String kind = tab < 0 ? line : line.substring(0, tab);
            String rest = tab < 0 ? "" : line.substring(tab + 1);
            if (kind.equals("native")) {
                String[] f = rest.split("\t", -1);
                assertEquals(5, f.length, "malformed line in " + path + ": " + line);
                current = new Example();
                current.className = f[0];
                current.method = f[1];
                current.returnType = f[2];
                current.parameters = f[3];
                current.documented = f[4].equals("documented");
                result.add(current);
            } else if (kind.equals("call") && current != null) {
                current.call = rest;
            } else if (kind.equals("output") && current != null && current.call != null) {
                current.output.add(rest);
            } else if (kind.equals("oddity") && current != null) {
                current.transcripts.add(new ArrayList<String>());
            } else if (kind.equals("transcript") && current != null && !current.transcripts.isEmpty()) {
                current.transcripts.get(current.transcripts.size() - 1).add(rest);
            } else {
                fail("malformed line in " + path + ": " + line);
            }
        }
        return result;
    }

    @TestFactory
    Stream<DynamicTest> everyExampleGivesTheDocumentedReply() throws IOException {
        List<DynamicTest> tests = new ArrayList<DynamicTest>();
        for (final Example e : read()) {
            if (e.call != null) {
                tests.add(DynamicTest.dynamicTest(e.name(), () -> check(e)));
            }
        }
        assertFalse(tests.isEmpty(), "no examples documented at all");
        return tests.stream();
    }

    @TestFactory
    Stream<DynamicTest> everyOddityTranscriptGivesTheDocumentedReplies() throws IOException {
        List<DynamicTest> tests = new ArrayList<DynamicTest>();
        for (final Example e : read()) {
            for (final List<String> transcript : e.transcripts) {
                if (!transcript.isEmpty()) {
                    tests.add(DynamicTest.dynamicTest(e.name() + " oddity", () -> checkTranscript(e, transcript)));
                }
            }
        }
        assertFalse(tests.isEmpty(), "no oddity documented with a transcript");
        return tests.stream();
    }

    private static void check(Example e) throws Exception {
        StringBuilder expected = new StringBuilder();
        for (String l : e.output) {
            expected.append(l).append(NL);
        }
        run(e, e.simpleClassName() + " " + e.call + "\n", expected.toString(), "--echo-off");
    }

    private static void checkTranscript(Example e, List<String> transcript) throws Exception {
        StringBuilder commands = new StringBuilder();
        StringBuilder expected = new StringBuilder();
        for (String l : transcript) {
            if (l.startsWith("> ")) {
                commands.append(l.substring(2)).append('\n');
            }
            expected.append(l).append(NL);
        }
        run(e, commands.toString(), expected.toString());
    }

    /** Runs batch lines through the console on the default simulated gateway; the output must be `expected`. */
    private static void run(Example e, String lines, String expected, String... options) throws Exception {
        assertEquals(0, GatewaySim.loadDefault(), "the default simulated gateway did not load");
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        ByteArrayOutputStream err = new ByteArrayOutputStream();
        BridgeConsole console = new BridgeConsole(new ByteArrayInputStream(lines.getBytes(StandardCharsets.UTF_8)),
                new PrintStream(out, true, "UTF-8"), new PrintStream(err, true, "UTF-8"), null);
        List<String> args = new ArrayList<String>(java.util.Arrays.asList("--batch", "-"));
        args.addAll(java.util.Arrays.asList(options));
        int status = console.run(args.toArray(new String[0]));
        String actual = new String(out.toByteArray(), StandardCharsets.UTF_8);
        String errors = new String(err.toByteArray(), StandardCharsets.UTF_8);
        if (status != BridgeConsole.EXIT_OK || !errors.isEmpty() || !expected.equals(actual)) {
            fail("the example of " + e.className + "." + e.method + " differs from the default simulated gateway\n"
                    + "  call:     " + indent(lines) + "\n"
                    + "  expected: " + indent(expected) + "\n"
                    + "  actual:   " + indent(actual)
                    + (errors.isEmpty() ? "" : "\n  console:  " + indent(errors)));
        }
    }

    private static String indent(String text) {
        String t = text.endsWith(NL) ? text.substring(0, text.length() - NL.length()) : text;
        return t.replace(NL, "\n            ");
    }

    @Test
    void everyQueryOfADocumentedPackageHasAnExample() throws IOException {
        List<String> missing = new ArrayList<String>();
        for (Example e : read()) {
            if (e.documented && e.returnType.equals("String") && e.call == null) {
                missing.add(e.className + "." + e.method);
            }
        }
        assertTrue(missing.isEmpty(), "natives returning String without an @example: " + missing);
    }

    @Test
    void everyExampleCallsTheNativeItDocuments() throws IOException {
        List<String> wrong = new ArrayList<String>();
        for (Example e : read()) {
            if (e.call == null) {
                continue;
            }
            String first = e.call.trim().split("\\s+", 2)[0];
            if (!first.equals(e.method) && !(first + "Jni").equals(e.method)) {
                wrong.add(e.className + "." + e.method + " (its example calls " + first + ")");
            }
        }
        for (Example e : read()) {
            for (List<String> transcript : e.transcripts) {
                String last = null;
                for (String l : transcript) {
                    last = l.startsWith("> ") ? l : last;
                }
                String[] words = last == null ? new String[0] : last.substring(2).trim().split("\\s+", 3);
                boolean ok = words.length >= 2
                        && e.className.endsWith("." + words[0] + (words[0].endsWith("Imp") ? "" : "Imp"))
                        && (words[1].equals(e.method) || (words[1] + "Jni").equals(e.method));
                if (!transcript.isEmpty() && !ok) {
                    wrong.add(e.className + "." + e.method + " (its oddity transcript ends with " + last + ")");
                }
            }
        }
        assertTrue(wrong.isEmpty(), "examples calling another native: " + wrong);
    }
}
