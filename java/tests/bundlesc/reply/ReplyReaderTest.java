package bundlesc.reply;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.ByteArrayOutputStream;
import java.io.ObjectOutputStream;
import java.math.BigInteger;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

import org.junit.jupiter.api.Test;

import com.google.gson.JsonElement;
import com.google.gson.JsonNull;
import com.google.gson.JsonObject;
import com.google.gson.JsonParser;
import com.google.gson.JsonPrimitive;

/** The reply reader on every oddity, every form of reply, and where it gives up. */
class ReplyReaderTest {

    /** Reads `text`; its tree must be `json` (valid JSON, read by Gson) and its repairs `repairs`. */
    private static Reply check(String text, String json, String... repairs) {
        Reply reply = ReplyReader.read(text);
        assertEquals(Reply.Form.JSON, reply.form(), text);
        assertEquals(JsonParser.parseString(json), reply.tree(), text);
        assertEquals(Arrays.asList(repairs), strings(reply.repairs()), text);
        assertEquals(repairs.length > 0, reply.repaired());
        assertSame(text, reply.text());
        return reply;
    }

    private static List<String> strings(List<Repair> repairs) {
        List<String> out = new ArrayList<String>();
        for (Repair r : repairs) {
            out.add(r.toString());
        }
        return out;
    }

    private static void notJson(String text, int at) {
        Reply reply = ReplyReader.read(text);
        assertEquals(Reply.Form.TEXT, reply.form(), text);
        assertEquals(new JsonPrimitive(text), reply.tree());
        assertEquals(Arrays.asList("NOT_JSON at " + at), strings(reply.repairs()), text);
    }

    // ---- forms

    @Test
    void wellFormedRepliesGiveGsonsTreeAndNoRepair() {
        for (String text : new String[] {
                "{\"Result\":0,\"Vendor\":\"Lumarest\",\"FlashSize\":256,\"NFC\":\"NO\"}",
                "{\"Result\":0, \"List\":[{\"UsStats\":1203344512 ,\"DsStats\":98877120334}],\"RouteHops\": []}",
                "{\"a\":[true,false,null,-1.5e3,0,[],{}],\"b\":{\"c\":\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\"}}",
                " \t\r\n[1,\"x\"]\n"}) {
            check(text, text);
        }
    }

    @Test
    void plainTextsAreTextPrimitivesAsSent() {
        for (String text : new String[] {"00:1A:2B:3C:4D:5E", "v1.0", "", "   ", "IPTV_BUSSINESS_OK", "86400",
                "Lmr@8x2k"}) {
            Reply reply = ReplyReader.read(text);
            assertEquals(Reply.Form.TEXT, reply.form());
            assertFalse(reply.isJson());
            assertEquals(text, reply.tree().getAsString());
            assertTrue(reply.repairs().isEmpty());
            assertFalse(reply.repaired());
            IllegalStateException e = assertThrows(IllegalStateException.class, reply::object);
            assertTrue(e.getMessage().contains("TEXT"), e.getMessage());
        }
    }

    @Test
    void noReplyIsJsonNull() {
        Reply reply = ReplyReader.read(null);
        assertEquals(Reply.Form.NONE, reply.form());
        assertSame(JsonNull.INSTANCE, reply.tree());
        assertNull(reply.text());
        assertTrue(reply.repairs().isEmpty());
        assertThrows(IllegalStateException.class, reply::object);
    }

