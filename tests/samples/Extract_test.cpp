// What is copied out of a packed sample against the files that it was packed from.
#include <gmock/gmock.h>

#include <platform/HPLPlatform.h>
#include <platform/PlatformLoader.h>
#include <util/HUTEnv.h>

#include <filesystem>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "kit/Run.h"
#include "kit/Scratch.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<HTEQPlatform> loaded(const std::string& sample) {
    using teq_platform::PlatformLoader;
    return PlatformLoader(std::string(ZR_SAMPLES "/") + sample, PlatformLoader::HwMetadataMode::Default).load();
}

std::string sourceOf(const std::string& name) {
    const std::string content = contentOf(ZR_SOURCE_DIR "/examples/" + name);
    EXPECT_FALSE(content.empty()) << name;
    return content;
}

constexpr const char* kHeron = "heron/heron.zdf";
constexpr const char* kOsprey = "osprey/osprey.zdf";
constexpr const char* kU77 = "u77/u77_gen3x16_base_1.zdf";
const std::string kProject = "heron/hw/heron.cfa/til/heron.tilprj";

struct Operation {
    const char* name;
    const char* sample;
    bool (HTEQHardwarePlatform::*extract)(const std::string& destination) const;
    std::string source;  ///< below examples/
};

const Operation kOperations[] = {
    {"extractLARCHFile", kHeron, &HTEQHardwarePlatform::extractLARCHFile,
     kProject + "/tilarchive/morwen/logical_arch_til.larch"},
    {"extractINTFCSTFile", kHeron, &HTEQHardwarePlatform::extractINTFCSTFile,
     kProject + "/tilarchive/morwen/til_interface.tilintfcst"},
    {"extractINTFSOLFile", kHeron, &HTEQHardwarePlatform::extractINTFSOLFile,
     kProject + "/tilarchive/morwen/til_interface.tilintfsol"},
    {"extractTILCSTFile", kHeron, &HTEQHardwarePlatform::extractTILCSTFile,
     kProject + "/tilarchive/morwen/til_constraints.tilcst"},
    {"extractTILMetadataFile", kHeron, &HTEQHardwarePlatform::extractTILMetadataFile,
     kProject + "/tilarchive/morwen/tilprj_meta_data.json"},
    {"extractNTSFile", kHeron, &HTEQHardwarePlatform::extractNTSFile, "heron/hw/heron.cfa/noc/heron.nts"},
    {"extractNCRFile", kHeron, &HTEQHardwarePlatform::extractNCRFile, "heron/hw/heron.cfa/noc/heron.ncr"},
    {"extractEmuJsonFile", kU77, &HTEQHardwarePlatform::extractEmuJsonFile, "u77/hw/u77.lfa/emu/hw_emu.json"},
    {"extractEmuXmlFile", kOsprey, &HTEQHardwarePlatform::extractEmuXmlFile,
     "osprey/hw/osprey_rm.lfa/emu/hw_emu.xml"},
    {"extractDrBdFile", kOsprey, &HTEQHardwarePlatform::extractDrBdFile,
     "osprey/hw/osprey_rm.lfa/bd/osprey_rm.bd.tcl"},
};

TEST(Extract, GivesTheBytesOfTheSources) {
    const Scratch scratch;
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        const auto platform = loaded(operation.sample);
        ASSERT_TRUE(platform);
        const std::string copy = scratch / (std::string("new/folder/") + operation.name);
        EXPECT_TRUE((platform->getHardwarePlatform()->*operation.extract)(copy));
        EXPECT_EQ(contentOf(copy), sourceOf(operation.source));
    }
}

TEST(Extract, GivesTheProjectAsAnArchiveWithAllItsFiles) {
    const Scratch scratch;
    const auto platform = loaded(kHeron);
    ASSERT_TRUE(platform);
    const HTEQHardwarePlatform& hardware = *platform->getHardwarePlatform();
    const std::string project = scratch / "copy.tilprj";
    ASSERT_TRUE(hardware.extractTILPRJFile(project));
    const fs::path folder = fs::path(ZR_SOURCE_DIR "/examples") / kProject;
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        const std::string member = entry.path().lexically_relative(folder).string();
        SCOPED_TRACE(member);
        EXPECT_TRUE(hardware.extract(member, project, scratch / member));
        EXPECT_EQ(contentOf(scratch / member), contentOf(entry.path()));
        ++files;
    }
    EXPECT_EQ(files, 6);
}

