package bundlesc.sdk;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.BufferedReader;
import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.zip.ZipEntry;
import java.util.zip.ZipOutputStream;

import org.junit.jupiter.api.Test;

import bundlesc.sdk.BundleCheck.Finding;
import bundlesc.sdk.BundleCheck.Kind;
import bundlesc.sdk.BundleCheck.Report;

class BundleCheckTest {

    static final String CLIENT = "bundlesc/sdk/fixture/GatewayClient.class";
    static final String NEWER_GSON = "bundlesc/sdk/fixture/NewerGsonClient.class";
    static final String SERVICE = "com/lumarest/smartgateway/commservices/DeviceInfoQueryServiceImp.class";

    /** A manifest whose Import-Package covers what the fixture classes use. */
    static String manifest(String... extraLines) {
        StringBuilder sb = new StringBuilder(String.join("\n",
                "Manifest-Version: 1.0",
                "Bundle-ManifestVersion: 2",
                "Bundle-SymbolicName: bundlesc.sdk.fixture",
                "Bundle-Version: 1.0.0",
                "Import-Package: com.lumarest.smartgateway.commservices;version=\"[1.0,2)\",",
                " com.google.gson;version=\"[2.7,3)\""));
        sb.append('\n');
        for (String line : extraLines) {
            sb.append(line).append('\n');
        }
        return sb.toString();
    }

    static byte[] classBytes(String name) throws IOException {
        try (InputStream in = BundleCheckTest.class.getClassLoader().getResourceAsStream(name)) {
            assertTrue(in != null, name + " is on the test class path");
            return BundleCheck.readAll(in);
        }
    }

    static Map<String, byte[]> bundle(String manifest, String... classes) throws IOException {
        Map<String, byte[]> entries = new LinkedHashMap<String, byte[]>();
        if (manifest != null) {
            entries.put("META-INF/MANIFEST.MF", manifest.getBytes(StandardCharsets.UTF_8));
        }
        for (String c : classes) {
            entries.put(c, classBytes(c));
        }
        return entries;
    }

    /** The same class file claiming another class file version. */
    static byte[] withVersion(byte[] classFile, int major) {
        byte[] copy = classFile.clone();
        copy[6] = (byte) (major >> 8);
        copy[7] = (byte) major;
        return copy;
    }

    static byte[] jar(Map<String, byte[]> entries) throws IOException {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        try (ZipOutputStream zip = new ZipOutputStream(out)) {
            for (Map.Entry<String, byte[]> e : entries.entrySet()) {
                zip.putNextEntry(new ZipEntry(e.getKey()));
                zip.write(e.getValue());
                zip.closeEntry();
            }
        }
        return out.toByteArray();
    }

    static Report check(Map<String, byte[]> entries) throws IOException {
        return BundleCheck.forGateway().check(entries);
    }

    static List<String> messages(Report r, Kind kind) {
        List<String> out = new ArrayList<String>();
        for (Finding f : r.findings) {
            if (f.kind == kind) {
                out.add(f.toString());
            }
        }
        return out;
    }

    static void assertOnly(Report r, Kind kind, String... fragments) {
        List<String> found = messages(r, kind);
        assertEquals(found.size(), r.findings.size(), "findings besides " + kind + ": " + r.findings);
        assertEquals(fragments.length, found.size(), found.toString());
        for (int i = 0; i < fragments.length; i++) {
            assertTrue(found.get(i).contains(fragments[i]), found.get(i) + " lacks " + fragments[i]);
        }
    }

    // ---- classes -------------------------------------------------------------------------

    @Test
    void aBundleAsTheGatewayWantsItHasNoFindings() throws Exception {
        Report r = check(bundle(manifest("Bundle-Activator: bundlesc.sdk.fixture.GatewayClient",
                "Bundle-RequiredExecutionEnvironment: JavaSE-1.8",
                "Require-Capability: osgi.ee;filter:=\"(&(osgi.ee=JavaSE)(version>=1.8))\""), CLIENT));
        assertTrue(r.findings.isEmpty(), r.findings.toString());
        assertEquals(1, r.classes);
        assertEquals(52, r.highestClassVersion);
    }

