package bundlesc.sdk;

import java.io.ByteArrayInputStream;
import java.io.DataInputStream;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;

/**
 * What a bundle check needs from one class file: its version, its name, every class it names
 * (in its constant pool and in the descriptors of its members and of the members it uses) and
 * the fields and methods of other classes it uses.
 */
final class ClassFile {

    /** A field or method of another class that the code uses. */
    static final class MemberRef {
        final String owner;       // internal name, e.g. com/google/gson/JsonParser
        final String name;
        final String descriptor;

        MemberRef(String owner, String name, String descriptor) {
            this.owner = owner;
            this.name = name;
            this.descriptor = descriptor;
        }
    }

    final int major;
    final int minor;
    final String name;
    /** Internal names of every class named, without array brackets, sorted. */
    final Set<String> referencedClasses;
    final List<MemberRef> memberRefs;

    private ClassFile(int major, int minor, String name, Set<String> classes, List<MemberRef> refs) {
        this.major = major;
        this.minor = minor;
        this.name = name;
        this.referencedClasses = Collections.unmodifiableSet(classes);
        this.memberRefs = Collections.unmodifiableList(refs);
    }

    /** The Java SE release whose compiler writes class file version {@code major} (45 is 1.1). */
    static String javaRelease(int major) {
        if (major <= 45) {
            return "1.1";
        }
        return major <= 48 ? "1." + (major - 44) : String.valueOf(major - 44);
    }

    /** Reads a class file; IOException when it is not one or is cut short. */
    static ClassFile parse(byte[] bytes) throws IOException {
        DataInputStream in = new DataInputStream(new ByteArrayInputStream(bytes));
        try {
            if (in.readInt() != 0xCAFEBABE) {
                throw new IOException("not a class file (no 0xCAFEBABE at its start)");
            }
            int minor = in.readUnsignedShort();
            int major = in.readUnsignedShort();
            int count = in.readUnsignedShort();
            int[] tags = new int[count];
            String[] utf8 = new String[count];
            int[] first = new int[count];   // Class: name; NameAndType: name; refs: class
            int[] second = new int[count];  // NameAndType: descriptor; refs: name and type
            List<Integer> methodTypes = new ArrayList<Integer>();
            for (int i = 1; i < count; i++) {
                int tag = in.readUnsignedByte();
                tags[i] = tag;
                switch (tag) {
                    case 1: utf8[i] = in.readUTF(); break;
                    case 3: case 4: in.readInt(); break;
                    case 5: case 6: in.readLong(); i++; break;
                    case 7: case 8: case 19: case 20: first[i] = in.readUnsignedShort(); break;
                    case 16: first[i] = in.readUnsignedShort(); methodTypes.add(i); break;
                    case 9: case 10: case 11: case 12: case 17: case 18:
                        first[i] = in.readUnsignedShort();
                        second[i] = in.readUnsignedShort();
                        break;
                    case 15: in.readUnsignedByte(); in.readUnsignedShort(); break;
                    default: throw new IOException("unknown constant pool tag " + tag + " at entry " + i);
                }
            }
            Set<String> classes = new TreeSet<String>();
            List<MemberRef> refs = new ArrayList<MemberRef>();
            for (int i = 1; i < count; i++) {
                if (tags[i] == 7) {
                    addClassName(classes, text(utf8, first[i]));
                } else if (tags[i] == 12) {
                    addDescriptor(classes, text(utf8, second[i]));
                } else if (tags[i] >= 9 && tags[i] <= 11) {
                    int type = second[i];
                    String owner = text(utf8, first[check(tags, first[i], 7)]);
                    refs.add(new MemberRef(stripArray(owner), text(utf8, first[check(tags, type, 12)]),
                            text(utf8, second[type])));
                }
            }
            for (int i : methodTypes) {
                addDescriptor(classes, text(utf8, first[i]));
            }
            in.readUnsignedShort(); // access flags
            String name = text(utf8, first[check(tags, in.readUnsignedShort(), 7)]);
            in.readUnsignedShort(); // super class, a Class entry already counted
            skip(in, 2 * in.readUnsignedShort()); // interfaces, Class entries too
            for (int kind = 0; kind < 2; kind++) { // fields, then methods
                int members = in.readUnsignedShort();
                for (int m = 0; m < members; m++) {
                    in.readUnsignedShort();
                    in.readUnsignedShort();
                    addDescriptor(classes, text(utf8, in.readUnsignedShort()));
                    int attributes = in.readUnsignedShort();
                    for (int a = 0; a < attributes; a++) {
                        in.readUnsignedShort();
                        skip(in, in.readInt() & 0xFFFFFFFFL);
                    }
                }
            }
            classes.remove(name);
            return new ClassFile(major, minor, name, classes, refs);
        } catch (java.io.EOFException e) {
            throw new IOException("the class file is cut short");
        } catch (IndexOutOfBoundsException e) {
            throw new IOException("the class file's constant pool points outside itself");
        }
    }

    private static int check(int[] tags, int index, int tag) throws IOException {
        if (index <= 0 || index >= tags.length || tags[index] != tag) {
            throw new IOException("constant pool entry " + index + " is not of the kind its user needs");
        }
        return index;
    }

    private static String text(String[] utf8, int index) throws IOException {
        if (index <= 0 || index >= utf8.length || utf8[index] == null) {
            throw new IOException("constant pool entry " + index + " is not a text");
        }
        return utf8[index];
    }

    private static void skip(DataInputStream in, long n) throws IOException {
        while (n > 0) {
            int step = (int) Math.min(n, Integer.MAX_VALUE);
            int skipped = in.skipBytes(step);
            if (skipped <= 0) {
                throw new java.io.EOFException();
            }
            n -= skipped;
        }
    }

    /** "[[Lcom/x/Y;" is com/x/Y; "[I" names no class. */
    private static String stripArray(String name) {
        int dims = 0;
        while (dims < name.length() && name.charAt(dims) == '[') {
            dims++;
        }
        if (dims == 0) {
            return name;
        }
        String element = name.substring(dims);
        return element.startsWith("L") && element.endsWith(";") ? element.substring(1, element.length() - 1) : null;
    }

    private static void addClassName(Set<String> classes, String name) {
        String plain = stripArray(name);
        if (plain != null) {
            classes.add(plain);
        }
    }

    /** Every Lname; of a field or method descriptor. */
    private static void addDescriptor(Set<String> classes, String descriptor) {
        int i = 0;
        while ((i = descriptor.indexOf('L', i)) >= 0) {
            int end = descriptor.indexOf(';', i);
            if (end < 0) {
                return;
            }
            classes.add(descriptor.substring(i + 1, end));
            i = end + 1;
        }
    }
}
