#pragma once
#include <string>

#include "platform/HwMetadataMode.h"
#include "platform/ObjectService.h"
#include "text/ZrApi.h"

namespace teq::platform {

/// Answers paths on the document of a platform. docs/paths.md has the path language with examples.
///
/// A document is JSON text; operations on one parse it each time. Who asks many questions takes the tree once. In a tree
/// operation, a path with ".." is looked up by the property tree's own rules (an empty segment is the first item of a
/// list); in a document operation an empty segment stays on its node.
///
/// A path that selects nothing is not an error: `found` or an empty result says so. Text that is not JSON throws the
/// property tree's `json_parser_error`; whatever a loader throws passes. Nothing is printed.
class ZR_API NativeObjectService : public ObjectService {
public:
    /// `mode`: which metadata the loaders that the service makes read.
    explicit NativeObjectService(teq_platform::HwMetadataMode mode = teq_platform::HwMetadataMode::Default)
        : mode_(mode) {}

    /// The whole document of a descriptor; the hardware platform of an archive; the software platform of a software
    /// file. Empty for another name, and if loading fails.
    std::string getAsJsonStr(const std::string& file) const override;
    /// The whole document; empty for a null loader and if loading fails.
    std::string getAsJsonStr(Loader* loader) const override;
    /// The same as a tree; an empty one if the file does not exist or there is no document.
    ptree getAsPropertyTree(const std::string& file) const override;
    ptree getAsPropertyTree(Loader* loader) const override;

    /// A copy of the node; an empty tree if there is none. If document or path are empty, `found` is not set.
    ptree getNodeByPath(const std::string& document, const std::string& path, bool& found) const override;
    /// A value as it is, an object as JSON, a list as JSON under the path's last segment. Empty if there is no node.
    std::string getObjectsByPath(const std::string& document, const std::string& path, bool& found) const override;
    /// The same on the loader's document. If loader, path or document are empty, `found` is not set.
    std::string getObjectsByPath(Loader* loader, const std::string& path, bool& found) const override;

    /// The first of the three places of a hardware platform that exists, else an empty text.
    std::string getHwPlatformRootPath(const std::string& document) const override;
    std::string getHwPlatformRootPath(const ptree& tree) const override;

    ptree getChild(const ptree& tree, const std::string& path) const override;
    /// A reference into `tree`.
    boost::optional<const ptree&> getChildOptional(const ptree& tree, const std::string& path) const override;
    std::string getStringValue(const ptree& tree, const std::string& path) const override;
    /// False if there is no node. Throws the property tree's `ptree_bad_data` if its text is not a Boolean.
    bool getBoolValue(const ptree& tree, const std::string& path) const override;
    bool getBoolValue(const ptree& tree, const std::string& path, bool missing) const override;
    std::string getObjectsByPath(const std::string& document, const std::string& path) const override;

    /// Whether the path selects a node. Legacy paths are not translated.
    bool hasNodeAtPath(const std::string& document, const std::string& path) const;
    bool hasNodeAtPath(const ptree& tree, const std::string& path) const;

    /// @name Where the hardware platform is in a document
    /// @{
    static std::string getLegacyHwPlatformRootPath();
    static std::string getDefaultHwPlatformRootPath();
    static std::string getDefaultRPHwPlatformRootPath();
    /// The same node in the notation of the property tree.
    static std::string getDefaultRPHwPlatformRootPathAlt();
    /// Whether the path's first segment is the legacy root.
    bool isLegacyHwPlatformPath(const std::string& path) const;
    std::string replaceLegacyHwPlatformPath(const std::string& path, const std::string& newRoot) const;
    bool hasLegacyHwPlatformRootPath(const std::string& document) const;
    bool hasLegacyHwPlatformRootPath(const ptree& tree) const;
    /// The path with its legacy root replaced by the one that exists; the path itself if none does.
    std::string getPathWithActualHwPlatformRoot(const std::string& document, const std::string& path) const;
    std::string getPathWithActualHwPlatformRoot(const ptree& tree, const std::string& path) const;
    /// Whether the path has "..".
    bool pathHasBoostArray(const std::string& path) const;
    /// `useAlt`: the third place in the notation of the property tree.
    std::string _getHwPlatformRootPath(const ptree& tree, bool useAlt) const;
    /// @}

private:
    teq_platform::HwMetadataMode mode_;
};

}  // namespace teq::platform