    @Test
    void classesNewerThanJava8AreRefused() throws Exception {
        Map<String, byte[]> b = bundle(manifest(), CLIENT);
        b.put(CLIENT, withVersion(b.get(CLIENT), 61));
        Report r = check(b);
        assertOnly(r, Kind.CLASS_VERSION, "error: 1 class is Java 17 bytecode (class file version 61), e.g. "
                + CLIENT + ": the gateway's Java 8 VM loads class file versions up to 52 only; compile with javac --release 8");
        assertTrue(r.hasErrors());
        // Versioned classes of a multi-release jar and module descriptors are never loaded by Java 8.
        Map<String, byte[]> mr = bundle(manifest(), CLIENT);
        mr.put("META-INF/versions/11/" + CLIENT, withVersion(classBytes(CLIENT), 55));
        mr.put("module-info.class", withVersion(classBytes(CLIENT), 53));
        assertTrue(check(mr).findings.isEmpty(), check(mr).findings.toString());
    }

    @Test
    void everyUsedPackageMustBeImported() throws Exception {
        String noService = String.join("\n", "Manifest-Version: 1.0", "Bundle-ManifestVersion: 2",
                "Bundle-SymbolicName: x", "Import-Package: com.google.gson", "");
        assertOnly(check(bundle(noService, CLIENT)), Kind.IMPORTS,
                "error: " + CLIENT + " uses the package com.lumarest.smartgateway.commservices, which Import-Package"
                        + " does not import (add com.lumarest.smartgateway.commservices;version=\"[1.0,2)\")");
        String nothing = String.join("\n", "Manifest-Version: 1.0", "Bundle-ManifestVersion: 2",
                "Bundle-SymbolicName: x", "");
        Report r = check(bundle(nothing, CLIENT));
        assertOnly(r, Kind.IMPORTS, "com.google.gson, which Import-Package does not import (add com.google.gson;version=\"[2.7,3)\")",
                "com.lumarest.smartgateway.commservices");
        // DynamicImport-Package covers what it names.
        String dynamic = String.join("\n", "Manifest-Version: 1.0", "Bundle-ManifestVersion: 2",
                "Bundle-SymbolicName: x", "DynamicImport-Package: com.lumarest.smartgateway.*, com.google.gson", "");
        assertTrue(check(bundle(dynamic, CLIENT)).findings.isEmpty());
        String all = String.join("\n", "Manifest-Version: 1.0", "Bundle-ManifestVersion: 2",
                "Bundle-SymbolicName: x", "DynamicImport-Package: *", "");
        assertTrue(check(bundle(all, CLIENT)).findings.isEmpty());
    }

    @Test
    void serviceClassesMustNotBeEmbedded() throws Exception {
        Report r = check(bundle(manifest(), CLIENT, SERVICE));
        assertOnly(r, Kind.SERVICE_CLASSES, "error: the bundle holds 1 service class (e.g. " + SERVICE
                + "): import their packages from the bridge bundle instead");
        Report exports = check(bundle(manifest("Export-Package: com.lumarest.smartgateway.commservices;version=1.0.0"),
                CLIENT));
        assertOnly(exports, Kind.SERVICE_CLASSES,
                "Export-Package exports com.lumarest.smartgateway.commservices: only the bridge bundle exports");
        String bridge = manifest("Export-Package: com.lumarest.smartgateway.commservices;version=1.0.0")
                .replace("bundlesc.sdk.fixture", "com.lumarest.smartgateway.bridge");
        assertTrue(check(bundle(bridge, CLIENT, SERVICE)).findings.isEmpty());
    }

    @Test
    void gsonApiNewerThanTheGatewaysIsAWarning() throws Exception {
        Report r = check(bundle(manifest(), NEWER_GSON));
        assertOnly(r, Kind.GSON_API,
                "warning: " + NEWER_GSON + " uses com.google.gson.JsonObject.keySet (Gson 2.8.1), which the gateway's Gson 2.7.0 does not have",
                "uses com.google.gson.JsonParser.parseString (Gson 2.8.6)");
        assertFalse(r.hasErrors());
    }

