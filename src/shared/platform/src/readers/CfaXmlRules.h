#pragma once
#include <cstdint>
#include <string>

#include "records/TEQCfaXmlLMX.h"
#include "text/HSTStringUtils.h"

/// Rules for reading the XML metadata, shared by its reader and `check`.
namespace readers {

/// The value of a flag in the document.
inline bool isTrue(const xml::Attr<std::string>& flag) {
    return flag.isSet() && HSTStringUtils::iequals(flag.get(), "true");
}

/// The schema version that this library supports.
inline std::int32_t currentSchema() { return static_cast<std::int32_t>(BasePlatform::Root().VersionMajor.get()); }

/// Whether the document is refused because its schema is newer. A pre_synth platform is always read.
inline bool isNewerSchema(const BasePlatform::Root& root) {
    const xml::Attr<std::string>& state = root.cfa.build.PlatformState;
    if (state.isSet() && HSTStringUtils::iequals(state.get(), "pre_synth")) return false;
    return static_cast<std::int32_t>(root.VersionMajor.get()) > currentSchema();
}

}  // namespace readers
