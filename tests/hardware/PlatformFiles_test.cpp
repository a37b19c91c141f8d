#include "hardware/PlatformFiles.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <boost/property_tree/json_parser.hpp>
#include <filesystem>
#include <map>

#include "hardware/Documents.h"
#include "hwdb/HHSMHardwareDb.h"
#include "kit/Files.h"
#include "platform/HPLPlatform.h"
#include "platform/PlatformTilprjFileExtractor.h"
#include "util/HUTEnv.h"
#include "zip/HUTZip.h"

namespace fs = std::filesystem;

namespace {

using Files = std::map<std::string, std::string>;

/// A platform whose archive is packed from texts, in a directory of its own.
class PlatformFiles : public testing::Test {
protected:
    PlatformFiles() { fs::create_directories(directory_ + "/out"); }
    ~PlatformFiles() override { fs::remove_all(directory_); }

    /// A folder in it whose name ends in ".tilprj" becomes an archive.
    void pack(const Files& files) {
        const std::string folder = directory_ + "/folder";
        for (const auto& [name, text] : files) write(folder + "/" + name, text);
        HUTZip::compressDir(folder, archive_);
        platform_.setPlatformFile(archive_);
    }

    /// What `extract`, asked to write "out/<n>/copy", has written; "-" when it answered false and left nothing.
    template <class Extract>
    std::string copied(Extract extract) {
        const std::string below = directory_ + "/out/" + std::to_string(++copies_), copy = below + "/copy";
        return extract(copy) ? contentOf(copy) : fs::exists(copy) ? "left behind" : "-";
    }

    const std::string directory_ = HUTEnv::getJUNTmpDir() + "/platform_files";
    const std::string archive_ = directory_ + "/p.lfa";
    HPLPlatform platform_;
    int copies_ = 0;
};

const Files kProject = {
    {"til/a.tilprj/tilarchive/morwen/logical_arch_til.larch", "nested larch"},
    {"til/a.tilprj/tilarchive/morwen/tilprj_meta_data.json",
     R"({"MetaData": [{"name": "OTHER", "value": "1"}, {"name": "TIL_PL_INTF_ID_STR", "value": "77"}]})"},
    {"til/a.tilprj/tilarchive/arch/til_partition.json", R"({"TIL": {"til_0": {"numColumns": "4"}}})"},
    {"old/logical.larch", "old larch"},
};

}  // namespace

TEST_F(PlatformFiles, CopiesByMemberAndByType) {
    pack({{"a.dcp", "plain"}, {"hw_emu/a.dcp", "emulation"}, {"b.xml", ""}});
    platform_.addFile("dr_bd", "a.dcp");
    platform_.addFile("EMU_XML", "b.xml");
    platform_.addFile("NOC_TRAFFIC", "missing.nts");
    const auto byType = [&](const char* type) {
        return copied([&](const std::string& to) { return platform_.extractFile(type, to); });
    };
    const auto byMember = [&](const char* member) {
        return copied([&](const std::string& to) { return platform_.extractFileFromPlatform(member, to); });
    };
    const auto drBd = [&](const std::string& to) { return platform_.extractDrBdFile(to); };
    EXPECT_EQ(byType("DR_BD"), "plain");
    EXPECT_EQ(byType("EMU_XML"), "");
    EXPECT_EQ(copied(drBd), "plain");
    EXPECT_EQ(byMember("a.dcp"), "plain");
    for (const char* member : {"", "A.dcp", "hw_emu", "../p.lfa"}) EXPECT_EQ(byMember(member), "-") << member;
    const int before = copies_;
    EXPECT_EQ(byType("NOC_TRAFFIC"), "-");
    EXPECT_EQ(byType("TOP_BD"), "-");
    EXPECT_FALSE(fs::exists(directory_ + "/out/" + std::to_string(before + 1)));  // no directory for nothing
    EXPECT_FALSE(platform_.extractFileFromPlatform("a.dcp", ""));
    EXPECT_FALSE(platform_.extractFileFromPlatform("a.dcp", archive_ + "/below a file/copy"));

    platform_.setIsChildHardwareEmuPlatform(true);
    EXPECT_EQ(byMember("a.dcp"), "emulation");
    EXPECT_EQ(copied(drBd), "emulation");
    EXPECT_EQ(byType("DR_BD"), "emulation");
    const PlatformTilprjFileExtractor extractor(platform_);
    EXPECT_EQ(copied([&](const std::string& to) { return extractor.extract("a.dcp", to); }), "emulation");
    EXPECT_EQ(copied([&](const std::string& to) { return extractor.extract("a.dcp", directory_, to); }), "-");
}

