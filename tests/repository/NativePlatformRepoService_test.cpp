#include "platform/NativePlatformRepoService.h"

#include <gmock/gmock.h>

#include "kit/Cases.h"
#include "kit/Repository.h"
#include "text/HSTStringUtils.h"

namespace {

using teq::platform::NativePlatformRepoService;
using Names = std::vector<std::string>;

void make(const Scratch& scratch, const std::string& entry) {
    if (const auto arrow = entry.find("->"); arrow != std::string::npos)
        std::filesystem::create_symlink(entry.substr(arrow + 2), scratch / entry.substr(0, arrow));
    else if (entry.ends_with('/'))
        std::filesystem::create_directories(scratch / entry);
    else
        scratch.put(entry, "");
}

/// The answer to a case, without the directory of the test, sorted within each searched directory.
std::string found(const std::string&, const std::string& text) {
    const Scratch scratch;
    const Names words = HSTStringUtils::split(HSTStringUtils::trim(text), ' ');
    const auto mark = std::find(words.begin(), words.end(), "?");
    for (auto entry = words.begin(); entry != mark; ++entry) make(scratch, *entry);
    const std::string name = mark[1] == "-"                           ? ""
                             : mark[1].find('/') == std::string::npos ? mark[1]
                                                                      : scratch / mark[1];
    Names files;
    for (auto dir = mark + 2; dir != words.end(); ++dir) {
        const auto before = static_cast<std::ptrdiff_t>(files.size());
        NativePlatformRepoService().getZdfFiles(name, Names{scratch / *dir}, false, files);
        std::sort(files.begin() + before, files.end());
        if (name.find('/') != std::string::npos) break;
    }
    return without(scratch, HSTStringUtils::join(files, " "));
}

}  // namespace

TEST(NativePlatformRepoService, FindsDescriptors) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/repository/search.case", found);
}

TEST(NativePlatformRepoService, SearchPathHasEachDirectoryOnce) {
    const Scratch scratch;
    const AppRoots roots({scratch / "none", scratch / "root"});
    const std::string platforms = std::filesystem::path(scratch.put("root/platforms/p.zdf", "")).parent_path();
    std::filesystem::create_symlink("root/platforms", scratch / "l");
    const NativePlatformRepoService service;
    Names defaults;
    service.getDefaultPlatformLookupDirs(defaults);
    EXPECT_EQ(defaults.back(), platforms);
    EXPECT_EQ(service.getPlatformRepoPath({}, false), "");
    EXPECT_EQ(service.getPlatformRepoPath({scratch / "root", scratch / "l", scratch / "none", platforms}, true),
              scratch / "root" + ":" + platforms);
    Names files;
    service.getZdfFiles("p", Names{}, false, files);
    EXPECT_EQ(files, Names());
    service.getZdfFiles("p", {scratch / "root"}, true, files);
    EXPECT_EQ(files, (Names{scratch / "root/platforms/p.zdf"}));  // by both ways the same path
    service.getZdfFiles("p", scratch / "none" + ":" + scratch / "l", files);
    EXPECT_EQ(files, (Names{scratch / "root/platforms/p.zdf"}));  // the link has been resolved
}
