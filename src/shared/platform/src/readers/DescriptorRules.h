#pragma once
#include <string>

#include "readers/SaturateCast.h"
#include "records/TEQPlatformLMX.h"
#include "util/HUTFile.h"

/// How a descriptor is read, for its reader and for those who check one.
namespace readers {

/// The file that an element of the descriptor `descriptor` names.
template <class Element>
std::string pathOf(const Element& element, const std::string& descriptor) {
    const std::string separator = HUTFile::getDirSeparator();
    return HUTFile::getParent(descriptor) + separator + element.path.get() + separator + element.name.get();
}

/// The same of an archive, whose path is made canonical.
template <class Element>
std::string archiveOf(const Element& element, const std::string& descriptor) {
    return HUTFile::getCanonicalName(pathOf(element, descriptor));
}

/// The id of a partition that the attribute means.
inline unsigned partitionId(const xml::Attr<xml::Integer>& attr) {
    return saturate_cast<unsigned>(attr.get().value());
}

}  // namespace readers
