import java.util.Arrays;
import ui.data.platform.*;

/**
 * usage: Speed LIBRARY BY_HAND PLATFORM ROUNDS. Compares calls of the binding with calls of the same functions that are
 * written by hand, in rounds: in each, both are timed, in alternating order. Prints medians, and their ratios.
 */
public final class Speed {
    private static native int count(long hardware);

    private static native String name(long hardware);

    private static native String document(long hardware);

    private static native long child(long hardware);

    private static native long loads(String file, int times);

    /** Runs so many times; gives the time in nanoseconds. */
    private interface Batch {
        long run(int times) throws Exception;
    }

    private interface One {
        long run() throws Exception;
    }

    private static volatile long sink;

    private static Batch timed(One one) {
        return times -> {
            long sum = 0, start = System.nanoTime();
            for (int i = 0; i < times; i++) {
                sum += one.run();
            }
            sink = sum;
            return System.nanoTime() - start;
        };
    }

    private static double median(double[] values) {
        Arrays.sort(values);
        return values[values.length / 2];
    }

    private static void compare(String what, double goal, int rounds, int times, Batch byHand, Batch binding)
            throws Exception {
        double[] first = new double[rounds], second = new double[rounds];
        for (int round = -rounds / 4; round < rounds; round++) {
            boolean handFirst = round % 2 == 0;
            double a = (double) (handFirst ? byHand : binding).run(times) / times;
            double b = (double) (handFirst ? binding : byHand).run(times) / times;
            if (round >= 0) {
                first[round] = handFirst ? a : b;
                second[round] = handFirst ? b : a;
            }
        }
        double hand = median(first), ours = median(second);
        System.out.printf("%-22s %12.1f ns by hand %12.1f ns %8.2f (at most %.1f)%n", what, hand, ours, ours / hand,
                goal);
    }

    public static void main(String[] arguments) throws Exception {
        System.load(arguments[0]);
        System.load(arguments[1]);
        String file = arguments[2];
        int rounds = Integer.parseInt(arguments[3]);
        var none = new StringVector();
        var helper = new TEQPlatformEngineHelper(file, none, none);
        TEQHardwarePlatform hardware = helper.getPlatform().getHardwarePlatform();
        hardware.setDescription("{\"key\": \"value\"}\n".repeat(100_000 / 17));
        var getCPtr = TEQHardwarePlatform.class.getDeclaredMethod("getCPtr", TEQHardwarePlatform.class);
        getCPtr.setAccessible(true);
        long handle = (Long) getCPtr.invoke(null, hardware);

        compare("integer", 1.3, rounds, 100_000, timed(() -> count(handle)), timed(hardware::getBRAMCount));
        compare("text", 1.2, rounds, 5_000, timed(() -> name(handle).length()),
                timed(() -> hardware.getName().length()));
        compare("document of 100 KB", 1.2, rounds, 5, timed(() -> document(handle).length()),
                timed(() -> hardware.getDescription().length()));
        compare("child object", 30, rounds, 3_000, timed(() -> child(handle)),
                timed(() -> hardware.getDefaultClock() == null ? 1 : 0));
        compare("load", 1.1, rounds, 1, times -> loads(file, times), timed(() -> {
            var each = new TEQPlatformEngineHelper(file, none, none);
            boolean isValid = each.isValid();
            each.delete();
            return isValid ? 1 : 0;
        }));
        java.lang.ref.Reference.reachabilityFence(helper);
    }
}
