// The document check (ctest docs.paths): every repository path, ctest test, CMake target and
// script that README.md, docs/*.md and the folders' README files name must exist.
//
//   java tests/tools/DocsPaths.java <source dir> <ctest executable> <build dir>
//
// What it reads: the text of each document outside fenced code blocks, split into code spans
// (`...`) and Markdown links ([...](target)); inside fenced blocks, every line. Prose outside
// backticks is never read.
//
// What it recognises:
//  - Links: a relative target must exist relative to the document; an anchor (#...) in a
//    Markdown file must be one of that file's headings (GitHub's slugs).
//  - Paths: a word of a code span or of a fenced line, made only of path characters
//    (letters, digits, _ . - / * and <placeholders>), that contains a '/' or ends in a source
//    extension. It is a repository path when its first component is an entry of the
//    repository's top level (common/, sim/gateway/lan.ini, .ci/run, README.md) or of the
//    document's own folder; then it must match something. '*', '...' and <placeholders> are
//    wildcards, so a pattern must match at least one file. Everything else is not a
//    repository path and is not checked: build outputs (build/..., build-demo/..., <build>/...),
//    installed paths (lib/..., share/...), absolute paths (/tmp/...), text such as
//    tcapi_get/set. A bare file name (no '/') with a source extension must be a file somewhere
//    in the repository. Names of build outputs and of other projects' files (NOT_IN_REPOSITORY)
//    are never checked, with or without a folder before them.
//  - Tests: a whole code span that starts with a tier prefix and a dot (host. asan. mips.
//    hardened. jvm. osgi. reference. replies. docs. fuzz. capture.), and does not end in a source
//    extension (hardened.h is a file), must name at least one test of
//    `ctest -N` in the build directory ('*' and <placeholders> are wildcards: host.<Suite>,
//    osgi.box-*); the OSGi framework's own namespaces (osgi.ee, osgi.wiring.package, ...)
//    are not tests. A whole code span `Suite.*` (a GoogleTest suite) must be the suite of some
//    ctest entry <tier>.<Suite>. A tier with no test at all in this build (the MIPS tier in a
//    -DBUNDLE_TIERS=OFF build, the fuzz build's tests elsewhere) is not checked; the test
//    command's build has every tier but the fuzz build's.
//  - Targets: the word after `--target`, and a code span right after the word "target" or
//    "targets", must be declared by add_executable, add_library, add_custom_target or
//    ExternalProject_Add in one of the repository's CMake files.
//  - Scripts are paths: `bash scripts/test.sh`, `fuzz/run.sh 600`, bench/*.sh in a fenced block.
// Files in docs/generated/ other than its README are written by scripts and not read.
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.TreeSet;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import java.util.stream.Stream;

public class DocsPaths {
    static final Set<String> EXTENSIONS = Set.of("md", "cpp", "h", "c", "cmake", "sh", "py", "java",
            "ini", "tsv", "txt", "map", "dict", "batch", "properties", "mk", "in");
    // Named in the documents but not files of the repository: what the build writes, and
    // files of other projects.
    static final Set<String> NOT_IN_REPOSITORY = Set.of(
            "library-size.txt", "frame-sizes.txt", "service-classes.txt", "tcapi-saved.ini",
            "tiers.cmake", "config.properties", "cmake.mk", "local.mk", "jni.h",
            "capture.ini", "results.ini", "capture-size.txt");
    static final List<String> TIERS = List.of("host", "asan", "mips", "hardened", "jvm", "osgi",
            "reference", "replies", "docs", "fuzz", "capture");
    static final Pattern OSGI_NAMESPACE =
            Pattern.compile("osgi\\.(ee|wiring\\..*|identity|native|service|extender|contract|content)");
    static final Pattern TEST_NAME = Pattern.compile("(" + String.join("|", TIERS) + ")\\.[A-Za-z0-9_*<>.\\-]+");
    static final Pattern SUITE = Pattern.compile("([A-Z][A-Za-z0-9]*)\\.\\*");
    static final Pattern PATH_WORD = Pattern.compile("[A-Za-z0-9_.\\-/*<>…]+");
    static final Pattern CODE_SPAN = Pattern.compile("`([^`]+)`");
    static final Pattern LINK = Pattern.compile("\\]\\(([^)\\s]+)\\)");
    static final Pattern FENCE = Pattern.compile("^\\s*(```|~~~)");
    static final Pattern TARGET_WORD = Pattern.compile("(?i)\\btargets?\\s*$");
    static final Pattern DASH_TARGET = Pattern.compile("--target\\s+([A-Za-z0-9_.\\-]+)");
    static final Pattern DECLARED_TARGET = Pattern.compile(
            "(?i)\\b(add_executable|add_library|add_custom_target|ExternalProject_Add)\\s*\\(\\s*([A-Za-z0-9_.\\-]+)");

