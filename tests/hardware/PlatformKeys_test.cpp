#include <gtest/gtest.h>

#include <boost/property_tree/exceptions.hpp>

#include "hardware/Documents.h"
#include "platform/HPLPlatform.h"

namespace {

const char kNoIntent[] =
    R"("designIntent": {"dataCenter": {"value": "false","explicit": "false"},"embedded": {"value": "false",)"
    R"("explicit": "false"},"externalHost": {"value": "false","explicit": "false"},)"
    R"("serverManaged": {"value": "false","explicit": "false"}},)";

void read(HPLPlatform& platform, std::string_view text) {
    json::Document document;
    document.parse(std::string(text), "test");
    hardware::readDocument(document.root(), platform);
}

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
    platform.setExpandable(false);
    read(platform, "{}");
    EXPECT_TRUE(platform.isExpandable()) << "unless the document says otherwise";
    read(platform, R"({"usesPR": "TRUE", "designIntent": {"dataCenter": {"value": "false", "explicit": "true"},
                       "embedded": {"value": "true", "explicit": "false"}, "externalHost": {"explicit": "true"}}})");
    EXPECT_FALSE(platform.getDesignIntent().getDataCenter());
    EXPECT_FALSE(platform.getDesignIntent().getEmbedded());
    EXPECT_TRUE(platform.getDesignIntent().getExternalHost());  // without a value it is computed
    EXPECT_TRUE(platform.getDesignIntent().getServerManaged());
}

TEST(PlatformDocument, WhatASetterRefuses) {
    HPLPlatform platform;
    EXPECT_THROW(read(platform, R"({"devices": [{"name": "d"}]})"), boost::property_tree::ptree_bad_path);
    EXPECT_THROW(read(platform, R"({"devices": [{"fpgaPart": "a:b", "core": {}}]})"), HEXAlgException);
    EXPECT_THROW(read(platform, R"({"featureRoms": [{"uuid": "x"}]})"), HEXAlgException);
    EXPECT_THROW(read(platform, R"({"designIpInstances": [{"configuration": {"a": "1", "a": "1"}}]})"),
                 HEXAlgException);
    // Of several faults the first in the order of reading is reported.
    EXPECT_EQ(
        refusalOf<HEXAlgException>([&] { read(platform, R"({"devices": [{}], "tilHardware": {"arch": "x"}})"); }),
        "HTEQTilHardware::setArch() - Invalid til architecture specified: x");
}