TEST_F(PlatformFiles, ArchivesThatCannotBeOpened) {
    write(directory_ + "/no.lfa", "no archive");
    for (const std::string& file : {directory_ + "/missing.lfa", directory_ + "/no.lfa", directory_, std::string()}) {
        SCOPED_TRACE(file);
        platform_.setPlatformFile(file);
        platform_.addFile("META_JSON", "m.json");
        platform_.addFile("TILPRJ", "a.tilprj");
        platform_.addFile("BOARD_REPO_PATH", "repo");
        EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractFileFromPlatform("m.json", to); }),
                  "-");
        EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractTILPRJFile(to); }), "-");
        EXPECT_EQ(platform_.getExtMetaJsonAsString(), "");
        EXPECT_EQ(platform_.getBoardRepo(), "");
        EXPECT_EQ(platform_.getTILPlInterfaceIDAsString(), "");
        EXPECT_EQ(platform_.getHwDb(), nullptr);
        EXPECT_FALSE(platform_.containsChildHardwareEmuPlatform());
    }
}

TEST_F(PlatformFiles, FilesOfTheTileProject) {
    pack(kProject);
    platform_.addFile("TILPRJ", "til/a.tilprj");
    platform_.addFile("ME_LOGICAL_ARCH", "old/logical.larch");
    platform_.addFile("ME_CONSTRAINT", "old/logical.larch");
    EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractLARCHFile(to); }), "nested larch");
    EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractINTFCSTFile(to); }), "old larch");
    EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractINTFSOLFile(to); }), "-");
    EXPECT_EQ(platform_.getTILPlInterfaceIDAsString(), "77");
    for (const char* name : {"/til/a.tilprj", "/tilprj_meta_data.json"})
        EXPECT_FALSE(fs::exists(HUTEnv::getJUNTmpDir() + name)) << name;

    const std::string project = directory_ + "/project";
    EXPECT_TRUE(platform_.extractTILPRJFile(project));
    EXPECT_TRUE(HUTZip::containsFile(project, "tilarchive/morwen/logical_arch_til.larch"));
    write(project, "already there");
    EXPECT_TRUE(platform_.extractTILPRJFile(project));
    EXPECT_EQ(fs::file_size(project), 13u);
}

TEST_F(PlatformFiles, OlderArchivesHaveNoProject) {
    pack(kProject);
    platform_.addFile("ME_LOGICAL_ARCH", "old/logical.larch");
    EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractLARCHFile(to); }), "old larch");
    EXPECT_EQ(copied([&](const std::string& to) { return platform_.extractTILPRJFile(to); }), "-");
    platform_.addFile("ME_ARCHIVE", "til/a.tilprj");
    EXPECT_NE(copied([&](const std::string& to) { return platform_.extractTILPRJFile(to); }), "-");
}

TEST_F(PlatformFiles, TilePartitionsOfAFixedPlatform) {
    pack(kProject);
    platform_.addFile("TILPRJ", "til/a.tilprj");
    EXPECT_FALSE(platform_.hasTilPartitions());  // expandable: never from the archive
    platform_.setExpandable(false);
    EXPECT_EQ(documentOf(platform_).find("tilPartitions"), std::string::npos);
    ASSERT_TRUE(platform_.hasTilPartitions());
    EXPECT_EQ(platform_.findTilPartition("til_0").numColumns(), 4);
    EXPECT_EQ(platform_.getTilPartitions().size(), 1u);  // read once
    EXPECT_FALSE(fs::exists(HUTEnv::getJUNTmpDir() + "/til_partitions.json"));
    EXPECT_EQ(documentOf(platform_).find("tilPartitions"), std::string::npos);
}

