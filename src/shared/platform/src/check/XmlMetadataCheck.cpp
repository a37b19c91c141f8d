#include <fmt/core.h>

#include "check/ArchiveMembers.h"
#include "check/MemorySizes.h"
#include "check/MetadataCheck.h"
#include "check/ParameterPaths.h"
#include "check/ValidXml.h"
#include "platform/HPLDevice.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "records/TEQCfaXmlLMX.h"
#include "text/HSTStringUtils.h"

namespace check {

namespace {

using Document = ValidXml<BasePlatform::Root>;

void checkVersion(Document& document) {
    const BasePlatform::Root& root = document.record;
    const auto& state = root.cfa.build.PlatformState;
    if (state.isSet() && HSTStringUtils::iequals(state.get(), "pre_synth")) return;
    const auto current = BasePlatform::Root().VersionMajor.get();
    if (static_cast<std::int32_t>(root.VersionMajor.get()) <= static_cast<std::int32_t>(current)) return;
    document.add(kNewerSchema, "Root", &root,
                 fmt::format("VersionMajor=\"{}\" is newer than this library, which reads {} at most",
                             root.VersionMajor.get(), current));
}

/// Hands a value to the model as the reader does, and keeps why it refuses.
template <class Give>
void checkValue(Document& document, const char* element, const void* at, Give give) {
    try {
        give();
    } catch (const std::exception& e) {
        document.add(kRefusedValue, element, at, HSTStringUtils::excerpt(e.what(), kMostOfReason));
    }
}

void checkValues(Document& document) {
    const BasePlatform::CFA& cfa = document.record.cfa;
    for (const auto& device : cfa.devices.devices)
        checkValue(document, "Device", &device, [&] { HPLDevice().setFpgaPart(device.FpgaDevice.get()); });
    if (cfa.featureRom)
        checkValue(document, "FeatureRom", &*cfa.featureRom,
                   [&] { HTEQHardwareFeatureRom().setUUID(cfa.featureRom->UUID.get()); });
}

void checkParameters(Document& document, const BasePlatform::Configuration& configuration) {
    HTEQDesignIPInstance ip;
    for (const auto& parameter : configuration.parameters)
        checkValue(document, "Parameter", &parameter,
                   [&] { ip.addConfigParam(parameter.Name.get(), parameter.Value.get()); });
    std::map<std::string, std::string> parameters;
    ip.getConfigParamMap(parameters);
    for (const auto& parameter : configuration.parameters)
        if (parameters.contains(parameter.Name.get()))
            if (const std::string fault = pathFault(parameter.Name.get(), parameters); !fault.empty())
                document.add(kClashingParameter, "Parameter", &parameter, fault);
}

void checkParameters(Document& document, const BasePlatform::DesignIPs& designIPs) {
    for (const auto& ip : designIPs.ips)
        if (ip.configuration) checkParameters(document, *ip.configuration);
}

void checkMemories(Document& document, const BasePlatform::Board& board) {
    if (!board.memories) return;
    for (const auto& memory : board.memories->memories)
        if (const std::string fault = sizeFault(memory.Size.get()); !fault.empty())
            document.add(kUncountedMemory, "Memory", &memory, fault);
}

}  // namespace

void checkXmlMetadata(const Source& source, ArchiveMembers* members, Findings& findings) {
    if (!checkSyntax(source, *records::findFormat("cfa"), findings)) return;
    Document document(BasePlatform::kDocument, source);
    const BasePlatform::CFA& cfa = document.record.cfa;
    checkVersion(document);
    checkValues(document);
    if (cfa.designIPs) checkParameters(document, *cfa.designIPs);
    checkMemories(document, cfa.board);
    if (members)
        for (const auto& file : cfa.files.files)
            if (const auto fault = members->checkListed(file.Type.get(), file.Name.get(), ""))
                document.add(fault->name, "File", &file, fault->text);
    document.report(findings);
}

}  // namespace check
