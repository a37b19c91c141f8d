#include "platform/HPLCore.h"

#include <algorithm>
#include <set>

#include "hardware/HardwareKeys.h"
#include "msg/CountedPieces.h"
#include "platform/HPLPort.h"
#include "text/HSTStringUtils.h"

namespace {

using Core = HPLCore;
using K = json::Keys<Core>;
using json::ListIn;
using json::ObjectIn;
using teq_platform::JSONObjectWriter;

void writePblocks(JSONObjectWriter& writer, const char* name, const Core& core) {
    ListIn pblocks(writer, name);
    for (const auto& [pblock, resources] : core.getReadOnlyPBlockToResourceMap()) {
        ObjectIn object(*pblocks);
        object->addKey("name", pblock);
        ListIn names(*object, "validSlrs");
        if (const auto* found = core.findSLRNames(pblock))
            for (const std::string& slr : *found) names->addItem(slr);
        names.add();
        ListIn items(*object, "resources");
        for (const auto& [resource, value] : resources) {
            ObjectIn item(*items);
            item->addKey("name", resource);
            item->addKey("value", value);
            item.add();
        }
        items.add();
        object.add();
    }
    pblocks.add();
}

void readPblock(Core& core, const json::Node& node) {
    const std::string name(json::textAt(node, "name"));
    if (const json::Node slrs = node.find("validSlrs")) {
        std::set<std::string> names;
        for (const json::Node item : slrs) names.insert(item.data());
        core.addSLRInfo(name, names);
    }
    for (const json::Node item : node.find("resources"))
        core.addResourceInfo(name, item.find("name").data(), item.find("value").data());
}

void readPblocks(Core& core, const json::Node& list) {
    for (const json::Node item : list) readPblock(core, item);
}

json::Shapes pblockShapes() {
    using json::Form;
    static const json::Shape shapes[] = {
        {"name", Form::text},
        {"validSlrs", Form::texts},
        {"resources", Form::list, false, &json::shapesOfPair<json::kValueKey>},
    };
    return shapes;
}

constexpr json::Key<Core> kResourceKeys[] = {
    K::text<&Core::getBRAMCount, &Core::setBRAMCount>("bramCount"),
    K::text<&Core::getDSPCount, &Core::setDSPCount>("dspCount"),
    K::text<&Core::getLUTCount, &Core::setLUTCount>("lutCount"),
    K::text<&Core::getRegisterCount, &Core::setRegisterCount>("registerCount"),
    K::custom<&writePblocks, &readPblocks>("pBlocks", json::Form::list, &pblockShapes),
};

constexpr json::Key<Core> kKeys[] = {
    K::text<&Core::getName, &Core::setName>("name"),
    K::text<&Core::getType, &Core::setType>("type"),
    K::text<&Core::getInstPath, &Core::setInstPath>("instPath"),
    K::text<&Core::getSourceViewInstPath, &Core::setSourceViewInstPath>("sourceViewInstPath"),
    K::text<&Core::getParentRMInstPath>("parentRMInstPath"),
    K::text<&Core::getReconfigModuleName, &Core::setReconfigModuleName>("reconfigModuleName"),
    K::text<&Core::getDRBDName, &Core::setDRBDName>("drBDName"),
    K::text<&Core::getVlnv>("vlnv"),
    K::text<&Core::getClockFreq>("clockFreq"),
    K::number<&Core::getNumComputeUnits, &Core::setNumComputeUnits>("numComputeUnits"),
    K::group<kResourceKeys>("availableResources"),
    K::pairs<&Core::getReadOnlyConfigParamMap>("configParams"),
    K::objects<&Core::createPortIter>("ports"),
};

/// The largest number among the ports' texts.
template <auto Get>
int largest(const Owned<HPLPort>& ports) {
    int result = 0;
    for (const HPLPort* port : ports)
        result = std::max(result, static_cast<int>(HSTStringUtils::toNumber(std::invoke(Get, *port))));
    return result;
}

}  // namespace

template <>
std::span<const json::Key<Core>> json::keysOf<Core>() {
    return kKeys;
}

HPLCore::HPLCore() = default;
HPLCore::~HPLCore() = default;

void HPLCore::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

std::string HPLCore::getClockFreq() const {
    if (!clockFreq_.empty()) return clockFreq_;
    const HPLPort* clock = ports_.first([](const HPLPort& port) {
        const std::string& name = port.getName();
        return HSTStringUtils::iequals(port.getType(), "clk") &&
               (HSTStringUtils::iequals(name, "ACLK") || HSTStringUtils::iequals(name, "KERNEL_CLK") ||
                HSTStringUtils::iequals(name, "DATA_CLK"));
    });
    return clock ? clock->getFrequency() : std::string();
}

