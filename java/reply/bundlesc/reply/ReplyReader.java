package bundlesc.reply;

import java.util.ArrayList;
import java.util.Collections;
import java.util.Comparator;
import java.util.List;
import java.util.regex.Pattern;

import com.google.gson.JsonArray;
import com.google.gson.JsonElement;
import com.google.gson.JsonNull;
import com.google.gson.JsonObject;
import com.google.gson.JsonPrimitive;

/**
 * Reads the reply of any native of the gateway's service classes into a Gson tree, accepting
 * the oddities the replies have always had, and says which it repaired.
 *
 * <pre>{@code
 * Reply reply = ReplyReader.read(new WlanQueryServiceImp().getGuestSSIDInfoJni());
 * for (JsonElement guest : reply.object().getAsJsonArray("List")) { ... }
 * if (reply.repaired()) log(reply.repairs());   // e.g. [MISSING_COMMA at 95]
 * }</pre>
 *
 * <p>What a reply is read as:
 * <ul>
 * <li>A text that starts (after blanks) with a brace or a bracket is JSON: the tree is the
 * object it holds ({@link Reply.Form#JSON}). A well-formed reply gives the tree Gson's own
 * parser gives, and no repair. The oddities of {@link Repair.Kind} are repaired, each with its
 * position in the text. A text that starts like JSON but that no repair makes JSON is answered
 * as a plain text with the repair {@link Repair.Kind#NOT_JSON}.</li>
 * <li>Any other text is a plain text (the natives that answer a MAC address, a name, a
 * password, a version): the tree is a Gson text primitive holding the text exactly as
 * received ({@link Reply.Form#TEXT}). A plain text that happens to start with a brace is read
 * as JSON; callers of the plain-text natives should take {@link Reply#text()} as it is.</li>
 * <li>A Java null (a native that could not get memory for its reply) gives
 * {@code JsonNull.INSTANCE} ({@link Reply.Form#NONE}).</li>
 * </ul>
 * Numbers keep their text exactly: 64-bit counters beyond {@code Long.MAX_VALUE} read
 * whole with {@code getAsBigInteger()}.
 *
 * <p>Gson: only its tree classes are used ({@code JsonObject}, {@code JsonArray},
 * {@code JsonPrimitive}, {@code JsonNull}), with methods every Gson 2 release has; the
 * reader does its own parsing and needs neither {@code JsonParser} nor {@code JsonReader}, so
 * it runs with the older Gson a gateway may carry as well as with a current one. The reader
 * is stateless and may be used from any number of threads at once.
 */
public final class ReplyReader {

    /** Lists and objects nested deeper than this are not JSON a native sends. */
    static final int MAX_DEPTH = 64;

    private ReplyReader() {}

    /**
     * Reads one reply.
     *
     * @param text the native's reply, exactly as it returned it; may be null
     * @return the reply read: never null, whatever the text
     */
    public static Reply read(String text) {
        if (text == null) {
            return new Reply(null, Reply.Form.NONE, JsonNull.INSTANCE, Collections.<Repair>emptyList());
        }
        int start = Parser.skipBlanks(text, 0);
        if (start == text.length() || (text.charAt(start) != '{' && text.charAt(start) != '[')) {
            return new Reply(text, Reply.Form.TEXT, new JsonPrimitive(text), Collections.<Repair>emptyList());
        }
        Parser parser = new Parser(text, start);
        try {
            JsonElement tree = parser.document();
            return new Reply(text, Reply.Form.JSON, tree, parser.repairs());
        } catch (NotJson e) {
            return new Reply(text, Reply.Form.TEXT, new JsonPrimitive(text),
                    Collections.singletonList(new Repair(Repair.Kind.NOT_JSON, e.position)));
        }
    }

    /** Where reading stopped on a text that no repair makes JSON. */
    private static final class NotJson extends Exception {
        private static final long serialVersionUID = 1L;
        final int position;

        NotJson(int position) {
            super(null, null, false, false);
            this.position = position;
        }
    }

    /** Where a text is read: what may follow its closing quote depends on it. */
    private enum Place { NAME, MEMBER, ELEMENT }

    /** One reading of one text; not shared between threads. */
    private static final class Parser {
        private static final Pattern NUMBER = Pattern.compile("-?(?:0|[1-9][0-9]*)(?:\\.[0-9]+)?(?:[eE][+-]?[0-9]+)?");

        private final String s;
        private final int n;
        private int pos;
        private int depth;
        /** Set once the text has ended inside the structure; everything open then closes. */
        private boolean cut;
        private final List<Repair> repairs = new ArrayList<Repair>();

        Parser(String text, int start) {
            this.s = text;
            this.n = text.length();
            this.pos = start;
        }

        List<Repair> repairs() {
            // Stable: repairs at one position stay in the order they were found.
            Collections.sort(repairs, new Comparator<Repair>() {
                @Override
                public int compare(Repair a, Repair b) {
                    return Integer.compare(a.position(), b.position());
                }
            });
            return repairs;
        }

