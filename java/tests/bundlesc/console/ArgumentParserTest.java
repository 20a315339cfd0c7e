package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;

import org.junit.jupiter.api.Test;

import bundlesc.console.ArgumentParser.Token;

class ArgumentParserTest {

    private static final String ARG = "argument 2 of setXJni";

    private static Object convert(String text, Class<?> type) throws ArgumentException {
        return ArgumentParser.convert(Token.plain(text), type, ARG);
    }

    private static String convertError(String text, Class<?> type) {
        return assertThrows(ArgumentException.class, () -> convert(text, type)).getMessage();
    }

    private static List<String> texts(List<Token> tokens) {
        List<String> result = new ArrayList<String>();
        for (Token t : tokens) {
            result.add(t.text);
        }
        return result;
    }

    private static List<String> list(String... items) {
        List<String> result = new ArrayList<String>();
        for (String s : items) {
            result.add(s);
        }
        return result;
    }

    // ---- int ---------------------------------------------------------------------------

    @Test
    void intDecimalNegativeAndHex() throws Exception {
        assertEquals(42, convert("42", int.class));
        assertEquals(0, convert("0", int.class));
        assertEquals(-7, convert("-7", int.class));
        assertEquals(5, convert("+5", int.class));
        assertEquals(31, convert("0x1f", int.class));
        assertEquals(255, convert("0XFF", int.class));
        assertEquals(-16, convert("-0x10", int.class));
        assertEquals(Integer.MAX_VALUE, convert("2147483647", int.class));
        assertEquals(Integer.MIN_VALUE, convert("-2147483648", int.class));
    }

    @Test
    void intHexUpToThirtyTwoBitsIsTheBitPattern() throws Exception {
        assertEquals(-1, convert("0xFFFFFFFF", int.class));
        assertEquals(Integer.MIN_VALUE, convert("0x80000000", int.class));
        assertTrue(convertError("0x100000000", int.class).contains("out of range"));
    }

    @Test
    void intRejectsGarbageAndOverflow() {
        for (String bad : new String[] {"", "abc", "1.5", "12a", "0x", "0xg1", " 1", "1_000", "--1", "\u0663"}) {
            String message = convertError(bad, int.class);
            assertTrue(message.startsWith(ARG + " (int): "), message);
            assertTrue(message.contains("not an integer"), message);
        }
        assertTrue(convertError("2147483648", int.class).contains("out of range for int"));
        assertTrue(convertError("-2147483649", int.class).contains("out of range for int"));
    }

    // ---- boolean -----------------------------------------------------------------------

    @Test
    void booleanWordsAndDigits() throws Exception {
        assertEquals(true, convert("true", boolean.class));
        assertEquals(true, convert("TRUE", boolean.class));
        assertEquals(true, convert("1", boolean.class));
        assertEquals(false, convert("false", boolean.class));
        assertEquals(false, convert("0", boolean.class));
        String message = convertError("yes", boolean.class);
        assertTrue(message.startsWith(ARG + " (boolean): 'yes' is not a boolean"), message);
        convertError("2", boolean.class);
    }

    // ---- String ------------------------------------------------------------------------

    @Test
    void stringAsGivenAndNullWord() throws Exception {
        assertEquals("hello world", convert("hello world", String.class));
        assertEquals("", convert("", String.class));
        assertEquals("[\"a\"]", convert("[\"a\"]", String.class));
        assertNull(convert("null", String.class));
        assertEquals("NULL", convert("NULL", String.class));
        assertEquals("null", ArgumentParser.convert(new Token("null", true), String.class, ARG));
    }

    // ---- String[] ----------------------------------------------------------------------

    @Test
    void stringArrayBasics() throws Exception {
        assertArrayEquals(new String[] {"00:11:22:33:44:55", "aa:bb:cc:dd:ee:ff"},
                (String[]) convert("[\"00:11:22:33:44:55\",\"aa:bb:cc:dd:ee:ff\"]", String[].class));
        assertArrayEquals(new String[0], (String[]) convert("[]", String[].class));
        assertArrayEquals(new String[0], (String[]) convert(" [ ] ", String[].class));
        assertArrayEquals(new String[] {"a b", null, ""},
                (String[]) convert(" [ \"a b\" ,\tnull,\n\"\" ] ", String[].class));
        assertNull(convert("null", String[].class));
    }

