#include "emulation/Generator.h"

#include <sys/stat.h>

#include <filesystem>
#include <set>
#include <string_view>
#include <utility>

#include "archive/PlatformArchive.h"
#include "emulation/DriverScript.h"
#include "emulation/PropertyScript.h"
#include "msg/HEXFileFault.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQCfaXmlReader.h"
#include "platform/HTEQEmulationUtils.h"
#include "platform/HTEQEmulationXMLReader.h"
#include "platform/HTEQEmulationXMLWriter.h"
#include "platform/HTEQEmulations.h"
#include "readers/ArchiveMember.h"
#include "readers/Reading.h"
#include "tcl/task_manager.h"
#include "util/AtomicFile.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "zip/Request.h"

namespace emulation {
namespace {

/// A file that exists while the scripts are made, and that no link of its name leads elsewhere.
class ExtractedProperties {
public:
    explicit ExtractedProperties(std::string path) : path_(std::move(path)) {}
    ~ExtractedProperties() {  // without allocating
        struct stat status {};
        if (::stat(path_.c_str(), &status) == 0 && S_ISREG(status.st_mode)) HUTFile::rm(path_);
    }
    ExtractedProperties(const ExtractedProperties&) = delete;
    ExtractedProperties& operator=(const ExtractedProperties&) = delete;

    /// The last member counts, but each must be there. The same one may be listed a hundred thousand times.
    void add(const std::string& archive, const std::string& member) {
        from_ = {.file = archive, .member = member};
        if (known_.insert(member).second) read();
    }
    void extract() {
        if (from_.file.empty()) return;
        if (textOf_ != from_.member) read();
        util::AtomicFile file(path_, 0600);
        file.append(text_);
        file.commit();
        text_ = {};
    }
    /// A file of an earlier run does not count.
    PropertySource source() const { return {from_.file.empty() ? "" : path_, false, from_}; }

private:
    void read() {
        text_ = readers::textOfMember(from_.file, from_.member);
        textOf_ = from_.member;
    }

    std::string path_, text_, textOf_;
    std::set<std::string> known_;
    HEXDiagnostic from_;
};

/// Writes a script, whatever has its name: a link is replaced, not followed.
void writeScript(const std::string& path, std::string_view text) {
    util::AtomicFile file(path, 0777);
    file.append(text);
    file.commit();
}

void makeOwnDirectory(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode))
        throw HEXUserException("directory '" + path + "' could not be made: a link has this name");
    HUTFile::mkDirRecursive(path);
}

/// The property file of the installation; empty, with a warning, if there is none.
std::string defaultProperties(const std::string& scripts, const std::string& name) {
    const std::string directory = scripts + "/platform_config/";
    for (const std::string& file : {directory + name + ".json", directory + "default_prop.json"})
        if (HUTFile::exists(file)) return file;
    ComMsgMgr::sendMsg("@74-56@%s", name);
    return {};
}

void extractProperties(HPLPlatform& platform, const std::string& archive, ExtractedProperties& properties,
                       ExtractedProperties& userProperties) {
    const std::string xml = HTEQEmulationUtils::getEmuXmlFile(&platform);
    if (!archive::PlatformArchive(archive).contains(readers::withoutLeadingDot(xml))) return;
    HTEQEmulations emulations;
    HTEQEmulationXMLReader::parseFromCfa(archive, xml, &emulations);
    for (const HTEQEmulation* emulation : emulations.getEmulations())
        for (const HTEQEmulationFile* file : emulation->getFiles()) {
            if (file->getType() == "PROP_JSON") properties.add(archive, file->getName());
            if (file->getType() == "USER_PROP_JSON") userProperties.add(archive, file->getName());
        }
    properties.extract();
    userProperties.extract();
}

