package bundlesc.tests;

import java.nio.file.Path;
import java.nio.file.Paths;

/**
 * Where the gateway's flag files ("/tmp/usbapi_test", "/tmp/cwmp/...") are for this JVM. The
 * simulator's host side (libgatewayhost.so, preloaded) makes the library look for them in the
 * folder named by BRELO_SIM_FLAG_DIR when it is set (each test entry has its own, so test runs
 * side by side never see each other's flags), else under /tmp as on the gateway.
 */
final class GatewayFiles {
    private GatewayFiles() {
    }

    static Path of(String gatewayPath) {
        String folder = System.getenv("BRELO_SIM_FLAG_DIR");
        if (folder == null || folder.isEmpty() || !gatewayPath.startsWith("/tmp/")) {
            return Paths.get(gatewayPath);
        }
        return Paths.get(folder, gatewayPath.substring("/tmp/".length()));
    }
}