    @Test
    void stringArrayEscapes() throws Exception {
        String[] parsed = (String[]) convert(
                "[\"q\\\"b\\\\s\\/f\", \"\\b\\f\\n\\r\\t\", \"\\u00e9\\u20AC\\u0041\"]", String[].class);
        assertArrayEquals(new String[] {"q\"b\\s/f", "\b\f\n\r\t", "\u00e9\u20acA"}, parsed);
    }

    @Test
    void stringArrayStrictness() {
        // Read by Gson's strict reader: every malformed array is refused with the reader's
        // own description of where it went wrong.
        String[] malformed = {
            "[\"a\",]", "[\"a\"", "[\"a\" \"b\"]", "[\"a\", nul]", "[\"a\", nullx]", "['a']",
            "[\"abc]", "[\"a\\x\"]", "[\"\\u12G4\"]", "[\"\\u12\"]", "[,\"a\"]", "[\"a\"] [",
        };
        for (String text : malformed) {
            String message = convertError(text, String[].class);
            assertTrue(message.startsWith(ARG + " (String[]): invalid JSON array of strings: "), text + " -> " + message);
            assertTrue(message.endsWith("(expected e.g. [\"a\",\"b\"] or null)"), text + " -> " + message);
        }
        String[][] cases = {
            {"", "expected a JSON array"},
            {"\"a\"", "expected a JSON array"},
            {"{}", "expected a JSON array"},
            {"[\"a\"] x", "invalid JSON array of strings: "},
            {"[\"a\"] []", "invalid JSON array of strings: "},
            {"[1]", "element 1: expected a string in double quotes or null"},
            {"[\"a\", true]", "element 2: expected a string in double quotes or null"},
            {"[\"a\", [\"b\"]]", "element 2: expected a string in double quotes or null"},
        };
        for (String[] c : cases) {
            String message = convertError(c[0], String[].class);
            assertTrue(message.startsWith(ARG + " (String[]): invalid JSON array of strings: "), message);
            assertTrue(message.contains(c[1]), c[0] + " -> " + message);
        }
    }

    @Test
    void stringArrayErrorGivesPosition() {
        String message = convertError("[\"a\" x]", String[].class);
        assertTrue(message.contains("column"), message);
    }

    @Test
    void jsonFaultsAreDescribedInTheConsolesWords() {
        // Gson's reader names its own remedy and its internal path; the console says what is
        // wrong and where.
        assertEquals(ARG + " (String[]): invalid JSON array of strings: malformed JSON at column 2"
                + " (expected e.g. [\"a\",\"b\"] or null)", convertError("[00:E0:4C:68:01:A2]", String[].class));
        assertEquals(ARG + " (String[]): invalid JSON array of strings: unterminated array on line 2 at column 3"
                + " (expected e.g. [\"a\",\"b\"] or null)", convertError("[\"a\"\n x]", String[].class));
        for (String malformed : new String[] {"[\"a\",]", "['a']", "[\"a\\x\"]", "[a]", "[1,,2]"}) {
            for (Class<?> type : new Class<?>[] {String[].class, byte[].class}) {
                String message = convertError(malformed, type);
                assertFalse(message.contains("setLenient") || message.contains("JsonReader")
                        || message.contains(" path $"), message);
            }
        }
        assertEquals("expected a JSON array", ArgumentParser.jsonFault(new java.io.IOException("expected a JSON array")));
        assertEquals("IllegalStateException", ArgumentParser.jsonFault(new IllegalStateException()));
    }

    @Test
    void jsonStringArrayRoundTrip() throws Exception {
        String[] values = {"a\"b", "c\\d", null, "\n\u0001", "\u00e9", "<=>&'"};
        String json = ArgumentParser.formatStringArray(values);
        assertEquals("[\"a\\\"b\",\"c\\\\d\",null,\"\\n\\u0001\",\"\u00e9\",\"<=>&'\"]", json);
        assertArrayEquals(values, (String[]) convert(json, String[].class));
        assertEquals("null", ArgumentParser.formatStringArray(null));
    }

    // ---- byte --------------------------------------------------------------------------

