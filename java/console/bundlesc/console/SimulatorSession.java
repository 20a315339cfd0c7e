package bundlesc.console;

import java.io.IOException;
import java.io.PrintStream;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;

/**
 * What a console session does with the simulated gateway's configuration tree. Off the gateway
 * the simulator (class {@code bundlesc.sim.GatewaySim} with its library) writes the tree at
 * every {@code tcapi_save}: to the file {@code $BRELO_SIM_SAVE} names, when that is set, and
 * reads it back when the next process starts; otherwise to a folder of this session's own,
 * printed when the session starts and removed at its end if nothing was saved, so no run leaves
 * state behind in the build. {@code --fresh} starts from the default gateway without reading a
 * saved tree back. On the gateway there is no simulator and nothing is done.
 */
final class SimulatorSession {
    static final String SAVE_VARIABLE = "BRELO_SIM_SAVE";
    static final String SIMULATOR_CLASS = "bundlesc.sim.GatewaySim";
    static final String SAVED_TREE = "tcapi-saved.ini";

    private static final SimulatorSession NONE = new SimulatorSession(null);

    /** The session's own folder, or null. */
    final Path folder;

    private SimulatorSession(Path folder) {
        this.folder = folder;
    }

    /** Starts a session as the environment says, with the simulator found on the class path. */
    static SimulatorSession begin(boolean fresh, PrintStream notes) throws ConsoleException {
        return begin(fresh, System.getenv(SAVE_VARIABLE), SIMULATOR_CLASS, null, notes);
    }

    /**
     * @param save      the value of $BRELO_SIM_SAVE, or null when it is not set
     * @param simulator the simulator's control class (absent on the gateway)
     * @param root      where the session's folder is made (null: the system's temporary folder)
     */
    static SimulatorSession begin(boolean fresh, String save, String simulator, Path root, PrintStream notes)
            throws ConsoleException {
        if (!fresh && save != null) {
            return NONE;  // the simulator saves where the user asked, and reads it back itself
        }
        Class<?> gateway = simulatorClass(simulator);
        if (gateway == null) {
            if (fresh) {
                throw new ConsoleException("--fresh needs the simulated gateway (" + simulator
                        + " on the class path, its library on java.library.path)");
            }
            return NONE;
        }
        if (fresh && ((Integer) invoke(gateway, "loadFresh")) != 0) {
            throw new ConsoleException("the default simulated gateway did not load");
        }
        if (save != null) {
            return NONE;
        }
        Path folder;
        try {
            String prefix = "bundle_sc-session-";
            folder = root != null ? Files.createTempDirectory(root, prefix) : Files.createTempDirectory(prefix);
        } catch (IOException e) {
            throw new ConsoleException("cannot make a folder for this session's configuration tree: " + e.getMessage());
        }
        String file = folder.resolve(SAVED_TREE).toString();
        try {
            invoke(gateway, "setSavePath", file);
        } catch (ConsoleException e) {
            folder.toFile().delete();
            throw e;
        }
        notes.println("simulated gateway: this session saves its configuration tree in " + file
                + " (" + SAVE_VARIABLE + "=FILE keeps it from one session to the next)");
        notes.flush();
        return new SimulatorSession(folder);
    }

    /** Ends the session: its folder goes when nothing was saved in it. */
    void end() {
        if (folder == null) {
            return;
        }
        String[] left = folder.toFile().list();
        if (left != null && left.length == 0) {
            folder.toFile().delete();
        }
    }

    private static Class<?> simulatorClass(String name) {
        try {
            return Class.forName(name);
        } catch (ClassNotFoundException | LinkageError e) {
            return null;  // not on the class path, or its library does not load: no simulator
        }
    }

    private static Object invoke(Class<?> gateway, String method, String... args) throws ConsoleException {
        try {
            Class<?>[] types = new Class<?>[args.length];
            Arrays.fill(types, String.class);
            Method m = gateway.getMethod(method, types);
            return m.invoke(null, (Object[]) args);
        } catch (NoSuchMethodException | IllegalAccessException e) {
            throw new ConsoleException("the simulated gateway has no " + method + ": " + e);
        } catch (InvocationTargetException e) {
            throw new ConsoleException("the simulated gateway's " + method + " failed: " + e.getCause());
        }
    }
}
