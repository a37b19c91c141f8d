#include "platform/HTEQTilHardware.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"
#include "msg/HEXAll.h"

using Arch = HTEQTilHardware::Arch;

TEST(TilHardware, KindsByTheirNames) {
    const struct {
        const char* text;
        Arch arch;
    } kCases[] = {{"none", Arch::NO_TIL},   {"No_Til", Arch::NO_TIL}, {"til", Arch::TIL1},
                  {"TIL1", Arch::TIL1},     {"tilml", Arch::TILML},   {"TIL2P", Arch::TIL2P},
                  {"til2ps", Arch::TIL2PS}, {"TIL2PK", Arch::TIL2PK}};
    for (const auto& c : kCases) EXPECT_EQ(HTEQTilHardware::stringToArch(c.text), c.arch) << c.text;
    for (const char* text : {"", "TIL3", "TIL1 "}) {
        try {
            HTEQTilHardware::stringToArch(text);
            FAIL() << "not refused: " << text;
        } catch (const HEXAlgException& e) {
            EXPECT_EQ(e.what(),
                      "HTEQTilHardware::setArch() - Invalid til architecture specified: " + std::string(text));
        }
    }
    EXPECT_EQ(HTEQTilHardware::archToString(static_cast<Arch>(77)), "NO_TIL");
}
