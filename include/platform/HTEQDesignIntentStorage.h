#pragma once
#include "platform/JSONSerializable.h"

/// What kind of system a platform is meant for. A value that a source declared ("explicit") wins over one that the
/// tools worked out ("computed"), in whatever order the two were set.
class ZR_API HTEQDesignIntentStorage : public teq_platform::JSONSerializable {
public:
    /// A value that is none of these is ignored by the setters.
    enum class Key : unsigned { serverManaged = 1, externalHost = 2, embedded = 4, dataCenter = 8 };

    /// Writes the one key "designIntent".
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
