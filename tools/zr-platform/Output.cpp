#include "Output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <zip/HUTZip.h>

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
    Console::take().nameStandIn(path);
    write(path, false);
    std::ifstream file(path, std::ios::binary);
    scratch.remove();
    std::string block(1 << 18, '\0');
    while (file.read(block.data(), static_cast<std::streamsize>(block.size())), file.gcount() > 0)
        Console::take().data({block.data(), static_cast<std::size_t>(file.gcount())});
}

bool isStandardOutput(const std::string& destination) {
    struct stat named {
    }, output{};
    return destination == "-" || (::stat(destination.c_str(), &named) == 0 && ::fstat(STDOUT_FILENO, &output) == 0 &&
                                  named.st_dev == output.st_dev && named.st_ino == output.st_ino);
}

void expectPlaceForRecords(const Call& call, const std::string& destination) {
    if (Records::areAsked(call) && isStandardOutput(destination))
        throw RequestError(FailureKind::wrongUse,
                           {.text = "--json and --ndjson describe a file: name one for the output"});
}

WrittenFiles::WrittenFiles(const Call& call, std::vector<std::string> destinations)
    : call_(call), destinations_(std::move(destinations)) {
    std::erase(destinations_, "");
    for (const std::string& destination : destinations_) expectPlaceForRecords(call, destination);
}

boost::json::object WrittenFiles::recordOf(const std::string& file, const std::vector<std::string>& losses) const {
    const bool isWritten = !call_.has("dry-run");
    boost::json::array members;
    const std::string extension = fs::path(file).extension();
    if (isWritten && (extension == ".cfa" || extension == ".lfa" || extension == ".rqa"))
        for (const HUTZip::Member& member : HUTZip::members(file))
            members.push_back({{"name", member.name}, {"size", member.size}});
    return {{"file", file},
            {"written", isWritten},
            {"members", std::move(members)},
            {"losses", boost::json::array(losses.begin(), losses.end())}};
}

void WrittenFiles::report(const std::string& input, const std::vector<std::string>& losses) const {
    if (!Records::areAsked(call_)) {
        for (const std::string& loss : losses) Console::take().print({.file = input, .text = loss}, "");
        return;
    }
    Records records("written-file");
    for (const std::string& file : destinations_) records.add(recordOf(file, losses));
    records.print(call_, {});
}
