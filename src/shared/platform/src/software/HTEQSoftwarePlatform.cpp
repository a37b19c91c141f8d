#include "platform/HTEQSoftwarePlatform.h"

#include <algorithm>
#include <set>

#include "json/JsonKeys.h"
#include "msg/Budget.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSystemConfig.h"
#include "software/Runtimes.h"
#include "text/HSTStringUtils.h"

namespace {

HSTVector<HTEQSystemConfig*> configsOf(const HTEQSoftwarePlatform& platform) {
    HSTVector<HTEQSystemConfig*> configs;
    platform.getSystemConfigs(configs);
    return configs;
}

using K = json::Keys<HTEQSoftwarePlatform>;
constexpr json::Key<HTEQSoftwarePlatform> kKeys[] = {
    K::text<&HTEQSoftwarePlatform::getLinuxRootFileSystemPath>("linuxRootFileSystemPath"),
    K::text<&HTEQSoftwarePlatform::getDefaultConfigName>("defaultConfig"),
    K::objects<&configsOf>("systemConfigurations"),
};

using GetRuntimes = void (HTEQSystemConfig::*)(HSTVector<std::string>&) const;

void addNewRuntimes(const Owned<HTEQSystemConfig>& configs, GetRuntimes get, HSTVector<std::string>& out) {
    std::set<std::string> known(out.begin(), out.end());
    for (const HTEQSystemConfig* config : configs) {
        HSTVector<std::string> runtimes;
        (config->*get)(runtimes);
        for (std::string& runtime : runtimes)
            if (known.insert(runtime).second) out.push_back(std::move(runtime));
    }
}

bool canUseLibrary(const HTEQSystemConfig& config, const std::string& libraryType) {
    if (HSTStringUtils::iequals(libraryType, "static")) return true;
    const bool shared = HSTStringUtils::iequals(libraryType, "shared");
    const bool cCallable = HSTStringUtils::iequals(libraryType, "c-callable");
    HSTVector<HTEQProcessorGroup*> groups;
    config.getProcessorGroups(groups);
    return std::any_of(groups.begin(), groups.end(), [&](const HTEQProcessorGroup* group) {
        const bool linux = HSTStringUtils::iequals(group->getOSName(), "linux");
        const bool standalone = HSTStringUtils::iequals(group->getOSName(), "standalone");
        return ((shared || cCallable) && linux) || (cCallable && standalone);
    });
}

}  // namespace

HTEQSoftwarePlatform::HTEQSoftwarePlatform() = default;
HTEQSoftwarePlatform::~HTEQSoftwarePlatform() = default;

void HTEQSoftwarePlatform::toJSON(teq_platform::JSONObjectWriter& writer) const {
    const Budget budget;
    json::writeKeys(writer, kKeys, *this);
}

HTEQSystemConfig* HTEQSoftwarePlatform::addSystemConfig() { return systemConfigs_.add(); }

HTEQSystemConfig* HTEQSoftwarePlatform::getSystemConfig() const {
    return systemConfigs_.empty() ? nullptr : systemConfigs_.items().front();
}

void HTEQSoftwarePlatform::getSystemConfigs(HSTVector<HTEQSystemConfig*>& out) const {
    out.insert(out.end(), systemConfigs_.begin(), systemConfigs_.end());
}

HTEQSystemConfig* HTEQSoftwarePlatform::getSystemConfigByName(const std::string& name) const {
    return systemConfigs_.last(
        [&](const HTEQSystemConfig& config) { return config.getName() == name || config.getPrettyName() == name; });
}

HTEQSystemConfig* HTEQSoftwarePlatform::getSystemConfigByPrettyName(const std::string& name) const {
    return getSystemConfigByName(name);
}

HTEQSystemConfig* HTEQSoftwarePlatform::getDefaultSystemConfig() const {
    HTEQSystemConfig* const named = defaultConfigName_.empty() ? nullptr : getSystemConfigByName(defaultConfigName_);
    return named ? named : getSystemConfig();
}

std::string HTEQSoftwarePlatform::getDefaultConfigName() const {
    if (!defaultConfigName_.empty()) return defaultConfigName_;
    const HTEQSystemConfig* const config = getDefaultSystemConfig();
    return config ? config->getName() : std::string();
}

bool HTEQSoftwarePlatform::isRuntimeSupported(const std::string& name) const { return runtimes::isSupported(name); }

void HTEQSoftwarePlatform::getSupportedRuntimes(HSTVector<std::string>& out) const {
    addNewRuntimes(systemConfigs_, &HTEQSystemConfig::getRuntimes, out);
}

void HTEQSoftwarePlatform::getSupportedRuntimesByPrettyName(HSTVector<std::string>& out) const {
    addNewRuntimes(systemConfigs_, &HTEQSystemConfig::getRuntimesByPrettyName, out);
}

std::size_t HTEQSoftwarePlatform::getNumRuntimes() const {
    HSTVector<std::string> runtimes;
    getSupportedRuntimes(runtimes);
    return runtimes.size();
}

bool HTEQSoftwarePlatform::isSystemConfigSupported(const std::string& name) const {
    const HTEQSystemConfig* const config = getSystemConfigByName(name);
    if (!config) return false;
    HSTVector<std::string> runtimes;
    config->getRuntimes(runtimes);
    return runtimes.empty() || std::any_of(runtimes.begin(), runtimes.end(),
                                           [&](const std::string& runtime) { return isRuntimeSupported(runtime); });
}

std::size_t HTEQSoftwarePlatform::getSystemConfigNames(HSTVector<std::string>& out,
                                                       const std::string& libraryType) const {
    for (const HTEQSystemConfig* config : systemConfigs_)
        if (canUseLibrary(*config, libraryType)) out.push_back(config->getName());
    return out.size();
}