    @Test
    void theNewerGsonListNamesWhatDebiansGsonHas() throws Exception {
        // Every entry names a class and member of the Gson on this class path (2.10): no typo
        // can make an entry match nothing.
        try (BufferedReader r = new BufferedReader(new InputStreamReader(
                BundleCheck.class.getResourceAsStream("gson-after-2.7.txt"), StandardCharsets.UTF_8))) {
            int entries = 0;
            for (String line = r.readLine(); line != null; line = r.readLine()) {
                if (line.trim().isEmpty() || line.startsWith("#")) {
                    continue;
                }
                String[] f = line.trim().split("\\s+");
                Class<?> c = Class.forName(f[0].replace('/', '.'));
                assertTrue(f[f.length - 1].matches("2\\.(8|9|10)(\\.[0-9]+)?"), line);
                if (f.length > 2) {
                    boolean found = false;
                    for (Method m : c.getMethods()) {
                        found |= m.getName().equals(f[1]);
                    }
                    for (Field fl : c.getFields()) {
                        found |= fl.getName().equals(f[1]);
                    }
                    assertTrue(found, line);
                }
                entries++;
            }
            assertTrue(entries > 10);
        }
    }

    @Test
    void nestedJarsOfTheBundleClassPathAreChecked() throws Exception {
        Map<String, byte[]> inner = new LinkedHashMap<String, byte[]>();
        inner.put(CLIENT, withVersion(classBytes(CLIENT), 55));
        Map<String, byte[]> b = bundle(manifest("Bundle-ClassPath: ., lib/client.jar"));
        b.put("lib/client.jar", jar(inner));
        Report r = check(b);
        assertOnly(r, Kind.CLASS_VERSION, "1 class is Java 11 bytecode (class file version 55)");
        Report missing = check(bundle(manifest("Bundle-ClassPath: ., lib/none.jar"), CLIENT));
        assertOnly(missing, Kind.MANIFEST, "Bundle-ClassPath names lib/none.jar, which the jar does not hold");
        Map<String, byte[]> dir = new LinkedHashMap<String, byte[]>();
        dir.put("META-INF/MANIFEST.MF", manifest("Bundle-ClassPath: classes/").getBytes(StandardCharsets.UTF_8));
        dir.put("classes/" + CLIENT, classBytes(CLIENT));
        assertTrue(check(dir).findings.isEmpty(), check(dir).findings.toString());
        Map<String, byte[]> broken = bundle(manifest("Bundle-ClassPath: lib/bad.jar"));
        broken.put("lib/bad.jar", new byte[] {1, 2, 3});
        assertOnly(check(broken), Kind.MANIFEST,
                "Bundle-ClassPath names lib/bad.jar, which is no readable jar: it does not start as a zip file does");
    }

    @Test
    void unreadableClassFilesAreReported() throws Exception {
        Map<String, byte[]> b = bundle(manifest());
        b.put("x/Broken.class", new byte[] {(byte) 0xCA, (byte) 0xFE, (byte) 0xBA, (byte) 0xBE, 0, 0, 0, 52, 0});
        b.put("x/NotAClass.class", "hello".getBytes(StandardCharsets.UTF_8));
        Report r = check(b);
        assertOnly(r, Kind.MANIFEST, "x/Broken.class: the class file is cut short",
                "x/NotAClass.class: not a class file");
    }

    // ---- the manifest ----------------------------------------------------------------------

