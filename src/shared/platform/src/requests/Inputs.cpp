#include "requests/Inputs.h"

#include <sys/stat.h>

#include <algorithm>
#include <set>

#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "zip/ArchiveError.h"
#include "zip/MemberName.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

[[noreturn]] void wrongUse(const std::string& text) { throw RequestError(FailureKind::wrongUse, {.text = text}); }

bool isSameFile(const std::string& a, const std::string& b) {
    struct stat first {
    }, second{};
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

}  // namespace

NamedFile namedFile(const std::string& text) {
    const auto first = text.find('='), second = first == text.npos ? text.npos : text.find('=', first + 1);
    if (second == text.npos || first == 0 || second == first + 1 || second + 1 == text.size())
        wrongUse("'" + HSTStringUtils::printable(text) + "' is not of the form TYPE=MEMBER=FILE");
    return {text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
}

void openForChange(const std::string& archive) {
    try {
        zip::openSharedForChange(archive);
    } catch (const zip::ArchiveError&) {  // reported by the reader or the writer
    }
}

void checkInput(const std::string& file) {
    if (!HUTFile::exists(file)) throw HEXFileNotFoundException(file);
}

void checkFree(const std::string& destination) {
    struct stat status {};
    if (::lstat(destination.c_str(), &status) == 0)
        throw RequestError(FailureKind::exists, {.file = destination, .text = "already exists"});
}

void checkOutput(const std::string& destination, const HSTVector<std::string>& extensions, bool mayReplace,
                 const HSTVector<std::string>& inputs) {
    if (!extensions.empty() && std::ranges::find(extensions, HUTFile::getExt(destination)) == extensions.end())
        wrongUse("'" + HSTStringUtils::printable(destination) + "' must have the extension ." +
                 HSTStringUtils::join(extensions, " or ."));
    for (const std::string& input : inputs)
        if (isSameFile(input, destination))
            wrongUse("'" + HSTStringUtils::printable(destination) + "' is both an input and the output");
    checkDestination(destination, mayReplace);
}

void checkFiles(const HSTVector<NamedFile>& files, const std::string& reserved) {
    std::set<std::string> members, types;
    for (const NamedFile& file : files) {
        const std::string shown = "the member name '" + HSTStringUtils::printable(file.member) + "' ";
        if (const auto fault = zip::digestNameFault(file.member, true); !fault.empty())
            wrongUse(shown + std::string(fault));
        if (file.member == reserved) wrongUse(shown + "is that of the metadata");
        if (!members.insert(file.member).second) wrongUse(shown + "is given twice");
        if (!types.insert(file.type).second)
            wrongUse("the type '" + HSTStringUtils::printable(file.type) + "' is given twice");
        checkInput(file.source);
    }
}

}  // namespace teq_platform::requests
