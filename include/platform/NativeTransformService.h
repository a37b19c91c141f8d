#pragma once
#include <cstdint>
#include <string>

#include "platform/TransformService.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// Reads and checks transform specifications: files whose names end in ".json", with an object
/// `{"operation": "...", "spec": ...}`. No transformation is applied to a platform yet.
class ZR_API NativeTransformService : public TransformService {
public:
    /// What a default `NativeObjectService` gives.
    std::string getAsJsonStr(const std::string& file) const override;
    std::string getAsJsonStr(Loader* loader) const override;
    /// The text of the file; empty for another name and if the file cannot be read. At most 64 MiB.
    std::string getTransformSpecAsJsonStr(const std::string& specification) const override;
    /// The number of entries of "spec"; 0 without a specification. Throws the property tree's `json_parser_error` if
    /// the text is not JSON, `ptree_bad_path` if it has no "spec". The platform is not looked at.
    std::int32_t getObjectsBySpec(const std::string& file, const std::string& specification) const override;
    /// The specification's text. The loader is not used.
    std::string getObjectsBySpec(Loader* loader, const std::string& specification) const override;
};

}  // namespace teq::platform