    @Test
    void manifestFaultsAreNamed() throws Exception {
        assertOnly(check(bundle(null, CLIENT)), Kind.MANIFEST, "the jar has no META-INF/MANIFEST.MF");
        assertOnly(check(bundle("Manifest-Version: 1.0\nBundle-SymbolicName: x\nImport-Package: com.google.gson,"
                + " com.lumarest.smartgateway.commservices\n", CLIENT)), Kind.MANIFEST,
                "Bundle-ManifestVersion: 2 is missing");
        String[][] cases = {
            {"Bundle-ManifestVersion: 3", "Bundle-ManifestVersion is 3, not 2"},
            {"Bundle-Activator: bundlesc.sdk.fixture.Missing", "Bundle-Activator names bundlesc.sdk.fixture.Missing, which the bundle does not hold"},
            {"Bundle-RequiredExecutionEnvironment: JavaSE-11", "Bundle-RequiredExecutionEnvironment is JavaSE-11: the gateway's Java 8"},
            {"Require-Capability: osgi.ee;filter:=\"(&(osgi.ee=JavaSE)(version>=11))\"", "Require-Capability asks for Java 11"},
            {"DynamicImport-Package: ;", "DynamicImport-Package has ';' where a name belongs"},
            {"Export-Package: x.y;version=one", "Export-Package x.y: 'one' is not a version"},
        };
        for (String[] c : cases) {
            String m = manifest(c[0]);
            if (c[0].startsWith("Bundle-ManifestVersion")) {
                m = m.replace("Bundle-ManifestVersion: 2\n", "");
            }
            Report r = check(bundle(m, CLIENT));
            assertEquals(1, r.findings.size(), c[0] + ": " + r.findings);
            assertTrue(r.findings.get(0).toString().contains(c[1]), c[0] + ": " + r.findings);
        }
        String noName = manifest().replace("Bundle-SymbolicName: bundlesc.sdk.fixture\n", "");
        assertOnly(check(bundle(noName, CLIENT)), Kind.MANIFEST, "Bundle-SymbolicName is missing");
        assertOnly(check(bundle(manifest().replace("bundlesc.sdk.fixture\n", "a.b,c\n"), CLIENT)), Kind.MANIFEST,
                "Bundle-SymbolicName 'a.b,c' is not one dotted name");
        assertOnly(check(bundle(manifest().replace("bundlesc.sdk.fixture\n", "two words\n"), CLIENT)), Kind.MANIFEST,
                "Bundle-SymbolicName has 'w' where a ',' or ';' belongs (at character 5)");
        assertOnly(check(bundle(manifest().replace("Bundle-Version: 1.0.0", "Bundle-Version: 1.x"), CLIENT)),
                Kind.MANIFEST, "Bundle-Version: '1.x' is not a version");
    }

    @Test
    void importPackageIsCheckedClauseByClause() throws Exception {
        String base = "Manifest-Version: 1.0\nBundle-ManifestVersion: 2\nBundle-SymbolicName: x\n";
        String[][] cases = {
            {"com.google.gson, com.lumarest.smartgateway.commservices, com.google.gson", "imports com.google.gson twice"},
            {"com.google.gson, com.lumarest.smartgateway.commservices, java.util", "java.* packages come from the VM"},
            {"com.google.gson, com.lumarest.smartgateway.commservices;version=\"[2,3)\"",
                "asks for com.lumarest.smartgateway.commservices [2,3), but the bridge bundle exports it at 1.0.0"},
            {"com.google.gson;version=\"[2.8,3)\", com.lumarest.smartgateway.commservices",
                "asks for com.google.gson [2.8,3), but the gateway's Gson is 2.7.0"},
            {"com.google.gson;version=\"[3,2)\", com.lumarest.smartgateway.commservices", "the version range '[3,2)' is empty"},
            {"com.google.gson;version=\"[2.7\", com.lumarest.smartgateway.commservices", "is not a version range"},
            {"com.google.gson, com.lumarest.smartgateway.commservices, 1bad", "names '1bad', which is no package name"},
            {"com.google.gson;version=\"[2.7,3), com.lumarest.smartgateway.commservices", "without its closing quote"},
            {"com.google.gson;version=1;version=2, com.lumarest.smartgateway.commservices", "gives the attribute version twice"},
            {"com.google.gson;resolution:=optional;x, com.lumarest.smartgateway.commservices", "names x after the attributes"},
            {"com.google.gson com.lumarest.smartgateway.commservices", "has 'c' where a ',' or ';' belongs"},
        };
        for (String[] c : cases) {
            Report r = check(bundle(base + "Import-Package: " + c[0] + "\n", CLIENT));
            boolean found = false;
            for (Finding f : r.findings) {
                found |= f.error && f.message.contains(c[1]);
            }
            assertTrue(found, c[0] + ": " + r.findings);
        }
        // Ranges that admit the gateway's versions, optional imports and directives pass.
        Report fine = check(bundle(base + "Import-Package: com.google.gson;version=\"[2.5,2.8)\";resolution:=optional,"
                + " com.lumarest.smartgateway.commservices;version=\"1.0\"\n", CLIENT));
        assertTrue(fine.findings.isEmpty(), fine.findings.toString());
    }

    @Test
    void versionRanges() {
        VersionRange r = VersionRange.parse("[1.0,2)");
        assertTrue(r.includes("1.0.0"));
        assertTrue(r.includes("1.9.9.x"));
        assertFalse(r.includes("2.0.0"));
        assertFalse(r.includes("0.9"));
        VersionRange open = VersionRange.parse("(1.0,2.0]");
        assertFalse(open.includes("1.0"));
        assertTrue(open.includes("2.0"));
        assertTrue(VersionRange.parse("2.7").includes("2.10"));
        assertFalse(VersionRange.parse("2.8").includes("2.7"));
        assertThrows(IllegalArgumentException.class, () -> VersionRange.version("1.0.0.a b"));
        assertThrows(IllegalArgumentException.class, () -> VersionRange.parse("[1.0,2"));
    }