/// The metadata of what the driver script leaves in the overlay.
void describeOverlay(const std::string& platformName, bool isDynamic, HTEQEmulations& emulations) {
    HTEQEmulation& emulation = *emulations.createEmulation();
    if (isDynamic) emulation.createFile("TOP_BD", "emu/emu.bd");
    emulation.createFile("EMU_DR_BD", isDynamic ? "pfm_dynamic/pfm_dynamic.bd" : "emu.bd");
    emulation.createFile("EMU_HPFM", hpfmName(platformName));
    emulation.createFile("POST_SYS_LINK_TCL", kPostLink);
    emulation.createFile("PRE_SYS_LINK_TCL", kPreLink);
}

}  // namespace

void expectPlatform(const std::string& platformFile) {
    const auto refuse = [&](const ComMsgMgrInstance& message, const char* text) {
        readers::fail(message, {.file = platformFile, .text = text});
    };
    if (!HUTFile::exists(platformFile)) refuse(ComMsgMgr::make("@74-32@%s", platformFile), "no such file");
    if (!HUTFile::isFile(platformFile)) refuse(ComMsgMgr::make("@74-36@%s", platformFile), "not a regular file");
}

std::string platformName(const std::string& platformFile) {
    return std::filesystem::path(HUTFile::getCanonicalName(platformFile)).stem().native();
}

std::string hpfmName(const std::string& platformName) { return platformName + "_emu.hpfm"; }

std::string installation() {
    const auto root = HUTEnv::get("TORVANE_MORWEN");
    if (!root || root->empty()) {
        const ComMsgMgrInstance message = ComMsgMgr::make("@74-35@");
        readers::fail(message, {.text = message.text});
    }
    return *root;
}

void writePropertyScript(const std::string& installation, const std::string& platformFile, const std::string& name,
                         bool isDynamic, const std::string& directory) {
    const zip::Request request;
    HPLPlatform platform;
    HTEQCfaXmlReader(platformFile, &platform).readCFA();
    const std::string& archive = platform.getPlatformFile();
    ExtractedProperties properties("temp_prop.json"), userProperties("temp_user_prop.json");
    extractProperties(platform, archive, properties, userProperties);

    Properties all;
    const PropertySource ofTool{defaultProperties(scriptsDirectory(installation, isDynamic), name), true};
    for (const PropertySource& source : {ofTool, properties.source(), userProperties.source()})
        addProperties(source, all);
    const PropertyScript script = propertyScript(platform, all,
                                                 {.platform = platformName(archive),
                                                  .uniqueName = platform.getUniqueName(),
                                                  .boardRepository = platform.getBoardRepo(),
                                                  .isDynamic = isDynamic});
    makeOwnDirectory(directory);
    writeScript(directory + "/" + kPropertyScript, script.text);
}

void writeDriverScript(const std::string& installation, const std::string& propertyScript, const std::string& overlay,
                       bool isDynamic) {
    writeScript(kDriverScript, driverScript({.scripts = scriptsDirectory(installation, isDynamic),
                                             .propertyScript = propertyScript,
                                             .overlay = overlay,
                                             .preLink = kPreLink,
                                             .postLink = kPostLink,
                                             .isDynamic = isDynamic}));
}

void buildOverlay(const std::string& platformName, const std::string& overlay, bool isDynamic) {
    const auto result = jun::tcltasks::task_manager::eval_in_tcl(std::string("source ") + kDriverScript, false, true);
    // An overlay of an earlier run may still be there if the script has not come to its end.
    if (!result.isDone || !HUTFile::exists(overlay + (isDynamic ? "/emu/emu/emu.bd" : "/emu/emu.bd"))) {
        const ComMsgMgrInstance message = ComMsgMgr::make("@74-33@");
        readers::fail(
            message, {.file = kDriverScript, .text = message.text + (result.text.empty() ? "" : ": " + result.text)});
    }
    HTEQEmulations emulations;
    describeOverlay(platformName, isDynamic, emulations);
    HTEQEmulationXMLWriter(&emulations, overlay + "/emu/emu.xml").writeXml();
}

}  // namespace emulation
