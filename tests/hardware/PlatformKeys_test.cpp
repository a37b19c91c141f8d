#include <gtest/gtest.h>

#include <boost/property_tree/exceptions.hpp>

#include "hardware/Documents.h"
#include "platform/HPLPlatform.h"

TEST(PlatformDocument, DesignIntentThatIsDeclared) {
    HPLPlatform platform;
    platform.setExpandable(false);
    readPlatform(platform, "{}");
    EXPECT_TRUE(platform.isExpandable()) << "unless the document says otherwise";
    readPlatform(platform,
                 R"({"usesPR": "TRUE", "designIntent": {"dataCenter": {"value": "false", "explicit": "true"},
                       "embedded": {"value": "true", "explicit": "false"}, "externalHost": {"explicit": "true"}}})");
    EXPECT_FALSE(platform.getDesignIntent().getDataCenter());
    EXPECT_FALSE(platform.getDesignIntent().getEmbedded());
    EXPECT_TRUE(platform.getDesignIntent().getExternalHost());  // without a value it is computed
    EXPECT_TRUE(platform.getDesignIntent().getServerManaged());
}

TEST(PlatformDocument, WhatASetterRefuses) {
    HPLPlatform platform;
    EXPECT_THROW(readPlatform(platform, R"({"devices": [{"name": "d"}]})"), boost::property_tree::ptree_bad_path);
    EXPECT_THROW(readPlatform(platform, R"({"devices": [{"fpgaPart": "a:b", "core": {}}]})"), HEXAlgException);
    EXPECT_THROW(readPlatform(platform, R"({"featureRoms": [{"uuid": "x"}]})"), HEXAlgException);
    EXPECT_THROW(readPlatform(platform, R"({"designIpInstances": [{"configuration": {"a": "1", "a": "1"}}]})"),
                 HEXAlgException);
    // Of several faults the first in the order of reading is reported.
    EXPECT_EQ(refusalOf<HEXAlgException>(
                  [&] { readPlatform(platform, R"({"devices": [{}], "tilHardware": {"arch": "x"}})"); }),
              "HTEQTilHardware::setArch() - Invalid til architecture specified: x");
}
