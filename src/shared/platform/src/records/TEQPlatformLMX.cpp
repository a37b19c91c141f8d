#include "records/TEQPlatformLMX.h"

namespace TEQPlatform {

namespace {

using xml::atLeastOne;
using xml::atMostOne;
using xml::kText;
using xml::one;
using xml::optional;
using xml::required;

constexpr auto kHardwarePlatformAttributes = xml::attributes<HardwarePlatform>(
    required<&HardwarePlatform::path>("path", "Directory of the file, relative to the descriptor's own."),
    required<&HardwarePlatform::name>("name",
                                      "Name of the hardware archive in it, with its extension .cfa or .lfa."));
constexpr auto kHardwarePlatform = xml::element(kHardwarePlatformAttributes);

constexpr auto kHwEmuPlatformAttributes = xml::attributes<HwEmuPlatform>(
    required<&HwEmuPlatform::path>("path", "Directory of the file, relative to the descriptor's own."),
    required<&HwEmuPlatform::name>("name", "Name of the hardware archive for emulation in it."));
constexpr auto kHwEmuPlatform = xml::element(kHwEmuPlatformAttributes);

constexpr auto kSoftwarePlatformAttributes = xml::attributes<SoftwarePlatform>(
    required<&SoftwarePlatform::path>("path", "Directory of the file, relative to the descriptor's own."),
    required<&SoftwarePlatform::name>("name", "Name of the software file in it, with its extension .spfm."));
constexpr auto kSoftwarePlatform = xml::element(kSoftwarePlatformAttributes);

constexpr auto kSoftwarePlatformsChildren =
    xml::children<SoftwarePlatforms>(one<&SoftwarePlatforms::softwarePlatform>("softwarePlatform", kSoftwarePlatform,
                                                                               "The software file of the platform."));
constexpr auto kSoftwarePlatforms = xml::element(kSoftwarePlatformsChildren);

constexpr auto kReconfigurablePartitionAnonHardwarePlatformChildren =
    xml::children<ReconfigurablePartitionAnonHardwarePlatform>(
        one<&ReconfigurablePartitionAnonHardwarePlatform::hardwarePlatform>("hardwarePlatform", kHardwarePlatform,
                                                                            "The hardware archive of the partition."),
        atMostOne<&ReconfigurablePartitionAnonHardwarePlatform::hwEmuPlatform>(
            "hwEmuPlatform", kHwEmuPlatform, "A separate hardware archive for the emulation of the partition."));

constexpr auto kReconfigurablePartitionHwEmuChildren =
    xml::children<ReconfigurablePartitionHwEmu>(one<&ReconfigurablePartitionHwEmu::hwEmuPlatform>(
        "hwEmuPlatform", kHwEmuPlatform, "The hardware archive of a partition that is only emulated."));

constexpr auto kReconfigurablePartitionAttributes =
    xml::attributes<ReconfigurablePartition>(required<&ReconfigurablePartition::id>(
        "id", "Number of the partition, 0 to 4294967295; of several partitions with one number the last answers."));
constexpr xml::Alternative kReconfigurablePartitionAlternatives[] = {
    xml::alternative<&ReconfigurablePartition::content, 0>(kReconfigurablePartitionAnonHardwarePlatformChildren),
    xml::alternative<&ReconfigurablePartition::content, 1>(kReconfigurablePartitionHwEmuChildren)};
constexpr auto kReconfigurablePartition =
    xml::choice(kReconfigurablePartitionAttributes, kReconfigurablePartitionAlternatives);

constexpr auto kAnonHardwarePlatformChildren = xml::children<AnonHardwarePlatform>(
    one<&AnonHardwarePlatform::hardwarePlatform>("hardwarePlatform", kHardwarePlatform,
                                                 "The hardware archive of the platform."),
    atMostOne<&AnonHardwarePlatform::hwEmuPlatform>("hwEmuPlatform", kHwEmuPlatform,
                                                    "A separate hardware archive for emulation. Without it the "
                                                    "hardware archive's own emulation part is used, if it has one."));

constexpr auto kHwEmuOnlyChildren = xml::children<HwEmuOnly>(one<&HwEmuOnly::hwEmuPlatform>(
    "hwEmuPlatform", kHwEmuPlatform,
    "The hardware archive of a platform that is only emulated; it serves as the hardware file too."));

constexpr auto kPartitionedChildren = xml::children<Partitioned>(atLeastOne<&Partitioned::reconfigurablePartitions>(
    "reconfigurablePartition", kReconfigurablePartition, "A part of the device that is loaded for itself.",
    kMaxPartitions));

constexpr auto kHardwarePlatformsAttributes =
    xml::attributes<HardwarePlatforms>(optional<&HardwarePlatforms::defaultRP>(
        "defaultRP", "Id of the partition that represents the platform; default 0. For partitioned platforms only."));
constexpr xml::Alternative kHardwarePlatformsAlternatives[] = {
    xml::alternative<&HardwarePlatforms::content, 0>(kAnonHardwarePlatformChildren),
    xml::alternative<&HardwarePlatforms::content, 1>(kHwEmuOnlyChildren),
    xml::alternative<&HardwarePlatforms::content, 2>(kPartitionedChildren)};
constexpr auto kHardwarePlatforms = xml::choice(kHardwarePlatformsAttributes, kHardwarePlatformsAlternatives);

constexpr auto kPlatformAttributes = xml::attributes<Platform>(
    required<&Platform::vendor>("vendor", "Who makes the platform."),
    required<&Platform::library>("library", "Library that the platform belongs to."),
    required<&Platform::name>("name", "Name of the platform."),
    required<&Platform::version>("version",
                                 "Version of the platform, a decimal number such as 1.0; stored unchanged."),
    optional<&Platform::schemaVersion>("schemaVersion",
                                       "Version of this format, a decimal number; nothing depends on it."));
constexpr auto kPlatformChildren = xml::children<Platform>(
    one<&Platform::description>("description", kText, "Text for people: what the platform is."),
    one<&Platform::hardwarePlatforms>(
        "hardwarePlatforms", kHardwarePlatforms,
        "The hardware: one archive, an archive for emulation only, or one for each partition."),
    one<&Platform::softwarePlatforms>("softwarePlatforms", kSoftwarePlatforms, "The software."));
constexpr auto kPlatform = xml::element(kPlatformAttributes, kPlatformChildren);

}  // namespace

constexpr xml::Document<Platform> kDocument =
    xml::document("urn:torvane:teq:platform:1.0", "teq", "platform", kPlatform,
                  "A platform descriptor: which hardware, emulation and software files a platform consists of.");

}  // namespace TEQPlatform
