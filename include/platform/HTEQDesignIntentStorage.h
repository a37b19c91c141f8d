#pragma once
#include "platform/JSONSerializable.h"

/// What kind of system a platform is meant for. A value declared by a source ("explicit") takes precedence over one
/// derived by the tools ("computed"), whichever was set first.
class ZR_API HTEQDesignIntentStorage : public teq_platform::JSONSerializable {
public:
    /// The setters ignore any other value.
    enum class Key : unsigned { serverManaged = 1, externalHost = 2, embedded = 4, dataCenter = 8 };

    /// Writes the key "designIntent".
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

    bool getDataCenter() const { return dataCenter_.value(); }
    bool getEmbedded() const { return embedded_.value(); }
    bool getExternalHost() const { return externalHost_.value(); }
    bool getServerManaged() const { return serverManaged_.value(); }
    void setExplicitValue(Key key, bool value);
    void setComputedValue(Key key, bool value);

private:
    struct Intent {
        bool isExplicit = false, explicitValue = false, computedValue = false;
        bool value() const { return isExplicit ? explicitValue : computedValue; }
    };
    Intent* find_(Key key);

    Intent dataCenter_, embedded_, externalHost_, serverManaged_;
};
