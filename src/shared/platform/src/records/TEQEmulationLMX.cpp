#include "records/TEQEmulationLMX.h"

namespace TEQEmulation {

namespace {

using xml::many;
using xml::one;
using xml::required;

constexpr auto kFileAttributes = xml::attributes<File>(required<&File::Type>("Type"), required<&File::Name>("Name"));
constexpr auto kFile = xml::element(kFileAttributes);

constexpr auto kFilesChildren = xml::children<Files>(many<&Files::files>("File", kFile));
constexpr auto kFiles = xml::element(kFilesChildren);

constexpr auto kEmulationAttributes = xml::attributes<Emulation>(required<&Emulation::Name>("Name"));
constexpr auto kEmulationChildren = xml::children<Emulation>(one<&Emulation::files>("Files", kFiles));
constexpr auto kEmulation = xml::element(kEmulationAttributes, kEmulationChildren);

constexpr auto kEmulationsChildren =
    xml::children<Emulations>(many<&Emulations::emulations>("Emulation", kEmulation));
constexpr auto kEmulations = xml::element(kEmulationsChildren);

constexpr auto kRootAttributes = xml::attributes<Root>(required<&Root::VersionMajor>("VersionMajor"),
                                                       required<&Root::VersionMinor>("VersionMinor"));
constexpr auto kRootChildren = xml::children<Root>(one<&Root::emulations>("Emulations", kEmulations));
constexpr auto kRoot = xml::element(kRootAttributes, kRootChildren);

}  // namespace

constexpr xml::Document<Root> kDocument = xml::document("", "", "Root", kRoot);

}  // namespace TEQEmulation
