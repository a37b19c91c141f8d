#include "platform/FileTypes.h"

#include <iterator>

#include "platform/HTEQPfmFileTypes.h"

namespace teq_platform::requests {
namespace {

constexpr FileTypeRow kRows[] = {
    {"DCP", "checkpoint of the design", "link step"},
    {"PR_SHELL_DCP", "checkpoint of the static part around the dynamic region", "link step"},
    {"BB_LOCKED_IMPL_DCP", "implemented checkpoint whose dynamic region is empty and whose static part is locked",
     "link step"},
    {"BB_SYNTH_DCP", "synthesised checkpoint whose dynamic region is empty", "link step"},
    {"FULL_BIT", "bitstream of the whole device", "programming"},
    {"PDI", "device image", "programming"},
    {"PARTIAL_PDI", "device image of the dynamic region", "programming"},
    {"PL_PDI", "device image of the programmable logic", "programming"},
    {"BOOT_PDI", "device image that the board boots from", "programming"},
    {"PLM_ELF", "program of the device's platform manager", "programming"},
    {"PMC_CDO", "configuration data of the device's management controller", "programming"},
    {"STAGE1_BIT", "bitstream of the first of two stages", "programming"},
    {"STAGE2_BIT", "bitstream of the second stage", "programming"},
    {"CLEAR_BIT", "bitstream that clears the dynamic region", "programming"},
    {"PARTIAL_BIT", "bitstream of the dynamic region", "programming"},
    {"MCS", "image of the configuration flash", "programming"},
    {"SECONDARY_MCS", "image of a second configuration flash", "programming"},
    {"HPFM", "the hardware as its generator sees it: bus interfaces, banks, clocks of its own",
     "this library, link step"},
    {"REBUILD_TCL", "script that builds the design anew", "build scripts"},
    {"DR_BD", "block design of the dynamic region", "link step"},
    {"TOP_BD", "block design of the whole design", "link step, emulation"},
    {"IP_REPO_PATH", "folder with an IP repository", "link step"},
    {"IP_CACHE_DIR", "folder with a cache of synthesised IP", "link step"},
    {"BOARD_REPO_PATH", "folder with a board repository", "this library"},
    {"SIM_BINARY", "binary for simulation; with one, the platform has content for simulation",
     "this library, emulation"},
    {"META_JSON", "extension of the metadata; its content is the key `extensions` of the document", "this library"},
    {"EXT_META_JSON", "the same, read if there is no META_JSON", "this library"},
    {"EMU_JSON", "emulation targets, in JSON", "this library, emulation"},
    {"EMU_XML", "emulation targets, in XML", "this library, emulation"},
    {"SEMANTIC_LABEL", "semantic labels of the design", "`zr-platform labels`"},
    {"PFM_PROP_RESTORE", "script that restores the platform's properties", "link step"},
    {"MMI", "memory map of the block RAMs", "programming"},
    {"TILPRJ", "project of the tile array, a nested archive", "this library"},
    {"NOC_TRAFFIC", "traffic specification of the network on chip", "link step"},
    {"NOC_CONSTRAINT", "constraints of the network on chip", "link step"},
    {"NOC_SOLUTION", "solution for the network on chip", "link step"},
    {"FEATURE_ROM_TCL", "script that fills the feature ROM", "build scripts"},
    {"BIF", "description of a boot image", "packaging"},
    {"PARTITION_META", "metadata of a partition, for a run time", "run time"},
    {"DTSI", "device tree of the hardware", "operating system"},
    {"ISS", "files of an instruction set simulator", "emulation"},
    {"ADDRESS_MAP", "address map of the design", "link step, run time"},
    {"LINK_RUNTIME", "data of the link step for a run time", "run time"},
    {"PRE_SYS_LINK_TCL", "script to run before the system is linked", "build scripts"},
    {"POST_SYS_LINK_TCL", "script to run after the system is linked", "build scripts"},
    {"PRE_SYS_LINK_OVERLAY_TCL", "script to run before the overlay is linked", "build scripts"},
    {"POST_SYS_LINK_OVERLAY_TCL", "script to run after the overlay is linked", "build scripts"},
    {"POST_DEBUG_PROFILE_OVERLAY_TCL", "script to run after debugging and profiling are inserted", "build scripts"},
    {"PRE_CREATE_PROJECT_TCL", "script to run before the project is created", "build scripts"},
    {"PRE_SYNTH_DESIGN_TCL", "script to run before synthesis", "build scripts"},
    {"POST_SYNTH_DESIGN_TCL", "script to run after synthesis", "build scripts"},
    {"PRE_INIT_TCL", "script to run before the design is initialised", "build scripts"},
    {"POST_INIT_TCL", "script to run after the design is initialised", "build scripts"},
    {"PRE_OPT_TCL", "script to run before the design is optimised", "build scripts"},
    {"POST_OPT_TCL", "script to run after the design is optimised", "build scripts"},
    {"PRE_POWER_OPT_TCL", "script to run before power is optimised", "build scripts"},
    {"POST_POWER_OPT_TCL", "script to run after power is optimised", "build scripts"},
    {"PRE_PLACE_TCL", "script to run before placement", "build scripts"},
    {"POST_PLACE_TCL", "script to run after placement", "build scripts"},
    {"PRE_POST_PLACE_POWER_OPT_TCL", "script to run before power is optimised after placement", "build scripts"},
    {"POST_POST_PLACE_POWER_OPT_TCL", "script to run after power is optimised after placement", "build scripts"},
    {"PRE_PHYS_OPT_TCL", "script to run before physical optimisation", "build scripts"},
    {"POST_PHYS_OPT_TCL", "script to run after physical optimisation", "build scripts"},
    {"PRE_ROUTE_TCL", "script to run before routing", "build scripts"},
    {"POST_ROUTE_TCL", "script to run after routing", "build scripts"},
    {"PRE_POST_ROUTE_PHYS_OPT_TCL", "script to run before physical optimisation after routing", "build scripts"},
    {"POST_POST_ROUTE_PHYS_OPT_TCL", "script to run after physical optimisation after routing", "build scripts"},
    {"PRE_WRITE_BITSTREAM_TCL", "script to run before the bitstream is written", "build scripts"},
    {"POST_WRITE_BITSTREAM_TCL", "script to run after the bitstream is written", "build scripts"},
    {"SYNTH_CONSTRS", "constraints for synthesis", "build scripts"},
    {"IMPL_CONSTRS", "constraints for implementation", "build scripts"},
};
static_assert(std::size(kRows) == static_cast<std::size_t>(HTEQPfmFileTypes::FileType::UNKNOWN));

}  // namespace

std::span<const FileTypeRow> fileTypes() { return kRows; }

}  // namespace teq_platform::requests
