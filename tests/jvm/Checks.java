import java.lang.reflect.InvocationTargetException;
import java.util.Arrays;
import java.util.regex.Pattern;
import java.util.stream.Collectors;

/** Compares texts, and counts the differences. */
final class Checks {
    interface Call {
        Object run() throws Throwable;
    }

    private static int failures;

    /** The result of the call, or the exception that it throws, as a text; "..." stands for any text. */
    static void check(String what, Object expected, Call call) {
        String got;
        try {
            got = "" + call.run();
        } catch (Throwable e) {
            got = "" + (e instanceof InvocationTargetException ? e.getCause() : e);
        }
        String pattern = Arrays.stream((expected + "").split("\\.\\.\\.", -1)).map(Pattern::quote)
                .collect(Collectors.joining(".*"));
        if (!Pattern.compile(pattern, Pattern.DOTALL).matcher(got).matches()) {
            System.out.println(what + "\n  expected " + expected + "\n  got      " + got);
            failures++;
        }
    }

    static void exit() {
        System.exit(failures == 0 ? 0 : 1);
    }
}
