#include "check/MetadataCheck.h"
#include "check/MetadataRules.h"
#include "check/ValidXml.h"
#include "records/TEQSoftwarePlatformLMX.h"

namespace check {

namespace {

using Document = ValidXml<TEQSoftwarePlatform::Platform>;

/// The names of the items. Repeated ones are reported.
template <class Item>
std::set<std::string> namesOf(Document& document, const std::vector<Item>& items, const char* element,
                              const char* what) {
    std::vector<std::string> names;
    for (const Item& item : items) names.push_back(item.name.get());
    checkNames(names, what, [&](std::size_t i, const char* name, std::string text) {
        document.add(name, element, &items[i], std::move(text));
    });
    return {names.begin(), names.end()};
}

void expectKnown(Document& document, const char* what, const std::string& name, const std::set<std::string>& known,
                 const char* element, const void* at) {
    if (std::string fault = referenceFault(what, name, known); !fault.empty())
        document.add(kUnknownReference, element, at, std::move(fault));
}

}  // namespace

void checkSoftware(const Source& source, const ReadXml& read, const Identity* descriptor, Findings& findings) {
    if (!reportSyntax(source, read, findings)) return;
    Document document(TEQSoftwarePlatform::kDocument, source, read);
    const TEQSoftwarePlatform::Platform& platform = document.record;
    checkIdentity(descriptor, platform.vendor.get(), platform.version.get().text, [&](bool, std::string text) {
        document.add(kDifferentIdentity, "platform", &platform, std::move(text));
    });
    const auto& list = platform.systemConfigurations;
    const std::set<std::string> names = namesOf(document, list.configurations, "configuration", "configuration");
    expectKnown(document, "configuration", list.defaultConfiguration.get(), names, "systemConfigurations", &list);
    for (const auto& configuration : list.configurations) {
        const std::set<std::string> groups =
            namesOf(document, configuration.processorGroups, "processorGroup", "processor group");
        expectKnown(document, "processor group", configuration.defaultProcessorGroup.get(), groups, "configuration",
                    &configuration);
        if (const auto& images = configuration.bootImages)
            expectKnown(document, "boot image", images->default_.get(), {images->image.name.get()}, "bootImages",
                        &*images);
    }
    document.report(findings);
}

}  // namespace check