    @Test
    void byteFromDecimalOrHex() throws Exception {
        assertEquals((byte) 0, convert("0", byte.class));
        assertEquals((byte) -128, convert("-128", byte.class));
        assertEquals((byte) -1, convert("255", byte.class));
        assertEquals((byte) -1, convert("0xff", byte.class));
        assertEquals((byte) 127, convert("127", byte.class));
        assertTrue(convertError("256", byte.class).contains("outside the byte range -128..255"));
        assertTrue(convertError("-129", byte.class).contains("outside the byte range"));
        assertTrue(convertError("x", byte.class).contains("is not an integer"));
    }

    // ---- byte[] ------------------------------------------------------------------------

    @Test
    void byteArrayFromJsonNumbers() throws Exception {
        assertArrayEquals(new byte[] {0, 1, -1, -128, (byte) 255, (byte) 128, 127},
                (byte[]) convert("[0, 1, -1, -128, 255, 128, 127]", byte[].class));
        assertArrayEquals(new byte[0], (byte[]) convert("[]", byte[].class));
        assertNull(convert("null", byte[].class));
    }

    @Test
    void byteArrayRangeAndSyntaxErrors() {
        String message = convertError("[1, 256]", byte[].class);
        assertTrue(message.startsWith(ARG + " (byte[]): element 2 (256) is outside the byte range -128..255"),
                message);
        assertTrue(convertError("[-129]", byte[].class).contains("element 1 (-129)"));
        assertTrue(convertError("[1.5]", byte[].class).contains("element 1 (1.5) is not a whole number"));
        assertTrue(convertError("[1e3]", byte[].class).contains("element 1 (1e3) is not a whole number"));
        assertTrue(convertError("[99999999999999999999]", byte[].class).contains("is not a whole number"));
        assertTrue(convertError("[\"1\"]", byte[].class).contains("element 1: expected a whole number"));
        assertTrue(convertError("[1, null]", byte[].class).contains("element 2: expected a whole number"));
        for (String malformed : new String[] {"[01]", "[1,,2]", "[1,]", "[1", "0a0b", "[1] 2"}) {
            String refused = convertError(malformed, byte[].class);
            assertTrue(refused.startsWith(ARG + " (byte[]): invalid byte array: "), malformed + " -> " + refused);
        }
    }

    @Test
    void byteArrayFromHex() throws Exception {
        assertArrayEquals(new byte[] {0x0a, 0x0b, (byte) 0xff},
                (byte[]) convert("hex:0a0bFF", byte[].class));
        assertArrayEquals(new byte[] {1}, (byte[]) convert("HEX:01", byte[].class));
        assertArrayEquals(new byte[0], (byte[]) convert("hex:", byte[].class));
        assertTrue(convertError("hex:abc", byte[].class).contains("even number of hex digits"));
        assertTrue(convertError("hex:zz", byte[].class).contains("non-hex character"));
    }

    @Test
    void byteArrayZeroBuffer() throws Exception {
        assertArrayEquals(new byte[64], (byte[]) convert("zeros:64", byte[].class));
        assertArrayEquals(new byte[0], (byte[]) convert("zeros:0", byte[].class));
        assertTrue(convertError("zeros:-1", byte[].class).contains("count from 0"));
        assertTrue(convertError("zeros:x", byte[].class).contains("needs a byte count"));
    }

    @Test
    void bytesAreFormattedUnsigned() {
        assertEquals("[0,1,127,128,255]", ArgumentParser.formatBytes(new byte[] {0, 1, 127, -128, -1}));
        assertEquals("[]", ArgumentParser.formatBytes(new byte[0]));
        assertEquals("null", ArgumentParser.formatBytes(null));
    }

    @Test
    void unsupportedParameterType() {
        assertTrue(convertError("1", long.class).contains("parameter type long is not supported"));
    }

    // ---- batch lines -------------------------------------------------------------------

    @Test
    void skippableLines() {
        assertTrue(ArgumentParser.isSkippable(""));
        assertTrue(ArgumentParser.isSkippable("   \t"));
        assertTrue(ArgumentParser.isSkippable("# comment"));
        assertTrue(ArgumentParser.isSkippable("   # indented comment"));
        assertFalse(ArgumentParser.isSkippable("DeviceInfoQueryService getDeviceInfo"));
        assertFalse(ArgumentParser.isSkippable("X y #not-a-comment"));
    }

