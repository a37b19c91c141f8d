#include "platform/HTEQPfmFileTypes.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "text/HSTStringUtils.h"

namespace {

using FileType = HTEQPfmFileTypes::FileType;
using TclFileType = HTEQPfmFileTypes::TclFileType;

struct Row {
    FileType type;
    std::string_view text;
};

#define ZR_ROW(name) \
    Row { FileType::name, #name }
constexpr std::array kRows{
    ZR_ROW(DCP),
    ZR_ROW(PR_SHELL_DCP),
    ZR_ROW(BB_LOCKED_IMPL_DCP),
    ZR_ROW(BB_SYNTH_DCP),
    ZR_ROW(FULL_BIT),
    ZR_ROW(PDI),
    ZR_ROW(PARTIAL_PDI),
    ZR_ROW(PL_PDI),
    ZR_ROW(BOOT_PDI),
    ZR_ROW(PLM_ELF),
    ZR_ROW(PMC_CDO),
    ZR_ROW(STAGE1_BIT),
    ZR_ROW(STAGE2_BIT),
    ZR_ROW(CLEAR_BIT),
    ZR_ROW(PARTIAL_BIT),
    ZR_ROW(MCS),
    ZR_ROW(SECONDARY_MCS),
    ZR_ROW(HPFM),
    ZR_ROW(REBUILD_TCL),
    ZR_ROW(DR_BD),
    ZR_ROW(TOP_BD),
    ZR_ROW(IP_REPO_PATH),
    ZR_ROW(IP_CACHE_DIR),
    ZR_ROW(BOARD_REPO_PATH),
    ZR_ROW(SIM_BINARY),
    ZR_ROW(META_JSON),
    ZR_ROW(EXT_META_JSON),
    ZR_ROW(EMU_JSON),
    ZR_ROW(EMU_XML),
    ZR_ROW(SEMANTIC_LABEL),
    ZR_ROW(PFM_PROP_RESTORE),
    ZR_ROW(MMI),
    ZR_ROW(TILPRJ),
    ZR_ROW(NOC_TRAFFIC),
    ZR_ROW(NOC_CONSTRAINT),
    ZR_ROW(NOC_SOLUTION),
    ZR_ROW(FEATURE_ROM_TCL),
    ZR_ROW(BIF),
    ZR_ROW(PARTITION_META),
    ZR_ROW(DTSI),
    ZR_ROW(ISS),
    ZR_ROW(ADDRESS_MAP),
    ZR_ROW(LINK_RUNTIME),
    ZR_ROW(PRE_SYS_LINK_TCL),
    ZR_ROW(POST_SYS_LINK_TCL),
    ZR_ROW(PRE_SYS_LINK_OVERLAY_TCL),
    ZR_ROW(POST_SYS_LINK_OVERLAY_TCL),
    ZR_ROW(POST_DEBUG_PROFILE_OVERLAY_TCL),
    ZR_ROW(PRE_CREATE_PROJECT_TCL),
    ZR_ROW(PRE_SYNTH_DESIGN_TCL),
    ZR_ROW(POST_SYNTH_DESIGN_TCL),
    ZR_ROW(PRE_INIT_TCL),
    ZR_ROW(POST_INIT_TCL),
    ZR_ROW(PRE_OPT_TCL),
    ZR_ROW(POST_OPT_TCL),
    ZR_ROW(PRE_POWER_OPT_TCL),
    ZR_ROW(POST_POWER_OPT_TCL),
    ZR_ROW(PRE_PLACE_TCL),
    ZR_ROW(POST_PLACE_TCL),
    ZR_ROW(PRE_POST_PLACE_POWER_OPT_TCL),
    ZR_ROW(POST_POST_PLACE_POWER_OPT_TCL),
    ZR_ROW(PRE_PHYS_OPT_TCL),
    ZR_ROW(POST_PHYS_OPT_TCL),
    ZR_ROW(PRE_ROUTE_TCL),
    ZR_ROW(POST_ROUTE_TCL),
    ZR_ROW(PRE_POST_ROUTE_PHYS_OPT_TCL),
    ZR_ROW(POST_POST_ROUTE_PHYS_OPT_TCL),
    ZR_ROW(PRE_WRITE_BITSTREAM_TCL),
    ZR_ROW(POST_WRITE_BITSTREAM_TCL),
    ZR_ROW(SYNTH_CONSTRS),
    ZR_ROW(IMPL_CONSTRS),
};
#undef ZR_ROW

constexpr bool inOrder() {
    for (std::size_t i = 0; i < kRows.size(); ++i)
        if (kRows[i].type != FileType(i)) return false;
    return true;
}
static_assert(kRows.size() == std::size_t(FileType::UNKNOWN) && inOrder(), "one row for each kind, in its order");

constexpr std::size_t kFirstTcl = std::size_t(FileType::PRE_SYS_LINK_TCL);
static_assert(kRows.size() - kFirstTcl == std::size_t(TclFileType::UNKNOWN), "the hooks are the last kinds");

template <class Type>
constexpr std::span<const Row> rowsOf() {
    return std::is_same_v<Type, TclFileType> ? std::span(kRows).subspan(kFirstTcl) : std::span(kRows);
}

template <class Type>
std::map<Type, std::string> mapOf() {
    static const auto map = [] {
        std::map<Type, std::string> all;
        for (int number = 0; const Row& row : rowsOf<Type>()) all.emplace(Type(number++), row.text);
        return all;
    }();
    return map;
}

template <class Type>
std::string textOf(Type type) {
    const auto rows = rowsOf<Type>();
    const auto number = static_cast<std::size_t>(type);
    return number < rows.size() ? std::string(rows[number].text) : std::string();
}

template <class Type>
Type typeOf(std::string_view text) {
    const auto rows = rowsOf<Type>();
    const auto row =
        std::ranges::find_if(rows, [text](const Row& r) { return HSTStringUtils::iequals(r.text, text); });
    return Type(row - rows.begin());
}

}  // namespace

std::map<FileType, std::string> HTEQPfmFileTypes::getFileTypeMap() { return mapOf<FileType>(); }
std::map<TclFileType, std::string> HTEQPfmFileTypes::getTclFileTypeMap() { return mapOf<TclFileType>(); }

std::string HTEQPfmFileTypes::toString(FileType type) { return textOf(type); }
std::string HTEQPfmFileTypes::toString(TclFileType type) { return textOf(type); }

FileType HTEQPfmFileTypes::toFileType(const std::string& text) { return typeOf<FileType>(text); }
TclFileType HTEQPfmFileTypes::toTclFileType(const std::string& text) { return typeOf<TclFileType>(text); }