TEST_F(PlatformFiles, TilePartitionsThatAreNoJson) {
    pack({{"a.tilprj/tilarchive/arch/til_partition.json", "{"}});
    platform_.addFile("TILPRJ", "a.tilprj");
    platform_.setExpandable(false);
    EXPECT_THROW(platform_.hasTilPartitions(), HEXAlgException);
    EXPECT_FALSE(platform_.hasTilPartitions());
    EXPECT_FALSE(fs::exists(HUTEnv::getJUNTmpDir() + "/til_partitions.json"));
}

TEST_F(PlatformFiles, ExtensionMetadata) {
    pack({{"meta.json", R"({"a": {"b": [1, true]}, "c": null})"},
          {"other.json", R"({"d": "e"})"},
          {"bad.json", "{"},
          {"empty.json", "{}"}});
    const auto extensions = [&] {
        const std::string document = documentOf(platform_);
        const auto begin = document.find(R"("extensions")"), end = document.find(R"(,"uniqueName")");
        return begin == std::string::npos ? std::string() : document.substr(begin, end - begin);
    };
    EXPECT_EQ(extensions(), "");
    platform_.addFile("EXT_META_JSON", "other.json");
    EXPECT_EQ(extensions(), R"("extensions": {"d": "e"})");
    platform_.addFile("META_JSON", "meta.json");
    EXPECT_EQ(extensions(), R"("extensions": {"a": {"b": ["1","true"]},"c": "null"})");
    for (const char* name : {"missing.json", "empty.json"}) {
        platform_.addFile("META_JSON", name);
        EXPECT_EQ(extensions(), "") << name;
    }
    platform_.addFile("META_JSON", "bad.json");
    EXPECT_THROW(documentOf(platform_), boost::property_tree::json_parser_error);
}

TEST_F(PlatformFiles, BoardRepositoryBelowTheTemporaryDirectory) {
    pack({{"repo/board/board.json", "{}"}, {"other/file", ""}});
    EXPECT_EQ(platform_.getBoardRepo(), "");
    platform_.addFile("BOARD_REPO_PATH", "repo");
    EXPECT_EQ(platform_.getBoardRepo(), HUTEnv::getJUNTmpDir() + "/repo");
    EXPECT_TRUE(fs::exists(HUTEnv::getJUNTmpDir() + "/repo/board/board.json"));
    EXPECT_FALSE(fs::exists(HUTEnv::getJUNTmpDir() + "/other"));
    for (const char* name : {"missing", "..", "../..", "/"}) {
        platform_.addFile("BOARD_REPO_PATH", name);
        EXPECT_EQ(platform_.getBoardRepo(), "") << name;
    }
    fs::remove_all(HUTEnv::getJUNTmpDir() + "/repo");
}

TEST_F(PlatformFiles, HardwareDatabase) {
    pack({{"hwdef.xml", R"(<Project top="platform_files_top"/>)"}, {"hw_emu/lfa.json", "{}"}});
    EXPECT_TRUE(platform_.containsChildHardwareEmuPlatform());
    EXPECT_EQ(platform_.getHwDb("platform_files_top"), nullptr);
    EXPECT_EQ(platform_.getHwDbName(), "platform_files_top");
    EXPECT_EQ(platform_.getHwDbName(), "platform_files_top");  // made once
    ASSERT_NE(platform_.getHwDb(), nullptr);
    EXPECT_EQ(platform_.createHwDb("platform_files_top"), platform_.getHwDb());
    const HHSMHardwareDb* further = platform_.createHwDb();
    ASSERT_NE(further, nullptr);
    EXPECT_NE(further->getName(), "platform_files_top");
    platform_.setHwDbName("named");
    EXPECT_EQ(platform_.getHwDbName(), "named");
    EXPECT_EQ(platform_.getHwDb(), nullptr);
    platform_.setIsChildHardwareEmuPlatform(true);
    EXPECT_FALSE(platform_.containsChildHardwareEmuPlatform());
}