    @Test
    void splitsOnWhitespace() throws Exception {
        assertEquals(list("DeviceInfoQueryService", "getDeviceUpTime"),
                texts(ArgumentParser.splitLine("  DeviceInfoQueryService \t getDeviceUpTime  ")));
        assertEquals(list(), texts(ArgumentParser.splitLine("   ")));
        assertEquals(list("A", "m", "-1", "0x10", "#x"), texts(ArgumentParser.splitLine("A m -1 0x10 #x")));
    }

    @Test
    void keepsDoubleQuotedArgumentsWhole() throws Exception {
        List<Token> tokens = ArgumentParser.splitLine("A m \"two words\" plain \"\" \"say \\\"hi\\\" \\\\ ok\"");
        assertEquals(list("A", "m", "two words", "plain", "", "say \"hi\" \\ ok"), texts(tokens));
        assertFalse(tokens.get(3).quoted);
        assertTrue(tokens.get(2).quoted);
        assertTrue(tokens.get(4).quoted);
        // other backslashes stay as written
        assertEquals(list("C:\\dir\\n"), texts(ArgumentParser.splitLine("\"C:\\dir\\n\"")));
        // quoted parts join the text around them
        assertEquals(list("name=a b"), texts(ArgumentParser.splitLine("name=\"a b\"")));
    }

    @Test
    void quotedNullIsTheWord() throws Exception {
        List<Token> tokens = ArgumentParser.splitLine("A m null \"null\"");
        assertNull(ArgumentParser.convert(tokens.get(2), String.class, ARG));
        assertEquals("null", ArgumentParser.convert(tokens.get(3), String.class, ARG));
    }

    @Test
    void keepsJsonArraysWhole() throws Exception {
        String line = "LanHostManager setMacFilter [\"00:11:22:33:44:55\", \"aa bb\"] 1 [ \"x ] y\", \"q\\\"]\" ] [1, 2,  255]";
        List<Token> tokens = ArgumentParser.splitLine(line);
        assertEquals(list("LanHostManager", "setMacFilter", "[\"00:11:22:33:44:55\", \"aa bb\"]", "1",
                "[ \"x ] y\", \"q\\\"]\" ]", "[1, 2,  255]"), texts(tokens));
        assertArrayEquals(new String[] {"x ] y", "q\"]"},
                (String[]) ArgumentParser.convert(tokens.get(4), String[].class, ARG));
        assertArrayEquals(new byte[] {1, 2, (byte) 255},
                (byte[]) ArgumentParser.convert(tokens.get(5), byte[].class, ARG));
        // nested brackets are matched too
        assertEquals(list("[[1],[2]]", "z"), texts(ArgumentParser.splitLine("[[1],[2]] z")));
    }

    @Test
    void keepsJsonObjectsWholeAndVerbatim() throws Exception {
        String line = "IPPingDiagnosticsService startIPPingDiagnosticsJni 1 www.example.com "
                + "{\"Timeout\": 2000, \"Host\":\"a } b\", \"n\":{\"x\":[1]}} tail";
        assertEquals(list("IPPingDiagnosticsService", "startIPPingDiagnosticsJni", "1", "www.example.com",
                "{\"Timeout\": 2000, \"Host\":\"a } b\", \"n\":{\"x\":[1]}}", "tail"),
                texts(ArgumentParser.splitLine(line)));
        ArgumentException e = assertThrows(ArgumentException.class,
                () -> ArgumentParser.splitLine("A m {\"open\":1"));
        assertTrue(e.getMessage().contains("unterminated JSON object starting at character 5"), e.getMessage());
    }

    @Test
    void bracketInsideAnArgumentIsPlainText() throws Exception {
        assertEquals(list("a[1", "2]"), texts(ArgumentParser.splitLine("a[1 2]")));
    }

    @Test
    void unterminatedQuotesAndArraysAreErrors() {
        String message = assertThrows(ArgumentException.class,
                () -> ArgumentParser.splitLine("A m \"open")).getMessage();
        assertTrue(message.contains("unterminated double quote starting at character 5"), message);
        message = assertThrows(ArgumentException.class,
                () -> ArgumentParser.splitLine("A m [\"a\", \"b\"")).getMessage();
        assertTrue(message.contains("unterminated JSON array starting at character 5"), message);
        message = assertThrows(ArgumentException.class,
                () -> ArgumentParser.splitLine("A m [\"a]")).getMessage();
        assertTrue(message.contains("unterminated string inside the JSON array"), message);
    }
}
