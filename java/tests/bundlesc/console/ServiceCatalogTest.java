package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.OutputStream;
import java.lang.reflect.Method;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.SortedSet;
import java.util.TreeSet;
import java.util.jar.Attributes;
import java.util.jar.JarEntry;
import java.util.jar.JarOutputStream;
import java.util.jar.Manifest;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

import bundlesc.console.fake.demo.FakeServiceImp;
import bundlesc.console.fake.other.EmptyServiceImp;

class ServiceCatalogTest {

    static final String FAKE_ROOT = "bundlesc/console/fake";

    @TempDir
    Path temp;

    /** A catalog over the test class path with the fake service classes as root. */
    static ServiceCatalog fakeCatalog() {
        ClassLoader loader = FakeServiceImp.class.getClassLoader();
        return new ServiceCatalog(FAKE_ROOT, ServiceCatalog.classPathEntries(loader, FAKE_ROOT), loader, null);
    }

    private static SortedSet<String> set(String... names) {
        return new TreeSet<String>(Arrays.asList(names));
    }

    private void touch(String relative) throws IOException {
        Path p = temp.resolve(relative);
        Files.createDirectories(p.getParent());
        Files.write(p, new byte[0]);
    }

    private File jar(String name, String classPath, String... entries) throws IOException {
        File file = temp.resolve(name).toFile();
        Manifest manifest = new Manifest();
        manifest.getMainAttributes().put(Attributes.Name.MANIFEST_VERSION, "1.0");
        if (classPath != null) {
            manifest.getMainAttributes().put(Attributes.Name.CLASS_PATH, classPath);
        }
        try (OutputStream os = new FileOutputStream(file); JarOutputStream jar = new JarOutputStream(os, manifest)) {
            for (String entry : entries) {
                jar.putNextEntry(new JarEntry(entry));
                jar.closeEntry();
            }
        }
        return file;
    }

    @Test
    void rootIsNormalised() {
        assertEquals("com/lumarest/smartgateway", ServiceCatalog.normaliseRoot("com.lumarest.smartgateway"));
        assertEquals("com/lumarest/smartgateway", ServiceCatalog.normaliseRoot("/com/lumarest/smartgateway/"));
        assertEquals("a/b", ServiceCatalog.normaliseRoot(" a\\b "));
    }

    @Test
    void serviceClassNamesAreOnePackageBelowTheRoot() {
        String p = "com/x/";
        assertEquals("com.x.pkg.FooImp", ServiceCatalog.serviceClassName("com/x/pkg/FooImp.class", p));
        assertNull(ServiceCatalog.serviceClassName("com/x/pkg/Foo.class", p));
        assertNull(ServiceCatalog.serviceClassName("com/x/pkg/FooImp.java", p));
        assertNull(ServiceCatalog.serviceClassName("com/x/pkg/Foo$BarImp.class", p));
        assertNull(ServiceCatalog.serviceClassName("com/x/FooImp.class", p));
        assertNull(ServiceCatalog.serviceClassName("com/x/pkg/sub/FooImp.class", p));
        assertNull(ServiceCatalog.serviceClassName("com/x/bad-pkg/FooImp.class", p));
        assertNull(ServiceCatalog.serviceClassName("com/y/pkg/FooImp.class", p));
    }

    @Test
    void scansDirectories() throws IOException {
        touch("classes/r/oot/lanservices/LanHostManagerServiceImp.class");
        touch("classes/r/oot/lanservices/LanHostManagerService.class");
        touch("classes/r/oot/lanservices/LanHostManagerServiceImp$InnerImp.class");
        touch("classes/r/oot/lanservices/deeper/DeepImp.class");
        touch("classes/r/oot/commservices/DeviceInfoQueryServiceImp.class");
        touch("classes/r/oot/TopImp.class");
        touch("classes/r/oot/META-INF/OddImp.class");
        touch("other/r/oot/voipservices/VoipServiceImp.class");
        List<File> entries = Arrays.asList(temp.resolve("classes").toFile(), temp.resolve("other").toFile(),
                temp.resolve("missing").toFile());
        assertEquals(set("r.oot.commservices.DeviceInfoQueryServiceImp", "r.oot.lanservices.LanHostManagerServiceImp",
                "r.oot.voipservices.VoipServiceImp"), ServiceCatalog.scanClassNames(entries, "r/oot", null));
    }

