#include "platform/HTEQEmulationXMLReader.h"

#include <functional>

#include "msg/Budget.h"
#include "msg/HEXFileFault.h"
#include "readers/ArchiveMember.h"
#include "readers/EmulationKeys.h"
#include "readers/Reading.h"
#include "util/HUTPathUtils.h"
#include "xml/XmlReader.h"
#include "zip/Request.h"

namespace {

/// The message is the error's text and has no id.
[[noreturn]] void report(const xml::Exception& e, const std::string& file, const std::string& member) {
    const HEXFileFault fault(readers::diagnosticOf(e, file, member));
    readers::fail(HXMLException(fault.what()).message(), fault.diagnostic());
}

void orXmlException(const std::function<void()>& read) {
    try {
        read();
    } catch (const HEXFileFault& e) {
        throw HXMLException(e.what());
    }
}

}  // namespace

void readers::fill(const TEQEmulation::Root& record, HTEQEmulations& emulations) {
    for (const TEQEmulation::Emulation& from : record.emulations.emulations) {
        HTEQEmulation& emulation = *emulations.createEmulation();
        emulation.setName(from.Name.get());
        for (const TEQEmulation::File& file : from.files.files)
            emulation.createFile(file.Type.get(), file.Name.get());
    }
}

HTEQEmulationXMLReader::HTEQEmulationXMLReader(const std::string& file, HTEQEmulations* emulations)
    : file_(file), emulations_(emulations) {
    if (!HUTPathUtils::exists(file)) throw HEXFileNotFoundException(file);
}

void HTEQEmulationXMLReader::parseXml() {
    const Budget budget;
    try {
        readers::fill(xml::readFile(TEQEmulation::kDocument, file_), *emulations_);
    } catch (const xml::Exception& e) {
        orXmlException([&] { report(e, file_, ""); });
    }
}

void HTEQEmulationXMLReader::readFromCfa(const std::string& archive, const std::string& member,
                                         HTEQEmulations* emulations) {
    const zip::Request request;
    const std::string text = readers::textOfMember(archive, member);
    try {
        readers::fill(xml::read(TEQEmulation::kDocument, text, archive + "!" + member), *emulations);
    } catch (const xml::Exception& e) {
        report(e, archive, member);
    }
}

void HTEQEmulationXMLReader::parseFromCfa(const std::string& archive, const std::string& member,
                                          HTEQEmulations* emulations) {
    orXmlException([&] { readFromCfa(archive, member, emulations); });
}
