#include <platform/HTEQBootImg.h>
#include <platform/HTEQProcessorGroup.h>
#include <platform/HTEQSoftwarePlatform.h>
#include <platform/HTEQSystemConfig.h>
#include <text/HSTStringUtils.h>

#include "ShowHardware.h"
#include "Text.h"

namespace {

void showConfiguration(Text& text, const HTEQSystemConfig& config, bool isDefault) {
    text.item("configuration " + config.getName());
    text.line("configuration",
              config.getName() + " (" + config.getPrettyName() + ")" + (isDefault ? ", default" : ""));
    HSTVector<std::string> runtimes;
    config.getRuntimesByPrettyName(runtimes);
    text.line("runtimes", HSTStringUtils::join(runtimes, ", "));
    if (config.isQemuSupported()) text.line("QEMU", "yes");
    HSTVector<HTEQProcessorGroup*> groups;
    config.getProcessorGroups(groups);
    std::vector<std::vector<std::string>> rows;
    for (const HTEQProcessorGroup* group : groups)
        rows.push_back({group->getName(), group->getCpuType(), group->getCpuInstance(), group->getOSName(),
                        group->getName() == config.getDefaultProcGrpName() ? "default" : ""});
    text.rows("processor groups", {"name", "CPU", "instance", "OS", ""}, rows);
    HSTVector<HTEQBootImg*> images;
    config.getBootImgs(images);
    rows.clear();
    for (const HTEQBootImg* image : images)
        rows.push_back({image->getName(), image->getType(), image->getBif(), image->getImgData(),
                        image->getName() == config.getDefaultBootImgName() ? "default" : ""});
    text.rows("boot images", {"name", "type", "bif", "data", ""}, rows);
}

}  // namespace

void showSoftware(Text& text, const HTEQSoftwarePlatform& platform) {
    text.heading("Software", "software");
    HSTVector<HTEQSystemConfig*> configs;
    platform.getSystemConfigs(configs);
    const HTEQSystemConfig* byDefault = platform.getDefaultSystemConfig();
    for (const HTEQSystemConfig* config : configs) showConfiguration(text, *config, config == byDefault);
}
