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

TEST(Memory, DocumentReadAndWritten) {
    HPLMemory memory;
    EXPECT_EQ(documentOf(memory), "{}");
    // The type is read before the parameters, wherever it stands.
    readInto(memory,
             R"({"configParams": [{"name": "C0.DDR3_tCK", "value": "2"}, {"name": "DATA_WIDTH", "value": "1"}],
                         "type": "ddr3", "name": "bank0", "size": "16GB", "highAddress": "18446744073709551615"})");
    EXPECT_EQ(
        documentOf(memory),
        R"({"name": "bank0","type": "ddr3","size": "16GB","lowAddress": "0","highAddress": "9223372036854775807",)"
        R"("configParams": [{"name": "C0.DDR3_tCK","value": "2"},{"name": "DATA_WIDTH","value": "1"}]})");
}
