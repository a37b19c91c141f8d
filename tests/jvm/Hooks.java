/** What the tests need of native code (hooks.cpp): objects that Java does not make, failures, and measurements. */
final class Hooks {
    static native long objectWriter();

    static native long listWriter();

    /** The document of a writer, without line breaks. */
    static native String document(long writer);

    static native long stream();

    static native String textOf(long stream);

    /** A model object whose `toJSON` throws: 0 the library's exception, 1 bad_alloc, 2 a standard one, 3 a number. */
    static native long thrower(int kind);

    /** The address of four bytes that hold the value, the same for each call. */
    static native long cell(int value);

    static native int cellValue();

    /** The bytes of the first text of a vector, in hexadecimal digits. */
    static native String bytesOf(long vector);

    /** Bytes of native memory that are allocated now. */
    static native long allocated();
}
