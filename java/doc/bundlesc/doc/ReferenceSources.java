package bundlesc.doc;

import java.io.File;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * Reads the service classes' sources ({@code <package>/<Name>Imp.java} under
 * com/lumarest/smartgateway) and finds every native method with its doc comment and its
 * {@code @example} block.
 *
 * <p>An example is written in the comment as
 * <pre>
 * &#64;example &lt;pre&gt;{&#64;code
 * callLine arguments...
 * console output line(s)
 * }&lt;/pre&gt;
 * </pre>
 * The text is taken as javadoc shows it: Unicode escapes are translated first, the leading
 * blanks and asterisk of each comment line are removed, and one blank after the asterisk.
 *
 * <p>A native whose replies show an oddity (a reply that is not plain JSON, as the reply
 * reader bundlesc.reply repairs it) says so in an {@code @oddity} block: the names of the
 * oddities ({@link bundlesc.reply.Repair.Kind}), a few words on when it shows, and, where a
 * bundle can bring it about from the default simulated gateway, a transcript of the bridge
 * console: each command as "&gt; Class method arguments" followed by what the console prints.
 * <pre>
 * &#64;oddity MISSING_COMMA With a second guest SSID: &lt;pre&gt;{&#64;code
 * &gt; WlanConfigService addWLANGuestSSIDJni 6
 * 0
 * &gt; WlanQueryService getGuestSSIDInfoJni
 * {"Result":0,"List":[{...}{...}]}
 * }&lt;/pre&gt;
 * </pre>
 */
final class ReferenceSources {
    static final String BASE_PACKAGE = "com.lumarest.smartgateway";
    static final List<String> PACKAGES = Arrays.asList("lanservices", "accessservices", "addressservices",
            "commservices", "transferservices", "voipservices");

    private static final String MODIFIER = "(?:public|protected|private|static|final|synchronized)\\s+";
    private static final Pattern NATIVE = Pattern.compile("(?<![\\w.])(?:" + MODIFIER + ")*native\\s+(?:"
            + MODIFIER + ")*([\\w.]+(?:\\s*\\[\\s*\\])*)\\s+(\\w+)\\s*\\(([^)]*)\\)\\s*;");
    private static final Pattern PACKAGE = Pattern.compile("\\bpackage\\s+([\\w.]+)\\s*;");
    private static final Pattern BETWEEN_COMMENT_AND_DECLARATION = Pattern.compile("(?:\\s|@[\\w.]+)*");

    /** A problem in a source that keeps the reference from being made. */
    static final class SourceException extends Exception {
        private static final long serialVersionUID = 1L;

        SourceException(String message) {
            super(message);
        }
    }

    private ReferenceSources() {}

    /** Every native of the six packages under {@code sourceRoot}, by package, class and source order. */
    static List<NativeDoc> read(File sourceRoot) throws IOException, SourceException {
        List<NativeDoc> result = new ArrayList<NativeDoc>();
        File base = new File(sourceRoot, BASE_PACKAGE.replace('.', File.separatorChar));
        for (String pkg : PACKAGES) {
            File dir = new File(base, pkg);
            File[] files = dir.listFiles();
            if (files == null) {
                throw new SourceException("no directory " + dir);
            }
            Arrays.sort(files);
            for (File f : files) {
                if (f.getName().endsWith("Imp.java")) {
                    result.addAll(readFile(f, pkg));
                }
            }
        }
        return result;
    }

    static List<NativeDoc> readFile(File file, String expectedPackage) throws IOException, SourceException {
        String text = translateUnicodeEscapes(new String(Files.readAllBytes(file.toPath()), StandardCharsets.UTF_8));
        String className = file.getName().substring(0, file.getName().length() - ".java".length());
        return parse(text, file.getPath(), expectedPackage, className);
    }

    static List<NativeDoc> parse(String text, String where, String expectedPackage, String className)
            throws SourceException {
        List<int[]> docComments = new ArrayList<int[]>();
        String masked = mask(text, docComments);
        Matcher p = PACKAGE.matcher(masked);
        String expected = BASE_PACKAGE + "." + expectedPackage;
        if (!p.find() || !p.group(1).equals(expected)) {
            throw new SourceException(where + ": not in package " + expected);
        }
        List<NativeDoc> natives = new ArrayList<NativeDoc>();
        Matcher m = NATIVE.matcher(masked);
        while (m.find()) {
            String returnType = m.group(1).replaceAll("\\s+", "");
            String method = m.group(2);
            List<String> types = new ArrayList<String>();
            List<String> names = new ArrayList<String>();
            parseParameters(m.group(3), types, names, where + ":" + line(text, m.start()));
            String comment = null;
            for (int[] c : docComments) {
                if (c[1] <= m.start()
                        && BETWEEN_COMMENT_AND_DECLARATION.matcher(masked.substring(c[1], m.start())).matches()) {
                    comment = commentText(text.substring(c[0] + 3, c[1] - 2));
                }
            }
            String call = null;
            List<String> output = new ArrayList<String>();
            List<NativeDoc.Oddity> oddities = new ArrayList<NativeDoc.Oddity>();
            if (comment != null) {
                String at = where + ":" + line(text, m.start()) + " (" + method + ")";
                List<String> example = example(comment, at);
                if (example != null) {
                    call = example.get(0);
                    output.addAll(example.subList(1, example.size()));
                }
                oddities.addAll(oddities(comment, at));
            }
            natives.add(new NativeDoc(expectedPackage, className, method, returnType, types, names, comment, call,
                    output, oddities));
        }
        return natives;
    }

