package bundlesc.console;

import java.io.IOException;
import java.io.StringReader;
import java.util.ArrayList;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

import com.google.gson.GsonBuilder;
import com.google.gson.stream.JsonReader;
import com.google.gson.stream.JsonToken;

/**
 * Turns command text into Java values for a native call: splits batch lines into
 * arguments and converts each argument according to the parameter type of the
 * selected method.
 *
 * <p>Accepted forms per parameter type:
 * <ul>
 * <li>{@code int}: decimal with optional sign ({@code 42}, {@code -1}), or hexadecimal
 *     with {@code 0x} prefix ({@code 0x1f}, {@code -0x10}); hexadecimal values up to
 *     {@code 0xFFFFFFFF} are taken as the 32-bit pattern, so {@code 0xFFFFFFFF} is -1.</li>
 * <li>{@code boolean}: {@code true}, {@code false} (any case), {@code 1}, {@code 0}.</li>
 * <li>{@code byte}: an integer in either form of {@code int} from -128 to 255; 128..255 are
 *     taken as the 8-bit pattern, so {@code 255} and {@code 0xff} are -1.</li>
 * <li>{@code String}: the text as given; the word {@code null} alone means a Java null
 *     unless it was written in double quotes on a batch line.</li>
 * <li>{@code String[]}: a JSON array of strings, elements may be {@code null};
 *     {@code null} alone means a null array.</li>
 * <li>{@code byte[]}: a JSON array of numbers from -128 to 255, {@code hex:} followed by
 *     an even number of hex digits, {@code zeros:N} for N zero bytes (a buffer for a
 *     native to fill), or {@code null}.</li>
 * </ul>
 */
final class ArgumentParser {

    /** Largest buffer {@code zeros:N} will allocate. */
    static final int MAX_ZEROS = 16 * 1024 * 1024;

    /** One argument of a command: its text and whether it was written in double quotes. */
    static final class Token {
        final String text;
        final boolean quoted;

        Token(String text, boolean quoted) {
            this.text = text;
            this.quoted = quoted;
        }

        static Token plain(String text) {
            return new Token(text, false);
        }

        @Override
        public String toString() {
            return quoted ? "\"" + text + "\"" : text;
        }
    }

    private ArgumentParser() {
    }

    // ---- batch lines -------------------------------------------------------------------

    /** True for lines a batch run skips: blank lines and lines whose first non-blank is '#'. */
    static boolean isSkippable(String line) {
        String trimmed = line.trim();
        return trimmed.isEmpty() || trimmed.charAt(0) == '#';
    }

    /**
     * Splits a batch line into arguments. Arguments are separated by whitespace, except
     * that a double-quoted part ({@code "two words"}, inside which {@code \"} and
     * {@code \\} stand for a quote and a backslash) and a JSON array or object starting an
     * argument ({@code ["a b", "c"]}, {@code {"Timeout":2000}}, brackets and quotes inside
     * strings honoured) stay whole. The quotes around a quoted part are removed; JSON is kept
     * verbatim.
     */
    static List<Token> splitLine(String line) throws ArgumentException {
        List<Token> tokens = new ArrayList<Token>();
        int n = line.length();
        int i = 0;
        while (true) {
            while (i < n && Character.isWhitespace(line.charAt(i))) {
                i++;
            }
            if (i >= n) {
                return tokens;
            }
            StringBuilder sb = new StringBuilder();
            boolean quoted = false;
            while (i < n && !Character.isWhitespace(line.charAt(i))) {
                char c = line.charAt(i);
                if (c == '"') {
                    quoted = true;
                    i = readQuoted(line, i, sb);
                } else if ((c == '[' || c == '{') && sb.length() == 0 && !quoted) {
                    i = readBracketed(line, i, sb);
                } else {
                    sb.append(c);
                    i++;
                }
            }
            tokens.add(new Token(sb.toString(), quoted));
        }
    }

    /** Reads a "..." part starting at {@code start}; returns the index after the closing quote. */
    private static int readQuoted(String line, int start, StringBuilder sb) throws ArgumentException {
        int i = start + 1;
        while (i < line.length()) {
            char c = line.charAt(i);
            if (c == '"') {
                return i + 1;
            }
            if (c == '\\' && i + 1 < line.length()
                    && (line.charAt(i + 1) == '"' || line.charAt(i + 1) == '\\')) {
                sb.append(line.charAt(i + 1));
                i += 2;
            } else {
                sb.append(c);
                i++;
            }
        }
        throw new ArgumentException("unterminated double quote starting at character " + (start + 1));
    }

