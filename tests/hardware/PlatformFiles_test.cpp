#include "hardware/PlatformFiles.h"

#include <gtest/gtest.h>

#include <boost/property_tree/json_parser.hpp>
#include <filesystem>

#include "hardware/Documents.h"
#include "hwdb/HHSMHardwareDb.h"
#include "kit/Files.h"
#include "kit/Replace.h"
#include "kit/Script.h"
#include "platform/PlatformTilprjFileExtractor.h"
#include "util/HUTEnv.h"
#include "zip/HUTZip.h"

namespace fs = std::filesystem;

namespace {

using script::Arguments;

/// A platform whose archive is packed from texts, in a directory of its own.
struct Place : HPLPlatform {
    Place() { fs::create_directories(directory + "/out"); }
    ~Place() override { fs::remove_all(directory), fs::remove_all(below("repo")); }

    static std::string below(const std::string& name) {
        return name.empty() ? "" : HUTEnv::getJUNTmpDir() + "/" + name;
    }
    std::string pack(const Arguments& members) {
        for (const std::string& member : members)
            write(directory + "/folder/" + member.substr(0, member.find('=')), member.substr(member.find('=') + 1));
        HUTZip::compressDir(directory + "/folder", archive);
        setPlatformFile(archive);
        return "";
    }
    /// What `extract`, asked to write "out/<n>/copy", has written; "-" when it gave false and left nothing.
    std::string copied(const std::function<bool(const std::string&)>& extract) {
        const std::string copy = directory + "/out/" + std::to_string(++copies) + "/copy";
        return extract(copy) ? contentOf(copy) : fs::exists(copy) ? "left" : "-";
    }
    std::string extensions() const {
        const std::string document = documentOf(*this);
        const auto begin = document.find(R"("extensions")"), end = document.find(R"(,"uniqueName")");
        return begin == std::string::npos ? "" : document.substr(begin, end - begin);
    }

    const std::string directory = below("platform_files"), archive = directory + "/p.lfa";
    int copies = 0;
};

const Arguments kProject = {
    "til/a.tilprj/tilarchive/morwen/logical_arch_til.larch=nested larch",
    "til/a.tilprj/tilarchive/morwen/tilprj_meta_data.json="
    R"({"MetaData": [{"name": "OTHER", "value": "1"}, {"name": "TIL_PL_INTF_ID_STR", "value": "77"}]})",
    R"(til/a.tilprj/tilarchive/arch/til_partition.json={"TIL": {"til_0": {"numColumns": "4"}}})",
    "old/logical.larch=old larch",
};

/// All that reads the archive, which cannot be opened.
std::string allOf(Place& p, const Arguments& a) {
    p.setPlatformFile(Place::below(a.at(0)));
    EXPECT_EQ(p.copied([&](auto& to) { return p.extractFileFromPlatform("m.json", to); }), "-");
    EXPECT_EQ(p.copied([&](auto& to) { return p.extractTILPRJFile(to); }), "-");
    EXPECT_EQ(p.getHwDb(), nullptr);
    EXPECT_FALSE(p.containsChildHardwareEmuPlatform());
    return p.getExtMetaJsonAsString() + p.getBoardRepo() + p.getTILPlInterfaceIDAsString();
}

std::string createHwDb(Place& p, const Arguments& a) {
    const HHSMHardwareDb* const made = a.at(0).empty() ? p.createHwDb() : p.createHwDb(a.at(0));
    if (!made) return "null";
    return made == p.getHwDb() ? "that of the platform" : made->getName() != p.getHwDbName() ? "another" : "twice";
}

}  // namespace

TEST(PlatformFiles, Calls) {
    using P = Place;
    const script::Calls<P> others = {
        {"addFile", [](P& p, auto& a) { return p.addFile(a.at(0), a.at(1)), ""; }},
        {"allOf", allOf},
        {"byMember",
         [](P& p, auto& a) { return p.copied([&](auto& to) { return p.extractFileFromPlatform(a.at(0), to); }); }},
        {"byType", [](P& p, auto& a) { return p.copied([&](auto& to) { return p.extractFile(a.at(0), to); }); }},
        {"child", [](P& p, auto&) { return p.setIsChildHardwareEmuPlatform(true), ""; }},
        {"columnsOf", [](P& p, auto& a) { return std::to_string(p.findTilPartition(a.at(0)).numColumns()); }},
        {"content", [](P& p, auto& a) { return contentOf(p.directory + "/" + a.at(0)); }},
        {"createHwDb", createHwDb},
        {"database", [](P& p, auto&) { return script::shown(p.getHwDb()); }},
        {"databaseNamed", [](P& p, auto& a) { return script::shown(p.getHwDb(a.at(0))); }},
        {"documentHas",
         [](P& p, auto& a) { return script::shown(documentOf(p).find(a.at(0)) != std::string::npos); }},
        {"drBd", [](P& p, auto&) { return p.copied([&](auto& to) { return p.extractDrBdFile(to); }); }},
        {"exists", [](P& p, auto& a) { return script::shown(fs::exists(p.below(a.at(0)))); }},
        {"extensions",
         [](P& p, auto&) -> std::string {
             try {
                 return p.extensions();
             } catch (const boost::property_tree::json_parser_error&) {
                 return "not JSON";
             }
         }},
        {"extracted",
         [](P& p, auto& a) {
             return p.copied([&](auto& to) { return PlatformTilprjFileExtractor(p).extract(a.at(0), to); });
         }},
        {"extractedFromFolder",
         [](P& p, auto& a) {
             return p.copied(
                 [&](auto& to) { return PlatformTilprjFileExtractor(p).extract(a.at(0), p.directory, to); });
         }},
        {"getBoardRepo", [](P& p, auto&) { return replaced(p.getBoardRepo(), HUTEnv::getJUNTmpDir(), "TMP"); }},
        {"hasTilPartitions",
         [](P& p, auto&) -> std::string {
             try {
                 return script::shown(p.hasTilPartitions());
             } catch (const HEXAlgException&) {
                 return "refused";
             }
         }},
        {"intfcst", [](P& p, auto&) { return p.copied([&](auto& to) { return p.extractINTFCSTFile(to); }); }},
        {"intfsol", [](P& p, auto&) { return p.copied([&](auto& to) { return p.extractINTFSOLFile(to); }); }},
        {"larch", [](P& p, auto&) { return p.copied([&](auto& to) { return p.extractLARCHFile(to); }); }},
        {"memberTo",
         [](P& p, auto& a) { return script::shown(p.extractFileFromPlatform(a.at(0), p.below(a.at(1)))); }},
        {"pack", [](P& p, auto& a) { return p.pack(a); }},
        {"packProject", [](P& p, auto&) { return p.pack(kProject); }},
        {"partitions", [](P& p, auto&) { return std::to_string(p.getTilPartitions().size()); }},
        {"projectHolds",
         [](P& p, auto& a) {
             const std::string project = p.directory + "/a project";
             return script::shown(p.extractTILPRJFile(project) && HUTZip::containsFile(project, a.at(0)));
         }},
        {"projectTo", [](P& p, auto& a) { return script::shown(p.extractTILPRJFile(p.below(a.at(0)))); }},
        {"write", [](P& p, auto& a) { return write(p.directory + "/" + a.at(0), a.at(1)), ""; }},
    };
    script::expectCalls<P>(
        ZR_SOURCE_DIR "/tests/cases/hardware/files.case",
        script::calls<P, &P::containsChildHardwareEmuPlatform, &P::getHwDbName, &P::getTILPlInterfaceIDAsString,
                      &P::setExpandable, &P::setHwDbName>(others));
}
