import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.TreeSet;
import java.util.concurrent.Callable;
import java.util.regex.MatchResult;
import java.util.regex.Pattern;
import ui.data.platform.platform;

/** Calls the native functions by reflection, as tests/cases/jvm/calls.txt says; that file describes its form. */
final class Calls {
    private static final String NOTHING = "no result";
    private static final Pattern TOKEN = Pattern.compile("\"[^\"]*\"|'[^']*'|\\[[^\\]]*\\]|\\S+");
    private static final Pattern CLASS = Pattern.compile("\\[(\\w+)(?: (\\w+): (.*))?\\]");
    private static final Pattern LINE =
            Pattern.compile("(?:(\\w+) = )?(\\w+)((?: (?:" + TOKEN + "))*?)(?: ->(?: (.*)|()))?");

    private final Map<String, Method> functions = new HashMap<>();
    private final Map<String, Long> objects = new HashMap<>(Map.of("null", 0L));
    private final Map<String, String> classes = new HashMap<>();
    private final TreeSet<String> called = new TreeSet<>(), nullTexts = new TreeSet<>();
    private final List<String> documented;
    private final String samples, scratch;
    private String type, object, cppType;
    /** What the current call changes beside its result. */
    private final List<Callable<String>> outputs = new ArrayList<>();

    Calls(Path cases, Path list, String samples, String scratch) throws Exception {
        this.samples = samples;
        this.scratch = scratch;
        documented = Files.readAllLines(cases.resolve("null.txt"));
        for (Class<?> owner : List.of(platform.class, Hooks.class)) {
            for (Method method : owner.getDeclaredMethods()) {
                method.setAccessible(true);
                functions.put((owner == Hooks.class ? "hook_" : "") + method.getName(), method);
            }
        }
        int number = 0;
        for (String line : Files.readAllLines(cases.resolve("calls.txt"))) {
            number++;
            if (!line.isBlank() && !line.startsWith("#")) {
                read("calls.txt:" + number + ": " + line, line);
            }
        }
        Checks.check("texts of null references", new TreeSet<>(documented).toString(), nullTexts::toString);
        // The one without a call never returns.
        Checks.check("functions without a call", "[JSONListWriter_addItem__SWIG_3]", 
                () -> Files.readAllLines(list).stream().filter(line -> line.startsWith("  ")).map(String::trim)
                        .filter(name -> !called.contains(name)).toList());
    }

    private void read(String where, String line) throws Exception {
        var parts = CLASS.matcher(line);
        if (parts.matches()) {
            type = parts.group(1);
            object = parts.group(2);
            cppType = parts.group(3);
            return;
        }
        parts = LINE.matcher(line);
        if (!parts.matches()) {
            throw new IllegalArgumentException(where);
        }
        boolean isWhole = parts.group(2).matches("(new|delete|hook)_.*");
        String name = (isWhole ? "" : type + "_") + parts.group(2), made = parts.group(1);
        Method function = functions.get(name);
        if (function == null) {
            throw new IllegalArgumentException(where + ": there is no " + name);
        }
        var tokens = new ArrayList<>(TOKEN.matcher(parts.group(3)).results().map(MatchResult::group).toList());
        Class<?>[] types = function.getParameterTypes();
        if (name.endsWith("_SWIGUpcast")) {
            tokens.add("~" + object);
        } else if (types.length > 1 && types[1].getSimpleName().equals(type) && !isWhole) {
            tokens.add(0, object);
        }
        if (name.startsWith("new_") && made != null) {
            classes.put(made, name.replaceFirst("new_", ""));
        }
        called.add(name);
        for (int i = 0; i < tokens.size() && !name.startsWith("hook_"); i++) {
            if (tokens.get(i).matches("(?!true$|false$)[\"'\\[&?#a-z].*")) {
                var withNull = new ArrayList<>(tokens);
                withNull.set(i, "null");
                Checks.check(where + " (null for " + tokens.get(i) + ")", "a documented text",
                        () -> textOfNull(function, withNull));
            }
        }
        String expected = parts.group(4) != null ? filledIn(parts.group(4)) : parts.group(5) != null ? "" : NOTHING;
        Checks.check(where, expected, () -> described(call(function, tokens), made, expected));
    }

