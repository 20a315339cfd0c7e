package bundlesc.doc;

import java.io.File;
import java.io.IOException;
import java.io.OutputStreamWriter;
import java.io.PrintWriter;
import java.io.Writer;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

import bundlesc.reply.Repair;

/**
 * Build step of the reference: reads the service classes' sources and writes
 * <ul>
 * <li>the examples file, every native with its documented example, which the example test
 * runs against the default simulated gateway;</li>
 * <li>the overview page that javadoc puts at the front of the reference: one table per
 * package with every native, its Java signature, its return kind and the members of its
 * JSON reply as the example shows them;</li>
 * <li>the page of reply oddities ({@value #ODDITIES_PAGE}, beside the overview): every oddity
 * the reply reader repairs, with the natives whose {@code @oddity} blocks show it.</li>
 * </ul>
 *
 * <p>Usage: {@code ReferenceTool --sources DIR --examples FILE --overview FILE
 * --oddities FILE [--documented PACKAGE,...]}. Exit status 0, or 1 with the problems on
 * standard error.
 */
public final class ReferenceTool {
    /** First line of the examples file; the reader checks it. */
    static final String EXAMPLES_HEADER = "# bundle_sc reference examples 1";
    /** The page of reply oddities, at the top of the reference. */
    static final String ODDITIES_PAGE = "reply-oddities.html";

    private ReferenceTool() {}

    public static void main(String[] args) {
        File sources = null;
        File examples = null;
        File overview = null;
        File oddities = null;
        Set<String> documented = new LinkedHashSet<String>();
        for (int i = 0; i < args.length; i++) {
            String a = args[i];
            String value = i + 1 < args.length ? args[i + 1] : null;
            if (value == null) {
                usage("option " + a + " needs a value");
            }
            if (a.equals("--sources")) {
                sources = new File(value);
            } else if (a.equals("--examples")) {
                examples = new File(value);
            } else if (a.equals("--overview")) {
                overview = new File(value);
            } else if (a.equals("--oddities")) {
                oddities = new File(value);
            } else if (a.equals("--documented")) {
                for (String p : value.split("[,;\\s]+")) {
                    if (!p.isEmpty()) {
                        if (!ReferenceSources.PACKAGES.contains(p)) {
                            usage("unknown package " + p);
                        }
                        documented.add(p);
                    }
                }
            } else {
                usage("unknown option " + a);
            }
            i++;
        }
        if (sources == null || examples == null || overview == null || oddities == null) {
            usage("--sources, --examples, --overview and --oddities are required");
        }
        try {
            List<NativeDoc> natives = ReferenceSources.read(sources);
            checkOddityNames(natives);
            write(examples, examplesFile(natives, documented));
            write(overview, overviewPage(natives, documented));
            write(oddities, odditiesPage(natives));
        } catch (ReferenceSources.SourceException e) {
            System.err.println("reference: " + e.getMessage());
            System.exit(1);
        } catch (IOException e) {
            System.err.println("reference: " + e);
            System.exit(1);
        }
    }

    private static void usage(String problem) {
        System.err.println("reference: " + problem);
        System.err.println("usage: ReferenceTool --sources DIR --examples FILE --overview FILE --oddities FILE"
                + " [--documented PACKAGE,...]");
        System.exit(2);
    }

    private static void write(File file, String content) throws IOException {
        File parent = file.getAbsoluteFile().getParentFile();
        if (parent != null) {
            Files.createDirectories(parent.toPath());
        }
        try (Writer w = new OutputStreamWriter(Files.newOutputStream(file.toPath()), StandardCharsets.UTF_8);
                PrintWriter out = new PrintWriter(w)) {
            out.print(content);
        }
    }

    // ---- examples file ------------------------------------------------------------------

    /**
     * One record per native: a "native" line (tab-separated: class, method, return type,
     * parameter types separated by commas, "documented" or "undocumented"), then for a
     * native with an example one "call" line and its "output" lines, then for each of its
     * {@code @oddity} blocks an "oddity" line (the oddities' names separated by commas) and
     * its "transcript" lines.
     */
    static String examplesFile(List<NativeDoc> natives, Set<String> documented) {
        StringBuilder b = new StringBuilder();
        b.append(EXAMPLES_HEADER).append('\n');
        b.append("# written by bundlesc.doc.ReferenceTool from the service classes' doc comments\n");
        for (NativeDoc n : natives) {
            b.append("native\t").append(n.qualifiedClassName()).append('\t').append(n.methodName).append('\t')
                    .append(n.returnType).append('\t').append(n.linkParameters()).append('\t')
                    .append(documented.contains(n.packageName) ? "documented" : "undocumented").append('\n');
            if (n.hasExample()) {
                b.append("call\t").append(n.exampleCall).append('\n');
                for (String line : n.exampleOutput) {
                    b.append("output\t").append(line).append('\n');
                }
            }
            for (NativeDoc.Oddity o : n.oddities) {
                b.append("oddity\t").append(String.join(",", o.kinds)).append('\n');
                for (String line : o.transcript) {
                    b.append("transcript\t").append(line).append('\n');
                }
            }
        }
        return b.toString();
    }

