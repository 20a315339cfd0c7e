package bundlesc.reply;

import java.io.ObjectStreamException;
import java.math.BigDecimal;

/**
 * A JSON number of a reply, kept as its text: {@code toString()} (and so Gson's
 * {@code getAsString()}) answers the digits as the gateway sent them, and the conversions read
 * the text, so unsigned 64-bit counters above {@code Long.MAX_VALUE} lose nothing until a
 * caller narrows them. Gson's own parser keeps numbers the same way.
 */
final class ReplyNumber extends Number {
    private static final long serialVersionUID = 1L;

    private final String text;

    /** @param text a valid JSON number */
    ReplyNumber(String text) {
        this.text = text;
    }

    @Override
    public int intValue() {
        try {
            return Integer.parseInt(text);
        } catch (NumberFormatException e) {
            return (int) longValue();
        }
    }

    @Override
    public long longValue() {
        try {
            return Long.parseLong(text);
        } catch (NumberFormatException e) {
            return new BigDecimal(text).longValue();
        }
    }

    @Override
    public float floatValue() {
        return Float.parseFloat(text);
    }

    @Override
    public double doubleValue() {
        return Double.parseDouble(text);
    }

    @Override
    public String toString() {
        return text;
    }

    @Override
    public boolean equals(Object other) {
        return other instanceof ReplyNumber && ((ReplyNumber) other).text.equals(text);
    }

    @Override
    public int hashCode() {
        return text.hashCode();
    }

    /** Serialised as a BigDecimal, so a reader of the stream needs no class of this bundle. */
    private Object writeReplace() throws ObjectStreamException {
        return new BigDecimal(text);
    }
}
