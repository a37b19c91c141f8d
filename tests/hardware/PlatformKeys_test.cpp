#include <gtest/gtest.h>

#include <boost/property_tree/exceptions.hpp>

#include "hardware/Documents.h"
#include "msg/HEXAll.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHardwareBusInterface.h"

namespace {

const char kNoIntent[] =
    R"("designIntent": {"dataCenter": {"value": "false","explicit": "false"},"embedded": {"value": "false",)"
    R"("explicit": "false"},"externalHost": {"value": "false","explicit": "false"},)"
    R"("serverManaged": {"value": "false","explicit": "false"}},)";

void read(HPLPlatform& platform, std::string_view text) { hardware::readDocument(parsed(text), platform); }

}  // namespace

TEST(PlatformDocument, OfANewPlatform) {
    EXPECT_EQ(documentOf(HPLPlatform()),
              R"({"versionMajor": "0","versionMinor": "0","hostArchitecture": "unknown","hostInterface": "unknown",)"
              R"("usesPR": "true","acceleratorBinaryFormat": "rovapk2","acceleratorBinaryContent": "bitstream",)"
              R"("dcpFunctionStripped": "false","dcpEncrypted": "false","defaultOutputType": "unknown",)" +
                  std::string(kNoIntent) +
                  R"("uniqueName": ":::0.0","unifiedPlatform": "false","expandablePlatform": "true",)"
                  R"("hardware": "true","softwareEmulation": "true","hardwareEmulation": "false",)"
                  R"("hardwareEmuPlatform": "false","maxAXIMMManagers": "0","maxAXIMMSubordinates": "0",)"
                  R"("maxInterrupts": "0","usesNIFD": "false","generatedChangeList": "0"})");
}

// A fixed platform, and keys that are not there: what is read "if present" keeps its default, all else is emptied.
TEST(PlatformDocument, ReadFromAlmostNothing) {
    HPLPlatform platform;
    platform.setName("emptied");
    read(platform, R"({"expandablePlatform": "no", "unknown": {"deep": "1"}, "tilPartitions": [{"tilInst": "a"}]})");
    EXPECT_EQ(documentOf(platform),
              R"({"versionMajor": "0","versionMinor": "0","usesPR": "false","dcpFunctionStripped": "false",)"
              R"("dcpEncrypted": "false","defaultOutputType": "unknown","designIntent": {)"
              R"("dataCenter": {"value": "false","explicit": "false"},"embedded": {"value": "true",)"
              R"("explicit": "false"},"externalHost": {"value": "false","explicit": "false"},)"
              R"("serverManaged": {"value": "false","explicit": "false"}},"uniqueName": ":::0.0",)"
              R"("unifiedPlatform": "false","expandablePlatform": "false","hardware": "true",)"
              R"("softwareEmulation": "true","hardwareEmulation": "false","hardwareEmuPlatform": "false",)"
              R"("usesNIFD": "false","generatedChangeList": "0"})");
}

TEST(PlatformDocument, DesignIntentThatIsDeclared) {
    HPLPlatform platform;
    read(platform, R"({"usesPR": "TRUE", "designIntent": {"dataCenter": {"value": "false", "explicit": "true"},
                       "embedded": {"value": "true", "explicit": "false"}, "externalHost": {"explicit": "true"}}})");
    EXPECT_FALSE(platform.getDesignIntent().getDataCenter());
    EXPECT_FALSE(platform.getDesignIntent().getEmbedded());
    EXPECT_TRUE(platform.getDesignIntent().getExternalHost());  // without a value it is computed
    EXPECT_TRUE(platform.getDesignIntent().getServerManaged());
}

