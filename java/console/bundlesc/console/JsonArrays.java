package bundlesc.console;

import java.util.ArrayList;
import java.util.List;

/**
 * A small, strict reader and writer for the two JSON shapes the console needs:
 * an array of strings (elements may be {@code null}) and an array of whole numbers.
 *
 * <p>Strict means: standard JSON string escapes only ({@code \" \\ \/ \b \f \n \r \t
 * \\uXXXX}), no unescaped control characters inside strings, no trailing commas,
 * no comments, no single quotes and nothing but whitespace after the closing bracket.
 * Positions in error messages count characters from 1.
 */
final class JsonArrays {

    /** Malformed JSON text; the message already contains the position. */
    static final class SyntaxException extends Exception {
        private static final long serialVersionUID = 1L;

        SyntaxException(String message) {
            super(message);
        }
    }

    private final String text;
    private int pos;

    private JsonArrays(String text) {
        this.text = text;
    }

    /** Parses {@code ["a", null, "b"]}; the list holds {@code null} for JSON null elements. */
    static List<String> parseStringArray(String text) throws SyntaxException {
        JsonArrays reader = new JsonArrays(text);
        List<String> values = new ArrayList<String>();
        reader.openArray();
        if (!reader.closeIfEmpty()) {
            do {
                reader.skipWhitespace();
                if (reader.peek() == '"') {
                    values.add(reader.readString());
                } else if (reader.lookingAtWord("null")) {
                    reader.pos += 4;
                    values.add(null);
                } else {
                    throw reader.error("element " + (values.size() + 1)
                            + ": expected a string in double quotes or null");
                }
            } while (reader.nextElement());
        }
        reader.expectEnd();
        return values;
    }

    /** Parses {@code [1, -2, 255]}; only whole numbers that fit in a long are accepted. */
    static List<Long> parseIntegerArray(String text) throws SyntaxException {
        JsonArrays reader = new JsonArrays(text);
        List<Long> values = new ArrayList<Long>();
        reader.openArray();
        if (!reader.closeIfEmpty()) {
            do {
                reader.skipWhitespace();
                values.add(reader.readInteger(values.size() + 1));
            } while (reader.nextElement());
        }
        reader.expectEnd();
        return values;
    }

    /** Writes a string array as compact JSON, {@code null} elements as {@code null}. */
    static String formatStringArray(String[] values) {
        if (values == null) {
            return "null";
        }
        StringBuilder sb = new StringBuilder("[");
        for (int i = 0; i < values.length; i++) {
            if (i > 0) {
                sb.append(',');
            }
            appendQuoted(sb, values[i]);
        }
        return sb.append(']').toString();
    }

    /** Appends a JSON string literal (or {@code null}) to {@code sb}. */
    static void appendQuoted(StringBuilder sb, String value) {
        if (value == null) {
            sb.append("null");
            return;
        }
        sb.append('"');
        for (int i = 0; i < value.length(); i++) {
            char c = value.charAt(i);
            switch (c) {
                case '"': sb.append("\\\""); break;
                case '\\': sb.append("\\\\"); break;
                case '\b': sb.append("\\b"); break;
                case '\f': sb.append("\\f"); break;
                case '\n': sb.append("\\n"); break;
                case '\r': sb.append("\\r"); break;
                case '\t': sb.append("\\t"); break;
                default:
                    if (c < 0x20) {
                        sb.append(String.format("\\u%04x", (int) c));
                    } else {
                        sb.append(c);
                    }
            }
        }
        sb.append('"');
    }

    // ---- reader internals ------------------------------------------------------------

    private void openArray() throws SyntaxException {
        skipWhitespace();
        if (peek() != '[') {
            throw error("expected a JSON array starting with '['");
        }
        pos++;
    }

    /** After '[': consumes ']' of an empty array and returns true, else returns false. */
    private boolean closeIfEmpty() {
        skipWhitespace();
        if (peek() == ']') {
            pos++;
            return true;
        }
        return false;
    }

    /** After an element: returns true on ',' (another element follows), false on ']'. */
    private boolean nextElement() throws SyntaxException {
        skipWhitespace();
        char c = peek();
        if (c == ',') {
            pos++;
            skipWhitespace();
            if (peek() == ']') {
                throw error("trailing comma before ']'");
            }
            if (atEnd()) {
                throw error("missing closing ']'");
            }
            return true;
        }
        if (c == ']') {
            pos++;
            return false;
        }
        if (atEnd()) {
            throw error("missing closing ']'");
        }
        throw error("expected ',' or ']' but found '" + c + "'");
    }

