// The policy on platforms and lists of exceptions on disk.
#include <gmock/gmock.h>

#include "archive/PackedText.h"
#include "json/JsonText.h"
#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/Hpfm.h"
#include "kit/Platforms.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/NativeCatalogService.h"
#include "platform/PlatformLoader.h"
#include "services/ExceptionList.h"

namespace {

using namespace teq::platform;
using services::ExceptionList;

/// Of an archive with this metadata besides "unifiedPlatform", and this extension metadata.
struct Loaded {
    explicit Loaded(const std::string& metadata, const std::string& extensions = "{}")
        : file(packed(
              scratch, "x.lfa",
              {{"lfa.json", R"({"unifiedPlatform": "true", "files": [{"name": "e.json", "type": "META_JSON"}], )" +
                                metadata + "}"},
               {"e.json", extensions}})),
          loader(file, teq_platform::HwMetadataMode::Default) {}
    Scratch scratch;
    std::string file;
    teq_platform::PlatformLoader loader;
};

constexpr const char* k2018 = R"("versionMajor": "2018", "versionMinor": "1", "usesPR": "true", "name": "n")";

std::string colorOf(const std::string&, const std::string& list) {
    const Scratch scratch;
    const Messages messages;
    const std::string file = list == "-" ? scratch / "none" : scratch.put("achromatic", archive::packedText(list));
    const json::ptree document = [] {
        json::ptree tree;
        json::parse(R"({"hardwarePlatforms": {"hardwarePlatform": {"name": "n", "ids": ["1"], "o": {"k": "v"}}}})",
                    "", tree);
        return tree;
    }();
    const policy::Listing listing =
        ExceptionList(file).match("teq", [&]() -> const json::ptree& { return document; });
    std::string text = std::to_string(static_cast<int>(listing.color)) + listing.reason;
    for (const std::string& line : messages.lines()) text += " " + line.substr(0, 8);
    return text;
}

TEST(ExceptionList, GivesTheColorsOfTheCases) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/services/exceptions.case", colorOf);
}

TEST(ExceptionList, TakesOnlyThePackedFormWithinItsLimit) {
    const std::string packedList = archive::packedText(R"({"white_list": []})");
    const auto refusal = [](const std::string& bytes) {
        try {
            archive::unpackedText(bytes, "achromatic");
        } catch (const HEXFileFault& e) {
            return e.diagnostic().text;
        }
        return std::string("taken");
    };
    EXPECT_EQ(refusal(packedList), "taken");
    EXPECT_EQ(refusal(archive::packedText(std::string(archive::kMaxPackedText, ' '))), "taken");
    EXPECT_EQ(refusal(archive::packedText(std::string(100 << 20, ' '))), "the packed text is larger than 1 MiB");
    for (const std::string& damaged :
         {packedList.substr(0, packedList.size() - 1), packedList + "x", packedList.substr(0, 8),
          packedList.substr(0, 12) + "x" + packedList.substr(13)})
        EXPECT_EQ(refusal(damaged), "the packed text is damaged");
    EXPECT_EQ(refusal(R"({"white_list": []})"), "not a packed text: it does not begin with \"ZRXPACK1\"");
    const Scratch scratch;
    scratch.put("plain", R"({"white_list": []})");
    for (const std::string name : {"plain", "gone", "."}) {
        const Messages messages;
        ExceptionList(scratch / name).match("teq", []() -> const json::ptree& { throw std::logic_error("asked"); });
        EXPECT_EQ(messages.lines(), std::vector<std::string>{"@74-49@%s: " + (scratch / name)});
    }
}

