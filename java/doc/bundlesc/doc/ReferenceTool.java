package bundlesc.doc;

import java.io.File;
import java.io.IOException;
import java.io.OutputStreamWriter;
import java.io.PrintWriter;
import java.io.Writer;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * Build step of the reference: reads the service classes' sources and writes
 * <ul>
 * <li>the examples file, every native with its documented example, which the example test
 * runs against the default simulated gateway;</li>
 * <li>the overview page that javadoc puts at the front of the reference: one table per
 * package with every native, its Java signature, its return kind and the members of its
 * JSON reply as the example shows them.</li>
 * </ul>
 *
 * <p>Usage: {@code ReferenceTool --sources DIR --examples FILE --overview FILE
 * [--documented PACKAGE,...]}. Exit status 0, or 1 with the problems on standard error.
 */
public final class ReferenceTool {
    /** First line of the examples file; the reader checks it. */
    static final String EXAMPLES_HEADER = "# bundle_sc reference examples 1";

    private ReferenceTool() {}

    public static void main(String[] args) {
        File sources = null;
        File examples = null;
        File overview = null;
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
        if (sources == null || examples == null || overview == null) {
            usage("--sources, --examples and --overview are required");
        }
        try {
            List<NativeDoc> natives = ReferenceSources.read(sources);
            write(examples, examplesFile(natives, documented));
            write(overview, overviewPage(natives, documented));
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
        System.err.println("usage: ReferenceTool --sources DIR --examples FILE --overview FILE [--documented PACKAGE,...]");
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
     * native with an example one "call" line and its "output" lines.
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
