#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"

/// A clock of the platform. Frequency (MHz) and period (ns) are the decimal texts of the file, never converted.
class ZR_API HTEQSystemClock : public teq_platform::JSONSerializable {
public:
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    /// Name for users: "PL 0" if the hpfm member gives the clock an id, else the original name.
    const std::string& getName() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& getOrigName() const { return origName_; }
    void setOrigName(std::string value) { origName_ = std::move(value); }
    const std::string& getFrequency() const { return frequency_; }
    void setFrequency(std::string value) { frequency_ = std::move(value); }
    const std::string& getCompRef() const { return compRef_; }
    void setCompRef(std::string value) { compRef_ = std::move(value); }
    const std::string& getInstRef() const { return instRef_; }
    void setInstRef(std::string value) { instRef_ = std::move(value); }
    const std::string& getStatus() const { return status_; }
    void setStatus(std::string value) { status_ = std::move(value); }
    const std::string& getPeriod() const { return period_; }
    void setPeriod(std::string value) { period_ = std::move(value); }
    const std::string& getNormalizedPeriod() const { return normalizedPeriod_; }
    void setNormalizedPeriod(std::string value) { normalizedPeriod_ = std::move(value); }
    /// -1 for a clock without an id, so that it is never the default clock of a platform whose default id is 0.
    int getId() const { return id_; }
    void setId(int value) { id_ = value; }

    /// By the status, whose case is ignored. All three are false for an empty status.
    bool isScalable() const;  ///< "scalable" or "changeable"
    bool isFixed() const;     ///< "fixed"
    bool isReserved() const;  ///< "reserved"

private:
    std::string name_, origName_, frequency_, compRef_, instRef_, status_, period_, normalizedPeriod_;
    int id_ = -1;
};
