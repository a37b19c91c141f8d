#include "records/TEQEmulationLMX.h"

namespace TEQEmulation {

namespace {

using xml::many;
using xml::one;
using xml::required;

constexpr auto kFileAttributes =
    xml::attributes<File>(required<&File::Type>("Type",
                                                "Kind of file. EMU_HPFM says that the platform supports hardware "
                                                "emulation, TOP_BD that it supports two block designs."),
                          required<&File::Name>("Name", "Name of the file, a member of the archive."));
constexpr auto kFile = xml::element(kFileAttributes);

constexpr auto kFilesChildren =
    xml::children<Files>(many<&Files::files>("File", kFile, "One file that the target needs."));
constexpr auto kFiles = xml::element(kFilesChildren);

constexpr auto kEmulationAttributes =
    xml::attributes<Emulation>(required<&Emulation::Name>("Name", "Name of the emulation target."));
constexpr auto kEmulationChildren =
    xml::children<Emulation>(one<&Emulation::files>("Files", kFiles, "The files that the target needs."));
constexpr auto kEmulation = xml::element(kEmulationAttributes, kEmulationChildren);

constexpr auto kEmulationsChildren =
    xml::children<Emulations>(many<&Emulations::emulations>("Emulation", kEmulation, "An emulation target."));
constexpr auto kEmulations = xml::element(kEmulationsChildren);

constexpr auto kRootAttributes = xml::attributes<Root>(
    required<&Root::VersionMajor>("VersionMajor", "Version of this format, before the point; nothing depends on it."),
    required<&Root::VersionMinor>("VersionMinor", "Version of this format after the point; not used."));
constexpr auto kRootChildren =
    xml::children<Root>(one<&Root::emulations>("Emulations", kEmulations, "The emulation targets of the platform."));
constexpr auto kRoot = xml::element(kRootAttributes, kRootChildren);

}  // namespace

constexpr xml::Document<Root> kDocument =
    xml::document("", "", "Root", kRoot, "The emulation targets of a hardware platform.");

}  // namespace TEQEmulation