        private void repair(Repair.Kind kind, int at) {
            repairs.add(new Repair(kind, at));
        }

        static boolean blank(char c) {
            return c == ' ' || c == '\t' || c == '\n' || c == '\r';
        }

        static int skipBlanks(String text, int from) {
            int i = from;
            while (i < text.length() && blank(text.charAt(i))) {
                i++;
            }
            return i;
        }

        /** True (and the reply marked cut) when the text has ended. */
        private boolean atEnd() {
            if (pos >= n) {
                cut = true;
            }
            return cut;
        }

        JsonElement document() throws NotJson {
            JsonElement tree = s.charAt(pos) == '{' ? object() : array();
            if (cut) {
                repair(Repair.Kind.CUT_SHORT, n);
            } else {
                int after = skipBlanks(s, pos);
                if (after < n) {
                    repair(Repair.Kind.TRAILING_TEXT, after);
                }
            }
            return tree;
        }

        private void enter() throws NotJson {
            if (++depth > MAX_DEPTH) {
                throw new NotJson(pos);
            }
            pos++;
        }

        private JsonObject object() throws NotJson {
            enter();
            JsonObject object = new JsonObject();
            int pendingComma = -1;
            boolean afterMember = false;
            while (true) {
                pos = skipBlanks(s, pos);
                if (atEnd()) {
                    return object;
                }
                char c = s.charAt(pos);
                if (c == '}') {
                    if (pendingComma >= 0) {
                        repair(Repair.Kind.TRAILING_COMMA, pendingComma);
                    }
                    pos++;
                    depth--;
                    return object;
                }
                if (afterMember) {
                    if (c != ',') {
                        throw new NotJson(pos);
                    }
                    pendingComma = pos++;
                    afterMember = false;
                    continue;
                }
                if (c == ',') {
                    repair(Repair.Kind.STRAY_COMMA, pos++);
                    continue;
                }
                if (c != '"') {
                    throw new NotJson(pos);
                }
                int nameAt = pos;
                String name = string(Place.NAME);
                if (cut) {
                    return object;
                }
                pos = skipBlanks(s, pos);
                if (atEnd()) {
                    return object;
                }
                if (s.charAt(pos) != ':') {
                    throw new NotJson(pos);
                }
                pos++;
                JsonElement value = value();
                // A value the cut left unfinished is dropped with its name; an open list or
                // object is kept with what it holds.
                if (cut && !(value instanceof JsonObject || value instanceof JsonArray)) {
                    return object;
                }
                if (object.has(name)) {
                    repair(Repair.Kind.DUPLICATE_NAME, nameAt);
                } else {
                    object.add(name, value);
                }
                if (cut) {
                    return object;
                }
                pendingComma = -1;
                afterMember = true;
            }
        }

        private JsonArray array() throws NotJson {
            enter();
            JsonArray array = new JsonArray();
            int pendingComma = -1;
            boolean afterElement = false;
            while (true) {
                pos = skipBlanks(s, pos);
                if (atEnd()) {
                    return array;
                }
                char c = s.charAt(pos);
                if (c == ']') {
                    if (pendingComma >= 0) {
                        repair(Repair.Kind.TRAILING_COMMA, pendingComma);
                    }
                    pos++;
                    depth--;
                    return array;
                }
                if (afterElement) {
                    if (c == ',') {
                        pendingComma = pos++;
                        afterElement = false;
                        continue;
                    }
                    if (c != '{' && c != '[' && c != '"') {
                        throw new NotJson(pos);
                    }
                    repair(Repair.Kind.MISSING_COMMA, pos);
                } else if (c == ',') {
                    repair(Repair.Kind.STRAY_COMMA, pos++);
                    continue;
                }
                JsonElement element = element();
                if (cut) {
                    return array;  // a list holds whole elements only
                }
                array.add(element);
                pendingComma = -1;
                afterElement = true;
            }
        }

        /** A member's value; null when the text ended inside it. */
        private JsonElement value() throws NotJson {
            pos = skipBlanks(s, pos);
            if (atEnd()) {
                return null;
            }
            char c = s.charAt(pos);
            if (c == ',' || c == '}' || c == ']') {
                repair(Repair.Kind.MISSING_VALUE, pos);
                return JsonNull.INSTANCE;
            }
            return c == '"' ? text(Place.MEMBER) : element();
        }

        /** An element of a list (or a member's value that is no text); null when cut. */
        private JsonElement element() throws NotJson {
            char c = s.charAt(pos);
            if (c == '{') {
                return object();
            }
            if (c == '[') {
                return array();
            }
            if (c == '"') {
                return text(Place.ELEMENT);
            }
            return bare();
        }

        private JsonElement text(Place place) {
            String text = string(place);
            return text == null ? null : new JsonPrimitive(text);
        }

