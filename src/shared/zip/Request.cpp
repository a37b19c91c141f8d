#include "zip/Request.h"

#include <sys/stat.h>

#include <algorithm>
#include <deque>
#include <utility>

#include "util/SystemFault.h"
#include "zip/FileBytes.h"

namespace zip {
namespace {

struct Session {
    FileStamp stamp;
    bool isForChange;
    std::shared_ptr<const Archive> archive;
};
/// The oldest is closed when another one is needed: a descriptor may name a thousand archives, and a host may have
/// few file descriptors left.
constexpr std::size_t kMaxOpen = 12;

struct Sessions {
    std::deque<Session> open;  ///< the oldest first
    std::shared_ptr<OutputBudget> budget;
};

/// Of the thread's outermost request; null outside of one.
thread_local Sessions* sessions = nullptr;

std::unique_ptr<FileBytes> openFile(const std::string& path, bool forChange) {
    return forChange ? FileBytes::openForChange(path) : std::make_unique<FileBytes>(path);
}

std::shared_ptr<const Archive> knownAt(const std::string& path, bool forChange) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return nullptr;
    const auto at = std::ranges::find_if(sessions->open, [&](const Session& session) {
        return session.stamp == FileStamp(status) && (session.isForChange || !forChange);
    });
    return at != sessions->open.end() ? at->archive : nullptr;
}

std::shared_ptr<const Archive> openAs(const std::string& path, bool forChange) {
    if (sessions)
        if (auto known = knownAt(path, forChange)) return known;
    auto bytes = openFile(path, forChange);
    const FileStamp stamp = bytes->stamp();
    auto archive = std::make_shared<const Archive>(std::move(bytes), path);
    if (!sessions) return archive;
    if (sessions->open.size() == kMaxOpen) sessions->open.pop_front();
    sessions->open.push_back({stamp, forChange, archive});
    return archive;
}

}  // namespace

Request::Request(std::uint64_t budget) : isOutermost_(!sessions) {
    if (isOutermost_) util::forgetSystemFaults();
    if (isOutermost_) sessions = new Sessions{{}, std::make_shared<OutputBudget>(budget)};
}

Request::~Request() {
    if (isOutermost_) delete std::exchange(sessions, nullptr);
}

std::shared_ptr<OutputBudget> Request::budget() { return sessions ? sessions->budget : nullptr; }

std::shared_ptr<const Archive> openShared(const std::string& path) { return openAs(path, false); }

std::shared_ptr<const Archive> openSharedForChange(const std::string& path) { return openAs(path, true); }

}  // namespace zip