/// Two descriptors, one of which names an archive that is missing.
TEST(Catalog, ReportsWhatCanBeLoaded) {
    const Capture capture;
    const Scratch scratch;
    packed(scratch, "x.lfa",
           {{"lfa.json", R"({"name": "n", "platformState": "pre_synth", "hardware": "true",
                                               "files": [{"name": "h", "type": "HPFM"}]})"},
            {"h", hpfm("")}});
    const auto descriptorOf = [](const std::string& archive) {
        return descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", archive) +
                          "</teq:hardwarePlatforms>");
    };
    const std::string file = scratch.put("p.zdf", descriptorOf("x.lfa"));
    scratch.put("q.zdf", descriptorOf("gone.lfa"));
    scratch.put("sw.spfm", kSoftware);
    const NativeCatalogService service;
    json::ptree all, one;
    json::parse(service.getAllAsJsonStr(scratch.str(), true, false), "", all);
    json::parse(service.getAsJsonStr(file, false, true), "", one);
    EXPECT_EQ(capture.printed(), "Error: failed to load platform\n");
    ASSERT_EQ(all.get_child("platforms").size(), 1U);
    const json::ptree& detailed = all.get_child("platforms").front().second;
    std::string text, brief;
    for (const auto& [key, value] : detailed) text += key + "=" + value.data() + " ";
    for (const auto& [key, value] : one) brief += key + " ";
    EXPECT_EQ(brief,
              "baseName version type dataCenter embedded externalHost serverManaged platformState usesPR "
              "platformFile ");
    EXPECT_EQ(text,
              "baseName=p version=1.0 type=lorimar dataCenter=false embedded=true externalHost=false "
              "serverManaged=false platformState=pre_synth usesPR=false platformFile=" +
                  file + " platformHwFile=" + (scratch / "x.lfa") +
                  " platformHwEmuFile= platformSwFile=" + (scratch / "./sw.spfm") +
                  " hpfmFile=<CFA>/h systemClockCount=0 partArchitecture= warranty=false "
                  "warrantyReason=Platform 'p.zdf' is not a unified platform. By policy, non-unified platforms are "
                  "not supported by the current tool version hardware=true hardwareEmulation=false twoHwEmuBd=false "
                  "softwareEmulation=true ");
    EXPECT_EQ(service.getAllAsJsonStr(scratch / "gone", true, true), "{\n    \"platforms\": \"\"\n}\n");
    EXPECT_EQ(service.getAsJsonStr(scratch / "sw.spfm", true, true), "");
    EXPECT_EQ(service.getValue(file, "platformState") + service.getValue(file, ""), "pre_synth");
    EXPECT_EQ(service.getValue(file, "state"), "");
    EXPECT_NE(capture.printed().find("error: key path 'state' doens't exist\n"), std::string::npos);
    teq_platform::PlatformLoader loader(file, teq_platform::HwMetadataMode::Default);
    EXPECT_TRUE(service.isPreSynthPlatform(&loader));
}

TEST(Policy, ReadsThePlatformThroughItsLoader) {
    const Capture capture;
    NativeCatalogService service;
    service.setTestCompilerVersion_("2021.1");
    const auto verdict = [&](Loaded&& on,
                             bool (NativeCatalogService::*ask)(NativeCatalogService::Loader*, std::string&) const) {
        std::string reason = "unset";
        const bool isYes = (service.*ask)(&on.loader, reason);
        return (isYes ? "yes " : "no ") + reason;
    };
    const auto warranty = [&](const std::string& metadata, const std::string& extensions) {
        Loaded on(metadata, extensions);
        std::string reason = "unset";
        const bool isYes = service.isUnderWarranty(&on.loader, reason, "");
        return (isYes ? "yes " : "no ") + reason.substr(0, reason.find('.'));
    };
    const std::string extended = "yes Platform 'x";
    EXPECT_EQ(warranty(k2018, R"({"extended_warranty": ["2020.1", "2021.1"]})"), extended);
    EXPECT_EQ(warranty(k2018, R"({"extended_warranty": "2021.1"})"), extended);
    EXPECT_EQ(warranty(k2018, R"({"extended_warranty": ["2022.1"]})"), "no Platform 'x");
    EXPECT_EQ(warranty(R"("versionMajor": "2018")", "{}"), "yes unset");  // embedded
    EXPECT_THROW(warranty(k2018, R"({"extended_warranty": ["next"]})"), std::invalid_argument);
    EXPECT_EQ(verdict(Loaded(k2018), &NativeCatalogService::canCfaBeOpened), "yes unset");
    EXPECT_THAT(verdict(Loaded(k2018), &NativeCatalogService::isPreSynthPlatformSupported),
                testing::MatchesRegex("no Platform '.*x.lfa' is not a PRE_SYNTH platform"));
}

}  // namespace
