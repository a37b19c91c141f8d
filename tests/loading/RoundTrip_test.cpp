// What a platform writes into its archive, loading shows again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "kit/Leaves.h"
#include "kit/Platforms.h"
#include "platform/HPLPlatform.h"
#include "platform/PlatformLoader.h"
#include "readers/Hpfm.h"
#include "zip/Archive.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RoundTrip : public testing::Test {
protected:
    /// Packs `document` as the metadata of an archive, loads it, lets the platform write it; gives what it wrote.
    std::string written(const std::string& document, std::map<std::string, std::string> members = {}) {
        members["lfa.json"] = document;
        archive_ = packed(scratch_, "p.lfa", members);
        load()->writeToJSON();
        return member();
    }
    HPLPlatform* load() {
        platform_ = teq_platform::PlatformLoader(archive_, teq_platform::HwMetadataMode::Default).load();
        return dynamic_cast<HPLPlatform*>(platform_->getHardwarePlatform());
    }
    std::string member() const {
        const zip::Archive archive(archive_);
        return archive.read(*archive.find("lfa.json"));
    }
    Scratch scratch_;
    Messages messages_;
    std::string archive_;
    std::shared_ptr<HTEQPlatform> platform_;
};

/// Each key that readers take from a document, with texts that cannot come from a default.
const char* const kDocument = R"({
"generatedChangeList": "7", "generatedName": "gn", "generatedVersion": "gv", "generatedTimestamp": "gt",
"hasExternalSources": "true", "hasRQAContent": "true", "genLink": "true", "genSwEmuLink": "true",
"idCode": "ic", "extendedIdCode": "ec", "vendor": "v", "boardId": "b", "name": "n",
"versionMajor": "3", "versionMinor": "4", "hostArchitecture": "aarch64", "hostInterface": "axi",
"platformState": "impl", "acceleratorBinaryContent": "abc", "acceleratorBinaryFormat": "abf",
"unifiedPlatform": "true", "dcpFunctionStripped": "true", "dcpEncrypted": "true", "topModuleName": "tm",
"usesNIFD": "true", "hardware": "false", "softwareEmulation": "false", "hardwareEmulation": "true",
"hardwareEmuPlatform": "true", "defaultOutputType": "dot", "validAcceleratorBinaryContentValues": "x,y",
"usesPR": "true", "expandablePlatform": "true",
"designIntent": {"dataCenter": {"value": "false", "explicit": "true"}, "embedded": {"value": "true", "explicit": "true"},
 "externalHost": {"value": "false", "explicit": "true"}, "serverManaged": {"value": "true", "explicit": "true"}},
"zuncCompileXPSwitches": ["c1", "c2"], "zuncLinkXPSwitches": ["l1"],
"designIpInstances": [{"vlnv": "iv", "instance": "ii", "configuration": {"k": "kv"}}],
"flash": {"interfaceType": "ft", "offsetAddress": "fo", "size": "fs"},
"designIDs": {"designID": "11", "parentID": "12", "nodeID": "13", "functionID": "14",
 "tilngineIDs": {"nodeID": "15", "uniqueID": "16", "puID": "17"}},
"reconfigPartitionIDs": [{"designID": "21", "parentID": "22", "nodeID": "23", "functionID": "24"}],
"tilHardware": {"arch": "TILML", "npiBaseAddress": "31", "shimRows": {"start": "1", "num": "2"},
 "coreRows": {"start": "3", "num": "4"}, "memRows": {"start": "5", "num": "6"}},
"tilPartitions": [{"tilInst": "ti", "startColumn": "1", "numColumns": "2", "uuid": "tu", "til_pl_intf_id": "tp"}],
"static": "true", "drBdInstName": "db", "rm": "true",
"resources": [{"type": "BRAM", "count": "41"}, {"type": "DSP", "count": "42"}, {"type": "LUT", "count": "43"},
 {"type": "FF", "count": "44"}],
"board": {"name": "bn", "vendor": "bv", "part": "bp", "boardPart": "bb", "imageFileHdpi": "h", "imageFileMdpi": "m",
 "imageFileLdpi": "l", "pcie": {"vendor": "pv", "device": "pd", "subsystem": "ps", "featureId": "pf"}},
