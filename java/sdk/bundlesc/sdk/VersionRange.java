package bundlesc.sdk;

/**
 * OSGi versions (major[.minor[.micro[.qualifier]]]) and version ranges ("[1.0,2)", or "1.0" for
 * 1.0 and up), as Import-Package and Bundle-Version write them.
 */
final class VersionRange {

    private final String text;
    private final long[] floor;
    private final boolean floorIncluded;
    private final long[] ceiling;  // null: no upper bound
    private final boolean ceilingIncluded;

    private VersionRange(String text, long[] floor, boolean floorIncluded, long[] ceiling, boolean ceilingIncluded) {
        this.text = text;
        this.floor = floor;
        this.floorIncluded = floorIncluded;
        this.ceiling = ceiling;
        this.ceilingIncluded = ceilingIncluded;
    }

    /** IllegalArgumentException with the reason when {@code text} is no version range. */
    static VersionRange parse(String text) {
        String t = text.trim();
        if (t.startsWith("[") || t.startsWith("(")) {
            char last = t.charAt(t.length() - 1);
            int comma = t.indexOf(',');
            if (comma < 0 || (last != ']' && last != ')')) {
                throw new IllegalArgumentException("'" + text + "' is not a version range (e.g. [1.0,2))");
            }
            long[] low = version(t.substring(1, comma));
            long[] high = version(t.substring(comma + 1, t.length() - 1));
            if (compare(low, high) > 0) {
                throw new IllegalArgumentException("the version range '" + text + "' is empty");
            }
            return new VersionRange(t, low, t.charAt(0) == '[', high, last == ']');
        }
        return new VersionRange(t, version(t), true, null, false);
    }

    /** major, minor, micro of a version text; IllegalArgumentException when it is none. */
    static long[] version(String text) {
        String[] parts = text.trim().split("\\.", 4);
        long[] v = new long[3];
        for (int i = 0; i < parts.length && i < 3; i++) {
            if (!parts[i].matches("[0-9]{1,9}")) {
                throw new IllegalArgumentException("'" + text + "' is not a version (e.g. 1.0.0)");
            }
            v[i] = Long.parseLong(parts[i]);
        }
        if (parts.length == 4 && !parts[3].matches("[A-Za-z0-9_-]+")) {
            throw new IllegalArgumentException("'" + text + "' has an invalid qualifier");
        }
        return v;
    }

    private static int compare(long[] a, long[] b) {
        for (int i = 0; i < 3; i++) {
            if (a[i] != b[i]) {
                return a[i] < b[i] ? -1 : 1;
            }
        }
        return 0;
    }

    boolean includes(String version) {
        long[] v = version(version);
        int low = compare(v, floor);
        if (low < 0 || (low == 0 && !floorIncluded)) {
            return false;
        }
        if (ceiling == null) {
            return true;
        }
        int high = compare(v, ceiling);
        return high < 0 || (high == 0 && ceilingIncluded);
    }

    @Override
    public String toString() {
        return text;
    }
}