    @Test
    void numbersKeepTheirTextAndEveryBit() {
        Reply reply = check("{\"UsStats\":18446744073709551615,\"R\":-1,\"T\":2.50,\"D\":123456789012}",
                "{\"UsStats\":18446744073709551615,\"R\":-1,\"T\":2.50,\"D\":123456789012}");
        JsonObject o = reply.object();
        assertEquals("18446744073709551615", o.get("UsStats").getAsString());
        assertEquals(new BigInteger("18446744073709551615"), o.get("UsStats").getAsBigInteger());
        assertEquals(-1L, o.get("UsStats").getAsLong());  // the low 64 bits, as a cast gives them
        assertEquals(-1, o.get("UsStats").getAsInt());
        assertEquals(-1, o.get("R").getAsInt());
        assertEquals(123456789012L, o.get("D").getAsLong());
        assertEquals(-1097262572, o.get("D").getAsInt());  // narrowed as Java narrows
        assertEquals("2.50", o.get("T").getAsString());
        assertEquals(2.5, o.get("T").getAsDouble());
        assertEquals(2.5f, o.get("T").getAsFloat());
        assertEquals("{\"UsStats\":18446744073709551615,\"R\":-1,\"T\":2.50,\"D\":123456789012}", o.toString());
        Number n = o.get("R").getAsNumber();
        assertEquals(n, ReplyReader.read("[-1]").tree().getAsJsonArray().get(0).getAsNumber());
        assertEquals(n.hashCode(), ReplyReader.read("[-1]").tree().getAsJsonArray().get(0).getAsNumber().hashCode());
        assertNotEquals(n, o.get("D").getAsNumber());
        assertNotEquals(n, Integer.valueOf(-1));
    }

    @Test
    void numbersSerialiseAsBigDecimals() throws Exception {
        Number n = ReplyReader.read("[12.5]").tree().getAsJsonArray().get(0).getAsNumber();
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        try (ObjectOutputStream out = new ObjectOutputStream(bytes)) {
            out.writeObject(n);
        }
        assertTrue(new String(bytes.toByteArray(), "ISO-8859-1").contains("java.math.BigDecimal"));
    }

    // ---- the oddities

    @Test
    void trailingCommas() {
        check("{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"w2\"},]}", "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"w2\"}]}",
                "TRAILING_COMMA at 43");
        check("{\"a\":1 , }", "{\"a\":1}", "TRAILING_COMMA at 7");
    }

    @Test
    void strayCommas() {
        check("{\"List\":[,{\"a\":1}]}", "{\"List\":[{\"a\":1}]}", "STRAY_COMMA at 9");
        check("[{\"a\":1},,{\"a\":2},]", "[{\"a\":1},{\"a\":2}]", "STRAY_COMMA at 9", "TRAILING_COMMA at 17");
        check("[,]", "[]", "STRAY_COMMA at 1");
        check("{,\"a\":1}", "{\"a\":1}", "STRAY_COMMA at 1");
    }

    @Test
    void elementsBackToBack() {
        Reply reply = check("{\"Result\":0,\"List\":[{\"SSIDIndex\":3}{\"SSIDIndex\":6}]}",
                "{\"Result\":0,\"List\":[{\"SSIDIndex\":3},{\"SSIDIndex\":6}]}", "MISSING_COMMA at 35");
        assertTrue(reply.has(Repair.Kind.MISSING_COMMA));
        assertFalse(reply.has(Repair.Kind.TRAILING_COMMA));
        check("[[1] [2]]", "[[1],[2]]", "MISSING_COMMA at 5");
        check("[{} \"b\"]", "[{},\"b\"]", "MISSING_COMMA at 4");
        // Between texts a quote cannot be told from one inside the text: it is read as one.
        check("[\"a\" \"b\"]", "[\"a\\\" \\\"b\"]", "UNESCAPED_QUOTE at 3", "UNESCAPED_QUOTE at 5");
    }

