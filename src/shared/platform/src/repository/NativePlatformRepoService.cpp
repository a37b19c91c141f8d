#include "platform/NativePlatformRepoService.h"

#include <unordered_set>

#include "msg/Printed.h"
#include "repository/DirectoryWalk.h"
#include "repository/SearchPath.h"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"

namespace teq::platform {
namespace {

bool hasDescriptorExtension(const std::string& name) {
    return name.size() >= 4 && HSTStringUtils::iequals(std::string_view(name).substr(name.size() - 4), ".zdf");
}

}  // namespace

void NativePlatformRepoService::addIfExists_(const std::string& dir, std::vector<std::string>& dirs) {
    if (HUTFile::exists(dir)) dirs.push_back(HUTFile::getCanonicalName(dir));
}

void NativePlatformRepoService::splitToFullDirs_(const std::string& path, std::vector<std::string>& dirs) {
    repository::splitToFullDirs(path, dirs);
}

void NativePlatformRepoService::getDefaultPlatformLookupDirs(std::vector<std::string>& dirs) const {
    addIfExists_(repository::systemRepository(), dirs);
    for (const std::string& root : HUTEnv::getKELAppRootList()) addIfExists_(repository::repositoryBelow(root), dirs);
}

std::string NativePlatformRepoService::getPlatformRepoPath(const std::vector<std::string>& dirs,
                                                           bool withDefaults) const {
    std::vector<std::string> all = dirs;
    if (withDefaults) getDefaultPlatformLookupDirs(all);
    std::string path;
    for (const std::string& dir : repository::distinctDirectories(all)) path += ":" + dir;
    path.erase(0, path.find_first_not_of(':'));
    return path;
}

void NativePlatformRepoService::getZdfFiles(const std::string& name, const std::string& path,
                                            std::vector<std::string>& files) const {
    std::vector<std::string> dirs;
    splitToFullDirs_(path, dirs);
    getZdfFiles(name, dirs, false, files);
}

void NativePlatformRepoService::getZdfFiles(const std::string& name, const std::vector<std::string>& dirs,
                                            bool withDefaults, std::vector<std::string>& files) const {
    if (hasDescriptorExtension(name) && HUTFile::exists(name)) {
        files.push_back(HUTFile::getCanonicalName(name));
        return;
    }
    std::vector<std::string> all = dirs;
    if (withDefaults) getDefaultPlatformLookupDirs(all);
    std::unordered_set<std::string> known(files.begin(), files.end());
    const repository::Visitor visitor{
        .file =
            [&](const repository::Entry& entry) {
                std::string path = entry.descriptorPath();
                if (path.empty() || (!name.empty() && !HSTStringUtils::iequals(entry.stem(), name))) return;
                if (known.insert(path).second) files.push_back(std::move(path));
            },
        .failed =
            [](const std::string&, const std::exception& e) {
                msg::printError("Exception: " + HSTStringUtils::printable(e.what()) + "\n");
            }};
    for (const std::string& dir : all)
        if (HUTFile::isDir(dir)) repository::walk(dir, repository::kDescriptorRules, visitor);
}

}  // namespace teq::platform
