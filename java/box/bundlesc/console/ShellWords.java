package bundlesc.console;

import java.util.List;
import java.util.Map;

/**
 * The words of a shell command as texts. The shell reads a line before a command sees it: text in
 * single quotes stays as typed, but {@code [...]} becomes a list of the shell's own (the double
 * quotes inside are gone), {@code [a=b]} a map, and {@code {...}} a block of commands (the braces
 * are gone). JSON typed that way cannot be recovered, so it is refused with a message that says
 * how to type it. Numbers are read by the shell too ({@code 007} arrives as 7): single quotes keep
 * a text as typed.
 */
final class ShellWords {

    private ShellWords() {
    }

    /** The text of a word, null for the shell's null; ConsoleException when the shell rewrote JSON. */
    static String text(Object word, String what) throws ConsoleException {
        if (word == null) {
            return null;
        }
        if (word instanceof List) {
            throw new ConsoleException(what + ": the shell read " + compact(word) + " as a list of its own"
                    + " (it drops the double quotes inside); put a JSON array in single quotes,"
                    + " e.g. '[\"00:E0:4C:68:01:A2\"]'");
        }
        if (word instanceof Map) {
            throw new ConsoleException(what + ": the shell read " + compact(word) + " as a map of its own;"
                    + " put JSON in single quotes, e.g. '{\"Timeout\":2000}'");
        }
        if (isShellBlock(word)) {
            throw new ConsoleException(what + ": the shell read {" + word + "} as a block of commands"
                    + " (it drops the braces); put a JSON object in single quotes, e.g. '{\"Timeout\":2000}'");
        }
        return word.toString();
    }

    /** The texts of the words, labelled "argument N" from {@code firstNumber} on. */
    static String[] texts(Object[] words, int firstNumber) throws ConsoleException {
        String[] texts = new String[words.length];
        for (int i = 0; i < words.length; i++) {
            texts[i] = text(words[i], "argument " + (firstNumber + i));
        }
        return texts;
    }

    /** A block of commands: the shell's function objects (found by name: the shell is optional). */
    private static boolean isShellBlock(Object word) {
        for (Class<?> c = word.getClass(); c != null; c = c.getSuperclass()) {
            if (c.getName().equals("org.apache.felix.gogo.runtime.Closure")) {
                return true;
            }
            for (Class<?> i : c.getInterfaces()) {
                if (i.getName().equals("org.apache.felix.service.command.Function")) {
                    return true;
                }
            }
        }
        return false;
    }

    private static String compact(Object word) {
        return String.valueOf(word).replace(", ", ",");
    }
}
