#include "platform/HDFToCFAConverter.h"

#include "env/VendorDomain.h"
#include "hwdb/HHDFHwDef.h"
#include "hwdb/HHDFHwDefUtils.h"
#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "platform/HTEQCfaXmlWriter.h"
#include "platform/JSONWriter.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"
#include "util/WholeFile.h"
#include "zip/FolderPacker.h"

namespace {

const std::string& existing(const std::string& path, bool exists, const char* kind) {
    if (!exists) throw HEXAlgException(std::string("Could not find specified ") + kind + ": '" + path + "'on disk.");
    return path;
}

std::string below(const std::string& directory, const std::string& name) {
    return directory + HUTFile::getDirSeparator() + name;
}

}  // namespace

HDFToCFAConverter::HDFToCFAConverter(const std::string& hdf, const std::string& outputDir,
                                     const std::string& outputName)
    : outputDir_(outputDir), outputName_(outputName), output_(below(outputDir, outputName)) {
    existing(hdf, HUTFile::exists(hdf), "file");
    existing(outputDir, HUTFile::isDir(outputDir), "dir");
    staging_ = below(HUTEnv::getJUNTmpDir(), outputName);
    definition_ = HHDFHwDefUtils::getHDF(hdf);
    platform_.setVendor(kVendorDomain);
    platform_.setName(definition_ ? definition_->getHierTopModuleName() : "hdf");
    platform_.setVersionMajor(1);
    platform_.setVersionMinor(0);
    platform_.setUnifiedPlatform(true);
    platform_.setExpandable(false);
    platform_.setUsesPR(false);
    platform_.setPlatformState("pre_synth");
    platform_.addDevice();
}

HDFToCFAConverter::~HDFToCFAConverter() {
    if (isStaged_) HUTFile::rmRecursive(staging_);
}

const char* HDFToCFAConverter::hwpf_keyword(const std::string& outputName) {
    return outputName.ends_with(".lfa") ? "lfa" : "cfa";
}

bool HDFToCFAConverter::writeCFA() {
    createStagingDir();
    if (!writeHDF()) {
        ComMsgMgr::sendMsg("@74-46@");
        return false;
    }
    if (!writeCfaXml()) {
        ComMsgMgr::sendMsg("@74-47@");
        return false;
    }
    writeCfaArchive();
    return true;
}

void HDFToCFAConverter::createStagingDir() {
    staging_ = HUTFileUtils::makeAbsolutePath(HUTFileUtils::uniquifyFilenameInDir(staging_));
    HUTFile::mkDirRecursive(staging_);
    isStaged_ = true;
    HUTFile::ensureWritableDirectory(staging_);
}

bool HDFToCFAConverter::writeHDF() const { return definition_ && definition_->write(staging_); }

bool HDFToCFAConverter::writeCfaXml() {
    const std::string stem = below(staging_, hwpf_keyword(outputName_));
    try {
        HTEQCfaXmlWriter(&platform_, stem + ".xml").writeCFA();
        teq_platform::JSONObjectWriter writer;
        platform_.toJSON(writer);
        // The document ends in a line end of its own.
        wholefile::replace(stem + ".json", writer.text() + "\n");
    } catch (const HEXAll& e) {
        ComMsgMgr::send(e.message());
        return false;
    }
    return HUTFile::exists(stem + ".json");
}

void HDFToCFAConverter::writeCfaArchive() const { packFolder(staging_, output_, mayReplace_); }
