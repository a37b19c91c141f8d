#include "Output.h"

#include <fstream>

#include <platform/HTEQTmpDirObject.h>

#include "Console.h"

namespace {

void copyToStandardOutput(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string block(1 << 18, '\0');
    while (file.read(block.data(), static_cast<std::streamsize>(block.size())), file.gcount() > 0)
        Console::take().data({block.data(), static_cast<std::size_t>(file.gcount())});
}

}  // namespace

void writeTo(const std::string& destination, bool mayReplace, const std::string& ext,
             const std::function<void(const std::string& path, bool mayReplace)>& write) {
    if (destination != "-") return write(destination, mayReplace);
    const HTEQTmpDirObject scratch("output");
    const std::string path = scratch.get() + "/output" + (ext.empty() ? "" : "." + ext);
    write(path, false);
    copyToStandardOutput(path);
}
