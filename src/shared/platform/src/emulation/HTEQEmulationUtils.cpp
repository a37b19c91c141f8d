#include "platform/HTEQEmulationUtils.h"

#include <functional>
#include <ostream>

#include "emulation/DriverScript.h"
#include "emulation/Generator.h"
#include "emulation/PropertyScript.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "util/HUTEnv.h"

namespace {

/// False if `step` throws a fault that was sent as a message.
bool succeeds(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const HEXFileFault& e) {
        if (e.diagnostic().id.empty()) throw;
        return false;
    }
}

}  // namespace

bool HTEQEmulationUtils::generateCfaEmu(const std::string& platformFile, const std::string& name,
                                        const std::string& outputDirectory) {
    const std::string below = outputDirectory.empty() ? "" : outputDirectory + "/";
    const std::string properties = below + emulation::kPropertyDirectory, overlay = below + emulation::kOverlay;
    if (!succeeds([&] { emulation::expectPlatform(platformFile); }) ||
        !generateEmuPropDict(platformFile, name, false, properties))
        return false;
    if (name.empty()) return true;
    return generateCfaEmuScripts(properties + "/" + emulation::kPropertyScript, emulation::platformName(platformFile),
                                 overlay, false) &&
           (!outputDirectory.empty() || updateCfa(platformFile, overlay));
}

bool HTEQEmulationUtils::generateEmuDir(const std::string& propertyScript, const std::string& platformName,
                                        const std::string& outputDirectory) {
    if (!outputDirectory.empty())
        return generateCfaEmuScripts(propertyScript, platformName, outputDirectory + "/" + emulation::kOverlay, true);
    ComMsgMgr::sendMsg("@74-57@");
    return false;
}

bool HTEQEmulationUtils::generateCfaEmuScripts(const std::string& propertyScript, const std::string& platformName,
                                               const std::string& overlay, bool isDr) {
    return succeeds([&] {
        emulation::writeDriverScript(emulation::installation(), propertyScript, overlay, isDr);
        emulation::buildOverlay(platformName, overlay, isDr);
    });
}

bool HTEQEmulationUtils::generateEmuPropDict(const std::string& platformFile, const std::string& name, bool isDr,
                                             const std::string& outputDirectory) {
    return succeeds([&] {
        emulation::writePropertyScript(emulation::installation(), platformFile, name, isDr, outputDirectory);
    });
}

void HTEQEmulationUtils::writeEmuUpdateCfa(std::ostream& out, const std::string& propertyScript,
                                           const std::string& overlay, const std::string& /*hpfmFile*/,
                                           const std::string& preLinkScript, const std::string& postLinkScript,
                                           bool isDr) {
    const std::string root = HUTEnv::get("TORVANE_MORWEN").value_or("");
    out << emulation::driverScript({.scripts = emulation::scriptsDirectory(root, isDr),
                                    .propertyScript = propertyScript,
                                    .overlay = overlay,
                                    .preLink = preLinkScript,
                                    .postLink = postLinkScript,
                                    .isDynamic = isDr});
}

int HTEQEmulationUtils::writeEmuPropertiesDict(HPLPlatform* platform, const std::string& defaultProperties,
                                               const std::string& properties, const std::string& userProperties,
                                               const std::string& boardRepository, const std::string& uniqueName,
                                               std::ostream& out, const std::string& platformFile, bool isDr,
                                               std::string& customScript) {
    emulation::Properties all;
    emulation::addProperties({defaultProperties, true}, all);
    emulation::addProperties({properties, false}, all);
    emulation::addProperties({userProperties, false}, all);
    const emulation::PropertyScript script =
        emulation::propertyScript(*platform, all,
                                  {.platform = emulation::platformName(platformFile),
                                   .uniqueName = uniqueName.empty() ? platform->getUniqueName() : uniqueName,
                                   .boardRepository = boardRepository,
                                   .isDynamic = isDr});
    out << script.text;
    if (script.flow == emulation::Flow::customScript) customScript = script.customScript;
    return static_cast<int>(script.flow);
}

bool HTEQEmulationUtils::printMemoriesInfo(HPLPlatform* platform, std::ostream& out, std::string& dictionary) {
    const std::string text = emulation::memories(*platform);
    if (text.empty()) return false;
    out << text;
    dictionary = emulation::kMemoryTags;
    return true;
}

bool HTEQEmulationUtils::updateCfa(const std::string& platformFile, const std::string& overlay) {
    emulation::mergeOverlay(platformFile, overlay);
    return true;
}

std::string HTEQEmulationUtils::getEmuXmlFile(HPLPlatform* platform) {
    const std::string listed = platform->getFile("EMU_XML");
    return listed.empty() ? "emu/emu.xml" : listed;
}

void HTEQEmulationUtils::getAllRelativeInDir(const std::string& directory, HSTVector<std::string>& out,
                                             const std::string& prefix) {
    for (const std::string& file : emulation::filesBelow(directory))
        out.push_back(prefix.empty() ? file : prefix + "/" + file);
}

std::string HTEQEmulationUtils::getTorvaneIPPath() {
    std::string path;
    succeeds([&] { path = emulation::installation() + "/data/ip"; });
    return path;
}

std::string HTEQEmulationUtils::getSelbrookIPPath() {
    for (const char* variable : {"TORVANE_SELBROOK", "TORVANE_TEQ"})
        if (const auto root = HUTEnv::get(variable); root && !root->empty()) return *root + "/platforms";
    return {};
}
