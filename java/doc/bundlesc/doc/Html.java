package bundlesc.doc;

/** Text into HTML that javadoc copies as it is (no markup, no inline tags). */
final class Html {
    private Html() {}

    static String escape(String text) {
        StringBuilder b = new StringBuilder(text.length());
        for (int i = 0; i < text.length(); i++) {
            char c = text.charAt(i);
            switch (c) {
                case '&':
                    b.append("&amp;");
                    break;
                case '<':
                    b.append("&lt;");
                    break;
                case '>':
                    b.append("&gt;");
                    break;
                case '"':
                    b.append("&quot;");
                    break;
                case '@':
                    b.append("&#64;");
                    break;
                case '{':
                    b.append("&#123;");
                    break;
                case '}':
                    b.append("&#125;");
                    break;
                default:
                    b.append(c);
            }
        }
        return b.toString();
    }
}
