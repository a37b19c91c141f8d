#include "platform/HTEQDevice.h"

#include <gtest/gtest.h>

#include "msg/HEXAll.h"

TEST(Device, PartNameOfEachForm) {
    const struct {
        const char *text, *name, *grade, *power, *revision;
    } kCases[] = {
        {"a:b:c:-2", "bc-2", "", "", ""},
        {"a:b:c:-2:e", "b-c-2-e", "e", "", ""},
        {"a:b:c:-2:e:es1", "b-c-2-e-es1", "e", "", "es1"},
        {"a:b:c:-2:e:L:es1", "b-c-2-e-L-es1", "e", "L", "es1"},
        {"a:::", "", "", "", ""},  // empty fields count
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.text);
        HTEQDevice device;
        device.setFpgaPart(c.text);
        EXPECT_EQ(device.getPartName(), c.name);
        EXPECT_EQ(device.getPartArch(), "a");
        EXPECT_EQ(device.getPartTempGrade(), c.grade);
        EXPECT_EQ(device.getPartStaPower(), c.power);
        EXPECT_EQ(device.getPartRevision(), c.revision);
    }
}

TEST(Device, ARefusedStringKeepsTheFields) {
    for (const char* text : {"a:b:c", "a:b:c:d:e:f:g:h", "a"}) {
        SCOPED_TRACE(text);
        HTEQDevice device;
        device.setFpgaPart("a:b:c:-2");
        try {
            device.setFpgaPart(text);
            FAIL() << "not refused";
        } catch (const HEXAlgException& e) {
            EXPECT_EQ(e.what(),
                      "HTEQDevice::convertFpgaDeviceToPart_ - FPGA Device (string) format not as expected: '" +
                          std::string(text) + "'");
        }
        EXPECT_EQ(device.getFpgaPart(), text);
        EXPECT_EQ(device.getPartName(), "bc-2");
    }
}

TEST(Device, WithoutAStringTheNameIsThePartName) {
    HTEQDevice device;
    device.setName("fpga0");
    device.setFpgaPart("");
    EXPECT_EQ(device.getPartName(), "fpga0");
}
