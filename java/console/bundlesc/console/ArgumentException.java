package bundlesc.console;

/**
 * A command argument could not be converted to the parameter type of the selected
 * native method, or a batch line could not be split into arguments. The message
 * names the offending argument.
 */
class ArgumentException extends ConsoleException {
    private static final long serialVersionUID = 1L;

    ArgumentException(String message) {
        super(message);
    }
}
