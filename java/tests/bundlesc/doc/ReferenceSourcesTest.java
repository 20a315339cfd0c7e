package bundlesc.doc;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashSet;
import java.util.List;

import org.junit.jupiter.api.Test;

/** The reference tool's reading of doc comments and examples, and its overview page. */
class ReferenceSourcesTest {

    private static final String SOURCE = String.join("\n",
            "package com.lumarest.smartgateway.demoservices;",
            "",
            "/** A demo service. */",
            "public class DemoServiceImp {",
            "    static {",
            "        System.loadLibrary(\"bundle_sc\"); // not a native; public native int fake();",
            "    }",
            "",
            "    /**",
            "     * Reads the demo value.",
            "     *",
            "     * <p>More words.",
            "     *",
            "     * @param index which value",
            "     * @return a JSON object",
            "     * @example <pre>{@code",
            "     * getValueJni 2",
            "     * {\"Result\":0,\"List\":[{\"A\":1,\"B\":\"x\"},{\"A\":2,\"C\":[]},],\"O\":{\"N\":null}}",
            "     * }</pre>",
            "     */",
            "    public native String getValueJni(int index);",
            "",
            "    /** Sets things; see {@link #getValueJni(int) the query}. */",
            "    @Deprecated",
            "    public native int setJni(String[] macs, final boolean on, byte data[]);",
            "",
            "    public native String undocumentedJni();",
            "",
            "    /** Not attached: a field follows. */",
            "    int field;",
            "    public static native String staticJni();",
            "}",
            "");

    private static List<NativeDoc> parse(String text) throws Exception {
        return ReferenceSources.parse(text, "Demo.java", "demoservices", "DemoServiceImp");
    }

    @Test
    void findsEveryNativeWithItsSignatureCommentAndExample() throws Exception {
        List<NativeDoc> natives = parse(SOURCE);
        assertEquals(4, natives.size());
        NativeDoc get = natives.get(0);
        assertEquals("getValueJni", get.methodName);
        assertEquals("String getValueJni(int index)", get.signature());
        assertEquals("getValueJni 2", get.exampleCall);
        assertEquals(Collections.singletonList(
                "{\"Result\":0,\"List\":[{\"A\":1,\"B\":\"x\"},{\"A\":2,\"C\":[]},],\"O\":{\"N\":null}}"),
                get.exampleOutput);
        assertEquals("Java_com_lumarest_smartgateway_demoservices_DemoServiceImp_getValueJni", get.jniSymbol());
        assertEquals("demoservices.DemoServiceImp.getValueJni", get.key());

        NativeDoc set = natives.get(1);
        assertEquals("int setJni(String[] macs, boolean on, byte[] data)", set.signature());
        assertEquals("String[],boolean,byte[]", set.linkParameters());
        assertFalse(set.hasExample());
        assertTrue(set.comment.contains("Sets things"));

        assertNull(natives.get(2).comment);
        assertNull(natives.get(3).comment, "a comment before a field belongs to the field");
        assertEquals("staticJni", natives.get(3).methodName);
    }

    @Test
    void exampleLinesAreTakenAsJavadocShowsThem() throws Exception {
        String comment = ReferenceSources.commentText(String.join("\n",
                "*",
                "     * @example <pre>{@code",
                "     * call \"a b\" [1,2]",
                "     *   indented reply",
                "     *",
                "     * bytes: [1]",
                "     * }</pre>",
                "     "));
        assertEquals(Arrays.asList("call \"a b\" [1,2]", "  indented reply", "", "bytes: [1]"),
                ReferenceSources.example(comment, "here"));
        assertNull(ReferenceSources.example("no example here\n@return x", "here"));
    }

    @Test
    void unicodeEscapesAreTranslatedAsTheCompilerDoes() {
        assertEquals("A", ReferenceSources.translateUnicodeEscapes("\\u0041"));
        assertEquals("caf\u00e9", ReferenceSources.translateUnicodeEscapes("caf\\u00e9"));
        assertEquals("\\\\u0041", ReferenceSources.translateUnicodeEscapes("\\\\u0041"));
        assertEquals("\\\\A", ReferenceSources.translateUnicodeEscapes("\\\\\\u0041"));
        assertEquals("A", ReferenceSources.translateUnicodeEscapes("\\uuu0041"));
        assertEquals("\\uZZZZ", ReferenceSources.translateUnicodeEscapes("\\uZZZZ"));
    }