    /**
     * Reads a JSON array [...] or object {...} starting at {@code start}; returns the index
     * after the bracket that closes it.
     */
    private static int readBracketed(String line, int start, StringBuilder sb) throws ArgumentException {
        int depth = 0;
        boolean inString = false;
        int i = start;
        while (i < line.length()) {
            char c = line.charAt(i);
            sb.append(c);
            i++;
            if (inString) {
                if (c == '\\' && i < line.length()) {
                    sb.append(line.charAt(i));
                    i++;
                } else if (c == '"') {
                    inString = false;
                }
            } else if (c == '"') {
                inString = true;
            } else if (c == '[' || c == '{') {
                depth++;
            } else if (c == ']' || c == '}') {
                depth--;
                if (depth == 0) {
                    return i;
                }
            }
        }
        String what = line.charAt(start) == '[' ? "JSON array" : "JSON object";
        throw new ArgumentException(inString
                ? "unterminated string inside the " + what + " starting at character " + (start + 1)
                : "unterminated " + what + " starting at character " + (start + 1) + " (missing '"
                        + (line.charAt(start) == '[' ? ']' : '}') + "')");
    }

    // ---- conversion --------------------------------------------------------------------

    /**
     * Converts one argument to a value of {@code type}.
     *
     * @param label names the argument in error messages, e.g. "argument 2 of setXJni"
     */
    static Object convert(Token token, Class<?> type, String label) throws ArgumentException {
        String text = token.text;
        String where = label + " (" + type.getSimpleName() + ")";
        if (type == int.class) {
            return parseInt(text, where);
        }
        if (type == boolean.class) {
            return parseBoolean(text, where);
        }
        if (type == byte.class) {
            return parseByte(text, where);
        }
        if (type == String.class) {
            return !token.quoted && text.equals("null") ? null : text;
        }
        if (type == String[].class) {
            return parseStringArray(text, where);
        }
        if (type == byte[].class) {
            return parseByteArray(text, where);
        }
        throw new ArgumentException(where + ": parameter type " + type.getName()
                + " is not supported by the console");
    }

    static int parseInt(String text, String where) throws ArgumentException {
        String s = text;
        boolean negative = false;
        if (s.startsWith("-") || s.startsWith("+")) {
            negative = s.charAt(0) == '-';
            s = s.substring(1);
        }
        boolean hex = s.startsWith("0x") || s.startsWith("0X");
        if (hex) {
            s = s.substring(2);
        }
        int radix = hex ? 16 : 10;
        if (s.isEmpty() || s.length() > 12) {
            throw notAnInt(text, where);
        }
        long value = 0;
        for (int i = 0; i < s.length(); i++) {
            int digit = hexDigit(s.charAt(i));
            if (digit < 0 || digit >= radix) {
                throw notAnInt(text, where);
            }
            value = value * radix + digit;
        }
        if (negative) {
            value = -value;
        }
        if (hex && !negative && value <= 0xFFFFFFFFL) {
            return (int) value;
        }
        if (value < Integer.MIN_VALUE || value > Integer.MAX_VALUE) {
            throw new ArgumentException(where + ": '" + text + "' is out of range for int");
        }
        return (int) value;
    }

    private static ArgumentException notAnInt(String text, String where) {
        return new ArgumentException(where + ": '" + text
                + "' is not an integer (expected e.g. 42, -1 or 0x1f)");
    }

    static byte parseByte(String text, String where) throws ArgumentException {
        int value = parseInt(text, where);
        if (value < -128 || value > 255) {
            throw new ArgumentException(where + ": '" + text + "' is outside the byte range -128..255");
        }
        return (byte) value;
    }

    static boolean parseBoolean(String text, String where) throws ArgumentException {
        if (text.equalsIgnoreCase("true") || text.equals("1")) {
            return true;
        }
        if (text.equalsIgnoreCase("false") || text.equals("0")) {
            return false;
        }
        throw new ArgumentException(where + ": '" + text + "' is not a boolean (expected true, false, 1 or 0)");
    }

    static String[] parseStringArray(String text, String where) throws ArgumentException {
        if (text.trim().equals("null")) {
            return null;
        }
        List<String> values = new ArrayList<String>();
        try {
            JsonReader reader = openArray(text);
            while (reader.hasNext()) {
                if (reader.peek() == JsonToken.NULL) {
                    reader.nextNull();
                    values.add(null);
                } else if (reader.peek() == JsonToken.STRING) {
                    values.add(reader.nextString());
                } else {
                    throw new IOException("element " + (values.size() + 1)
                            + ": expected a string in double quotes or null");
                }
            }
            closeArray(reader);
        } catch (IOException | RuntimeException e) {
            throw new ArgumentException(where + ": invalid JSON array of strings: " + jsonFault(e)
                    + " (expected e.g. [\"a\",\"b\"] or null)");
        }
        return values.toArray(new String[0]);
    }

    private static final Pattern GSON_FAULT =
            Pattern.compile("^(.*?) at line ([0-9]+) column ([0-9]+)(?: path .*)?$", Pattern.DOTALL);