    private static void parseParameters(String list, List<String> types, List<String> names, String where)
            throws SourceException {
        String trimmed = list.trim();
        if (trimmed.isEmpty()) {
            return;
        }
        for (String parameter : trimmed.split(",")) {
            String p = parameter.trim().replaceAll("^(final\\s+)+", "").replaceAll("\\s*\\[\\s*\\]", "[]");
            int space = p.lastIndexOf(' ');
            if (space < 0) {
                throw new SourceException(where + ": cannot read parameter '" + parameter.trim() + "'");
            }
            String type = p.substring(0, space).trim();
            String name = p.substring(space + 1);
            while (name.endsWith("[]")) {
                type += "[]";
                name = name.substring(0, name.length() - 2);
            }
            types.add(type);
            names.add(name);
        }
    }

    private static int line(String text, int offset) {
        int n = 1;
        for (int i = 0; i < offset; i++) {
            if (text.charAt(i) == '\n') {
                n++;
            }
        }
        return n;
    }

    /**
     * The text with comments, string and character literals blanked out (lengths kept, line
     * feeds kept); the offsets of each doc comment ("/**" up to and including its end) are
     * added to {@code docComments}.
     */
    static String mask(String text, List<int[]> docComments) {
        char[] out = text.toCharArray();
        int i = 0;
        int n = text.length();
        while (i < n) {
            char c = text.charAt(i);
            if (c == '/' && i + 1 < n && text.charAt(i + 1) == '/') {
                int end = text.indexOf('\n', i);
                end = end < 0 ? n : end;
                blank(out, i, end);
                i = end;
            } else if (c == '/' && i + 1 < n && text.charAt(i + 1) == '*') {
                int end = text.indexOf("*/", i + 2);
                end = end < 0 ? n : end + 2;
                if (text.startsWith("/**", i) && end - i > 4) {
                    docComments.add(new int[] {i, end});
                }
                blank(out, i, end);
                i = end;
            } else if (c == '"' || c == '\'') {
                int j = i + 1;
                while (j < n && text.charAt(j) != c && text.charAt(j) != '\n') {
                    j += text.charAt(j) == '\\' ? 2 : 1;
                }
                int end = Math.min(n, j + 1);
                blank(out, i, end);
                i = end;
            } else {
                i++;
            }
        }
        return new String(out);
    }

    private static void blank(char[] out, int from, int to) {
        for (int i = from; i < to; i++) {
            if (out[i] != '\n') {
                out[i] = ' ';
            }
        }
    }

