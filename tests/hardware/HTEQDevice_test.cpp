#include "platform/HTEQDevice.h"

#include <gtest/gtest.h>

#include "msg/HEXAll.h"

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
