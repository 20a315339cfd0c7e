package bundlesc.tests;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.File;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.util.List;
import java.util.TreeSet;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import org.junit.jupiter.api.Test;

/**
 * The Java declarations and the library's export list name the same natives: every native
 * method of a service class has its exported function, and every exported native has its
 * Java declaration.
 */
class DeclarationsTest {
    private static final Pattern EXPORTED_NATIVE = Pattern.compile("^\\s*(Java_[A-Za-z0-9_]+);\\s*$");

    @Test
    void everyDeclaredNativeIsExportedAndEveryExportedNativeIsDeclared() throws Exception {
        TreeSet<String> declared = new TreeSet<String>();
        for (Method m : DeepStackTest.allNatives()) {
            String cls = m.getDeclaringClass().getName().replace('.', '_');
            declared.add("Java_" + cls + "_" + m.getName());
        }
        File map = new File(System.getenv("BUNDLE_SOURCE_DIR"), "common/libbundle_sc.map");
        TreeSet<String> exported = new TreeSet<String>();
        List<String> lines = Files.readAllLines(map.toPath(), StandardCharsets.UTF_8);
        for (String line : lines) {
            Matcher matcher = EXPORTED_NATIVE.matcher(line);
            if (matcher.matches()) {
                exported.add(matcher.group(1));
            }
        }
        assertEquals(String.join("\n", exported), String.join("\n", declared));
    }

    @Test
    void nativesAreInstanceMethodsWithoutOverloads() throws Exception {
        TreeSet<String> seen = new TreeSet<String>();
        for (Method m : DeepStackTest.allNatives()) {
            assertEquals(false, Modifier.isStatic(m.getModifiers()), m.toString());
            assertEquals(true, seen.add(m.getDeclaringClass().getName() + "." + m.getName()),
                    "overloaded: " + m);
        }
    }
}
