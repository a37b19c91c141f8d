#pragma once
#include <set>
#include <string>

#include "platform/HwMetadataMode.h"
#include "platform/KeyService.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// Lists each key path of a document once: "a" and "a.b" for objects; "a", "a[]" and "a[].b" for a list of objects.
///
/// Whatever a loader throws passes. More than 16 MiB of keys throw `HEXDataException`.
class ZR_API NativeKeyService : public KeyService {
public:
    /// `mode`: which metadata the loaders that the service makes read.
    explicit NativeKeyService(teq_platform::HwMetadataMode mode = teq_platform::HwMetadataMode::Default)
        : mode_(mode) {}

    /// Of the whole document, whatever the file's kind. Empty if loading fails.
    std::set<std::string> get(const std::string& file) const override;
    std::set<std::string> get(const ptree& tree) const override;
    /// Empty also for a null loader.
    std::set<std::string> get(Loader* loader) const override;
    /// An object with the one key "keys", the list of all keys, sorted by bytes.
    std::string getAsJsonStr(const std::string& file) const override;
    std::string getAsJsonStr(Loader* loader) const override;

private:
    teq_platform::HwMetadataMode mode_;
};

}  // namespace teq::platform