    @Test
    void unescapedQuotesStayInTheirText() {
        check("{\"DeviceName\":\"Anna's \"big\" PC\",\"IP\":\"192.168.1.2\"}",
                "{\"DeviceName\":\"Anna's \\\"big\\\" PC\",\"IP\":\"192.168.1.2\"}",
                "UNESCAPED_QUOTE at 22", "UNESCAPED_QUOTE at 26");
        // A quote at the end of a text, and one followed by what would close an object but
        // then goes on in a way no reply does.
        check("{\"SSIDName\":\"Say \"hi\"\",\"Standard\":\"11bgn\"}", "{\"SSIDName\":\"Say \\\"hi\\\"\",\"Standard\":\"11bgn\"}",
                "UNESCAPED_QUOTE at 17", "UNESCAPED_QUOTE at 20");
        check("{\"a\":\"x\"}y\"}", "{\"a\":\"x\\\"}y\"}", "UNESCAPED_QUOTE at 7");
        check("{\"a\":\"x\",y\",\"b\":1}", "{\"a\":\"x\\\",y\",\"b\":1}", "UNESCAPED_QUOTE at 7");
        check("{\"a\":\"x\",\"y\\\"z\":1}", "{\"a\":\"x\",\"y\\\"z\":1}");
        check("{\"a\":\"x\",\"y\" z\",\"b\":1}", "{\"a\":\"x\\\",\\\"y\\\" z\",\"b\":1}",
                "UNESCAPED_QUOTE at 7", "UNESCAPED_QUOTE at 9", "UNESCAPED_QUOTE at 11");
        // In lists: a quote is an end before a comma and a value, or before the bracket.
        check("[\"a\"b\",\"c\"]", "[\"a\\\"b\",\"c\"]", "UNESCAPED_QUOTE at 3");
        check("[\"a\",b\"]", "[\"a\\\",b\"]", "UNESCAPED_QUOTE at 3");
        check("[\"a\"],\"b\"]", "[\"a\"]", "TRAILING_TEXT at 5");
        check("[\"a\",-1,\"b\",2,\"c\",[],\"d\",{},\"e\",true,\"f\",,\"g\"]",
                "[\"a\",-1,\"b\",2,\"c\",[],\"d\",{},\"e\",true,\"f\",\"g\"]", "STRAY_COMMA at 41");
        check("{\"a\":[\"x\"] ,\"b\":1}", "{\"a\":[\"x\"],\"b\":1}");
    }

    @Test
    void aTextThatHoldsMembersAddsThemAndTheDuplicateIsDropped() {
        check("{\"Class\":\"ONLINE\",\"DeviceName\":\"x\",\"Class\":\"TRUST\",\"IP\":\"1\"}",
                "{\"Class\":\"ONLINE\",\"DeviceName\":\"x\",\"IP\":\"1\"}", "DUPLICATE_NAME at 35");
        // Repairs inside the dropped member come before it by position.
        check("{\"a\":1,\"a\":[1,]}", "{\"a\":1}", "DUPLICATE_NAME at 7", "TRAILING_COMMA at 13");
    }

    @Test
    void backslashesThatStartNoEscapeStayInTheirText() {
        check("{\"DeviceName\":\"C:\\share\",\"b\":\"\\x\"}", "{\"DeviceName\":\"C:\\\\share\",\"b\":\"\\\\x\"}",
                "UNESCAPED_BACKSLASH at 17", "UNESCAPED_BACKSLASH at 30");
        // A text that ends in a backslash: the quote after it ends the text.
        check("{\"SSIDName\":\"lab\\\",\"Standard\":\"11n\"}", "{\"SSIDName\":\"lab\\\\\",\"Standard\":\"11n\"}",
                "UNESCAPED_BACKSLASH at 16");
        check("[\"lab\\\"]", "[\"lab\\\\\"]", "UNESCAPED_BACKSLASH at 5");
        // An escaped quote inside a text stays one.
        check("{\"SSIDName\":\"a\\\",b\",\"c\":\"say \\\"hi\\\"\"}", "{\"SSIDName\":\"a\\\",b\",\"c\":\"say \\\"hi\\\"\"}");
        check("[\"\\u00zz\"]", "[\"\\\\u00zz\"]", "UNESCAPED_BACKSLASH at 2");
    }

    @Test
    void controlCharactersStayInTheirText() {
        check("{\"Name\":\"a\tb\nc\"}", "{\"Name\":\"a\\tb\\nc\"}", "CONTROL_CHARACTER at 10", "CONTROL_CHARACTER at 12");
    }

    @Test
    void missingValuesAreNull() {
        check("{\"SSIDIndex\":,\"Duration\":0}", "{\"SSIDIndex\":null,\"Duration\":0}", "MISSING_VALUE at 13");
        check("{\"totalStorage\": }", "{\"totalStorage\":null}", "MISSING_VALUE at 17");
    }

