#pragma once
#include <string>

#include "kit/Platforms.h"
#include "kit/Replace.h"
#include "text/HSTVector.h"
#include "util/HUTEnv.h"

/// Other application roots while it lives.
class AppRoots {
public:
    explicit AppRoots(HSTVector<std::string> roots) { HUTEnv::setKELAppRootList(std::move(roots)); }
    ~AppRoots() { HUTEnv::setKELAppRootList(before_); }
    AppRoots(const AppRoots&) = delete;
    AppRoots& operator=(const AppRoots&) = delete;

private:
    const HSTVector<std::string> before_ = HUTEnv::getKELAppRootList();
};

/// The text without the path of the test's directory.
inline std::string without(const Scratch& scratch, const std::string& text) {
    return replaced(text, scratch.str() + "/", "");
}

/// Writes the platform `directory/NAME.zdf` with `hw/NAME.lfa` and `sw/NAME.spfm` beside it; gives the descriptor's
/// path. `metadata` is the member lfa.json.
inline std::string putPlatform(const Scratch& scratch, const std::string& directory, const std::string& name,
                               const std::string& metadata = "{}") {
    packed(scratch, directory + "/hw/" + name + ".lfa", {{"lfa.json", metadata}});
    scratch.put(directory + "/sw/" + name + ".spfm", kSoftware);
    const std::string hardware = "<teq:hardwarePlatforms><teq:hardwarePlatform teq:path='hw' teq:name='" + name +
                                 ".lfa'/></teq:hardwarePlatforms>";
    return scratch.put(directory + "/" + name + ".zdf", descriptor(hardware, "sw/" + name + ".spfm"));
}