    /**
     * What went wrong in a JSON argument, in the console's words: Gson's reader describes a fault
     * in its own ("Use JsonReader.setLenient(true) to accept malformed JSON at line 1 column 2
     * path $[0]", the path its internal one); the console keeps the fault and where it is.
     */
    static String jsonFault(Exception e) {
        String message = e.getMessage() == null ? e.getClass().getSimpleName() : e.getMessage();
        Matcher m = GSON_FAULT.matcher(message);
        if (!m.matches()) {
            return message; // the console's own
        }
        String fault = m.group(1).startsWith("Use JsonReader.setLenient") ? "malformed JSON" : m.group(1);
        fault = Character.toLowerCase(fault.charAt(0)) + fault.substring(1);
        return fault + (m.group(2).equals("1") ? "" : " on line " + m.group(2)) + " at column " + m.group(3);
    }

    /** A strict JSON reader positioned inside the array {@code text} must start with. */
    private static JsonReader openArray(String text) throws IOException {
        JsonReader reader = new JsonReader(new StringReader(text));
        reader.setLenient(false);
        if (text.trim().isEmpty() || reader.peek() != JsonToken.BEGIN_ARRAY) {
            throw new IOException("expected a JSON array");
        }
        reader.beginArray();
        return reader;
    }

    /** Reads the closing bracket; nothing but whitespace may follow it. */
    private static void closeArray(JsonReader reader) throws IOException {
        reader.endArray();
        if (reader.peek() != JsonToken.END_DOCUMENT) {
            throw new IOException("unexpected text after the closing ']'");
        }
    }

    static byte[] parseByteArray(String text, String where) throws ArgumentException {
        String trimmed = text.trim();
        if (trimmed.equals("null")) {
            return null;
        }
        if (trimmed.regionMatches(true, 0, "hex:", 0, 4)) {
            return parseHex(trimmed.substring(4), where);
        }
        if (trimmed.regionMatches(true, 0, "zeros:", 0, 6)) {
            String count = trimmed.substring(6);
            int n;
            try {
                n = parseInt(count, where);
            } catch (ArgumentException e) {
                throw new ArgumentException(where + ": zeros:N needs a byte count, got '" + count + "'");
            }
            if (n < 0 || n > MAX_ZEROS) {
                throw new ArgumentException(where + ": zeros:N needs a count from 0 to " + MAX_ZEROS);
            }
            return new byte[n];
        }
        List<Long> values = new ArrayList<Long>();
        try {
            JsonReader reader = openArray(text);
            while (reader.hasNext()) {
                if (reader.peek() != JsonToken.NUMBER) {
                    throw new IOException("element " + (values.size() + 1) + ": expected a whole number");
                }
                String number = reader.nextString();
                try {
                    values.add(Long.parseLong(number));
                } catch (NumberFormatException e) {
                    throw new IOException("element " + (values.size() + 1) + " (" + number
                            + ") is not a whole number");
                }
            }
            closeArray(reader);
        } catch (IOException | RuntimeException e) {
            throw new ArgumentException(where + ": invalid byte array: " + jsonFault(e)
                    + " (expected e.g. [1,-2,255], hex:0a0bff, zeros:64 or null)");
        }
        byte[] bytes = new byte[values.size()];
        for (int i = 0; i < bytes.length; i++) {
            long v = values.get(i);
            if (v < -128 || v > 255) {
                throw new ArgumentException(where + ": element " + (i + 1) + " (" + v
                        + ") is outside the byte range -128..255");
            }
            bytes[i] = (byte) v;
        }
        return bytes;
    }

    private static byte[] parseHex(String digits, String where) throws ArgumentException {
        if (digits.length() % 2 != 0) {
            throw new ArgumentException(where + ": hex: needs an even number of hex digits, got "
                    + digits.length());
        }
        byte[] bytes = new byte[digits.length() / 2];
        for (int i = 0; i < bytes.length; i++) {
            int hi = hexDigit(digits.charAt(2 * i));
            int lo = hexDigit(digits.charAt(2 * i + 1));
            if (hi < 0 || lo < 0) {
                throw new ArgumentException(where + ": hex: contains a non-hex character near position "
                        + (2 * i + 1) + " of '" + digits + "'");
            }
            bytes[i] = (byte) (hi << 4 | lo);
        }
        return bytes;
    }

    /** The value of an ASCII hex digit, or -1 (digits of other scripts are not digits here). */
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

    // ---- output ------------------------------------------------------------------------

    /** Writes a string array as compact JSON, {@code null} elements as {@code null}. */
    static String formatStringArray(String[] values) {
        return new GsonBuilder().serializeNulls().disableHtmlEscaping().create().toJson(values);
    }

    /** Formats bytes as a compact JSON array of unsigned values, e.g. [1,2,255]. */
    static String formatBytes(byte[] bytes) {
        if (bytes == null) {
            return "null";
        }
        StringBuilder sb = new StringBuilder("[");
        for (int i = 0; i < bytes.length; i++) {
            if (i > 0) {
                sb.append(',');
            }
            sb.append(bytes[i] & 0xff);
        }
        return sb.append(']').toString();
    }
}