    @Test
    void bareValuesAreTexts() {
        Reply reply = check("{\"MethodList\":[GET,POST],\"SSIDIndex\":3a,\"ips\":[ 10.0.0.2 ],\"z\":01,\"n\":null}",
                "{\"MethodList\":[\"GET\",\"POST\"],\"SSIDIndex\":\"3a\",\"ips\":[\"10.0.0.2\"],\"z\":\"01\",\"n\":null}",
                "BARE_VALUE at 15", "BARE_VALUE at 19", "BARE_VALUE at 37", "BARE_VALUE at 48", "BARE_VALUE at 63");
        assertEquals(1, reply.object().get("z").getAsInt());
    }

    @Test
    void aReplyCutShortKeepsItsWholePartsOnly() {
        // Cut inside a member's text, number, name, after a colon, after a comma.
        check("{\"Result\":0,\"Na", "{\"Result\":0}", "CUT_SHORT at 15");
        check("{\"Result\":0,\"Name\":\"ab", "{\"Result\":0}", "CUT_SHORT at 22");
        check("{\"Result\":0,\"UsStats\":18446744073709551615,\"DsStats\":1844674407",
                "{\"Result\":0,\"UsStats\":18446744073709551615}", "CUT_SHORT at 63");
        check("{\"Result\":0,\"Name\":", "{\"Result\":0}", "CUT_SHORT at 19");
        check("{\"Result\":0,\"Name\"", "{\"Result\":0}", "CUT_SHORT at 18");
        check("{\"Result\":0,", "{\"Result\":0}", "CUT_SHORT at 12");
        check("{\"Result\":0,\"Name\":\"x\"", "{\"Result\":0,\"Name\":\"x\"}", "CUT_SHORT at 22");
        check("{", "{}", "CUT_SHORT at 1");
        // In a list: the open element is dropped; an open list in a member is kept.
        check("{\"Result\":0,\"List\":[{\"a\":1},{\"a\":2,\"b\":\"x", "{\"Result\":0,\"List\":[{\"a\":1}]}", "CUT_SHORT at 41");
        check("{\"Result\":0,\"List\":[{\"a\":1},", "{\"Result\":0,\"List\":[{\"a\":1}]}", "CUT_SHORT at 28");
        check("{\"O\":{\"a\":1,\"b\":[\"x\",\"y", "{\"O\":{\"a\":1,\"b\":[\"x\"]}}", "CUT_SHORT at 23");
        // Cut inside an escape.
        check("{\"a\":1,\"b\":\"x\\", "{\"a\":1}", "CUT_SHORT at 14");
        check("{\"a\":1,\"b\":\"x\\u00", "{\"a\":1}", "CUT_SHORT at 17");
        check("[\"x\\u0", "[]", "CUT_SHORT at 6");
        check("[\"x\\u", "[]", "CUT_SHORT at 5");
        check("[\"x\\u0g", "[]", "UNESCAPED_BACKSLASH at 3", "CUT_SHORT at 7");
        // Cut just after a text's quote: the text is whole whatever would have followed.
        check("[\"a\",", "[\"a\"]", "CUT_SHORT at 5");
        check("{\"a\":\"x\",", "{\"a\":\"x\"}", "CUT_SHORT at 9");
        check("{\"a\":\"x\",\"b", "{\"a\":\"x\"}", "CUT_SHORT at 11");
        check("{\"a\":\"x\",}", "{\"a\":\"x\"}", "TRAILING_COMMA at 8");
        // A bare value cut short, and repairs before the cut kept.
        check("[1,2,tr", "[1,2]", "CUT_SHORT at 7");
        check("[{}{},", "[{},{}]", "MISSING_COMMA at 3", "CUT_SHORT at 6");
    }

    @Test
    void textAfterTheReplyIsIgnored() {
        check("{\"Result\":0} trailing", "{\"Result\":0}", "TRAILING_TEXT at 13");
        check("{\"Result\":0}{\"Result\":1}", "{\"Result\":0}", "TRAILING_TEXT at 12");
    }

