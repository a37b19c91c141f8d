import ui.data.platform.*;

/** usage: Describe REPOSITORY PLATFORM. Lists a repository, and describes one platform: a file, or a name found there. */
public final class Describe {
    public static void main(String[] arguments) throws Exception {
        System.loadLibrary("zr_platform");
        var directories = new StringVector();
        directories.push_back(arguments[0]);

        var registry = new TEQPlatformMgr();
        registry.addPlatformsFromDirs(directories);
        for (var all = registry.createPlatformIter(); all.hasNext();) {
            System.out.println("in the repository: " + all.next().getPlatformBaseName());
        }

        // The helper owns what its platform hands out, so it must be reachable as long as that is used.
        var helper = new TEQPlatformEngineHelper(arguments[1], directories, new StringVector());
        if (!helper.isValid()) {
            throw new IllegalArgumentException("cannot load " + arguments[1]);
        }
        var clocks = new TEQSystemClockVec();
        helper.getPlatform().getHardwarePlatform().getSystemClocks(clocks);
        for (var each = clocks.createIter(); each.hasNext();) {
            TEQSystemClock clock = each.next();
            System.out.println("clock " + clock.getName() + ": " + clock.getFrequency() + " MHz");
        }
        var memories = new StringVector();
        helper.getUniqueMemoryTypeStrings(memories);
        for (var each = memories.createIter(); each.hasNext();) {
            String type = each.next();
            System.out.println("memory " + type + ": " + helper.getMemoryTypeCount(type) + " banks");
        }
        String file = helper.getPlatformFile();
        System.out.println("warranty: " + new NativeCatalogService().getValue(file, "warranty"));
        java.lang.ref.Reference.reachabilityFence(helper);
    }
}
