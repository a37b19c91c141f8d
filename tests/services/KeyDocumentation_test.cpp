// The documentation of keys agrees with the documents, both ways.
#include <gtest/gtest.h>

#include <regex>

#include "json/JsonText.h"
#include "kit/Cases.h"
#include "kit/Files.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigPartition.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/NativeKeyService.h"
#include "services/DocumentTree.h"

namespace {

using json::ptree;
using Keys = std::set<std::string>;

/// Keys of a hardware platform and of a bus interface count once, wherever they are; those of the maker do not count.
void add(Keys& keys, const Keys& found) {
    static const std::regex hardware(
        "^hardwarePlatforms\\.(reconfigurablePartitions\\[\\]\\.)?(hardwarePlatform|hwEmuPlatform)"
        "(?=\\.|$)"),
        network("nocConnectivity\\[\\]\\.busInterfaces\\[\\]\\.");
    for (const std::string& key : found)
        if (key.find(".extensions.") == std::string::npos && key.find(".configuration.") == std::string::npos)
            keys.insert(std::regex_replace(std::regex_replace(key, hardware, "HW"), network, "busInterfaces[]."));
}

/// The keys that no reader fills, and those that no sample has.
void addByPrograms(Keys& keys) {
    HTEQPlatform platform;
    platform.setHardwareEmuPlatformFile("f");
    auto* const hardware = new HPLPlatform;
    platform.setHardwarePlatform(hardware);
    hardware->setDetailedDescription("d");
    hardware->setGeneratedIpChangeList("1");
    hardware->setGeneratedSharedDataChangeList("1");
    hardware->setGeneratedBySwEmuLink(true);
    hardware->addBusInterface()->setResetRef("r");
    HTEQReconfigPartition& ids = *hardware->addReconfigPartition();
    ids.setTILPlInterfaceID(1);
    ids.setTILNodeID(1);
    ids.setTILUniqueID(1);
    ids.setTILPuID(1);
    auto* const software = new HTEQSoftwarePlatform;
    platform.addSoftwarePlatform(software);
    software->setLinuxRootFileSystemPath("/");
    add(keys, teq::platform::NativeKeyService().get(services::documentTree(platform)));
    keys.insert("HW.designIDs.tilngineIDs.plInterfaceID");  // of a platform that was copied from such a partition
}

void addEntries(const ptree& node, const std::string& key, Keys& keys) {
    if (node.count("#meaning")) {
        EXPECT_GE(node.get<std::string>("#meaning").size(), 10U) << key;
        EXPECT_TRUE(node.count("#form") && node.count("#source")) << key;
        keys.insert(key);
    }
    for (const auto& [name, child] : node)
        if (!name.starts_with('#')) addEntries(child, key.empty() ? name : key + "." + name, keys);
}

TEST(KeyDocumentation, HasAnEntryForEachKeyAndNoOther) {
    Keys documents, entries, documented;
    for (const char* sample : {"u77", "heron", "osprey", "harrier", "kestrel", "lorica", "dunlin_pre"}) {
        const ptree tree =
            services::parsed(contentOf(ZR_SOURCE_DIR "/examples/expected/" + std::string(sample) + ".json"));
        add(documents, teq::platform::NativeKeyService().get(tree));
    }
    addByPrograms(documents);
    const ptree file = services::parsed(contentOf(ZR_SOURCE_DIR "/share/platforms/platform_keys_doc.json"));
    addEntries(file.get_child("documentation_keys"), "", entries);
    add(documented, entries);
    EXPECT_EQ(documented, documents);
}

}  // namespace
