#include "hwdb/HHSMHwManager.h"

#include <gtest/gtest.h>

#include <fstream>

#include "hwdb/HHDFHwDefUtils.h"
#include "hwdb/HHSMHardwareDb.h"
#include "hwdb/RootAttribute.h"
#include "kit/Cases.h"
#include "kit/ZipBuilder.h"
#include "util/HUTEnv.h"

namespace {

std::string fileWith(std::initializer_list<builder::Entry> entries) {
    static int number = 0;
    builder::Zip zip;
    zip.entries = entries;
    std::string path = HUTEnv::getJUNTmpDir();
    path.append("/hwdb").append(std::to_string(number++));
    std::ofstream(path, std::ios::binary) << zip.build();
    return path;
}

}  // namespace

TEST(RootAttribute, OfTheRootOnly) {
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/hwdb/root.case", [](const auto&, const std::string& document) {
        const auto top = rootAttribute(document, "top");
        return top ? "(" + *top + ")" : "none";
    });
}

TEST(HHDFHwDefUtils, TopModule) {
    using builder::Entry;
    const auto topOf = [](std::initializer_list<Entry> entries) {
        const auto definition = HHDFHwDefUtils::getHDF(fileWith(entries));
        return definition ? definition->getHierTopModuleName() : "none";
    };
    EXPECT_EQ(topOf({Entry("hwdef.xml", "<p top='h'/>", true)}), "h");
    EXPECT_EQ(topOf({Entry("hwdef.xml", "<p top='h'/>"), Entry("sysdef.xml", "<p top='s'/>")}), "s");
    EXPECT_EQ(topOf({Entry("hwdef.xml", "<p top='h'/>"), Entry("sysdef.xml", "<p/>")}), "h");
    EXPECT_EQ(topOf({Entry("hwdef.xml", "<p top=''/>")}), "none");
    EXPECT_EQ(topOf({Entry("lfa.json", "{}")}), "none");
    EXPECT_EQ(HHDFHwDefUtils::getHDF("/nowhere"), nullptr);
}

TEST(HHSMHwManager, NamesAreUnique) {
    HHSMHwManager& manager = HHSMHwManager::getHsmHwManager();
    const std::string file = fileWith({builder::Entry("sysdef.xml", "<p top='design'/>")});
    EXPECT_TRUE(manager.openDefFile(file));
    EXPECT_EQ(manager.getHardwareDb("design"), nullptr);
    HHSMHardwareDb* const first = manager.createHardwareDb(file);
    HHSMHardwareDb* const second = manager.createHardwareDb(file, {{"top/rm0", "rm0.lfa"}});
    HHSMHardwareDb* const third = manager.createHardwareDbFromHDF(HHDFHwDefUtils::getHDF(file).get());
    ASSERT_TRUE(first && second && third);
    EXPECT_EQ(first->getName(), "design");
    EXPECT_EQ(second->getName(), "design_1");
    EXPECT_EQ(second->getRmFiles().at("top/rm0"), "rm0.lfa");
    EXPECT_EQ(third->getName(), "design_2");
    EXPECT_EQ(manager.getHardwareDb("design_1"), second);

    EXPECT_FALSE(manager.openDefFile("/nowhere"));
    EXPECT_EQ(manager.createHardwareDb("/nowhere"), nullptr);
    EXPECT_EQ(manager.createHardwareDbFromHDF(nullptr), nullptr);
    EXPECT_EQ(manager.getHardwareDb(""), nullptr);
}
