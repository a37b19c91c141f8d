#include "platform/HPLMemory.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"

TEST(Memory, PermittedParametersFollowTheType) {
    const struct {
        const char *type, *name;
        bool stored;
    } kCases[] = {
        {"ddr4", "C0.DDR4_tCK", true},
        {"ddr4", "C0.DDR3_tCK", false},
        {"ddr3", "C0.DDR3_tCK", true},
        {"ddr3", "C0.DDR4_tCK", false},
        {"", "C0.DDR4_tZQINIT", true},  // every type but ddr3 is of the
                                        // family DDR4
        {"DDR3", "C0.DDR3_tCK", false},
        {"ddr3", "DATA_WIDTH", true},
        {"ddr4", "C0.ControllerType", true},
        {"ddr4", "data_width", false},
        {"ddr4", "C0.DDR4", false},
        {"ddr4", "", false},
        {"ddr4", "C0.DDR4_ADDR_WIDTH ", false},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(std::string(c.type) + " " + c.name);
        HPLMemory memory;
        memory.setType(c.type);
        memory.addConfigParam(c.name, "old");
        memory.addConfigParam(c.name, "1");
        const HPLMemory::ConfigParamMap stored{{c.name, "1"}};
        EXPECT_EQ(memory.getReadOnlyConfigParamMap(), c.stored ? stored : HPLMemory::ConfigParamMap{});
    }
}
