// The XML form of samples against the ones that were written by hand, and the older archives among them.
#include <gmock/gmock.h>

#include <platform/HPLPlatform.h>
#include <platform/HTEQCfaXmlReader.h>
#include <platform/HTEQCfaXmlWriter.h>
#include <platform/HTEQPlatformCAPI.h>
#include <platform/PlatformLoader.h>
#include <zip/HUTZip.h>

#include <filesystem>
#include <string>

#include "kit/Scratch.h"
#include "samples/ExpectedText.h"

namespace {

namespace fs = std::filesystem;
using teq_platform::PlatformLoader;

struct Sample {
    const char* name;  ///< of the expected file
    const char* file;  ///< below the packed samples
};

constexpr Sample kSamples[] = {
    {"u77", "u77/hw/u77.lfa"},
    {"heron", "heron/hw/heron.cfa"},
    {"osprey", "osprey/hw/osprey_rm.lfa"},
    {"harrier", "harrier/hw/harrier.cfa"},
};

/// The XML form of the archive's platform, by way of a file in `scratch`.
std::string xmlOf(const std::string& archive, PlatformLoader::HwMetadataMode mode, const Scratch& scratch) {
    const auto platform = PlatformLoader(archive, mode).load();
    if (!platform) return "no platform";
    HTEQCfaXmlWriter(dynamic_cast<HPLPlatform*>(platform->getHardwarePlatform()), scratch / "out.xml").writeCFA();
    return contentOf(scratch / "out.xml");
}

class XmlMetadata : public testing::TestWithParam<Sample> {};

TEST_P(XmlMetadata, EqualsTheHandWrittenOne) {
    const Scratch scratch;
    const std::string archive = std::string(ZR_SAMPLES "/") + GetParam().file;
    expectText(xmlOf(archive, PlatformLoader::HwMetadataMode::Default, scratch),
               GetParam().name + std::string(".xml"));
}

/// The sample as an older archive: its own members, with that XML form as its metadata.
TEST_P(XmlMetadata, DoesNotChangeFromTheSecondWritingOn) {
    const Scratch scratch;
    const fs::path name = fs::path(GetParam().file).filename();
    const std::string folder = scratch / "folder", archive = scratch / name.string();
    const std::string extension = name.extension().string().substr(1);
    fs::copy(fs::path(ZR_SAMPLES "/src") / name, folder, fs::copy_options::recursive);
    fs::remove(folder + "/" + extension + ".json");
    std::string xml = contentOf(ZR_SOURCE_DIR "/examples/expected/" + std::string(GetParam().name) + ".xml");
    for (int writing = 2; writing <= 3; ++writing) {
        scratch.put("folder/" + extension + ".xml", xml);
        HUTZip::compressDir(folder, archive);
        const std::string next = xmlOf(archive, PlatformLoader::HwMetadataMode::XmlOnly, scratch);
        EXPECT_THAT(next, testing::StartsWith("<?xml")) << writing;
        if (writing == 3) {
            EXPECT_EQ(next, xml);
        }
        xml = next;
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, XmlMetadata, testing::ValuesIn(kSamples),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(NewerSchema, IsRefusedButBeforeSynthesis) {
    const Messages messages;
    const std::string next = fs::canonical(ZR_SAMPLES "/lone/dunlin_next.cfa"),
                      twin = fs::canonical(ZR_SAMPLES "/lone/dunlin_pre.cfa");
    EXPECT_EQ(hteq_get_platform_json(next.c_str()), nullptr);
    ASSERT_EQ(messages.taken.size(), 2U);
    EXPECT_EQ(messages.taken[0].id, "@74-52@%s");
    EXPECT_EQ(messages.taken[0].args.at(0),
              "Hardware Platform '" + next + "' (version 2) is newer than the current version 1 (2026.2.0)");
    EXPECT_EQ(messages.taken[1].id, "@74-60@%s");
    for (const std::string& archive : {next, twin}) {
        int major = 0, minor = -1;
        HPLPlatform platform;
        EXPECT_TRUE(HTEQCfaXmlReader(archive, &platform).getRootVersion(major, minor));
        EXPECT_EQ(major, 2);
    }
}

}  // namespace