    // ---- overview page ------------------------------------------------------------------

    static String overviewPage(List<NativeDoc> natives, Set<String> documented) {
        StringBuilder b = new StringBuilder();
        b.append("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<title>Gateway service bridge</title>\n</head>\n<body>\n");
        b.append(INTRODUCTION);
        Set<String> packages = new LinkedHashSet<String>();
        for (NativeDoc n : natives) {
            packages.add(n.packageName);
        }
        for (String pkg : packages) {
            List<NativeDoc> ofPackage = new ArrayList<NativeDoc>();
            for (NativeDoc n : natives) {
                if (n.packageName.equals(pkg)) {
                    ofPackage.add(n);
                }
            }
            String qualified = ReferenceSources.BASE_PACKAGE + "." + pkg;
            b.append("<h1 id=\"package-").append(pkg).append("\">Package {@link ").append(qualified).append("}</h1>\n");
            b.append("<table class=\"striped\">\n<caption>The natives of ").append(qualified).append(" (")
                    .append(ofPackage.size()).append(")</caption>\n");
            b.append("<thead><tr><th scope=\"col\">Native</th><th scope=\"col\">Java signature</th>"
                    + "<th scope=\"col\">Returns</th><th scope=\"col\">Reply members, in order</th></tr></thead>\n");
            b.append("<tbody>\n");
            for (NativeDoc n : ofPackage) {
                row(b, n);
            }
            b.append("</tbody>\n</table>\n");
        }
        b.append("</body>\n</html>\n");
        return b.toString();
    }

    private static final String INTRODUCTION = String.join("\n",
            "<p>The Java service classes through which the bundles of the home gateway's OSGi framework",
            "reach the gateway: every method ending in {@code Jni} is a native of {@code libbundle_sc.so},",
            "which each class loads when it is first used.</p>",
            "<p>A native answers either an {@code int} (a status: 0 success, -1 refused or failed, -2 no",
            "free entry or not completed yet; or a plain number such as an uptime), or a {@code String}.",
            "Most strings are a JSON object whose first member is {@code \"Result\"} (0 success, -1",
            "failure, -2 a diagnostic not completed yet; the HTTP diagnostics give their state as a",
            "text such as {@code \"Completed\"}), followed by {@code \"FailReason\"}, {@code \"List\"} or the",
            "query's members; a few answer a plain text. Texts from the gateway are placed in replies",
            "as the gateway gives them, without JSON escaping, and numbers are quoted or bare exactly",
            "as each native's documentation shows. Names spelt unusually ({@code \"SupplyVottage\"},",
            "{@code \"FailReaso1n\"}, {@code \"TotalBytesSend\"} ...) are part of the interface.</p>",
            "<p>Natives may be called from any thread, several at once. They keep no state between",
            "calls (but for the last opened USB device) and take no locks; changes are kept by the",
            "gateway. Some block the calling thread while a host name is resolved or a command runs,",
            "as their documentation says.</p>",
            "<p>Each query's documentation carries an example: the call as the bridge console",
            "({@code bundlesc.console.BridgeConsole}) takes it, and the reply the default simulated",
            "gateway gives. The build's tests run every example against the simulated gateway and",
            "fail when a reply differs. The tables below list every native; the reply members are",
            "those of the example, in order, with their JSON types.</p>",
            "<p>Some replies are not plain JSON: trailing commas, objects back to back, quotes inside",
            "texts and the like, kept because bundles have always read them so. The page",
            "<a href=\"" + ODDITIES_PAGE + "\">Reply oddities</a> lists every one with the natives",
            "that show it; the reply reader bundle {@code bundlesc.reply} reads any reply into a Gson",
            "tree and says which of them it repaired.</p>",
            "");

