#include <fmt/core.h>

#include "check/ArchiveMembers.h"
#include "check/MetadataCheck.h"
#include "check/MetadataRules.h"
#include "check/ValidXml.h"
#include "platform/HPLDevice.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "readers/CfaXmlRules.h"
#include "text/HSTStringUtils.h"

namespace check {

namespace {

using Document = ValidXml<BasePlatform::Root>;

void checkVersion(Document& document) {
    const BasePlatform::Root& root = document.record;
    if (!readers::isNewerSchema(root)) return;
    document.add(kNewerSchema, "Root", &root,
                 fmt::format("VersionMajor=\"{}\" is newer than the latest supported version, {}",
                             root.VersionMajor.get(), readers::currentSchema()));
}

/// Passes a value to the model as the reader does; if the model refuses it, adds a finding.
template <class Give>
void checkValue(Document& document, const char* element, const void* at, Give give) {
    try {
        give();
    } catch (const std::exception& e) {
        document.add(kRefusedValue, element, at, HSTStringUtils::excerpt(e.what(), kMaxReasonText));
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

class XmlMetadata {
public:
    explicit XmlMetadata(Document& document) : document_(document), cfa_(document.record.cfa) {}

    template <class Use>
    void eachMemory(Use use) {
        if (!cfa_.board.memories) return;
        for (const auto& memory : cfa_.board.memories->memories) use(memory.Size.get(), reportAt_("Memory", memory));
    }
    /// Visits each parameter that the model accepts; the others are reported.
    template <class Use>
    void eachParameter(Use use) {
        if (!cfa_.designIPs) return;
        for (const auto& ip : cfa_.designIPs->ips) {
            if (!ip.configuration) continue;
            const std::map<std::string, std::string> taken = takenOf_(*ip.configuration);
            for (const auto& parameter : ip.configuration->parameters)
                if (taken.contains(parameter.Name.get()))
                    use(parameter.Name.get(), taken, reportAt_("Parameter", parameter));
        }
    }
    template <class Use>
    void eachFile(Use use) {
        for (const auto& file : cfa_.files.files) use(file.Type.get(), file.Name.get(), reportAt_("File", file));
    }

private:
    std::map<std::string, std::string> takenOf_(const BasePlatform::Configuration& configuration) {
        HTEQDesignIPInstance ip;
        for (const auto& parameter : configuration.parameters)
            checkValue(document_, "Parameter", &parameter,
                       [&] { ip.addConfigParam(parameter.Name.get(), parameter.Value.get()); });
        std::map<std::string, std::string> taken;
        ip.getConfigParamMap(taken);
        return taken;
    }

    template <class Record>
    auto reportAt_(const char* element, const Record& record) {
        return [this, element, &record](const char* name, std::string text) {
            document_.add(name, element, &record, std::move(text));
        };
    }

    Document& document_;
    const BasePlatform::CFA& cfa_;
};

}  // namespace

void checkXmlMetadata(const Source& source, const ReadXml& read, ArchiveMembers* members, Findings& findings) {
    if (!reportSyntax(source, read, findings)) return;
    Document document(BasePlatform::kDocument, source, read);
    checkVersion(document);
    checkValues(document);
    checkMetadata(XmlMetadata(document), members, "");
    document.report(findings);
}

}  // namespace check
