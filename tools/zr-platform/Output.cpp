#include "Output.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "Console.h"

namespace fs = std::filesystem;
using teq_platform::FailureKind;
using teq_platform::RequestError;

namespace {

/// A private directory for one file. It is removed as soon as the file is open for reading: a reader of standard output
/// that goes away ends the tool by a signal, which must leave nothing behind.
class Scratch {
public:
    Scratch() {
        std::error_code error;
        path_ = (fs::temp_directory_path(error) / "zr_platform-XXXXXX").native();
        if (!::mkdtemp(path_.data()))
            throw RequestError(FailureKind::environment,
                               {.file = path_, .text = std::string("cannot be made: ") + std::strerror(errno)});
    }
    ~Scratch() { remove(); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string file(const std::string& ext) const { return path_ + "/output" + (ext.empty() ? "" : "." + ext); }
    void remove() const {
        std::error_code error;
        fs::remove_all(path_, error);
    }

private:
    std::string path_;
};

}  // namespace

void writeTo(const std::string& destination, bool mayReplace, const std::string& ext,
             const std::function<void(const std::string& path, bool mayReplace)>& write) {
    if (destination != "-") return write(destination, mayReplace);
    const Scratch scratch;
    const std::string path = scratch.file(ext);
    write(path, false);
    std::ifstream file(path, std::ios::binary);
    scratch.remove();
    std::string block(1 << 18, '\0');
    while (file.read(block.data(), static_cast<std::streamsize>(block.size())), file.gcount() > 0)
        Console::take().data({block.data(), static_cast<std::size_t>(file.gcount())});
}
