#pragma once
#include "json/JsonKeys.h"
#include "platform/HTEQEmulations.h"

/// The keys of the JSON forms of the emulation metadata, for their readers and for those who check such a document.
namespace json {

/// "hw_emu.json": "emulations" and what is in it.
template <>
std::span<const Key<HTEQEmulations>> keysOf<HTEQEmulations>();
/// The extended metadata. All objects in it fill the one ROM.
template <>
std::span<const Key<HTEQEmuFeatureRom>> keysOf<HTEQEmuFeatureRom>();

}  // namespace json
