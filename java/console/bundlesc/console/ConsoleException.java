package bundlesc.console;

/**
 * A failure the console reports to the user as a one-line message (unknown class,
 * unknown method, bad argument, native library not loadable, ...). It never carries a
 * stack trace to the terminal: the message must say everything the user needs.
 */
class ConsoleException extends Exception {
    private static final long serialVersionUID = 1L;

    ConsoleException(String message) {
        super(message);
    }
}
