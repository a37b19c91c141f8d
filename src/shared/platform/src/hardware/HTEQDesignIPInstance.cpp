#include "platform/HTEQDesignIPInstance.h"

#include <algorithm>

#include "hardware/HardwareKeys.h"
#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "text/HSTStringUtils.h"

namespace {

using IP = HTEQDesignIPInstance;
using K = json::Keys<IP>;
using teq_platform::JSONObjectWriter;

/// One key for each parameter. Keys are paths, so a name with a dot becomes an object in an object.
void writeConfiguration(JSONObjectWriter& writer, const char* name, const IP& ip) {
    std::map<std::string, std::string> params;
    ip.getConfigParamMap(params);
    JSONObjectWriter object;
    for (const auto& [key, value] : params) object.addKey(key, value);
    writer.addKey(name, std::move(object));
}

void readConfiguration(IP& ip, const json::Node& node) {
    for (const json::Node value : node) ip.addConfigParam(std::string(value.name()), value.data());
}

constexpr json::Key<IP> kKeys[] = {
    K::text<&IP::getVLNV, &IP::setVLNV>("vlnv"),
    K::text<&IP::getInstanceName, &IP::setInstanceName>("instance"),
    refusing(K::custom<&writeConfiguration, &readConfiguration>("configuration", json::Form::object)),
};

}  // namespace

template <>
std::span<const json::Key<IP>> json::keysOf<IP>() {
    return kKeys;
}

void HTEQDesignIPInstance::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

/// Trees are copied and destroyed by recursion. The reader of JSON limits such keys, but they have other sources too.
void HTEQDesignIPInstance::addConfigParam(const std::string& key, const std::string& value) {
    if (static_cast<std::size_t>(std::count(key.begin(), key.end(), '.')) >= json::kUntrusted.keyLevels)
        throw HEXAlgException("Design IP Instance Config Param key '" + HSTStringUtils::excerpt(key) +
                              "' has too many levels between its dots");
    if (!configParams_.try_emplace(key, value).second)
        throw HEXAlgException("Attempt to readd Design IP Instance Config Param key: '" + key + "' is not allowed!");
}
