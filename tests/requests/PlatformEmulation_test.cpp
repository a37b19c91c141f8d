#include "platform/PlatformEmulation.h"

#include <gtest/gtest.h>

#include "kit/Capture.h"
#include "kit/EmulationWork.h"
#include "platform/RequestFailure.h"
#include "util/HUTEnv.h"

namespace fs = std::filesystem;
namespace requests = teq_platform::requests;

namespace {

/// A directory of another user, with scripts and an archive under the names that the build uses.
void putTheirs(const Scratch& scratch) {
    const std::string script = "close [open " + scratch / "PWNED" + " w]";
    for (const char* name : {"work/emu_update_cfa.tcl", "work/hw_emu_prop/hw_emu_prop.tcl", "harrier.cfa"})
        scratch.put("theirs/" + std::string(name), script);
}

std::string filesOf(const std::string& folder) {
    std::string files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files += entry.path().lexically_relative(folder).native() + contentOf(entry.path());
    return files;
}

}  // namespace

/// Another user replaces the temporary directory.
TEST(Emulation, UsesTheDirectoryThatItHasMade) {
    for (const std::string step :
         {"copying", "writing the prop", "writing the driver", "evaluating", "merging", "writing '"}) {
        const Work work;
        const Capture capture;
        putTheirs(work);
        const std::string theirs = filesOf(work / "theirs");
        fs::create_directory(work / "tmp");
        HUTEnv::setJUNTmpDir(work / "tmp");
        fs::path path;
        const auto swap = [&](const std::string& reported) {
            if (!reported.starts_with(step)) return;
            path = fs::directory_iterator(work / "tmp")->path();
            fs::rename(path, work / "away");
            fs::rename(work / "theirs", path);
        };
        std::string failure;
        try {
            requests::emulate({.archive = work.archive,
                               .name = "memss",
                               .destination = work / "out.cfa",
                               .installation = kInstallation,
                               .keep = {},
                               .report = swap});
        } catch (const HEXUserException& e) {
            failure = e.what();
        }
        HUTEnv::setJUNTmpDir("");
        EXPECT_EQ(filesOf(path), theirs) << step;
        EXPECT_FALSE(fs::exists(work / "PWNED")) << step;
        EXPECT_EQ(failure.empty(), step == "writing '") << step << failure;
        EXPECT_EQ(failure.empty(),
                  fs::exists(work / "out.cfa") && HUTZip::containsFile(work / "out.cfa", "emu/emu.bd"));
        EXPECT_TRUE(fs::is_empty(work / "away")) << step;
    }
}

TEST(Failure, OfTheFileSystemIsOneOfTheEnvironment) {
    teq_platform::Failure failure;
    try {
        fs::create_directory("/proc/none");
    } catch (...) {
        failure = teq_platform::currentFailure("file");
    }
    EXPECT_EQ(failure.kind, teq_platform::FailureKind::environment);
    EXPECT_EQ(failure.diagnostic.report("error"), "/proc/none: error: No such file or directory");
}
