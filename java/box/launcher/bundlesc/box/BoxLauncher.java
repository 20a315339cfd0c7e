package bundlesc.box;

import java.io.BufferedReader;
import java.io.ByteArrayInputStream;
import java.io.FileDescriptor;
import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Properties;
import java.util.concurrent.ArrayBlockingQueue;
import java.util.concurrent.BlockingQueue;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;

import org.apache.felix.framework.FrameworkFactory;
import org.apache.felix.main.AutoProcessor;
import org.osgi.framework.Bundle;
import org.osgi.framework.BundleContext;
import org.osgi.framework.FrameworkEvent;
import org.osgi.framework.ServiceReference;
import org.osgi.framework.launch.Framework;

/**
 * Starts the gateway in a box: Felix with the bundles of the configuration file (installed and
 * started in the file's order by Felix's own auto-processor).
 * <pre>
 * BoxLauncher CONFIG                 the interactive shell (the Gogo shell bundle) until it stops
 * BoxLauncher CONFIG --script FILE   the shell commands of FILE, one a line, then stop
 * </pre>
 * Interactively the shell reads a standard input that gives way when the framework stops the
 * shell: {@code stop 0} ends the session at once instead of leaving the shell's thread blocked in
 * a read. A script runs each line as the shell would and prints the results the shell prints;
 * a line the shell cannot run (an unknown command, arguments no command takes, a command that
 * throws) ends the script at once with its message and exit status 1.
 */
public final class BoxLauncher {

    private static final String COMMAND_PROCESSOR = "org.apache.felix.service.command.CommandProcessor";
    private static final String COMMAND_SESSION = "org.apache.felix.service.command.CommandSession";
    private static final long START_TIMEOUT_SECONDS = 60;

    private BoxLauncher() {
    }

    public static void main(String[] args) throws Exception {
        if (args.length != 1 && !(args.length == 3 && args[1].equals("--script"))) {
            System.err.println("usage: BoxLauncher CONFIG [--script FILE]");
            System.exit(2);
        }
        Map<String, String> config = readConfig(args[0]);
        if (args.length == 1) {
            System.setIn(new YieldingInput(new FileInputStream(FileDescriptor.in)));
        }
        Framework framework = new FrameworkFactory().newFramework(config);
        framework.init();
        CountDownLatch started = new CountDownLatch(1);
        framework.getBundleContext().addFrameworkListener(event -> {
            if (event.getType() == FrameworkEvent.STARTED) {
                started.countDown();
            }
        });
        AutoProcessor.process(config, framework.getBundleContext());
        // Ctrl-C stops the framework as stop 0 does.
        Runtime.getRuntime().addShutdownHook(new Thread(() -> {
            try {
                framework.stop();
                framework.waitForStop(10000);
            } catch (Exception e) {
                // the VM is going down anyway
            }
        }, "gateway-box shutdown"));
        framework.start();
        int status = 0;
        if (args.length == 3) {
            if (!started.await(START_TIMEOUT_SECONDS, TimeUnit.SECONDS)) {
                System.err.println("gateway-box: the framework did not start within " + START_TIMEOUT_SECONDS + " s");
                status = 1;
            } else {
                status = runScript(framework, args[2]);
            }
            framework.stop();
        }
        framework.waitForStop(0);
        System.out.flush();
        System.exit(status);
    }

    /** The configuration file's properties, in the file's order (the order bundles are installed in). */
    static Map<String, String> readConfig(String path) throws IOException {
        final Map<String, String> ordered = new LinkedHashMap<String, String>();
        Properties reader = new Properties() {
            private static final long serialVersionUID = 1L;

            @Override
            public synchronized Object put(Object key, Object value) {
                ordered.put((String) key, (String) value);
                return super.put(key, value);
            }
        };
        try (InputStream in = new FileInputStream(path)) {
            reader.load(in);
        }
        return ordered;
    }

