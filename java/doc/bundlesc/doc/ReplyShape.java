package bundlesc.doc;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

import com.google.gson.JsonElement;
import com.google.gson.JsonPrimitive;

import bundlesc.reply.Reply;
import bundlesc.reply.ReplyReader;
import bundlesc.reply.Repair;

/**
 * The shape of a JSON reply, read from an example: its members in order with their JSON
 * types (number, quoted text, array of objects with their members, object). The reply is
 * read by the reply reader, as leniently as bundles read replies; a reply cut short is no
 * shape.
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

    private ReplyShape() {}

    /** The type of a JSON text, or null when it is not JSON. */
    static Type of(String json) {
        Reply reply = ReplyReader.read(json);
        return reply.isJson() && !reply.has(Repair.Kind.CUT_SHORT) ? type(reply.tree()) : null;
    }

    private static Type type(JsonElement value) {
        if (value.isJsonObject()) {
            Map<String, Type> members = new LinkedHashMap<String, Type>();
            for (Map.Entry<String, JsonElement> e : value.getAsJsonObject().entrySet()) {
                members.put(e.getKey(), type(e.getValue()));
            }
            return new Type("object", members, null);
        }
        if (value.isJsonArray()) {
            Type element = null;
            for (JsonElement e : value.getAsJsonArray()) {
                element = merge(element, type(e));
            }
            return new Type("array", null, element);
        }
        if (value.isJsonNull()) {
            return new Type("null", null, null);
        }
        JsonPrimitive p = value.getAsJsonPrimitive();
        return new Type(p.isString() ? "quoted text" : p.isBoolean() ? "boolean" : "number", null, null);
    }

    /** Two elements of one array: members joined in order of appearance. */
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
