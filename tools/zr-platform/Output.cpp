#include "Output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

#include <util/HUTEnv.h>
#include <util/HUTFile.h>
#include <util/HUTFileUtils.h>

#include "Console.h"

namespace {

std::string besideOf(const std::string& destination, const std::string& ext) {
    const std::string name = destination == "-" ? HUTEnv::getJUNTmpDir() + "/output" : destination;
    return HUTFileUtils::uniquifyFilenameInDir(name + "." + std::to_string(getpid()) + ".part" +
                                               (ext.empty() ? "" : "." + ext));
}

void toStandardOutput(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string block(1 << 18, '\0');
    while (file.read(block.data(), static_cast<std::streamsize>(block.size())), file.gcount() > 0)
        Console::take().data({block.data(), static_cast<std::size_t>(file.gcount())});
}

}  // namespace

void checkDestination(const std::string& destination, bool overwrite) {
    if (destination != "-" && !overwrite && HUTFile::exists(destination))
        throw Problem::of(Exit::no, destination, "is there already; --force overwrites it");
    if (destination != "-" && !HUTFile::isDir(HUTFile::getParent(destination)))
        throw Problem::of(Exit::environment, HUTFile::getParent(destination), "no such directory");
}

OutputFile::OutputFile(const std::string& destination, bool overwrite, const std::string& ext)
    : destination_(destination), overwrite_(overwrite) {
    checkDestination(destination, overwrite);
    path_ = besideOf(destination, ext.empty() ? HUTFile::getExt(destination) : ext);
}

OutputFile::~OutputFile() { HUTFile::rm(path_); }

void OutputFile::commit() {
    if (destination_ == "-") {
        toStandardOutput(path_);
        return;
    }
    const unsigned flags = overwrite_ ? 0 : RENAME_NOREPLACE;
    if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, destination_.c_str(), flags) == 0) return;
    if (errno == EEXIST) throw Problem::of(Exit::no, destination_, "is there already; --force overwrites it");
    throw Problem::of(Exit::environment, destination_, std::strerror(errno));
}
