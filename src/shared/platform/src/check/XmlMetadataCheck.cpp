#include <fmt/core.h>

#include "check/ArchiveMembers.h"
#include "check/MetadataCheck.h"
#include "check/MetadataRules.h"
#include "check/ValidXml.h"
#include "msg/CountedPieces.h"
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
    // Before its uses, as clang demands of a deduced type.
    template <class Record>
    auto reportAt_(const char* element, const Record& record) {
        return [this, element, &record](const char* name, std::string text) {
            document_.add(name, element, &record, std::move(text));
        };
    }

public:
    explicit XmlMetadata(Document& document) : document_(document), cfa_(document.record.cfa) {}

    /// Checks the values of lists and the host.
    void checkLists() {
        if (cfa_.board.memories) {
            const auto& items = cfa_.board.memories->memories;
            std::vector<Memory> memories;
            for (const auto& item : items)
                memories.push_back({item.Name.get(), item.Type.get(), item.Size.get(), item.LowestAddress.get(),
                                    item.HighestAddress.get()});
            checkMemories(memories, reportIn_("Memory", items));
        }
        std::vector<std::string> names;
        for (const auto& device : cfa_.devices.devices) {
            names.push_back(device.Name.get());
            if (!device.systemClocks) continue;
            for (const auto& clock : device.systemClocks->clocks)
                if (std::string fault = frequencyFault(clock.Frequency.get()); !fault.empty())
                    document_.add(kBadFrequency, "SystemClock", &clock, std::move(fault));
        }
        checkNames(names, "device", reportIn_("Device", cfa_.devices.devices));
        if (!cfa_.host) return;
        if (std::string fault = hostFault(cfa_.host->Architecture.get()); !fault.empty())
            document_.add(kUnknownHost, "Host", &*cfa_.host, std::move(fault));
    }
    /// The SLRs of the devices' pblocks.
    std::set<std::string> slrs() const {
        std::set<std::string> names;
        for (const auto& device : cfa_.devices.devices) {
            const auto& core = device.core.innerCore;
            if (!core || !core->availableResources) continue;
            for (const auto& pblock : core->availableResources->pblocks)
                for (const std::string& name : msg::countedPieces(pblock.ValidSLRs.get(), ','))
                    names.emplace(HSTStringUtils::trim(name));
        }
        names.erase("");
        return names;
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

    template <class Item>
    ReportAt reportIn_(const char* element, const std::vector<Item>& items) {
        return [this, element, &items](std::size_t i, const char* name, std::string text) {
            document_.add(name, element, &items[i], std::move(text));
        };
    }

    Document& document_;
    const BasePlatform::CFA& cfa_;
};

}  // namespace

void checkXmlMetadata(const Source& source, const ReadXml& read, const MetadataContext& context, Findings& findings) {
    if (!reportSyntax(source, read, findings)) return;
    Document document(BasePlatform::kDocument, source, read);
    checkVersion(document);
    checkValues(document);
    const BasePlatform::CFA& cfa = document.record.cfa;
    checkIdentity(context.descriptor, cfa.Vendor.get(),
                  fmt::format("{}.{}", cfa.VersionMajor.get(), cfa.VersionMinor.get()),
                  [&](bool, std::string text) { document.add(kDifferentIdentity, "CFA", &cfa, std::move(text)); });
    XmlMetadata metadata(document);
    metadata.checkLists();
    if (context.members) context.members->setKnown({metadata.slrs(), {}});
    checkMetadata(metadata, context.members, "");
    document.report(findings);
}

}  // namespace check
