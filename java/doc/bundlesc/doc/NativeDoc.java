package bundlesc.doc;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** One native method of a service class as its source declares and documents it. */
final class NativeDoc {
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

    NativeDoc(String packageName, String className, String methodName, String returnType,
            List<String> parameterTypes, List<String> parameterNames, String comment,
            String exampleCall, List<String> exampleOutput) {
        this.packageName = packageName;
        this.className = className;
        this.methodName = methodName;
        this.returnType = returnType;
        this.parameterTypes = Collections.unmodifiableList(new ArrayList<String>(parameterTypes));
        this.parameterNames = Collections.unmodifiableList(new ArrayList<String>(parameterNames));
        this.comment = comment;
        this.exampleCall = exampleCall;
        this.exampleOutput = Collections.unmodifiableList(new ArrayList<String>(exampleOutput));
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