    private static void row(StringBuilder b, NativeDoc n) {
        b.append("<tr id=\"").append(Html.escape(n.key())).append("\">");
        b.append("<td>{@link ").append(n.qualifiedClassName()).append('#').append(n.methodName).append('(')
                .append(n.linkParameters()).append(") ").append(n.className).append('.').append(n.methodName)
                .append("}");
        String summary = firstSentence(n.comment);
        if (summary != null) {
            b.append("<br>").append(summary);
        }
        b.append("</td>");
        b.append("<td><code>").append(Html.escape(n.signature())).append("</code></td>");
        String kind;
        String members;
        if (!n.returnsString()) {
            kind = n.returnType.equals("int") ? "int status" : Html.escape(n.returnType);
            members = "&mdash;";
        } else if (!n.hasExample()) {
            kind = "text";
            members = "(no example yet)";
        } else {
            String reply = n.exampleOutput.get(0);
            if (reply.startsWith("{")) {
                kind = "JSON";
                ReplyShape.Type t = ReplyShape.of(reply);
                members = t != null && t.kind.equals("object") ? ReplyShape.describeMembers(t)
                        : "(see the example)";
            } else {
                kind = "plain text";
                members = "&mdash;";
            }
        }
        b.append("<td>").append(kind).append("</td><td>").append(members).append("</td></tr>\n");
    }

    // ---- reply oddities page -------------------------------------------------------------

    /** Every oddity named in an {@code @oddity} block must be one the reply reader knows. */
    static void checkOddityNames(List<NativeDoc> natives) throws ReferenceSources.SourceException {
        for (NativeDoc n : natives) {
            for (NativeDoc.Oddity o : n.oddities) {
                for (String kind : o.kinds) {
                    try {
                        Repair.Kind.valueOf(kind);
                    } catch (IllegalArgumentException e) {
                        throw new ReferenceSources.SourceException(n.key() + ": @oddity " + kind
                                + " is no oddity of bundlesc.reply.Repair.Kind " + Arrays.toString(Repair.Kind.values()));
                    }
                }
            }
        }
    }

    /**
     * The page of reply oddities: one row per oddity the reply reader knows, with what the
     * reader makes of it and the natives that show it (from their {@code @oddity} blocks),
     * and the natives that answer plain texts (from their examples). A plain HTML page beside
     * javadoc's, linking to the natives' documentation.
     */
    static String odditiesPage(List<NativeDoc> natives) {
        StringBuilder b = new StringBuilder();
        b.append("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n")
                .append("<title>Reply oddities (Gateway service bridge)</title>\n")
                .append("<link rel=\"stylesheet\" href=\"stylesheet.css\">\n")
                .append("<link rel=\"stylesheet\" href=\"reference.css\">\n</head>\n<body>\n")
                .append("<main role=\"main\" style=\"padding: 0 1em\">\n")
                .append("<p><a href=\"index.html\">Gateway service bridge</a></p>\n<h1>Reply oddities</h1>\n");
        b.append(ODDITIES_INTRODUCTION);
        b.append("<table class=\"striped\">\n<caption>Every oddity the reply reader repairs</caption>\n")
                .append("<thead><tr><th scope=\"col\">Oddity</th><th scope=\"col\">What the reply shows</th>")
                .append("<th scope=\"col\">What the reader makes of it</th>")
                .append("<th scope=\"col\">Natives that show it</th></tr></thead>\n<tbody>\n");
        for (Repair.Kind kind : Repair.Kind.values()) {
            b.append("<tr id=\"").append(kind).append("\"><th scope=\"row\"><code>").append(kind)
                    .append("</code></th><td>").append(Html.escape(kind.oddity())).append("</td><td>")
                    .append(Html.escape(kind.repair())).append("</td><td>");
            List<String> shown = new ArrayList<String>();
            for (NativeDoc n : natives) {
                for (NativeDoc.Oddity o : n.oddities) {
                    if (o.kinds.contains(kind.name())) {
                        shown.add("<li>" + nativeLink(n) + ": " + inlineCode(o.words)
                                + (o.transcript.isEmpty() ? "" : " (example on its page)") + "</li>");
                    }
                }
            }
            if (shown.isEmpty()) {
                b.append("none known: the reader repairs it all the same");
            } else {
                b.append("<ul>\n").append(String.join("\n", shown)).append("\n</ul>");
            }
            b.append("</td></tr>\n");
        }
        b.append("</tbody>\n</table>\n");
        b.append("<h2 id=\"plain-texts\">Plain texts</h2>\n<p>These natives answer a plain text, not JSON; the "
                + "reader answers it unchanged as a Gson text primitive (<code>Reply.Form.TEXT</code>, no "
                + "repair), and <code>reply.text()</code> is the text as sent:</p>\n<ul>\n");
        for (NativeDoc n : natives) {
            if (n.returnsString() && n.hasExample() && !n.exampleOutput.get(0).startsWith("{")) {
                b.append("<li>").append(nativeLink(n)).append(", e.g. <code>")
                        .append(Html.escape(n.exampleOutput.get(0))).append("</code></li>\n");
            }
        }
        b.append("</ul>\n</main>\n</body>\n</html>\n");
        return b.toString();
    }

