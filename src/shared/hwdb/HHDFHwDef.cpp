#include "hwdb/HHDFHwDef.h"

#include <unistd.h>

#include "msg/HEXAll.h"
#include "util/HUTFile.h"
#include "zip/Destination.h"

bool HHDFHwDef::write(const std::string& directory) const {
    const std::string source = HUTFile::getCanonicalName(file_);
    const std::string target = directory + "/" + file_.substr(file_.rfind('/') + 1);
    if (::link(source.c_str(), target.c_str()) == 0) return true;
    try {
        if (HUTFile::exists(target)) return false;
        zip::copyToDestination(source, target);
        return true;
    } catch (const HEXUserException&) {
        return false;
    }
}
