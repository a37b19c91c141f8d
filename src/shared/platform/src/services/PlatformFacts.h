#pragma once
#include <boost/property_tree/ptree.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "policy/PolicyFacts.h"

class HTEQHardwarePlatform;
class HTEQPlatform;
namespace teq_platform {
class PlatformLoader;
}

namespace services {

/// The list of exceptions that is asked.
struct ExceptionSource {
    std::string file;
    std::string product;  ///< the one whose entries count
};

/// What the policy uses besides the platform.
struct PolicySettings {
    std::string toolVersion;
    std::function<ExceptionSource()> exceptions;  ///< called when the list is asked
    std::string productName;  ///< given to the host's settings before the platform is loaded, unless empty
};

/// The facts about a platform, from a loader or as loaded. They are kept, for several verdicts on one platform.
class PlatformFacts : public policy::Facts {
public:
    PlatformFacts(teq_platform::PlatformLoader* loader, PolicySettings settings);
    PlatformFacts(std::shared_ptr<HTEQPlatform> platform, PolicySettings settings);
    ~PlatformFacts() override;

    bool hasLoader() override;
    bool load() override;
    std::string filePath() override;
    bool isPreSynth() override;
    bool isUnified() override;
    bool isForHost() override;
    std::string platformVersion() override;
    std::string toolVersion() override;
    std::shared_ptr<const policy::ExtendedWarranty> extendedWarranty() override;
    policy::Listing listing() override;

private:
    const boost::property_tree::ptree& document();
    std::vector<std::string> readExtendedWarranty() const;

    teq_platform::PlatformLoader* loader_ = nullptr;
    std::shared_ptr<HTEQPlatform> platform_;
    PolicySettings settings_;
    std::string path_;
    std::optional<boost::property_tree::ptree> document_;
    std::shared_ptr<const policy::ExtendedWarranty> extended_;
    std::optional<policy::Listing> listing_;
};

/// The hardware platform that the path "hardwarePlatform" of the document leads to; null if there is none.
const HTEQHardwarePlatform* documentedHardware(const HTEQPlatform& platform);

/// Whether a loaded platform is in the state before synthesis. Prints a line, and is false, for a null platform and
/// for one without hardware.
bool isPreSynth(const HTEQPlatform* platform);

}  // namespace services
