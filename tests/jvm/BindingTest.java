import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.util.Map;
import java.util.TreeMap;
import ui.data.platform.*;

/** usage: BindingTest LIBRARY DESCRIPTOR. The binding in a real JVM; exits with 1 after any difference. */
public final class BindingTest {
    private static int failures;

    private interface Call {
        Object run() throws Throwable;
    }

    private static void check(String what, Object expected, Call call) {
        Object got;
        try {
            got = call.run();
        } catch (Throwable e) {
            Throwable cause = e instanceof InvocationTargetException ? e.getCause() : e;
            got = cause.getClass().getSimpleName() + ": " + cause.getMessage();
        }
        if (!expected.equals(got)) {
            System.out.println(what + ": expected " + expected + ", got " + got);
            failures++;
        }
    }

    private static String afterVector(String text) throws Exception {
        var vector = new StringVector();
        vector.push_back(text);
        var texts = vector.createIter();
        String result = texts.hasNext() + " " + texts.next() + " " + texts.hasNext();
        vector.delete();
        return result;
    }

    /** Every function with zero and null in each position that is a reference: the documented exception or a result. */
    private static void callWithNulls() throws Exception {
        var thrown = new TreeMap<String, Integer>();
        for (Method method : platform.class.getDeclaredMethods()) {
            // A null name, with which the registry of the process would be filled, is reported; these take none.
            if (method.getName().matches("TEQPlatformMgr_getGlobal.*|.*_SWIGUpcast|delete_.*")) {
                continue;
            }
            Class<?>[] types = method.getParameterTypes();
            if (types.length == 0 || types.length == 1 && types[0] == int.class) {
                continue;
            }
            var arguments = new Object[types.length];
            for (int i = 0; i < types.length; i++) {
                arguments[i] = types[i] == long.class ? (Object) 0L : types[i] == int.class ? (Object) 0
                        : types[i] == boolean.class ? (Object) false : null;
            }
            try {
                method.setAccessible(true);
                method.invoke(null, arguments);
            } catch (InvocationTargetException e) {
                thrown.merge(e.getCause() + "", 1, Integer::sum);
            }
        }
        String bad = thrown.keySet().stream().filter(text -> !text.matches("java.lang.NullPointerException: "
                + "(null (std::string|HSTString)|Attempt to dereference null \\S+|[\\w:<> *]+ & reference is null)"))
                .reduce("", (a, b) -> a + "\n" + b);
        check("exceptions other than those of null references", "", () -> bad);
        Map<String, Integer> functions = Map.of("HTEQHardwarePlatform", 236, "HTEQPlatformHelper", 80, "HTEQPlatform", 73);
        functions.forEach((name, number) -> check(name + " without an object", number,
                () -> thrown.get("java.lang.NullPointerException: " + name + " & reference is null")));
    }

    /** The handle of a proxy, or 0 for null. */
    private static long handle(Class<?> type, Object proxy) throws ReflectiveOperationException {
        Method method = type.getDeclaredMethod("getCPtr", type);
        method.setAccessible(true);
        return (Long) method.invoke(null, proxy);
    }

    /** Every function with sound arguments, except for one reference: a null there is reported, or is a valid pointer. */
    private static void callWithOneNull(Object... sound) throws Exception {
        var wrong = new TreeMap<String, String>();
        int calls = 0;
        for (Method method : platform.class.getDeclaredMethods()) {
            Class<?>[] types = method.getParameterTypes();
            for (int without = 0; without < types.length; without++) {
                boolean proxy = without + 1 < types.length && types[without + 1].getName().startsWith("ui.data");
                if (!proxy && types[without] != String.class || method.getName().startsWith("delete_")) {
                    continue;
                }
                var arguments = new Object[types.length];
                boolean complete = true;
                for (int i = 0; i < types.length; i++) {
                    Class<?> type = types[i], next = i + 1 < types.length ? types[i + 1] : int.class;
                    arguments[i] = type == long.class ? (Object) 0L : type == int.class ? (Object) 0
                            : type == boolean.class ? (Object) false : type == String.class ? "x" : null;
                    if (i != without && type == long.class && next.getName().startsWith("ui.data")) {
                        Object object = java.util.Arrays.stream(sound).filter(next::isInstance).findFirst().orElse(null);
                        complete &= object != null;
                        arguments[i] = handle(next, object);
                    }
                }
                arguments[without] = types[without] == String.class ? null : (Object) 0L;
                if (!complete) {
                    continue;
                }
                calls++;
                try {
                    method.setAccessible(true);
                    method.invoke(null, arguments);
                    if (types[without] == String.class) {
                        wrong.put(method.getName(), "takes null for a text");
                    }
                } catch (InvocationTargetException e) {
                    if (!(e.getCause() instanceof NullPointerException)) {
                        wrong.put(method.getName(), e.getCause() + "");
                    }
                }
            }
        }
        check("a null among sound arguments", "{}", wrong::toString);
        if (calls < 700) {
            check("calls with a null among sound arguments", "700 at least", Integer.valueOf(calls)::toString);
        }
    }

