// Strange hosts: whatever a process has set for itself, the documents are the same.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "kit/Run.h"
#include "kit/Scratch.h"
#include "kit/ZipBuilder.h"

namespace fs = std::filesystem;

namespace {

/// The samples, and a platform that has something for the temporary directory.
const std::vector<std::string>& platforms() {
    static const Scratch scratch;
    static const std::vector<std::string> files = [] {
        builder::Zip project, zip;
        project.entries = {
            builder::Entry("tilarchive/arch/til_partition.json", R"({"TIL": {"t": {"numColumns": 1}}})")};
        zip.entries = {
            builder::Entry("lfa.json", R"({"name": "n", "versionMajor": 1234567, "expandablePlatform": false,
                "memories": [{"name": "m", "lowAddress": "1234567890", "size": "1.5 GB"}],
                "featureRoms": [{"timeSinceEpoch": 1700000000, "uuid": "00112233-4455-6677-8899-AABBccddeeff"}],
                "files": [{"type": "TILPRJ", "name": "prj/x.tilprj"}, {"type": "BOARD_REPO_PATH", "name": "repo"}]})"),
            builder::Entry("prj/x.tilprj", project.build(), true), builder::Entry("repo/board.xml", "<b/>")};
        std::vector<std::string> result{scratch.put("x.lfa", zip.build())};
        for (const auto& entry : fs::recursive_directory_iterator(ZR_SAMPLES)) {
            const std::string extension = entry.path().extension();
            if (entry.is_regular_file() && (extension == ".zdf" || extension == ".spfm" || extension == ".lfa"))
                result.push_back(entry.path());
        }
        return result;
    }();
    return files;
}

/// What the host says of a platform; a failure is the host's exit code.
std::string heard(const std::string& platform, const std::vector<std::string>& settings,
                  const std::vector<std::pair<std::string, std::string>>& environment = {}) {
    const Scratch scratch;
    std::vector<std::string> command{ZR_HOST, scratch / "out", platform};
    command.insert(command.end(), settings.begin(), settings.end());
    const Result result = run(command, ".", environment);
    EXPECT_EQ(result.exit, 0) << platform << " " << testing::PrintToString(settings) << result.err;
    return contentOf(scratch / "out");
}

void expectTheSame(const std::vector<std::string>& settings,
                   const std::vector<std::pair<std::string, std::string>>& environment = {}) {
    static const std::map<std::string, std::string> plain = [] {
        std::map<std::string, std::string> texts;
        for (const std::string& platform : platforms()) texts[platform] = heard(platform, {});
        return texts;
    }();
    ASSERT_GT(plain.size(), 3U);
    EXPECT_NE(plain.at(platforms()[0]).find("partitions 1\nrepository yes\n"), std::string::npos);
    for (const auto& [platform, text] : plain) EXPECT_EQ(heard(platform, settings, environment), text) << platform;
}

}  // namespace

TEST(Hosts, Locales) {
    const Scratch scratch;
    for (const std::string name : {"de_DE", "tr_TR", "fr_CH", "hi_IN", "fa_IR"}) {
        SCOPED_TRACE(name);
        const std::string full = name + ".UTF-8";
        ASSERT_EQ(run({"localedef", "-i", name, "-f", "UTF-8", scratch / full}).exit, 0) << "package locales";
        expectTheSame({"locale=" + full}, {{"LOCPATH", scratch.str()}});
    }
}

TEST(Hosts, SettingsOfTheProcess) {
    for (const char* setting : {"umask=077", "umask=000", "closed", "files=32", "memory=512", "fork"}) {
        SCOPED_TRACE(setting);
        expectTheSame({setting});
    }
}

/// Without a temporary directory only what must be unpacked there is missing.
TEST(Hosts, NoTemporaryDirectory) {
    const Scratch scratch;
    fs::create_directory(scratch / "closed");
    const std::string plain = heard(platforms()[0], {});
    const std::string document = plain.substr(0, plain.find("partitions "));
    const struct {
        std::string directory;
        std::vector<std::string> settings;
    } cases[] = {{"/nowhere/at/all", {}}, {"/proc/self", {}}, {scratch / "closed", {"disk=0"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.directory);
        const std::string text = heard(platforms()[0], c.settings, {{"TMPDIR", c.directory}});
        EXPECT_TRUE(text.starts_with(document)) << text;
        EXPECT_TRUE(text.ends_with("repository no\n")) << text;
    }
    EXPECT_TRUE(fs::is_empty(scratch / "closed"));
}

TEST(Hosts, TheTemporaryDirectoryIsGoneAfterwardsAndPrivate) {
    for (const char* const mask : {"umask=077", "umask=000"}) {
        const Scratch scratch;
        heard(platforms()[0], {mask, "fork"}, {{"TMPDIR", scratch.str()}});
        EXPECT_TRUE(fs::is_empty(scratch.str())) << mask;
    }
}

TEST(Hosts, CopiesOfTheLibrariesItUses) {
    for (const std::string& platform : platforms()) {
        const Result result = run({ZR_OWN_COPIES, ZR_LIBRARY, platform});
        EXPECT_EQ(result.exit, 0) << platform << result.err;
        const std::string text = heard(platform, {});
        EXPECT_EQ(result.out, text.substr(0, text.find("partitions "))) << platform;
    }
}