    @Test
    void javaReleasesByClassFileVersion() {
        assertEquals("1.1", ClassFile.javaRelease(45));
        assertEquals("1.4", ClassFile.javaRelease(48));
        assertEquals("5", ClassFile.javaRelease(49));
        assertEquals("8", ClassFile.javaRelease(52));
        assertEquals("17", ClassFile.javaRelease(61));
    }

    @Test
    void theClassFileReaderFindsWhatAClassUses() throws Exception {
        ClassFile cf = ClassFile.parse(classBytes(NEWER_GSON));
        assertEquals("bundlesc/sdk/fixture/NewerGsonClient", cf.name);
        assertEquals(52, cf.major);
        assertTrue(cf.referencedClasses.contains("com/google/gson/JsonParser"), cf.referencedClasses.toString());
        assertTrue(cf.referencedClasses.contains("java/util/Set"), cf.referencedClasses.toString());
        assertFalse(cf.referencedClasses.contains(cf.name));
    }

    // ---- the command ----------------------------------------------------------------------

    @Test
    void theCommandPrintsFindingsAndExitsByThem() throws Exception {
        File dir = java.nio.file.Files.createTempDirectory("bundle-check-test").toFile();
        File good = new File(dir, "good.jar");
        File bad = new File(dir, "bad.jar");
        File gson = new File(dir, "gson.jar");
        try {
            write(good, jar(bundle(manifest(), CLIENT)));
            Map<String, byte[]> b = bundle(manifest(), CLIENT);
            b.put(CLIENT, withVersion(b.get(CLIENT), 61));
            write(bad, jar(b));
            write(gson, jar(bundle(manifest(), NEWER_GSON)));
            String[] out = new String[2];
            assertEquals(0, run(out, good.getPath()));
            assertEquals(good.getPath() + ": fits the gateway (1 class, class file version 52 at most)\n", out[0]);
            assertEquals(0, run(out, gson.getPath()));
            assertTrue(out[0].endsWith(gson.getPath() + ": fits the gateway (1 class, class file version 52 at most;"
                    + " 2 warnings)\n"), out[0]);
            assertEquals(1, run(out, good.getPath(), bad.getPath()));
            assertTrue(out[0].contains(bad.getPath() + ": error: 1 class is Java 17 bytecode"), out[0]);
            assertTrue(out[0].endsWith(bad.getPath() + ": 1 error\n"), out[0]);
            assertEquals(2, run(out, new File(dir, "none.jar").getPath()));
            assertTrue(out[1].contains("none.jar: cannot read"), out[1]);
            assertEquals(2, run(out));
            assertTrue(out[1].startsWith("Usage: bundle_sc-check-bundle JAR..."), out[1]);
            assertEquals(0, run(out, "--help"));
            assertTrue(out[0].startsWith("Usage: bundle_sc-check-bundle JAR..."), out[0]);
        } finally {
            good.delete();
            bad.delete();
            gson.delete();
            dir.delete();
        }
    }

    private static void write(File f, byte[] bytes) throws IOException {
        try (FileOutputStream out = new FileOutputStream(f)) {
            out.write(bytes);
        }
    }

    private static int run(String[] texts, String... args) throws Exception {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        ByteArrayOutputStream err = new ByteArrayOutputStream();
        int status = CheckBundle.run(args, new PrintStream(out, true, "UTF-8"), new PrintStream(err, true, "UTF-8"));
        texts[0] = new String(out.toByteArray(), StandardCharsets.UTF_8);
        texts[1] = new String(err.toByteArray(), StandardCharsets.UTF_8);
        return status;
    }

    @Test
    void jarsAreReadWithTheirManifest() throws Exception {
        Map<String, byte[]> b = bundle(manifest(), CLIENT);
        Map<String, byte[]> read = BundleCheck.readJar(new ByteArrayInputStream(jar(b)));
        assertEquals(b.keySet(), read.keySet());
    }
}
