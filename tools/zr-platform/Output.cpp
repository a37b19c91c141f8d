#include "Output.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <platform/HTEQTmpDirObject.h>
#include <zip/HUTZip.h>

namespace fs = std::filesystem;
using teq_platform::FailureKind;
using teq_platform::RequestError;

void writeTo(const std::string& destination, bool mayReplace, const std::string& ext,
             const std::function<void(const std::string& path, bool mayReplace)>& write) {
    if (destination != "-") return write(destination, mayReplace);
    const HTEQTmpDirObject scratch("output");
    const std::string path = scratch.get() + "/output" + (ext.empty() ? "" : "." + ext);
    Console::take().nameStandIn(path);
    write(path, false);
    std::ifstream file(path, std::ios::binary);
    if (ext == "json" || ext == "xml")
        return Console::take().document(std::string(std::istreambuf_iterator(file), {}));
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
