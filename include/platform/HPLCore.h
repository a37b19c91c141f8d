#pragma once
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"
#include "text/HSTFwdIter.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HPLPort;

/// The region of a device that kernels are placed in: its ports, its configuration and the free resources of each of
/// its partition blocks ("pblocks").
class ZR_API HPLCore : public teq_platform::JSONSerializable {
public:
    using ConfigParamMap = std::map<std::string, std::string>;
    using ResourceMap = std::map<std::string, std::string>;  ///< resource name to value, such as "LUT" to "840000"
    using PBlockToResourceMap = std::map<std::string, ResourceMap>;

    HPLCore();
    ~HPLCore() override;
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getType() const { return type_; }
    void setType(std::string value) { type_ = std::move(value); }
    /// If none was set: the frequency of the first clock port named "ACLK", "KERNEL_CLK" or "DATA_CLK".
    std::string getClockFreq() const;
    void setClockFreq(std::string value) { clockFreq_ = std::move(value); }
    std::uint16_t getNumComputeUnits() const { return numComputeUnits_; }
    void setNumComputeUnits(std::uint16_t value) { numComputeUnits_ = value; }
    const std::string& getVlnv() const { return vlnv_; }
    void setVlnv(std::string value) { vlnv_ = std::move(value); }
    const std::string& getSourceViewInstPath() const { return sourceViewInstPath_; }
    void setSourceViewInstPath(std::string value) { sourceViewInstPath_ = std::move(value); }
    const std::string& getInstPath() const { return instPath_; }
    void setInstPath(std::string value) { instPath_ = std::move(value); }
    /// Not empty for a platform with expanded partial reconfiguration.
    const std::string& getParentRMInstPath() const { return parentRMInstPath_; }
    void setParentRMInstPath(std::string value) { parentRMInstPath_ = std::move(value); }
    const std::string& getReconfigModuleName() const { return reconfigModuleName_; }
    void setReconfigModuleName(std::string value) { reconfigModuleName_ = std::move(value); }
    /// Not part of the document.
    const std::string& getDRBaseAddress() const { return drBaseAddress_; }
    void setDRBaseAddress(std::string value) { drBaseAddress_ = std::move(value); }
    const std::string& getDRBDName() const { return drBDName_; }
    void setDRBDName(std::string value) { drBDName_ = std::move(value); }

    /// Appends a new port, owned by the core.
    HPLPort* addPort();
    /// Removes and deletes the port; does nothing if the core does not own it.
    void removePort(HPLPort* port);
    /// The caller deletes the iterator.
    HSTFwdIter<HPLPort*>* createPortIter() const;
    /// The largest width over the ports, in bits; a text that is not a number counts as 0.
    int getMaxAddrWidth() const;
    int getMaxDataWidth() const;

    ConfigParamMap& getConfigParamMap() { return configParams_; }
    const ConfigParamMap& getReadOnlyConfigParamMap() const { return configParams_; }
    void addConfigParam(const std::string& name, const std::string& value) { configParams_[name] = value; }

    PBlockToResourceMap& getPBlockToResourceMap() { return resources_; }
    const PBlockToResourceMap& getReadOnlyPBlockToResourceMap() const { return resources_; }
    /// The resources of `pblock`, created empty if there are none.
    ResourceMap& getResourceMap(const std::string& pblock) { return resources_[pblock]; }
    /// Always creates the pblock; stores nothing in it if both `name` and `value` are empty.
    void addResourceInfo(const std::string& pblock, const std::string& name, const std::string& value);
    /// Whether there is a fixed count or a pblock.
    bool hasResourceInfo() const;

    /// The SLRs that kernels of `pblock` may use. Only the first call for a pblock has an effect.
    void addSLRInfo(const std::string& pblock, const std::string& commaSeparated);
    void addSLRInfo(const std::string& pblock, const char* commaSeparated) {
        addSLRInfo(pblock, std::string(commaSeparated));
    }
    void addSLRInfo(const std::string& pblock, const HSTVector<std::string>& names);
    void addSLRInfo(const std::string& pblock, const std::set<std::string>& names);
    /// Replaces `out` by the names of `pblock`, whose case is ignored; leaves it unchanged if there are none.
    void getSLRNames(const std::string& pblock, std::set<std::string>& out) const;
    const std::map<std::string, std::set<std::string>>& getReadOnlySLRMap() const { return slrNames_; }
    /// The SLR names of the pblock, or null. Of several pblocks whose names differ only in case, the last one in key
    /// order is used.
    const std::set<std::string>* findSLRNames(const std::string& pblock) const;
    /// Appends the name of each pblock that has resources.
    void getValidSLRNames(HSTVector<std::string>& out) const;

    /// Decimal text: the fixed count, else the count of the dynamic region's resources; empty if that is 0.
    std::string getBRAMCount() const;
    void setBRAMCount(std::string value) { bramCount_ = std::move(value); }
    std::string getLUTCount() const;
    void setLUTCount(std::string value) { lutCount_ = std::move(value); }
    std::string getDSPCount() const;
    void setDSPCount(std::string value) { dspCount_ = std::move(value); }
    std::string getRegisterCount() const;
    void setRegisterCount(std::string value) { registerCount_ = std::move(value); }
    /// The resource `type` (such as "BRAM") of the pblocks named `pblock`; case is ignored. With a `variant` (such as
    /// "used") "BRAM_used" is looked up; "DSP" is also found as "DSPs", and its variants are "DSPs_used". 0 if
    /// missing.
    int getResCount(const std::string& type, const std::string& pblock, const std::string& variant) const;
    /// The same for the only pblock, or for "pblock_dynamic_region" if there are several or none.
    int getResCount(const std::string& type, const std::string& variant) const;

private:
    std::string getDynamicPblockName_() const;
    std::string countOr_(const std::string& fixed, const char* type) const;

    std::string name_, type_, clockFreq_;
    std::uint16_t numComputeUnits_ = 0;
    std::string vlnv_, sourceViewInstPath_, instPath_, parentRMInstPath_, reconfigModuleName_, drBaseAddress_,
        drBDName_;
    Owned<HPLPort> ports_;
    ConfigParamMap configParams_;
    PBlockToResourceMap resources_;
    void addSlrs_(const std::string& pblock, std::set<std::string> names);

    std::map<std::string, std::set<std::string>> slrNames_;
    /// Of several rows that differ only in case, the last one.
    std::map<std::string, const std::pair<const std::string, std::set<std::string>>*> slrRowsByLowerName_;
    std::string bramCount_, lutCount_, registerCount_, dspCount_;
};
