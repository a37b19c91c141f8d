#include "platform/PlatformEmulation.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "emulation/DriverScript.h"
#include "emulation/Generator.h"
#include "platform/PlatformLoader.h"
#include "platform/PlatformRequests.h"
#include "platform/RequestFailure.h"
#include "tcl/task_manager.h"
#include "util/Descriptor.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"
#include "util/HUTFileUtils.h"
#include "util/PrivateTmpDir.h"
#include "zip/Destination.h"
#include "zip/Request.h"

namespace teq_platform::requests {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path, int error) {
    throw RequestError(FailureKind::environment, {.file = path, .text = std::generic_category().message(error)});
}

/// Throws for what cannot be read. What is missing is reported by the step that needs it.
void expectReadable(const std::string& path) {
    const util::Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen() && errno != ENOENT && errno != ENOTDIR) fail(path, errno);
}

/// Makes a new directory the working directory of the process, until its lifetime ends. It is in the scratch directory
/// that was made, whatever has that path by now.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const util::ScratchDirectory& scratch)
        : before_(::open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {
        const std::string path = scratch.path() + "/work";
        const bool isMade = before_.isOpen() && ::mkdirat(scratch.descriptor(), "work", 0700) == 0;
        constexpr int kFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
        const util::Descriptor work(isMade ? ::openat(scratch.descriptor(), "work", kFlags) : -1);
        if (!work.isOpen() || ::fchdir(work.get()) != 0) fail(path, errno);
    }
    ~WorkingDirectory() {
        if (::fchdir(before_.get()) != 0) {  // cannot fail for a directory that was the working directory
        }
    }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    util::Descriptor before_;
};

std::string absolute(const std::string& path) {
    std::string made = HUTFileUtils::makeAbsolutePath(path);
    if (!made.starts_with('/'))
        throw RequestError(FailureKind::environment,
                           {.file = path, .text = "is a relative path, and the working directory has been removed"});
    return made;
}

/// One request, with absolute paths.
class Build {
public:
    explicit Build(const Emulate& request) : request_(request) {
        for (std::string* path : {&request_.archive, &request_.destination, &request_.keep})
            if (!path->empty()) *path = absolute(*path);
        if (request_.installation.empty()) request_.installation = emulation::installation();
        request_.installation = absolute(request_.installation);
        copy_ = scratch_.path() + "/" + fs::path(HUTFile::getCanonicalName(request_.archive)).filename().native();
    }

    /// Errors name the archive and not its copy.
    HSTVector<EmulationMember> run() try { return runSteps(); } catch (const HEXFileFault& e) {
        HEXDiagnostic diagnostic = e.diagnostic();
        if (diagnostic.file != copy_) throw;
        diagnostic.file = request_.archive;
        throw HEXFileFault(std::move(diagnostic));
    }

private:
    HSTVector<EmulationMember> runSteps() {
        const std::string scripts = emulation::scriptsDirectory(request_.installation, request_.isDynamic);
        for (const std::string& file : {std::string(), "/platform_config/" + request_.name + ".json",
                                        std::string("/platform_config/default_prop.json"),
                                        std::string("/memss/run.tcl"), std::string("/streaming/run.tcl")})
            expectReadable(scripts + file);
        report("copying '" + request_.archive + "'");
        zip::copyIntoDirectory(request_.archive, scratch_.descriptor(), copy_);
        const jun::tcltasks::task_limits limits({request_.timeLimit, request_.mayRunPrograms,
                                                 request_.output ? request_.output : [](std::string_view) {}});
        const WorkingDirectory directory(scratch_);
        try {
            build();
        } catch (...) {
            tryToKeep();
            throw;
        }
        keep();
        return request_.dryRun ? HSTVector<EmulationMember>() : merge();
    }

    /// The path of the copy, which is checked again.
    std::string copy() const {
        scratch_.path();
        return copy_;
    }

    void report(const std::string& step) const {
        if (request_.report) request_.report(step);
    }

    void build() const {
        using namespace emulation;
        const std::string script = std::string(kPropertyDirectory) + "/" + kPropertyScript;
        report("writing the property script");
        writePropertyScript(request_.installation, copy(), request_.name, request_.isDynamic, kPropertyDirectory);
        report("writing the driver script");
        writeDriverScript(request_.installation, script, kOverlay, request_.isDynamic);
        if (request_.dryRun) return;
        report("evaluating the scripts");
        buildOverlay(platformName(copy_), kOverlay, request_.isDynamic);
    }

    HSTVector<EmulationMember> merge() const {
        HSTVector<EmulationMember> members;
        std::error_code error;
        for (const std::string& file : emulation::filesBelow(emulation::kOverlay))
            members.push_back({file, fs::file_size(std::string(emulation::kOverlay) + "/" + file, error)});
        report("merging " + std::to_string(members.size()) + " files");
        emulation::mergeOverlay(copy(), emulation::kOverlay);
        PlatformLoader::open(copy(), HwMetadataMode::Default);
        report("writing '" + request_.destination + "'");
        const std::string fromWork = "../" + fs::path(copy_).filename().native();
        zip::moveToDestination(fromWork, request_.destination, request_.mayReplace);
        return members;
    }

    void keep() const {
        if (request_.keep.empty()) return;
        // Nobody else's directory or link, which may have taken the name while the scripts ran.
        if (::mkdir(request_.keep.c_str(), 0777) != 0) fail(request_.keep, errno);
        for (const char* name : {emulation::kDriverScript, emulation::kPreLink, emulation::kPostLink})
            if (HUTFile::exists(name)) zip::copyToDestination(name, request_.keep + "/" + name);
        for (const std::string directory : {emulation::kPropertyDirectory, emulation::kOverlay})
            if (HUTFile::exists(directory)) keepBelow(directory);
    }

    void keepBelow(const std::string& directory) const {
        for (const std::string& file : emulation::filesBelow(directory)) {
            const std::string from = directory + "/" + file, to = request_.keep + "/" + from;
            HUTFile::mkDirRecursive(HUTFile::getParent(to));
            zip::copyToDestination(from, to);
        }
    }

    /// After a failure, which is what the caller shall hear of.
    void tryToKeep() const {
        try {
            keep();
        } catch (const HEXAll&) {  // NOLINT(bugprone-empty-catch)
        }
    }

    Emulate request_;
    util::ScratchDirectory scratch_;
    std::string copy_;  ///< of the archive
};

}  // namespace

HSTVector<EmulationMember> emulate(const Emulate& request) {
    if (!HUTFile::exists(request.archive)) throw HEXFileNotFoundException(request.archive);
    if (request.name.empty())
        throw RequestError(FailureKind::wrongUse, {.text = "the name of the property file is empty"});
    if (!request.dryRun) checkDestination(request.destination, request.mayReplace);
    if (!request.keep.empty()) checkDestination(request.keep, false);
    const zip::Request opened;
    emulation::expectPlatform(request.archive);
    return Build(request).run();
}

HSTVector<std::string> emulationNames(const std::string& installation, bool isDynamic) {
    const std::string root = installation.empty() ? emulation::installation() : installation;
    HSTVector<std::string> names;
    for (const std::string& file : folderNames(emulation::scriptsDirectory(root, isDynamic) + "/platform_config"))
        if (HUTFile::getExt(file) == "json") names.push_back(file.substr(0, file.size() - 5));
    std::ranges::sort(names);
    return names;
}

}  // namespace teq_platform::requests
