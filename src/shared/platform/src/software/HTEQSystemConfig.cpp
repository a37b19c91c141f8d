#include "platform/HTEQSystemConfig.h"

#include "json/JsonKeys.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"
#include "software/Runtimes.h"

namespace {

using teq_platform::JSONObjectWriter;

/// The objects or texts that `Get` appends to a vector.
template <class Item, void (HTEQSystemConfig::*Get)(HSTVector<Item>&) const>
HSTVector<Item> listOf(const HTEQSystemConfig& config) {
    HSTVector<Item> items;
    (config.*Get)(items);
    return items;
}

using K = json::Keys<HTEQSystemConfig>;
constexpr json::Key<HTEQSystemConfig> kKeys[] = {
    K::text<&HTEQSystemConfig::getName>("name"),
    K::text<&HTEQSystemConfig::getPrettyName>("prettyName"),
    K::text<&HTEQSystemConfig::getDesc>("description"),
    K::text<&HTEQSystemConfig::getDefaultProcGrpName>("defaultProcessorGroup"),
    K::text<&HTEQSystemConfig::getDefaultBootImgName>("defaultBootImage"),
    K::text<&HTEQSystemConfig::getPrebuiltData>("prebuiltData"),
    K::flag<&HTEQSystemConfig::isQemuSupported>("qemu"),
    K::objects<&listOf<HTEQProcessorGroup*, &HTEQSystemConfig::getProcessorGroups>>("processorGroups"),
    K::objects<&listOf<HTEQBootImg*, &HTEQSystemConfig::getBootImgs>>("bootImages"),
    K::texts<&listOf<std::string, &HTEQSystemConfig::getRuntimes>>("runtimes"),
};

template <class T>
std::string orFirstName(const std::string& name, const Owned<T>& list) {
    return name.empty() && !list.empty() ? list.items().front()->getName() : name;
}

template <class T>
T* lastByName(const Owned<T>& list, const std::string& name) {
    return list.last([&](const T& item) { return item.getName() == name; });
}

template <class T>
void append(HSTVector<T>& out, const HSTVector<T>& items) {
    out.insert(out.end(), items.begin(), items.end());
}

}  // namespace

HTEQSystemConfig::HTEQSystemConfig() = default;
HTEQSystemConfig::~HTEQSystemConfig() = default;

void HTEQSystemConfig::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

const std::string& HTEQSystemConfig::getName() const { return name_; }
const std::string& HTEQSystemConfig::getDesc() const { return desc_; }
const std::string& HTEQSystemConfig::getPrettyName() const { return prettyName_; }
const std::string& HTEQSystemConfig::getPrebuiltData() const { return prebuiltData_; }

std::string HTEQSystemConfig::getDefaultProcGrpName() const {
    return orFirstName(defaultProcGrpName_, processorGroups_);
}
std::string HTEQSystemConfig::getDefaultBootImgName() const { return orFirstName(defaultBootImgName_, bootImgs_); }

void HTEQSystemConfig::getProcessorGroups(HSTVector<HTEQProcessorGroup*>& out) const {
    append(out, processorGroups_.items());
}
void HTEQSystemConfig::getProcessorGroups(HSTVector<std::string>& out) const { append(out, processorGroupNames_); }
void HTEQSystemConfig::getBootImgs(HSTVector<HTEQBootImg*>& out) const { append(out, bootImgs_.items()); }
void HTEQSystemConfig::getRuntimes(HSTVector<std::string>& out) const { append(out, runtimes_); }
void HTEQSystemConfig::getRuntimesByPrettyName(HSTVector<std::string>& out) const {
    for (const std::string& runtime : runtimes_) out.push_back(runtimes::prettyName(runtime));
}

HTEQProcessorGroup* HTEQSystemConfig::getProcGrpByName(const std::string& name) const {
    return lastByName(processorGroups_, name);
}
HTEQBootImg* HTEQSystemConfig::getBootImgByName(const std::string& name) const { return lastByName(bootImgs_, name); }

void HTEQSystemConfig::setName(const std::string& name) { name_ = name; }
void HTEQSystemConfig::setDesc(const std::string& desc) { desc_ = desc; }
void HTEQSystemConfig::setPrettyName(const std::string& prettyName) { prettyName_ = prettyName; }
void HTEQSystemConfig::setDefaultProcGrpName(const std::string& name) { defaultProcGrpName_ = name; }
void HTEQSystemConfig::setDefaultBootImgName(const std::string& name) { defaultBootImgName_ = name; }
void HTEQSystemConfig::setSupportsQemu(bool supports) { supportsQemu_ = supports; }

HTEQBootImg* HTEQSystemConfig::addBootImg() { return bootImgs_.add(); }
HTEQProcessorGroup* HTEQSystemConfig::addProcessorGroup() { return processorGroups_.add(); }
void HTEQSystemConfig::addProcessorGroup(const std::string& name) { processorGroupNames_.push_back(name); }
void HTEQSystemConfig::addRuntime(const std::string& runtime) { runtimes_.push_back(runtime); }
