// Documents and archives made from other files.
#include "platform/DerivedFiles.h"

#include <fmt/core.h>

#include <set>

#include "check/JsonCheck.h"
#include "hwdb/HardwareDefinition.h"
#include "json/JsonText.h"
#include "labels/LabelKeys.h"
#include "platform/HDFToCFAConverter.h"
#include "platform/HTEQEmulationJsonWriter.h"
#include "platform/HTEQEmulationXMLWriter.h"
#include "platform/HTEQEmulations.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQSemanticLabelReader.h"
#include "platform/JSONWriter.h"
#include "platform/SimpleFixedLFACreator.h"
#include "readers/EmulationKeys.h"
#include "requests/Inputs.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"
#include "xml/XmlReader.h"
#include "zip/Destination.h"
#include "zip/SourceFile.h"

namespace teq_platform::requests {
namespace {

check::Source sourceOf(const std::string& file) {
    checkInput(file);
    return {file, "", wholefile::read(file, xml::kMaxDocument)};
}

/// Throws for the first error.
void expectSound(check::JsonCheck& check) {
    check::Findings findings;
    check.report(findings);
    for (const CheckFinding& finding : findings.take())
        if (finding.severity == CheckFinding::Severity::error) throw HEXFileFault(finding);
}

std::string partitionMetadata(const HTEQSemanticLabelReader& reader) {
    json::ptree document;
    reader.generatePartitionMetadata(document);
    return json::write(document);
}

std::string extMetadata(const HTEQSemanticLabelReader& reader, const std::string& partition) {
    json::ptree document;
    reader.generateExtMetadata(partition, document);
    return json::write(document);
}

void writeMetadata(const Labels& request, const HTEQSemanticLabelReader& reader) {
    const std::string &partition = request.partitionMetadata, &ext = request.extMetadata;
    const std::string partitionText = partition.empty() ? "" : partitionMetadata(reader);
    const std::string extText = ext.empty() ? "" : extMetadata(reader, request.partition);
    if (!partition.empty() && !ext.empty())
        zip::writeDestinations({partition, partitionText}, {ext, extText}, request.mayReplace);
    else if (!partition.empty())
        writeFile(partition, partitionText, request.mayReplace);
    else if (!ext.empty())
        writeFile(ext, extText, request.mayReplace);
}

}  // namespace

std::string labels(const Labels& request) {
    const check::Source source = sourceOf(request.file);
    check::JsonCheck check(source);
    if (check.document()) check.checkEach(::labels::shapesOf);
    expectSound(check);
    HTEQSemanticLabelReader reader;
    json::ptree tree;
    json::copy(check.parsed().root(), tree);
    reader.parseRoot(tree);

    HSTVector<std::string> inputs{request.file};
    for (const std::string& out : {request.partitionMetadata, request.extMetadata}) {
        if (out.empty()) continue;
        checkOutput(out, {}, request.mayReplace, {request.file});
        if (HUTFile::getCanonicalName(out) == HUTFile::getCanonicalName(inputs.back()))
            throw RequestError(FailureKind::wrongUse, {.text = "both documents have the same destination"});
        inputs.push_back(out);
    }
    if (!request.dryRun) writeMetadata(request, reader);
    JSONObjectWriter writer;
    reader.toJSON(writer);
    return writer.text();
}

void createFixed(const FixedArchive& request) {
    HSTVector<std::string> inputs;
    for (const NamedFile& file : request.files) inputs.push_back(file.source);
    checkFiles(request.files, "lfa.json");
    checkOutput(request.archive, {"lfa"}, request.mayReplace, inputs);
    using Existing = SimpleFixedLFACreator::Existing;
    SimpleFixedLFACreator creator(request.archive, request.mayReplace ? Existing::replace : Existing::refuse);
    for (const NamedFile& file : request.files) {
        const zip::SourceFile readable(file.source);
        creator.addFile(file.type, file.member, file.source);
    }
    if (!request.dryRun) creator.writeLFA();
}

void fromDefinition(const FromDefinition& request) {
    checkInput(request.definition);
    hwdb::readDefinition(request.definition);
    checkOutput(request.archive, {"cfa", "lfa"}, request.mayReplace, {request.definition});
    const std::string name = request.archive.substr(request.archive.rfind('/') + 1);
    const std::string member = request.definition.substr(request.definition.rfind('/') + 1);
    for (const char* const extension : {".xml", ".json"})
        if (member == HDFToCFAConverter::hwpf_keyword(name) + std::string(extension))
            throw RequestError(FailureKind::wrongUse, {.text = "the name of the hardware definition, '" + member +
                                                               "', is that of the metadata: rename the file"});
    if (request.dryRun) return;
    HDFToCFAConverter converter(request.definition, HUTFile::getParent(request.archive), name);
    converter.setMayReplace(request.mayReplace);
    if (!converter.writeCFA())
        throw RequestError(FailureKind::environment,
                           {.file = request.archive, .text = "the members of the archive could not be written"});
}

HSTVector<ModuleFit> moduleFits(const std::string& platform, const HSTVector<std::string>& modules) {
    const auto loaded = load(platform, HwMetadataMode::Default);
    const HTEQHardwarePlatform* const hardware = loaded->getHardwarePlatform();
    if (!hardware) throw HEXFileFault({.file = platform, .text = "the file contains no hardware platform"});
    std::set<const HTEQReconfigPartition*> taken;
    HSTVector<ModuleFit> fits;
    for (const std::string& file : modules) {
        const auto module = load(file, HwMetadataMode::Default);
        ModuleFit& fit = fits.emplace_back();
        fit.file = file;
        fit.nodeId = module->getHardwarePlatform() ? module->getHardwarePlatform()->getNodeID() : 0;
        const HTEQReconfigPartition* const partition = hardware->findReconfigPartition(fit.nodeId);
        if (!hardware->isStatic())
            fit.reason = "the platform is not the static part of a reconfigurable design";
        else if (!partition)
            fit.reason = fmt::format("no partition has the node id {}", fit.nodeId);
        else if (!taken.insert(partition).second)
            fit.reason = fmt::format("an earlier module has the partition of node id {}", fit.nodeId);
        fit.fits = fit.reason.empty();
    }
    return fits;
}

namespace {

HSTVector<std::string> readXml(const std::string& file, HTEQEmulations& emulations) {
    const TEQEmulation::Root root = xml::readFile(TEQEmulation::kDocument, file);
    readers::fill(root, emulations);
    if (root.VersionMajor.get() == 0 && root.VersionMinor.get() == 0) return {};
    return {fmt::format("VersionMajor=\"{}\" VersionMinor=\"{}\": lost", root.VersionMajor.get(),
                        root.VersionMinor.get())};
}

HSTVector<std::string> readJson(const std::string& file, HTEQEmulations& emulations) {
    const check::Source source = sourceOf(file);
    check::JsonCheck check(source);
    if (check.document()) check.checkShapes(json::shapesOfRecord<HTEQEmulations>());
    expectSound(check);
    json::readKeys(check.document(), json::keysOf<HTEQEmulations>(), emulations);

    HSTVector<std::string> losses;
    const auto lose = [&losses](const std::string& key, const std::string& value) {
        if (!value.empty() && losses.size() < kMaxLines)
            losses.push_back(key + ": \"" + HSTStringUtils::excerpt(value) + "\" is lost");
    };
    lose("pfm_metadata_version", emulations.getPfmMetadataVersion());
    for (std::size_t i = 0; i < emulations.getEmulations().size(); ++i) {
        const auto& files = emulations.getEmulations()[i]->getFiles();
        for (std::size_t k = 0; k < files.size(); ++k)
            lose(fmt::format("emulations[{}].files[{}].inst_path", i, k), files[k]->getInstPath());
    }
    return losses;
}

}  // namespace

HSTVector<std::string> convertEmulation(const EmulationForm& request) {
    checkInput(request.file);
    const std::string from = HUTFile::getExt(request.file);
    if (from != "xml" && from != "json")
        throw RequestError(FailureKind::wrongUse, {.text = "'" + HSTStringUtils::printable(request.file) +
                                                           "' must have the extension .xml or .json"});
    const std::string to = from == "xml" ? "json" : "xml";
    checkOutput(request.destination, {to}, request.mayReplace, {request.file});
    HTEQEmulations emulations;
    HSTVector<std::string> losses =
        from == "xml" ? readXml(request.file, emulations) : readJson(request.file, emulations);
    if (request.dryRun) return losses;
    const std::string text = to == "json" ? HTEQEmulationJsonWriter(&emulations, request.destination).getText()
                                          : HTEQEmulationXMLWriter(&emulations, request.destination).getText();
    writeFile(request.destination, text, request.mayReplace);
    return losses;
}

}  // namespace teq_platform::requests