"devices": [{"name": "fpga0", "type": "fpga", "fpgaPart": "a:b:c:d:e", "numSLRs": "2",
 "scalableSystemClocks": [{"name": "sn", "frequency": "sf"}],
 "core": {"name": "cn", "type": "ct", "instPath": "ci", "sourceViewInstPath": "cs", "reconfigModuleName": "cr",
  "drBDName": "cd", "numComputeUnits": "5", "availableResources": {"bramCount": "1", "dspCount": "2",
  "lutCount": "3", "registerCount": "4", "pBlocks": [{"name": "pb", "validSlrs": ["SLR0"],
  "resources": [{"name": "LUT", "value": "9"}]}]}}}],
"interfaces": [{"id": "i1", "name": "in", "type": "it"}],
"memories": [{"name": "mn", "type": "ddr4", "size": "ms", "lowAddress": "51", "highAddress": "52",
 "configParams": [{"name": "MEMORY_PART", "value": "mv"}]}],
"files": [{"name": "f1", "type": "T1", "usedIn": "u", "processingOrder": "po"}],
"featureRoms": [{"majorVersion": "1", "minorVersion": "2", "morwenBuildID": "3", "ipBuildID": "4",
 "timeSinceEpoch": "5", "fpgaPartName": "fp", "vbnvName": "fv", "ddrChannelCount": "6", "ddrChannelSize": "7",
 "featureBitMap": {"value": "0x30"}, "uuid": "01234567-89ab-cdef-0123-456789abcdef", "cdmaBaseAddress0": "0x1a",
 "cdmaBaseAddress1": "0x1b", "cdmaBaseAddress2": "0x1c", "cdmaBaseAddress3": "0x1d", "maxTempLimit": "8",
 "maxPowerLimit": "9"}],
"systemClocks": [{"default": "true", "name": "k1", "origName": "ko", "id": "61", "frequency": "kf", "instRef": "ki",
 "compRef": "kc", "period": "kp", "normalizedPeriod": "kn", "status": "ks"}],
"busInterfaces": [{"name": "u1", "mode": "um", "instRef": "ui", "compRef": "uc", "typeRef": "ut", "interfaceRef": "uf",
 "clockRef": "uk", "memPort": "up", "spTag": "us", "category": "ug", "dataWidth": "64",
 "addressSegments": [{"baseName": "s1", "index": "1", "memoryInstance": "sm", "auto": "true", "spTag": "st",
  "slr": "ss", "maxMasters": "2", "name": "sn", "instRef": "si", "region": "sr", "readBwUsed": "3",
  "writeBwUsed": "4", "interleave": "5"}]}],
"nocConnectivity": [{"instRef": "ni", "busInterfaces": [{"name": "nb", "mode": "nm"}]}],
"ipParameters": [{"name": "a1", "value": "av", "instRef": "ai", "compRef": "ac", "valid": "true"}]
})";

TEST_F(RoundTrip, NothingIsLostOfWhatReadersTake) {
    const std::string after = written(kDocument);
    const Loss loss = lossBetween(kDocument, after);
    EXPECT_THAT(loss.lost, IsEmpty());
    EXPECT_THAT(loss.changed, IsEmpty());
    EXPECT_TRUE(after.ends_with("}\n\n")) << "the document's own line end, and one more";

    load()->writeToJSON();
    EXPECT_EQ(member(), after) << "and the next time the same bytes";
}

