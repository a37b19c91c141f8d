#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "xml/XmlRecord.h"

/// Records of "hw_emu.xml": named emulation targets with their files. A record is named after its element, a member
/// after its attribute or child element.
namespace TEQEmulation {

using xml::Attr;

struct File {
    Attr<std::string> Type;
    Attr<std::string> Name;
    bool operator==(const File&) const = default;
};

struct Files {
    std::vector<File> files;
    bool operator==(const Files&) const = default;
};

struct Emulation {
    Attr<std::string> Name;
    Files files;
    bool operator==(const Emulation&) const = default;
};

struct Emulations {
    std::vector<Emulation> emulations;
    bool operator==(const Emulations&) const = default;
};

struct Root {
    Attr<std::uint32_t> VersionMajor;
    Attr<std::uint32_t> VersionMinor;
    Emulations emulations;
    bool operator==(const Root&) const = default;
};

/// The whole format, for `xml::read` and `xml::write`.
extern const xml::Document<Root> kDocument;

}  // namespace TEQEmulation
