#include "platform/HTEQDevice.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"

TEST(Device, PartNames) {
    for (const char* text : {"a:b:c", "a:b:c:d:e:f:g:h", "a"}) {
        SCOPED_TRACE(text);
        HTEQDevice device;
        device.setFpgaPart("a:b:c:-2");
        EXPECT_EQ(refusalOf<HEXAlgException>([&] { device.setFpgaPart(text); }),
                  "HTEQDevice::convertFpgaDeviceToPart_ - FPGA Device (string) format not as expected: '" +
                      std::string(text) + "'");
        EXPECT_EQ(device.getFpgaPart(), text);
        EXPECT_EQ(device.getPartName(), "bc-2");
    }
    HTEQDevice tooLong;
    EXPECT_NO_THROW(tooLong.setFpgaPart("a:b:c:" + std::string(4090, '2')));
    EXPECT_THROW(tooLong.setFpgaPart("a:b:c:" + std::string(4091, '2')), HEXAlgException);
    HTEQDevice device;  // without a string the name is the part name
    device.setName("fpga0");
    device.setFpgaPart("");
    EXPECT_EQ(device.getPartName(), "fpga0");
}
