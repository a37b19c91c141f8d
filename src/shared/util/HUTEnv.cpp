#include "util/HUTEnv.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

#include "util/HUTFile.h"
#include "util/PrivateTmpDir.h"

namespace fs = std::filesystem;

namespace {

/// `<prefix>/share/zr_platform`, where this code was loaded from `<prefix>/lib/...` or `<prefix>/bin/...`.
std::string defaultAppRoot() {
    Dl_info self{};
    if (!::dladdr(reinterpret_cast<const void*>(&defaultAppRoot), &self) || !self.dli_fname) return {};
    const fs::path directory = fs::path(HUTFile::getCanonicalName(self.dli_fname)).parent_path();
    fs::path prefix = directory.parent_path();
    for (fs::path at = directory; at.has_relative_path(); at = at.parent_path()) {
        const std::string name = at.filename().native();
        if (name != "lib" && name != "lib64" && name != "bin") continue;
        prefix = at.parent_path();
        break;
    }
    return (prefix / "share" / "zr_platform").native();
}

struct Host {
    HSTVector<std::string> appRoots{defaultAppRoot()};
    int major = ZR_VERSION_MAJOR;
    int minor = ZR_VERSION_MINOR;
    std::string fullBuild = ZR_VERSION;
    std::string productName;
};

Host& host() {
    static Host* const present = new Host;  // outlives every static of the host
    return *present;
}

}  // namespace

std::optional<std::string> HUTEnv::get(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
}

HSTVector<std::string> HUTEnv::getKELAppRootList() { return host().appRoots; }
void HUTEnv::setKELAppRootList(HSTVector<std::string> roots) { host().appRoots = std::move(roots); }
std::string HUTEnv::getJUNAppRoot() { return host().appRoots.empty() ? std::string() : host().appRoots.front(); }

std::string HUTEnv::getJUNTmpDir() { return util::tmpDir(); }
void HUTEnv::setJUNTmpDir(std::string directory) { util::setHostTmpDir(std::move(directory)); }

int HUTEnv::getMajor() { return host().major; }
int HUTEnv::getMinor() { return host().minor; }
std::string HUTEnv::getFullBuildStr() { return host().fullBuild; }
void HUTEnv::setVersion(int major, int minor, std::string fullBuild) {
    host().major = major;
    host().minor = minor;
    host().fullBuild = std::move(fullBuild);
}

std::string HUTEnv::getProductName() { return host().productName; }
void HUTEnv::setProductName(std::string name) { host().productName = std::move(name); }
