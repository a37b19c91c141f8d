#include "platform/HTEQEmulationXMLWriter.h"

#include <utility>

#include "platform/HTEQEmulations.h"
#include "readers/DocumentFile.h"
#include "records/TEQEmulationLMX.h"
#include "xml/XmlWriter.h"

namespace {

TEQEmulation::Emulation recordOf(const HTEQEmulation& emulation) {
    TEQEmulation::Emulation record;
    record.Name.set(emulation.getName());
    for (const HTEQEmulationFile* file : emulation.getFiles()) {
        TEQEmulation::File& to = record.files.files.emplace_back();
        to.Type.set(file->getType());
        to.Name.set(file->getName());
    }
    return record;
}

std::string documentOf(const HTEQEmulations& emulations) {
    TEQEmulation::Root root;
    root.VersionMajor.set(emulations.getVersionMajor());
    root.VersionMinor.set(emulations.getVersionMinor());
    for (const HTEQEmulation* emulation : emulations.getEmulations())
        root.emulations.emulations.push_back(recordOf(*emulation));
    return xml::write(TEQEmulation::kDocument, root);
}

}  // namespace

HTEQEmulationXMLWriter::HTEQEmulationXMLWriter(HTEQEmulations* emulations, std::string file)
    : emulations_(emulations), file_(std::move(file)) {}

void HTEQEmulationXMLWriter::writeXml() {
    readers::writeDocument(file_, [this] { return documentOf(*emulations_); });
}

std::string HTEQEmulationXMLWriter::getText() const {
    return readers::makeDocument(file_, [this] { return documentOf(*emulations_); });
}
