package bundlesc.tests;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.io.UncheckedIOException;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.concurrent.CompletableFuture;

/**
 * A JVM of its own, for tests of what happens in a fresh process: the same Java, the test's
 * java.library.path and the environment of the test, changed as asked; its exit status and
 * what it printed.
 */
final class ChildJvm {
    final int status;
    final String out;
    final String err;

    private ChildJvm(int status, String out, String err) {
        this.status = status;
        this.out = out;
        this.err = err;
    }

    /** The class path entry (directory or jar) a class was loaded from. */
    static String location(Class<?> c) throws Exception {
        return new File(c.getProtectionDomain().getCodeSource().getLocation().toURI()).getPath();
    }

    /**
     * Runs java -Xcheck:jni -Djava.library.path=... with `args`; `env` changes the environment
     * (a null value removes the variable).
     */
    static ChildJvm run(Map<String, String> env, String... args) throws Exception {
        String java = System.getProperty("java.home") + File.separator + "bin" + File.separator + "java";
        List<String> command = new ArrayList<String>(Arrays.asList(java, "-Xcheck:jni",
                "-Djava.library.path=" + System.getProperty("java.library.path")));
        command.addAll(Arrays.asList(args));
        ProcessBuilder builder = new ProcessBuilder(command);
        for (Map.Entry<String, String> e : env.entrySet()) {
            if (e.getValue() == null) {
                builder.environment().remove(e.getKey());
            } else {
                builder.environment().put(e.getKey(), e.getValue());
            }
        }
        Process p = builder.start();
        p.getOutputStream().close();
        CompletableFuture<String> err = CompletableFuture.supplyAsync(() -> read(p.getErrorStream()));
        String out = read(p.getInputStream());
        return new ChildJvm(p.waitFor(), out, err.get());
    }

    private static String read(InputStream in) {
        try {
            ByteArrayOutputStream out = new ByteArrayOutputStream();
            byte[] buf = new byte[8192];
            for (int n; (n = in.read(buf)) > 0; ) {
                out.write(buf, 0, n);
            }
            return new String(out.toByteArray(), StandardCharsets.UTF_8);
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        }
    }
}
