#pragma once
#include "json/JsonKeys.h"
#include "platform/HTEQEmulations.h"
#include "records/TEQEmulationLMX.h"

/// The keys of the emulation metadata in JSON, for readers and `check`.
namespace json {

/// "hw_emu.json": "emulations" and its content.
template <>
std::span<const Key<HTEQEmulations>> keysOf<HTEQEmulations>();
/// The extended metadata. All its objects fill the same ROM.
template <>
std::span<const Key<HTEQEmuFeatureRom>> keysOf<HTEQEmuFeatureRom>();

}  // namespace json

namespace readers {

/// Adds what the XML form has. Its version attributes are not in the model.
void fill(const TEQEmulation::Root& record, HTEQEmulations& emulations);

}  // namespace readers
