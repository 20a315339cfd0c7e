package bundlesc.reply;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

import com.google.gson.JsonElement;
import com.google.gson.JsonObject;

/**
 * A native's reply as {@link ReplyReader} read it: the text as received, its form, its Gson
 * tree and the oddities repaired on the way. Immutable; the tree is the caller's to keep (the
 * reader keeps no reference to it).
 */
public final class Reply {

    /** What kind of text a native answered. */
    public enum Form {
        /** A JSON reply (the text starts with a brace or bracket): the tree is what it holds. */
        JSON,
        /**
         * A plain text (a MAC address, a name, a password ...), or a reply that starts like
         * JSON but cannot be read as JSON (then with the repair {@link Repair.Kind#NOT_JSON}):
         * the tree is a Gson text primitive holding the reply exactly as received.
         */
        TEXT,
        /** No text at all: the native answered a Java null. The tree is {@code JsonNull}. */
        NONE
    }

    private final String text;
    private final Form form;
    private final JsonElement tree;
    private final List<Repair> repairs;

    Reply(String text, Form form, JsonElement tree, List<Repair> repairs) {
        this.text = text;
        this.form = form;
        this.tree = tree;
        this.repairs = Collections.unmodifiableList(new ArrayList<Repair>(repairs));
    }

    /** The reply exactly as the native answered it; null for {@link Form#NONE}. */
    public String text() {
        return text;
    }

    public Form form() {
        return form;
    }

    /** True when the reply was read as JSON. */
    public boolean isJson() {
        return form == Form.JSON;
    }

    /**
     * The Gson tree: for JSON the object (or array) the reply holds, with numbers that keep
     * their text exactly ({@code getAsString()} answers the digits as sent, {@code getAsLong()}
     * and {@code getAsBigInteger()} read them); for a plain text a text primitive; for no
     * reply {@code JsonNull.INSTANCE}.
     */
    public JsonElement tree() {
        return tree;
    }

    /**
     * The tree as a JSON object, as nearly every JSON reply is.
     *
     * @throws IllegalStateException when the reply is not a JSON object (a plain text, no
     *         reply); the message names the form and quotes the start of the reply
     */
    public JsonObject object() {
        if (tree instanceof JsonObject) {
            return (JsonObject) tree;
        }
        String start = text == null ? "null" : text.length() > 40 ? text.substring(0, 40) + "..." : text;
        throw new IllegalStateException("the reply is not a JSON object (" + form + "): " + start);
    }

    /** The oddities repaired, in the order of their positions; empty for a well-formed reply. */
    public List<Repair> repairs() {
        return repairs;
    }

    /** True when at least one oddity was repaired. */
    public boolean repaired() {
        return !repairs.isEmpty();
    }

    /** True when an oddity of this kind was repaired. */
    public boolean has(Repair.Kind kind) {
        for (Repair r : repairs) {
            if (r.kind() == kind) {
                return true;
            }
        }
        return false;
    }

    /** The form, the repairs and the tree, e.g. {@code JSON [MISSING_COMMA at 95] {"Result":0,...}}. */
    @Override
    public String toString() {
        return form + " " + repairs + " " + tree;
    }
}