    private static final String ODDITIES_INTRODUCTION = String.join("\n",
            "<p>The natives' replies are the texts the gateway's bundles have always received, and some",
            "of them are not plain JSON: a list may keep a comma before its closing bracket, two",
            "objects may follow each other without one, texts from the gateway go into replies",
            "without escaping, and a long reply is cut at the end of its buffer. They are kept on",
            "purpose (a library built with its hardened profile repairs them in the library).</p>",
            "<p>The reply reader bundle <code>bundlesc.reply</code> (<code>bundlesc.reply.jar</code>, installed",
            "beside the bridge bundle) reads any native's reply into a Gson tree and lists what it",
            "repaired, each with its position in the text:</p>",
            "<pre>Reply reply = ReplyReader.read(new WlanQueryServiceImp().getGuestSSIDInfoJni());",
            "JsonArray guests = reply.object().getAsJsonArray(\"List\");",
            "reply.repairs();   // [MISSING_COMMA at N]: objects back to back, N where the second starts</pre>",
            "<p>The table lists every oddity the reader repairs and the natives whose replies show it,",
            "as their documentation says; where a bundle can bring the oddity about on the default",
            "simulated gateway, the native's page shows it in an example, which the build's tests run",
            "against the simulated gateway and read with the reader, expecting exactly these repairs.</p>",
            "");

    /** A link to the native's entry, named Class.method. */
    private static String nativeLink(NativeDoc n) {
        return "<a href=\"" + Html.escape(docLink(n)) + "\"><code>" + n.className + "." + n.methodName
                + "</code></a>";
    }

    /** The native's entry in javadoc's page of its class. */
    static String docLink(NativeDoc n) {
        StringBuilder b = new StringBuilder();
        b.append(ReferenceSources.BASE_PACKAGE.replace('.', '/')).append('/').append(n.packageName).append('/')
                .append(n.className).append(".html#").append(n.methodName).append('(');
        for (int i = 0; i < n.parameterTypes.size(); i++) {
            String type = n.parameterTypes.get(i);
            b.append(i > 0 ? "," : "").append(type.startsWith("String") ? "java.lang." + type : type);
        }
        return b.append(')').toString();
    }

    /** Comment text with its {@code {@code ...}} tags as HTML code (the page is not javadoc's). */
    static String inlineCode(String words) {
        StringBuilder b = new StringBuilder();
        int i = 0;
        while (i < words.length()) {
            int tag = words.indexOf("{@code", i);
            if (tag < 0) {
                b.append(words, i, words.length());
                break;
            }
            b.append(words, i, tag);
            int depth = 1;
            int j = tag + 1;
            while (j < words.length() && depth > 0) {
                char c = words.charAt(j++);
                depth += c == '{' ? 1 : c == '}' ? -1 : 0;
            }
            String code = words.substring(tag + "{@code".length(), depth == 0 ? j - 1 : j).trim();
            b.append("<code>").append(Html.escape(code)).append("</code>");
            i = j;
        }
        return b.toString().trim();
    }

    private static final Pattern LINK = Pattern.compile("\\{@link(?:plain)?\\s+([^\\s}]+)(?:\\s+([^}]*))?\\}");

    /** The comment's first sentence, as HTML that may be placed in the overview; null if none. */
    static String firstSentence(String comment) {
        if (comment == null) {
            return null;
        }
        String text = comment;
        Matcher block = Pattern.compile("(?m)^\\s*@\\w").matcher(text);
        if (block.find()) {
            text = text.substring(0, block.start());
        }
        int p = indexOfIgnoreCase(text, "<p>");
        if (p >= 0) {
            text = text.substring(0, p);
        }
        text = text.replaceAll("\\s+", " ").trim();
        Matcher end = Pattern.compile("\\.(\\s|$)").matcher(text);
        if (end.find()) {
            text = text.substring(0, end.start() + 1);
        }
        Matcher link = LINK.matcher(text);
        StringBuffer out = new StringBuffer();
        while (link.find()) {
            String label = link.group(2) != null ? link.group(2).trim() : link.group(1).replace('#', '.');
            link.appendReplacement(out, Matcher.quoteReplacement("{@code " + label + "}"));
        }
        link.appendTail(out);
        String s = out.toString().trim();
        return s.isEmpty() ? null : s;
    }

    private static int indexOfIgnoreCase(String text, String what) {
        return text.toLowerCase(java.util.Locale.ROOT).indexOf(what);
    }
}
