package ui.data.platform;

import java.lang.ref.Cleaner;
import sun.misc.Unsafe;

/** Four bytes of native memory for each thread, for arguments that the library takes by their address. */
final class NativeCell {
    private static final Unsafe MEMORY = memory();
    private static final Cleaner CLEANER = Cleaner.create();
    private static final ThreadLocal<NativeCell> CELL = ThreadLocal.withInitial(NativeCell::new);

    private final long address = MEMORY.allocateMemory(4);

    private NativeCell() {
        long owned = address;
        CLEANER.register(this, () -> MEMORY.freeMemory(owned));
    }

    private static Unsafe memory() {
        try {
            var field = Unsafe.class.getDeclaredField("theUnsafe");
            field.setAccessible(true);
            return (Unsafe) field.get(null);
        } catch (ReflectiveOperationException e) {
            throw new ExceptionInInitializerError(e);
        }
    }

    /** The address of this thread's cell, holding the lower 32 bits of the value; 0 for null. */
    static long of(Number value) {
        if (value == null) {
            return 0;
        }
        long address = CELL.get().address;
        MEMORY.putInt(address, value.intValue());
        return address;
    }

    /** The same for a Boolean that the library may change: the first element of the array. */
    static long of(boolean[] value) {
        return value == null ? 0 : of(value[0] ? 1 : 0);
    }

    static void read(long address, boolean[] value) {
        if (value != null) {
            value[0] = MEMORY.getByte(address) != 0;
        }
    }
}
