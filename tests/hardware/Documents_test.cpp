#include "hardware/Documents.h"

#include <gtest/gtest.h>

#include <map>

#include "kit/Cases.h"
#include "msg/HEXAll.h"
#include "platform/HPLBoard.h"
#include "platform/HPLCore.h"
#include "platform/HPLMemory.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQTilHardware.h"
#include "platform/HTEQTilPartition.h"

namespace {

template <class T>
std::string writtenAfter(const std::string& text) {
    T record;
    try {
        if constexpr (std::is_same_v<T, HTEQTilPartition>)
            record.fromJSON(parsed(text));
        else if (text != "{}\n" || std::is_same_v<T, HTEQTilHardware>)
            readInto(record, text);
    } catch (const HEXAll& error) {
        return error.what();
    }
    return documentOf(record);
}

TEST(HardwareDocuments, ReadAndWritten) {
    const std::map<std::string, std::string (*)(const std::string&)> classes = {
        {"board", writtenAfter<HPLBoard>},
        {"core", writtenAfter<HPLCore>},
        {"memory", writtenAfter<HPLMemory>},
        {"featureRom", writtenAfter<HTEQHardwareFeatureRom>},
        {"tilHardware", writtenAfter<HTEQTilHardware>},
        {"tilPartition", writtenAfter<HTEQTilPartition>},
    };
    cases::expectTexts(ZR_SOURCE_DIR "/tests/cases/hardware/documents.case",
                       [&](const std::string& name, const std::string& text) { return classes.at(name)(text); });
}

}  // namespace
