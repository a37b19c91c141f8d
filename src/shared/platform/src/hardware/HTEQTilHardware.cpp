#include "platform/HTEQTilHardware.h"

#include <string_view>

#include "hardware/HardwareKeys.h"
#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"

namespace {

using Til = HTEQTilHardware;
using K = json::Keys<Til>;

constexpr json::Key<Til> kShimKeys[] = {
    K::number<&Til::getStartShimRow, &Til::setStartShimRow>("start"),
    K::number<&Til::getNumShimRows, &Til::setNumShimRows>("num"),
};
constexpr json::Key<Til> kCoreKeys[] = {
    K::number<&Til::getStartCoreRow, &Til::setStartCoreRow>("start"),
    K::number<&Til::getNumCoreRows, &Til::setNumCoreRows>("num"),
};
constexpr json::Key<Til> kMemKeys[] = {
    K::number<&Til::getStartMemRow, &Til::setStartMemRow>("start"),
    K::number<&Til::getNumMemRows, &Til::setNumMemRows>("num"),
};

/// Rows of one kind, absent if there are none.
template <auto GetNum, const auto& Rows>
constexpr json::Key<Til> rows(const char* name) {
    return json::when<GetNum>(K::group<Rows>(name));
}

constexpr json::Key<Til> kKeys[] = {
    refusing(K::text<[](const Til& til) {
        return til.getArch() == Til::Arch::NO_TIL ? std::string() : til.getArchAsString();
    },
                     [](Til& til, const std::string& text) { til.setArch(text); }>("arch")),
    K::numberUnlessZero<&Til::getNpiBaseAddress, &Til::setNpiBaseAddress>("npiBaseAddress"),
    rows<&Til::getNumShimRows, kShimKeys>("shimRows"),
    rows<&Til::getNumCoreRows, kCoreKeys>("coreRows"),
    rows<&Til::getNumMemRows, kMemKeys>("memRows"),
};

}  // namespace

template <>
std::span<const json::Key<Til>> json::keysOf<Til>() {
    return kKeys;
}

const std::map<Til::Arch, std::string>& HTEQTilHardware::getArchMap() {
    static const std::map<Arch, std::string> map{{Arch::NO_TIL, "NO_TIL"}, {Arch::TIL1, "TIL1"},
                                                 {Arch::TILML, "TILML"},   {Arch::TIL2P, "TIL2P"},
                                                 {Arch::TIL2PS, "TIL2PS"}, {Arch::TIL2PK, "TIL2PK"}};
    return map;
}

HTEQTilHardware::Arch HTEQTilHardware::stringToArch(const std::string& text) {
    std::string_view name = text;
    if (HSTStringUtils::iequals(name, "NONE")) name = "NO_TIL";
    if (HSTStringUtils::iequals(name, "TIL")) name = "TIL1";
    for (const auto& [arch, known] : getArchMap())
        if (HSTStringUtils::iequals(name, known)) return arch;
    throw HEXAlgException("HTEQTilHardware::setArch() - Invalid til architecture specified: " + text);
}

const std::string& HTEQTilHardware::archToString(Arch arch) {
    const auto& map = getArchMap();
    const auto at = map.find(arch);
    return at != map.end() ? at->second : map.at(Arch::NO_TIL);
}

void HTEQTilHardware::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