    private String textOfNull(Method function, List<String> tokens) throws Exception {
        try {
            return "the result " + call(function, tokens);
        } catch (InvocationTargetException e) {
            String text = e.getCause().getMessage();
            if (documented.contains(text)) {
                nullTexts.add(text);
            }
            boolean isKnown = documented.contains(text) || (cppType + " & reference is null").equals(text);
            return isKnown && e.getCause() instanceof NullPointerException ? "a documented text" : "" + e.getCause();
        }
    }

    private Object call(Method function, List<String> tokens) throws Exception {
        Class<?>[] types = function.getParameterTypes();
        var arguments = new Object[types.length];
        outputs.clear();
        int at = 0;
        for (String token : tokens) {
            arguments[at] = argument(token, types[at]);
            boolean hasProxy = at + 1 < types.length && types[at + 1].getName().startsWith("ui.data");
            at += hasProxy ? 2 : 1;
        }
        if (at != types.length) {
            throw new IllegalArgumentException("takes " + Arrays.toString(types));
        }
        Object result = function.invoke(null, arguments);
        return function.getReturnType() == void.class ? NOTHING : result;
    }

    private Object argument(String token, Class<?> type) throws Exception {
        String rest = token.substring(1);
        if (type == String.class) {
            return token.equals("null") ? null : filledIn(rest.substring(0, rest.length() - 1));
        } else if (type == boolean.class) {
            return Boolean.valueOf(token);
        } else if (type == int.class) {
            return Integer.valueOf(token);
        } else if (token.matches("\\d+")) {
            return Long.valueOf(token);
        }
        switch (token.charAt(0)) {
            case '&':
                return Hooks.cell(Integer.parseUnsignedInt(rest));
            case '?':
                outputs.add(() -> "" + (Hooks.cellValue() != 0));
                return Hooks.cell(0);
            case '#':
                outputs.add(() -> sizeOfCleared(rest));
                return objects.get(rest);
            case '[':
                long texts = platform.new_StringVector();
                if (rest.equals("]")) {
                    outputs.add(() -> contents(texts));
                    return texts;
                }
                for (String text : rest.substring(0, rest.length() - 1).split(", ")) {
                    platform.StringVector_push_back(texts, null, filledIn(text));
                }
                return texts;
            default:
                return objects.get(token.replace("~", ""));
        }
    }

    private String sizeOfCleared(String name) throws Exception {
        Object size = functions.get(classes.get(name) + "_size").invoke(null, objects.get(name), null);
        functions.get(classes.get(name) + "_clear").invoke(null, objects.get(name), null);
        return "" + size;
    }

    private static String contents(long texts) throws Exception {
        var list = new ArrayList<String>();
        long each = platform.StringVector_createIter(texts, null);
        while (platform.StringIter_hasNext(each, null)) {
            list.add(platform.StringIter_next(each, null));
        }
        platform.delete_StringIter(each);
        platform.delete_StringVector(texts);
        return "" + list;
    }

    private String filledIn(String text) {
        return text.replace("{samples}", samples).replace("{scratch}", scratch);
    }

    /** The result as a text, and after it what the call has changed. `made` is the name that the line gives it. */
    private String described(Object result, String made, String expected) throws Exception {
        String text = "" + result;
        if (made != null) {
            objects.put(made, (Long) result);
            text = result.equals(0L) ? "null" : NOTHING;
        } else if (result instanceof Long handle) {
            boolean isObject = expected.startsWith("an object") && handle >>> 16 != 0;
            text = isObject ? "an object" : handle.equals(objects.get(expected)) ? expected : text;
        }
        var all = new ArrayList<>(text.equals(NOTHING) && !outputs.isEmpty() ? List.of() : List.of(text));
        for (var output : outputs) {
            all.add(output.call());
        }
        return String.join(" ", all);
    }
}
