#include "platform/SimpleFixedLFACreator.h"

#include "json/JsonText.h"
#include "platform/JSONWriter.h"
#include "util/HUTFile.h"
#include "util/WholeFile.h"
#include "zip/FolderPacker.h"

SimpleFixedLFACreator::SimpleFixedLFACreator(const std::string& output, Existing existing)
    : output_(output), existing_(existing), staging_("fixed_lfa") {
    if (existing == Existing::remove) HUTFile::rm(output);
}

void SimpleFixedLFACreator::addFile(const std::string& type, const std::string& member, const std::string& source) {
    platform_.removeFileType(type);
    platform_.addFile(type, member);
    added_.emplace_back(member, source);
}

bool SimpleFixedLFACreator::writeLFA() {
    setPlatformAttributes();
    writeJSON();
    createArchive();
    return true;
}

void SimpleFixedLFACreator::setPlatformAttributes() {
    platform_.setUnifiedPlatform(true);
    platform_.setExpandable(false);
    platform_.setGeneratedByLink(true);
    platform_.setGeneratedBySwEmuLink(true);
}

/// The document ends in a line end of its own.
void SimpleFixedLFACreator::writeJSON() const {
    teq_platform::JSONObjectWriter writer;
    platform_.toJSON(writer);
    wholefile::replace(staging_.get() + "/lfa.json", writer.text() + "\n");
}

void SimpleFixedLFACreator::createArchive() const {
    packFolder(staging_.get(), output_, existing_ != Existing::refuse, {}, added_);
}
