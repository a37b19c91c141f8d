#pragma once
#include <map>
#include <string>

#include "text/ZrApi.h"

/// The kinds of files that a platform can hold. The text of a kind is the name of its enumerator.
class ZR_API HTEQPfmFileTypes {
public:
    enum class FileType {
        DCP,
        PR_SHELL_DCP,
        BB_LOCKED_IMPL_DCP,
        BB_SYNTH_DCP,
        FULL_BIT,
        PDI,
        PARTIAL_PDI,
        PL_PDI,
        BOOT_PDI,
        PLM_ELF,
        PMC_CDO,
        STAGE1_BIT,
        STAGE2_BIT,
        CLEAR_BIT,
        PARTIAL_BIT,
        MCS,
        SECONDARY_MCS,
        HPFM,
        REBUILD_TCL,
        DR_BD,
        TOP_BD,
        IP_REPO_PATH,
        IP_CACHE_DIR,
        BOARD_REPO_PATH,
        SIM_BINARY,
        META_JSON,
        EXT_META_JSON,
        EMU_JSON,
        EMU_XML,
        SEMANTIC_LABEL,
        PFM_PROP_RESTORE,
        MMI,
        TILPRJ,
        NOC_TRAFFIC,
        NOC_CONSTRAINT,
        NOC_SOLUTION,
        FEATURE_ROM_TCL,
        BIF,
        PARTITION_META,
        DTSI,
        ISS,
        ADDRESS_MAP,
        LINK_RUNTIME,
        PRE_SYS_LINK_TCL,
        POST_SYS_LINK_TCL,
        PRE_SYS_LINK_OVERLAY_TCL,
        POST_SYS_LINK_OVERLAY_TCL,
        POST_DEBUG_PROFILE_OVERLAY_TCL,
        PRE_CREATE_PROJECT_TCL,
        PRE_SYNTH_DESIGN_TCL,
        POST_SYNTH_DESIGN_TCL,
        PRE_INIT_TCL,
        POST_INIT_TCL,
        PRE_OPT_TCL,
        POST_OPT_TCL,
        PRE_POWER_OPT_TCL,
        POST_POWER_OPT_TCL,
        PRE_PLACE_TCL,
        POST_PLACE_TCL,
        PRE_POST_PLACE_POWER_OPT_TCL,
        POST_POST_PLACE_POWER_OPT_TCL,
        PRE_PHYS_OPT_TCL,
        POST_PHYS_OPT_TCL,
        PRE_ROUTE_TCL,
        POST_ROUTE_TCL,
        PRE_POST_ROUTE_PHYS_OPT_TCL,
        POST_POST_ROUTE_PHYS_OPT_TCL,
        PRE_WRITE_BITSTREAM_TCL,
        POST_WRITE_BITSTREAM_TCL,
        SYNTH_CONSTRS,
        IMPL_CONSTRS,
        UNKNOWN,  ///< without a text
    };

    /// The script hooks and constraints of a build: the last kinds of `FileType`, in the same order, with their own
    /// numbers.
    enum class TclFileType {
        PRE_SYS_LINK_TCL,
        POST_SYS_LINK_TCL,
        PRE_SYS_LINK_OVERLAY_TCL,
        POST_SYS_LINK_OVERLAY_TCL,
        POST_DEBUG_PROFILE_OVERLAY_TCL,
        PRE_CREATE_PROJECT_TCL,
        PRE_SYNTH_DESIGN_TCL,
        POST_SYNTH_DESIGN_TCL,
        PRE_INIT_TCL,
        POST_INIT_TCL,
        PRE_OPT_TCL,
        POST_OPT_TCL,
        PRE_POWER_OPT_TCL,
        POST_POWER_OPT_TCL,
        PRE_PLACE_TCL,
        POST_PLACE_TCL,
        PRE_POST_PLACE_POWER_OPT_TCL,
        POST_POST_PLACE_POWER_OPT_TCL,
        PRE_PHYS_OPT_TCL,
        POST_PHYS_OPT_TCL,
        PRE_ROUTE_TCL,
        POST_ROUTE_TCL,
        PRE_POST_ROUTE_PHYS_OPT_TCL,
        POST_POST_ROUTE_PHYS_OPT_TCL,
        PRE_WRITE_BITSTREAM_TCL,
        POST_WRITE_BITSTREAM_TCL,
        SYNTH_CONSTRS,
        IMPL_CONSTRS,
        UNKNOWN,  ///< without a text
    };

    static std::map<FileType, std::string> getFileTypeMap();
    static std::map<TclFileType, std::string> getTclFileTypeMap();

    /// Empty for a value without a text.
    static std::string toString(FileType type);
    static std::string toString(TclFileType type);
    /// Case is ignored; `UNKNOWN` if no kind has this text.
    static FileType toFileType(const std::string& text);
    static TclFileType toTclFileType(const std::string& text);
};
