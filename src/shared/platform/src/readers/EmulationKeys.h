#pragma once
#include "json/JsonKeys.h"
#include "platform/HTEQEmulations.h"

/// The keys of the emulation metadata in JSON, for readers and `check`.
namespace json {

/// "hw_emu.json": "emulations" and its content.
template <>
std::span<const Key<HTEQEmulations>> keysOf<HTEQEmulations>();
/// The extended metadata. All its objects fill the same ROM.
template <>
std::span<const Key<HTEQEmuFeatureRom>> keysOf<HTEQEmuFeatureRom>();

}  // namespace json