    @Test
    void scansJarsAndTheirManifestClassPath() throws IOException {
        jar("lib.jar", null, "r/oot/transferservices/", "r/oot/transferservices/UsbServiceImp.class",
                "r/oot/transferservices/Helper.class", "r/oot/transferservices/UsbServiceImp$1.class");
        File main = jar("main.jar", "lib.jar missing.jar", "r/oot/addressservices/DnsServiceImp.class",
                "other/pkg/NotMineImp.class");
        assertEquals(set("r.oot.addressservices.DnsServiceImp", "r.oot.transferservices.UsbServiceImp"),
                ServiceCatalog.scanClassNames(Collections.singletonList(main), "r/oot", null));
    }

    @Test
    void findsTheFakeServicesOnTheTestClassPath() {
        assertEquals(set("bundlesc.console.fake.demo.FakeServiceImp", "bundlesc.console.fake.other.EmptyServiceImp"),
                fakeCatalog().classNames());
        List<Class<?>> loaded = fakeCatalog().loadAll();
        assertEquals(Arrays.<Class<?>>asList(FakeServiceImp.class, EmptyServiceImp.class), loaded);
    }

    @Test
    void resolvesTheAcceptedSpellings() throws Exception {
        ServiceCatalog catalog = fakeCatalog();
        for (String name : new String[] {"FakeServiceImp", "FakeService", "demo.FakeServiceImp", "demo.FakeService",
                "bundlesc.console.fake.demo.FakeServiceImp", "bundlesc.console.fake.demo.FakeService"}) {
            assertSame(FakeServiceImp.class, catalog.resolve(name), name);
        }
        assertSame(EmptyServiceImp.class, catalog.resolve("EmptyService"));
    }

    @Test
    void unknownClassNamesAreReported() {
        ServiceCatalog catalog = fakeCatalog();
        for (String name : new String[] {"NoSuchService", "ServiceImp", "FakeServ", "other.FakeService", "fakeservice"}) {
            String message = assertThrows(ConsoleException.class, () -> catalog.resolve(name)).getMessage();
            assertTrue(message.startsWith("unknown service class '" + name + "'"), message);
            assertTrue(message.contains("--list"), message);
        }
        // a class that is not a service class is not loaded through the fully qualified fallback
        assertThrows(ConsoleException.class, () -> catalog.resolve("java.lang.String"));
    }

    @Test
    void ambiguousSimpleNamesAreReported() throws IOException {
        touch("classes/r/a/XServiceImp.class");
        touch("classes/r/b/XServiceImp.class");
        ServiceCatalog catalog = new ServiceCatalog("r", Collections.singletonList(temp.resolve("classes").toFile()),
                getClass().getClassLoader(), null);
        String message = assertThrows(ConsoleException.class, () -> catalog.resolve("XService")).getMessage();
        assertTrue(message.contains("ambiguous: r.a.XServiceImp, r.b.XServiceImp"), message);
    }

    @Test
    void listsPublicNativesOnly() {
        List<String> lines = new ArrayList<String>();
        for (Method m : ServiceCatalog.natives(FakeServiceImp.class)) {
            lines.add(ServiceCatalog.describe(m));
        }
        assertEquals(Arrays.asList(
                "demo.FakeServiceImp.countJni() -> int",
                "demo.FakeServiceImp.getInfoJni() -> String",
                "demo.FakeServiceImp.lookupJni(String) -> int",
                "demo.FakeServiceImp.lookupJni(int) -> int",
                "demo.FakeServiceImp.readJni(byte[], int) -> int",
                "demo.FakeServiceImp.setMacListJni(String[]) -> int",
                "demo.FakeServiceImp.setValueJni(int, boolean) -> int"), lines);
        assertTrue(ServiceCatalog.natives(EmptyServiceImp.class).isEmpty());
    }
}
