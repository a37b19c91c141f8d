#pragma once
#include "labels/LabelKeys.h"
#include "platform/HTEQSemanticCpuEndpoint.h"
#include "platform/HTEQSemanticDebugNetwork.h"
#include "platform/HTEQSemanticPcieBar.h"
#include "platform/HTEQSemanticPcieEndpoint.h"
#include "platform/HTEQSemanticUuid.h"

/// The keys of each kind of label. Those of an endpoint of either kind follow the ones that both have.
namespace json {

template <>
std::span<const Key<HTEQSemanticUuid>> keysOf<HTEQSemanticUuid>();
template <>
std::span<const Key<HTEQSemanticPcieBar>> keysOf<HTEQSemanticPcieBar>();
template <>
std::span<const Key<HTEQSemanticEndpoint>> keysOf<HTEQSemanticEndpoint>();
template <>
std::span<const Key<HTEQSemanticPcieEndpoint>> keysOf<HTEQSemanticPcieEndpoint>();
template <>
std::span<const Key<HTEQSemanticCpuEndpoint>> keysOf<HTEQSemanticCpuEndpoint>();
template <>
std::span<const Key<HTEQSemanticDebugNetwork>> keysOf<HTEQSemanticDebugNetwork>();

}  // namespace json

namespace labels {

/// Read in addition from a base address register of the type DMA.
std::span<const json::Key<HTEQSemanticPcieBar>> dmaKeys();

}  // namespace labels
