package bundlesc.doc;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/**
 * The shape of a JSON reply, read from an example: its members in order with their JSON
 * types (number, quoted text, array of objects with their members, object). The reader is
 * lenient where replies are: a comma before a closing bracket is accepted.
 */
final class ReplyShape {
    /** A value's type; for objects and array elements the members in order of appearance. */
    static final class Type {
        final String kind;
        final Map<String, Type> members;
        final Type element;

        Type(String kind, Map<String, Type> members, Type element) {
            this.kind = kind;
            this.members = members;
            this.element = element;
        }
    }

    private final String text;
    private int pos;

    private ReplyShape(String text) {
        this.text = text;
    }

    /** The type of a JSON text, or null when it is not JSON. */
    static Type of(String json) {
        ReplyShape r = new ReplyShape(json);
        try {
            r.blanks();
            Type t = r.value();
            r.blanks();
            return r.pos == json.length() ? t : null;
        } catch (IllegalArgumentException | StringIndexOutOfBoundsException e) {
            return null;
        }
    }

    private void blanks() {
        while (pos < text.length() && Character.isWhitespace(text.charAt(pos))) {
            pos++;
        }
    }

    private char peek() {
        return text.charAt(pos);
    }

    private void expect(char c) {
        if (peek() != c) {
            throw new IllegalArgumentException("expected " + c + " at " + pos);
        }
        pos++;
    }

    private Type value() {
        char c = peek();
        if (c == '{') {
            return object();
        } else if (c == '[') {
            return array();
        } else if (c == '"') {
            string();
            return new Type("quoted text", null, null);
        } else if (text.startsWith("true", pos) || text.startsWith("false", pos)) {
            pos += peek() == 't' ? 4 : 5;
            return new Type("boolean", null, null);
        } else if (text.startsWith("null", pos)) {
            pos += 4;
            return new Type("null", null, null);
        } else if (c == '-' || (c >= '0' && c <= '9')) {
            int start = pos;
            pos++;
            while (pos < text.length() && "0123456789.eE+-".indexOf(peek()) >= 0) {
                pos++;
            }
            Double.parseDouble(text.substring(start, pos));
            return new Type("number", null, null);
        }
        throw new IllegalArgumentException("unexpected " + c + " at " + pos);
    }

    private Type object() {
        expect('{');
        Map<String, Type> members = new LinkedHashMap<String, Type>();
        blanks();
        while (peek() != '}') {
            String name = string();
            blanks();
            expect(':');
            blanks();
            Type t = value();
            members.put(name, merge(members.get(name), t));
            blanks();
            if (peek() == ',') {
                pos++;
                blanks();
            } else if (peek() != '}') {
                throw new IllegalArgumentException("expected , or } at " + pos);
            }
        }
        pos++;
        return new Type("object", members, null);
    }

    private Type array() {
        expect('[');
        Type element = null;
        blanks();
        while (peek() != ']') {
            element = merge(element, value());
            blanks();
            if (peek() == ',') {
                pos++;
                blanks();
            } else if (peek() != ']') {
                throw new IllegalArgumentException("expected , or ] at " + pos);
            }
        }
        pos++;
        return new Type("array", null, element);
    }

    private String string() {
        expect('"');
        StringBuilder b = new StringBuilder();
        while (peek() != '"') {
            char c = peek();
            if (c == '\\') {
                pos++;
                char e = peek();
                if (e == 'u') {
                    b.append((char) Integer.parseInt(text.substring(pos + 1, pos + 5), 16));
                    pos += 4;
                } else {
                    b.append(e == 'n' ? '\n' : e == 't' ? '\t' : e);
                }
            } else {
                b.append(c);
            }
            pos++;
        }
        pos++;
        return b.toString();
    }

    /** Two elements of one array (or two values of one name): members joined in order of appearance. */
    private static Type merge(Type a, Type b) {
        if (a == null) {
            return b;
        }
        if (!a.kind.equals(b.kind)) {
            return new Type(a.kind + " or " + b.kind, null, null);
        }
        if (a.members != null) {
            Map<String, Type> members = new LinkedHashMap<String, Type>(a.members);
            for (Map.Entry<String, Type> e : b.members.entrySet()) {
                members.put(e.getKey(), merge(members.get(e.getKey()), e.getValue()));
            }
            return new Type(a.kind, members, null);
        }
        if (a.kind.equals("array")) {
            Type element = a.element == null ? b.element
                    : b.element == null ? a.element : merge(a.element, b.element);
            return new Type("array", null, element);
        }
        return a;
    }

    /** The members of an object type as HTML: {@code <code>Name</code>: quoted text, ...}. */
    static String describeMembers(Type object) {
        List<String> parts = new ArrayList<String>();
        for (Map.Entry<String, Type> e : object.members.entrySet()) {
            parts.add("<code>" + Html.escape(e.getKey()) + "</code>: " + describe(e.getValue()));
        }
        return parts.isEmpty() ? "(no members)" : String.join(", ", parts);
    }

    static String describe(Type t) {
        if (t.kind.equals("object")) {
            return "object {" + describeMembers(t) + "}";
        }
        if (t.kind.equals("array")) {
            if (t.element == null) {
                return "array (empty in the example)";
            }
            if (t.element.kind.equals("object")) {
                return "array of {" + describeMembers(t.element) + "}";
            }
            return "array of " + describe(t.element);
        }
        return t.kind;
    }
}
