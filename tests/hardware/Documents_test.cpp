#include "hardware/Documents.h"

#include <gtest/gtest.h>

#include <map>

#include "hardware/MemorySize.h"
#include "hardware/RomNumbers.h"
#include "kit/Cases.h"
#include "platform/HPLBoard.h"
#include "platform/HPLCore.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQDevice.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQSystemClock.h"
#include "platform/HTEQTilHardware.h"
#include "platform/HTEQTilPartition.h"

namespace {

template <class T>
std::string writtenAfter(const std::string& text) {
    T record;
    try {
        if constexpr (std::is_same_v<T, HTEQTilPartition>)
            record.fromJSON(parsed(text));
        else if constexpr (std::is_same_v<T, HPLPlatform>)
            record.setName("emptied"), readPlatform(record, text);
        else if (text != "{}\n" || std::is_same_v<T, HTEQTilHardware>)
            readInto(record, text);
    } catch (const HEXAll& error) {
        return error.what();
    }
    return documentOf(record);
}

TEST(HardwareDocuments, ReadAndWritten) {
    const std::map<std::string, std::string (*)(const std::string&)> classes = {
        {"board", writtenAfter<HPLBoard>},
        {"core", writtenAfter<HPLCore>},
        {"memory", writtenAfter<HPLMemory>},
        {"newPlatform", [](const std::string&) { return documentOf(HPLPlatform()); }},
        {"platform", writtenAfter<HPLPlatform>},
        {"featureRom", writtenAfter<HTEQHardwareFeatureRom>},
        {"tilHardware", writtenAfter<HTEQTilHardware>},
        {"tilPartition", writtenAfter<HTEQTilPartition>},
    };
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/hardware/documents.case",
                       [&](const std::string& name, const std::string& text) { return classes.at(name)(text); });
}

std::string gigabytes(const std::string& text) {
    try {
        return std::to_string(hardware::gigabytesOf(text));
    } catch (const std::logic_error& error) {
        return std::string("stoi: ") + error.what();
    }
}

std::string kindOfTile(const std::string& text) {
    try {
        return HTEQTilHardware::archToString(HTEQTilHardware::stringToArch(text));
    } catch (const HEXAlgException& error) {
        return error.what();
    }
}

std::string part(const std::string& text) {
    HTEQDevice device;
    device.setFpgaPart(text);
    EXPECT_EQ(device.getPartArch(), "a");
    return device.getPartName() + "," + device.getPartTempGrade() + "," + device.getPartStaPower() + "," +
           device.getPartRevision();
}

std::string parameter(const std::string& text) {
    HPLMemory memory;
    const std::string name = text.substr(text.find(' ') + 1);
    memory.setType(text.substr(0, text.find(' ')));
    memory.addConfigParam(name, "old");
    memory.addConfigParam(name, "1");
    const auto& stored = memory.getReadOnlyConfigParamMap();
    EXPECT_TRUE(stored.empty() || stored.at(name) == "1") << text;
    return std::to_string(stored.size());
}

std::string clock(const std::string& status) {
    HPLPlatform platform;
    platform.addSystemClock()->setStatus(status);
    HSTVector<HTEQSystemClock*> clocks;
    platform.getSystemClocks(clocks);
    return std::string(platform.hasScalableClocks() ? "scalable" : "") + (platform.hasFixedClocks() ? "fixed" : "") +
           (clocks.at(0)->isReserved() ? "reserved" : "");
}

std::string state(const std::string& text) {
    HPLPlatform platform;
    platform.setPlatformState(text);
    platform.setComputedDesignIntent(HTEQDesignIntentStorage::Key::dataCenter, true);
    EXPECT_FALSE(platform.isFlatShell()) << "partial reconfiguration";
    platform.setUsesPR(false);
    std::string found = std::to_string(static_cast<int>(platform.getState())) + " ";
    if (platform.isPreSynthFlatShell()) found += "pre-synth-shell ";
    if (platform.isSynthFlatShell()) found += "synth-shell ";
    if (platform.isFlatShell()) found += "flat-shell ";
    platform.setExpandable(false);
    EXPECT_FALSE(platform.isFlatShell());
    platform.setState(platform.getState());
    return found + platform.getPlatformState();
}

std::string members(const std::string& file) {
    HPLPlatform platform;
    platform.setPlatformFile(file);
    const std::string own = platform.getJsonFileName() + " " + platform.getAltJsonFileName() + " " +
                            platform.getXmlFileName() + " " + platform.getHwEmuJsonFileName() + " " +
                            platform.getAltHwEmuJsonFileName() + " ";
    platform.setIsChildHardwareEmuPlatform(true);
    return own + platform.getXmlFileName();
}

TEST(HardwareFunctions, OfTexts) {
    const std::map<std::string, std::string (*)(const std::string&)> functions = {
        {"gigabytes", gigabytes},
        {"romNumber", [](const std::string& text) { return std::to_string(hardware::romNumber(text)); }},
        {"kind", kindOfTile},
        {"part", part},
        {"parameter", parameter},
        {"clock", clock},
        {"state", state},
        {"members", members},
    };
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/hardware/functions.case", [&](const auto& name, const auto& text) {
        return functions.at(name.substr(0, name.find(' ')))(text);
    });
    EXPECT_EQ(hardware::romHex(0), "0x");
    EXPECT_EQ(hardware::romHex(0xAB00), "0xab00");
    EXPECT_EQ(HTEQTilHardware::archToString(static_cast<HTEQTilHardware::Arch>(77)), "NO_TIL");
    const std::string blanks(2'000'000, ' ');
    EXPECT_EQ(hardware::gigabytesOf("7" + blanks + "GB"), 7) << "long texts are read";
    EXPECT_EQ(hardware::gigabytesOf("7" + blanks), 0);
}

}  // namespace
