#include "platform/HPLFile.h"

#include "hardware/HardwareKeys.h"

namespace {

using File = HPLFile;
using K = json::Keys<File>;

constexpr json::Key<File> kKeys[] = {
    K::text<&File::getName, &File::setName>("name"),
    K::text<&File::getType, &File::setType>("type"),
    K::text<&File::getUsedIn, &File::setUsedIn>("usedIn"),
    K::text<&File::getProcessingOrder, &File::setProcessingOrder>("processingOrder"),
};

}  // namespace

template <>
std::span<const json::Key<File>> json::keysOf<File>() {
    return kKeys;
}

void HPLFile::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
