#include "platform/HTEQHardwareFeatureRom.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "hardware/Documents.h"
#include "hardware/RomNames.h"

using Rom = HTEQHardwareFeatureRom;

TEST(FeatureRom, FieldsLieAtTheirOffsets) {
    Rom rom;
    rom.setMajorVersion(0x11);
    rom.setMinorVersion(0x12);
    rom.setMorwenBuildID(0x24232221);
    rom.setIPBuildID(0x34333231);
    rom.setTimeSinceEpoch(0x4847464544434241);
    rom.setDDRChannelCount(0x51);
    rom.setDDRChannelSize(0x52);
    rom.setDRBaseAddress(0x6867666564636261);
    rom.setFeatureBitMap(0x7877767574737271);
    rom.setCDMABaseAddress(0, 0x84838281);
    rom.setCDMABaseAddress(3, 0x94939291);
    rom.setMaxTempLimit(0xa1);
    rom.setMaxPowerLimit(0xa2);
    rom.setUUID("00112233-4455-6677-8899-aabbccddeeff");
    unsigned char expected[Rom::kHeaderSize] = {};
    const auto put = [&](std::size_t offset, std::initializer_list<int> bytes) {
        std::copy(bytes.begin(), bytes.end(), expected + offset);
    };
    put(4, {0x11, 0x12});
    put(8, {0x21, 0x22, 0x23, 0x24, 0x31, 0x32, 0x33, 0x34});
    put(24, {0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48});
    put(160, {0x51, 0x52});
    put(168, {0x61, 0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x71, 0x72, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78});
    put(184, {0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb, 0xcc, 0xdd, 0xee, 0xff});
    put(204, {0x81, 0x82, 0x83, 0x84});
    put(216, {0x91, 0x92, 0x93, 0x94, 0xa1, 0xa2});
    for (std::size_t i = 0; i < Rom::kHeaderSize; ++i) EXPECT_EQ(rom.getRomHeader()[i], expected[i]) << "byte " << i;
    EXPECT_EQ(rom.getCDMABaseAddress(3), 0x94939291u);
    EXPECT_EQ(rom.getTimeSinceEpoch(), 0x4847464544434241u);
}

TEST(FeatureRom, NamesNeedTheirNul) {
    Rom rom;
    unsigned char name[64] = {};
    std::fill_n(name, 63, 'x');
    rom.setFPGAPartName(name);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(rom.getFPGAPartName())), std::string(63, 'x'));
    name[63] = 'y';
    const std::string tail =
        " specified for the Feature ROM is not a 64 char null terminated string: '" + std::string(63, 'x') + "y'";
    EXPECT_EQ(refusalOf([&] { rom.setFPGAPartName(name); }), "The FPGAPartName" + tail);
    EXPECT_EQ(refusalOf([&] { rom.setVBNVName(name); }), "The VBNVName" + tail);
    EXPECT_EQ(rom.getFPGAPartName()[63], 0);
    EXPECT_EQ(rom.getVBNVName()[0], 0);
    // A shorter name leaves nothing of the longer one.
    unsigned char shorter[64] = {'z', 0, 'w'};
    rom.setFPGAPartName(shorter);
    EXPECT_EQ(std::count(rom.getFPGAPartName(), rom.getFPGAPartName() + 64, 0), 63);
}

TEST(FeatureRom, RefusesUuidsAndIndices) {
    Rom rom;
    EXPECT_EQ(rom.getUUIDAsString(), "00000000-0000-0000-0000-000000000000");
    rom.setUUID("00112233-4455-6677-8899-AABBCCDDEEFF");
    rom.setUUID("");
    for (const char* text : {"0011", "00112233-4455-6677-8899-aabbccddeeff0", "00112233-4455-6677-8899-aabbccddeegg"})
        EXPECT_EQ(refusalOf([&] { rom.setUUID(text); }),
                  "Unable to convert string to Feature ROM UUID: '" + std::string(text) + "'");
    EXPECT_EQ(rom.getUUIDAsString(), "00112233-4455-6677-8899-aabbccddeeff");
    const std::string words =
        "Attempt to set the CDMA Base Address on the CFA XML DOM object using index '4' which is "
        "out of bounds (max is: '3')";
    EXPECT_EQ(refusalOf([&] { rom.setCDMABaseAddress(4, 1); }), words);
    EXPECT_EQ(refusalOf([&] { rom.getCDMABaseAddress(4); }), words);
}

TEST(FeatureRom, DocumentNamesAreCutBetweenCharacters) {
    Rom rom;
    readInto(rom, R"({"vbnvName": ")" + std::string(62, 'x') + "\xC3\xA9\"}");
    EXPECT_EQ(documentOf(rom).find("\xC3"), std::string::npos);
    EXPECT_EQ(hardware::romNameText(rom.getVBNVName()), std::string(62, 'x'));
}