        /**
         * A number, true, false, null, or a value the gateway wrote without quotes: everything
         * up to the next comma or closing bracket or brace.
         */
        private JsonElement bare() {
            int start = pos;
            while (pos < n && ",}]".indexOf(s.charAt(pos)) < 0) {
                pos++;
            }
            if (atEnd()) {
                return null;  // a number or word the cut may have shortened
            }
            int end = pos;
            while (end > start && blank(s.charAt(end - 1))) {
                end--;
            }
            String token = s.substring(start, end);
            if (NUMBER.matcher(token).matches()) {
                return new JsonPrimitive(new ReplyNumber(token));
            }
            if (token.equals("true") || token.equals("false")) {
                return new JsonPrimitive(Boolean.valueOf(token));
            }
            if (token.equals("null")) {
                return JsonNull.INSTANCE;
            }
            repair(Repair.Kind.BARE_VALUE, start);
            return new JsonPrimitive(token);
        }

        /**
         * A quoted text starting at pos; null when the text ends inside it. A quote that does
         * not end it where it stands (see {@link #closes}) is part of it.
         */
        private String string(Place place) {
            StringBuilder b = new StringBuilder();
            pos++;
            while (true) {
                if (atEnd()) {
                    return null;
                }
                char c = s.charAt(pos);
                if (c == '"') {
                    if (closes(pos + 1, place)) {
                        pos++;
                        return b.toString();
                    }
                    repair(Repair.Kind.UNESCAPED_QUOTE, pos++);
                    b.append('"');
                    continue;
                }
                if (c != '\\') {
                    if (c < 0x20) {
                        repair(Repair.Kind.CONTROL_CHARACTER, pos);
                    }
                    b.append(c);
                    pos++;
                    continue;
                }
                if (pos + 1 >= n) {
                    cut = true;
                    return null;
                }
                char e = s.charAt(pos + 1);
                if (e == '"' && closes(pos + 2, place)) {
                    // A text that ends in a backslash, sent unescaped: "lab\" then the quote.
                    repair(Repair.Kind.UNESCAPED_BACKSLASH, pos);
                    b.append('\\');
                    pos += 2;
                    return b.toString();
                }
                int escape = escape(e);
                if (escape >= 0) {
                    b.append((char) escape);
                    pos += 2;
                } else if (e == 'u' && hex4(pos + 2)) {
                    b.append((char) Integer.parseInt(s.substring(pos + 2, pos + 6), 16));
                    pos += 6;
                } else if (e == 'u' && pos + 6 > n && hexUpToEnd(pos + 2)) {
                    cut = true;
                    return null;
                } else {
                    repair(Repair.Kind.UNESCAPED_BACKSLASH, pos);
                    b.append('\\');
                    pos++;
                }
            }
        }

        private static int escape(char e) {
            switch (e) {
                case '"': return '"';
                case '\\': return '\\';
                case '/': return '/';
                case 'b': return '\b';
                case 'f': return '\f';
                case 'n': return '\n';
                case 'r': return '\r';
                case 't': return '\t';
                default: return -1;
            }
        }

        private static boolean hexDigit(char c) {
            return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        }

        private boolean hex4(int at) {
            if (at + 4 > n) {
                return false;
            }
            for (int i = at; i < at + 4; i++) {
                if (!hexDigit(s.charAt(i))) {
                    return false;
                }
            }
            return true;
        }

        private boolean hexUpToEnd(int at) {
            for (int i = at; i < n; i++) {
                if (!hexDigit(s.charAt(i))) {
                    return false;
                }
            }
            return true;
        }

        /**
         * True when a quote whose next character is at {@code at} ends the text it is in:
         * what follows is what may follow a text in that place, or the reply ends there.
         */
        private boolean closes(int at, Place place) {
            int k = skipBlanks(s, at);
            if (k >= n) {
                return true;
            }
            char c = s.charAt(k);
            switch (place) {
                case NAME:
                    return c == ':';
                case MEMBER:
                    return c == '}' ? afterClose(k + 1) : c == ',' && memberFollows(k + 1);
                default:
                    return c == ']' ? afterClose(k + 1) : c == ',' && elementFollows(k + 1);
            }
        }

        /** After a comma in an object: the next member's name and its colon, or the end. */
        private boolean memberFollows(int at) {
            int k = skipBlanks(s, at);
            if (k >= n || s.charAt(k) == '}') {
                return true;
            }
            if (s.charAt(k) != '"') {
                return false;
            }
            int close = k + 1;
            while (close < n && s.charAt(close) != '"') {
                close += s.charAt(close) == '\\' ? 2 : 1;
            }
            if (close >= n) {
                return true;
            }
            int colon = skipBlanks(s, close + 1);
            return colon >= n || s.charAt(colon) == ':';
        }

        /** After a comma in a list: the start of a value, another comma or the closing bracket. */
        private boolean elementFollows(int at) {
            int k = skipBlanks(s, at);
            if (k >= n) {
                return true;
            }
            char c = s.charAt(k);
            return "{[\"-,]tfn".indexOf(c) >= 0 || (c >= '0' && c <= '9');
        }

        /** After a closing bracket or brace: a separator, another closing one, or the end. */
        private boolean afterClose(int at) {
            int k = skipBlanks(s, at);
            return k >= n || ",}]{".indexOf(s.charAt(k)) >= 0;
        }
    }
}
