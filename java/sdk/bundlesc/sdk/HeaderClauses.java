package bundlesc.sdk;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/**
 * The clauses of an OSGi manifest header such as Import-Package:
 * {@code path;path;directive:=value;attribute=value, path...}, values plain or in double quotes.
 */
final class HeaderClauses {

    /** One clause: its paths (package names), attributes and directives. */
    static final class Clause {
        final List<String> paths = new ArrayList<String>();
        final Map<String, String> attributes = new LinkedHashMap<String, String>();
        final Map<String, String> directives = new LinkedHashMap<String, String>();
    }

    private final String header;
    private final String text;
    private int at;

    private HeaderClauses(String header, String text) {
        this.header = header;
        this.text = text;
    }

    /** The clauses of {@code text}, the value of {@code header}; IllegalArgumentException names the fault. */
    static List<Clause> parse(String header, String text) {
        return new HeaderClauses(header, text).clauses();
    }

    private List<Clause> clauses() {
        List<Clause> clauses = new ArrayList<Clause>();
        if (text.trim().isEmpty()) {
            throw fault("is empty");
        }
        while (true) {
            clauses.add(clause());
            skipSpace();
            if (at >= text.length()) {
                return clauses;
            }
            if (text.charAt(at) != ',') {
                throw fault("has '" + text.charAt(at) + "' where a ',' or ';' belongs");
            }
            at++;
        }
    }

    private Clause clause() {
        Clause clause = new Clause();
        while (true) {
            skipSpace();
            String name = token();
            skipSpace();
            if (at < text.length() && text.charAt(at) == ':' && at + 1 < text.length() && text.charAt(at + 1) == '=') {
                at += 2;
                put(clause.directives, name, value(), "directive");
            } else if (at < text.length() && text.charAt(at) == '=') {
                at++;
                put(clause.attributes, name, value(), "attribute");
            } else {
                if (!clause.attributes.isEmpty() || !clause.directives.isEmpty()) {
                    throw fault("names " + name + " after the attributes of its clause");
                }
                clause.paths.add(name);
            }
            skipSpace();
            if (at >= text.length() || text.charAt(at) != ';') {
                if (clause.paths.isEmpty()) {
                    throw fault("has a clause without a name");
                }
                return clause;
            }
            at++;
        }
    }

    private void put(Map<String, String> map, String name, String value, String what) {
        if (map.put(name, value) != null) {
            throw fault("gives the " + what + " " + name + " twice in one clause");
        }
    }

    private String token() {
        int start = at;
        while (at < text.length() && ",;=:\" \t".indexOf(text.charAt(at)) < 0) {
            at++;
        }
        if (at == start) {
            throw fault(at < text.length() ? "has '" + text.charAt(at) + "' where a name belongs"
                    : "ends where a name belongs");
        }
        return text.substring(start, at);
    }

    private String value() {
        skipSpace();
        if (at < text.length() && text.charAt(at) == '"') {
            StringBuilder sb = new StringBuilder();
            at++;
            while (at < text.length() && text.charAt(at) != '"') {
                if (text.charAt(at) == '\\' && at + 1 < text.length()) {
                    at++;
                }
                sb.append(text.charAt(at++));
            }
            if (at >= text.length()) {
                throw fault("has a quoted value without its closing quote");
            }
            at++;
            return sb.toString();
        }
        int start = at;
        while (at < text.length() && ",;".indexOf(text.charAt(at)) < 0) {
            at++;
        }
        String value = text.substring(start, at).trim();
        if (value.isEmpty()) {
            throw fault("has an empty value");
        }
        return value;
    }

    private void skipSpace() {
        while (at < text.length() && Character.isWhitespace(text.charAt(at))) {
            at++;
        }
    }

    private IllegalArgumentException fault(String what) {
        return new IllegalArgumentException(header + " " + what + " (at character " + (at + 1) + ")");
    }
}
