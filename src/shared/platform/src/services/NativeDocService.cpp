#include "platform/NativeDocService.h"

#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "msg/Printed.h"
#include "platform/NativeKeyService.h"
#include "platform/NativeObjectService.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"

namespace teq::platform {
namespace {

using ptree = DocService::ptree;

/// The key without the text between the last brackets of each segment.
std::string withoutIndexes(const std::string& key) {
    auto pieces = HSTStringUtils::split(key, '.');
    for (std::string& piece : pieces)
        if (const auto open = piece.rfind('['); open != std::string::npos)
            piece = piece.substr(0, open + 1) + piece.substr(piece.rfind(']'));
    return HSTStringUtils::join(pieces, ".");
}

std::set<std::string> keysOf(const ptree& tree, teq_platform::HwMetadataMode mode) {
    try {
        return NativeKeyService(mode).get(tree);
    } catch (const std::exception& e) {
        msg::printError(std::string("Exception: ") + e.what() + "\n");
        return {};
    }
}

}  // namespace

ptree NativeDocService::getDocKeyBranch(const ptree& tree, const std::string& key) const {
    if (key.find("documentation_keys") == std::string::npos) return {};
    const ptree* at = &tree;
    for (const std::string& piece : HSTStringUtils::split(key, '.'))
        if (const auto child = at->find(piece); child != at->not_found()) at = &child->second;
    return *at;
}

ptree NativeDocService::getBranch(const ptree& tree, const std::string& key, bool& found) const {
    return NativeObjectService().getNodeByPath(getAsJsonStr(tree), key, found);
}

std::string NativeDocService::getFromFile(ptree& tree) const {
    static const std::string root = HUTEnv::getJUNAppRoot(), separator = HUTFile::getDirSeparator();
    std::string path = root + separator + "platforms" + separator + "platform_keys_doc.json";
    if (!HUTFile::exists(path)) {
        msg::printError("\nCould not find the <" + path +
                        " >. Check the install area.\n  Can not continue with this task.\n");
        return {};
    }
    std::string text;
    try {
        constexpr std::size_t kMaxBytes = 32 << 20;
        text = wholefile::read(path, kMaxBytes);
    } catch (const HEXUserException&) {
        return path;
    }
    json::parse(text, path, tree);
    return path;
}

std::string NativeDocService::getAsJsonStr(const ptree& tree) const { return json::write(tree); }

bool NativeDocService::isValidDocKey(ptree& tree, const std::string& key) const {
    const std::set<std::string> keys = keysOf(tree, mode_);
    const std::string reduced = withoutIndexes(key);
    if (key == "all" || key == "list_keys" || keys.contains(reduced)) return true;
    msg::printError("Could not find the specified key: <" + key + ">.\n");
    return false;
}

}  // namespace teq::platform
