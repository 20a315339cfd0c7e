package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertFalse;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.PrintStream;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.nio.file.DirectoryStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

import org.junit.jupiter.api.Test;

import bundlesc.console.ArgumentParser.Token;

/**
 * Replays the committed inputs of the console argument fuzzer (java/fuzz) and holds the check
 * the fuzzer applies to every input: {@link #check(byte[])}.
 */
class ConsoleArgumentsCorpusTest {

    private static final Class<?>[] TYPES = {
        int.class, boolean.class, byte.class, String.class, String[].class, byte[].class,
    };

    private static ServiceCatalog catalog;

    /**
     * One input: its text (UTF-8) as one batch line, split into arguments; every argument,
     * and the whole text as one command-line argument, converted to every parameter type;
     * with two arguments or more, the first two as class and method and the rest converted
     * for that native, exactly as a command does before it calls. The parser may only accept
     * or reject with its usage error (ConsoleException); anything else escapes as a finding.
     * The native is never called, so no service class is initialised and the library never
     * loaded (the fuzzer runs with no library on java.library.path: loading it would throw).
     */
    static void check(byte[] input) throws Exception {
        String text = new String(input, StandardCharsets.UTF_8);
        for (Class<?> type : TYPES) {
            convert(Token.plain(text), type);
        }
        List<Token> tokens;
        try {
            tokens = ArgumentParser.splitLine(text);
        } catch (ArgumentException e) {
            return;
        }
        for (Token token : tokens) {
            for (Class<?> type : TYPES) {
                convert(token, type);
            }
        }
        if (tokens.size() >= 2) {
            try {
                Class<?> service = catalog().resolve(tokens.get(0).text);
                BridgeCore.select(service, tokens.get(1).text, tokens.subList(2, tokens.size()));
            } catch (ConsoleException e) {
                // a usage error
            }
        }
    }

    private static void convert(Token token, Class<?> type) {
        try {
            ArgumentParser.convert(token, type, "argument 1 of fuzzJni");
        } catch (ArgumentException e) {
            // a usage error
        }
    }

    private static synchronized ServiceCatalog catalog() throws ConsoleException {
        if (catalog == null) {
            catalog = ServiceCatalog.builtIn();
        }
        return catalog;
    }

    private static List<Path> inputs(String corpus) throws IOException {
        String root = System.getenv("BUNDLE_SOURCE_DIR");
        Path dir = Paths.get(root != null ? root : ".", "fuzz", "corpus", "console", corpus);
        List<Path> files = new ArrayList<Path>();
        try (DirectoryStream<Path> stream = Files.newDirectoryStream(dir)) {
            for (Path p : stream) {
                if (!p.getFileName().toString().startsWith(".")) {
                    files.add(p);
                }
            }
        }
        Collections.sort(files);
        return files;
    }

    private static void replay(String corpus, boolean mayBeEmpty) throws Exception {
        List<Path> files = inputs(corpus);
        if (!mayBeEmpty) {
            assertFalse(files.isEmpty(), corpus);
        }
        for (Path p : files) {
            try {
                check(Files.readAllBytes(p));
            } catch (Exception | Error e) {
                throw new AssertionError(p + ": " + e, e);
            }
        }
    }

    @Test
    void seedInputs() throws Exception {
        replay("seed", false);
    }

    @Test
    void pastCrashInputs() throws Exception {
        replay("crash", true);
    }

    /** check(byte[]) by reflection, for the fuzzer, which loads this class instrumented. */
    static Method entry() throws NoSuchMethodException {
        return ConsoleArgumentsCorpusTest.class.getDeclaredMethod("check", byte[].class);
    }
}
