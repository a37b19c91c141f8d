#pragma once
#include <string>

#include "platform/DocService.h"
#include "platform/HwMetadataMode.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// Reads the documentation of the keys, `platforms/platform_keys_doc.json` below the application root, and checks keys
/// against it. docs/keys.md describes the file.
class ZR_API NativeDocService : public DocService {
public:
    explicit NativeDocService(teq_platform::HwMetadataMode mode = teq_platform::HwMetadataMode::Default)
        : mode_(mode) {}

    /// The node that the segments of the key lead to; segments that do not exist are skipped. Empty for a key without
    /// "documentation_keys".
    ptree getDocKeyBranch(const ptree& tree, const std::string& key) const override;
    /// The node at a path of `NativeObjectService::getNodeByPath`.
    ptree getBranch(const ptree& tree, const std::string& key, bool& found) const override;
    /// Fills `tree` from the file and returns its path. If there is no such file, prints so on standard error and
    /// returns an empty text; if it cannot be opened, `tree` stays as it is. Throws the property tree's
    /// `json_parser_error` if it is not JSON. The application root of the first call applies to the whole process.
    std::string getFromFile(ptree& tree) const override;
    std::string getAsJsonStr(const ptree& tree) const override;
    /// Whether the tree has the key; indexes count as "[]". "all" and "list_keys" are always valid. Prints on standard
    /// error if not. Throws std::out_of_range for a segment with "[" and without "]".
    bool isValidDocKey(ptree& tree, const std::string& key) const override;

private:
    teq_platform::HwMetadataMode mode_;
};

}  // namespace teq::platform
