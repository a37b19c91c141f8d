import java.lang.reflect.Method;
import java.nio.file.Path;
import java.util.Arrays;
import ui.data.platform.*;

/** usage: BindingTest LIBRARY HOOKS CASES LIST SAMPLES SCRATCH. Exits with 1 after any difference. */
public final class BindingTest {
    /** What a text becomes in the library, in hexadecimal digits, and in Java again. */
    private static String through(String text) throws Exception {
        var vector = new StringVector();
        vector.push_back(text);
        Method handle = StringVector.class.getDeclaredMethod("getCPtr", StringVector.class);
        handle.setAccessible(true);
        String bytes = Hooks.bytesOf((Long) handle.invoke(null, vector));
        String result = vector.createIter().next();
        return bytes.length() < 100 ? bytes + " " + result : bytes.length() / 2 + " " + result.length();
    }

    private static void strings() {
        Checks.check("empty", " ", () -> through(""));
        Checks.check("two bytes, and a zero", "c3a90078 \u00e9\0x", () -> through("\u00e9\0x"));
        Checks.check("three bytes", "e282ac \u20ac", () -> through("\u20ac"));
        Checks.check("four bytes; only the lower 16 bits return", "f09f9880 \uf600", () -> through("\ud83d\ude00"));
        Checks.check("lower 16 bits that are zero, or a surrogate", "f0a08080f09da0bd \0\ud83d",
                () -> through("\ud840\udc00\ud836\udc3d"));
        Checks.check("surrogates without their partner", "efbfbd78efbfbd \ufffdx\ufffd",
                () -> through("\ude00x\ud83d"));
        Checks.check("surrogates in the wrong order", "efbfbdefbfbd \ufffd\ufffd", () -> through("\ude00\ud83d"));
        Checks.check("a megabyte of ASCII", "1048576 1048576", () -> through("x".repeat(1 << 20)));
        Checks.check("a megabyte of units", "3145728 1048576", () -> through("\u20ac".repeat(1 << 20)));
        Checks.check("all units", "true", () -> {
            var all = new StringBuilder();
            for (char c = 0; c < 0xd800; c++) {
                all.append(c);
            }
            var vector = new StringVector();
            vector.push_back(all.toString());
            return vector.createIter().next().equals(all.toString());
        });
        Checks.check("null", "java.lang.NullPointerException: null std::string", () -> through(null));
    }

    private static void enumerations(TEQHardwarePlatform hardware) {
        Checks.check("kinds of files", "true 72", () -> {
            boolean same = true;
            for (var type : TEQPfmFileTypes.FileType.values()) {
                same &= hardware.getFile(type).equals(hardware.getFile(type.name()));
            }
            return same + " " + TEQPfmFileTypes.FileType.values().length;
        });
        Checks.check("metadata", "[Default, PrimaryJsonOnly, XmlOnly]",
                () -> Arrays.toString(PlatformLoader.HwMetadataMode.values()));
        Checks.check("a mode", "{...", () -> new NativeObjectService(PlatformLoader.HwMetadataMode.PrimaryJsonOnly)
                .getAsJsonStr(hardware.getPlatformFile()));
        Checks.check("design intents", "1248", () -> Arrays.stream(TEQDesignIntentStorage.Key.values())
                .map(key -> "" + key.swigValue()).reduce("", String::concat));
        Checks.check("a state", "impl", hardware::getState);
        Checks.check("null", "...: Attempt to dereference null HTEQDesignIntentStorage::Key", () -> {
            hardware.setExplicitDesignIntent(null, true);
            return "";
        });
    }

    private static void proxies(String descriptor) throws Exception {
        var helper = new TEQPlatformEngineHelper(descriptor, new StringVector(), new StringVector());
        TEQPlatform platform = helper.getPlatform();
        enumerations(platform.getHardwarePlatform());
        Checks.check("a value by its address", 4000000000L, () -> {
            var tiles = new HTEQTilHardware();
            tiles.setNpiBaseAddress(4000000000L);
            return tiles.getNpiBaseAddress();
        });
        Checks.check("a Boolean that is set", "7 true", () -> {
            boolean[] found = {false};
            return new NativeObjectService().getObjectsByPath("{\"a\":7}", "a", found) + " " + found[0];
        });
        var partition = new HTEQReconfigurablePartition(7);
        Checks.check("a partition that is given away", 7L, () -> {
            platform.addReconfigurablePartition(partition);
            return platform.getReconfigurablePartition(7).getID();
        });
        Checks.check("its proxy", "java.lang.NullPointerException: HTEQReconfigurablePartition & reference is null",
                partition::getID);
        Checks.check("given away twice", "java.lang.RuntimeException: Cannot release ownership...", () -> {
            platform.addReconfigurablePartition(partition);
            return "";
        });
        Checks.check("use after delete", "...NullPointerException: HTEQProcessorGroup & reference is null", () -> {
            var group = new TEQProcessorGroup();
            group.delete();
            group.delete();
            return group.getOSName();
        });
        Checks.check("what the helper owns, after delete", "torvane", () -> {
            platform.delete();
            return helper.getPlatform().getVendor();
        });
        java.lang.ref.Reference.reachabilityFence(helper);
    }

    public static void main(String[] arguments) throws Exception {
        System.load(arguments[0]);
        System.load(arguments[1]);
        strings();
        proxies(arguments[4] + "/u77/u77_gen3x16_base_1.zdf");
        new Calls(Path.of(arguments[2]), Path.of(arguments[3]), arguments[4], arguments[5]);
        Checks.exit();
    }
}
