package bundlesc.console;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

import org.junit.jupiter.api.Test;

import bundlesc.console.fake.demo.FakeServiceImp;
import bundlesc.console.fake.other.EmptyServiceImp;

class ServiceCatalogTest {

    /** A catalog of the fake service classes of these tests. */
    static ServiceCatalog fakeCatalog() {
        return new ServiceCatalog(Arrays.asList("bundlesc.console.fake.other.EmptyServiceImp",
                "bundlesc.console.fake.demo.FakeServiceImp"), FakeServiceImp.class.getClassLoader());
    }

    @Test
    void theBuiltInCatalogIsTheLibrarysExportList() throws Exception {
        ServiceCatalog catalog = ServiceCatalog.builtIn();
        // Every class the library exports natives for, from the build's list.
        assertEquals(39, catalog.classNames().size());
        assertTrue(catalog.classNames().contains("com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp"));
        assertTrue(catalog.classNames().contains("com.lumarest.smartgateway.addressservices.PortMappingConfigServiceImp"));
        int natives = 0;
        for (Class<?> c : catalog.loadAll()) {
            natives += ServiceCatalog.natives(c).size();
        }
        assertEquals(163, natives);
        assertEquals("com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp",
                catalog.resolve("DeviceInfoQueryService").getName());
    }

    @Test
    void loadsEveryClassSortedByName() throws Exception {
        assertEquals(Arrays.<Class<?>>asList(FakeServiceImp.class, EmptyServiceImp.class), fakeCatalog().loadAll());
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
        for (String name : new String[] {"NoSuchService", "ServiceImp", "FakeServ", "other.FakeService", "fakeservice",
                "java.lang.String"}) {
            String message = assertThrows(ConsoleException.class, () -> catalog.resolve(name)).getMessage();
            assertTrue(message.startsWith("unknown service class '" + name + "'"), message);
            assertTrue(message.contains("--list"), message);
        }
        assertThrows(ConsoleException.class, () -> catalog.resolve(""));
    }

    @Test
    void ambiguousSimpleNamesAreReported() {
        ServiceCatalog catalog = new ServiceCatalog(Arrays.asList("r.a.XServiceImp", "r.b.XServiceImp"),
                getClass().getClassLoader());
        String message = assertThrows(ConsoleException.class, () -> catalog.resolve("XService")).getMessage();
        assertTrue(message.contains("ambiguous: r.a.XServiceImp, r.b.XServiceImp"), message);
    }

    @Test
    void aListedClassThatCannotBeLoadedIsReported() {
        ServiceCatalog catalog = new ServiceCatalog(Arrays.asList("r.a.GoneServiceImp"), getClass().getClassLoader());
        String message = assertThrows(ConsoleException.class, () -> catalog.resolve("GoneService")).getMessage();
        assertTrue(message.startsWith("cannot load service class r.a.GoneServiceImp: ClassNotFoundException"), message);
        assertThrows(ConsoleException.class, catalog::loadAll);
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

    @Test
    void theServiceClassesListTheirParameterNames() throws Exception {
        // The build compiles them keeping the names of their declarations (and Javadoc).
        Class<?> c = ServiceCatalog.builtIn().resolve("PortMappingConfigService");
        Method add = null;
        for (Method m : ServiceCatalog.natives(c)) {
            if (m.getName().equals("addPortMappingJni")) {
                add = m;
            }
        }
        assertEquals("addressservices.PortMappingConfigServiceImp.addPortMappingJni(int wanIndex, int externalPort,"
                + " int internalPort, String protocol, String internalClient) -> int", ServiceCatalog.describe(add));
    }

    @Test
    void theUnknownClassMessageNamesTheListingCommandOfWhereItRuns() {
        ServiceCatalog catalog = fakeCatalog();
        assertTrue(assertThrows(ConsoleException.class, () -> catalog.resolve("Nope")).getMessage()
                .endsWith("(--list shows them)"));
        assertTrue(assertThrows(ConsoleException.class, () -> catalog.resolve("Nope", "bridge:list")).getMessage()
                .endsWith("(bridge:list shows them)"));
    }
}
