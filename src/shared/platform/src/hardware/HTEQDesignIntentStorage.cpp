#include "platform/HTEQDesignIntentStorage.h"

#include "platform/JSONWriter.h"

using teq_platform::JSONObjectWriter;

void HTEQDesignIntentStorage::toJSON(JSONObjectWriter& writer) const {
    const std::pair<const char*, const Intent*> intents[] = {{"dataCenter", &dataCenter_},
                                                             {"embedded", &embedded_},
                                                             {"externalHost", &externalHost_},
                                                             {"serverManaged", &serverManaged_}};
    JSONObjectWriter object;
    for (const auto& [name, intent] : intents) {
        JSONObjectWriter child;
        child.addKey("value", intent->value());
        child.addKey("explicit", intent->isExplicit);
        object.addKey(name, std::move(child));
    }
    writer.addKey("designIntent", std::move(object));
}

HTEQDesignIntentStorage::Intent* HTEQDesignIntentStorage::find_(Key key) {
    switch (key) {
        case Key::serverManaged: return &serverManaged_;
        case Key::externalHost: return &externalHost_;
        case Key::embedded: return &embedded_;
        case Key::dataCenter: return &dataCenter_;
    }
    return nullptr;
}

void HTEQDesignIntentStorage::setExplicitValue(Key key, bool value) {
    if (Intent* intent = find_(key)) {
        intent->isExplicit = true;
        intent->explicitValue = value;
    }
}

void HTEQDesignIntentStorage::setComputedValue(Key key, bool value) {
    if (Intent* intent = find_(key)) intent->computedValue = value;
}
