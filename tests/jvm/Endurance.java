import java.util.ArrayList;
import java.util.Collections;
import java.util.Random;
import java.util.concurrent.Callable;
import java.util.concurrent.Executors;
import ui.data.platform.*;

/** usage: Endurance LIBRARY HOOKS DESCRIPTOR PAIRS LOADS. Native memory after many calls, and threads. */
public final class Endurance {
    private static final long ALLOWED = 1 << 20;

    private interface Step {
        void run() throws Exception;
    }

    /** Runs the step so many times. From a tenth of them on, native memory grows by at most a megabyte. */
    private static void flat(String what, int times, Step step) throws Exception {
        long before = 0;
        for (int i = 0; i < times; i++) {
            if (i == times / 10) {
                before = Hooks.allocated();
            }
            step.run();
        }
        long grown = Hooks.allocated() - before;
        System.out.println(what + ", " + times + " times: " + grown + " bytes more");
        Checks.check(what, true, () -> grown <= ALLOWED);
    }

    private static void pair() throws Exception {
        var texts = new StringVector();
        texts.push_back("a text that does not fit into the string itself");
        var each = texts.createIter();
        each.next();
        each.delete();
        texts.delete();
    }

    private static void load(String descriptor, StringVector none) throws Exception {
        var helper = new TEQPlatformEngineHelper(descriptor, none, none);
        if (helper.getPlatform().getHardwarePlatform().getDefaultClock().getName().isEmpty()) {
            throw new IllegalStateException();
        }
        helper.delete();
    }

    /** Proxies of all kinds become unreachable in a random order; owners are not kept for what they own. */
    private static void collect(String descriptor, StringVector none) throws Exception {
        var proxies = new ArrayList<Object>();
        for (int i = 0; i < 50; i++) {
            var helper = new TEQPlatformEngineHelper(descriptor, none, none);
            var clocks = new TEQSystemClockVec();
            helper.getPlatform().getHardwarePlatform().getSystemClocks(clocks);
            Collections.addAll(proxies, helper, helper.getPlatform(), clocks, clocks.createIter(), new TEQBootImg());
        }
        Collections.shuffle(proxies, new Random(7));
        while (!proxies.isEmpty()) {
            proxies.subList(0, 50).clear();
            System.gc();
            System.runFinalization();
        }
    }

    private static void threads(String descriptor, int loads) throws Exception {
        String expected = new NativeObjectService().getAsJsonStr(descriptor);
        Callable<Boolean> thread = () -> {
            boolean isRight = true;
            var none = new StringVector();
            for (int i = 0; i < loads; i++) {
                load(descriptor, none);
                isRight &= new NativeObjectService().getAsJsonStr(descriptor).equals(expected);
            }
            return isRight;
        };
        var pool = Executors.newFixedThreadPool(4);
        for (var result : pool.invokeAll(Collections.nCopies(4, thread))) {
            Checks.check("one of four threads", true, result::get);
        }
        pool.shutdown();
    }

    public static void main(String[] arguments) throws Exception {
        System.load(arguments[0]);
        System.load(arguments[1]);
        String descriptor = arguments[2];
        int pairs = Integer.parseInt(arguments[3]), loads = Integer.parseInt(arguments[4]);
        var none = new StringVector();
        flat("vectors and iterators", pairs, Endurance::pair);
        flat("loads", loads, () -> load(descriptor, none));
        flat("collections", 10, () -> collect(descriptor, none));
        threads(descriptor, loads / 20);
        Checks.exit();
    }
}
