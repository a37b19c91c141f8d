#include "services/PlatformFacts.h"

#include "msg/Printed.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"
#include "platform/PlatformLoader.h"
#include "services/DocumentTree.h"
#include "services/ExceptionList.h"
#include "util/HUTEnv.h"

namespace services {
using ptree = boost::property_tree::ptree;

const HTEQHardwarePlatform* documentedHardware(const HTEQPlatform& platform) {
    return platform.hasReconfigurablePartitions()
               ? platform.getReconfigurablePartitions().front()->getHardwarePlatform()
               : platform.getHardwarePlatform();
}

PlatformFacts::PlatformFacts(teq_platform::PlatformLoader* loader, PolicySettings settings)
    : loader_(loader), settings_(std::move(settings)) {}
PlatformFacts::PlatformFacts(std::shared_ptr<HTEQPlatform> platform, PolicySettings settings)
    : platform_(std::move(platform)), settings_(std::move(settings)) {}
PlatformFacts::~PlatformFacts() = default;

bool PlatformFacts::hasLoader() { return loader_ || platform_; }

bool PlatformFacts::load() {
    if (!settings_.productName.empty()) HUTEnv::setProductName(settings_.productName);
    if (!platform_ && loader_) {
        path_ = loader_->getFilePath();  // a loader that has failed no longer has it
        platform_ = loader_->load();
        loader_ = nullptr;
    }
    if (platform_) path_ = platform_->getPlatformFile();
    return platform_ != nullptr;
}

std::string PlatformFacts::filePath() { return path_; }

bool PlatformFacts::isPreSynth() {
    load();
    return services::isPreSynth(platform_.get());
}

bool PlatformFacts::isUnified() { return platform_->isUnified(); }

bool PlatformFacts::isForHost() {
    return platform_->getDesignIntentDataCenter() || platform_->getDesignIntentServerManaged() ||
           platform_->getDesignIntentExternalHost();
}

std::string PlatformFacts::platformVersion() { return platform_->getHardwarePlatform()->getVersion(); }
std::string PlatformFacts::toolVersion() { return settings_.toolVersion; }

std::shared_ptr<const policy::ExtendedWarranty> PlatformFacts::extendedWarranty() {
    if (!extended_) extended_ = std::make_shared<policy::ExtendedWarranty>(readExtendedWarranty());
    return extended_;
}

std::vector<std::string> PlatformFacts::readExtendedWarranty() const {
    // What the path "hardwarePlatform.extensions.extended_warranty" selects, without the rest of the document.
    ptree extensions;
    if (const auto* hardware = documentedHardware(*platform_)) hardware->getExtMetaJsonAsPtree(extensions);
    const auto list = extensions.find("extended_warranty");
    if (list == extensions.not_found()) return {};
    std::vector<std::string> versions;
    for (const auto& [key, item] : list->second) versions.push_back(item.data());
    if (versions.empty() && !list->second.data().empty()) versions.push_back(list->second.data());
    return versions;
}

policy::Listing PlatformFacts::listing() {
    if (!listing_) {
        const ExceptionSource source = settings_.exceptions();
        const auto asked = [this]() -> const ptree& { return document(); };
        listing_ = ExceptionList(source.file).match(source.product, asked);
    }
    return *listing_;
}

const ptree& PlatformFacts::document() {
    if (!document_) {
        ptree tree = documentTree(*platform_);
        document_.emplace().swap(tree);
    }
    return *document_;
}

bool isPreSynth(const HTEQPlatform* platform) {
    if (!platform) return msg::print("Error: failed to load platform.\n"), false;
    const HTEQHardwarePlatform* const hardware = platform->getHardwarePlatform();
    if (!hardware) return msg::print("Error: failed to load the hardware platform.\n"), false;
    return hardware->getState() == HTEQHardwarePlatform::PlatformState::pre_synth;
}

}  // namespace services