    private void expectEnd() throws SyntaxException {
        skipWhitespace();
        if (!atEnd()) {
            throw error("unexpected text after the closing ']'");
        }
    }

    private String readString() throws SyntaxException {
        int start = pos;
        pos++; // opening quote
        StringBuilder sb = new StringBuilder();
        while (true) {
            if (atEnd()) {
                pos = start;
                throw error("unterminated string");
            }
            char c = text.charAt(pos);
            if (c == '"') {
                pos++;
                return sb.toString();
            }
            if (c < 0x20) {
                throw error(String.format("control character U+%04X must be escaped", (int) c));
            }
            if (c != '\\') {
                sb.append(c);
                pos++;
                continue;
            }
            if (pos + 1 >= text.length()) {
                throw error("unterminated escape sequence");
            }
            char e = text.charAt(pos + 1);
            switch (e) {
                case '"': sb.append('"'); break;
                case '\\': sb.append('\\'); break;
                case '/': sb.append('/'); break;
                case 'b': sb.append('\b'); break;
                case 'f': sb.append('\f'); break;
                case 'n': sb.append('\n'); break;
                case 'r': sb.append('\r'); break;
                case 't': sb.append('\t'); break;
                case 'u':
                    if (pos + 6 > text.length()) {
                        throw error("\\u must be followed by four hex digits");
                    }
                    int code = 0;
                    for (int i = pos + 2; i < pos + 6; i++) {
                        int digit = hexDigit(text.charAt(i));
                        if (digit < 0) {
                            throw error("\\u must be followed by four hex digits");
                        }
                        code = code * 16 + digit;
                    }
                    sb.append((char) code);
                    pos += 4;
                    break;
                default:
                    throw error("invalid escape sequence '\\" + e + "'");
            }
            pos += 2;
        }
    }

    private long readInteger(int index) throws SyntaxException {
        int start = pos;
        if (peek() == '-') {
            pos++;
        }
        int digitsStart = pos;
        while (!atEnd() && text.charAt(pos) >= '0' && text.charAt(pos) <= '9') {
            pos++;
        }
        int digits = pos - digitsStart;
        if (digits == 0) {
            pos = start;
            throw error("element " + index + ": expected a number");
        }
        if (digits > 1 && text.charAt(digitsStart) == '0') {
            pos = start;
            throw error("element " + index + ": leading zeros are not allowed");
        }
        char c = peek();
        if (c == '.' || c == 'e' || c == 'E') {
            pos = start;
            throw error("element " + index + ": only whole numbers are allowed");
        }
        if (digits > 18) {
            pos = start;
            throw error("element " + index + ": number out of range");
        }
        return Long.parseLong(text.substring(start, pos));
    }

    /**
     * The value of an ASCII hex digit, else -1 (Character.digit would also take the other
     * scripts' digits, e.g. fullwidth or Arabic-Indic ones, which JSON does not).
     */
    static int hexDigit(char c) {
        if (c >= '0' && c <= '9') {
            return c - '0';
        }
        if (c >= 'a' && c <= 'f') {
            return c - 'a' + 10;
        }
        if (c >= 'A' && c <= 'F') {
            return c - 'A' + 10;
        }
        return -1;
    }

    private boolean lookingAtWord(String word) {
        if (!text.startsWith(word, pos)) {
            return false;
        }
        int end = pos + word.length();
        return end == text.length() || !Character.isLetterOrDigit(text.charAt(end));
    }

    private void skipWhitespace() {
        while (!atEnd()) {
            char c = text.charAt(pos);
            if (c != ' ' && c != '\t' && c != '\n' && c != '\r') {
                return;
            }
            pos++;
        }
    }

    private boolean atEnd() {
        return pos >= text.length();
    }

    private char peek() {
        return atEnd() ? '\0' : text.charAt(pos);
    }

    private SyntaxException error(String message) {
        if (atEnd()) {
            return new SyntaxException(message + " at end of input");
        }
        return new SyntaxException(message + " at character " + (pos + 1));
    }
}