TEST(Extract, ReadsTheFilesOfAnEmulationChildBelowItsFolder) {
    const Scratch scratch;
    const auto platform = loaded(kU77);
    ASSERT_TRUE(platform);
    HTEQHardwarePlatform* const child = platform->getHardwareEmulationPlatform();
    ASSERT_TRUE(child);
    EXPECT_TRUE(child->isChildHardwareEmuPlatform());
    EXPECT_FALSE(platform->hasDistinctHardwareEmulationPlatform());
    for (const char* type : {"DR_BD", "SIM_BINARY"}) {
        const std::string member = child->getFile(type);
        EXPECT_TRUE(child->extractFileFromPlatform(member, scratch / type)) << member;
        EXPECT_EQ(contentOf(scratch / type), sourceOf("u77/hw/u77.lfa/hw_emu/" + member));
    }
    EXPECT_TRUE(child->extractHPFMFile(scratch / "child.hpfm", false));
    EXPECT_EQ(contentOf(scratch / "child.hpfm"), sourceOf("u77/hw/u77.lfa/hw_emu/hpfm/u77_emu.hpfm"));
    EXPECT_FALSE(child->extractFileFromPlatform("tcl/dr.bd.tcl", scratch / "parent's")) << "a file of the parent";
    EXPECT_THAT(scratch.names(), ElementsAre("DR_BD", "SIM_BINARY", "child.hpfm"));
}

TEST(Extract, RepairsAnHpfmFileIfAsked) {
    const Scratch scratch;
    const auto platform = loaded(kU77);
    const HTEQHardwarePlatform& hardware = *platform->getHardwarePlatform();
    const std::string source = sourceOf("u77/hw/u77.lfa/hpfm/u77.hpfm");
    for (const auto& [name, repair, isRepaired] :
         {std::tuple("a.hpfm", false, false), {"b.hpfm", true, true}, {"c.xml", true, false}}) {
        ASSERT_TRUE(hardware.extractHPFMFile(scratch / name, repair));
        EXPECT_EQ(contentOf(scratch / name) != source, isRepaired) << name;
    }
}

/// "instance start+columns uuid id" of each, parts after their root and indented by two blanks.
std::vector<std::string> describe(const HSTVector<HTEQTilPartition>& partitions, const std::string& blanks = "") {
    std::vector<std::string> lines;
    for (const HTEQTilPartition& p : partitions) {
        lines.push_back(blanks + p.tilInst() + " " + std::to_string(p.startColumn()) + "+" +
                        std::to_string(p.numColumns()) + " " + p.uuid() + " " + p.plIntefaceID());
        EXPECT_EQ(p.isRoot(), blanks.empty());
        for (std::string& line : describe(p.partitions(), blanks + "  ")) lines.push_back(std::move(line));
    }
    return lines;
}

TEST(TileArray, OfAFixedPlatformComesFromItsProject) {
    const auto platform = loaded(kHeron);
    ASSERT_TRUE(platform);
    HTEQHardwarePlatform& hardware = *platform->getHardwarePlatform();
    EXPECT_EQ(hardware.getTILPlInterfaceIDAsString(), "8841a0c7e35f4d12b6");
    EXPECT_THAT(describe(hardware.getTilPartitions()),
                ElementsAre("til_0 0+24 7d0c3a52-1be4-4f09-9a61-5c2e8f7b0d31 8841a0c7",
                            "  til_0 0+16 7d0c3a52-1be4-4f09-9a61-5c2e8f7b0d32 8841a0c8", "  til_0 20+4  ",
                            "til_1 24+4 7d0c3a52-1be4-4f09-9a61-5c2e8f7b0d34 "));
    std::vector<std::string> left;
    for (const auto& entry : fs::recursive_directory_iterator(HUTEnv::getJUNTmpDir()))
        if (!entry.is_directory()) left.push_back(entry.path());
    EXPECT_THAT(left, IsEmpty()) << "temporary copies";
}

TEST(TileArray, OfAnExpandablePlatformComesFromItsMetadata) {
    const auto platform = loaded(kOsprey);
    ASSERT_TRUE(platform);
    HTEQHardwarePlatform& module = *platform->getRPHardwarePlatform(2);
    EXPECT_EQ(&module, platform->getHardwarePlatform()) << "the default partition";
    EXPECT_THAT(describe(module.getTilPartitions()),
                ElementsAre("til_0 0+14 c1b5e0d2-6a07-4b7f-8f3e-2d94a6570b10 5d20f7b1", "til_1 14+6  "));
    EXPECT_EQ(module.getTILPlInterfaceIDAsString(), "") << "no project";
    EXPECT_TRUE(module.supportsTwoHwEmuBd()) << "its emulation target has a block design";
    EXPECT_THAT(platform->getRPHardwarePlatform(1)->getTilPartitions(), IsEmpty());
}

}  // namespace