/// Keys that the model does not hold, does not write, or writes in a form of its own.
TEST_F(RoundTrip, KeysThatAreLost) {
    const struct {
        const char *what, *document;
        std::vector<std::string> lost, changed;
    } cases[] = {
        {"without partial reconfiguration the host is not written",
         R"({"usesPR": "false", "hostArchitecture": "x86_64", "hostInterface": "pcie"})",
         {"hostArchitecture", "hostInterface"},
         {}},
        {"descriptions come from the hpfm alone",
         R"({"description": "d", "detailedDescription": "dd"})",
         {"description", "detailedDescription"},
         {}},
        {"change lists of the maker's parts are not read",
         R"({"generatedIpChangeList": "1", "generatedSharedDataChangeList": "2"})",
         {"generatedIpChangeList", "generatedSharedDataChangeList"},
         {}},
        {"flags that are false, and ids that are 0, are left out",
         R"({"static": "false", "rm": "false", "genLink": "false", "hasRQAContent": "false",
             "designIDs": {"designID": "0", "nodeID": "1"}})",
         {"designIDs.designID", "genLink", "hasRQAContent", "rm", "static"},
         {}},
        {"a reserved id", R"({"designIDs": {"nodeID": "1", "plInterfaceID": "9"}})", {"designIDs.plInterfaceID"}, {}},
        {"registers are those of the core; other resources are not known",
         R"({"resources": [{"type": "REG", "count": "1"}, {"type": "URAM", "count": "2"}]})",
         {"resources[0].count", "resources[0].type", "resources[1].count", "resources[1].type"},
         {}},
        {"the board's connectors are its repository's",
         R"({"board": {"name": "b", "connectors": [{"name": "c"}]}})",
         {"board.connectors[0].name"},
         {}},
        {"of a core only the other route reads ports and parameters",
         R"({"devices": [{"name": "d", "core": {"name": "c", "vlnv": "v", "parentRMInstPath": "p",
             "configParams": [{"name": "x", "value": "y"}], "ports": [{"name": "q"}]}}]})",
         {"devices[0].core.configParams[0].name", "devices[0].core.configParams[0].value",
          "devices[0].core.parentRMInstPath", "devices[0].core.ports[0].name", "devices[0].core.vlnv"},
         {}},
        {"some fields of a bus interface come from the hpfm alone",
         R"({"busInterfaces": [{"name": "b", "resetRef": "r", "slr": "s", "memoryInstance": "m"}]})",
         {"busInterfaces[0].memoryInstance", "busInterfaces[0].resetRef", "busInterfaces[0].slr"},
         {}},
        {"a fixed platform's tile partitions are its project's",
         R"({"expandablePlatform": "false", "tilPartitions": [{"tilInst": "t", "numColumns": "1"}]})",
         {"tilPartitions[0].numColumns", "tilPartitions[0].tilInst"},
         {}},
        {"an explicit design intent stays, any other is computed",
         R"({"usesPR": "true", "designIntent": {"embedded": {"value": "true", "explicit": "false"}}})",
         {},
         {"designIntent.embedded.value"}},
        {"values output by the maker's tool", R"({"validOutputTypeValues": "a,b"})", {"validOutputTypeValues"}, {}},
        {"where the archive is now, and names made of others",
         R"({"name": "n", "platformFile": "/elsewhere/p.lfa", "uniqueName": "u"})",
         {},
         {"platformFile", "uniqueName"}},
        {"the region's address is read as a decimal number and written as a hexadecimal one",
         R"({"featureRoms": [{"drBaseAddress": "16"}]})",
         {},
         {"featureRoms[0].drBaseAddress"}},
        {"so that the next time it is 0",
         R"({"featureRoms": [{"drBaseAddress": "0x10"}]})",
         {},
         {"featureRoms[0].drBaseAddress"}},
        {"a memory takes the parameters that are known of its type",
         R"({"memories": [{"name": "m", "type": "ddr4", "configParams": [{"name": "COLOUR", "value": "red"}]}]})",
         {"memories[0].configParams[0].name", "memories[0].configParams[0].value"},
         {}},
        {"what nobody knows",
         R"({"maker": {"note": "x"}, "files": [{"name": "f", "type": "T", "size": "1"}], "systemClocks": [
             {"name": "c", "jitter": "1"}]})",
         {"files[0].size", "maker.note", "systemClocks[0].jitter"},
         {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Loss loss = lossBetween(c.document, written(c.document));
        EXPECT_EQ(loss.lost, c.lost);
        EXPECT_EQ(loss.changed, c.changed);
    }
}

/// An archive with an hpfm: its interfaces are the platform's, whatever the document says.
TEST_F(RoundTrip, TheHpfmsInterfacesReplaceTheDocuments) {
    const std::string before =
        R"({"files": [{"name": "p.hpfm", "type": "HPFM"}], "busInterfaces": [{"name": "own"}]})";
    const std::string after = written(before, {{"p.hpfm", hpfm("<kp:busInterface kp:name='theirs'/>")}});
    EXPECT_EQ(leavesOf(after).at("busInterfaces[0].name"), "theirs");
    EXPECT_THAT(lossBetween(before, after).changed, ElementsAre("busInterfaces[0].name"));
    load()->writeToJSON();
    EXPECT_EQ(member(), after);
}

TEST_F(RoundTrip, WhatArchiveFilePutsThereIsListed) {
    archive_ = packed(scratch_, "p.lfa", {{"lfa.json", R"({"name": "n"})"}});
    load()->archiveFile("BIT", "bit/one.bit", scratch_.put("one", "1"));
    EXPECT_EQ(load()->getFile("BIT"), "bit/one.bit");
    EXPECT_TRUE(load()->extractFile("BIT", scratch_ / "copy"));
    EXPECT_EQ(HUTZip::verify(archive_).digest, HUTZip::DigestState::valid);
}

}  // namespace
