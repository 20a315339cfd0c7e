package bundlesc.reply;

/**
 * One oddity of a reply that {@link ReplyReader} repaired: what it was and where it was.
 * Repairs are values: two with the same kind and position are equal.
 */
public final class Repair {

    /** The oddities the replies have always shown, and what the reader makes of each. */
    public enum Kind {
        /**
         * A comma just before the closing bracket or brace, {@code [{...},]}: dropped. A list
         * whose separators follow a count rather than the elements shown keeps one.
         */
        TRAILING_COMMA("a comma just before the closing bracket or brace",
                "the comma is dropped"),
        /**
         * A comma with no element before it, {@code [,{...}]} or {@code {...},,{...}}:
         * dropped.
         */
        STRAY_COMMA("a comma with no element before it (at the start of a list, or doubled)",
                "the comma is dropped"),
        /**
         * Two elements of a list with no comma between them, objects back to back
         * {@code [{...}{...}]}: read as two elements.
         */
        MISSING_COMMA("two elements of a list with no comma between them (objects back to back)",
                "read as two elements"),
        /**
         * A double quote inside a text that the gateway placed in the reply without escaping
         * it, {@code "DeviceName":"Anna's "big" PC"}: kept as part of the text. A quote is
         * taken as the end of the text only when what follows it is what may follow a text
         * there (a colon after a name; a comma and the next member's name, or the closing
         * brace, after a member's value; a comma and a value, or the closing bracket, after
         * an element of a list). A text that itself holds such a sequence, e.g.
         * {@code x","Class":"TRUST}, cannot be told from members and is read as them (see
         * {@link #DUPLICATE_NAME}).
         */
        UNESCAPED_QUOTE("a double quote inside a text, not escaped",
                "kept in the text where the reply's shape shows the text goes on"),
        /**
         * A backslash inside a text that does not start a JSON escape, {@code "C:\share"},
         * or that ends the text just before its closing quote, {@code "lab\"}: kept as a
         * backslash.
         */
        UNESCAPED_BACKSLASH("a backslash inside a text that starts no JSON escape",
                "kept in the text as a backslash"),
        /** A control character (below U+0020) inside a text, e.g. a tab or a line feed: kept. */
        CONTROL_CHARACTER("a control character (tab, line feed ...) inside a text, not escaped",
                "kept in the text"),
        /** A member with nothing after its colon, {@code "SSIDIndex":,}: read as JSON null. */
        MISSING_VALUE("a member or element with no value, e.g. \"totalStorage\":,",
                "read as JSON null"),
        /**
         * A value that is neither a JSON number nor a quoted text nor true, false or null,
         * {@code "ips":[10.0.0.2]}: read as a text (Gson converts a text to a number on
         * request, so {@code getAsInt()} still works where the text is a number).
         */
        BARE_VALUE("a value that is not valid JSON: a text without quotes, a number with leading zeros",
                "read as a text, trimmed"),
        /**
         * A member name that occurs twice in one object: the first member is kept, the later
         * one dropped. Seen where a text from the network held {@code ","Name":"} and so
         * added a member of its own.
         */
        DUPLICATE_NAME("a member name that occurs twice in one object",
                "the first member is kept, the later one dropped"),
        /**
         * The reply ends before its structure closes: it was cut at the end of its buffer.
         * Every open list and object is closed. A text, number or bare value that runs into
         * the end is dropped with its member name, and so is an object of a list that the
         * cut leaves open: a list holds only whole elements. The position is the reply's
         * length.
         */
        CUT_SHORT("the reply ends before its structure closes (cut at the end of its buffer)",
                "open lists and objects are closed; a value, or an element of a list, that the"
                + " cut leaves unfinished is dropped"),
        /** Something after the reply's closing brace: ignored. */
        TRAILING_TEXT("something after the reply's closing brace", "ignored"),
        /**
         * A reply that starts like JSON but that no repair makes JSON: the reply is answered as
         * a plain text ({@link Reply.Form#TEXT}), and the position is where reading stopped.
         */
        NOT_JSON("a reply that starts like JSON but cannot be read as JSON",
                "answered as a plain text");

        private final String oddity;
        private final String repair;

        Kind(String oddity, String repair) {
            this.oddity = oddity;
            this.repair = repair;
        }

        /** What the reply shows, in a few words (the reference's page of oddities uses it). */
        public String oddity() {
            return oddity;
        }

        /** What the reader makes of it, in a few words. */
        public String repair() {
            return repair;
        }
    }

    private final Kind kind;
    private final int position;

    /**
     * @param kind what was repaired
     * @param position where: the index in the reply text of the character concerned
     */
    public Repair(Kind kind, int position) {
        if (kind == null) {
            throw new NullPointerException("kind");
        }
        this.kind = kind;
        this.position = position;
    }

    /** What was repaired. */
    public Kind kind() {
        return kind;
    }

    /**
     * Where: the index in the reply text (a Java string, counted in chars from 0) of the
     * comma, quote, backslash or control character concerned; of the element that follows a
     * missing comma; of the first character of a bare value or of a duplicate member's name;
     * of the comma or closing brace where a value is missing; the reply's length for a reply
     * cut short.
     */
    public int position() {
        return position;
    }

    @Override
    public boolean equals(Object other) {
        if (!(other instanceof Repair)) {
            return false;
        }
        Repair r = (Repair) other;
        return r.kind == kind && r.position == position;
    }

    @Override
    public int hashCode() {
        return kind.hashCode() * 31 + position;
    }

    /** "KIND at POSITION", e.g. {@code MISSING_COMMA at 95}. */
    @Override
    public String toString() {
        return kind + " at " + position;
    }
}
