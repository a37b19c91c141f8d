#pragma once

namespace teq_platform {

/// The member of an archive that the hardware metadata is read from.
enum class HwMetadataMode {
    Default = 0,          ///< the JSON member "alt_<ext>.json", else "<ext>.json", else the XML member
    PrimaryJsonOnly = 1,  ///< the JSON member "<ext>.json", else the XML member
    XmlOnly = 2,          ///< the XML member
};

}  // namespace teq_platform
