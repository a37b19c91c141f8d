#include "ReadFile.h"
#include "msg/HEXAll.h"
#include "platform/HTEQTilPartition.h"
#include "platform/HTEQTilPartitionsJsonReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    try {
        for (const HTEQTilPartition& root : HTEQTilPartitionsJsonReader::readText({data, data + size}, "input")) {
            require(root.isRoot(), "a partition of the file is a root");
            require(root.isPartition() || !root.hasPartitions(), "only a partition has parts");
            requireDocument(root);
        }
    } catch (const HEXAlgException&) {  // no JSON
    }
    return 0;
}
