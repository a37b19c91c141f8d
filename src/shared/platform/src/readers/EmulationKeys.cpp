#include "readers/EmulationKeys.h"

namespace {

using json::Form;
using json::Node;

/// The lists are read-only.
template <class T>
void writeNothing(json::JSONObjectWriter&, const char*, const T&) {}

using F = json::Keys<HTEQEmulationFile>;
constexpr json::Key<HTEQEmulationFile> kFileKeys[] = {
    required(F::text<&HTEQEmulationFile::getType,
                     [](HTEQEmulationFile& file, const std::string& text) { file.setType(text.c_str()); }>("type")),
    required(F::text<&HTEQEmulationFile::getName,
                     [](HTEQEmulationFile& file, const std::string& text) { file.setName(text.c_str()); }>("name")),
    ifPresent(F::text<&HTEQEmulationFile::getInstPath,
                      [](HTEQEmulationFile& file, const std::string& text) { file.setInstPath(text.c_str()); }>(
        "inst_path")),
};

/// A file without type or name is not added.
void readFiles(HTEQEmulation& emulation, const Node& list) {
    for (const Node item : list) {
        HTEQEmulationFile file;
        json::readKeys(item, kFileKeys, file);
        *emulation.createFile() = std::move(file);
    }
}

using E = json::Keys<HTEQEmulation>;
constexpr json::Key<HTEQEmulation> kEmulationKeys[] = {
    E::text<&HTEQEmulation::getName, &HTEQEmulation::setName>("name"),
    required(E::custom<&writeNothing<HTEQEmulation>, &readFiles>("files", Form::list,
                                                                 &json::shapesOfRows<HTEQEmulationFile, kFileKeys>)),
};

void readEmulations(HTEQEmulations& emulations, const Node& list) {
    for (const Node item : list) json::readKeys(item, kEmulationKeys, *emulations.createEmulation());
}

using A = json::Keys<HTEQEmulations>;
constexpr json::Key<HTEQEmulations> kKeys[] = {
    ifPresent(A::text<&HTEQEmulations::getPfmMetadataVersion, &HTEQEmulations::setPfmMetadataVersion>(
        "pfm_metadata_version")),
    required(A::custom<&writeNothing<HTEQEmulations>, &readEmulations>(
        "emulations", Form::list, &json::shapesOfRows<HTEQEmulation, kEmulationKeys>)),
};

using Rom = HTEQEmuFeatureRom;
using R = json::Keys<Rom>;

constexpr json::Key<Rom> kBitMapKeys[] = {
    ifPresent(R::text<&Rom::getBitMapValue, &Rom::setBitMapValue>("value")),
    ifPresent(R::text<&Rom::getBitMapBoardSchedular, &Rom::setBitMapBoardSchedular>("boardScheduler")),
    ifPresent(R::text<&Rom::getBitMapPeerToPeer, &Rom::setBitMapPeerToPeer>("peerToPeer")),
};

/// Reads the objects of a list in turn into the same ROM.
template <const auto& Table>
void readAll(Rom& rom, const Node& list) {
    for (const Node item : list) json::readKeys(item, Table, rom);
}

constexpr json::Key<Rom> kFeatureRomKeys[] = {
    ifPresent(R::text<&Rom::getVBNV, &Rom::setVBNV>("vbnvName")),
    ifPresent(R::text<&Rom::getCdmaBaseAddress0, &Rom::setCdmaBaseAddress0>("cdmaBaseAddress0")),
    ifPresent(R::text<&Rom::getCdmaBaseAddress1, &Rom::setCdmaBaseAddress1>("cdmaBaseAddress1")),
    ifPresent(R::text<&Rom::getCdmaBaseAddress2, &Rom::setCdmaBaseAddress2>("cdmaBaseAddress2")),
    ifPresent(R::text<&Rom::getCdmaBaseAddress3, &Rom::setCdmaBaseAddress3>("cdmaBaseAddress3")),
    required(R::custom<&writeNothing<Rom>, &readAll<kBitMapKeys>>("featureBitMap", Form::list,
                                                                  &json::shapesOfRows<Rom, kBitMapKeys>)),
};

constexpr json::Key<Rom> kRomKeys[] = {
    required(R::custom<&writeNothing<Rom>, &readAll<kFeatureRomKeys>>("featureRoms", Form::list,
                                                                      &json::shapesOfRows<Rom, kFeatureRomKeys>)),
};

}  // namespace

template <>
std::span<const json::Key<HTEQEmulations>> json::keysOf<HTEQEmulations>() {
    return kKeys;
}

template <>
std::span<const json::Key<Rom>> json::keysOf<Rom>() {
    return kRomKeys;
}
