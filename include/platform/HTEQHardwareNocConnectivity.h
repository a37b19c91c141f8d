#pragma once
#include <string>
#include <utility>

#include "platform/JSONSerializable.h"
#include "text/HSTFwdIter.h"
#include "text/HSTVector.h"
#include "text/Owned.h"

class HTEQHardwareBusInterface;

/// The bus interfaces of one instance of the network on chip. They are not among the platform's own bus interfaces.
class ZR_API HTEQHardwareNocConnectivity : public teq_platform::JSONSerializable {
public:
    HTEQHardwareNocConnectivity();
    ~HTEQHardwareNocConnectivity() override;
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    const std::string& getInstanceRef() const { return instanceRef_; }
    void setInstanceRef(std::string value) { instanceRef_ = std::move(value); }
    /// Appends a new interface, owned by this record.
    HTEQHardwareBusInterface* addBusInterface();
    /// Appends to `out`.
    void getBusInterfaces(HSTVector<HTEQHardwareBusInterface*>& out) const;
    /// The caller deletes the iterator.
    HSTFwdIter<HTEQHardwareBusInterface*>* createBusInterfaceIter() const;
    /// The first one with exactly that name, or null.
    HTEQHardwareBusInterface* getBusInterfaceByName(const std::string& name) const;

private:
    std::string instanceRef_;
    Owned<HTEQHardwareBusInterface> busInterfaces_;
};