    final Path root;
    final Set<String> repoEntries = new TreeSet<>();  // every file and folder, relative, '/'
    final Set<String> topLevel = new TreeSet<>();
    final Set<String> targets = new TreeSet<>();
    final List<String> tests = new ArrayList<>();
    final List<String> failures = new ArrayList<>();
    int checked;

    DocsPaths(Path root) { this.root = root; }

    static boolean skippedFolder(String name) {
        return name.equals(".git") || name.equals("build") || name.startsWith("build-")
                || name.equals("Testing");
    }

    void scanRepository() throws IOException {
        try (Stream<Path> walk = Files.walk(root)) {
            walk.filter(p -> !p.equals(root)).forEach(p -> {
                Path rel = root.relativize(p);
                for (Path part : rel) if (skippedFolder(part.toString())) return;
                String name = rel.toString().replace('\\', '/');
                repoEntries.add(name);
                if (rel.getNameCount() == 1) topLevel.add(name);
            });
        }
        for (String entry : repoEntries) {
            if (!entry.endsWith("CMakeLists.txt") && !entry.endsWith(".cmake")) continue;
            Matcher m = DECLARED_TARGET.matcher(Files.readString(root.resolve(entry)));
            while (m.find()) targets.add(m.group(2));
        }
    }

    // ctest -N writes Testing/Temporary/LastTest.log beside the tests it lists, which would
    // overwrite the log of the ctest run this check is part of: the list is taken from a
    // scratch directory that only includes the build's tests.
    void listTests(String ctest, Path build) throws IOException, InterruptedException {
        Path scratch = Files.createTempDirectory("docs-paths");
        String out;
        int rc;
        try {
            String dir = build.toAbsolutePath().toString().replace("\\", "/").replace("\"", "\\\"");
            Files.writeString(scratch.resolve("CTestTestfile.cmake"), "subdirs(\"" + dir + "\")\n");
            Process p = new ProcessBuilder(ctest, "-N").directory(scratch.toFile()).redirectErrorStream(true).start();
            out = new String(p.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
            rc = p.waitFor();
        } finally {
            try (Stream<Path> walk = Files.walk(scratch)) {
                for (Path p : walk.sorted(java.util.Comparator.reverseOrder()).collect(Collectors.toList()))
                    Files.deleteIfExists(p);
            }
        }
        if (rc != 0) throw new IOException("ctest -N failed for " + build + ":\n" + out);
        Matcher m = Pattern.compile("(?m)^\\s*Test\\s+#\\d+:\\s+(\\S+)").matcher(out);
        while (m.find()) tests.add(m.group(1));
        if (tests.isEmpty()) throw new IOException("ctest -N in " + build + " lists no test:\n" + out);
    }

    // A glob over repository paths: '*' within a component, '...'/'…' across components,
    // <placeholder> within a component.
    static Pattern glob(String path) {
        StringBuilder re = new StringBuilder();
        String p = path.replace("...", "\u0001").replace("…", "\u0001").replaceAll("<[^<>/]*>", "*");
        for (char c : p.toCharArray()) {
            if (c == '*') re.append("[^/]*");
            else if (c == '\u0001') re.append(".*");
            else re.append(Pattern.quote(String.valueOf(c)));
        }
        return Pattern.compile(re.toString());
    }

    boolean exists(String relative) {
        String norm = normalize(relative);
        if (norm == null) return false;
        if (norm.isEmpty()) return true;
        if (!norm.contains("*") && !norm.contains("<") && !norm.contains("...") && !norm.contains("…"))
            return repoEntries.contains(norm);
        Pattern g = glob(norm);
        return repoEntries.stream().anyMatch(e -> g.matcher(e).matches());
    }

    // Resolves "." and ".." and drops a trailing '/'; null when it leaves the repository.
    static String normalize(String path) {
        List<String> parts = new ArrayList<>();
        for (String part : path.split("/")) {
            if (part.isEmpty() || part.equals(".")) continue;
            if (part.equals("..")) {
                if (parts.isEmpty()) return null;
                parts.remove(parts.size() - 1);
            } else {
                parts.add(part);
            }
        }
        return String.join("/", parts);
    }

    static String extension(String word) {
        int slash = word.lastIndexOf('/');
        String last = word.substring(slash + 1);
        int dot = last.lastIndexOf('.');
        return dot <= 0 ? "" : last.substring(dot + 1);
    }

    void fail(String doc, int line, String what) {
        failures.add(doc + ":" + line + ": " + what);
    }

    // A word of a code span or fenced line that may be a repository path.
    void checkPathWord(String doc, String docDir, int line, String word) {
        while (!word.isEmpty() && ".,:;".indexOf(word.charAt(word.length() - 1)) >= 0 && !word.endsWith("..."))
            word = word.substring(0, word.length() - 1);
        if (word.isEmpty() || !PATH_WORD.matcher(word).matches()) return;
        boolean slash = word.contains("/");
        if (!slash && !EXTENSIONS.contains(extension(word))) return;
        if (word.startsWith("/") || word.startsWith("<")) return;
        if (NOT_IN_REPOSITORY.contains(word.substring(word.lastIndexOf('/') + 1))) return;
        if (!slash) {
            if (!Character.isLetterOrDigit(word.charAt(0))) return;
            checked++;
            if (exists(docDir + word) || anyBasename(word)) return;
            fail(doc, line, "names the file '" + word + "', which is nowhere in the repository");
            return;
        }
        String first = word.substring(0, word.indexOf('/'));
        String base;
        if (first.equals(".") || first.equals("..")) base = docDir;
        else if (topLevel.contains(first)) base = "";
        else if (!docDir.isEmpty() && repoEntries.contains(docDir + first)) base = docDir;
        else return;  // not a repository path
        checked++;
        if (!exists(base + word)) fail(doc, line, "names '" + word + "', which does not exist in the repository");
    }

    boolean anyBasename(String name) {
        Pattern g = glob(name);
        return repoEntries.stream().anyMatch(e -> g.matcher(e.substring(e.lastIndexOf('/') + 1)).matches());
    }

    static Pattern testPattern(String name) {
        String p = name.replaceAll("<[^<>]*>", "*");
        StringBuilder re = new StringBuilder();
        for (char c : p.toCharArray()) re.append(c == '*' ? ".*" : Pattern.quote(String.valueOf(c)));
        return Pattern.compile(re.toString());
    }

    void checkTestName(String doc, int line, String span) {
        if (OSGI_NAMESPACE.matcher(span).matches()) return;
        String tier = span.substring(0, span.indexOf('.'));
        if (tests.stream().noneMatch(t -> t.startsWith(tier + "."))) return;  // tier not built here
        checked++;
        Pattern p = testPattern(span);
        if (tests.stream().noneMatch(t -> p.matcher(t).matches()))
            fail(doc, line, "names the test '" + span + "', which matches no test of ctest -N");
    }

    void checkSuite(String doc, int line, String suite) {
        checked++;
        if (tests.stream().noneMatch(t -> t.endsWith("." + suite)))
            fail(doc, line, "names the test suite '" + suite + ".*', which is no ctest entry <tier>." + suite);
    }

    void checkTarget(String doc, int line, String name) {
        checked++;
        if (!targets.contains(name))
            fail(doc, line, "names the target '" + name + "', which no CMake file of the repository declares");
    }

    static String slug(String heading) {
        String s = heading.trim().toLowerCase(Locale.ROOT).replaceAll("[`*_]", "");
        s = s.replaceAll("\\[([^\\]]*)\\]\\([^)]*\\)", "$1");
        StringBuilder out = new StringBuilder();
        for (int i = 0; i < s.length(); ) {
            int cp = s.codePointAt(i);
            if (Character.isLetterOrDigit(cp) || cp == '-' || cp == '_') out.appendCodePoint(cp);
            else if (cp == ' ') out.append('-');
            i += Character.charCount(cp);
        }
        return out.toString();
    }

    Set<String> anchors(Path file) throws IOException {
        Set<String> result = new TreeSet<>();
        boolean fenced = false;
        for (String l : Files.readAllLines(file)) {
            if (FENCE.matcher(l).find()) { fenced = !fenced; continue; }
            if (!fenced && l.startsWith("#")) result.add(slug(l.replaceFirst("^#+\\s*", "")));
        }
        return result;
    }

    void checkLink(String doc, String docDir, int line, String target) throws IOException {
        if (target.matches("(?i)[a-z][a-z0-9+.\\-]*:.*")) return;  // http:, mailto:, ...
        checked++;
        String file = target, anchor = null;
        int hash = target.indexOf('#');
        if (hash >= 0) { file = target.substring(0, hash); anchor = target.substring(hash + 1); }
        String rel = file.isEmpty() ? doc : normalize(docDir + file);
        if (rel == null || !rel.isEmpty() && !repoEntries.contains(rel)) {
            fail(doc, line, "links to '" + target + "', which does not exist");
            return;
        }
        if (anchor != null && rel.endsWith(".md") && !anchors(root.resolve(rel)).contains(anchor))
            fail(doc, line, "links to '" + target + "', but " + rel + " has no heading '#" + anchor + "'");
    }

    void checkDocument(String doc) throws IOException {
        String docDir = doc.contains("/") ? doc.substring(0, doc.lastIndexOf('/') + 1) : "";
        List<String> lines = Files.readAllLines(root.resolve(doc));
        StringBuilder prose = new StringBuilder();
        boolean fenced = false;
        for (int i = 0; i < lines.size(); i++) {
            String l = lines.get(i);
            if (FENCE.matcher(l).find()) { fenced = !fenced; prose.append('\n'); continue; }
            if (fenced) {
                for (String word : l.split("[\\s=:'\"()\\[\\]{},;|$]+")) checkPathWord(doc, docDir, i + 1, word);
                Matcher t = DASH_TARGET.matcher(l);
                while (t.find()) checkTarget(doc, i + 1, t.group(1));
                prose.append('\n');
            } else {
                prose.append(l).append('\n');
            }
        }
        String text = prose.toString();
        Matcher span = CODE_SPAN.matcher(text);
        List<int[]> spans = new ArrayList<>();
        while (span.find()) {
            spans.add(new int[] {span.start(), span.end()});
            int line = lineOf(text, span.start());
            String content = span.group(1).replaceAll("\\s+", " ").trim();
            if (TEST_NAME.matcher(content).matches() && !EXTENSIONS.contains(extension(content))) {
                checkTestName(doc, line, content);
                continue;
            }
            Matcher suite = SUITE.matcher(content);
            if (suite.matches()) {
                checkSuite(doc, line, suite.group(1));
                continue;
            }
            String before = text.substring(Math.max(0, span.start() - 12), span.start()).replace('\n', ' ');
            if (TARGET_WORD.matcher(before).find() && content.matches("[A-Za-z0-9_.\\-]+")) {
                checkTarget(doc, line, content);
                continue;
            }
            Matcher t = DASH_TARGET.matcher(content);
            while (t.find()) checkTarget(doc, line, t.group(1));
            for (String word : content.split("[\\s=:'\"()\\[\\]{},;|$]+")) checkPathWord(doc, docDir, line, word);
        }
        Matcher link = LINK.matcher(text);
        while (link.find()) {
            int at = link.start();
            if (spans.stream().anyMatch(s -> s[0] <= at && at < s[1])) continue;
            checkLink(doc, docDir, lineOf(text, at), link.group(1));
        }
    }

    static int lineOf(String text, int offset) {
        int line = 1;
        for (int i = 0; i < offset; i++) if (text.charAt(i) == '\n') line++;
        return line;
    }

    List<String> documents() {
        return repoEntries.stream().filter(e -> {
            String name = e.substring(e.lastIndexOf('/') + 1);
            if (name.equals("README.md") || name.equals("README")) return Files.isRegularFile(root.resolve(e));
            return e.equals("README.md") || (e.startsWith("docs/") && e.endsWith(".md") && !e.startsWith("docs/generated/"));
        }).collect(Collectors.toList());
    }

    public static void main(String[] args) throws Exception {
        if (args.length != 3) {
            System.err.println("usage: java DocsPaths.java <source dir> <ctest> <build dir>");
            System.exit(2);
        }
        DocsPaths check = new DocsPaths(Path.of(args[0]).toAbsolutePath().normalize());
        check.scanRepository();
        check.listTests(args[1], Path.of(args[2]));
        List<String> docs = check.documents();
        for (String doc : docs) check.checkDocument(doc);
        System.out.println("docs.paths: " + docs.size() + " documents, " + check.checked + " names checked against "
                + check.repoEntries.size() + " repository entries, " + check.tests.size() + " tests, "
                + check.targets.size() + " targets");
        if (!check.failures.isEmpty()) {
            check.failures.forEach(System.out::println);
            System.out.println(check.failures.size() + " names that do not exist");
            System.exit(1);
        }
    }
}
