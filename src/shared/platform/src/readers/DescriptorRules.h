#pragma once
#include <string>

#include "readers/SaturateCast.h"
#include "records/TEQPlatformLMX.h"
#include "util/HUTFile.h"

/// Rules for reading a descriptor, shared by its reader and `check`.
namespace readers {

/// The file that an element of the descriptor `descriptor` names.
template <class Element>
std::string pathOf(const Element& element, const std::string& descriptor) {
    const std::string separator = HUTFile::getDirSeparator();
    return HUTFile::getParent(descriptor) + separator + element.path.get() + separator + element.name.get();
}

/// The same for an archive, whose path is made canonical.
template <class Element>
std::string archiveOf(const Element& element, const std::string& descriptor) {
    return HUTFile::getCanonicalName(pathOf(element, descriptor));
}

/// Of a partition that names an archive for emulation only: the format allows it, but the platform cannot be loaded.
inline constexpr char kNoHardwareOfPartition[] = "the partition has no hardwarePlatform";

/// The partition id for the attribute's value.
inline unsigned partitionId(const xml::Attr<xml::Integer>& attr) {
    return saturate_cast<unsigned>(attr.get().value());
}

}  // namespace readers
