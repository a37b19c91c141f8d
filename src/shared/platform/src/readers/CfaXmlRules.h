#pragma once
#include <cstdint>
#include <string>

#include "records/TEQCfaXmlLMX.h"
#include "text/HSTStringUtils.h"

/// How the XML metadata is read, for its reader and for those who check it.
namespace readers {

/// A flag of the document.
inline bool isTrue(const xml::Attr<std::string>& flag) {
    return flag.isSet() && HSTStringUtils::iequals(flag.get(), "true");
}

/// The schema's version that this library reads.
inline std::int32_t currentSchema() { return static_cast<std::int32_t>(BasePlatform::Root().VersionMajor.get()); }

/// Whether the document is not read because its schema is newer. A platform before synthesis is always read.
inline bool isNewerSchema(const BasePlatform::Root& root) {
    const xml::Attr<std::string>& state = root.cfa.build.PlatformState;
    if (state.isSet() && HSTStringUtils::iequals(state.get(), "pre_synth")) return false;
    return static_cast<std::int32_t>(root.VersionMajor.get()) > currentSchema();
}

}  // namespace readers