    @Test
    void whatNoRepairMakesJsonIsAPlainTextSaidSo() {
        notJson("{x}", 1);
        notJson("{abc", 1);
        notJson("{\"a\":{} x}", 8);
        notJson("[{} x]", 4);
        notJson("{\"a\":]", 5);
        StringBuilder deep = new StringBuilder();
        for (int i = 0; i < ReplyReader.MAX_DEPTH; i++) {
            deep.append('[');
        }
        // As deep as a reply may go, cut: the open lists inside lists are dropped.
        check(deep.toString(), "[]", "CUT_SHORT at " + ReplyReader.MAX_DEPTH);
        check(deep + repeat(']', ReplyReader.MAX_DEPTH), deep + repeat(']', ReplyReader.MAX_DEPTH));
        notJson(deep + "[", ReplyReader.MAX_DEPTH);
    }

    private static String repeat(char c, int n) {
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < n; i++) {
            b.append(c);
        }
        return b.toString();
    }

    /**
     * The reader uses Gson's tree classes alone (every Gson 2 has them with the methods used),
     * never a parser, reader or type adapter a gateway's older Gson may lack or differ in.
     */
    @Test
    void onlyGsonsTreeClassesAreUsed() throws Exception {
        java.util.Set<String> used = new java.util.TreeSet<String>();
        for (Class<?> c : new Class<?>[] {ReplyReader.class, Reply.class, Repair.class, Repair.Kind.class,
                ReplyNumber.class, Class.forName("bundlesc.reply.ReplyReader$Parser")}) {
            String file = c.getName().substring(c.getName().lastIndexOf('.') + 1) + ".class";
            try (java.io.InputStream in = c.getResourceAsStream(file)) {
                ByteArrayOutputStream bytes = new ByteArrayOutputStream();
                byte[] buffer = new byte[4096];
                for (int n; (n = in.read(buffer)) > 0; ) {
                    bytes.write(buffer, 0, n);
                }
                java.util.regex.Matcher m = java.util.regex.Pattern.compile("com/google/gson/[\\w/$]+")
                        .matcher(new String(bytes.toByteArray(), "ISO-8859-1"));
                while (m.find()) {
                    used.add(m.group());
                }
            }
        }
        assertEquals(new java.util.TreeSet<String>(Arrays.asList("com/google/gson/JsonArray",
                "com/google/gson/JsonElement", "com/google/gson/JsonNull", "com/google/gson/JsonObject",
                "com/google/gson/JsonPrimitive")), used);
    }

    // ---- the API's small parts

    @Test
    void repairsAreValuesNamedByKindAndPosition() {
        Repair a = new Repair(Repair.Kind.TRAILING_COMMA, 44);
        assertEquals(a, new Repair(Repair.Kind.TRAILING_COMMA, 44));
        assertEquals(a.hashCode(), new Repair(Repair.Kind.TRAILING_COMMA, 44).hashCode());
        assertNotEquals(a, new Repair(Repair.Kind.TRAILING_COMMA, 45));
        assertNotEquals(a, new Repair(Repair.Kind.STRAY_COMMA, 44));
        assertNotEquals(a, "TRAILING_COMMA at 44");
        assertEquals("TRAILING_COMMA at 44", a.toString());
        assertEquals(Repair.Kind.TRAILING_COMMA, a.kind());
        assertEquals(44, a.position());
        assertThrows(NullPointerException.class, () -> new Repair(null, 1));
        for (Repair.Kind k : Repair.Kind.values()) {
            assertFalse(k.oddity().isEmpty(), k.name());
            assertFalse(k.repair().isEmpty(), k.name());
        }
    }

    @Test
    void aReplyDescribesItself() {
        Reply reply = ReplyReader.read("[{}{}]");
        assertEquals("JSON [MISSING_COMMA at 3] [{},{}]", reply.toString());
        assertThrows(IllegalStateException.class, reply::object);
        assertThrows(UnsupportedOperationException.class, () -> reply.repairs().clear());
        String long40 = "{x" + repeat('y', 60);
        IllegalStateException e = assertThrows(IllegalStateException.class, () -> ReplyReader.read(long40).object());
        assertTrue(e.getMessage().endsWith("..."), e.getMessage());
        JsonElement tree = ReplyReader.read("{\"a\":1}").tree();
        assertTrue(tree.isJsonObject());
    }
}