HPLPort* HPLCore::addPort() { return ports_.add(); }
void HPLCore::removePort(HPLPort* port) { ports_.remove(port); }
HSTFwdIter<HPLPort*>* HPLCore::createPortIter() const { return ports_.makeIter(); }
int HPLCore::getMaxAddrWidth() const { return largest<&HPLPort::getAddrWidth>(ports_); }
int HPLCore::getMaxDataWidth() const { return largest<&HPLPort::getDataWidth>(ports_); }

void HPLCore::addResourceInfo(const std::string& pblock, const std::string& name, const std::string& value) {
    ResourceMap& resources = resources_[pblock];
    if (!name.empty() || !value.empty()) resources[name] = value;
}

bool HPLCore::hasResourceInfo() const {
    return !bramCount_.empty() || !lutCount_.empty() || !registerCount_.empty() || !dspCount_.empty() ||
           !resources_.empty();
}

void HPLCore::addSLRInfo(const std::string& pblock, const std::string& commaSeparated) {
    addSLRInfo(pblock, msg::countedPieces(commaSeparated, ','));
}

void HPLCore::addSLRInfo(const std::string& pblock, const HSTVector<std::string>& names) {
    if (!names.empty()) addSlrs_(pblock, {names.begin(), names.end()});
}

void HPLCore::addSLRInfo(const std::string& pblock, const std::set<std::string>& names) { addSlrs_(pblock, names); }

void HPLCore::addSlrs_(const std::string& pblock, std::set<std::string> names) {
    const auto [added, isNew] = slrNames_.try_emplace(pblock, std::move(names));
    if (!isNew) return;
    auto& row = slrRowsByLowerName_[HSTStringUtils::toLower(pblock)];
    if (!row || row->first < added->first) row = &*added;
}

const std::set<std::string>* HPLCore::findSLRNames(const std::string& pblock) const {
    const auto at = slrRowsByLowerName_.find(HSTStringUtils::toLower(pblock));
    return at != slrRowsByLowerName_.end() ? &at->second->second : nullptr;
}

void HPLCore::getSLRNames(const std::string& pblock, std::set<std::string>& out) const {
    if (const auto* found = findSLRNames(pblock)) out = *found;
}

void HPLCore::getValidSLRNames(HSTVector<std::string>& out) const {
    std::set<std::string> known(out.begin(), out.end());
    std::set<const void*> seen;  // pblocks whose names differ in case have the same SLRs
    for (const auto& [pblock, resources] : resources_) {
        const auto* names = findSLRNames(pblock);
        if (!names || !seen.insert(names).second) continue;
        for (const std::string& name : *names)
            if (known.insert(name).second) out.push_back(name);
    }
}

std::string HPLCore::getDynamicPblockName_() const {
    return resources_.size() == 1 ? resources_.begin()->first : "pblock_dynamic_region";
}

int HPLCore::getResCount(const std::string& type, const std::string& pblock, const std::string& variant) const {
    const bool dsp = HSTStringUtils::iequals(type, "DSP");
    const std::string key = variant.empty() ? type : type + (dsp ? "s_" : "_") + variant;
    for (const auto& [name, resources] : resources_) {
        if (!HSTStringUtils::iequals(name, pblock)) continue;
        auto at = resources.find(key);
        if (at == resources.end() && dsp) at = resources.find(key + "s");
        if (at != resources.end()) return static_cast<int>(HSTStringUtils::toNumber(at->second));
    }
    return 0;
}

int HPLCore::getResCount(const std::string& type, const std::string& variant) const {
    return getResCount(type, getDynamicPblockName_(), variant);
}

std::string HPLCore::countOr_(const std::string& fixed, const char* type) const {
    if (!fixed.empty()) return fixed;
    const int count = getResCount(type, "");
    return count != 0 ? std::to_string(count) : std::string();
}

std::string HPLCore::getBRAMCount() const { return countOr_(bramCount_, "BRAM"); }
std::string HPLCore::getLUTCount() const { return countOr_(lutCount_, "LUT"); }
std::string HPLCore::getDSPCount() const { return countOr_(dspCount_, "DSP"); }
std::string HPLCore::getRegisterCount() const { return countOr_(registerCount_, "REG"); }
