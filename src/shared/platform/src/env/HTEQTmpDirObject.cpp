#include "platform/HTEQTmpDirObject.h"

#include <new>
#include <utility>

#include "msg/ComMsgMgr.h"
#include "util/HUTEnv.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"

void HTEQTmpDirObject::create(const std::string& name) {
    deleteTmpDir();
    std::string path =
        HUTFileUtils::makeAbsolutePath(HUTFileUtils::uniquifyFilenameInDir(HUTEnv::getJUNTmpDir() + "/" + name));
    HUTFile::mkDirRecursive(path);
    HUTFile::ensureWritableDirectory(path);
    path_ = std::move(path);
}

bool HTEQTmpDirObject::exists() const { return !path_.empty() && HUTFile::isDir(path_); }

/// Called by the destructor: throws nothing, although memory may have run out.
void HTEQTmpDirObject::deleteTmpDir() try {
    if (path_.empty()) return;
    if (HUTFile::isDir(path_)) {
        HUTFile::rmRecursive(path_);
        if (HUTFile::isDir(path_)) ComMsgMgr::sendMsg("@1-1874@%s", path_);
    }
    path_.clear();
} catch (const std::bad_alloc&) {
    path_.clear();
}