    @Test
    void malformedExamplesAreReported() {
        String[] bad = {
            "@example {@code x\n1\n}",                     // no <pre>
            "@example <pre>{@code x\n1\n}</pre>",          // call on the tag's line
            "@example <pre>{@code\nx\n1}</pre>",           // closing brace on the reply's line
            "@example <pre>{@code\nx\n}</pre>",            // no output line
            "@example <pre>{@code\nx {\n1\n</pre>",        // unbalanced
            "@example <pre>{@code\nx\n1\n}\n",             // no </pre>
            "@example <pre>{@code\nx\n1\n}</pre>\n@example <pre>{@code\ny\n2\n}</pre>",
        };
        for (String comment : bad) {
            assertThrows(ReferenceSources.SourceException.class, () -> ReferenceSources.example(comment, "here"),
                    comment);
        }
    }

    @Test
    void aSourceOfAnotherPackageIsRefused() {
        assertThrows(ReferenceSources.SourceException.class,
                () -> ReferenceSources.parse(SOURCE, "Demo.java", "lanservices", "DemoServiceImp"));
    }

    @Test
    void replyMembersAreDerivedFromTheExample() {
        ReplyShape.Type t = ReplyShape.of(
                "{\"Result\":0, \"List\":[{\"A\":1,\"B\":\"x\"},{\"A\":-2.5e3,\"C\":[\"s\"]},],\"O\":{\"N\":null,\"T\":true}}");
        assertEquals("<code>Result</code>: number, <code>List</code>: array of {<code>A</code>: number, "
                + "<code>B</code>: quoted text, <code>C</code>: array of quoted text}, <code>O</code>: object "
                + "{<code>N</code>: null, <code>T</code>: boolean}", ReplyShape.describeMembers(t));
        assertEquals("array (empty in the example)", ReplyShape.describe(ReplyShape.of("[]")));
        assertNull(ReplyShape.of("{\"a\":1"));
        assertNull(ReplyShape.of("plain text"));
        assertNull(ReplyShape.of(""));
    }

    @Test
    void firstSentenceStopsAtTheFirstFullStopOrParagraph() {
        assertEquals("Reads the value.", ReferenceTool.firstSentence("Reads the\n value. More.\n@return x"));
        assertEquals("Reads {@code a.b} and more", ReferenceTool.firstSentence("Reads {@link a.b} and more<p>Next"));
        assertEquals("See {@code the query}.", ReferenceTool.firstSentence("See {@link #q(int) the query}."));
        assertNull(ReferenceTool.firstSentence(null));
        assertNull(ReferenceTool.firstSentence("@return x"));
    }

    @Test
    void overviewListsEveryNativeOnceWithItsKindAndMembers() throws Exception {
        List<NativeDoc> natives = parse(SOURCE);
        String page = ReferenceTool.overviewPage(natives, new HashSet<String>());
        for (NativeDoc n : natives) {
            int first = page.indexOf("<tr id=\"" + n.key() + "\">");
            assertTrue(first >= 0, n.key());
            assertEquals(-1, page.indexOf("<tr id=\"" + n.key() + "\">", first + 1), n.key());
        }
        assertTrue(page.contains("{@link com.lumarest.smartgateway.demoservices.DemoServiceImp#setJni(String[],boolean,byte[]) "
                + "DemoServiceImp.setJni}<br>Sets things; see {@code the query}.</td>"));
        assertTrue(page.contains("<td>JSON</td><td><code>Result</code>: number, <code>List</code>: array of {"));
        assertTrue(page.contains("<td>int status</td><td>&mdash;</td>"));
        assertTrue(page.contains("<td>text</td><td>(no example yet)</td>"));
    }

    @Test
    void examplesFileHoldsEveryNativeAndTheExamples() throws Exception {
        String file = ReferenceTool.examplesFile(parse(SOURCE), new HashSet<String>(Arrays.asList("demoservices")));
        List<String> lines = Arrays.asList(file.split("\n"));
        assertEquals(ReferenceTool.EXAMPLES_HEADER, lines.get(0));
        assertTrue(lines.contains("native\tcom.lumarest.smartgateway.demoservices.DemoServiceImp\tgetValueJni\tString\tint\tdocumented"));
        int at = lines.indexOf("call\tgetValueJni 2");
        assertTrue(at > 0);
        assertTrue(lines.get(at + 1).startsWith("output\t{\"Result\":0,"));
        assertTrue(lines.get(at + 2).startsWith("native\t"));
    }

    @Test
    void theServiceSourcesOfThisTreeCanBeRead() throws Exception {
        String root = System.getenv("BUNDLE_SOURCE_DIR");
        if (root == null) {
            return;  // run outside ctest: nothing to read
        }
        List<NativeDoc> natives = ReferenceSources.read(new File(root, "java/services"));
        assertEquals(163, natives.size());
    }
}