TEST(PlatformDocument, ReadAndWritten) {
    HPLPlatform platform;
    read(platform, R"({"generatedChangeList": "42", "generatedName": "g", "generatedVersion": "2026.2",
        "generatedTimestamp": "now", "generatedIpChangeList": "not read", "hasExternalSources": "true",
        "hasRQAContent": "true", "genLink": "true", "genSwEmuLink": "true", "idCode": "0x1", "extendedIdCode": "0x2",
        "vendor": "v", "boardId": "b", "name": "n", "description": "not read", "versionMajor": "1", "versionMinor": "2",
        "hostArchitecture": "AARCH64", "hostInterface": "axi", "platformState": "impl", "topModuleName": "top",
        "acceleratorBinaryContent": "pdi", "acceleratorBinaryFormat": "x", "unifiedPlatform": "true",
        "dcpFunctionStripped": "true", "dcpEncrypted": "true", "usesNIFD": "true", "hardware": "false",
        "softwareEmulation": "false", "hardwareEmulation": "false", "hardwareEmuPlatform": "true",
        "defaultOutputType": "xo", "validAcceleratorBinaryContentValues": "a,b,,a", "usesPR": "true",
        "zuncCompileXPSwitches": ["c1", "c1"], "zuncLinkXPSwitches": ["l1"],
        "designIpInstances": [{"vlnv": "ip", "instance": "i", "configuration": {"K": "V"}}],
        "flash": {"interfaceType": "spix4", "size": "1024"},
        "designIDs": {"designID": "1", "parentID": "2", "nodeID": "3", "functionID": "4294967295",
                      "tilngineIDs": {"plInterfaceID": "9", "nodeID": "5", "uniqueID": "6", "puID": "7"}},
        "reconfigPartitionIDs": [{"designID": "8", "tilngineIDs": {"nodeID": "9"}}],
        "tilHardware": {"arch": "TIL1"}, "tilPartitions": [{"tilInst": "t", "numColumns": "4"}],
        "static": "true", "rm": "true", "drBdInstName": "dr",
        "resources": [{"type": "ff", "count": "5"}, {"type": "REG", "count": "6"}, {"type": "LUT", "count": "0"}],
        "devices": [{"name": "fpga0", "type": "t", "fpgaPart": "arch:dev:pkg:-2", "numSLRs": "2",
                     "part": {"name": "not read"}, "scalableSystemClocks": [{"name": "k", "frequency": "300"}],
                     "core": {"name": "c"}}],
        "interfaces": [{"id": "0", "name": "PCIe", "type": "gen3x4"}], "memories": [{"name": "m"}],
        "files": [{"name": "a.dcp", "type": "DCP", "usedIn": "u", "processingOrder": "late"}],
        "systemClocks": [{"name": "c0", "id": "5", "default": "true"}, {"name": "c1", "frequency": "1.50"}]})");
    hardware::readBusInterfaces(
        parsed(R"([{"name": "bus", "mode": "master", "typeRef": "aximm", "dataWidth": "512", "resetRef": "not read",
                    "slr": "not read", "isrId": "3", "addressSegments": [{"index": "1", "auto": "true", "slr": "SLR0",
                    "instRef": "i", "readBwUsed": "-1", "interleave": "4294967295"}]}])"),
        platform);
    hardware::readNocConnectivity(parsed(R"([{"instRef": "noc", "busInterfaces": [{"name": "nb"}]}, {}])"), platform);
    hardware::readIPParams(parsed(R"([{"name": "p", "value": "1", "valid": "yes", "compRef": "c"}])"), platform);
    EXPECT_EQ(documentOf(platform),
              R"({"versionMajor": "1","versionMinor": "2","hostArchitecture": "aarch64","hostInterface": "axi",)"
              R"("usesPR": "true","platformState": "impl","topModuleName": "top","acceleratorBinaryFormat": "x",)"
              R"("acceleratorBinaryContent": "pdi","validAcceleratorBinaryContentValues": "a,b,",)"
              R"("zuncCompileXPSwitches": ["c1","c1"],"zuncLinkXPSwitches": ["l1"],"dcpFunctionStripped": "true",)"
              R"("dcpEncrypted": "true","defaultOutputType": "xo","designIntent": {"dataCenter": {"value": "true",)"
              R"("explicit": "false"},"embedded": {"value": "false","explicit": "false"},"externalHost": {)"
              R"("value": "true","explicit": "false"},"serverManaged": {"value": "true","explicit": "false"}},)"
              R"("devices": [{"name": "fpga0","type": "t","fpgaPart": "arch:dev:pkg:-2","part": {"name": "devpkg-2",)"
              R"("architecture": "arch","device": "dev","package": "pkg","speedGrade": "-2"},"numSLRs": "2",)"
              R"("scalableSystemClocks": [{"name": "k","frequency": "300"}],"core": {"name": "c",)"
              R"("numComputeUnits": "0"}}],"interfaces": [{"id": "0","name": "PCIe","type": "gen3x4"}],)"
              R"("memories": [{"name": "m"}],"files": [{"name": "a.dcp","type": "DCP","usedIn": "u",)"
              R"("processingOrder": "late"}],"vendor": "v","boardId": "b","name": "n","uniqueName": "v:b:n:1.2",)"
              R"("fpgaPart": "arch","fpgaDevice": "dev","interfaceDescription": "PCIe gen3x4",)"
              R"("unifiedPlatform": "true","expandablePlatform": "true","hardware": "false",)"
              R"("softwareEmulation": "false","hardwareEmulation": "true","hardwareEmuPlatform": "true",)"
              R"("maxAXIMMManagers": "1","maxAXIMMSubordinates": "0","maxInterrupts": "0","usesNIFD": "true",)"
              R"("static": "true","rm": "true","drBdInstName": "dr","generatedName": "g",)"
              R"("generatedVersion": "2026.2","generatedChangeList": "42","generatedTimestamp": "now",)"
              R"("hasExternalSources": "true","hasRQAContent": "true","genLink": "true","genSwEmuLink": "true",)"
              R"("idCode": "0x1","extendedIdCode": "0x2","flash": {"interfaceType": "spix4","size": "1024"},)"
              R"("designIDs": {"designID": "1","parentID": "2","nodeID": "3","functionID": "4294967295",)"
              R"("tilngineIDs": {"nodeID": "5","uniqueID": "6","puID": "7"}},)"
              R"("reconfigPartitionIDs": [{"designID": "8"}],"tilHardware": {"arch": "TIL1"},)"
              R"("tilPartitions": [{"tilInst": "t","startColumn": "0","numColumns": "4"}],)"
              R"("designIpInstances": [{"vlnv": "ip","instance": "i","configuration": {"K": "V"}}],)"
              R"("resources": [{"type": "FF","count": "5"}],"systemClocks": [{"default": "true","name": "c0",)"
              R"("id": "5"},{"default": "false","name": "c1","id": "0","frequency": "1.50"}],)"
              R"("ipParameters": [{"name": "p","value": "1","compRef": "c","valid": "yes"}],)"
              R"("busInterfaces": [{"name": "bus","mode": "master","typeRef": "aximm","dataWidth": "512",)"
              R"("numIdBits": "0","isrId": "0","addressSegments": [{"index": "1","auto": "true","slr": "SLR0",)"
              R"("maxMasters": "0","instRef": "i","readBwUsed": "-1","writeBwUsed": "0",)"
              R"("interleave": "4294967295"}]}],"nocConnectivity": [{"instRef": "noc","busInterfaces": [)"
              R"({"name": "nb","dataWidth": "0","numIdBits": "0","isrId": "0"}]}]})");
}

TEST(PlatformDocument, WhatASetterRefuses) {
    HPLPlatform platform;
    EXPECT_THROW(read(platform, R"({"devices": [{"name": "d"}]})"), boost::property_tree::ptree_bad_path);
    EXPECT_THROW(read(platform, R"({"devices": [{"fpgaPart": "a:b", "core": {}}]})"), HEXAlgException);
    EXPECT_THROW(read(platform, R"({"featureRoms": [{"uuid": "x"}]})"), HEXAlgException);
    EXPECT_THROW(read(platform, R"({"designIpInstances": [{"configuration": {"a": "1", "a": "1"}}]})"),
                 HEXAlgException);
    // Of several faults the first in the order of reading is reported.
    try {
        read(platform, R"({"devices": [{}], "tilHardware": {"arch": "x"}})");
        FAIL() << "not refused";
    } catch (const HEXAlgException& e) {
        EXPECT_STREQ(e.what(), "HTEQTilHardware::setArch() - Invalid til architecture specified: x");
    }
}
