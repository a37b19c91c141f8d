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
    required<&HardwarePlatform::path>("path"), required<&HardwarePlatform::name>("name"));
constexpr auto kHardwarePlatform = xml::element(kHardwarePlatformAttributes);

constexpr auto kHwEmuPlatformAttributes =
    xml::attributes<HwEmuPlatform>(required<&HwEmuPlatform::path>("path"), required<&HwEmuPlatform::name>("name"));
constexpr auto kHwEmuPlatform = xml::element(kHwEmuPlatformAttributes);

constexpr auto kSoftwarePlatformAttributes = xml::attributes<SoftwarePlatform>(
    required<&SoftwarePlatform::path>("path"), required<&SoftwarePlatform::name>("name"));
constexpr auto kSoftwarePlatform = xml::element(kSoftwarePlatformAttributes);

constexpr auto kSoftwarePlatformsChildren = xml::children<SoftwarePlatforms>(
    one<&SoftwarePlatforms::softwarePlatform>("softwarePlatform", kSoftwarePlatform));
constexpr auto kSoftwarePlatforms = xml::element(kSoftwarePlatformsChildren);

constexpr auto kReconfigurablePartitionAnonHardwarePlatformChildren =
    xml::children<ReconfigurablePartitionAnonHardwarePlatform>(
        one<&ReconfigurablePartitionAnonHardwarePlatform::hardwarePlatform>("hardwarePlatform", kHardwarePlatform),
        atMostOne<&ReconfigurablePartitionAnonHardwarePlatform::hwEmuPlatform>("hwEmuPlatform", kHwEmuPlatform));

constexpr auto kReconfigurablePartitionHwEmuChildren = xml::children<ReconfigurablePartitionHwEmu>(
    one<&ReconfigurablePartitionHwEmu::hwEmuPlatform>("hwEmuPlatform", kHwEmuPlatform));

constexpr auto kReconfigurablePartitionAttributes =
    xml::attributes<ReconfigurablePartition>(required<&ReconfigurablePartition::id>("id"));
constexpr xml::Alternative kReconfigurablePartitionAlternatives[] = {
    xml::alternative<&ReconfigurablePartition::content, 0>(kReconfigurablePartitionAnonHardwarePlatformChildren),
    xml::alternative<&ReconfigurablePartition::content, 1>(kReconfigurablePartitionHwEmuChildren)};
constexpr auto kReconfigurablePartition =
    xml::choice(kReconfigurablePartitionAttributes, kReconfigurablePartitionAlternatives);

constexpr auto kAnonHardwarePlatformChildren = xml::children<AnonHardwarePlatform>(
    one<&AnonHardwarePlatform::hardwarePlatform>("hardwarePlatform", kHardwarePlatform),
    atMostOne<&AnonHardwarePlatform::hwEmuPlatform>("hwEmuPlatform", kHwEmuPlatform));

constexpr auto kHwEmuOnlyChildren =
    xml::children<HwEmuOnly>(one<&HwEmuOnly::hwEmuPlatform>("hwEmuPlatform", kHwEmuPlatform));

constexpr auto kPartitionedChildren = xml::children<Partitioned>(atLeastOne<&Partitioned::reconfigurablePartitions>(
    "reconfigurablePartition", kReconfigurablePartition, kMostPartitions));

constexpr auto kHardwarePlatformsAttributes =
    xml::attributes<HardwarePlatforms>(optional<&HardwarePlatforms::defaultRP>("defaultRP"));
constexpr xml::Alternative kHardwarePlatformsAlternatives[] = {
    xml::alternative<&HardwarePlatforms::content, 0>(kAnonHardwarePlatformChildren),
    xml::alternative<&HardwarePlatforms::content, 1>(kHwEmuOnlyChildren),
    xml::alternative<&HardwarePlatforms::content, 2>(kPartitionedChildren)};
constexpr auto kHardwarePlatforms = xml::choice(kHardwarePlatformsAttributes, kHardwarePlatformsAlternatives);

constexpr auto kPlatformAttributes = xml::attributes<Platform>(
    required<&Platform::vendor>("vendor"), required<&Platform::library>("library"), required<&Platform::name>("name"),
    required<&Platform::version>("version"), optional<&Platform::schemaVersion>("schemaVersion"));
constexpr auto kPlatformChildren =
    xml::children<Platform>(one<&Platform::description>("description", kText),
                            one<&Platform::hardwarePlatforms>("hardwarePlatforms", kHardwarePlatforms),
                            one<&Platform::softwarePlatforms>("softwarePlatforms", kSoftwarePlatforms));
constexpr auto kPlatform = xml::element(kPlatformAttributes, kPlatformChildren);

}  // namespace

constexpr xml::Document<Platform> kDocument =
    xml::document("urn:torvane:teq:platform:1.0", "teq", "platform", kPlatform);

}  // namespace TEQPlatform