    private static void strings() {
        check("empty", "true  false", () -> afterVector(""));
        check("two bytes and a zero", "true \u00e9\0x false", () -> afterVector("\u00e9\0x"));
        check("three bytes", "true \u20ac false", () -> afterVector("\u20ac"));
        check("above U+FFFF: the lower 16 bits", "true \uf600 false", () -> afterVector("\ud83d\ude00"));
        check("a lone surrogate", "true \ufffdx\ufffd false", () -> afterVector("\ude00x\ud83d"));
        check("a megabyte", 1 << 20, () -> afterVector("\u20ac".repeat(1 << 20)).length() - "true  false".length());
        check("null", "NullPointerException: null std::string", () -> afterVector(null));
    }

    private static void exceptions() {
        check("the library's own exception",
                "CommandFailedException: HTEQTilHardware::setArch() - Invalid til architecture specified: no", () -> {
                    new HTEQTilHardware().setArch("no");
                    return "";
                });
        check("another", "CommandFailedException: Could not find specified file: 'missing.hdf'on disk.",
                () -> new HDFToCFAConverter("missing.hdf", ".", "x.lfa"));
        check("a standard exception", "CommandFailedException: the iterator has no further element",
                () -> new StringVector().createIter().next());
        check("a list", "NullPointerException: HTEQPlatformMgr::StringVector const & reference is null", () -> {
            new TEQPlatformMgr().addPlatformsFromDirs(null);
            return "";
        });
        check("an enumeration", "NullPointerException: Attempt to dereference null teq_platform::PlatformLoader::"
                + "HwMetadataMode", () -> new NativeObjectService(null));
        check("a Boolean", "NullPointerException: bool & reference is null",
                () -> new NativeObjectService(0).getObjectsByPath("{}", "a", null));
        check("a number", "NullPointerException: Attempt to dereference null uint32_t", () -> {
            new HTEQTilHardware().setNpiBaseAddress(null);
            return "";
        });
    }

    private static void objects(String descriptor) {
        check("a value by its address", 4000000000L, () -> {
            var tiles = new HTEQTilHardware();
            tiles.setNpiBaseAddress(4000000000L);
            return tiles.getNpiBaseAddress();
        });
        check("a Boolean that is set", "7 true", () -> {
            boolean[] found = {false};
            return new NativeObjectService().getObjectsByPath("{\"a\":7}", "a", found) + " " + found[0];
        });
        check("an object of the base class", "Linux", () -> {
            var group = new TEQProcessorGroup();
            group.setOSName("Linux");
            String name = group.getOSName();
            group.delete();
            group.delete();
            return name;
        });
        check("an object that is given away", "7 1", () -> {
            var helper = new TEQPlatformEngineHelper(descriptor, new StringVector(), new StringVector());
            var partition = new HTEQReconfigurablePartition(7);
            helper.getPlatform().addReconfigurablePartition(null);
            helper.getPlatform().addReconfigurablePartition(partition);
            var all = new TEQReconfigurablePartitionVec();
            helper.getPlatform().getReconfigurablePartitions(all);
            return helper.getPlatform().getReconfigurablePartition(7).getID() + " " + all.size();
        });
        check("a platform", "true torvane u77_gen3x16_base_1", () -> {
            var helper = new TEQPlatformEngineHelper(descriptor, new StringVector(), new StringVector());
            return helper.isValid() + " " + helper.getVendor() + " " + helper.getPlatformBaseName();
        });
        check("its report", "true", () -> new NativeCatalogService().getValue(descriptor, "warranty"));
    }

    public static void main(String[] arguments) throws Exception {
        System.load(arguments[0]);
        strings();
        exceptions();
        objects(arguments[1]);
        callWithNulls();
        var helper = new TEQPlatformEngineHelper(arguments[1], new StringVector(), new StringVector());
        TEQPlatform loaded = helper.getPlatform();
        callWithOneNull(helper, loaded, loaded.getHardwarePlatform(), new TEQSoftwarePlatform(), new TEQSystemConfig(),
                new TEQProcessorGroup(), new TEQBootImg(), new TEQSystemClock(), new HTEQTilHardware(),
                new HTEQReconfigurablePartition(1), new TEQPlatformMgr(), new NativeCatalogService(),
                new NativeObjectService(), new StringVector(), new TEQPlatformVector(), new TEQHardwarePlatformVector(),
                new TEQSoftwarePlatformVector(), new TEQSystemConfigVec(), new TEQSystemClockVec(),
                new TEQProcessorGroupVec(), new TEQBootImgVec(), new TEQReconfigurablePartitionVec(),
                new StringVector().createIter());
        java.lang.ref.Reference.reachabilityFence(helper);
        System.exit(failures == 0 ? 0 : 1);
    }
}
