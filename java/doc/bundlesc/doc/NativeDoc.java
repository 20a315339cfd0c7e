package bundlesc.doc;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** One native method of a service class as its source declares and documents it. */
final class NativeDoc {
    /** One {@code @oddity} block: which oddities, when they show, and a transcript showing them. */
    static final class Oddity {
        /** Names of {@link bundlesc.reply.Repair.Kind}s, as written. */
        final List<String> kinds;
        /** The block's words before its transcript, blanks folded (HTML as javadoc shows it). */
        final String words;
        /** Console commands ("&gt; Class method arguments") and what each printed; may be empty. */
        final List<String> transcript;

        Oddity(List<String> kinds, String words, List<String> transcript) {
            this.kinds = Collections.unmodifiableList(new ArrayList<String>(kinds));
            this.words = words;
            this.transcript = Collections.unmodifiableList(new ArrayList<String>(transcript));
        }

        /** The last reply of the transcript (the documented native's); null without one. */
        String reply() {
            return transcript.isEmpty() ? null : transcript.get(transcript.size() - 1);
        }
    }

    /** Short package name, e.g. "accessservices". */
    final String packageName;
    /** Simple class name, e.g. "AccessInfoQueryServiceImp". */
    final String className;
    final String methodName;
    /** Java return type as written ("int", "String", ...). */
    final String returnType;
    final List<String> parameterTypes;
    final List<String> parameterNames;
    /** The doc comment's text, leading asterisks removed; null when the native has none. */
    final String comment;
    /** The example's call line (without the class name), or null when there is no example. */
    final String exampleCall;
    /** What the console prints for the example call, one entry per line. */
    final List<String> exampleOutput;
    /** The oddities its replies show, as its comment lists them. */
    final List<Oddity> oddities;

    NativeDoc(String packageName, String className, String methodName, String returnType,
            List<String> parameterTypes, List<String> parameterNames, String comment,
            String exampleCall, List<String> exampleOutput, List<Oddity> oddities) {
        this.packageName = packageName;
        this.className = className;
        this.methodName = methodName;
        this.returnType = returnType;
        this.parameterTypes = Collections.unmodifiableList(new ArrayList<String>(parameterTypes));
        this.parameterNames = Collections.unmodifiableList(new ArrayList<String>(parameterNames));
        this.comment = comment;
        this.exampleCall = exampleCall;
        this.exampleOutput = Collections.unmodifiableList(new ArrayList<String>(exampleOutput));
        this.oddities = Collections.unmodifiableList(new ArrayList<Oddity>(oddities));
    }

    String qualifiedClassName() {
        return ReferenceSources.BASE_PACKAGE + "." + packageName + "." + className;
    }

    /** "package.Class.method", the key by which the reference names a native. */
    String key() {
        return packageName + "." + className + "." + methodName;
    }

    /** The exported symbol of the native (no name here needs JNI escaping). */
    String jniSymbol() {
        return "Java_" + qualifiedClassName().replace('.', '_') + "_" + methodName;
    }

    /** "String getWANIfStatsJni(int wanIndex)". */
    String signature() {
        StringBuilder b = new StringBuilder();
        b.append(returnType).append(' ').append(methodName).append('(');
        for (int i = 0; i < parameterTypes.size(); i++) {
            if (i > 0) {
                b.append(", ");
            }
            b.append(parameterTypes.get(i)).append(' ').append(parameterNames.get(i));
        }
        return b.append(')').toString();
    }

    /** The parameter types as javadoc's member references spell them. */
    String linkParameters() {
        StringBuilder b = new StringBuilder();
        for (int i = 0; i < parameterTypes.size(); i++) {
            if (i > 0) {
                b.append(',');
            }
            b.append(parameterTypes.get(i));
        }
        return b.toString();
    }

    boolean returnsString() {
        return returnType.equals("String");
    }

    boolean hasExample() {
        return exampleCall != null;
    }
}