    /** The comment's body with each line's leading blanks and asterisks removed, as javadoc reads it. */
    static String commentText(String body) {
        String[] lines = body.split("\n", -1);
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < lines.length; i++) {
            String l = lines[i];
            if (l.endsWith("\r")) {
                l = l.substring(0, l.length() - 1);
            }
            if (i > 0) {
                int j = 0;
                while (j < l.length() && (l.charAt(j) == ' ' || l.charAt(j) == '\t')) {
                    j++;
                }
                if (j < l.length() && l.charAt(j) == '*') {
                    while (j < l.length() && l.charAt(j) == '*') {
                        j++;
                    }
                    l = l.substring(j);
                }
                b.append('\n');
            }
            b.append(l);
        }
        return b.toString();
    }

    /**
     * The lines of the comment's {@code @example} block (call line first), or null when it
     * has none.
     */
    static List<String> example(String comment, String where) throws SourceException {
        Matcher tag = Pattern.compile("(?m)^\\s*@example(?![\\w])").matcher(comment);
        if (!tag.find()) {
            return null;
        }
        int at = tag.end();
        if (tag.find()) {
            throw new SourceException(where + ": more than one @example");
        }
        Matcher open = Pattern.compile("\\G\\s*<pre>\\{@code").matcher(comment);
        if (!open.find(at)) {
            throw new SourceException(where + ": @example must be followed by <pre>{@code");
        }
        List<String> lines = codeBlock(comment, open.end(), where, "@example");
        if (lines.size() < 2 || lines.get(0).trim().isEmpty()) {
            throw new SourceException(where + ": an example is a call line followed by the console's output");
        }
        return lines;
    }

    /**
     * The lines of a {@code <pre>{@code ...}</pre>} block whose text starts at {@code start}
     * (just after "{@code"), one blank at the start of each line removed.
     */
    private static List<String> codeBlock(String comment, int start, String where, String tag)
            throws SourceException {
        int depth = 1;
        int i = start;
        for (; i < comment.length() && depth > 0; i++) {
            char c = comment.charAt(i);
            if (c == '{') {
                depth++;
            } else if (c == '}') {
                depth--;
            }
        }
        if (depth != 0) {
            throw new SourceException(where + ": the " + tag + "'s {@code has no matching closing brace");
        }
        int end = i - 1;
        if (!comment.startsWith("</pre>", i)) {
            throw new SourceException(where + ": the " + tag + "'s {@code block must end with }</pre>");
        }
        String body = comment.substring(start, end);
        List<String> lines = new ArrayList<String>(Arrays.asList(body.split("\n", -1)));
        // The rest of the "{@code" line, and the blanks before the closing brace.
        if (!lines.isEmpty() && lines.get(0).trim().isEmpty()) {
            lines.remove(0);
        } else {
            throw new SourceException(where + ": the call line starts on the line after <pre>{@code");
        }
        if (!lines.isEmpty() && lines.get(lines.size() - 1).trim().isEmpty()) {
            lines.remove(lines.size() - 1);
        } else {
            throw new SourceException(where + ": }</pre> goes on a line of its own after the example");
        }
        for (int k = 0; k < lines.size(); k++) {
            String l = lines.get(k);
            lines.set(k, l.startsWith(" ") ? l.substring(1) : l);
        }
        return lines;
    }

    private static final Pattern ODDITY = Pattern.compile("(?m)^\\s*@oddity(?![\\w])");
    private static final Pattern BLOCK_TAG = Pattern.compile("(?m)^\\s*@\\w");
    private static final Pattern ODDITY_KINDS = Pattern.compile("\\G\\s*([A-Z_]+(?:,[A-Z_]+)*)(?=\\s)");
    private static final Pattern TRANSCRIPT = Pattern.compile("<pre>\\{@code");

    /** The comment's {@code @oddity} blocks, in their order; empty when it has none. */
    static List<NativeDoc.Oddity> oddities(String comment, String where) throws SourceException {
        List<NativeDoc.Oddity> result = new ArrayList<NativeDoc.Oddity>();
        Matcher tag = ODDITY.matcher(comment);
        while (tag.find()) {
            Matcher next = BLOCK_TAG.matcher(comment);
            int end = next.find(tag.end()) ? next.start() : comment.length();
            Matcher kinds = ODDITY_KINDS.matcher(comment).region(tag.end(), end);
            if (!kinds.find()) {
                throw new SourceException(where + ": @oddity must name its oddities first (e.g. @oddity TRAILING_COMMA ...)");
            }
            List<String> names = Arrays.asList(kinds.group(1).split(","));
            Matcher block = TRANSCRIPT.matcher(comment).region(kinds.end(), end);
            String words;
            List<String> transcript = new ArrayList<String>();
            if (block.find()) {
                words = comment.substring(kinds.end(), block.start());
                transcript = codeBlock(comment, block.end(), where, "@oddity");
                if (transcript.size() < 2 || !transcript.get(0).startsWith("> ")
                        || transcript.get(transcript.size() - 1).startsWith("> ")) {
                    throw new SourceException(where + ": an @oddity transcript is console commands, each "
                            + "written \"> Class method arguments\" and followed by what the console printed");
                }
            } else {
                words = comment.substring(kinds.end(), end);
            }
            result.add(new NativeDoc.Oddity(names, words.replaceAll("\\s+", " ").trim(), transcript));
        }
        return result;
    }

    /** Translates \\uXXXX escapes as the Java compiler does before anything else reads the source. */
    static String translateUnicodeEscapes(String s) {
        if (s.indexOf("\\u") < 0) {
            return s;
        }
        StringBuilder b = new StringBuilder(s.length());
        int i = 0;
        while (i < s.length()) {
            char c = s.charAt(i);
            if (c == '\\') {
                int backslashes = 0;
                int j = i;
                while (j < s.length() && s.charAt(j) == '\\') {
                    backslashes++;
                    j++;
                }
                // Only a backslash that is not itself escaped starts a Unicode escape.
                b.append(s, i, j - 1);
                i = j - 1;
                if (backslashes % 2 == 1 && j < s.length() && s.charAt(j) == 'u') {
                    int k = j;
                    while (k < s.length() && s.charAt(k) == 'u') {
                        k++;
                    }
                    if (k + 4 <= s.length()) {
                        try {
                            b.append((char) Integer.parseInt(s.substring(k, k + 4), 16));
                            i = k + 4;
                            continue;
                        } catch (NumberFormatException e) {
                            // not an escape: copied as it is
                        }
                    }
                }
                b.append('\\');
                i++;
            } else {
                b.append(c);
                i++;
            }
        }
        return b.toString();
    }
}