    /** Runs the script's lines in one shell session; 0, or 1 when a line failed. */
    static int runScript(Framework framework, String path) throws Exception {
        BundleContext context = framework.getBundleContext();
        ServiceReference<?> ref = context.getServiceReference(COMMAND_PROCESSOR);
        if (ref == null) {
            System.err.println("gateway-box: the shell's command processor is not running");
            return 1;
        }
        Object processor = context.getService(ref);
        ClassLoader shell = processor.getClass().getClassLoader();
        Class<?> processorType = shell.loadClass(COMMAND_PROCESSOR);
        Class<?> sessionType = shell.loadClass(COMMAND_SESSION);
        Object session = processorType.getMethod("createSession", InputStream.class, PrintStream.class, PrintStream.class)
                .invoke(processor, new ByteArrayInputStream(new byte[0]), System.out, System.err);
        Method execute = sessionType.getMethod("execute", CharSequence.class);
        Method format = sessionType.getMethod("format", Object.class, int.class);
        int inspect = shell.loadClass("org.apache.felix.service.command.Converter").getField("INSPECT").getInt(null);
        try (BufferedReader lines = new BufferedReader(new InputStreamReader(new FileInputStream(path),
                StandardCharsets.UTF_8))) {
            int number = 0;
            for (String line = lines.readLine(); line != null; line = lines.readLine()) {
                number++;
                String command = line.trim();
                if (command.isEmpty() || command.startsWith("#")) {
                    continue;
                }
                try {
                    Object result = execute.invoke(session, command);
                    if (result != null) {
                        System.out.println(format.invoke(session, result, inspect));
                    }
                } catch (InvocationTargetException e) {
                    Throwable cause = e.getCause();
                    System.out.flush();
                    System.err.println("error: line " + number + " of the script (" + command + "): "
                            + cause.getClass().getSimpleName() + ": " + cause.getMessage());
                    System.err.println("gateway-box: the script stops at its first failing line");
                    return 1;
                }
                System.out.flush();
                if (framework.getState() != Bundle.ACTIVE) {
                    return 0; // the script stopped the framework (stop 0)
                }
            }
        } finally {
            sessionType.getMethod("close").invoke(session);
            context.ungetService(ref);
        }
        return 0;
    }

    /**
     * Standard input read through a queue, so that a reader whose thread is interrupted (the
     * shell, when the framework stops it) gets the end of input at once; a plain read of the
     * terminal would keep the shell's thread, and the framework's stop, waiting.
     */
    static final class YieldingInput extends InputStream {
        private static final byte[] END = new byte[0];
        private final BlockingQueue<byte[]> chunks = new ArrayBlockingQueue<byte[]>(16);
        private byte[] chunk = new byte[0];
        private int at;
        private boolean ended;

        YieldingInput(final InputStream source) {
            Thread pump = new Thread(() -> {
                byte[] buf = new byte[4096];
                try {
                    for (int n = source.read(buf); n > 0; n = source.read(buf)) {
                        chunks.put(Arrays.copyOf(buf, n));
                    }
                    chunks.put(END);
                } catch (IOException | InterruptedException e) {
                    chunks.offer(END);
                }
            }, "gateway-box standard input");
            pump.setDaemon(true);
            pump.start();
        }

        @Override
        public synchronized int read() throws IOException {
            byte[] one = new byte[1];
            return read(one, 0, 1) == 1 ? one[0] & 0xff : -1;
        }

        @Override
        public synchronized int read(byte[] b, int off, int len) throws IOException {
            if (len == 0) {
                return 0;
            }
            if (at == chunk.length) {
                if (ended) {
                    return -1;
                }
                try {
                    chunk = chunks.take();
                } catch (InterruptedException e) {
                    return -1; // the reader is being stopped: no more input for it
                }
                at = 0;
                if (chunk == END) {
                    ended = true;
                    return -1;
                }
            }
            int n = Math.min(len, chunk.length - at);
            System.arraycopy(chunk, at, b, off, n);
            at += n;
            return n;
        }

        @Override
        public synchronized int available() {
            return chunk.length - at;
        }
    }
}
